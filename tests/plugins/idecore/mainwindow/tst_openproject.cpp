// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/messagerecorder.h"
#include "support/modaldialog.h"
#include "support/testproject.h"
#include "support/testview.h"

#include <idecore/core/idecore.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using namespace Core;

/// The main window with a project.
class TestOpenProject final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void init()
    {
        m_journal.clear();
        m_dir = std::make_unique<QTemporaryDir>();
        m_factory = std::make_unique<TestProjectFactory>(QStringLiteral("FPGA"), &m_journal);
        m_inPool = std::make_unique<InPool>(m_factory.get());
        m_core = std::make_unique<CoreFixture>();
        m_core->show();
    }

    void cleanup()
    {
        if (TestProject *project = m_factory->last())
            project->refuseClose = false;
        ProjectManager::closeCurrentProject();
        m_core.reset();
        m_inPool.reset();
    }

    void closingAsksTheProjectBeforeTheViews()
    {
        openProject();
        ViewManager::showView(new TestView(QStringLiteral("view"), &m_journal));
        m_journal.clear();
        QVERIFY(ViewManager::mainWindow()->close());
        QCOMPARE(m_journal.mid(0, 3), texts({"top.kprj close", "top.kprj gone", "view asked"}));
        QVERIFY(!ProjectManager::currentProject());
    }

    void aProjectThatRefusesKeepsTheWindowOpen()
    {
        openProject()->refuseClose = true;
        ViewManager::showView(new TestView(QStringLiteral("view"), &m_journal));
        m_journal.clear();
        QVERIFY(!ViewManager::mainWindow()->close());
        QVERIFY(ViewManager::mainWindow()->isVisible());
        QCOMPARE(m_journal, texts({"top.kprj close"}));
        QCOMPARE(ProjectManager::currentProject(), m_factory->last());
    }

    void aViewThatRefusesKeepsTheWindowOpenWithoutTheProject()
    {
        openProject();
        auto *view = new TestView(QStringLiteral("view"), &m_journal);
        view->refuseClose = true;
        ViewManager::showView(view);
        QVERIFY(!ViewManager::mainWindow()->close());
        QVERIFY(ViewManager::mainWindow()->isVisible());
        QVERIFY(!ProjectManager::currentProject());
        view->refuseClose = false;
    }

    void aProjectThatRefusesKeepsTheSettingsAsTheyAre()
    {
        openProject()->refuseClose = true;
        QVERIFY(!ViewManager::mainWindow()->close());
        Core::IdeCore::userSettingsGUI()->sync();
        for (const char *key :
             {"Core/Version", "Core/MainwindowGeometry", "Core/MainwindowState"}) {
            const QVariant stored =
                CoreFixture::storedSetting(QString::fromLatin1(key), QStringLiteral("IDE_GUI"));
            QVERIFY2(!stored.isValid(), key);
        }
    }

    void aProjectThatRefusesKeepsTheFullScreen()
    {
        openProject()->refuseClose = true;
        ViewManager::mainWindow()->toggleFullScreen(true);
        QVERIFY(!ViewManager::mainWindow()->close());
        QVERIFY(ViewManager::mainWindow()->windowState() & Qt::WindowFullScreen);
    }

    void aProjectFileIsOpenedAsAProjectUnderItsNameAsItStands()
    {
        const QString path = m_dir->filePath(QStringLiteral("a b.kprj"));
        writeProject(path);
        const QString name = m_dir->filePath(QStringLiteral("./a b.kprj"));
        const MessageRecorder log;
        ViewManager::mainWindow()->openFile(name);
        QCOMPARE(log.lines(QtDebugMsg, QStringLiteral("open project:")),
                 QStringList{QStringLiteral("open project: \"%1\"").arg(name)});
        QVERIFY(ProjectManager::currentProject());
        QVERIFY(!ViewManager::currentView());
    }

    void aProjectFileUnderAnotherNameIsNone()
    {
        const QString path = m_dir->filePath(QStringLiteral("project.txt"));
        writeProject(path);
        // No editor is there for it.
        ModalDialog box(ModalDialog::cancel());
        ViewManager::mainWindow()->openFile(path);
        QVERIFY(m_factory->made.isEmpty());
    }

    void aProjectChosenAmongOtherFilesIsOpened()
    {
        const QString project = writeProject(m_dir->filePath(QStringLiteral("chosen.kprj")));
        ModalDialog dialog([&project](QWidget *widget) {
            auto *fileDialog = qobject_cast<QFileDialog *>(widget);
            QVERIFY(fileDialog);
            QVERIFY(
                fileDialog->nameFilters().join(QLatin1Char(' ')).contains(QLatin1String("*.kprj")));
            fileDialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(project);
            QTest::keyClick(fileDialog, Qt::Key_Return);
        });
        ViewManager::mainWindow()->onOpenFiles();
        QVERIFY(ProjectManager::currentProject());
        QCOMPARE(ProjectManager::currentProject()->fileName(), project);
    }

    void filesAreLookedForInTheFolderOfTheOpenProject()
    {
        openProject()->directory = subFolder(QStringLiteral("open"));
        QCOMPARE(askedFolder(), m_factory->last()->directory);
    }

    void withoutAProjectFilesAreLookedForWhereTheLastOneLies()
    {
        openedAndClosed(QStringLiteral("older"));
        const QString newest = openedAndClosed(QStringLiteral("newest"));
        QCOMPARE(askedFolder(), QFileInfo(newest).absolutePath());
    }

    void aLastProjectThatIsGoneMeansTheHomeFolder()
    {
        openedAndClosed(QStringLiteral("older"));
        QVERIFY(QFile::remove(openedAndClosed(QStringLiteral("newest"))));
        QCOMPARE(askedFolder(), QDir::homePath());
    }

private:
    /// Where the dialog for files to open starts.
    static QString askedFolder()
    {
        QString folder;
        ModalDialog dialog([&folder](QWidget *widget) {
            auto *fileDialog = qobject_cast<QFileDialog *>(widget);
            QVERIFY(fileDialog);
            folder = fileDialog->directory().absolutePath();
            fileDialog->reject();
        });
        ViewManager::mainWindow()->onOpenFiles();
        return folder;
    }

    QString subFolder(const QString &name) const
    {
        QDir(m_dir->path()).mkpath(name);
        return m_dir->filePath(name);
    }

    TestProject *openProject()
    {
        ProjectManager::openProject(writeProject(m_dir->filePath(QStringLiteral("top.kprj"))));
        return m_factory->last();
    }

    QString openedAndClosed(const QString &folder) const
    {
        const QString path = writeProject(m_dir->filePath(folder + QStringLiteral("/p.kprj")));
        ProjectManager::openProject(path);
        ProjectManager::closeCurrentProject();
        return path;
    }

    QStringList m_journal;
    std::unique_ptr<TestProjectFactory> m_factory;
    std::unique_ptr<InPool> m_inPool;
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<CoreFixture> m_core;
};

QTEST_MAIN(TestOpenProject)
#include "tst_openproject.moc"
