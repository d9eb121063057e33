// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef UTILS_FILEUTILS_H
#define UTILS_FILEUTILS_H

#include <utils/utils_export.h>

#include <QString>

class QWidget;

namespace Utils {

/// File dialogs that remember where the user was.
class UTILS_EXPORT FileUtils final
{
public:
    FileUtils() = delete;

    /// Asks for an existing file. The dialog starts in the folder last used for
    /// @p purpose in this process, in @p directory the first time. Empty when
    /// the user cancelled.
    [[nodiscard]] static QString getOpenFileName(QWidget *parent, const QString &purpose,
                                                 const QString &caption,
                                                 const QString &directory = {},
                                                 const QString &filter = {});
};

} // namespace Utils

#endif // UTILS_FILEUTILS_H
