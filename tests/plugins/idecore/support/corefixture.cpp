// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"

#include <extsys/pluginmanager.h>
#include <idecore/core/idecore.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QMenu>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace {

QSettings settingsStore(const QString &store)
{
    static const QTemporaryDir folder;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("KelmoWare"),
                     store);
}

} // namespace

CoreFixture::CoreFixture(Settings settings)
{
    settingsFile(); // sets the folder before the core makes its stores
    if (settings == Settings::Drop)
        dropSettings();
    m_core = std::make_unique<Core::IdeCore>();
    m_core->initialize();
}

CoreFixture::~CoreFixture()
{
    shutdown();
}

void CoreFixture::show()
{
    QWidget *window = Core::ViewManager::mainWindow();
    window->resize(1000, 700);
    window->show();
    if (!QTest::qWaitForWindowExposed(window))
        QTest::qFail("the main window was not exposed", __FILE__, __LINE__);
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window))
        QTest::qFail("the main window did not become active", __FILE__, __LINE__);
}

void CoreFixture::shutdown()
{
    if (!m_core)
        return;
    m_core->shutdown();
    m_core.reset();
}

void CoreFixture::dropSettings()
{
    for (const QString &store : {QStringLiteral("IDE"), QStringLiteral("IDE_GUI")})
        QFile::remove(settingsFile(store));
}

QVariant CoreFixture::storedSetting(const QString &key, const QString &store)
{
    return settingsStore(store).value(key);
}

void CoreFixture::storeSetting(const QString &key, const QVariant &value, const QString &store)
{
    settingsStore(store).setValue(key, value);
}

QString CoreFixture::settingsFile(const QString &store)
{
    return settingsStore(store).fileName();
}

InPool::InPool(QObject *object)
    : m_object(object)
{
    ExtSys::PluginManager::instance()->addObject(object);
}

InPool::~InPool()
{
    ExtSys::PluginManager::instance()->removeObject(m_object);
}

QStringList texts(std::initializer_list<const char *> list)
{
    QStringList result;
    for (const char *text : list)
        result.append(QString::fromUtf8(text));
    return result;
}

QStringList menuEntries(const QMenu *menu)
{
    QStringList entries;
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions) {
        if (action->isSeparator())
            entries.append(QStringLiteral("--"));
        else if (action->menu())
            entries.append(QStringLiteral("> ") + action->text());
        else if (action->isCheckable())
            entries.append((action->isChecked() ? QStringLiteral("[x] ") : QStringLiteral("[ ] "))
                           + action->text());
        else
            entries.append(action->text());
    }
    return entries;
}
