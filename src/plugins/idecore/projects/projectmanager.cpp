// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/projects/projectmanager.h>

#include <extsys/pluginmanager.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/core/assertion_p.h>
#include <idecore/core/constants.h>
#include <idecore/core/idecore.h>
#include <idecore/core/messages_p.h>
#include <idecore/core/recentpaths_p.h>
#include <idecore/interfaces/iprojecctfactory.h>
#include <idecore/interfaces/iproject.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/projects/projecttemplate_p.h>
#include <idecore/views/viewmanager.h>
#include <qutil/eventmanager.h>
#include <qutil/ievent.h>
#include <utils/systemreason.h>

#include <QAction>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QPointer>
#include <QScopedValueRollback>
#include <QSettings>

#include <algorithm>
#include <memory>

namespace Core {

namespace private_impl {

/// The state of the ProjectManager.
struct ProjectManagerPrivate
{
    /// Owned; guarded against a plugin that takes its project with it.
    QPointer<IProject> currentProject;
    /// In native separators, newest first.
    QStringList recentProjects;
    QAction *closeAction = nullptr;
    QMenu *recentMenu = nullptr;
    /// While a project opens or closes it may ask its user, and other requests
    /// come in meanwhile.
    bool opening = false;
    bool closing = false;
};

} // namespace private_impl

namespace {

constexpr int MAX_RECENT_PROJECTS = 10;

const QString KEY_RECENT_PROJECTS = QStringLiteral("Core/RecentProjects");
const QString KEY_DEFAULT_WORK_DIR = QStringLiteral("Core/DefaultWorkDir");

ProjectManager *m_instance = nullptr;
private_impl::ProjectManagerPrivate *d = nullptr;

void showOpenError(const QString &path, const QString &reason)
{
    QString message;
    if (!path.isEmpty())
        message =
            ProjectManager::tr("Can not open project \"%1\"").arg(QDir::toNativeSeparators(path));
    private_impl::showError(ProjectManager::tr("Open Project"), message, reason);
}

/// A file that does not exist has an empty @p canonical path, which is the path of
/// no project.
bool isPrjOpened(const QString &canonical)
{
    return d->currentProject && !canonical.isEmpty()
           && QFileInfo(d->currentProject->fileName()).canonicalFilePath() == canonical;
}

/// The programs that a project is handed to would take what follows for an option.
bool hasBlankAndDash(const QString &path)
{
    const int blank = path.indexOf(QLatin1Char(' '));
    return blank >= 0
           && (path.indexOf(QLatin1String(" -"), blank) >= 0
               || path.indexOf(QLatin1String("/-"), blank) >= 0);
}

IProjecctFactory *factoryForTemplate(const QString &name)
{
    const QList<IProjecctFactory *> factories =
        ExtSys::PluginManager::instance()->getObjects<IProjecctFactory>();
    const auto found = std::find_if(
        factories.cbegin(), factories.cend(),
        [&name](const IProjecctFactory *factory) { return factory->projectTemplate() == name; });
    return found == factories.cend() ? nullptr : *found;
}

/// The factory for the project file @p file; null when there is none and the user
/// has been told why.
IProjecctFactory *factoryForFile(const QString &file)
{
    const QFileInfo info(file);
    // Opening a pipe would wait for somebody to write into it.
    const bool special = info.exists() && !info.isFile() && !info.isDir();
    QFile device(file);
    if (!special && !device.open(QIODevice::ReadOnly)) {
        showOpenError(file, Utils::systemReason(device.errorString()));
        return nullptr;
    }
    const QString name = special ? QString() : private_impl::templateOfProject(&device);
    device.close();
    if (name.isEmpty()) {
        showOpenError(file, ProjectManager::tr("Invalid project file."));
        return nullptr;
    }
    IProjecctFactory *factory = factoryForTemplate(name);
    if (!factory)
        showOpenError(file, ProjectManager::tr("Unsupported project type."));
    return factory;
}

/// Closes the current project for @p project and opens it; false when one of the
/// two, or the test of @p project before it, said no.
bool replaceCurrentProject(IProject *project, const QString &file)
{
    const QScopedValueRollback<bool> opening(d->opening, true);
    return project->canOpen(file) && ProjectManager::closeCurrentProject() && project->open(file);
}

void storeRecentProjects()
{
    IdeCore::userSettings()->setValue(KEY_RECENT_PROJECTS, d->recentProjects);
}

void addRecentProject(const QString &path)
{
    private_impl::addRecentPath(&d->recentProjects, path, MAX_RECENT_PROJECTS);
    storeRecentProjects();
}

/// The current project has been deleted.
void projectGone()
{
    d->closeAction->setEnabled(false);
    Q_EMIT m_instance->currentProjectChanged(nullptr);
}

} // namespace

ProjectManager::ProjectManager()
{
    d = new private_impl::ProjectManagerPrivate;
    m_instance = this;
    auto *bus = QUtil::EventManager::instance();
    bus->subscribe(QString::fromLatin1(Constants::E_CLOSE_PROJECT), this);
    bus->subscribe(QString::fromLatin1(Constants::E_OPEN_PROJECT), this);
}

ProjectManager::~ProjectManager()
{
    delete d;
    d = nullptr;
    m_instance = nullptr;
    QUtil::EventManager::instance()->unsubscribeAll(this);
}

ProjectManager *ProjectManager::instance()
{
    return m_instance;
}

IProject *ProjectManager::currentProject()
{
    return d->currentProject;
}

void ProjectManager::openProject(const QString &path)
{
    qDebug() << "open project:" << path;
    const QString canonical = QFileInfo(path).canonicalFilePath();
    if (isPrjOpened(canonical))
        return;
    if (d->opening) {
        qWarning() << "another project is being opened, left alone:" << path;
        return;
    }
    if (hasBlankAndDash(canonical)) {
        showOpenError(QString(), tr("Directory \"%1\" has invalid character, space and \"-\" "
                                    "cannot be used together.")
                                     .arg(QDir::toNativeSeparators(canonical)));
        return;
    }
    const QString file = canonical.isEmpty() ? path : canonical;
    IProjecctFactory *factory = factoryForFile(file);
    if (!factory)
        return;
    std::unique_ptr<IProject> project(factory->createProject());
    if (!project) {
        showOpenError(file, QString());
        return;
    }
    if (!replaceCurrentProject(project.get(), file))
        return;
    d->currentProject = project.release();
    connect(d->currentProject, &QObject::destroyed, m_instance, &projectGone);
    addRecentProject(file);
    d->closeAction->setEnabled(true);
    Q_EMIT m_instance->currentProjectChanged(d->currentProject);
    Q_EMIT m_instance->recentListChanged();
}

bool ProjectManager::closeCurrentProject()
{
    if (!d->currentProject)
        return true;
    if (d->closing)
        return false; // not before it has been asked to the end
    qDebug() << "close project:" << d->currentProject->fileName();
    {
        const QScopedValueRollback<bool> closing(d->closing, true);
        if (!d->currentProject->close())
            return !d->currentProject;
    }
    if (IProject *project = d->currentProject) {
        disconnect(project, &QObject::destroyed, m_instance, nullptr);
        delete project;
        projectGone();
    }
    return true;
}

void ProjectManager::initialize()
{
    using namespace Constants;

    IdeCore::mimeDatabase()->addMimeTypes(QStringLiteral(":/core/ide.mimetype.xml"), nullptr);

    QMenu *fileMenu = ActionManager::menu(QString::fromLatin1(M_FILE));
    d->recentMenu = new QMenu(tr("Recent Projects"), ViewManager::mainWindow());
    fileMenu->insertMenu(ActionManager::separator(QString::fromLatin1(SEP_FILE_EXIT_F)),
                         d->recentMenu);
    connect(d->recentMenu, &QMenu::aboutToShow, this, &ProjectManager::showRecentMenu);

    d->recentProjects = IdeCore::userSettings()->value(KEY_RECENT_PROJECTS).toStringList();

    d->closeAction = new QAction(tr("Close Project"), this);
    d->closeAction->setEnabled(false);
    fileMenu->insertAction(ActionManager::separator(QString::fromLatin1(SEP_FILE_PRINT_F)),
                           d->closeAction);
    connect(d->closeAction, &QAction::triggered, this, &ProjectManager::onActClosePrj);
}

QStringList ProjectManager::recentProjects()
{
    return d->recentProjects;
}

QString ProjectManager::workDir()
{
    return IdeCore::userSettings()->value(KEY_DEFAULT_WORK_DIR).toString();
}

QString ProjectManager::defaultWorkDir()
{
    const QString stored = workDir();
    if (!stored.isEmpty())
        return stored;
    const QString current = QDir::currentPath();
    return QFileInfo(current).isWritable() ? current : QDir::homePath();
}

void ProjectManager::setDefaultWorkDir(const QString &dir)
{
    IdeCore::userSettings()->setValue(KEY_DEFAULT_WORK_DIR, dir);
}

void ProjectManager::handleIEvent(const QUtil::IEvent *event)
{
    KELMO_ASSERT(event, return);
    const QString topic = event->topic();
    if (topic == QLatin1String(Constants::E_CLOSE_PROJECT)) {
        closeCurrentProject();
    } else if (topic == QLatin1String(Constants::E_OPEN_PROJECT)) {
        const QString file =
            event->parameter(QString::fromLatin1(Constants::E_KEY_OPEN_PROJECT_FILE)).toString();
        if (!file.isEmpty())
            openProject(file);
    }
}

void ProjectManager::showRecentMenu()
{
    private_impl::fillRecentMenu(d->recentMenu, d->recentProjects, tr("Clear"), this,
                                 &ProjectManager::onActRecent, &ProjectManager::onActClearRecent);
}

void ProjectManager::onActRecent()
{
    if (const auto *action = qobject_cast<QAction *>(sender()))
        openProject(action->text());
}

void ProjectManager::onActClearRecent()
{
    d->recentProjects.clear();
    storeRecentProjects();
    Q_EMIT recentListChanged();
}

void ProjectManager::onActClosePrj()
{
    closeCurrentProject();
}

} // namespace Core
