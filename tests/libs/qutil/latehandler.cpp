// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <qutil/event.h>
#include <qutil/eventmanager.h>
#include <qutil/ieventhandler.h>

#include <cstdio>

namespace {

class LateHandler final : public QUtil::IEventHandler
{
public:
    ~LateHandler() override
    {
        // Other statics may still publish when this one goes.
        QUtil::EventManager::instance()->publish(QUtil::Event(QStringLiteral("late")));
        std::puts("destroyed");
        std::fflush(stdout);
    }

    void handleIEvent(const QUtil::IEvent *) override { std::puts("called"); }
};

// Constructed before the bus is first asked for, hence destroyed after any
// static that the bus could be.
LateHandler handler;

} // namespace

int main()
{
    QUtil::EventManager::instance()->subscribe(QStringLiteral("late"), &handler);
    return 0;
}
