// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef KEYBINDINGS_USERKEYS_P_H
#define KEYBINDINGS_USERKEYS_P_H

#include <keybindings/keyrules_p.h>

#include <QHash>
#include <QObject>
#include <QPointer>

namespace Core {
class IAction;
}

namespace KeyBindings {

/// The keys that the user has chosen, by command: kept in the settings and given
/// to the commands, also to those registered later.
///
/// A command that the user has said nothing about keeps its own keys, but for
/// those that clash with one the user gave to another command: who has such a
/// key, whenever it comes, loses it, with a line in the log. As long as the user
/// has chosen nothing, no command is listened to. What the settings hold and this
/// cannot use stays there.
class UserKeys final : public QObject
{
    Q_OBJECT
public:
    /// Reads the settings and serves the commands there are.
    explicit UserKeys(QObject *parent = nullptr);
    /// The commands keep the keys they have.
    ~UserKeys() override;

    [[nodiscard]] bool isEmpty() const { return m_keys.isEmpty(); }
    /// The keys that the authors of @p proxy gave it.
    [[nodiscard]] Keys defaultKeys(const Core::IAction *proxy) const;
    /// The ids in the settings of which no command is known.
    [[nodiscard]] QStringList unknownIds() const;
    /// True when the user has chosen the keys of command @p id, and be it those
    /// that it has anyway.
    [[nodiscard]] bool isChosen(const QString &id) const { return m_keys.contains(id); }

    // What these two change holds from the next settle() on.

    /// Stores @p keys for command @p id, which need not be known.
    void setKeys(const QString &id, const Keys &keys);
    /// Forgets what was stored for command @p id.
    void reset(const QString &id);

    /// Gives all commands the keys they shall have.
    void settle();

private:
    /// A command whose keys are set here.
    struct Served
    {
        QPointer<Core::IAction> proxy;
        Keys defaults;
        Keys given;
    };
    /// A key that the user has given to command @p id.
    struct Held
    {
        QKeySequence key;
        QString id;
    };

    void read();
    void listen();
    void findHeld();
    [[nodiscard]] const Held *holderOf(const QKeySequence &key, const QString &id) const;
    void onRegistered(Core::IAction *proxy);
    void onProxyChanged();
    void serve(Core::IAction *proxy);
    void give(Core::IAction *proxy, const Keys &keys);

    QHash<QString, Keys> m_keys;
    /// By the first stroke, which keys that clash have in common.
    QMultiHash<int, Held> m_held;
    QHash<QString, Served> m_served;
    /// The one whose keys are just being set here.
    const Core::IAction *m_given = nullptr;
    bool m_listens = false;
};

} // namespace KeyBindings

#endif // KEYBINDINGS_USERKEYS_P_H
