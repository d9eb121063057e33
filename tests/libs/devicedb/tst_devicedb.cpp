// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/messagerecorder.h"

#include <devicedb/devicedb.h>

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using DEV::DeviceDb;

namespace {

const QByteArray header = "Series,Device,Package,SpeedGrade,LogicCells,FlipFlops,BlockRamBits,"
                          "DspBlocks,Plls,UserIos\n";

} // namespace

class TestDeviceDb : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void tableIsReadOnceWhenItIsAskedFor();
    void missingFileIsEmptyAndSilent();
    void emptyFileIsEmptyAndSilent();
    void folderInPlaceOfTheFileIsNamed();
    void rowCarriesAllColumns();
    void columnsComeInAnyOrderAndCase();
    void unknownColumnIsPassedOver();
    void quotedFieldKeepsCommasQuotesAndLineEnds();
    void commentsAndEmptyLinesArePassedOver();
    void lineEndsOfEveryKind_data();
    void lineEndsOfEveryKind();
    void lastLineNeedsNoLineEnd();
    void byteOrderMarkIsNoPartOfTheHeader();
    void badRowIsSkippedWithFileLineAndReason_data();
    void badRowIsSkippedWithFileLineAndReason();
    void lineNumberCountsQuotedLineEndsAndComments();
    void headerWithoutAColumnGivesAnEmptyDatabase();
    void headerWithAColumnTwiceGivesAnEmptyDatabase();
    void namesComeOnceInTheOrderOfTheTable();
    void unknownNamesGiveEmptyLists();
    void partIsMadeUpWhenTheTableHasNone();
    void partOfTheTableIsKept();
    void rowIsFoundByItsThreeNames();
    void unknownPartGivesNothing();
    void shippedTableReadsWithoutWarning();

private:
    QString write(const QByteArray &content);
    [[nodiscard]] QStringList warnings() const { return m_log->lines(QtWarningMsg); }

    QTemporaryDir m_dir;
    std::unique_ptr<MessageRecorder> m_log;
};

void TestDeviceDb::init()
{
    m_log = std::make_unique<MessageRecorder>();
}

void TestDeviceDb::cleanup()
{
    m_log.reset();
}

QString TestDeviceDb::write(const QByteArray &content)
{
    const QString name = m_dir.filePath(QStringLiteral("devices.csv"));
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(name));
    return name;
}

void TestDeviceDb::tableIsReadOnceWhenItIsAskedFor()
{
    const DeviceDb db(write("no header\n"));
    QCOMPARE(warnings(), QStringList());
    write(header + "S,D,P,G,1,2,3,4,5,6\n");
    QCOMPARE(db.series(), QStringList(QStringLiteral("S")));
    write(header + "T,D,P,G,1,2,3,4,5,6\n");
    QCOMPARE(db.series(), QStringList(QStringLiteral("S")));
}

void TestDeviceDb::missingFileIsEmptyAndSilent()
{
    const DeviceDb db(m_dir.filePath(QStringLiteral("none.csv")));

    QVERIFY(db.isEmpty());
    QCOMPARE(warnings(), QStringList());
}

void TestDeviceDb::emptyFileIsEmptyAndSilent()
{
    const DeviceDb db(write("# nothing yet\n\n"));

    QVERIFY(db.isEmpty());
    QCOMPARE(warnings(), QStringList());
}

void TestDeviceDb::folderInPlaceOfTheFileIsNamed()
{
    const DeviceDb db(m_dir.path());

    QVERIFY(db.isEmpty());
    QCOMPARE(warnings().size(), 1);
    QVERIFY(warnings().constFirst().startsWith(m_dir.path() + QStringLiteral(": ")));
}

void TestDeviceDb::rowCarriesAllColumns()
{
    const DeviceDb db(write(header + "S,D,P,G,1,2,3,4,5,6\n"));

    QCOMPARE(db.rows().size(), 1);
    const DEV::Device row = db.rows().first();
    QCOMPARE(row.series, QStringLiteral("S"));
    QCOMPARE(row.name, QStringLiteral("D"));
    QCOMPARE(row.package, QStringLiteral("P"));
    QCOMPARE(row.speedGrade, QStringLiteral("G"));
    QCOMPARE(row.logicCells, 1);
    QCOMPARE(row.flipFlops, 2);
    QCOMPARE(row.blockRamBits, 3);
    QCOMPARE(row.dspBlocks, 4);
    QCOMPARE(row.plls, 5);
    QCOMPARE(row.userIos, 6);
    QCOMPARE(warnings(), QStringList());
}

void TestDeviceDb::columnsComeInAnyOrderAndCase()
{
    const DeviceDb db(write("useriOS,plls,DspBlocks,BlockRamBits,FlipFlops,LogicCells,SPEEDGRADE,"
                            "Package,Device,Series\n6,5,4,3,2,1,G,P,D,S\n"));

    QCOMPARE(db.rows().size(), 1);
    QCOMPARE(db.rows().first().series, QStringLiteral("S"));
    QCOMPARE(db.rows().first().userIos, 6);
}

void TestDeviceDb::unknownColumnIsPassedOver()
{
    const DeviceDb db(write("Colour," + header + "red,S,D,P,G,1,2,3,4,5,6\n"));

    QCOMPARE(db.series(), QStringList{QStringLiteral("S")});
    QCOMPARE(warnings(), QStringList());
}

void TestDeviceDb::quotedFieldKeepsCommasQuotesAndLineEnds()
{
    const DeviceDb db(write(header + "\"a,b\" , \"say \"\"x\"\"\",\"P\nQ\",G,\"1\",2,3,4,5,6\n"));

    QCOMPARE(db.rows().size(), 1);
    QCOMPARE(db.rows().first().series, QStringLiteral("a,b"));
    QCOMPARE(db.rows().first().name, QStringLiteral("say \"x\""));
    QCOMPARE(db.rows().first().package, QStringLiteral("P\nQ"));
}

void TestDeviceDb::commentsAndEmptyLinesArePassedOver()
{
    const DeviceDb db(write("# a, \"comment\n\n" + header
                            + "\n# S,D,P,G,1,2,3,4,5,6\n   \n"
                              "T,D,P,G,1,2,3,4,5,6\n"));

    QCOMPARE(db.series(), QStringList{QStringLiteral("T")});
    QCOMPARE(warnings(), QStringList());
}

void TestDeviceDb::lineEndsOfEveryKind_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::newRow("LF") << QByteArray("\n");
    QTest::newRow("CRLF") << QByteArray("\r\n");
    QTest::newRow("CR") << QByteArray("\r");
}

void TestDeviceDb::lineEndsOfEveryKind()
{
    QFETCH(QByteArray, end);
    QByteArray text = header + "S,D,P,G,1,2,3,4,5,6\nS,E,P,G,1,2,3,4,5,7\n";
    text.replace("\n", end);

    const DeviceDb db(write(text));

    QCOMPARE(db.rows().size(), 2);
    QCOMPARE(db.rows().last().userIos, 7);
    QCOMPARE(warnings(), QStringList());
}

void TestDeviceDb::lastLineNeedsNoLineEnd()
{
    const DeviceDb db(write(header + "S,D,P,G,1,2,3,4,5,6"));

    QCOMPARE(db.rows().size(), 1);
}

void TestDeviceDb::byteOrderMarkIsNoPartOfTheHeader()
{
    const DeviceDb db(write("\xEF\xBB\xBF" + header + "S,D,P,G,1,2,3,4,5,6\n"));

    QCOMPARE(db.rows().size(), 1);
    QCOMPARE(warnings(), QStringList());
}

void TestDeviceDb::badRowIsSkippedWithFileLineAndReason_data()
{
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<QString>("reason");
    QTest::newRow("too few") << QByteArray("S,D,P,G,1") << QStringLiteral("5 fields instead of 10");
    QTest::newRow("too many") << QByteArray("S,D,P,G,1,2,3,4,5,6,7")
                              << QStringLiteral("11 fields instead of 10");
    QTest::newRow("no device") << QByteArray("S,,P,G,1,2,3,4,5,6")
                               << QStringLiteral("Device is empty");
    QTest::newRow("no number") << QByteArray("S,D,P,G,many,2,3,4,5,6")
                               << QStringLiteral("LogicCells is not a count: 'many'");
    QTest::newRow("negative") << QByteArray("S,D,P,G,1,2,3,4,5,-6")
                              << QStringLiteral("UserIos is not a count: '-6'");
    QTest::newRow("beyond int") << QByteArray("S,D,P,G,1,2,99999999999,4,5,6")
                                << QStringLiteral("BlockRamBits is not a count: '99999999999'");
    QTest::newRow("part twice") << QByteArray("X,first,P,G,1,2,3,4,5,6")
                                << QStringLiteral("the part first-G-P is there twice");
    QTest::newRow("open quote") << QByteArray("\"S,D,P,G,1,2,3,4,5,6")
                                << QStringLiteral("a quote is not closed");
    QTest::newRow("text after quote")
        << QByteArray("\"S\"x,D,P,G,1,2,3,4,5,6") << QStringLiteral("text after a closing quote");
}

void TestDeviceDb::badRowIsSkippedWithFileLineAndReason()
{
    QFETCH(QByteArray, row);
    QFETCH(QString, reason);
    const QString file =
        write(header + "S,first,P,G,1,2,3,4,5,6\n" + row + "\nS,last,P,G,1,2,3,4,5,6\n");

    const DeviceDb db(file);

    QCOMPARE(db.devices(QStringLiteral("S")),
             (QStringList{QStringLiteral("first"), QStringLiteral("last")}));
    QCOMPARE(db.rows().size(), 2);
    QCOMPARE(warnings(), QStringList{file + QStringLiteral(":3: ") + reason});
}

void TestDeviceDb::lineNumberCountsQuotedLineEndsAndComments()
{
    const QString file = write(header + "\"S\r\nT\",D,P,G,1,2,3,4,5,6\n# comment\nbad\n");

    const DeviceDb db(file);

    QCOMPARE(db.rows().size(), 1);
    QCOMPARE(warnings().size(), 1);
    QVERIFY2(warnings().constFirst().startsWith(file + QStringLiteral(":5: ")),
             qPrintable(warnings().constFirst()));
}

void TestDeviceDb::headerWithoutAColumnGivesAnEmptyDatabase()
{
    const QString file = write("Series,Device\nS,D\n");

    const DeviceDb db(file);

    QVERIFY(db.isEmpty());
    QCOMPARE(
        warnings(),
        QStringList{file
                    + QStringLiteral(":1: the header row lacks the columns Package, SpeedGrade, "
                                     "LogicCells, FlipFlops, BlockRamBits, DspBlocks, Plls, "
                                     "UserIos")});
}

void TestDeviceDb::headerWithAColumnTwiceGivesAnEmptyDatabase()
{
    const QString file = write("Series," + header + "S,S,D,P,G,1,2,3,4,5,6\n");

    const DeviceDb db(file);

    QVERIFY(db.isEmpty());
    QCOMPARE(warnings(),
             QStringList{file + QStringLiteral(":1: the column Series is there twice")});
}

void TestDeviceDb::namesComeOnceInTheOrderOfTheTable()
{
    const DeviceDb db(write(header
                            + "Z,d2,p2,g2,1,2,3,4,5,6\n"
                              "A,d1,p1,g1,1,2,3,4,5,6\n"
                              "Z,d2,p2,g1,1,2,3,4,5,6\n"
                              "Z,d0,p2,g1,1,2,3,4,5,6\n"
                              "Z,d2,p1,g3,1,2,3,4,5,6\n"));

    QCOMPARE(db.series().join(QLatin1Char(' ')), QStringLiteral("Z A"));
    QCOMPARE(db.devices(QStringLiteral("Z")).join(QLatin1Char(' ')), QStringLiteral("d2 d0"));
    QCOMPARE(db.packages(QStringLiteral("d2")).join(QLatin1Char(' ')), QStringLiteral("p2 p1"));
    QCOMPARE(db.speedGrades(QStringLiteral("d2"), QStringLiteral("p2")).join(QLatin1Char(' ')),
             QStringLiteral("g2 g1"));
}

void TestDeviceDb::unknownNamesGiveEmptyLists()
{
    const DeviceDb db(write(header + "S,D,P,G,1,2,3,4,5,6\n"));

    QCOMPARE(db.devices(QStringLiteral("s")), QStringList());
    QCOMPARE(db.packages(QString()), QStringList());
    QCOMPARE(db.speedGrades(QStringLiteral("D"), QStringLiteral("X")), QStringList());
}

void TestDeviceDb::partIsMadeUpWhenTheTableHasNone()
{
    const DeviceDb db(write(header + "S,D,P,G,1,2,3,4,5,6\n"));

    QVERIFY(db.device(QStringLiteral("D-G-P")).has_value());
}

void TestDeviceDb::partOfTheTableIsKept()
{
    const DeviceDb db(write("Part," + header + "XY-1,S,D,P,G,1,2,3,4,5,6\n"));

    QVERIFY(db.device(QStringLiteral("XY-1")).has_value());
    QVERIFY(!db.device(QStringLiteral("D-G-P")).has_value());
}

void TestDeviceDb::rowIsFoundByItsThreeNames()
{
    const DeviceDb db(write(header + "S,D,P,G,1,2,3,4,5,6\nS,D,P,H,1,2,3,4,5,7\n"));

    const auto row = db.device(QStringLiteral("D"), QStringLiteral("P"), QStringLiteral("H"));

    QVERIFY(row.has_value());
    QCOMPARE(row->userIos, 7);
    QVERIFY(!db.device(QStringLiteral("D"), QStringLiteral("P"), QStringLiteral("I")).has_value());
}

void TestDeviceDb::unknownPartGivesNothing()
{
    const DeviceDb db(write(header + "S,D,P,G,1,2,3,4,5,6\n"));

    QVERIFY(!db.device(QString()).has_value());
    QVERIFY(!db.device(QStringLiteral("d-g-p")).has_value());
}

void TestDeviceDb::shippedTableReadsWithoutWarning()
{
    const DeviceDb db(QStringLiteral(DEVICE_TABLE));

    QCOMPARE(warnings(), QStringList());
    QVERIFY(db.series().contains(QStringLiteral("iCE40 HX")));
    const auto row = db.device(QStringLiteral("iCE40HX1K-TQ144"));
    QVERIFY(row.has_value());
    QCOMPARE(row->logicCells, 1280);
    QCOMPARE(row->blockRamBits, 65536);
}

QTEST_GUILESS_MAIN(TestDeviceDb)
#include "tst_devicedb.moc"
