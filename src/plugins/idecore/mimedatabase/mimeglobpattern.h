// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_MIMEGLOBPATTERN_H
#define IDECORE_MIMEDATABASE_MIMEGLOBPATTERN_H

#include <idecore/idecore_export.h>

#include <QList>
#include <QRegExp>
#include <QString>

namespace Core {

/// A pattern for file names and what a match of it weighs.
///
/// A value without match state: any number of threads may use the same one.
class IDECORE_EXPORT MimeGlobPattern final
{
public:
    static constexpr quint32 DefaultWeight = 100;

    /// @p regExp is usually a wildcard that ignores case.
    explicit MimeGlobPattern(const QRegExp &regExp, quint32 weight = DefaultWeight);
    /// The wildcard @p pattern, ignoring case.
    explicit MimeGlobPattern(const QString &pattern, quint32 weight = DefaultWeight);

    /// A regular expression of the caller's own.
    [[nodiscard]] QRegExp regExp() const;
    /// The text of the expression, such as "*.txt".
    [[nodiscard]] QString pattern() const { return m_pattern; }
    [[nodiscard]] quint32 weight() const { return m_weight; }
    /// Whether this is a wildcard that ignores case.
    [[nodiscard]] bool isPlainWildcard() const;

    /// Whether the whole of @p fileName matches.
    [[nodiscard]] bool matches(const QString &fileName) const;

private:
    QString m_pattern;
    quint32 m_weight;
    QRegExp::PatternSyntax m_syntax;
    Qt::CaseSensitivity m_caseSensitivity;
    bool m_minimal;
};

} // namespace Core

#endif // IDECORE_MIMEDATABASE_MIMEGLOBPATTERN_H
