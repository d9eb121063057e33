// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Scrolling a table of 10,000 external editors, each with a program of its own on the
// disk, against the same table over a plain item model that holds its icon in memory;
// the longest time that the window does not answer meanwhile and while the icons come
// in; and starting a program detached against a bare QProcess.

#include <extsys/pluginmanager.h>
#include <idecore/core/idecore.h>
#include <idecore/externaleditors/externaleditormanager.h>
#include <idecore/interfaces/ioptionspage.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileIconProvider>
#include <QHeaderView>
#include <QLoggingCategory>
#include <QProcess>
#include <QScrollBar>
#include <QSettings>
#include <QStandardItemModel>
#include <QTableView>
#include <QTemporaryDir>
#include <QWindow>

#include <time.h>

#include <algorithm>
#include <cstdio>
#include <vector>

using Core::ExternalEditor;
using Core::ExternalEditorManager;

namespace {

constexpr int EDITORS = 10000;
constexpr int ROUNDS = 9;
constexpr int STARTS = 300;
constexpr double LIMIT_RATIO = 1.2;
// One frame at 60 Hz.
constexpr double LIMIT_MS = 16.0;

/// CPU time of this thread: what the others on the machine do is not counted.
double cpuMs()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void print(const char *name, double ours, double peer, double limit)
{
    const double ratio = ours / peer;
    std::printf("RATIO externaleditors/%s %.3fms %.3fms %.3f limit %.2f %s\n", name, ours, peer,
                ratio, limit, ratio <= limit ? "ok" : "MISSED");
}

QList<ExternalEditor> makeEditors(const QString &folder)
{
    QList<ExternalEditor> editors;
    for (int i = 0; i < EDITORS; ++i) {
        QFile program(QStringLiteral("%1/editor_%2").arg(folder).arg(i));
        if (!program.open(QIODevice::WriteOnly) || program.write("#!/bin/sh\n") < 0)
            qFatal("%s cannot be written", qPrintable(program.fileName()));
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        editors.append({QStringLiteral("Editor %1").arg(i), program.fileName(),
                        QStringLiteral("%f +%l"), i == 0});
    }
    return editors;
}

/// The same texts, fonts and icons, all in memory.
void fill(QStandardItemModel *model, const QList<ExternalEditor> &editors)
{
    const QIcon icon = QFileIconProvider().icon(QFileInfo(editors.constFirst().program));
    for (const ExternalEditor &editor : editors) {
        const QList<QStandardItem *> row{new QStandardItem(icon, editor.name),
                                         new QStandardItem(editor.program),
                                         new QStandardItem(editor.arguments)};
        for (QStandardItem *item : row)
            item->setFont(QFont());
        model->appendRow(row);
    }
}

void showTable(QWidget *window)
{
    window->resize(700, 600);
    window->show();
    while (!window->windowHandle()->isExposed())
        QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

struct Scrolling
{
    double milliseconds = 0;
    double longestStep = 0;
};

/// From the top to the bottom, a page at a time, each painted.
Scrolling scroll(QTableView *table)
{
    Scrolling result;
    QScrollBar *const bar = table->verticalScrollBar();
    for (int row = 0; row <= bar->maximum(); row += bar->pageStep()) {
        const double start = cpuMs();
        bar->setValue(row);
        table->viewport()->repaint();
        QCoreApplication::processEvents();
        const double step = cpuMs() - start;
        result.milliseconds += step;
        result.longestStep = std::max(result.longestStep, step);
    }
    return result;
}

/// The longest turn of the event loop until the icons of all rows are there.
double longestTurn(QTableView *table)
{
    double longest = 0;
    const auto icon = [table](int row) {
        return table->model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>().cacheKey();
    };
    // The one asked for first comes in last.
    const int last = table->verticalScrollBar()->pageStep() * 3 + 60;
    const qint64 before = icon(last);
    QElapsedTimer patience;
    patience.start();
    while (icon(last) == before) {
        if (patience.elapsed() > 60000)
            qFatal("the icons did not come in");
        const double start = cpuMs();
        QCoreApplication::processEvents();
        longest = std::max(longest, cpuMs() - start);
    }
    return longest;
}

Core::IOptionsPage *page()
{
    const auto pages = ExtSys::PluginManager::instance()->getObjects<Core::IOptionsPage>();
    for (Core::IOptionsPage *candidate : pages) {
        if (candidate->id() == QLatin1String("BA.ExtEditor"))
            return candidate;
    }
    qFatal("there is no page of external editors");
}

void measureScrolling()
{
    const QTemporaryDir folder;
    const QList<ExternalEditor> editors = makeEditors(folder.path());
    ExternalEditorManager::applyData(editors);
    QStandardItemModel plainModel;
    fill(&plainModel, editors);
    std::vector<double> ours;
    std::vector<double> peers;
    std::vector<double> steps;
    std::vector<double> turns;
    // In turns, so that both meet the same machine; the first round makes caches.
    for (int round = 0; round <= ROUNDS; ++round) {
        QTableView plain;
        plain.setModel(&plainModel);
        plain.horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
        plain.setSelectionBehavior(QAbstractItemView::SelectRows);
        plain.setWordWrap(false);
        plain.setTextElideMode(Qt::ElideMiddle);
        showTable(&plain);
        // A new page knows no icon.
        QWidget *const widget = page()->widget();
        auto *const table = widget->findChild<QTableView *>(QStringLiteral("tableView"));
        showTable(widget);
        // As high, so that a page has as many rows.
        plain.resize(table->size());
        QCoreApplication::processEvents();
        const double peer = scroll(&plain).milliseconds;
        const Scrolling own = scroll(table);
        const double turn = longestTurn(table);
        page()->finish();
        if (round == 0)
            continue;
        peers.push_back(peer);
        ours.push_back(own.milliseconds);
        steps.push_back(own.longestStep);
        turns.push_back(turn);
    }
    print("scroll", median(ours), median(peers), LIMIT_RATIO);
    print("longest-step", median(steps), LIMIT_MS, 1);
    print("longest-turn-with-icons", median(turns), LIMIT_MS, 1);
    ExternalEditorManager::applyData({});
}

void measureStarting()
{
    const QString program = QStringLiteral("/bin/true");
    const QString file = QStringLiteral("/usr/share/top.v");
    const ExternalEditor editor{QStringLiteral("true"), program, QStringLiteral("-g %f +%l"), true};
    ExternalEditorManager::registerEditor(editor);
    const QStringList arguments{QStringLiteral("-g"), file, QStringLiteral("+1")};
    std::vector<double> ours;
    std::vector<double> peers;
    bool started = true;
    for (int i = 0; i < STARTS; ++i) {
        QElapsedTimer timer;
        timer.start();
        started =
            QProcess::startDetached(program, arguments, QStringLiteral("/usr/share")) && started;
        const qint64 between = timer.nsecsElapsed();
        started = ExternalEditorManager::openEditor(editor.name, file) && started;
        const qint64 end = timer.nsecsElapsed();
        peers.push_back(double(between) / 1e6);
        ours.push_back(double(end - between) / 1e6);
    }
    if (!started)
        qFatal("%s did not start", qPrintable(program));
    print("start", median(ours), median(peers), LIMIT_RATIO);
}

} // namespace

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    const QApplication app(argc, argv);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    Core::IdeCore core;
    core.initialize();
    measureScrolling();
    measureStarting();
    core.shutdown();
    return 0;
}
