// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "creationlog.h"
#include "heaplog.h"
#include "support/testhome.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/core/idecore.h>
#include <idecore/views/viewmanager.h>

#include <QMenu>
#include <QSettings>
#include <QTest>

using namespace Core;

/// The places of the two databases, which are no objects of Qt, in the order of
/// the services.
class TestDatabaseOrder final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        removeFromTestHome(QStringLiteral(".config/KelmoWare"));
        m_core = std::make_unique<IdeCore>();
    }

    void cleanup() { m_core.reset(); }

    void theFileTypesAreMadeBetweenTheSettingsAndTheCommands()
    {
        const HeapLog heap;
        m_core->initialize();
        const int settings = HeapLog::made(IdeCore::userSettingsGUI());
        const int types = HeapLog::made(IdeCore::mimeDatabase());
        const int commands = HeapLog::made(ActionManager::instance());
        m_core->shutdown();
        QVERIFY(settings >= 0);
        QVERIFY(types > settings);
        QVERIFY(commands > types);
    }

    void theDevicesAreMadeBetweenTheManagersAndTheMenus()
    {
        const HeapLog heap;
        const void *lastManager = initialize();
        const int manager = HeapLog::made(lastManager);
        const int devices = HeapLog::made(IdeCore::deviceDataBase());
        const int menu = HeapLog::made(ActionManager::menu(QStringLiteral("Core.Menu.File")));
        m_core->shutdown();
        QVERIFY(manager >= 0);
        QVERIFY(devices > manager);
        QVERIFY(menu > devices);
    }

    void theFileTypesAreDeletedBetweenTheCommandsAndTheSettings()
    {
        m_core->initialize();
        const void *const commands = ActionManager::instance();
        const void *const types = IdeCore::mimeDatabase();
        const void *const settings = IdeCore::userSettings();
        const HeapLog heap;
        m_core->shutdown();
        QVERIFY(HeapLog::deleted(commands) >= 0);
        QVERIFY(HeapLog::deleted(types) > HeapLog::deleted(commands));
        QVERIFY(HeapLog::deleted(settings) > HeapLog::deleted(types));
    }

    void theDevicesAreDeletedBetweenTheSettingsAndTheExternalEditors()
    {
        const void *const externalEditors = initialize();
        const void *const settings = IdeCore::userSettingsGUI();
        const void *const devices = IdeCore::deviceDataBase();
        const HeapLog heap;
        m_core->shutdown();
        QVERIFY(HeapLog::deleted(settings) >= 0);
        QVERIFY(HeapLog::deleted(devices) > HeapLog::deleted(settings));
        QVERIFY(HeapLog::deleted(externalEditors) > HeapLog::deleted(devices));
    }

private:
    /// Returns the manager of the external editors, which is made last of the
    /// managers and cannot be asked for.
    const void *initialize()
    {
        const CreationLog log;
        m_core->initialize();
        for (const QObject *object : log.objects()) {
            if (qstrcmp(object->metaObject()->className(), "Core::ExternalEditorManager") == 0)
                return object;
        }
        return nullptr;
    }

    std::unique_ptr<IdeCore> m_core;
};

QTEST_MAIN(TestDatabaseOrder)
#include "tst_databaseorder.moc"
