// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// How a proxy finds its current action, follows it and forwards to it.

#include "iaction_p.h"

#include <QKeySequence>

#include <algorithm>
#include <utility>

namespace Core {

/// Rides in a connection of a proxy and tells it when the connection ends.
///
/// A connection that is kept may be ended by anybody: the action is destroyed,
/// a plugin takes all connections off it. The next change of contexts has to
/// notice, as it would if it connected every time.
class IAction::Private::Tie final
{
    Q_DISABLE_COPY(Tie)
public:
    explicit Tie(std::shared_ptr<Private *> self)
        : m_self(std::move(self))
    {
    }
    Tie(Tie &&) noexcept = default;
    Tie &operator=(Tie &&) = delete;
    ~Tie()
    {
        if (m_self && *m_self)
            (*m_self)->markStale();
    }

    /// Null when the proxy is gone.
    [[nodiscard]] Private *proxy() const { return *m_self; }

private:
    std::shared_ptr<Private *> m_self;
};

IAction::Private::Private(IAction *proxy, const QString &commandId)
    : q(proxy)
    , id(commandId)
    , m_self(std::make_shared<Private *>(this))
{
}

IAction::Private::~Private()
{
    *m_self = nullptr;
    if (index)
        index->remove(this);
}

void IAction::Private::markStale()
{
    stale = true;
    if (index)
        index->enqueue(this);
}

std::vector<IAction::Private::Entry>::iterator IAction::Private::find(const QString &context)
{
    return std::find_if(entries.begin(), entries.end(),
                        [&context](const Entry &entry) { return entry.context == context; });
}

void IAction::Private::enter(Entry &entry)
{
    if (!index)
        return;
    entry.indexed = index->enter(this, entry.context);
    entry.place = entry.indexed->second.proxies.size() - 1;
}

void IAction::Private::erase(std::vector<Entry>::iterator entry)
{
    if (index)
        index->leave(entry->indexed, entry->place);
    entries.erase(entry);
}

void IAction::Private::bindToRanks()
{
    const Entry *best = nullptr;
    int bestRank = ContextIndex::Absent;
    for (const Entry &entry : entries) {
        const int rank = entry.indexed->second.rank;
        if (rank < bestRank && entry.action) {
            bestRank = rank;
            best = &entry;
        }
    }
    chosen = best ? &best->indexed->second : nullptr;
    if (stale) {
        stale = false;
        bind(best);
    } else if (best && best->action != currentAction) {
        bind(best);
    } else if (best) {
        currentContext = best->context;
    }
}

void IAction::Private::bind(const Entry *entry)
{
    connected = false;
    if (entry) {
        currentAction = entry->action;
        currentContext = entry->context;
    }
    if (currentAction)
        link();
    if (!update())
        return;
    connected = true;
}

template<class Setter>
bool IAction::Private::copied(const std::shared_ptr<Private *> &self, Setter setter)
{
    ownChange = true;
    setter();
    if (!*self)
        return false;
    ownChange = false;
    return true;
}

bool IAction::Private::update()
{
    // Whatever reacts to a change may destroy the proxy or its action, or bind
    // the proxy to another action; what is left is copied from that one then.
    const std::shared_ptr<Private *> self = m_self;
    const auto copy = [this, &self](auto setter) {
        return !currentAction || copied(self, [this, &setter] { setter(*currentAction); });
    };
    if (!currentAction) {
        return (!hideWhenDeactivated || copied(self, [this] { q->setVisible(false); }))
               && copied(self, [this] { q->setEnabled(false); });
    }
    if (textUpdated) {
        const bool alive =
            copy([this](const QAction &action) { q->setText(action.text()); })
            && copy([this](const QAction &action) {
                   toolTip = action.toolTip();
                   q->setToolTip(private_impl::formatToolTip(toolTip, q->shortcut()));
               })
            && copy([this](const QAction &action) { q->setStatusTip(action.statusTip()); });
        if (!alive)
            return false;
    }
    if (iconUpdated) {
        const bool alive =
            copy([this](const QAction &action) { q->setIcon(action.icon()); })
            && copy([this](const QAction &action) { q->setIconText(action.iconText()); })
            && copy([this](const QAction &action) {
                   q->setIconVisibleInMenu(action.isIconVisibleInMenu());
               });
        if (!alive)
            return false;
    }
    return copy([this](const QAction &action) { q->setCheckable(action.isCheckable()); })
           && copy([this](const QAction &action) { q->setChecked(action.isChecked()); })
           && copy([this](const QAction &action) { q->setEnabled(action.isEnabled()); })
           && copy([this](const QAction &action) { q->setVisible(action.isVisible()); });
}

void IAction::Private::link()
{
    if (!m_triggered) {
        m_triggered = connect(q, &QAction::triggered, q, [tie = Tie(m_self)](bool checked) {
            const Private *proxy = tie.proxy();
            if (proxy && proxy->connected && proxy->currentAction)
                Q_EMIT proxy->currentAction->triggered(checked);
        });
    }
    if (!m_toggled) {
        m_toggled = connect(q, &QAction::toggled, q, [tie = Tie(m_self)](bool checked) {
            const Private *proxy = tie.proxy();
            if (proxy && proxy->connected && proxy->currentAction)
                proxy->currentAction->setChecked(checked);
        });
    }

    QAction *action = currentAction;
    const bool linked = std::any_of(m_links.cbegin(), m_links.cend(), [action](const Link &link) {
        return link.action == action && link.changed;
    });
    if (linked)
        return;
    dropSpareLinks();
    action->installEventFilter(q);
    m_links.push_back({action, connect(action, &QAction::changed, q, [tie = Tie(m_self), action] {
                           Private *proxy = tie.proxy();
                           if (!proxy || proxy->currentAction != action)
                               return;
                           // Not connected while it is bound: then what was
                           // copied may be outdated.
                           if (proxy->connected)
                               proxy->q->actionChanged();
                           else
                               proxy->markStale();
                       })});
}

void IAction::Private::dropSpareLinks()
{
    const auto drop = [this](const Link &link) {
        if (!link.changed)
            return true;
        const auto isLinked = [&link](const Entry &entry) { return entry.action == link.action; };
        if (link.action == currentAction || std::any_of(entries.cbegin(), entries.cend(), isLinked))
            return false;
        QObject::disconnect(link.changed);
        link.action->removeEventFilter(q);
        return true;
    };
    m_links.erase(std::remove_if(m_links.begin(), m_links.end(), drop), m_links.end());
}

} // namespace Core
