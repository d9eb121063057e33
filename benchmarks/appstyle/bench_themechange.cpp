// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Another theme for the workbench with 200 open editors, against the same palettes for
// a plain window with as many views of the same text component; in either case until
// all that follows from it has happened, painting included.

#include <appstyle/appstylemanager.h>
#include <extsys/iplugin.h>
#include <idecore/core/idecore.h>
#include <idecore/editors/editormanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <KTextEditor/Document>
#include <KTextEditor/Editor>
#include <KTextEditor/View>

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QMainWindow>
#include <QPluginLoader>
#include <QSettings>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QVector>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

using APPSTYLE::AppStyleManager;

namespace {

constexpr int EDITORS = 200;
constexpr int CHANGES = 11;
constexpr double LIMIT = 1.5;
const char TEXT[] = "module top(input clk, output reg q);\n"
                    "    // toggles\n"
                    "    always @(posedge clk) q <= ~q;\n"
                    "endmodule\n";

double cpuMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

void settle()
{
    for (int i = 0; i < 10; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

/// The middle of several changes to and fro.
double measured(const std::function<void(bool dark)> &change)
{
    QVector<double> times;
    for (int i = 0; i <= CHANGES; ++i) {
        const double begin = cpuMilliseconds();
        change(i % 2 == 0);
        settle();
        // The first one makes caches.
        if (i > 0)
            times.append(cpuMilliseconds() - begin);
    }
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}

double plainWindow(const QPalette &light, const QPalette &dark)
{
    QMainWindow window;
    auto *const stack = new QStackedWidget;
    window.setCentralWidget(stack);
    window.resize(1200, 800);
    window.show();
    for (int i = 0; i < EDITORS; ++i) {
        KTextEditor::Document *const document =
            KTextEditor::Editor::instance()->createDocument(stack);
        document->setText(QString::fromLatin1(TEXT));
        document->setMode(QStringLiteral("Verilog"));
        KTextEditor::View *const view = document->createView(stack);
        view->setStatusBarEnabled(false);
        stack->setCurrentIndex(stack->addWidget(view));
    }
    settle();
    return measured([&](bool toDark) { QApplication::setPalette(toDark ? dark : light); });
}

double workbench()
{
    const QTemporaryDir folder;
    QPluginLoader loader(QStringLiteral(TEXTEDITOR_PLUGIN));
    Core::IdeCore core;
    core.initialize();
    auto *plugin = qobject_cast<ExtSys::IPlugin *>(loader.instance());
    if (!plugin || !plugin->initialize())
        qFatal("the text editor did not start: %s", qPrintable(loader.errorString()));
    QWidget *const window = Core::ViewManager::mainWindow();
    window->resize(1200, 800);
    window->show();
    for (int i = 0; i < EDITORS; ++i) {
        QFile file(folder.filePath(QStringLiteral("file%1.v").arg(i)));
        if (!file.open(QIODevice::WriteOnly) || file.write(TEXT) < 0)
            qFatal("cannot write %s", qPrintable(file.fileName()));
        file.close();
        if (!Core::EditorManager::openEditor(file.fileName()))
            qFatal("cannot open %s", qPrintable(file.fileName()));
    }
    settle();
    const double time = measured([](bool toDark) {
        AppStyleManager::instance()->setAppStyle(toDark ? APPSTYLE::THEME_DARK
                                                        : APPSTYLE::THEME_CLASSIC);
    });
    plugin->shutDown();
    core.shutdown();
    return time;
}

} // namespace

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    AppStyleManager::instance()->setAppStyle(APPSTYLE::THEME_DARK);
    const QPalette dark = QApplication::palette();
    AppStyleManager::instance()->setAppStyle(APPSTYLE::THEME_CLASSIC);
    const QPalette light = QApplication::palette();

    // Ours first: what it sets for the text component holds for the peer as well.
    const double ours = workbench();
    AppStyleManager::instance()->setAppStyle(APPSTYLE::THEME_CLASSIC);
    const double peer = plainWindow(light, dark);
    const double ratio = ours / peer;
    std::printf("RATIO theme_change_%d_editors %.1fms %.1fms %.2f limit %.2f %s\n", EDITORS, ours,
                peer, ratio, LIMIT, ratio <= LIMIT ? "ok" : "MISSED");
    return 0;
}
