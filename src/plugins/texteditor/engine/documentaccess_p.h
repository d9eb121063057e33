// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ENGINE_DOCUMENTACCESS_P_H
#define TEXTEDITOR_ENGINE_DOCUMENTACCESS_P_H

#include <QString>

namespace KTextEditor {
class Document;
class View;
} // namespace KTextEditor

namespace TextEditor {

/// Tells a KTextEditor document what it would know had it written its file
/// itself, and what it cannot know. Its own saving is not used, because it
/// overwrites the file in place: a full disk or a crash would leave half of it.
namespace DocumentAccess {

/// Has @p document, just loaded from @p fileName, highlighted as Tcl where it holds
/// constraints and KTextEditor has found nothing that fits better.
void highlightConstraints(KTextEditor::Document *document, const QString &fileName);

/// The file of @p document has been written with the document's text: it is
/// unmodified, and undo stops here.
void markSaved(KTextEditor::Document *document);

/// As markSaved(), the file being @p fileName from now on.
void markSavedAs(KTextEditor::Document *document, const QString &fileName);

/// Takes back what KTextEditor says about loading in the message bar of
/// @p view.
void dismissMessages(KTextEditor::View *view);

} // namespace DocumentAccess

} // namespace TextEditor

#endif // TEXTEDITOR_ENGINE_DOCUMENTACCESS_P_H
