// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <qutil/ieventhandler.h>

#include <qutil/eventmanager.h>

namespace QUtil {

IEventHandler::~IEventHandler()
{
    EventManager::instance()->unsubscribeAll(this);
}

} // namespace QUtil
