// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ENGINE_SETTINGSPAGES_P_H
#define TEXTEDITOR_ENGINE_SETTINGSPAGES_P_H

#include <texteditor/editorengine_p.h>

namespace TextEditor {
/// KTextEditor's own pages, without what has no effect in this program.
namespace SettingsPages {

/// A page in a scroll area, for it may be larger than the dialog; null when
/// KTextEditor has no such page.
[[nodiscard]] QWidget *create(SettingsPage page);
void apply(QWidget *widget);

} // namespace SettingsPages
} // namespace TextEditor

#endif // TEXTEDITOR_ENGINE_SETTINGSPAGES_P_H
