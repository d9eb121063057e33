// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <extsys/pluginspec.h>

#include "pluginspec_p.h"

namespace ExtSys {

PluginSpec::PluginSpec()
    : d(std::make_unique<Private>())
{
}

PluginSpec::~PluginSpec() = default;

QString PluginSpec::name() const
{
    return d->name;
}

QString PluginSpec::filePath() const
{
    return d->filePath;
}

QVersionNumber PluginSpec::version() const
{
    return d->version;
}

QString PluginSpec::description() const
{
    return d->description;
}

QVector<PluginDependency> PluginSpec::dependencies() const
{
    return d->dependencies;
}

bool PluginSpec::isCore() const
{
    return d->core;
}

PluginSpec::State PluginSpec::state() const
{
    return d->state;
}

QString PluginSpec::error() const
{
    return d->error;
}

IPlugin *PluginSpec::plugin() const
{
    return d->plugin;
}

PluginCost PluginSpec::loadCost() const
{
    return d->loadCost;
}

PluginCost PluginSpec::initializeCost() const
{
    return d->initializeCost;
}

PluginCost PluginSpec::extensionsInitializedCost() const
{
    return d->extensionsInitializedCost;
}

} // namespace ExtSys
