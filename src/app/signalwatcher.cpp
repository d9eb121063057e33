// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "signalwatcher.h"

#include <QDebug>
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

// A blocked signal and a signalfd would need less, but the block would be
// inherited by every program started from here.
static int writeEnd = -1;

extern "C" {
static void onSignal(int)
{
    const int saved = errno;
    const char mark = 0;
    // A full pipe holds a request already.
    const ssize_t written = write(writeEnd, &mark, 1);
    static_cast<void>(written);
    errno = saved;
}
}

static void handle(int signal, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

SignalWatcher::SignalWatcher(QObject *parent)
    : QObject(parent)
{
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        qWarning("signals will end the program without asking: %s", std::strerror(errno));
        return;
    }
    m_descriptor = ends[0];
    writeEnd = ends[1];
    auto *notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &SignalWatcher::onReadable);
    handle(SIGTERM, onSignal);
    handle(SIGINT, onSignal);
}

SignalWatcher::~SignalWatcher()
{
    if (m_descriptor < 0)
        return;
    // What comes from here on ends the program at once, as it would without us.
    handle(SIGTERM, SIG_DFL);
    handle(SIGINT, SIG_DFL);
    close(writeEnd);
    close(m_descriptor);
}

void SignalWatcher::onReadable()
{
    char marks[64];
    while (read(m_descriptor, marks, sizeof marks) > 0) {
    }
    Q_EMIT endRequested();
}
