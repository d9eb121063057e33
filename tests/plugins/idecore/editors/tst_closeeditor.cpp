// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editorfixture.h"
#include "support/messagerecorder.h"
#include "support/testview.h"

#include <idecore/editors/editormanager.h>
#include <idecore/editors/editormanager_p.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>
#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QAction>
#include <QDir>
#include <QPointer>
#include <QTest>

#include <memory>

using Core::EditorManager;
using Core::IEditor;
using Core::ViewManager;
using Core::private_impl::EditorManagerPrivate;

namespace {

EditorManagerPrivate *d()
{
    return EditorManagerPrivate::get();
}

int subWindowCount()
{
    return ViewManager::mainWindow()->documentArea()->subWindows().size();
}

} // namespace

/// Editors that are closed, or go in another way.
class TestCloseEditor final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_fixture = std::make_unique<EditorFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void closeEditor();
    void closeEditorRefused();
    void closeEditorByFile();
    void closeNoEditor();
    void closeEditorThatIsNotShown();
    void destroyedEditorLeavesNothingBehind();
    void destroyedEditorUpdatesTheCommands();
    void destroyedSubWindowLeavesNothingBehind();
    void editorClosedByWhoeverIsToldOfIt();
    void editorClosedWhenShownAgain();

    void closeAllEditorsInOrder();
    void closeAllEditorsStopsAtARefusal();
    void closeAllEditorsWithoutEditors();
    void closeAllEditorsLeavesOtherViews();
    void closeAllEditorsWhenOneTakesAnotherAlong();
    void closedEditorIsReportedNoMore();
    void closedEditorUpdatesTheCommands();
    void closingOtherViewsLeavesTheEditors();
    void closingKeepsTheCurrentEditorUntilTheNextIsReported();

private:
    TestEditor *open(const QString &name, bool modified = false);

    QStringList m_journal;
    std::unique_ptr<EditorFixture> m_fixture;
};

TestEditor *TestCloseEditor::open(const QString &name, bool modified)
{
    m_fixture->factory.prepare = [this](TestEditor *editor) { editor->setJournal(&m_journal); };
    EditorManager::openEditor(m_fixture->makeFile(name), false);
    if (modified)
        m_fixture->factory.last->setModified(true);
    return m_fixture->factory.last;
}

void TestCloseEditor::closeEditor()
{
    const QPointer<IEditor> editor =
        EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);

    QVERIFY(EditorManager::closeEditor(editor));

    QVERIFY(EditorManager::allEditors().isEmpty());
    QTRY_VERIFY(!editor);
    QCOMPARE(EditorManager::currentEditor(), nullptr);
}

void TestCloseEditor::closeEditorRefused()
{
    IEditor *editor =
        EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);
    m_fixture->factory.last->refuseClose = true;

    QVERIFY(!EditorManager::closeEditor(editor));

    QCOMPARE(EditorManager::allEditors(), QList<IEditor *>{editor});
    QCOMPARE(EditorManager::currentEditor(), editor);
}

void TestCloseEditor::closeEditorByFile()
{
    const QString a = m_fixture->makeFile(QStringLiteral("a.txt"));
    EditorManager::openEditor(a, false);
    IEditor *other = EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("b.txt")), false);

    QVERIFY(EditorManager::closeEditor(QDir::current().relativeFilePath(a)));

    QCOMPARE(EditorManager::allEditors(), QList<IEditor *>{other});
}

void TestCloseEditor::closeNoEditor()
{
    MessageRecorder log;

    QVERIFY(!EditorManager::closeEditor(static_cast<IEditor *>(nullptr)));
    QVERIFY(!EditorManager::closeEditor(m_fixture->folder.filePath(QStringLiteral("not open"))));

    QVERIFY(log.messages().isEmpty());
}

void TestCloseEditor::closeEditorThatIsNotShown()
{
    TestEditor editor;

    QVERIFY(!EditorManager::closeEditor(&editor));
}

void TestCloseEditor::destroyedEditorLeavesNothingBehind()
{
    IEditor *first = EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);
    IEditor *second =
        EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("b.txt")), false);

    delete second;

    QCOMPARE(EditorManager::allEditors(), QList<IEditor *>{first});
    QCOMPARE(EditorManager::currentEditor(), first);
    delete first;
    QVERIFY(EditorManager::allEditors().isEmpty());
    QCOMPARE(EditorManager::currentEditor(), nullptr);
    QCOMPARE(subWindowCount(), 0);
}

void TestCloseEditor::destroyedEditorUpdatesTheCommands()
{
    const EditorManagerPrivate *d = EditorManagerPrivate::get();
    IEditor *first = EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);
    m_fixture->factory.last->setModified(true);
    EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("b.txt")), false);
    QVERIFY(d->actSaveAll->isEnabled());

    delete first;

    QVERIFY(!d->actSaveAll->isEnabled());
    QVERIFY(d->actSaveAs->isEnabled());
}

void TestCloseEditor::destroyedSubWindowLeavesNothingBehind()
{
    const IEditor *editor =
        EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false);

    delete ViewManager::mainWindow()->documentArea()->subWindows().constFirst();

    QVERIFY(EditorManager::allEditors().isEmpty());
    QCOMPARE(EditorManager::currentEditor(), nullptr);
    Q_UNUSED(editor)
}

void TestCloseEditor::editorClosedByWhoeverIsToldOfIt()
{
    connect(EditorManager::instance(), &EditorManager::currentEditorChanged, this,
            [](IEditor *editor) { delete editor; });

    QCOMPARE(EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("a.txt")), false),
             nullptr);

    QVERIFY(EditorManager::allEditors().isEmpty());
    QCOMPARE(EditorManager::currentEditor(), nullptr);
}

void TestCloseEditor::editorClosedWhenShownAgain()
{
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    EditorManager::openEditor(path, false);
    EditorManager::openEditor(m_fixture->makeFile(QStringLiteral("b.txt")), false);
    QObject listener;
    connect(EditorManager::instance(), &EditorManager::currentEditorChanged, &listener,
            [&listener](IEditor *editor) {
                EditorManager::instance()->disconnect(&listener);
                EditorManager::closeEditor(editor);
            });

    QCOMPARE(EditorManager::openEditor(path, false), nullptr);

    QCOMPARE(EditorManager::allEditors().size(), 1);
}

void TestCloseEditor::closeAllEditorsInOrder()
{
    open(QStringLiteral("b.txt"));
    open(QStringLiteral("a.txt"));
    m_journal.clear();

    QVERIFY(EditorManager::closeAllEditors());

    QCOMPARE(m_journal.filter(QStringLiteral("asked")), texts({"b.txt asked", "a.txt asked"}));
    QVERIFY(EditorManager::allEditors().isEmpty());
}

void TestCloseEditor::closeAllEditorsStopsAtARefusal()
{
    open(QStringLiteral("a.txt"));
    TestEditor *second = open(QStringLiteral("b.txt"));
    TestEditor *third = open(QStringLiteral("c.txt"));
    second->refuseClose = true;
    m_journal.clear();

    QVERIFY(!EditorManager::closeAllEditors());

    QCOMPARE(m_journal.filter(QStringLiteral("asked")), texts({"a.txt asked", "b.txt asked"}));
    QCOMPARE(EditorManager::allEditors(), (QList<IEditor *>{second, third}));
}

void TestCloseEditor::closeAllEditorsWithoutEditors()
{
    QVERIFY(EditorManager::closeAllEditors());
}

void TestCloseEditor::closeAllEditorsLeavesOtherViews()
{
    open(QStringLiteral("a.txt"));
    auto *view = new TestView(QStringLiteral("no editor"));
    ViewManager::showView(view);

    QVERIFY(EditorManager::closeAllEditors());

    QCOMPARE(view->asked, 0);
    QCOMPARE(ViewManager::currentView(), view);
}

void TestCloseEditor::closeAllEditorsWhenOneTakesAnotherAlong()
{
    TestEditor *first = open(QStringLiteral("a.txt"));
    TestEditor *second = open(QStringLiteral("b.txt"));
    connect(ViewManager::instance(), &ViewManager::viewClosed, this, [=](Core::IView *view) {
        if (view == first)
            EditorManager::closeEditor(second);
    });
    m_journal.clear();

    QVERIFY(EditorManager::closeAllEditors());

    QCOMPARE(m_journal.filter(QStringLiteral("asked")), texts({"a.txt asked", "b.txt asked"}));
}

void TestCloseEditor::closedEditorIsReportedNoMore()
{
    TestEditor *editor = open(QStringLiteral("a.txt"));
    int saved = 0;
    connect(EditorManager::instance(), &EditorManager::fileSaved, this, [&saved] { ++saved; });

    EditorManager::closeEditor(editor);
    Q_EMIT editor->saved(); // it is destroyed later

    QCOMPARE(saved, 0);
}

void TestCloseEditor::closedEditorUpdatesTheCommands()
{
    TestEditor *first = open(QStringLiteral("a.txt"), true);
    open(QStringLiteral("b.txt"));
    QVERIFY(d()->actSaveAll->isEnabled());

    // By itself, without another view that becomes current.
    EditorManager::instance()->onEditorClosed(first);

    QVERIFY(!d()->actSaveAll->isEnabled());
}

void TestCloseEditor::closingOtherViewsLeavesTheEditors()
{
    TestEditor *editor = open(QStringLiteral("a.txt"));
    auto *view = new TestView(QStringLiteral("no editor"));
    ViewManager::showView(view);

    ViewManager::closeView(view);

    QCOMPARE(EditorManager::allEditors(), QList<IEditor *>{editor});
    QCOMPARE(EditorManager::currentEditor(), editor);
}

void TestCloseEditor::closingKeepsTheCurrentEditorUntilTheNextIsReported()
{
    TestEditor *editor = open(QStringLiteral("a.txt"));

    EditorManager::instance()->onEditorClosed(editor);
    QCOMPARE(EditorManager::currentEditor(), editor);

    EditorManager::instance()->onCurrentViewChanged(nullptr);
    QCOMPARE(EditorManager::currentEditor(), nullptr);
}

QTEST_MAIN(TestCloseEditor)
#include "tst_closeeditor.moc"
