// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APPSTYLE_FRAMETILE_P_H
#define APPSTYLE_FRAMETILE_P_H

#include <QRect>

#include <functional>

class QPainter;
class QStyleOption;

namespace APPSTYLE {

/// Draws the frame of a field from a picture of its corners and edges, which all
/// fields of one look share whatever their size: to smooth each frame on its own is
/// most of what a form takes to be painted. @p paint makes the picture; nothing may
/// lie farther than four pixels from the edge of the rectangle that it is given.
///
/// False, and nothing is drawn, where a picture would not do: for printers, for
/// fractions of pixels, for the smallest rectangles.
[[nodiscard]] bool drawTiledFrame(QPainter *painter, const QStyleOption *option,
                                  const std::function<void(QPainter *, const QRect &)> &paint);

} // namespace APPSTYLE

#endif // APPSTYLE_FRAMETILE_P_H
