// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/documentaccess_p.h>

#include <KTextEditor/Document>
#include <KTextEditor/Editor>
#include <KTextEditor/Message>
#include <KTextEditor/ModificationInterface>
#include <KTextEditor/View>

#include <KSyntaxHighlighting/Definition>
#include <KSyntaxHighlighting/Repository>

#include <QDebug>
#include <QUrl>

namespace TextEditor {
namespace DocumentAccess {

namespace {

/// Opens the door to what a part offers its derived classes.
struct Part : KParts::ReadOnlyPart
{
    static void setFile(KParts::ReadOnlyPart *part, const QString &fileName)
    {
        (part->*(&Part::setUrl))(QUrl::fromLocalFile(fileName));
        (part->*(&Part::setLocalFilePath))(fileName);
    }
};

QObject *child(const QObject *parent, const char *className)
{
    const QObjectList &children = parent->children();
    for (QObject *object : children) {
        if (qstrcmp(object->metaObject()->className(), className) == 0)
            return object;
    }
    return nullptr;
}

template<class... Arguments>
void call(QObject *object, const char *method, Arguments... arguments)
{
    if (!object || !QMetaObject::invokeMethod(object, method, Qt::DirectConnection, arguments...))
        qWarning("This version of KTextEditor lacks %s; unsaved text may not be recoverable.",
                 method);
}

} // namespace

void markSaved(KTextEditor::Document *document)
{
    auto *disk = qobject_cast<KTextEditor::ModificationInterface *>(document);
    if (disk)
        disk->setModifiedOnDisk(KTextEditor::ModificationInterface::OnDiskUnmodified);
    // Reads the checksum of the file anew, under which unsaved text is kept.
    call(document, "slotDelayedHandleModOnHd");
    // Without a stop, what is typed next would be undone together with what has
    // just been saved, and be taken for saved when redone.
    call(child(document, "KateUndoManager"), "undoCancel");
    document->setModified(false);
}

void markSavedAs(KTextEditor::Document *document, const QString &fileName)
{
    Part::setFile(document, fileName);
    // The file with the unsaved text goes by the name of the document's file.
    call(child(document, "KateBuffer"), "saved", Q_ARG(QString, fileName));
    markSaved(document);
    const KSyntaxHighlighting::Definition definition =
        KTextEditor::Editor::instance()->repository().definitionForFileName(fileName);
    if (definition.isValid() && definition.name() != document->highlightingMode()) {
        document->setMode(definition.name());
        document->setHighlightingMode(definition.name());
    }
}

void dismissMessages(KTextEditor::View *view)
{
    const QList<QWidget *> widgets = view->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (!widget->inherits("KMessageWidget"))
            continue;
        const QList<QAction *> actions = widget->actions();
        for (const QAction *action : actions) {
            // A message owns its buttons, and takes itself down when it goes.
            if (auto *message = qobject_cast<KTextEditor::Message *>(action->parent())) {
                delete message;
                break;
            }
        }
    }
}

} // namespace DocumentAccess
} // namespace TextEditor
