// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/file/projectdocument.h>

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <sys/resource.h>
#include <sys/stat.h>

using Fpga::ProjectDocument;
using Fpga::ReadError;

namespace {

const QString NAME = QStringLiteral("/designs/test.kprj");

ReadError refused(const QByteArray &xml)
{
    ReadError error;
    if (ProjectDocument::parse(xml, NAME, &error))
        QTest::qFail("it was not refused", __FILE__, __LINE__);
    return error;
}

/// The most memory this process has used, in megabytes.
long peakMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

} // namespace

class TestBadProjectFiles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aBadFileIsRefusedWithLineAndReason_data();
    void aBadFileIsRefusedWithLineAndReason();
    void theMessageNamesTheFile();
    void nestedEntitiesAreRefusedAtOnce();
    void aHugeFileIsRefusedUnread();
    void aFileThatIsMissingIsNamedWithTheReason();
    void aFolderIsNoProject();
    void aPipeIsNotWaitedFor();
    void deepNestingIsRefused();
    void aFloodOfElementsIsRefused();
    void aFloodOfAttributesIsRefusedAtOnce_data();
    void aFloodOfAttributesIsRefusedAtOnce();
    void bytesCutOffAnywhereDoNoHarm();
};

void TestBadProjectFiles::aBadFileIsRefusedWithLineAndReason_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const QByteArray &xml, int line, const char *reason) {
        QTest::newRow(name) << xml << line << QString::fromLatin1(reason);
    };
    row("empty", "", 1, "no readable XML");
    row("not XML", "module top;\nendmodule\n", 1, "Text where none belongs|no readable XML");
    row("binary",
        QByteArray("\x7f"
                   "ELF\0\1\2",
                   7),
        1, "no readable XML");
    row("cut off", "<P>\n<Template>FPGA</Template>\n<Files>", 3, "no readable XML");
    row("no template", "<P>\n<Name>x</Name></P>", 1, "no element \"Template\"");
    row("template nested deeper", "<P>\n<A><Template>FPGA</Template></A></P>", 1,
        "no element \"Template\"");
    row("template as attribute", "<P Template='FPGA'/>", 1, "no element \"Template\"");
    row("another template", "<P>\n<Template>SOC</Template></P>", 1, "\"SOC\"");
    row("an empty template", "<P><Template/></P>", 1, "template \"\"");
    row("a template with blanks", "<P><Template> FPGA </Template></P>", 1, "\" FPGA \"");
    row("two templates", "<P><Template>FPGA</Template>\n<Template>FPGA</Template></P>", 2,
        "\"Template\" stands here a second time");
    row("two lists", "<P><Template>FPGA</Template>\n<Files/>\n<Files/></P>", 3,
        "\"Files\" stands here a second time");
    row("a file without a path", "<P><Template>FPGA</Template>\n<Files>\n<File/></Files></P>", 3,
        "without a path");
    row("a file that is the folder",
        "<P><Template>FPGA</Template><Files>\n<File path='./'/></Files></P>", 2, "without a path");
    row("neither on nor off",
        "<P><Template>FPGA</Template><Files>\n<File path='a' enabled='1'/></Files></P>", 2,
        "neither");
    row("text among the files", "<P><Template>FPGA</Template><Files>\n<<<<<<< mine</Files></P>", 2,
        "no readable XML");
    row("an unknown entity", "<P>\n<Template>&fpga;</Template></P>", 2, "fpga|no readable XML");
    row("a document type", "<!DOCTYPE P>\n<P><Template>FPGA</Template></P>", 1, "DOCTYPE");
    row("a file from elsewhere",
        "<!DOCTYPE P [<!ENTITY x SYSTEM 'file:///etc/passwd'>]>\n<P><Template>&x;</Template></P>",
        1, "DOCTYPE");
}

void TestBadProjectFiles::aBadFileIsRefusedWithLineAndReason()
{
    QFETCH(QByteArray, xml);
    QFETCH(int, line);
    QFETCH(QString, reason);

    const ReadError error = refused(xml);

    QCOMPARE(error.line, line);
    QVERIFY2(error.reason.contains(QRegularExpression(reason)), qPrintable(error.reason));
}

void TestBadProjectFiles::theMessageNamesTheFile()
{
    const QString text = refused("<P>\n<Template>SOC</Template></P>").text();

    QVERIFY2(text.startsWith(QStringLiteral("/designs/test.kprj, line 1: ")), qPrintable(text));
}

void TestBadProjectFiles::nestedEntitiesAreRefusedAtOnce()
{
    QByteArray xml = "<!DOCTYPE P [\n<!ENTITY e0 'FPGA FPGA FPGA FPGA'>\n";
    for (int i = 1; i < 40; ++i) {
        const QByteArray before = "&e" + QByteArray::number(i - 1) + ";";
        xml += "<!ENTITY e" + QByteArray::number(i) + " '" + before.repeated(10) + "'>\n";
    }
    xml += "]>\n<P><Template>&e39;</Template></P>";
    const long memory = peakMemory();
    QElapsedTimer timer;
    timer.start();

    const ReadError error = refused(xml);

    QVERIFY2(error.reason.contains(QStringLiteral("DOCTYPE")), qPrintable(error.reason));
    QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(peakMemory() - memory < 50);
}

void TestBadProjectFiles::aHugeFileIsRefusedUnread()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("huge.kprj")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(100 * 1024 * 1024));
    file.close();
    const long memory = peakMemory();
    ReadError error;

    QVERIFY(!ProjectDocument::read(file.fileName(), &error));

    QVERIFY2(error.text().contains(QStringLiteral("larger than 16 MB")), qPrintable(error.text()));
    QVERIFY(peakMemory() - memory < 20);
}

void TestBadProjectFiles::aFileThatIsMissingIsNamedWithTheReason()
{
    ReadError error;

    QVERIFY(!ProjectDocument::read(QStringLiteral("/none/p.kprj"), &error));

    QCOMPARE(error.text(), QStringLiteral("/none/p.kprj: No such file or directory"));
}

void TestBadProjectFiles::aFolderIsNoProject()
{
    const QTemporaryDir folder;
    ReadError error;

    QVERIFY(!ProjectDocument::read(folder.path(), &error));

    QCOMPARE(error.reason, QStringLiteral("This is not a file."));
}

void TestBadProjectFiles::aPipeIsNotWaitedFor()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("pipe.kprj"));
    QCOMPARE(mkfifo(qPrintable(path), 0600), 0);
    ReadError error;

    QVERIFY(!ProjectDocument::read(path, &error));

    QCOMPARE(error.reason, QStringLiteral("This is not a file."));
}

void TestBadProjectFiles::deepNestingIsRefused()
{
    const QByteArray xml = "<P><Template>FPGA</Template>" + QByteArray("<a>").repeated(100000);

    QVERIFY(refused(xml).reason.contains(QStringLiteral("nested more than 64 deep")));
}

void TestBadProjectFiles::aFloodOfElementsIsRefused()
{
    const QByteArray xml =
        "<P><Template>FPGA</Template>" + QByteArray("<a/>").repeated(600000) + "</P>";

    QVERIFY(refused(xml).reason.contains(QStringLiteral("more than 500000 elements")));
}

void TestBadProjectFiles::aFloodOfAttributesIsRefusedAtOnce_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<int>("line");
    QByteArray attributes;
    attributes.reserve(2000000);
    for (int i = 0; i < 100000; ++i)
        attributes += " a" + QByteArray::number(i) + "=''";
    QTest::newRow("at an element")
        << QByteArray("<P><Template>FPGA</Template>\n<Files/>\n<x" + attributes + "/></P>") << 3;
    QTest::newRow("at the root") << QByteArray("<P" + attributes + "><Template>FPGA</Template></P>")
                                 << 1;
    // The files of this one are taken out before it is read.
    QTest::newRow("beside a list of files")
        << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Project>\n"
                      "    <Template>FPGA</Template>\n    <Files>\n"
                      "        <File path=\"a.v\" kind=\"verilog\" enabled=\"true\"/>\n"
                      "    </Files>\n    <x"
                      + attributes + "/>\n</Project>\n")
        << 7;
}

void TestBadProjectFiles::aFloodOfAttributesIsRefusedAtOnce()
{
    QFETCH(QByteArray, xml);
    QFETCH(int, line);
    QElapsedTimer timer;
    timer.start();

    const ReadError error = refused(xml);

    QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(error.reason, QStringLiteral("An element has more than 256 attributes."));
    QCOMPARE(error.line, line);
}

void TestBadProjectFiles::bytesCutOffAnywhereDoNoHarm()
{
    const QByteArray whole = "<?xml version='1.0'?><!-- c --><P x='1'><Template>FPGA</Template>"
                             "<Files><!-- c --><File path='\xc3\xa4.v' kind='q'><a>t<b/></a>"
                             "</File></Files><y><z/></y></P>";
    for (int length = 0; length < whole.size(); ++length) {
        ReadError error;
        QVERIFY(!ProjectDocument::parse(whole.left(length), NAME, &error));
        QVERIFY(!error.reason.isEmpty());
    }
    ReadError error;
    QVERIFY(ProjectDocument::parse(whole, NAME, &error));
}

QTEST_GUILESS_MAIN(TestBadProjectFiles)
#include "tst_badprojectfiles.moc"
