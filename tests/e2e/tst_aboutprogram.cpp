// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The About dialog under the mouse of somebody who does not stop.

#include "program.h"
#include "support/testhome.h"

#include <QRect>
#include <QTest>

#include <utility>

class TestAboutProgram final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { removeFromTestHome(QStringLiteral(".config")); }
    void theLogoFliesAsksWarnsAndIsSilenced();

private:
    /// What the message boxes have said so far.
    static QStringList messages(const Program &program)
    {
        return program.linesFrom(QStringLiteral("message "));
    }

    /// By the menu, of which it is the last entry.
    static QRect openAbout(Program *program)
    {
        program->keys({QStringLiteral("alt+h"), QStringLiteral("Up"), QStringLiteral("Return")});
        if (!program->waitForActive(QStringLiteral("About")))
            QTest::qFail("the About dialog did not come", __FILE__, __LINE__);
        return program->activeGeometry();
    }

    static void clickLogo(Program *program, const QRect &about, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            program->click(about.center().x(), about.top() + about.height() / 4);
    }

    /// One click after the other, each when the logo of the one before has come.
    static void clickUntilFlying(Program *program, const QRect &about, int count)
    {
        for (int flying = program->popupCount(); flying < count; ++flying) {
            clickLogo(program, about);
            SOON_COMPARE(program->popupCount(), flying + 1);
        }
    }
};

void TestAboutProgram::theLogoFliesAsksWarnsAndIsSilenced()
{
    const QString question = QStringLiteral("message  |Having fun?\\t\\t|Yep");
    const QString warning = QStringLiteral("message  |You should stop this.\\t\\t|OK~|No|Shut Up!");
    Program program;
    QCOMPARE(program.start({QStringLiteral("--plugin-path"), QStringLiteral(LISTENER_PLUGIN_DIR)}),
             QString());

    // At the fifth click, those beside the logo not counted, the first one flies.
    QRect about = openAbout(&program);
    clickLogo(&program, about, 4);
    program.click(about.right() - 4, about.bottom() - 4);
    program.picture(QStringLiteral("about-4"));
    QCOMPARE(program.popupCount(), 0);
    clickLogo(&program, about);
    SOON_COMPARE(program.popupCount(), 1);
    program.picture(QStringLiteral("about-5"));

    // It is not in the way of a click, not even where it has landed.
    const QString logo = program.popups().constFirst();
    QRect landed;
    QVERIFY(QTest::qWaitFor([&] {
        const QRect before = std::exchange(landed, Program::geometryOf(logo));
        return before == landed;
    }));
    QCOMPARE(landed.size(), QSize(24, 24));
    const QString reached = Program::windowUnderPointerAt(landed.center());
    QVERIFY(!reached.isEmpty());
    QVERIFY(reached != logo);

    // The thirtieth asks, once.
    clickUntilFlying(&program, about, 25);
    QCOMPARE(messages(program), QStringList());
    clickLogo(&program, about);
    SOON_COMPARE(messages(program), QStringList{question});
    QCOMPARE(program.popupCount(), 26);
    program.picture(QStringLiteral("about-30"));
    program.key(QStringLiteral("Return"));
    QVERIFY(program.waitForActive(QStringLiteral("About")));

    // The fiftieth warns, and each one from then on.
    clickUntilFlying(&program, about, 45);
    QCOMPARE(messages(program), QStringList{question});
    clickLogo(&program, about);
    SOON_COMPARE(messages(program), (QStringList{question, warning}));
    QCOMPARE(program.popupCount(), 46);
    program.picture(QStringLiteral("about-50"));
    program.keys({QStringLiteral("Tab"), QStringLiteral("space")}); // "No"
    QVERIFY(program.waitForActive(QStringLiteral("About")));
    clickLogo(&program, about);
    SOON_COMPARE(messages(program), (QStringList{question, warning, warning}));

    // "OK~" closes the dialog, and all logos with it.
    program.key(QStringLiteral("Return"));
    QVERIFY(program.waitForActive(QStringLiteral("KELMO FPGA Designer")));
    SOON_COMPARE(program.popupCount(), 0);

    // The next dialog goes on where the first one was, until it is told to shut up.
    about = openAbout(&program);
    clickLogo(&program, about);
    SOON_COMPARE(messages(program), (QStringList{question, warning, warning, warning}));
    program.keys({QStringLiteral("Tab"), QStringLiteral("Tab"), QStringLiteral("space")});
    QVERIFY(program.waitForActive(QStringLiteral("About")));
    clickUntilFlying(&program, about, 3);
    program.picture(QStringLiteral("about-silenced"));
    program.key(QStringLiteral("Return"));
    QVERIFY(program.waitForActive(QStringLiteral("KELMO FPGA Designer")));
    SOON_COMPARE(program.popupCount(), 0);
    QCOMPARE(messages(program).size(), 4);

    program.closeMainWindow();
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.errorOutput(), QString());
    QCOMPARE(program.exitCode(), 0);
}

QTEST_GUILESS_MAIN(TestAboutProgram)
#include "tst_aboutprogram.moc"
