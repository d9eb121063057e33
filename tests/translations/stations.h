// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_TRANSLATIONS_STATIONS_H
#define TESTS_TRANSLATIONS_STATIONS_H

#include <QString>

#include <functional>
#include <vector>

class QWidget;

/// What a station calls with each window that it shows, and the window's name.
using Look = std::function<void(QWidget *window, const QString &name)>;

/// One way to windows of the program.
struct Station
{
    /// Names the row of the test.
    const char *name;
    /// Shows its windows, one after the other, and leaves none open. It has to call
    /// the function.
    std::function<void(const Look &look)> walk;
};

/// All of them. The project of the example is open, and a file of it.
///
/// A new dialog gets a line here.
std::vector<Station> stations();

#endif // TESTS_TRANSLATIONS_STATIONS_H
