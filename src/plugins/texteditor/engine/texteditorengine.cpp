// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/texteditorengine_p.h>

#include <appstyle/appstylemanager.h>
#include <texteditor/engine/engineeditor_p.h>
#include <texteditor/engine/enginesettings_p.h>
#include <texteditor/engine/settingspages_p.h>
#include <texteditor/engine/viewbars_p.h>

#include <QApplication>
#include <QWindow>

namespace TextEditor {

TextEditorEngine::TextEditorEngine() = default;

TextEditorEngine::~TextEditorEngine() = default;

AbstractTextEditor *TextEditorEngine::createEditor()
{
    setUp();
    follow();
    updateTheme();
    auto *editor = new EngineEditor(m_theme);
    m_editors.append(editor);
    connect(editor, &QObject::destroyed, this, [this, editor] { m_editors.removeOne(editor); });
    return editor;
}

QWidget *TextEditorEngine::createSettingsPage(SettingsPage page)
{
    setUp();
    return SettingsPages::create(page);
}

void TextEditorEngine::applySettingsPage(QWidget *widget)
{
    SettingsPages::apply(widget);
}

void TextEditorEngine::setUp()
{
    if (m_applied)
        return;
    m_applied = true;
    EngineSettings::apply();
}

void TextEditorEngine::follow()
{
    if (m_follows)
        return;
    m_follows = true;
    connect(APPSTYLE::AppStyleManager::instance(), &APPSTYLE::AppStyleManager::themeChanged, this,
            &TextEditorEngine::updateTheme);
    // A scheme chosen in the options takes effect when the user comes back from
    // there; nothing announces a change of the settings.
    connect(qApp, &QApplication::focusWindowChanged, this, &TextEditorEngine::updateTheme);
    connect(qApp, &QApplication::focusChanged, this,
            [](QWidget *, QWidget *now) { ViewBars::prepare(now); });
}

void TextEditorEngine::stop()
{
    m_follows = false;
    APPSTYLE::AppStyleManager::instance()->disconnect(this);
    qApp->disconnect(this);
}

void TextEditorEngine::updateTheme()
{
    const QString theme = EngineSettings::currentTheme();
    if (theme == m_theme)
        return;
    m_theme = theme;
    EngineSettings::applyPalette();
    for (EngineEditor *editor : qAsConst(m_editors)) {
        editor->setTheme(theme);
        ViewBars::resetColours(editor);
    }
}

} // namespace TextEditor
