// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/documentaccess_p.h>

#include <KTextEditor/Document>
#include <KTextEditor/Editor>
#include <KTextEditor/ModificationInterface>
#include <KTextEditor/View>

#include <KSyntaxHighlighting/Definition>
#include <KSyntaxHighlighting/Repository>

#include <QAction>
#include <QDebug>
#include <QFileInfo>
#include <QSet>
#include <QUrl>
#include <QWidget>

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

using KSyntaxHighlighting::Definition;

/// Kinds of file that the engine does not know.
bool holdsConstraints(const QString &fileName)
{
    static const QSet<QString> suffixes{
        QStringLiteral("adc"), QStringLiteral("fdc"), QStringLiteral("ksc"), QStringLiteral("pcf"),
        QStringLiteral("pcn"), QStringLiteral("sdc"), QStringLiteral("xdc")};
    return suffixes.contains(QFileInfo(fileName).suffix().toLower());
}

/// The engine's own definition for @p fileName; for constraints that of Tcl: most
/// are read by tools as scripts in it, and the others have its comments and texts.
Definition definitionFor(const QString &fileName)
{
    const KSyntaxHighlighting::Repository &repository =
        KTextEditor::Editor::instance()->repository();
    const Definition own = repository.definitionForFileName(fileName);
    if (own.isValid() || !holdsConstraints(fileName))
        return own;
    return repository.definitionForFileName(QStringLiteral("a.tcl"));
}

void setHighlighting(KTextEditor::Document *document, const QString &fileName)
{
    const Definition definition = definitionFor(fileName);
    if (definition.isValid() && definition.name() != document->highlightingMode()) {
        document->setMode(definition.name());
        document->setHighlightingMode(definition.name());
    }
}

} // namespace

void highlightConstraints(KTextEditor::Document *document, const QString &fileName)
{
    // What it found in the contents counts more than the name.
    if (document->highlightingMode() == QLatin1String("None") && holdsConstraints(fileName))
        setHighlighting(document, fileName);
}

void markSaved(KTextEditor::Document *document)
{
    auto *disk = qobject_cast<KTextEditor::ModificationInterface *>(document);
    if (disk)
        disk->setModifiedOnDisk(KTextEditor::ModificationInterface::OnDiskUnmodified);
    // Without a stop, what is typed next would be undone together with what has
    // just been saved, and be taken for saved when redone.
    QObject *const undo = child(document, "KateUndoManager");
    if (!undo || !QMetaObject::invokeMethod(undo, "undoCancel", Qt::DirectConnection))
        qWarning("This version of KTextEditor lets undo go past what was saved.");
    document->setModified(false);
}

void markSavedAs(KTextEditor::Document *document, const QString &fileName)
{
    Part::setFile(document, fileName);
    markSaved(document);
    setHighlighting(document, fileName);
}

void dismissMessages(KTextEditor::View *view)
{
    const QList<QWidget *> widgets = view->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (!widget->inherits("KMessageWidget"))
            continue;
        // The message is not to be had from its widget, but its last button is
        // the one that only closes it.
        const QList<QAction *> actions = widget->actions();
        if (!actions.isEmpty())
            actions.last()->trigger();
        else
            QMetaObject::invokeMethod(widget, "animatedHide");
    }
}

} // namespace DocumentAccess
} // namespace TextEditor
