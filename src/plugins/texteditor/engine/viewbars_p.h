// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ENGINE_VIEWBARS_P_H
#define TEXTEDITOR_ENGINE_VIEWBARS_P_H

#include <QCoreApplication>

class QWidget;

namespace TextEditor {

/// What KTextEditor opens below a text: where one searches, replaces, goes to a line.
class ViewBars final
{
    Q_DECLARE_TR_FUNCTIONS(TextEditor::ViewBars)
public:
    /// Names the controls of the bar that @p focus lies in, if it lies in one, and
    /// leaves the letters of the menus to the menus. To be called again whenever the
    /// focus comes into it: a bar changes what is in it.
    static void prepare(QWidget *focus);
    /// Takes the ground that says found or not found from the field of @p editor in
    /// which one searches: it was made for the theme before. The next search makes it
    /// anew.
    static void resetColours(const QWidget *editor);
};

} // namespace TextEditor

#endif // TEXTEDITOR_ENGINE_VIEWBARS_P_H
