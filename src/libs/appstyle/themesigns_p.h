// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APPSTYLE_THEMESIGNS_P_H
#define APPSTYLE_THEMESIGNS_P_H

#include <QIcon>
#include <QStyle>

class QColor;
class QPainter;
class QRect;

namespace APPSTYLE {

/// The sign on the small buttons of bars and docks, drawn in the theme's colour of
/// text; null for every other picture of a style.
[[nodiscard]] QIcon themeSign(QStyle::StandardPixmap sign);

/// Such a sign in the middle of @p rect, in @p colour.
void paintThemeSign(QPainter *painter, const QRect &rect, QStyle::StandardPixmap sign,
                    const QColor &colour);

} // namespace APPSTYLE

#endif // APPSTYLE_THEMESIGNS_P_H
