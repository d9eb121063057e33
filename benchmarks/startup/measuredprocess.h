// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef BENCHMARKS_STARTUP_MEASUREDPROCESS_H
#define BENCHMARKS_STARTUP_MEASUREDPROCESS_H

#include <optional>
#include <string>
#include <vector>

struct StartCost
{
    double cpuMs;
    double peakMiB;
};

/// Starts @p command, waits until its window is on the display and it has
/// nothing left to do, ends it, and returns what the process has used. Absent,
/// with the reason on standard error, when no window comes.
std::optional<StartCost> measureStart(const std::vector<std::string> &command);

#endif // BENCHMARKS_STARTUP_MEASUREDPROCESS_H
