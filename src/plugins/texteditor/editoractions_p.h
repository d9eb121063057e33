// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_EDITORACTIONS_P_H
#define TEXTEDITOR_EDITORACTIONS_P_H

#include <texteditor/abstracttexteditor.h>

#include <QObject>
#include <QPointer>

#include <vector>

class QAction;

namespace TextEditor {

/// The one set of editing commands of all text editors, registered under the
/// core's ids for the context of this plugin. It serves the editor that has the
/// focus, or had it last.
class EditorActions final : public QObject
{
    Q_OBJECT
public:
    explicit EditorActions(QObject *parent = nullptr);
    ~EditorActions() override;

    /// Null before an editor had the focus and after it was destroyed.
    [[nodiscard]] AbstractTextEditor *currentEditor() const;

private:
    struct Entry
    {
        Command command = {};
        const char *id = nullptr;
        // Owned by the action registry from registration on.
        QPointer<QAction> action;
    };

    void onFocusChanged(QWidget *old, QWidget *now);
    void setCurrentEditor(AbstractTextEditor *editor);
    void updateActions();
    void add(Command command, const char *id, const QString &text);

    std::vector<Entry> m_entries;
    QPointer<AbstractTextEditor> m_editor;
};

} // namespace TextEditor

#endif // TEXTEDITOR_EDITORACTIONS_P_H
