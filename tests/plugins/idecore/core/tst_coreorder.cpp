// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "creationlog.h"
#include "optionpages.h"
#include "support/testhome.h"

#include <appstyle/appstylemanager.h>
#include <assistant/assistantproxy.h>
#include <extsys/pluginmanager.h>
#include <idecore/core/coreplugin.h>
#include <idecore/core/idecore.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/mimedatabase/mimetype.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QFile>
#include <QMenu>
#include <QPointer>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using namespace Core;

namespace {

/// The services are told by their class, the stores by their name, what they put
/// into the menus by its text. Empty for everything else.
QString nameOf(const QObject *object)
{
    static const QStringList services = {QStringLiteral("Core::ActionManager"),
                                         QStringLiteral("Core::ViewManager"),
                                         QStringLiteral("Core::IdeMainWindow"),
                                         QStringLiteral("Core::EditorManager"),
                                         QStringLiteral("Core::ProjectManager"),
                                         QStringLiteral("Core::ExternalEditorManager"),
                                         QStringLiteral("Core::private_impl::GeneralOptionPage"),
                                         QStringLiteral("Core::ExternalEditorOptionPage")};
    const QString className = QString::fromLatin1(object->metaObject()->className());
    if (services.contains(className))
        return className;
    if (const auto *settings = qobject_cast<const QSettings *>(object))
        return settings->applicationName();
    if (const auto *menu = qobject_cast<const QMenu *>(object))
        return menu->title().startsWith(QLatin1String("Recent ")) ? menu->title() : QString();
    if (const auto *action = qobject_cast<const QAction *>(object)) {
        const QString text = action->text();
        return text == QLatin1String("About...") || text == QLatin1String("Reset Layout")
                   ? text
                   : QString();
    }
    return {};
}

QString readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class TestCoreOrder final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        removeFromTestHome(QStringLiteral(".config/KelmoWare"));
        m_core = std::make_unique<IdeCore>();
    }

    void cleanup() { m_core.reset(); }

    void theServicesAreMadeAndInitialisedInTheirOrder()
    {
        const CreationLog log;
        m_core->initialize();
        QStringList names;
        for (const QObject *object : log.objects()) {
            const QString name = nameOf(object);
            if (!name.isEmpty())
                names.append(name);
        }
        m_core->shutdown();
        QCOMPARE(names,
                 QStringList(
                     {QStringLiteral("IDE"), QStringLiteral("IDE_GUI"),
                      QStringLiteral("Core::ActionManager"), QStringLiteral("Core::ViewManager"),
                      QStringLiteral("Core::IdeMainWindow"), QStringLiteral("Core::EditorManager"),
                      QStringLiteral("Core::ProjectManager"),
                      QStringLiteral("Core::ExternalEditorManager"),
                      // the main window's interface, then the view manager's
                      QStringLiteral("About..."), QStringLiteral("Reset Layout"),
                      // the editor manager's, then the project manager's
                      QStringLiteral("Recent Files"), QStringLiteral("Recent Projects"),
                      QStringLiteral("Core::private_impl::GeneralOptionPage"),
                      QStringLiteral("Core::ExternalEditorOptionPage")}));
    }

    void thePagesComeWhenTheFileTypesAreRead()
    {
        bool known = false;
        const QMetaObject::Connection connection = connect(
            ExtSys::PluginManager::instance(), &ExtSys::PluginManager::objectAdded, this, [&known] {
                known = !IdeCore::mimeDatabase()
                             ->findByType(QStringLiteral("text/verilog"))
                             .type()
                             .isEmpty();
            });
        m_core->initialize();
        disconnect(connection);
        m_core->shutdown();
        QVERIFY(known);
    }

    void theStyleIsAppliedLast()
    {
        QSettings settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("KelmoWare"),
                           QStringLiteral("IDE"));
        settings.setValue(QStringLiteral("Theme"), QStringLiteral("Dark"));
        settings.sync();
        auto *style = APPSTYLE::AppStyleManager::instance();
        int pages = 0;
        const QMetaObject::Connection connection =
            connect(style, &APPSTYLE::AppStyleManager::themeChanged, this,
                    [&pages] { pages = optionPages().size(); });
        m_core->initialize();
        disconnect(connection);
        m_core->shutdown();
        QCOMPARE(style->currentTheme(), QStringLiteral("Dark"));
        QCOMPARE(pages, 2);
        style->setAppStyle(QStringLiteral("Classic"));
    }

    void theServicesAreDeletedInTheirOrder()
    {
        QStringList gone;
        {
            const CreationLog log;
            m_core->initialize();
            for (QObject *object : log.objects()) {
                const QString name = nameOf(object);
                if (name.isEmpty() || qobject_cast<QMenu *>(object)
                    || qobject_cast<QAction *>(object))
                    continue;
                connect(object, &QObject::destroyed, this, [&gone, name] { gone.append(name); });
            }
        }
        m_core->shutdown();
        QCOMPARE(gone,
                 QStringList(
                     {QStringLiteral("Core::private_impl::GeneralOptionPage"),
                      QStringLiteral("Core::ExternalEditorOptionPage"),
                      QStringLiteral("Core::ProjectManager"), QStringLiteral("Core::EditorManager"),
                      QStringLiteral("Core::IdeMainWindow"), QStringLiteral("Core::ViewManager"),
                      QStringLiteral("Core::ActionManager"), QStringLiteral("IDE"),
                      QStringLiteral("IDE_GUI"), QStringLiteral("Core::ExternalEditorManager")}));
    }

    void theOwnPagesLeaveThePoolInOrderWhileTheManagersLive()
    {
        m_core->initialize();
        const QObjectList pages = optionPages();
        QObjectList removed;
        bool managersLived = true;
        atEveryRemoval([&](QObject *object) {
            removed.append(object);
            managersLived = managersLived && ProjectManager::instance();
        });
        m_core->shutdown();
        QCOMPARE(pages.size(), 2);
        QCOMPARE(removed, pages);
        QVERIFY(managersLived);
        QVERIFY(optionPages().isEmpty());
    }

    void eachPageIsDeletedAsSoonAsItHasLeft()
    {
        m_core->initialize();
        const QObjectList pages = optionPages();
        bool firstIsGone = false;
        connect(pages.at(0), &QObject::destroyed, this, [&firstIsGone] { firstIsGone = true; });
        bool firstWasGone = false;
        atEveryRemoval([&](QObject *) { firstWasGone = firstIsGone; });
        m_core->shutdown();
        QVERIFY(firstWasGone);
    }

    void bothStoresAreOnDiskBeforeThePagesLeave()
    {
        m_core->initialize();
        IdeCore::userSettings()->setValue(QStringLiteral("probe"), 11);
        IdeCore::userSettingsGUI()->setValue(QStringLiteral("probe"), 12);
        const QString general = IdeCore::userSettings()->fileName();
        const QString gui = IdeCore::userSettingsGUI()->fileName();
        QStringList stored;
        atEveryRemoval([&](QObject *) { stored = QStringList{readAll(general), readAll(gui)}; });
        m_core->shutdown();
        QCOMPARE(stored.size(), 2);
        QVERIFY2(stored.at(0).contains(QLatin1String("probe=11")), qPrintable(stored.at(0)));
        QVERIFY2(stored.at(1).contains(QLatin1String("probe=12")), qPrintable(stored.at(1)));
    }

    void theHelpViewerIsStoppedBeforeThePagesLeave()
    {
        const QTemporaryDir dir;
        QFile viewer(dir.filePath(QStringLiteral("viewer")));
        QVERIFY(viewer.open(QIODevice::WriteOnly));
        viewer.write("#!/bin/sh\nexec cat >/dev/null\n");
        viewer.close();
        QVERIFY(viewer.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
        QFile collection(dir.filePath(QStringLiteral("help.qhc")));
        QVERIFY(collection.open(QIODevice::WriteOnly));
        auto *assistant = ASSISTANT::AssistantProxy::instance();
        assistant->setViewerProgram(viewer.fileName());
        assistant->setCollectionFile(collection.fileName());
        m_core->initialize();
        assistant->startAssistant();
        const bool ran = assistant->isRunning();
        bool runsStill = true;
        atEveryRemoval([&](QObject *) { runsStill = assistant->isRunning(); });
        m_core->shutdown();
        assistant->setViewerProgram(QString());
        assistant->setCollectionFile(QString());
        QVERIFY(ran);
        QVERIFY(!runsStill);
    }

    void thePluginDeletesTheServicesWithItself()
    {
        m_core.reset();
        QPointer<QObject> core;
        auto plugin = std::make_unique<CorePlugin>();
        {
            const CreationLog log;
            plugin->initialize();
            for (QObject *object : log.objects()) {
                if (qobject_cast<IdeCore *>(object))
                    core = object;
            }
        }
        plugin->shutDown();
        const bool stood = core;
        plugin.reset();
        QVERIFY(stood);
        QVERIFY(!core);
    }

private:
    /// Calls @p action while the main window lives.
    template<class Action>
    static void atEveryRemoval(Action action)
    {
        connect(ExtSys::PluginManager::instance(), &ExtSys::PluginManager::aboutToRemoveObject,
                ViewManager::mainWindow(), action);
    }

    std::unique_ptr<IdeCore> m_core;
};

QTEST_MAIN(TestCoreOrder)
#include "tst_coreorder.moc"
