// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/fpgaprojectplugin_p.h>

#include <extsys/pluginmanager.h>
#include <fpgaproject/project/fpgaprojectfactory.h>

namespace Fpga {

FpgaProjectPlugin::FpgaProjectPlugin() = default;

FpgaProjectPlugin::~FpgaProjectPlugin() = default;

bool FpgaProjectPlugin::initialize()
{
    offer(std::make_unique<FpgaProjectFactory>());
    return true;
}

void FpgaProjectPlugin::extensionsInitialized() {}

void FpgaProjectPlugin::shutDown()
{
    while (!m_offered.empty()) {
        ExtSys::PluginManager::instance()->removeObject(m_offered.back().get());
        m_offered.pop_back();
    }
}

void FpgaProjectPlugin::offer(std::unique_ptr<QObject> object)
{
    ExtSys::PluginManager::instance()->addObject(object.get());
    m_offered.push_back(std::move(object));
}

} // namespace Fpga
