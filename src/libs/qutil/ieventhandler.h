// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef QUTIL_IEVENTHANDLER_H
#define QUTIL_IEVENTHANDLER_H

#include <qutil/qutil_export.h>

#include <QtGlobal>

namespace QUtil {

class IEvent;

/// Receives events of the topics it is subscribed to.
///
/// A handler that is destroyed leaves the bus by itself.
class QUTIL_EXPORT IEventHandler
{
public:
    IEventHandler() = default;
    virtual ~IEventHandler();

    /// Called synchronously from EventManager::publish(); @p event lives only
    /// as long as the call. The handler may be destroyed in it.
    virtual void handleIEvent(const IEvent *event) = 0;

private:
    Q_DISABLE_COPY(IEventHandler)
};

} // namespace QUtil

#endif // QUTIL_IEVENTHANDLER_H
