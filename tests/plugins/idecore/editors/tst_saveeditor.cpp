// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/messagerecorder.h"
#include "support/modaldialog.h"
#include "support/testeditor.h"
#include "support/testview.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/idecore.h>
#include <idecore/editors/editormanager.h>
#include <idecore/editors/editormanager_p.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

using Core::ActionManager;
using Core::EditorManager;
using Core::IEditor;
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

/// Enters @p fileName in the file dialog that comes and accepts it.
ModalDialog::Handler choose(const QString &fileName)
{
    return [fileName](QWidget *widget) {
        auto *dialog = qobject_cast<QFileDialog *>(widget);
        if (!dialog) {
            QTest::qFail("the dialog is no file dialog", __FILE__, __LINE__);
            widget->close();
            return;
        }
        dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(fileName);
        QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save),
                          Qt::LeftButton);
    };
}

} // namespace

class TestSaveEditor final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

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
    void otherViewDisablesButKeepsTheTitles();
    void menuShowsTheEditorsTitleWhileItsContextIsCurrent();
    void modificationReportedByNoEditorIsIgnored();

    void saveSavesWithTheWaitCursor();
    void saveOfAnUnmodifiedEditorDoesNothing();
    void saveWithoutAnEditorDoesNothing();
    void saveReportsTheFile();
    void saveIsNoRecentFile();
    void failedSave();
    void failedSaveWithoutAReason();
    void editorDestroyedWhileSaving();

    void saveAsSavesUnderTheNewName();
    void saveAsDialog();
    void saveAsWithoutAnEditorDoesNothing();
    void cancelledSaveAsChangesNothing();
    void failedSaveAs();
    void editorDestroyedDuringSaveAsDialog();

    void saveAllSavesTheModifiedOnesInOrder();
    void saveAllUpdatesTheCommands();
    void saveAllIsSilentAboutFailures();
    void saveAllGoesOnWhenAnEditorGoes();
    void saveErrorsText();

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
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CoreFixture> m_core;
    std::unique_ptr<TestEditorFactory> m_factory;
    std::unique_ptr<InPool> m_inPool;
};

void TestSaveEditor::initTestCase()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void TestSaveEditor::init()
{
    m_journal.clear();
    m_folder = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<CoreFixture>();
    m_factory = std::make_unique<TestEditorFactory>(texts({"text/plain"}));
    m_inPool = std::make_unique<InPool>(m_factory.get());
}

void TestSaveEditor::cleanup()
{
    m_inPool.reset();
    m_core.reset();
    m_factory.reset();
    m_folder.reset();
}

TestEditor *TestSaveEditor::open(const QString &name, bool modified)
{
    QFile file(m_folder->filePath(name));
    if (!file.open(QIODevice::WriteOnly))
        QTest::qFail("the file could not be made", __FILE__, __LINE__);
    m_factory->prepare = [this](TestEditor *editor) { editor->setJournal(&m_journal); };
    EditorManager::openEditor(file.fileName(), false);
    if (modified)
        m_factory->last->setModified(true);
    return m_factory->last;
}

void TestSaveEditor::commandsAreRegisteredForTheEditorContext()
{
    open(QStringLiteral("a.txt"), true);
    QVERIFY(!command(SAVE)->isEnabled());

    ActionManager::setCurrentContexts(texts({"Core.EditorManager.Context"}));

    QVERIFY(command(SAVE)->isEnabled());
    QVERIFY(command(SAVE_AS)->isEnabled());
    QVERIFY(command(SAVE_ALL)->isEnabled());
}

void TestSaveEditor::commandsAreDisabledWithoutAnEditor()
{
    for (const QAction *action : {d()->actSave, d()->actSaveAs, d()->actSaveAll}) {
        QVERIFY(!action->isEnabled());
        QCOMPARE(action->text(), QString());
    }
}

void TestSaveEditor::saveNamesTheEditor()
{
    open(QStringLiteral("a.txt"));

    QCOMPARE(d()->actSave->text(), QStringLiteral("&Save \"a.txt\""));
    QCOMPARE(d()->actSave->toolTip(), QStringLiteral("Save \"a.txt\""));
}

void TestSaveEditor::saveAsNamesTheEditor()
{
    open(QStringLiteral("a.txt"));

    QCOMPARE(d()->actSaveAs->text(), QStringLiteral("Save \"a.txt\" &As..."));
    QCOMPARE(d()->actSaveAs->toolTip(), QStringLiteral("Save \"a.txt\" As"));
    QVERIFY(d()->actSaveAs->isEnabled());
}

void TestSaveEditor::titleIsNotTakenForAPlaceholder()
{
    open(QStringLiteral("%1 %2.txt"));

    QCOMPARE(d()->actSave->text(), QStringLiteral("&Save \"%1 %2.txt\""));
    QCOMPARE(d()->actSaveAs->text(), QStringLiteral("Save \"%1 %2.txt\" &As..."));
}

void TestSaveEditor::saveIsEnabledWhileModified()
{
    TestEditor *editor = open(QStringLiteral("a.txt"));
    QVERIFY(!d()->actSave->isEnabled());

    editor->setModified(true);
    QVERIFY(d()->actSave->isEnabled());

    editor->setModified(false);
    QVERIFY(!d()->actSave->isEnabled());
}

void TestSaveEditor::saveAllIsEnabledWhileAnyIsModified()
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

void TestSaveEditor::modificationOfAnotherEditorCounts()
{
    TestEditor *first = open(QStringLiteral("a.txt"));
    open(QStringLiteral("b.txt"));

    first->setModified(true);

    QVERIFY(!d()->actSave->isEnabled());
    QVERIFY(d()->actSaveAll->isEnabled());
}

void TestSaveEditor::firstModifiedEditorIsEnough()
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

void TestSaveEditor::commandsFollowTheCurrentEditor()
{
    TestEditor *first = open(QStringLiteral("a.txt"), true);
    open(QStringLiteral("b.txt"));
    QVERIFY(!d()->actSave->isEnabled());

    ViewManager::showView(first);

    QVERIFY(d()->actSave->isEnabled());
    QCOMPARE(d()->actSave->text(), QStringLiteral("&Save \"a.txt\""));
}

void TestSaveEditor::otherViewDisablesButKeepsTheTitles()
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

void TestSaveEditor::menuShowsTheEditorsTitleWhileItsContextIsCurrent()
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

void TestSaveEditor::modificationReportedByNoEditorIsIgnored()
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

void TestSaveEditor::saveSavesWithTheWaitCursor()
{
    TestEditor *editor = open(QStringLiteral("a.txt"), true);

    d()->actSave->trigger();

    QCOMPARE(editor->saves, 1);
    QVERIFY(editor->saveGotErrorString);
    QVERIFY(editor->waitCursorWhileSaving);
    QVERIFY(!QApplication::overrideCursor());
    QCOMPARE(editor->savedAs, QStringList());
    QVERIFY(!d()->actSave->isEnabled());
    QVERIFY(!d()->actSaveAll->isEnabled());
}

void TestSaveEditor::saveOfAnUnmodifiedEditorDoesNothing()
{
    TestEditor *editor = open(QStringLiteral("a.txt"));

    EditorManager::instance()->onActSave();

    QCOMPARE(editor->saves, 0);
}

void TestSaveEditor::saveWithoutAnEditorDoesNothing()
{
    TestEditor *editor = open(QStringLiteral("a.txt"), true);
    ViewManager::showView(new TestView(QStringLiteral("no editor")));

    EditorManager::instance()->onActSave();

    QCOMPARE(editor->saves, 0);
}

void TestSaveEditor::saveReportsTheFile()
{
    const TestEditor *editor = open(QStringLiteral("a.txt"), true);
    QStringList saved;
    connect(EditorManager::instance(), &EditorManager::fileSaved, this,
            [&saved](const QString &file) { saved.append(file); });

    EditorManager::instance()->onActSave();

    QCOMPARE(saved, QStringList{editor->fileName()});
}

void TestSaveEditor::saveIsNoRecentFile()
{
    open(QStringLiteral("a.txt"), true);
    EditorManager::instance()->onActClearRecent();

    EditorManager::instance()->onActSave();

    QVERIFY(EditorManager::recentFiles().isEmpty());
}

void TestSaveEditor::failedSave()
{
    TestEditor *editor = open(QStringLiteral("a.txt"), true);
    editor->failSave = true;
    editor->errorText = QStringLiteral("The disk is full.");
    bool cursorInTheBox = true;
    ModalDialog box([&cursorInTheBox](QWidget *widget) {
        cursorInTheBox = QApplication::overrideCursor();
        ModalDialog::press(QMessageBox::Ok)(widget);
    });

    EditorManager::instance()->onActSave();

    QCOMPARE(box.title(), QStringLiteral("Save File"));
    QCOMPARE(
        box.text(),
        QStringLiteral("Can not save to file \"%1\"\nThe disk is full.").arg(editor->fileName()));
    QCOMPARE(box.icon(), int(QMessageBox::Critical));
    QVERIFY(!cursorInTheBox);
    QVERIFY(editor->isModified());
    QCOMPARE(EditorManager::currentEditor(), editor);
    QVERIFY(d()->actSave->isEnabled());
}

void TestSaveEditor::failedSaveWithoutAReason()
{
    TestEditor *editor = open(QStringLiteral("a.txt"), true);
    editor->failSave = true;
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    EditorManager::instance()->onActSave();

    QCOMPARE(box.text(), QStringLiteral("Can not save to file \"%1\"").arg(editor->fileName()));
}

void TestSaveEditor::editorDestroyedWhileSaving()
{
    TestEditor *editor = open(QStringLiteral("a.txt"), true);
    editor->failSave = true;
    editor->whileSaving = [editor] { delete editor; };

    EditorManager::instance()->onActSave();

    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(EditorManager::allEditors().isEmpty());
}

void TestSaveEditor::saveAsSavesUnderTheNewName()
{
    TestEditor *editor = open(QStringLiteral("a.txt"));
    const QString old = editor->fileName();
    const QString other = m_folder->filePath(QStringLiteral("new.txt"));
    ModalDialog dialog(choose(other));

    EditorManager::instance()->onActSaveAs();

    QCOMPARE(editor->savedAs, QStringList{other});
    QVERIFY(editor->waitCursorWhileSaving);
    QVERIFY(!QApplication::overrideCursor());
    QCOMPARE(EditorManager::recentFiles(), (QStringList{other, old}));
}

void TestSaveEditor::saveAsDialog()
{
    const TestEditor *editor = open(QStringLiteral("a.txt"));
    QStringList filters;
    QString folder;
    QString name;
    QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen;
    ModalDialog dialog([&](QWidget *widget) {
        const auto *fileDialog = qobject_cast<QFileDialog *>(widget);
        filters = fileDialog->nameFilters();
        folder = fileDialog->directory().absolutePath();
        name = fileDialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->text();
        mode = fileDialog->acceptMode();
        ModalDialog::cancel()(widget);
    });

    EditorManager::instance()->onActSaveAs();

    QCOMPARE(dialog.title(), QStringLiteral("Save As"));
    QCOMPARE(dialog.parentOfDialog(), ViewManager::mainWindow());
    QCOMPARE(mode, QFileDialog::AcceptSave);
    QCOMPARE(folder, QFileInfo(editor->fileName()).absolutePath());
    QCOMPARE(name, QStringLiteral("a.txt"));
    QCOMPARE(filters,
             Core::IdeCore::mimeDatabase()->filterForFileDialog(true).split(QStringLiteral(";;")));
}

void TestSaveEditor::saveAsWithoutAnEditorDoesNothing()
{
    const TestEditor *editor = open(QStringLiteral("a.txt"));
    ViewManager::showView(new TestView(QStringLiteral("no editor")));

    EditorManager::instance()->onActSaveAs(); // would wait for its dialog

    QVERIFY(editor->savedAs.isEmpty());
}

void TestSaveEditor::cancelledSaveAsChangesNothing()
{
    const TestEditor *editor = open(QStringLiteral("a.txt"), true);
    const QString name = editor->fileName();
    ModalDialog dialog(ModalDialog::cancel());

    EditorManager::instance()->onActSaveAs();

    QVERIFY(editor->savedAs.isEmpty());
    QVERIFY(editor->isModified());
    QCOMPARE(EditorManager::recentFiles(), QStringList{name});
}

void TestSaveEditor::failedSaveAs()
{
    TestEditor *editor = open(QStringLiteral("a.txt"), true);
    const QString old = editor->fileName();
    const QString other = m_folder->filePath(QStringLiteral("new.txt"));
    editor->failSave = true;
    editor->errorText = QStringLiteral("No.");
    QString text;
    ModalDialog dialog([&](QWidget *widget) {
        // The next one is the message, which comes when this one has gone.
        QTimer::singleShot(0, this, [&text] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QVERIFY(box);
            text = box->text();
            QVERIFY(!QApplication::overrideCursor());
            ModalDialog::press(QMessageBox::Ok)(box);
        });
        choose(other)(widget);
    });

    EditorManager::instance()->onActSaveAs();

    QCOMPARE(text, QStringLiteral("Can not save to file \"%1\"\nNo.").arg(other));
    QCOMPARE(EditorManager::recentFiles(), QStringList{old});
    QVERIFY(editor->isModified());
    QCOMPARE(EditorManager::currentEditor(), editor);
}

void TestSaveEditor::editorDestroyedDuringSaveAsDialog()
{
    const TestEditor *editor = open(QStringLiteral("a.txt"));
    const QString old = editor->fileName();
    ModalDialog dialog([&](QWidget *widget) {
        delete editor;
        choose(m_folder->filePath(QStringLiteral("new.txt")))(widget);
    });

    EditorManager::instance()->onActSaveAs();

    QCOMPARE(EditorManager::recentFiles(), QStringList{old});
}

void TestSaveEditor::saveAllSavesTheModifiedOnesInOrder()
{
    open(QStringLiteral("b.txt"), true);
    open(QStringLiteral("clean.txt"));
    TestEditor *last = open(QStringLiteral("a.txt"), true);
    m_journal.clear();

    d()->actSaveAll->trigger();

    QCOMPARE(m_journal, texts({"b.txt save", "a.txt save"}));
    QVERIFY(!last->saveGotErrorString);
    QVERIFY(last->waitCursorWhileSaving);
    QVERIFY(!QApplication::overrideCursor());
}

void TestSaveEditor::saveAllUpdatesTheCommands()
{
    TestEditor *editor = open(QStringLiteral("a.txt"), true);
    // One that saves without saying so.
    editor->whileSaving = [editor] { editor->blockSignals(false); };
    editor->blockSignals(true);
    QVERIFY(d()->actSaveAll->isEnabled());

    EditorManager::instance()->onActSaveAll();

    QVERIFY(!d()->actSaveAll->isEnabled());
    QVERIFY(!d()->actSave->isEnabled());
}

void TestSaveEditor::saveAllIsSilentAboutFailures()
{
    TestEditor *first = open(QStringLiteral("a.txt"), true);
    const TestEditor *second = open(QStringLiteral("b.txt"), true);
    first->failSave = true;
    MessageRecorder log;

    EditorManager::instance()->onActSaveAll(); // a message box would wait for ever

    QVERIFY(first->isModified());
    QVERIFY(!second->isModified());
    QVERIFY(d()->actSaveAll->isEnabled());
    QVERIFY(log.lines(QtWarningMsg).isEmpty());
}

void TestSaveEditor::saveAllGoesOnWhenAnEditorGoes()
{
    TestEditor *first = open(QStringLiteral("a.txt"), true);
    TestEditor *second = open(QStringLiteral("b.txt"), true);
    const TestEditor *third = open(QStringLiteral("c.txt"), true);
    first->whileSaving = [second] { delete second; };

    EditorManager::instance()->onActSaveAll();

    QVERIFY(!third->isModified());
    QCOMPARE(EditorManager::allEditors().size(), 2);
}

void TestSaveEditor::saveErrorsText()
{
    QMessageBox::StandardButtons buttons;
    ModalDialog box([&buttons](QWidget *widget) {
        buttons = qobject_cast<QMessageBox *>(widget)->standardButtons();
        ModalDialog::press(QMessageBox::Ok)(widget);
    });

    Core::private_impl::saveError(QStringLiteral("/a/b"), QStringLiteral("reason %1"));

    QCOMPARE(box.text(), QString(QStringLiteral("Can not save to file \"")
                                 + QDir::toNativeSeparators(QStringLiteral("/a/b"))
                                 + QStringLiteral("\"\nreason %1")));
    QCOMPARE(box.parentOfDialog(), ViewManager::mainWindow());
    QCOMPARE(buttons, QMessageBox::Ok);
}

void TestSaveEditor::closeAllEditorsInOrder()
{
    open(QStringLiteral("b.txt"));
    open(QStringLiteral("a.txt"));
    m_journal.clear();

    QVERIFY(EditorManager::closeAllEditors());

    QCOMPARE(m_journal.filter(QStringLiteral("asked")), texts({"b.txt asked", "a.txt asked"}));
    QVERIFY(EditorManager::allEditors().isEmpty());
}

void TestSaveEditor::closeAllEditorsStopsAtARefusal()
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

void TestSaveEditor::closeAllEditorsWithoutEditors()
{
    QVERIFY(EditorManager::closeAllEditors());
}

void TestSaveEditor::closeAllEditorsLeavesOtherViews()
{
    open(QStringLiteral("a.txt"));
    auto *view = new TestView(QStringLiteral("no editor"));
    ViewManager::showView(view);

    QVERIFY(EditorManager::closeAllEditors());

    QCOMPARE(view->asked, 0);
    QCOMPARE(ViewManager::currentView(), view);
}

void TestSaveEditor::closeAllEditorsWhenOneTakesAnotherAlong()
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

void TestSaveEditor::closedEditorIsReportedNoMore()
{
    TestEditor *editor = open(QStringLiteral("a.txt"));
    int saved = 0;
    connect(EditorManager::instance(), &EditorManager::fileSaved, this, [&saved] { ++saved; });

    EditorManager::closeEditor(editor);
    Q_EMIT editor->saved(); // it is destroyed later

    QCOMPARE(saved, 0);
}

void TestSaveEditor::closedEditorUpdatesTheCommands()
{
    TestEditor *first = open(QStringLiteral("a.txt"), true);
    open(QStringLiteral("b.txt"));
    QVERIFY(d()->actSaveAll->isEnabled());

    EditorManager::closeEditor(first);

    QVERIFY(!d()->actSaveAll->isEnabled());
}

void TestSaveEditor::closingOtherViewsLeavesTheEditors()
{
    TestEditor *editor = open(QStringLiteral("a.txt"));
    auto *view = new TestView(QStringLiteral("no editor"));
    ViewManager::showView(view);

    ViewManager::closeView(view);

    QCOMPARE(EditorManager::allEditors(), QList<IEditor *>{editor});
    QCOMPARE(EditorManager::currentEditor(), editor);
}

void TestSaveEditor::closingKeepsTheCurrentEditorUntilTheNextIsReported()
{
    TestEditor *editor = open(QStringLiteral("a.txt"));

    EditorManager::instance()->onEditorClosed(editor);
    QCOMPARE(EditorManager::currentEditor(), editor);

    EditorManager::instance()->onCurrentViewChanged(nullptr);
    QCOMPARE(EditorManager::currentEditor(), nullptr);
}

QTEST_MAIN(TestSaveEditor)
#include "tst_saveeditor.moc"
