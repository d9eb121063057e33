// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "mdiarea_p.h"

#include "documentswitcher_p.h"
#include "documenttabbar_p.h"

#include <utils/mdisubwindow.h>

#include <QAction>
#include <QApplication>
#include <QChildEvent>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QUrl>

namespace Utils {

MdiArea::Private::Private(MdiArea *area)
    : q(area)
{
}

void MdiArea::Private::setUp()
{
    tabBar = new DocumentTabBar(q);
    tabBar->hide();
    connect(tabBar, &DocumentTabBar::documentChosen, this, &Private::onDocumentChosen);
    connect(tabBar, &DocumentTabBar::closeRequested, this, &Private::onCloseRequested);
    connect(tabBar, &DocumentTabBar::menuRequested, this, &Private::showMenu);
    connect(q, &QMdiArea::subWindowActivated, this, &Private::onActivatedByArea);
}

MdiArea::Private::~Private() = default;

void MdiArea::Private::connectWindow(MdiSubWindow *window)
{
    connect(window, &MdiSubWindow::closed, this, &Private::onClosed);
    connect(window, &MdiSubWindow::documentLost, this, &Private::onLost);
    connect(window, &MdiSubWindow::aboutToBeDestroyed, this, &Private::onDestroyed);
    connect(window, &MdiSubWindow::maximizeRequested, this, &Private::onMaximizeRequested);
    connect(window, &MdiSubWindow::appearanceChanged, tabBar, &DocumentTabBar::updateDocument);
}

void MdiArea::Private::makeCurrent(MdiSubWindow *window, Reason reason)
{
    {
        const QScopedValueRollback<bool> guard(busy, true);
        const QPointer<QWidget> focus(reason == Reason::ChosenByKey ? QApplication::focusWidget()
                                                                    : nullptr);
        MdiSubWindow *const previous = current;
        current = window;
        history.removeOne(window);
        history.append(window);
        tabBar->setCurrentDocument(window);
        showCurrent(reason);
        // Only then, so that the focus never has to look for a place; and also when
        // what reacts to the focus has gone on to another document.
        if (tabbed && previous != current && creation.contains(previous))
            putToSleep(previous);
        if (current != window)
            return;
        if (focus)
            focus->setFocus();
        else
            giveFocus(window);
        if (current != window)
            return;
    }
    Q_EMIT q->currentWindowChanged(window);
}

void MdiArea::Private::showCurrent(Reason reason)
{
    MdiSubWindow *const window = current;
    if (tabbed) {
        fill();
        window->setDormant(false);
    } else {
        // One that is activated as it lies there, is to lie there.
        if (window->isMinimized() && reason != Reason::ActivatedByArea)
            window->showNormal();
        window->raise();
    }
    // The focus moves when all is shown, not in between: whatever reacts to it may
    // go on to another document.
    window->setShownQuietly(true);
    if (current == window)
        activate(window);
}

void MdiArea::Private::putToSleep(MdiSubWindow *window)
{
    const QPointer<MdiSubWindow> alive(window);
    window->setShownQuietly(false);
    if (alive)
        window->setDormant(true);
}

void MdiArea::Private::activate(MdiSubWindow *window)
{
    // For a maximised one QMdiSubWindow would see to buttons in the menu bar, have
    // that painted anew and filter the events of the main window from now on.
    const QPointer<MdiSubWindow> alive(window);
    window->markMaximized(false);
    q->setActiveSubWindow(window);
    if (alive)
        window->markMaximized(true);
}

void MdiArea::Private::giveFocus(MdiSubWindow *window) const
{
    const QWidget *focus = QApplication::focusWidget();
    if (focus && (focus == window || window->isAncestorOf(focus))
        && !(focus == window && window->widget()))
        return;
    QWidget *document = window->widget();
    QWidget *target = document ? document->focusWidget() : nullptr;
    if (!target || target->focusPolicy() == Qt::NoFocus || !target->isVisibleTo(window))
        target = document && document->focusPolicy() != Qt::NoFocus ? document : nullptr;
    for (QWidget *next = window->nextInFocusChain();
         !target && next && next != window && window->isAncestorOf(next);
         next = next->nextInFocusChain()) {
        if (next->focusPolicy() != Qt::NoFocus && next->isVisibleTo(window) && next->isEnabled())
            target = next;
    }
    (target ? target : window)->setFocus();
}

void MdiArea::Private::fill()
{
    placeTabBar();
    if (current)
        current->setGeometry(q->viewport()->rect());
}

void MdiArea::Private::placeTabBar()
{
    const bool wanted = tabbed && !creation.isEmpty();
    const int height = wanted ? tabBar->sizeHint().height() : 0;
    if (q->viewportMargins().top() != height)
        q->setViewportMargins(0, height, 0, 0);
    const int frame = q->frameWidth();
    tabBar->setGeometry(frame, frame, q->width() - 2 * frame, height);
    tabBar->setVisible(wanted);
}

void MdiArea::Private::setTabbed(bool on)
{
    if (tabbed == on)
        return;
    const QScopedValueRollback<bool> guard(busy, true);
    tabbed = on;
    const Qt::ScrollBarPolicy policy = on ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
    q->setHorizontalScrollBarPolicy(policy);
    q->setVerticalScrollBarPolicy(policy);
    placeTabBar();
    const QVector<MdiSubWindow *> windows = creation;
    for (MdiSubWindow *window : windows) {
        // What reacts to being shown or hidden may have destroyed it.
        if (!creation.contains(window))
            continue;
        // Hidden first, or it would be laid out once more without its frame.
        if (on && window != current)
            putToSleep(window);
        if (!creation.contains(window))
            continue;
        window->setFramed(!on);
        if (!on && window != current) {
            window->setDormant(false);
            window->setShownQuietly(true);
        }
    }
    if (current) {
        if (on)
            fill();
        current->raise();
    }
}

void MdiArea::Private::forget(MdiSubWindow *window)
{
    window->disconnect(this);
    window->disconnect(tabBar);
    creation.removeOne(window);
    history.removeOne(window);
    tabBar->removeDocument(window);
    if (switcher)
        switcher->forget(window);
    if (current == window)
        current = nullptr;
}

void MdiArea::Private::currentIsGone()
{
    if (current)
        return;
    if (creation.isEmpty()) {
        endWalk(false);
        setTabbed(true);
        placeTabBar();
        Q_EMIT q->currentWindowChanged(nullptr);
    } else {
        makeCurrent(history.last());
    }
}

void MdiArea::Private::takeOut(MdiSubWindow *window)
{
    const bool wasCurrent = window == current;
    forget(window);
    {
        const QScopedValueRollback<bool> guard(busy, true);
        q->QMdiArea::removeSubWindow(window);
        window->setDormant(false);
        window->setFramed(true);
    }
    if (wasCurrent)
        currentIsGone();
}

void MdiArea::Private::onClosed(MdiSubWindow *window)
{
    const bool wasCurrent = window == current;
    forget(window);
    {
        // QMdiArea learns of it as from any window of its own that closes.
        const QScopedValueRollback<bool> guard(busy, true);
        QChildEvent removed(QEvent::ChildRemoved, window);
        QCoreApplication::sendEvent(q->viewport(), &removed);
    }
    const QPointer<Private> alive(this);
    Q_EMIT q->windowClosed(window);
    if (alive && wasCurrent)
        currentIsGone();
}

void MdiArea::Private::onLost(MdiSubWindow *window)
{
    takeOut(window);
    window->deleteLater();
}

void MdiArea::Private::onDestroyed(MdiSubWindow *window)
{
    const bool wasCurrent = window == current;
    forget(window);
    {
        const QScopedValueRollback<bool> guard(busy, true);
        QChildEvent removed(QEvent::ChildRemoved, window);
        QCoreApplication::sendEvent(q->viewport(), &removed);
    }
    if (wasCurrent)
        currentIsGone();
}

void MdiArea::Private::onMaximizeRequested(MdiSubWindow *window)
{
    const bool other = window != current;
    if (other) {
        // Not shown as a window first.
        const QScopedValueRollback<bool> guard(busy, true);
        current = window;
    }
    setTabbed(true);
    // What reacts to being hidden may have closed it.
    if (!creation.contains(window))
        return;
    if (other)
        makeCurrent(window);
    else
        giveFocus(window);
}

void MdiArea::Private::onActivatedByArea(QMdiSubWindow *window)
{
    // Null means that the main window is no longer active, which leaves the
    // current document what it is.
    auto *document = qobject_cast<MdiSubWindow *>(window);
    if (busy || !document || document == current || document->isHidden()
        || !creation.contains(document))
        return;
    makeCurrent(document, Reason::ActivatedByArea);
}

void MdiArea::Private::onDocumentChosen(MdiSubWindow *window, bool byKey)
{
    if (window != current)
        makeCurrent(window, byKey ? Reason::ChosenByKey : Reason::Chosen);
    else if (!byKey)
        giveFocus(window);
}

void MdiArea::Private::onCloseRequested(MdiSubWindow *window)
{
    static_cast<void>(closeList({window}));
}

bool MdiArea::Private::closeList(const QVector<MdiSubWindow *> &windows)
{
    QVector<QPointer<MdiSubWindow>> watched;
    watched.reserve(windows.size());
    for (MdiSubWindow *window : windows)
        watched.append(window);
    for (const QPointer<MdiSubWindow> &window : qAsConst(watched)) {
        if (!window || !creation.contains(window))
            continue;
        // The user has to see what is being asked about.
        if (window->isDocumentModified() && window != current)
            makeCurrent(window);
        if (window && !window->close())
            return false;
    }
    return true;
}

void MdiArea::Private::showMenu(MdiSubWindow *window, const QPoint &globalPos)
{
    const QPointer<MdiSubWindow> document(window);
    const QString path = window->filePath();
    // Goes with the area, should that be destroyed while the menu is open.
    const QPointer<QMenu> menu(new QMenu(q));
    menu->setObjectName(QStringLiteral("documentMenu"));
    const QAction *close = menu->addAction(tr("&Close"));
    QAction *closeOthers = menu->addAction(tr("Close &Others"));
    closeOthers->setEnabled(creation.size() > 1);
    const QAction *closeAll = menu->addAction(tr("Close &All"));
    menu->addSeparator();
    QAction *copyPath = menu->addAction(tr("Copy &Path"));
    copyPath->setEnabled(!path.isEmpty());
    QAction *openFolder = menu->addAction(tr("Open Containing &Folder"));
    openFolder->setEnabled(!path.isEmpty());

    const QAction *chosen = menu->exec(globalPos);
    if (!menu)
        return;
    menu->deleteLater();
    if (!chosen || !document || !creation.contains(document))
        return;
    if (chosen == close)
        onCloseRequested(document);
    else if (chosen == closeOthers)
        q->closeOthers(document);
    else if (chosen == closeAll)
        q->closeAll();
    else if (chosen == copyPath)
        QApplication::clipboard()->setText(QDir::toNativeSeparators(path));
    else if (chosen == openFolder)
        QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
}

bool MdiArea::Private::handleKey(const QObject *object, const QKeyEvent *event, bool press)
{
    const bool walking = switcher && switcher->isVisible();
    if (!press) {
        if (walking && event->key() == Qt::Key_Control)
            endWalk(true);
        return false;
    }
    if (walking && event->key() == Qt::Key_Escape) {
        endWalk(false);
        return true;
    }
    const bool back =
        event->key() == Qt::Key_Backtab
        || (event->key() == Qt::Key_Tab && event->modifiers().testFlag(Qt::ShiftModifier));
    if ((event->key() != Qt::Key_Tab && !back) || !event->modifiers().testFlag(Qt::ControlModifier))
        return false;
    // From the documents, or from the window when nothing has the focus; a
    // panel may use the keys for its own pages.
    const auto *widget = static_cast<const QWidget *>(object);
    if (widget != q->window() && widget != q && !q->isAncestorOf(widget))
        return false;
    if (history.size() > 1) {
        if (!walking) {
            if (!switcher) {
                switcher = new DocumentSwitcher(q);
                connect(switcher, &DocumentSwitcher::committed, this, [this] { endWalk(true); });
            }
            QVector<MdiSubWindow *> recent(history.crbegin(), history.crend());
            switcher->start(recent, q->rect());
        }
        switcher->step(back ? -1 : 1);
    }
    return true;
}

void MdiArea::Private::endWalk(bool commit)
{
    if (!switcher || !switcher->isVisible())
        return;
    MdiSubWindow *chosen = switcher->chosen();
    switcher->hide();
    if (commit && chosen && chosen != current)
        makeCurrent(chosen);
}

} // namespace Utils
