// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <keybindings/keybindingspage_p.h>

#include <keybindings/keybindingsconstants.h>
#include <keybindings/keybindingswidget_p.h>

namespace KeyBindings {

KeyBindingsPage::KeyBindingsPage(UserKeys *userKeys)
    : m_userKeys(userKeys)
{
    setId(QLatin1String(Constants::PAGE));
    setCategoryId(QLatin1String(Constants::CATEGORY));
    setDisplayName(tr("Keyboard"));
    setDisplayCategory(tr("Environment"));
    setCategoryIcon(QStringLiteral(":/core/image/options.png"));
}

KeyBindingsPage::~KeyBindingsPage()
{
    delete m_widget;
}

QWidget *KeyBindingsPage::widget()
{
    if (!m_widget)
        m_widget = new KeyBindingsWidget(m_userKeys);
    return m_widget;
}

void KeyBindingsPage::apply()
{
    if (m_widget)
        m_widget->apply();
}

void KeyBindingsPage::finish()
{
    delete m_widget;
}

} // namespace KeyBindings
