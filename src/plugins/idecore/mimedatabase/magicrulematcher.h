// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_MAGICRULEMATCHER_H
#define IDECORE_MIMEDATABASE_MAGICRULEMATCHER_H

#include <idecore/idecore_export.h>
#include <idecore/mimedatabase/imagicmatcher.h>
#include <idecore/mimedatabase/magicrule.h>

namespace Core {

/// Matches when any one of its rules does.
class IDECORE_EXPORT MagicRuleMatcher final : public IMagicMatcher
{
public:
    MagicRuleMatcher();
    ~MagicRuleMatcher() override;

    [[nodiscard]] QList<MagicRulePtr> rules() const { return m_rules; }
    /// Nothing for a null pointer.
    void add(const MagicRulePtr &rule);

    [[nodiscard]] bool matches(const QByteArray &data) const override;

    /// 65535 until it is set.
    [[nodiscard]] int priority() const override { return m_priority; }
    void setPriority(int priority) { m_priority = priority; }

private:
    QList<MagicRulePtr> m_rules;
    int m_priority = 65535;
};

using MagicRuleMatcherPtr = QSharedPointer<MagicRuleMatcher>;

} // namespace Core

#endif // IDECORE_MIMEDATABASE_MAGICRULEMATCHER_H
