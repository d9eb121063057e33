// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The plugin in the workbench, started as the host would: what it offers, and "Save
// Project As...".

#include "projectfolder.h"

#include "support/corefixture.h"
#include "support/modaldialog.h"
#include "support/testeditor.h"

#include <extsys/iplugin.h>
#include <extsys/pluginmanager.h>
#include <fpgaproject/fpgaprojectconstants.h>
#include <fpgaproject/project/fpgaproject.h>
#include <fpgaproject/project/projectcopy_p.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <idecore/editors/editormanager.h>
#include <idecore/interfaces/iprojecctfactory.h>
#include <idecore/interfaces/iwizardfactory.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QDialog>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPluginLoader>
#include <QTest>

using Core::ProjectManager;
using Fpga::FpgaProject;

namespace {

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

/// The core with the plugin in it.
class Workbench final
{
public:
    Workbench()
        : m_loader(QStringLiteral(FPGAPROJECT_PLUGIN))
    {
        m_plugin = qobject_cast<ExtSys::IPlugin *>(m_loader.instance());
        if (!m_plugin || !m_plugin->initialize())
            qFatal("the plugin did not start: %s", qPrintable(m_loader.errorString()));
        m_plugin->extensionsInitialized();
        // As the focus in the shown window does.
        Core::ActionManager::setCurrentContexts({named(Core::Constants::C_GLOBAL)});
    }
    ~Workbench()
    {
        ProjectManager::closeCurrentProject();
        m_plugin->shutDown();
    }
    Q_DISABLE_COPY(Workbench)

    static QAction *saveAs()
    {
        return Core::ActionManager::action(named(Fpga::Constants::A_PROJECT_SAVEAS));
    }
    static QDockWidget *dock()
    {
        return Core::ViewManager::mainWindow()->findChild<QDockWidget *>(
            named(Fpga::Constants::PROJECT_PANEL));
    }

    const CoreFixture core;

private:
    QPluginLoader m_loader;
    ExtSys::IPlugin *m_plugin = nullptr;
};

/// Enters a name into the dialog and presses OK.
ModalDialog::Handler saveUnder(const QString &name)
{
    return [name](QWidget *widget) {
        widget->findChild<QLineEdit *>(QStringLiteral("editPrjName"))->setText(name);
        qobject_cast<QDialog *>(widget)->accept();
    };
}

} // namespace

class TestSaveProjectAs : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void thePluginOffersFactoryWizardsAndPanel();
    void thePluginTakesEverythingBack();
    void thePanelFollowsTheCurrentProject();
    void theEntryStandsWithTheOtherSaves();
    void theEntryNeedsAProject();
    void theCopyHoldsTheFilesAndIsOpened();
    void theCopyKeepsWhatIsNotKnown();
    void pathsToFilesElsewhereLeadThereStill();
    void missingFilesStayListed();
    void unsavedChangesAreAskedAboutFirst();
    void cancellingLeavesNothingBehind();
    void aCopyThatFailsLeavesNothingBehind();
    void aPlaceThatCannotBeOpenedIsRefused();
};

void TestSaveProjectAs::thePluginOffersFactoryWizardsAndPanel()
{
    const Workbench workbench;
    auto *pool = ExtSys::PluginManager::instance();
    QStringList wizards;
    const auto factories = pool->getObjects<Core::IWizardFactory>();
    for (const Core::IWizardFactory *factory : factories)
        wizards.append(factory->displayName());

    QCOMPARE(pool->getObjects<Core::IProjecctFactory>().size(), 1);
    QCOMPARE(wizards, texts({"FPGA Project", "Verilog File", "SystemVerilog File", "VHDL File",
                             "Timing Constraints File", "Physical Constraints File"}));
    QVERIFY(Workbench::dock());
    QCOMPARE(Core::ViewManager::mainWindow()->dockWidgetArea(Workbench::dock()),
             Qt::LeftDockWidgetArea);
}

void TestSaveProjectAs::thePluginTakesEverythingBack()
{
    {
        const Workbench workbench;
    }

    QVERIFY(ExtSys::PluginManager::instance()->allObjects().isEmpty());
}

void TestSaveProjectAs::thePanelFollowsTheCurrentProject()
{
    const Workbench workbench;
    const ProjectFolder folder({named("a.v")});
    const auto *none = Workbench::dock()->findChild<QLabel *>(named("labelNoProject"));

    ProjectManager::openProject(folder.project());
    const auto *name = Workbench::dock()->findChild<QLabel *>(named("labelProject"));
    QVERIFY(name);
    QCOMPARE(name->text(), named("Test"));
    QVERIFY(none->isHidden());
    ProjectManager::closeCurrentProject();
    QVERIFY(!none->isHidden());
}

void TestSaveProjectAs::theEntryStandsWithTheOtherSaves()
{
    const Workbench workbench;
    const QList<QAction *> actions =
        Core::ActionManager::menu(named(Core::Constants::M_FILE))->actions();
    const auto at = [&](const char *id) {
        return actions.indexOf(Core::ActionManager::action(named(id)));
    };

    QCOMPARE(at(Fpga::Constants::A_PROJECT_SAVEAS), at(Core::Constants::A_FILE_SAVEALL) + 1);
    QCOMPARE(Workbench::saveAs()->text(), named("Save Project As..."));
}

void TestSaveProjectAs::theEntryNeedsAProject()
{
    const Workbench workbench;
    const ProjectFolder folder;

    QVERIFY(!Workbench::saveAs()->isEnabled());
    ProjectManager::openProject(folder.project());
    QVERIFY(Workbench::saveAs()->isEnabled());
    ProjectManager::closeCurrentProject();
    QVERIFY(!Workbench::saveAs()->isEnabled());
}

void TestSaveProjectAs::theCopyHoldsTheFilesAndIsOpened()
{
    const Workbench workbench;
    const ProjectFolder folder;
    folder.put(named("one/rtl/a.v"), "module a; endmodule\n");
    folder.put(named("one/other.txt"));
    folder.put(named("one/one.kprj"),
               "<P><Template>FPGA</Template><Name>one</Name><Files><File path='rtl/a.v'/>"
               "</Files></P>");
    ProjectManager::openProject(folder.path(named("one/one.kprj")));
    ModalDialog dialog(saveUnder(named("two")));

    Workbench::saveAs()->trigger();

    QVERIFY(ProjectManager::currentProject());
    QCOMPARE(ProjectManager::currentProject()->fileName(), folder.path(named("two/two.kprj")));
    QCOMPARE(ProjectManager::currentProject()->displayName(), named("two"));
    QCOMPARE(folder.contents(named("two/rtl/a.v")), QByteArray("module a; endmodule\n"));
    QVERIFY(!QFileInfo::exists(folder.path(named("two/other.txt"))));
    QVERIFY(QFileInfo(folder.path(named("two/src"))).isDir());
    QVERIFY(folder.contents(named("one/one.kprj")).contains("<Name>one</Name>"));
}

void TestSaveProjectAs::theCopyKeepsWhatIsNotKnown()
{
    const CoreFixture core;
    const ProjectFolder folder;
    FpgaProject project;
    QVERIFY(
        project.open(folder.put(named("q.kprj"), "<P><Template>FPGA</Template><Tool x='1'/></P>")));
    QVERIFY(QDir().mkdir(folder.path(named("copy"))));
    QString reason;

    QVERIFY2(Fpga::ProjectCopy(project, folder.path(named("copy")), named("copy")).make(&reason),
             qPrintable(reason));

    QVERIFY(folder.contents(named("copy/copy.kprj")).contains("<Tool x=\"1\"/>"));
}

void TestSaveProjectAs::pathsToFilesElsewhereLeadThereStill()
{
    const CoreFixture core;
    const ProjectFolder folder;
    const QString shared = folder.put(named("shared/s.v"));
    FpgaProject project;
    QVERIFY(project.open(folder.put(
        named("one/one.kprj"), "<P><Template>FPGA</Template><Top file='../shared/s.v'>s</Top>"
                               "<Files><File path='../shared/s.v' kind='vhdl'/></Files></P>")));
    QVERIFY(QDir().mkpath(folder.path(named("deep/two"))));
    QString reason;

    Fpga::ProjectCopy copy(project, folder.path(named("deep/two")), named("two"));
    QVERIFY2(copy.make(&reason), qPrintable(reason));

    FpgaProject two;
    QVERIFY(two.open(copy.fileName()));
    QCOMPARE(two.files(), QStringList(shared));
    QCOMPARE(two.document().files().first().path, named("../../shared/s.v"));
    QCOMPARE(two.document().files().first().kind, Fpga::FileKind::Vhdl);
    QCOMPARE(two.document().top().file, named("../../shared/s.v"));
}

void TestSaveProjectAs::missingFilesStayListed()
{
    const CoreFixture core;
    const ProjectFolder folder({named("!gone.v")});
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    QVERIFY(QDir().mkdir(folder.path(named("copy"))));
    QString reason;

    Fpga::ProjectCopy copy(project, folder.path(named("copy")), named("copy"));
    QVERIFY2(copy.make(&reason), qPrintable(reason));

    QVERIFY(folder.contents(named("copy/copy.kprj")).contains("path=\"gone.v\""));
}

void TestSaveProjectAs::unsavedChangesAreAskedAboutFirst()
{
    const Workbench workbench;
    TestEditorFactory editors({named("text/plain")});
    const InPool offered(&editors);
    const ProjectFolder folder({named("a.v")});
    ProjectManager::openProject(folder.project());
    Core::EditorManager::openEditor(folder.path(named("a.v")));
    editors.last->setModified(true);
    std::unique_ptr<ModalDialog> question;
    const QString name = QFileInfo(folder.path()).fileName() + named("copy");
    ModalDialog dialog([&](QWidget *widget) {
        question = std::make_unique<ModalDialog>(ModalDialog::press(QMessageBox::Cancel));
        saveUnder(name)(widget);
    });

    Workbench::saveAs()->trigger();

    QCOMPARE(question->title(), named("Close Project"));
    QVERIFY(!QFileInfo::exists(folder.path() + named("copy")));
    QCOMPARE(ProjectManager::currentProject()->fileName(), folder.project());
    editors.last->setModified(false);
}

void TestSaveProjectAs::cancellingLeavesNothingBehind()
{
    const Workbench workbench;
    const ProjectFolder folder({named("a.v")});
    ProjectManager::openProject(folder.project());
    const QStringList before = QDir(folder.path() + named("/..")).entryList();
    ModalDialog dialog(ModalDialog::cancel());

    Workbench::saveAs()->trigger();

    QCOMPARE(ProjectManager::currentProject()->fileName(), folder.project());
    QCOMPARE(QDir(folder.path() + named("/..")).entryList(), before);
}

void TestSaveProjectAs::aCopyThatFailsLeavesNothingBehind()
{
    const Workbench workbench;
    const ProjectFolder folder;
    // A folder in the place of a file is there, and cannot be copied.
    folder.put(named("one/a.v/x"));
    folder.put(named("one/one.kprj"),
               "<P><Template>FPGA</Template><Files><File path='a.v'/></Files></P>");
    ProjectManager::openProject(folder.path(named("one/one.kprj")));
    std::unique_ptr<ModalDialog> box;
    ModalDialog dialog([&](QWidget *widget) {
        box = std::make_unique<ModalDialog>(ModalDialog::press(QMessageBox::Ok));
        saveUnder(named("two"))(widget);
    });

    Workbench::saveAs()->trigger();

    QVERIFY2(box->text().contains(folder.path(named("one/a.v"))), qPrintable(box->text()));
    QVERIFY(!QFileInfo::exists(folder.path(named("two"))));
    QCOMPARE(ProjectManager::currentProject()->fileName(), folder.path(named("one/one.kprj")));
}

void TestSaveProjectAs::aPlaceThatCannotBeOpenedIsRefused()
{
    const CoreFixture core;
    const ProjectFolder folder;
    FpgaProject project;
    QVERIFY(project.open(folder.project()));
    QString reason;

    QVERIFY(!Fpga::ProjectCopy(project, folder.path(named("a b/-c")), named("c")).make(&reason));

    QVERIFY(reason.contains(named("space and \"-\"")));
}

QTEST_MAIN(TestSaveProjectAs)
#include "tst_saveprojectas.moc"
