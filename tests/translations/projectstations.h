// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_TRANSLATIONS_PROJECTSTATIONS_H
#define TESTS_TRANSLATIONS_PROJECTSTATIONS_H

#include "stations.h"

/// The dialogs of the project panel, and what it says of files that are not as
/// they should be.
void walkProjectPanel(const Look &look);
/// What is said about changes that cannot be made to a project.
void walkProjectFaults(const Look &look);
/// Closing a project with changes, and the window without one.
void walkClosedProject(const Look &look);
/// Every wizard, what it says about what is typed, and what it asks about.
void walkWizards(const Look &look);

#endif // TESTS_TRANSLATIONS_PROJECTSTATIONS_H
