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
    enum Value {
        None,
        Next,
        /// In the next argument or, in the same one, behind a "=".
        NextOrJoined
    };

    const char *name;
    Value value;
};

constexpr QtOption qtOptions[] = {
    {"platform", QtOption::Next},
    {"platformpluginpath", QtOption::Next},
    {"platformtheme", QtOption::Next},
    {"plugin", QtOption::Next},
    {"qwindowgeometry", QtOption::Next},
    {"geometry", QtOption::Next},
    {"qwindowicon", QtOption::Next},
    {"icon", QtOption::Next},
    {"qwindowtitle", QtOption::Next},
    {"title", QtOption::Next},
    {"display", QtOption::Next},
    {"name", QtOption::Next},
    {"visual", QtOption::Next},
    {"session", QtOption::Next},
    {"style", QtOption::NextOrJoined},
    {"stylesheet", QtOption::NextOrJoined},
    {"qmljsdebugger", QtOption::NextOrJoined},
    {"reverse", QtOption::None},
    {"widgetcount", QtOption::None},
    {"nograb", QtOption::None},
    {"dograb", QtOption::None},
};

/// How many arguments, from @p argument on, are an option for Qt; 0 where it is
/// not one of Qt's.
int qtArguments(const QString &argument)
{
    const QString option = argument.mid(argument.startsWith(QLatin1String("--")) ? 2 : 1);
    const int equals = option.indexOf(QLatin1Char('='));
    const QStringRef name = option.leftRef(equals);
    const auto *const known =
        std::find_if(std::begin(qtOptions), std::end(qtOptions),
                     [&name](const QtOption &o) { return name == QLatin1String(o.name); });
    if (known == std::end(qtOptions))
        return 0;
    if (equals >= 0)
        return known->value == QtOption::NextOrJoined ? 1 : 0;
    return known->value == QtOption::None ? 1 : 2;
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
        } else if (const int taken = qtArguments(argument)) {
            i += taken - 1;
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
