// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editortexts.h"

#include "support/corefixture.h"
#include "support/messagerecorder.h"

#include <idecore/externaleditors/externaleditormanager.h>

#include <QTest>

using Core::ExternalEditorManager;

/// A program of its own, because the first call of instance() comes but once.
class TestExternalEditorInstance final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // The first.
    void theFirstCallReadsTheSettingsAnew()
    {
        const CoreFixture core;
        ExternalEditorManager::applyData({editorNamed("saved")});
        ExternalEditorManager::saveEditors();
        ExternalEditorManager::applyData({editorNamed("lost")});

        const ExternalEditorManager *manager = ExternalEditorManager::instance();

        QVERIFY(manager);
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"saved|/bin/saved|%f"}));
        ExternalEditorManager::applyData({editorNamed("kept")});
        QCOMPARE(ExternalEditorManager::instance(), manager);
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"kept|/bin/kept|%f"}));
    }

    void withTheCoreTheRegistryIsGone()
    {
        CoreFixture core;
        ExternalEditorManager::instance();
        ExternalEditorManager::registerEditor(editorNamed("a"));
        core.shutdown();

        const MessageRecorder log;
        QVERIFY(ExternalEditorManager::editors().isEmpty());
        QVERIFY(log.isOneAssertion(QStringLiteral("d")));
    }

    void everyCallWithoutARegistryIsHarmless()
    {
        const MessageRecorder log;
        QVERIFY(!ExternalEditorManager::registerEditor(editorNamed("a")));
        ExternalEditorManager::unregisterEditor(QStringLiteral("a"));
        ExternalEditorManager::applyData({});
        ExternalEditorManager::setUseExtEdtior(true);
        ExternalEditorManager::saveEditors();
        QVERIFY(!ExternalEditorManager::isUseExtEditor());
        QVERIFY(ExternalEditorManager::allEditorId().isEmpty());
        QVERIFY(ExternalEditorManager::defaultEditor().name.isEmpty());
        QVERIFY(!ExternalEditorManager::openEditor(QStringLiteral("a"), QStringLiteral("/f")));
        QCOMPARE(log.lines(QtCriticalMsg).size(), 9);
    }

    void theNextCoreHasARegistryAgain()
    {
        {
            const CoreFixture core;
            ExternalEditorManager::instance();
        }
        const CoreFixture core;
        QVERIFY(ExternalEditorManager::registerEditor(editorNamed("a")));
        ExternalEditorManager::instance(); // made long ago
        QCOMPARE(asTexts(ExternalEditorManager::editors()), texts({"a|/bin/a|%f"}));
    }
};

QTEST_MAIN(TestExternalEditorInstance)
#include "tst_externaleditorinstance.moc"
