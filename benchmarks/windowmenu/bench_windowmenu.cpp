// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The Window menu with 500 views, from the request to open it until it is
// painted.

#include <idecore/actions/actionmanager.h>
#include <idecore/core/idecore.h>
#include <idecore/interfaces/iview.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QMenu>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

using Core::ViewManager;

namespace {

constexpr int VIEWS = 500;
// One frame at 60 Hz.
constexpr double LIMIT_MS = 16.0;

std::vector<double> s_times;

/// Notes the first painting of a menu.
class PaintWatch final : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }

    bool painted = false;
};

void windowMenuOpens(benchmark::State &state)
{
    QMenu *menu = Core::ActionManager::menu(QStringLiteral("Core.Menu.Window"));
    PaintWatch watch;
    menu->installEventFilter(&watch);
    for (auto _ : state) {
        watch.painted = false;
        QElapsedTimer timer;
        timer.start();
        menu->popup(QPoint(0, 0));
        while (!watch.painted)
            QCoreApplication::processEvents();
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        state.SetIterationTime(seconds);
        s_times.push_back(seconds * 1e3);
        menu->close();
        QCoreApplication::processEvents();
    }
    state.counters["entries"] = double(menu->actions().size());
}
BENCHMARK(windowMenuOpens)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    QApplication app(argc, argv);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    Core::IdeCore core;
    core.initialize();
    ViewManager::mainWindow()->resize(1200, 800);
    ViewManager::mainWindow()->show();
    for (int i = 0; i < VIEWS; ++i) {
        auto *view = new Core::IView;
        view->setShortTitle(QStringLiteral("module_%1.v").arg(i));
        ViewManager::showView(view);
    }
    QCoreApplication::processEvents();

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    if (!s_times.empty()) {
        std::nth_element(s_times.begin(), s_times.begin() + long(s_times.size() / 2),
                         s_times.end());
        const double median = s_times[s_times.size() / 2];
        const double ratio = median / LIMIT_MS;
        std::printf("RATIO windowmenu %.2f %.0f %.3f limit 1 %s\n", median, LIMIT_MS, ratio,
                    ratio < 1 ? "ok" : "MISSED");
    }
    core.shutdown();
    return 0;
}
