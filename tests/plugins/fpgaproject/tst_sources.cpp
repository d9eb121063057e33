// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Reading and writing of sources: the modules in a file, and what a new file holds.

#include <fpgaproject/hdl/modulescanner_p.h>
#include <fpgaproject/hdl/sourcetemplate_p.h>

#include <QTest>

using Fpga::FileKind;
using Fpga::Port;
using Fpga::SourceTemplate;

namespace {

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

const QVector<Port> PORTS{{named("clk"), Port::Direction::In, 1},
                          {named("data"), Port::Direction::Out, 8},
                          {named("pad"), Port::Direction::InOut, 1}};

SourceTemplate source(FileKind kind)
{
    SourceTemplate wanted;
    wanted.kind = kind;
    wanted.fileName = named("top.x");
    wanted.module = named("top");
    wanted.ports = PORTS;
    return wanted;
}

} // namespace

class TestSources : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void modulesAreFound_data();
    void modulesAreFound();
    void aFileOfModulesIsRead();
    void aVerilogModuleHasItsPorts();
    void aSystemVerilogModuleHasItsPorts();
    void aVhdlEntityHasItsPorts();
    void withoutPortsThereIsNoList_data();
    void withoutPortsThereIsNoList();
    void constraintsAreComments_data();
    void constraintsAreComments();
    void aHeaderIsACommentOfTheLanguage_data();
    void aHeaderIsACommentOfTheLanguage();
    void whatIsWrittenIsFoundAgain_data();
    void whatIsWrittenIsFoundAgain();
    void namesAreThoseOfTheLanguage_data();
    void namesAreThoseOfTheLanguage();
};

void TestSources::modulesAreFound_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QStringList>("modules");
    const auto row = [](const char *name, const QByteArray &text, FileKind kind,
                        const char *modules) {
        const QString list = named(modules);
        QTest::newRow(name) << text << int(kind)
                            << (list.isEmpty() ? QStringList() : list.split(QLatin1Char(',')));
    };
    row("one", "module a; endmodule", FileKind::Verilog, "a");
    row("several", "module a(input x);\nendmodule\nmodule\n  b_2 #(parameter P = 1) ();endmodule",
        FileKind::Verilog, "a,b_2");
    row("in comments", "// module a;\n/* module b;\n module c; */ module d;", FileKind::Verilog,
        "d");
    row("in a string", "module a; initial $display(\"module b \\\" module c\"); endmodule",
        FileKind::Verilog, "a");
    row("part of a word", "xmodule a; module_b c; module d;", FileKind::Verilog, "d");
    row("escaped", "module \\a+b (x);", FileKind::Verilog, "\\a+b");
    row("with a lifetime", "module automatic a; endmodule", FileKind::SystemVerilog, "a");
    row("only announced", "extern module a; module b;", FileKind::SystemVerilog, "b");
    row("twice", "`ifdef X\nmodule a;\n`else\nmodule a;\n`endif", FileKind::Verilog, "a");
    row("an open comment", "module a; /* module b;", FileKind::Verilog, "a");
    row("an open string", "module a; \"module b", FileKind::Verilog, "a");
    row("at the end", "module", FileKind::Verilog, "");
    row("none", "", FileKind::Verilog, "");
    row("an entity", "ENTITY a IS\nend ENTITY a;\narchitecture rtl of a is", FileKind::Vhdl, "a");
    row("an entity used", "u1 : entity work.b port map(x); entity c is end;", FileKind::Vhdl, "c");
    row("in a comment of VHDL", "-- entity a is\nentity b is", FileKind::Vhdl, "b");
    row("a module in VHDL", "module a;", FileKind::Vhdl, "");
    row("a word in constraints", "module a;", FileKind::TimingConstraint, "");
}

void TestSources::modulesAreFound()
{
    QFETCH(QByteArray, text);
    QFETCH(int, kind);
    QFETCH(QStringList, modules);

    QCOMPARE(Fpga::modulesIn(text, FileKind(kind)), modules);
}

void TestSources::aFileOfModulesIsRead()
{
    QCOMPARE(Fpga::modulesInFile(named(EXAMPLE_PROJECT "/rtl/pwm.vhd"), FileKind::Vhdl),
             QStringList(named("pwm")));
    QCOMPARE(Fpga::modulesInFile(named("/none.v"), FileKind::Verilog), QStringList());
}

void TestSources::aVerilogModuleHasItsPorts()
{
    QCOMPARE(QString::fromUtf8(Fpga::sourceText(source(FileKind::Verilog))),
             named("module top (\n"
                   "    input  wire clk,\n"
                   "    output wire [7:0] data,\n"
                   "    inout  wire pad\n"
                   ");\n\nendmodule\n"));
}

void TestSources::aSystemVerilogModuleHasItsPorts()
{
    QCOMPARE(QString::fromUtf8(Fpga::sourceText(source(FileKind::SystemVerilog))),
             named("module top (\n"
                   "    input  logic clk,\n"
                   "    output logic [7:0] data,\n"
                   "    inout  wire pad\n"
                   ");\n\nendmodule\n"));
}

void TestSources::aVhdlEntityHasItsPorts()
{
    QCOMPARE(QString::fromUtf8(Fpga::sourceText(source(FileKind::Vhdl))),
             named("library ieee;\nuse ieee.std_logic_1164.all;\n\n"
                   "entity top is\n"
                   "    port (\n"
                   "        clk  : in    std_logic;\n"
                   "        data : out   std_logic_vector(7 downto 0);\n"
                   "        pad  : inout std_logic\n"
                   "    );\n"
                   "end entity top;\n\n"
                   "architecture rtl of top is\nbegin\n\nend architecture rtl;\n"));
}

void TestSources::withoutPortsThereIsNoList_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("start");
    QTest::newRow("Verilog") << int(FileKind::Verilog) << named("module top;\n");
    QTest::newRow("SystemVerilog") << int(FileKind::SystemVerilog) << named("module top;\n");
    QTest::newRow("VHDL") << int(FileKind::Vhdl)
                          << named("library ieee;\nuse ieee.std_logic_1164.all;\n\n"
                                   "entity top is\nend entity top;\n");
}

void TestSources::withoutPortsThereIsNoList()
{
    QFETCH(int, kind);
    QFETCH(QString, start);
    SourceTemplate wanted = source(FileKind(kind));
    wanted.ports.clear();

    QVERIFY(QString::fromUtf8(Fpga::sourceText(wanted)).startsWith(start));
}

void TestSources::constraintsAreComments_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("timing") << int(FileKind::TimingConstraint);
    QTest::newRow("physical") << int(FileKind::PhysicalConstraint);
}

void TestSources::constraintsAreComments()
{
    QFETCH(int, kind);

    const QList<QByteArray> lines = Fpga::sourceText(source(FileKind(kind))).split('\n');

    QVERIFY(lines.size() > 2);
    for (const QByteArray &line : lines)
        QVERIFY2(line.isEmpty() || line.startsWith("# "), line.constData());
}

void TestSources::aHeaderIsACommentOfTheLanguage_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("comment");
    QTest::newRow("Verilog") << int(FileKind::Verilog) << named("// ");
    QTest::newRow("VHDL") << int(FileKind::Vhdl) << named("-- ");
    QTest::newRow("timing") << int(FileKind::TimingConstraint) << named("# ");
}

void TestSources::aHeaderIsACommentOfTheLanguage()
{
    QFETCH(int, kind);
    QFETCH(QString, comment);
    SourceTemplate wanted = source(FileKind(kind));
    wanted.fileName = named("a\nb.v");
    const QByteArray plain = Fpga::sourceText(wanted);
    wanted.headerDate = QDate(2026, 3, 4);

    QCOMPARE(QString::fromUtf8(Fpga::sourceText(wanted)), comment + named("a b.v\n") + comment
                                                              + named("2026-03-04\n\n")
                                                              + QString::fromUtf8(plain));
}

void TestSources::whatIsWrittenIsFoundAgain_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("Verilog") << int(FileKind::Verilog);
    QTest::newRow("SystemVerilog") << int(FileKind::SystemVerilog);
    QTest::newRow("VHDL") << int(FileKind::Vhdl);
}

void TestSources::whatIsWrittenIsFoundAgain()
{
    QFETCH(int, kind);

    QCOMPARE(Fpga::modulesIn(Fpga::sourceText(source(FileKind(kind))), FileKind(kind)),
             QStringList(named("top")));
}

void TestSources::namesAreThoseOfTheLanguage_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("good");
    const auto row = [](const char *name, FileKind kind, bool good) {
        QTest::addRow("%s %s", qPrintable(Fpga::fileKindName(kind)), name)
            << named(name) << int(kind) << good;
    };
    row("", FileKind::Verilog, false);
    row("top", FileKind::Verilog, true);
    row("_t$1", FileKind::Verilog, true);
    row("1top", FileKind::Verilog, false);
    row("a b", FileKind::Verilog, false);
    row("a-b", FileKind::Verilog, false);
    row("ä", FileKind::Verilog, false);
    row("top\n", FileKind::Verilog, false);
    row("module", FileKind::Verilog, false);
    row("Module", FileKind::Verilog, true);
    row("logic", FileKind::Verilog, true);
    row("logic", FileKind::SystemVerilog, false);
    row("wire", FileKind::SystemVerilog, false);
    row("top", FileKind::Vhdl, true);
    row("Entity", FileKind::Vhdl, false);
    row("a__b", FileKind::Vhdl, false);
    row("a_", FileKind::Vhdl, false);
    row("_a", FileKind::Vhdl, false);
    row("module", FileKind::Vhdl, true);
}

void TestSources::namesAreThoseOfTheLanguage()
{
    QFETCH(QString, name);
    QFETCH(int, kind);
    QFETCH(bool, good);

    QCOMPARE(Fpga::nameFault(name, FileKind(kind)).isEmpty(), good);
}

QTEST_GUILESS_MAIN(TestSources)
#include "tst_sources.moc"
