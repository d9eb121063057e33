// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_WIZARDS_DEVICEDIALOG_P_H
#define FPGAPROJECT_WIZARDS_DEVICEDIALOG_P_H

#include <devicedb/device.h>
#include <fpgaproject/file/projectdocument.h>
#include <fpgaproject/fpgaproject_export.h>

#include <QDialog>
#include <QVector>

class QDialogButtonBox;

namespace Fpga {

class DevicePicker;

/// Asks for another device of a project that has @p now.
class FPGAPROJECT_EXPORT DeviceDialog final : public QDialog
{
    Q_OBJECT
public:
    DeviceDialog(const DeviceChoice &now, const QVector<DEV::Device> &devices,
                 QWidget *parent = nullptr);
    ~DeviceDialog() override;

    /// Empty while none is chosen, which cannot be accepted.
    [[nodiscard]] DeviceChoice choice() const;

private:
    void updateButtons();

    DevicePicker *const m_picker;
    QDialogButtonBox *const m_buttons;
};

} // namespace Fpga

#endif // FPGAPROJECT_WIZARDS_DEVICEDIALOG_P_H
