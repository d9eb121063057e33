// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "projectfolder.h"

#include "support/corefixture.h"
#include "support/modaldialog.h"

#include <devicedb/devicedb.h>
#include <fpgaproject/project/fpgaproject.h>
#include <fpgaproject/project/fpgaprojectfactory.h>
#include <fpgaproject/wizards/devicepicker_p.h>
#include <fpgaproject/wizards/newprojectdialog_p.h>
#include <fpgaproject/wizards/newprojectwizard_p.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QAbstractButton>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTableView>
#include <QTest>

using Fpga::DevicePicker;
using Fpga::NewProject;
using Fpga::NewProjectDialog;

namespace {

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

const QVector<DEV::Device> &devices()
{
    static const DEV::DeviceDb table(QStringLiteral(DEVICE_TABLE));
    return table.rows();
}

QLineEdit *edit(const QWidget &widget, const char *name)
{
    auto *found = widget.findChild<QLineEdit *>(named(name));
    if (!found)
        qFatal("there is no %s", name);
    return found;
}

QString label(const QWidget &widget, const char *name)
{
    return widget.findChild<QLabel *>(named(name))->text();
}

/// Fills in the three pages, up to the last.
void fillIn(QWizard *dialog, const char *name, const char *device)
{
    QTest::keyClicks(edit(*dialog, "editPrjName"), named(name));
    dialog->next();
    QTest::keyClicks(edit(*dialog, "editFilter"), named(device));
    dialog->next();
}

} // namespace

class TestNewProject : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theNameTakesNoOtherCharactersThanASavedProjects_data();
    void theNameTakesNoOtherCharactersThanASavedProjects();
    void withoutANameThereIsNoNextPage();
    void aPathThatCannotBeOpenedIsRefused_data();
    void aPathThatCannotBeOpenedIsRefused();
    void typingNarrowsTheDevices_data();
    void typingNarrowsTheDevices();
    void theLastDeviceLeftIsChosen();
    void arrowKeysGoFromTheFilterToTheRows();
    void numbersAreSortedAsNumbers();
    void withoutADeviceThereIsNoNextPage();
    void anEmptyTableOfDevicesIsSaid();
    void theSummarySaysWhatIsMade();
    void theProjectIsMade();
    void anExistingProjectIsAskedAbout_data();
    void anExistingProjectIsAskedAbout();
    void anExistingFolderKeepsItsFiles();
    void aFolderThatCannotBeMadeIsSaid();
    void nothingIsLeftOfAProjectThatCouldNotBeWritten();
    void theWizardStartsInTheDefaultWorkFolderAndOpensTheProject();
    void aCancelledWizardMakesNothing();
};

void TestNewProject::theNameTakesNoOtherCharactersThanASavedProjects_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("taken");
    QTest::newRow("plain") << named("blinky_2-b") << named("blinky_2-b");
    QTest::newRow("blank and dot") << named("a b.c") << named("abc");
    QTest::newRow("all others") << named("x~<>/\\|:\"*?y") << named("xy");
}

void TestNewProject::theNameTakesNoOtherCharactersThanASavedProjects()
{
    QFETCH(QString, typed);
    QFETCH(QString, taken);
    NewProjectDialog dialog(named("/d"), devices());

    QTest::keyClicks(edit(dialog, "editPrjName"), typed);

    QCOMPARE(dialog.project().name, taken);
}

void TestNewProject::withoutANameThereIsNoNextPage()
{
    NewProjectDialog dialog(named("/d"), devices());
    dialog.restart();

    QVERIFY(!dialog.button(QWizard::NextButton)->isEnabled());
    QTest::keyClicks(edit(dialog, "editPrjName"), named("a"));
    QVERIFY(dialog.button(QWizard::NextButton)->isEnabled());
    edit(dialog, "editPrjName")->clear();
    QCOMPARE(label(dialog, "labelErrMsg"), named("Please enter a name for new project."));
}

void TestNewProject::aPathThatCannotBeOpenedIsRefused_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("good");
    QTest::newRow("a blank, then \"-\"") << named("/a -b") << named("p") << false;
    QTest::newRow("\"-\" begins a folder after a blank") << named("/a b/-x") << named("p") << false;
    QTest::newRow("\"-\" begins the name after a blank") << named("/a b") << named("-p") << false;
    QTest::newRow("\"-\" before a blank") << named("/a-b c") << named("p") << true;
    QTest::newRow("\"-\" inside a name") << named("/my designs") << named("blinky-board") << true;
    QTest::newRow("\"-\" without a blank") << named("/a") << named("-p") << true;
}

void TestNewProject::aPathThatCannotBeOpenedIsRefused()
{
    QFETCH(QString, folder);
    QFETCH(QString, name);
    QFETCH(bool, good);

    QCOMPARE(Fpga::faultOf({name, folder, {}}).isEmpty(), good);
}

void TestNewProject::typingNarrowsTheDevices_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("rows");
    QTest::newRow("nothing") << QString() << devices().size();
    QTest::newRow("a package, in another case") << named("ct256") << 1;
    QTest::newRow("words in any order") << named("sg48  up5k") << 1;
    QTest::newRow("a series") << named("ultraplus") << 3;
    QTest::newRow("nothing fits") << named("ct256 up5k") << 0;
    QTest::newRow("signs are no pattern") << named(".*") << 0;
}

void TestNewProject::typingNarrowsTheDevices()
{
    QFETCH(QString, text);
    QFETCH(int, rows);
    const DevicePicker picker(devices());

    QTest::keyClicks(edit(picker, "editFilter"), text);

    QCOMPARE(picker.findChild<QTableView *>()->model()->rowCount(), rows);
}

void TestNewProject::theLastDeviceLeftIsChosen()
{
    const DevicePicker picker(devices());
    QVERIFY(!picker.device());

    QTest::keyClicks(edit(picker, "editFilter"), named("hx8k ct256"));

    QVERIFY(picker.device());
    QCOMPARE(picker.device()->part, named("iCE40HX8K-CT256"));
}

void TestNewProject::arrowKeysGoFromTheFilterToTheRows()
{
    const DevicePicker picker(devices());

    QTest::keyClick(edit(picker, "editFilter"), Qt::Key_Down);
    QCOMPARE(picker.device()->part, devices().at(0).part);
    QTest::keyClick(edit(picker, "editFilter"), Qt::Key_Down);
    QCOMPARE(picker.device()->part, devices().at(1).part);
}

void TestNewProject::numbersAreSortedAsNumbers()
{
    const DevicePicker picker(devices());
    auto *table = picker.findChild<QTableView *>();
    const int column = 4; // logic cells

    table->sortByColumn(column, Qt::AscendingOrder);

    QList<int> numbers;
    for (int row = 0; row < table->model()->rowCount(); ++row)
        numbers.append(table->model()->index(row, column).data(Qt::UserRole).toInt());
    QVERIFY(std::is_sorted(numbers.cbegin(), numbers.cend()));
    QVERIFY(numbers.first() < 1000 && numbers.last() > 5000);
}

void TestNewProject::withoutADeviceThereIsNoNextPage()
{
    NewProjectDialog dialog(named("/d"), devices());
    dialog.restart();
    QTest::keyClicks(edit(dialog, "editPrjName"), named("a"));

    dialog.next();

    QVERIFY(!dialog.button(QWizard::NextButton)->isEnabled());
    QTest::keyClick(edit(dialog, "editFilter"), Qt::Key_Down);
    QVERIFY(dialog.button(QWizard::NextButton)->isEnabled());
}

void TestNewProject::anEmptyTableOfDevicesIsSaid()
{
    NewProjectDialog dialog(named("/d"), {});
    dialog.restart();
    QTest::keyClicks(edit(dialog, "editPrjName"), named("a"));

    dialog.next();

    QCOMPARE(label(dialog, "labelNone"), named("The table of devices is missing or empty."));
    QVERIFY(dialog.button(QWizard::NextButton)->isEnabled());
}

void TestNewProject::theSummarySaysWhatIsMade()
{
    NewProjectDialog dialog(named("/d"), devices());
    dialog.restart();

    fillIn(&dialog, "blinky", "ct256");

    QCOMPARE(label(dialog, "labelName"), named("blinky"));
    QCOMPARE(label(dialog, "labelFile"), named("/d/blinky/blinky.kprj"));
    QCOMPARE(label(dialog, "labelDevice"), named("iCE40HX8K-CT256"));
}

void TestNewProject::theProjectIsMade()
{
    const ProjectFolder folder;
    NewProjectDialog dialog(folder.path(), devices());
    dialog.restart();
    fillIn(&dialog, "blinky", "ct256");

    dialog.button(QWizard::FinishButton)->click();

    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(QFileInfo(folder.path(named("blinky/src"))).isDir());
    Fpga::ReadError error;
    const auto document =
        Fpga::ProjectDocument::read(folder.path(named("blinky/blinky.kprj")), &error);
    QVERIFY2(document, qPrintable(error.text()));
    QCOMPARE(document->name(), named("blinky"));
    QCOMPARE(document->device().part, named("iCE40HX8K-CT256"));
    QCOMPARE(document->device().package, named("CT256"));
    QCOMPARE(document->device().speedGrade, named("HX"));
}

void TestNewProject::anExistingProjectIsAskedAbout_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("replaced");
    QTest::newRow("yes") << int(QMessageBox::Yes) << true;
    QTest::newRow("no") << int(QMessageBox::No) << false;
    QTest::newRow("Escape") << 0 << false;
}

void TestNewProject::anExistingProjectIsAskedAbout()
{
    QFETCH(int, answer);
    QFETCH(bool, replaced);
    const ProjectFolder folder;
    folder.put(named("blinky/blinky.kprj"), "precious");
    NewProjectDialog dialog(folder.path(), devices());
    dialog.restart();
    fillIn(&dialog, "blinky", "ct256");
    ModalDialog box(answer ? ModalDialog::press(answer) : ModalDialog::cancel());

    dialog.button(QWizard::FinishButton)->click();

    QCOMPARE(folder.contents(named("blinky/blinky.kprj")) != "precious", replaced);
    QCOMPARE(dialog.result() == QDialog::Accepted, replaced);
}

void TestNewProject::anExistingFolderKeepsItsFiles()
{
    const ProjectFolder folder;
    folder.put(named("blinky/src/a.v"), "precious");
    QString reason;

    QVERIFY2(Fpga::createProject({named("blinky"), folder.path(), {}}, false, &reason),
             qPrintable(reason));

    QCOMPARE(folder.contents(named("blinky/src/a.v")), QByteArray("precious"));
}

void TestNewProject::aFolderThatCannotBeMadeIsSaid()
{
    const ProjectFolder folder;
    folder.put(named("file"));
    NewProjectDialog dialog(folder.path(named("file")), devices());
    dialog.restart();
    fillIn(&dialog, "blinky", "ct256");
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    dialog.button(QWizard::FinishButton)->click();

    QCOMPARE(box.text(), named("Can not create project \"%1\"\nNot a directory")
                             .arg(folder.path(named("file/blinky/blinky.kprj"))));
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void TestNewProject::nothingIsLeftOfAProjectThatCouldNotBeWritten()
{
    const ProjectFolder folder;
    const NewProject project{QString(300, QLatin1Char('n')).left(252), folder.path(), {}};
    QString reason;

    // The folder's name fits, that of the file does not.
    QVERIFY(!Fpga::createProject(project, false, &reason));

    QCOMPARE(reason, named("File name too long"));
    QVERIFY(!QFileInfo::exists(project.folder()));
}

void TestNewProject::theWizardStartsInTheDefaultWorkFolderAndOpensTheProject()
{
    const CoreFixture core;
    Fpga::FpgaProjectFactory factory;
    const InPool offered(&factory);
    const ProjectFolder folder;
    Core::ProjectManager::setDefaultWorkDir(folder.path());
    Fpga::NewProjectWizard wizard;
    ModalDialog dialog([](QWidget *widget) {
        auto *form = qobject_cast<QWizard *>(widget);
        const bool some =
            form->page(form->pageIds().at(1))->findChild<QTableView *>()->model()->rowCount() > 0;
        QTest::keyClicks(edit(*widget, "editPrjName"), named("blinky"));
        form->next();
        if (some)
            QTest::keyClick(edit(*widget, "editFilter"), Qt::Key_Down);
        form->next();
        form->button(QWizard::FinishButton)->click();
    });

    wizard.runWizard(Core::ViewManager::mainWindow(), named("/elsewhere"));

    QVERIFY(Core::ProjectManager::currentProject());
    QCOMPARE(Core::ProjectManager::currentProject()->fileName(),
             folder.path(named("blinky/blinky.kprj")));
    QVERIFY(Core::ProjectManager::closeCurrentProject());
}

void TestNewProject::aCancelledWizardMakesNothing()
{
    const CoreFixture core;
    const ProjectFolder folder;
    Core::ProjectManager::setDefaultWorkDir(folder.path());
    Fpga::NewProjectWizard wizard;
    ModalDialog dialog([](QWidget *widget) {
        QTest::keyClicks(edit(*widget, "editPrjName"), named("blinky"));
        QTest::keyClick(widget, Qt::Key_Escape);
    });

    wizard.runWizard(Core::ViewManager::mainWindow(), QString());

    QVERIFY(!QFileInfo::exists(folder.path(named("blinky"))));
    QVERIFY(!Core::ProjectManager::currentProject());
}

QTEST_MAIN(TestNewProject)
#include "tst_newproject.moc"
