// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/caughtmessages.h"

static QStringList &caught()
{
    static QStringList texts;
    return texts;
}

static void take(QtMsgType, const QMessageLogContext &, const QString &text)
{
    caught().append(text);
}

CaughtMessages::CaughtMessages()
    : m_previous(qInstallMessageHandler(take))
{
    caught().clear();
}

CaughtMessages::~CaughtMessages()
{
    qInstallMessageHandler(m_previous);
}

QStringList CaughtMessages::texts() const
{
    return caught();
}
