// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "measuredprocess.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// Longer than any timer of the start, so that what is idle has started.
constexpr auto idleTime = 1500ms;
constexpr auto patience = 60s;

pid_t start(const std::vector<std::string> &command)
{
    const pid_t pid = fork();
    if (pid != 0)
        return pid;
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    std::vector<char *> arguments;
    for (const std::string &argument : command)
        arguments.push_back(const_cast<char *>(argument.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments.front(), arguments.data());
    _exit(127);
}

/// The processor time of another process, until now.
long long cpuOf(pid_t pid)
{
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(pid, &clock) != 0 || clock_gettime(clock, &time) != 0)
        return -1;
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

bool hasVisibleWindow(pid_t pid)
{
    const std::string search =
        "xdotool search --onlyvisible --pid " + std::to_string(pid) + " >/dev/null 2>&1";
    return std::system(search.c_str()) == 0;
}

bool waitUntilStarted(pid_t pid)
{
    const auto end = Clock::now() + patience;
    long long used = -1;
    auto since = Clock::now();
    while (Clock::now() < end) {
        const long long now = cpuOf(pid);
        siginfo_t ended{};
        waitid(P_PID, static_cast<id_t>(pid), &ended, WEXITED | WNOHANG | WNOWAIT);
        if (now < 0 || ended.si_pid == pid)
            return false;
        // A blinking cursor is no start any more: less than 2 ms in the time
        // that counts as idle.
        if (now - used > 2'000'000) {
            used = now;
            since = Clock::now();
        } else if (Clock::now() - since > idleTime) {
            if (hasVisibleWindow(pid))
                return true;
            since = Clock::now();
        }
        std::this_thread::sleep_for(20ms);
    }
    return false;
}

} // namespace

std::optional<StartCost> measureStart(const std::vector<std::string> &command)
{
    const pid_t pid = start(command);
    const bool started = waitUntilStarted(pid);
    // It shall not do any more: ending in good order is not part of the start.
    kill(pid, SIGKILL);
    rusage usage{};
    int status = 0;
    wait4(pid, &status, 0, &usage);
    if (!started) {
        std::fprintf(stderr, "%s showed no window (wait status %d)\n", command.front().c_str(),
                     status);
        return std::nullopt;
    }
    const auto toMs = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return StartCost{toMs(usage.ru_utime) + toMs(usage.ru_stime),
                     static_cast<double>(usage.ru_maxrss) / 1024.0};
}
