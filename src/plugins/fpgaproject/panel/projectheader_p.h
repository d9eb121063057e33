// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PANEL_PROJECTHEADER_P_H
#define FPGAPROJECT_PANEL_PROJECTHEADER_P_H

#include <QWidget>

class QAction;
class QLabel;
class QToolButton;

namespace Fpga {

class FpgaProject;

/// Name, device and top module of the project, over its files.
class ProjectHeader final : public QWidget
{
    Q_OBJECT
public:
    explicit ProjectHeader(QWidget *parent = nullptr);
    ~ProjectHeader() override;

    void show(const FpgaProject &project);
    /// Puts a button for it beside the device.
    void setChangeDeviceAction(QAction *action);

private:
    QLabel *const m_name;
    QLabel *const m_device;
    QLabel *const m_top;
    QToolButton *const m_changeDevice;
};

} // namespace Fpga

#endif // FPGAPROJECT_PANEL_PROJECTHEADER_P_H
