// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/texteditorplugin_p.h>

#include <extsys/pluginmanager.h>
#include <texteditor/editoractions_p.h>
#include <texteditor/editorfactory.h>

namespace TextEditor {

TextEditorPlugin::TextEditorPlugin() = default;

TextEditorPlugin::~TextEditorPlugin() = default;

bool TextEditorPlugin::initialize()
{
    m_actions = std::make_unique<EditorActions>();
    m_factory = std::make_unique<EditorFactory>();
    ExtSys::PluginManager::instance()->addObject(m_factory.get());
    return true;
}

void TextEditorPlugin::extensionsInitialized() {}

void TextEditorPlugin::shutDown()
{
    ExtSys::PluginManager::instance()->removeObject(m_factory.get());
    m_factory.reset();
    m_actions.reset();
}

} // namespace TextEditor
