// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <qutil/event.h>

namespace QUtil {

Event::Event(const QString &topic, const QVariantHash &parameters)
    : m_topic(topic)
    , m_parameters(parameters)
{
}

QString Event::topic() const
{
    return m_topic;
}

QVariant Event::parameter(const QString &key) const
{
    return m_parameters.value(key);
}

void Event::setParameter(const QString &key, const QVariant &value)
{
    m_parameters.insert(key, value);
}

} // namespace QUtil
