// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "workbench.h"

#include "support/accessibilitywalk.h"

#include <extsys/pluginmanager.h>
#include <idecore/core/constants.h>
#include <idecore/editors/editormanager.h>
#include <idecore/interfaces/ieditor.h>
#include <idecore/interfaces/ioptionspage.h>
#include <idecore/interfaces/iwizardfactory.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/newdialog/thenewdialog.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/projects/projectsaveasdlg.h>
#include <idecore/views/viewmanager.h>
#include <utils/mdiarea.h>

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTableView>
#include <QWizard>

#include <algorithm>

using Core::EditorManager;
using Core::ViewManager;
using ExtSys::PluginManager;

namespace {

/// Opens a dialog and returns when it is closed.
using Opener = void (*)(const Workbench &);

void run(const char *name, const Workbench &workbench)
{
    const auto wizards = PluginManager::instance()->getObjects<Core::IWizardFactory>();
    for (Core::IWizardFactory *factory : wizards) {
        if (factory->displayName() == named(name)) {
            factory->runWizard(ViewManager::mainWindow(), workbench.path());
            return;
        }
    }
    QFAIL("there is no such wizard");
}

} // namespace

Q_DECLARE_METATYPE(Opener)

/// What the program shows is named, is read in order and is reached without a mouse.
class TestAccessibility final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theEmptyMainWindow();
    void theMainWindowWithAProjectAndEditors();
    void tiledDocuments();
    void anEditorWhoseFileHasChanged();
    void dialogs_data();
    void dialogs();
    void thePagesOfTheProjectWizard();
    void aNewFileWithPorts();
    void closingAnEditorWithChanges();
    void about();
    void changingTheDevice();
    void everyOptionsPage();
    void everyTabOfAnEditorSettingsPage();
    void tabGoesFromATabBarIntoItsPage();
    void anExternalEditor_data();
    void anExternalEditor();
    void recordingAKeyThatClashes();
};

void TestAccessibility::theEmptyMainWindow()
{
    const Workbench workbench;

    VERIFY_NONE(AccessibilityWalk::faults(ViewManager::mainWindow()));
}

void TestAccessibility::theMainWindowWithAProjectAndEditors()
{
    const Workbench workbench;
    workbench.openProject();
    workbench.openEditors();

    VERIFY_NONE(AccessibilityWalk::faults(ViewManager::mainWindow()));
}

void TestAccessibility::tiledDocuments()
{
    const Workbench workbench;
    workbench.openEditors();
    ViewManager::mainWindow()->findChild<Utils::MdiArea *>()->tileSubWindows();

    VERIFY_NONE(AccessibilityWalk::faults(ViewManager::mainWindow()));
}

void TestAccessibility::anEditorWhoseFileHasChanged()
{
    const Workbench workbench;
    workbench.openEditors();
    Core::IEditor *const editor = EditorManager::currentEditor();
    Workbench::change(editor);
    // The watch may miss what happens within the second in which it began.
    const auto isAsked = [editor] {
        QFile file(editor->fileName());
        if (!file.open(QIODevice::Append) || file.write("\n") != 1)
            return false;
        const QList<QWidget *> widgets = editor->findChildren<QWidget *>();
        return std::any_of(widgets.cbegin(), widgets.cend(), [](const QWidget *widget) {
            return widget->inherits("KMessageWidget") && widget->isVisible();
        });
    };
    QTRY_VERIFY(isAsked());

    VERIFY_NONE(AccessibilityWalk::faults(ViewManager::mainWindow()));
    const WalkedDialog closing;
    EditorManager::closeEditor(editor);
}

void TestAccessibility::dialogs_data()
{
    QTest::addColumn<Opener>("open");
    const auto add = [](const char *name, Opener open) { QTest::newRow(name) << open; };
    add("New", [](const Workbench &) { Core::TheNewDialog::showAllWizards(); });
    add("Save Project As", [](const Workbench &workbench) {
        Core::ProjectSaveAsDlg dialog(workbench.path(), named("blinky"), ViewManager::mainWindow());
        dialog.exec();
    });
    add("Verilog", [](const Workbench &workbench) { run("Verilog File", workbench); });
    add("SystemVerilog", [](const Workbench &workbench) { run("SystemVerilog File", workbench); });
    add("VHDL", [](const Workbench &workbench) { run("VHDL File", workbench); });
    add("timing", [](const Workbench &workbench) { run("Timing Constraints File", workbench); });
    add("physical",
        [](const Workbench &workbench) { run("Physical Constraints File", workbench); });
}

void TestAccessibility::dialogs()
{
    QFETCH(Opener, open);
    const Workbench workbench;
    const WalkedDialog dialog;

    open(workbench);

    VERIFY_NONE(dialog.faults);
}

void TestAccessibility::thePagesOfTheProjectWizard()
{
    const Workbench workbench;
    QStringList faults;
    int pages = 0;
    const ModalDialog dialog([&faults, &pages](QWidget *widget) {
        auto *const pageWizard = qobject_cast<QWizard *>(widget);
        QVERIFY(pageWizard);
        faults += AccessibilityWalk::faults(pageWizard);
        QTest::keyClicks(pageWizard->focusWidget(), named("demo"));
        pageWizard->next();
        faults += AccessibilityWalk::faults(pageWizard);
        pageWizard->findChild<QTableView *>()->selectRow(0);
        pageWizard->next();
        faults += AccessibilityWalk::faults(pageWizard);
        pages = pageWizard->visitedPages().size();
        pageWizard->reject();
    });

    run("FPGA Project", workbench);

    VERIFY_NONE(faults);
    QCOMPARE(pages, 3);
}

void TestAccessibility::aNewFileWithPorts()
{
    const Workbench workbench;
    QStringList faults;
    const ModalDialog dialog([&faults](QWidget *widget) {
        widget->findChild<QPushButton *>(named("btnAddPort"))->click();
        widget->findChild<QPushButton *>(named("btnAddPort"))->click();
        QTRY_VERIFY(widget->isVisible());
        faults = AccessibilityWalk::faults(widget);
        static_cast<QDialog *>(widget)->reject();
    });

    run("VHDL File", workbench);

    VERIFY_NONE(faults);
}

void TestAccessibility::closingAnEditorWithChanges()
{
    const Workbench workbench;
    workbench.openEditors();
    Core::IEditor *const editor = EditorManager::currentEditor();
    Workbench::change(editor);
    QStringList faults;
    {
        const ModalDialog question([&faults](QWidget *box) {
            faults = AccessibilityWalk::faults(box);
            static_cast<QDialog *>(box)->reject();
        });
        QVERIFY(!EditorManager::closeEditor(editor));
    }

    VERIFY_NONE(faults);
    const ModalDialog leave(ModalDialog::press(QMessageBox::Discard));
    EditorManager::closeEditor(editor);
}

void TestAccessibility::about()
{
    const Workbench workbench;
    const WalkedDialog dialog;

    QVERIFY(QMetaObject::invokeMethod(ViewManager::mainWindow(), "onAboutIde"));

    VERIFY_NONE(dialog.faults);
}

void TestAccessibility::changingTheDevice()
{
    const Workbench workbench;
    workbench.openProject();
    const WalkedDialog dialog;

    ViewManager::mainWindow()->findChild<QAction *>(named("ChangeDevice"))->trigger();

    VERIFY_NONE(dialog.faults);
}

void TestAccessibility::everyOptionsPage()
{
    const Workbench workbench;
    const ShownOptions options;
    const auto *categories = options.find<QListView>("categoryList");
    QStringList faults;
    int pages = 0;
    for (int row = 0; row < categories->model()->rowCount(); ++row) {
        options.choose(row);
        for (QTabWidget *tabs = options.tabs(); pages < 100;) {
            faults += options.faults();
            ++pages;
            if (tabs->currentIndex() + 1 == tabs->count())
                break;
            tabs->setCurrentIndex(tabs->currentIndex() + 1);
        }
    }

    VERIFY_NONE(faults);
    QCOMPARE(pages, PluginManager::instance()->getObjects<Core::IOptionsPage>().size());
}

void TestAccessibility::everyTabOfAnEditorSettingsPage()
{
    const Workbench workbench;
    QStringList faults;
    int tabs = 0;
    for (const char *page : {"A.Appearance", "B.Editing"}) {
        const ShownOptions options("B.TextEditor", page);
        auto *const inner = options.tabs()->currentWidget()->findChild<QTabWidget *>();
        QVERIFY(inner);
        for (int i = 0; i < inner->count(); ++i) {
            inner->setCurrentIndex(i);
            faults += options.faults();
            ++tabs;
        }
    }

    VERIFY_NONE(faults);
    QVERIFY2(tabs >= 5, qPrintable(QString::number(tabs)));
}

void TestAccessibility::tabGoesFromATabBarIntoItsPage()
{
    const Workbench workbench;
    const ShownOptions options("A.Core", "K.KeyBindings");
    QTabBar *const bar = options.tabs()->tabBar();
    bar->setFocus(Qt::TabFocusReason);

    QTest::keyClick(bar, Qt::Key_Tab);

    QCOMPARE(options.dialog()->focusWidget(), options.find<QWidget>("editFilter"));
}

void TestAccessibility::anExternalEditor_data()
{
    QTest::addColumn<bool>("modify");
    QTest::newRow("add") << false;
    QTest::newRow("modify") << true;
}

void TestAccessibility::anExternalEditor()
{
    QFETCH(bool, modify);
    const Workbench workbench;
    const ShownOptions options("BA.ExtEditor", "BA.ExtEditor");
    auto *const table = options.find<QTableView>("tableView");
    QStringList faults;
    const auto walk = [&](QWidget *dialog) {
        faults = AccessibilityWalk::faults(dialog);
        dialog->findChild<QLineEdit *>(named("editName"))->setText(named("an editor"));
        dialog->findChild<QLineEdit *>(named("editPath"))->setText(named("/bin/true"));
        faults += AccessibilityWalk::faults(dialog);
        static_cast<QDialog *>(dialog)->accept();
    };
    {
        const ModalDialog adding(walk);
        options.find<QPushButton>("btnAdd")->click();
    }
    if (modify) {
        faults.clear();
        table->selectRow(0);
        const ModalDialog modifying(walk);
        QTest::keyClick(table, Qt::Key_F2);
    }
    // The table with a row in it, and the buttons for it enabled.
    table->selectRow(0);
    faults += options.faults();

    VERIFY_NONE(faults);
}

void TestAccessibility::recordingAKeyThatClashes()
{
    const Workbench workbench;
    const ShownOptions options("A.Core", "K.KeyBindings");
    options.find<QLineEdit>("editFilter")->setText(named(Core::Constants::A_FILE_OPEN));
    auto *const recorder = options.find<QLineEdit>("editKey");
    QVERIFY(recorder->isEnabled());
    recorder->setFocus();
    QTest::keyClick(recorder, Qt::Key_S, Qt::ControlModifier);
    // Whose key it is, is told below.
    QVERIFY(!options.find<QLabel>("labelMessage")->text().isEmpty());
    QStringList faults = options.faults();

    const ModalDialog clash([&faults](QWidget *box) {
        faults += AccessibilityWalk::faults(box);
        static_cast<QDialog *>(box)->reject();
    });
    options.find<QPushButton>("btnAdd")->click();

    VERIFY_NONE(faults);
}

QTEST_MAIN(TestAccessibility)
#include "tst_accessibility.moc"
