// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_TEXTEDITOR_TEXTEDITORFIXTURE_H
#define TESTS_PLUGINS_TEXTEDITOR_TEXTEDITORFIXTURE_H

#include "support/corefixture.h"

#include <QByteArray>
#include <QPluginLoader>
#include <QTemporaryDir>

namespace ExtSys {
class IPlugin;
}

namespace TextEditor {
class AbstractTextEditor;
}

class QAction;
class QWidget;

/// The core with the text editor plugin in it, started and shut down in the
/// order of the host, and a folder for files.
class TextEditorFixture final
{
public:
    TextEditorFixture();
    ~TextEditorFixture();
    TextEditorFixture(const TextEditorFixture &) = delete;
    TextEditorFixture &operator=(const TextEditorFixture &) = delete;

    CoreFixture core;

    [[nodiscard]] QString path(const QString &name) const;
    /// Writes a file into the folder and gives its path.
    QString put(const QString &name, const QByteArray &bytes) const;
    [[nodiscard]] static QByteArray contents(const QString &path);

    /// Opens @p path as the File menu does; null when it was refused.
    static TextEditor::AbstractTextEditor *open(const QString &path);
    /// Makes a file and opens it.
    TextEditor::AbstractTextEditor *open(const QString &name, const QByteArray &bytes) const;
    /// The widget that takes what is typed into @p editor.
    static QWidget *textWidget(TextEditor::AbstractTextEditor *editor);
    static void type(TextEditor::AbstractTextEditor *editor, const QString &text);
    /// The text in @p editor.
    static QString text(TextEditor::AbstractTextEditor *editor);
    /// What the message bars of @p editor say.
    static QString messages(TextEditor::AbstractTextEditor *editor);
    /// The button of that text in the message bars of @p editor.
    static QAction *messageButton(TextEditor::AbstractTextEditor *editor, const QString &text);

private:
    QTemporaryDir m_folder;
    QPluginLoader m_loader;
    ExtSys::IPlugin *m_plugin = nullptr;
};

#endif // TESTS_PLUGINS_TEXTEDITOR_TEXTEDITORFIXTURE_H
