// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/testpanel.h"

#include <extsys/iplugin.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/core/constants.h>
#include <idecore/interfaces/iproject.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>
#include <qutil/event.h>
#include <qutil/eventmanager.h>

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QTabBar>
#include <QTimer>

#include <cstdio>

using Core::ProjectManager;
using Core::ViewManager;

namespace {

void say(const QString &line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

QString place(const char *what, const QString &title, const QPoint &at)
{
    return QStringLiteral("%1 %2 %3 %4").arg(QLatin1String(what), title).arg(at.x()).arg(at.y());
}

/// Where docks can be grabbed and tabs be clicked, in places of the screen; then,
/// as the last line, how the docks lie.
QStringList layoutLines()
{
    QStringList lines;
    QStringList layout;
    const std::pair<const char *, Qt::DockWidgetArea> areas[] = {
        {"left", Qt::LeftDockWidgetArea},
        {"right", Qt::RightDockWidgetArea},
        {"top", Qt::TopDockWidgetArea},
        {"bottom", Qt::BottomDockWidgetArea}};
    for (const auto &[name, area] : areas) {
        const QStringList groups = dockGroups(area);
        if (!groups.isEmpty())
            layout.append(QLatin1String(name) + QLatin1Char(' ')
                          + groups.join(QLatin1String(" | ")));
    }
    const QList<QDockWidget *> all = docks();
    for (const QDockWidget *dock : all) {
        if (dock->isHidden())
            layout.append(QLatin1String("hidden ") + dock->windowTitle());
        else if (dock->isFloating())
            layout.append(QLatin1String("floating ") + dock->windowTitle());
        // The text of the title bar, away from its buttons.
        lines.append(place("title", dock->windowTitle(), dock->mapToGlobal(QPoint(40, 9))));
    }
    const QList<QTabBar *> bars =
        ViewManager::mainWindow()->findChildren<QTabBar *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QTabBar *bar : bars) {
        for (int i = 0; i < bar->count(); ++i)
            lines.append(place("tab", bar->tabText(i), bar->mapToGlobal(bar->tabRect(i).center())));
    }
    lines.append(QLatin1String("layout ") + layout.join(QLatin1String("; ")));
    return lines;
}

} // namespace

/// Panels in one area and requests over the event bus, as a plugin of somebody else's
/// has them. Says on the standard output how the panels lie, whenever they have come to
/// rest elsewhere, and which project is open.
class ProbePlugin final : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.kelmoware.plugins.IPlugin/1.0" FILE "probeplugin.json")
    Q_INTERFACES(ExtSys::IPlugin)
public:
    bool initialize() override
    {
        for (const int priority : {10, 90, 50}) {
            m_panels.append(addTestPanel(qPrintable(QString::number(priority)),
                                         Qt::BottomDockWidgetArea, priority));
            m_panels.last()->setMinimumSize(160, 120);
        }
        QMenu *tools = Core::ActionManager::menu(QString::fromLatin1(Core::Constants::M_TOOL));
        connect(tools->addAction(QStringLiteral("&Request Opening")), &QAction::triggered, this,
                &ProbePlugin::requestOpening);
        connect(tools->addAction(QStringLiteral("Request &Closing")), &QAction::triggered, this,
                &ProbePlugin::requestClosing);
        connect(ProjectManager::instance(), &ProjectManager::currentProjectChanged, this,
                [](const Core::IProject *project) {
                    say(QLatin1String("project ")
                        + (project ? project->fileName() : QStringLiteral("none")));
                });
        m_look.setInterval(100);
        connect(&m_look, &QTimer::timeout, this, &ProbePlugin::look);
        return true;
    }

    void extensionsInitialized() override { m_look.start(); }

    void shutDown() override
    {
        m_look.stop();
        for (TestPanel *panel : qAsConst(m_panels))
            ViewManager::removePanel(panel);
    }

private:
    void requestOpening()
    {
        const QVariantHash parameters = {
            {QStringLiteral("Key.Open.Project.File"), qEnvironmentVariable("PROBE_PROJECT")}};
        QUtil::EventManager::instance()->publish(
            QUtil::Event(QStringLiteral("TE.Open.Project"), parameters));
    }

    void requestClosing()
    {
        QUtil::EventManager::instance()->publish(QUtil::Event(QStringLiteral("TE.Close.Project")));
    }

    /// Docks slide to their places; what counts is what two looks agree on.
    void look()
    {
        if (!ViewManager::mainWindow()->isVisible())
            return;
        const QStringList seen = layoutLines();
        if (seen == m_seen && seen != m_said) {
            for (const QString &line : seen)
                say(line);
            m_said = seen;
        }
        m_seen = seen;
    }

    QTimer m_look;
    QList<TestPanel *> m_panels;
    QStringList m_seen;
    QStringList m_said;
};

#include "probeplugin.moc"
