// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ENGINE_TEXTEDITORENGINE_P_H
#define TEXTEDITOR_ENGINE_TEXTEDITORENGINE_P_H

#include <texteditor/editorengine_p.h>

#include <QObject>

namespace TextEditor {

class EngineEditor;

/// Makes editors on KTextEditor, and keeps the colours of all of them true to
/// the settings.
class TextEditorEngine final : public QObject, public EditorEngine
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.kelmoware.texteditor.EditorEngine/1.1")
    Q_INTERFACES(TextEditor::EditorEngine)
public:
    TextEditorEngine();
    ~TextEditorEngine() override;

    [[nodiscard]] AbstractTextEditor *createEditor() override;
    [[nodiscard]] QWidget *createSettingsPage(SettingsPage page) override;
    void applySettingsPage(QWidget *widget) override;
    void stop() override;

private:
    void setUp();
    void follow();
    void updateTheme();

    bool m_applied = false;
    bool m_follows = false;
    QString m_theme;
    QList<EngineEditor *> m_editors;
};

} // namespace TextEditor

#endif // TEXTEDITOR_ENGINE_TEXTEDITORENGINE_P_H
