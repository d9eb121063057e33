// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_SUPPORT_MESSAGERECORDER_H
#define TESTS_SUPPORT_MESSAGERECORDER_H

#include <QDebug>
#include <QList>
#include <QString>
#include <QStringList>

/// Records what is written to the log while it lives, instead of printing it.
/// One at a time.
class MessageRecorder final
{
public:
    struct Message
    {
        QtMsgType type;
        QString category;
        QString text;
    };

    MessageRecorder();
    ~MessageRecorder();
    MessageRecorder(const MessageRecorder &) = delete;
    MessageRecorder &operator=(const MessageRecorder &) = delete;

    [[nodiscard]] const QList<Message> &messages() const { return m_messages; }
    /// What they say, in order.
    [[nodiscard]] QStringList texts() const;
    /// The same with the level in front: "warning: text".
    [[nodiscard]] QStringList labelled() const;
    /// The one of labelled(); empty when there are none or several.
    [[nodiscard]] QString only() const;
    /// The lines of that level, in order.
    [[nodiscard]] QStringList lines(QtMsgType type) const;
    /// Those of them that start with @p start.
    [[nodiscard]] QStringList lines(QtMsgType type, const QString &start) const;
    void clear() { m_messages.clear(); }

    /// True when the one critical line is that of a failed assertion of
    /// @p expression, with a source file and a line.
    [[nodiscard]] bool isOneAssertion(const QString &expression) const;

private:
    static void record(QtMsgType type, const QMessageLogContext &context, const QString &text);

    QList<Message> m_messages;
    QtMessageHandler m_before;
};

/// What the debug log writes for @p object, a pointer.
template<class T>
QString logged(T *object)
{
    QString text;
    QDebug(&text) << object;
    return text.trimmed();
}

#endif // TESTS_SUPPORT_MESSAGERECORDER_H
