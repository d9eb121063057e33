// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APP_HOST_H
#define APP_HOST_H

#include <QObject>
#include <QPointer>

#include <memory>

class CommandLine;
class QSessionManager; // NOLINT(cppcoreguidelines-virtual-class-destructor)
class QWidget;
class Splash;

/// Starts the plugins, shows what is going on meanwhile, and ends the program
/// in the ways it may be ended.
///
/// It links no plugin: a program whose core is missing still starts and says so.
/// The main window is found by the name of its class.
class Host final : public QObject
{
    Q_OBJECT
public:
    /// Keeps Qt from loading GL, unless the user chose how. Before there is an
    /// application object.
    static void turnGlOff();

    explicit Host(const CommandLine &commandLine);
    ~Host() override;

    /// Runs the program to its end; returns its exit status.
    int run();
    /// Prints the plugins found and what keeps them from starting.
    static void listPlugins(const CommandLine &commandLine);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static void findPlugins(const CommandLine &commandLine);
    bool startPlugins();
    void onMainWindowShown();
    void openFiles();
    /// Closes the main window as its close button does; false when it stays. One
    /// that was not shown yet is left as it is.
    bool closeMainWindow();
    void onEndRequested();
    void onCommitData(QSessionManager &session);

    const CommandLine &m_commandLine;
    std::unique_ptr<Splash> m_splash;
    QPointer<QWidget> m_mainWindow;
    bool m_wasShown = false;
};

#endif // APP_HOST_H
