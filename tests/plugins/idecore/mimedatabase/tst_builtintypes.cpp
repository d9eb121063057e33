// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/messagerecorder.h"

#include <idecore/mimedatabase/mimedatabase.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <sys/stat.h>

using Core::MimeDatabase;
using Core::MimeType;

namespace {

QString s(const char *text)
{
    return QString::fromUtf8(text);
}

} // namespace

class TestBuiltInTypes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_database.reset(); }

    void types_data();
    void types();
    void thereAreNoOtherTypes();
    void preferredSuffixes();
    void setPreferredSuffixLeavesCopiesAlone();
    void filter();
    void content_data();
    void content();
    void suffixDecidesWithoutTheFile();
    void fifoAndDeviceAreNotOpened();

private:
    std::unique_ptr<MimeDatabase> m_database;
};

void TestBuiltInTypes::init()
{
    m_database = std::make_unique<MimeDatabase>();
    QVERIFY(m_database->addMimeTypes(s(":/core/ide.mimetype.xml")));
}

void TestBuiltInTypes::types_data()
{
    QTest::addColumn<QString>("comment");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QStringList>("suffixes");
    const auto add = [](const char *type, const char *comment, const char *suffixes,
                        const char *parent = "text/plain") {
        QTest::newRow(type) << s(comment) << s(parent) << s(suffixes).split(QLatin1Char(' '));
    };
    add("text/plain", "Plain Text File", "txt", "application/octet-stream");
    add("text/html", "HTML Document File", "htm html hts xhtml");
    add("application/km-ide-project", "KELMO FPGA Designer Project File", "kprj");
    add("text/verilog", "Verilog HDL File", "v sv vo vp vh vg");
    add("text/vhdl", "VHDL File", "vhd vhdl");
    add("text/ksc", "KELMO Synthesize Constraints File", "ksc");
    add("text/pcn", "KELMO Physical Constraints File", "pcn");
    add("text/sdc", "KELMO Timing Constraints File", "sdc");
    add("text/kao", "KELMO Oscilloscope Config File", "kao qlz");
    add("text/fdc", "FPGA Design Constraints File", "fdc");
    add("text/adc", "Analysis Design Constraints File", "adc");
    add("text/kpa", "KELMO Power Analyzer Conifg File", "kpa");
    add("text/fcx", "KELMO Firm Core File", "fcx");
    add("text/mnx", "Memory Initialization File", "mnx");
    add("text/ufx", "User Flash Initialization File", "ufx");
    add("text/kvio", "KELMO Virtual Input/Output Config File", "kvio");
}

void TestBuiltInTypes::types()
{
    QFETCH(QString, parent);
    QFETCH(QStringList, suffixes);
    const QString name = s(QTest::currentDataTag());
    const MimeType type = m_database->findByType(name);

    QTEST(type.comment(), "comment");
    QCOMPARE(type.subClassesOf(), QStringList(parent));
    QCOMPARE(type.suffixes(), suffixes);
    QCOMPARE(type.preferredSuffix(), suffixes.first());
    QCOMPARE(type.aliases(), QStringList());
    QCOMPARE(type.magicMatchers().size(), name == QLatin1String("text/plain") ? 1 : 0);
    QCOMPARE(type.globPatterns().size(), suffixes.size());
    for (int i = 0; i < suffixes.size(); ++i) {
        QCOMPARE(type.globPatterns().at(i).pattern(), QLatin1String("*.") + suffixes.at(i));
        QCOMPARE(type.globPatterns().at(i).weight(), 100U);
        QCOMPARE(m_database
                     ->findByFile(QFileInfo(QLatin1String("/no/where.") + suffixes.at(i).toUpper()))
                     .type(),
                 name);
    }
}

void TestBuiltInTypes::thereAreNoOtherTypes()
{
    QCOMPARE(m_database->filterStrings().size(), 16);
    QVERIFY(m_database->findByType(s("application/octet-stream")).isNull());
    for (const char *inactive : {"vm", "vma", "vmd", "vho", "ucf", "scf"})
        QVERIFY(m_database->findByFile(QFileInfo(s("a.") + s(inactive))).isNull());
    QFile file(s(":/core/ide.mimetype.xml"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray xml = file.readAll();
    QVERIFY(xml.contains("KELMO Synthesis Constraints File"));
    QCOMPARE(xml.count("<mime-type "), 17);
}

void TestBuiltInTypes::preferredSuffixes()
{
    QCOMPARE(m_database->preferredSuffixByType(s("text/verilog")), s("v"));
    QCOMPARE(m_database->preferredSuffixByFile(QFileInfo(s("x.sv"))), s("v"));
    const MessageRecorder recorder;
    QVERIFY(!m_database->setPreferredSuffix(s("text/verilog"), s("vhd")));
    QCOMPARE(recorder.labelled().size(), 1);
}

void TestBuiltInTypes::setPreferredSuffixLeavesCopiesAlone()
{
    const MimeType before = m_database->findByType(s("text/verilog"));

    QVERIFY(m_database->setPreferredSuffix(s("text/verilog"), s("sv")));

    QCOMPARE(before.preferredSuffix(), s("v"));
    QCOMPARE(m_database->preferredSuffixByFile(QFileInfo(s("x.v"))), s("sv"));
}

void TestBuiltInTypes::filter()
{
    const QString filter = m_database->filterForFileDialog(true);

    QVERIFY(filter.startsWith(
        QLatin1String("All Files (*);;Analysis Design Constraints File (*.adc);;")));
    QVERIFY(filter.contains(QLatin1String(";;HTML Document File (*.htm *.html *.hts *.xhtml);;")));
}

void TestBuiltInTypes::content_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("type");
    QTest::newRow("text") << s("README") << QByteArray("plain ASCII") << s("text/plain");
    QTest::newRow("byte 0x03") << s("README") << QByteArray("plain\x03") << QString();
    QTest::newRow("empty") << s("data.bin") << QByteArray() << QString();
    QTest::newRow("known suffix, binary content")
        << s("top.v") << QByteArray("\x03") << s("text/verilog");
    QTest::newRow("control character behind what is read")
        << s("README") << QByteArray(2048, 'a') + '\x03' << s("text/plain");
}

void TestBuiltInTypes::content()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, data);
    const QTemporaryDir dir;
    QFile file(dir.filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(data) == data.size());
    file.close();

    QTEST(m_database->findByFile(QFileInfo(file.fileName())).type(), "type");
    QTEST(m_database->findByFileUnlocked(QFileInfo(file.fileName())).type(), "type");
}

void TestBuiltInTypes::suffixDecidesWithoutTheFile()
{
    QCOMPARE(m_database->findByFile(QFileInfo(s("/missing/notes.txt"))).type(), s("text/plain"));
    QCOMPARE(m_database->findByFile(QFileInfo(s("top.v"))).type(), s("text/verilog"));
    QVERIFY(m_database->findByFile(QFileInfo(s("/missing/README"))).isNull());
}

void TestBuiltInTypes::fifoAndDeviceAreNotOpened()
{
    const QTemporaryDir dir;
    const QString fifo = dir.filePath(s("fifo"));
    QCOMPARE(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);

    QVERIFY(m_database->findByFile(QFileInfo(fifo)).isNull());
    QVERIFY(m_database->findByFile(QFileInfo(s("/dev/zero"))).isNull());
    QVERIFY(m_database->findByFile(QFileInfo(dir.path())).isNull());
}

QTEST_GUILESS_MAIN(TestBuiltInTypes)
#include "tst_builtintypes.moc"
