// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <extsys/pluginmanager.h>

#include "objectpool_p.h"
#include "plugingraph_p.h"
#include "pluginreader_p.h"
#include "pluginrunner_p.h"
#include "pluginspec_p.h"

#include <QDebug>
#include <QScopedValueRollback>

#include <utility>

namespace ExtSys {

class PluginManager::Private
{
public:
    ObjectPool pool;
    PluginSpecs specs;
    /// In the order of their initialisation; shutDown() is due to them whatever
    /// came later.
    std::vector<PluginSpec *> initialized;
    /// Plugins are being started or shut down: their code may come back here,
    /// while the lists above are walked.
    bool busy = false;

    [[nodiscard]] bool isRunning() const { return busy || !initialized.empty(); }
    void start(PluginSpec *spec);
};

void PluginManager::Private::start(PluginSpec *spec)
{
    PluginRunner runner(spec);
    runner.load();
    if (spec->state() == PluginSpec::State::Loaded)
        runner.initialize();
    if (spec->state() == PluginSpec::State::Initialized)
        initialized.push_back(spec);
}

static void warn(const PluginSpec &spec)
{
    qWarning().noquote().nospace()
        << "plugin \"" << spec.name() << "\" (" << spec.filePath() << "): " << spec.error();
}

PluginManager *PluginManager::instance()
{
    // Never destroyed: an object with static storage may leave the pool later
    // than any static object here would be gone.
    static auto *const manager = new PluginManager;
    return manager;
}

PluginManager::PluginManager()
    : d(std::make_unique<Private>())
{
}

PluginManager::~PluginManager() = default;

QList<QObject *> PluginManager::allObjects() const
{
    return d->pool.objects();
}

void PluginManager::addObject(QObject *object)
{
    if (d->pool.add(object))
        Q_EMIT objectAdded(object);
}

void PluginManager::removeObject(QObject *object)
{
    if (!d->pool.beginRemoval(object))
        return;
    Q_EMIT aboutToRemoveObject(object);
    d->pool.endRemoval(object);
}

QVector<const PluginSpec *> PluginManager::plugins() const
{
    QVector<const PluginSpec *> result;
    for (const auto &spec : d->specs)
        result.append(spec.get());
    return result;
}

const PluginSpec *PluginManager::corePlugin() const
{
    // It comes first, so it is the first if any.
    const bool found = !d->specs.empty() && d->specs.front()->isCore();
    return found ? d->specs.front().get() : nullptr;
}

void PluginManager::findPlugins(const QStringList &folders)
{
    if (d->isRunning()) {
        qWarning() << "PluginManager: plugins are running, the search is refused";
        return;
    }
    d->specs.clear();
    const QStringList files = PluginReader::files(folders);
    for (const QString &file : files)
        d->specs.push_back(PluginReader::read(file));
    PluginGraph::sort(&d->specs);
}

bool PluginManager::startPlugins(Selection selection)
{
    if (d->isRunning()) {
        qWarning() << "PluginManager: plugins are running, a second start is refused";
        return false;
    }
    const QScopedValueRollback<bool> busy(d->busy, true);
    const PluginSpec *const core = corePlugin();
    for (const auto &spec : d->specs) {
        const bool wanted = selection == Selection::All || spec->isCore();
        if (!wanted)
            spec->d->skip(QStringLiteral("only the core is started"));
        const QString obstacle = PluginGraph::obstacle(*spec, d->specs);
        if (!obstacle.isEmpty())
            spec->d->skip(obstacle);
        if (spec->state() == PluginSpec::State::Found) {
            Q_EMIT pluginStarting(*spec);
            d->start(spec.get());
        }
        const bool coreStands = !core || !core->d->isStopped();
        if (wanted && spec->d->isStopped() && coreStands)
            warn(*spec);
    }
    if (core && core->d->isStopped())
        return false;

    for (auto it = d->initialized.rbegin(); it != d->initialized.rend(); ++it) {
        PluginRunner(*it).extensionsInitialized();
        if ((*it)->d->isStopped() && *it != core)
            warn(**it);
    }
    return !core || !core->d->isStopped();
}

void PluginManager::shutDown()
{
    if (d->busy) {
        qWarning()
            << "PluginManager: plugins are being started or shut down, a shut-down is refused";
        return;
    }
    const QScopedValueRollback<bool> busy(d->busy, true);
    const std::vector<PluginSpec *> running = std::exchange(d->initialized, {});
    for (auto it = running.rbegin(); it != running.rend(); ++it) {
        const QString earlier = (*it)->error();
        PluginRunner(*it).shutDown();
        if ((*it)->error() != earlier)
            warn(**it);
    }
    for (auto it = running.rbegin(); it != running.rend(); ++it)
        PluginRunner(*it).destroy();
}

} // namespace ExtSys
