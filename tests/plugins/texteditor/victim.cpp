// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Opens the file named first, types the text named second and waits to be killed.

#include "texteditorfixture.h"

#include <texteditor/abstracttexteditor.h>

#include <QApplication>
#include <QTimer>

#include <cstdio>

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
        if (step == QLatin1String("--save")) {
            QString reason;
            if (!editor->save(&reason))
                return 3;
        } else {
            TextEditorFixture::type(editor, step);
        }
    }
    std::puts("typed");
    std::fflush(stdout);
    return QApplication::exec();
}
