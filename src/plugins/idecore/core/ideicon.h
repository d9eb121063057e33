// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_CORE_IDEICON_H
#define IDECORE_CORE_IDEICON_H

#include <idecore/idecore_export.h>

#include <QIcon>

class QString;

namespace Core {

/// The icon of the resource @p file, a PNG of 24 pixels such as
/// ":/core/image/new.png", sharp at every size for which a picture lies beside it:
/// new_16.png, new_20.png, new_28.png, for scales between one and two new_30.png,
/// new_36.png, new_42.png, and at twice and three times their size new_16@2x.png,
/// new_20@2x.png, new@2x.png, new_28@2x.png, new_20@3x.png, new@3x.png, new_28@3x.png.
/// What is missing is made from the next larger one; nothing is enlarged.
///
/// Follows the theme: lighter on a dark one, pale where disabled, as the style shows
/// all icons where selected. Null when there is no such resource; pictures are
/// read when they are first shown, and one that cannot be read shows as nothing.
/// GUI thread only.
[[nodiscard]] IDECORE_EXPORT QIcon ideIcon(const QString &file);

/// The product's own, of its windows: ":/core/image/logo/ide_logo_32.png", also at two
/// and three times its size. GUI thread only.
[[nodiscard]] IDECORE_EXPORT QIcon productIcon();

} // namespace Core

#endif // IDECORE_CORE_IDEICON_H
