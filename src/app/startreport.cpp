// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "startreport.h"

#include <extsys/pluginmanager.h>
#include <extsys/pluginspec.h>

#include <QVector>

#include <chrono>
#include <cstdio>
#include <ctime>
#include <sys/resource.h>

using ExtSys::PluginCost;
using ExtSys::PluginManager;
using ExtSys::PluginSpec;

namespace {

double toMs(std::chrono::nanoseconds time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

/// Since the process began.
double processCpuMs()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return toMs(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec));
}

void printStep(const char *step, const PluginCost &cost)
{
    std::fprintf(stderr, "; %s %.1f CPU %.1f wall", step, toMs(cost.cpu), toMs(cost.wall));
}

} // namespace

void StartReport::printPlugins()
{
    std::fprintf(stderr, "start: %.1f ms CPU until the plugins were started, of these\n",
                 processCpuMs());
    const QVector<const PluginSpec *> plugins = PluginManager::instance()->plugins();
    for (const PluginSpec *spec : plugins) {
        if (spec->loadCost().wall.count() == 0)
            continue;
        const PluginCost steps[] = {spec->loadCost(), spec->initializeCost(),
                                    spec->extensionsInitializedCost()};
        PluginCost sum;
        for (const PluginCost &step : steps) {
            sum.cpu += step.cpu;
            sum.wall += step.wall;
        }
        std::fprintf(stderr, "start: plugin %s: %.1f ms CPU, %.1f ms wall",
                     qPrintable(spec->name()), toMs(sum.cpu), toMs(sum.wall));
        printStep("load", steps[0]);
        printStep("initialize", steps[1]);
        printStep("extensionsInitialized", steps[2]);
        std::fputc('\n', stderr);
    }
}

void StartReport::printWindow()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::fprintf(stderr, "start: %.1f ms CPU, %.1f MiB until the main window was shown\n",
                 processCpuMs(), static_cast<double>(usage.ru_maxrss) / 1024.0);
}
