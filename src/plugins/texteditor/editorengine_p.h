// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_EDITORENGINE_P_H
#define TEXTEDITOR_EDITORENGINE_P_H

#include <QtPlugin>

class QWidget;

namespace TextEditor {

class AbstractTextEditor;

/// The pages on which a user sets the editor up.
enum class SettingsPage { Appearance, Editing };

/// What makes the editors: the root object of the library that is loaded with
/// the first of them and stays.
class EditorEngine
{
public:
    virtual ~EditorEngine() = default;

    /// A new editor that has not opened a file yet; the caller owns it.
    [[nodiscard]] virtual AbstractTextEditor *createEditor() = 0;
    /// A new widget that shows the settings as they are; the caller owns it.
    [[nodiscard]] virtual QWidget *createSettingsPage(SettingsPage page) = 0;
    /// Stores what was changed in @p widget, which createSettingsPage() made, and
    /// shows it in every editor.
    virtual void applySettingsPage(QWidget *widget) = 0;
    /// The settings of the core are about to go: they are followed no more until
    /// the next createEditor().
    virtual void stop() = 0;
};

} // namespace TextEditor

Q_DECLARE_INTERFACE(TextEditor::EditorEngine, "com.kelmoware.texteditor.EditorEngine/1.1")

#endif // TEXTEDITOR_EDITORENGINE_P_H
