// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_TRANSLATIONS_NOTICESTATIONS_H
#define TESTS_TRANSLATIONS_NOTICESTATIONS_H

#include "stations.h"

/// What is said about files that cannot be opened or saved, and Save As.
void walkFileFaults(const Look &look);
/// What stands above the text of a document that is not as it was.
void walkNotices(const Look &look);
/// Going through the documents by keyboard.
void walkSwitcher(const Look &look);
/// Help that cannot be shown.
void walkHelp(const Look &look);
/// Settings that cannot be written.
void walkUnwritableSettings(const Look &look);

#endif // TESTS_TRANSLATIONS_NOTICESTATIONS_H
