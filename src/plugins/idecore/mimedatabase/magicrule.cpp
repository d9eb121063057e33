// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/magicrule.h>

#include <QStringList>

#include <algorithm>
#include <cstring>

namespace Core {

namespace {

QList<int> bytesOf(const QString &value)
{
    QList<int> bytes;
    const QStringList tokens = value.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    for (const QString &token : tokens) {
        bool ok = false;
        bytes.append(token.toInt(&ok, 16));
        if (!ok)
            return {};
    }
    return bytes;
}

} // namespace

MagicRule::MagicRule(int startPos, int endPos)
    : m_startPos(startPos)
    , m_endPos(endPos)
{
}

MagicRule::~MagicRule() = default;

MagicStringRule::MagicStringRule(const QString &value, int startPos, int endPos)
    : MagicRule(startPos, endPos)
    , m_pattern(value.toUtf8())
{
}

bool MagicStringRule::matches(const QByteArray &data) const
{
    // Offsets come from files: wide enough that their sum cannot overflow.
    if (qint64(startPos()) + m_pattern.size() > data.size())
        return false;
    if (startPos() == 0 && endPos() == 0)
        return data.startsWith(m_pattern);
    // A negative start would count from the end of the data.
    const int index = data.indexOf(m_pattern, std::max(startPos(), 0));
    return index >= 0 && index <= endPos();
}

MagicByteRule::MagicByteRule(const QString &value, int startPos, int endPos)
    : MagicRule(startPos, endPos)
    , m_bytes(bytesOf(value))
    , m_byteCount(m_bytes.size())
{
}

bool MagicByteRule::matches(const QByteArray &data) const
{
    if (m_byteCount == 0)
        return false;
    // There is no byte in front of the data that could match.
    const qint64 last = std::min<qint64>(endPos(), qint64(data.size()) - m_byteCount);
    for (qint64 pos = std::max(startPos(), 0); pos <= last; ++pos) {
        const auto begin = data.cbegin() + pos;
        // Signed on purpose, on every platform: see the declaration.
        const auto same = [](int ruleByte, char dataByte) {
            return ruleByte == static_cast<signed char>(dataByte);
        };
        if (std::equal(m_bytes.cbegin(), m_bytes.cend(), begin, same))
            return true;
    }
    return false;
}

} // namespace Core
