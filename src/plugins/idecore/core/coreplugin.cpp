// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/core/coreplugin.h>

#include <idecore/core/idecore.h>

namespace Core {

CorePlugin::CorePlugin(QObject *parent)
    : IPlugin(parent)
{
}

CorePlugin::~CorePlugin() = default;

bool CorePlugin::initialize()
{
    core = std::make_unique<IdeCore>();
    core->initialize();
    return true;
}

void CorePlugin::extensionsInitialized()
{
    core->extensionsInitialized();
}

void CorePlugin::shutDown()
{
    core->shutdown();
}

} // namespace Core
