// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "iaction.h"

#include "iaction_p.h"

#include <QDebug>
#include <QEvent>
#include <QKeySequence>

namespace Core {

IAction::IAction(const QString &id, QAction *action)
    : QAction(nullptr)
    , d(std::make_unique<Private>(this, id))
{
    setObjectName(id);
    setShortcutContext(Qt::ApplicationShortcut);
    init(action);
}

IAction::~IAction() = default;

QString IAction::id() const
{
    return d->id;
}

void IAction::init(QAction *action)
{
    setIcon(action->icon());
    setIconText(action->iconText());
    setIconVisibleInMenu(action->isIconVisibleInMenu());
    setText(action->text());
    d->toolTip = action->toolTip();
    QAction::setShortcut(action->shortcut());
    setToolTip(private_impl::formatToolTip(d->toolTip, shortcut()));
    setStatusTip(action->statusTip());
    setWhatsThis(action->whatsThis());
    setCheckable(action->isCheckable());
    setChecked(action->isChecked());
    setVisible(action->isVisible());
    setEnabled(false);
    d->markStale();
}

void IAction::addOverrideAction(QAction *action, const QString &context)
{
    // A proxy that forwards to itself would never come to an end.
    if (!action || action == this || context.isEmpty())
        return;
    const auto it = d->find(context);
    if (it == d->entries.end()) {
        Private::Entry entry;
        entry.context = context;
        entry.action = action;
        d->enter(entry);
        d->entries.push_back(entry);
    } else if (it->action) {
        qDebug() << "IAction: duplicate action on context: " << context;
        return;
    } else {
        it->action = action;
    }
    d->markStale();
}

void IAction::removeContextAction(const QString &context)
{
    if (context.isEmpty())
        return;
    const auto it = d->find(context);
    if (it == d->entries.end())
        return;
    d->erase(it);
    d->dropSpareLinks();
    d->markStale();
}

void IAction::setCurrentContexts(const QStringList &contexts)
{
    const Private::Entry *first = nullptr;
    for (const QString &context : contexts) {
        const auto it = d->find(context);
        if (it != d->entries.end() && it->action) {
            first = &*it;
            break;
        }
    }
    // The registry's list may say something else.
    d->markStale();
    d->bind(first);
}

void IAction::update()
{
    d->update();
}

void IAction::connectAction()
{
    if (!d->currentAction)
        return;
    d->link();
    d->connected = true;
}

void IAction::disconnectAction()
{
    if (!d->currentAction)
        return;
    d->connected = false;
    d->markStale();
}

void IAction::setShortcut(const QKeySequence &key)
{
    QAction::setShortcut(key);
    // Who is told of the key may have set another.
    setToolTip(private_impl::formatToolTip(d->toolTip, shortcut()));
}

bool IAction::isTextUpdated() const
{
    return d->textUpdated;
}

void IAction::setTextUpdated(bool updated)
{
    d->textUpdated = updated;
    d->markStale();
}

bool IAction::isIconUpdated() const
{
    return d->iconUpdated;
}

void IAction::setIconUpdated(bool updated)
{
    d->iconUpdated = updated;
    d->markStale();
}

bool IAction::isHideWhenDeactivated() const
{
    return d->hideWhenDeactivated;
}

void IAction::setHideWhenDeactivated(bool hide)
{
    d->hideWhenDeactivated = hide;
    d->markStale();
}

void IAction::actionChanged()
{
    update();
}

bool IAction::event(QEvent *event)
{
    // Comes with every change, also while signals are blocked. One that is not
    // update()'s own may have to be put right by the next change of contexts.
    if (event->type() == QEvent::ActionChanged) {
        if (d->ownChange)
            d->ownChange = false;
        else
            d->markStale();
    }
    return QAction::event(event);
}

bool IAction::eventFilter(QObject *watched, QEvent *event)
{
    // A change made while the action's signals are blocked is not mirrored at
    // once; the next change of contexts has to find it.
    if (event->type() == QEvent::ActionChanged && watched == d->currentAction
        && watched->signalsBlocked())
        d->markStale();
    return QAction::eventFilter(watched, event);
}

QString private_impl::formatToolTip(const QString &toolTip, const QKeySequence &key)
{
    if (toolTip.isEmpty())
        return QString();
    // Both at once, because a tool tip may hold "%2" itself.
    return QStringLiteral("<nobr>%1 <span style=\"color: gray; font-size: small\">%2</span></nobr>")
        .arg(toolTip, key.toString(QKeySequence::NativeText));
}

} // namespace Core
