// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_MAGICINDEX_P_H
#define IDECORE_MIMEDATABASE_MAGICINDEX_P_H

#include <idecore/mimedatabase/imagicmatcher.h>
#include <idecore/mimedatabase/magicrulematcher.h>

#include <QByteArray>
#include <QList>

#include <vector>

namespace Core {
namespace Internal {

/// Finds the best match among the matchers of many types without asking each.
///
/// What the rules of the known matchers look for lies in one list, the best
/// first, so that the first one found settles it. Matchers from elsewhere are
/// asked one by one.
class MagicIndex final
{
public:
    struct Match
    {
        unsigned priority = 0;
        /// The type's place in the order in which types are visited.
        int type = -1;
    };

    /// Types come in the order in which they are visited.
    void addType(const QList<IMagicMatcherPtr> &matchers);
    /// To be called once, after the last type.
    void finish();

    [[nodiscard]] bool isEmpty() const { return m_tests.empty() && m_others.empty(); }
    /// The highest priority, and the first type that reaches it. @p data is not empty.
    [[nodiscard]] Match best(const QByteArray &data) const;

private:
    struct Test
    {
        enum Kind : quint8 { BytesAt, BytesBetween, Text, Anything };

        unsigned priority = 0;
        int type = 0;
        Kind kind = Anything;
        char firstByte = 0;
        /// Where the bytes may begin.
        int first = 0;
        int last = 0;
        size_t bytesBegin = 0;
        size_t bytesSize = 0;
    };
    struct Other
    {
        IMagicMatcherPtr matcher;
        int type;
    };

    bool addRules(const MagicRuleMatcher &matcher);
    void addBytes(const MagicRule &rule, const QByteArray &bytes, unsigned priority);
    [[nodiscard]] bool passes(const Test &test, const QByteArray &data) const;

    int m_typeCount = 0;
    std::vector<Test> m_tests;
    std::vector<char> m_bytes;
    std::vector<Other> m_others;
};

} // namespace Internal
} // namespace Core

#endif // IDECORE_MIMEDATABASE_MAGICINDEX_P_H
