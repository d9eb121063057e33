// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "contextindex_p.h"

#include "iaction_p.h"

#include <QVarLengthArray>

#include <algorithm>

namespace Core {
namespace private_impl {

ContextIndex::ContextIndex()
    : m_queue(std::make_shared<Queue>())
{
}

ContextIndex::~ContextIndex()
{
    m_queue->proxies.clear();
    for (IAction::Private *proxy : m_proxies) {
        proxy->index = nullptr;
        proxy->chosen = nullptr;
    }
}

void ContextIndex::add(IAction *proxy)
{
    IAction::Private *d = proxy->d.get();
    d->index = this;
    d->indexPlace = m_proxies.size();
    m_proxies.push_back(d);
    for (IAction::Private::Entry &entry : d->entries)
        d->enter(entry);
    d->markStale();
}

void ContextIndex::remove(IAction::Private *proxy)
{
    for (const IAction::Private::Entry &entry : proxy->entries)
        leave(entry.indexed, entry.place);
    if (proxy->queuePlace != IAction::Private::Nowhere)
        m_queue->proxies[proxy->queuePlace] = nullptr;
    m_proxies[proxy->indexPlace] = m_proxies.back();
    m_proxies[proxy->indexPlace]->indexPlace = proxy->indexPlace;
    m_proxies.pop_back();
}

ContextIndex::Contexts::iterator ContextIndex::enter(IAction::Private *proxy,
                                                     const QString &context)
{
    const auto [it, isNew] = m_contexts.try_emplace(context);
    if (isNew) {
        const int rank = m_current.indexOf(context);
        if (rank >= 0)
            it->second.rank = rank;
    }
    it->second.proxies.push_back(proxy);
    return it;
}

void ContextIndex::leave(Contexts::iterator context, std::size_t place)
{
    std::vector<IAction::Private *> &proxies = context->second.proxies;
    IAction::Private *leaving = proxies[place];
    IAction::Private *last = proxies.back();
    if (leaving->chosen == &context->second)
        leaving->chosen = nullptr;
    if (last != leaving) {
        proxies[place] = last;
        const auto moved = std::find_if(
            last->entries.begin(), last->entries.end(),
            [context](const IAction::Private::Entry &entry) { return entry.indexed == context; });
        moved->place = place;
    }
    proxies.pop_back();
    if (proxies.empty())
        m_contexts.erase(context);
}

void ContextIndex::enqueue(IAction::Private *proxy)
{
    if (proxy->queuePlace != IAction::Private::Nowhere)
        return;
    proxy->queuePlace = m_queue->proxies.size();
    m_queue->proxies.push_back(proxy);
}

void ContextIndex::setCurrentContexts(const QStringList &contexts)
{
    // What stands in front of and behind the difference keeps its order, so that
    // a proxy without an action for a context in between keeps its choice.
    const auto front =
        std::mismatch(m_current.cbegin(), m_current.cend(), contexts.cbegin(), contexts.cend());
    const auto back = std::mismatch(
        std::make_reverse_iterator(m_current.cend()), std::make_reverse_iterator(front.first),
        std::make_reverse_iterator(contexts.cend()), std::make_reverse_iterator(front.second));
    QVarLengthArray<Context *, 32> moved;
    const auto gather = [this, &moved](auto begin, auto end) {
        std::for_each(begin, end, [this, &moved](const QString &id) {
            const auto it = m_contexts.find(id);
            if (it != m_contexts.end()) {
                it->second.rank = Absent;
                moved.append(&it->second);
            }
        });
    };
    gather(front.first, back.first.base());
    gather(front.second, back.second.base());

    m_current = contexts;
    // From the end, so that the first of equal ids decides.
    for (int rank = contexts.size() - 1; rank >= 0; --rank) {
        const auto it = m_contexts.find(contexts.at(rank));
        if (it != m_contexts.end())
            it->second.rank = rank;
    }
    for (const Context *context : moved)
        enqueueConcerned(*context);
    work();
}

void ContextIndex::enqueueConcerned(const Context &context)
{
    for (IAction::Private *proxy : context.proxies) {
        const Context *chosen = proxy->chosen;
        if (chosen == &context || context.rank < (chosen ? chosen->rank : Absent))
            enqueue(proxy);
    }
}

void ContextIndex::work()
{
    const std::shared_ptr<Queue> queue = m_queue;
    // What becomes stale from here on waits for the next change. A change made
    // meanwhile does all that is left, and this one finds nothing more to do.
    const std::size_t end = queue->proxies.size();
    ++queue->depth;
    while (queue->next < std::min(end, queue->proxies.size())) {
        IAction::Private *proxy = queue->proxies[queue->next++];
        if (proxy) {
            proxy->queuePlace = IAction::Private::Nowhere;
            proxy->bindToRanks();
        }
    }
    if (--queue->depth > 0)
        return;
    std::vector<IAction::Private *> &proxies = queue->proxies;
    const std::size_t done = std::min(queue->next, proxies.size());
    proxies.erase(proxies.begin(), proxies.begin() + static_cast<std::ptrdiff_t>(done));
    queue->next = 0;
    for (std::size_t place = 0; place < proxies.size(); ++place) {
        if (proxies[place])
            proxies[place]->queuePlace = place;
    }
}

} // namespace private_impl
} // namespace Core
