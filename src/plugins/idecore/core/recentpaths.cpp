// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/core/recentpaths_p.h>

#include <QDir>

namespace Core {
namespace private_impl {

void addRecentPath(QStringList *paths, const QString &path, int limit)
{
    const QString native = QDir::toNativeSeparators(path);
    paths->removeAll(native);
    paths->prepend(native);
    while (paths->size() > limit)
        paths->removeLast();
}

} // namespace private_impl
} // namespace Core
