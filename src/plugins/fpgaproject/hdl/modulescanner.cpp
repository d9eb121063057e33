// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/hdl/modulescanner_p.h>

#include <QFile>
#include <QFileInfo>

namespace Fpga {

namespace {

constexpr qint64 MAX_READ = qint64(4) * 1024 * 1024;

bool isWordStart(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool isWordPart(char c)
{
    return isWordStart(c) || (c >= '0' && c <= '9') || c == '$';
}

/// Walks over the words of a source, without those in comments and strings.
class Words final
{
public:
    Words(const QByteArray &text, bool vhdl)
        : m_text(text)
        , m_vhdl(vhdl)
    {
    }

    /// Empty at the end. Signs are words of one character.
    QByteArray next()
    {
        skip();
        if (m_at >= m_text.size())
            return {};
        const int start = m_at;
        const char c = m_text.at(m_at++);
        if (c == '\\')
            return escapedName(start);
        if (!isWordStart(c))
            return m_text.mid(start, 1);
        while (m_at < m_text.size() && isWordPart(m_text.at(m_at)))
            ++m_at;
        return m_text.mid(start, m_at - start);
    }

private:
    /// "\a+b " in Verilog, up to a blank; "\a+b\" in VHDL.
    QByteArray escapedName(int start)
    {
        while (m_at < m_text.size()
               && (m_vhdl ? m_text.at(m_at) != '\\'
                          : !isspace(static_cast<unsigned char>(m_text.at(m_at)))))
            ++m_at;
        if (m_vhdl && m_at < m_text.size())
            ++m_at;
        return m_text.mid(start, m_at - start);
    }

    void skip()
    {
        while (m_at < m_text.size()) {
            const char c = m_text.at(m_at);
            if (isspace(static_cast<unsigned char>(c)))
                ++m_at;
            else if (lookingAt(m_vhdl ? "--" : "//"))
                skipTo("\n", 0);
            else if (lookingAt("/*"))
                skipTo("*/", 2);
            else if (c == '"')
                skipString();
            else
                break;
        }
    }

    [[nodiscard]] bool lookingAt(const char *sign) const
    {
        return m_text.at(m_at) == sign[0] && m_at + 1 < m_text.size()
               && m_text.at(m_at + 1) == sign[1];
    }

    void skipTo(const char *end, int from)
    {
        const int found = m_text.indexOf(end, m_at + from);
        m_at = found < 0 ? m_text.size() : found + int(qstrlen(end));
    }

    void skipString()
    {
        for (++m_at; m_at < m_text.size(); ++m_at) {
            const char c = m_text.at(m_at);
            if (c == '\\' && !m_vhdl)
                ++m_at;
            else if (c == '"' || c == '\n')
                break;
        }
        ++m_at;
    }

    const QByteArray m_text;
    const bool m_vhdl;
    int m_at = 0;
};

} // namespace

QStringList modulesIn(const QByteArray &text, FileKind kind)
{
    QStringList names;
    if (!isSource(kind))
        return names;
    const bool vhdl = kind == FileKind::Vhdl;
    Words words(text, vhdl);
    QByteArray before;
    for (QByteArray word = words.next(); !word.isEmpty(); word = words.next()) {
        const bool declares = vhdl ? word.toLower() == "entity" && before != "end"
                                   : word == "module" || word == "macromodule";
        // "use entity work.x" and "u1 : entity work.x" declare nothing, and "extern
        // module" only announces.
        if (declares && before != ":" && before != "use" && before != "extern") {
            QByteArray name = words.next();
            if (!vhdl && (name == "automatic" || name == "static"))
                name = words.next();
            const QByteArray after = vhdl ? words.next().toLower() : QByteArray("is");
            const QString declared = QString::fromUtf8(name);
            if (after == "is" && !name.isEmpty() && (isWordStart(name.at(0)) || name.at(0) == '\\')
                && !names.contains(declared))
                names.append(declared);
        }
        before = word.toLower();
    }
    return names;
}

QStringList modulesInFile(const QString &fileName, FileKind kind)
{
    QFile file(fileName);
    if (!QFileInfo(fileName).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    return modulesIn(file.read(MAX_READ), kind);
}

} // namespace Fpga
