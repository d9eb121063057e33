// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APP_COMMANDLINE_H
#define APP_COMMANDLINE_H

#include <QString>
#include <QStringList>

/// What the user asked for on the command line.
///
/// Read before there is an application object, so that a wrong option, help and
/// version need no display. The windowing options of Qt ("-platform xcb") are
/// passed over.
class CommandLine final
{
public:
    /// @p arguments without the program's name.
    explicit CommandLine(const QStringList &arguments);

    static QString helpText();

    /// Empty when the command line can be understood.
    QString error;
    bool help = false;
    bool version = false;
    bool listPlugins = false;
    bool safeMode = false;
    bool verbose = false;
    /// A project is named in first place, for the core to open.
    bool hasProject = false;
    QStringList pluginPaths;
    /// Absolute.
    QStringList files;

private:
    void readOption(const QString &argument, const QStringList &arguments, int *next);
};

#endif // APP_COMMANDLINE_H
