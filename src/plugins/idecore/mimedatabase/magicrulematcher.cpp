// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/magicrulematcher.h>

#include <algorithm>

namespace Core {

IMagicMatcher::~IMagicMatcher() = default;

MagicRuleMatcher::MagicRuleMatcher() = default;

MagicRuleMatcher::~MagicRuleMatcher() = default;

void MagicRuleMatcher::add(const MagicRulePtr &rule)
{
    if (rule)
        m_rules.append(rule);
}

bool MagicRuleMatcher::matches(const QByteArray &data) const
{
    return std::any_of(m_rules.cbegin(), m_rules.cend(),
                       [&data](const MagicRulePtr &rule) { return rule->matches(data); });
}

} // namespace Core
