// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_SUPPORT_LAUNCHRECORDER_H
#define TESTS_SUPPORT_LAUNCHRECORDER_H

#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// Tells how a program was started that runs detached: the recorder, which stands in
/// for an external editor. One at a time.
class LaunchRecorder final
{
public:
    struct Launch
    {
        QString folder;
        QStringList arguments;
    };

    LaunchRecorder();
    ~LaunchRecorder();
    LaunchRecorder(const LaunchRecorder &) = delete;
    LaunchRecorder &operator=(const LaunchRecorder &) = delete;

    /// The path of the recorder.
    [[nodiscard]] static QString program();

    /// Waits until the recorder was started @p count times and hands the launches over,
    /// in order of their arguments; fails the test when they do not come, and when there
    /// are more.
    [[nodiscard]] QList<Launch> wait(int count) const;
    /// The one launch.
    [[nodiscard]] Launch waitForOne() const { return wait(1).value(0); }
    /// True when the recorder, started now once more, is the only one to have been.
    [[nodiscard]] bool nothingWasStarted() const;

private:
    [[nodiscard]] QList<Launch> launches() const;

    QTemporaryDir m_folder;
};

#endif // TESTS_SUPPORT_LAUNCHRECORDER_H
