// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ENGINE_ENGINESETTINGS_P_H
#define TEXTEDITOR_ENGINE_ENGINESETTINGS_P_H

#include <QString>

namespace TextEditor {
namespace EngineSettings {

/// Sets KTextEditor up for this program, whatever other programs of the user
/// have set for theirs; what the user has chosen in this one stays. Before the first
/// use of KTextEditor.
void apply();

/// Tells KTextEditor the grounds of the application's palette, from which it makes
/// those that say found and not found. Not stored by this.
void applyPalette();

/// The name of the highlighting theme for the colour scheme in the user's
/// settings under the theme of the application.
[[nodiscard]] QString currentTheme();

/// The folder that keeps unsaved text. Not one of the user's folders, which may
/// be under version control, shared or write protected.
[[nodiscard]] QString recoveryFolder();

} // namespace EngineSettings
} // namespace TextEditor

#endif // TEXTEDITOR_ENGINE_ENGINESETTINGS_P_H
