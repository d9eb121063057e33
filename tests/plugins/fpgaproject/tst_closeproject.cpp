// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Closing a project while files of it are open in editors.

#include "projectfolder.h"

#include "support/corefixture.h"
#include "support/modaldialog.h"
#include "support/testeditor.h"

#include <fpgaproject/project/fpgaproject.h>
#include <idecore/editors/editormanager.h>
#include <idecore/views/viewmanager.h>

#include <QAbstractButton>
#include <QMessageBox>
#include <QTest>

using Core::EditorManager;
using Fpga::FpgaProject;

namespace {

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

} // namespace

/// A project of two files with both open, "a.v" and "b.v", and one of somebody
/// else, "other.v".
class OpenFiles final
{
public:
    OpenFiles()
        : m_offered(&factory)
    {
        factory.prepare = [this](TestEditor *editor) { editor->setJournal(&journal); };
        project.open(folder.project());
        for (const char *name : {"a.v", "b.v", "other.v"})
            EditorManager::openEditor(folder.put(named(name)));
    }

    TestEditor *editor(const char *name) const
    {
        return qobject_cast<TestEditor *>(EditorManager::editorForFile(folder.path(named(name))));
    }

    const CoreFixture core;
    TestEditorFactory factory{QStringList(named("text/plain"))};
    QStringList journal;
    const ProjectFolder folder{QStringList({named("a.v"), named("b.v")})};
    FpgaProject project;

private:
    const InPool m_offered;
};

class TestCloseProject : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void nothingIsAskedWithoutUnsavedChanges();
    void editorsOfTheProjectCloseAndOthersStay();
    void unsavedChangesAreAskedAboutOnce();
    void theButtonsAreSaveAllDiscardAndCancel();
    void saveAllSavesAndCloses();
    void discardClosesWithoutSaving();
    void discardClosesAnEditorThatCannotReadItsFile();
    void cancelKeepsEverything();
    void escapeIsCancel();
    void aFailedSaveKeepsTheProjectOpen();
    void unsavedChangesOfOthersAreNotAskedAbout();
    void aLinkToAFileOfTheProjectCounts();
    void theProjectFileItselfCounts();
};

void TestCloseProject::nothingIsAskedWithoutUnsavedChanges()
{
    OpenFiles files;

    QVERIFY(files.project.close());

    QVERIFY(!QApplication::activeModalWidget());
}

void TestCloseProject::editorsOfTheProjectCloseAndOthersStay()
{
    OpenFiles files;

    QVERIFY(files.project.close());

    QVERIFY(!files.editor("a.v"));
    QVERIFY(!files.editor("b.v"));
    QVERIFY(files.editor("other.v"));
}

void TestCloseProject::unsavedChangesAreAskedAboutOnce()
{
    OpenFiles files;
    files.editor("a.v")->setModified(true);
    files.editor("b.v")->setModified(true);
    QString names;
    // A second dialog would be left open, and the call would not come back.
    ModalDialog box([&](QWidget *widget) {
        names = static_cast<QMessageBox *>(widget)->informativeText();
        ModalDialog::press(QMessageBox::SaveAll)(widget);
    });

    QVERIFY(files.project.close());

    QCOMPARE(box.title(), named("Close Project"));
    QCOMPARE(box.text(), named("Files of the project \"Test\" have unsaved changes."));
    QCOMPARE(names,
             files.folder.path(named("a.v")) + QLatin1Char('\n') + files.folder.path(named("b.v")));
}

void TestCloseProject::theButtonsAreSaveAllDiscardAndCancel()
{
    OpenFiles files;
    files.editor("a.v")->setModified(true);
    QStringList buttons;
    ModalDialog box([&](QWidget *widget) {
        auto *message = static_cast<QMessageBox *>(widget);
        for (const auto id : {QMessageBox::SaveAll, QMessageBox::Discard, QMessageBox::Cancel})
            buttons.append(message->button(id)->text().remove(QLatin1Char('&')));
        QCOMPARE(message->buttons().size(), 3);
        ModalDialog::press(QMessageBox::Cancel)(widget);
    });

    QVERIFY(!files.project.close());

    QCOMPARE(buttons, texts({"Save All", "Discard", "Cancel"}));
}

void TestCloseProject::saveAllSavesAndCloses()
{
    OpenFiles files;
    files.editor("b.v")->setModified(true);
    files.journal.clear();
    ModalDialog box(ModalDialog::press(QMessageBox::SaveAll));

    QVERIFY(files.project.close());

    QVERIFY2(files.journal.contains(named("b.v save")),
             qPrintable(files.journal.join(QLatin1Char('\n'))));
    QVERIFY(!files.editor("b.v"));
}

void TestCloseProject::discardClosesWithoutSaving()
{
    OpenFiles files;
    files.editor("a.v")->setModified(true);
    files.journal.clear();
    ModalDialog box(ModalDialog::press(QMessageBox::Discard));

    QVERIFY(files.project.close());

    QVERIFY(files.journal.filter(named("save")).isEmpty());
    QTRY_VERIFY(!files.editor("a.v"));
}

void TestCloseProject::discardClosesAnEditorThatCannotReadItsFile()
{
    OpenFiles files;
    files.editor("a.v")->setModified(true);
    files.editor("a.v")->failOpen = true;
    files.editor("a.v")->refuseClose = true;
    ModalDialog box(ModalDialog::press(QMessageBox::Discard));

    QVERIFY(files.project.close());

    QTRY_VERIFY(!files.editor("a.v"));
}

void TestCloseProject::cancelKeepsEverything()
{
    OpenFiles files;
    files.editor("a.v")->setModified(true);
    ModalDialog box(ModalDialog::press(QMessageBox::Cancel));

    QVERIFY(!files.project.close());

    QVERIFY(files.editor("a.v")->isModified());
    QVERIFY(files.editor("b.v"));
}

void TestCloseProject::escapeIsCancel()
{
    OpenFiles files;
    files.editor("a.v")->setModified(true);
    ModalDialog box(ModalDialog::cancel());

    QVERIFY(!files.project.close());

    QVERIFY(files.editor("a.v"));
}

void TestCloseProject::aFailedSaveKeepsTheProjectOpen()
{
    OpenFiles files;
    files.editor("a.v")->setModified(true);
    files.editor("a.v")->failSave = true;
    files.editor("a.v")->errorText = named("disk full");
    std::unique_ptr<ModalDialog> second;
    ModalDialog first([&](QWidget *widget) {
        second = std::make_unique<ModalDialog>(ModalDialog::press(QMessageBox::Ok));
        ModalDialog::press(QMessageBox::SaveAll)(widget);
    });

    QVERIFY(!files.project.close());

    QVERIFY2(second->text().endsWith(named("disk full")), qPrintable(second->text()));
    QVERIFY(files.editor("a.v")->isModified());
    QVERIFY(files.editor("b.v"));
}

void TestCloseProject::unsavedChangesOfOthersAreNotAskedAbout()
{
    OpenFiles files;
    files.editor("other.v")->setModified(true);

    QVERIFY(files.project.close());

    QVERIFY(files.editor("other.v")->isModified());
}

void TestCloseProject::aLinkToAFileOfTheProjectCounts()
{
    OpenFiles files;
    const QString link = files.folder.path(named("link.v"));
    QVERIFY(QFile::link(files.folder.path(named("a.v")), link));
    EditorManager::openEditor(link);

    QVERIFY(files.project.close());

    QVERIFY(!files.editor("link.v"));
}

void TestCloseProject::theProjectFileItselfCounts()
{
    OpenFiles files;
    EditorManager::openEditor(files.folder.project());

    QVERIFY(files.project.close());

    QVERIFY(!files.editor("p.kprj"));
}

QTEST_MAIN(TestCloseProject)
#include "tst_closeproject.moc"
