// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APPSTYLE_THEMEPALETTE_P_H
#define APPSTYLE_THEMEPALETTE_P_H

#include <QPalette>

namespace APPSTYLE {

/// Complete palettes: every role is set in every colour group.
[[nodiscard]] QPalette lightPalette();
[[nodiscard]] QPalette darkPalette();

} // namespace APPSTYLE

#endif // APPSTYLE_THEMEPALETTE_P_H
