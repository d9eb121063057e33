// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "keybindingsfixture.h"
#include "support/messagerecorder.h"

#include <idecore/actions/iaction.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>
#include <QRect>
#include <QTest>

using Core::IAction;

namespace {

const QString Save = QStringLiteral("Core.Action.Save");
const QString Unknown = QStringLiteral("Test.Unknown");

} // namespace

class TestBadKeySettings final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void unusableValueIsNamedAndKept_data();
    void unusableValueIsNamedAndKept();
    void usablePartOfAListIsUsed();
    void newKeyTakesThePlaceOfAnUnusableValue();
    void unknownCommandIsNamedAndKept();
    void resetAllKeepsTheKeysOfUnknownCommands();
    void commandThatComesDuringTheStartIsNotNamed();
    void unusableFileIsNoKeys_data();
    void unusableFileIsNoKeys();
    void valueInPlaceOfTheGroupIsNoKeys();
    void keysThatCannotBeStoredHoldUntilTheEnd();

private:
    std::unique_ptr<KeyBindingsFixture> m_fixture;
};

void TestBadKeySettings::init()
{
    CoreFixture::dropSettings();
    m_fixture = std::make_unique<KeyBindingsFixture>();
}

void TestBadKeySettings::cleanup()
{
    m_fixture.reset();
    const QString file = CoreFixture::settingsFile();
    if (QFileInfo(file).isDir())
        QVERIFY(QDir().rmdir(file));
}

void TestBadKeySettings::unusableValueIsNamedAndKept_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("no key") << QVariant(QStringLiteral("Ctrl+Nonsense"));
    QTest::newRow("words") << QVariant(QStringLiteral("press something"));
    QTest::newRow("modifiers only") << QVariant(QStringLiteral("Ctrl+Shift"));
    QTest::newRow("five strokes") << QVariant(
        QStringLiteral("Ctrl+A, Ctrl+B, Ctrl+C, Ctrl+D, Ctrl+E"));
    QTest::newRow("very long") << QVariant(QString(1000000, QLatin1Char('x')));
    QTest::newRow("very many strokes")
        << QVariant(QStringLiteral("Ctrl+A, ").repeated(100000) + QStringLiteral("Ctrl+A"));
    QTest::newRow("types a letter") << QVariant(QStringLiteral("A"));
    QTest::newRow("types a letter, then more") << QVariant(QStringLiteral("A, Ctrl+S"));
    QTest::newRow("a number") << QVariant(5);
    QTest::newRow("true") << QVariant(true);
    QTest::newRow("moves the focus") << QVariant(QStringLiteral("Shift+Tab"));
    QTest::newRow("list of nonsense") << QVariant(texts({"x y", "z z"}));
    QTest::newRow("list of nothing") << QVariant(texts({"", ""}));
    QTest::newRow("bytes") << QVariant(QByteArray("Ctrl+S"));
    QTest::newRow("rectangle") << QVariant(QRect(1, 2, 3, 4));
    QTest::newRow("list of mixed types")
        << QVariant(QVariantList{5, QByteArray("Ctrl+S"), QRect(1, 2, 3, 4)});
    QTest::newRow("invalid") << QVariant();
}

void TestBadKeySettings::unusableValueIsNamedAndKept()
{
    QFETCH(QVariant, value);
    KeyBindingsFixture::store(Save, value);
    const QVariant before = KeyBindingsFixture::stored(Save);
    MessageRecorder recorder;

    m_fixture->start();

    QCOMPARE(m_fixture->command(Save)->shortcuts(), Keys{QKeySequence(QKeySequence::Save)});
    const QStringList warnings = recorder.lines(QtWarningMsg);
    QVERIFY(!warnings.isEmpty());
    for (const QString &warning : warnings) {
        QVERIFY2(warning.startsWith(QStringLiteral("keys of command \"Core.Action.Save\": ")),
                 qPrintable(warning));
        QVERIFY(warning.size() < 500);
    }
    m_fixture.reset();
    QCOMPARE(KeyBindingsFixture::stored(Save), before);
}

void TestBadKeySettings::usablePartOfAListIsUsed()
{
    const QStringList stored = texts({"Ctrl+Nonsense", "F9", "B", "Ctrl+F9"});
    KeyBindingsFixture::store(Save, stored);
    MessageRecorder recorder;

    m_fixture->start();

    QCOMPARE(m_fixture->command(Save)->shortcuts(), keys({"F9", "Ctrl+F9"}));
    QCOMPARE(
        recorder.lines(QtWarningMsg),
        texts({"keys of command \"Core.Action.Save\": \"Ctrl+Nonsense\" is no key; the setting "
               "is left as it is",
               "keys of command \"Core.Action.Save\": \"B\" is not for commands; the setting "
               "is left as it is"}));
    m_fixture.reset();
    QCOMPARE(KeyBindingsFixture::stored(Save).toStringList(), stored);
}

void TestBadKeySettings::newKeyTakesThePlaceOfAnUnusableValue()
{
    KeyBindingsFixture::store(Save, QByteArray("x"));
    {
        const MessageRecorder recorder;
        m_fixture->start();
        QCOMPARE(recorder.lines(QtWarningMsg).size(), 1);
    }
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));

    dialog.add(QKeySequence(Qt::Key_F9));
    dialog.apply();

    QCOMPARE(KeyBindingsFixture::stored(Save).toStringList(), texts({"Ctrl+S", "F9"}));
}

void TestBadKeySettings::unknownCommandIsNamedAndKept()
{
    KeyBindingsFixture::store(Unknown, QStringLiteral("F9"));
    MessageRecorder recorder;

    m_fixture->start();

    QTRY_COMPARE(recorder.only(),
                 QStringLiteral("warning: keys of command \"Test.Unknown\": there is no such "
                                "command yet; they are kept for it"));
    m_fixture.reset();
    QCOMPARE(KeyBindingsFixture::stored(Unknown).toString(), QStringLiteral("F9"));
}

void TestBadKeySettings::resetAllKeepsTheKeysOfUnknownCommands()
{
    KeyBindingsFixture::store(Unknown, QStringLiteral("F9"));
    KeyBindingsFixture::store(Save, QStringLiteral("F8"));
    const MessageRecorder recorder;
    m_fixture->start();
    PageDialog dialog;

    QTest::mouseClick(dialog.resetAllButton, Qt::LeftButton);
    dialog.apply();

    QVERIFY(!KeyBindingsFixture::stored(Save).isValid());
    QCOMPARE(KeyBindingsFixture::stored(Unknown).toString(), QStringLiteral("F9"));
}

void TestBadKeySettings::commandThatComesDuringTheStartIsNotNamed()
{
    KeyBindingsFixture::store(Unknown, QStringLiteral("F9"));
    KeyBindingsFixture::store(QStringLiteral("Test.Other"), QStringLiteral("F8"));
    MessageRecorder recorder;
    m_fixture->start();

    m_fixture->registerCommand(Unknown);

    QTRY_COMPARE(recorder.lines(QtWarningMsg).size(), 1);
    QVERIFY(recorder.texts().first().contains(QLatin1String("Test.Other")));
}

void TestBadKeySettings::unusableFileIsNoKeys_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("folder");

    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(static_cast<char>(byte));
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("binary") << all.repeated(100) << false;
    QTest::newRow("truncated") << QByteArray("[KeyBindings]\nCore.Action.Sa") << false;
    QTest::newRow("open quote") << QByteArray("[KeyBindings]\nCore.Action.Save=\"") << false;
    QTest::newRow("folder") << QByteArray() << true;
}

void TestBadKeySettings::unusableFileIsNoKeys()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, folder);
    m_fixture.reset();
    const QString path = CoreFixture::settingsFile();
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile::remove(path);
    if (folder) {
        QVERIFY(QDir().mkpath(path));
    } else {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }
    const MessageRecorder recorder;
    m_fixture = std::make_unique<KeyBindingsFixture>();

    m_fixture->start();

    QVERIFY(m_fixture->page());
    // An open quote holds nothing: that is how to write a command without keys.
    const Keys expected = bytes.endsWith('"') ? Keys() : Keys{QKeySequence(QKeySequence::Save)};
    QCOMPARE(m_fixture->command(Save)->shortcuts(), expected);
}

void TestBadKeySettings::valueInPlaceOfTheGroupIsNoKeys()
{
    CoreFixture::storeSetting(QStringLiteral("KeyBindings"), 7);
    MessageRecorder recorder;

    m_fixture->start();

    QCOMPARE(m_fixture->command(Save)->shortcuts(), Keys{QKeySequence(QKeySequence::Save)});
    QCOMPARE(recorder.lines(QtWarningMsg), QStringList());
    m_fixture.reset();
    QCOMPARE(CoreFixture::storedSetting(QStringLiteral("KeyBindings")).toInt(), 7);
}

void TestBadKeySettings::keysThatCannotBeStoredHoldUntilTheEnd()
{
    m_fixture.reset();
    const QString path = CoreFixture::settingsFile();
    QFile::remove(path);
    QVERIFY(QDir().mkpath(path));
    m_fixture = std::make_unique<KeyBindingsFixture>();
    m_fixture->start();
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    dialog.add(QKeySequence(Qt::Key_F9));

    // That nothing is stored is told by the dialog, for all pages.
    dialog.apply();

    QCOMPARE(m_fixture->command(Save)->shortcuts(), keys({"Ctrl+S", "F9"}));
}

QTEST_MAIN(TestBadKeySettings)
#include "tst_badkeysettings.moc"
