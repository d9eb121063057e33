// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Runs the core until it has had its look at the command line, and prints what
// happens on the way: when the main window is shown, and the core's own log.
//
// Timers fire in the order in which they are due. One made before the core makes
// its own is due before it at the same delay, one made after it is due after it:
// the two say at which delay the core does something, however slow the machine.

#include "support/corefixture.h"
#include "support/testproject.h"

#include <idecore/core/idecore.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QEvent>
#include <QTimer>

#include <cstdio>

namespace {

void say(const char *text)
{
    std::printf("%s\n", text);
    std::fflush(stdout);
}

void log(QtMsgType, const QMessageLogContext &, const QString &text)
{
    say(qPrintable(text));
}

void sayAfter(int delay, const char *text)
{
    QTimer::singleShot(delay, qApp, [text] { say(text); });
}

class ShowWatcher final : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            say("shown");
        return false;
    }
};

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    qInstallMessageHandler(log);
    ShowWatcher watcher;
    TestProjectFactory factory;
    const InPool inPool(&factory);
    {
        Core::IdeCore core;
        core.initialize();
        Core::ViewManager::mainWindow()->installEventFilter(&watcher);
        sayAfter(1000, "before 1000");
        sayAfter(1050, "before 1050");
        core.extensionsInitialized();
        sayAfter(1000, "after 1000");
        sayAfter(1050, "after 1050");
        QTimer::singleShot(1050, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
        if (const Core::IProject *project = Core::ProjectManager::currentProject())
            std::printf("current: %s\n", qPrintable(project->fileName()));
        Core::ProjectManager::closeCurrentProject();
        core.shutdown();
    }
    return 0;
}
