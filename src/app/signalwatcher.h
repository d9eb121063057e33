// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APP_SIGNALWATCHER_H
#define APP_SIGNALWATCHER_H

#include <QObject>

/// Tells of SIGTERM and SIGINT in the event loop instead of ending the program.
/// One a process, because the signals are.
class SignalWatcher final : public QObject
{
    Q_OBJECT
public:
    explicit SignalWatcher(QObject *parent = nullptr);
    ~SignalWatcher() override;

Q_SIGNALS:
    /// Signals that came together are told once.
    void endRequested();

private:
    void onReadable();

    int m_descriptor = -1;
};

#endif // APP_SIGNALWATCHER_H
