// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/viewkeys_p.h>

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>

#include <KTextEditor/View>

#include <KActionCollection>

#include <QAction>
#include <QHash>
#include <QKeyEvent>
#include <QKeySequence>
#include <QSet>
#include <QVariant>

namespace TextEditor {

namespace {

using KeyTable = QHash<int, QString>;

/// What each key does, for who gives keys to commands.
QVariantMap described(const KeyTable &keys, const KActionCollection *actions)
{
    QVariantMap texts;
    for (auto it = keys.cbegin(); it != keys.cend(); ++it) {
        if (const QAction *const action = actions->action(*it))
            texts.insert(QKeySequence(it.key()).toString(QKeySequence::PortableText),
                         action->text());
    }
    return texts;
}

/// Keys of the standard commands. They are the registry's also while a command
/// is disabled, which must not hand its key on to something else.
QSet<int> standardKeys()
{
    QSet<int> keys{int(Qt::CTRL) | int(Qt::SHIFT) | int(Qt::Key_S), int(Qt::CTRL) | int(Qt::Key_Y),
                   int(Qt::Key_F11), int(Qt::Key_F6), int(Qt::SHIFT) | int(Qt::Key_F6)};
    const auto standard = {QKeySequence::New,   QKeySequence::Open,  QKeySequence::Save,
                           QKeySequence::Print, QKeySequence::Undo,  QKeySequence::Cut,
                           QKeySequence::Copy,  QKeySequence::Paste, QKeySequence::SelectAll,
                           QKeySequence::Find,  QKeySequence::Close};
    for (const QKeySequence::StandardKey key : standard)
        keys.insert(QKeySequence(key)[0]);
    return keys;
}

/// True when a command of the registry has a key that is @p key or begins with it.
/// It is the registry's also while the command is disabled.
bool isCommandKey(int key)
{
    const QList<Core::IAction *> commands = Core::ActionManager::actions();
    for (const Core::IAction *command : commands) {
        const QList<QKeySequence> shortcuts = command->shortcuts();
        for (const QKeySequence &shortcut : shortcuts) {
            if (shortcut[0] == key)
                return true;
        }
    }
    return false;
}

/// Actions that would go past the editor: they load and save behind its back,
/// or belong to an input mode that is not offered.
bool isUnwanted(const QString &name)
{
    return name.startsWith(QLatin1String("file_")) || name == QLatin1String("switch_to_cmd_line")
           || name == QLatin1String("switch_next_input_mode")
           || name == QLatin1String("tools_toggle_automatic_spell_checking");
}

/// The key of @p action by which it is found, the same for every view.
KeyTable readKeys(const QList<QAction *> &actions)
{
    static const QSet<int> taken = standardKeys();
    KeyTable keys;
    for (const QAction *action : actions) {
        if (isUnwanted(action->objectName()))
            continue;
        const QList<QKeySequence> shortcuts = action->shortcuts();
        for (const QKeySequence &shortcut : shortcuts) {
            if (shortcut.count() == 1 && !taken.contains(shortcut[0]))
                keys.insert(shortcut[0], action->objectName());
        }
    }
    return keys;
}

const KeyTable &keyTable(const QList<QAction *> &actions)
{
    static const KeyTable keys = readKeys(actions);
    return keys;
}

} // namespace

ViewKeys::ViewKeys(KTextEditor::View *view)
    : QObject(view)
    , m_view(view)
{
    const QList<QAction *> actions = view->actionCollection()->actions();
    view->setProperty("ownKeys", described(keyTable(actions), view->actionCollection()));
    for (QAction *action : actions) {
        if (!action->shortcuts().isEmpty())
            action->setShortcuts(QList<QKeySequence>());
    }
    if (QWidget *const text = view->focusProxy())
        text->installEventFilter(this);
}

bool ViewKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        if (QAction *const action = actionFor(static_cast<QKeyEvent *>(event))) {
            if (action->isEnabled()) {
                action->trigger();
                return true;
            }
        }
    }
    return QObject::eventFilter(watched, event);
}

bool ViewKeys::handleKeyFromField(const QKeyEvent *event)
{
    QAction *const action = actionFor(event);
    // Everything else works on the text, which is not where the user types.
    if (!action || !action->objectName().startsWith(QLatin1String("edit_find")))
        return false;
    action->trigger();
    return true;
}

QAction *ViewKeys::actionFor(const QKeyEvent *event) const
{
    const KeyTable &keys = keyTable({});
    const int modifiers = static_cast<int>(event->modifiers() & ~Qt::KeypadModifier);
    auto found = keys.constFind(event->key() | modifiers);
    // A sign that needs Shift on this keyboard is written without it.
    const bool sign =
        event->key() < Qt::Key_Escape && !(event->key() >= Qt::Key_A && event->key() <= Qt::Key_Z);
    if (found == keys.constEnd() && sign)
        found = keys.constFind(event->key() | (modifiers & ~int(Qt::SHIFT)));
    // The user may have given any key to a command.
    if (found == keys.constEnd() || isCommandKey(found.key()))
        return nullptr;
    return m_view->actionCollection()->action(*found);
}

} // namespace TextEditor
