// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef ASSISTANT_HELPCOLLECTION_P_H
#define ASSISTANT_HELPCOLLECTION_P_H

#include <QString>

namespace ASSISTANT {

/// A copy of @p collection and the help files beside it, in the user's data
/// folder and as new as they are. The viewer writes to the collection it shows,
/// which the installed one may not allow. Where no copy can be made, @p collection
/// itself.
[[nodiscard]] QString writableCollection(const QString &collection);

} // namespace ASSISTANT

#endif // ASSISTANT_HELPCOLLECTION_P_H
