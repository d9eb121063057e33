// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/views/viewmanager.h>

#include <idecore/actions/actionmanager.h>
#include <idecore/core/assertion_p.h>
#include <idecore/core/constants.h>
#include <idecore/core/ideicon.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager_p.h>
#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QAction>
#include <QApplication>
#include <QDebug>
#include <QIcon>
#include <QMenu>
#include <QSignalMapper>
#include <QStatusBar>
#include <QTimer>
#include <QVector>

#include <algorithm>

namespace Core {

using private_impl::ViewManagerPrivate;

namespace {

constexpr int SHOW_DELAY_MS = 1000;

ViewManager *m_instance = nullptr;
ViewManagerPrivate *d = nullptr;

IView *viewOf(const Utils::MdiSubWindow *window)
{
    return window ? qobject_cast<IView *>(window->widget()) : nullptr;
}

using WatchedWindow = QPointer<Utils::MdiSubWindow>;

/// For a walk during which windows may go, and others come to their addresses.
QVector<WatchedWindow> watched(const QList<Utils::MdiSubWindow *> &windows)
{
    return {windows.cbegin(), windows.cend()};
}

} // namespace

ViewManagerPrivate *ViewManagerPrivate::get()
{
    return d;
}

Utils::MdiSubWindow *ViewManagerPrivate::subWindow(const IView *view) const
{
    // Its parent, not a search: with hundreds of documents open that would be
    // felt at every opening.
    auto *window = view ? qobject_cast<Utils::MdiSubWindow *>(view->parentWidget()) : nullptr;
    return window && window->widget() == view && subWindows.contains(window) ? window : nullptr;
}

ViewManager::ViewManager()
{
    // By the names that the signals have them under, so that these can be queued
    // and recorded.
    qRegisterMetaType<ContextList>("Core::ContextList");
    qRegisterMetaType<IView *>("Core::IView*");
    m_instance = this;
    d = new ViewManagerPrivate;
    d->mainWindow = new IdeMainWindow;
    d->signalMapper = new QSignalMapper(this);
}

ViewManager::~ViewManager()
{
    // The main window goes first, and with it every document inside: while the
    // contexts and the list of views are still there to be told. No dock is taken
    // out of a window that is going.
    d->docks.clear();
    delete d->mainWindow;
    delete d->signalMapper;
    delete d;
    d = nullptr;
    m_instance = nullptr;
}

ViewManager *ViewManager::instance()
{
    return m_instance;
}

IdeMainWindow *ViewManager::mainWindow()
{
    return d->mainWindow;
}

QWidget *ViewManager::dialogParent()
{
    QWidget *modal = QApplication::activeModalWidget();
    return modal ? modal : d->mainWindow;
}

void ViewManager::raiseWindow(QWidget *widget)
{
    if (!widget)
        return;
    QWidget *window = widget->window();
    if (window == d->mainWindow) {
        d->mainWindow->raiseWindow();
    } else {
        window->raise();
        window->activateWindow();
    }
}

void ViewManager::initialize()
{
    using namespace Constants;

    d->mainWindow->setupUi();
    d->mdiArea = d->mainWindow->documentArea();
    d->windowMenu = ActionManager::menu(QString::fromLatin1(M_WINDOW));

    QMenu *fileMenu = ActionManager::menu(QString::fromLatin1(M_FILE));
    QAction *closeFront = ActionManager::separator(QString::fromLatin1(SEP_FILE_CLOSE_F));
    QAction *closeBehind = ActionManager::separator(QString::fromLatin1(SEP_FILE_CLOSE_B));
    QAction *printFront = ActionManager::separator(QString::fromLatin1(SEP_FILE_PRINT_F));
    fileMenu->insertAction(printFront, closeFront);
    fileMenu->insertAction(printFront, closeBehind);

    d->actClose = new QAction(tr("&Close"), m_instance);
    d->actClose->setEnabled(false);
    fileMenu->insertAction(closeBehind, d->actClose);
    connect(d->actClose, &QAction::triggered, m_instance, &ViewManager::onActClose);
    d->actCloseAll = new QAction(tr("Close All"), m_instance);
    d->actCloseAll->setEnabled(false);
    fileMenu->insertAction(closeBehind, d->actCloseAll);
    connect(d->actCloseAll, &QAction::triggered, m_instance, &ViewManager::onActCloseAll);

    auto *resetLayout = new QAction(tr("Reset Layout"), m_instance);
    d->windowMenu->addAction(resetLayout);
    connect(resetLayout, &QAction::triggered, m_instance, &ViewManager::onActResetLayout);
    d->windowMenu->addSeparator();
    d->panelsMenu = new QMenu(tr("Panels"), d->mainWindow);
    d->windowMenu->addMenu(d->panelsMenu);
    d->windowMenu->addSeparator();

    connect(qApp, &QApplication::focusChanged, m_instance, &ViewManager::updateFocusWidget);
    connect(d->mdiArea, &Utils::MdiArea::currentWindowChanged, m_instance,
            &ViewManager::onCurrentSubWindowChanged);
    connect(d->mdiArea, &Utils::MdiArea::windowClosed, m_instance, &ViewManager::onSubWindowClose);
    connect(d->windowMenu, &QMenu::aboutToShow, m_instance, &ViewManager::updateWindowMenu);
    connect(d->signalMapper, &QSignalMapper::mappedWidget, m_instance,
            &ViewManager::onActionMapped);
}

void ViewManager::extensionsInitialized()
{
    QTimer::singleShot(SHOW_DELAY_MS, d->mainWindow, &IdeMainWindow::prepareToShow);
}

void ViewManager::shutdown()
{
    disconnect(qApp, &QApplication::focusChanged, m_instance, &ViewManager::updateFocusWidget);
}

IView *ViewManager::currentView()
{
    return d->current();
}

void ViewManager::showView(IView *view)
{
    KELMO_ASSERT(view, return);
    qDebug() << "show view:" << view;
    if (Utils::MdiSubWindow *shown = d->subWindow(view)) {
        d->mdiArea->setCurrentSubWindow(shown);
        return;
    }
    if (view->windowIcon().isNull())
        view->setWindowIcon(productIcon());

    auto *window = new Utils::MdiSubWindow(nullptr);
    window->setWidget(view);
    window->setShortTitle(view->shortTitle());
    connect(view, &IView::shortTitleChanged, window, &Utils::MdiSubWindow::setShortTitle);
    connect(view, &IView::shortTitleChanged, m_instance, &ViewManager::updateActions);
    // Before the document area learns of it and reports what is current instead.
    connect(window, &Utils::MdiSubWindow::documentLost, m_instance, &ViewManager::onSubWindowLost);
    connect(window, &Utils::MdiSubWindow::aboutToBeDestroyed, m_instance,
            &ViewManager::onSubWindowLost);
    d->subWindows.append(window);
    d->mdiArea->addSubWindow(window);
}

bool ViewManager::closeView(IView *view)
{
    KELMO_ASSERT(view, return false);
    qDebug() << "closing view:" << view;
    Utils::MdiSubWindow *window = d->subWindow(view);
    if (!window)
        return false;
    d->mdiArea->setCurrentSubWindow(window);
    // Whoever was told of the activation may have closed it already.
    return !d->subWindows.contains(window) || window->close();
}

void ViewManager::removeView(IView *view)
{
    KELMO_ASSERT(view, return);
    qDebug() << "force remove view:" << view;
    // Whoever is told of the next current view may destroy the window.
    const QPointer<Utils::MdiSubWindow> window = d->subWindow(view);
    if (!window)
        return;
    d->mdiArea->removeSubWindow(window);
    if (!window)
        return;
    d->subWindows.removeOne(window);
    window->deleteLater();
}

bool ViewManager::closeAllViews()
{
    qDebug() << "closing all views";
    const QVector<WatchedWindow> history =
        watched(d->mdiArea->subWindows(QMdiArea::ActivationHistoryOrder));
    for (auto it = history.crbegin(); it != history.crend(); ++it) {
        const WatchedWindow &window = *it;
        // A view may take others with it when it closes.
        if (!window || !d->mdiArea->subWindows().contains(window))
            continue;
        const IView *view = viewOf(window);
        if (view && view->keepOpen)
            continue;
        if (!window->close())
            return false;
        // No activation is reported while the window is not visible.
        if (d->mainWindow->isMinimized())
            d->mdiArea->onSubWindowActivated();
    }
    return true;
}

void ViewManager::onActClose()
{
    closeView(currentView());
}

void ViewManager::onActCloseAll()
{
    // Asks every view, whatever the others answered, but none that went with
    // another.
    const QVector<WatchedWindow> windows = watched(d->subWindows);
    for (const WatchedWindow &window : windows) {
        d->mdiArea->setCurrentSubWindow(window);
        if (window && d->subWindows.contains(window))
            window->close();
    }
}

void ViewManager::onCurrentSubWindowChanged(Utils::MdiSubWindow *window)
{
    const auto change = ++d->currentChanges;
    if (IView *before = d->current())
        before->onDeactivated();
    // The view told first may have closed the other or shown a third; what is
    // current instead has been reported then.
    if (change != d->currentChanges)
        return;
    IView *view = viewOf(window);
    if (view)
        qDebug() << "current view:" << view << view->shortTitle();
    else
        qDebug() << "current view:" << static_cast<void *>(nullptr);
    d->currentView = view;
    if (view)
        view->onActivated();
    updateActions();
    Q_EMIT viewActiveted(d->current());
}

void ViewManager::onSubWindowClose(Utils::MdiSubWindow *window)
{
    IView *view = viewOf(window);
    qDebug() << "view closed:" << view << (view ? view->shortTitle() : QString());
    d->subWindows.removeOne(window);
    updateActions();
    Q_EMIT viewClosed(view);
}

void ViewManager::onSubWindowLost(Utils::MdiSubWindow *window)
{
    // One that closed or was removed is not missed.
    if (d->subWindows.removeOne(window))
        updateActions();
}

void ViewManager::updateActions()
{
    const IView *view = d->current();
    d->actClose->setText(view ? tr("&Close \"%1\"").arg(view->shortTitle()) : tr("&Close"));
    d->actClose->setEnabled(view);
    d->actCloseAll->setEnabled(!d->subWindows.isEmpty());
}

void ViewManager::updateWindowMenu()
{
    qDeleteAll(d->windowActions);
    d->windowActions.clear();
    for (Utils::MdiSubWindow *window : qAsConst(d->subWindows)) {
        const IView *view = viewOf(window);
        if (!view)
            continue;
        auto *action = new QAction(view->shortTitle(), this);
        action->setCheckable(true);
        action->setChecked(view == d->current());
        // On toggled, so that choosing the checked entry activates its window, too.
        connect(action, &QAction::toggled, d->signalMapper, qOverload<>(&QSignalMapper::map));
        d->signalMapper->setMapping(action, window);
        d->windowActions.append(action);
    }
    d->windowMenu->addActions(d->windowActions);
}

void ViewManager::onActionMapped(QWidget *widget)
{
    // The window may have gone while the menu was open, so only its address
    // tells.
    const QList<Utils::MdiSubWindow *> windows = d->mdiArea->subWindows();
    const auto window = std::find(windows.cbegin(), windows.cend(), widget);
    if (window != windows.cend())
        d->mdiArea->setCurrentSubWindow(*window);
}

void ViewManager::showTempStatusMessage(const QString &message, int timeout)
{
    d->mainWindow->showStatusMessage(message, timeout);
}

void ViewManager::clearTempStatusMessage()
{
    d->mainWindow->statusBar()->clearMessage();
}

void ViewManager::showNormalStatusMessage(const QString &message)
{
    d->mainWindow->showNormalStatusMessage(message);
}

void ViewManager::clearNormalStatusMessage()
{
    d->mainWindow->showNormalStatusMessage(QString());
}

void ViewManager::showPermanentStatusMessage(const QString &message)
{
    d->mainWindow->showPermanentStatusMessage(message);
}

void ViewManager::clearPermanentStatusMessage()
{
    d->mainWindow->showPermanentStatusMessage(QString());
}

} // namespace Core
