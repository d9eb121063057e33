// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ABSTRACTTEXTEDITOR_H
#define TEXTEDITOR_ABSTRACTTEXTEDITOR_H

#include <idecore/interfaces/ieditor.h>
#include <texteditor/texteditor_export.h>

namespace TextEditor {

/// The commands that a text editor serves in the menus and tool bars.
enum class Command { Undo, Redo, Cut, Copy, Paste, SelectAll, Find, Print };

/// An editor of text, as the commands of this plugin see it.
class TEXTEDITOR_EXPORT AbstractTextEditor : public Core::IEditor
{
    Q_OBJECT
public:
    explicit AbstractTextEditor(QWidget *parent = nullptr);
    ~AbstractTextEditor() override;

    /// Whether @p command would do something now.
    [[nodiscard]] virtual bool canPerform(Command command) const = 0;
    /// Performs @p command where the focus is, in the text or in an entry field
    /// of the editor such as the one for the text to find.
    virtual void perform(Command command) = 0;

Q_SIGNALS:
    /// canPerform() may now say something else.
    void commandsChanged();
};

} // namespace TextEditor

#endif // TEXTEDITOR_ABSTRACTTEXTEDITOR_H
