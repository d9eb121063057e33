// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <utils/mdiarea.h>

#include "documenttabbar_p.h"
#include "mdiarea_p.h"

#include <utils/mdisubwindow.h>

#include <QAction>
#include <QEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QPointer>
#include <QResizeEvent>
#include <QScopedValueRollback>

namespace Utils {

MdiArea::MdiArea(QWidget *parent)
    : QMdiArea(parent)
    , d(std::make_unique<Private>(this))
{
    // By the name that the signals have it under, so that these can be queued and
    // recorded.
    qRegisterMetaType<MdiSubWindow *>("Utils::MdiSubWindow*");
    d->setUp();
    // How a document is shown is decided here, for the one that is current.
    setOption(DontMaximizeSubWindowOnActivation);
    setActivationOrder(ActivationHistoryOrder);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAccessibleName(tr("Documents"));

    auto *close = new QAction(tr("Close Document"), this);
    close->setShortcuts(QKeySequence::Close);
    close->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(close, &QAction::triggered, this, &MdiArea::closeCurrent);
    addAction(close);
}

MdiArea::~MdiArea()
{
    // The windows are destroyed by the base; nobody is told of a next one.
    for (MdiSubWindow *window : qAsConst(d->creation)) {
        window->disconnect(d.get());
        window->disconnect(d->tabBar);
    }
    d->disconnect(this);
    disconnect(d.get());
}

QList<MdiSubWindow *> MdiArea::subWindows(QMdiArea::WindowOrder order) const
{
    switch (order) {
    case CreationOrder:
        return d->creation.toList();
    case ActivationHistoryOrder:
        return d->history.toList();
    case StackingOrder:
        break;
    }
    QList<MdiSubWindow *> windows;
    const QList<QMdiSubWindow *> list = subWindowList(order);
    for (QMdiSubWindow *window : list) {
        if (auto *document = qobject_cast<MdiSubWindow *>(window))
            windows.append(document);
    }
    return windows;
}

MdiSubWindow *MdiArea::currentWindow() const
{
    return d->current;
}

bool MdiArea::isTabbed() const
{
    return d->tabbed;
}

void MdiArea::addSubWindow(MdiSubWindow *window)
{
    if (!window || d->creation.contains(window)) {
        setCurrentSubWindow(window);
        return;
    }
    {
        const QScopedValueRollback<bool> guard(d->busy, true);
        window->enter(viewport(), !d->tabbed);
        // Sized before QMdiArea would lay it out to learn its size.
        d->creation.append(window);
        d->placeTabBar();
        const QRect room = viewport()->rect();
        if (d->tabbed)
            window->setGeometry(room);
        else
            window->resize(window->sizeHint().boundedTo(room.size()));
        QMdiArea::addSubWindow(window);
        window->entered();
        d->connectWindow(window);
        d->history.append(window);
        d->tabBar->addDocument(window);
    }
    d->makeCurrent(window);
}

void MdiArea::removeSubWindow(MdiSubWindow *window)
{
    if (d->creation.contains(window))
        d->takeOut(window);
}

void MdiArea::setCurrentSubWindow(MdiSubWindow *window)
{
    if (d->creation.contains(window))
        d->makeCurrent(window);
}

QSize MdiArea::sizeHint() const
{
    // Not what the documents would like: there may be hundreds.
    return {800, 600};
}

QSize MdiArea::minimumSizeHint() const
{
    // QMdiArea asks every document.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    return QAbstractScrollArea::minimumSizeHint(); // clazy:exclude=skipped-base-method
}

void MdiArea::onSubWindowActivated()
{
    if (!d->current && !d->creation.isEmpty())
        d->makeCurrent(d->history.last());
}

void MdiArea::tileSubWindows()
{
    if (d->creation.isEmpty())
        return;
    d->setTabbed(false);
    const QScopedValueRollback<bool> guard(d->busy, true);
    QMdiArea::tileSubWindows();
}

void MdiArea::cascadeSubWindows()
{
    if (d->creation.isEmpty())
        return;
    d->setTabbed(false);
    const QScopedValueRollback<bool> guard(d->busy, true);
    QMdiArea::cascadeSubWindows();
}

void MdiArea::showTabs()
{
    d->setTabbed(true);
}

void MdiArea::closeCurrent()
{
    if (d->current)
        d->current->close();
}

bool MdiArea::closeOthers(MdiSubWindow *window)
{
    QVector<MdiSubWindow *> others = d->tabBar->documents();
    others.removeOne(window);
    return d->closeList(others);
}

bool MdiArea::closeAll()
{
    return d->closeList(d->tabBar->documents());
}

bool MdiArea::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::PaletteChange:
        setBackground(palette().brush(QPalette::Dark));
        break;
    case QEvent::StyleChange:
    case QEvent::FontChange:
    case QEvent::LayoutRequest:
        if (d->tabbed)
            d->fill();
        break;
    case QEvent::WindowDeactivate:
    case QEvent::Hide:
        d->endWalk(false);
        break;
    default:
        break;
    }
    if (event->type() != QEvent::WindowActivate || !d->current)
        return QMdiArea::event(event);
    // The base activates the current window.
    const QPointer<MdiSubWindow> window(d->current);
    window->markMaximized(false);
    const bool handled = QMdiArea::event(event);
    if (window)
        window->markMaximized(true);
    return handled;
}

bool MdiArea::eventFilter(QObject *object, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease) {
        if (object->isWidgetType()
            && d->handleKey(object, static_cast<QKeyEvent *>(event), type == QEvent::KeyPress))
            return true;
        // The base would walk with a rubber band.
        // NOLINTNEXTLINE(bugprone-parent-virtual-call)
        return QAbstractScrollArea::eventFilter(object, event); // clazy:exclude=skipped-base-method
    }
    // Scroll bars follow moving windows; there are none under tabs.
    if (d->tabbed && (type == QEvent::Move || type == QEvent::Resize)) {
        // NOLINTNEXTLINE(bugprone-parent-virtual-call)
        return QAbstractScrollArea::eventFilter(object, event); // clazy:exclude=skipped-base-method
    }
    return QMdiArea::eventFilter(object, event);
}

void MdiArea::resizeEvent(QResizeEvent *event)
{
    if (d->tabbed)
        d->fill();
    else
        QMdiArea::resizeEvent(event);
}

void MdiArea::showEvent(QShowEvent *event)
{
    const QScopedValueRollback<bool> guard(d->busy, true);
    if (d->tabbed)
        d->fill();
    QMdiArea::showEvent(event);
    if (d->current && activeSubWindow() != d->current)
        d->activate(d->current);
}

} // namespace Utils
