// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// Qt is not built with ThreadSanitizer, which therefore cannot see that one
// thread unlocks a mutex before another one locks it, and takes what the mutex
// guards for a race. These stand in front of Qt's functions and tell it.

#include <QMutex>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

using Operation = void (*)(QMutex *);

Operation ofQt(const char *symbol)
{
    return reinterpret_cast<Operation>(::dlsym(RTLD_NEXT, symbol));
}

} // namespace

void QMutex::lock() QT_MUTEX_LOCK_NOEXCEPT
{
    static const Operation qtLock = ofQt("_ZN6QMutex4lockEv");
    qtLock(this);
    __tsan_acquire(this);
}

void QMutex::unlock() noexcept
{
    static const Operation qtUnlock = ofQt("_ZN6QMutex6unlockEv");
    __tsan_release(this);
    qtUnlock(this);
}
