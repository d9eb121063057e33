// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "ktexteditoraccess.h"
#include "texteditorfixture.h"

#include <extsys/pluginmanager.h>
#include <texteditor/abstracttexteditor.h>
#include <texteditor/settingsoptionpage_p.h>

#include <KActionCollection>
#include <KTextEditor/View>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTest>

using TextEditor::AbstractTextEditor;
using TextEditor::SettingsOptionPage;

namespace {

SettingsOptionPage *pageOf(const QString &id)
{
    const auto pages = ExtSys::PluginManager::instance()->getObjects<SettingsOptionPage>();
    for (SettingsOptionPage *page : pages) {
        if (page->id() == id)
            return page;
    }
    return nullptr;
}

/// What stands on tabs, labels, boxes and buttons, shown or not.
QStringList textsIn(const QWidget *page)
{
    QStringList texts;
    const QList<QTabWidget *> tabs = page->findChildren<QTabWidget *>();
    for (const QTabWidget *tab : tabs) {
        for (int i = 0; i < tab->count(); ++i)
            texts.append(tab->tabText(i));
    }
    const QList<QLabel *> labels = page->findChildren<QLabel *>();
    for (const QLabel *label : labels)
        texts.append(label->text());
    const QList<QAbstractButton *> buttons = page->findChildren<QAbstractButton *>();
    for (const QAbstractButton *button : buttons)
        texts.append(button->text());
    const QList<QGroupBox *> groups = page->findChildren<QGroupBox *>();
    for (const QGroupBox *group : groups)
        texts.append(group->title());
    texts.removeAll(QString());
    return texts;
}

QStringList withoutChinese(const QStringList &texts)
{
    static const QRegularExpression character(QStringLiteral("\\p{Han}"));
    QStringList rest;
    for (const QString &text : texts) {
        if (!text.contains(character))
            rest.append(text);
    }
    return rest;
}

} // namespace

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

    void itsSettingsPagesSpeakItToo_data()
    {
        QTest::addColumn<QString>("id");
        QTest::newRow("appearance") << QStringLiteral("A.Appearance");
        QTest::newRow("editing") << QStringLiteral("B.Editing");
    }

    void itsSettingsPagesSpeakItToo()
    {
        QFETCH(const QString, id);
        const TextEditorFixture fixture;
        SettingsOptionPage *const page = pageOf(id);
        QVERIFY(page);

        const QStringList texts = textsIn(page->widget());

        QVERIFY2(texts.size() > 15, qPrintable(QString::number(texts.size())));
        QCOMPARE(withoutChinese(texts), QStringList());
        page->finish();
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
