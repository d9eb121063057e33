// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef QUTIL_IEVENT_H
#define QUTIL_IEVENT_H

#include <qutil/qutil_export.h>

#include <QString>
#include <QVariant>

namespace QUtil {

/// What is published on the event bus: a topic and named parameters.
class QUTIL_EXPORT IEvent
{
public:
    IEvent() = default;
    virtual ~IEvent();

    /// The topic under which handlers subscribe; compared case-sensitively.
    [[nodiscard]] virtual QString topic() const = 0;
    /// The value of the parameter @p key; invalid when the event has none.
    [[nodiscard]] virtual QVariant parameter(const QString &key) const = 0;

protected:
    IEvent(const IEvent &) = default;
    IEvent &operator=(const IEvent &) = default;
};

} // namespace QUtil

#endif // QUTIL_IEVENT_H
