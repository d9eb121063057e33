// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef DEVICEDB_DEVICEDB_H
#define DEVICEDB_DEVICEDB_H

#include <devicedb/devicedb_export.h>

#include <QString>

#include <memory>

namespace DEV {

/// The devices that a project can be made for, read from a table.
class DEVICEDB_EXPORT DeviceDb final
{
public:
    /// Reads @p csvFile. A missing file gives an empty database.
    explicit DeviceDb(const QString &csvFile);
    ~DeviceDb();

private:
    DeviceDb(const DeviceDb &) = delete;
    DeviceDb &operator=(const DeviceDb &) = delete;

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace DEV

#endif // DEVICEDB_DEVICEDB_H
