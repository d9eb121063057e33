// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Real keys through the window system: what a key does in a focused editor.

#include "texteditorfixture.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <idecore/editors/editormanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>
#include <texteditor/abstracttexteditor.h>
#include <utils/mdiarea.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWindow>

using TextEditor::AbstractTextEditor;
using TextEditor::Command;
namespace C = Core::Constants;

class TestEditorKeys final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void keyRunsItsCommandOnce_data();
    void keyRunsItsCommandOnce();
    void undoAndRedoTakeOneStepEach();
    void cutCopyAndPasteWorkOnTheText();
    void disabledSaveKeyDoesNothingElse();
    void otherKeysOfTheEditorWork_data();
    void otherKeysOfTheEditorWork();
    void otherKeysOfTheEditorAreTold();
    void keyOfADisabledCommandIsNotTheEditors_data();
    void keyOfADisabledCommandIsNotTheEditors();
    void commandsFollowTheFocusedOfTwoEditors();
    void enabledStatesFollowTheEditor();
    void readOnlyEditorOffersNoChange();
    void contextMenuHoldsTheCommandsOfTheEditor();
    void commandsServeTheFindField();
    void commandsAreDisabledWhenTheEditorIsGone();
    void focusedOfTwoTiledEditorsMayGo_data();
    void focusedOfTwoTiledEditorsMayGo();

private:
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void focus(AbstractTextEditor *editor) const;
    /// The action of the main window with that shortcut, which has no id.
    static QAction *windowAction(const QKeySequence &keys)
    {
        const QList<QAction *> actions = Core::ViewManager::mainWindow()->findChildren<QAction *>();
        for (QAction *action : actions) {
            if (action->shortcut() == keys)
                return action;
        }
        return nullptr;
    }
    static Core::IAction *command(const char *id)
    {
        return Core::ActionManager::action(QLatin1String(id));
    }

    std::unique_ptr<TextEditorFixture> m_fixture;
    AbstractTextEditor *m_editor = nullptr;
};

void TestEditorKeys::init()
{
    m_fixture = std::make_unique<TextEditorFixture>();
    m_fixture->core.show();
    m_editor = m_fixture->open(QStringLiteral("a.txt"), "one\ntwo\n");
    QVERIFY(m_editor);
    focus(m_editor);
}

void TestEditorKeys::cleanup()
{
    m_fixture.reset();
}

void TestEditorKeys::press(int key, Qt::KeyboardModifiers modifiers) const
{
    // Through the window, so that shortcuts are matched as for a real key.
    QTest::keyClick(QApplication::focusWindow(), static_cast<Qt::Key>(key), modifiers);
}

void TestEditorKeys::focus(AbstractTextEditor *editor) const
{
    QWidget *const text = TextEditorFixture::textWidget(editor);
    text->setFocus();
    QTRY_VERIFY(text->hasFocus());
}

void TestEditorKeys::keyRunsItsCommandOnce_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QKeySequence>("keys");
    QTest::addColumn<bool>("tiled");

    struct Row
    {
        const char *id;
        QKeySequence keys;
    };
    const Row rows[] = {{C::A_FILE_NEW, QKeySequence::New},
                        {C::A_FILE_OPEN, QKeySequence::Open},
                        {C::A_FILE_SAVE, QKeySequence::Save},
                        {C::A_FILE_SAVEALL, QKeySequence(QStringLiteral("Ctrl+Shift+S"))},
                        {C::A_FILE_PRINT, QKeySequence::Print},
                        {C::A_EDIT_UNDO, QKeySequence::Undo},
                        {C::A_EDIT_REDO, QKeySequence(QStringLiteral("Ctrl+Y"))},
                        {C::A_EDIT_CUT, QKeySequence::Cut},
                        {C::A_EDIT_COPY, QKeySequence::Copy},
                        {C::A_EDIT_PASTE, QKeySequence::Paste},
                        {C::A_EDIT_SELECTALL, QKeySequence::SelectAll},
                        {C::A_EDIT_FIND, QKeySequence::Find},
                        {"", QKeySequence(QStringLiteral("F11"))}};
    for (const bool tiled : {false, true}) {
        for (const Row &row : rows) {
            QTest::addRow("%s%s", qPrintable(row.keys.toString()), tiled ? " tiled" : "")
                << QString::fromLatin1(row.id) << row.keys << tiled;
        }
    }
}

void TestEditorKeys::keyRunsItsCommandOnce()
{
    QFETCH(QString, id);
    QFETCH(QKeySequence, keys);
    QFETCH(bool, tiled);
    AbstractTextEditor *const other = m_fixture->open(QStringLiteral("b.txt"), "other\n");
    QVERIFY(other);
    if (tiled)
        Core::ViewManager::mainWindow()->findChild<Utils::MdiArea *>()->tileSubWindows();
    QTRY_COMPARE(m_editor->isVisible() && other->isVisible(), tiled);
    Core::ViewManager::showView(m_editor);
    focus(m_editor);
    // A state in which every command has something to do.
    TextEditorFixture::type(m_editor, QStringLiteral("ab"));
    m_editor->perform(Command::SelectAll);
    m_editor->perform(Command::Copy);
    if (id == QLatin1String(C::A_EDIT_REDO))
        m_editor->perform(Command::Undo);
    if (id == QLatin1String(C::A_EDIT_CUT) || id == QLatin1String(C::A_EDIT_COPY))
        m_editor->perform(Command::SelectAll);
    QAction *const action = id.isEmpty() ? windowAction(keys) : Core::ActionManager::action(id);
    QVERIFY(action);
    QTRY_VERIFY(action->isEnabled());
    QSignalSpy triggered(action, &QAction::triggered);
    // Some commands open dialogs, which are not looked at here.
    QTimer closer;
    connect(&closer, &QTimer::timeout, &closer, [] {
        if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
            dialog->reject();
    });
    closer.start(10);

    const int key = keys[0];
    press(key & ~int(Qt::KeyboardModifierMask),
          Qt::KeyboardModifiers(key & int(Qt::KeyboardModifierMask)));

    QCOMPARE(triggered.count(), 1);
    QVERIFY(!other->isModified());
    QCOMPARE(TextEditorFixture::text(other), QStringLiteral("other\n"));
}

void TestEditorKeys::undoAndRedoTakeOneStepEach()
{
    TextEditorFixture::type(m_editor, QStringLiteral("a"));
    press(Qt::Key_Right);
    TextEditorFixture::type(m_editor, QStringLiteral("b"));
    QCOMPARE(TextEditorFixture::text(m_editor), QStringLiteral("aobne\ntwo\n"));

    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(TextEditorFixture::text(m_editor), QStringLiteral("aone\ntwo\n"));
    press(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(TextEditorFixture::text(m_editor), QStringLiteral("aobne\ntwo\n"));
}

void TestEditorKeys::cutCopyAndPasteWorkOnTheText()
{
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("one\ntwo\n"));

    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_V, Qt::ControlModifier);

    QCOMPARE(TextEditorFixture::text(m_editor), QStringLiteral("one\ntwo\none\ntwo\n"));
}

void TestEditorKeys::disabledSaveKeyDoesNothingElse()
{
    QVERIFY(!command(C::A_FILE_SAVE)->isEnabled());
    QSignalSpy saved(m_editor, &Core::IEditor::saved);

    press(Qt::Key_S, Qt::ControlModifier);
    press(Qt::Key_F5);

    QCOMPARE(saved.count(), 0);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(TextEditorFixture::text(m_editor), QStringLiteral("one\ntwo\n"));
}

void TestEditorKeys::otherKeysOfTheEditorWork_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("text");

    const auto none = int(Qt::NoModifier);
    const auto control = int(Qt::ControlModifier);
    const auto shift = int(Qt::ShiftModifier);
    QTest::newRow("delete") << int(Qt::Key_Delete) << none << QStringLiteral("ne\ntwo\n");
    QTest::newRow("delete word") << int(Qt::Key_Delete) << control << QStringLiteral("\ntwo\n");
    QTest::newRow("delete line") << int(Qt::Key_K) << control << QStringLiteral("two\n");
    QTest::newRow("join lines") << int(Qt::Key_J) << control << QStringLiteral("one two\n");
    QTest::newRow("upper case") << int(Qt::Key_U) << control << QStringLiteral("One\ntwo\n");
    QTest::newRow("indent") << int(Qt::Key_I) << control << QStringLiteral("    one\ntwo\n");
    QTest::newRow("return") << int(Qt::Key_Return) << none << QStringLiteral("\none\ntwo\n");
    QTest::newRow("move line") << int(Qt::Key_Down) << (control | shift)
                               << QStringLiteral("two\none\n");
}

void TestEditorKeys::otherKeysOfTheEditorWork()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    m_editor->goToLine(1, 1);

    press(key, Qt::KeyboardModifiers(modifiers));

    QTEST(TextEditorFixture::text(m_editor), "text");
}

void TestEditorKeys::otherKeysOfTheEditorAreTold()
{
    QVariantMap told;
    const QList<QWidget *> widgets = m_editor->findChildren<QWidget *>();
    for (const QWidget *widget : widgets)
        told.unite(widget->property("ownKeys").toMap());

    QCOMPARE(told.value(QStringLiteral("Ctrl+D")).toString().remove(QLatin1Char('&')),
             QStringLiteral("Comment"));
    // The registry's.
    QVERIFY(!told.contains(QStringLiteral("Ctrl+S")));
}

void TestEditorKeys::keyOfADisabledCommandIsNotTheEditors_data()
{
    QTest::addColumn<QList<QKeySequence>>("keys");

    const QKeySequence first(QStringLiteral("Ctrl+Alt+X"));
    const QKeySequence deleteLine(QStringLiteral("Ctrl+K"));
    QTest::newRow("its key") << QList<QKeySequence>{deleteLine};
    QTest::newRow("its second key") << QList<QKeySequence>{first, deleteLine};
    QTest::newRow("the first of two strokes")
        << QList<QKeySequence>{QKeySequence(QStringLiteral("Ctrl+K, Ctrl+S"))};
}

void TestEditorKeys::keyOfADisabledCommandIsNotTheEditors()
{
    QFETCH(QList<QKeySequence>, keys);
    QVERIFY(!command(C::A_FILE_SAVE)->isEnabled());
    command(C::A_FILE_SAVE)->setShortcuts(keys);

    press(Qt::Key_K, Qt::ControlModifier);

    QCOMPARE(TextEditorFixture::text(m_editor), QStringLiteral("one\ntwo\n"));
}

void TestEditorKeys::commandsFollowTheFocusedOfTwoEditors()
{
    AbstractTextEditor *const other = m_fixture->open(QStringLiteral("b.txt"), "other\n");
    QVERIFY(other);
    focus(other);
    TextEditorFixture::type(other, QStringLiteral("x"));
    focus(m_editor);
    TextEditorFixture::type(m_editor, QStringLiteral("y"));

    command(C::A_EDIT_UNDO)->trigger();

    QCOMPARE(TextEditorFixture::text(m_editor), QStringLiteral("one\ntwo\n"));
    QCOMPARE(TextEditorFixture::text(other), QStringLiteral("xother\n"));
    focus(other);
    command(C::A_EDIT_UNDO)->trigger();
    QCOMPARE(TextEditorFixture::text(other), QStringLiteral("other\n"));
}

void TestEditorKeys::enabledStatesFollowTheEditor()
{
    QVERIFY(!command(C::A_EDIT_UNDO)->isEnabled());
    QVERIFY(!command(C::A_EDIT_REDO)->isEnabled());
    QVERIFY(!command(C::A_EDIT_COPY)->isEnabled());
    QVERIFY(command(C::A_EDIT_FIND)->isEnabled());
    QVERIFY(command(C::A_FILE_PRINT)->isEnabled());

    TextEditorFixture::type(m_editor, QStringLiteral("a"));
    QVERIFY(command(C::A_EDIT_UNDO)->isEnabled());
    press(Qt::Key_A, Qt::ControlModifier);
    QVERIFY(command(C::A_EDIT_CUT)->isEnabled());
    QVERIFY(command(C::A_EDIT_COPY)->isEnabled());
    press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!command(C::A_EDIT_UNDO)->isEnabled());
    QVERIFY(command(C::A_EDIT_REDO)->isEnabled());

    QApplication::clipboard()->clear();
    QTRY_VERIFY(!command(C::A_EDIT_PASTE)->isEnabled());
    QApplication::clipboard()->setText(QStringLiteral("x"));
    QTRY_VERIFY(command(C::A_EDIT_PASTE)->isEnabled());
}

void TestEditorKeys::readOnlyEditorOffersNoChange()
{
    TextEditorFixture::type(m_editor, QStringLiteral("a"));
    m_editor->perform(Command::SelectAll);
    QApplication::clipboard()->setText(QStringLiteral("x"));

    m_editor->setReadOnly(true);

    QVERIFY(!command(C::A_EDIT_UNDO)->isEnabled());
    QVERIFY(!command(C::A_EDIT_CUT)->isEnabled());
    QVERIFY(!command(C::A_EDIT_PASTE)->isEnabled());
    QVERIFY(command(C::A_EDIT_COPY)->isEnabled());
    TextEditorFixture::type(m_editor, QStringLiteral("b"));
    QCOMPARE(TextEditorFixture::text(m_editor), QStringLiteral("aone\ntwo\n"));
}

void TestEditorKeys::contextMenuHoldsTheCommandsOfTheEditor()
{
    QApplication::clipboard()->clear();
    QWidget *const text = TextEditorFixture::textWidget(m_editor);
    press(Qt::Key_A, Qt::ControlModifier);
    QContextMenuEvent ask(QContextMenuEvent::Keyboard, QPoint(5, 5), text->mapToGlobal({5, 5}));
    QApplication::sendEvent(text, &ask);
    const auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);

    QVector<QAction *> shown;
    for (QAction *action : menu->actions()) {
        if (!action->isSeparator() && action->isVisible())
            shown.append(action);
    }
    QCOMPARE(shown, (QVector<QAction *>{command(C::A_EDIT_UNDO), command(C::A_EDIT_REDO),
                                        command(C::A_EDIT_CUT), command(C::A_EDIT_COPY),
                                        command(C::A_EDIT_PASTE), command(C::A_EDIT_SELECTALL),
                                        command(C::A_EDIT_FIND)}));
    QVERIFY(command(C::A_EDIT_COPY)->isEnabled());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_C);
    QTRY_COMPARE(QApplication::clipboard()->text(), QStringLiteral("one\ntwo\n"));
}

void TestEditorKeys::commandsServeTheFindField()
{
    press(Qt::Key_F, Qt::ControlModifier);
    QTRY_VERIFY(qobject_cast<QComboBox *>(QApplication::focusWidget()));
    auto *field = qobject_cast<QComboBox *>(QApplication::focusWidget())->lineEdit();
    QTest::keyClicks(field, QStringLiteral("two"));

    command(C::A_EDIT_SELECTALL)->trigger();
    command(C::A_EDIT_CUT)->trigger();

    QCOMPARE(field->text(), QString());
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("two"));
    focus(m_editor);
    QCOMPARE(TextEditorFixture::text(m_editor), QStringLiteral("one\ntwo\n"));
}

void TestEditorKeys::commandsAreDisabledWhenTheEditorIsGone()
{
    TextEditorFixture::type(m_editor, QStringLiteral("a"));
    QVERIFY(command(C::A_EDIT_UNDO)->isEnabled());

    delete m_editor;

    QTRY_VERIFY(!command(C::A_EDIT_UNDO)->isEnabled());
}

void TestEditorKeys::focusedOfTwoTiledEditorsMayGo_data()
{
    QTest::addColumn<bool>("closed");

    QTest::newRow("closed") << true;
    QTest::newRow("destroyed") << false;
}

void TestEditorKeys::focusedOfTwoTiledEditorsMayGo()
{
    QFETCH(bool, closed);
    AbstractTextEditor *const other = m_fixture->open(QStringLiteral("b.txt"), "other\n");
    QVERIFY(other);
    TextEditorFixture::type(other, QStringLiteral("x"));
    Core::ViewManager::mainWindow()->findChild<Utils::MdiArea *>()->tileSubWindows();
    focus(m_editor);
    QVERIFY(!command(C::A_FILE_SAVE)->isEnabled());

    if (closed)
        QVERIFY(Core::EditorManager::closeEditor(m_editor));
    else
        delete m_editor;

    QTRY_COMPARE(Core::EditorManager::currentEditor(), other);
    QTRY_VERIFY(TextEditorFixture::textWidget(other)->hasFocus());
    QTRY_VERIFY(command(C::A_FILE_SAVE)->isEnabled());
    QVERIFY(command(C::A_FILE_SAVE)->text().contains(QLatin1String("\"b.txt\"")));
    command(C::A_EDIT_UNDO)->trigger();
    QCOMPARE(TextEditorFixture::text(other), QStringLiteral("other\n"));
}

QTEST_MAIN(TestEditorKeys)
#include "tst_editorkeys.moc"
