// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/file/projectdocument.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using Fpga::DeviceChoice;
using Fpga::FileEntry;
using Fpga::FileKind;
using Fpga::ProjectDocument;
using Fpga::ReadError;
using Fpga::TopModule;

namespace {

const QString NAME = QStringLiteral("/designs/test.kprj");

ProjectDocument parsed(const QByteArray &xml)
{
    ReadError error;
    const auto document = ProjectDocument::parse(xml, NAME, &error);
    if (!document)
        QTest::qFail(qPrintable(error.text()), __FILE__, __LINE__);
    return document.value_or(ProjectDocument());
}

FileEntry entry(const QString &path)
{
    FileEntry file;
    file.path = path;
    file.kind = Fpga::fileKindOf(path);
    return file;
}

QStringList paths(const ProjectDocument &document)
{
    QStringList list;
    for (const FileEntry &file : document.files())
        list.append(file.path);
    return list;
}

const QByteArray BLINKY = R"(<?xml version="1.0" encoding="UTF-8"?>
<Project>
    <Template>FPGA</Template>
    <Name>blinky</Name>
    <Device part="iCE40HX1K-TQ144" package="TQ144" speedGrade="HX"/>
    <Top file="rtl/top.v">top</Top>
    <Files>
        <File path="pins.pcn" kind="physical-constraint" enabled="true"/>
        <File path="rtl/old.vhd" kind="vhdl" enabled="false"/>
        <File path="rtl/top.v" kind="verilog" enabled="true"/>
    </Files>
</Project>
)";

} // namespace

class TestProjectDocument : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aWrittenProjectHasThisForm();
    void whatWasReadIsWrittenUnchanged();
    void whatStandsInAFileIsRead();
    void theTemplateIsWrittenFirst();
    void theLegacyTemplateStays();
    void filesAreWrittenInTheOrderOfTheirPaths();
    void theOrderDoesNotDependOnTheOrderOfAdding();
    void unknownPartsAreKept_data();
    void unknownPartsAreKept();
    void unknownPartsOfAFileStayWhenItChanges();
    void anUnknownKindIsKept();
    void aMissingKindFollowsTheName();
    void aFileListedTwiceIsOne();
    void namesComeBackAsTheyWere_data();
    void namesComeBackAsTheyWere();
    void aNameWithAControlCharacterIsRefused();
    void aSecondFileOfOnePathIsRefused();
    void manyFilesAreAddedAtOnce();
    void aRenamedFileGetsTheKindOfItsName();
    void aChosenKindSurvivesRenaming();
    void theTopFollowsItsFile();
    void theTopGoesWithItsFile();
    void pathsAreReadClean();
    void aListThatOnlyLooksLikeOneIsNone_data();
    void aListThatOnlyLooksLikeOneIsNone();
    void aFaultBehindTheListIsNamedWithItsLine();
    void aSavedFileIsReadBack();
    void aFailedSaveLeavesTheOldFile();
    void kindsFollowTheSuffix_data();
    void kindsFollowTheSuffix();
};

void TestProjectDocument::aWrittenProjectHasThisForm()
{
    ProjectDocument document;
    document.setName(QStringLiteral("blinky"));
    document.setDevice(
        {QStringLiteral("iCE40HX1K-TQ144"), QStringLiteral("TQ144"), QStringLiteral("HX")});
    document.setTop({QStringLiteral("top"), QStringLiteral("rtl/top.v")});
    document.addFile(entry(QStringLiteral("rtl/top.v")));
    document.addFile(entry(QStringLiteral("pins.pcn")));
    document.addFile(entry(QStringLiteral("rtl/old.vhd")));
    document.setEnabled(QStringLiteral("rtl/old.vhd"), false);

    QCOMPARE(QString::fromUtf8(document.toXml()), QString::fromUtf8(BLINKY));
}

void TestProjectDocument::whatWasReadIsWrittenUnchanged()
{
    QCOMPARE(QString::fromUtf8(parsed(BLINKY).toXml()), QString::fromUtf8(BLINKY));
}

void TestProjectDocument::whatStandsInAFileIsRead()
{
    const ProjectDocument document = parsed(BLINKY);

    QCOMPARE(document.name(), QStringLiteral("blinky"));
    QVERIFY((document.device()
             == DeviceChoice{QStringLiteral("iCE40HX1K-TQ144"), QStringLiteral("TQ144"),
                             QStringLiteral("HX")}));
    QVERIFY((document.top() == TopModule{QStringLiteral("top"), QStringLiteral("rtl/top.v")}));
    QCOMPARE(document.files().size(), 3);
    QCOMPARE(document.files().at(1).path, QStringLiteral("rtl/old.vhd"));
    QCOMPARE(document.files().at(1).kind, FileKind::Vhdl);
    QCOMPARE(document.files().at(1).enabled, false);
    QCOMPARE(document.files().at(2).enabled, true);
}

void TestProjectDocument::theTemplateIsWrittenFirst()
{
    const QByteArray xml = parsed("<P><Files/><Other/><Template>FPGA</Template></P>").toXml();

    QVERIFY(xml.indexOf("<Template>") < xml.indexOf("<Name"));
    QVERIFY(xml.indexOf("<Template>") < xml.indexOf("<Other/>"));
}

void TestProjectDocument::theLegacyTemplateStays()
{
    const QByteArray xml = parsed("<P><Template>FPGA_IMPL</Template></P>").toXml();

    QVERIFY(xml.contains("<Template>FPGA_IMPL</Template>"));
}

void TestProjectDocument::filesAreWrittenInTheOrderOfTheirPaths()
{
    const ProjectDocument document =
        parsed("<P><Template>FPGA</Template><Files><File path='b.v'/><File path='a/z.v'/>"
               "<File path='B.v'/></Files></P>");

    QCOMPARE(paths(document),
             QStringList({QStringLiteral("B.v"), QStringLiteral("a/z.v"), QStringLiteral("b.v")}));
}

void TestProjectDocument::theOrderDoesNotDependOnTheOrderOfAdding()
{
    ProjectDocument one;
    ProjectDocument other;
    for (const char *path : {"a.v", "c.v", "b.v"})
        one.addFile(entry(QString::fromLatin1(path)));
    other.addFiles({entry(QStringLiteral("c.v")), entry(QStringLiteral("b.v"))});
    other.addFiles({entry(QStringLiteral("a.v"))});

    QCOMPARE(one.toXml(), other.toXml());
}

void TestProjectDocument::unknownPartsAreKept_data()
{
    QTest::addColumn<QByteArray>("xml");
    const auto row = [](const char *name, const QByteArray &from, const QByteArray &to) {
        QByteArray xml = BLINKY;
        if (!xml.contains(from))
            QTest::qFail("nothing to replace", __FILE__, __LINE__);
        QTest::newRow(name) << xml.replace(from, to);
    };
    row("another root", "Project>", "fpga:design>");
    row("attributes of the root", "<Project>",
        "<Project version=\"2\" xmlns:x=\"urn:x\" x:note=\"&lt;b&gt;\">");
    row("an element of the root", "    </Files>\n",
        "    </Files>\n    <Tool name=\"sim\">\n        <Arg>-v &amp; -w</Arg>\n        "
        "<Empty/>\n    </Tool>\n");
    row("an element with a prefix", "    </Files>\n", "    </Files>\n    <y:t y:a=\"1\"/>\n");
    row("text with elements in it", "    </Files>\n",
        "    </Files>\n    <Note>See <b>the</b>\n   manual &#13; </Note>\n");
    row("an element of the list", "    </Files>", "        <Group name=\"g\"/>\n    </Files>");
    row("an attribute of the list", "<Files>", "<Files order=\"1\">");
    row("an attribute of a file", "kind=\"vhdl\" enabled=\"false\"",
        "kind=\"vhdl\" enabled=\"false\" library=\"work&#10;2\"");
    row("an element of a file", "kind=\"vhdl\" enabled=\"false\"/>",
        "kind=\"vhdl\" enabled=\"false\">\n            <Library>ieee</Library>\n        </File>");
    row("an attribute of the device", "speedGrade=\"HX\"", "speedGrade=\"HX\" board=\"b\"");
    row("an element of the device", "speedGrade=\"HX\"/>",
        "speedGrade=\"HX\">\n        <Board>b</Board>\n    </Device>");
    row("an attribute of the top", "<Top file=\"rtl/top.v\"", "<Top file=\"rtl/top.v\" p=\"q\"");
    row("an attribute of the template", "<Template>", "<Template v=\"1\">");
    row("a comment in front of a file", "        <File path=\"rtl/old.vhd\"",
        "        <!-- kept for the record -->\n        <File path=\"rtl/old.vhd\"");
    row("a comment in front of the device", "    <Device",
        "    <!-- the small one -->\n    <Device");
    row("comments around the root", "<Project>", "<!-- first -->\n<?tool x=\"y\"?>\n<Project>");
    row("a comment at the end", "</Project>\n", "</Project>\n<!-- last -->\n");
    row("an element of blanks", "    </Files>\n", "    </Files>\n    <Blank>  \n </Blank>\n");
}

void TestProjectDocument::unknownPartsAreKept()
{
    QFETCH(QByteArray, xml);

    QCOMPARE(QString::fromUtf8(parsed(xml).toXml()), QString::fromUtf8(xml));
}

void TestProjectDocument::unknownPartsOfAFileStayWhenItChanges()
{
    ProjectDocument document = parsed("<P><Template>FPGA</Template><Files>"
                                      "<!-- why --><File path='a.v' lib='w'/></Files></P>");

    document.setEnabled(QStringLiteral("a.v"), false);
    document.renameFile(QStringLiteral("a.v"), QStringLiteral("b.v"));

    QVERIFY(document.toXml().contains("<!-- why -->\n        <File path=\"b.v\" "
                                      "kind=\"verilog\" enabled=\"false\" lib=\"w\"/>"));
}

void TestProjectDocument::anUnknownKindIsKept()
{
    const ProjectDocument document = parsed("<P><Template>FPGA</Template><Files>"
                                            "<File path='a.v' kind='netlist'/></Files></P>");

    QCOMPARE(document.files().first().kind, FileKind::Other);
    QVERIFY(document.toXml().contains("kind=\"netlist\""));
}

void TestProjectDocument::aMissingKindFollowsTheName()
{
    const ProjectDocument document = parsed("<P><Template>FPGA</Template><Files>"
                                            "<File path='a.sdc'/></Files></P>");

    QCOMPARE(document.files().first().kind, FileKind::TimingConstraint);
}

void TestProjectDocument::aFileListedTwiceIsOne()
{
    const ProjectDocument document =
        parsed("<P><Template>FPGA</Template><Files><File path='a.v' enabled='false'/>"
               "<File path='b.v'/><File path='./a.v'/></Files></P>");

    QCOMPARE(paths(document), QStringList({QStringLiteral("a.v"), QStringLiteral("b.v")}));
    QCOMPARE(document.files().first().enabled, false);
}

void TestProjectDocument::namesComeBackAsTheyWere_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("double quotes") << QStringLiteral("a\"b\".v");
    QTest::newRow("markup") << QStringLiteral("<a&b>'.v");
    QTest::newRow("line breaks") << QStringLiteral("a\nb\r\nc\td.v");
    QTest::newRow("blanks") << QStringLiteral("  a  b .v ");
    QTest::newRow("other scripts") << QString::fromUtf8("zähler/计数器/😀.v");
    QTest::newRow("255 bytes") << QString(253, QLatin1Char('n')) + QStringLiteral(".v");
    QTest::newRow("backslash") << QStringLiteral("a\\b.v");
    QTest::newRow("two dots") << QStringLiteral("../shared/a..v");
}

void TestProjectDocument::namesComeBackAsTheyWere()
{
    QFETCH(QString, name);
    ProjectDocument document;
    QVERIFY(document.addFile(entry(name)));
    document.setName(QStringLiteral("x"));
    document.setTop({QStringLiteral("x"), name});

    const ProjectDocument again = parsed(document.toXml());

    QCOMPARE(paths(again), QStringList(name));
    QCOMPARE(again.top().file, name);
}

void TestProjectDocument::aNameWithAControlCharacterIsRefused()
{
    ProjectDocument document;

    QVERIFY(!document.addFile(entry(QStringLiteral("a\x01.v"))));
    QCOMPARE(document.addFiles({entry(QString(QChar(0xd800)))}), 0);
    QCOMPARE(document.files().size(), 0);
}

void TestProjectDocument::aSecondFileOfOnePathIsRefused()
{
    ProjectDocument document;
    document.addFile(entry(QStringLiteral("a.v")));

    QVERIFY(!document.addFile(entry(QStringLiteral("a.v"))));
    QCOMPARE(document.files().size(), 1);
}

void TestProjectDocument::manyFilesAreAddedAtOnce()
{
    ProjectDocument document;
    document.addFile(entry(QStringLiteral("b.v")));

    const int added =
        document.addFiles({entry(QStringLiteral("c.v")), entry(QStringLiteral("b.v")),
                           entry(QStringLiteral("a.v")), entry(QStringLiteral("c.v"))});

    QCOMPARE(added, 2);
    QCOMPARE(paths(document),
             QStringList({QStringLiteral("a.v"), QStringLiteral("b.v"), QStringLiteral("c.v")}));
}

void TestProjectDocument::aRenamedFileGetsTheKindOfItsName()
{
    ProjectDocument document;
    document.addFile(entry(QStringLiteral("a.v")));

    document.renameFile(QStringLiteral("a.v"), QStringLiteral("a.sv"));

    QCOMPARE(document.files().first().kind, FileKind::SystemVerilog);
}

void TestProjectDocument::aChosenKindSurvivesRenaming()
{
    ProjectDocument document = parsed("<P><Template>FPGA</Template><Files>"
                                      "<File path='a.v' kind='systemverilog'/></Files></P>");

    document.renameFile(QStringLiteral("a.v"), QStringLiteral("b.v"));

    QCOMPARE(document.files().first().kind, FileKind::SystemVerilog);
}

void TestProjectDocument::theTopFollowsItsFile()
{
    ProjectDocument document = parsed(BLINKY);

    document.renameFile(QStringLiteral("rtl/top.v"), QStringLiteral("rtl/new.v"));

    QVERIFY((document.top() == TopModule{QStringLiteral("top"), QStringLiteral("rtl/new.v")}));
}

void TestProjectDocument::theTopGoesWithItsFile()
{
    ProjectDocument document = parsed(BLINKY);

    document.removeFile(QStringLiteral("rtl/top.v"));

    QVERIFY(document.top() == TopModule());
}

void TestProjectDocument::pathsAreReadClean()
{
    const ProjectDocument document =
        parsed("<P><Template>FPGA</Template><Files><File path='./a//b/../c.v'/></Files></P>");

    QCOMPARE(paths(document), QStringList(QStringLiteral("a/c.v")));
}

void TestProjectDocument::aListThatOnlyLooksLikeOneIsNone_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QStringList>("files");
    const QStringList all{QStringLiteral("pins.pcn"), QStringLiteral("rtl/old.vhd"),
                          QStringLiteral("rtl/top.v")};
    QTest::newRow("as it is written") << QByteArray() << QByteArray() << all;
    QTest::newRow("in a comment") << QByteArray("    <Files>")
                                  << QByteArray("    <!--\n    <Files>") << QStringList();
    QTest::newRow("in another element")
        << QByteArray("    <Files>") << QByteArray("    <Other>\n    <Files>") << QStringList();
    QTest::newRow("with blanks at the end of a line")
        << QByteArray("enabled=\"false\"/>") << QByteArray("enabled=\"false\"/>  ") << all;
    QTest::newRow("with an escaped sign")
        << QByteArray("path=\"pins.pcn\"") << QByteArray("path=\"&#112;ins.pcn\"") << all;
    QTest::newRow("with a path to be cleaned")
        << QByteArray("path=\"rtl/top.v\"") << QByteArray("path=\"./rtl//top.v\"") << all;
    QTest::newRow("not in order") << QByteArray("path=\"pins.pcn\"") << QByteArray("path=\"z.pcn\"")
                                  << QStringList({QStringLiteral("rtl/old.vhd"),
                                                  QStringLiteral("rtl/top.v"),
                                                  QStringLiteral("z.pcn")});
    QTest::newRow("with one of them twice")
        << QByteArray("path=\"rtl/old.vhd\"") << QByteArray("path=\"pins.pcn\"")
        << QStringList({QStringLiteral("pins.pcn"), QStringLiteral("rtl/top.v")});
}

void TestProjectDocument::aListThatOnlyLooksLikeOneIsNone()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(QStringList, files);
    QByteArray xml = BLINKY;
    if (!from.isEmpty())
        xml.replace(xml.indexOf(from), from.size(), to);
    if (to.contains("<!--"))
        xml.replace("    </Files>\n", "    </Files>\n-->\n");
    if (to.contains("<Other>"))
        xml.replace("    </Files>\n", "    </Files>\n    </Other>\n");

    QCOMPARE(paths(parsed(xml)), files);
}

void TestProjectDocument::aFaultBehindTheListIsNamedWithItsLine()
{
    QByteArray xml = BLINKY;
    xml.replace("</Project>", "<Name>again</Name></Project>");
    ReadError error;

    QVERIFY(!ProjectDocument::parse(xml, NAME, &error));

    QCOMPARE(error.line, 12);
}

void TestProjectDocument::aSavedFileIsReadBack()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("p.kprj"));
    QString reason;
    ReadError error;

    QVERIFY2(ProjectDocument::save(BLINKY, path, &reason), qPrintable(reason));

    const auto document = ProjectDocument::read(path, &error);
    QVERIFY2(document, qPrintable(error.text()));
    QCOMPARE(document->toXml(), BLINKY);
}

void TestProjectDocument::aFailedSaveLeavesTheOldFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("p.kprj"));
    QString reason;
    QVERIFY(ProjectDocument::save("old", path, &reason));
    // A directory of that name stands in the way of the administrator too, whom
    // rights do not bind.
    const QString blocked = folder.filePath(QStringLiteral("blocked.kprj"));
    QVERIFY(QDir().mkdir(blocked));

    QVERIFY(!ProjectDocument::save("new", blocked, &reason));
    QVERIFY(!reason.isEmpty());
    QVERIFY(!ProjectDocument::save("new", folder.filePath(QStringLiteral("none/p.kprj")), &reason));
    QVERIFY(!reason.isEmpty());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("old"));
}

void TestProjectDocument::kindsFollowTheSuffix_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("kind");
    const auto row = [](const char *name, FileKind kind) {
        QTest::newRow(name) << QString::fromLatin1(name) << int(kind);
    };
    row("a.v", FileKind::Verilog);
    row("a.VH", FileKind::Verilog);
    row("dir.sv/a.v", FileKind::Verilog);
    row("a.sv", FileKind::SystemVerilog);
    row("a.vhd", FileKind::Vhdl);
    row("a.vhdl", FileKind::Vhdl);
    row("a.sdc", FileKind::TimingConstraint);
    row("a.pcn", FileKind::PhysicalConstraint);
    row("a.ksc", FileKind::SynthesisConstraint);
    row("a.mnx", FileKind::Memory);
    row("a.txt", FileKind::Other);
    row("a", FileKind::Other);
    row("a.", FileKind::Other);
    row("a.v sv", FileKind::Other);
    row(".v", FileKind::Verilog);
}

void TestProjectDocument::kindsFollowTheSuffix()
{
    QFETCH(QString, name);
    QFETCH(int, kind);

    QCOMPARE(int(Fpga::fileKindOf(name)), kind);
}

QTEST_GUILESS_MAIN(TestProjectDocument)
#include "tst_projectdocument.moc"
