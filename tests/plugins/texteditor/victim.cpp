// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Opens the file named first, does the steps named after it and waits to be
// killed. A step is a text to type or one of the words below.

#include "texteditorfixture.h"

#include <texteditor/abstracttexteditor.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QTest>

#include <csignal>
#include <cstdio>

namespace {

void press(TextEditor::AbstractTextEditor *editor, Qt::Key key,
           Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(TextEditorFixture::textWidget(editor), key, modifiers);
}

/// Changes of many kinds.
void edit(TextEditor::AbstractTextEditor *editor)
{
    using TextEditor::Command;
    editor->goToLine(2, 2);
    press(editor, Qt::Key_Return);
    TextEditorFixture::type(editor, QStringLiteral("new (text"));
    press(editor, Qt::Key_Backspace);
    press(editor, Qt::Key_Delete);
    press(editor, Qt::Key_D, Qt::ControlModifier);
    editor->goToLine(4, 1);
    press(editor, Qt::Key_K, Qt::ControlModifier);
    press(editor, Qt::Key_J, Qt::ControlModifier);
    press(editor, Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    QApplication::clipboard()->setText(QStringLiteral("p\nq\nr"));
    editor->perform(Command::Paste);
    editor->perform(Command::Undo);
    editor->perform(Command::Redo);
    editor->goToLine(1, 1);
    press(editor, Qt::Key_Down, Qt::ShiftModifier);
    press(editor, Qt::Key_Down, Qt::ShiftModifier);
    press(editor, Qt::Key_Tab);
    TextEditorFixture::type(editor, QStringLiteral("end"));
}

bool perform(const QString &step, TextEditor::AbstractTextEditor *editor)
{
    const QString path = editor->fileName();
    if (step == QLatin1String("--save"))
        return editor->save(nullptr);
    if (step == QLatin1String("--save-as"))
        return editor->saveAs(path + QStringLiteral(".other"), nullptr);
    if (step == QLatin1String("--change-file-and-keep-text")) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write("another\n") < 0)
            return false;
        file.close();
        if (editor->save(nullptr))
            return false;
        QAction *const keep =
            TextEditorFixture::messageButton(editor, QStringLiteral("Keep This Text"));
        if (keep)
            keep->trigger();
        return keep;
    }
    if (step == QLatin1String("--for-ever")) {
        for (int i = 1;; ++i) {
            TextEditorFixture::type(editor, QStringLiteral("x"));
            std::putchar('x');
            std::fflush(stdout);
            if (i % 3 == 0 && !editor->save(nullptr))
                return false;
            QApplication::processEvents();
        }
    }
    // Before the event loop runs again.
    if (step == QLatin1String("--die"))
        return std::raise(SIGKILL) == 0;
    if (step == QLatin1String("--edit"))
        edit(editor);
    else
        TextEditorFixture::type(editor, step);
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc < 3)
        return 2;
    TextEditorFixture fixture;
    TextEditor::AbstractTextEditor *const editor =
        TextEditorFixture::open(QString::fromLocal8Bit(argv[1]));
    if (!editor)
        return 1;
    const QStringList steps = application.arguments().mid(2);
    for (const QString &step : steps) {
        if (!perform(step, editor))
            return 3;
    }
    std::puts("typed");
    std::fflush(stdout);
    return QApplication::exec();
}
