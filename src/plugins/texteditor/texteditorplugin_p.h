// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_TEXTEDITORPLUGIN_P_H
#define TEXTEDITOR_TEXTEDITORPLUGIN_P_H

#include <extsys/iplugin.h>

#include <memory>
#include <vector>

namespace TextEditor {

class EditorActions;
class EditorFactory;
class SettingsOptionPage;

/// Offers the text editor and its settings to the core and serves the editing
/// commands with it.
class TextEditorPlugin final : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.kelmoware.plugins.IPlugin/1.0" FILE "texteditor.json")
    Q_INTERFACES(ExtSys::IPlugin)
public:
    TextEditorPlugin();
    ~TextEditorPlugin() override;

    bool initialize() override;
    void extensionsInitialized() override;
    void shutDown() override;

private:
    std::unique_ptr<EditorFactory> m_factory;
    std::unique_ptr<EditorActions> m_actions;
    std::vector<std::unique_ptr<SettingsOptionPage>> m_pages;
};

} // namespace TextEditor

#endif // TEXTEDITOR_TEXTEDITORPLUGIN_P_H
