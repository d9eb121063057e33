// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/globindex_p.h>

#include <algorithm>
#include <tuple>

namespace Core {
namespace Internal {

void GlobIndex::addType(const QList<MimeGlobPattern> &globs)
{
    for (int i = 0; i < globs.size(); ++i) {
        const MimeGlobPattern &glob = globs.at(i);
        const Hit hit{m_typeCount, i, glob.weight()};
        if (glob.isPlainWildcard())
            addWildcard(Wildcard(glob.pattern()), hit);
        else
            m_expressions.push_back({glob, hit});
    }
    ++m_typeCount;
}

void GlobIndex::addWildcard(const Wildcard &wildcard, const Hit &hit)
{
    const bool wholeName = wildcard.isLiteral();
    if (wholeName || wildcard.isLiteralSuffix()) {
        std::u16string literal = wildcard.literal();
        std::reverse(literal.begin(), literal.end());
        m_literals.push_back({std::move(literal), wholeName, hit});
        return;
    }
    const size_t index = m_wildcards.size();
    m_wildcards.push_back({wildcard, hit});
    if (const char16_t first = wildcard.firstUnit())
        m_wildcardsByFirst[first].push_back(index);
    else if (const char16_t last = wildcard.lastUnit())
        m_wildcardsByLast[last].push_back(index);
    else
        m_wildcardsWithoutEnds.push_back(index);
}

void GlobIndex::finish()
{
    std::sort(m_literals.begin(), m_literals.end(), [](const Literal &a, const Literal &b) {
        return std::tie(a.reversed, a.wholeName) < std::tie(b.reversed, b.wholeName);
    });

    // Sorted, a literal shares the longest part of its way with the one before.
    m_nodes.resize(1);
    std::vector<std::vector<Edge>> edges(1);
    std::vector<size_t> way{0};
    const std::u16string *previous = nullptr;
    for (const Literal &literal : m_literals) {
        const std::u16string &text = literal.reversed;
        size_t shared = 0;
        if (previous) {
            const auto ends =
                std::mismatch(text.cbegin(), text.cend(), previous->cbegin(), previous->cend());
            shared = size_t(ends.first - text.cbegin());
        }
        way.resize(shared + 1);
        for (size_t i = shared; i < text.size(); ++i) {
            edges[way.back()].push_back({text[i], m_nodes.size()});
            way.push_back(m_nodes.size());
            m_nodes.emplace_back();
            edges.emplace_back();
        }
        Node &node = m_nodes[way.back()];
        if (node.hitsEnd == 0)
            node.hitsBegin = node.wholeNamesBegin = m_hits.size();
        m_hits.push_back(literal.hit);
        node.hitsEnd = m_hits.size();
        if (!literal.wholeName)
            node.wholeNamesBegin = node.hitsEnd;
        previous = &text;
    }
    for (size_t i = 0; i < m_nodes.size(); ++i) {
        m_nodes[i].edgesBegin = m_edges.size();
        m_edges.insert(m_edges.end(), edges[i].cbegin(), edges[i].cend());
        m_nodes[i].edgesEnd = m_edges.size();
    }
    m_literals = {};
}

const GlobIndex::Node *GlobIndex::child(const Node &node, char16_t unit) const
{
    const auto end = m_edges.cbegin() + qptrdiff(node.edgesEnd);
    const auto edge = std::lower_bound(m_edges.cbegin() + qptrdiff(node.edgesBegin), end, unit,
                                       [](const Edge &e, char16_t u) { return e.unit < u; });
    return edge != end && edge->unit == unit ? &m_nodes[edge->node] : nullptr;
}

void GlobIndex::find(const QString &name, Hits &hits) const
{
    const auto append = [this, &hits](size_t begin, size_t end) {
        for (size_t i = begin; i < end; ++i)
            hits.append(m_hits[i]);
    };
    const Node *node = &m_nodes.front();
    int rest = name.size();
    for (;;) {
        append(node->hitsBegin, rest == 0 ? node->hitsEnd : node->wholeNamesBegin);
        if (rest == 0)
            break;
        node = child(*node, folded(name.at(--rest)));
        if (!node)
            break;
    }

    if (!name.isEmpty()) {
        const auto byFirst = m_wildcardsByFirst.find(folded(name.front()));
        if (byFirst != m_wildcardsByFirst.cend())
            tryWildcards(byFirst->second, name, hits);
        const auto byLast = m_wildcardsByLast.find(folded(name.back()));
        if (byLast != m_wildcardsByLast.cend())
            tryWildcards(byLast->second, name, hits);
    }
    tryWildcards(m_wildcardsWithoutEnds, name, hits);
    for (const OtherExpression &other : m_expressions) {
        if (other.glob.matches(name))
            hits.append(other.hit);
    }
}

void GlobIndex::tryWildcards(const std::vector<size_t> &indexes, const QString &name,
                             Hits &hits) const
{
    for (const size_t index : indexes) {
        if (m_wildcards[index].wildcard.matches(name))
            hits.append(m_wildcards[index].hit);
    }
}

} // namespace Internal
} // namespace Core
