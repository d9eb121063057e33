// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_EDITORS_EDITORMANAGER_P_H
#define IDECORE_EDITORS_EDITORMANAGER_P_H

#include <idecore/idecore_export.h>
#include <idecore/interfaces/ieditor.h>
#include <idecore/mimedatabase/mimetype.h>

#include <QList>
#include <QPointer>
#include <QStringList>

class QAction;
class QMenu;

namespace Core {

class IEditorFactory;

namespace private_impl {

inline const QString EDITOR_CONTEXT = QStringLiteral("Core.EditorManager.Context");
inline const QString KEY_RECENT_FILES = QStringLiteral("Core/RecentFiles");

/// The state of the EditorManager.
class IDECORE_EXPORT EditorManagerPrivate final
{
public:
    /// The one that exists; null while there is no EditorManager.
    [[nodiscard]] static EditorManagerPrivate *get();

    /// A new editor of the best factory for @p file; null without a factory.
    [[nodiscard]] static IEditor *createEditor(const QString &file);
    void placeEditor(IEditor *editor);
    void addFile(const QString &file);
    void addRecentFile(const QString &file);
    void storeRecentFiles() const;
    void updateActions();
    [[nodiscard]] bool hasEditorModified() const;
    /// Null also while the current editor is being destroyed: it is no IEditor any
    /// more when its guard still holds it.
    [[nodiscard]] IEditor *current() const { return qobject_cast<IEditor *>(currentEditor.data()); }
    /// @p editor is no more than a widget by now.
    void onEditorDestroyed(const QObject *editor);

    /// In the order in which they were placed; owned by their sub-windows.
    QList<IEditor *> editors;
    QPointer<QWidget> currentEditor;
    QStringList recentFiles;
    QAction *actSave = nullptr;
    QAction *actSaveAs = nullptr;
    QAction *actSaveAll = nullptr;
    QMenu *recentMenu = nullptr;
};

/// The type of @p file, that of plain text where it is unknown.
[[nodiscard]] IDECORE_EXPORT MimeType determineMimeType(const QString &file);
/// Those of @p factories that edit @p mimeType, then those that edit the types
/// it is derived from, depth first; with repeats.
[[nodiscard]] IDECORE_EXPORT QList<IEditorFactory *> getFactoriesRecursively(
    const MimeType &mimeType, const QList<IEditorFactory *> &factories);
/// Tells the user that @p file could not be opened, and why.
IDECORE_EXPORT void openError(const QString &file, const QString &errorString);
/// Tells the user that @p file could not be written, and why.
IDECORE_EXPORT void saveError(const QString &file, const QString &errorString);

} // namespace private_impl
} // namespace Core

#endif // IDECORE_EDITORS_EDITORMANAGER_P_H
