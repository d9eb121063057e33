// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_PROJECTS_PROJECTTEMPLATE_P_H
#define IDECORE_PROJECTS_PROJECTTEMPLATE_P_H

#include <QString>

class QIODevice;

namespace Core {
namespace private_impl {

/// The text of the first element "Template" among the children of the root of the
/// project file that @p file is open on, a legacy name replaced by today's. Empty
/// when there is none, and when the file is not well formed to its end.
///
/// Bounded in time and memory whatever the file holds: one that is larger than
/// 16 MiB, nests deeper than 10,000 elements or declares entities is refused, too.
[[nodiscard]] QString templateOfProject(QIODevice *file);

} // namespace private_impl
} // namespace Core

#endif // IDECORE_PROJECTS_PROJECTTEMPLATE_P_H
