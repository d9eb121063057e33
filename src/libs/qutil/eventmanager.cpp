// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <qutil/eventmanager.h>

#include <qutil/ievent.h>
#include <qutil/ieventhandler.h>

#include <QHash>
#include <QList>

namespace QUtil {

class EventManager::Private
{
public:
    QHash<QString, QList<IEventHandler *>> handlers;
};

EventManager *EventManager::instance()
{
    static EventManager manager;
    return &manager;
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
    QList<IEventHandler *> &handlers = d->handlers[topic];
    if (!handlers.contains(handler))
        handlers.append(handler);
}

void EventManager::unsubscribe(const QString &topic, IEventHandler *handler)
{
    const auto it = d->handlers.find(topic);
    if (it != d->handlers.end())
        it->removeAll(handler);
}

void EventManager::unsubscribeAll(IEventHandler *handler)
{
    for (QList<IEventHandler *> &handlers : d->handlers)
        handlers.removeAll(handler);
}

void EventManager::publish(const IEvent &event)
{
    const QString topic = event.topic();
    const QList<IEventHandler *> present = d->handlers.value(topic);
    for (IEventHandler *handler : present) {
        // A handler called before this one may have ended its subscription.
        if (d->handlers.value(topic).contains(handler))
            handler->handleIEvent(&event);
    }
}

} // namespace QUtil
