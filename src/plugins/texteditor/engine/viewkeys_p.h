// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ENGINE_VIEWKEYS_P_H
#define TEXTEDITOR_ENGINE_VIEWKEYS_P_H

#include <QObject>

class QAction;
class QKeyEvent;

namespace KTextEditor {
class View;
}

namespace TextEditor {

/// The keys of a view's own actions, taken from the program's table of
/// shortcuts.
///
/// A shortcut there would be ambiguous with one of the registry, and every view
/// would add a hundred of them to a table that all of them search. Here a key
/// reaches the view's action only when nothing else in the program wanted it.
/// The keys that commands have, and what the standard ones replace, are not
/// served.
class ViewKeys final : public QObject
{
    Q_OBJECT
public:
    /// Serves @p view, which owns it.
    explicit ViewKeys(KTextEditor::View *view);

    bool eventFilter(QObject *watched, QEvent *event) override;
    /// Serves a key that an entry field of the view did not want; true when
    /// something was done.
    bool handleKeyFromField(const QKeyEvent *event);

private:
    [[nodiscard]] QAction *actionFor(const QKeyEvent *event) const;

    KTextEditor::View *const m_view;
};

} // namespace TextEditor

#endif // TEXTEDITOR_ENGINE_VIEWKEYS_P_H
