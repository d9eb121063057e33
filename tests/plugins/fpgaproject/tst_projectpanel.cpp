// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "shownpanel.h"

#include "support/contrast.h"
#include "support/modaldialog.h"

#include <fpgaproject/fpgaprojectconstants.h>
#include <fpgaproject/panel/droppedfiles_p.h>
#include <fpgaproject/panel/filetreemodel_p.h>
#include <fpgaproject/panel/projectpanel_p.h>
#include <fpgaproject/project/fpgaproject.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <idecore/editors/editormanager.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFile>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>
#include <QTreeView>
#include <QUrl>

using Core::EditorManager;
using Fpga::FileTreeModel;
using Fpga::FpgaProject;
using Fpga::ProjectPanel;

class TestProjectPanel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void itDocksAtTheLeft();
    void withoutAProjectItSaysSo();
    void aProjectThatGoesLeavesItEmpty();
    void itShowsNameDeviceAndTop();
    void whatOthersWriteToTheProjectFileIsShown();
    void aProjectFileBrokenByOthersLeavesThePanelAsItIs();
    void missingAndDisabledFilesAreSeenToBe();
    void theIconOfASelectedFileStandsOut();
    void kindsStandOpen();
    void enterOpensTheSelectedFiles();
    void aDoubleClickOpensTheFile();
    void enterOnAKindFoldsIt();
    void theMenuOfAFile();
    void theMenuWithoutAFile();
    void theMenuKeyAsksForIt();
    void filesAreSwitchedOffAndOn();
    void deleteTakesFilesOutOfTheProject();
    void f2RenamesAFile();
    void aFailedRenameIsSaid();
    void theOnlyModuleBecomesTheTop();
    void ofSeveralModulesOneIsChosen();
    void aFileWithoutAModuleIsNoTop();
    void constraintsCannotBeTheTop();
    void pathsAreCopied();
    void theCopyCommandCopiesPaths();
    void droppedFilesAreAdded();
    void droppedFoldersBringTheirSources();
    void aMissingFileIsNamedWhenOpened();
};

void TestProjectPanel::itDocksAtTheLeft()
{
    const CoreFixture core;
    const ProjectPanel panel;

    QCOMPARE(panel.area(), Qt::LeftDockWidgetArea);
    QCOMPARE(panel.name(), named(Fpga::Constants::PROJECT_PANEL));
    QCOMPARE(panel.displayName(), named("Project"));
}

void TestProjectPanel::withoutAProjectItSaysSo()
{
    const CoreFixture core;
    ProjectPanel panel;
    panel.show();

    QVERIFY(panel.findChild<QLabel *>(named("labelNoProject"))->isVisible());
    QVERIFY(!panel.findChild<QTreeView *>());
}

void TestProjectPanel::aProjectThatGoesLeavesItEmpty()
{
    const CoreFixture core;
    const ProjectFolder folder({named("a.v")});
    ProjectPanel panel;
    auto project = std::make_unique<FpgaProject>();
    QVERIFY(project->open(folder.project()));
    panel.setProject(project.get());
    QCOMPARE(panel.findChild<QTreeView *>()->model()->rowCount(), 1);

    project.reset();
    panel.setProject(nullptr);

    QCOMPARE(panel.findChild<QTreeView *>()->model()->rowCount(), 0);
}

void TestProjectPanel::itShowsNameDeviceAndTop()
{
    Shown shown({named("a.v")});
    QCOMPARE(shown.label("labelProject"), named("Test"));
    QCOMPARE(shown.label("labelTop"), named("none chosen"));
    QCOMPARE(shown.label("labelDevice"), named("none chosen"));

    shown.project.setTop({named("core"), named("a.v")});
    shown.project.setDevice({named("iCE40HX8K-CT256"), named("CT256"), named("HX")});

    QCOMPARE(shown.label("labelTop"), named("core"));
    QCOMPARE(shown.label("labelDevice"), named("iCE40HX8K-CT256"));
}

void TestProjectPanel::whatOthersWriteToTheProjectFileIsShown()
{
    Shown shown({named("a.v"), named("b.v")});
    FpgaProject other;
    QVERIFY(other.open(shown.folder.project()));

    QVERIFY(other.removeFiles({named("a.v")}));
    QVERIFY(other.setTop({named("core"), named("b.v")}));

    QTRY_VERIFY_WITH_TIMEOUT(!shown.index("a.v").isValid(), 1000);
    QTRY_COMPARE_WITH_TIMEOUT(shown.label("labelTop"), named("core"), 1000);
}

void TestProjectPanel::aProjectFileBrokenByOthersLeavesThePanelAsItIs()
{
    const Shown shown({named("a.v")});
    const QString marker = shown.folder.put(named("a.v"), "later\n");

    shown.folder.put(named("p.kprj"), "<<<<<<< mine");
    // The watchers have told of both when the file that was removed last is missing.
    QVERIFY(QFile::remove(marker));

    QTRY_VERIFY(shown.index("a.v").data(FileTreeModel::MissingRole).toBool());
    QVERIFY(shown.index("a.v").isValid());
    QVERIFY(!QApplication::activeModalWidget());
}

void TestProjectPanel::missingAndDisabledFilesAreSeenToBe()
{
    Shown shown({named("a.v"), named("b.v")});
    shown.tree()->clearSelection();
    shown.tree()->setCurrentIndex({});
    const QRect row = shown.tree()->visualRect(shown.index("a.v"));
    const auto picture = [&] { return shown.tree()->viewport()->grab(row).toImage(); };
    const QImage usual = picture();

    QVERIFY(shown.project.setEnabled({named("a.v")}, false));
    const QImage disabled = picture();
    QVERIFY(shown.project.setEnabled({named("a.v")}, true));
    QCOMPARE(picture(), usual);
    QVERIFY(QFile::remove(shown.folder.path(named("a.v"))));
    QTRY_VERIFY(shown.index("a.v").data(FileTreeModel::MissingRole).toBool());
    const QImage missing = picture();

    QVERIFY(disabled != usual);
    QVERIFY(missing != usual);
    QVERIFY(missing != disabled);
}

void TestProjectPanel::theIconOfASelectedFileStandsOut()
{
    const Shown shown({named("a.v")});
    const QIcon icon = shown.index("a.v").data(Qt::DecorationRole).value<QIcon>();
    const QColor ground = QApplication::palette().color(QPalette::Highlight);

    const QImage image =
        icon.pixmap(16, 16, QIcon::Selected).toImage().convertToFormat(QImage::Format_ARGB32);

    // The upper half has nothing but the outline of the sheet.
    int points = 0;
    for (int y = 0; y < 7; ++y) {
        for (int x = 0; x < 16; ++x) {
            if (qAlpha(image.pixel(x, y)) < 255)
                continue;
            ++points;
            QVERIFY(Contrast::ratio(image.pixelColor(x, y), ground) >= Contrast::SIGN);
        }
    }
    QVERIFY2(points > 5, qPrintable(QString::number(points)));
}

void TestProjectPanel::kindsStandOpen()
{
    Shown shown({named("a.v")});
    QVERIFY(shown.tree()->isExpanded(shown.index("a.v").parent()));

    QVERIFY(shown.project.addFiles({shown.folder.put(named("b.vhd"))}));

    QVERIFY(shown.tree()->isExpanded(shown.index("b.vhd").parent()));
}

void TestProjectPanel::enterOpensTheSelectedFiles()
{
    const Shown shown({named("a.v"), named("b.v"), named("c.v")});
    shown.select("a.v");
    shown.selectAlso("b.v");

    QTest::keyClick(shown.tree(), Qt::Key_Return);

    QVERIFY(EditorManager::editorForFile(shown.folder.path(named("a.v"))));
    QVERIFY(EditorManager::editorForFile(shown.folder.path(named("b.v"))));
    QVERIFY(!EditorManager::editorForFile(shown.folder.path(named("c.v"))));
}

void TestProjectPanel::aDoubleClickOpensTheFile()
{
    const Shown shown({named("a.v")});
    const QPoint place = shown.tree()->visualRect(shown.index("a.v")).center();

    QTest::mouseClick(shown.tree()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(shown.tree()->viewport(), Qt::LeftButton, {}, place);

    QVERIFY(EditorManager::editorForFile(shown.folder.path(named("a.v"))));
}

void TestProjectPanel::enterOnAKindFoldsIt()
{
    const Shown shown({named("a.v")});
    const QModelIndex kind = shown.index("a.v").parent();
    shown.tree()->setCurrentIndex(kind);

    QTest::keyClick(shown.tree(), Qt::Key_Return);

    QVERIFY(!shown.tree()->isExpanded(kind));
}

void TestProjectPanel::theMenuOfAFile()
{
    const Shown shown({named("a.v")});
    shown.select("a.v");

    QCOMPARE(shown.menu(),
             texts({"Open", "> Open With", "--", "Add Existing Files...", "New File...", "--",
                    "Disable", "Set as Top", "--", "Rename", "Remove from Project", "--",
                    "Copy Path", "Open Containing Folder", "--", "Change Device..."}));
}

void TestProjectPanel::theMenuWithoutAFile()
{
    const Shown shown({named("a.v")});
    shown.tree()->clearSelection();

    QCOMPARE(shown.menu(), texts({"Add Existing Files...", "New File...", "--",
                                  "Open Containing Folder", "--", "Change Device..."}));
}

void TestProjectPanel::theMenuKeyAsksForIt()
{
    const Shown shown({named("a.v")});
    shown.select("a.v");
    shown.tree()->setFocus();

    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(900, 900));
    QApplication::sendEvent(shown.tree(), &event);

    auto *menu = shown.tree()->findChild<QMenu *>(named("FpgaProject.FileMenu"));
    QVERIFY(menu);
    const QRect row = shown.tree()->visualRect(shown.index("a.v"));
    QCOMPARE(menu->pos().y(), shown.tree()->viewport()->mapToGlobal(row.center()).y());
    menu->close();
}

void TestProjectPanel::filesAreSwitchedOffAndOn()
{
    const Shown shown({named("a.v"), named("b.v")});
    const auto enabled = [&](const char *path) {
        return shown.index(path).data(FileTreeModel::EnabledRole).toBool();
    };
    shown.select("a.v");
    shown.selectAlso("b.v");

    shown.action("Toggle")->trigger();
    QVERIFY(!enabled("a.v") && !enabled("b.v"));
    QCOMPARE(shown.action("Toggle")->text(), named("Enable"));
    shown.action("Toggle")->trigger();
    QVERIFY(enabled("a.v") && enabled("b.v"));
}

void TestProjectPanel::deleteTakesFilesOutOfTheProject()
{
    const Shown shown({named("a.v"), named("b.v")});
    shown.select("a.v");
    shown.tree()->setFocus();

    QTest::keyClick(shown.tree(), Qt::Key_Delete);

    QVERIFY(!shown.index("a.v").isValid());
    QVERIFY(QFileInfo::exists(shown.folder.path(named("a.v"))));
}

void TestProjectPanel::f2RenamesAFile()
{
    const Shown shown({named("rtl/a.v")});
    shown.select("rtl/a.v");

    QTest::keyClick(shown.tree(), Qt::Key_F2);
    auto *editor = shown.tree()->viewport()->findChild<QLineEdit *>();
    QVERIFY(editor);
    QTRY_COMPARE(editor->selectedText(), named("a"));
    QTest::keyClicks(editor, named("top"));
    QTest::keyClick(editor, Qt::Key_Return);

    QTRY_VERIFY(shown.index("rtl/top.v").isValid());
    QVERIFY(QFileInfo::exists(shown.folder.path(named("rtl/top.v"))));
    QCOMPARE(shown.tree()->currentIndex(), shown.index("rtl/top.v"));
}

void TestProjectPanel::aFailedRenameIsSaid()
{
    const Shown shown({named("a.v"), named("b.v")});
    shown.select("a.v");
    QTest::keyClick(shown.tree(), Qt::Key_F2);
    auto *editor = shown.tree()->viewport()->findChild<QLineEdit *>();
    QVERIFY(editor);
    editor->setText(named("b.v"));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QTest::keyClick(editor, Qt::Key_Return);

    QTRY_VERIFY(box.met());
    QVERIFY(box.text().endsWith(named("The project has a file of that name.")));
    QVERIFY(shown.index("a.v").isValid());
}

void TestProjectPanel::theOnlyModuleBecomesTheTop()
{
    const Shown shown({named("a.v")});
    shown.folder.put(named("a.v"), "module core; endmodule\n");
    shown.select("a.v");

    shown.action("SetAsTop")->trigger();

    QCOMPARE(shown.label("labelTop"), named("core"));
    QVERIFY(shown.index("a.v").data(FileTreeModel::TopRole).toBool());
}

void TestProjectPanel::ofSeveralModulesOneIsChosen()
{
    const Shown shown({named("a.v")});
    shown.folder.put(named("a.v"), "module one; endmodule\nmodule two; endmodule\n");
    shown.select("a.v");
    ModalDialog dialog([](QWidget *widget) {
        auto *choice = qobject_cast<QInputDialog *>(widget);
        QCOMPARE(choice->comboBoxItems(), texts({"one", "two"}));
        choice->setTextValue(named("two"));
        choice->accept();
    });

    shown.action("SetAsTop")->trigger();

    QCOMPARE(shown.label("labelTop"), named("two"));
}

void TestProjectPanel::aFileWithoutAModuleIsNoTop()
{
    const Shown shown({named("a.v")});
    shown.select("a.v");
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    shown.action("SetAsTop")->trigger();

    QVERIFY(box.text().endsWith(named("No module or entity was found in it.")));
    QCOMPARE(shown.label("labelTop"), named("none chosen"));
}

void TestProjectPanel::constraintsCannotBeTheTop()
{
    const Shown shown({named("a.sdc"), named("a.v")});

    shown.select("a.sdc");
    QVERIFY(!shown.action("SetAsTop")->isEnabled());
    shown.select("a.v");
    QVERIFY(shown.action("SetAsTop")->isEnabled());
}

void TestProjectPanel::pathsAreCopied()
{
    const Shown shown({named("a.v"), named("b.sdc")});
    shown.select("b.sdc");
    shown.selectAlso("a.v");

    shown.action("CopyPath")->trigger();

    QCOMPARE(QApplication::clipboard()->text(), shown.folder.path(named("a.v")) + QLatin1Char('\n')
                                                    + shown.folder.path(named("b.sdc")));
}

void TestProjectPanel::theCopyCommandCopiesPaths()
{
    const Shown shown({named("a.v")});
    shown.select("a.v");
    QApplication::clipboard()->clear();

    Core::ActionManager::setCurrentContexts({named(Fpga::Constants::C_PROJECTPANEL)});
    Core::ActionManager::action(named(Core::Constants::A_EDIT_COPY))->trigger();

    QCOMPARE(QApplication::clipboard()->text(), shown.folder.path(named("a.v")));
}

void TestProjectPanel::droppedFilesAreAdded()
{
    const Shown shown({named("a.v")});
    const QString file = shown.folder.put(named("new b.v"));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});

    QVERIFY(shown.tree()->model()->dropMimeData(&data, Qt::CopyAction, -1, -1, {}));

    QTRY_VERIFY(shown.index("new b.v").isValid());
    QCOMPARE(shown.tree()->currentIndex(), shown.index("new b.v"));
}

void TestProjectPanel::droppedFoldersBringTheirSources()
{
    const ProjectFolder folder;
    folder.put(named("d/rtl/b.v"));
    folder.put(named("d/a.sdc"));
    folder.put(named("d/notes.txt"));
    folder.put(named("d/.git/x.v"));
    const QString plain = folder.put(named("plain.txt"));

    QCOMPARE(Fpga::droppedFiles({folder.path(named("d")), plain}),
             QStringList({folder.path(named("d/a.sdc")), folder.path(named("d/rtl/b.v")), plain}));
}

void TestProjectPanel::aMissingFileIsNamedWhenOpened()
{
    const Shown shown({named("!a.v")});
    shown.select("a.v");
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QTest::keyClick(shown.tree(), Qt::Key_Return);

    QVERIFY2(box.text().contains(shown.folder.path(named("a.v"))), qPrintable(box.text()));
}

QTEST_MAIN(TestProjectPanel)
#include "tst_projectpanel.moc"
