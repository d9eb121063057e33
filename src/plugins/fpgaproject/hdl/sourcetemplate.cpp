// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/hdl/sourcetemplate_p.h>

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>

namespace Fpga {

namespace {

// Between blanks, to be searched with blanks around.
constexpr char VERILOG_WORDS[] =
    " always and assign automatic begin buf bufif0 bufif1 case casex casez cell cmos config "
    "deassign "
    "default defparam design disable edge else end endcase endconfig endfunction endgenerate "
    "endmodule endprimitive endspecify endtable endtask event for force forever fork function "
    "generate genvar highz0 highz1 if ifnone incdir include initial inout input instance integer "
    "join large liblist library localparam macromodule medium module nand negedge nmos nor "
    "noshowcancelled not notif0 notif1 or output parameter pmos posedge primitive pull0 pull1 "
    "pulldown pullup pulsestyle_ondetect pulsestyle_onevent rcmos real realtime reg release repeat "
    "rnmos rpmos rtran rtranif0 rtranif1 scalared showcancelled signed small specify specparam "
    "strong0 strong1 supply0 supply1 table task time tran tranif0 tranif1 tri tri0 tri1 triand "
    "trior trireg unsigned use uwire vectored wait wand weak0 weak1 while wire wor xnor xor ";
constexpr char SYSTEMVERILOG_WORDS[] =
    " accept_on alias always_comb always_ff always_latch assert assume before bind bins binsof bit "
    "break byte chandle checker class clocking const constraint context continue cover covergroup "
    "coverpoint cross dist do endchecker endclass endclocking endgroup endinterface endpackage "
    "endprogram endproperty endsequence enum eventually expect export extends extern final "
    "first_match foreach forkjoin global iff ignore_bins illegal_bins implements implies import "
    "inside int interconnect interface intersect join_any join_none let local logic longint "
    "matches modport nettype new nexttime null package packed priority program property protected "
    "pure rand randc randcase randsequence ref reject_on restrict return s_always s_eventually "
    "s_nexttime s_until s_until_with sequence shortint shortreal soft solve static string strong "
    "struct super sync_accept_on sync_reject_on tagged this throughout timeprecision timeunit type "
    "typedef union unique unique0 until until_with untyped var virtual void wait_order weak "
    "wildcard with within ";
constexpr char VHDL_WORDS[] =
    " abs access after alias all and architecture array assert attribute begin block body buffer "
    "bus case component configuration constant disconnect downto else elsif end entity exit file "
    "for function generate generic group guarded if impure in inertial inout is label library "
    "linkage literal loop map mod nand new next nor not null of on open or others out package port "
    "postponed procedure process protected pure range record register reject rem report return rol "
    "ror select severity shared signal sla sll sra srl subtype then to transport type unaffected "
    "units until use variable wait when while with xnor xor ";

bool among(const char *words, const QString &name)
{
    return QLatin1String(words).size() > 0
           && QString::fromLatin1(words).contains(QLatin1Char(' ') + name + QLatin1Char(' '));
}

int longestName(const QVector<Port> &ports)
{
    int longest = 0;
    for (const Port &port : ports)
        longest = std::max(longest, port.name.size());
    return longest;
}

QString verilogPort(const Port &port, bool systemVerilog)
{
    static const char *const directions[] = {"input ", "output", "inout "};
    QString text = QLatin1String(directions[int(port.direction)]);
    // Several drivers need a net.
    text += systemVerilog && port.direction != Port::Direction::InOut ? QLatin1String(" logic ")
                                                                      : QLatin1String(" wire ");
    if (port.width > 1)
        text += QStringLiteral("[%1:0] ").arg(port.width - 1);
    return text + port.name;
}

QString verilog(const SourceTemplate &source)
{
    QString text = QLatin1String("module ") + source.module;
    if (!source.ports.isEmpty()) {
        QStringList lines;
        for (const Port &port : source.ports) {
            lines.append(QLatin1String("    ")
                         + verilogPort(port, source.kind == FileKind::SystemVerilog));
        }
        text += QLatin1String(" (\n") + lines.join(QLatin1String(",\n")) + QLatin1String("\n)");
    }
    return text + QLatin1String(";\n\nendmodule\n");
}

QString vhdl(const SourceTemplate &source)
{
    QString text = QStringLiteral("library ieee;\nuse ieee.std_logic_1164.all;\n\nentity %1 is\n")
                       .arg(source.module);
    if (!source.ports.isEmpty()) {
        static const char *const directions[] = {"in   ", "out  ", "inout"};
        const int width = longestName(source.ports);
        QStringList lines;
        for (const Port &port : source.ports) {
            const QString type =
                port.width > 1 ? QStringLiteral("std_logic_vector(%1 downto 0)").arg(port.width - 1)
                               : QStringLiteral("std_logic");
            lines.append(QStringLiteral("        %1 : %2 %3")
                             .arg(port.name.leftJustified(width),
                                  QLatin1String(directions[int(port.direction)]), type));
        }
        text += QLatin1String("    port (\n") + lines.join(QLatin1String(";\n"))
                + QLatin1String("\n    );\n");
    }
    return text
           + QStringLiteral("end entity %1;\n\narchitecture rtl of %1 is\nbegin\n\n"
                            "end architecture rtl;\n")
                 .arg(source.module);
}

/// A line break would end the comment.
QString onOneLine(QString text)
{
    for (QChar &letter : text) {
        if (letter < QLatin1Char(' '))
            letter = QLatin1Char(' ');
    }
    return text;
}

/// Comments that show how, in the language of the constraints.
QString constraints(FileKind kind)
{
    if (kind == FileKind::TimingConstraint) {
        return QStringLiteral("# Clocks, with their periods in nanoseconds:\n"
                              "# create_clock -name clk -period 20.000 [get_ports clk]\n"
                              "\n"
                              "# Paths that need not be in time:\n"
                              "# set_false_path -from [get_ports button_n]\n");
    }
    return QStringLiteral("# The pin of each port of the top module:\n"
                          "# set_io clk 21\n"
                          "# set_io -pullup yes button_n 10\n");
}

} // namespace

QByteArray sourceText(const SourceTemplate &source)
{
    QString text;
    if (source.headerDate.isValid()) {
        const QLatin1String comment(source.kind == FileKind::Vhdl ? "-- "
                                    : isSource(source.kind)       ? "// "
                                                                  : "# ");
        text = comment + onOneLine(source.fileName) + QLatin1Char('\n') + comment
               + source.headerDate.toString(Qt::ISODate) + QLatin1Char('\n');
        if (!source.author.isEmpty()) {
            text +=
                comment + QLatin1String("Author: ") + onOneLine(source.author) + QLatin1Char('\n');
        }
        text += QLatin1Char('\n');
    }
    if (source.kind == FileKind::Vhdl)
        text += vhdl(source);
    else if (isSource(source.kind))
        text += verilog(source);
    else
        text += constraints(source.kind);
    return text.toUtf8();
}

QString nameFault(const QString &name, FileKind kind)
{
    if (name.isEmpty())
        return QCoreApplication::translate("Fpga::SourceTemplate", "A name is missing.");
    if (kind == FileKind::Vhdl) {
        static const QRegularExpression form(QStringLiteral("\\A[A-Za-z](_?[A-Za-z0-9])*\\z"));
        if (!form.match(name).hasMatch()) {
            return QCoreApplication::translate(
                       "Fpga::SourceTemplate",
                       "\"%1\" is no name in VHDL: letters, digits and single underscores, a "
                       "letter first.")
                .arg(name);
        }
        if (among(VHDL_WORDS, name.toLower()))
            return QCoreApplication::translate("Fpga::SourceTemplate",
                                               "\"%1\" is a word of the language.")
                .arg(name);
        return {};
    }
    static const QRegularExpression form(QStringLiteral("\\A[A-Za-z_][A-Za-z0-9_$]*\\z"));
    if (!form.match(name).hasMatch()) {
        return QCoreApplication::translate("Fpga::SourceTemplate",
                                           "\"%1\" is no name in Verilog: letters, digits and "
                                           "underscores, no digit first.")
            .arg(name);
    }
    if (among(VERILOG_WORDS, name)
        || (kind == FileKind::SystemVerilog && among(SYSTEMVERILOG_WORDS, name))) {
        return QCoreApplication::translate("Fpga::SourceTemplate",
                                           "\"%1\" is a word of the language.")
            .arg(name);
    }
    return {};
}

QString newFileSuffix(FileKind kind)
{
    switch (kind) {
    case FileKind::Verilog:
        return QStringLiteral("v");
    case FileKind::SystemVerilog:
        return QStringLiteral("sv");
    case FileKind::Vhdl:
        return QStringLiteral("vhd");
    case FileKind::TimingConstraint:
        return QStringLiteral("sdc");
    case FileKind::PhysicalConstraint:
        return QStringLiteral("pcn");
    case FileKind::SynthesisConstraint:
        return QStringLiteral("ksc");
    case FileKind::Memory:
        return QStringLiteral("mnx");
    case FileKind::Other:
        break;
    }
    return QStringLiteral("txt");
}

} // namespace Fpga
