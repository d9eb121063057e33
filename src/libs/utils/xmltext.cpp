// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <utils/xmltext.h>

#include <QTextCodec>
#include <QXmlStreamReader>

namespace Utils {

namespace {

struct Bracket
{
    const char *open;
    const char *close;
};

// What is between these is no tag, whatever it looks like.
constexpr Bracket BRACKETS[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};

} // namespace

XmlText::XmlText(const QByteArray &content)
{
    QXmlStreamReader head(content);
    head.readNext();
    const QByteArray declared = head.documentEncoding().toLatin1();
    QTextCodec *codec = QTextCodec::codecForName(declared);
    if (!codec)
        codec = QTextCodec::codecForName("UTF-8");
    m_text = QTextCodec::codecForUtfText(content, codec)->toUnicode(content);
}

int XmlText::lineOfAttributeFlood() const
{
    int at = m_text.indexOf(QLatin1Char('<'));
    while (at >= 0) {
        const int behind = skipMarkup(at);
        if (behind < 0)
            return m_text.leftRef(at).count(QLatin1Char('\n')) + 1;
        at = m_text.indexOf(QLatin1Char('<'), behind);
    }
    return 0;
}

int XmlText::skipMarkup(int start) const
{
    for (const Bracket &bracket : BRACKETS) {
        const QLatin1String open(bracket.open);
        const QLatin1String close(bracket.close);
        if (m_text.midRef(start, open.size()) != open)
            continue;
        const int end = m_text.indexOf(close, start + open.size());
        return end < 0 ? m_text.size() : end + close.size();
    }
    int attributes = 0;
    for (int at = start + 1; at < m_text.size(); ++at) {
        const QChar c = m_text.at(at);
        // A second '<' is where a reader gives up, or what a document type holds.
        if (c == QLatin1Char('>') || c == QLatin1Char('<'))
            return at;
        if (c != QLatin1Char('"') && c != QLatin1Char('\''))
            continue;
        if (++attributes > MAX_ATTRIBUTES)
            return -1;
        at = m_text.indexOf(c, at + 1);
        // What is not closed is no element either.
        if (at < 0)
            break;
    }
    return m_text.size();
}

} // namespace Utils
