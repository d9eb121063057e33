// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "plugingraph_p.h"

#include <algorithm>

namespace ExtSys {

void PluginGraph::sort(PluginSpecs *specs)
{
    std::stable_partition(specs->begin(), specs->end(),
                          [](const auto &spec) { return spec->d->core && !spec->d->isStopped(); });
    const Named named = resolveNames(specs);
    checkDependencies(*specs, named);

    QVector<PluginSpec *> path;
    QVector<PluginSpec *> order;
    for (const auto &spec : *specs)
        visit(spec.get(), named, &path, &order);
    std::stable_sort(specs->begin(), specs->end(), [&order](const auto &a, const auto &b) {
        return order.indexOf(a.get()) < order.indexOf(b.get());
    });
}

PluginGraph::Named PluginGraph::resolveNames(PluginSpecs *specs)
{
    Named named;
    const PluginSpec *core = nullptr;
    for (const auto &owned : *specs) {
        PluginSpec *spec = owned.get();
        // A broken file takes no name from a sound one.
        if (spec->d->isStopped())
            continue;
        if (spec->d->core && core) {
            spec->d->fail(
                QStringLiteral("there is a core plugin already, %1").arg(core->filePath()));
            continue;
        }
        if (spec->d->core)
            core = spec;
        if (const PluginSpec *first = named.value(spec->d->name)) {
            spec->d->fail(QStringLiteral("there is a plugin of this name already, %1")
                              .arg(first->filePath()));
            continue;
        }
        named.insert(spec->d->name, spec);
    }
    for (const auto &spec : *specs) {
        if (!named.contains(spec->d->name))
            named.insert(spec->d->name, spec.get());
    }
    return named;
}

void PluginGraph::checkDependencies(const PluginSpecs &specs, const Named &named)
{
    for (const auto &spec : specs) {
        for (const PluginDependency &dependency : std::as_const(spec->d->dependencies)) {
            const PluginSpec *other = named.value(dependency.name);
            if (!other) {
                spec->d->fail(QStringLiteral("it depends on \"%1\", which is not there")
                                  .arg(dependency.name));
            } else if (!other->d->version.isNull()
                       && other->d->version < dependency.minimumVersion) {
                spec->d->fail(
                    QStringLiteral("it depends on \"%1\" %2 or newer; version %3 is there")
                        .arg(dependency.name, dependency.minimumVersion.toString(),
                             other->d->version.toString()));
            }
        }
    }
}

void PluginGraph::visit(PluginSpec *spec, const Named &named, QVector<PluginSpec *> *path,
                        QVector<PluginSpec *> *order)
{
    if (order->contains(spec))
        return;
    const int start = path->indexOf(spec);
    if (start >= 0) {
        const QVector<PluginSpec *> circle = path->mid(start);
        for (int i = 0; i < circle.size(); ++i) {
            // Each member reads the circle from itself.
            QStringList names;
            for (int j = 0; j <= circle.size(); ++j)
                names.append(circle.at((i + j) % circle.size())->d->name);
            circle.at(i)->d->fail(
                QStringLiteral("it depends on itself: %1").arg(names.join(QLatin1String(" -> "))));
        }
        return;
    }
    path->append(spec);
    for (const PluginDependency &dependency : std::as_const(spec->d->dependencies)) {
        if (PluginSpec *other = named.value(dependency.name))
            visit(other, named, path, order);
    }
    path->removeLast();
    order->append(spec);
}

QString PluginGraph::obstacle(const PluginSpec &spec, const PluginSpecs &specs)
{
    const auto reason = [](const PluginSpec &other) {
        return QStringLiteral("it depends on \"%1\", which is not started: %2")
            .arg(other.name(), other.error());
    };
    // Every plugin builds on the core, whether it says so or not.
    if (!spec.d->core && !specs.empty() && specs.front()->d->core
        && specs.front()->d->isStopped()) {
        return reason(*specs.front());
    }
    for (const PluginDependency &dependency : std::as_const(spec.d->dependencies)) {
        // The sound one of a name stands for it; the order of the search does not
        // matter, because a started plugin is never the second of its name.
        const auto sound = std::find_if(specs.cbegin(), specs.cend(), [&dependency](const auto &s) {
            return s->d->name == dependency.name && !s->d->isStopped();
        });
        if (sound != specs.cend())
            continue;
        const auto any = std::find_if(specs.cbegin(), specs.cend(), [&dependency](const auto &s) {
            return s->d->name == dependency.name;
        });
        if (any != specs.cend())
            return reason(**any);
    }
    return {};
}

} // namespace ExtSys
