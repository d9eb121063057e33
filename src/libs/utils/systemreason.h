// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef UTILS_SYSTEMREASON_H
#define UTILS_SYSTEMREASON_H

#include <utils/utils_export.h>

#include <QString>

namespace Utils {

/// Why the system refused something, in the language of the program. @p reason is
/// what QFile::errorString(), qt_error_string() and the like say, which is English
/// for all that happens often, whatever the language. What is not known here, or
/// is translated already, is returned as it is.
[[nodiscard]] UTILS_EXPORT QString systemReason(const QString &reason);

} // namespace Utils

#endif // UTILS_SYSTEMREASON_H
