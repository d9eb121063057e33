// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The commands of the menus and tool bars as an EngineEditor performs them.

#include <texteditor/engine/engineeditor_p.h>

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <KTextEditor/Document>
#include <KTextEditor/View>

#include <KActionCollection>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPointer>

namespace TextEditor {

namespace {

/// One for all editors: a menu of each would have to follow every change of the
/// commands.
QMenu *contextMenu()
{
    namespace C = Core::Constants;
    static QPointer<QMenu> menu;
    if (menu)
        return menu;
    menu = new QMenu(Core::ViewManager::mainWindow());
    menu->setObjectName(QStringLiteral("texteditorContextMenu"));
    for (const char *id : {C::A_EDIT_UNDO, C::A_EDIT_REDO, "", C::A_EDIT_CUT, C::A_EDIT_COPY,
                           C::A_EDIT_PASTE, "", C::A_EDIT_SELECTALL, "", C::A_EDIT_FIND}) {
        if (*id == '\0')
            menu->addSeparator();
        else if (Core::IAction *command = Core::ActionManager::action(QLatin1String(id)))
            menu->addAction(command);
    }
    return menu;
}

} // namespace

void EngineEditor::connectCommands()
{
    for (const Command command : {Command::Undo, Command::Redo, Command::Cut, Command::Copy}) {
        if (QAction *const action = viewAction(command))
            connect(action, &QAction::changed, this, &AbstractTextEditor::commandsChanged);
    }
    connect(m_view, &KTextEditor::View::selectionChanged, this,
            &AbstractTextEditor::commandsChanged);
    m_view->setContextMenu(contextMenu());
}

QLineEdit *EngineEditor::focusedField() const
{
    QWidget *const widget = QApplication::focusWidget();
    auto *field = qobject_cast<QLineEdit *>(widget);
    // A field with a list of earlier entries has the focus in its stead.
    if (const auto *list = qobject_cast<QComboBox *>(widget))
        field = list->lineEdit();
    return field && isAncestorOf(field) ? field : nullptr;
}

QAction *EngineEditor::viewAction(Command command) const
{
    const char *name = nullptr;
    switch (command) {
    case Command::Undo:
        name = "edit_undo";
        break;
    case Command::Redo:
        name = "edit_redo";
        break;
    case Command::Cut:
        name = "edit_cut";
        break;
    case Command::Copy:
        name = "edit_copy";
        break;
    case Command::Paste:
        name = "edit_paste";
        break;
    case Command::SelectAll:
        name = "edit_select_all";
        break;
    case Command::Find:
        name = m_document->isReadWrite() ? "edit_replace" : "edit_find";
        break;
    case Command::Print:
        name = "file_print";
        break;
    }
    return m_view->actionCollection()->action(QLatin1String(name));
}

bool EngineEditor::canPerform(Command command) const
{
    // What a field can do changes with every key; each answers for itself.
    if (focusedField() && command <= Command::SelectAll)
        return true;
    const bool writable = m_document->isReadWrite();
    switch (command) {
    case Command::Undo:
    case Command::Redo: {
        const QAction *const action = viewAction(command);
        return writable && action && action->isEnabled();
    }
    case Command::Cut:
        return writable && m_view->selection();
    case Command::Copy:
        return m_view->selection();
    case Command::Paste: {
        const QMimeData *const contents = QApplication::clipboard()->mimeData();
        return writable && contents && contents->hasText();
    }
    case Command::SelectAll:
    case Command::Find:
    case Command::Print:
        break;
    }
    return true;
}

void EngineEditor::perform(Command command)
{
    QLineEdit *const field = focusedField();
    if (field) {
        switch (command) {
        case Command::Undo:
            return field->undo();
        case Command::Redo:
            return field->redo();
        case Command::Cut:
            return field->cut();
        case Command::Copy:
            return field->copy();
        case Command::Paste:
            return field->paste();
        case Command::SelectAll:
            return field->selectAll();
        case Command::Find:
        case Command::Print:
            break;
        }
    }
    if (QAction *const action = viewAction(command))
        action->trigger();
}

} // namespace TextEditor
