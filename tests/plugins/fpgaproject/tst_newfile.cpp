// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "projectfolder.h"

#include "support/corefixture.h"
#include "support/modaldialog.h"
#include "support/testeditor.h"

#include <fpgaproject/project/fpgaproject.h>
#include <fpgaproject/project/fpgaprojectfactory.h>
#include <fpgaproject/wizards/filecreation_p.h>
#include <fpgaproject/wizards/newfiledialog_p.h>
#include <fpgaproject/wizards/newfilewizard_p.h>
#include <idecore/editors/editormanager.h>
#include <idecore/interfaces/iproject.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTest>

using Fpga::FileKind;
using Fpga::NewFileDialog;
using Fpga::NewFileWizard;

namespace {

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

QLineEdit *edit(const QWidget &dialog, const char *name)
{
    auto *found = dialog.findChild<QLineEdit *>(named(name));
    if (!found)
        qFatal("there is no %s", name);
    return found;
}

QPushButton *okButton(const QWidget &dialog)
{
    return dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
}

QString errorOf(const QWidget &dialog)
{
    return dialog.findChild<QLabel *>(named("labelErrMsg"))->text();
}

void addPort(const QWidget &dialog, const char *name, int direction, int width)
{
    auto *table = dialog.findChild<QTableWidget *>();
    dialog.findChild<QPushButton *>(named("btnAddPort"))->click();
    const int row = table->rowCount() - 1;
    table->item(row, 0)->setText(named(name));
    qobject_cast<QComboBox *>(table->cellWidget(row, 1))->setCurrentIndex(direction);
    qobject_cast<QSpinBox *>(table->cellWidget(row, 2))->setValue(width);
}

} // namespace

class TestNewFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theFileNameFollowsTheModule();
    void typingBeginsInTheName();
    void anOwnFileNameStays();
    void withoutANameNothingCanBeMade();
    void aBadNameIsSaid();
    void twoPortsOfOneNameAreSaid();
    void thePreviewIsWhatIsWritten();
    void theHeaderIsOffAtFirst();
    void anExistingFileIsAskedAbout_data();
    void anExistingFileIsAskedAbout();
    void aFolderInItsPlaceIsSaid();
    void aFolderThatCannotBeMadeIsSaid();
    void theFolderIsMade();
    void constraintsNeedNoModule();
    void aFileThatComesMeanwhileIsNotOverwritten();
    void theWizardPutsTheFileIntoTheProjectAndOpensIt();
    void aCancelledWizardMakesNothing();
    void theWizardWorksWithoutAProject();
    void everyWizardSaysWhatItMakes();
};

void TestNewFile::theFileNameFollowsTheModule()
{
    const NewFileDialog dialog(FileKind::SystemVerilog, named("/d"));

    QTest::keyClicks(edit(dialog, "editName"), named("top"));

    QCOMPARE(edit(dialog, "editFileName")->text(), named("top.sv"));
    QCOMPARE(dialog.filePath(), named("/d/top.sv"));
}

void TestNewFile::typingBeginsInTheName()
{
    const NewFileDialog source(FileKind::Verilog, named("/d"));
    const NewFileDialog constraints(FileKind::TimingConstraint, named("/d"));

    QCOMPARE(source.focusWidget(), edit(source, "editName"));
    QCOMPARE(constraints.focusWidget(), edit(constraints, "editFileName"));
}

void TestNewFile::anOwnFileNameStays()
{
    const NewFileDialog dialog(FileKind::Verilog, named("/d"));
    QTest::keyClicks(edit(dialog, "editFileName"), named("x.v"));

    QTest::keyClicks(edit(dialog, "editName"), named("top"));

    QCOMPARE(edit(dialog, "editFileName")->text(), named("x.v"));
}

void TestNewFile::withoutANameNothingCanBeMade()
{
    const NewFileDialog dialog(FileKind::Verilog, named("/d"));

    QVERIFY(!okButton(dialog)->isEnabled());
    QVERIFY(errorOf(dialog).isEmpty());
}

void TestNewFile::aBadNameIsSaid()
{
    const NewFileDialog dialog(FileKind::Verilog, named("/d"));

    QTest::keyClicks(edit(dialog, "editName"), named("wire"));

    QVERIFY(!okButton(dialog)->isEnabled());
    QCOMPARE(errorOf(dialog), named("\"wire\" is a word of the language."));
}

void TestNewFile::twoPortsOfOneNameAreSaid()
{
    const NewFileDialog dialog(FileKind::Vhdl, named("/d"));
    QTest::keyClicks(edit(dialog, "editName"), named("top"));

    addPort(dialog, "clk", 0, 1);
    QVERIFY(okButton(dialog)->isEnabled());
    addPort(dialog, "CLK", 0, 1);

    QVERIFY(!okButton(dialog)->isEnabled());
    QCOMPARE(errorOf(dialog), named("There are two ports \"CLK\"."));
}

void TestNewFile::thePreviewIsWhatIsWritten()
{
    const ProjectFolder folder;
    NewFileDialog dialog(FileKind::Verilog, folder.path());
    QTest::keyClicks(edit(dialog, "editName"), named("top"));
    addPort(dialog, "data", 1, 8);
    const QString preview = dialog.findChild<QPlainTextEdit *>()->toPlainText();

    okButton(dialog)->click();

    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(QString::fromUtf8(folder.contents(named("top.v"))), preview);
    QVERIFY(preview.contains(named("output wire [7:0] data")));
}

void TestNewFile::theHeaderIsOffAtFirst()
{
    const NewFileDialog dialog(FileKind::TimingConstraint, named("/d"));
    auto *header = dialog.findChild<QCheckBox *>(named("checkHeader"));
    const auto preview = [&] { return dialog.findChild<QPlainTextEdit *>()->toPlainText(); };

    QVERIFY(!header->isChecked());
    QVERIFY(!preview().startsWith(named("# timing.sdc\n")));
    header->click();
    QVERIFY(preview().startsWith(named("# timing.sdc\n# 20")));
}

void TestNewFile::anExistingFileIsAskedAbout_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("replaced");
    QTest::newRow("yes") << int(QMessageBox::Yes) << true;
    QTest::newRow("no") << int(QMessageBox::No) << false;
    QTest::newRow("Escape") << 0 << false;
}

void TestNewFile::anExistingFileIsAskedAbout()
{
    QFETCH(int, answer);
    QFETCH(bool, replaced);
    const ProjectFolder folder;
    folder.put(named("top.v"), "precious");
    NewFileDialog dialog(FileKind::Verilog, folder.path());
    QTest::keyClicks(edit(dialog, "editName"), named("top"));
    ModalDialog box(answer ? ModalDialog::press(answer) : ModalDialog::cancel());

    okButton(dialog)->click();

    QVERIFY(box.text().contains(named("exists")));
    QCOMPARE(folder.contents(named("top.v")) != "precious", replaced);
    QCOMPARE(dialog.result() == QDialog::Accepted, replaced);
}

void TestNewFile::aFolderInItsPlaceIsSaid()
{
    const ProjectFolder folder;
    QVERIFY(QDir().mkdir(folder.path(named("top.v"))));
    NewFileDialog dialog(FileKind::Verilog, folder.path());
    QTest::keyClicks(edit(dialog, "editName"), named("top"));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    okButton(dialog)->click();

    QVERIFY(box.text().endsWith(named("There is a folder of that name.")));
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void TestNewFile::aFolderThatCannotBeMadeIsSaid()
{
    const ProjectFolder folder;
    folder.put(named("file"));
    NewFileDialog dialog(FileKind::Verilog, folder.path(named("file/src")));
    QTest::keyClicks(edit(dialog, "editName"), named("top"));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    okButton(dialog)->click();

    QCOMPARE(box.text(), named("Can not create file \"%1\"\nNot a directory")
                             .arg(folder.path(named("file/src/top.v"))));
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void TestNewFile::theFolderIsMade()
{
    const ProjectFolder folder;
    NewFileDialog dialog(FileKind::Verilog, folder.path(named("src/deep")));
    QTest::keyClicks(edit(dialog, "editName"), named("top"));

    okButton(dialog)->click();

    QVERIFY(QFileInfo::exists(folder.path(named("src/deep/top.v"))));
}

void TestNewFile::constraintsNeedNoModule()
{
    const ProjectFolder folder;
    NewFileDialog dialog(FileKind::PhysicalConstraint, folder.path());

    QVERIFY(!dialog.findChild<QLineEdit *>(named("editName")));
    okButton(dialog)->click();

    QVERIFY(QFileInfo::exists(folder.path(named("pins.pcn"))));
}

void TestNewFile::aFileThatComesMeanwhileIsNotOverwritten()
{
    const ProjectFolder folder;
    const QString path = folder.put(named("a.v"), "precious");
    QString reason;

    QVERIFY(!Fpga::writeNewFile(path, "new", Fpga::Overwrite::Never, &reason));

    QCOMPARE(reason, named("File exists"));
    QCOMPARE(folder.contents(named("a.v")), QByteArray("precious"));
}

void TestNewFile::theWizardPutsTheFileIntoTheProjectAndOpensIt()
{
    const CoreFixture core;
    TestEditorFactory editors({named("text/plain")});
    const InPool editorsOffered(&editors);
    Fpga::FpgaProjectFactory projects;
    const InPool projectsOffered(&projects);
    const ProjectFolder folder;
    Core::ProjectManager::openProject(folder.project());
    QVERIFY(Core::ProjectManager::currentProject());
    NewFileWizard wizard(FileKind::Verilog);
    ModalDialog dialog([](QWidget *widget) {
        QTest::keyClicks(edit(*widget, "editName"), named("top"));
        QTest::keyClick(widget, Qt::Key_Return);
    });

    wizard.runWizard(Core::ViewManager::mainWindow(), folder.path(named("src")));

    const QString path = folder.path(named("src/top.v"));
    QCOMPARE(Core::ProjectManager::currentProject()->files(), QStringList(path));
    QVERIFY(Core::EditorManager::editorForFile(path));
    QVERIFY(Core::ProjectManager::closeCurrentProject());
}

void TestNewFile::aCancelledWizardMakesNothing()
{
    const CoreFixture core;
    const ProjectFolder folder;
    NewFileWizard wizard(FileKind::Vhdl);
    ModalDialog dialog([](QWidget *widget) {
        QTest::keyClicks(edit(*widget, "editName"), named("top"));
        QTest::keyClick(widget, Qt::Key_Escape);
    });

    wizard.runWizard(Core::ViewManager::mainWindow(), folder.path(named("src")));

    QVERIFY(!QFileInfo::exists(folder.path(named("src"))));
}

void TestNewFile::theWizardWorksWithoutAProject()
{
    const CoreFixture core;
    TestEditorFactory editors({named("text/plain")});
    const InPool offered(&editors);
    const ProjectFolder folder;
    NewFileWizard wizard(FileKind::TimingConstraint);
    ModalDialog dialog([](QWidget *widget) { QTest::keyClick(widget, Qt::Key_Return); });

    wizard.runWizard(Core::ViewManager::mainWindow(), folder.path());

    QVERIFY(Core::EditorManager::editorForFile(folder.path(named("timing.sdc"))));
}

void TestNewFile::everyWizardSaysWhatItMakes()
{
    const CoreFixture core;
    QStringList names;
    QStringList keys;
    for (const FileKind kind : {FileKind::Verilog, FileKind::SystemVerilog, FileKind::Vhdl,
                                FileKind::TimingConstraint, FileKind::PhysicalConstraint}) {
        const NewFileWizard wizard(kind);
        names.append(wizard.displayName());
        keys.append(wizard.sortKey());
        QVERIFY(!wizard.description().isEmpty());
        QVERIFY(!wizard.icon().isNull());
    }

    QCOMPARE(names, texts({"Verilog File", "SystemVerilog File", "VHDL File",
                           "Timing Constraints File", "Physical Constraints File"}));
    QCOMPARE(keys.removeDuplicates(), 0);
}

QTEST_MAIN(TestNewFile)
#include "tst_newfile.moc"
