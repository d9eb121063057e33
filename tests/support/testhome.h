// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_SUPPORT_TESTHOME_H
#define TESTS_SUPPORT_TESTHOME_H

class QString;

/// Removes @p path (relative to the home, or absolute), a file or a folder with all
/// that is in it, from the home that run-isolated made for the test. Ends the
/// program when it was started by other means: then the home, and what would be
/// removed, is a person's own.
void removeFromTestHome(const QString &path);

#endif // TESTS_SUPPORT_TESTHOME_H
