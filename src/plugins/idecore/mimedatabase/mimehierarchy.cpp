// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/mimedatabase_p.h>

#include <QtDebug>

#include <algorithm>
#include <limits>

namespace Core {
namespace private_impl {

namespace {

/// The edges from parents to children, and the order in which a walk along all
/// of them leaves the types. Walked with a stack of its own: the depth of the
/// hierarchy comes from files.
class Hierarchy
{
public:
    explicit Hierarchy(size_t size)
        : m_children(size)
        , m_hasParent(size, false)
        , m_left(size, NotVisited)
    {
    }

    void addChild(int parent, int child)
    {
        m_children[size_t(parent)].push_back(child);
        m_hasParent[size_t(child)] = true;
    }

    bool hasParent(int type) const { return m_hasParent[size_t(type)]; }
    const std::vector<int> &children(int type) const { return m_children[size_t(type)]; }

    /// Whether the edge does not close a cycle; known once both are visited.
    bool leadsDown(int parent, int child) const
    {
        return m_left[size_t(child)] < m_left[size_t(parent)];
    }

    /// Visits what lies below @p top; @p cycleFound gets the types of each cycle.
    template<class CycleFound>
    void visit(int top, CycleFound cycleFound)
    {
        if (m_left[size_t(top)] != NotVisited)
            return;
        enter(top);
        while (!m_path.empty()) {
            Step &step = m_path.back();
            const std::vector<int> &below = children(step.type);
            if (step.nextChild == below.size()) {
                m_left[size_t(step.type)] = int(m_order.size());
                m_order.push_back(step.type);
                m_path.pop_back();
                continue;
            }
            const int child = below[step.nextChild++];
            if (m_left[size_t(child)] == NotVisited)
                enter(child);
            else if (m_left[size_t(child)] == OnPath)
                cycleFound(pathFrom(child));
        }
    }

    /// Every visited type, children before their parents.
    const std::vector<int> &order() const { return m_order; }

private:
    static constexpr int NotVisited = -1;
    static constexpr int OnPath = std::numeric_limits<int>::max();

    struct Step
    {
        int type;
        size_t nextChild;
    };

    void enter(int type)
    {
        m_left[size_t(type)] = OnPath;
        m_path.push_back({type, 0});
    }

    std::vector<int> pathFrom(int type) const
    {
        std::vector<int> cycle;
        for (auto step = m_path.crbegin(); cycle.empty() || cycle.back() != type; ++step)
            cycle.push_back(step->type);
        std::reverse(cycle.begin(), cycle.end());
        return cycle;
    }

    std::vector<std::vector<int>> m_children;
    std::vector<bool> m_hasParent;
    std::vector<int> m_left;
    std::vector<Step> m_path;
    std::vector<int> m_order;
};

} // namespace

void MimeDatabasePrivate::determineLevels()
{
    Hierarchy hierarchy(entries.size());
    std::vector<int> parents;
    for (int i = 0; i < int(entries.size()); ++i) {
        const QString type = entries[size_t(i)].type.type();
        const auto range = qAsConst(parentChildrenMap).equal_range(type);
        if (range.first == range.second)
            continue;
        parents.push_back(i);
        std::vector<int> children;
        for (auto child = range.first; child != range.second; ++child) {
            const int index = typeMimeTypeMap.value(child.value(), -1);
            if (index < 0) {
                qWarning(
                    "%s: Inconsistent mime hierarchy detected, child %s of %s cannot be found.",
                    Q_FUNC_INFO, qUtf8Printable(child.value()), qUtf8Printable(type));
                continue;
            }
            children.push_back(index);
        }
        // The hash has an order of its own in every run of the program.
        std::sort(children.begin(), children.end());
        children.erase(std::unique(children.begin(), children.end()), children.end());
        for (const int child : children)
            hierarchy.addChild(i, child);
    }

    // Inside the lambda the name would be that of the lambda.
    const char *const function = Q_FUNC_INFO;
    const auto warnOfCycle = [this, function](const std::vector<int> &cycle) {
        constexpr size_t mostNames = 32;
        QStringList names;
        for (size_t i = 0; i < std::min(cycle.size(), mostNames); ++i)
            names.append(entries[size_t(cycle[i])].type.type());
        if (cycle.size() > mostNames)
            names.append(QStringLiteral("..."));
        names.append(names.constFirst());
        qWarning("%s: Inconsistent mime hierarchy detected, cycle of types: %s.", function,
                 qUtf8Printable(names.join(QLatin1String(" > "))));
    };
    for (const int parent : parents) {
        if (!hierarchy.hasParent(parent))
            hierarchy.visit(parent, warnOfCycle);
    }
    const size_t placed = hierarchy.order().size();
    // What is left is a cycle without a way in, or lies below one: worth the
    // warning, but it has no place.
    for (const int parent : parents)
        hierarchy.visit(parent, warnOfCycle);

    maxLevel = -1;
    std::vector<int> levels(entries.size(), 0);
    for (size_t i = placed; i-- > 0;) {
        const int index = hierarchy.order()[i];
        const int level = levels[size_t(index)];
        MimeMapEntry &entry = entries[size_t(index)];
        if (entry.level == Dangling || entry.level < level)
            entry.level = level;
        maxLevel = std::max(maxLevel, level);
        for (const int child : hierarchy.children(index)) {
            if (hierarchy.leadsDown(index, child))
                levels[size_t(child)] = std::max(levels[size_t(child)], level + 1);
        }
    }
}

} // namespace private_impl
} // namespace Core
