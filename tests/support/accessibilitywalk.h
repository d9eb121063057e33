// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_SUPPORT_ACCESSIBILITYWALK_H
#define TESTS_SUPPORT_ACCESSIBILITYWALK_H

#include <QStringList>

class QWidget;

/// What somebody misses in a shown window who hears it or works by keys alone. Each
/// function gives a line for each fault and looks at what is visible in @p root,
/// which is a window or any widget in one.
///
///     const QStringList faults = AccessibilityWalk::faults(&dialog);
///     QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
namespace AccessibilityWalk {

/// Controls, tabs of a tab bar and entries of a menu bar for which the accessibility
/// interface has no name.
[[nodiscard]] QStringList namelessControls(QWidget *root);

/// Steps of the Tab key against the eye: up without going on to what lies to the
/// right, back within a row, or from a dialog's buttons to what lies above them. The
/// one from the last control to the first is none.
[[nodiscard]] QStringList tabJumps(QWidget *root);
/// The same of where the key really goes when it is pressed, for windows that lead it
/// themselves: once around from the control that has the focus, which is where the eye
/// begins. A control that never lets go of it is a fault, too.
[[nodiscard]] QStringList pressedTabJumps(QWidget *window);

/// Controls that neither Tab nor a key of their own reaches; buttons that show a
/// command of a menu are reached there.
[[nodiscard]] QStringList mouseOnlyControls(QWidget *root);

/// Actions shown by a tool bar or a button that Tab passes, which are in no menu of the
/// menu bar and without a key; menus of the menu bar without a letter.
[[nodiscard]] QStringList mouseOnlyActions(QWidget *root);

/// Letters that two controls, or two entries of one menu, have for their own: neither
/// is then reached at once.
[[nodiscard]] QStringList sharedMnemonics(QWidget *root);

/// All of these, with tabJumps().
[[nodiscard]] QStringList faults(QWidget *root);
/// All of these, with pressedTabJumps().
[[nodiscard]] QStringList pressedFaults(QWidget *window);

} // namespace AccessibilityWalk

#endif // TESTS_SUPPORT_ACCESSIBILITYWALK_H
