// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_SUPPORT_CONTRAST_H
#define TESTS_SUPPORT_CONTRAST_H

class QColor;

/// Contrast as WCAG 2.1 reckons it.
namespace Contrast {

/// What level AA asks for: of text, and of signs and the edges of controls.
constexpr double TEXT = 4.5;
constexpr double SIGN = 3.0;
/// WCAG asks nothing of what is disabled; here it can still be read with some care.
constexpr double DISABLED = 3.0;

/// 1 to 21. Where @p text is transparent, what it gives on @p ground counts.
[[nodiscard]] double ratio(const QColor &text, const QColor &ground);

} // namespace Contrast

#endif // TESTS_SUPPORT_CONTRAST_H
