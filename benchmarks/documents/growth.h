// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef BENCHMARKS_DOCUMENTS_GROWTH_H
#define BENCHMARKS_DOCUMENTS_GROWTH_H

#include <QStringList>

#include <functional>

/// What the opening of one document took.
struct Opening
{
    double ms = 0;
    double bytes = 0; // heap growth
};

/// Compares the last ten of 500 openings with the last ten of 100.
///
/// Two processes, this program started again with @p arguments and a number, open
/// documents up to there and then take turns, one opening each. So whatever the
/// machine does meanwhile, like taking processor time away or slowing it down,
/// meets both. Prints the ratios of time and of memory under names that begin
/// with @p name.
void compareGrowth(const char *name, const QStringList &arguments);

/// The other side: opens @p already documents with @p open and then one more for
/// each line that it is sent, until there are no more.
void serveOpenings(int already, const std::function<Opening(int)> &open);

#endif // BENCHMARKS_DOCUMENTS_GROWTH_H
