// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/core/idecore.h>

#include <appstyle/appstylemanager.h>
#include <assistant/assistantproxy.h>
#include <devicedb/devicedb.h>
#include <extsys/pluginmanager.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/editors/editormanager.h>
#include <idecore/externaleditors/externaleditormanager.h>
#include <idecore/externaleditors/externaleditoroptionpage_p.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/options/generaloptionpage_p.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QTimer>

namespace Core {

namespace private_impl {

/// The services. Bare pointers: they are deleted in an order that is part of
/// the behaviour, and stay as they are after it.
struct IdeCorePrivate
{
    QSettings *userSettings = nullptr;
    QSettings *userSettingsGUI = nullptr;
    ViewManager *viewManager = nullptr;
    ActionManager *actionManager = nullptr;
    MimeDatabase *mimeDatabase = nullptr;
    DEV::DeviceDb *deviceDb = nullptr;
    EditorManager *editorManager = nullptr;
    ProjectManager *projectManager = nullptr;
    ExternalEditorManager *externalEditorManager = nullptr;
    GeneralOptionPage *generalOptionPage = nullptr;
    ExternalEditorOptionPage *externalEditorOptionPage = nullptr;
};

} // namespace private_impl

using private_impl::IdeCorePrivate;

namespace {

// Just after the main window, which is shown at 1000 ms.
constexpr int OPEN_PROJECT_DELAY_MS = 1050;

IdeCorePrivate *d = nullptr;

QSettings *createSettings(const QString &application)
{
    return new QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("KelmoWare"),
                         application);
}

} // namespace

IdeCore::IdeCore(QObject *parent)
    : QObject(parent)
{
    d = new IdeCorePrivate;
}

IdeCore::~IdeCore()
{
    delete d;
    d = nullptr;
}

QSettings *IdeCore::userSettings()
{
    return d->userSettings;
}

QSettings *IdeCore::userSettingsGUI()
{
    return d->userSettingsGUI;
}

QString IdeCore::userConfigDir()
{
    return QFileInfo(d->userSettings->fileName()).absolutePath();
}

QString IdeCore::appDataDir()
{
    QDir dir(QCoreApplication::applicationDirPath());
    if (!dir.cd(QStringLiteral("../data")))
        return {};
    return dir.canonicalPath();
}

MimeDatabase *IdeCore::mimeDatabase()
{
    return d->mimeDatabase;
}

DEV::DeviceDb *IdeCore::deviceDataBase()
{
    return d->deviceDb;
}

void IdeCore::initialize()
{
    d->userSettings = createSettings(QStringLiteral("IDE"));
    d->userSettingsGUI = createSettings(QStringLiteral("IDE_GUI"));

    d->mimeDatabase = new MimeDatabase;
    d->actionManager = new ActionManager;
    d->viewManager = new ViewManager;
    d->editorManager = new EditorManager;
    d->projectManager = new ProjectManager;
    d->externalEditorManager = new ExternalEditorManager;

    d->deviceDb = new DEV::DeviceDb(appDataDir() + QLatin1String("/device/device_info.csv"));

    ViewManager::initialize();
    d->editorManager->initialize();
    d->projectManager->initialize();

    auto *pool = ExtSys::PluginManager::instance();
    d->generalOptionPage = new private_impl::GeneralOptionPage;
    d->externalEditorOptionPage = new ExternalEditorOptionPage;
    pool->addObject(d->generalOptionPage);
    pool->addObject(d->externalEditorOptionPage);

    APPSTYLE::AppStyleManager::instance()->updateStyle();
}

void IdeCore::extensionsInitialized()
{
    ViewManager::extensionsInitialized();
    QTimer::singleShot(OPEN_PROJECT_DELAY_MS, this, SLOT(openProject()));
}

void IdeCore::openProject()
{
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.size() >= 2 && arguments.at(0) == QLatin1String("-prj"))
        ProjectManager::openProject(arguments.at(1));
}

void IdeCore::shutdown()
{
    ASSISTANT::AssistantProxy::instance()->stopAssistant();
    ViewManager::shutdown();
    d->userSettings->sync();
    d->userSettingsGUI->sync();

    auto *pool = ExtSys::PluginManager::instance();
    pool->removeObject(d->generalOptionPage);
    delete d->generalOptionPage;
    pool->removeObject(d->externalEditorOptionPage);
    delete d->externalEditorOptionPage;

    delete d->projectManager;
    delete d->editorManager;
    delete d->viewManager;
    delete d->actionManager;
    delete d->mimeDatabase;
    delete d->userSettings;
    delete d->userSettingsGUI;
    delete d->deviceDb;
    delete d->externalEditorManager;
}

} // namespace Core
