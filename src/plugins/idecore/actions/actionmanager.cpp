// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "actionmanager.h"

#include "contextindex_p.h"
#include "iaction.h"

#include <idecore/core/constants.h>
#include <idecore/core/idecore.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QHash>
#include <QKeySequence>
#include <QList>
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

bool isIconSize(int size)
{
    return size >= SmallestIconSize && size <= LargestIconSize;
}

QString contextOrGlobal(const QString &context)
{
    return context.isEmpty() ? QString(QLatin1String(Constants::C_GLOBAL)) : context;
}

/// Containers of one kind by id.
///
/// Guarded, because anybody may destroy a container, and rename it or take its
/// connections off before that.
template<class Container>
class Containers
{
public:
    [[nodiscard]] Container *value(const QString &id) const
    {
        return static_cast<Container *>(m_containers.value(id).data());
    }
    void insert(const QString &id, Container *container) { m_containers.insert(id, container); }
    [[nodiscard]] QList<QPointer<QObject>> all() const { return m_containers.values(); }
    /// Forgets @p destroyed, which is not a Container any more, and what was
    /// destroyed without saying so.
    void forget(const QObject *destroyed)
    {
        for (auto it = m_containers.begin(); it != m_containers.end();) {
            if (!it.value() || it.value() == destroyed)
                it = m_containers.erase(it);
            else
                ++it;
        }
    }

private:
    QHash<QString, QPointer<QObject>> m_containers;
};

} // namespace

class ActionManager::Private
{
public:
    template<class Container>
    static Container *create(Containers<Container> Private::*containers, const QString &id);

    private_impl::ContextIndex index;
    // Guarded, because whoever holds a proxy can delete it.
    QHash<QString, QPointer<IAction>> actions;
    Containers<QMenuBar> menuBars;
    Containers<QMenu> menus;
    Containers<QToolBar> toolBars;
    QHash<QString, QPointer<QAction>> separators;
    int iconSize = DefaultIconSize;
};

template<class Container>
Container *ActionManager::Private::create(Containers<Container> Private::*containers,
                                          const QString &id)
{
    auto *container = new Container(ViewManager::mainWindow());
    container->setObjectName(id);
    (s_instance->d.get()->*containers).insert(id, container);
    QObject::connect(container, &QObject::destroyed, s_instance,
                     &ActionManager::onContainerDestory);
    return container;
}

ActionManager::ActionManager(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    s_instance = this;
    const int size = IdeCore::userSettings()
                         ->value(QLatin1String(Constants::SET_TOOLBAR_ICON_SIZE), DefaultIconSize)
                         .toInt();
    if (isIconSize(size))
        d->iconSize = size;
}

ActionManager::~ActionManager()
{
    // What reacts to a proxy going may look up, register or delete others.
    while (!d->actions.isEmpty()) {
        const QPointer<IAction> proxy = d->actions.take(d->actions.constBegin().key());
        // Proxies have no parent, so that they go before the actions they stand for.
        delete proxy;
    }
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
    Private *d = s_instance->d.get();
    QPointer<IAction> proxy = d->actions.value(id);
    const bool isNew = !proxy;
    if (isNew) {
        proxy = new IAction(id, action);
        d->actions.insert(id, proxy);
        d->index.add(proxy);
    }
    proxy->addOverrideAction(action, contextOrGlobal(context));
    action->setParent(s_instance);
    if (isNew)
        Q_EMIT s_instance->actionRegistered(proxy);
    // Who is told may delete it.
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

QList<IAction *> ActionManager::actions()
{
    QList<IAction *> proxies;
    if (!s_instance)
        return proxies;
    const QHash<QString, QPointer<IAction>> &actions = s_instance->d->actions;
    proxies.reserve(actions.size());
    for (const QPointer<IAction> &proxy : actions) {
        if (proxy)
            proxies.append(proxy);
    }
    return proxies;
}

QAction *ActionManager::separator(const QString &id)
{
    if (!s_instance)
        return nullptr;
    QAction *separator = s_instance->d->separators.value(id);
    if (!separator) {
        separator = new QAction(s_instance);
        separator->setSeparator(true);
        s_instance->d->separators.insert(id, separator);
    }
    return separator;
}

QMenuBar *ActionManager::menuBar(const QString &id)
{
    return s_instance ? s_instance->d->menuBars.value(id) : nullptr;
}

QMenuBar *ActionManager::createMenuBar(const QString &id)
{
    QMenuBar *known = menuBar(id);
    return known || !s_instance ? known : Private::create(&Private::menuBars, id);
}

QMenu *ActionManager::menu(const QString &id)
{
    return s_instance ? s_instance->d->menus.value(id) : nullptr;
}

QMenu *ActionManager::createMenu(const QString &id)
{
    QMenu *known = menu(id);
    return known || !s_instance ? known : Private::create(&Private::menus, id);
}

QToolBar *ActionManager::toolBar(const QString &id)
{
    return s_instance ? s_instance->d->toolBars.value(id) : nullptr;
}

QToolBar *ActionManager::createToolBar(const QString &id)
{
    QToolBar *known = toolBar(id);
    if (known || !s_instance)
        return known;
    QToolBar *created = Private::create(&Private::toolBars, id);
    created->setIconSize(QSize(s_instance->d->iconSize, s_instance->d->iconSize));
    created->setFloatable(false);
    return created;
}

void ActionManager::formatTooltip(QAction *action)
{
    if (!action)
        return;
    // Joined by an entity here and by a space in the tool tip of a proxy.
    const QString format = QStringLiteral(
        "<nobr>%1&nbsp;<span style=\"color: gray; font-size: small\">%2</span></nobr>");
    action->setToolTip(
        format.arg(action->toolTip(), action->shortcut().toString(QKeySequence::NativeText)));
}

void ActionManager::setToolbarIconSize(int size)
{
    if (!s_instance || size == s_instance->d->iconSize || !isIconSize(size))
        return;
    s_instance->d->iconSize = size;
    // A copy: what follows the size of a tool bar may create or delete others.
    const QList<QPointer<QObject>> toolBars = s_instance->d->toolBars.all();
    for (const QPointer<QObject> &bar : toolBars) {
        if (bar)
            static_cast<QToolBar *>(bar.data())->setIconSize(QSize(size, size));
    }
}

void ActionManager::setCurrentContexts(const QStringList &contexts)
{
    if (s_instance)
        s_instance->d->index.setCurrentContexts(contexts);
}

void ActionManager::onContainerDestory()
{
    // The sender is cut down to a QWidget by now and may have been renamed: what
    // it was, and under which id, is known here only.
    const QObject *destroyed = sender();
    d->menus.forget(destroyed);
    d->toolBars.forget(destroyed);
    d->menuBars.forget(destroyed);
}

} // namespace Core
