// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_IDECORE_MIMEDATABASE_MESSAGERECORDER_H
#define TESTS_IDECORE_MIMEDATABASE_MESSAGERECORDER_H

#include <QString>
#include <QStringList>
#include <QtGlobal>

/// Keeps what is logged while it lives, instead of printing it. One at a time.
class MessageRecorder
{
public:
    MessageRecorder()
        : m_previous(qInstallMessageHandler(&MessageRecorder::record))
    {
        messages().clear();
    }
    ~MessageRecorder() { qInstallMessageHandler(m_previous); }

    /// "warning: text", "critical: text", in the order they came.
    QStringList all() const { return messages(); }
    QString only() const { return messages().size() == 1 ? messages().first() : QString(); }

private:
    Q_DISABLE_COPY(MessageRecorder)

    static QStringList &messages()
    {
        static QStringList list;
        return list;
    }
    static void record(QtMsgType type, const QMessageLogContext &, const QString &text)
    {
        const QString kind = type == QtWarningMsg    ? QStringLiteral("warning: ")
                             : type == QtCriticalMsg ? QStringLiteral("critical: ")
                                                     : QStringLiteral("other: ");
        messages().append(kind + text);
    }

    QtMessageHandler m_previous;
};

#endif // TESTS_IDECORE_MIMEDATABASE_MESSAGERECORDER_H
