// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mainwindow/panefocus_p.h>

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <utils/mdiarea.h>

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QKeySequence>
#include <QMainWindow>

#include <algorithm>

namespace Core {
namespace private_impl {

namespace {

bool takesFocus(const QWidget *widget)
{
    return widget->isEnabled() && widget->isVisible() && (widget->focusPolicy() & Qt::TabFocus);
}

/// Where the focus in @p dock was last, or else begins; null when nothing there takes it.
QWidget *entryOf(const QDockWidget *dock)
{
    QWidget *const panel = dock->widget();
    if (!panel)
        return nullptr;
    QWidget *const last = panel->focusWidget();
    if (last && takesFocus(last))
        return last;
    if (takesFocus(panel))
        return panel;
    for (QWidget *step = panel->nextInFocusChain(); step != panel;
         step = step->nextInFocusChain()) {
        if (panel->isAncestorOf(step) && takesFocus(step))
            return step;
    }
    return nullptr;
}

} // namespace

PaneFocus::PaneFocus(QMainWindow *window, Utils::MdiArea *documents)
    : QObject(window)
    , m_window(window)
    , m_documents(documents)
{
    addCommand(Constants::A_NEXT_PANE, tr("Next Pane"), Qt::Key_F6, 1);
    addCommand(Constants::A_PREVIOUS_PANE, tr("Previous Pane"),
               QKeySequence(int(Qt::SHIFT) | int(Qt::Key_F6)), -1);
}

PaneFocus::~PaneFocus() = default;

void PaneFocus::addCommand(const char *commandId, const QString &text, const QKeySequence &key,
                           int step)
{
    auto *const action = new QAction(text, this);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, [this, step] { move(step); });
    // In no menu, so the window itself listens to the key.
    m_window->addAction(
        ActionManager::registerAction(action, QString::fromLatin1(commandId), QString()));
}

QList<QWidget *> PaneFocus::panes() const
{
    QList<QWidget *> found;
    if (m_documents->currentWindow())
        found.append(m_documents);
    const QList<QDockWidget *> docks = m_window->findChildren<QDockWidget *>();
    for (QDockWidget *dock : docks) {
        // Behind another tab nothing of it is seen.
        if (dock->isVisible() && !dock->visibleRegion().isEmpty() && entryOf(dock))
            found.append(dock);
    }
    std::sort(found.begin(), found.end(), [](const QWidget *one, const QWidget *other) {
        const QPoint a = one->mapToGlobal(QPoint());
        const QPoint b = other->mapToGlobal(QPoint());
        return a.x() != b.x() ? a.x() < b.x() : a.y() < b.y();
    });
    return found;
}

void PaneFocus::move(int step)
{
    const QList<QWidget *> all = panes();
    if (all.isEmpty())
        return;
    const QWidget *const focus = QApplication::focusWidget();
    const auto current = std::find_if(all.cbegin(), all.cend(), [focus](const QWidget *pane) {
        return focus && (pane == focus || pane->isAncestorOf(focus));
    });
    const int count = all.size();
    const int next = current == all.cend() ? (step > 0 ? 0 : count - 1)
                                           : (int(current - all.cbegin()) + step + count) % count;
    enter(all.at(next));
}

void PaneFocus::enter(QWidget *pane) const
{
    if (pane == m_documents) {
        // Puts the focus back to where it was in the document.
        m_documents->setCurrentSubWindow(m_documents->currentWindow());
        return;
    }
    pane->activateWindow(); // It may float.
    entryOf(static_cast<const QDockWidget *>(pane))->setFocus(Qt::ShortcutFocusReason);
}

} // namespace private_impl
} // namespace Core
