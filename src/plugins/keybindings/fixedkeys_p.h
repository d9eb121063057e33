// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef KEYBINDINGS_FIXEDKEYS_P_H
#define KEYBINDINGS_FIXEDKEYS_P_H

#include <keybindings/keyrules_p.h>

#include <vector>

namespace KeyBindings {

/// The keys that the main window serves without the registry of commands, as it
/// is when this is made: of entries and widgets of its own, and those that open
/// its menus. A command with such a key would make it ambiguous.
///
/// A widget that serves keys by itself, and leaves them to a command that has them,
/// tells of them in its property "ownKeys": what each does, by the key in portable
/// text.
class FixedKeys final
{
    Q_DECLARE_TR_FUNCTIONS(KeyBindings::FixedKeys)
public:
    FixedKeys();

    /// Who has a key that clashes with @p key, and that key; empty when nobody
    /// has.
    [[nodiscard]] QString holderOf(const QKeySequence &key) const;
    /// What @p key, or one that clashes with it, does in a widget that leaves it to a
    /// command; empty when nothing.
    [[nodiscard]] QString replacedBy(const QKeySequence &key) const;

private:
    struct Entry
    {
        QKeySequence key;
        QString holder;
    };

    [[nodiscard]] static QString holderIn(const std::vector<Entry> &entries,
                                          const QKeySequence &key);
    void add(const QKeySequence &key, const QString &holder);

    std::vector<Entry> m_entries;
    std::vector<Entry> m_yielding;
};

} // namespace KeyBindings

#endif // KEYBINDINGS_FIXEDKEYS_P_H
