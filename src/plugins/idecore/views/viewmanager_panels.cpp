// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Panels and the layout of their docks.

#include <idecore/views/viewmanager.h>

#include <idecore/core/assertion_p.h>
#include <idecore/interfaces/ipanel.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/paneldock_p.h>
#include <idecore/views/viewmanager_p.h>

#include <QAction>
#include <QDebug>
#include <QLayout>
#include <QMenu>
#include <QPointer>

#include <algorithm>

namespace Core {

using private_impl::PanelDock;
using private_impl::ViewManagerPrivate;

namespace {

/// A layout that panels disturb more often than this stays as it came out.
constexpr int MAX_LAYOUT_ATTEMPTS = 10;

} // namespace

QDockWidget *ViewManagerPrivate::getDock(const IPanel *panel) const
{
    const auto found = std::find_if(docks.cbegin(), docks.cend(), [panel](QDockWidget *dock) {
        return panel && dock->widget() == panel;
    });
    return found != docks.cend() ? *found : nullptr;
}

QDockWidget *ViewManagerPrivate::getDock(const QString &name) const
{
    const auto found = std::find_if(docks.cbegin(), docks.cend(), [&name](QDockWidget *dock) {
        return dock->objectName() == name;
    });
    return found != docks.cend() ? *found : nullptr;
}

void ViewManagerPrivate::raiseDock(QDockWidget *dock)
{
    // The panel learns that it is shown and may end its dock.
    const QPointer<QDockWidget> raised(dock);
    raised->show();
    // A window that is not shown yet adds the tab, and one can only raise what has
    // a tab, no sooner than it is laid out. A dock alone in its place needs none.
    if (raised && !mainWindow->tabifiedDockWidgets(raised).isEmpty())
        mainWindow->layout()->activate();
    if (raised)
        raised->raise();
}

void ViewManagerPrivate::removeDock(QDockWidget *dock)
{
    if (!docks.contains(dock))
        return;
    mainWindow->removeDockWidget(dock);
    // The panel learns that it is hidden and may have ended the dock itself.
    if (!docks.removeOne(dock))
        return;
    ++dockChanges;
    dock->deleteLater();
}

bool ViewManagerPrivate::layOutDocks(Qt::DockWidgetArea area)
{
    struct Place
    {
        QDockWidget *dock;
        int priority;
    };
    QVector<Place> places;
    for (QDockWidget *dock : qAsConst(docks)) {
        const auto *panel = qobject_cast<IPanel *>(dock->widget());
        if (panel && panel->area() == area)
            places.append({dock, panel->layoutPriority()});
    }
    if (places.isEmpty())
        return true;
    std::stable_sort(places.begin(), places.end(), [](const Place &one, const Place &other) {
        return one.priority > other.priority;
    });

    // Hiding and showing runs the panels' own code, which may add and remove
    // panels: after each step that is looked at before a dock is touched again.
    const unsigned changes = dockChanges;
    const auto step = [this, changes](const auto &change) {
        change();
        return changes == dockChanges;
    };
    QDockWidget *first = places.constFirst().dock;
    for (const Place &place : qAsConst(places)) {
        QDockWidget *dock = place.dock;
        const bool placed = step([&] { mainWindow->removeDockWidget(dock); })
                            && step([&] { mainWindow->addDockWidget(area, dock); });
        if (!placed)
            return false;
        if (dock == first)
            continue;
        const bool tabbed = step([&] { dock->setFloating(false); })
                            && step([&] { dock->setVisible(true); })
                            && step([&] { mainWindow->tabifyDockWidget(first, dock); });
        if (!tabbed)
            return false;
    }
    return step([&] { first->setFloating(false); }) && step([&] { raiseDock(first); });
}

void ViewManager::addPanel(IPanel *panel)
{
    KELMO_ASSERT(panel, return);
    qDebug() << "add panel:" << panel;
    ViewManagerPrivate *d = ViewManagerPrivate::get();
    if (QDockWidget *shown = d->getDock(panel)) {
        d->raiseDock(shown);
        return;
    }
    auto *dock = new PanelDock(panel, d->mainWindow);
    // By its address alone: it is no dock any more when it says so.
    connect(dock, &QObject::destroyed, instance(), [d, dock] {
        if (d->docks.removeOne(dock))
            ++d->dockChanges;
    });
    connect(dock, &PanelDock::panelLost, instance(), [d, dock] { d->removeDock(dock); });
    const Qt::DockWidgetArea area = panel->area();
    d->mainWindow->addDockWidget(area, dock);
    d->docks.append(dock);
    ++d->dockChanges;
    d->panelsMenu->addAction(dock->toggleViewAction());
    instance()->resetDockLayout(area);
}

void ViewManager::removePanel(IPanel *panel)
{
    KELMO_ASSERT(panel, return);
    qDebug() << "remove panel:" << panel;
    ViewManagerPrivate *d = ViewManagerPrivate::get();
    if (QDockWidget *dock = d->getDock(panel))
        d->removeDock(dock);
}

void ViewManager::showPanel(IPanel *panel)
{
    ViewManagerPrivate *d = ViewManagerPrivate::get();
    if (QDockWidget *dock = d->getDock(panel))
        d->raiseDock(dock);
}

void ViewManager::hidePanel(IPanel *panel)
{
    if (QDockWidget *dock = ViewManagerPrivate::get()->getDock(panel))
        dock->setVisible(false);
}

void ViewManager::showPanel(const QString &name)
{
    ViewManagerPrivate *d = ViewManagerPrivate::get();
    if (QDockWidget *dock = d->getDock(name))
        d->raiseDock(dock);
}

void ViewManager::hidePanel(const QString &name)
{
    if (QDockWidget *dock = ViewManagerPrivate::get()->getDock(name))
        dock->setVisible(false);
}

void ViewManager::resetLayout()
{
    for (const Qt::DockWidgetArea area : {Qt::BottomDockWidgetArea, Qt::TopDockWidgetArea,
                                          Qt::LeftDockWidgetArea, Qt::RightDockWidgetArea}) {
        instance()->resetDockLayout(area);
    }
}

void ViewManager::resetDockLayout(Qt::DockWidgetArea area)
{
    for (int attempt = 0; attempt < MAX_LAYOUT_ATTEMPTS; ++attempt) {
        if (ViewManagerPrivate::get()->layOutDocks(area))
            return;
    }
}

void ViewManager::onActResetLayout()
{
    resetLayout();
}

} // namespace Core
