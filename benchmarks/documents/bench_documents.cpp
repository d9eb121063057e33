// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// What opening a document costs, beside a QStackedWidget page with the same
// widget, with few and with many documents open.

#include "documentbench.h"

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

void compareGrowth(const char *kind, QWidget *(*make)(int), bool wholeOpening)
{
    Openings stack;
    {
        StackHost host;
        stack = openMany(host, make, 100);
    }
    settle();
    AreaHost host;
    const Openings area = openMany(host, make, 500);
    const auto name = [kind](const char *what) { return std::string("documents_") + kind + what; };
    ratio(name("_open_vs_stack_ms").c_str(), median(area.own.mid(20, 80)),
          median(stack.own.mid(20, 80)), 1.5);
    const QVector<double> &times = wholeOpening ? area.whole : area.own;
    ratio(name("_growth_ms").c_str(), Openings::lastTen(times, 500), Openings::lastTen(times, 100),
          1.3);
    ratio(name("_growth_bytes").c_str(), Openings::lastTen(area.bytes, 500),
          Openings::lastTen(area.bytes, 100), 1.3);
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
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    warmMemory();

    // A name of one of them runs that one alone.
    const QString only = QString::fromLocal8Bit(argc > 1 ? argv[1] : "");
    if (only.isEmpty() || only == QLatin1String("page"))
        compareGrowth("page", makePage, false);
    if (only.isEmpty() || only == QLatin1String("editor"))
        compareGrowth("editor", makeEditor, true);
    if (only.isEmpty() || only == QLatin1String("reopen"))
        compareReopening();
    return 0;
}
