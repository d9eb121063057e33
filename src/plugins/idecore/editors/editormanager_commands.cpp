// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The commands: saving, closing all, and recent files.

#include <idecore/editors/editormanager.h>

#include <idecore/actions/actionmanager.h>
#include <idecore/core/constants.h>
#include <idecore/core/idecore.h>
#include <idecore/core/recentpaths_p.h>
#include <idecore/editors/editormanager_p.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QMenu>
#include <QSettings>

#include <algorithm>

namespace Core {

using private_impl::EditorManagerPrivate;

namespace {

constexpr int MAX_RECENT_FILES = 15;

EditorManagerPrivate *d()
{
    return EditorManagerPrivate::get();
}

/// The wait cursor, as long as it lives.
class WaitCursor final
{
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY(WaitCursor)
};

} // namespace

void EditorManager::initialize()
{
    using namespace Constants;

    const auto createAction = [this](const char *id, void (EditorManager::*slot)()) {
        auto *action = new QAction(this);
        ActionManager::registerAction(action, QString::fromLatin1(id),
                                      private_impl::EDITOR_CONTEXT);
        action->setEnabled(false);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    d()->actSave = createAction(A_FILE_SAVE, &EditorManager::onActSave);
    d()->actSaveAs = createAction(A_FILE_SAVEAS, &EditorManager::onActSaveAs);
    d()->actSaveAll = createAction(A_FILE_SAVEALL, &EditorManager::onActSaveAll);

    d()->recentMenu = new QMenu(tr("Recent Files"), ViewManager::mainWindow());
    ActionManager::menu(QString::fromLatin1(M_FILE))
        ->insertMenu(ActionManager::separator(QString::fromLatin1(SEP_FILE_EXIT_F)),
                     d()->recentMenu);
    connect(d()->recentMenu, &QMenu::aboutToShow, this, &EditorManager::showRecentMenu);

    d()->recentFiles =
        IdeCore::userSettings()->value(private_impl::KEY_RECENT_FILES).toStringList();

    connect(ViewManager::instance(), &ViewManager::viewActiveted, this,
            &EditorManager::onCurrentViewChanged);
    connect(ViewManager::instance(), &ViewManager::viewClosed, this,
            &EditorManager::onEditorClosed);
}

void EditorManagerPrivate::updateActions()
{
    if (const IEditor *editor = current()) {
        const QString title = editor->shortTitle();
        actSave->setText(EditorManager::tr("&Save \"%1\"").arg(title));
        actSave->setToolTip(EditorManager::tr("Save \"%1\"").arg(title));
        actSave->setEnabled(editor->isModified());
        actSaveAs->setText(EditorManager::tr("Save \"%1\" &As...").arg(title));
        actSaveAs->setToolTip(EditorManager::tr("Save \"%1\" As").arg(title));
        actSaveAs->setEnabled(true);
    } else {
        actSave->setEnabled(false);
        actSaveAs->setEnabled(false);
    }
    actSaveAll->setEnabled(hasEditorModified());
}

bool EditorManagerPrivate::hasEditorModified() const
{
    return std::any_of(editors.cbegin(), editors.cend(),
                       [](const IEditor *editor) { return editor->isModified(); });
}

void EditorManager::onActSave()
{
    const QPointer<IEditor> editor = d()->current();
    if (!editor || !editor->isModified())
        return;
    QString errorString;
    bool ok = false;
    {
        const WaitCursor cursor;
        ok = editor->save(&errorString);
    }
    if (!ok && editor)
        private_impl::saveError(editor->fileName(), errorString);
}

void EditorManager::onActSaveAs()
{
    const QPointer<IEditor> editor = d()->current();
    if (!editor)
        return;
    const QString fileName =
        QFileDialog::getSaveFileName(ViewManager::mainWindow(), tr("Save As"), editor->fileName(),
                                     IdeCore::mimeDatabase()->filterForFileDialog(true));
    // The editor may have been closed from outside while the dialog was open.
    if (fileName.isEmpty() || !editor)
        return;
    QString errorString;
    bool ok = false;
    {
        const WaitCursor cursor;
        ok = editor->saveAs(fileName, &errorString);
    }
    if (!ok) {
        private_impl::saveError(fileName, errorString);
        return;
    }
    d()->addRecentFile(fileName);
    // An editor that was unmodified before has told of no change, but goes by
    // another name now.
    d()->updateActions();
}

void EditorManager::onActSaveAll()
{
    {
        const WaitCursor cursor;
        const QList<IEditor *> editors = d()->editors;
        for (IEditor *editor : editors) {
            // One that fails stays modified, and its Save tells why. One that
            // went while another was saved is none of ours any more.
            if (d()->editors.contains(editor) && editor->isModified())
                editor->save(nullptr);
        }
    }
    d()->updateActions();
}

bool EditorManager::closeAllEditors()
{
    const QList<IEditor *> editors = d()->editors;
    for (IEditor *editor : editors) {
        // One that went with another is closed already.
        if (d()->editors.contains(editor) && !closeEditor(editor))
            return false;
    }
    return true;
}

void EditorManager::onEditorClosed(Core::IView *view)
{
    auto *editor = qobject_cast<IEditor *>(view);
    if (!editor)
        return;
    d()->editors.removeAll(editor);
    disconnect(editor, &IEditor::saved, this, &EditorManager::onEditorSaved);
    d()->updateActions();
}

QStringList EditorManager::recentFiles()
{
    return d()->recentFiles;
}

void EditorManagerPrivate::addFile(const QString &file)
{
    addRecentFile(file);
}

void EditorManagerPrivate::addRecentFile(const QString &file)
{
    addRecentPath(&recentFiles, file, MAX_RECENT_FILES);
    storeRecentFiles();
}

void EditorManagerPrivate::storeRecentFiles() const
{
    IdeCore::userSettings()->setValue(KEY_RECENT_FILES, recentFiles);
}

void EditorManager::showRecentMenu()
{
    private_impl::fillRecentMenu(d()->recentMenu, d()->recentFiles, tr("Clear"), this,
                                 &EditorManager::onActRecent, &EditorManager::onActClearRecent);
}

void EditorManager::onActRecent()
{
    if (const auto *action = qobject_cast<QAction *>(sender()))
        openEditor(action->text(), false);
}

void EditorManager::onActClearRecent()
{
    d()->recentFiles.clear();
    d()->storeRecentFiles();
}

} // namespace Core
