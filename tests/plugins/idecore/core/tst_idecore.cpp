// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "optionpages.h"
#include "support/testhome.h"

#include <devicedb/devicedb.h>
#include <extsys/iplugin.h>
#include <extsys/pluginmanager.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/core/idecore.h>
#include <idecore/editors/editormanager.h>
#include <idecore/externaleditors/externaleditoroptionpage_p.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/mimedatabase/mimetype.h>
#include <idecore/options/generaloptionpage_p.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QPluginLoader>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using namespace Core;

namespace {

/// The core services for the length of a test.
class Services final
{
public:
    Services() { core.initialize(); }
    ~Services() { core.shutdown(); }
    Q_DISABLE_COPY(Services)

    IdeCore core;
};

/// A page that another plugin has put into the pool.
class ForeignPage final : public IOptionsPage
{
public:
    QWidget *widget() override { return nullptr; }
    void apply() override {}
    void finish() override {}
};

} // namespace

class TestIdeCore final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { removeFromTestHome(QStringLiteral(".config/KelmoWare")); }

    void thePluginNamesItsInterfaceAndCarriesNoFurtherData()
    {
        const QPluginLoader loader(QStringLiteral(CORE_LIBRARY));
        const QJsonObject data = loader.metaData();
        QCOMPARE(data.value(QLatin1String("IID")).toString(),
                 QStringLiteral("Core.CorePlugin/1.0"));
        QCOMPARE(data.value(QLatin1String("className")).toString(), QStringLiteral("CorePlugin"));
        QVERIFY(data.value(QLatin1String("MetaData")).toObject().isEmpty());
    }

    void thePluginObjectIsOneAndAnswersToBothNames()
    {
        QPluginLoader loader(QStringLiteral(CORE_LIBRARY));
        QObject *plugin = loader.instance();
        QVERIFY2(plugin, qPrintable(loader.errorString()));
        QPluginLoader again(QStringLiteral(CORE_LIBRARY));
        QCOMPARE(again.instance(), plugin);
        QVERIFY(plugin->qt_metacast("Core::CorePlugin"));
        QVERIFY(plugin->qt_metacast("com.kelmoware.plugins.IPlugin/1.0"));
        QVERIFY(qobject_cast<ExtSys::IPlugin *>(plugin));
        QVERIFY(!plugin->qt_metacast("com.kelmoware.plugins.IPlugin/2.0"));
    }

    void thePluginRunsTheServicesThroughTheirLife()
    {
        QPluginLoader loader(QStringLiteral(CORE_LIBRARY));
        auto *plugin = qobject_cast<ExtSys::IPlugin *>(loader.instance());
        QVERIFY(plugin);
        QVERIFY(plugin->initialize());
        QVERIFY(ViewManager::mainWindow());
        QVERIFY(!ViewManager::mainWindow()->isVisible());
        plugin->extensionsInitialized();
        QTRY_VERIFY(ViewManager::mainWindow()->isVisible());
        plugin->shutDown();
        QVERIFY(!ViewManager::instance());
        delete plugin;
        // Asked again, the library makes a new one.
        QVERIFY(QPluginLoader(QStringLiteral(CORE_LIBRARY)).instance());
    }

    void bothStoresAreIniFilesOfTheUser()
    {
        const Services services;
        const QString dir = QDir::homePath() + QStringLiteral("/.config/KelmoWare/");
        QCOMPARE(IdeCore::userSettings()->fileName(), dir + QStringLiteral("IDE.ini"));
        QCOMPARE(IdeCore::userSettingsGUI()->fileName(), dir + QStringLiteral("IDE_GUI.ini"));
        for (const QSettings *settings : {IdeCore::userSettings(), IdeCore::userSettingsGUI()}) {
            QCOMPARE(settings->format(), QSettings::IniFormat);
            QCOMPARE(settings->scope(), QSettings::UserScope);
            QCOMPARE(settings->organizationName(), QStringLiteral("KelmoWare"));
            QVERIFY(!settings->parent());
        }
    }

    void theConfigurationFolderIsThatOfTheGeneralSettings()
    {
        const Services services;
        QCOMPARE(IdeCore::userConfigDir(), QDir::homePath() + QStringLiteral("/.config/KelmoWare"));
    }

    void theDataFolderLiesBesideThatOfTheProgram()
    {
        const Services services;
        const QString expected =
            QFileInfo(QCoreApplication::applicationDirPath() + QStringLiteral("/../data"))
                .canonicalFilePath();
        QVERIFY(!expected.isEmpty());
        QCOMPARE(IdeCore::appDataDir(), expected);
    }

    void withoutADataFolderItsPathIsEmptyAndTheStartCompletes()
    {
        const QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("bin")));
        const QString program = dir.filePath(QStringLiteral("bin/probe"));
        QVERIFY(QFile::copy(QStringLiteral(CORE_PROBE), program));
        QProcess process;
        process.start(program, QStringList());
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()),
                 QStringLiteral("data:\ndevices:1\ndone\n"));
    }

    void theDevicesAreThoseOfTheTableInTheDataFolder()
    {
        const Services services;
        const DEV::DeviceDb table(IdeCore::appDataDir()
                                  + QStringLiteral("/device/device_info.csv"));
        QVERIFY(!table.isEmpty());
        QCOMPARE(IdeCore::deviceDataBase()->rows().size(), table.rows().size());
    }

    void beforeTheStartThereAreNoServices()
    {
        const IdeCore core;
        QVERIFY(!IdeCore::userSettings());
        QVERIFY(!IdeCore::userSettingsGUI());
        QVERIFY(!IdeCore::mimeDatabase());
        QVERIFY(!IdeCore::deviceDataBase());
    }

    void theShutDownKeepsWhereTheServicesWere()
    {
        IdeCore core;
        core.initialize();
        const void *settings = IdeCore::userSettings();
        const void *types = IdeCore::mimeDatabase();
        core.shutdown();
        QCOMPARE(static_cast<const void *>(IdeCore::userSettings()), settings);
        QCOMPARE(static_cast<const void *>(IdeCore::mimeDatabase()), types);
    }

    void thePageOfAnotherPluginIsLeftAlone()
    {
        const auto page = std::make_unique<ForeignPage>();
        auto *pool = ExtSys::PluginManager::instance();
        pool->addObject(page.get());
        bool destroyed = false;
        connect(page.get(), &QObject::destroyed, this, [&destroyed] { destroyed = true; });
        {
            const Services services;
        }
        QVERIFY(!destroyed);
        QCOMPARE(optionPages(), QObjectList{page.get()});
        pool->removeObject(page.get());
    }

    void everyServiceStandsAfterTheStart()
    {
        const Services services;
        QVERIFY(IdeCore::mimeDatabase());
        QVERIFY(IdeCore::deviceDataBase());
        QVERIFY(ActionManager::instance());
        QVERIFY(ViewManager::instance());
        QVERIFY(EditorManager::instance());
        QVERIFY(ProjectManager::instance());
    }

    void theMainWindowIsBuiltAndHiddenAfterTheStart()
    {
        const Services services;
        QVERIFY(!ViewManager::mainWindow()->isVisible());
        QVERIFY(ActionManager::menu(QStringLiteral("Core.Menu.File")));
    }

    void theBuiltInFileTypesAreKnownAfterTheStart()
    {
        const Services services;
        QCOMPARE(IdeCore::mimeDatabase()->findByType(QStringLiteral("text/verilog")).type(),
                 QStringLiteral("text/verilog"));
    }

    void theOwnOptionPagesJoinThePoolInOrder()
    {
        QVERIFY(optionPages().isEmpty());
        const Services services;
        const QObjectList pages = optionPages();
        QCOMPARE(pages.size(), 2);
        QVERIFY(qobject_cast<private_impl::GeneralOptionPage *>(pages.at(0)));
        QVERIFY(qobject_cast<ExternalEditorOptionPage *>(pages.at(1)));
    }

    void settingsThatAreNoSettingsDoNotStopTheStart_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("binary") << QByteArray("\0\1\2\377[[[=\n%U", 11);
        QTest::newRow("wrong types")
            << QByteArray("Theme=@Variant(\\0\\0)\n[Core]\nToolbarIconSize=many\n"
                          "RecentFiles=@ByteArray(x)\nMainwindowGeometry=5\nVersion=@Invalid()\n");
    }

    void settingsThatAreNoSettingsDoNotStopTheStart()
    {
        QFETCH(QByteArray, content);
        for (const QString &path : settingsFiles()) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(content);
        }
        Services services;
        services.core.extensionsInitialized();
        QTRY_VERIFY(ViewManager::mainWindow()->isVisible());
        QVERIFY(ViewManager::mainWindow()->isMaximized());
    }

    void settingsThatCannotBeReadAreEmpty()
    {
        for (const QString &path : settingsFiles())
            QVERIFY(QDir().mkdir(path));
        const Services services;
        QVERIFY(IdeCore::userSettings()->allKeys().isEmpty());
        QVERIFY(IdeCore::userSettingsGUI()->allKeys().isEmpty());
    }

private:
    /// Where the core will look for its stores; the folder exists.
    static QStringList settingsFiles()
    {
        const QString dir = QDir::homePath() + QStringLiteral("/.config/KelmoWare");
        QDir().mkpath(dir);
        return {dir + QStringLiteral("/IDE.ini"), dir + QStringLiteral("/IDE_GUI.ini")};
    }
};

QTEST_MAIN(TestIdeCore)
#include "tst_idecore.moc"
