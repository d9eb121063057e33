// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_SUPPORT_FULLDISK_H
#define TESTS_SUPPORT_FULLDISK_H

#include <QtGlobal>

#include <sys/resource.h>

/// Lets no file of this process grow beyond @c bytes while it lives: a write fails
/// midway then, as on a full disk, with "File too large".
class FullDisk final
{
public:
    explicit FullDisk(rlim_t bytes);
    ~FullDisk();
    Q_DISABLE_COPY(FullDisk)

private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

#endif // TESTS_SUPPORT_FULLDISK_H
