// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APPSTYLE_CONTRAST_P_H
#define APPSTYLE_CONTRAST_P_H

#include <QColor>

namespace APPSTYLE {

/// What WCAG level AA asks for between text and its ground.
constexpr double TEXT_CONTRAST = 4.5;

/// The contrast ratio of WCAG, 1 to 21; transparency counts for nothing.
[[nodiscard]] double contrast(const QColor &one, const QColor &other);

/// @p colour as it is when it has the contrast @p ratio on @p ground. Otherwise made
/// lighter or darker, whichever goes further there, just until it has it, or to white or
/// black where that is not enough; hue and transparency stay.
[[nodiscard]] QColor readable(const QColor &colour, const QColor &ground, double ratio);

} // namespace APPSTYLE

#endif // APPSTYLE_CONTRAST_P_H
