// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_CORE_ASSERTION_P_H
#define IDECORE_CORE_ASSERTION_P_H

#include <QtGlobal>

/// Checks a precondition without aborting: where it does not hold, writes a
/// critical log line with the place and runs @p action (a return).
#define KELMO_ASSERT(condition, action)                                                            \
    do {                                                                                           \
        if (Q_UNLIKELY(!(condition))) {                                                            \
            qCritical("ASSERTION %s FAILED AT %s:%d", #condition, __FILE__, __LINE__);             \
            action;                                                                                \
        }                                                                                          \
    } while (false)

#endif // IDECORE_CORE_ASSERTION_P_H
