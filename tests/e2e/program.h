// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_E2E_PROGRAM_H
#define TESTS_E2E_PROGRAM_H

#include <QByteArray>
#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QTest>
#include <QVariant>

#include <initializer_list>

// The machine may be busy with other tests.
#define SOON_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, 20000)
#define SOON_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, 20000)

/// The program running as a process of its own, driven through the X server.
///
/// Whatever goes wrong is told as text by the functions that return one; empty
/// means success.
class Program final
{
public:
    Program() = default;
    ~Program();
    Q_DISABLE_COPY(Program)

    /// Starts it and waits for nothing.
    [[nodiscard]] QString launch(const QStringList &arguments = {});
    /// Starts it and waits for its painted main window.
    [[nodiscard]] QString start(const QStringList &arguments = {});
    /// After launch(): true when the main window stood alone within 20 s, whichever
    /// window has the keyboard.
    [[nodiscard]] bool waitForMainWindow() const;
    [[nodiscard]] bool isRunning() const;
    /// Waits for the end; false when it has not come after 20 s.
    [[nodiscard]] bool waitForEnd();
    [[nodiscard]] int exitCode() const { return m_process.exitCode(); }
    [[nodiscard]] bool exitedNormally() const
    {
        return m_process.exitStatus() == QProcess::NormalExit;
    }
    /// Without what Qt says of windows of others that went while it asked for them.
    [[nodiscard]] QString errorOutput() const;
    /// The whole lines of its standard output that begin so.
    [[nodiscard]] QStringList linesFrom(const QString &beginning) const;
    /// The last of them; empty when there is none.
    [[nodiscard]] QString lastLine(const QString &beginning) const;
    [[nodiscard]] qint64 pid() const { return m_process.processId(); }

    /// Presses keys of the active window, given as xdotool names ("ctrl+s").
    void keys(const QStringList &names);
    void key(const QString &name) { keys({name}); }
    /// Types @p text into the active window.
    void type(const QString &text);
    /// Clicks at a place of the screen.
    void click(int x, int y, int button = 1);
    /// Presses the left button at a place of the screen, and lets go at another.
    void drag(const QPoint &from, const QPoint &to);
    /// Makes the main window a normal one at a place of the screen, as a person
    /// drags it there.
    void moveMainWindow(const QRect &place);
    /// Asks the main window to close, as its close button does.
    void closeMainWindow();
    void kill(int signal);

    /// The visible windows of the program by their titles.
    [[nodiscard]] QStringList windowTitles() const;
    /// The title of the window that has the keyboard.
    [[nodiscard]] QString activeTitle() const;
    /// True when a window with a title that contains @p part had it within 20 s.
    [[nodiscard]] bool waitForActive(const QString &part) const;
    /// Where the inside of the window is that has the keyboard.
    [[nodiscard]] QRect activeGeometry() const;
    /// The visible windows of the program that the window manager leaves alone: menus,
    /// tool tips and the like. By their ids in no order.
    [[nodiscard]] QStringList popups() const;
    [[nodiscard]] int popupCount() const { return popups().size(); }
    [[nodiscard]] static QRect geometryOf(const QString &id);
    /// Moves the pointer to @p place. Returns the id of the topmost window that a click
    /// would reach there, that of its frame when it has one.
    [[nodiscard]] static QString windowUnderPointerAt(const QPoint &place);
    /// A property of the main window as xprop prints it.
    [[nodiscard]] QString mainWindowProperty(const QString &name) const;
    [[nodiscard]] QRect mainWindowGeometry() const;

    /// Saves a picture of the screen into the folder named by the environment
    /// variable KELMO_E2E_PICTURES, nothing when it is not set.
    void picture(const QString &name) const;

private:
    [[nodiscard]] QString mainWindowId() const;

    QProcess m_process;
    QString m_errors;
    QString m_output;
};

[[nodiscard]] QString named(const char *text);
/// Presses keys by the names that Program::keys() takes.
void press(Program *program, std::initializer_list<const char *> keys);

/// Closes @p program, which has nothing unsaved, as its close button does; it has to end
/// well, without a word on standard error.
void endWell(Program *program);

/// An entry of the store "IDE" as programs have left it on disk; invalid without it.
[[nodiscard]] QVariant storedValue(const QString &key);
/// The same, as a list.
[[nodiscard]] QStringList storedPaths(const QString &key);
/// "unreadable" of a file that is.
[[nodiscard]] QByteArray contentOf(const QString &path);

#endif // TESTS_E2E_PROGRAM_H
