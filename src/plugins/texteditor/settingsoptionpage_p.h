// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_SETTINGSOPTIONPAGE_P_H
#define TEXTEDITOR_SETTINGSOPTIONPAGE_P_H

#include <idecore/interfaces/ioptionspage.h>
#include <texteditor/editorengine_p.h>
#include <texteditor/texteditor_export.h>

#include <QPointer>

namespace TextEditor {

class EditorFactory;

/// A settings page of the engine in the Options dialog. The engine is loaded when
/// the page is first shown; where it cannot be, the page says why.
class TEXTEDITOR_EXPORT SettingsOptionPage final : public Core::IOptionsPage
{
    Q_OBJECT
public:
    /// @p factory loads the engine and outlives the page.
    SettingsOptionPage(SettingsPage page, EditorFactory *factory, QObject *parent = nullptr);
    ~SettingsOptionPage() override;

    [[nodiscard]] QWidget *widget() override;
    void apply() override;
    void finish() override;

private:
    const SettingsPage m_page;
    EditorFactory *const m_factory;
    QPointer<QWidget> m_widget;
};

} // namespace TextEditor

#endif // TEXTEDITOR_SETTINGSOPTIONPAGE_P_H
