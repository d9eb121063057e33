// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_WIZARDS_DEVICEPICKER_P_H
#define FPGAPROJECT_WIZARDS_DEVICEPICKER_P_H

#include <devicedb/device.h>
#include <fpgaproject/file/projectdocument.h>
#include <fpgaproject/fpgaproject_export.h>

#include <QVector>
#include <QWidget>

#include <optional>

class QLabel;
class QLineEdit;
class QTableView;

namespace Fpga {

class DeviceFilter;
class DeviceTableModel;

/// A table of devices that is narrowed by typing.
class FPGAPROJECT_EXPORT DevicePicker final : public QWidget
{
    Q_OBJECT
public:
    explicit DevicePicker(const QVector<DEV::Device> &devices, QWidget *parent = nullptr);
    ~DevicePicker() override;

    /// Nothing while no row is selected.
    [[nodiscard]] std::optional<DEV::Device> device() const;
    /// The same as a project names it; empty for nothing.
    [[nodiscard]] DeviceChoice choice() const;
    /// Leaves the selection alone when there is no such part.
    void selectPart(const QString &part);

Q_SIGNALS:
    void deviceChanged();
    /// The user has double clicked a device, or pressed Enter on it.
    void deviceActivated();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void onTextChanged(const QString &text);

    DeviceTableModel *const m_model;
    DeviceFilter *const m_filter;
    QLineEdit *const m_text;
    QTableView *const m_table;
    QLabel *const m_none;
};

} // namespace Fpga

#endif // FPGAPROJECT_WIZARDS_DEVICEPICKER_P_H
