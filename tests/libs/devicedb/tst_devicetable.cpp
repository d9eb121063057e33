// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The shipped table of devices against the open chip database that synthesis and
// place and route work with. What is asked of the database is written down here a
// second time and from the database alone: nothing is taken from the table.

#include "chipdatabase.h"

#include <devicedb/devicedb.h>

#include <QHash>
#include <QSet>
#include <QTest>

using DEV::Device;

namespace {

/// How a device of the table is made.
struct Make
{
    const char *die;
    /// How the database marks the packages of this variant of the die.
    const char *mark;
    /// All of the die is there for the user.
    bool whole;
};

const QHash<QString, Make> &makes()
{
    static const QHash<QString, Make> all{
        {QStringLiteral("iCE40LP384"), {"384", "", true}},
        {QStringLiteral("iCE40LP1K"), {"1k", "", true}},
        {QStringLiteral("iCE40HX1K"), {"1k", "", true}},
        {QStringLiteral("iCE40LP4K"), {"8k", ":4k", false}},
        {QStringLiteral("iCE40HX4K"), {"8k", ":4k", false}},
        {QStringLiteral("iCE40LP8K"), {"8k", "", true}},
        {QStringLiteral("iCE40HX8K"), {"8k", "", true}},
        {QStringLiteral("iCE40LM4K"), {"lm4k", "", true}},
        {QStringLiteral("iCE5LP1K"), {"u4k", "", false}},
        {QStringLiteral("iCE5LP2K"), {"u4k", "", false}},
        {QStringLiteral("iCE5LP4K"), {"u4k", "", true}},
        {QStringLiteral("iCE40UP3K"), {"5k", "", false}},
        {QStringLiteral("iCE40UP5K"), {"5k", "", true}},
    };
    return all;
}

QString packageIn(const Make &make, const Device &device)
{
    return device.package.toLower() + QLatin1String(make.mark);
}

} // namespace

class TestDeviceTable : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void everyPackageOfTheDatabaseIsInTheTable_data();
    void everyPackageOfTheDatabaseIsInTheTable();
    void thePackageIsInTheDatabase_data() { parts(); }
    void thePackageIsInTheDatabase();
    void userIosAreThePinsOfThePackage_data() { parts(); }
    void userIosAreThePinsOfThePackage();
    void pllsAreThoseThePackageLeavesOpen_data() { parts(); }
    void pllsAreThoseThePackageLeavesOpen();
    void logicCellsAreThoseOfTheDie_data() { parts(); }
    void logicCellsAreThoseOfTheDie();
    void everyLogicCellHasAFlipFlop_data() { parts(); }
    void everyLogicCellHasAFlipFlop();
    void blockRamIsThatOfTheDie_data() { parts(); }
    void blockRamIsThatOfTheDie();
    void dspBlocksAreThoseOfTheDie_data() { parts(); }
    void dspBlocksAreThoseOfTheDie();
    void theNameOfAPartIsDeviceAndPackage_data() { parts(); }
    void theNameOfAPartIsDeviceAndPackage();

private:
    void parts() const;
    /// Of the data row that runs.
    [[nodiscard]] Device device() const;
    [[nodiscard]] Make make() const { return makes().value(device().name); }
    [[nodiscard]] ChipDatabase chip() const { return m_chips.value(QLatin1String(make().die)); }
    void compare(int inTable, int onDie) const;

    const DEV::DeviceDb m_table{QStringLiteral(DEVICE_TABLE)};
    QHash<QString, ChipDatabase> m_chips;
};

void TestDeviceTable::initTestCase()
{
    for (const Make &make : makes()) {
        const QString die = QLatin1String(make.die);
        if (m_chips.contains(die))
            continue;
        const auto chip = ChipDatabase::read(die);
        QVERIFY2(chip, qPrintable(ChipDatabase::fileOf(die)
                                  + QLatin1String(": install fpga-icestorm-chipdb")));
        m_chips.insert(die, *chip);
    }
    for (const Device &row : m_table.rows())
        QVERIFY2(makes().contains(row.name), qPrintable(row.name));
}

void TestDeviceTable::parts() const
{
    QTest::addColumn<QString>("part");
    for (const Device &row : m_table.rows())
        QTest::newRow(qPrintable(row.part)) << row.part;
}

Device TestDeviceTable::device() const
{
    return m_table.device(*static_cast<QString *>(QTest::qData("part", qMetaTypeId<QString>())))
        .value_or(Device());
}

void TestDeviceTable::compare(int inTable, int onDie) const
{
    if (make().whole)
        QCOMPARE(inTable, onDie);
    else
        QVERIFY2(inTable <= onDie, qPrintable(QStringLiteral("%1 > %2").arg(inTable).arg(onDie)));
}

void TestDeviceTable::everyPackageOfTheDatabaseIsInTheTable_data()
{
    QTest::addColumn<QString>("die");
    for (auto chip = m_chips.cbegin(); chip != m_chips.cend(); ++chip)
        QTest::newRow(qPrintable(chip.key())) << chip.key();
}

void TestDeviceTable::everyPackageOfTheDatabaseIsInTheTable()
{
    QFETCH(QString, die);
    QSet<QString> listed;
    for (const Device &row : m_table.rows()) {
        const Make made = makes().value(row.name);
        if (die == QLatin1String(made.die))
            listed.insert(packageIn(made, row));
    }

    QStringList missing = (m_chips.value(die).packages() - listed).values();
    missing.sort();

    QCOMPARE(missing, QStringList());
}

void TestDeviceTable::thePackageIsInTheDatabase()
{
    QVERIFY(chip().packages().contains(packageIn(make(), device())));
}

void TestDeviceTable::userIosAreThePinsOfThePackage()
{
    QCOMPARE(device().userIos, chip().pins(packageIn(make(), device())));
}

void TestDeviceTable::pllsAreThoseThePackageLeavesOpen()
{
    QCOMPARE(device().plls, chip().openPlls(packageIn(make(), device())));
}

void TestDeviceTable::logicCellsAreThoseOfTheDie()
{
    compare(device().logicCells, chip().logicCells());
}

void TestDeviceTable::everyLogicCellHasAFlipFlop()
{
    QCOMPARE(device().flipFlops, device().logicCells);
}

void TestDeviceTable::blockRamIsThatOfTheDie()
{
    QCOMPARE(device().blockRamBits % ChipDatabase::BITS_OF_BLOCK_RAM, 0);
    compare(device().blockRamBits, chip().blockRams() * ChipDatabase::BITS_OF_BLOCK_RAM);
}

void TestDeviceTable::dspBlocksAreThoseOfTheDie()
{
    compare(device().dspBlocks, chip().cells(QStringLiteral("MAC16")));
}

void TestDeviceTable::theNameOfAPartIsDeviceAndPackage()
{
    QCOMPARE(device().part, QString(device().name + QLatin1Char('-') + device().package));
}

QTEST_GUILESS_MAIN(TestDeviceTable)
#include "tst_devicetable.moc"
