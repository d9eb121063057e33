// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "program.h"
#include "support/testhome.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

/// The program killed while it has unsaved text, and started again.
class TestRecovery final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void killedProgramOffersItsUnsavedTextAgain();
    void offeredTextCanBeThrownAway();
    void offerComesAgainUntilItIsDecided();

private:
    enum Button { Recover, Discard };

    /// Leaves the file with "saved", and "unsaved " in front of it kept.
    void killWithUnsavedText();
    /// Opens the file again and waits for the offer.
    void open(Program *program);
    /// Clicks where the button of the offer is, until something became of it.
    static bool press(Program *program, Button button);

    [[nodiscard]] QByteArray content() const;
    static QStringList recentFiles();
    static QStringList keptTexts();

    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_path;
};

void TestRecovery::init()
{
    removeFromTestHome(QStringLiteral(".config"));
    removeFromTestHome(QStringLiteral(".local"));
    m_dir = std::make_unique<QTemporaryDir>();
    m_path = m_dir->filePath(QStringLiteral("a.v"));
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("saved\n");
    file.close();
    killWithUnsavedText();
}

void TestRecovery::killWithUnsavedText()
{
    Program program;
    QCOMPARE(program.start({m_path}), QString());
    SOON_COMPARE(recentFiles(), QStringList{m_path});
    program.key(QStringLiteral("ctrl+Home"));
    program.type(QStringLiteral("very "));
    program.key(QStringLiteral("ctrl+s"));
    SOON_COMPARE(content(), QByteArray("very saved\n"));
    program.type(QStringLiteral("unsaved "));
    // There from the first letter on; the last one has been asked for.
    SOON_VERIFY(!keptTexts().isEmpty());
    program.kill(SIGKILL);
    QVERIFY(program.waitForEnd());
    QVERIFY(!program.exitedNormally());
    QCOMPARE(content(), QByteArray("very saved\n"));
    QCOMPARE(keptTexts().size(), 1);
}

void TestRecovery::open(Program *program)
{
    removeFromTestHome(QStringLiteral(".config/KelmoWare/IDE.ini"));
    QCOMPARE(program->start({m_path}), QString());
    SOON_COMPARE(recentFiles(), QStringList{m_path});
    program->picture(QStringLiteral("recovery-offer"));
}

QByteArray TestRecovery::content() const
{
    return contentOf(m_path);
}

QStringList TestRecovery::recentFiles()
{
    return storedPaths(QStringLiteral("Core/RecentFiles"));
}

QStringList TestRecovery::keptTexts()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                + QStringLiteral("/KelmoWare/unsaved"))
        .entryList(QDir::Files | QDir::Hidden);
}

bool TestRecovery::press(Program *program, Button button)
{
    const QStringList before = keptTexts();
    const QRect window = program->mainWindowGeometry();
    // At the right end of the bar; how far down depends on the tool bars' size.
    const int x = window.right() - (button == Recover ? 125 : 45);
    for (int y = window.top() + 80; y < window.top() + 260; y += 10) {
        program->click(x, y);
        if (QTest::qWaitFor([&before] { return keptTexts() != before; }, 400))
            return true;
    }
    return false;
}

void TestRecovery::killedProgramOffersItsUnsavedTextAgain()
{
    Program program;
    open(&program);

    QVERIFY(press(&program, Recover));
    program.picture(QStringLiteral("recovery-taken"));

    QCOMPARE(content(), QByteArray("very saved\n"));
    // Kept until it is saved.
    QCOMPARE(keptTexts().size(), 1);
    program.key(QStringLiteral("ctrl+s"));
    SOON_COMPARE(content(), QByteArray("very unsaved saved\n"));
    SOON_VERIFY(keptTexts().isEmpty());
    endWell(&program);
}

void TestRecovery::offeredTextCanBeThrownAway()
{
    Program program;
    open(&program);

    QVERIFY(press(&program, Discard));

    QVERIFY(keptTexts().isEmpty());
    endWell(&program);
    QCOMPARE(content(), QByteArray("very saved\n"));
}

void TestRecovery::offerComesAgainUntilItIsDecided()
{
    {
        Program program;
        open(&program);
        // What is typed meanwhile changes nothing.
        program.type(QStringLiteral("x"));
        endWell(&program);
        QCOMPARE(keptTexts().size(), 1);
    }
    Program program;
    open(&program);

    QVERIFY(press(&program, Recover));
    program.key(QStringLiteral("ctrl+s"));

    SOON_COMPARE(content(), QByteArray("very unsaved saved\n"));
    endWell(&program);
}

QTEST_MAIN(TestRecovery)
#include "tst_recovery.moc"
