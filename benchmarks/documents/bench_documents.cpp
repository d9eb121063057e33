// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// What opening a document costs, beside a QStackedWidget page with the same
// widget, with few and with many documents open.

#include "documentbench.h"
#include "growth.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLoggingCategory>

#include <cstdio>
#include <string>

namespace {

void ratio(const char *name, double ours, double peer, double limit)
{
    const double value = peer > 0 ? ours / peer : 0;
    std::printf("RATIO %s %.3f %.3f %.2f limit %.2f %s\n", name, ours, peer, value, limit,
                value <= limit ? "ok" : "MISSED");
    std::fflush(stdout);
}

template<class HostType>
void openAndClose(benchmark::State &state, QWidget *(*make)(int))
{
    HostType host;
    for (auto _ : state) {
        host.open(make(0), 0);
        settle();
        host.closeCurrent();
        settle();
    }
}

void areaPage(benchmark::State &state)
{
    openAndClose<AreaHost>(state, makePage);
}

void stackPage(benchmark::State &state)
{
    openAndClose<StackHost>(state, makePage);
}

void areaEditor(benchmark::State &state)
{
    openAndClose<AreaHost>(state, makeEditor);
}

void stackEditor(benchmark::State &state)
{
    openAndClose<StackHost>(state, makeEditor);
}

BENCHMARK(areaPage)->Unit(benchmark::kMillisecond);
BENCHMARK(stackPage)->Unit(benchmark::kMillisecond);
BENCHMARK(areaEditor)->Unit(benchmark::kMillisecond);
BENCHMARK(stackEditor)->Unit(benchmark::kMillisecond);

template<class HostType>
double openingMs(QWidget *(*make)(int))
{
    HostType host;
    return median(openMany(host, make, 100).mid(20));
}

void compareWithStack(const char *kind, QWidget *(*make)(int))
{
    const std::string name = std::string("documents_") + kind + "_open_vs_stack_ms";
    const double peer = openingMs<StackHost>(make);
    settle();
    ratio(name.c_str(), openingMs<AreaHost>(make), peer, 1.5);
}

/// The other process of compareGrowth(), which counts the area's own share. Whole
/// openings of editors are measured in the workbench, by bench_editordocuments:
/// bare views of KTextEditor keep all their shortcuts and so cost more the more of
/// them there are, whatever holds them.
void openPagesForGrowth(int already)
{
    warmMemory();
    AreaHost host;
    serveOpenings(already, [&](int number) {
        Opening opening;
        const double heap = heapBytes();
        QWidget *const page = makePage(number);
        const double begin = cpuMilliseconds();
        host.open(page, number);
        settle();
        opening.ms = cpuMilliseconds() - begin;
        opening.bytes = heapBytes() - heap;
        return opening;
    });
}

void compareReopening()
{
    AreaHost host;
    const auto reopen = [&host](int times) {
        for (int i = 0; i < times; ++i) {
            host.open(makePage(i), i);
            settle();
            host.closeCurrent();
            settle();
        }
    };
    reopen(1000);
    const double before = heapBytes();
    reopen(9000);
    ratio("documents_reopen_10000_bytes", heapBytes(), before, 1.01);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QLoggingCategory::setFilterRules(QStringLiteral("kf.sonnet.*=false"));
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) == QLatin1String("--open")) {
        openPagesForGrowth(arguments.value(2).toInt());
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();

    // A name of one of them runs that one alone.
    const QString only = QString::fromLocal8Bit(argc > 1 ? argv[1] : "");
    if (only.isEmpty() || only == QLatin1String("page")) {
        compareWithStack("page", makePage);
        compareGrowth("documents_page", {QStringLiteral("--open")});
    }
    if (only.isEmpty() || only == QLatin1String("editor"))
        compareWithStack("editor", makeEditor);
    if (only.isEmpty() || only == QLatin1String("reopen"))
        compareReopening();
    return 0;
}
