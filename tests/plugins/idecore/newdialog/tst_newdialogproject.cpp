// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Which wizards are shown and where they put what they make, with and without an
// open project.

#include "support/corefixture.h"
#include "support/modaldialog.h"
#include "support/testwizard.h"

#include <extsys/pluginmanager.h>
#include <idecore/interfaces/iproject.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/newdialog/thenewdialog.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

#include <memory>

using namespace Core;

namespace {

class Project final : public IProject
{
public:
    QString displayName() const override { return {}; }
    QString fileName() const override { return QStringLiteral("/elsewhere/p.kprj"); }
    QString projectDir() const override { return directory; }
    bool open(const QString &) override { return true; }
    bool close() override { return true; }
    bool canOpen(const QString &) override { return true; }
    QStringList files() const override { return {}; }
    bool addFiles(const QStringList &) override { return true; }

    QString directory = QStringLiteral("/designs/blinky");
};

IProject *s_project = nullptr;

/// What the dialog lists, without its categories.
QStringList listed(const QWidget *dialog)
{
    QStringList found;
    const QAbstractItemModel *model =
        dialog->findChild<QTreeView *>(QStringLiteral("templateTree"))->model();
    for (int top = 0; top < model->rowCount(); ++top) {
        for (int row = 0; row < model->rowCount(model->index(top, 0)); ++row)
            found.append(model->index(row, 0, model->index(top, 0)).data().toString());
    }
    return found;
}

using Show = void (*)();

} // namespace

Q_DECLARE_METATYPE(Show)

// Stands in for that of the project manager.
IProject *ProjectManager::currentProject()
{
    return s_project;
}

class TestNewDialogProject final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        s_project = nullptr;
        TheNewDialog::ifhideKPA = false;
        TheNewDialog::ifhideKAO = false;
        m_core = std::make_unique<CoreFixture>();
    }

    void cleanup()
    {
        s_project = nullptr;
        m_core.reset();
    }

    void nothingIsHiddenAtFirst() { QVERIFY(!s_flagsAtStart); }

    void eachCallShowsItsWizardsOfThePool_data()
    {
        QTest::addColumn<Show>("show");
        QTest::addColumn<QStringList>("wizards");
        QTest::newRow("all") << Show(&TheNewDialog::showAllWizards)
                             << texts({"project 1", "project 2", "file 1", "file 2"});
        QTest::newRow("projects") << Show(&TheNewDialog::showProjectWizard)
                                  << texts({"project 1", "project 2"});
        QTest::newRow("files") << Show(&TheNewDialog::showFileWizard)
                               << texts({"file 1", "file 2"});
    }

    void eachCallShowsItsWizardsOfThePool()
    {
        QFETCH(const Show, show);
        QFETCH(const QStringList, wizards);
        FileWizard file1(QStringLiteral("file 1"));
        ProjectWizard project1(QStringLiteral("project 1"));
        PlainWizard plain(QStringLiteral("plain"));
        FileWizard file2(QStringLiteral("file 2"));
        ProjectWizard project2(QStringLiteral("project 2"));
        const InPool pool[] = {InPool(&file1), InPool(&project1), InPool(&plain), InPool(&file2),
                               InPool(&project2)};
        Q_UNUSED(pool)
        QStringList found;
        ModalDialog dialog([&found](QWidget *widget) {
            found = listed(widget);
            QTest::keyClick(widget, Qt::Key_Escape);
        });
        show();
        QCOMPARE(found, wizards);
        QCOMPARE(dialog.title(), QStringLiteral("New"));
    }

    void theDialogIsModalOverTheMainWindow()
    {
        bool modal = false;
        ModalDialog dialog([&modal](QWidget *widget) {
            modal = widget->isModal() && qobject_cast<TheNewDialog *>(widget);
            QTest::keyClick(widget, Qt::Key_Escape);
        });
        TheNewDialog::showAllWizards();
        QVERIFY(modal);
        QCOMPARE(dialog.parentOfDialog(), ViewManager::mainWindow());
    }

    void theDialogIsGoneAfterwards()
    {
        QPointer<QWidget> shown;
        ModalDialog dialog([&shown](QWidget *widget) {
            shown = widget;
            QTest::keyClick(widget, Qt::Key_Escape);
        });
        TheNewDialog::showAllWizards();
        QVERIFY(dialog.met());
        QVERIFY(!shown);
    }

    void cancelIsRejection()
    {
        FileWizard file(QStringLiteral("file"));
        ModalDialog dialog(ModalDialog::cancel());
        QCOMPARE(TheNewDialog::showWizards({&file}), int(QDialog::Rejected));
        QVERIFY(file.runs.isEmpty());
    }

    void aWizardThatWasRunIsAcceptance()
    {
        FileWizard file(QStringLiteral("file"));
        QPointer<QWidget> nested;
        file.whileRunning = [&nested] {
            // A wizard opens a dialog of its own; the first one does not block it.
            QDialog own;
            ModalDialog met(ModalDialog::cancel());
            own.exec();
            nested = QApplication::activeModalWidget();
        };
        ModalDialog dialog([](QWidget *widget) { QTest::keyClick(widget, Qt::Key_Return); });
        QCOMPARE(TheNewDialog::showWizards({&file}), int(QDialog::Accepted));
        QCOMPARE(file.runs.size(), 1);
        QVERIFY(!nested);
    }

    void nothingIsLeftBetweenCalls()
    {
        Project project;
        s_project = &project;
        FileWizard file(QStringLiteral("file"));
        accept({&file});
        s_project = nullptr;
        accept({&file});
        QCOMPARE(file.runs.at(0).directory, QStringLiteral("/designs/blinky/src"));
        QCOMPARE(file.runs.at(1).directory, QDir::homePath());
    }

    void withAProjectTheWizardGetsItsSourceFolder()
    {
        Project project;
        s_project = &project;
        FileWizard file(QStringLiteral("file"));
        accept({&file});
        QCOMPARE(file.runs.constFirst().directory, QStringLiteral("/designs/blinky/src"));
        QCOMPARE(file.runs.constFirst().parent, ViewManager::mainWindow());
    }

    void withoutAProjectTheWizardGetsTheHomeFolder()
    {
        FileWizard file(QStringLiteral("file"));
        accept({&file});
        QCOMPARE(file.runs.constFirst().directory, QDir::homePath());
    }

    void theFolderIsLookedUpWhenTheWizardIsRun()
    {
        Project project;
        FileWizard file(QStringLiteral("file"));
        TheNewDialog dialog({&file});
        s_project = &project;
        dialog.accept();
        QCOMPARE(file.runs.constFirst().directory, QStringLiteral("/designs/blinky/src"));
    }

    void theFolderOfAFirstRunIsKept()
    {
        Project project;
        FileWizard file(QStringLiteral("file"));
        TheNewDialog dialog({&file});
        dialog.accept();
        s_project = &project;
        dialog.accept();
        QCOMPARE(file.runs.at(1).directory, QDir::homePath());
    }

    void aFolderThatCannotBeMadeIsTheWizardsAffair()
    {
        const QTemporaryDir dir;
        QFile blocker(dir.filePath(QStringLiteral("src")));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        Project project;
        project.directory = dir.path();
        s_project = &project;
        FileWizard file(QStringLiteral("file"));
        accept({&file});
        QCOMPARE(file.runs.constFirst().directory, dir.filePath(QStringLiteral("src")));
        QVERIFY(QFileInfo(blocker.fileName()).isFile());
    }

    void aMissingFolderIsNotMade()
    {
        const QTemporaryDir dir;
        Project project;
        project.directory = dir.path();
        s_project = &project;
        FileWizard file(QStringLiteral("file"));
        accept({&file});
        QCOMPARE(file.runs.size(), 1);
        QVERIFY(!QFileInfo::exists(dir.filePath(QStringLiteral("src"))));
    }

    void flagsHideTheirWizardsWhileAProjectIsOpen_data()
    {
        QTest::addColumn<bool>("projectOpen");
        QTest::addColumn<bool>("hideKpa");
        QTest::addColumn<bool>("hideKao");
        QTest::addColumn<QStringList>("shown");
        const QStringList kpa{QStringLiteral("KPA Config File")};
        const QStringList kao = texts({"KAO Config File", "KVIO Config File"});
        const QStringList others =
            texts({"kpa config file", "KPA Config File ", "KAO", "KVIO Config Files", "other"});
        QTest::newRow("no flag") << true << false << false << kpa + kao + others;
        QTest::newRow("KPA") << true << true << false << kao + others;
        QTest::newRow("KAO") << true << false << true << kpa + others;
        QTest::newRow("both") << true << true << true << others;
        QTest::newRow("no project, no flag") << false << false << false << kpa + kao + others;
        QTest::newRow("no project, KPA") << false << true << false << kpa + kao + others;
        QTest::newRow("no project, KAO") << false << false << true << kpa + kao + others;
        QTest::newRow("no project, both") << false << true << true << kpa + kao + others;
    }

    void flagsHideTheirWizardsWhileAProjectIsOpen()
    {
        QFETCH(const bool, projectOpen);
        QFETCH(const QStringList, shown);
        QFETCH(const bool, hideKpa);
        QFETCH(const bool, hideKao);
        TheNewDialog::ifhideKPA = hideKpa;
        TheNewDialog::ifhideKAO = hideKao;
        Project project;
        s_project = projectOpen ? &project : nullptr;
        std::vector<std::unique_ptr<FileWizard>> wizards;
        QList<IWizardFactory *> list;
        for (const char *name :
             {"KPA Config File", "KAO Config File", "KVIO Config File", "kpa config file",
              "KPA Config File ", "KAO", "KVIO Config Files", "other"}) {
            wizards.push_back(std::make_unique<FileWizard>(QString::fromLatin1(name)));
            list.append(wizards.back().get());
        }
        QStringList found;
        ModalDialog dialog([&found](QWidget *widget) {
            found = listed(widget);
            QTest::keyClick(widget, Qt::Key_Escape);
        });
        TheNewDialog::showWizards(list);
        QCOMPARE(found, shown);
    }

    void flagsHideProjectWizardsToo()
    {
        TheNewDialog::ifhideKPA = true;
        Project project;
        s_project = &project;
        ProjectWizard wizard(QStringLiteral("KPA Config File"));
        QStringList found{QStringLiteral("unseen")};
        ModalDialog dialog([&found](QWidget *widget) {
            found = listed(widget);
            QTest::keyClick(widget, Qt::Key_Escape);
        });
        TheNewDialog::showWizards({&wizard});
        QVERIFY(found.isEmpty());
    }

    void nullFactoriesAreLeftOutWithAProjectToo()
    {
        TheNewDialog::ifhideKPA = true;
        Project project;
        s_project = &project;
        FileWizard file(QStringLiteral("file"));
        QStringList found;
        ModalDialog dialog([&found](QWidget *widget) {
            found = listed(widget);
            QTest::keyClick(widget, Qt::Key_Escape);
        });
        TheNewDialog::showWizards({nullptr, &file});
        QCOMPARE(found, texts({"file"}));
    }

    void aPluginMayTakeItsWizardAwayWhileTheDialogIsOpen()
    {
        auto gone = std::make_unique<FileWizard>(QStringLiteral("gone"), QStringLiteral("1"));
        FileWizard file(QStringLiteral("file"), QStringLiteral("2"));
        ModalDialog dialog([&gone](QWidget *widget) {
            gone.reset();
            QTest::keyClick(widget, Qt::Key_Return);
        });
        QCOMPARE(TheNewDialog::showWizards({gone.get(), &file}), int(QDialog::Accepted));
        QCOMPARE(file.runs.size(), 1);
    }

private:
    /// Shows the dialog and takes the first wizard.
    static void accept(const QList<IWizardFactory *> &wizards)
    {
        ModalDialog dialog([](QWidget *widget) { QTest::keyClick(widget, Qt::Key_Return); });
        TheNewDialog::showWizards(wizards);
    }

    /// Before any test has changed them.
    const bool s_flagsAtStart = TheNewDialog::ifhideKPA || TheNewDialog::ifhideKAO;
    std::unique_ptr<CoreFixture> m_core;
};

QTEST_MAIN(TestNewDialogProject)
#include "tst_newdialogproject.moc"
