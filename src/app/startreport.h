// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APP_STARTREPORT_H
#define APP_STARTREPORT_H

/// What the start has cost, on standard error: processor time and time on the
/// clock, in milliseconds.
namespace StartReport {

/// One line for the program until here, and one for each plugin.
void printPlugins();
/// One line for the whole start, once the main window is shown.
void printWindow();

} // namespace StartReport

#endif // APP_STARTREPORT_H
