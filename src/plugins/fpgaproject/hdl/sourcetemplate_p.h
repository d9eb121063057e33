// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_HDL_SOURCETEMPLATE_P_H
#define FPGAPROJECT_HDL_SOURCETEMPLATE_P_H

#include <fpgaproject/file/filekind.h>
#include <fpgaproject/fpgaproject_export.h>

#include <QDate>
#include <QVector>

namespace Fpga {

struct Port
{
    enum class Direction { In, Out, InOut };

    QString name;
    Direction direction = Direction::In;
    /// In bits, 1 or more; above 1 the port is a vector.
    int width = 1;
};

/// What a new file is to hold.
struct SourceTemplate
{
    FileKind kind = FileKind::Verilog;
    QString fileName;
    /// The module or entity; not used for constraints.
    QString module;
    QVector<Port> ports;
    /// A valid date puts a comment with it and the name of the file on top.
    QDate headerDate;
    /// Named in that comment; empty for nobody.
    QString author;
};

FPGAPROJECT_EXPORT QByteArray sourceText(const SourceTemplate &source);

/// Why @p name cannot name a module, an entity or a port in that language; empty
/// when it can.
FPGAPROJECT_EXPORT QString nameFault(const QString &name, FileKind kind);
/// The suffix of new files of that kind, without the dot.
FPGAPROJECT_EXPORT QString newFileSuffix(FileKind kind);

} // namespace Fpga

#endif // FPGAPROJECT_HDL_SOURCETEMPLATE_P_H
