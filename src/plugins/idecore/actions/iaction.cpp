// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "iaction.h"

#include <QDebug>
#include <QHash>
#include <QKeySequence>
#include <QPointer>

namespace Core {

class IAction::Private
{
public:
    QString id;
    bool textUpdated = false;
    bool iconUpdated = false;
    bool hideWhenDeactivated = false;
    QHash<QString, QPointer<QAction>> contextActions;
    QString currentContext;
    QPointer<QAction> currentAction;
    QString toolTip;
};

IAction::IAction(const QString &id, QAction *action)
    : QAction(nullptr)
    , d(std::make_unique<Private>())
{
    d->id = id;
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
}

void IAction::addOverrideAction(QAction *action, const QString &context)
{
    if (!action || context.isEmpty())
        return;
    QPointer<QAction> &entry = d->contextActions[context];
    if (entry) {
        qDebug() << "IAction: duplicate action on context: " << context;
        return;
    }
    entry = action;
}

void IAction::removeContextAction(const QString &context)
{
    if (!context.isEmpty())
        d->contextActions.remove(context);
}

void IAction::setCurrentContexts(const QStringList &contexts)
{
    disconnectAction();
    for (const QString &context : contexts) {
        if (QAction *action = d->contextActions.value(context)) {
            d->currentAction = action;
            d->currentContext = context;
            break;
        }
    }
    update();
    connectAction();
}

void IAction::update()
{
    if (const QAction *action = d->currentAction) {
        if (d->textUpdated) {
            setText(action->text());
            d->toolTip = action->toolTip();
            setToolTip(private_impl::formatToolTip(d->toolTip, shortcut()));
            setStatusTip(action->statusTip());
        }
        if (d->iconUpdated) {
            setIcon(action->icon());
            setIconText(action->iconText());
            setIconVisibleInMenu(action->isIconVisibleInMenu());
        }
        setCheckable(action->isCheckable());
        setChecked(action->isChecked());
        setEnabled(action->isEnabled());
        setVisible(action->isVisible());
    } else {
        if (d->hideWhenDeactivated)
            setVisible(false);
        setEnabled(false);
    }
}

void IAction::connectAction()
{
    if (QAction *action = d->currentAction) {
        connect(action, &QAction::changed, this, &IAction::actionChanged);
        connect(this, &QAction::triggered, action, &QAction::triggered);
        connect(this, &QAction::toggled, action, &QAction::setChecked);
    }
}

void IAction::disconnectAction()
{
    if (QAction *action = d->currentAction) {
        disconnect(action, &QAction::changed, this, &IAction::actionChanged);
        disconnect(this, &QAction::triggered, action, &QAction::triggered);
        disconnect(this, &QAction::toggled, action, &QAction::setChecked);
    }
}

void IAction::setShortcut(const QKeySequence &key)
{
    QAction::setShortcut(key);
    setToolTip(private_impl::formatToolTip(d->toolTip, key));
}

bool IAction::isTextUpdated() const
{
    return d->textUpdated;
}

void IAction::setTextUpdated(bool updated)
{
    d->textUpdated = updated;
}

bool IAction::isIconUpdated() const
{
    return d->iconUpdated;
}

void IAction::setIconUpdated(bool updated)
{
    d->iconUpdated = updated;
}

bool IAction::isHideWhenDeactivated() const
{
    return d->hideWhenDeactivated;
}

void IAction::setHideWhenDeactivated(bool hide)
{
    d->hideWhenDeactivated = hide;
}

void IAction::actionChanged()
{
    update();
}

QString private_impl::formatToolTip(const QString &toolTip, const QKeySequence &key)
{
    if (toolTip.isEmpty())
        return QString();
    // Two texts at once: a tool tip may hold "%2".
    return QStringLiteral("<nobr>%1 <span style=\"color: gray; font-size: small\">%2</span></nobr>")
        .arg(toolTip, key.toString(QKeySequence::NativeText));
}

} // namespace Core
