// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_VIEWS_VIEWMANAGER_P_H
#define IDECORE_VIEWS_VIEWMANAGER_P_H

#include <idecore/interfaces/iview.h>
#include <utils/mdisubwindow.h>

#include <QHash>
#include <QList>
#include <QPointer>
#include <QStringList>

#include <memory>
#include <unordered_map>

class QAction;
class QMenu;
class QSignalMapper;

namespace Utils {
class MdiArea;
}

namespace Core {

class IdeMainWindow;

namespace private_impl {

/// The state of the ViewManager.
class ViewManagerPrivate final
{
public:
    /// The one that exists; null while there is no ViewManager.
    [[nodiscard]] static ViewManagerPrivate *get();

    struct ViewWindow
    {
        Utils::MdiSubWindow *window = nullptr;
        /// Null from the moment the window is being destroyed.
        QPointer<Utils::MdiSubWindow> guard;
    };

    /// Ends the registration of a widget that may be in its destructor.
    void forgetContexts(QObject *widget);
    /// The sub-window that holds @p view; null when the view is not shown.
    [[nodiscard]] Utils::MdiSubWindow *subWindow(const QObject *view) const
    {
        return windowOfView.value(view).window;
    }

    // Contexts
    /// By widget, as an object: an entry may outlive its widget's class by a
    /// destructor.
    std::unordered_map<const QObject *, std::unique_ptr<QStringList>> widgetContexts;
    QStringList globalContexts;

    // Documents
    IdeMainWindow *mainWindow = nullptr;
    Utils::MdiArea *mdiArea = nullptr;
    /// In the order in which the views were first shown.
    QList<Utils::MdiSubWindow *> subWindows;
    QHash<const QObject *, ViewWindow> windowOfView;
    QPointer<IView> currentView;
    QAction *actClose = nullptr;
    QAction *actCloseAll = nullptr;
    QMenu *windowMenu = nullptr;
    QMenu *panelsMenu = nullptr;
    QList<QAction *> windowActions;
    QSignalMapper *signalMapper = nullptr;
};

} // namespace private_impl
} // namespace Core

#endif // IDECORE_VIEWS_VIEWMANAGER_P_H
