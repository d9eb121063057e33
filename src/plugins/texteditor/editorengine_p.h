// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_EDITORENGINE_P_H
#define TEXTEDITOR_EDITORENGINE_P_H

#include <QtPlugin>

namespace TextEditor {

class AbstractTextEditor;

/// What makes the editors: the root object of the library that is loaded with
/// the first of them and stays.
class EditorEngine
{
public:
    virtual ~EditorEngine() = default;

    /// A new editor that has not opened a file yet; the caller owns it.
    [[nodiscard]] virtual AbstractTextEditor *createEditor() = 0;
    /// The settings of the core are about to go: they are followed no more until
    /// the next createEditor().
    virtual void stop() = 0;
};

} // namespace TextEditor

Q_DECLARE_INTERFACE(TextEditor::EditorEngine, "com.kelmoware.texteditor.EditorEngine/1.0")

#endif // TEXTEDITOR_EDITORENGINE_P_H
