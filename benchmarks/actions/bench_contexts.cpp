// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// What a move of the focus costs with many registered commands. The peer binds
// every proxy anew as the rules are written: it ends three connections, walks
// the list, copies the state and connects again.

#include <plugins/idecore/actions/plainproxy.h>

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/idecore.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QToolBar>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

using namespace Core;

namespace {

enum class Place { Nowhere, Shown, ShownWithKeys };
enum class Change {
    None,       // no command has an action for the contexts that come and go
    SameAction, // every command has one, and keeps the one it has
    Half,       // half of the commands are bound to another action
    HalfState,  // and that action is enabled where the other one is not
};

const QString Base = QStringLiteral("Bench.Base");
const QString Other = QStringLiteral("Bench.Other");
const QString Half = QStringLiteral("Bench.Half");
const QString HalfState = QStringLiteral("Bench.HalfState");
const QString Unused = QStringLiteral("Bench.Unused");

QStringList contextsOf(Change change)
{
    switch (change) {
    case Change::None:
        return {Unused, Base};
    case Change::SameAction:
        return {Base, Other};
    case Change::Half:
        return {Half, Base};
    case Change::HalfState:
        return {HalfState, Base};
    }
    return {};
}

std::vector<std::pair<QString, bool>> contextsForCommand(int command)
{
    std::vector<std::pair<QString, bool>> contexts{{Base, true}, {Other, true}};
    if (command % 2 == 0) {
        contexts.emplace_back(Half, true);
        contexts.emplace_back(HalfState, false);
    }
    return contexts;
}

std::unique_ptr<QAction> makeAction(int command, bool enabled, Place place)
{
    auto action = std::make_unique<QAction>(QStringLiteral("Command %1").arg(command));
    action->setEnabled(enabled);
    if (place == Place::ShownWithKeys && command % 5 == 0) {
        // Two strokes give keys enough for 2,000 commands.
        const int number = command / 5;
        action->setShortcut(
            QKeySequence(int(Qt::CTRL) + int(Qt::ALT) + Qt::Key_A + number / 26 % 26,
                         int(Qt::CTRL) + int(Qt::SHIFT) + Qt::Key_A + number % 26,
                         int(Qt::CTRL) + Qt::Key_A + number / 676));
    }
    return action;
}

/// A shown window with every proxy in a menu and each tenth in a tool bar.
std::unique_ptr<QMainWindow> show(const std::vector<QAction *> &proxies)
{
    auto window = std::make_unique<QMainWindow>();
    QMenu *menu = nullptr;
    QToolBar *bar = nullptr;
    for (std::size_t i = 0; i < proxies.size(); ++i) {
        if (i % 500 == 0) {
            menu = window->menuBar()->addMenu(QStringLiteral("Menu"));
            bar = window->addToolBar(QStringLiteral("Bar"));
        }
        menu->addAction(proxies[i]);
        if (i % 10 == 0)
            bar->addAction(proxies[i]);
    }
    window->resize(1200, 800);
    window->show();
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents();
    return window;
}

class Ours
{
public:
    Ours(int count, Place place)
        : m_registry(std::make_unique<ActionManager>())
    {
        for (int command = 0; command < count; ++command) {
            const QString id = QStringLiteral("Bench.Command.%1").arg(command);
            for (const auto &[context, enabled] : contextsForCommand(command))
                ActionManager::registerAction(makeAction(command, enabled, place).release(), id,
                                              context);
            proxies.push_back(ActionManager::action(id));
        }
    }
    static void change(const QStringList &contexts) { ActionManager::setCurrentContexts(contexts); }
    std::vector<QAction *> proxies;

private:
    std::unique_ptr<ActionManager> m_registry;
};

class Peer
{
public:
    Peer(int count, Place place)
    {
        for (int command = 0; command < count; ++command) {
            const QString id = QStringLiteral("Bench.Command.%1").arg(command);
            std::unique_ptr<PlainProxy> proxy;
            for (const auto &[context, enabled] : contextsForCommand(command)) {
                m_actions.push_back(makeAction(command, enabled, place));
                QAction *action = m_actions.back().get();
                if (!proxy)
                    proxy = std::make_unique<PlainProxy>(id, action);
                proxy->addOverrideAction(action, context);
            }
            proxies.push_back(proxy.get());
            m_proxies.push_back(std::move(proxy));
        }
    }
    void change(const QStringList &contexts)
    {
        // In the order of creation, which suits the caches best.
        for (const std::unique_ptr<PlainProxy> &proxy : m_proxies)
            proxy->setCurrentContexts(contexts);
    }
    std::vector<QAction *> proxies;

private:
    std::vector<std::unique_ptr<QAction>> m_actions;
    std::vector<std::unique_ptr<PlainProxy>> m_proxies;
};

struct Figure
{
    double ours = 0;
    double peer = 0;
};

struct Case
{
    int count;
    Place place;
    Change change;
};

std::string nameOf(const Case &which)
{
    static const char *const places[] = {"nowhere", "shown", "shown+keys"};
    static const char *const changes[] = {"none", "same-action", "half", "half-state"};
    return std::string("focus-change/") + changes[static_cast<int>(which.change)] + '/'
           + places[static_cast<int>(which.place)] + '/' + std::to_string(which.count);
}

/// Goes to and fro between two lists; the figure is one change, in microseconds.
template<class Subject>
double measure(benchmark::State &state, Subject &subject, Change change)
{
    using Clock = std::chrono::steady_clock;
    const QStringList lists[] = {{Base}, contextsOf(change)};
    // Both ways once more, so that what is made only once is made.
    for (int i = 0; i < 4; ++i)
        subject.change(lists[i % 2]);
    std::vector<double> times;
    for (auto _ : state) {
        const auto start = Clock::now();
        subject.change(lists[0]);
        subject.change(lists[1]);
        const std::chrono::duration<double> time = Clock::now() - start;
        state.SetIterationTime(time.count() / 2);
        times.push_back(time.count() / 2 * 1e6);
    }
    // The median: another process on the machine must not decide.
    std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
    return times[times.size() / 2];
}

template<class Subject>
void run(benchmark::State &state, const Case &which, double *result)
{
    Subject subject(which.count, which.place);
    std::unique_ptr<QMainWindow> window;
    if (which.place != Place::Nowhere)
        window = show(subject.proxies);
    *result = measure(state, subject, which.change);
}

bool report(const Case &which, const Figure &figure, double limit)
{
    const double ratio = figure.ours / figure.peer;
    const bool ok = ratio <= limit;
    std::printf("RATIO %s %.2fus %.2fus %.4f limit %.2f %s\n", nameOf(which).c_str(), figure.ours,
                figure.peer, ratio, limit, ok ? "ok" : "MISSED");
    return ok;
}

double limitOf(Change change)
{
    switch (change) {
    case Change::None:
    case Change::SameAction:
        return 0.03;
    case Change::Half:
        return 0.25;
    // Menus, tool bars and keys follow in both, which is nearly all of it.
    case Change::HalfState:
        return 1.1;
    }
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    IdeCore core;
    core.initialize();

    std::vector<std::pair<Case, std::unique_ptr<Figure>>> figures;
    for (const Change change :
         {Change::None, Change::SameAction, Change::Half, Change::HalfState}) {
        for (const Place place : {Place::Nowhere, Place::Shown, Place::ShownWithKeys}) {
            for (const int count : {100, 1000, 10000}) {
                const Case which{count, place, change};
                auto figure = std::make_unique<Figure>();
                const auto add = [&which](const char *side, auto function, double *result) {
                    auto *entry = benchmark::RegisterBenchmark(
                        (nameOf(which) + side).c_str(),
                        [which, function, result](benchmark::State &state) {
                            function(state, which, result);
                        });
                    entry->UseManualTime()->Unit(benchmark::kMicrosecond)->MinTime(0.1);
                };
                add("/registry", run<Ours>, &figure->ours);
                add("/peer", run<Peer>, &figure->peer);
                figures.emplace_back(which, std::move(figure));
            }
        }
    }
    benchmark::RunSpecifiedBenchmarks();

    bool ok = true;
    for (const auto &[which, figure] : figures) {
        if (figure->ours > 0 && figure->peer > 0)
            ok = report(which, *figure, limitOf(which.change)) && ok;
    }
    core.shutdown();
    return ok ? 0 : 1;
}
