// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <keybindings/fixedkeys_p.h>

#include <idecore/actions/iaction.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QMenuBar>
#include <QSet>
#include <QShortcut>
#include <QVariant>

#include <algorithm>

namespace KeyBindings {

FixedKeys::FixedKeys()
{
    const QMainWindow *const window = Core::ViewManager::mainWindow();
    if (const auto *bar = qobject_cast<const QMenuBar *>(window->menuWidget())) {
        const QList<QAction *> menus = bar->actions();
        for (const QAction *menu : menus)
            add(QKeySequence::mnemonic(menu->text()),
                tr("the menu \"%1\"").arg(KeyRules::withoutMnemonic(menu->text())));
    }
    // What an action competes with is decided by the widgets that show it.
    QSet<const QAction *> seen;
    const auto gather = [this, &seen](const QWidget *widget) {
        const QList<QAction *> actions = widget->actions();
        for (const QAction *action : actions) {
            if (seen.contains(action) || qobject_cast<const Core::IAction *>(action))
                continue;
            seen.insert(action);
            const QList<QKeySequence> keys = action->shortcuts();
            for (const QKeySequence &key : keys)
                add(key, tr("\"%1\"").arg(KeyRules::withoutMnemonic(action->text())));
        }
    };
    gather(window);
    const QList<QWidget *> widgets = window->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        gather(widget);
        const QVariantMap own = widget->property("ownKeys").toMap();
        for (auto it = own.cbegin(); it != own.cend(); ++it) {
            m_yielding.push_back({QKeySequence(it.key(), QKeySequence::PortableText),
                                  KeyRules::withoutMnemonic(it.value().toString())});
        }
    }
    const QList<QShortcut *> shortcuts = window->findChildren<QShortcut *>();
    for (const QShortcut *shortcut : shortcuts) {
        const QString what = KeyRules::withoutMnemonic(shortcut->whatsThis());
        add(shortcut->key(),
            what.isEmpty() ? tr("a part of the main window") : tr("\"%1\"").arg(what));
    }
}

QString FixedKeys::holderOf(const QKeySequence &key) const
{
    return holderIn(m_entries, key);
}

QString FixedKeys::replacedBy(const QKeySequence &key) const
{
    return holderIn(m_yielding, key);
}

QString FixedKeys::holderIn(const std::vector<Entry> &entries, const QKeySequence &key)
{
    const auto entry =
        std::find_if(entries.cbegin(), entries.cend(), [&key](const Entry &candidate) {
            return KeyRules::clash(candidate.key, key);
        });
    return entry == entries.cend() ? QString() : entry->holder;
}

void FixedKeys::add(const QKeySequence &key, const QString &holder)
{
    if (!key.isEmpty())
        m_entries.push_back({key, holder});
}

} // namespace KeyBindings
