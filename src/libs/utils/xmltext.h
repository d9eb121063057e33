// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef UTILS_XMLTEXT_H
#define UTILS_XMLTEXT_H

#include <utils/utils_export.h>

#include <QByteArray>
#include <QString>

namespace Utils {

/// What has to be known of an XML document by a stranger before a reader is let
/// loose on it.
class UTILS_EXPORT XmlText final
{
public:
    /// More attributes has no element of a document that a person or a program of
    /// good will wrote.
    static constexpr int MAX_ATTRIBUTES = 256;

    /// Decodes @p content by its byte order mark or the encoding it declares, as UTF-8
    /// when there is neither or nobody knows that encoding. What does not belong into
    /// the encoding becomes the sign for that (U+FFFD).
    explicit XmlText(const QByteArray &content);

    [[nodiscard]] const QString &text() const { return m_text; }
    /// The line, 1 being the first, of the first element with more attributes than
    /// MAX_ATTRIBUTES; 0 when there is none. Readers compare each attribute with all
    /// before it, which keeps them busy for minutes.
    [[nodiscard]] int lineOfAttributeFlood() const;

private:
    /// Behind the tag or the like at @p start; -1 at a flood.
    [[nodiscard]] int skipMarkup(int start) const;

    QString m_text;
};

} // namespace Utils

#endif // UTILS_XMLTEXT_H
