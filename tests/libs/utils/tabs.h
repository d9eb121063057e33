// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_LIBS_UTILS_TABS_H
#define TESTS_LIBS_UTILS_TABS_H

#include <QPoint>

#include <functional>

class QAction;
class QMenu;
class QTabBar;

class AreaFixture;

[[nodiscard]] QTabBar *tabsOf(const AreaFixture &f);
/// The close button lies at the far end of its tab, in the direction of reading.
[[nodiscard]] QPoint closeButton(const QTabBar *tabs, int index);

using MenuHandler = std::function<void(QMenu *)>;
/// Opens the context menu of a tab by the mouse and hands it to @p use.
void withMenu(QTabBar *tabs, int index, const MenuHandler &use);
/// The same by the menu key, for the current tab.
void withMenuByKey(QTabBar *tabs, const MenuHandler &use);
/// The entry of that text, which is given without mnemonics; or null.
[[nodiscard]] QAction *entry(const QMenu *menu, const char *text);
void choose(QTabBar *tabs, int index, const char *text);

/// Turns the wheel by @p delta, one notch being 120; towards the user is negative.
void turnWheel(QTabBar *tabs, const QPoint &delta);

#endif // TESTS_LIBS_UTILS_TABS_H
