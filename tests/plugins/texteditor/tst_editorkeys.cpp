// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Real keys through the window system: what a key does in a focused editor.

#include "texteditorfixture.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <texteditor/abstracttexteditor.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
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
    void commandsFollowTheFocusedOfTwoEditors();
    void enabledStatesFollowTheEditor();
    void readOnlyEditorOffersNoChange();
    void commandsServeTheFindField();
    void commandsAreDisabledWhenTheEditorIsGone();

private:
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void focus(AbstractTextEditor *editor) const;
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
    QTest::addColumn<int>("key");

    // New, Open and Print open dialogs; their proxies are watched instead.
    QTest::newRow("save") << QString::fromLatin1(C::A_FILE_SAVE) << int(Qt::Key_S);
    QTest::newRow("undo") << QString::fromLatin1(C::A_EDIT_UNDO) << int(Qt::Key_Z);
    QTest::newRow("redo") << QString::fromLatin1(C::A_EDIT_REDO) << int(Qt::Key_Y);
    QTest::newRow("cut") << QString::fromLatin1(C::A_EDIT_CUT) << int(Qt::Key_X);
    QTest::newRow("copy") << QString::fromLatin1(C::A_EDIT_COPY) << int(Qt::Key_C);
    QTest::newRow("paste") << QString::fromLatin1(C::A_EDIT_PASTE) << int(Qt::Key_V);
    QTest::newRow("select all") << QString::fromLatin1(C::A_EDIT_SELECTALL) << int(Qt::Key_A);
    QTest::newRow("find") << QString::fromLatin1(C::A_EDIT_FIND) << int(Qt::Key_F);
}

void TestEditorKeys::keyRunsItsCommandOnce()
{
    QFETCH(QString, id);
    QFETCH(int, key);
    // A state in which every command has something to do.
    TextEditorFixture::type(m_editor, QStringLiteral("ab"));
    m_editor->perform(Command::SelectAll);
    m_editor->perform(Command::Copy);
    if (id == QLatin1String(C::A_EDIT_REDO))
        m_editor->perform(Command::Undo);
    if (id == QLatin1String(C::A_EDIT_CUT) || id == QLatin1String(C::A_EDIT_COPY))
        m_editor->perform(Command::SelectAll);
    Core::IAction *const proxy = Core::ActionManager::action(id);
    QTRY_VERIFY(proxy->isEnabled());
    QSignalSpy triggered(proxy, &QAction::triggered);

    press(key, Qt::ControlModifier);

    QCOMPARE(triggered.count(), 1);
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

QTEST_MAIN(TestEditorKeys)
#include "tst_editorkeys.moc"
