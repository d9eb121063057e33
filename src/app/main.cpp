// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"
#include "host.h"
#include "translations.h"

#include <QApplication>
#include <QLoggingCategory>

#include <cstdio>

namespace {

/// Warnings are printed whether or not there is a terminal; left alone, they
/// would go to the journal of the system without one.
void printMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

void setUpLog(bool verbose)
{
    qInstallMessageHandler(printMessage);
    // Only the program's own trace; the libraries' would drown it.
    QLoggingCategory::setFilterRules(verbose ? QStringLiteral("default.debug=true")
                                             : QStringLiteral("*.debug=false"));
}

QStringList toArguments(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("KelmoWare"));
    QCoreApplication::setApplicationName(QStringLiteral("KELMO FPGA Designer"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KELMO_VERSION));

    const CommandLine commandLine(toArguments(argc, argv));
    if (!commandLine.error.isEmpty()) {
        std::fprintf(stderr, "kelmo-designer: %s; see kelmo-designer --help\n",
                     qPrintable(commandLine.error));
        return 2;
    }
    if (commandLine.help) {
        std::fputs(qPrintable(CommandLine::helpText()), stdout);
        return 0;
    }
    if (commandLine.version) {
        std::printf("%s %s\n", qPrintable(QCoreApplication::applicationName()), KELMO_VERSION);
        return 0;
    }
    // First: the log makes Qt settle its locale, too.
    Translations translations;
    setUpLog(commandLine.verbose);
    if (commandLine.listPlugins) {
        // Needs no display.
        const QCoreApplication application(argc, argv);
        Host::listPlugins(commandLine);
        return 0;
    }

    Host::turnGlOff();
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setDesktopFileName(QStringLiteral("kelmo-fpga-designer"));
    const QApplication application(argc, argv);
    translations.install(QCoreApplication::applicationDirPath()
                         + QStringLiteral("/../share/translations"));
    return Host(commandLine).run();
}
