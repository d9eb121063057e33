// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/editoractions_p.h>

#include <idecore/actions/actionmanager.h>
#include <idecore/core/constants.h>
#include <texteditor/texteditorconstants.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>

namespace TextEditor {

EditorActions::EditorActions(QObject *parent)
    : QObject(parent)
{
    namespace C = Core::Constants;
    add(Command::Undo, C::A_EDIT_UNDO, tr("Undo"));
    add(Command::Redo, C::A_EDIT_REDO, tr("Redo"));
    add(Command::Cut, C::A_EDIT_CUT, tr("Cut"));
    add(Command::Copy, C::A_EDIT_COPY, tr("Copy"));
    add(Command::Paste, C::A_EDIT_PASTE, tr("Paste"));
    add(Command::SelectAll, C::A_EDIT_SELECTALL, tr("Select All"));
    add(Command::Find, C::A_EDIT_FIND, tr("Find && Replace"));
    add(Command::Print, C::A_FILE_PRINT, tr("Print..."));
    connect(qApp, &QApplication::focusChanged, this, &EditorActions::onFocusChanged);
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this,
            &EditorActions::updateActions);
}

EditorActions::~EditorActions()
{
    for (const Entry &entry : m_entries) {
        // The registry may be gone before the plugin, and the action with it.
        if (!entry.action)
            continue;
        Core::ActionManager::unregisterAction(QLatin1String(entry.id),
                                              QLatin1String(Constants::C_TEXTEDITOR));
        delete entry.action;
    }
}

AbstractTextEditor *EditorActions::currentEditor() const
{
    return m_editor;
}

void EditorActions::onFocusChanged(QWidget *old, QWidget *now)
{
    Q_UNUSED(old)
    for (QWidget *widget = now; widget; widget = widget->parentWidget()) {
        if (auto *editor = qobject_cast<AbstractTextEditor *>(widget)) {
            setCurrentEditor(editor);
            return;
        }
    }
}

void EditorActions::setCurrentEditor(AbstractTextEditor *editor)
{
    if (editor != m_editor) {
        if (m_editor)
            m_editor->disconnect(this);
        m_editor = editor;
        connect(editor, &AbstractTextEditor::commandsChanged, this, &EditorActions::updateActions);
        // Cleared by hand: a widget tells its end before a guarded pointer knows,
        // when there is no editor left to ask.
        connect(editor, &QObject::destroyed, this, [this] {
            m_editor = nullptr;
            updateActions();
        });
    }
    updateActions();
}

void EditorActions::updateActions()
{
    for (const Entry &entry : m_entries) {
        if (entry.action)
            entry.action->setEnabled(m_editor && m_editor->canPerform(entry.command));
    }
}

void EditorActions::add(Command command, const char *id, const QString &text)
{
    auto *action = new QAction(text, this);
    action->setEnabled(false);
    connect(action, &QAction::triggered, this, [this, command] {
        if (m_editor)
            m_editor->perform(command);
    });
    m_entries.push_back({command, id, action});
    Core::ActionManager::registerAction(action, QLatin1String(id),
                                        QLatin1String(Constants::C_TEXTEDITOR));
}

} // namespace TextEditor
