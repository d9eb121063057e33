// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_MIMEDATABASE_PARSING_H
#define TESTS_PLUGINS_IDECORE_MIMEDATABASE_PARSING_H

#include "support/messagerecorder.h"

#include <idecore/mimedatabase/magicrulematcher.h>
#include <idecore/mimedatabase/mimetype.h>
#include <idecore/mimedatabase/mimetypeparser_p.h>

#include <QBuffer>
#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/// Keeps the types it reads; refuses one named "refuse".
class Parser : public Core::Internal::BaseMimeTypeParser
{
public:
    QList<Core::MimeType> types;

protected:
    bool process(const Core::MimeType &type, QString *errorMessage) override
    {
        if (type.type() == QLatin1String("refuse")) {
            *errorMessage = QStringLiteral("refused");
            return false;
        }
        types.append(type);
        return true;
    }
};

struct Result
{
    bool ok = false;
    QString message;
    QList<Core::MimeType> types;
    QStringList log;

    Core::MimeType type() const { return types.size() == 1 ? types.first() : Core::MimeType(); }
};

inline Result parse(QIODevice &device)
{
    Result result;
    Parser parser;
    const MessageRecorder recorder;
    result.ok = parser.parse(&device, QStringLiteral("test.xml"), &result.message);
    result.types = parser.types;
    result.log = recorder.labelled();
    return result;
}

inline Result parse(QByteArray xml)
{
    QBuffer buffer(&xml);
    buffer.open(QIODevice::ReadOnly);
    return parse(buffer);
}

/// One type "a/b" with @p content inside.
inline Result parseType(const QByteArray &content)
{
    return parse("<mime-info>\n<mime-type type=\"a/b\">\n" + content
                 + "\n</mime-type></mime-info>");
}

inline const Core::MagicRuleMatcher *ruleMatcher(const Result &result, int index = 0)
{
    const auto matchers = result.type().magicMatchers();
    return index < matchers.size()
               ? dynamic_cast<const Core::MagicRuleMatcher *>(matchers.at(index).data())
               : nullptr;
}

inline QString locatedError(int line, const QByteArray &text)
{
    return QStringLiteral("An error has been encountered at line %1 of test.xml: %2:")
        .arg(line)
        .arg(QString::fromLatin1(text));
}

#endif // TESTS_PLUGINS_IDECORE_MIMEDATABASE_PARSING_H
