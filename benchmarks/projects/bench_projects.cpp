// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Opening a project of 10,000 files in the workbench until its panel is painted
// and answers, against asking the system for the same files and filling a plain
// item model with the same rows; and filtering the table of devices by typing.

#include <devicedb/devicedb.h>
#include <extsys/iplugin.h>
#include <fpgaproject/file/projectdocument.h>
#include <fpgaproject/fpgaprojectconstants.h>
#include <fpgaproject/wizards/devicepicker_p.h>
#include <idecore/core/idecore.h>
#include <idecore/interfaces/iproject.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QPluginLoader>
#include <QSettings>
#include <QStandardItemModel>
#include <QTableView>
#include <QTemporaryDir>
#include <QTreeView>

#include <algorithm>
#include <cstdio>
#include <vector>

using Core::ProjectManager;

namespace {

constexpr int FOLDERS = 100;
constexpr int FILES_IN_FOLDER = 100;
constexpr double LIMIT_RATIO = 1.5;
// One frame at 60 Hz.
constexpr double LIMIT_KEY_MS = 16.0;

QString s_project;
QStringList s_files;
std::vector<double> s_open;
std::vector<double> s_peer;
std::vector<double> s_ratios;
std::vector<double> s_keys;

double median(std::vector<double> *times)
{
    const auto middle = times->begin() + std::ptrdiff_t(times->size() / 2);
    std::nth_element(times->begin(), middle, times->end());
    return *middle;
}

/// Notes the painting of a widget.
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

void makeProject(const QString &folder)
{
    Fpga::ProjectDocument document;
    QVector<Fpga::FileEntry> entries;
    for (int i = 0; i < FOLDERS; ++i) {
        const QString name = QStringLiteral("rtl/block%1").arg(i, 3, 10, QLatin1Char('0'));
        QDir(folder).mkpath(name);
        for (int j = 0; j < FILES_IN_FOLDER; ++j) {
            Fpga::FileEntry entry;
            entry.path = QStringLiteral("%1/module_%2.%3")
                             .arg(name)
                             .arg(j)
                             .arg(QLatin1String(j % 3 == 0   ? "v"
                                                : j % 3 == 1 ? "sv"
                                                             : "vhd"));
            entry.kind = Fpga::fileKindOf(entry.path);
            entries.append(entry);
            s_files.append(folder + QLatin1Char('/') + entry.path);
            QFile file(s_files.last());
            if (!file.open(QIODevice::WriteOnly))
                qFatal("%s cannot be written", qPrintable(file.fileName()));
        }
    }
    document.setName(QStringLiteral("large"));
    document.addFiles(entries);
    s_project = folder + QStringLiteral("/large.kprj");
    QString reason;
    if (!Fpga::ProjectDocument::save(document.toXml(), s_project, &reason))
        qFatal("%s", qPrintable(reason));
}

/// QDir lists each folder, the system is asked for each file, and the rows go into
/// QStandardItemModel.
void fillPlainModel(QStandardItemModel *model)
{
    QHash<QString, QStringList> folders;
    QHash<QString, QStandardItem *> kinds;
    for (const QString &file : qAsConst(s_files)) {
        const QFileInfo info(file);
        const QString folder = info.path();
        if (!folders.contains(folder))
            folders.insert(folder, QDir(folder).entryList(QDir::Files));
        QStandardItem *&kind = kinds[info.suffix()];
        if (!kind) {
            kind = new QStandardItem(info.suffix());
            model->appendRow(kind);
        }
        auto *const item = new QStandardItem(info.fileName());
        item->setToolTip(file);
        item->setData(info.exists());
        kind->appendRow(item);
    }
}

double peerMs()
{
    QElapsedTimer timer;
    timer.start();
    QStandardItemModel model;
    fillPlainModel(&model);
    return double(timer.nsecsElapsed()) / 1e6;
}

void openProject(benchmark::State &state)
{
    auto *const dock = Core::ViewManager::mainWindow()->findChild<QDockWidget *>(
        QLatin1String(Fpga::Constants::PROJECT_PANEL));
    // The first project brings the tree along.
    ProjectManager::openProject(s_project);
    auto *const tree = dock->findChild<QTreeView *>();
    PaintWatch watch;
    tree->viewport()->installEventFilter(&watch);
    for (auto _ : state) {
        // In turns, so that both meet the same machine.
        const double peer = peerMs();
        s_peer.push_back(peer);
        ProjectManager::closeCurrentProject();
        QCoreApplication::processEvents();
        watch.painted = false;
        QElapsedTimer timer;
        timer.start();
        ProjectManager::openProject(s_project);
        while (!watch.painted)
            QCoreApplication::processEvents();
        // Usable: nothing is left to do, and a key moves in the tree.
        QCoreApplication::processEvents();
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QCoreApplication::sendEvent(tree, &down);
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        if (!tree->currentIndex().parent().isValid())
            state.SkipWithError("the tree did not answer");
        state.SetIterationTime(seconds);
        s_open.push_back(seconds * 1e3);
        s_ratios.push_back(seconds * 1e3 / peer);
    }
    tree->viewport()->removeEventFilter(&watch);
}
BENCHMARK(openProject)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(25);

void filterDevices(benchmark::State &state)
{
    const DEV::DeviceDb devices(QStringLiteral(DEVICE_TABLE));
    Fpga::DevicePicker picker(devices.rows());
    picker.resize(800, 500);
    picker.show();
    QCoreApplication::processEvents();
    auto *const edit = picker.findChild<QLineEdit *>();
    auto *const table = picker.findChild<QTableView *>();
    PaintWatch watch;
    table->viewport()->installEventFilter(&watch);
    const QString typed = QStringLiteral("ice40 hx8k ct256");
    for (auto _ : state) {
        edit->clear();
        QCoreApplication::processEvents();
        double sum = 0;
        for (const QChar c : typed) {
            watch.painted = false;
            const int before = table->model()->rowCount();
            QElapsedTimer timer;
            timer.start();
            QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            QCoreApplication::sendEvent(edit, &key);
            // What a key does not change need not be painted.
            while (table->model()->rowCount() != before && !watch.painted)
                QCoreApplication::processEvents();
            QCoreApplication::processEvents();
            const double ms = double(timer.nsecsElapsed()) / 1e6;
            s_keys.push_back(ms);
            sum += ms;
        }
        if (table->model()->rowCount() != 1)
            state.SkipWithError("the filter did not filter");
        state.SetIterationTime(sum / 1e3);
    }
    table->viewport()->removeEventFilter(&watch);
}
BENCHMARK(filterDevices)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);

void report()
{
    if (!s_ratios.empty()) {
        const double ours = median(&s_open);
        const double theirs = median(&s_peer);
        const double ratio = median(&s_ratios);
        std::printf("RATIO openproject %.2f %.2f %.3f limit %.1f %s\n", ours, theirs, ratio,
                    LIMIT_RATIO, ratio <= LIMIT_RATIO ? "ok" : "MISSED");
    }
    if (!s_keys.empty()) {
        // Nearly every key, not just half of them.
        std::sort(s_keys.begin(), s_keys.end());
        const double slow = s_keys[s_keys.size() * 99 / 100];
        const double ratio = slow / LIMIT_KEY_MS;
        std::printf("RATIO devicefilter %.2f %.0f %.3f limit 1 %s\n", slow, LIMIT_KEY_MS, ratio,
                    ratio < 1 ? "ok" : "MISSED");
    }
}

} // namespace

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    QApplication app(argc, argv);
    const QTemporaryDir settings;
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    Core::IdeCore core;
    core.initialize();
    QPluginLoader loader(QStringLiteral(FPGAPROJECT_PLUGIN));
    auto *const plugin = qobject_cast<ExtSys::IPlugin *>(loader.instance());
    if (!plugin || !plugin->initialize())
        qFatal("the plugin did not start: %s", qPrintable(loader.errorString()));
    Core::ViewManager::mainWindow()->resize(1200, 800);
    Core::ViewManager::mainWindow()->show();
    QCoreApplication::processEvents();
    makeProject(folder.path());

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    report();
    ProjectManager::closeCurrentProject();
    plugin->shutDown();
    core.shutdown();
    return 0;
}
