// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef QUTIL_EVENTMANAGER_H
#define QUTIL_EVENTMANAGER_H

#include <qutil/qutil_export.h>

#include <QString>

#include <memory>

namespace QUtil {

class IEvent;
class IEventHandler;

/// The event bus. GUI thread only.
class QUTIL_EXPORT EventManager final
{
public:
    static EventManager *instance();

    /// Lets @p handler receive the events of @p topic, after the handlers that
    /// subscribed before it. A null handler and a second subscription of the
    /// same handler to the same topic are ignored.
    void subscribe(const QString &topic, IEventHandler *handler);
    void unsubscribe(const QString &topic, IEventHandler *handler);
    void unsubscribeAll(IEventHandler *handler);

    /// Delivers @p event to the handlers of its topic, synchronously, in the
    /// order of subscription. Handlers may subscribe, unsubscribe or be
    /// destroyed meanwhile: who left is not called any more, who came is called
    /// from the next event on.
    void publish(const IEvent &event);

private:
    EventManager();
    ~EventManager();
    EventManager(const EventManager &) = delete;
    EventManager &operator=(const EventManager &) = delete;

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace QUtil

#endif // QUTIL_EVENTMANAGER_H
