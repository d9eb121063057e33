// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_TEXTEDITORCONSTANTS_H
#define TEXTEDITOR_TEXTEDITORCONSTANTS_H

namespace TextEditor {
namespace Constants {

/// The context of every text editor, in which it serves the editing commands.
inline constexpr char C_TEXTEDITOR[] = "TextEditor.Context";

/// The key of the store "IDE" that names the colour scheme.
inline constexpr char SET_COLOR_SCHEME[] = "TextEditor/ColorScheme";
inline constexpr char SCHEME_DESERT[] = "Desert";

} // namespace Constants
} // namespace TextEditor

#endif // TEXTEDITOR_TEXTEDITORCONSTANTS_H
