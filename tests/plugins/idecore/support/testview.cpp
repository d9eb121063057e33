// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/testview.h"

#include <QCloseEvent>

namespace {
/// On a copy, because @p function may take itself away.
void run(std::function<void()> function)
{
    if (function)
        function();
}
} // namespace

TestView::TestView(const QString &title, QStringList *journal)
    : m_journal(journal)
{
    setObjectName(title);
    setShortTitle(title);
}

void TestView::onActivated()
{
    ++activated;
    note("activated");
    run(whileActivated);
}

void TestView::onDeactivated()
{
    ++deactivated;
    note("deactivated");
    run(whileDeactivated);
}

void TestView::closeEvent(QCloseEvent *event)
{
    ++asked;
    note("asked");
    const bool accept = !refuseClose;
    run(whileClosing); // may destroy this view
    event->setAccepted(accept);
}

void TestView::note(const char *what)
{
    if (m_journal)
        m_journal->append(objectName() + QLatin1Char(' ') + QLatin1String(what));
}
