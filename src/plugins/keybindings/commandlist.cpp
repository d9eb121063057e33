// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <keybindings/commandlist_p.h>

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>
#include <keybindings/userkeys_p.h>

#include <QAction>
#include <QCoreApplication>
#include <QHash>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QToolBar>

#include <algorithm>
#include <limits>

namespace KeyBindings {

namespace {

struct Place
{
    int order = std::numeric_limits<int>::max();
    QString name;
};

/// Where the main window shows its actions.
class Places final
{
    Q_DECLARE_TR_FUNCTIONS(KeyBindings::Places)
public:
    explicit Places(const QMainWindow *window)
    {
        // Not menuBar(), which would make one.
        if (const auto *bar = qobject_cast<const QMenuBar *>(window->menuWidget())) {
            m_seen.insert(bar);
            visit(bar, QString());
        }
        const QList<QToolBar *> toolBars = window->findChildren<QToolBar *>();
        for (const QToolBar *bar : toolBars)
            visit(bar, tr("Tool bar: %1").arg(KeyRules::withoutMnemonic(bar->windowTitle())));
    }

    [[nodiscard]] Place of(const QAction *action) const
    {
        const auto place = m_places.constFind(action);
        return place != m_places.constEnd() ? *place : Place{Place().order, tr("Not in a menu")};
    }

private:
    void visit(const QWidget *container, const QString &name)
    {
        const QList<QAction *> actions = container->actions();
        for (const QAction *action : actions) {
            // What one menu says of a command is enough.
            if (!m_places.contains(action))
                m_places.insert(action, {m_places.size(), name});
        }
        for (const QAction *action : actions) {
            const QMenu *const menu = action->menu();
            // A menu may stand in itself.
            if (!menu || m_seen.contains(menu))
                continue;
            m_seen.insert(menu);
            const QString title = KeyRules::withoutMnemonic(menu->title());
            visit(menu, name.isEmpty() ? title : QString(name + QLatin1String(" > ") + title));
        }
    }

    QHash<const QAction *, Place> m_places;
    QSet<const QWidget *> m_seen;
};

} // namespace

std::vector<Command> listCommands(const UserKeys &userKeys)
{
    struct Found
    {
        Place place;
        const Core::IAction *proxy;
    };
    const Places places(Core::ViewManager::mainWindow());
    const QList<Core::IAction *> proxies = Core::ActionManager::actions();
    std::vector<Found> found;
    found.reserve(static_cast<std::size_t>(proxies.size()));
    for (const Core::IAction *proxy : proxies) {
        if (!proxy->isSeparator() && !proxy->menu())
            found.push_back({places.of(proxy), proxy});
    }
    std::sort(found.begin(), found.end(), [](const Found &one, const Found &other) {
        if (one.place.order != other.place.order)
            return one.place.order < other.place.order;
        return one.proxy->id() < other.proxy->id();
    });
    std::vector<Command> commands;
    commands.reserve(found.size());
    for (const auto &[place, proxy] : found) {
        const QString title = KeyRules::withoutMnemonic(proxy->text());
        commands.push_back({proxy->id(), title.isEmpty() ? proxy->id() : title, place.name,
                            userKeys.defaultKeys(proxy), proxy->shortcuts(), proxy->shortcuts()});
    }
    return commands;
}

} // namespace KeyBindings
