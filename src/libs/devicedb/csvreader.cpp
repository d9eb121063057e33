// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "devicedb/csvreader_p.h"

#include <utility>

namespace DEV {

CsvReader::CsvReader(QString text)
    : m_text(std::move(text))
{
}

bool CsvReader::next()
{
    while (!atEnd()) {
        if (skipLineEnd())
            continue;
        if (m_text.at(m_pos) == QLatin1Char('#')) {
            skipLine();
            continue;
        }
        readRow();
        if (m_fields.size() > 1 || !m_fields.first().isEmpty() || !m_error.isEmpty())
            return true;
    }
    return false;
}

void CsvReader::readRow()
{
    m_fields.clear();
    m_error.clear();
    m_line = m_currentLine;
    for (;;) {
        while (!atEnd()
               && (m_text.at(m_pos) == QLatin1Char(' ') || m_text.at(m_pos) == QLatin1Char('\t')))
            ++m_pos;
        QString field;
        if (!atEnd() && m_text.at(m_pos) == QLatin1Char('"')) {
            readQuoted(field);
            const int start = m_pos;
            while (!atEnd() && !atLineEnd() && m_text.at(m_pos) != QLatin1Char(','))
                ++m_pos;
            if (!m_text.mid(start, m_pos - start).trimmed().isEmpty() && m_error.isEmpty())
                m_error = QStringLiteral("text after a closing quote");
        } else {
            const int start = m_pos;
            while (!atEnd() && !atLineEnd() && m_text.at(m_pos) != QLatin1Char(','))
                ++m_pos;
            field = m_text.mid(start, m_pos - start).trimmed();
        }
        m_fields.append(field);
        if (atEnd())
            return;
        if (skipLineEnd())
            return;
        ++m_pos; // the comma
    }
}

void CsvReader::readQuoted(QString &field)
{
    const int start = m_pos;
    const int startLine = m_currentLine;
    ++m_pos;
    while (!atEnd()) {
        if (m_text.at(m_pos) == QLatin1Char('"')) {
            ++m_pos;
            if (atEnd() || m_text.at(m_pos) != QLatin1Char('"'))
                return;
            field += QLatin1Char('"');
            ++m_pos;
        } else {
            const int before = m_pos;
            if (!skipLineEnd())
                ++m_pos;
            field += m_text.midRef(before, m_pos - before);
        }
    }
    // Nothing closes the quote: only this line is lost, not the rest of the table.
    m_error = QStringLiteral("a quote is not closed");
    m_pos = start;
    m_currentLine = startLine;
    while (!atEnd() && !atLineEnd())
        ++m_pos;
}

bool CsvReader::atLineEnd() const
{
    return m_text.at(m_pos) == QLatin1Char('\n') || m_text.at(m_pos) == QLatin1Char('\r');
}

bool CsvReader::skipLineEnd()
{
    if (!atLineEnd())
        return false;
    if (m_text.at(m_pos) == QLatin1Char('\r') && m_pos + 1 < m_text.size()
        && m_text.at(m_pos + 1) == QLatin1Char('\n'))
        ++m_pos;
    ++m_pos;
    ++m_currentLine;
    return true;
}

void CsvReader::skipLine()
{
    while (!atEnd() && !atLineEnd())
        ++m_pos;
}

} // namespace DEV
