// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_CORE_HEAPLOG_H
#define TESTS_PLUGINS_IDECORE_CORE_HEAPLOG_H

#include <QtGlobal>

/// Remembers the order in which the thread of the test makes and deletes what lies
/// on the heap, of whatever class, while the log lives. One at a time.
///
/// A program that contains it has its own operators new and delete.
class HeapLog final
{
    Q_DISABLE_COPY(HeapLog)
public:
    HeapLog();
    ~HeapLog();

    /// The place of the living @p object among all that was made; -1 when it was not
    /// made meanwhile.
    [[nodiscard]] static int made(const void *object);
    /// The place of the first deletion at the address @p object; -1 when there was none.
    [[nodiscard]] static int deleted(const void *object);
};

#endif // TESTS_PLUGINS_IDECORE_CORE_HEAPLOG_H
