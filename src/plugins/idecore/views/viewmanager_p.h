// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_VIEWS_VIEWMANAGER_P_H
#define IDECORE_VIEWS_VIEWMANAGER_P_H

#include <idecore/interfaces/iview.h>

#include <QList>
#include <QPointer>
#include <QStringList>

#include <memory>
#include <unordered_map>

class QAction;
class QDockWidget;
class QMenu;
class QSignalMapper;

namespace Utils {
class MdiArea;
class MdiSubWindow;
} // namespace Utils

namespace Core {

class IPanel;
class IdeMainWindow;

namespace private_impl {

/// The state of the ViewManager.
class ViewManagerPrivate final
{
public:
    /// The one that exists; null while there is no ViewManager.
    [[nodiscard]] static ViewManagerPrivate *get();

    /// The sub-window that holds @p view; null when the view is not shown.
    [[nodiscard]] Utils::MdiSubWindow *subWindow(const IView *view) const;
    /// Null also while the current view is being destroyed: it is no IView any
    /// more when its guard still holds it.
    [[nodiscard]] IView *current() const { return qobject_cast<IView *>(currentView.data()); }

    /// The dock that holds @p panel; null when it has none.
    [[nodiscard]] QDockWidget *getDock(const IPanel *panel) const;
    /// The first dock of exactly that name; null when there is none.
    [[nodiscard]] QDockWidget *getDock(const QString &name) const;
    void raiseDock(QDockWidget *dock);
    /// Ends the life of a dock, and of the panel in it; one that is not listed
    /// any more is left alone.
    void removeDock(QDockWidget *dock);
    /// False when panels came or went meanwhile, and the layout is not done.
    [[nodiscard]] bool layOutDocks(Qt::DockWidgetArea area);

    // Contexts
    std::unordered_map<const QWidget *, std::unique_ptr<QStringList>> widgetContexts;
    QStringList globalContexts;
    /// As last handed to the commands.
    QStringList currentContexts;

    // Documents
    IdeMainWindow *mainWindow = nullptr;
    Utils::MdiArea *mdiArea = nullptr;
    /// In the order in which the views were first shown. Tells which views
    /// exist; a window leaves it when it closes, is taken out, or it or its view is
    /// destroyed.
    QList<Utils::MdiSubWindow *> subWindows;
    QPointer<QWidget> currentView;
    /// Counts the reports of the current window, so that one can tell that
    /// another came in between.
    unsigned currentChanges = 0;
    QAction *actClose = nullptr;
    QAction *actCloseAll = nullptr;
    QMenu *windowMenu = nullptr;
    QList<QAction *> windowActions;
    QSignalMapper *signalMapper = nullptr;

    // Panels
    QMenu *panelsMenu = nullptr;
    /// In the order in which the panels were added.
    QList<QDockWidget *> docks;
    /// Counts what comes into and leaves the list.
    unsigned dockChanges = 0;
};

} // namespace private_impl
} // namespace Core

#endif // IDECORE_VIEWS_VIEWMANAGER_P_H
