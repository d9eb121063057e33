// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/magicindex_p.h>

#include <idecore/mimedatabase/contentmatchers_p.h>

#include <algorithm>
#include <cstring>
#include <optional>

namespace Core {
namespace Internal {

namespace {

/// What a rule looks for; nothing for a rule that never matches, no bytes where
/// the class is not one of those known here.
struct Known
{
    bool isKnown = false;
    std::optional<QByteArray> bytes;
};

Known knownBytes(const MagicRule &rule)
{
    if (const auto *stringRule = dynamic_cast<const MagicStringRule *>(&rule))
        return {true, stringRule->pattern()};
    const auto *byteRule = dynamic_cast<const MagicByteRule *>(&rule);
    if (!byteRule)
        return {};
    QByteArray bytes;
    const QList<int> values = byteRule->bytes();
    for (const int value : values) {
        // No signed char has such a value.
        if (value < -128 || value > 127)
            return {true, std::nullopt};
        bytes.append(char(value));
    }
    if (bytes.isEmpty())
        return {true, std::nullopt};
    return {true, bytes};
}

} // namespace

void MagicIndex::addType(const QList<IMagicMatcherPtr> &matchers)
{
    for (const IMagicMatcherPtr &matcher : matchers) {
        const auto priority = unsigned(std::max(matcher->priority(), 0));
        if (dynamic_cast<const HeuristicTextMagicMatcher *>(matcher.data())) {
            m_tests.push_back({priority, m_typeCount, Test::Text});
        } else if (dynamic_cast<const BinaryMatcher *>(matcher.data())) {
            m_tests.push_back({priority, m_typeCount, Test::Anything});
        } else {
            const auto *ruleMatcher = dynamic_cast<const MagicRuleMatcher *>(matcher.data());
            if (!ruleMatcher || !addRules(*ruleMatcher))
                m_others.push_back({matcher, m_typeCount});
        }
    }
    ++m_typeCount;
}

/// False, and nothing is added, when one of the rules is of an unknown class.
bool MagicIndex::addRules(const MagicRuleMatcher &matcher)
{
    const QList<MagicRulePtr> rules = matcher.rules();
    const bool allKnown = std::all_of(rules.cbegin(), rules.cend(), [](const MagicRulePtr &rule) {
        return knownBytes(*rule).isKnown;
    });
    if (!allKnown)
        return false;
    if (matcher.priority() <= 0)
        return true;
    for (const MagicRulePtr &rule : rules) {
        if (const auto bytes = knownBytes(*rule).bytes)
            addBytes(*rule, *bytes, unsigned(matcher.priority()));
    }
    return true;
}

void MagicIndex::addBytes(const MagicRule &rule, const QByteArray &bytes, unsigned priority)
{
    const int first = std::max(rule.startPos(), 0);
    if (rule.endPos() < first)
        return;
    Test test{priority, m_typeCount, rule.endPos() == first ? Test::BytesAt : Test::BytesBetween};
    test.first = first;
    test.last = rule.endPos();
    test.bytesBegin = m_bytes.size();
    test.bytesSize = size_t(bytes.size());
    test.firstByte = bytes.isEmpty() ? char(0) : bytes.at(0);
    m_bytes.insert(m_bytes.end(), bytes.cbegin(), bytes.cend());
    m_tests.push_back(test);
}

void MagicIndex::finish()
{
    std::stable_sort(m_tests.begin(), m_tests.end(), [](const Test &a, const Test &b) {
        return a.priority != b.priority ? a.priority > b.priority : a.type < b.type;
    });
}

bool MagicIndex::passes(const Test &test, const QByteArray &data) const
{
    if (test.kind == Test::Text)
        return HeuristicTextMagicMatcher::isTextFile(data);
    if (test.kind == Test::Anything)
        return true;

    const qint64 last = std::min<qint64>(test.last, qint64(data.size()) - qint64(test.bytesSize));
    if (test.first > last)
        return false;
    if (test.bytesSize == 0)
        return true;
    const char *const bytes = m_bytes.data() + test.bytesBegin;
    const char *const begin = data.constData() + test.first;
    if (test.kind == Test::BytesAt)
        return *begin == test.firstByte && std::memcmp(begin, bytes, test.bytesSize) == 0;
    return ::memmem(begin, size_t(last - test.first) + test.bytesSize, bytes, test.bytesSize);
}

MagicIndex::Match MagicIndex::best(const QByteArray &data) const
{
    Match match;
    const auto test = std::find_if(m_tests.cbegin(), m_tests.cend(),
                                   [this, &data](const Test &t) { return passes(t, data); });
    if (test != m_tests.cend())
        match = {test->priority, test->type};
    for (const Other &other : m_others) {
        if (!other.matcher->matches(data))
            continue;
        const int priority = other.matcher->priority();
        if (priority <= 0)
            continue;
        if (unsigned(priority) > match.priority
            || (unsigned(priority) == match.priority && other.type < match.type))
            match = {unsigned(priority), other.type};
    }
    return match;
}

} // namespace Internal
} // namespace Core
