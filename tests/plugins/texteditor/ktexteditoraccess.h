// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_TEXTEDITOR_KTEXTEDITORACCESS_H
#define TESTS_PLUGINS_TEXTEDITOR_KTEXTEDITORACCESS_H

#include <texteditor/abstracttexteditor.h>

#include <KTextEditor/Document>
#include <KTextEditor/Editor>

#include <QUrl>

/// The document in @p editor, which does not hand it out; null when there is none.
inline KTextEditor::Document *documentIn(const TextEditor::AbstractTextEditor *editor)
{
    const QList<KTextEditor::Document *> documents = KTextEditor::Editor::instance()->documents();
    for (KTextEditor::Document *document : documents) {
        if (document->url() == QUrl::fromLocalFile(editor->fileName()))
            return document;
    }
    return nullptr;
}

#endif // TESTS_PLUGINS_TEXTEDITOR_KTEXTEDITORACCESS_H
