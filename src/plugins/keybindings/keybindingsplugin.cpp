// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <keybindings/keybindingsplugin_p.h>

#include <extsys/pluginmanager.h>
#include <keybindings/keybindingspage_p.h>
#include <keybindings/userkeys_p.h>

#include <QTimer>

namespace KeyBindings {

KeyBindingsPlugin::KeyBindingsPlugin() = default;

KeyBindingsPlugin::~KeyBindingsPlugin() = default;

bool KeyBindingsPlugin::initialize()
{
    m_userKeys = std::make_unique<UserKeys>();
    m_page = std::make_unique<KeyBindingsPage>(m_userKeys.get());
    ExtSys::PluginManager::instance()->addObject(m_page.get());
    return true;
}

void KeyBindingsPlugin::extensionsInitialized()
{
    // Other plugins are told later that all are there, and may register then.
    if (!m_userKeys->isEmpty())
        QTimer::singleShot(0, m_userKeys.get(), [this] { nameUnknownCommands(); });
}

void KeyBindingsPlugin::shutDown()
{
    ExtSys::PluginManager::instance()->removeObject(m_page.get());
    m_page.reset();
    m_userKeys.reset();
}

void KeyBindingsPlugin::nameUnknownCommands() const
{
    const QStringList unknown = m_userKeys->unknownIds();
    for (const QString &id : unknown) {
        qWarning("keys of command \"%s\": there is no such command yet; they are kept for it",
                 qUtf8Printable(id));
    }
}

} // namespace KeyBindings
