// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/mimetypeparser_p.h>

#include <idecore/core/assertion_p.h>
#include <idecore/mimedatabase/mimedatabase_p.h>
#include <idecore/mimedatabase/mimetype.h>
#include <idecore/mimedatabase/mimetype_p.h>
#include <idecore/mimedatabase/wildcard_p.h>

#include <QCoreApplication>
#include <QIODevice>
#include <QPair>
#include <QVarLengthArray>
#include <QVector>
#include <QXmlStreamReader>
#include <QtDebug>

#include <algorithm>
#include <cstring>

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

/// Latin-1 text, and whether it is more than ASCII.
struct Latin1
{
    QVarLengthArray<char, 256> text;
    bool isAscii = false;
};

/// False where Latin-1 cannot express @p text. Goes four units at a time and
/// takes no memory: it runs over most of what a file of definitions holds.
bool toLatin1(const QString &text, Latin1 &latin1)
{
    const QChar *const units = text.constData();
    const int size = text.size();
    latin1.text.resize(size + 1);
    char *const bytes = latin1.text.data();
    quint64 bits = 0;
    int i = 0;
    for (; i + 4 <= size; i += 4) {
        quint64 four;
        std::memcpy(&four, units + i, sizeof four);
        if (four & 0xff00ff00ff00ff00)
            return false;
        bits |= four;
        for (int k = 0; k < 4; ++k)
            bytes[i + k] = char(units[i + k].unicode());
    }
    bits |= bits >> 32;
    bits |= bits >> 16;
    for (; i < size; ++i) {
        bits |= units[i].unicode();
        bytes[i] = char(units[i].unicode());
    }
    bytes[size] = '\0';
    latin1.isAscii = (bits & 0xffff) < 0x80;
    return (bits & 0xffff) <= 0xff;
}

/// Puts the catalogue's text in place of @p comment. It is asked with Latin-1
/// text, so that it cannot know what Latin-1 cannot express.
void translate(QString &comment)
{
    Latin1 source;
    if (!toLatin1(comment, source))
        return;
    const QString text = QCoreApplication::translate("MimeType", source.text.constData());
    // An answer that says what was asked is none, and what was asked is not
    // UTF-8 unless it is ASCII.
    const bool known =
        text != (source.isAscii ? comment : QString::fromUtf8(source.text.constData()));
    if (known)
        comment = text;
}

/// Empty when the current element does not have it. Nothing keeps the reader's
/// attributes: they would be copied at its next step.
QString attribute(const QXmlStreamReader &reader, const char *name)
{
    return reader.attributes().value(QLatin1String(name)).toString();
}

/// Reads the text up to the end of the element, which must not hold other
/// elements, into @p text and its memory. The reader's own function takes new
/// memory each time.
void readElementText(QXmlStreamReader &reader, QString &text)
{
    text.resize(0);
    for (;;) {
        switch (reader.readNext()) {
        case QXmlStreamReader::Characters:
        case QXmlStreamReader::EntityReference:
            text += reader.text();
            break;
        case QXmlStreamReader::Comment:
        case QXmlStreamReader::ProcessingInstruction:
            break;
        case QXmlStreamReader::EndElement:
            return;
        default:
            if (!reader.hasError())
                reader.raiseError(QStringLiteral("Expected character data."));
            return;
        }
    }
}

} // namespace

BaseMimeTypeParser::BaseMimeTypeParser()
    : m_suffixPattern(QStringLiteral("^\\*\\.[\\w+]+$"))
{
    KELMO_ASSERT(m_suffixPattern.isValid(), );
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
    case ParseOtherMimeTypeSubTag: {
        static const struct
        {
            QLatin1String element;
            ParseStage stage = ParseError;
        } next[] = {
            {QLatin1String("comment"), ParseComment},
            {QLatin1String("glob"), ParseGlobPattern},
            {QLatin1String("sub-class-of"), ParseSubClass},
            {QLatin1String("alias"), ParseAlias},
            {QLatin1String("magic"), ParseMagic},
            {QLatin1String("mime-type"), ParseMimeType},
        };
        for (const auto &known : next) {
            if (element.size() == known.element.size() && element == known.element)
                return known.stage;
        }
        return ParseOtherMimeTypeSubTag;
    }
    case ParseMagic:
        return element == QLatin1String("match") ? ParseMagicMatchRule : ParseError;
    case ParseError:
        break;
    }
    return ParseError;
}

/// What one run of parse() has come to.
struct BaseMimeTypeParser::Run
{
    QXmlStreamReader reader;
    ParseStage stage = ParseBeginning;
    /// How many elements are open.
    int depth = 0;
    MimeTypeData data;
    /// Null outside a magic element.
    MagicRuleMatcherPtr ruleMatcher;
    /// Gathered here, so that their memory is taken once.
    LocaleComments localeComments;
    /// The prefixes that the open elements declare, and how deep each does so.
    QVector<QPair<QString, int>> prefixes;
    /// Memory for the text of a comment and its locale.
    QString text;
    QString locale;

    /// False, with the reader's error, when the current element uses a prefix
    /// that no open element declares.
    bool enterElement()
    {
        ++depth;
        const QXmlStreamAttributes attributes = reader.attributes();
        const bool usesNone = reader.prefix().isEmpty()
                              && std::all_of(attributes.cbegin(), attributes.cend(),
                                             [](const QXmlStreamAttribute &attribute) {
                                                 return isBuiltIn(attribute.prefix());
                                             });
        if (usesNone)
            return true;
        for (const QXmlStreamAttribute &attribute : attributes) {
            if (attribute.prefix() == QLatin1String("xmlns"))
                prefixes.append({attribute.name().toString(), depth});
        }
        return isDeclared(reader.prefix())
               && std::all_of(attributes.cbegin(), attributes.cend(),
                              [this](const QXmlStreamAttribute &attribute) {
                                  return isDeclared(attribute.prefix());
                              });
    }
    void leaveElement()
    {
        --depth;
        while (!prefixes.isEmpty() && prefixes.constLast().second > depth)
            prefixes.removeLast();
    }

private:
    static bool isBuiltIn(const QStringRef &prefix)
    {
        return prefix.isEmpty()
               || (prefix.size() == 3 && std::equal(prefix.begin(), prefix.end(), u"xml"));
    }
    bool isDeclared(const QStringRef &prefix)
    {
        if (isBuiltIn(prefix) || prefix == QLatin1String("xmlns")
            || std::any_of(prefixes.cbegin(), prefixes.cend(),
                           [&prefix](const auto &declared) { return declared.first == prefix; }))
            return true;
        reader.raiseError(QStringLiteral("Namespace prefix '%1' not declared").arg(prefix));
        return false;
    }
};

bool BaseMimeTypeParser::parse(QIODevice *device, const QString &fileName, QString *errorMessage)
{
    Run run;
    run.text.reserve(256);
    run.locale.reserve(16);
    QXmlStreamReader &reader = run.reader;
    reader.setDevice(device);
    // Elements go by their local names, so that all there is to a namespace is
    // that its prefix is declared: checked here in a fraction of the time.
    reader.setNamespaceProcessing(false);
    // A few bytes of entities expand to gigabytes, those of the document type
    // while it is read.
    reader.setEntityExpansionLimit(0);
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            if (!startElement(run, errorMessage))
                return false;
            break;
        case QXmlStreamReader::EndElement:
            if (!endElement(run, errorMessage))
                return false;
            break;
        case QXmlStreamReader::DTD:
            // Nothing needs them here, and many short ones get past the limit.
            if (!reader.entityDeclarations().isEmpty())
                reader.raiseError(QStringLiteral("Entity declarations are not supported"));
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

bool BaseMimeTypeParser::startElement(Run &run, QString *errorMessage) const
{
    // The reader keeps every open element in memory.
    constexpr int mostOpenElements = 256;
    if (!run.enterElement())
        return true;
    if (run.depth > mostOpenElements) {
        run.reader.raiseError(QStringLiteral("Elements are nested too deeply"));
        return true;
    }
    MimeTypeData &data = run.data;
    run.stage = nextStage(run.stage, run.reader.name());
    switch (run.stage) {
    case ParseMimeType: {
        const QString type = attribute(run.reader, "type");
        if (type.isEmpty())
            run.reader.raiseError(QStringLiteral("Missing 'type'-attribute"));
        else
            data.type = type;
        break;
    }
    case ParseComment: {
        run.locale.resize(0);
        run.locale += run.reader.attributes().value(QLatin1String("xml:lang"));
        readElementText(run.reader, run.text);
        run.leaveElement();
        translate(run.text);
        if (run.locale.isEmpty())
            data.comment = QString(run.text.constData(), run.text.size());
        else
            run.localeComments.insert(run.locale, run.text);
        break;
    }
    case ParseGlobPattern:
        addGlobPattern(attribute(run.reader, "pattern"), attribute(run.reader, "weight"), &data);
        break;
    case ParseSubClass: {
        const QString parent = attribute(run.reader, "type");
        if (!parent.isEmpty())
            data.subClassesOf.append(parent);
        break;
    }
    case ParseAlias: {
        const QString alias = attribute(run.reader, "type");
        if (!alias.isEmpty())
            data.aliases.append(alias);
        break;
    }
    case ParseMagic: {
        int priority = 0;
        if (run.reader.attributes().hasAttribute(QLatin1String("priority"))) {
            const QString text = attribute(run.reader, "priority");
            bool ok = false;
            priority = text.toInt(&ok);
            if (!ok) {
                setMessage(errorMessage, notANumber(text));
                return false;
            }
        }
        run.ruleMatcher = MagicRuleMatcherPtr::create();
        run.ruleMatcher->setPriority(priority);
        break;
    }
    case ParseMagicMatchRule:
        return addMagicMatchRule(run.reader.attributes(), run.ruleMatcher, errorMessage);
    case ParseError:
        run.reader.raiseError(QStringLiteral("Unexpected element <%1>").arg(run.reader.name()));
        break;
    case ParseBeginning:
    case ParseMimeInfo:
    case ParseOtherMimeTypeSubTag:
        break;
    }
    return true;
}

bool BaseMimeTypeParser::endElement(Run &run, QString *errorMessage)
{
    run.leaveElement();
    if (run.reader.name() == QLatin1String("mime-type")) {
        run.data.localeComments = run.localeComments.squeezed();
        if (!process(MimeType(run.data), errorMessage))
            return false;
        run.data.clear();
        run.localeComments.clear();
    } else if (run.reader.name() == QLatin1String("magic") && run.ruleMatcher) {
        run.data.magicMatchers.append(run.ruleMatcher);
        run.ruleMatcher.reset();
    }
    return true;
}

void BaseMimeTypeParser::addGlobPattern(const QString &pattern, const QString &weight,
                                        MimeTypeData *data) const
{
    if (pattern.isEmpty())
        return;
    const MimeGlobPattern glob(pattern,
                               weight.isEmpty() ? MimeGlobPattern::DefaultWeight : weight.toUInt());
    // Without a bracket every text is a valid wildcard.
    const bool hasBracket =
        pattern.contains(QLatin1Char('[')) || pattern.contains(QLatin1Char(']'));
    if (hasBracket && !Wildcard(pattern).isValid()) {
        qWarning("%s: Invalid wildcard '%s'.", Q_FUNC_INFO, qUtf8Printable(pattern));
        return;
    }
    data->globPatterns.append(glob);
    if (isPlainSuffix(pattern)) {
        const QString suffix = pattern.mid(2);
        data->suffixes.append(suffix);
        if (data->preferredSuffix.isEmpty())
            data->preferredSuffix = suffix;
    }
}

/// Whether the whole of @p pattern matches the suffix pattern.
bool BaseMimeTypeParser::isPlainSuffix(const QString &pattern) const
{
    const auto isAsciiWordOrPlus = [](QChar c) {
        const ushort unit = c.unicode();
        return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z')
               || (unit >= '0' && unit <= '9') || unit == '_' || unit == '+';
    };
    // Nearly every pattern is one of these; an expression for each takes longer
    // than all the rest of its element.
    if (pattern.size() > 2 && pattern.startsWith(QLatin1String("*."))
        && std::all_of(pattern.cbegin() + 2, pattern.cend(), isAsciiWordOrPlus))
        return true;
    return QRegExp(m_suffixPattern).exactMatch(pattern);
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
    KELMO_ASSERT(!ruleMatcher.isNull(), return false);
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
