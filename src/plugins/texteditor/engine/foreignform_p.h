// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ENGINE_FOREIGNFORM_P_H
#define TEXTEDITOR_ENGINE_FOREIGNFORM_P_H

#include <QSet>
#include <QString>

class QWidget;

namespace TextEditor {

/// Names what a form somebody else made leaves nameless: a control that has neither
/// a name nor a text nor a label of its own is called by the label beside or before
/// it, by the check box before it that switches it, or else by its group; a button with
/// a picture alone by its tool tip.
void nameControls(QWidget *form);

/// Lets Tab go through such a form as it is laid out, row by row.
void orderControls(QWidget *form);

/// Takes the letter from what shares it with something before it, or with what is
/// @p taken already ("Alt+F"): neither would be reached by it at once.
void freeLetters(QWidget *form, QSet<QString> taken = {});

} // namespace TextEditor

#endif // TEXTEDITOR_ENGINE_FOREIGNFORM_P_H
