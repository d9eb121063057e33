// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/testpanel.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QTabBar>

using Core::ViewManager;

namespace {
/// On a copy, because @p function may take itself away.
void run(std::function<void()> function)
{
    if (function)
        function();
}
} // namespace

PlainPanel::PlainPanel(const QString &name, Qt::DockWidgetArea area)
    : m_name(name)
    , m_area(area)
{
}

TestPanel::TestPanel(const QString &name, Qt::DockWidgetArea area, int layoutPriority)
    : title(name)
    , priority(layoutPriority)
    , m_name(name)
    , m_area(area)
{
}

TestPanel::~TestPanel()
{
    run(whenDestroyed);
}

void TestPanel::showEvent(QShowEvent *event)
{
    IPanel::showEvent(event);
    run(whenShown);
}

void TestPanel::hideEvent(QHideEvent *event)
{
    IPanel::hideEvent(event);
    run(whenHidden);
}

TestPanel *addTestPanel(const char *name, Qt::DockWidgetArea area, int priority)
{
    auto *panel = new TestPanel(QString::fromUtf8(name), area, priority);
    ViewManager::addPanel(panel);
    return panel;
}

QList<QDockWidget *> docks()
{
    return ViewManager::mainWindow()->findChildren<QDockWidget *>(QString(),
                                                                  Qt::FindDirectChildrenOnly);
}

QDockWidget *dockOf(const Core::IPanel *panel)
{
    const QList<QDockWidget *> all = docks();
    for (QDockWidget *dock : all) {
        if (dock->widget() == panel)
            return dock;
    }
    return nullptr;
}

QStringList dockGroups(Qt::DockWidgetArea area)
{
    QStringList shown;
    const QList<QDockWidget *> all = docks();
    for (const QDockWidget *dock : all) {
        if (!dock->isHidden() && !dock->isFloating()
            && ViewManager::mainWindow()->dockWidgetArea(const_cast<QDockWidget *>(dock)) == area)
            shown.append(dock->windowTitle());
    }
    QStringList groups;
    const QList<QTabBar *> bars =
        ViewManager::mainWindow()->findChildren<QTabBar *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QTabBar *bar : bars) {
        QStringList titles;
        for (int i = 0; i < bar->count(); ++i) {
            if (!shown.contains(bar->tabText(i)))
                continue;
            shown.removeOne(bar->tabText(i));
            titles.append(i == bar->currentIndex()
                              ? QLatin1Char('[') + bar->tabText(i) + QLatin1Char(']')
                              : bar->tabText(i));
        }
        if (!titles.isEmpty())
            groups.append(titles.join(QLatin1Char(' ')));
    }
    for (const QString &title : qAsConst(shown))
        groups.append(QLatin1Char('[') + title + QLatin1Char(']'));
    return groups;
}

QMenu *panelsMenu()
{
    const QList<QAction *> actions =
        Core::ActionManager::menu(QStringLiteral("Core.Menu.Window"))->actions();
    for (const QAction *action : actions) {
        if (action->text() == QLatin1String("Panels"))
            return action->menu();
    }
    return nullptr;
}
