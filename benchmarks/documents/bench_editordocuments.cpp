// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// What opening a file in the workbench with its text editor costs, with few and
// with many documents open.

#include "documentbench.h"
#include "growth.h"

#include <extsys/iplugin.h>
#include <idecore/core/idecore.h>
#include <idecore/editors/editormanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QPluginLoader>
#include <QTemporaryDir>

namespace {

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

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) != QLatin1String("--open")) {
        compareGrowth("documents_workbench", {QStringLiteral("--open")});
        return 0;
    }
    warmMemory();
    const Workbench workbench;
    serveOpenings(arguments.value(2).toInt(), [&workbench](int number) {
        Opening opening;
        const double heap = heapBytes();
        const double begin = cpuMilliseconds();
        workbench.open(number);
        opening.ms = cpuMilliseconds() - begin;
        opening.bytes = heapBytes() - heap;
        return opening;
    });
    return 0;
}
