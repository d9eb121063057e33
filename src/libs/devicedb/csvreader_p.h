// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef DEVICEDB_CSVREADER_P_H
#define DEVICEDB_CSVREADER_P_H

#include <QString>
#include <QStringList>

namespace DEV {

/// Takes a CSV text apart row by row; empty lines and comments are passed over.
class CsvReader final
{
public:
    explicit CsvReader(QString text);

    /// Moves to the next row; false at the end of the text.
    bool next();

    /// Of the current row: its fields, the line it starts in (from 1), and what
    /// is wrong with it, empty when nothing is.
    [[nodiscard]] const QStringList &fields() const { return m_fields; }
    [[nodiscard]] int line() const { return m_line; }
    [[nodiscard]] const QString &error() const { return m_error; }

private:
    void readRow();
    void readQuoted(QString &field);
    /// Passes one line end of any kind; false when there is none here.
    bool skipLineEnd();
    void skipLine();
    [[nodiscard]] bool atEnd() const { return m_pos >= m_text.size(); }
    [[nodiscard]] bool atLineEnd() const;

    const QString m_text;
    int m_pos = 0;
    int m_currentLine = 1;
    int m_line = 0;
    QStringList m_fields;
    QString m_error;
};

} // namespace DEV

#endif // DEVICEDB_CSVREADER_P_H
