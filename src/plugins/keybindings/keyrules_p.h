// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef KEYBINDINGS_KEYRULES_P_H
#define KEYBINDINGS_KEYRULES_P_H

#include <QCoreApplication>
#include <QKeySequence>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace KeyBindings {

/// The keys of one command.
using Keys = QList<QKeySequence>;

/// What can be a key, and how keys are written down.
class KeyRules
{
    Q_DECLARE_TR_FUNCTIONS(KeyBindings::KeyRules)
public:
    /// True when whoever presses one also presses the other: they are equal, or
    /// one begins the other.
    [[nodiscard]] static bool clash(const QKeySequence &one, const QKeySequence &other);
    /// Why no command may have @p key, because typing, moving about or the window
    /// manager would suffer; empty when one may.
    [[nodiscard]] static QString whyReserved(const QKeySequence &key);

    /// As menus show them; empty without any.
    [[nodiscard]] static QString text(const Keys &keys);
    /// A text of the interface without what marks its mnemonic.
    [[nodiscard]] static QString withoutMnemonic(const QString &text);

    /// The form in which the settings hold @p keys.
    [[nodiscard]] static QVariant stored(const Keys &keys);
    /// What @p stored holds. Each part that is no usable key is left out and
    /// told of in @p problems; a value that is none at all gives nothing but a
    /// problem.
    [[nodiscard]] static Keys read(const QVariant &stored, QStringList *problems);
    /// The name under which the settings hold the keys of command @p id, within
    /// the group.
    [[nodiscard]] static QString storedId(const QString &id);
    [[nodiscard]] static QString readId(const QString &stored);
};

} // namespace KeyBindings

#endif // KEYBINDINGS_KEYRULES_P_H
