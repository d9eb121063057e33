// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/fpgaprojectplugin_p.h>

#include <extsys/pluginmanager.h>
#include <fpgaproject/options/newitempage_p.h>
#include <fpgaproject/panel/gotopanel_p.h>
#include <fpgaproject/panel/projectpanel_p.h>
#include <fpgaproject/project/fpgaprojectfactory.h>
#include <fpgaproject/project/saveprojectas_p.h>
#include <fpgaproject/wizards/newfilewizard_p.h>
#include <fpgaproject/wizards/newprojectwizard_p.h>
#include <idecore/interfaces/iproject.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

namespace Fpga {

FpgaProjectPlugin::FpgaProjectPlugin() = default;

FpgaProjectPlugin::~FpgaProjectPlugin() = default;

bool FpgaProjectPlugin::initialize()
{
    offer(std::make_unique<FpgaProjectFactory>());
    offer(std::make_unique<NewProjectWizard>());
    for (const FileKind kind : {FileKind::Verilog, FileKind::SystemVerilog, FileKind::Vhdl,
                                FileKind::TimingConstraint, FileKind::PhysicalConstraint})
        offer(std::make_unique<NewFileWizard>(kind));
    offer(std::make_unique<NewItemPage>());
    m_saveAs = std::make_unique<SaveProjectAs>();
    m_panel = new ProjectPanel;
    connect(Core::ProjectManager::instance(), &Core::ProjectManager::currentProjectChanged, m_panel,
            &ProjectPanel::setProject);
    Core::ViewManager::addPanel(m_panel);
    m_goToPanel = std::make_unique<GoToPanel>(m_panel);
    return true;
}

void FpgaProjectPlugin::extensionsInitialized() {}

void FpgaProjectPlugin::shutDown()
{
    Core::ViewManager::removePanel(m_panel);
    m_panel = nullptr;
    m_saveAs.reset();
    m_goToPanel.reset();
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
