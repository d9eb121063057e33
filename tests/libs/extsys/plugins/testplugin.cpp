// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <extsys/iplugin.h>
#include <extsys/pluginmanager.h>

#include <QCoreApplication>
#include <QVariant>

#include <stdexcept>

#ifdef TESTPLUGIN_USES_SUPPLIER
int supplied();
#endif

namespace {

enum class Behaviour {
    Good,
    KeepsObjects,
    ReturnsFalse,
    Throws,
    ThrowsNumber,
    ThrowsInConstructor,
    ThrowsInExtensionsInitialized,
    ThrowsInShutDown,
    DestroysItself,
    UsesSupplier
};

constexpr Behaviour behaviour = Behaviour::TESTPLUGIN_BEHAVIOUR;

/// What was called, in order, kept where the test finds it.
void record(const char *call)
{
    const char *const journal = "journal";
    QStringList calls = QCoreApplication::instance()->property(journal).toStringList();
    calls.append(QStringLiteral(TESTPLUGIN_NAME ".%1").arg(QLatin1String(call)));
    QCoreApplication::instance()->setProperty(journal, calls);
}

} // namespace

/// Records its life and misbehaves in one way at most.
class TestPlugin final : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID TESTPLUGIN_IID FILE "plugin.json")
public:
    TestPlugin()
    {
        record("constructed");
        if (behaviour == Behaviour::ThrowsInConstructor)
            throw std::runtime_error("thrown in constructor");
    }
    ~TestPlugin() override { record("destroyed"); }

    bool initialize() override
    {
        record("initialize");
        m_extension.setObjectName(QStringLiteral(TESTPLUGIN_NAME ".extension"));
        ExtSys::PluginManager::instance()->addObject(&m_extension);
        if (behaviour == Behaviour::Throws)
            throw std::runtime_error("thrown in initialize");
        if (behaviour == Behaviour::ThrowsNumber)
            throw 1;
        if (behaviour == Behaviour::DestroysItself) {
            ExtSys::PluginManager::instance()->removeObject(&m_extension);
            delete this;
            return true;
        }
#ifdef TESTPLUGIN_USES_SUPPLIER
        return supplied() == 2;
#else
        return behaviour != Behaviour::ReturnsFalse;
#endif
    }

    void extensionsInitialized() override
    {
        record("extensionsInitialized");
        if (behaviour == Behaviour::ThrowsInExtensionsInitialized)
            throw std::runtime_error("thrown in extensionsInitialized");
    }

    void shutDown() override
    {
        record("shutDown");
        if (behaviour != Behaviour::KeepsObjects)
            ExtSys::PluginManager::instance()->removeObject(&m_extension);
        if (behaviour == Behaviour::ThrowsInShutDown)
            throw std::runtime_error("thrown in shutDown");
    }

private:
    QObject m_extension;
};

#include "testplugin.moc"
