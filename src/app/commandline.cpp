// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "commandline.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace {

/// Options that the application object takes out of the command line; it accepts
/// them with one or two dashes.
struct QtOption
{
    const char *name;
    bool hasValue;
};

constexpr QtOption qtOptions[] = {
    {"platform", true},        {"platformpluginpath", true},
    {"platformtheme", true},   {"plugin", true},
    {"qwindowgeometry", true}, {"geometry", true},
    {"qwindowicon", true},     {"icon", true},
    {"qwindowtitle", true},    {"title", true},
    {"display", true},         {"name", true},
    {"session", true},         {"style", true},
    {"stylesheet", true},      {"qmljsdebugger", true},
    {"reverse", false},        {"widgetcount", false},
    {"nograb", false},         {"dograb", false},
    {"sync", false},
};

const QtOption *findQtOption(const QString &argument)
{
    const QString name = argument.mid(argument.startsWith(QLatin1String("--")) ? 2 : 1);
    const auto *const it =
        std::find_if(std::begin(qtOptions), std::end(qtOptions), [&name](const QtOption &option) {
            return name == QLatin1String(option.name);
        });
    return it == std::end(qtOptions) ? nullptr : it;
}

} // namespace

CommandLine::CommandLine(const QStringList &arguments)
{
    const QLatin1String projectOption("-prj");
    int place = 0;
    bool optionsEnded = false;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments.at(i);
        const bool hasNext = i + 1 < arguments.size();
        if (optionsEnded || !argument.startsWith(QLatin1Char('-')) || argument.size() == 1) {
            files.append(QFileInfo(argument).absoluteFilePath());
        } else if (argument == QLatin1String("--")) {
            optionsEnded = true;
        } else if (argument.compare(projectOption, Qt::CaseInsensitive) == 0) {
            // The core looks at the first place only and passes over any other,
            // with its path and without a word.
            hasProject = hasProject || (place == 0 && hasNext && argument == projectOption);
            ++i;
        } else if (const QtOption *option = findQtOption(argument)) {
            i += option->hasValue ? 1 : 0;
            continue; // The application object removes it: it takes no place.
        } else {
            readOption(argument, arguments, &i);
        }
        ++place;
    }
}

void CommandLine::readOption(const QString &argument, const QStringList &arguments, int *next)
{
    const QLatin1String pathOption("--plugin-path");
    if (argument == QLatin1String("--help") || argument == QLatin1String("-h")) {
        help = true;
    } else if (argument == QLatin1String("--version") || argument == QLatin1String("-v")) {
        version = true;
    } else if (argument == QLatin1String("--list-plugins")) {
        listPlugins = true;
    } else if (argument == QLatin1String("--safe-mode")) {
        safeMode = true;
    } else if (argument == QLatin1String("--verbose")) {
        verbose = true;
    } else if (argument == pathOption || argument.startsWith(pathOption + QLatin1Char('='))) {
        const QString path =
            argument == pathOption ? arguments.value(++*next) : argument.mid(pathOption.size() + 1);
        if (path.isEmpty())
            error = QStringLiteral("the option --plugin-path needs a folder");
        else
            pluginPaths.append(QFileInfo(path).absoluteFilePath());
    } else if (error.isEmpty()) {
        error = QStringLiteral("unknown option %1").arg(argument);
    }
}

QString CommandLine::helpText()
{
    return QStringLiteral(
        "Usage: kelmo-designer [-prj FILE] [OPTION…] [FILE…]\n"
        "Opens the FPGA design environment, and in it the FILEs.\n"
        "\n"
        "  -prj FILE           open the project FILE; has to come first\n"
        "  --plugin-path DIR   look for plugins in DIR, too, and there first\n"
        "  --safe-mode         start the core and no other plugin\n"
        "  --list-plugins      print the plugins and their state, and end\n"
        "  --verbose           print the debug trace and what the start has cost\n"
        "  -v, --version       print the version, and end\n"
        "  -h, --help          print this, and end\n"
        "  --                  what follows are files\n");
}
