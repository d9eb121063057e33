// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef KEYBINDINGS_KEYBINDINGSPAGE_P_H
#define KEYBINDINGS_KEYBINDINGSPAGE_P_H

#include <idecore/interfaces/ioptionspage.h>

#include <QPointer>

namespace KeyBindings {

class KeyBindingsWidget;
class UserKeys;

/// The page "Keyboard" of the Options dialog.
class KeyBindingsPage final : public Core::IOptionsPage
{
    Q_OBJECT
public:
    /// @p userKeys outlives the page.
    explicit KeyBindingsPage(UserKeys *userKeys);
    ~KeyBindingsPage() override;

    QWidget *widget() override;
    void apply() override;
    void finish() override;

private:
    UserKeys *const m_userKeys;
    /// The dialog may destroy it with itself.
    QPointer<KeyBindingsWidget> m_widget;
};

} // namespace KeyBindings

#endif // KEYBINDINGS_KEYBINDINGSPAGE_P_H
