// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "texteditorfixture.h"

#include <extsys/iplugin.h>
#include <idecore/editors/editormanager.h>
#include <texteditor/abstracttexteditor.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QTest>

using TextEditor::AbstractTextEditor;
using TextEditor::Command;

TextEditorFixture::TextEditorFixture()
    : m_loader(QStringLiteral(TEXTEDITOR_PLUGIN))
{
    m_plugin = qobject_cast<ExtSys::IPlugin *>(m_loader.instance());
    if (!m_plugin || !m_plugin->initialize())
        qFatal("the text editor plugin did not start: %s", qPrintable(m_loader.errorString()));
    m_plugin->extensionsInitialized();
}

TextEditorFixture::~TextEditorFixture()
{
    m_plugin->shutDown();
}

QString TextEditorFixture::path(const QString &name) const
{
    return m_folder.filePath(name);
}

QString TextEditorFixture::put(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QByteArray TextEditorFixture::contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

AbstractTextEditor *TextEditorFixture::open(const QString &path)
{
    return qobject_cast<AbstractTextEditor *>(Core::EditorManager::openEditor(path));
}

AbstractTextEditor *TextEditorFixture::open(const QString &name, const QByteArray &bytes) const
{
    return open(put(name, bytes));
}

QWidget *TextEditorFixture::textWidget(AbstractTextEditor *editor)
{
    QWidget *widget = editor;
    while (widget->focusProxy())
        widget = widget->focusProxy();
    return widget;
}

void TextEditorFixture::type(AbstractTextEditor *editor, const QString &text)
{
    QTest::keyClicks(textWidget(editor), text);
}

QString TextEditorFixture::text(AbstractTextEditor *editor)
{
    QApplication::clipboard()->clear();
    editor->perform(Command::SelectAll);
    editor->perform(Command::Copy);
    return QApplication::clipboard()->text();
}

QString TextEditorFixture::messages(AbstractTextEditor *editor)
{
    QString text;
    const QList<QWidget *> widgets = editor->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (widget->inherits("KMessageWidget") && !widget->isHidden())
            text += widget->property("text").toString() + QLatin1Char('\n');
    }
    return text;
}

QAction *TextEditorFixture::messageButton(AbstractTextEditor *editor, const QString &text)
{
    const QList<QWidget *> widgets = editor->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (!widget->inherits("KMessageWidget"))
            continue;
        const QList<QAction *> actions = widget->actions();
        for (QAction *action : actions) {
            if (action->text().remove(QLatin1Char('&')) == text)
                return action;
        }
    }
    return nullptr;
}
