// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/file/filekind.h>

#include <QCoreApplication>

#include <array>

namespace Fpga {

namespace {

struct KindRow
{
    FileKind kind;
    const char *name;
    const char *title;
    /// Between blanks, lower case.
    const char *suffixes;
};

constexpr std::array<KindRow, 8> KINDS{{
    {FileKind::Verilog, "verilog", QT_TRANSLATE_NOOP("Fpga::FileKind", "Verilog"),
     " v vh vo vp vg "},
    {FileKind::SystemVerilog, "systemverilog", QT_TRANSLATE_NOOP("Fpga::FileKind", "SystemVerilog"),
     " sv svh "},
    {FileKind::Vhdl, "vhdl", QT_TRANSLATE_NOOP("Fpga::FileKind", "VHDL"), " vhd vhdl "},
    {FileKind::TimingConstraint, "timing-constraint",
     QT_TRANSLATE_NOOP("Fpga::FileKind", "Timing Constraints"), " sdc "},
    {FileKind::PhysicalConstraint, "physical-constraint",
     QT_TRANSLATE_NOOP("Fpga::FileKind", "Physical Constraints"), " pcn fdc adc "},
    {FileKind::SynthesisConstraint, "synthesis-constraint",
     QT_TRANSLATE_NOOP("Fpga::FileKind", "Synthesis Constraints"), " ksc "},
    {FileKind::Memory, "memory", QT_TRANSLATE_NOOP("Fpga::FileKind", "Memory Contents"),
     " mnx ufx "},
    {FileKind::Other, "other", QT_TRANSLATE_NOOP("Fpga::FileKind", "Other Files"), ""},
}};

const KindRow &row(FileKind kind)
{
    return KINDS.at(std::size_t(kind));
}

} // namespace

QList<FileKind> allFileKinds()
{
    QList<FileKind> kinds;
    for (const KindRow &row : KINDS)
        kinds.append(row.kind);
    return kinds;
}

QString fileKindName(FileKind kind)
{
    return QString::fromLatin1(row(kind).name);
}

std::optional<FileKind> fileKindNamed(QLatin1String name)
{
    for (const KindRow &row : KINDS) {
        if (name == QLatin1String(row.name))
            return row.kind;
    }
    return std::nullopt;
}

std::optional<FileKind> fileKindNamed(const QStringRef &name)
{
    for (const KindRow &row : KINDS) {
        if (name == QLatin1String(row.name))
            return row.kind;
    }
    return std::nullopt;
}

QString fileKindTitle(FileKind kind)
{
    return QCoreApplication::translate("Fpga::FileKind", row(kind).title);
}

FileKind fileKindOf(const QString &fileName)
{
    const int dot = fileName.lastIndexOf(QLatin1Char('.'));
    if (dot < 0 || fileName.indexOf(QLatin1Char(' '), dot) >= 0)
        return FileKind::Other;
    const QString suffix = QLatin1Char(' ') + fileName.mid(dot + 1).toLower() + QLatin1Char(' ');
    for (const KindRow &row : KINDS) {
        if (QLatin1String(row.suffixes).size() > 0 && suffix.size() > 2
            && QString::fromLatin1(row.suffixes).contains(suffix))
            return row.kind;
    }
    return FileKind::Other;
}

bool isSource(FileKind kind)
{
    return kind == FileKind::Verilog || kind == FileKind::SystemVerilog || kind == FileKind::Vhdl;
}

} // namespace Fpga
