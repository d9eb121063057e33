// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <devicedb/devicedb.h>

namespace DEV {

class DeviceDb::Private
{
public:
    QString file;
};

DeviceDb::DeviceDb(const QString &csvFile)
    : d(std::make_unique<Private>())
{
    d->file = csvFile;
}

DeviceDb::~DeviceDb() = default;

} // namespace DEV
