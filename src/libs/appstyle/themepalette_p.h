// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APPSTYLE_THEMEPALETTE_P_H
#define APPSTYLE_THEMEPALETTE_P_H

#include <QPalette>

namespace APPSTYLE {

/// Complete palettes: every role is set in every colour group.
[[nodiscard]] QPalette lightPalette();
[[nodiscard]] QPalette darkPalette();
/// That of the tool tips beside @p palette, with links that are read on their ground.
[[nodiscard]] QPalette toolTipPalette(const QPalette &palette);

} // namespace APPSTYLE

#endif // APPSTYLE_THEMEPALETTE_P_H
