// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The list of keys with 10,000 commands while the user types into its filter:
// from the press of a key until the list is painted anew.

#include <extsys/iplugin.h>
#include <extsys/pluginmanager.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/idecore.h>
#include <idecore/interfaces/ioptionspage.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMenu>
#include <QPluginLoader>
#include <QSettings>
#include <QTemporaryDir>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

using Core::ActionManager;

namespace {

constexpr int COMMANDS = 10000;
constexpr int MENUS = 100;
// One frame at 60 Hz.
constexpr double LIMIT_MS = 16.0;

/// By the number of the press within a round.
std::map<int, std::vector<double>> s_times;

void registerCommands()
{
    QMenu *menu = nullptr;
    for (int i = 0; i < COMMANDS; ++i) {
        if (i % (COMMANDS / MENUS) == 0) {
            menu = ActionManager::createMenu(QStringLiteral("Bench.Menu.%1").arg(i));
            menu->setTitle(QStringLiteral("Menu %1").arg(i));
            ActionManager::menu(QStringLiteral("Core.Menu.Tool"))->addMenu(menu);
        }
        auto *action = new QAction(QStringLiteral("Command number %1").arg(i));
        if (i % 5 == 0)
            action->setShortcut(QKeySequence(int(Qt::CTRL) + Qt::Key_A + i / 5 / 676,
                                             int(Qt::CTRL) + Qt::Key_A + i / 5 / 26 % 26,
                                             int(Qt::CTRL) + Qt::Key_A + i / 5 % 26));
        menu->addAction(
            ActionManager::registerAction(action, QStringLiteral("Bench.Action.Command%1").arg(i)));
    }
}

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

Core::IOptionsPage *page()
{
    const QList<Core::IOptionsPage *> pages =
        ExtSys::PluginManager::instance()->getObjects<Core::IOptionsPage>();
    for (Core::IOptionsPage *candidate : pages) {
        if (candidate->id() == QLatin1String("K.KeyBindings"))
            return candidate;
    }
    return nullptr;
}

void typing(benchmark::State &state)
{
    QDialog dialog;
    auto *layout = new QVBoxLayout(&dialog);
    QWidget *const widget = page()->widget();
    layout->addWidget(widget);
    dialog.resize(800, 450);
    dialog.show();
    auto *const filter = widget->findChild<QLineEdit *>(QStringLiteral("editFilter"));
    auto *const list = widget->findChild<QTreeView *>(QStringLiteral("treeCommands"));
    filter->setFocus();
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents();
    PaintWatch watch;
    list->viewport()->installEventFilter(&watch);
    int number = 0;
    const auto press = [&watch, &number, filter](int key, const QString &text) {
        watch.painted = false;
        QElapsedTimer timer;
        timer.start();
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(filter, &down);
        while (!watch.painted)
            QCoreApplication::processEvents();
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        s_times[number++].push_back(seconds * 1e3);
        return seconds;
    };

    // From all of them to one, and back.
    const QString text = QStringLiteral("command9876");
    for (auto _ : state) {
        double seconds = 0;
        number = 0;
        for (const QChar sign : text)
            seconds += press(0, sign);
        for (int i = 0; i < text.size(); ++i)
            seconds += press(Qt::Key_Backspace, QString());
        state.SetIterationTime(seconds / (2 * text.size()));
    }
    page()->finish();
}
BENCHMARK(typing)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

} // namespace

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    QApplication app(argc, argv);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    Core::IdeCore core;
    core.initialize();
    QPluginLoader loader(QStringLiteral(KEYBINDINGS_PLUGIN));
    auto *const plugin = qobject_cast<ExtSys::IPlugin *>(loader.instance());
    if (!plugin || !plugin->initialize()) {
        std::fprintf(stderr, "%s\n", qPrintable(loader.errorString()));
        return 1;
    }
    plugin->extensionsInitialized();
    registerCommands();

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    // The slowest of all presses, each by its median.
    double slowest = 0;
    for (auto &[number, times] : s_times) {
        std::nth_element(times.begin(), times.begin() + long(times.size() / 2), times.end());
        slowest = std::max(slowest, times[times.size() / 2]);
    }
    if (slowest > 0) {
        const double ratio = slowest / LIMIT_MS;
        std::printf("RATIO keybindings-filter %.2f %.0f %.3f limit 1 %s\n", slowest, LIMIT_MS,
                    ratio, ratio < 1 ? "ok" : "MISSED");
    }
    plugin->shutDown();
    core.shutdown();
    return 0;
}
