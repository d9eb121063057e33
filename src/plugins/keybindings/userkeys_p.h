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
/// A command that the user has said nothing about is not touched and not
/// listened to. What the settings hold and this cannot use stays there.
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
    /// False when what is set is lost with the end of the program.
    [[nodiscard]] static bool canBeStored();
    /// The ids in the settings of which no command is known.
    [[nodiscard]] QStringList unknownIds() const;

    /// Stores @p keys for command @p id, which need not be known, and gives them
    /// to it.
    void setKeys(const QString &id, const Keys &keys);
    /// Forgets what was stored for command @p id and gives its own keys back.
    void reset(const QString &id);

private:
    struct Served
    {
        QPointer<Core::IAction> proxy;
        Keys defaults;
    };

    void read();
    void serveAll();
    void serve(Core::IAction *proxy);
    void give(Core::IAction *proxy, const Keys &keys);
    void onProxyChanged();

    QHash<QString, Keys> m_keys;
    QHash<QString, Served> m_served;
    /// The one whose keys are just being set here.
    const Core::IAction *m_given = nullptr;
    bool m_listens = false;
};

} // namespace KeyBindings

#endif // KEYBINDINGS_USERKEYS_P_H
