// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_FILE_FILEKIND_H
#define FPGAPROJECT_FILE_FILEKIND_H

#include <fpgaproject/fpgaproject_export.h>

#include <QList>
#include <QString>

#include <optional>

namespace Fpga {

/// What a file is to the project, in the order in which kinds are shown.
enum class FileKind {
    Verilog,
    SystemVerilog,
    Vhdl,
    TimingConstraint,
    PhysicalConstraint,
    SynthesisConstraint,
    Memory,
    Other
};

FPGAPROJECT_EXPORT QList<FileKind> allFileKinds();
/// The name that stands in project files; never translated.
FPGAPROJECT_EXPORT QString fileKindName(FileKind kind);
/// Nothing for a name that no kind has.
FPGAPROJECT_EXPORT std::optional<FileKind> fileKindNamed(const QStringRef &name);
FPGAPROJECT_EXPORT std::optional<FileKind> fileKindNamed(QLatin1String name);
/// What a user reads over the files of that kind.
FPGAPROJECT_EXPORT QString fileKindTitle(FileKind kind);
/// The kind a file of that name most likely is. The name alone decides, so that a
/// missing file has a kind too.
FPGAPROJECT_EXPORT FileKind fileKindOf(const QString &fileName);
/// True where a file of the kind may hold modules or entities.
FPGAPROJECT_EXPORT bool isSource(FileKind kind);

} // namespace Fpga

#endif // FPGAPROJECT_FILE_FILEKIND_H
