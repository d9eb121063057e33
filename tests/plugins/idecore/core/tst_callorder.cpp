// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <appstyle/appstylemanager.h>
#include <assistant/assistantproxy.h>
#include <extsys/pluginmanager.h>
#include <idecore/core/idecore.h>
#include <idecore/editors/editormanager.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QSettings>
#include <QTest>

using namespace Core;

namespace {

QStringList s_calls;

void called(const char *what)
{
    s_calls.append(QString::fromLatin1(what));
}

} // namespace

// Stand in for what the core calls when it starts and ends; each but says that it
// was called.

void ViewManager::initialize()
{
    called("views initialize");
}

void ViewManager::shutdown()
{
    called("views shutdown");
}

void EditorManager::initialize()
{
    called("editors initialize");
}

void ProjectManager::initialize()
{
    called("projects initialize");
}

void APPSTYLE::AppStyleManager::updateStyle()
{
    called("style update");
}

void ASSISTANT::AssistantProxy::stopAssistant()
{
    called("assistant stop");
}

void QSettings::sync()
{
    s_calls.append(QStringLiteral("sync ") + applicationName());
}

/// The order in which the core calls its services.
class TestCallOrder final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        auto *pool = ExtSys::PluginManager::instance();
        connect(pool, &ExtSys::PluginManager::objectAdded, this, [] { called("page comes"); });
        connect(pool, &ExtSys::PluginManager::aboutToRemoveObject, this,
                [] { called("page goes"); });
        m_core = std::make_unique<IdeCore>();
        s_calls.clear();
    }

    void cleanup()
    {
        m_core.reset();
        ExtSys::PluginManager::instance()->disconnect(this);
    }

    void theServicesAreInitialisedInOrder()
    {
        m_core->initialize();
        const QStringList calls = s_calls;
        m_core->shutdown();
        QCOMPARE(
            calls,
            QStringList({QStringLiteral("views initialize"), QStringLiteral("editors initialize"),
                         QStringLiteral("projects initialize"), QStringLiteral("page comes"),
                         QStringLiteral("page comes"), QStringLiteral("style update")}));
    }

    void theServicesAreShutDownInOrder()
    {
        m_core->initialize();
        s_calls.clear();
        m_core->shutdown();
        QCOMPARE(s_calls,
                 QStringList({QStringLiteral("assistant stop"), QStringLiteral("views shutdown"),
                              QStringLiteral("sync IDE"), QStringLiteral("sync IDE_GUI"),
                              QStringLiteral("page goes"), QStringLiteral("page goes")}));
    }

private:
    std::unique_ptr<IdeCore> m_core;
};

QTEST_MAIN(TestCallOrder)
#include "tst_callorder.moc"
