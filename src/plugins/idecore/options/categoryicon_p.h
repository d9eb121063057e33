// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_OPTIONS_CATEGORYICON_P_H
#define IDECORE_OPTIONS_CATEGORYICON_P_H

#include <QIcon>

class QString;

namespace Core {
namespace private_impl {

/// The side of a category's picture in points.
constexpr int CATEGORY_ICON_SIZE = 24;

/// The picture @p file of a category. Null where there is no file, unlike an icon made
/// from the path alone. The file is opened when the picture is first painted: a list
/// that is longer than its window need not read all of them to be shown.
[[nodiscard]] QIcon categoryIcon(const QString &file);

} // namespace private_impl
} // namespace Core

#endif // IDECORE_OPTIONS_CATEGORYICON_P_H
