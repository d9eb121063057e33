// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Stands in for the help viewer: writes its arguments and what it is told on
// standard input to the file FAKE_VIEWER_LOG. FAKE_VIEWER_MODE may be "stubborn"
// (does not end on SIGTERM) or "fail" (ends at once with the status 3).

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

#include <unistd.h>

int main(int argc, char **argv)
{
    const char *log = std::getenv("FAKE_VIEWER_LOG");
    const char *variable = std::getenv("FAKE_VIEWER_MODE");
    const std::string mode = variable ? variable : "";
    if (!log)
        return 2;
    if (mode == "stubborn")
        std::signal(SIGTERM, SIG_IGN);
    std::ofstream out(log, std::ios::app);
    out << "start";
    for (int i = 1; i < argc; ++i)
        out << ' ' << argv[i];
    out << std::endl;
    if (mode == "fail")
        return 3;
    std::string line;
    while (std::getline(std::cin, line))
        out << "told " << line << std::endl;
    while (mode == "stubborn")
        pause();
    return 0;
}
