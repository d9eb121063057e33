// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "texteditorfixture.h"

#include "support/modaldialog.h"

#include <extsys/pluginmanager.h>
#include <idecore/editors/editormanager.h>
#include <idecore/interfaces/ieditor.h>
#include <texteditor/editorfactory.h>

#include <QFile>
#include <QIcon>
#include <QJsonArray>
#include <QJsonObject>
#include <QMessageBox>
#include <QPluginLoader>
#include <QTest>

using TextEditor::EditorFactory;

namespace {

bool isLoaded(const char *library)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(library);
}

} // namespace

class TestEditorFactory final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pluginIsStartedAfterTheCore();
    void engineIsLoadedWithTheFirstEditorOnlyAndLeavesTheIconTheme();
    void everyTextTypeOfTheTableHasTheEditor_data();
    void everyTextTypeOfTheTableHasTheEditor();
    void factoryLeavesThePoolAtShutDown();
    void missingEngineIsToldWhenAFileIsOpened();
    void foreignEngineIsToldWhenAFileIsOpened();
};

void TestEditorFactory::pluginIsStartedAfterTheCore()
{
    const QJsonObject data = QPluginLoader(QStringLiteral(TEXTEDITOR_PLUGIN))
                                 .metaData()
                                 .value(QLatin1String("MetaData"))
                                 .toObject();

    QCOMPARE(data.value(QLatin1String("Dependencies")).toArray(),
             QJsonArray{QStringLiteral("IdeCore")});
}

void TestEditorFactory::engineIsLoadedWithTheFirstEditorOnlyAndLeavesTheIconTheme()
{
    TextEditorFixture fixture;
    // As for dark ground; it is while it is loaded that a library would change it.
    QIcon::setFallbackThemeName(QStringLiteral("breeze-dark"));
    QVERIFY(!isLoaded("KF5TextEditor"));

    QVERIFY(fixture.open(QStringLiteral("a.v"), "module a;\n"));

    QVERIFY(isLoaded("KF5TextEditor"));
    QCOMPARE(QIcon::fallbackThemeName(), QStringLiteral("breeze-dark"));
}

void TestEditorFactory::everyTextTypeOfTheTableHasTheEditor_data()
{
    QTest::addColumn<QString>("name");

    for (const char *suffix : {"txt", "htm", "html", "hts",  "xhtml", "v",   "sv",   "vo",  "vp",
                               "vh",  "vg",  "vhd",  "vhdl", "ksc",   "pcn", "sdc",  "kao", "qlz",
                               "fdc", "adc", "kpa",  "fcx",  "mnx",   "ufx", "kvio", "none"})
        QTest::newRow(suffix) << QStringLiteral("file.") + QLatin1String(suffix);
}

void TestEditorFactory::everyTextTypeOfTheTableHasTheEditor()
{
    QFETCH(QString, name);
    TextEditorFixture fixture;

    Core::IEditorFactory *const factory =
        Core::EditorManager::factoryForFile(fixture.put(name, "text\n"));

    QVERIFY(qobject_cast<EditorFactory *>(factory));
}

void TestEditorFactory::factoryLeavesThePoolAtShutDown()
{
    {
        TextEditorFixture fixture;
        QCOMPARE(ExtSys::PluginManager::instance()->getObjects<EditorFactory>().size(), 1);
    }
    QCOMPARE(ExtSys::PluginManager::instance()->getObjects<EditorFactory>().size(), 0);
}

void TestEditorFactory::missingEngineIsToldWhenAFileIsOpened()
{
    CoreFixture core;
    EditorFactory factory(QStringLiteral("/nowhere/engine.so"), nullptr);
    const InPool pool(&factory);
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QVERIFY(!Core::EditorManager::openEditor(QStringLiteral("/proc/self/status")));

    QVERIFY2(box.text().contains(QLatin1String("The text editor could not be started")),
             qPrintable(box.text()));
    QVERIFY2(box.text().contains(QLatin1String("/nowhere/engine.so")), qPrintable(box.text()));
}

void TestEditorFactory::foreignEngineIsToldWhenAFileIsOpened()
{
    EditorFactory factory(QStringLiteral("/proc/self/status"), nullptr);
    const std::unique_ptr<Core::IEditor> editor(factory.createEditor());
    QString reason;

    QVERIFY(!editor->open(QStringLiteral("/proc/self/status"), &reason));

    QVERIFY2(reason.startsWith(QLatin1String("The text editor could not be started: ")),
             qPrintable(reason));
}

QTEST_MAIN(TestEditorFactory)
#include "tst_editorfactory.moc"
