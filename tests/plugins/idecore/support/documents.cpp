// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/documents.h"

#include "support/corefixture.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>
#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QAction>
#include <QMenu>

namespace {
/// Full Screen, Tile, Cascade, Reset Layout, Panels and the separators.
constexpr int FIXED_WINDOW_ENTRIES = 9;

QAction *fileAction(const QString &text)
{
    const QList<QAction *> actions =
        Core::ActionManager::menu(QStringLiteral("Core.Menu.File"))->actions();
    for (QAction *action : actions) {
        if (action->text().startsWith(text))
            return action;
    }
    return nullptr;
}

} // namespace

TestView *showTestView(const char *title, QStringList *journal)
{
    auto *view = new TestView(QString::fromUtf8(title), journal);
    Core::ViewManager::showView(view);
    return view;
}

Utils::MdiArea *documentArea()
{
    return Core::ViewManager::mainWindow()->documentArea();
}

Utils::MdiSubWindow *windowOf(const Core::IView *view)
{
    const QList<Utils::MdiSubWindow *> windows = documentArea()->subWindows();
    for (Utils::MdiSubWindow *window : windows) {
        if (window->widget() == view)
            return window;
    }
    return nullptr;
}

QStringList listedViews()
{
    QMenu *menu = Core::ActionManager::menu(QStringLiteral("Core.Menu.Window"));
    Q_EMIT menu->aboutToShow();
    return menuEntries(menu).mid(FIXED_WINDOW_ENTRIES);
}

QAction *closeAction()
{
    return fileAction(QStringLiteral("&Close"));
}

QAction *closeAllAction()
{
    return fileAction(QStringLiteral("Close All"));
}
