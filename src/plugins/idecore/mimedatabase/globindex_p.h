// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_GLOBINDEX_P_H
#define IDECORE_MIMEDATABASE_GLOBINDEX_P_H

#include <idecore/mimedatabase/mimeglobpattern.h>
#include <idecore/mimedatabase/wildcard_p.h>

#include <QList>
#include <QString>
#include <QVarLengthArray>

#include <string>
#include <unordered_map>
#include <vector>

namespace Core {
namespace Internal {

/// Finds the globs of many types that match a name without asking each of them.
///
/// Plain names and plain suffixes lie in a tree that is walked from the end of
/// the name; of other wildcards only those are tried whose first or last unit
/// fits.
class GlobIndex final
{
public:
    /// That a glob of a type matches.
    struct Hit
    {
        /// The type's place in the order in which types are visited.
        int type;
        /// The glob's place in the type.
        int glob;
        quint32 weight;

        friend bool operator<(const Hit &a, const Hit &b)
        {
            return a.type != b.type ? a.type < b.type : a.glob < b.glob;
        }
    };
    using Hits = QVarLengthArray<Hit, 32>;

    /// Types come in the order in which they are visited.
    void addType(const QList<MimeGlobPattern> &globs);
    /// To be called once, after the last type.
    void finish();

    /// All hits, in no particular order.
    void find(const QString &name, Hits &hits) const;

private:
    /// A literal from its end to its start; a whole name or only its end.
    struct Literal
    {
        std::u16string reversed;
        bool wholeName;
        Hit hit = {};
    };
    struct Node
    {
        size_t edgesBegin = 0;
        size_t edgesEnd = 0;
        /// First those of suffixes, then those of whole names.
        size_t hitsBegin = 0;
        size_t wholeNamesBegin = 0;
        size_t hitsEnd = 0;
    };
    struct Edge
    {
        char16_t unit;
        size_t node;
    };
    struct OtherWildcard
    {
        Wildcard wildcard;
        Hit hit = {};
    };
    struct OtherExpression
    {
        MimeGlobPattern glob;
        Hit hit = {};
    };
    using UnitMap = std::unordered_map<char16_t, std::vector<size_t>>;

    void addWildcard(const Wildcard &wildcard, const Hit &hit);
    [[nodiscard]] const Node *child(const Node &node, char16_t unit) const;
    void tryWildcards(const std::vector<size_t> &indexes, const QString &name, Hits &hits) const;

    int m_typeCount = 0;
    std::vector<Literal> m_literals;
    std::vector<Node> m_nodes;
    std::vector<Edge> m_edges;
    std::vector<Hit> m_hits;
    std::vector<OtherWildcard> m_wildcards;
    UnitMap m_wildcardsByFirst;
    UnitMap m_wildcardsByLast;
    std::vector<size_t> m_wildcardsWithoutEnds;
    std::vector<OtherExpression> m_expressions;
};

} // namespace Internal
} // namespace Core

#endif // IDECORE_MIMEDATABASE_GLOBINDEX_P_H
