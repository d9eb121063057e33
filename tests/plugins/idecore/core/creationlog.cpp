// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "creationlog.h"

#include <thread>

// Where Qt lets debuggers and test tools learn of objects as they come and go;
// the indices are those of its table.
extern "C" Q_CORE_EXPORT quintptr qtHookData[];

namespace {

constexpr int HOOK_ADD_OBJECT = 3;
constexpr int HOOK_REMOVE_OBJECT = 4;

QObjectList s_objects;
std::thread::id s_thread;

void added(QObject *object)
{
    if (std::this_thread::get_id() == s_thread)
        s_objects.append(object);
}

void removed(QObject *object)
{
    if (std::this_thread::get_id() == s_thread)
        s_objects.removeOne(object);
}

} // namespace

CreationLog::CreationLog()
{
    s_thread = std::this_thread::get_id();
    s_objects.clear();
    qtHookData[HOOK_ADD_OBJECT] = reinterpret_cast<quintptr>(&added);
    qtHookData[HOOK_REMOVE_OBJECT] = reinterpret_cast<quintptr>(&removed);
}

CreationLog::~CreationLog()
{
    qtHookData[HOOK_ADD_OBJECT] = 0;
    qtHookData[HOOK_REMOVE_OBJECT] = 0;
    s_objects.clear();
}

const QObjectList &CreationLog::objects() const
{
    return s_objects;
}
