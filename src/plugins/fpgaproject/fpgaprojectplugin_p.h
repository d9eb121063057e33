// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_FPGAPROJECTPLUGIN_P_H
#define FPGAPROJECT_FPGAPROJECTPLUGIN_P_H

#include <extsys/iplugin.h>

#include <memory>
#include <vector>

namespace Fpga {

class GoToPanel;
class ProjectPanel;
class SaveProjectAs;

/// Offers FPGA projects to the core: the factory, the panel and the wizards.
class FpgaProjectPlugin final : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.kelmoware.plugins.IPlugin/1.0" FILE "fpgaproject.json")
    Q_INTERFACES(ExtSys::IPlugin)
public:
    FpgaProjectPlugin();
    ~FpgaProjectPlugin() override;

    bool initialize() override;
    void extensionsInitialized() override;
    void shutDown() override;

private:
    void offer(std::unique_ptr<QObject> object);

    std::unique_ptr<SaveProjectAs> m_saveAs;
    std::unique_ptr<GoToPanel> m_goToPanel;
    /// Owned by its dock.
    ProjectPanel *m_panel = nullptr;
    /// What is in the pool, in the order in which it came there.
    std::vector<std::unique_ptr<QObject>> m_offered;
};

} // namespace Fpga

#endif // FPGAPROJECT_FPGAPROJECTPLUGIN_P_H
