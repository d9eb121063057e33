// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef DEVICEDB_DEVICEDB_H
#define DEVICEDB_DEVICEDB_H

#include <devicedb/device.h>
#include <devicedb/devicedb_export.h>

#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>
#include <optional>

namespace DEV {

/// The devices that a project can be made for, read from a table.
///
/// The table is a CSV file in UTF-8: a row of column names first, then a row for
/// each part. Fields may be quoted with '"' (a doubled quote stands for one, line
/// ends count as text), lines that start with '#' are comments. Column names are
/// compared without regard to case and may come in any order; columns it does not
/// know are passed over. Columns that must be there: Series, Device, Package,
/// SpeedGrade, LogicCells, FlipFlops, BlockRamBits, DspBlocks, Plls, UserIos.
/// Part is optional; without it the part is device, speed grade and package
/// joined by '-'.
///
/// A row that cannot be used is skipped with a warning that names file, line and
/// reason. All names keep the order of the table; lookups regard case.
///
/// The table is read once, when something of it is asked for first: a start that shows no
/// device does without.
class DEVICEDB_EXPORT DeviceDb final
{
public:
    /// Of the rows in @p csvFile. A missing file gives an empty database, silently.
    explicit DeviceDb(const QString &csvFile);
    ~DeviceDb();

    [[nodiscard]] bool isEmpty() const;
    /// All rows in the order of the table.
    [[nodiscard]] const QVector<Device> &rows() const;

    /// What a wizard offers step by step. An unknown name gives an empty list.
    [[nodiscard]] QStringList series() const;
    [[nodiscard]] QStringList devices(const QString &series) const;
    [[nodiscard]] QStringList packages(const QString &device) const;
    [[nodiscard]] QStringList speedGrades(const QString &device, const QString &package) const;

    [[nodiscard]] std::optional<Device> device(const QString &part) const;
    [[nodiscard]] std::optional<Device> device(const QString &device, const QString &package,
                                               const QString &speedGrade) const;

private:
    DeviceDb(const DeviceDb &) = delete;
    DeviceDb &operator=(const DeviceDb &) = delete;

    class Private;
    [[nodiscard]] const Private &table() const;

    const std::unique_ptr<Private> d;
};

} // namespace DEV

#endif // DEVICEDB_DEVICEDB_H
