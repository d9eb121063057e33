// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <qutil/ievent.h>

namespace QUtil {

IEvent::~IEvent() = default;

} // namespace QUtil
