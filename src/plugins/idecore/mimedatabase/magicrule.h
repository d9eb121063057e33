// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_MAGICRULE_H
#define IDECORE_MIMEDATABASE_MAGICRULE_H

#include <idecore/idecore_export.h>

#include <QByteArray>
#include <QList>
#include <QSharedPointer>
#include <QString>

namespace Core {

/// One statement about the bytes of a file between two offsets, both inclusive.
class IDECORE_EXPORT MagicRule
{
public:
    MagicRule(int startPos, int endPos);
    virtual ~MagicRule();

    [[nodiscard]] int startPos() const { return m_startPos; }
    [[nodiscard]] int endPos() const { return m_endPos; }

    [[nodiscard]] virtual bool matches(const QByteArray &data) const = 0;

private:
    Q_DISABLE_COPY(MagicRule)

    const int m_startPos;
    const int m_endPos;
};

using MagicRulePtr = QSharedPointer<MagicRule>;

/// The bytes of a text begin somewhere between the two offsets.
class IDECORE_EXPORT MagicStringRule final : public MagicRule
{
public:
    MagicStringRule(const QString &value, int startPos, int endPos);

    /// The value as UTF-8.
    [[nodiscard]] QByteArray pattern() const { return m_pattern; }

    [[nodiscard]] bool matches(const QByteArray &data) const override;

private:
    const QByteArray m_pattern;
};

/// A sequence of bytes begins somewhere between the two offsets.
class IDECORE_EXPORT MagicByteRule final : public MagicRule
{
public:
    /// @p value is hexadecimal numbers, each after a backslash ("\0x7f\0x45").
    /// One that is no number makes a rule without bytes, which never matches.
    MagicByteRule(const QString &value, int startPos, int endPos);

    [[nodiscard]] QList<int> bytes() const { return m_bytes; }
    [[nodiscard]] int byteCount() const { return m_byteCount; }

    /// A byte of @p data counts as a signed char, so that a rule with a number
    /// from 0x80 to 0xff never matches.
    [[nodiscard]] bool matches(const QByteArray &data) const override;

private:
    const QList<int> m_bytes;
    const int m_byteCount;
};

} // namespace Core

#endif // IDECORE_MIMEDATABASE_MAGICRULE_H
