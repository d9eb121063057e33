// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PANEL_GOTOPANEL_P_H
#define FPGAPROJECT_PANEL_GOTOPANEL_P_H

#include <QObject>
#include <QPointer>

class QAction;

namespace Fpga {

class ProjectPanel;

/// The command that takes the keyboard to the project panel, and from there back
/// to the document.
class GoToPanel final : public QObject
{
    Q_OBJECT
public:
    explicit GoToPanel(ProjectPanel *panel);
    ~GoToPanel() override;

private:
    void run();

    const QPointer<ProjectPanel> m_panel;
    QPointer<QAction> m_action;
};

} // namespace Fpga

#endif // FPGAPROJECT_PANEL_GOTOPANEL_P_H
