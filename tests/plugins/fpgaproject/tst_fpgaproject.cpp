// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "projectfolder.h"

#include "support/corefixture.h"
#include "support/fulldisk.h"
#include "support/modaldialog.h"
#include "support/testeditor.h"

#include <fpgaproject/project/fpgaproject.h>
#include <fpgaproject/project/fpgaprojectfactory.h>
#include <idecore/editors/editormanager.h>

#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using Fpga::FileChanges;
using Fpga::FpgaProject;

namespace {

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

/// Takes the right to write into a folder away, also from the administrator, whom
/// rights do not bind, while it lives.
class ReadOnlyFolder final
{
public:
    explicit ReadOnlyFolder(const QString &folder)
        : m_folder(QFile::encodeName(folder))
    {
        chmod(m_folder.constData(), 0555);
        if (m_user == 0 && seteuid(65534) != 0)
            QTest::qFail("the rights could not be given up", __FILE__, __LINE__);
    }
    ~ReadOnlyFolder()
    {
        if (m_user == 0 && seteuid(0) != 0)
            qFatal("the rights could not be taken back");
        chmod(m_folder.constData(), 0700);
    }
    Q_DISABLE_COPY(ReadOnlyFolder)

private:
    const QByteArray m_folder;
    const uid_t m_user = geteuid();
};

} // namespace

class TestFpgaProject : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theFactoryMakesProjectsOfItsTemplate();
    void anOpenProjectKnowsItsPlace();
    void aProjectWithoutANameIsCalledAfterItsFile();
    void filesAreGivenAsAbsolutePaths();
    void anUnreadableProjectIsRefusedWithFileLineAndReason();
    void openingReadsWhatIsThereByThen();
    void openingSaysWhyItFails();
    void openingTheFileDoesNotChangeIt();
    void addedFilesAreInTheFileAtOnce();
    void aFileOutsideTheFolderIsAddedByARelativePath();
    void addingAFileTwiceChangesNothing();
    void aMissingFileIsNotAdded();
    void aFolderIsNotAdded();
    void aNameThatXmlCannotHoldIsNotAdded();
    void aChangeIsAnnouncedWithWhatChanged();
    void aChangeThatCannotBeWrittenIsNotMade_data();
    void aChangeThatCannotBeWrittenIsNotMade();
    void aFolderThatIsGoneIsSaid();
    void whatAnotherProcessWroteIsKept();
    void aProjectFileBrokenByOthersIsNotOverwritten();
    void aChangeOfNothingDoesNotTouchTheFile();
    void renamingRenamesTheFileOnDisk();
    void renamingNeverOverwrites();
    void aMissingFileIsRenamedInTheProject();
    void anImpossibleNameIsRefused_data();
    void anImpossibleNameIsRefused();
    void aRenamedFileStaysOpen();
    void aFileWithUnsavedChangesIsNotRenamed();
    void removingKeepsTheFile();
    void deviceAndTopAreStored();
};

void TestFpgaProject::theFactoryMakesProjectsOfItsTemplate()
{
    Fpga::FpgaProjectFactory factory;

    QCOMPARE(factory.projectTemplate(), named("FPGA"));
    const std::unique_ptr<Core::IProject> project(factory.createProject());
    QVERIFY(qobject_cast<FpgaProject *>(project.get()));
}

void TestFpgaProject::anOpenProjectKnowsItsPlace()
{
    const CoreFixture core;
    const ProjectFolder folder;
    FpgaProject project;

    QVERIFY(project.canOpen(folder.project()));
    QVERIFY(project.open(folder.project()));

    QCOMPARE(project.displayName(), named("Test"));
    QCOMPARE(project.fileName(), folder.project());
    QCOMPARE(project.projectDir(), folder.path());
}

void TestFpgaProject::aProjectWithoutANameIsCalledAfterItsFile()
{
    const CoreFixture core;
    const ProjectFolder folder;
    FpgaProject project;

    QVERIFY(project.open(folder.put(named("my.board.kprj"), "<P><Template>FPGA</Template></P>")));

    QCOMPARE(project.displayName(), named("my.board"));
}

void TestFpgaProject::filesAreGivenAsAbsolutePaths()
{
    const CoreFixture core;
    const ProjectFolder folder({named("a.v"), named("rtl/b.v"), named("!../c.v")});
    FpgaProject project;
    QVERIFY(project.open(folder.project()));

    const QString above = QFileInfo(folder.path()).absolutePath();
    QCOMPARE(project.files(), QStringList({above + named("/c.v"), folder.path(named("a.v")),
                                           folder.path(named("rtl/b.v"))}));
}

void TestFpgaProject::anUnreadableProjectIsRefusedWithFileLineAndReason()
{
    const CoreFixture core;
    const ProjectFolder folder;
    const QString bad = folder.put(named("bad.kprj"), "<P>\n<Template>FPGA</Template>\n<Files>");
    FpgaProject project;
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QVERIFY(!project.canOpen(bad));

    QCOMPARE(box.title(), named("Open Project"));
    QVERIFY2(box.text().startsWith(named("Can not open project \"%1\"\n%1, line 3: ").arg(bad)),
             qPrintable(box.text()));
}

void TestFpgaProject::openingReadsWhatIsThereByThen()
{
    const CoreFixture core;
    const ProjectFolder folder;
    FpgaProject project;
    QVERIFY(project.canOpen(folder.project()));
    folder.put(named("p.kprj"), "<P><Template>FPGA</Template><Name>Later</Name></P>");

    QVERIFY(project.open(folder.project()));

    QCOMPARE(project.displayName(), named("Later"));
}

void TestFpgaProject::openingSaysWhyItFails()
{
    const CoreFixture core;
    const ProjectFolder folder;
    FpgaProject project;
    QVERIFY(project.canOpen(folder.project()));
    QVERIFY(QFile::remove(folder.project()));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QVERIFY(!project.open(folder.project()));

    QVERIFY2(box.text().endsWith(named("No such file or directory")), qPrintable(box.text()));
}

void TestFpgaProject::openingTheFileDoesNotChangeIt()
{
    const CoreFixture core;
    const ProjectFolder folder;
    const QByteArray before = "<P>  <Template>FPGA</Template><Files/></P>";
    folder.put(named("p.kprj"), before);
    FpgaProject project;

    QVERIFY(project.open(folder.project()));
    QVERIFY(project.close());

    QCOMPARE(folder.contents(named("p.kprj")), before);
}

void TestFpgaProject::addedFilesAreInTheFileAtOnce()
{
    const CoreFixture core;
    const ProjectFolder folder;
    FpgaProject project;
    QVERIFY(project.open(folder.project()));

    QVERIFY(project.addFiles({folder.put(named("rtl/a.v")), folder.put(named("t.sdc"))}));

    const QByteArray xml = folder.contents(named("p.kprj"));
    QVERIFY(xml.contains("<File path=\"rtl/a.v\" kind=\"verilog\" enabled=\"true\"/>"));
    QVERIFY(xml.contains("<File path=\"t.sdc\" kind=\"timing-constraint\" enabled=\"true\"/>"));
    QVERIFY(!xml.contains(folder.path().toUtf8()));
}

void TestFpgaProject::aFileOutsideTheFolderIsAddedByARelativePath()
{
    const CoreFixture core;
    const ProjectFolder folder;
    const QString inner = folder.put(named("deep/q.kprj"), "<P><Template>FPGA</Template></P>");
    FpgaProject project;
    QVERIFY(project.open(inner));

    QVERIFY(project.addFiles({folder.put(named("shared/a.v"))}));

    QCOMPARE(project.document().files().first().path, named("../shared/a.v"));
    QCOMPARE(project.files(), QStringList(folder.path(named("shared/a.v"))));
}

void TestFpgaProject::addingAFileTwiceChangesNothing()
{
    const CoreFixture core;
    const ProjectFolder folder({named("a.v")});
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    project.setEnabled({named("a.v")}, false);
    const QByteArray before = folder.contents(named("p.kprj"));

    QVERIFY(project.addFiles({folder.path(named("a.v"))}));

    QCOMPARE(folder.contents(named("p.kprj")), before);
}

void TestFpgaProject::aMissingFileIsNotAdded()
{
    const CoreFixture core;
    const ProjectFolder folder;
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QVERIFY(!project.addFiles({folder.put(named("a.v")), folder.path(named("none.v"))}));

    QCOMPARE(box.text(), named("Can not add file \"%1\"\nThe file does not exist.")
                             .arg(folder.path(named("none.v"))));
    QVERIFY(project.files().isEmpty());
}

void TestFpgaProject::aFolderIsNotAdded()
{
    const CoreFixture core;
    const ProjectFolder folder;
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QVERIFY(!project.addFiles({folder.path()}));

    QVERIFY(box.text().endsWith(named("This is not a file.")));
}

void TestFpgaProject::aNameThatXmlCannotHoldIsNotAdded()
{
    const CoreFixture core;
    const ProjectFolder folder;
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QVERIFY(!project.addFiles({folder.put(named("a\x01.v"))}));

    QVERIFY(box.text().contains(named("control character")));
}

void TestFpgaProject::aChangeIsAnnouncedWithWhatChanged()
{
    const CoreFixture core;
    const ProjectFolder folder({named("a.v"), named("b.v"), named("c.v")});
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    const QSignalSpy files(&project, &FpgaProject::filesChanged);
    const QSignalSpy settings(&project, &FpgaProject::settingsChanged);

    project.setEnabled({named("b.v"), named("none.v")}, false);

    QCOMPARE(files.size(), 1);
    const auto changes = files.first().first().value<FileChanges>();
    QCOMPARE(changes.changed, QStringList(named("b.v")));
    QVERIFY(changes.added.isEmpty() && changes.removed.isEmpty());
    QCOMPARE(settings.size(), 0);
}

void TestFpgaProject::aChangeThatCannotBeWrittenIsNotMade_data()
{
    QTest::addColumn<bool>("fullDisk");
    QTest::newRow("full disk") << true;
    QTest::newRow("folder without write permission") << false;
}

void TestFpgaProject::aChangeThatCannotBeWrittenIsNotMade()
{
    QFETCH(bool, fullDisk);
    const CoreFixture core;
    const ProjectFolder folder({named("a.v")});
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    const QByteArray before = folder.contents(named("p.kprj"));
    const QSignalSpy changes(&project, &FpgaProject::filesChanged);
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));
    bool done = true;
    if (fullDisk) {
        const FullDisk full(8);
        done = project.setEnabled({named("a.v")}, false);
    } else {
        const ReadOnlyFolder locked(folder.path());
        done = project.setEnabled({named("a.v")}, false);
    }

    QVERIFY(!done);
    QCOMPARE(box.title(), named("Save Project"));
    const QString start = named("Can not save project \"%1\"\n").arg(folder.project());
    QVERIFY2(box.text().startsWith(start) && box.text().size() > start.size(),
             qPrintable(box.text()));
    QCOMPARE(project.document().files().first().enabled, true);
    QCOMPARE(changes.size(), 0);
    QCOMPARE(folder.contents(named("p.kprj")), before);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
             QStringList({named("a.v"), named("p.kprj")}));
}

void TestFpgaProject::aFolderThatIsGoneIsSaid()
{
    const CoreFixture core;
    FpgaProject project;
    {
        const ProjectFolder folder({named("a.v")});
        QVERIFY(project.open(folder.project()));
    }
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QVERIFY(!project.removeFiles({named("a.v")}));

    QVERIFY2(box.text().endsWith(named("No such file or directory")), qPrintable(box.text()));
    QCOMPARE(project.files().size(), 1);
    QVERIFY(project.close());
}

void TestFpgaProject::whatAnotherProcessWroteIsKept()
{
    const CoreFixture core;
    const ProjectFolder folder({named("a.v"), named("b.v")});
    FpgaProject one;
    FpgaProject other;
    QVERIFY(one.open(folder.project()));
    QVERIFY(other.open(folder.project()));

    QVERIFY(one.removeFiles({named("a.v")}));
    QVERIFY(other.setEnabled({named("b.v")}, false));

    FpgaProject both;
    QVERIFY(both.open(folder.project()));
    QCOMPARE(both.document().files().size(), 1);
    QCOMPARE(both.document().files().first().enabled, false);
}

void TestFpgaProject::aProjectFileBrokenByOthersIsNotOverwritten()
{
    const CoreFixture core;
    const ProjectFolder folder({named("a.v")});
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    folder.put(named("p.kprj"), "<<<<<<< mine");
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QVERIFY(!project.setEnabled({named("a.v")}, false));

    QVERIFY2(box.text().contains(named("p.kprj, line 1: ")), qPrintable(box.text()));
    QCOMPARE(folder.contents(named("p.kprj")), QByteArray("<<<<<<< mine"));
}

void TestFpgaProject::aChangeOfNothingDoesNotTouchTheFile()
{
    const CoreFixture core;
    const ProjectFolder folder;
    const QByteArray before = "<P> <Template>FPGA</Template> <Files><File path='a.v'/></Files></P>";
    folder.put(named("p.kprj"), before);
    FpgaProject project;
    QVERIFY(project.open(folder.project()));

    QVERIFY(project.setEnabled({named("a.v")}, true));

    QCOMPARE(folder.contents(named("p.kprj")), before);
}

void TestFpgaProject::renamingRenamesTheFileOnDisk()
{
    const CoreFixture core;
    const ProjectFolder folder({named("rtl/a.v")});
    FpgaProject project;
    QVERIFY(project.open(folder.project()));

    QVERIFY(project.renameFile(named("rtl/a.v"), named("b.sv")));

    QVERIFY(!QFileInfo::exists(folder.path(named("rtl/a.v"))));
    QVERIFY(QFileInfo::exists(folder.path(named("rtl/b.sv"))));
    QVERIFY(folder.contents(named("p.kprj")).contains("path=\"rtl/b.sv\" kind=\"systemverilog\""));
}

void TestFpgaProject::renamingNeverOverwrites()
{
    const CoreFixture core;
    const ProjectFolder folder({named("a.v")});
    folder.put(named("b.v"), "precious");
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QVERIFY(!project.renameFile(named("a.v"), named("b.v")));

    QVERIFY2(box.text().endsWith(named("There is a file of that name.")), qPrintable(box.text()));
    QCOMPARE(folder.contents(named("b.v")), QByteArray("precious"));
    QVERIFY(project.document().file(named("a.v")));
}

void TestFpgaProject::aMissingFileIsRenamedInTheProject()
{
    const CoreFixture core;
    const ProjectFolder folder({named("!a.v")});
    FpgaProject project;
    QVERIFY(project.open(folder.project()));

    QVERIFY(project.renameFile(named("a.v"), named("b.v")));

    QVERIFY(project.document().file(named("b.v")));
}

void TestFpgaProject::anImpossibleNameIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QString();
    QTest::newRow("this folder") << named(".");
    QTest::newRow("the folder above") << named("..");
    QTest::newRow("another folder") << named("x/b.v");
    QTest::newRow("a control character") << named("\x02.v");
    QTest::newRow("of another file") << named("c.v");
    QTest::newRow("too long") << QString(256, QLatin1Char('n'));
}

void TestFpgaProject::anImpossibleNameIsRefused()
{
    const CoreFixture core;
    QFETCH(QString, name);
    const ProjectFolder folder({named("a.v"), named("!c.v")});
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QVERIFY(!project.renameFile(named("a.v"), name));

    QVERIFY2(
        box.text().startsWith(named("Can not rename file \"%1\"\n").arg(folder.path(named("a.v")))),
        qPrintable(box.text()));
    QVERIFY(QFileInfo::exists(folder.path(named("a.v"))));
}

void TestFpgaProject::aRenamedFileStaysOpen()
{
    const CoreFixture core;
    TestEditorFactory factory({named("text/plain")});
    const InPool offered(&factory);
    const ProjectFolder folder({named("a.v")});
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    QVERIFY(Core::EditorManager::openEditor(folder.path(named("a.v"))));

    QVERIFY(project.renameFile(named("a.v"), named("b.v")));

    QVERIFY(!Core::EditorManager::editorForFile(folder.path(named("a.v"))));
    QVERIFY(Core::EditorManager::editorForFile(folder.path(named("b.v"))));
}

void TestFpgaProject::aFileWithUnsavedChangesIsNotRenamed()
{
    const CoreFixture core;
    TestEditorFactory factory({named("text/plain")});
    const InPool offered(&factory);
    const ProjectFolder folder({named("a.v")});
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    QVERIFY(Core::EditorManager::openEditor(folder.path(named("a.v"))));
    factory.last->setModified(true);
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QVERIFY(!project.renameFile(named("a.v"), named("b.v")));

    QVERIFY2(box.text().contains(named("unsaved changes")), qPrintable(box.text()));
    QVERIFY(QFileInfo::exists(folder.path(named("a.v"))));
}

void TestFpgaProject::removingKeepsTheFile()
{
    const CoreFixture core;
    const ProjectFolder folder({named("a.v"), named("b.v")});
    FpgaProject project;
    QVERIFY(project.open(folder.project()));

    QVERIFY(project.removeFiles({named("a.v")}));

    QCOMPARE(project.files(), QStringList(folder.path(named("b.v"))));
    QVERIFY(QFileInfo::exists(folder.path(named("a.v"))));
}

void TestFpgaProject::deviceAndTopAreStored()
{
    const CoreFixture core;
    const ProjectFolder folder({named("a.v")});
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    const QSignalSpy settings(&project, &FpgaProject::settingsChanged);

    QVERIFY(project.setTop({named("core"), named("a.v")}));
    QVERIFY(project.setDevice({named("P"), named("Q"), named("R")}));

    QCOMPARE(settings.size(), 2);
    const QByteArray xml = folder.contents(named("p.kprj"));
    QVERIFY(xml.contains("<Top file=\"a.v\">core</Top>"));
    QVERIFY(xml.contains("<Device part=\"P\" package=\"Q\" speedGrade=\"R\"/>"));
}

QTEST_MAIN(TestFpgaProject)
#include "tst_fpgaproject.moc"
