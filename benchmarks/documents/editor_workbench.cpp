// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// What opening a file in the workbench with its text editor costs, with few and
// with many documents open.

#include "documentbench.h"

#include <extsys/iplugin.h>
#include <idecore/core/idecore.h>
#include <idecore/editors/editormanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QPluginLoader>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>

namespace {

constexpr int few = 100;
constexpr int many = 500;

/// The workbench with the text editor in it, shown.
class Workbench
{
public:
    Workbench()
        : m_loader(QStringLiteral(TEXTEDITOR_PLUGIN))
        , m_plugin(qobject_cast<ExtSys::IPlugin *>(m_loader.instance()))
    {
        m_core.initialize();
        if (!m_plugin || !m_plugin->initialize())
            qFatal("the text editor did not start: %s", qPrintable(m_loader.errorString()));
        QWidget *const window = Core::ViewManager::mainWindow();
        window->resize(1200, 800);
        window->show();
        window->activateWindow();
        settle();
    }
    ~Workbench()
    {
        m_plugin->shutDown();
        m_core.shutdown();
    }
    Workbench(const Workbench &) = delete;
    Workbench &operator=(const Workbench &) = delete;

    void open(int number) const
    {
        const QString path = m_folder.filePath(QStringLiteral("file%1.v").arg(number));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)
            || file.write("module top(input clk);\nendmodule\n") < 0)
            qFatal("cannot write %s", qPrintable(path));
        file.close();
        if (!Core::EditorManager::openEditor(path))
            qFatal("cannot open %s", qPrintable(path));
        settle();
    }

private:
    QTemporaryDir m_folder;
    Core::IdeCore m_core;
    QPluginLoader m_loader;
    ExtSys::IPlugin *m_plugin;
};

void report(const char *name, double ours, double peer)
{
    const double value = peer > 0 ? ours / peer : 0;
    std::printf("RATIO documents_workbench_%s %.3f %.3f %.2f limit 1.30 %s\n", name, ours, peer,
                value, value <= 1.3 ? "ok" : "MISSED");
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    benchmark::Initialize(&argc, argv);
    warmMemory();

    const Workbench workbench;
    Openings openings;
    for (int i = 0; i < many; ++i) {
        const double heap = heapBytes();
        const double begin = cpuMilliseconds();
        workbench.open(i);
        openings.whole.append(cpuMilliseconds() - begin);
        openings.bytes.append(heapBytes() - heap);
    }
    report("growth_ms", Openings::lastTen(openings.whole, many),
           Openings::lastTen(openings.whole, few));
    report("growth_bytes", Openings::lastTen(openings.bytes, many),
           Openings::lastTen(openings.bytes, few));
    return 0;
}
