// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef KEYBINDINGS_KEYBINDINGSCONSTANTS_H
#define KEYBINDINGS_KEYBINDINGSCONSTANTS_H

namespace KeyBindings {
namespace Constants {

/// The page of the Options dialog, and its category, which is the core's own.
inline constexpr char PAGE[] = "K.KeyBindings";
inline constexpr char CATEGORY[] = "A.Core";

/// The group of the store "IDE" with the user's keys by command id.
///
/// A value is a key in portable text ("Ctrl+S"), with several strokes
/// "Ctrl+K, Ctrl+S"; a list of them when there are several; empty when the
/// command has none. In the id, "%", "/" and "\" stand as "%25", "%2F", "%5C".
inline constexpr char SET_GROUP[] = "KeyBindings";

} // namespace Constants
} // namespace KeyBindings

#endif // KEYBINDINGS_KEYBINDINGSCONSTANTS_H
