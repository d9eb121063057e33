// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/mimeglobpattern.h>

#include <idecore/mimedatabase/wildcard_p.h>

namespace Core {

MimeGlobPattern::MimeGlobPattern(const QRegExp &regExp, quint32 weight)
    : m_pattern(regExp.pattern())
    , m_weight(weight)
    , m_syntax(regExp.patternSyntax())
    , m_caseSensitivity(regExp.caseSensitivity())
    , m_minimal(regExp.isMinimal())
{
}

MimeGlobPattern::MimeGlobPattern(const QString &pattern, quint32 weight)
    : m_pattern(pattern)
    , m_weight(weight)
    , m_syntax(QRegExp::Wildcard)
    , m_caseSensitivity(Qt::CaseInsensitive)
    , m_minimal(false)
{
}

QRegExp MimeGlobPattern::regExp() const
{
    QRegExp expression(m_pattern, m_caseSensitivity, m_syntax);
    expression.setMinimal(m_minimal);
    return expression;
}

bool MimeGlobPattern::isPlainWildcard() const
{
    return m_syntax == QRegExp::Wildcard && m_caseSensitivity == Qt::CaseInsensitive;
}

bool MimeGlobPattern::matches(const QString &fileName) const
{
    return isPlainWildcard() ? Internal::Wildcard(m_pattern).matches(fileName)
                             : regExp().exactMatch(fileName);
}

} // namespace Core
