// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef QUTIL_EVENT_H
#define QUTIL_EVENT_H

#include <qutil/ievent.h>

#include <QVariantHash>

namespace QUtil {

/// An event as a plain value.
class QUTIL_EXPORT Event final : public IEvent
{
public:
    explicit Event(const QString &topic, const QVariantHash &parameters = {});

    [[nodiscard]] QString topic() const override;
    [[nodiscard]] QVariant parameter(const QString &key) const override;

    /// Sets the parameter @p key, replacing an earlier value.
    void setParameter(const QString &key, const QVariant &value);

private:
    QString m_topic;
    QVariantHash m_parameters;
};

} // namespace QUtil

#endif // QUTIL_EVENT_H
