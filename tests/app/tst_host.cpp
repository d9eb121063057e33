// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "hostprocess.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <csignal>

static QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/// The program from outside, with a core that was made for this test.
class TestHost final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void informationNeedsNoDisplayAndNoCore_data();
    void informationNeedsNoDisplayAndNoCore();
    void anUnknownOptionEndsWithStatus2();
    void pluginsAreListedWithoutStartingThem();
    void pluginsThatCannotStartAreListedWithTheReason();

    void endsWithStatus0WhenTheMainWindowCloses();
    void theOrderOfStartAndEnd();
    void aMissingCoreIsOneLineAndStatus1();
    void aCoreThatCannotStartIsOneLineAndStatus1_data();
    void aCoreThatCannotStartIsOneLineAndStatus1();
    void aCorruptCoreIsOneLineAndStatus1();
    void aCompanionThatFailsIsAWarning();
    void safeModeStartsTheCoreOnly();
    void pluginsComeFromTheFoldersGiven();
    void aMissingPluginFolderIsAWarning();

    void filesAreOpenedInOrderOnceTheWindowIsShown();
    void theCoreSeesTheProjectInFirstPlace();
    void theSplashNamesThePluginAndGoesWhenTheWindowIsShown();
    void theThemeIsThereBeforeThePlugins_data();
    void theThemeIsThereBeforeThePlugins();
    void traceIsPrintedWithVerboseOnly_data();
    void traceIsPrintedWithVerboseOnly();
    void verbosePrintsTheShareOfEveryPlugin();
    void glIsTurnedOffUnlessTheUserSetIt();
    void programsStartedFromHereFindGlAsTheUserHasIt_data();
    void programsStartedFromHereFindGlAsTheUserHasIt();

    void signalsCloseTheMainWindow_data();
    void signalsCloseTheMainWindow();
    void aRefusedCloseKeepsTheProgramRunning();
    void aSignalBeforeTheWindowIsShownEndsTheProgram();
    void aSignalUnderADialogLeavesBothOpen();
};

void TestHost::informationNeedsNoDisplayAndNoCore_data()
{
    QTest::addColumn<QString>("output");
    QTest::newRow("--help") << text("Usage: kelmo-designer");
    QTest::newRow("-h") << text("Usage: kelmo-designer");
    QTest::newRow("--version") << text("KELMO FPGA Designer " TEST_VERSION);
    QTest::newRow("-v") << text("KELMO FPGA Designer " TEST_VERSION);
    QTest::newRow("--list-plugins") << QString();
}

void TestHost::informationNeedsNoDisplayAndNoCore()
{
    QFETCH(const QString, output);
    HostProcess host{QStringList()};
    host.removeVariable(text("DISPLAY"));

    host.start({text(QTest::currentDataTag())});

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 0);
    QVERIFY(host.output().join(QLatin1Char('\n')).startsWith(output));
    QCOMPARE(host.errors(), QString());
}

void TestHost::anUnknownOptionEndsWithStatus2()
{
    HostProcess host;
    host.removeVariable(text("DISPLAY"));

    host.start({text("--bogus")});

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 2);
    QCOMPARE(host.errors(),
             text("kelmo-designer: unknown option --bogus; see kelmo-designer --help\n"));
    QCOMPARE(host.output(), QStringList());
}

void TestHost::pluginsAreListedWithoutStartingThem()
{
    HostProcess host({text("IdeCore"), text("TestCompanion")});

    host.start({text("--list-plugins")});

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 0);
    QCOMPARE(
        host.output(),
        (QStringList{text("IdeCore " TEST_VERSION " (core)"),
                     text("    ") + host.pluginFile(text("IdeCore")), text("TestCompanion 3.2.1"),
                     text("    ") + host.pluginFile(text("TestCompanion")),
                     text("    Fails when told to."), text("    needs IdeCore")}));
}

void TestHost::pluginsThatCannotStartAreListedWithTheReason()
{
    HostProcess host({text("TestCompanion")});
    host.write(text("lib/plugins/libBroken.so"), "no library");

    host.start({text("--list-plugins")});

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 0);
    QCOMPARE(host.output().filter(text("cannot be started: ")).size(), 2);
    QVERIFY(host.output().contains(
        text("    cannot be started: it depends on \"IdeCore\", which is not there")));
}

void TestHost::endsWithStatus0WhenTheMainWindowCloses()
{
    HostProcess host;
    host.tell(text("close"));

    host.start();

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 0);
    QVERIFY(host.output().contains(text("closed")));
}

void TestHost::theOrderOfStartAndEnd()
{
    HostProcess host({text("IdeCore"), text("TestCompanion")});
    host.tell(text("close"));

    host.start();

    QVERIFY(host.waitForEnd());
    const QRegularExpression steps(text("^(core|companion|ready|shown|closed)"));
    QCOMPARE(host.output().filter(steps),
             (QStringList{text("core initialize"), text("companion initialize"), text("ready"),
                          text("shown"), text("closed"), text("companion shutDown"),
                          text("core shutDown"), text("core destroyed")}));
}

void TestHost::aMissingCoreIsOneLineAndStatus1()
{
    HostProcess host({text("TestCompanion")});

    host.start();

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 1);
    QCOMPARE(host.errors(),
             QStringLiteral("kelmo-designer: the core plugin is missing, there is none in %1\n")
                 .arg(host.path(text("lib/plugins"))));
    QCOMPARE(host.output(), QStringList());
}

void TestHost::aCoreThatCannotStartIsOneLineAndStatus1_data()
{
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("reason");
    const QString start = text("the core plugin %1 cannot be started: ");
    QTest::newRow("false") << text("fail") << start + text("initialize() returned false");
    QTest::newRow("throws")
        << text("throw")
        << start + text("initialize() threw an exception: thrown on purpose: a second line");
    QTest::newRow("no window") << text("no-window") << text("the core plugin made no main window");
}

void TestHost::aCoreThatCannotStartIsOneLineAndStatus1()
{
    QFETCH(const QString, told);
    QFETCH(const QString, reason);
    HostProcess host({text("IdeCore"), text("TestCompanion")});
    host.tell(told);

    host.start();

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 1);
    const QString line =
        reason.contains(text("%1")) ? reason.arg(host.pluginFile(text("IdeCore"))) : reason;
    QCOMPARE(host.errors(), text("a warning\nkelmo-designer: ") + line + QLatin1Char('\n'));
}

void TestHost::aCorruptCoreIsOneLineAndStatus1()
{
    HostProcess host({text("TestCompanion")});
    host.write(text("lib/plugins/libIdeCore.so"), "no library");

    host.start();

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 1);
    const QString errors = host.errors();
    QCOMPARE(errors.count(QLatin1Char('\n')), 1);
    QVERIFY2(errors.startsWith(text("kelmo-designer: the core plugin ")
                               + host.pluginFile(text("IdeCore")) + text(" cannot be started: ")),
             qPrintable(errors));
}

void TestHost::aCompanionThatFailsIsAWarning()
{
    HostProcess host({text("IdeCore"), text("TestCompanion")});
    host.tell(text("close"));
    host.setVariable(text("TEST_COMPANION"), text("fail"));

    host.start();

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 0);
    QVERIFY(host.errors().contains(QStringLiteral("plugin \"TestCompanion\" (%1): initialize() "
                                                  "returned false\n")
                                       .arg(host.pluginFile(text("TestCompanion")))));
    QVERIFY(!host.output().contains(text("companion shutDown")));
}

void TestHost::safeModeStartsTheCoreOnly()
{
    HostProcess host({text("IdeCore"), text("TestCompanion")});
    host.tell(text("close"));

    host.start({text("--safe-mode")});

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 0);
    QVERIFY(host.output().contains(text("closed")));
    QCOMPARE(host.output().filter(text("companion")), QStringList());
    QCOMPARE(host.errors(), text("a warning\n"));
}

void TestHost::pluginsComeFromTheFoldersGiven()
{
    HostProcess host;
    host.copy(text("libTestCompanion.so"), text("more/libTestCompanion.so"));
    host.tell(text("close"));

    host.start({text("--plugin-path"), host.path(text("more"))});

    QVERIFY(host.waitForEnd());
    QVERIFY(host.output().contains(text("companion initialize")));
}

void TestHost::aMissingPluginFolderIsAWarning()
{
    HostProcess host;
    host.tell(text("close"));

    host.start({text("--plugin-path"), text("/nowhere/plugins")});

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 0);
    QVERIFY(host.errors().contains(text("there is no plugin folder /nowhere/plugins")));
}

void TestHost::filesAreOpenedInOrderOnceTheWindowIsShown()
{
    HostProcess host;

    host.start({text("/tmp/b.v"), text("--verbose"), text("a.vhd")});

    const QString last = text("open ") + QDir::current().absoluteFilePath(text("a.vhd"));
    QVERIFY(host.waitForLine(last));
    QCOMPARE(host.output().filter(QRegularExpression(text("^(shown|open)"))),
             (QStringList{text("shown"), text("open /tmp/b.v"), last}));
}

void TestHost::theCoreSeesTheProjectInFirstPlace()
{
    HostProcess host;

    host.start({text("-platform"), text("offscreen"), text("-style=fusion"), text("-prj"),
                text("p.kprj"), text("--verbose"), text("/tmp/a.v")});

    QVERIFY(host.waitForLine(text("open /tmp/a.v")));
    QVERIFY(host.output().contains(text("arguments -prj|p.kprj|--verbose|/tmp/a.v")));
    QCOMPARE(host.output().filter(text("open ")).size(), 1);
}

void TestHost::theSplashNamesThePluginAndGoesWhenTheWindowIsShown()
{
    HostProcess host;

    host.start();

    QVERIFY(host.waitForLine(text("splash gone")));
    QVERIFY(host.output().contains(QStringLiteral("splash there: Starting IdeCore…")));
}

void TestHost::theThemeIsThereBeforeThePlugins_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QString>("style");
    QTest::newRow("dark") << QByteArray("[General]\nTheme=Dark\n") << text("style fusion, dark");
    QTest::newRow("classic") << QByteArray("[General]\nTheme=Classic\n")
                             << text("style fusion, light");
    QTest::newRow("none") << QByteArray() << text("style fusion, light");
}

void TestHost::theThemeIsThereBeforeThePlugins()
{
    QFETCH(const QByteArray, settings);
    QFETCH(const QString, style);
    HostProcess host;
    host.write(text("config/KelmoWare/IDE.ini"), settings);
    host.setVariable(text("XDG_CONFIG_HOME"), host.path(text("config")));
    host.tell(text("close"));

    host.start();

    QVERIFY(host.waitForEnd());
    QVERIFY2(host.output().contains(style), qPrintable(host.output().join(QLatin1Char('\n'))));
}

void TestHost::traceIsPrintedWithVerboseOnly_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("printed");
    QTest::newRow("quiet") << QStringList() << false;
    QTest::newRow("verbose") << QStringList{text("--verbose")} << true;
}

void TestHost::traceIsPrintedWithVerboseOnly()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const bool, printed);
    HostProcess host;
    host.tell(text("close"));

    host.start(arguments);

    QVERIFY(host.waitForEnd());
    const QString errors = host.errors();
    QCOMPARE(errors.contains(text("a line of trace\n")), printed);
    QVERIFY(errors.contains(text("a warning\n")));
}

void TestHost::verbosePrintsTheShareOfEveryPlugin()
{
    HostProcess host({text("IdeCore"), text("TestCompanion")});
    host.tell(text("close"));

    host.start({text("--verbose")});

    QVERIFY(host.waitForEnd());
    const QString errors = host.errors();
    for (const char *plugin : {"IdeCore", "TestCompanion"}) {
        const QRegularExpression line(
            QStringLiteral("^start: plugin %1: [0-9.]+ ms CPU, [0-9.]+ ms wall; load .*; "
                           "initialize .*; extensionsInitialized .*$")
                .arg(text(plugin)),
            QRegularExpression::MultilineOption);
        QVERIFY2(errors.contains(line), qPrintable(errors));
    }
    QVERIFY(errors.contains(QRegularExpression(text("start: .* until the main window was shown"))));
}

void TestHost::glIsTurnedOffUnlessTheUserSetIt()
{
    HostProcess host;
    host.tell(text("close"));
    host.removeVariable(text("QT_XCB_GL_INTEGRATION"));
    host.start();
    QVERIFY(host.waitForEnd());
    QVERIFY(host.output().contains(text("gl none")));

    HostProcess other;
    other.tell(text("close"));
    other.setVariable(text("QT_XCB_GL_INTEGRATION"), text("xcb_egl"));
    other.start();
    QVERIFY(other.waitForEnd());
    QVERIFY(other.output().contains(text("gl xcb_egl")));
    QVERIFY(other.output().contains(text("pixmaps 1")));
}

void TestHost::programsStartedFromHereFindGlAsTheUserHasIt_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("not set") << QString();
    QTest::newRow("none") << text("none");
    QTest::newRow("egl") << text("xcb_egl");
}

void TestHost::programsStartedFromHereFindGlAsTheUserHasIt()
{
    QFETCH(const QString, value);
    HostProcess host;
    host.removeVariable(text("QT_XCB_GL_INTEGRATION"));
    if (!value.isEmpty())
        host.setVariable(text("QT_XCB_GL_INTEGRATION"), value);

    host.start();

    QVERIFY(host.waitForLine(text("splash gone")));
    QVERIFY(host.output().contains(text("gl later ") + value));
}

void TestHost::signalsCloseTheMainWindow_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
}

void TestHost::signalsCloseTheMainWindow()
{
    QFETCH(const int, signal);
    HostProcess host;
    host.start();
    QVERIFY(host.waitForLine(text("splash gone")));

    host.send(signal);

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 0);
    QCOMPARE(host.output().mid(host.output().indexOf(text("splash gone")) + 1),
             (QStringList{text("closed"), text("core shutDown"), text("core destroyed")}));
}

void TestHost::aRefusedCloseKeepsTheProgramRunning()
{
    HostProcess host;
    host.tell(text("refuse-once"));
    host.start();
    QVERIFY(host.waitForLine(text("splash gone")));

    host.send(SIGTERM);
    QVERIFY(host.waitForLine(text("refused")));
    QVERIFY(host.isRunning());

    host.send(SIGTERM);
    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 0);
    QVERIFY(host.output().contains(text("closed")));
}

void TestHost::aSignalBeforeTheWindowIsShownEndsTheProgram()
{
    HostProcess host;
    host.tell(text("hidden"));
    host.start();
    QVERIFY(host.waitForLine(text("ready")));

    host.send(SIGTERM);

    QVERIFY(host.waitForEnd());
    QCOMPARE(host.status(), 0);
    QVERIFY(host.output().contains(text("core destroyed")));
    // It would save the geometry of a window that nobody has seen.
    QVERIFY(!host.output().contains(text("closed")));
}

void TestHost::aSignalUnderADialogLeavesBothOpen()
{
    HostProcess host;
    host.tell(text("dialog"));
    host.start();
    QVERIFY(host.waitForLine(text("dialog")));

    host.send(SIGTERM);

    QVERIFY(host.waitForLine(text("dialog gone")));
    QVERIFY(!host.output().contains(text("closed")));
    host.send(SIGTERM);
    QVERIFY(host.waitForEnd());
    QVERIFY(host.output().contains(text("closed")));
}

QTEST_GUILESS_MAIN(TestHost)
#include "tst_host.moc"
