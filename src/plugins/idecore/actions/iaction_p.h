// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_ACTIONS_IACTION_P_H
#define IDECORE_ACTIONS_IACTION_P_H

#include "contextindex_p.h"
#include "iaction.h"

#include <QMetaObject>
#include <QPointer>
#include <QString>

#include <cstddef>
#include <memory>
#include <vector>

namespace Core {

/// The record of a proxy.
///
/// Connections are made once and kept, because making and ending them is most of
/// what binding costs; the proxy finds its current action when one of them fires.
class IAction::Private final
{
    Q_DISABLE_COPY(Private)
public:
    using ContextIndex = private_impl::ContextIndex;

    struct Entry
    {
        QString context;
        QPointer<QAction> action;
        // Where the entry stands in the index; only when there is one.
        ContextIndex::Contexts::iterator indexed{};
        std::size_t place = 0;
    };

    Private(IAction *proxy, const QString &commandId);
    ~Private();

    /// Has the proxy bound anew by the next change of contexts, although it may
    /// have the right action.
    void markStale();
    /// Binds to the best context of the index if that is another action or the
    /// proxy is stale.
    void bindToRanks();
    /// Binds to the action of @p entry; null keeps the current one.
    void bind(const Entry *entry);
    /// False when the proxy was destroyed by what this set off.
    bool update();
    /// Makes the connections that are missing.
    void link();
    /// An action that is neither registered nor current is not listened to.
    void dropSpareLinks();

    [[nodiscard]] std::vector<Entry>::iterator find(const QString &context);
    void enter(Entry &entry);
    void erase(std::vector<Entry>::iterator entry);

    IAction *const q;
    const QString id;
    bool textUpdated = false;
    bool iconUpdated = false;
    bool hideWhenDeactivated = false;
    // Few, as a rule: looking through them is faster than a hash.
    std::vector<Entry> entries;
    QString currentContext;
    QPointer<QAction> currentAction;
    QString toolTip;

    bool connected = false;
    bool stale = false;
    // True while a change of the proxy that update() makes is yet to be reported.
    bool ownChange = false;

    ContextIndex *index = nullptr;
    // The context that decided last; null when none of the list had an action.
    const ContextIndex::Context *chosen = nullptr;
    static constexpr std::size_t Nowhere = static_cast<std::size_t>(-1);
    std::size_t queuePlace = Nowhere;
    std::size_t indexPlace = Nowhere;

private:
    class Tie;
    struct Link
    {
        // Dangles once the connection has ended.
        QAction *action = nullptr;
        QMetaObject::Connection changed;
    };

    template<class Setter>
    bool copied(const std::shared_ptr<Private *> &self, Setter setter);

    // Null once the record is gone.
    const std::shared_ptr<Private *> m_self;
    std::vector<Link> m_links;
    QMetaObject::Connection m_triggered;
    QMetaObject::Connection m_toggled;
};

} // namespace Core

#endif // IDECORE_ACTIONS_IACTION_P_H
