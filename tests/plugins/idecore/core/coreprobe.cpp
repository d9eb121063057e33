// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Starts and stops the core services and prints what the test asks about.

#include <idecore/core/idecore.h>

#include <QApplication>
#include <QTextStream>

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    QTextStream out(stdout);
    {
        Core::IdeCore core;
        core.initialize();
        out << "data:" << Core::IdeCore::appDataDir() << '\n';
        out << "devices:" << (Core::IdeCore::deviceDataBase() != nullptr) << '\n';
        core.shutdown();
    }
    out << "done\n";
    return 0;
}
