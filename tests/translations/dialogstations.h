// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_TRANSLATIONS_DIALOGSTATIONS_H
#define TESTS_TRANSLATIONS_DIALOGSTATIONS_H

#include "stations.h"

/// Every row of the options dialog and every tab in it, with what opens from the pages.
void walkOptions(const Look &look);
/// The dialog and the two questions that clicks on its picture lead to.
void walkAbout(const Look &look);

#endif // TESTS_TRANSLATIONS_DIALOGSTATIONS_H
