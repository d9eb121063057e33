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
///
/// It lives until the process ends, so that handlers may be destroyed as late as
/// they like.
class QUTIL_EXPORT EventManager final
{
public:
    static EventManager *instance();

    /// Lets @p handler receive the events of @p topic, after the handlers that
    /// subscribed before it. A null handler and a second subscription of the
    /// same handler to the same topic are ignored. The bus does not own the
    /// handler, which leaves it when it is destroyed.
    void subscribe(const QString &topic, IEventHandler *handler);
    /// Ends one subscription; nothing happens when there is none.
    void unsubscribe(const QString &topic, IEventHandler *handler);
    /// Ends every subscription of @p handler.
    void unsubscribeAll(IEventHandler *handler);

    /// Delivers @p event to the handlers of its topic, synchronously, in the
    /// order of subscription. Handlers may subscribe, unsubscribe or be
    /// destroyed meanwhile: who left is not called any more, who came (also one
    /// that left and came back) is called from the next event on. An event that a
    /// handler publishes is delivered in full before this delivery goes on. A
    /// handler that throws is named in a warning and the next one is called.
    void publish(const IEvent &event);

private:
    EventManager();
    ~EventManager();
    Q_DISABLE_COPY(EventManager)

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace QUtil

#endif // QUTIL_EVENTMANAGER_H
