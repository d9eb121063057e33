// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/modaldialog.h"
#include "support/testview.h"

#include <idecore/interfaces/iproject.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTest>

using namespace Core;

namespace {

class Project final : public IProject
{
public:
    QString displayName() const override { return {}; }
    QString fileName() const override { return directory + QStringLiteral("/elsewhere/p.kprj"); }
    QString projectDir() const override { return directory; }
    bool open(const QString &) override { return true; }
    bool close() override { return true; }
    bool canOpen(const QString &) override { return true; }
    QStringList files() const override { return {}; }
    bool addFiles(const QStringList &) override { return true; }

    QString directory;
};

/// What the project manager says and is asked.
struct
{
    IProject *project = nullptr;
    QStringList recent;
    bool refuses = false;
    QStringList opened;
    QStringList journal;
} s_projects;

} // namespace

// Stand in for those of the project manager: the window is to be seen with a
// project that is open, and with one that refuses to close.

IProject *ProjectManager::currentProject()
{
    return s_projects.project;
}

QStringList ProjectManager::recentProjects()
{
    return s_projects.recent;
}

void ProjectManager::openProject(const QString &path)
{
    s_projects.opened.append(path);
}

bool ProjectManager::closeCurrentProject()
{
    s_projects.journal.append(QStringLiteral("project asked"));
    return !s_projects.refuses;
}

/// The main window with a project.
class TestOpenProject final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void init()
    {
        s_projects = {};
        m_dir = std::make_unique<QTemporaryDir>();
        m_core = std::make_unique<CoreFixture>();
        m_core->show();
    }

    void cleanup()
    {
        s_projects.refuses = false;
        m_core.reset();
    }

    void closingAsksTheProjectBeforeTheViews()
    {
        ViewManager::showView(new TestView(QStringLiteral("view"), &s_projects.journal));
        s_projects.journal.clear();
        QVERIFY(ViewManager::mainWindow()->close());
        QCOMPARE(s_projects.journal.mid(0, 2), texts({"project asked", "view asked"}));
    }

    void aProjectThatRefusesKeepsTheWindowOpen()
    {
        ViewManager::showView(new TestView(QStringLiteral("view"), &s_projects.journal));
        s_projects.journal.clear();
        s_projects.refuses = true;
        QVERIFY(!ViewManager::mainWindow()->close());
        QVERIFY(ViewManager::mainWindow()->isVisible());
        QCOMPARE(s_projects.journal, texts({"project asked"}));
    }

    void aProjectThatRefusesKeepsTheSettingsAsTheyAre()
    {
        s_projects.refuses = true;
        QVERIFY(!ViewManager::mainWindow()->close());
        m_core->shutdown();
        for (const char *key :
             {"Core/Version", "Core/MainwindowGeometry", "Core/MainwindowState"}) {
            const QVariant stored =
                CoreFixture::storedSetting(QString::fromLatin1(key), QStringLiteral("IDE_GUI"));
            QVERIFY2(!stored.isValid(), key);
        }
    }

    void aProjectThatRefusesKeepsTheFullScreen()
    {
        ViewManager::mainWindow()->toggleFullScreen(true);
        s_projects.refuses = true;
        QVERIFY(!ViewManager::mainWindow()->close());
        QVERIFY(ViewManager::mainWindow()->windowState() & Qt::WindowFullScreen);
    }

    void aProjectFileGoesToTheProjectManagerAsItIsNamed()
    {
        const QString path = m_dir->filePath(QStringLiteral("a b.kprj"));
        writeFile(path);
        ViewManager::mainWindow()->openFile(path);
        QCOMPARE(s_projects.opened, QStringList{path});
        QVERIFY(!ViewManager::currentView());
    }

    void anotherFileDoesNot()
    {
        const QString path = m_dir->filePath(QStringLiteral("a.v"));
        writeFile(path);
        // No editor is there for it.
        ModalDialog box(ModalDialog::cancel());
        ViewManager::mainWindow()->openFile(path);
        QVERIFY(s_projects.opened.isEmpty());
    }

    void filesAreLookedForInTheFolderOfTheOpenProject()
    {
        Project project;
        project.directory = subFolder(QStringLiteral("open"));
        s_projects.project = &project;
        s_projects.recent = QStringList{recentProject(QStringLiteral("recent"))};
        QCOMPARE(askedFolder(), project.directory);
    }

    void withoutAProjectFilesAreLookedForWhereTheLastOneLies()
    {
        s_projects.recent = QStringList{recentProject(QStringLiteral("newest")),
                                        recentProject(QStringLiteral("older"))};
        QCOMPARE(askedFolder(), QFileInfo(s_projects.recent.constFirst()).absolutePath());
    }

    void aLastProjectThatIsGoneMeansTheHomeFolder()
    {
        s_projects.recent = QStringList{m_dir->filePath(QStringLiteral("gone/p.kprj")),
                                        recentProject(QStringLiteral("older"))};
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

    QString recentProject(const QString &name) const
    {
        const QString path = subFolder(name) + QStringLiteral("/p.kprj");
        writeFile(path);
        return path;
    }

    static void writeFile(const QString &path)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write("text\n") != 5)
            qFatal("cannot write %s", qPrintable(path));
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<CoreFixture> m_core;
};

QTEST_MAIN(TestOpenProject)
#include "tst_openproject.moc"
