// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/mimetypeparser_p.h>

#include <idecore/mimedatabase/mimedatabase_p.h>
#include <idecore/mimedatabase/mimetype.h>
#include <idecore/mimedatabase/mimetype_p.h>
#include <idecore/mimedatabase/wildcard_p.h>

#include <QCoreApplication>
#include <QIODevice>
#include <QXmlStreamReader>
#include <QtDebug>

namespace Core {
namespace Internal {

namespace {

void setMessage(QString *errorMessage, const QString &text)
{
    if (errorMessage)
        *errorMessage = text;
}

QString notANumber(const QString &text)
{
    return QStringLiteral("Not a number '%1'.").arg(text);
}

/// The catalogue is asked with Latin-1 text; where it knows nothing, the
/// original stays, which Latin-1 may not be able to express.
QString translated(const QString &comment)
{
    const QByteArray source = comment.toLatin1();
    const QString text = QCoreApplication::translate("MimeType", source.constData());
    return text == QString::fromUtf8(source) ? comment : text;
}

} // namespace

BaseMimeTypeParser::BaseMimeTypeParser()
    : m_suffixPattern(QStringLiteral("^\\*\\.[\\w+]+$"))
{
    if (!m_suffixPattern.isValid())
        qCritical("ASSERTION m_suffixPattern.isValid() FAILED AT %s:%d", __FILE__, __LINE__);
}

BaseMimeTypeParser::~BaseMimeTypeParser() = default;

BaseMimeTypeParser::ParseStage BaseMimeTypeParser::nextStage(ParseStage current,
                                                             const QStringRef &element)
{
    switch (current) {
    case ParseBeginning:
        if (element == QLatin1String("mime-info"))
            return ParseMimeInfo;
        return element == QLatin1String("mime-type") ? ParseMimeType : ParseError;
    case ParseMimeInfo:
        return element == QLatin1String("mime-type") ? ParseMimeType : ParseError;
    case ParseMimeType:
    case ParseComment:
    case ParseGlobPattern:
    case ParseSubClass:
    case ParseAlias:
    case ParseMagicMatchRule:
    case ParseOtherMimeTypeSubTag:
        if (element == QLatin1String("comment"))
            return ParseComment;
        if (element == QLatin1String("glob"))
            return ParseGlobPattern;
        if (element == QLatin1String("sub-class-of"))
            return ParseSubClass;
        if (element == QLatin1String("alias"))
            return ParseAlias;
        if (element == QLatin1String("magic"))
            return ParseMagic;
        if (element == QLatin1String("mime-type"))
            return ParseMimeType;
        return ParseOtherMimeTypeSubTag;
    case ParseMagic:
        return element == QLatin1String("match") ? ParseMagicMatchRule : ParseError;
    case ParseError:
        break;
    }
    return ParseError;
}

bool BaseMimeTypeParser::parse(QIODevice *device, const QString &fileName, QString *errorMessage)
{
    const QString typeAttribute = QStringLiteral("type");
    MimeTypeData data;
    MagicRuleMatcherPtr ruleMatcher;
    ParseStage stage = ParseBeginning;
    QXmlStreamReader reader(device);
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement: {
            stage = nextStage(stage, reader.name());
            const QXmlStreamAttributes attributes = reader.attributes();
            switch (stage) {
            case ParseMimeType: {
                const QStringRef type = attributes.value(typeAttribute);
                if (type.isEmpty())
                    reader.raiseError(QStringLiteral("Missing 'type'-attribute"));
                else
                    data.type = type.toString();
                break;
            }
            case ParseComment: {
                const QString locale = attributes.value(QLatin1String("xml:lang")).toString();
                const QString comment = translated(reader.readElementText());
                if (locale.isEmpty())
                    data.comment = comment;
                else
                    data.localeComments.insert(locale, comment);
                break;
            }
            case ParseGlobPattern:
                addGlobPattern(attributes.value(QLatin1String("pattern")).toString(),
                               attributes.value(QLatin1String("weight")).toString(), &data);
                break;
            case ParseSubClass: {
                const QString parent = attributes.value(typeAttribute).toString();
                if (!parent.isEmpty())
                    data.subClassesOf.append(parent);
                break;
            }
            case ParseAlias: {
                const QString alias = attributes.value(typeAttribute).toString();
                if (!alias.isEmpty())
                    data.aliases.append(alias);
                break;
            }
            case ParseMagic: {
                int priority = 0;
                if (attributes.hasAttribute(QLatin1String("priority"))) {
                    const QString text = attributes.value(QLatin1String("priority")).toString();
                    bool ok = false;
                    priority = text.toInt(&ok);
                    if (!ok) {
                        setMessage(errorMessage, notANumber(text));
                        return false;
                    }
                }
                ruleMatcher = MagicRuleMatcherPtr::create();
                ruleMatcher->setPriority(priority);
                break;
            }
            case ParseMagicMatchRule:
                if (!addMagicMatchRule(attributes, ruleMatcher, errorMessage))
                    return false;
                break;
            case ParseError:
                reader.raiseError(
                    QStringLiteral("Unexpected element <%1>").arg(reader.name()));
                break;
            case ParseBeginning:
            case ParseMimeInfo:
            case ParseOtherMimeTypeSubTag:
                break;
            }
            break;
        }
        case QXmlStreamReader::EndElement:
            if (reader.name() == QLatin1String("mime-type")) {
                if (!process(MimeType(data), errorMessage))
                    return false;
                data.clear();
            } else if (reader.name() == QLatin1String("magic") && ruleMatcher) {
                data.magicMatchers.append(ruleMatcher);
                ruleMatcher.reset();
            }
            break;
        default:
            break;
        }
    }
    if (reader.hasError()) {
        setMessage(errorMessage,
                   QStringLiteral("An error has been encountered at line %1 of %2: %3:")
                       .arg(reader.lineNumber())
                       .arg(fileName, reader.errorString()));
        return false;
    }
    return true;
}

void BaseMimeTypeParser::addGlobPattern(const QString &pattern, const QString &weight,
                                        MimeTypeData *data) const
{
    if (pattern.isEmpty())
        return;
    const MimeGlobPattern glob(pattern, weight.isEmpty() ? MimeGlobPattern::DefaultWeight
                                                         : weight.toUInt());
    // Without a bracket every text is a valid wildcard.
    const bool hasBracket = pattern.contains(QLatin1Char('[')) || pattern.contains(QLatin1Char(']'));
    if (hasBracket && !Wildcard(pattern).isValid()) {
        qWarning("%s: Invalid wildcard '%s'.", Q_FUNC_INFO, qUtf8Printable(pattern));
        return;
    }
    data->globPatterns.append(glob);
    if (QRegExp(m_suffixPattern).exactMatch(pattern)) {
        const QString suffix = pattern.mid(2);
        data->suffixes.append(suffix);
        if (data->preferredSuffix.isEmpty())
            data->preferredSuffix = suffix;
    }
}

MimeTypeParser::MimeTypeParser(private_impl::MimeDatabasePrivate &database)
    : m_database(database)
{
}

bool MimeTypeParser::process(const MimeType &type, QString *)
{
    m_database.addMimeType(type);
    return true;
}

bool addMagicMatchRule(const QXmlStreamAttributes &attributes,
                       const MagicRuleMatcherPtr &ruleMatcher, QString *errorMessage)
{
    if (ruleMatcher.isNull()) {
        qCritical("ASSERTION !ruleMatcher.isNull() FAILED AT %s:%d", __FILE__, __LINE__);
        return false;
    }
    const QStringRef type = attributes.value(QLatin1String("type"));
    const bool isString = type == QLatin1String("string");
    if (!isString && type != QLatin1String("byte")) {
        qWarning("%s: match type %s is not supported.", Q_FUNC_INFO,
                 qUtf8Printable(type.toString()));
        return true;
    }
    const QString value = attributes.value(QLatin1String("value")).toString();
    if (value.isEmpty()) {
        setMessage(errorMessage, QStringLiteral("Empty match value detected."));
        return false;
    }
    const QStringRef offset = attributes.value(QLatin1String("offset"));
    const int colon = offset.indexOf(QLatin1Char(':'));
    const QStringRef limits[] = {colon < 0 ? offset : offset.left(colon),
                                 colon < 0 ? offset : offset.mid(colon + 1)};
    int positions[2] = {};
    for (int i = 0; i < 2; ++i) {
        bool ok = false;
        positions[i] = limits[i].toInt(&ok);
        if (!ok) {
            setMessage(errorMessage, notANumber(limits[i].toString()));
            return false;
        }
    }
    if (isString)
        ruleMatcher->add(MagicRulePtr(new MagicStringRule(value, positions[0], positions[1])));
    else
        ruleMatcher->add(MagicRulePtr(new MagicByteRule(value, positions[0], positions[1])));
    return true;
}

} // namespace Internal
} // namespace Core
