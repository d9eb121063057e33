// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "keybindingsfixture.h"
#include "support/modaldialog.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QFont>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

using Core::IAction;

namespace {

const QString Save = QStringLiteral("Core.Action.Save");
const QString SaveAs = QStringLiteral("Core.Action.SaveAs");
const QString One = QStringLiteral("Test.One");
const QString Other = QStringLiteral("Test.Other");

enum Column { Title, KeysColumn, Id };

/// Presses the button of that object name, once the question is to be seen. Not with
/// the mouse: before the question has its size, a button may have no height to hit.
ModalDialog::Handler click(const char *name)
{
    return [name](QWidget *box) {
        auto *button = box->findChild<QPushButton *>(QLatin1String(name));
        if (!button || !QTest::qWaitForWindowExposed(box)) {
            QTest::qFail("there is no such button", __FILE__, __LINE__);
            box->close();
            return;
        }
        button->click();
    };
}

/// Takes the question back.
ModalDialog::Handler takeBack()
{
    return [](QWidget *box) {
        if (!QTest::qWaitForWindowActive(box))
            QTest::qFail("the question did not become active", __FILE__, __LINE__);
        QTest::keyClick(box, Qt::Key_Escape);
        if (box->isVisible()) {
            QTest::qFail("the question stayed", __FILE__, __LINE__);
            box->close();
        }
    };
}

QKeySequence sequence(const char *text)
{
    return keys({text}).first();
}

} // namespace

class TestRecordKeys final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void recordedKeyHoldsFromApplyOn();
    void recordedKeyTriggersItsCommand();
    void everyStrokeIsRecorded_data();
    void everyStrokeIsRecorded();
    void severalKeysAreKeptInOrder();
    void lastKeyTakenAwayLeavesNone();
    void deleteTakesTheMarkedKeyAway();
    void tabLeavesTheField_data();
    void tabLeavesTheField();
    void backspaceTakesTheLastStrokeBack();
    void escapeTakesAllBackAndThenCloses();
    void returnAddsTheKey();
    void anotherCommandBeginsAnew();
    void keysOfTheProgramAndTheDialogAreRecorded();
    void reservedKeyIsRefused_data();
    void reservedKeyIsRefused();
    void laterStrokesAreNotReserved();

    void takenKeyIsToldOfBeforeItIsAdded();
    void takenKeyIsReassignedOnRequest();
    void takenKeyIsSharedOnRequest();
    void sharedKeyStaysShared();
    void cancelledQuestionChangesNothing();
    void beginningOfAKeyClashes_data();
    void beginningOfAKeyClashes();
    void ownKeyIsNotAddedAgain();
    void fixedKeyIsRefused_data();
    void fixedKeyIsRefused();
    void keyThatAWidgetLeavesToCommandsIsToldOf();
    void freedKeyIsFree();
    void commandsMayComeWhileTheUserIsAsked();

    void resetGivesTheDefaultBack();
    void resetAsksForADefaultThatIsTaken();
    void resetAllGivesAllDefaultsBack();
    void applyWithoutAChangeStoresNothing();
    void changeTakenBackIsNoChange();
    void onlyWhatWasChangedIsStored();

private:
    std::unique_ptr<KeyBindingsFixture> m_fixture;
};

void TestRecordKeys::init()
{
    m_fixture = std::make_unique<KeyBindingsFixture>(CoreFixture::Settings::Drop);
    m_fixture->start();
}

void TestRecordKeys::cleanup()
{
    m_fixture.reset();
}

void TestRecordKeys::recordedKeyHoldsFromApplyOn()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(SaveAs));

    dialog.add(sequence("Ctrl+Alt+S"));
    QCOMPARE(dialog.cell(SaveAs, KeysColumn), QStringLiteral("Ctrl+Alt+S"));
    QVERIFY(dialog.cell(SaveAs, Title, Qt::FontRole).contains(QLatin1String(",75,")));
    QCOMPARE(m_fixture->command(SaveAs)->shortcuts(), Keys());
    QVERIFY(!KeyBindingsFixture::stored(SaveAs).isValid());

    dialog.apply();
    QCOMPARE(m_fixture->command(SaveAs)->shortcuts(), keys({"Ctrl+Alt+S"}));
    QCOMPARE(KeyBindingsFixture::stored(SaveAs).toString(), QStringLiteral("Ctrl+Alt+S"));
}

void TestRecordKeys::recordedKeyTriggersItsCommand()
{
    m_fixture->core.show();
    IAction *const one = m_fixture->registerCommand(One);
    Core::ViewManager::mainWindow()->addAction(one);
    Core::ActionManager::setCurrentContexts({QStringLiteral("Core.Context.Global")});
    const QSignalSpy triggered(one, &QAction::triggered);
    {
        PageDialog dialog;
        QVERIFY(dialog.choose(One));
        dialog.add(sequence("Ctrl+Alt+S"));
        dialog.add(sequence("Ctrl+K, B"));
        dialog.apply();
    }
    Core::ViewManager::mainWindow()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(Core::ViewManager::mainWindow()));
    QWindow *const window = Core::ViewManager::mainWindow()->windowHandle();

    QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier | Qt::AltModifier);
    QCOMPARE(triggered.count(), 1);
    QTest::keyClick(window, Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(triggered.count(), 1);
    QTest::keyClick(window, Qt::Key_B);
    QCOMPARE(triggered.count(), 2);
}

void TestRecordKeys::everyStrokeIsRecorded_data()
{
    QTest::addColumn<QKeySequence>("key");

    QTest::newRow("one") << sequence("Ctrl+Alt+S");
    QTest::newRow("a function key") << sequence("F9");
    QTest::newRow("two") << sequence("Ctrl+K, Ctrl+B");
    QTest::newRow("a letter second") << sequence("Ctrl+K, B");
    QTest::newRow("four") << sequence("Ctrl+K, Ctrl+B, C, F9");
    QTest::newRow("the key of a letter with Shift") << sequence("Ctrl+Shift+B");
    QTest::newRow("a sign") << sequence("Ctrl+/");
    QTest::newRow("the system key") << sequence("Meta+B");
    QTest::newRow("an arrow") << sequence("Alt+Left");
}

void TestRecordKeys::everyStrokeIsRecorded()
{
    QFETCH(QKeySequence, key);
    m_fixture->registerCommand(One);
    PageDialog dialog;
    QVERIFY(dialog.choose(One));

    dialog.record(key);

    QCOMPARE(dialog.recorder->text(), key.toString(QKeySequence::NativeText));
    QVERIFY(dialog.message->text().endsWith(QLatin1String(" is free.")));
    QTest::mouseClick(dialog.addButton, Qt::LeftButton);
    dialog.apply();
    QCOMPARE(m_fixture->command(One)->shortcuts(), Keys{key});
    QCOMPARE(dialog.recorder->text(), QString());
}

void TestRecordKeys::severalKeysAreKeptInOrder()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));

    dialog.add(sequence("F9"));
    dialog.add(sequence("Ctrl+K, Ctrl+B"));
    dialog.list->setCurrentRow(1);
    QTest::mouseClick(dialog.removeButton, Qt::LeftButton);
    dialog.apply();

    QCOMPARE(dialog.keyList(), texts({"Ctrl+S", "Ctrl+K, Ctrl+B"}));
    QCOMPARE(m_fixture->command(Save)->shortcuts(), keys({"Ctrl+S", "Ctrl+K, Ctrl+B"}));
    QCOMPARE(KeyBindingsFixture::stored(Save).toStringList(), texts({"Ctrl+S", "Ctrl+K, Ctrl+B"}));
}

void TestRecordKeys::lastKeyTakenAwayLeavesNone()
{
    {
        PageDialog dialog;
        QVERIFY(dialog.choose(Save));
        QTest::mouseClick(dialog.removeButton, Qt::LeftButton);
        QVERIFY(!dialog.removeButton->isEnabled());
        QVERIFY(dialog.recorder->hasFocus());
        dialog.apply();
    }
    QCOMPARE(m_fixture->command(Save)->shortcuts(), Keys());

    m_fixture.reset();
    m_fixture = std::make_unique<KeyBindingsFixture>();
    m_fixture->start();
    QCOMPARE(m_fixture->command(Save)->shortcuts(), Keys());
}

void TestRecordKeys::deleteTakesTheMarkedKeyAway()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    dialog.add(sequence("F9"));
    dialog.list->setCurrentRow(0);
    dialog.list->setFocus();

    QTest::keyClick(dialog.windowHandle(), Qt::Key_Delete);

    QCOMPARE(dialog.keyList(), texts({"F9"}));
}

void TestRecordKeys::tabLeavesTheField_data()
{
    QTest::addColumn<bool>("recorded");

    QTest::newRow("empty") << false;
    QTest::newRow("with a key") << true;
}

void TestRecordKeys::tabLeavesTheField()
{
    QFETCH(bool, recorded);
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    dialog.record(recorded ? sequence("F9") : QKeySequence());
    const QString text = dialog.recorder->text();

    QTest::keyClick(dialog.windowHandle(), Qt::Key_Tab);
    QVERIFY(!dialog.recorder->hasFocus());
    dialog.recorder->setFocus();
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(!dialog.recorder->hasFocus());

    QCOMPARE(dialog.recorder->text(), text);
}

void TestRecordKeys::backspaceTakesTheLastStrokeBack()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    dialog.record(sequence("Ctrl+K, Ctrl+B, C"));

    QTest::keyClick(dialog.windowHandle(), Qt::Key_Backspace);
    QCOMPARE(dialog.recorder->text(), QStringLiteral("Ctrl+K, Ctrl+B"));
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Backspace);
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Backspace);
    QCOMPARE(dialog.recorder->text(), QString());
    QVERIFY(!dialog.addButton->isEnabled());
}

void TestRecordKeys::escapeTakesAllBackAndThenCloses()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    dialog.record(sequence("Ctrl+K, Ctrl+B"));

    QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
    QCOMPARE(dialog.recorder->text(), QString());
    QVERIFY(dialog.isVisible());
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
}

void TestRecordKeys::returnAddsTheKey()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    dialog.record(sequence("F9"));

    QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);

    QCOMPARE(dialog.keyList(), texts({"Ctrl+S", "F9"}));
    QVERIFY(dialog.isVisible());
}

void TestRecordKeys::anotherCommandBeginsAnew()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    dialog.record(sequence("F9"));

    QVERIFY(dialog.choose(SaveAs));

    QCOMPARE(dialog.recorder->text(), QString());
}

void TestRecordKeys::keysOfTheProgramAndTheDialogAreRecorded()
{
    m_fixture->core.show();
    IAction *const one = m_fixture->registerCommand(One, keys({"Ctrl+Alt+O"}));
    Core::ViewManager::mainWindow()->addAction(one);
    Core::ActionManager::setCurrentContexts({QStringLiteral("Core.Context.Global")});
    const QSignalSpy triggered(one, &QAction::triggered);
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));

    dialog.record(sequence("Ctrl+Alt+O"));
    QCOMPARE(dialog.recorder->text(), QStringLiteral("Ctrl+Alt+O"));
    QCOMPARE(triggered.count(), 0);
    dialog.record(sequence("Alt+R"));
    QCOMPARE(dialog.recorder->text(), QStringLiteral("Ctrl+Alt+O, Alt+R"));
    QVERIFY(dialog.recorder->hasFocus());
}

void TestRecordKeys::reservedKeyIsRefused_data()
{
    QTest::addColumn<QKeySequence>("key");

    for (const char *key : {"A", "Shift+A", "5", "Space", "Del", "Left", "Shift+End", "PgDown",
                            "Menu", "Ins", "Alt+F4", "Alt+Space"})
        QTest::newRow(key) << sequence(key);
}

void TestRecordKeys::reservedKeyIsRefused()
{
    QFETCH(QKeySequence, key);
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));

    dialog.record(key);

    QCOMPARE(dialog.recorder->text(), QString());
    QVERIFY(!dialog.addButton->isEnabled());
    QVERIFY2(dialog.message->text().startsWith(key.toString(QKeySequence::NativeText)
                                               + QLatin1String(" cannot be a key of a command. ")),
             qPrintable(dialog.message->text()));
}

void TestRecordKeys::laterStrokesAreNotReserved()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));

    dialog.record(sequence("Ctrl+K, Left, Space, A"));

    QCOMPARE(dialog.recorder->text(), sequence("Ctrl+K, Left, Space, A").toString());
    QVERIFY(dialog.addButton->isEnabled());
}

void TestRecordKeys::takenKeyIsToldOfBeforeItIsAdded()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(SaveAs));

    dialog.record(sequence("Ctrl+O"));

    QCOMPARE(dialog.message->text(), QStringLiteral("Ctrl+O clashes with \"Open...\" (File)."));
    QCOMPARE(dialog.recorder->accessibleDescription(), dialog.message->text());
    QVERIFY(dialog.addButton->isEnabled());
    QCOMPARE(dialog.cell(SaveAs, KeysColumn), QString());
}

void TestRecordKeys::takenKeyIsReassignedOnRequest()
{
    IAction *const one = m_fixture->registerCommand(One, keys({"F9"}), QStringLiteral("&One"));
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    ModalDialog box(click("btnReassign"));

    dialog.add(sequence("F9"));

    QCOMPARE(box.text(), QStringLiteral("F9 clashes with \"One\" (Not in a menu)."));
    QCOMPARE(dialog.cell(Save, KeysColumn), QStringLiteral("Ctrl+S; F9"));
    QCOMPARE(dialog.cell(One, KeysColumn), QString());
    QCOMPARE(one->shortcuts(), keys({"F9"}));
    dialog.apply();
    QCOMPARE(one->shortcuts(), Keys());
    QCOMPARE(m_fixture->command(Save)->shortcuts(), keys({"Ctrl+S", "F9"}));
}

void TestRecordKeys::takenKeyIsSharedOnRequest()
{
    m_fixture->registerCommand(One, keys({"F9"}), QStringLiteral("&One"));
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    QCOMPARE(dialog.cell(One, KeysColumn, Qt::ToolTipRole), QStringLiteral("F9"));
    ModalDialog box(click("btnShare"));

    dialog.add(sequence("F9"));

    QVERIFY(box.met());
    QCOMPARE(dialog.cell(Save, KeysColumn), QStringLiteral("Ctrl+S; F9"));
    QCOMPARE(dialog.cell(One, KeysColumn), QStringLiteral("F9"));
    QCOMPARE(dialog.cell(One, KeysColumn, Qt::ToolTipRole),
             QStringLiteral("Shares a key with \"Save\" (Core.Action.Save)"));
    QCOMPARE(dialog.cell(Save, KeysColumn, Qt::AccessibleDescriptionRole),
             QStringLiteral("Shares a key with \"One\" (Test.One)"));
}

void TestRecordKeys::sharedKeyStaysShared()
{
    m_fixture->registerCommand(One, keys({"F9"}));
    {
        PageDialog dialog;
        QVERIFY(dialog.choose(Save));
        ModalDialog box(click("btnShare"));
        dialog.add(sequence("F9"));
        QVERIFY(box.met());
        dialog.apply();
    }
    QCOMPARE(m_fixture->command(One)->shortcuts(), keys({"F9"}));

    m_fixture.reset();
    m_fixture = std::make_unique<KeyBindingsFixture>();
    m_fixture->start();
    QCOMPARE(m_fixture->registerCommand(One, keys({"F9"}))->shortcuts(), keys({"F9"}));
    QCOMPARE(m_fixture->command(Save)->shortcuts(), keys({"Ctrl+S", "F9"}));
    const PageDialog dialog;
    QTest::mouseClick(dialog.resetAllButton, Qt::LeftButton);
    dialog.apply();
    QVERIFY(!KeyBindingsFixture::stored(One).isValid());
}

void TestRecordKeys::cancelledQuestionChangesNothing()
{
    m_fixture->registerCommand(One, keys({"F9"}));
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    ModalDialog box(takeBack());

    dialog.add(sequence("F9"));

    QVERIFY(box.met());
    QCOMPARE(dialog.cell(Save, KeysColumn), QStringLiteral("Ctrl+S"));
    QCOMPARE(dialog.cell(One, KeysColumn), QStringLiteral("F9"));
    QCOMPARE(dialog.recorder->text(), QStringLiteral("F9"));
}

void TestRecordKeys::beginningOfAKeyClashes_data()
{
    QTest::addColumn<QKeySequence>("taken");
    QTest::addColumn<QKeySequence>("recorded");

    QTest::newRow("shorter") << sequence("Ctrl+K, Ctrl+B") << sequence("Ctrl+K");
    QTest::newRow("longer") << sequence("Ctrl+K") << sequence("Ctrl+K, Ctrl+B");
}

void TestRecordKeys::beginningOfAKeyClashes()
{
    QFETCH(QKeySequence, taken);
    QFETCH(QKeySequence, recorded);
    m_fixture->registerCommand(One, {taken});
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    ModalDialog box(click("btnShare"));

    dialog.add(recorded);

    QVERIFY(box.met());
    const QString shares = QStringLiteral("Shares a key with ");
    QVERIFY(dialog.cell(One, KeysColumn, Qt::ToolTipRole).startsWith(shares));
    QVERIFY(dialog.cell(Save, KeysColumn, Qt::ToolTipRole).startsWith(shares));
}

void TestRecordKeys::ownKeyIsNotAddedAgain()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));

    dialog.record(sequence("Ctrl+S"));
    QCOMPARE(dialog.message->text(), QStringLiteral("Ctrl+S is a key of this command already."));
    QVERIFY(!dialog.addButton->isEnabled());
    QTest::keyClick(dialog.windowHandle(), Qt::Key_B, Qt::ControlModifier);
    QVERIFY(dialog.message->text().startsWith(QLatin1String("Ctrl+S, Ctrl+B clashes with Ctrl+S")));
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);

    QCOMPARE(dialog.keyList(), texts({"Ctrl+S"}));
}

void TestRecordKeys::fixedKeyIsRefused_data()
{
    QTest::addColumn<QKeySequence>("key");
    QTest::addColumn<QString>("holder");

    QTest::newRow("an entry without an id") << sequence("F11") << QStringLiteral("\"Full Screen\"");
    QTest::newRow("a menu") << sequence("Alt+F") << QStringLiteral("the menu \"File\"");
    QTest::newRow("a shortcut") << sequence("Ctrl+Alt+9")
                                << QStringLiteral("a part of the main window");
    QTest::newRow("longer") << sequence("F11, F9") << QStringLiteral("\"Full Screen\"");
}

void TestRecordKeys::fixedKeyIsRefused()
{
    QFETCH(QKeySequence, key);
    QFETCH(QString, holder);
    const QShortcut shortcut(sequence("Ctrl+Alt+9"), Core::ViewManager::mainWindow());
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));

    dialog.record(key);

    QCOMPARE(dialog.message->text(),
             QStringLiteral("%1 clashes with a key of %2, which cannot be changed.")
                 .arg(key.toString(), holder));
    QVERIFY(!dialog.addButton->isEnabled());
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
    QCOMPARE(dialog.keyList(), texts({"Ctrl+S"}));
}

void TestRecordKeys::keyThatAWidgetLeavesToCommandsIsToldOf()
{
    QWidget widget(Core::ViewManager::mainWindow());
    widget.setProperty("ownKeys", QVariantMap{{QStringLiteral("Ctrl+D"), QStringLiteral("&Note")}});
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));

    dialog.record(sequence("Ctrl+D, F9"));

    QCOMPARE(dialog.message->text(),
             QStringLiteral("In a document, Ctrl+D, F9 would no longer do \"Note\"."));
    QVERIFY(dialog.addButton->isEnabled());
}

void TestRecordKeys::freedKeyIsFree()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    QTest::mouseClick(dialog.removeButton, Qt::LeftButton);
    QVERIFY(dialog.choose(SaveAs));

    dialog.add(sequence("Ctrl+S"));
    dialog.apply();

    QCOMPARE(m_fixture->command(SaveAs)->shortcuts(), keys({"Ctrl+S"}));
    QCOMPARE(m_fixture->command(Save)->shortcuts(), Keys());
}

void TestRecordKeys::commandsMayComeWhileTheUserIsAsked()
{
    m_fixture->registerCommand(One, keys({"F9"}));
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    ModalDialog box([this, &dialog](QWidget *question) {
        m_fixture->registerCommand(Other, keys({"F2"}));
        const bool listed = QTest::qWaitFor(
            [&dialog] { return dialog.cell(Other, KeysColumn) == QLatin1String("F2"); });
        // In any case, or the question would stay for ever.
        click("btnReassign")(question);
        QVERIFY(listed);
    });

    dialog.add(sequence("F9"));

    QVERIFY(box.met());
    QCOMPARE(dialog.cell(Save, KeysColumn), QStringLiteral("Ctrl+S; F9"));
    QCOMPARE(dialog.cell(One, KeysColumn), QString());
}

void TestRecordKeys::resetGivesTheDefaultBack()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    QVERIFY(!dialog.resetButton->isEnabled());
    dialog.add(sequence("F9"));
    dialog.apply();
    QVERIFY(KeyBindingsFixture::stored(Save).isValid());

    QTest::mouseClick(dialog.resetButton, Qt::LeftButton);
    QCOMPARE(dialog.keyList(), texts({"Ctrl+S"}));
    QCOMPARE(m_fixture->command(Save)->shortcuts(), keys({"Ctrl+S", "F9"}));
    dialog.apply();

    QCOMPARE(m_fixture->command(Save)->shortcuts(), keys({"Ctrl+S"}));
    QVERIFY(!KeyBindingsFixture::stored(Save).isValid());
    QVERIFY(!dialog.resetButton->isEnabled());
}

void TestRecordKeys::resetAsksForADefaultThatIsTaken()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    QTest::mouseClick(dialog.removeButton, Qt::LeftButton);
    QVERIFY(dialog.choose(SaveAs));
    dialog.add(sequence("Ctrl+S"));
    QVERIFY(dialog.choose(Save));
    {
        ModalDialog box(takeBack());
        QTest::mouseClick(dialog.resetButton, Qt::LeftButton);
        QCOMPARE(box.text(), QStringLiteral("Ctrl+S clashes with \"Save As...\" (File)."));
    }
    QCOMPARE(dialog.keyList(), QStringList());

    ModalDialog box(click("btnReassign"));
    QTest::mouseClick(dialog.resetButton, Qt::LeftButton);

    QVERIFY(box.met());
    QCOMPARE(dialog.keyList(), texts({"Ctrl+S"}));
    QCOMPARE(dialog.cell(SaveAs, KeysColumn), QString());
}

void TestRecordKeys::resetAllGivesAllDefaultsBack()
{
    PageDialog dialog;
    QVERIFY(!dialog.resetAllButton->isEnabled());
    QVERIFY(dialog.choose(Save));
    dialog.add(sequence("F9"));
    QVERIFY(dialog.choose(SaveAs));
    dialog.add(sequence("F8"));
    dialog.apply();

    QTest::mouseClick(dialog.resetAllButton, Qt::LeftButton);
    QCOMPARE(m_fixture->command(SaveAs)->shortcuts(), keys({"F8"}));
    dialog.apply();

    QCOMPARE(m_fixture->command(Save)->shortcuts(), keys({"Ctrl+S"}));
    QCOMPARE(m_fixture->command(SaveAs)->shortcuts(), Keys());
    QVERIFY(!KeyBindingsFixture::stored(Save).isValid());
    QVERIFY(!KeyBindingsFixture::stored(SaveAs).isValid());
    QVERIFY(!dialog.resetAllButton->isEnabled());
}

void TestRecordKeys::applyWithoutAChangeStoresNothing()
{
    const PageDialog dialog;

    dialog.apply();

    m_fixture->core.shutdown();
    QVERIFY(!QFile::exists(CoreFixture::settingsFile())
            || !CoreFixture::storedSetting(QStringLiteral("KeyBindings/") + Save).isValid());
}

void TestRecordKeys::changeTakenBackIsNoChange()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    dialog.add(sequence("F9"));
    dialog.list->setCurrentRow(1);
    QTest::mouseClick(dialog.removeButton, Qt::LeftButton);

    dialog.apply();

    QVERIFY(!KeyBindingsFixture::stored(Save).isValid());
}

void TestRecordKeys::onlyWhatWasChangedIsStored()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    dialog.add(sequence("F9"));
    dialog.apply();
    // Another program that runs meanwhile.
    KeyBindingsFixture::store(Save, QStringLiteral("F8"));
    QVERIFY(dialog.choose(SaveAs));
    dialog.add(sequence("F7"));

    dialog.apply();

    QCOMPARE(KeyBindingsFixture::stored(Save).toString(), QStringLiteral("F8"));
}

QTEST_MAIN(TestRecordKeys)
#include "tst_recordkeys.moc"
