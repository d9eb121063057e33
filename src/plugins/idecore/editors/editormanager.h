// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_EDITORS_EDITORMANAGER_H
#define IDECORE_EDITORS_EDITORMANAGER_H

#include <idecore/idecore_export.h>

#include <QList>
#include <QObject>
#include <QStringList>

namespace Core {

class IEditor;
class IEditorFactory;
class IView;

/// Opens files in editors chosen by their MIME type, saves and closes them, and
/// keeps the list of recent files.
///
/// GUI thread only; valid between the construction by IdeCore and its shut-down.
/// Editors belong to their sub-windows and go when they are closed, factories to
/// the plugins that have put them into the pool.
class IDECORE_EXPORT EditorManager final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(EditorManager)
public:
    EditorManager();
    ~EditorManager() override;

    [[nodiscard]] static EditorManager *instance();

    /// Opens @p file in the editor for its type, or brings forward the editor
    /// that shows it already, in which case @p readOnly is ignored. Null when it
    /// could not be opened and the user has been told why, or when somebody told of
    /// the new current editor closed it at once.
    static IEditor *openEditor(const QString &file, bool readOnly = false);
    /// The open editor showing @p file; null when there is none. Links are not
    /// resolved.
    [[nodiscard]] static IEditor *editorForFile(const QString &file);
    /// All factories able to edit @p file, each once and the best first: those for
    /// its type, in the order of the pool, then those for the types that it is
    /// derived from. A file of unknown type is plain text.
    [[nodiscard]] static QList<IEditorFactory *> factoriesForFile(const QString &file);
    /// The best factory for @p file; null when there is none.
    [[nodiscard]] static IEditorFactory *factoryForFile(const QString &file);
    /// Null while the current view is no editor.
    [[nodiscard]] static IEditor *currentEditor();
    /// In the order in which they were opened.
    [[nodiscard]] static QList<IEditor *> allEditors();
    /// Asks @p editor to close. False when it refused, is null or not shown.
    static bool closeEditor(IEditor *editor);
    /// The same for the editor that shows @p file; false when there is none.
    static bool closeEditor(const QString &file);
    /// Asks all editors to close and stops with false at the first that refuses.
    static bool closeAllEditors();
    /// The paths of the files last opened, in native separators, newest first,
    /// at most 15.
    [[nodiscard]] static QStringList recentFiles();

    /// Takes over the Save commands, puts the recent files into the File menu and
    /// reads their list. Called once, by IdeCore, when the standard menus exist.
    void initialize();

public Q_SLOTS:
    void onCurrentViewChanged(Core::IView *widget);
    void onEditorModified(bool modified);
    void onEditorSaved();
    void onEditorClosed(Core::IView *view);
    void onActSave();
    void onActSaveAs();
    void onActSaveAll();
    void showRecentMenu();
    void onActRecent();
    void onActClearRecent();

Q_SIGNALS:
    /// @p editor, which may be null, is the current editor now; the commands
    /// follow it already.
    void currentEditorChanged(Core::IEditor *editor);
    /// @p file has been written by its editor.
    void fileSaved(const QString &file);
};

} // namespace Core

#endif // IDECORE_EDITORS_EDITORMANAGER_H
