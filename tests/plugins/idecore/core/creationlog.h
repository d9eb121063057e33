// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_CORE_CREATIONLOG_H
#define TESTS_PLUGINS_IDECORE_CORE_CREATIONLOG_H

#include <QObject>

/// Remembers, in the order of their creation, the objects that the thread of the
/// test makes while the log lives and that still exist. One at a time.
class CreationLog final
{
    Q_DISABLE_COPY(CreationLog)
public:
    CreationLog();
    ~CreationLog();

    [[nodiscard]] const QObjectList &objects() const;
};

#endif // TESTS_PLUGINS_IDECORE_CORE_CREATIONLOG_H
