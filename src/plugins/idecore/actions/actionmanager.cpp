// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actionmanager.h"

#include "iaction.h"

#include <idecore/core/constants.h>
#include <idecore/core/idecore.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QHash>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QSettings>
#include <QToolBar>

namespace Core {

namespace {

constexpr int DefaultIconSize = 24;
constexpr int SmallestIconSize = 16;
constexpr int LargestIconSize = 28;

ActionManager *s_instance = nullptr;

template<class Container>
void forget(QHash<QString, Container *> &containers, const QObject *destroyed)
{
    for (auto it = containers.begin(); it != containers.end(); ++it) {
        if (static_cast<const QObject *>(it.value()) == destroyed) {
            containers.erase(it);
            return;
        }
    }
}

QString contextOrGlobal(const QString &context)
{
    return context.isEmpty() ? QLatin1String(Constants::C_GLOBAL) : context;
}

} // namespace

class ActionManager::Private
{
public:
    QHash<QString, IAction *> actions;
    QHash<QString, QMenuBar *> menuBars;
    QHash<QString, QMenu *> menus;
    QHash<QString, QToolBar *> toolBars;
    QHash<QString, QAction *> separators;
    int iconSize = DefaultIconSize;
};

ActionManager::ActionManager(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    s_instance = this;
    d->iconSize = IdeCore::userSettings()
                      ->value(QLatin1String(Constants::SET_TOOLBAR_ICON_SIZE), DefaultIconSize)
                      .toInt();
}

ActionManager::~ActionManager()
{
    qDeleteAll(d->actions);
    s_instance = nullptr;
}

ActionManager *ActionManager::instance()
{
    return s_instance;
}

IAction *ActionManager::registerAction(QAction *action, const QString &id, const QString &context)
{
    if (!s_instance || !action || id.isEmpty())
        return nullptr;
    IAction *&proxy = s_instance->d->actions[id];
    if (!proxy)
        proxy = new IAction(id, action);
    proxy->addOverrideAction(action, contextOrGlobal(context));
    action->setParent(s_instance);
    return proxy;
}

void ActionManager::unregisterAction(const QString &id, const QString &context)
{
    if (IAction *proxy = action(id))
        proxy->removeContextAction(contextOrGlobal(context));
}

IAction *ActionManager::action(const QString &id)
{
    return s_instance ? s_instance->d->actions.value(id) : nullptr;
}

QAction *ActionManager::separator(const QString &id)
{
    if (!s_instance)
        return nullptr;
    QAction *&separator = s_instance->d->separators[id];
    if (!separator) {
        separator = new QAction(s_instance);
        separator->setSeparator(true);
    }
    return separator;
}

QMenuBar *ActionManager::menuBar(const QString &id)
{
    return s_instance ? s_instance->d->menuBars.value(id) : nullptr;
}

QMenuBar *ActionManager::createMenuBar(const QString &id)
{
    if (!s_instance)
        return nullptr;
    QMenuBar *&bar = s_instance->d->menuBars[id];
    if (!bar) {
        bar = new QMenuBar(ViewManager::mainWindow());
        bar->setObjectName(id);
        connect(bar, &QObject::destroyed, s_instance, &ActionManager::onContainerDestory);
    }
    return bar;
}

QMenu *ActionManager::menu(const QString &id)
{
    return s_instance ? s_instance->d->menus.value(id) : nullptr;
}

QMenu *ActionManager::createMenu(const QString &id)
{
    if (!s_instance)
        return nullptr;
    QMenu *&menu = s_instance->d->menus[id];
    if (!menu) {
        menu = new QMenu(ViewManager::mainWindow());
        menu->setObjectName(id);
        connect(menu, &QObject::destroyed, s_instance, &ActionManager::onContainerDestory);
    }
    return menu;
}

QToolBar *ActionManager::toolBar(const QString &id)
{
    return s_instance ? s_instance->d->toolBars.value(id) : nullptr;
}

QToolBar *ActionManager::createToolBar(const QString &id)
{
    if (!s_instance)
        return nullptr;
    QToolBar *&bar = s_instance->d->toolBars[id];
    if (!bar) {
        bar = new QToolBar(ViewManager::mainWindow());
        bar->setObjectName(id);
        bar->setIconSize(QSize(s_instance->d->iconSize, s_instance->d->iconSize));
        bar->setFloatable(false);
        connect(bar, &QObject::destroyed, s_instance, &ActionManager::onContainerDestory);
    }
    return bar;
}

void ActionManager::formatTooltip(QAction *action)
{
    if (!action)
        return;
    action->setToolTip(
        QStringLiteral(
            "<nobr>%1&nbsp;<span style=\"color: gray; font-size: small\">%2</span></nobr>")
            .arg(action->toolTip(), action->shortcut().toString(QKeySequence::NativeText)));
}

void ActionManager::setToolbarIconSize(int size)
{
    if (!s_instance || size == s_instance->d->iconSize || size < SmallestIconSize
        || size > LargestIconSize)
        return;
    s_instance->d->iconSize = size;
    for (QToolBar *bar : qAsConst(s_instance->d->toolBars))
        bar->setIconSize(QSize(size, size));
}

void ActionManager::setCurrentContexts(const QStringList &contexts)
{
    if (!s_instance)
        return;
    for (IAction *proxy : qAsConst(s_instance->d->actions))
        proxy->setCurrentContexts(contexts);
}

void ActionManager::onContainerDestory()
{
    const QObject *destroyed = sender();
    forget(d->menus, destroyed);
    forget(d->toolBars, destroyed);
    forget(d->menuBars, destroyed);
}

} // namespace Core
