// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "keybindingsfixture.h"
#include "support/messagerecorder.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>

#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QStyleOptionMenuItem>
#include <QTest>
#include <QToolBar>

using Core::IAction;

namespace {

const QString Save = QStringLiteral("Core.Action.Save");
const QString Late = QStringLiteral("Test.Late");
const QString Chosen = QStringLiteral("Test.Chosen");

/// Tells what it paints.
class MenuProbe final : public QMenu
{
public:
    QString text(const QAction *action) const
    {
        QStyleOptionMenuItem option;
        initStyleOption(&option, action);
        return option.text;
    }
};

} // namespace

class TestUserKeys final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void withoutStoredKeysCommandsAreLeftAlone();
    void storedKeysAreGivenAtTheStart_data();
    void storedKeysAreGivenAtTheStart();
    void toolTipShowsTheKey();
    void menuShowsTheKey();
    void commandRegisteredLaterGetsItsKeys();
    void commandMadeAnewGetsItsKeys();
    void keyItsAuthorSetsLaterIsItsDefault_data();
    void keyItsAuthorSetsLaterIsItsDefault();
    void authorsMayChangeOneCommandWhenAnotherChanges();
    void keyPutAsideByADocumentStaysAside();
    void defaultGivesWayToTheUsersKey_data();
    void defaultGivesWayToTheUsersKey();
    void defaultSetLaterGivesWayToTheUsersKey();
    void keyOfACommandThatIsNotThereTakesNothing();
    void defaultComesBackWhenTheUsersKeyGoes();
    void userKeyThatIsTheDefaultIsKeptAgainstAnother();
    void idWithSignsOfTheSettingsIsKept_data();
    void idWithSignsOfTheSettingsIsKept();
    void idWrittenByHandAsAGroupIsUnderstood();
    void endOfThePluginLeavesTheKeys();
    void commandRegisteredAfterTheEndIsLeftAlone();

private:
    std::unique_ptr<KeyBindingsFixture> m_fixture;
};

void TestUserKeys::init()
{
    CoreFixture::dropSettings();
    m_fixture = std::make_unique<KeyBindingsFixture>();
}

void TestUserKeys::cleanup()
{
    m_fixture.reset();
}

void TestUserKeys::withoutStoredKeysCommandsAreLeftAlone()
{
    QHash<QString, Keys> before;
    const QList<IAction *> commands = Core::ActionManager::actions();
    for (const IAction *command : commands)
        before.insert(command->id(), command->shortcuts());

    m_fixture->start();
    IAction *const late = m_fixture->registerCommand(Late, keys({"F9"}));

    for (const IAction *command : commands)
        QCOMPARE(command->shortcuts(), before.value(command->id()));
    QCOMPARE(late->shortcuts(), keys({"F9"}));
    m_fixture->core.shutdown();
    QVERIFY(!CoreFixture::storedSetting(QStringLiteral("KeyBindings")).isValid());
}

void TestUserKeys::storedKeysAreGivenAtTheStart_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<Keys>("expected");

    QTest::newRow("one") << QVariant(QStringLiteral("Ctrl+Alt+S")) << keys({"Ctrl+Alt+S"});
    QTest::newRow("two") << QVariant(texts({"F9", "Ctrl+Alt+S"})) << keys({"F9", "Ctrl+Alt+S"});
    QTest::newRow("two strokes") << QVariant(QStringLiteral("Ctrl+K, S")) << keys({"Ctrl+K, S"});
    QTest::newRow("a comma") << QVariant(QStringLiteral("Ctrl+,")) << keys({"Ctrl+,"});
    QTest::newRow("a comma in the first of two strokes")
        << QVariant(QStringLiteral("Ctrl+,, Ctrl+S")) << keys({"Ctrl+,, Ctrl+S"});
    QTest::newRow("four strokes") << QVariant(QStringLiteral("Ctrl+A, Ctrl+B, Ctrl+C, Ctrl+D"))
                                  << keys({"Ctrl+A, Ctrl+B, Ctrl+C, Ctrl+D"});
    QTest::newRow("none") << QVariant(QLatin1String("")) << Keys();
    QTest::newRow("the same twice") << QVariant(texts({"F9", "f9"})) << keys({"F9"});
    QTest::newRow("small letters")
        << QVariant(QStringLiteral("shift+ctrl+s")) << keys({"Ctrl+Shift+S"});
}

void TestUserKeys::storedKeysAreGivenAtTheStart()
{
    QFETCH(QVariant, stored);
    m_fixture.reset();
    KeyBindingsFixture::store(Save, stored);
    m_fixture = std::make_unique<KeyBindingsFixture>();

    m_fixture->start();

    QTEST(m_fixture->command(Save)->shortcuts(), "expected");
}

void TestUserKeys::toolTipShowsTheKey()
{
    KeyBindingsFixture::store(Late, texts({"Ctrl+Alt+S", "F9"}));
    m_fixture->start();

    const IAction *const late = m_fixture->registerCommand(Late, keys({"F2"}));

    QVERIFY2(late->toolTip().contains(QLatin1String(">Ctrl+Alt+S<")), qPrintable(late->toolTip()));
}

void TestUserKeys::menuShowsTheKey()
{
    KeyBindingsFixture::store(Late, QStringLiteral("Ctrl+Alt+S"));
    IAction *const late = m_fixture->registerCommand(Late, keys({"F2"}));
    MenuProbe menu;
    menu.addAction(late);
    QCOMPARE(menu.text(late), QStringLiteral("Command\tF2"));

    m_fixture->start();

    QCOMPARE(menu.text(late), QStringLiteral("Command\tCtrl+Alt+S"));
}

void TestUserKeys::commandRegisteredLaterGetsItsKeys()
{
    KeyBindingsFixture::store(Late, texts({"F9", "F8"}));
    m_fixture->start();

    QCOMPARE(m_fixture->registerCommand(Late, keys({"F2"}))->shortcuts(), keys({"F9", "F8"}));
}

void TestUserKeys::commandMadeAnewGetsItsKeys()
{
    KeyBindingsFixture::store(Late, QStringLiteral("F9"));
    m_fixture->start();
    delete m_fixture->registerCommand(Late, keys({"F2"}));

    QCOMPARE(m_fixture->registerCommand(Late, keys({"F3"}))->shortcuts(), keys({"F9"}));
    PageDialog dialog;
    QVERIFY(dialog.choose(Late));
    QTest::mouseClick(dialog.resetButton, Qt::LeftButton);
    QCOMPARE(dialog.keyList(), texts({"F3"}));
}

void TestUserKeys::keyItsAuthorSetsLaterIsItsDefault_data()
{
    QTest::addColumn<QStringList>("stored");
    QTest::addColumn<Keys>("later");

    QTest::newRow("another for one") << texts({"F9"}) << keys({"F3"});
    QTest::newRow("another for two") << texts({"F9", "F8"}) << keys({"F3"});
    QTest::newRow("another for none") << QStringList() << keys({"F3"});
    QTest::newRow("none for one") << texts({"F9"}) << Keys();
    QTest::newRow("none for two") << texts({"F9", "F8"}) << Keys();
    QTest::newRow("two for two") << texts({"F9", "F8"}) << keys({"F3", "F4"});
}

void TestUserKeys::keyItsAuthorSetsLaterIsItsDefault()
{
    QFETCH(QStringList, stored);
    QFETCH(Keys, later);
    KeyBindingsFixture::store(
        Late, stored.size() > 1 ? QVariant(stored) : QVariant(stored.value(0, QLatin1String(""))));
    m_fixture->start();
    IAction *const late = m_fixture->registerCommand(Late, keys({"F2"}));
    const Keys wanted = late->shortcuts();
    QCOMPARE(wanted.size(), stored.size());

    if (later.size() > 1)
        late->setShortcuts(later);
    else
        late->setShortcut(later.value(0));

    QCOMPARE(late->shortcuts(), wanted);
    const PageDialog dialog;
    QVERIFY(dialog.choose(Late));
    QTest::mouseClick(dialog.resetButton, Qt::LeftButton);
    dialog.apply();
    QCOMPARE(late->shortcuts(), later);
}

void TestUserKeys::authorsMayChangeOneCommandWhenAnotherChanges()
{
    const QString other = QStringLiteral("Test.Other");
    KeyBindingsFixture::store(Late, QStringLiteral("F9"));
    KeyBindingsFixture::store(other, QStringLiteral("F8"));
    IAction *const first = m_fixture->registerCommand(Late, keys({"F2"}));
    IAction *const second = m_fixture->registerCommand(other, keys({"F3"}));
    connect(first, &QAction::changed, second,
            [second] { second->setShortcut(QKeySequence(Qt::Key_F4)); });

    m_fixture->start();
    first->setShortcut(QKeySequence(Qt::Key_F5));

    QCOMPARE(first->shortcuts(), keys({"F9"}));
    QCOMPARE(second->shortcuts(), keys({"F8"}));
}

void TestUserKeys::keyPutAsideByADocumentStaysAside()
{
    KeyBindingsFixture::store(Late, QStringLiteral("F9"));
    m_fixture->start();
    IAction *const late = m_fixture->registerCommand(Late, keys({"F2"}));
    QMdiSubWindow document;
    auto *bar = new QToolBar;
    document.setWidget(bar);
    bar->addAction(late);

    late->QAction::setShortcuts(Keys());
    QCOMPARE(late->shortcuts(), Keys());
    late->QAction::setShortcuts(keys({"F9"}));

    QCOMPARE(late->shortcuts(), keys({"F9"}));
    PageDialog dialog;
    QVERIFY(dialog.choose(Late));
    QTest::mouseClick(dialog.resetButton, Qt::LeftButton);
    QCOMPARE(dialog.keyList(), texts({"F2"}));
}

void TestUserKeys::defaultGivesWayToTheUsersKey_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("key");

    QTest::newRow("comes last") << QStringLiteral("start chosen late") << QStringLiteral("F9");
    QTest::newRow("comes before the user's")
        << QStringLiteral("start late chosen") << QStringLiteral("F9");
    QTest::newRow("comes before the start")
        << QStringLiteral("late chosen start") << QStringLiteral("F9");
    QTest::newRow("begins with the user's")
        << QStringLiteral("start chosen late") << QStringLiteral("F9, F3");
}

void TestUserKeys::defaultGivesWayToTheUsersKey()
{
    QFETCH(QString, steps);
    QFETCH(QString, key);
    KeyBindingsFixture::store(Chosen, QStringLiteral("F9"));
    const QKeySequence clashing(key);
    MessageRecorder recorder;

    for (const QString &step : steps.split(QLatin1Char(' '))) {
        if (step == QLatin1String("start"))
            m_fixture->start();
        else if (step == QLatin1String("late"))
            m_fixture->registerCommand(Late, {clashing});
        else
            m_fixture->registerCommand(Chosen, keys({"F2"}));
    }

    QCOMPARE(m_fixture->command(Chosen)->shortcuts(), keys({"F9"}));
    QCOMPARE(m_fixture->command(Late)->shortcuts(), Keys());
    const QString line =
        QStringLiteral("keys of command \"Test.Late\": %1 is left to command \"Test.Chosen\", to "
                       "which the user gave F9");
    QCOMPARE(recorder.lines(QtWarningMsg), QStringList(line.arg(key)));
    const PageDialog dialog;
    QVERIFY(dialog.choose(Late));
    QVERIFY(dialog.resetButton->isEnabled());
    QVERIFY(!KeyBindingsFixture::stored(Late).isValid());
}

void TestUserKeys::defaultSetLaterGivesWayToTheUsersKey()
{
    KeyBindingsFixture::store(Chosen, QStringLiteral("F9"));
    m_fixture->start();
    m_fixture->registerCommand(Chosen, keys({"F2"}));
    IAction *const late = m_fixture->registerCommand(Late, keys({"F3"}));
    MessageRecorder recorder;

    late->setShortcut(QKeySequence(Qt::Key_F9));
    QCOMPARE(late->shortcuts(), Keys());
    QVERIFY(!late->toolTip().contains(QLatin1String("F9")));
    late->setShortcuts(keys({"F9", "F8"}));
    QCOMPARE(late->shortcuts(), keys({"F8"}));
    late->setShortcuts(keys({"F7", "F8"}));
    QCOMPARE(late->shortcuts(), keys({"F7", "F8"}));

    QCOMPARE(m_fixture->command(Chosen)->shortcuts(), keys({"F9"}));
    QCOMPARE(recorder.lines(QtWarningMsg).size(), 2);
}

void TestUserKeys::keyOfACommandThatIsNotThereTakesNothing()
{
    KeyBindingsFixture::store(Chosen, QStringLiteral("F9"));
    m_fixture->start();

    QCOMPARE(m_fixture->registerCommand(Late, keys({"F9"}))->shortcuts(), keys({"F9"}));
}

void TestUserKeys::defaultComesBackWhenTheUsersKeyGoes()
{
    KeyBindingsFixture::store(Chosen, QStringLiteral("F9"));
    m_fixture->start();
    IAction *const chosen = m_fixture->registerCommand(Chosen, keys({"F2"}));
    IAction *const late = m_fixture->registerCommand(Late, keys({"F9"}));
    PageDialog dialog;
    MessageRecorder recorder;

    QTest::mouseClick(dialog.resetAllButton, Qt::LeftButton);
    dialog.apply();

    QCOMPARE(chosen->shortcuts(), keys({"F2"}));
    QCOMPARE(late->shortcuts(), keys({"F9"}));
    QCOMPARE(recorder.lines(QtWarningMsg), QStringList());
}

void TestUserKeys::userKeyThatIsTheDefaultIsKeptAgainstAnother()
{
    // Written by hand, and what the command has anyway.
    KeyBindingsFixture::store(Chosen, QStringLiteral("F9"));
    m_fixture->start();
    m_fixture->registerCommand(Chosen, keys({"F9"}));
    IAction *const late = m_fixture->registerCommand(Late, keys({"F9"}));
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));

    dialog.add(QKeySequence(Qt::Key_F8));
    dialog.apply();

    QCOMPARE(KeyBindingsFixture::stored(Chosen).toString(), QStringLiteral("F9"));
    QCOMPARE(late->shortcuts(), Keys());
}

void TestUserKeys::idWithSignsOfTheSettingsIsKept_data()
{
    QTest::addColumn<QString>("id");

    QTest::newRow("slash") << QStringLiteral("a/b");
    QTest::newRow("slashes") << QStringLiteral("//a//b/");
    QTest::newRow("backslash") << QStringLiteral("a\\b");
    QTest::newRow("percent") << QStringLiteral("100%");
    QTest::newRow("escaped looks") << QStringLiteral("a%2Fb");
    QTest::newRow("blanks and more") << QStringLiteral("a = [b]; c, \"d\"\n");
    QTest::newRow("other letters") << QString::fromUtf8("保存 é");
}

void TestUserKeys::idWithSignsOfTheSettingsIsKept()
{
    QFETCH(QString, id);
    m_fixture->start();
    m_fixture->registerCommand(id, {}, QStringLiteral("Odd"));
    {
        PageDialog dialog;
        QVERIFY(dialog.choose(id));
        dialog.add(QKeySequence(Qt::Key_F9));
        dialog.apply();
    }
    m_fixture.reset();
    m_fixture = std::make_unique<KeyBindingsFixture>();
    m_fixture->start();
    IAction *const command = m_fixture->registerCommand(id);
    QCOMPARE(command->shortcuts(), keys({"F9"}));

    {
        const PageDialog dialog;
        QTest::mouseClick(dialog.resetAllButton, Qt::LeftButton);
        dialog.apply();
    }
    QCOMPARE(command->shortcuts(), Keys());
    m_fixture.reset();
    m_fixture = std::make_unique<KeyBindingsFixture>();
    m_fixture->start();
    QCOMPARE(m_fixture->registerCommand(id)->shortcuts(), Keys());
}

void TestUserKeys::idWrittenByHandAsAGroupIsUnderstood()
{
    const QString id = QStringLiteral("a/b");
    KeyBindingsFixture::store(id, QStringLiteral("F9"));
    m_fixture->start();
    IAction *const command = m_fixture->registerCommand(id);
    QCOMPARE(command->shortcuts(), keys({"F9"}));

    PageDialog dialog;
    QVERIFY(dialog.choose(id));
    dialog.add(QKeySequence(Qt::Key_F8));
    dialog.apply();

    m_fixture->core.shutdown();
    QVERIFY(!KeyBindingsFixture::stored(id).isValid());
    QCOMPARE(KeyBindingsFixture::stored(QStringLiteral("a%2Fb")).toStringList(),
             texts({"F9", "F8"}));
}

void TestUserKeys::endOfThePluginLeavesTheKeys()
{
    KeyBindingsFixture::store(Save, QStringLiteral("F9"));
    m_fixture->start();

    m_fixture->stop();

    QVERIFY(!m_fixture->page());
    QCOMPARE(m_fixture->command(Save)->shortcuts(), keys({"F9"}));
    QCOMPARE(KeyBindingsFixture::stored(Save).toString(), QStringLiteral("F9"));
}

void TestUserKeys::commandRegisteredAfterTheEndIsLeftAlone()
{
    KeyBindingsFixture::store(Late, QStringLiteral("F9"));
    m_fixture->start();
    m_fixture->stop();

    QCOMPARE(m_fixture->registerCommand(Late, keys({"F2"}))->shortcuts(), keys({"F2"}));
}

QTEST_MAIN(TestUserKeys)
#include "tst_userkeys.moc"
