// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dormantshortcuts_p.h"

#include <QMenu>
#include <QSet>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace Utils {

namespace {
// Unlike QWidget::isAncestorOf() also across the menus of the document, which
// are windows.
bool isInside(const QObject *object, const QWidget *document)
{
    while (object && object != document)
        object = object->parent();
    return object == document;
}

// A menu of nobody's is where an editor keeps a submenu until it is plugged in.
bool isPlaceOf(const QWidget *place, const QWidget *document)
{
    return isInside(place, document)
           || (qobject_cast<const QMenu *>(place) && !place->parentWidget());
}

void collect(const QObject *object, QSet<QAction *> &actions)
{
    const QObjectList &children = object->children();
    for (QObject *child : children) {
        if (auto *action = qobject_cast<QAction *>(child)) {
            actions.insert(action);
        } else if (const auto *widget = qobject_cast<const QWidget *>(child)) {
            const QList<QAction *> own = widget->actions();
            for (QAction *shown : own)
                actions.insert(shown);
        }
        collect(child, actions);
    }
}
} // namespace

void DormantShortcuts::putAside(const QWidget *document)
{
    QSet<QAction *> actions;
    collect(document, actions);
    for (QAction *action : qAsConst(actions)) {
        QList<QKeySequence> keys = action->shortcuts();
        if (keys.isEmpty())
            continue;
        const QList<QWidget *> places = action->associatedWidgets();
        if (std::all_of(places.cbegin(), places.cend(),
                        [document](const QWidget *place) { return isPlaceOf(place, document); })) {
            action->setShortcuts(QList<QKeySequence>());
            m_entries.append({action, std::move(keys)});
        }
    }
}

void DormantShortcuts::putBack()
{
    const QVector<Entry> entries = std::exchange(m_entries, {});
    for (const Entry &entry : entries) {
        if (entry.action && entry.action->shortcuts().isEmpty())
            entry.action->setShortcuts(entry.keys);
    }
}

} // namespace Utils
