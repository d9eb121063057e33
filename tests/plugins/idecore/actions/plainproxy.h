// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_ACTIONS_PLAINPROXY_H
#define TESTS_PLUGINS_IDECORE_ACTIONS_PLAINPROXY_H

#include <idecore/actions/iaction.h>

#include <QAction>
#include <QHash>
#include <QPointer>
#include <QStringList>

/// The rules of a proxy written down as plainly as can be: every change of
/// contexts ends three connections, walks the list, copies, and connects again.
/// What the real proxy does is held against it, and so is its speed.
class PlainProxy final : public QAction
{
public:
    PlainProxy(const QString &id, QAction *action)
        : QAction(nullptr)
    {
        setObjectName(id);
        setShortcutContext(Qt::ApplicationShortcut);
        init(action);
    }

    void init(QAction *action)
    {
        setIcon(action->icon());
        setIconText(action->iconText());
        setIconVisibleInMenu(action->isIconVisibleInMenu());
        setText(action->text());
        m_toolTip = action->toolTip();
        QAction::setShortcut(action->shortcut());
        setToolTip(Core::private_impl::formatToolTip(m_toolTip, shortcut()));
        setStatusTip(action->statusTip());
        setWhatsThis(action->whatsThis());
        setCheckable(action->isCheckable());
        setChecked(action->isChecked());
        setVisible(action->isVisible());
        setEnabled(false);
    }

    void addOverrideAction(QAction *action, const QString &context)
    {
        if (!action || context.isEmpty() || m_contextActions.value(context))
            return;
        m_contextActions.insert(context, action);
    }

    void removeContextAction(const QString &context) { m_contextActions.remove(context); }

    void setCurrentContexts(const QStringList &contexts)
    {
        disconnectAction();
        for (const QString &context : contexts) {
            const auto it = m_contextActions.constFind(context);
            if (it != m_contextActions.constEnd() && it.value()) {
                m_currentAction = it.value();
                m_currentContext = context;
                break;
            }
        }
        update();
        connectAction();
    }

    void update()
    {
        const QAction *action = m_currentAction;
        if (!action) {
            if (m_hideWhenDeactivated)
                setVisible(false);
            setEnabled(false);
            return;
        }
        if (m_textUpdated) {
            setText(action->text());
            m_toolTip = action->toolTip();
            setToolTip(Core::private_impl::formatToolTip(m_toolTip, shortcut()));
            setStatusTip(action->statusTip());
        }
        if (m_iconUpdated) {
            setIcon(action->icon());
            setIconText(action->iconText());
            setIconVisibleInMenu(action->isIconVisibleInMenu());
        }
        setCheckable(action->isCheckable());
        setChecked(action->isChecked());
        setEnabled(action->isEnabled());
        setVisible(action->isVisible());
    }

    void actionChanged() { update(); }

    void connectAction()
    {
        if (!m_currentAction)
            return;
        connect(m_currentAction, &QAction::changed, this, &PlainProxy::actionChanged);
        connect(this, &QAction::triggered, m_currentAction, &QAction::triggered);
        connect(this, &QAction::toggled, m_currentAction, &QAction::setChecked);
    }

    void disconnectAction()
    {
        if (!m_currentAction)
            return;
        disconnect(m_currentAction, &QAction::changed, this, &PlainProxy::actionChanged);
        disconnect(this, &QAction::triggered, m_currentAction, &QAction::triggered);
        disconnect(this, &QAction::toggled, m_currentAction, &QAction::setChecked);
    }

    void setShortcut(const QKeySequence &key)
    {
        QAction::setShortcut(key);
        setToolTip(Core::private_impl::formatToolTip(m_toolTip, key));
    }

    void setTextUpdated(bool updated) { m_textUpdated = updated; }
    void setIconUpdated(bool updated) { m_iconUpdated = updated; }
    void setHideWhenDeactivated(bool hide) { m_hideWhenDeactivated = hide; }

private:
    bool m_textUpdated = false;
    bool m_iconUpdated = false;
    bool m_hideWhenDeactivated = false;
    QHash<QString, QPointer<QAction>> m_contextActions;
    QString m_currentContext;
    QPointer<QAction> m_currentAction;
    QString m_toolTip;
};

#endif // TESTS_PLUGINS_IDECORE_ACTIONS_PLAINPROXY_H
