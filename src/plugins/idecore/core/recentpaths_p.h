// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_CORE_RECENTPATHS_P_H
#define IDECORE_CORE_RECENTPATHS_P_H

#include <QAction>
#include <QMenu>
#include <QStringList>

namespace Core {
namespace private_impl {

/// Puts @p path, in native separators, in front of @p paths, where it then stands
/// once; those beyond @p limit are dropped from the end.
void addRecentPath(QStringList *paths, const QString &path, int limit);

/// Makes the entries of @p menu anew: one for each of @p paths, which calls
/// @p open, and behind them "Clear", which calls @p clear. None without paths.
/// @p open finds the path in the text of its sender.
template<class Manager>
void fillRecentMenu(QMenu *menu, const QStringList &paths, const QString &clearText,
                    const Manager *manager, void (Manager::*open)(), void (Manager::*clear)())
{
    const QList<QAction *> old = menu->actions();
    qDeleteAll(old);
    menu->clear();
    for (const QString &path : paths) {
        auto *action = new QAction(path, menu);
        menu->addAction(action);
        QObject::connect(action, &QAction::triggered, manager, open);
    }
    if (!paths.isEmpty()) {
        menu->addSeparator();
        QObject::connect(menu->addAction(clearText), &QAction::triggered, manager, clear);
    }
}

} // namespace private_impl
} // namespace Core

#endif // IDECORE_CORE_RECENTPATHS_P_H
