// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "host.h"

#include "commandline.h"
#include "signalwatcher.h"
#include "splash.h"
#include "startreport.h"

#include <appstyle/appstylemanager.h>
#include <extsys/pluginmanager.h>
#include <extsys/pluginspec.h>

#include <QApplication>
#include <QDebug>
#include <QDir>
#include <QEvent>
#include <QSessionManager>
#include <QTimer>

#include <cstdio>
#include <cstring>

using ExtSys::PluginManager;
using ExtSys::PluginSpec;

namespace {

const char *const glVariable = "QT_XCB_GL_INTEGRATION";
bool glTurnedOff = false;

QString pluginFolder()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath()
                           + QStringLiteral("/../lib/plugins"));
}

/// One line, whatever the reason holds.
int fail(const QString &reason)
{
    std::fprintf(stderr, "kelmo-designer: %s\n", qPrintable(reason.simplified()));
    return 1;
}

QString coreFailure()
{
    const PluginManager *const manager = PluginManager::instance();
    const PluginSpec *core = manager->corePlugin();
    const QVector<const PluginSpec *> plugins = manager->plugins();
    // A core that cannot be read is not known for one but by its file's name.
    for (const PluginSpec *spec : plugins) {
        if (!core && spec->name() == QLatin1String("IdeCore") && !spec->error().isEmpty())
            core = spec;
    }
    if (!core)
        return QStringLiteral("the core plugin is missing, there is none in %1")
            .arg(pluginFolder());
    return QStringLiteral("the core plugin %1 cannot be started: %2")
        .arg(core->filePath(), core->error());
}

QWidget *findMainWindow()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (std::strcmp(widget->metaObject()->className(), "Core::IdeMainWindow") == 0)
            return widget;
    }
    return nullptr;
}

} // namespace

void Host::turnGlOff()
{
    // Nothing here draws with GL, and loading it would cost more than the rest
    // of an empty window.
    if (qEnvironmentVariableIsSet(glVariable))
        return;
    qputenv(glVariable, "none");
    glTurnedOff = true;
}

Host::Host(const CommandLine &commandLine)
    : m_commandLine(commandLine)
{
}

Host::~Host() = default;

void Host::findPlugins(const CommandLine &commandLine)
{
    for (const QString &folder : commandLine.pluginPaths) {
        if (!QDir(folder).exists())
            qWarning().noquote() << "there is no plugin folder" << folder;
    }
    // The user's folders come first, so that a plugin in the making can stand
    // for the installed one.
    PluginManager::instance()->findPlugins(commandLine.pluginPaths + QStringList(pluginFolder()));
}

void Host::listPlugins(const CommandLine &commandLine)
{
    findPlugins(commandLine);
    const QVector<const PluginSpec *> plugins = PluginManager::instance()->plugins();
    for (const PluginSpec *spec : plugins) {
        QStringList lines{spec->name() + QLatin1Char(' ') + spec->version().toString()};
        if (spec->isCore())
            lines.first() += QStringLiteral(" (core)");
        lines.append(spec->filePath());
        if (!spec->description().isEmpty())
            lines.append(spec->description());
        QStringList needs;
        const QVector<ExtSys::PluginDependency> dependencies = spec->dependencies();
        for (const ExtSys::PluginDependency &dependency : dependencies) {
            QString need = dependency.name;
            if (!dependency.minimumVersion.isNull())
                need += QLatin1Char(' ') + dependency.minimumVersion.toString();
            needs.append(need);
        }
        if (!needs.isEmpty())
            lines.append(QStringLiteral("needs ") + needs.join(QStringLiteral(", ")));
        if (!spec->error().isEmpty())
            lines.append(QStringLiteral("cannot be started: ") + spec->error().simplified());
        std::printf("%s\n", qPrintable(lines.join(QStringLiteral("\n    "))));
    }
}

int Host::run()
{
    SignalWatcher signalWatcher;
    connect(&signalWatcher, &SignalWatcher::endRequested, this, &Host::onEndRequested);
    QGuiApplication::setFallbackSessionManagementEnabled(false);
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &Host::onCommitData,
            Qt::DirectConnection);

    findPlugins(m_commandLine);
    int status = 0;
    if (!startPlugins()) {
        status = fail(coreFailure());
    } else if (m_mainWindow = findMainWindow(); !m_mainWindow) {
        status = fail(QStringLiteral("the core plugin made no main window"));
    } else {
        m_mainWindow->installEventFilter(this);
        status = QCoreApplication::exec();
    }
    m_splash.reset();
    PluginManager::instance()->shutDown();
    return status;
}

bool Host::startPlugins()
{
    PluginManager *const manager = PluginManager::instance();
    // Whether there is a core is known before anything appears on the screen.
    if (!manager->corePlugin())
        return false;
    // Before the first widget, so that none is dressed twice.
    APPSTYLE::AppStyleManager::instance()->updateStyle();
    m_splash = std::make_unique<Splash>();
    m_splash->show();
    connect(manager, &PluginManager::pluginStarting, m_splash.get(),
            [splash = m_splash.get()](const PluginSpec &spec) {
                splash->showMessage(tr("Starting %1…").arg(spec.name()));
            });
    const bool started =
        manager->startPlugins(m_commandLine.safeMode ? PluginManager::Selection::CoreOnly
                                                     : PluginManager::Selection::All);
    if (m_commandLine.verbose)
        StartReport::printPlugins();
    return started;
}

bool Host::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_mainWindow && event->type() == QEvent::Show) {
        m_mainWindow->removeEventFilter(this);
        m_wasShown = true;
        // The window is not on the screen yet.
        QTimer::singleShot(0, this, &Host::onMainWindowShown);
    }
    return QObject::eventFilter(watched, event);
}

void Host::onMainWindowShown()
{
    m_splash.reset();
    // Qt has looked at it for the first window; programs that are started from
    // here shall find what the user has.
    if (glTurnedOff)
        qunsetenv(glVariable);
    if (m_commandLine.verbose)
        StartReport::printWindow();
    // The core opens the project 50 ms after it has shown the window; its files
    // are opened into it.
    const int delay = m_commandLine.hasProject ? 100 : 0;
    if (!m_commandLine.files.isEmpty())
        QTimer::singleShot(delay, this, &Host::openFiles);
}

void Host::openFiles()
{
    for (const QString &file : m_commandLine.files) {
        // Opening shows what goes wrong in a dialog, in which the program may end.
        if (!m_mainWindow || !m_mainWindow->isVisible())
            return;
        if (!QMetaObject::invokeMethod(m_mainWindow, "openFile", Qt::DirectConnection,
                                       Q_ARG(QString, file))) {
            qWarning().noquote() << "the main window cannot open" << file;
        }
    }
}

bool Host::closeMainWindow()
{
    // A window that was never seen holds nothing, and on closing it would save its
    // geometry over that of the last time.
    if (!m_mainWindow || !m_wasShown)
        return true;
    if (QWidget *dialog = QApplication::activeModalWidget()) {
        // The close button would not react either; the user sees what holds it.
        dialog->raise();
        dialog->activateWindow();
        return false;
    }
    return m_mainWindow->close();
}

void Host::onEndRequested()
{
    // Where no window was shown yet none is the last to close.
    if (closeMainWindow())
        QCoreApplication::quit();
}

void Host::onCommitData(QSessionManager &session)
{
    // Where the session allows no questions, unsaved work is left to recovery.
    if (!session.allowsInteraction())
        return;
    if (closeMainWindow()) {
        session.release();
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    } else {
        // Released first, the session would have to ask a second time.
        session.cancel();
    }
}
