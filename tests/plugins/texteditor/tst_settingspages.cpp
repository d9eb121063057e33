// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "ktexteditoraccess.h"
#include "texteditorfixture.h"

#include <extsys/pluginmanager.h>
#include <idecore/options/optiondialog.h>
#include <texteditor/editorfactory.h>
#include <texteditor/settingsoptionpage_p.h>

#include <KTextEditor/ConfigInterface>
#include <KTextEditor/View>

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTest>

#include <memory>

using TextEditor::AbstractTextEditor;
using TextEditor::EditorFactory;
using TextEditor::SettingsOptionPage;
using TextEditor::SettingsPage;

namespace {

bool isEngineLoaded()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("TextEditorEngine");
}

QString ownFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + QStringLiteral("/KelmoWare/texteditorrc");
}

QByteArray entry(const char *key)
{
    QFile file(ownFile());
    if (!file.open(QIODevice::ReadOnly))
        return "<unreadable>";
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        if (line.startsWith(QByteArray(key) + '='))
            return line.mid(int(qstrlen(key)) + 1);
    }
    return "<missing>";
}

/// An entry of the view, or of the document.
QVariant configOf(AbstractTextEditor *editor, const char *key)
{
    KTextEditor::Document *const document = documentIn(editor);
    const QList<QObject *> places{document->views().value(0), document};
    for (QObject *place : places) {
        auto *const config = qobject_cast<KTextEditor::ConfigInterface *>(place);
        const QVariant value = config ? config->configValue(QLatin1String(key)) : QVariant();
        if (value.isValid())
            return value;
    }
    return {};
}

QStringList titlesOf(const QWidget *page)
{
    QStringList titles;
    const auto *tabs = page->findChild<QTabWidget *>();
    for (int i = 0; tabs && i < tabs->count(); ++i)
        titles.append(tabs->tabText(i));
    return titles;
}

} // namespace

class TestSettingsPages final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        // From an earlier start of the program.
        QVERIFY(QDir().mkpath(QFileInfo(ownFile()).absolutePath()));
        QFile file(ownFile());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[KTextEditor Document]\nTab Width=7\nSwap File Mode=1\n"
                   "Remove Spaces=2\n[KTextEditor View]\nInput Mode=1\n");
    }

    void thePagesAreInThePoolWithoutTheEngine()
    {
        const TextEditorFixture fixture;
        const QList<SettingsOptionPage *> pages = pool()->getObjects<SettingsOptionPage>();
        QCOMPARE(pages.size(), 2);
        QCOMPARE(pages.at(0)->id(), QStringLiteral("A.Appearance"));
        QCOMPARE(pages.at(1)->id(), QStringLiteral("B.Editing"));
        for (const SettingsOptionPage *page : pages) {
            QCOMPARE(page->categoryId(), QStringLiteral("B.TextEditor"));
            QCOMPARE(page->displayCategory(), QStringLiteral("Text Editor"));
            QVERIFY(QFile::exists(page->categoryIcon()));
        }
        QVERIFY(!isEngineLoaded());
    }

    void theDialogAloneDoesNotLoadTheEngine()
    {
        const TextEditorFixture fixture;
        auto *const dialog = Core::OptionDialog::getOptionDialog(nullptr, QStringLiteral("A.Core"),
                                                                 QStringLiteral("A.General"));
        dialog->reject();
        delete dialog;
        QVERIFY(!isEngineLoaded());
    }

    void aMissingEngineIsToldOnThePage()
    {
        EditorFactory factory(QStringLiteral("/nowhere/engine.so"), nullptr);
        SettingsOptionPage page(SettingsPage::Editing, &factory);
        const auto *label = qobject_cast<QLabel *>(page.widget());
        QVERIFY(label);
        QVERIFY2(label->text().contains(QLatin1String("/nowhere/engine.so")),
                 qPrintable(label->text()));
        page.apply();
        page.finish();
    }

    void whatHasNoEffectIsNotShown()
    {
        const TextEditorFixture fixture;
        QCOMPARE(titlesOf(page(0)->widget()), texts({"General", "Borders"}));
        const QStringList editing = titlesOf(page(1)->widget());
        QVERIFY2(editing.contains(QLatin1String("Indentation")),
                 qPrintable(editing.join(QLatin1Char(','))));
        QVERIFY(!editing.contains(QLatin1String("Vi Input Mode")));
        QVERIFY(!editing.contains(QLatin1String("Spellcheck")));
        for (const char *name : {"cmbInputMode", "chkSmartCopyCut", "cbTextSelectionMode"}) {
            const auto *widget = page(1)->widget()->findChild<QWidget *>(QLatin1String(name));
            QVERIFY2(widget && widget->isHidden(), name);
        }
        finish();
    }

    void theDialogIsWideEnoughForAPage_data()
    {
        QTest::addColumn<int>("index");
        QTest::newRow("appearance") << 0;
        QTest::newRow("editing") << 1;
    }

    void theDialogIsWideEnoughForAPage()
    {
        QFETCH(int, index);
        const TextEditorFixture fixture;
        const std::unique_ptr<Core::OptionDialog> dialog(Core::OptionDialog::getOptionDialog(
            nullptr, page(index)->categoryId(), page(index)->id()));
        dialog->show();
        const auto *area = qobject_cast<QScrollArea *>(page(index)->widget());
        QVERIFY(area);
        QTRY_VERIFY(area->isVisible());
        QCOMPARE(area->horizontalScrollBar()->maximum(), 0);
        dialog->reject();
    }

    void whatTheUserChoseBeforeStays()
    {
        const TextEditorFixture fixture;
        AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.v"), "module a;\n");
        QCOMPARE(configOf(editor, "tab-width").toInt(), 7);
    }

    void whatWouldDamageFilesDoesNotStay()
    {
        const TextEditorFixture fixture;
        setChecked(0, "chkLineNumbers", false);
        page(0)->apply();
        finish();
        QCOMPARE(entry("Swap File Mode"), QByteArray("0"));
        QCOMPARE(entry("Remove Spaces"), QByteArray("0"));
        QCOMPARE(entry("Input Mode"), QByteArray("0"));
    }

    void whatIsAppliedIsSeenInOpenEditorsAndStored()
    {
        const TextEditorFixture fixture;
        AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.v"), "module a;\n");
        for (const bool shown : {true, false}) {
            setChecked(0, "chkLineNumbers", shown);
            page(0)->apply();
            finish();
            QCOMPARE(configOf(editor, "line-numbers").toBool(), shown);
            QCOMPARE(entry("Line Numbers"), QByteArray(shown ? "true" : "false"));
        }
    }

    void whatIsNotAppliedIsForgotten()
    {
        const TextEditorFixture fixture;
        AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.v"), "module a;\n");
        const int before = configOf(editor, "tab-width").toInt();
        auto *const width = page(1)->widget()->findChild<QSpinBox *>(QStringLiteral("sbTabWidth"));
        QVERIFY(width);
        width->setValue(before + 3);
        finish();
        QCOMPARE(configOf(editor, "tab-width").toInt(), before);
        QCOMPARE(page(1)->widget()->findChild<QSpinBox *>(QStringLiteral("sbTabWidth"))->value(),
                 before);
        finish();
    }

    void theTabWidthIsApplied()
    {
        const TextEditorFixture fixture;
        AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.v"), "module a;\n");
        page(1)->widget()->findChild<QSpinBox *>(QStringLiteral("sbTabWidth"))->setValue(5);
        page(1)->apply();
        finish();
        QCOMPARE(configOf(editor, "tab-width").toInt(), 5);
        QCOMPARE(entry("Tab Width"), QByteArray("5"));
    }

    void theColoursStayThoseOfTheTheme()
    {
        const TextEditorFixture fixture;
        AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.v"), "module a;\n");
        const QVariant before = configOf(editor, "theme");
        setChecked(0, "chkLineNumbers", true);
        page(0)->apply();
        finish();
        QCOMPARE(configOf(editor, "theme"), before);
    }

    void thePagesLeaveThePoolAtShutDown()
    {
        {
            const TextEditorFixture fixture;
            QVERIFY(page(0)->widget());
        }
        QCOMPARE(pool()->getObjects<SettingsOptionPage>().size(), 0);
    }

private:
    static ExtSys::PluginManager *pool() { return ExtSys::PluginManager::instance(); }
    static SettingsOptionPage *page(int index)
    {
        return pool()->getObjects<SettingsOptionPage>().at(index);
    }
    static void finish()
    {
        page(0)->finish();
        page(1)->finish();
    }
    static void setChecked(int index, const char *name, bool checked)
    {
        auto *box = page(index)->widget()->findChild<QCheckBox *>(QLatin1String(name));
        if (!box)
            QTest::qFail("there is no such box", __FILE__, __LINE__);
        else
            box->setChecked(checked);
    }
};

QTEST_MAIN(TestSettingsPages)
#include "tst_settingspages.moc"
