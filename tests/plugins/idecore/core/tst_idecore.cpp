// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <extsys/iplugin.h>
#include <extsys/pluginmanager.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/core/idecore.h>
#include <idecore/editors/editormanager.h>
#include <idecore/externaleditors/externaleditoroptionpage.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/mimedatabase/mimetype.h>
#include <idecore/options/generaloptionpage.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonObject>
#include <QPluginLoader>
#include <QProcess>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Core;

namespace {

QObjectList optionPages()
{
    QObjectList pages;
    const QList<IOptionsPage *> found =
        ExtSys::PluginManager::instance()->getObjects<IOptionsPage>();
    for (IOptionsPage *page : found)
        pages.append(page);
    return pages;
}

QString readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The core services for the length of a test.
class Services final
{
public:
    Services() { core.initialize(); }
    ~Services()
    {
        if (!stopped)
            core.shutdown();
    }
    Q_DISABLE_COPY(Services)

    void stop()
    {
        core.shutdown();
        stopped = true;
    }

    IdeCore core;

private:
    bool stopped = false;
};

} // namespace

class TestIdeCore final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        QDir(QDir::homePath() + QStringLiteral("/.config/KelmoWare")).removeRecursively();
    }

    void thePluginNamesItsInterfaceAndCarriesNoFurtherData()
    {
        const QPluginLoader loader(QStringLiteral(CORE_LIBRARY));
        const QJsonObject data = loader.metaData();
        QCOMPARE(data.value(QLatin1String("IID")).toString(), QStringLiteral("Core.CorePlugin/1.0"));
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

    void theMainWindowIsShownASecondAfterThePluginsAreReady()
    {
        Services services;
        QElapsedTimer clock;
        clock.start();
        services.core.extensionsInitialized();
        QVERIFY(!ViewManager::mainWindow()->isVisible());
        QTRY_VERIFY(ViewManager::mainWindow()->isVisible());
        // A coarse timer may be early by a twentieth.
        QVERIFY2(clock.elapsed() >= 950, qPrintable(QString::number(clock.elapsed())));
    }

    void theOwnOptionPagesJoinThePoolInOrder()
    {
        QVERIFY(optionPages().isEmpty());
        const Services services;
        const QObjectList pages = optionPages();
        QCOMPARE(pages.size(), 2);
        QVERIFY(qobject_cast<GeneralOptionPage *>(pages.at(0)));
        QVERIFY(qobject_cast<ExternalEditorOptionPage *>(pages.at(1)));
    }

    void theOwnOptionPagesLeaveThePoolInOrderWhileTheManagersLive()
    {
        Services services;
        const QObjectList pages = optionPages();
        QObjectList removed;
        bool managersLived = true;
        connect(ExtSys::PluginManager::instance(), &ExtSys::PluginManager::aboutToRemoveObject,
                ViewManager::mainWindow(), [&](QObject *object) {
                    removed.append(object);
                    managersLived = managersLived && ProjectManager::instance();
                });
        services.stop();
        QCOMPARE(removed, pages);
        QVERIFY(managersLived);
        QVERIFY(optionPages().isEmpty());
    }

    void theServicesAreDeletedInTheirOrder()
    {
        Services services;
        QStringList gone;
        const auto watch = [&gone](QObject *object, const char *name) {
            connect(object, &QObject::destroyed, object,
                    [&gone, name] { gone.append(QString::fromLatin1(name)); });
        };
        watch(optionPages().at(0), "general page");
        watch(optionPages().at(1), "external editors page");
        watch(IdeCore::userSettings(), "settings");
        watch(IdeCore::userSettingsGUI(), "window settings");
        watch(ActionManager::instance(), "actions");
        watch(ViewManager::instance(), "views");
        watch(ViewManager::mainWindow(), "main window");
        watch(EditorManager::instance(), "editors");
        watch(ProjectManager::instance(), "projects");
        services.stop();
        QCOMPARE(gone,
                 QStringList({QStringLiteral("general page"), QStringLiteral("external editors page"),
                              QStringLiteral("projects"), QStringLiteral("editors"),
                              QStringLiteral("main window"), QStringLiteral("views"),
                              QStringLiteral("actions"), QStringLiteral("settings"),
                              QStringLiteral("window settings")}));
    }

    void bothStoresAreOnDiskBeforeThePagesLeave()
    {
        Services services;
        IdeCore::userSettings()->setValue(QStringLiteral("probe"), 11);
        IdeCore::userSettingsGUI()->setValue(QStringLiteral("probe"), 12);
        const QString general = IdeCore::userSettings()->fileName();
        const QString gui = IdeCore::userSettingsGUI()->fileName();
        QString generalThen;
        QString guiThen;
        connect(ExtSys::PluginManager::instance(), &ExtSys::PluginManager::aboutToRemoveObject,
                ViewManager::mainWindow(), [&] {
                    generalThen = readAll(general);
                    guiThen = readAll(gui);
                });
        services.stop();
        QVERIFY2(generalThen.contains(QLatin1String("probe=11")), qPrintable(generalThen));
        QVERIFY2(guiThen.contains(QLatin1String("probe=12")), qPrintable(guiThen));
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
        const QString dir = QDir::homePath() + QStringLiteral("/.config/KelmoWare");
        QVERIFY(QDir().mkpath(dir));
        for (const QString &name : {QStringLiteral("/IDE.ini"), QStringLiteral("/IDE_GUI.ini")}) {
            QFile file(dir + name);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(content);
        }
        Services services;
        services.core.extensionsInitialized();
        QTRY_VERIFY(ViewManager::mainWindow()->isVisible());
        QVERIFY(ViewManager::mainWindow()->isMaximized());
    }
};

QTEST_MAIN(TestIdeCore)
#include "tst_idecore.moc"
