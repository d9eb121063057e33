// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_EXTERNALEDITORS_EXTERNALEDITOR_H
#define IDECORE_EXTERNALEDITORS_EXTERNALEDITOR_H

#include <idecore/idecore_export.h>

#include <QString>
#include <QStringList>

namespace Core {

/// A text editor of the user's that runs outside this program.
struct IDECORE_EXPORT ExternalEditor
{
    /// What the user calls it; the registry's key.
    QString name;
    /// A path, or a bare name that the system looks for in the search path.
    QString program;
    /// A template: tokens between white space, with "%f" for the file's path and
    /// "%l" for the line. Quotation marks have no meaning.
    QString arguments;
    bool isDefault = false;

    /// What the program is given for @p filePath: one argument for each token of
    /// the template, whatever characters the path has. Without "%f" in the
    /// template the file is not among them.
    [[nodiscard]] QStringList argumentsFor(const QString &filePath, int line) const;
    /// Starts the program detached, without a shell, in the folder of @p filePath;
    /// lines count from 1. False when it did not start; nothing is shown then.
    bool open(const QString &filePath, int line) const;
};

} // namespace Core

#endif // IDECORE_EXTERNALEDITORS_EXTERNALEDITOR_H
