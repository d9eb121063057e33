// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The options, set by keys alone, and what is left of them after a restart.

#include "program.h"
#include "support/testhome.h"

#include <QTest>

#include <initializer_list>

namespace {

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

QVariant stored(const char *key)
{
    return storedValue(named(key));
}

void press(Program *program, std::initializer_list<const char *> keys)
{
    QStringList names;
    for (const char *key : keys)
        names.append(named(key));
    program->keys(names);
}

} // namespace

class TestOptionsProgram final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { removeFromTestHome(QStringLiteral(".config")); }
    void languageIconSizeAndThemeHoldAfterARestart();
    void externalEditorsAreSetByKeys();
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

QTEST_GUILESS_MAIN(TestOptionsProgram)
#include "tst_optionsprogram.moc"
