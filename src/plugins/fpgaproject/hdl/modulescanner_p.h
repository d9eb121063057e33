// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_HDL_MODULESCANNER_P_H
#define FPGAPROJECT_HDL_MODULESCANNER_P_H

#include <fpgaproject/file/filekind.h>
#include <fpgaproject/fpgaproject_export.h>

#include <QByteArray>
#include <QStringList>

namespace Fpga {

/// The names of the modules (of VHDL the entities) that @p text declares, in order
/// and each once. Comments and strings are passed over; nothing is expanded.
FPGAPROJECT_EXPORT QStringList modulesIn(const QByteArray &text, FileKind kind);
/// Those in a file; of one that is too large for a source, those at its start.
FPGAPROJECT_EXPORT QStringList modulesInFile(const QString &fileName, FileKind kind);

} // namespace Fpga

#endif // FPGAPROJECT_HDL_MODULESCANNER_P_H
