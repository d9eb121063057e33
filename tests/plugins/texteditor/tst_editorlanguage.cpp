// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "ktexteditoraccess.h"
#include "texteditorfixture.h"

#include <texteditor/abstracttexteditor.h>

#include <KActionCollection>
#include <KTextEditor/View>

#include <QAction>
#include <QApplication>
#include <QLocale>
#include <QTest>

using TextEditor::AbstractTextEditor;

/// KTextEditor's own texts, where Qt was told a language and the environment says
/// nothing of it any more: as the program starts.
class TestEditorLanguage final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ktexteditorSpeaksTheLanguageOfTheProgram()
    {
        QCOMPARE(QLocale::system().name(), QStringLiteral("zh_CN"));
        QVERIFY(qEnvironmentVariableIsEmpty("LANGUAGE"));
        const TextEditorFixture fixture;
        const AbstractTextEditor *const editor =
            fixture.open(QStringLiteral("a.v"), "module a;\nendmodule\n");
        const KTextEditor::Document *const document = documentIn(editor);
        QVERIFY(document);
        QCOMPARE(document->views().size(), 1);

        const QAction *const action = document->views().constFirst()->actionCollection()->action(
            QStringLiteral("tools_uncomment"));

        QVERIFY(action);
        QCOMPARE(action->text(), QStringLiteral("去注释(&M)"));
    }
};

int main(int argc, char **argv)
{
    qputenv("LANGUAGE", "zh_CN");
    QApplication application(argc, argv);
    (void)QLocale::system().name();
    qunsetenv("LANGUAGE");
    TestEditorLanguage test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_editorlanguage.moc"
