// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editortexts.h"

#include "support/corefixture.h"

#include <idecore/core/idecore.h>
#include <idecore/externaleditors/externaleditormanager.h>

#include <QFile>
#include <QRect>
#include <QSettings>
#include <QTest>

using Core::ExternalEditor;
using Core::ExternalEditorManager;

namespace {

/// Writes the stored entry of that index.
void store(int index, const QStringList &entry)
{
    CoreFixture::storeSetting(QStringLiteral("external_editor/editor%1").arg(index), entry);
}

/// The keys of the group, as they stand in the settings.
QStringList storedKeys()
{
    QSettings *settings = Core::IdeCore::userSettings();
    settings->beginGroup(QStringLiteral("external_editor"));
    QStringList keys = settings->allKeys();
    settings->endGroup();
    keys.sort();
    return keys;
}

bool fileHasEditors()
{
    // Another store of this name would write what waits in the core's.
    QFile file(Core::IdeCore::userSettings()->fileName());
    return file.open(QIODevice::ReadOnly) && file.readAll().contains("[external_editor]");
}

QStringList storedEntry(const char *key)
{
    return Core::IdeCore::userSettings()
        ->value(QStringLiteral("external_editor/") + QString::fromLatin1(key))
        .toStringList();
}

} // namespace

class TestExternalEditorRegistry final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { CoreFixture::dropSettings(); }

    // In memory

    void withoutSettingsItIsEmptyAndOff()
    {
        const CoreFixture core;
        QVERIFY(ExternalEditorManager::editors().isEmpty());
        QVERIFY(ExternalEditorManager::allEditorId().isEmpty());
        QVERIFY(!ExternalEditorManager::isUseExtEditor());
        QCOMPARE(asText(ExternalEditorManager::defaultEditor()), QStringLiteral("||"));
    }

    void anEditorIsRegisteredUnderItsName()
    {
        const CoreFixture core;
        QVERIFY(ExternalEditorManager::registerEditor(editorNamed("vi", true)));
        QCOMPARE(asText(ExternalEditorManager::editor(QStringLiteral("vi"))),
                 QStringLiteral("vi|/bin/vi|%f*"));
        QCOMPARE(ExternalEditorManager::allEditorId(), texts({"vi"}));
    }

    void anEditorWithoutANameIsRefused()
    {
        const CoreFixture core;
        ExternalEditorManager::registerEditor(editorNamed("vi"));
        QVERIFY(!ExternalEditorManager::registerEditor(editorNamed("")));
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"vi|/bin/vi|%f"}));
    }

    void anEditorReplacesThatOfItsName()
    {
        const CoreFixture core;
        ExternalEditorManager::registerEditor(editorNamed("vi"));
        QVERIFY(ExternalEditorManager::registerEditor(
            {QStringLiteral("vi"), QStringLiteral("/opt/vi"), QString(), true}));
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"vi|/opt/vi|*"}));
    }

    void namesAreComparedExactly()
    {
        const CoreFixture core;
        ExternalEditorManager::registerEditor(editorNamed("vi"));
        ExternalEditorManager::registerEditor(editorNamed("VI"));
        QCOMPARE(ExternalEditorManager::editors().size(), 2);
    }

    void anEditorIsUnregisteredByName()
    {
        const CoreFixture core;
        ExternalEditorManager::registerEditor(editorNamed("vi"));
        ExternalEditorManager::registerEditor(editorNamed("joe"));
        ExternalEditorManager::unregisterEditor(QStringLiteral("vi"));
        QCOMPARE(ExternalEditorManager::allEditorId(), texts({"joe"}));
    }

    void unregisteringAnUnknownOrEmptyNameDoesNothing()
    {
        const CoreFixture core;
        ExternalEditorManager::applyData({editorNamed(""), editorNamed("vi")});
        ExternalEditorManager::unregisterEditor(QString());
        ExternalEditorManager::unregisterEditor(QStringLiteral("joe"));
        QCOMPARE(sortedTexts(ExternalEditorManager::editors()),
                 texts({"vi|/bin/vi|%f", "|/bin/|%f"}));
    }

    void anUnknownEditorIsAnEmptyRecord()
    {
        const CoreFixture core;
        ExternalEditorManager::registerEditor(editorNamed("vi", true));
        QCOMPARE(asText(ExternalEditorManager::editor(QStringLiteral("joe"))),
                 QStringLiteral("||"));
    }

    void namesAndRecordsHaveOneOrder()
    {
        const CoreFixture core;
        for (const char *name : {"a", "b", "c", "d", "e", "f"})
            ExternalEditorManager::registerEditor(editorNamed(name));
        QStringList names;
        const QList<ExternalEditor> editors = ExternalEditorManager::editors();
        for (const ExternalEditor &editor : editors)
            names.append(editor.name);
        QCOMPARE(ExternalEditorManager::allEditorId(), names);
        QCOMPARE(names.size(), 6);
    }

    void theDefaultEditorIsTheMarkedOne()
    {
        const CoreFixture core;
        ExternalEditorManager::applyData(
            {editorNamed("a"), editorNamed("b", true), editorNamed("c")});
        QCOMPARE(asText(ExternalEditorManager::defaultEditor()), QStringLiteral("b|/bin/b|%f*"));
    }

    void ofSeveralDefaultsTheFirstCounts()
    {
        const CoreFixture core;
        QList<ExternalEditor> editors;
        for (const char *name : {"a", "b", "c", "d", "e", "f"})
            editors.append(editorNamed(name, true));
        ExternalEditorManager::applyData(editors);
        QCOMPARE(ExternalEditorManager::defaultEditor().name,
                 ExternalEditorManager::allEditorId().constFirst());
    }

    void withoutAMarkedOneTheDefaultIsEmpty()
    {
        const CoreFixture core;
        ExternalEditorManager::registerEditor(editorNamed("a"));
        QCOMPARE(asText(ExternalEditorManager::defaultEditor()), QStringLiteral("||"));
    }

    void appliedDataReplacesEverything()
    {
        const CoreFixture core;
        ExternalEditorManager::registerEditor(editorNamed("old", true));
        ExternalEditorManager::applyData({editorNamed("a"), editorNamed("b")});
        QCOMPARE(sortedTexts(ExternalEditorManager::editors()),
                 texts({"a|/bin/a|%f", "b|/bin/b|%f"}));
    }

    void ofOneNameTheLaterRecordIsApplied()
    {
        const CoreFixture core;
        ExternalEditorManager::applyData(
            {editorNamed("a", true),
             {QStringLiteral("a"), QStringLiteral("/opt/a"), QStringLiteral("%l"), false}});
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"a|/opt/a|%l"}));
    }

    void theSwitchIsKept()
    {
        const CoreFixture core;
        ExternalEditorManager::setUseExtEdtior(true);
        QVERIFY(ExternalEditorManager::isUseExtEditor());
        ExternalEditorManager::setUseExtEdtior(false);
        QVERIFY(!ExternalEditorManager::isUseExtEditor());
    }

    void nothingButSavingTouchesTheSettings()
    {
        const CoreFixture core;
        ExternalEditorManager::registerEditor(editorNamed("a", true));
        ExternalEditorManager::applyData({editorNamed("b"), editorNamed("c")});
        ExternalEditorManager::unregisterEditor(QStringLiteral("c"));
        ExternalEditorManager::setUseExtEdtior(true);
        QCOMPARE(storedKeys(), QStringList());
    }

    // Loading

    void storedEditorsAreLoaded()
    {
        store(0, texts({"vi", "/usr/bin/vi", "+%l %f", "1"}));
        store(1, texts({"joe", "joe", "", "0"}));
        CoreFixture::storeSetting(QStringLiteral("external_editor/use_external_editor"), true);
        const CoreFixture core(CoreFixture::Settings::Keep);
        QCOMPARE(sortedTexts(ExternalEditorManager::editors()),
                 texts({"joe|joe|", "vi|/usr/bin/vi|+%l %f*"}));
        QVERIFY(ExternalEditorManager::isUseExtEditor());
    }

    void loadingEndsAtWhatIsNoEntry_data()
    {
        QTest::addColumn<QVariant>("second");
        QTest::newRow("gap") << QVariant();
        QTest::newRow("empty list") << QVariant(QStringList());
        QTest::newRow("three items") << QVariant(texts({"b", "/bin/b", "%f"}));
        QTest::newRow("empty name") << QVariant(texts({"", "/bin/b", "%f", "0"}));
        QTest::newRow("one text") << QVariant(QStringLiteral("b"));
        QTest::newRow("number") << QVariant(7);
        QTest::newRow("bytes") << QVariant(QByteArray("\x00\xff\x01", 3));
    }

    void loadingEndsAtWhatIsNoEntry()
    {
        QFETCH(QVariant, second);
        store(0, texts({"a", "/bin/a", "%f", "0"}));
        if (second.isValid())
            CoreFixture::storeSetting(QStringLiteral("external_editor/editor1"), second);
        store(2, texts({"c", "/bin/c", "%f", "0"}));
        CoreFixture::storeSetting(QStringLiteral("external_editor/use_external_editor"), true);
        const CoreFixture core(CoreFixture::Settings::Keep);
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"a|/bin/a|%f"}));
        QVERIFY(ExternalEditorManager::isUseExtEditor()); // is read all the same
    }

    void onlyAZeroMeansNotDefault_data()
    {
        QTest::addColumn<QString>("mark");
        QTest::addColumn<bool>("isDefault");
        QTest::newRow("0") << "0" << false;
        QTest::newRow("1") << "1" << true;
        QTest::newRow("true") << "true" << true;
        QTest::newRow("false") << "false" << true;
        QTest::newRow("00") << "00" << true;
        QTest::newRow("blank and 0") << " 0" << true;
        QTest::newRow("empty") << "" << true;
    }

    void onlyAZeroMeansNotDefault()
    {
        QFETCH(QString, mark);
        QFETCH(bool, isDefault);
        store(0, texts({"a", "/bin/a", "%f"}) + QStringList(mark));
        const CoreFixture core(CoreFixture::Settings::Keep);
        QCOMPARE(ExternalEditorManager::editors().size(), 1);
        QCOMPARE(ExternalEditorManager::editors().constFirst().isDefault, isDefault);
    }

    void furtherItemsAreIgnored_data()
    {
        QTest::addColumn<int>("further");
        QTest::newRow("one") << 1;
        QTest::newRow("many") << 50000;
    }

    void furtherItemsAreIgnored()
    {
        QFETCH(int, further);
        QStringList entry = texts({"a", "/bin/a", "%f", "0"});
        for (int i = 0; i < further; ++i)
            entry.append(QStringLiteral("1"));
        store(0, entry);
        const CoreFixture core(CoreFixture::Settings::Keep);
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"a|/bin/a|%f"}));
    }

    void ofOneNameTheLaterEntryIsLoaded()
    {
        store(0, texts({"a", "/bin/first", "%f", "1"}));
        store(1, texts({"b", "/bin/b", "%f", "0"}));
        store(2, texts({"a", "/bin/last", "%l", "0"}));
        const CoreFixture core(CoreFixture::Settings::Keep);
        QCOMPARE(sortedTexts(ExternalEditorManager::editors()),
                 texts({"a|/bin/last|%l", "b|/bin/b|%f"}));
    }

    void theSwitchIsReadAsItIsWritten_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<bool>("on");
        QTest::newRow("true") << QVariant(true) << true;
        QTest::newRow("false") << QVariant(false) << false;
        QTest::newRow("1") << QVariant(1) << true;
        QTest::newRow("0") << QVariant(0) << false;
        QTest::newRow("empty") << QVariant(QString()) << false;
        QTest::newRow("list") << QVariant(texts({"true", "true"})) << false;
        QTest::newRow("rectangle") << QVariant(QRect(1, 2, 3, 4)) << false;
    }

    void theSwitchIsReadAsItIsWritten()
    {
        QFETCH(QVariant, stored);
        QFETCH(bool, on);
        CoreFixture::storeSetting(QStringLiteral("external_editor/use_external_editor"), stored);
        const CoreFixture core(CoreFixture::Settings::Keep);
        QCOMPARE(ExternalEditorManager::isUseExtEditor(), on);
    }

    void aHugeListIsLoadedAndSaved()
    {
        constexpr int count = 10000;
        {
            const CoreFixture core;
            QList<ExternalEditor> editors;
            for (int i = 0; i < count; ++i)
                editors.append({QStringLiteral("editor %1").arg(i), QString(1000, QLatin1Char('p')),
                                QStringLiteral("%f"), i == 77});
            ExternalEditorManager::applyData(editors);
            ExternalEditorManager::saveEditors();
        }
        const CoreFixture core(CoreFixture::Settings::Keep);
        QCOMPARE(ExternalEditorManager::editors().size(), count);
        QCOMPARE(ExternalEditorManager::defaultEditor().name, QStringLiteral("editor 77"));
    }

    // Saving

    void editorsAndTheSwitchAreSaved()
    {
        const CoreFixture core;
        ExternalEditorManager::applyData({editorNamed("a", true)});
        ExternalEditorManager::setUseExtEdtior(true);
        ExternalEditorManager::saveEditors();
        QCOMPARE(storedKeys(), texts({"editor0", "use_external_editor"}));
        QCOMPARE(storedEntry("editor0"), texts({"a", "/bin/a", "%f", "1"}));
        QCOMPARE(Core::IdeCore::userSettings()->value(
                     QStringLiteral("external_editor/use_external_editor")),
                 QVariant(true));
    }

    void theStoreWritesTheFileInItsOwnTime()
    {
        const CoreFixture core;
        Core::IdeCore::userSettings()->sync();
        ExternalEditorManager::applyData({editorNamed("a")});
        ExternalEditorManager::saveEditors();
        QVERIFY(!fileHasEditors());
        Core::IdeCore::userSettings()->sync();
        QVERIFY(fileHasEditors());
    }

    void theMarkOfOthersIsAZero()
    {
        const CoreFixture core;
        ExternalEditorManager::applyData({editorNamed("a")});
        ExternalEditorManager::saveEditors();
        QCOMPARE(storedEntry("editor0"), texts({"a", "/bin/a", "%f", "0"}));
    }

    void savingFollowsTheOrderOfTheRegistry()
    {
        const CoreFixture core;
        ExternalEditorManager::applyData(
            {editorNamed("a"), editorNamed("b"), editorNamed("c"), editorNamed("d")});
        ExternalEditorManager::saveEditors();
        const QStringList names{storedEntry("editor0").value(0), storedEntry("editor1").value(0),
                                storedEntry("editor2").value(0), storedEntry("editor3").value(0)};
        QCOMPARE(names, ExternalEditorManager::allEditorId());
    }

    void whatALongerListLeftIsRemoved()
    {
        const CoreFixture core;
        ExternalEditorManager::applyData({editorNamed("a"), editorNamed("b"), editorNamed("c")});
        ExternalEditorManager::saveEditors();
        Core::IdeCore::userSettings()->setValue(QStringLiteral("external_editor/editor17"), 1);
        ExternalEditorManager::applyData({editorNamed("c")});
        ExternalEditorManager::saveEditors();
        QCOMPARE(storedKeys(), texts({"editor0", "use_external_editor"}));
        QCOMPARE(storedEntry("editor0"), texts({"c", "/bin/c", "%f", "0"}));
    }

    void otherSettingsStay()
    {
        const CoreFixture core;
        Core::IdeCore::userSettings()->setValue(QStringLiteral("editor0"), 1);
        Core::IdeCore::userSettings()->setValue(QStringLiteral("other/editor0"), 2);
        ExternalEditorManager::saveEditors();
        QCOMPARE(Core::IdeCore::userSettings()->value(QStringLiteral("editor0")), QVariant(1));
        QCOMPARE(Core::IdeCore::userSettings()->value(QStringLiteral("other/editor0")),
                 QVariant(2));
        QCOMPARE(Core::IdeCore::userSettings()->group(), QString());
    }

    void anEditorWithoutANameLeavesNoGap()
    {
        const CoreFixture core;
        // So many that it is hardly the last in the order of the registry.
        constexpr int count = 100;
        QList<ExternalEditor> editors{editorNamed("")};
        QStringList names;
        for (int i = 0; i < count; ++i) {
            names.append(QString::number(i));
            editors.append({names.constLast(), QStringLiteral("p"), QString(), false});
        }
        ExternalEditorManager::applyData(editors);
        ExternalEditorManager::saveEditors();
        QStringList stored;
        for (int i = 0; i < count; ++i)
            stored.append(storedEntry(qPrintable(QStringLiteral("editor%1").arg(i))).value(0));
        stored.sort();
        names.sort();
        QCOMPARE(stored, names);
        QCOMPARE(storedKeys().size(), count + 1);
    }

    void whatWasSavedIsLoadedAtTheNextStart_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("program");
        QTest::addColumn<QString>("arguments");
        QTest::newRow("plain") << "vi"
                               << "/usr/bin/vi"
                               << "+%l %f";
        QTest::newRow("empty texts") << "vi"
                                     << ""
                                     << "";
        QTest::newRow("commas, quotes, backslashes") << R"(a, "b" \ 'c')"
                                                     << R"(/opt/my, "ed"\n)"
                                                     << R"("%f",%%f;\x20 %)";
        QTest::newRow("letters of the world") << "编辑器 ñ"
                                              << "/opt/ü"
                                              << "→ %f";
        QTest::newRow("lines") << "two\nlines"
                               << "/tab\there"
                               << "%f\n%l";
    }

    void whatWasSavedIsLoadedAtTheNextStart()
    {
        QFETCH(QString, name);
        QFETCH(QString, program);
        QFETCH(QString, arguments);
        const ExternalEditor editor{name, program, arguments, true};
        {
            const CoreFixture core;
            ExternalEditorManager::registerEditor(editor);
            ExternalEditorManager::setUseExtEdtior(true);
            ExternalEditorManager::saveEditors();
        }
        const CoreFixture core(CoreFixture::Settings::Keep);
        QCOMPARE(asTexts(ExternalEditorManager::editors()), QStringList(asText(editor)));
        QVERIFY(ExternalEditorManager::isUseExtEditor());
    }

    void everyManagerReadsTheSettingsAnew()
    {
        const CoreFixture core;
        ExternalEditorManager::applyData({editorNamed("saved")});
        ExternalEditorManager::saveEditors();
        ExternalEditorManager::applyData({editorNamed("lost")});

        const ExternalEditorManager second;

        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"saved|/bin/saved|%f"}));
    }
};

QTEST_MAIN(TestExternalEditorRegistry)
#include "tst_externaleditorregistry.moc"
