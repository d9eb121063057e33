// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "app/commandline.h"

#include <QDir>
#include <QTest>

static CommandLine parsed(const char *text)
{
    return CommandLine(QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

static QString absolute(const char *path)
{
    return QDir::current().absoluteFilePath(QString::fromLatin1(path));
}

class TestCommandLine final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void nothingIsAskedForByNothing();
    void switchesAreRead_data();
    void switchesAreRead();
    void pluginFoldersAreCollectedInOrder();
    void aPluginFolderIsNeeded_data();
    void aPluginFolderIsNeeded();
    void filesAreMadeAbsolute();
    void aProjectInFirstPlaceIsNoFile();
    void aProjectMayBeFollowedByOptionsAndFiles();
    void windowOptionsTakeNoPlace_data();
    void windowOptionsTakeNoPlace();
    void aProjectElsewhereIsPassedOverSilently_data();
    void aProjectElsewhereIsPassedOverSilently();
    void unknownOptionsAreNamed_data();
    void unknownOptionsAreNamed();
    void theFirstUnknownOptionIsNamed();
    void windowOptionsArePassedOver_data();
    void windowOptionsArePassedOver();
    void afterTwoDashesEverythingIsAFile();
    void helpNamesEveryOption_data();
    void helpNamesEveryOption();
};

void TestCommandLine::nothingIsAskedForByNothing()
{
    const CommandLine line = parsed("");

    QVERIFY(line.error.isEmpty());
    QVERIFY(!line.help && !line.version && !line.listPlugins && !line.safeMode && !line.verbose);
    QVERIFY(!line.hasProject);
    QVERIFY(line.files.isEmpty() && line.pluginPaths.isEmpty());
}

void TestCommandLine::switchesAreRead_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("--help") << 0;
    QTest::newRow("-h") << 0;
    QTest::newRow("--version") << 1;
    QTest::newRow("-v") << 1;
    QTest::newRow("--list-plugins") << 2;
    QTest::newRow("--safe-mode") << 3;
    QTest::newRow("--verbose") << 4;
}

void TestCommandLine::switchesAreRead()
{
    QFETCH(const int, index);

    const CommandLine line = parsed(QTest::currentDataTag());

    const QVector<bool> read{line.help, line.version, line.listPlugins, line.safeMode,
                             line.verbose};
    QVERIFY(line.error.isEmpty());
    QCOMPARE(read.count(true), 1);
    QCOMPARE(read.indexOf(true), index);
}

void TestCommandLine::pluginFoldersAreCollectedInOrder()
{
    const CommandLine line = parsed("--plugin-path /b --plugin-path=a");

    QVERIFY(line.error.isEmpty());
    QCOMPARE(line.pluginPaths, (QStringList{QStringLiteral("/b"), absolute("a")}));
    QVERIFY(line.files.isEmpty());
}

void TestCommandLine::aPluginFolderIsNeeded_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("at the end") << QStringLiteral("--plugin-path");
    QTest::newRow("empty") << QStringLiteral("--plugin-path=");
}

void TestCommandLine::aPluginFolderIsNeeded()
{
    QFETCH(const QString, text);

    QCOMPARE(CommandLine({text}).error, QStringLiteral("the option --plugin-path needs a folder"));
}

void TestCommandLine::filesAreMadeAbsolute()
{
    QCOMPARE(parsed("a.v /tmp/b.vhd").files,
             (QStringList{absolute("a.v"), QStringLiteral("/tmp/b.vhd")}));
}

void TestCommandLine::aProjectInFirstPlaceIsNoFile()
{
    const CommandLine line = parsed("-prj a.kprj");

    QVERIFY(line.hasProject);
    QVERIFY(line.files.isEmpty());
    QVERIFY(line.error.isEmpty());
}

void TestCommandLine::aProjectMayBeFollowedByOptionsAndFiles()
{
    const CommandLine line = parsed("-prj a.kprj --verbose b.v");

    QVERIFY(line.hasProject);
    QVERIFY(line.verbose);
    QCOMPARE(line.files, QStringList{absolute("b.v")});
}

void TestCommandLine::windowOptionsTakeNoPlace_data()
{
    QTest::addColumn<QString>("option");
    QTest::newRow("value apart") << QStringLiteral("-platform offscreen");
    QTest::newRow("value joined") << QStringLiteral("-style=fusion");
    QTest::newRow("no value") << QStringLiteral("-reverse");
}

void TestCommandLine::windowOptionsTakeNoPlace()
{
    QFETCH(const QString, option);

    const CommandLine line =
        parsed((option + QStringLiteral(" -prj a.kprj")).toLatin1().constData());

    QVERIFY(line.hasProject);
    QVERIFY(line.files.isEmpty());
}

void TestCommandLine::aProjectElsewhereIsPassedOverSilently_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("second") << QStringLiteral("--verbose -prj a.kprj");
    QTest::newRow("in capitals") << QStringLiteral("-PRJ a.kprj");
    QTest::newRow("alone") << QStringLiteral("-prj");
}

void TestCommandLine::aProjectElsewhereIsPassedOverSilently()
{
    QFETCH(const QString, text);

    const CommandLine line = parsed(text.toLatin1().constData());

    QVERIFY(!line.hasProject);
    QVERIFY(line.files.isEmpty());
    QVERIFY(line.error.isEmpty());
}

void TestCommandLine::unknownOptionsAreNamed_data()
{
    QTest::addColumn<QString>("option");
    QTest::newRow("long") << QStringLiteral("--bogus");
    QTest::newRow("short") << QStringLiteral("-x");
    QTest::newRow("in capitals") << QStringLiteral("--HELP");
    QTest::newRow("with a value") << QStringLiteral("--verbose=1");
    // Qt would leave these in place.
    QTest::newRow("window option whose value is apart") << QStringLiteral("-platform=xcb");
    QTest::newRow("window option without a value") << QStringLiteral("-reverse=1");
    QTest::newRow("longer than a window option") << QStringLiteral("-styles=fusion");
}

void TestCommandLine::unknownOptionsAreNamed()
{
    QFETCH(const QString, option);

    QCOMPARE(CommandLine({option}).error, QStringLiteral("unknown option ") + option);
}

void TestCommandLine::theFirstUnknownOptionIsNamed()
{
    QCOMPARE(parsed("--one --two").error, QStringLiteral("unknown option --one"));
}

void TestCommandLine::windowOptionsArePassedOver_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("with a value") << QStringLiteral("-platform xcb");
    QTest::newRow("two dashes") << QStringLiteral("--style fusion");
    QTest::newRow("style joined") << QStringLiteral("-style=fusion");
    QTest::newRow("two dashes joined") << QStringLiteral("--style=fusion");
    QTest::newRow("style sheet joined") << QStringLiteral("-stylesheet=a=b.qss");
    QTest::newRow("debugger joined") << QStringLiteral("-qmljsdebugger=port:1");
    QTest::newRow("visual") << QStringLiteral("-visual 33");
    QTest::newRow("session manager") << QStringLiteral("-session 1_2");
    QTest::newRow("without a value") << QStringLiteral("-reverse");
}

void TestCommandLine::windowOptionsArePassedOver()
{
    QFETCH(const QString, text);

    const CommandLine line = parsed((text + QStringLiteral(" a.v")).toLatin1().constData());

    QVERIFY(line.error.isEmpty());
    QCOMPARE(line.files, QStringList{absolute("a.v")});
}

void TestCommandLine::afterTwoDashesEverythingIsAFile()
{
    const CommandLine line = parsed("-- --help -prj");

    QVERIFY(line.error.isEmpty());
    QVERIFY(!line.help);
    QCOMPARE(line.files, (QStringList{absolute("--help"), absolute("-prj")}));
}

void TestCommandLine::helpNamesEveryOption_data()
{
    QTest::addColumn<QString>("option");
    for (const char *option : {"-prj FILE", "--plugin-path DIR", "--safe-mode", "--list-plugins",
                               "--verbose", "--version", "--help", "[FILE"})
        QTest::newRow(option) << QString::fromLatin1(option);
}

void TestCommandLine::helpNamesEveryOption()
{
    QFETCH(const QString, option);

    QVERIFY(CommandLine::helpText().contains(option));
}

QTEST_APPLESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
