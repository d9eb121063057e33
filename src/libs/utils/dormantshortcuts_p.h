// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef UTILS_DORMANTSHORTCUTS_P_H
#define UTILS_DORMANTSHORTCUTS_P_H

#include <QAction>
#include <QKeySequence>
#include <QPointer>
#include <QVector>

class QWidget;

namespace Utils {

/// The keys of a document that is hidden.
///
/// Qt searches the keys of all actions from first to last whenever one action is
/// enabled, disabled or given a key. An editor has a hundred keys and enables
/// its actions on every change of focus, so with many editors open that search
/// is what everything waits for. A hidden document cannot be typed into: its
/// keys are put aside until it is shown.
class DormantShortcuts final
{
public:
    /// Takes the keys from the actions in @p document. An action that also
    /// belongs to a widget outside keeps its keys.
    void putAside(const QWidget *document);
    /// An action that was given keys meanwhile keeps those.
    void putBack();

private:
    struct Entry
    {
        QPointer<QAction> action;
        QList<QKeySequence> keys;
    };
    QVector<Entry> m_entries;
};

} // namespace Utils

#endif // UTILS_DORMANTSHORTCUTS_P_H
