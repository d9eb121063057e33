// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef DEVICEDB_DEVICE_H
#define DEVICEDB_DEVICE_H

#include <QString>

namespace DEV {

/// One orderable part: a device in a package and a speed grade.
struct Device
{
    QString series;
    QString name;
    QString package;
    QString speedGrade;
    /// Names this row alone.
    QString part;
    int logicCells = 0;
    int flipFlops = 0;
    int blockRamBits = 0;
    int dspBlocks = 0;
    int plls = 0;
    /// Pins of this package that a design may use.
    int userIos = 0;
};

} // namespace DEV

#endif // DEVICEDB_DEVICE_H
