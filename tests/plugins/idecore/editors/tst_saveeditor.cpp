// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editorfixture.h"
#include "support/messagerecorder.h"
#include "support/modaldialog.h"
#include "support/testview.h"

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
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <memory>

using Core::EditorManager;
using Core::ViewManager;
using Core::private_impl::EditorManagerPrivate;

namespace {

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
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init() { m_fixture = std::make_unique<EditorFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void saveSavesWithTheWaitCursor();
    void saveOfAnUnmodifiedEditorDoesNothing();
    void saveWithoutAnEditorDoesNothing();
    void saveReportsTheFile();
    void saveIsNoRecentFile();
    void failedSave();
    void failedSaveWithoutAReason();
    void editorDestroyedWhileSaving();
    void saveAsSavesUnderTheNewName();
    void saveAsOfAnUnmodifiedEditorRenamesTheCommands();
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

private:
    TestEditor *open(const QString &name, bool modified = false);

    QStringList m_journal;
    std::unique_ptr<EditorFixture> m_fixture;
};

TestEditor *TestSaveEditor::open(const QString &name, bool modified)
{
    m_fixture->factory.prepare = [this](TestEditor *editor) { editor->setJournal(&m_journal); };
    EditorManager::openEditor(m_fixture->makeFile(name), false);
    if (modified)
        m_fixture->factory.last->setModified(true);
    return m_fixture->factory.last;
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
    const QString other = m_fixture->folder.filePath(QStringLiteral("new.txt"));
    ModalDialog dialog(choose(other));

    EditorManager::instance()->onActSaveAs();

    QCOMPARE(editor->savedAs, QStringList{other});
    QVERIFY(editor->waitCursorWhileSaving);
    QVERIFY(!QApplication::overrideCursor());
    QCOMPARE(EditorManager::recentFiles(), (QStringList{other, old}));
}

void TestSaveEditor::saveAsOfAnUnmodifiedEditorRenamesTheCommands()
{
    TestEditor *editor = open(QStringLiteral("a.txt"));
    // One that tells of no change where there is none.
    editor->whileSaving = [editor] { editor->blockSignals(false); };
    editor->blockSignals(true);
    ModalDialog dialog(choose(m_fixture->folder.filePath(QStringLiteral("new.txt"))));

    EditorManager::instance()->onActSaveAs();

    QCOMPARE(d()->actSave->text(), QStringLiteral("&Save \"new.txt\""));
    QVERIFY(!d()->actSave->isEnabled());
    QCOMPARE(d()->actSaveAs->text(), QStringLiteral("Save \"new.txt\" &As..."));
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
    const QString other = m_fixture->folder.filePath(QStringLiteral("new.txt"));
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
        choose(m_fixture->folder.filePath(QStringLiteral("new.txt")))(widget);
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

QTEST_MAIN(TestSaveEditor)
#include "tst_saveeditor.moc"
