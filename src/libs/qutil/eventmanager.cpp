// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <qutil/eventmanager.h>

#include <qutil/ievent.h>
#include <qutil/ieventhandler.h>

#include <QDebug>
#include <QHash>

#include <algorithm>
#include <exception>
#include <vector>

namespace QUtil {

namespace {

/// A handler's address may be used again by another handler, so a delivery
/// knows its receivers by the number of the subscription, which never returns.
struct Subscription
{
    quint64 id;
    IEventHandler *handler;
};

/// In the order of subscription, hence ascending by id.
using Subscriptions = std::vector<Subscription>;

bool isStanding(const Subscriptions &subscriptions, quint64 id)
{
    const auto it = std::lower_bound(
        subscriptions.cbegin(), subscriptions.cend(), id,
        [](const Subscription &subscription, quint64 value) { return subscription.id < value; });
    return it != subscriptions.cend() && it->id == id;
}

auto findHandler(Subscriptions &subscriptions, const IEventHandler *handler)
{
    return std::find_if(
        subscriptions.begin(), subscriptions.end(),
        [handler](const Subscription &subscription) { return subscription.handler == handler; });
}

void deliver(IEventHandler *handler, const IEvent &event, const QString &topic)
{
    // Handlers belong to plugins, and a failing one must not keep the event from
    // the others nor throw into the plugin that published it.
    try {
        handler->handleIEvent(&event);
    } catch (const std::exception &exception) {
        qWarning() << "EventManager: a handler of" << topic << "threw:" << exception.what();
    } catch (...) {
        qWarning() << "EventManager: a handler of" << topic << "threw an unknown exception";
    }
}

} // namespace

class EventManager::Private
{
public:
    /// Topics without subscriptions have no entry.
    QHash<QString, Subscriptions> topics;
    quint64 lastId = 0;
};

EventManager *EventManager::instance()
{
    // Never destroyed: a handler with static storage leaves the bus in its
    // destructor, which may run after any static object here would be gone.
    static auto *const manager = new EventManager;
    return manager;
}

EventManager::EventManager()
    : d(std::make_unique<Private>())
{
}

EventManager::~EventManager() = default;

void EventManager::subscribe(const QString &topic, IEventHandler *handler)
{
    if (!handler)
        return;
    Subscriptions &subscriptions = d->topics[topic];
    if (findHandler(subscriptions, handler) == subscriptions.end())
        subscriptions.push_back({++d->lastId, handler});
}

void EventManager::unsubscribe(const QString &topic, IEventHandler *handler)
{
    const auto topicIt = d->topics.find(topic);
    if (topicIt == d->topics.end())
        return;
    const auto it = findHandler(*topicIt, handler);
    if (it != topicIt->end())
        topicIt->erase(it);
    if (topicIt->empty())
        d->topics.erase(topicIt);
}

void EventManager::unsubscribeAll(IEventHandler *handler)
{
    for (auto topicIt = d->topics.begin(); topicIt != d->topics.end();) {
        const auto it = findHandler(*topicIt, handler);
        if (it != topicIt->end())
            topicIt->erase(it);
        topicIt = topicIt->empty() ? d->topics.erase(topicIt) : std::next(topicIt);
    }
}

void EventManager::publish(const IEvent &event)
{
    const QString topic = event.topic();
    const Subscriptions present = d->topics.value(topic);
    for (const Subscription &subscription : present) {
        const auto topicIt = d->topics.constFind(topic);
        if (topicIt == d->topics.constEnd())
            return;
        // A handler called before this one may have ended its subscription.
        if (isStanding(*topicIt, subscription.id))
            deliver(subscription.handler, event, topic);
    }
}

} // namespace QUtil
