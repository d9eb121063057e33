// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_SUPPORT_CAUGHTMESSAGES_H
#define TESTS_SUPPORT_CAUGHTMESSAGES_H

#include <QStringList>
#include <QtGlobal>

/// Takes every message of the Qt log for as long as it lives, for tests that
/// show what is not said. One at a time.
class CaughtMessages final
{
    Q_DISABLE_COPY(CaughtMessages)
public:
    CaughtMessages();
    ~CaughtMessages();

    [[nodiscard]] QStringList texts() const;

private:
    QtMessageHandler m_previous;
};

#endif // TESTS_SUPPORT_CAUGHTMESSAGES_H
