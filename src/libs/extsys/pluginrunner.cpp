// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pluginrunner_p.h"

#include <extsys/pluginmanager.h>

#include <ctime>
#include <exception>
#include <utility>

namespace ExtSys {

namespace {

std::chrono::nanoseconds now(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// Adds what its lifetime took to a cost.
class CostMeter final
{
    Q_DISABLE_COPY(CostMeter)
public:
    explicit CostMeter(PluginCost *cost)
        : m_cost(cost)
        , m_wall(now(CLOCK_MONOTONIC))
        , m_cpu(now(CLOCK_PROCESS_CPUTIME_ID))
    {
    }
    ~CostMeter()
    {
        m_cost->wall += now(CLOCK_MONOTONIC) - m_wall;
        m_cost->cpu += now(CLOCK_PROCESS_CPUTIME_ID) - m_cpu;
    }

private:
    PluginCost *m_cost;
    std::chrono::nanoseconds m_wall;
    std::chrono::nanoseconds m_cpu;
};

/// Runs a plugin's @p step. Returns what it threw, as "SUBJECT threw …", empty
/// when it threw nothing.
template<class Step>
QString guarded(const char *subject, Step step)
{
    try {
        step();
        return {};
    } catch (const std::exception &exception) {
        return QStringLiteral("%1 threw an exception: %2")
            .arg(QLatin1String(subject), QString::fromLocal8Bit(exception.what()));
    } catch (...) {
        return QStringLiteral("%1 threw an exception of unknown type").arg(QLatin1String(subject));
    }
}

} // namespace

PluginRunner::PluginRunner(PluginSpec *spec)
    : m_spec(spec->d.get())
{
}

void PluginRunner::load()
{
    const CostMeter meter(&m_spec->loadCost);
    const std::unique_ptr<QPluginLoader> loader = std::move(m_spec->loader);
    // A library built against something else lacks symbols: found out now it is
    // one plugin less, found out at the first call it would be the process.
    loader->setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    QObject *object = nullptr;
    const QString thrown = guarded("its constructor", [&] { object = loader->instance(); });
    if (!thrown.isEmpty()) {
        m_spec->fail(thrown);
        return;
    }
    if (!object) {
        m_spec->fail(loader->errorString().simplified());
        return;
    }
    m_spec->plugin = qobject_cast<IPlugin *>(object);
    if (!m_spec->plugin) {
        m_spec->fail(QStringLiteral("its object, a %1, is no ExtSys::IPlugin")
                         .arg(QLatin1String(object->metaObject()->className())));
        // The loader keeps no owner for it, and nobody else can know it.
        delete object;
        return;
    }
    m_spec->state = PluginSpec::State::Loaded;
}

void PluginRunner::initialize()
{
    PluginManager *const pool = PluginManager::instance();
    const QList<QObject *> before = pool->allObjects();
    {
        const CostMeter meter(&m_spec->initializeCost);
        bool good = false;
        const QString thrown =
            guarded("initialize()", [&] { good = m_spec->plugin->initialize(); });
        if (!thrown.isEmpty())
            m_spec->fail(thrown);
        else if (!good)
            m_spec->fail(QStringLiteral("initialize() returned false"));
        else if (!m_spec->plugin)
            m_spec->fail(QStringLiteral("it destroyed itself in initialize()"));
    }
    if (!m_spec->isStopped()) {
        m_spec->state = PluginSpec::State::Initialized;
        return;
    }
    const QList<QObject *> after = pool->allObjects();
    for (QObject *object : after) {
        // Leaving objects may take others with them.
        if (!before.contains(object) && pool->allObjects().contains(object))
            pool->removeObject(object);
    }
    destroy();
}

void PluginRunner::extensionsInitialized()
{
    if (!m_spec->plugin)
        return;
    const CostMeter meter(&m_spec->extensionsInitializedCost);
    const QString thrown =
        guarded("extensionsInitialized()", [&] { m_spec->plugin->extensionsInitialized(); });
    if (thrown.isEmpty())
        m_spec->state = PluginSpec::State::Running;
    else
        m_spec->fail(thrown);
}

void PluginRunner::shutDown()
{
    if (!m_spec->plugin)
        return;
    const QString thrown = guarded("shutDown()", [&] { m_spec->plugin->shutDown(); });
    if (!thrown.isEmpty())
        m_spec->fail(thrown);
    else if (!m_spec->isStopped())
        m_spec->state = PluginSpec::State::Stopped;
}

void PluginRunner::destroy()
{
    // The plugin's library made it and expects its host to end it, while the
    // application that its destructor may need still lives.
    delete m_spec->plugin;
}

} // namespace ExtSys
