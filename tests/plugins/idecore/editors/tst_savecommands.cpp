// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editorfixture.h"
#include "support/testview.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/editors/editormanager.h>
#include <idecore/editors/editormanager_p.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QSignalBlocker>
#include <QTest>

#include <memory>

using Core::ActionManager;
using Core::EditorManager;
using Core::ViewManager;
using Core::private_impl::EditorManagerPrivate;

namespace {

/// What is seen of a command in menus and tool bars while an editor has the
/// focus.
const QAction *command(const char *id)
{
    return ActionManager::action(QString::fromLatin1(id));
}

const char SAVE[] = "Core.Action.Save";
const char SAVE_AS[] = "Core.Action.SaveAs";
const char SAVE_ALL[] = "Core.Action.SaveAll";

EditorManagerPrivate *d()
{
    return EditorManagerPrivate::get();
}

} // namespace

/// The texts and states of Save, Save As and Save All.
class TestSaveCommands final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_fixture = std::make_unique<EditorFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void commandsAreRegisteredForTheEditorContext();
    void commandsAreDisabledWithoutAnEditor();
    void saveNamesTheEditor();
    void saveAsNamesTheEditor();
    void titleIsNotTakenForAPlaceholder();
    void saveIsEnabledWhileModified();
    void saveAllIsEnabledWhileAnyIsModified();
    void modificationOfAnotherEditorCounts();
    void firstModifiedEditorIsEnough();
    void commandsFollowTheCurrentEditor();
    void commandsFollowBeforeTheCurrentEditorIsReported();
    void otherViewDisablesButKeepsTheTitles();
    void menuShowsTheEditorsTitleWhileItsContextIsCurrent();
    void modificationReportedByNoEditorIsIgnored();

private:
    TestEditor *open(const QString &name, bool modified = false);

    std::unique_ptr<EditorFixture> m_fixture;
};

TestEditor *TestSaveCommands::open(const QString &name, bool modified)
{
    EditorManager::openEditor(m_fixture->makeFile(name), false);
    if (modified)
        m_fixture->factory.last->setModified(true);
    return m_fixture->factory.last;
}

void TestSaveCommands::commandsAreRegisteredForTheEditorContext()
{
    open(QStringLiteral("a.txt"), true);
    QVERIFY(!command(SAVE)->isEnabled());

    ActionManager::setCurrentContexts(texts({"Core.EditorManager.Context"}));

    QVERIFY(command(SAVE)->isEnabled());
    QVERIFY(command(SAVE_AS)->isEnabled());
    QVERIFY(command(SAVE_ALL)->isEnabled());
}

void TestSaveCommands::commandsAreDisabledWithoutAnEditor()
{
    for (const QAction *action : {d()->actSave, d()->actSaveAs, d()->actSaveAll}) {
        QVERIFY(!action->isEnabled());
        QCOMPARE(action->text(), QString());
    }
}

void TestSaveCommands::saveNamesTheEditor()
{
    open(QStringLiteral("a.txt"));

    QCOMPARE(d()->actSave->text(), QStringLiteral("&Save \"a.txt\""));
    QCOMPARE(d()->actSave->toolTip(), QStringLiteral("Save \"a.txt\""));
}

void TestSaveCommands::saveAsNamesTheEditor()
{
    open(QStringLiteral("a.txt"));

    QCOMPARE(d()->actSaveAs->text(), QStringLiteral("Save \"a.txt\" &As..."));
    QCOMPARE(d()->actSaveAs->toolTip(), QStringLiteral("Save \"a.txt\" As"));
    QVERIFY(d()->actSaveAs->isEnabled());
}

void TestSaveCommands::titleIsNotTakenForAPlaceholder()
{
    open(QStringLiteral("%1 %2.txt"));

    QCOMPARE(d()->actSave->text(), QStringLiteral("&Save \"%1 %2.txt\""));
    QCOMPARE(d()->actSaveAs->text(), QStringLiteral("Save \"%1 %2.txt\" &As..."));
}

void TestSaveCommands::saveIsEnabledWhileModified()
{
    TestEditor *editor = open(QStringLiteral("a.txt"));
    QVERIFY(!d()->actSave->isEnabled());

    editor->setModified(true);
    QVERIFY(d()->actSave->isEnabled());

    editor->setModified(false);
    QVERIFY(!d()->actSave->isEnabled());
}

void TestSaveCommands::saveAllIsEnabledWhileAnyIsModified()
{
    TestEditor *first = open(QStringLiteral("a.txt"));
    TestEditor *second = open(QStringLiteral("b.txt"));
    QVERIFY(!d()->actSaveAll->isEnabled());
    QVERIFY(!d()->hasEditorModified());

    first->setModified(true);
    second->setModified(true);
    first->setModified(false);
    QVERIFY(d()->actSaveAll->isEnabled());
    QVERIFY(d()->hasEditorModified());

    second->setModified(false);
    QVERIFY(!d()->actSaveAll->isEnabled());
}

void TestSaveCommands::modificationOfAnotherEditorCounts()
{
    TestEditor *first = open(QStringLiteral("a.txt"));
    open(QStringLiteral("b.txt"));

    first->setModified(true);

    QVERIFY(!d()->actSave->isEnabled());
    QVERIFY(d()->actSaveAll->isEnabled());
}

void TestSaveCommands::firstModifiedEditorIsEnough()
{
    TestEditor *first = open(QStringLiteral("a.txt"));
    TestEditor *second = open(QStringLiteral("b.txt"), true);
    const TestEditor *third = open(QStringLiteral("c.txt"), true);
    first->modifiedAsked = second->modifiedAsked = third->modifiedAsked = 0;

    QVERIFY(d()->hasEditorModified());

    QCOMPARE(first->modifiedAsked, 1);
    QCOMPARE(second->modifiedAsked, 1);
    QCOMPARE(third->modifiedAsked, 0);
}

void TestSaveCommands::commandsFollowTheCurrentEditor()
{
    TestEditor *first = open(QStringLiteral("a.txt"), true);
    open(QStringLiteral("b.txt"));
    QVERIFY(!d()->actSave->isEnabled());

    ViewManager::showView(first);

    QVERIFY(d()->actSave->isEnabled());
    QCOMPARE(d()->actSave->text(), QStringLiteral("&Save \"a.txt\""));
}

void TestSaveCommands::commandsFollowBeforeTheCurrentEditorIsReported()
{
    TestEditor *first = open(QStringLiteral("a.txt"), true);
    open(QStringLiteral("b.txt"));
    QString text;
    bool enabled = false;
    connect(EditorManager::instance(), &EditorManager::currentEditorChanged, this, [&] {
        text = d()->actSave->text();
        enabled = d()->actSave->isEnabled();
    });

    ViewManager::showView(first);

    QCOMPARE(text, QStringLiteral("&Save \"a.txt\""));
    QVERIFY(enabled);
}

void TestSaveCommands::otherViewDisablesButKeepsTheTitles()
{
    open(QStringLiteral("a.txt"), true);

    ViewManager::showView(new TestView(QStringLiteral("no editor")));

    QVERIFY(!d()->actSave->isEnabled());
    QVERIFY(!d()->actSaveAs->isEnabled());
    QVERIFY(d()->actSaveAll->isEnabled());
    QCOMPARE(d()->actSave->text(), QStringLiteral("&Save \"a.txt\""));
    QCOMPARE(d()->actSave->toolTip(), QStringLiteral("Save \"a.txt\""));
    QCOMPARE(d()->actSaveAs->text(), QStringLiteral("Save \"a.txt\" &As..."));
    QCOMPARE(d()->actSaveAs->toolTip(), QStringLiteral("Save \"a.txt\" As"));
}

void TestSaveCommands::menuShowsTheEditorsTitleWhileItsContextIsCurrent()
{
    open(QStringLiteral("a.txt"), true);
    ActionManager::setCurrentContexts(texts({"Core.EditorManager.Context"}));

    ViewManager::showView(new TestView(QStringLiteral("no editor")));

    QVERIFY(!command(SAVE)->isEnabled());
    QCOMPARE(command(SAVE)->text(), QStringLiteral("&Save \"a.txt\""));
    QCOMPARE(command(SAVE_AS)->text(), QStringLiteral("Save \"a.txt\" &As..."));
    ActionManager::setCurrentContexts(texts({"Core.Context.Global"}));
    QCOMPARE(command(SAVE)->text(), QStringLiteral("&Save"));
    QCOMPARE(command(SAVE_AS)->text(), QStringLiteral("Save &As..."));
}

void TestSaveCommands::modificationReportedByNoEditorIsIgnored()
{
    TestEditor *editor = open(QStringLiteral("a.txt"));
    {
        const QSignalBlocker quiet(editor);
        editor->setModified(true);
    }

    EditorManager::instance()->onEditorModified(true);
    QVERIFY(!d()->actSave->isEnabled());

    Q_EMIT editor->modificationStateChanged(true);
    QVERIFY(d()->actSave->isEnabled());
}

QTEST_MAIN(TestSaveCommands)
#include "tst_savecommands.moc"
