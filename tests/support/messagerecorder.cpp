// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/messagerecorder.h"

#include <QRegularExpression>

namespace {
MessageRecorder *s_recorder = nullptr;
}

MessageRecorder::MessageRecorder()
{
    Q_ASSERT(!s_recorder);
    s_recorder = this;
    m_before = qInstallMessageHandler(&MessageRecorder::record);
}

MessageRecorder::~MessageRecorder()
{
    qInstallMessageHandler(m_before);
    s_recorder = nullptr;
}

QStringList MessageRecorder::texts() const
{
    QStringList all;
    for (const Message &message : m_messages)
        all.append(message.text);
    return all;
}

QStringList MessageRecorder::labelled() const
{
    QStringList all;
    for (const Message &message : m_messages) {
        const char *label = message.type == QtWarningMsg    ? "warning: "
                            : message.type == QtCriticalMsg ? "critical: "
                                                            : "other: ";
        all.append(QLatin1String(label) + message.text);
    }
    return all;
}

QString MessageRecorder::only() const
{
    const QStringList all = labelled();
    return all.size() == 1 ? all.constFirst() : QString();
}

QStringList MessageRecorder::lines(QtMsgType type) const
{
    return lines(type, QString());
}

QStringList MessageRecorder::lines(QtMsgType type, const QString &start) const
{
    QStringList found;
    for (const Message &message : m_messages) {
        if (message.type == type && message.text.startsWith(start))
            found.append(message.text);
    }
    return found;
}

bool MessageRecorder::isOneAssertion(const QString &expression) const
{
    const QStringList critical = lines(QtCriticalMsg);
    const QRegularExpression form(QLatin1String("^ASSERTION ")
                                  + QRegularExpression::escape(expression)
                                  + QLatin1String(" FAILED AT \\S+\\.cpp:[1-9][0-9]*$"));
    return critical.size() == 1 && form.match(critical.constFirst()).hasMatch();
}

void MessageRecorder::record(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    s_recorder->m_messages.append({type, QString::fromLatin1(context.category), text});
}
