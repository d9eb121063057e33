// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef KEYBINDINGS_COMMANDLIST_P_H
#define KEYBINDINGS_COMMANDLIST_P_H

#include <keybindings/keyrules_p.h>

#include <vector>

namespace KeyBindings {

class UserKeys;

/// A registered command as the user knows it.
struct Command
{
    QString id;
    QString title;
    /// Where it is found: the titles of its menus, or of the tool bar that shows
    /// it.
    QString place;
    /// As its authors gave them.
    Keys defaults;
    /// What it has, and what it shall have.
    Keys present;
    Keys wanted;
};

/// All commands of the program, those of one place together: the menus in the
/// order in which the main window shows them, the tool bars with what stands in
/// no menu, the rest by id.
[[nodiscard]] std::vector<Command> listCommands(const UserKeys &userKeys);

} // namespace KeyBindings

#endif // KEYBINDINGS_COMMANDLIST_P_H
