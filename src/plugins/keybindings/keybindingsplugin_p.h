// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef KEYBINDINGS_KEYBINDINGSPLUGIN_P_H
#define KEYBINDINGS_KEYBINDINGSPLUGIN_P_H

#include <extsys/iplugin.h>

#include <memory>

namespace KeyBindings {

class KeyBindingsPage;
class UserKeys;

/// Lets the user choose the keys of the commands.
class KeyBindingsPlugin final : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.kelmoware.plugins.IPlugin/1.0" FILE "keybindings.json")
    Q_INTERFACES(ExtSys::IPlugin)
public:
    KeyBindingsPlugin();
    ~KeyBindingsPlugin() override;

    bool initialize() override;
    void extensionsInitialized() override;
    void shutDown() override;

private:
    void nameUnknownCommands() const;

    std::unique_ptr<UserKeys> m_userKeys;
    std::unique_ptr<KeyBindingsPage> m_page;
};

} // namespace KeyBindings

#endif // KEYBINDINGS_KEYBINDINGSPLUGIN_P_H
