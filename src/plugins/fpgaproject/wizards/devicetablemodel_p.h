// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_WIZARDS_DEVICETABLEMODEL_P_H
#define FPGAPROJECT_WIZARDS_DEVICETABLEMODEL_P_H

#include <devicedb/device.h>
#include <fpgaproject/fpgaproject_export.h>

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QStringList>
#include <QVector>

namespace Fpga {

/// Devices with their resources, one a row.
class FPGAPROJECT_EXPORT DeviceTableModel final : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column {
        Part,
        Series,
        Package,
        SpeedGrade,
        LogicCells,
        FlipFlops,
        BlockRam,
        Dsps,
        Plls,
        UserIos,
        ColumnCount
    };
    /// What a column is sorted by.
    static constexpr int SORT_ROLE = Qt::UserRole;

    explicit DeviceTableModel(const QVector<DEV::Device> &devices, QObject *parent = nullptr);
    ~DeviceTableModel() override;

    [[nodiscard]] const DEV::Device &device(int row) const { return m_devices.at(row); }
    /// True when each of @p words, lower case, stands somewhere in the row's names.
    [[nodiscard]] bool matches(int row, const QStringList &words) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    const QVector<DEV::Device> m_devices;
    /// What is searched in each row.
    QStringList m_names;
};

/// The devices whose names hold every word typed.
class FPGAPROJECT_EXPORT DeviceFilter final : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    explicit DeviceFilter(DeviceTableModel *model, QObject *parent = nullptr);
    ~DeviceFilter() override;

    void setText(const QString &text);

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    const DeviceTableModel *const m_model;
    QStringList m_words;
};

} // namespace Fpga

#endif // FPGAPROJECT_WIZARDS_DEVICETABLEMODEL_P_H
