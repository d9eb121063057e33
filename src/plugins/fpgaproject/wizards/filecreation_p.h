// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_WIZARDS_FILECREATION_P_H
#define FPGAPROJECT_WIZARDS_FILECREATION_P_H

#include <fpgaproject/fpgaproject_export.h>

#include <QByteArray>
#include <QString>

namespace Fpga {

/// Makes a folder and those it lies in. False, and the system's reason.
[[nodiscard]] FPGAPROJECT_EXPORT bool makeFolder(const QString &folder, QString *reason);

enum class Overwrite { Never, Allowed };

/// Writes a new file. With Overwrite::Never one that is there, or comes there just
/// now, is not touched.
[[nodiscard]] FPGAPROJECT_EXPORT bool writeNewFile(const QString &path, const QByteArray &contents,
                                                   Overwrite overwrite, QString *reason);

/// Why a project in @p path cannot be opened by this program, whose paths may not
/// hold a blank and "-" together; empty when it can.
[[nodiscard]] FPGAPROJECT_EXPORT QString projectPathFault(const QString &path);

} // namespace Fpga

#endif // FPGAPROJECT_WIZARDS_FILECREATION_P_H
