// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <utils/mdisubwindow.h>

#include "dormantshortcuts_p.h"

#include <QAction>
#include <QApplication>
#include <QChildEvent>
#include <QCloseEvent>
#include <QDir>
#include <QIcon>
#include <QMenu>
#include <QPointer>
#include <QWindowStateChangeEvent>

namespace Utils {

namespace {
QString withoutPlaceholder(QString title)
{
    return title.remove(QStringLiteral("[*]"));
}

// On top of one another under tabs, so that none is asked whether another one
// has to stay above it when it is raised.
constexpr Qt::WindowFlags tabbedFlags =
    Qt::SubWindow | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;

// What a maximised QMdiSubWindow would pass on to the main window, which has a
// title and a modified sign of its own.
bool reachesMainWindow(const QEvent *event)
{
    return event->type() == QEvent::WindowTitleChange || event->type() == QEvent::ModifiedChange
           || event->type() == QEvent::Show;
}
} // namespace

class MdiSubWindow::Private
{
public:
    QString shortTitle;
    const QObject *document = nullptr; // only compared, never followed
    DormantShortcuts shortcuts;
    bool framed = true;
    bool entering = false;
    bool quiet = false; // shown and hidden by the area, which does the rest itself
};

MdiSubWindow::MdiSubWindow(QWidget *parent)
    : QMdiSubWindow(parent)
    , d(std::make_unique<Private>())
{
    setAttribute(Qt::WA_DeleteOnClose);
    // Closing the last document is no reason to end the application.
    setAttribute(Qt::WA_QuitOnClose, false);
    // The area has the keys for closing, once for all windows.
    const QList<QAction *> menuActions = systemMenu()->actions();
    for (QAction *action : menuActions) {
        if (!action->shortcut().isEmpty())
            action->setShortcuts(QList<QKeySequence>());
    }
}

MdiSubWindow::~MdiSubWindow()
{
    Q_EMIT aboutToBeDestroyed(this);
    // Out of the main window, whose menu bar and title QMdiSubWindow would set.
    if (!d->framed) {
        d->entering = true;
        setParent(nullptr, tabbedFlags);
    }
}

QString MdiSubWindow::shortTitle() const
{
    return withoutPlaceholder(d->shortTitle.isEmpty() ? windowTitle() : d->shortTitle);
}

QString MdiSubWindow::fullTitle() const
{
    QString title = withoutPlaceholder(windowTitle());
    if (title.isEmpty())
        title = shortTitle();
    const QString path = QDir::toNativeSeparators(filePath());
    if (path.isEmpty() || title == path)
        return title;
    return title.isEmpty() ? path : QString(title % QLatin1Char('\n') % path);
}

QString MdiSubWindow::filePath() const
{
    return widget() ? widget()->windowFilePath() : QString();
}

bool MdiSubWindow::isDocumentModified() const
{
    return widget() && widget()->isWindowModified();
}

QIcon MdiSubWindow::documentIcon() const
{
    if (widget() && widget()->testAttribute(Qt::WA_SetWindowIcon))
        return widget()->windowIcon();
    // Asked of the parent: this window may still have the icon that the document
    // had, and a widget whose icon was taken away does not fall back by itself.
    return parentWidget() ? parentWidget()->windowIcon() : QApplication::windowIcon();
}

void MdiSubWindow::setWidget(QWidget *widget)
{
    d->document = nullptr; // the one before goes without being missed
    QMdiSubWindow::setWidget(widget);
    d->document = widget;
    if (widget)
        widget->setAttribute(Qt::WA_QuitOnClose, false);
    takeIcon();
    Q_EMIT appearanceChanged(this);
}

void MdiSubWindow::setShortTitle(const QString &title)
{
    if (d->shortTitle == title)
        return;
    d->shortTitle = title;
    Q_EMIT shortTitleChanged(title);
    Q_EMIT appearanceChanged(this);
}

void MdiSubWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowStateChange
        && !static_cast<QWindowStateChangeEvent *>(event)->isOverride()) {
        const Qt::WindowStates active = windowState() & Qt::WindowActive;
        if (!d->framed) {
            // Under tabs the area alone decides how a document is shown.
            overrideWindowState(active | Qt::WindowMaximized);
            return;
        }
        if (isMaximized() && parentWidget()) {
            const Qt::WindowStates before =
                static_cast<QWindowStateChangeEvent *>(event)->oldState();
            overrideWindowState(active | (before & Qt::WindowMinimized));
            Q_EMIT maximizeRequested(this);
            return;
        }
    }
    QMdiSubWindow::changeEvent(event);
}

void MdiSubWindow::childEvent(QChildEvent *event)
{
    QMdiSubWindow::childEvent(event);
    if (event->removed() && d->document && event->child() == d->document) {
        d->document = nullptr;
        Q_EMIT documentLost(this);
    }
}

void MdiSubWindow::closeEvent(QCloseEvent *event)
{
    const QPointer<MdiSubWindow> self(this);
    if (QWidget *document = widget()) {
        const bool accepted = document->close();
        if (!self)
            return;
        if (!accepted) {
            event->ignore();
            return;
        }
    }
    event->accept();
    Q_EMIT closed(this);
}

QSize MdiSubWindow::sizeHint() const
{
    // What an editor would like at least is too small to work in.
    const QSize hint = QMdiSubWindow::sizeHint();
    return parentWidget() ? hint.expandedTo(parentWidget()->size() * 2 / 3) : hint;
}

void MdiSubWindow::resizeEvent(QResizeEvent *event)
{
    // QMdiSubWindow would keep what it draws of a title bar for a while.
    if (d->framed)
        QMdiSubWindow::resizeEvent(event);
    else
        QWidget::resizeEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

void MdiSubWindow::showEvent(QShowEvent *event)
{
    // QMdiSubWindow activates itself here.
    if (d->quiet) {
        QWidget::showEvent(event); // NOLINT(bugprone-parent-virtual-call)
        return;
    }
    markMaximized(false);
    QMdiSubWindow::showEvent(event);
    markMaximized(true);
}

void MdiSubWindow::hideEvent(QHideEvent *event)
{
    // QMdiSubWindow clears the menu bar of buttons that were never put there.
    if (d->framed)
        QMdiSubWindow::hideEvent(event);
    else
        QWidget::hideEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

bool MdiSubWindow::event(QEvent *event)
{
    // QMdiSubWindow would measure a title bar, which there is not under tabs, and
    // have the menu bar painted anew.
    if (d->entering && event->type() == QEvent::ParentChange)
        return QWidget::event(event); // NOLINT(bugprone-parent-virtual-call)
    if (!isMaximized() || !reachesMainWindow(event))
        return QMdiSubWindow::event(event);
    markMaximized(false);
    const bool handled = QMdiSubWindow::event(event);
    markMaximized(true);
    return handled;
}

bool MdiSubWindow::eventFilter(QObject *object, QEvent *event)
{
    if (!object || object != widget())
        return QMdiSubWindow::eventFilter(object, event);
    if (d->quiet && event->type() == QEvent::Show)
        return false;
    const bool apart = isMaximized() && reachesMainWindow(event);
    if (apart)
        markMaximized(false);
    const bool filtered = QMdiSubWindow::eventFilter(object, event);
    if (apart)
        markMaximized(true);
    switch (event->type()) {
    case QEvent::WindowIconChange:
        takeIcon();
        Q_EMIT appearanceChanged(this);
        break;
    case QEvent::WindowTitleChange:
    case QEvent::ModifiedChange:
        Q_EMIT appearanceChanged(this);
        break;
    default:
        break;
    }
    return filtered;
}

void MdiSubWindow::setFramed(bool framed)
{
    if (d->framed == framed)
        return;
    if (!framed && (isMinimized() || isShaded()))
        showNormal();
    d->framed = framed;
    setWindowFlags(framed ? Qt::WindowFlags(Qt::SubWindow) : tabbedFlags);
    // Not setWindowState(): that would lay the document out although it may be
    // hidden, and put buttons into the menu bar of the main window.
    const Qt::WindowStates active = windowState() & Qt::WindowActive;
    overrideWindowState(framed ? active : active | Qt::WindowMaximized);
    if (!framed)
        clearMask();
    takeIcon();
}

void MdiSubWindow::enter(QWidget *viewport, bool framed)
{
    d->entering = !framed;
    setParent(viewport, framed ? Qt::WindowFlags(Qt::SubWindow) : tabbedFlags);
    setFramed(framed);
}

void MdiSubWindow::entered()
{
    d->entering = false;
}

void MdiSubWindow::setDormant(bool dormant)
{
    if (dormant)
        d->shortcuts.putAside(this);
    else
        d->shortcuts.putBack();
}

void MdiSubWindow::takeIcon()
{
    // For the title bar; and only a new one, because the widget is told of a new
    // icon of its window, too.
    const QIcon icon = documentIcon();
    if (d->framed && icon.cacheKey() != windowIcon().cacheKey())
        setWindowIcon(icon);
}

void MdiSubWindow::setShownQuietly(bool shown)
{
    const QPointer<MdiSubWindow> alive(this);
    d->quiet = true;
    setVisible(shown);
    if (alive)
        d->quiet = false;
}

void MdiSubWindow::markMaximized(bool maximized)
{
    if (!d->framed)
        overrideWindowState((windowState() & ~Qt::WindowMaximized)
                            | (maximized ? Qt::WindowMaximized : Qt::WindowNoState));
}

} // namespace Utils
