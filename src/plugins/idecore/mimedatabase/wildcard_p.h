// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_WILDCARD_P_H
#define IDECORE_MIMEDATABASE_WILDCARD_P_H

#include <idecore/idecore_export.h>

#include <QRegExp>
#include <QString>

#include <string>
#include <utility>
#include <vector>

namespace Core {
namespace Internal {

/// A unit of text as it counts where case is ignored.
inline char16_t folded(QChar c)
{
    const ushort unit = c.unicode();
    if (unit < 0x80)
        return char16_t(unit >= 'A' && unit <= 'Z' ? unit + ('a' - 'A') : unit);
    return char16_t(c.toLower().unicode());
}

/// A wildcard that ignores case, with the meaning QRegExp::Wildcard has, but
/// without its match state and at most as slow as pattern times text.
class IDECORE_EXPORT Wildcard final
{
public:
    explicit Wildcard(const QString &pattern);

    [[nodiscard]] bool isValid() const { return m_valid; }

    /// Whether the whole of @p text matches; false for an invalid pattern.
    [[nodiscard]] bool matches(const QString &text) const;

    /// Whether it is nothing but the text literal(), and that is all there is of
    /// the name or what the name ends in.
    [[nodiscard]] bool isLiteral() const;
    [[nodiscard]] bool isLiteralSuffix() const;
    [[nodiscard]] std::u16string literal() const;

    /// The first and the last unit of every text that matches; 0 where they vary.
    [[nodiscard]] char16_t firstUnit() const;
    [[nodiscard]] char16_t lastUnit() const;

private:
    struct Token
    {
        enum Kind { Unit, AnyUnit, AnyText, Class };

        Kind kind;
        /// The unit itself, or which of the classes.
        quint32 value = 0;
    };

    struct UnitClass
    {
        [[nodiscard]] bool contains(QChar unit) const;

        std::vector<std::pair<char16_t, char16_t>> ranges;
        bool negative = false;
    };

    void addUnit(QChar c) { m_tokens.push_back({Token::Unit, folded(c)}); }
    int addClass(const QString &pattern, int begin);
    [[nodiscard]] QRegExp regExp() const;
    [[nodiscard]] bool matchesUnit(const Token &token, QChar unit) const;

    std::vector<Token> m_tokens;
    std::vector<UnitClass> m_classes;
    /// Only set where the tokens cannot say what it means.
    QString m_regExpPattern;
    int m_shortestMatch = 0;
    bool m_valid = true;
};

} // namespace Internal
} // namespace Core

#endif // IDECORE_MIMEDATABASE_WILDCARD_P_H
