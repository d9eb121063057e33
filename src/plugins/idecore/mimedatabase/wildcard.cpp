// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/wildcard_p.h>

#include <algorithm>

namespace Core {
namespace Internal {

bool Wildcard::UnitClass::contains(QChar unit) const
{
    // A range is taken as written and each case of the unit looked for in it, so
    // that "[Z-a]" holds the marks between, too.
    const char16_t lower = folded(unit);
    const auto upper = char16_t(unit.toUpper().unicode());
    const bool found = std::any_of(ranges.cbegin(), ranges.cend(), [=](const auto &range) {
        return (lower >= range.first && lower <= range.second)
               || (upper >= range.first && upper <= range.second);
    });
    return found != negative;
}

Wildcard::Wildcard(const QString &pattern)
{
    // A backslash stands for itself. It also takes the meaning from the special
    // character behind it, and counts twice in front of an ordinary one: so it
    // is in QRegExp, whose patterns these are.
    bool escaping = false;
    for (int i = 0; i < pattern.size() && m_valid; ++i) {
        const QChar c = pattern.at(i);
        const bool escaped = std::exchange(escaping, false);
        switch (c.unicode()) {
        case '\\':
            addUnit(c);
            escaping = true;
            break;
        case '*':
            if (escaped)
                addUnit(c);
            else if (m_tokens.empty() || m_tokens.back().kind != Token::AnyText)
                m_tokens.push_back({Token::AnyText});
            break;
        case '?':
            if (escaped)
                addUnit(c);
            else
                m_tokens.push_back({Token::AnyUnit});
            break;
        case '[':
            if (escaped)
                addUnit(c);
            else
                i = addClass(pattern, i + 1);
            break;
        case ']':
            if (escaped)
                addUnit(c);
            else
                m_valid = false;
            break;
        default:
            if (escaped)
                addUnit(QLatin1Char('\\'));
            addUnit(c);
            break;
        }
    }
    if (!m_regExpPattern.isEmpty()) {
        m_tokens.clear();
        m_valid = regExp().isValid();
    }
    m_shortestMatch = int(std::count_if(m_tokens.cbegin(), m_tokens.cend(), [](const Token &token) {
        return token.kind != Token::AnyText;
    }));
}

/// Reads a class from behind its bracket and returns where it ends.
int Wildcard::addClass(const QString &pattern, int begin)
{
    UnitClass units;
    int i = begin;
    if (i < pattern.size() && pattern.at(i) == QLatin1Char('^')) {
        units.negative = true;
        ++i;
    }
    // A bracket in the first place is a member, and turns the stars behind it
    // into expressions of their own: too odd to be rebuilt here.
    if (i < pattern.size() && pattern.at(i) == QLatin1Char(']')) {
        m_regExpPattern = pattern;
        return pattern.size();
    }
    for (; i < pattern.size() && pattern.at(i) != QLatin1Char(']'); ++i) {
        const auto from = char16_t(pattern.at(i).unicode());
        auto to = from;
        if (i + 2 < pattern.size() && pattern.at(i + 1) == QLatin1Char('-')
            && pattern.at(i + 2) != QLatin1Char(']')) {
            i += 2;
            to = char16_t(pattern.at(i).unicode());
        }
        units.ranges.push_back(std::minmax({from, to}));
    }
    if (i >= pattern.size())
        m_valid = false;
    m_tokens.push_back({Token::Class, quint32(m_classes.size())});
    m_classes.push_back(std::move(units));
    return i;
}

bool Wildcard::matchesUnit(const Token &token, QChar unit) const
{
    switch (token.kind) {
    case Token::Unit:
        return token.value == folded(unit);
    case Token::AnyUnit:
        return true;
    case Token::Class:
        return m_classes[token.value].contains(unit);
    case Token::AnyText:
        break;
    }
    return false;
}

bool Wildcard::matches(const QString &text) const
{
    if (!m_valid || text.size() < m_shortestMatch)
        return false;
    if (!m_regExpPattern.isEmpty())
        return regExp().exactMatch(text);
    // Only the last star needs another try: what an earlier one could take
    // more, the last one can take as well.
    size_t token = 0;
    int at = 0;
    size_t afterStar = 0;
    int starEnd = -1;
    while (at < text.size()) {
        if (token < m_tokens.size() && m_tokens[token].kind == Token::AnyText) {
            afterStar = ++token;
            starEnd = at;
        } else if (token < m_tokens.size() && matchesUnit(m_tokens[token], text.at(at))) {
            ++token;
            ++at;
        } else if (starEnd >= 0) {
            token = afterStar;
            at = ++starEnd;
        } else {
            return false;
        }
    }
    if (token < m_tokens.size() && m_tokens[token].kind == Token::AnyText)
        ++token;
    return token == m_tokens.size();
}

/// A new one for each use, for it keeps its match state inside.
QRegExp Wildcard::regExp() const
{
    return QRegExp(m_regExpPattern, Qt::CaseInsensitive, QRegExp::Wildcard);
}

bool Wildcard::isLiteral() const
{
    return m_valid && m_regExpPattern.isEmpty()
           && std::all_of(m_tokens.cbegin(), m_tokens.cend(),
                          [](const Token &token) { return token.kind == Token::Unit; });
}

bool Wildcard::isLiteralSuffix() const
{
    return m_valid && !m_tokens.empty() && m_tokens.front().kind == Token::AnyText
           && std::all_of(m_tokens.cbegin() + 1, m_tokens.cend(),
                          [](const Token &token) { return token.kind == Token::Unit; });
}

std::u16string Wildcard::literal() const
{
    std::u16string text;
    for (const Token &token : m_tokens) {
        if (token.kind == Token::Unit)
            text.push_back(char16_t(token.value));
    }
    return text;
}

char16_t Wildcard::firstUnit() const
{
    return !m_tokens.empty() && m_tokens.front().kind == Token::Unit
               ? char16_t(m_tokens.front().value)
               : char16_t(0);
}

char16_t Wildcard::lastUnit() const
{
    return !m_tokens.empty() && m_tokens.back().kind == Token::Unit
               ? char16_t(m_tokens.back().value)
               : char16_t(0);
}

} // namespace Internal
} // namespace Core
