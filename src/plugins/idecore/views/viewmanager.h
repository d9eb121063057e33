// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_VIEWS_VIEWMANAGER_H
#define IDECORE_VIEWS_VIEWMANAGER_H

#include <idecore/idecore_export.h>

#include <QObject>
#include <QStringList>

class QWidget;

namespace Utils {
class MdiSubWindow;
}

namespace Core {

class IPanel;
class IView;
class IdeMainWindow;

/// Context ids, the most specific first; may hold repeats.
using ContextList = QStringList;

/// Owns the main window, shows documents and panels in it, and follows the keyboard focus
/// to tell which contexts, and so which commands, are current.
///
/// GUI thread only; valid between the construction by IdeCore and its shut-down.
/// A null widget to attach contexts to, an empty context and a null view are
/// mistakes of the caller: each is logged as critical and nothing is done.
class IDECORE_EXPORT ViewManager final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ViewManager)
public:
    ViewManager();
    ~ViewManager() override;

    [[nodiscard]] static ViewManager *instance();
    [[nodiscard]] static IdeMainWindow *mainWindow();
    /// The parent for every dialog: the active modal widget, else the main
    /// window.
    [[nodiscard]] static QWidget *dialogParent();
    /// Brings the window that holds @p widget to the front; null is ignored.
    static void raiseWindow(QWidget *widget);

    /// Attaches @p context to @p widget, in front of the widget's earlier ones.
    /// It is current while the focus is in the widget or in a descendant that
    /// has no contexts of its own; it takes effect with the next focus change.
    /// With @p strongFocus the widget takes the focus by tab and click. The
    /// registration ends with the widget.
    static void registerContext(QWidget *widget, const QString &context, bool strongFocus = false);
    /// Detaches every occurrence of @p context from @p widget, from the next focus
    /// change on. Left without any, the widget still hides the contexts of its
    /// ancestors.
    static void deregisterContext(QWidget *widget, const QString &context);
    /// Detaches all contexts of @p widget, from the next focus change on; those of
    /// its ancestors show again.
    static void deregisterContext(QWidget *widget);
    /// Makes @p context current whatever has the focus, in front of the earlier
    /// ones and behind those of the widget. At once, and reported also when it was
    /// current already; while the focus is in a menu bar, a menu or a tool bar with
    /// the next focus change.
    static void addGlobalContext(const QString &context);
    /// Undoes addGlobalContext(), however often that was called. Takes effect, and
    /// is reported, as that is, also when there is nothing to undo.
    static void removeGlobalContext(const QString &context);

    /// Null while no view is current.
    [[nodiscard]] static IView *currentView();
    /// Shows @p view as a document and makes it current; from then on its
    /// sub-window owns it. A view already shown is brought forward.
    static void showView(IView *view);
    /// Asks @p view to close, which destroys it. False when it refused or is
    /// not shown.
    static bool closeView(IView *view);
    /// Takes @p view out and destroys it without asking it.
    static void removeView(IView *view);
    /// Asks all views but those to be kept open, the most recently used first,
    /// and stops with false at the first that refuses.
    static bool closeAllViews();

    /// Docks @p panel in its area and lays the area out anew; from then on its
    /// dock owns it. A panel already docked is brought forward.
    static void addPanel(IPanel *panel);
    /// Takes @p panel away. It is destroyed, with its dock, when control returns
    /// to the event loop; added again before, it lives on.
    static void removePanel(IPanel *panel);
    /// Shows the dock of @p panel and brings it forward; ignores a panel that has
    /// none.
    static void showPanel(IPanel *panel);
    static void hidePanel(IPanel *panel);
    /// As above, for the panel of that name; of several, the one added first.
    static void showPanel(const QString &name);
    static void hidePanel(const QString &name);
    /// Lays out all areas as resetDockLayout() does.
    static void resetLayout();
    /// Puts the panels that belong into @p area back there, shown, as one group
    /// of tabs in the order of their priorities.
    void resetDockLayout(Qt::DockWidgetArea area);

    /// Shows @p message in the status bar for @p timeout milliseconds, 0
    /// meaning until it is replaced.
    static void showTempStatusMessage(const QString &message, int timeout);
    static void clearTempStatusMessage();
    /// Kept for callers: the main window does not show normal messages.
    static void showNormalStatusMessage(const QString &message);
    static void clearNormalStatusMessage();
    /// Shows @p message at the right end of the status bar until it is replaced.
    static void showPermanentStatusMessage(const QString &message);
    static void clearPermanentStatusMessage();

    /// Brings "Close" and "Close All" up to date with the views.
    static void updateActions();

    // Called by IdeCore, once each.

    /// Builds the interface of the main window and begins to follow the focus.
    void initialize();
    /// Schedules the main window to be shown.
    void extensionsInitialized();
    /// Stops following the focus; documents and windows stay until the destruction.
    void shutdown();

public Q_SLOTS:
    /// Forms the contexts that are current with the focus in @p now, hands them
    /// to the commands and emits contextsChanged(); nothing happens while the
    /// focus is in a menu bar, a menu or a tool bar.
    void updateFocusWidget(QWidget *old, QWidget *now);
    void onRegistedWidgetDelete();
    void onCurrentSubWindowChanged(Utils::MdiSubWindow *window);
    void onSubWindowClose(Utils::MdiSubWindow *window);
    void updateWindowMenu();
    void onActionMapped(QWidget *widget);
    void onActClose();
    void onActCloseAll();
    void onActResetLayout();

Q_SIGNALS:
    /// The current contexts have been formed anew; every command is bound
    /// accordingly.
    void contextsChanged(Core::ContextList contexts);
    /// @p view, which may be null, is the current view now and knows it.
    void viewActiveted(Core::IView *view);
    /// @p view has left the documents and is about to be destroyed. Null when a
    /// window was closed that a plugin had added without a view.
    void viewClosed(Core::IView *view);

private:
    /// @p window or its view is being destroyed, or the view was taken out of it,
    /// and nobody was asked.
    void onSubWindowLost(Utils::MdiSubWindow *window);
};

} // namespace Core

#endif // IDECORE_VIEWS_VIEWMANAGER_H
