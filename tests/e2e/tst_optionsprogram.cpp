// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The options, set by keys alone, and what is left of them after a restart.

#include "program.h"
#include "support/testhome.h"

#include <QDir>
#include <QSettings>
#include <QTest>

namespace {

QVariant stored(const char *key)
{
    return storedValue(named(key));
}

} // namespace

class TestOptionsProgram final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { removeFromTestHome(QStringLiteral(".config")); }
    void languageIconSizeAndThemeHoldAfterARestart();
    void externalEditorsAreSetByKeys();
    void onlyWhatWasAppliedHolds();
    void theOptionsOpenWhereTheyWereLeft();

private:
    /// One that is stored is no news to the page of the themes, which would tell.
    static void storeTheme();
    /// By the menu, with the keyboard on the categories.
    static void openOptions(Program *program);
};

void TestOptionsProgram::languageIconSizeAndThemeHoldAfterARestart()
{
    Program program;
    QCOMPARE(program.start(), QString());
    press(&program, {"alt+t", "o"});
    QVERIFY(program.waitForActive(named("Options")));
    // From the categories over the tabs to the three boxes.
    press(&program, {"Tab", "Tab", "End", "Tab", "End", "Tab", "End"});
    program.picture(named("options-general"));
    press(&program, {"Return"});
    QVERIFY(program.waitForActive(named("Restart Required")));
    press(&program, {"Return"});
    QVERIFY(program.waitForActive(named("KELMO FPGA Designer")));
    SOON_COMPARE(stored("Language").toString(), named("zh_CN"));
    endWell(&program);

    QCOMPARE(program.start(), QString());
    press(&program, {"alt+t", "o"});
    // Whatever it is called in the other language.
    SOON_VERIFY(!program.activeTitle().contains(named("KELMO FPGA Designer"))
                && !program.activeTitle().isEmpty());
    program.picture(named("options-general-after"));
    // What is shown is stored again, and no theme is new.
    press(&program, {"Return"});
    QVERIFY(program.waitForActive(named("KELMO FPGA Designer")));
    endWell(&program);

    QCOMPARE(stored("Language").toString(), named("zh_CN"));
    QCOMPARE(stored("Core/ToolbarIconSize").toInt(), 28);
    QCOMPARE(stored("Theme").toString(), named("Dark"));
}

void TestOptionsProgram::externalEditorsAreSetByKeys()
{
    Program program;
    QCOMPARE(program.start(), QString());
    press(&program, {"alt+t", "o"});
    QVERIFY(program.waitForActive(named("Options")));
    // Over the check box and the table to "Add".
    press(&program, {"Down", "Down", "Tab", "Tab", "Tab", "Tab"});
    for (const char *name : {"one", "two", "three"}) {
        press(&program, {"space"});
        QVERIFY(program.waitForActive(named("Create an external editor")));
        program.type(named(name));
        press(&program, {"Tab"});
        program.type(named("/bin/") + named(name));
        press(&program, {"Return"});
        QVERIFY(program.waitForActive(named("Options")));
    }
    // The first goes; with it go the buttons for a selected one, and the keyboard moves on.
    press(&program, {"shift+Tab", "Down", "Up", "Up", "Up", "Tab", "Tab", "space"});
    // The second is given arguments, the third is made the default.
    press(&program, {"shift+Tab", "shift+Tab", "Down", "Up", "Up", "F2"});
    QVERIFY(program.waitForActive(named("Modifying editor")));
    press(&program, {"Tab", "Tab", "Tab", "ctrl+a"});
    // A dash in front would be an option of what types it.
    program.type(named("%f -x"));
    program.picture(named("options-modify"));
    press(&program, {"Return"});
    QVERIFY(program.waitForActive(named("Options")));
    press(&program, {"Down", "Tab", "Tab", "Tab", "space"});
    program.picture(named("options-editors"));
    press(&program, {"Return"});
    // The page shown first stores a theme where there was none, and says so.
    QVERIFY(program.waitForActive(named("Restart Required")));
    press(&program, {"Return"});
    QVERIFY(program.waitForActive(named("KELMO FPGA Designer")));
    endWell(&program);

    // They are stored in any order.
    QStringList entries{stored("external_editor/editor0").toStringList().join(QLatin1Char('|')),
                        stored("external_editor/editor1").toStringList().join(QLatin1Char('|'))};
    entries.sort();
    QCOMPARE(entries, (QStringList{named("three|/bin/three|%f|1"), named("two|/bin/two|%f -x|0")}));
    QVERIFY(!stored("external_editor/editor2").isValid());
}

void TestOptionsProgram::storeTheme()
{
    QSettings settings(QDir::homePath() + named("/.config/KelmoWare/IDE.ini"),
                       QSettings::IniFormat);
    settings.setValue(named("Theme"), named("Classic"));
}

void TestOptionsProgram::openOptions(Program *program)
{
    press(program, {"alt+t", "o"});
    QVERIFY(program->waitForActive(named("Options")));
}

void TestOptionsProgram::onlyWhatWasAppliedHolds()
{
    storeTheme();
    Program program;
    QCOMPARE(program.start(), QString());
    openOptions(&program);
    // On the page of the editors one is added; on the general page the largest icons and
    // the dark theme are chosen.
    press(&program, {"Down", "Down", "Tab", "Tab", "Tab", "Tab", "space"});
    QVERIFY(program.waitForActive(named("Create an external editor")));
    program.type(named("kept"));
    press(&program, {"Tab"});
    program.type(named("/bin/kept"));
    press(&program, {"Return"});
    QVERIFY(program.waitForActive(named("Options")));
    press(&program, {"shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab", "Home"});
    press(&program, {"Tab", "Tab", "Tab", "End", "Tab", "End"});
    // Over the directory, its two buttons, "OK" and "Cancel" to "Apply".
    press(&program, {"Tab", "Tab", "Tab", "Tab", "Tab", "Tab", "space"});
    QVERIFY(program.waitForActive(named("Restart Required")));
    press(&program, {"Return"});
    QVERIFY(program.waitForActive(named("Options")));
    SOON_COMPARE(stored("Core/ToolbarIconSize").toInt(), 28);
    program.picture(named("options-applied"));

    // All of it is changed again, and cancelled.
    press(&program, {"shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab"});
    press(&program, {"shift+Tab", "Home", "shift+Tab", "Home", "shift+Tab", "End"});
    press(&program, {"shift+Tab", "shift+Tab", "Down", "Down"});
    press(&program, {"Tab", "Tab", "space", "Tab", "Tab", "space"});
    QVERIFY(program.waitForActive(named("Create an external editor")));
    program.type(named("dropped"));
    press(&program, {"Tab"});
    program.type(named("/bin/dropped"));
    press(&program, {"Return"});
    QVERIFY(program.waitForActive(named("Options")));
    program.picture(named("options-to-cancel"));
    press(&program, {"Escape"});
    QVERIFY(program.waitForActive(named("KELMO FPGA Designer")));
    endWell(&program);

    // What the next start shows on both pages is what "OK" stores.
    QCOMPARE(program.start(), QString());
    openOptions(&program);
    press(&program, {"Down", "Down"});
    program.picture(named("options-restarted"));
    press(&program, {"Return"});
    QVERIFY(program.waitForActive(named("KELMO FPGA Designer")));
    endWell(&program);
    QCOMPARE(stored("Core/ToolbarIconSize").toInt(), 28);
    QCOMPARE(stored("Theme").toString(), named("Dark"));
    QCOMPARE(stored("Language").toString(), named("en"));
    QCOMPARE(stored("external_editor/editor0").toStringList(),
             (QStringList{named("kept"), named("/bin/kept"), named("%f"), named("1")}));
    QVERIFY(!stored("external_editor/editor1").isValid());
    QCOMPARE(stored("external_editor/use_external_editor").toBool(), false);
}

void TestOptionsProgram::theOptionsOpenWhereTheyWereLeft()
{
    storeTheme();
    Program program;
    QCOMPARE(program.start(), QString());
    // The keys, and then the external editors, are what was seen last.
    openOptions(&program);
    press(&program, {"Tab", "Right", "shift+Tab", "Down", "Down", "Escape"});
    QVERIFY(program.waitForActive(named("KELMO FPGA Designer")));
    // So it is their "Add" that is there; the first tab of the first category is next.
    openOptions(&program);
    program.picture(named("options-left-1"));
    press(&program, {"Tab", "Tab", "Tab", "Tab", "space"});
    QVERIFY(program.waitForActive(named("Create an external editor")));
    press(&program, {"Escape"});
    QVERIFY(program.waitForActive(named("Options")));
    press(&program, {"shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab", "Home", "Escape"});
    QVERIFY(program.waitForActive(named("KELMO FPGA Designer")));
    // The largest icons are chosen there.
    openOptions(&program);
    program.picture(named("options-left-2"));
    press(&program, {"Tab", "Tab", "Tab", "End", "Return"});
    QVERIFY(program.waitForActive(named("KELMO FPGA Designer")));
    SOON_COMPARE(stored("Core/ToolbarIconSize").toInt(), 28);
    // Its second tab is remembered as well: a command loses its keys there.
    openOptions(&program);
    press(&program, {"Tab", "Right", "Escape"});
    QVERIFY(program.waitForActive(named("KELMO FPGA Designer")));
    openOptions(&program);
    program.picture(named("options-left-3"));
    press(&program, {"Tab", "Tab"});
    program.type(named("Core.Action.Print"));
    press(&program, {"Tab", "Down", "Down", "Tab", "Tab", "space", "shift+Tab"});
    program.picture(named("options-left-4"));
    press(&program, {"Return"});
    QVERIFY(program.waitForActive(named("KELMO FPGA Designer")));
    SOON_VERIFY(stored("KeyBindings/Core.Action.Print").isValid());
    endWell(&program);

    // The next start begins with the first page: the smallest icons.
    QCOMPARE(program.start(), QString());
    openOptions(&program);
    press(&program, {"Tab", "Tab", "Tab", "Home", "Return"});
    QVERIFY(program.waitForActive(named("KELMO FPGA Designer")));
    SOON_COMPARE(stored("Core/ToolbarIconSize").toInt(), 16);
    endWell(&program);
}

QTEST_GUILESS_MAIN(TestOptionsProgram)
#include "tst_optionsprogram.moc"
