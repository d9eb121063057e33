// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/texteditorplugin_p.h>

#include <extsys/pluginmanager.h>
#include <texteditor/editoractions_p.h>
#include <texteditor/editorfactory.h>
#include <texteditor/settingsoptionpage_p.h>

namespace TextEditor {

TextEditorPlugin::TextEditorPlugin() = default;

TextEditorPlugin::~TextEditorPlugin() = default;

bool TextEditorPlugin::initialize()
{
    m_actions = std::make_unique<EditorActions>();
    m_factory = std::make_unique<EditorFactory>();
    auto *const pool = ExtSys::PluginManager::instance();
    pool->addObject(m_factory.get());
    for (const SettingsPage page : {SettingsPage::Appearance, SettingsPage::Editing}) {
        m_pages.push_back(std::make_unique<SettingsOptionPage>(page, m_factory.get()));
        pool->addObject(m_pages.back().get());
    }
    return true;
}

void TextEditorPlugin::extensionsInitialized() {}

void TextEditorPlugin::shutDown()
{
    auto *const pool = ExtSys::PluginManager::instance();
    while (!m_pages.empty()) {
        pool->removeObject(m_pages.back().get());
        m_pages.pop_back();
    }
    pool->removeObject(m_factory.get());
    m_factory.reset();
    m_actions.reset();
}

} // namespace TextEditor
