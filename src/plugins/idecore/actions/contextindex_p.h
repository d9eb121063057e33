// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_ACTIONS_CONTEXTINDEX_P_H
#define IDECORE_ACTIONS_CONTEXTINDEX_P_H

#include "iaction.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <limits>
#include <map>
#include <memory>
#include <vector>

namespace Core {
namespace private_impl {

/// Finds the proxies that a change of the current contexts concerns, so that the
/// others cost nothing.
///
/// The outcome is the one of handing the new list to every proxy: a proxy is
/// bound anew when the contexts that came, went or moved may give it another
/// action, and when something happened to it since it was last bound that
/// binding it anew would put right (it is stale).
class ContextIndex final
{
    Q_DISABLE_COPY(ContextIndex)
public:
    static constexpr int Absent = std::numeric_limits<int>::max();

    /// A context that some proxy has an action for.
    struct Context
    {
        /// The first place in the current list, or Absent.
        int rank = Absent;
        std::vector<IAction::Private *> proxies;
    };
    using Contexts = std::map<QString, Context>;

    ContextIndex();
    /// Lets go of the proxies that are left; safe while a change is under way.
    ~ContextIndex();

    /// Takes @p proxy in; it leaves when it is destroyed.
    void add(IAction *proxy);
    /// Makes @p contexts the current list. Called again meanwhile, by what runs
    /// because an action changes, the newer list is the one that counts.
    void setCurrentContexts(const QStringList &contexts);

    // For the proxies that were taken in.

    void remove(IAction::Private *proxy);
    /// Enters @p proxy under @p context; its place among the proxies of it is
    /// the last.
    [[nodiscard]] Contexts::iterator enter(IAction::Private *proxy, const QString &context);
    void leave(Contexts::iterator context, std::size_t place);
    /// Has @p proxy looked at with the next change, whichever it is.
    void enqueue(IAction::Private *proxy);

private:
    // Outlives the index for a change that is under way when it is destroyed.
    struct Queue
    {
        // Null where a proxy was destroyed.
        std::vector<IAction::Private *> proxies;
        std::size_t next = 0;
        int depth = 0;
    };

    void enqueueConcerned(const Context &context);
    void work();

    Contexts m_contexts;
    QStringList m_current;
    std::vector<IAction::Private *> m_proxies;
    const std::shared_ptr<Queue> m_queue;
};

} // namespace private_impl
} // namespace Core

#endif // IDECORE_ACTIONS_CONTEXTINDEX_P_H
