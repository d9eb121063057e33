// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/abstracttexteditor.h>

namespace TextEditor {

AbstractTextEditor::AbstractTextEditor(QWidget *parent)
    : IEditor(parent)
{
}

AbstractTextEditor::~AbstractTextEditor() = default;

} // namespace TextEditor
