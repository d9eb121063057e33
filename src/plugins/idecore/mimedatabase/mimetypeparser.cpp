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

/// Whether @p text is @p literal. In line: this is asked several times for each
/// element and each attribute.
template<size_t size>
bool is(const QStringRef &text, const char16_t (&literal)[size])
{
    return text.size() == int(size) - 1
           && std::memcmp(text.unicode(), literal, (size - 1) * sizeof(char16_t)) == 0;
}

/// Latin-1 text, and whether it is ASCII.
struct Latin1
{
    QVarLengthArray<char, 256> text;
    bool isAscii = false;
};

/// False where Latin-1 cannot express @p text. Goes eight units at a time and
/// takes no memory: it runs over most of what a file of definitions holds.
bool toLatin1(const QStringRef &text, Latin1 &latin1)
{
    const QChar *const units = text.unicode();
    const int size = text.size();
    latin1.text.resize(size + 1);
    char *const bytes = latin1.text.data();
    unsigned bits = 0;
    int i = 0;
    for (; i + 8 <= size; i += 8) {
        ushort block[8];
        std::memcpy(block, units + i, sizeof block);
        unsigned short any = 0;
        for (const ushort unit : block)
            any |= unit;
        if (any > 0xff)
            return false;
        bits |= any;
        for (int k = 0; k < 8; ++k)
            bytes[i + k] = char(block[k]);
    }
    for (; i < size; ++i) {
        bits |= units[i].unicode();
        bytes[i] = char(units[i].unicode());
    }
    bytes[size] = '\0';
    latin1.isAscii = bits < 0x80;
    return bits <= 0xff;
}

/// Puts the catalogue's text in place of the comment from @p begin on. It is
/// asked with Latin-1 text, so that it cannot know what Latin-1 cannot express.
void translate(QString &texts, int begin)
{
    const QStringRef comment(&texts, begin, texts.size() - begin);
    Latin1 source;
    if (!toLatin1(comment, source))
        return;
    const QString text = QCoreApplication::translate("MimeType", source.text.constData());
    // An answer that says what was asked is none, and what was asked is not
    // UTF-8 unless it is ASCII.
    const bool known =
        source.isAscii ? text != comment : text != QString::fromUtf8(source.text.constData());
    if (known) {
        texts.resize(begin);
        texts += text;
    }
}

/// A null string when there is none of that name.
template<size_t size>
QStringRef attribute(const QXmlStreamAttributes &attributes, const char16_t (&name)[size])
{
    for (const QXmlStreamAttribute &attribute : attributes) {
        if (is(attribute.qualifiedName(), name))
            return attribute.value();
    }
    return {};
}

/// Appends the text up to the end of the element, which must not hold other
/// elements. The reader's own function takes new memory each time.
void appendElementText(QXmlStreamReader &reader, QString &text)
{
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
        if (is(element, u"mime-info"))
            return ParseMimeInfo;
        return is(element, u"mime-type") ? ParseMimeType : ParseError;
    case ParseMimeInfo:
        return is(element, u"mime-type") ? ParseMimeType : ParseError;
    case ParseMimeType:
    case ParseComment:
    case ParseGlobPattern:
    case ParseSubClass:
    case ParseAlias:
    case ParseMagicMatchRule:
    case ParseOtherMimeTypeSubTag:
        if (is(element, u"comment"))
            return ParseComment;
        if (is(element, u"glob"))
            return ParseGlobPattern;
        if (is(element, u"sub-class-of"))
            return ParseSubClass;
        if (is(element, u"alias"))
            return ParseAlias;
        if (is(element, u"magic"))
            return ParseMagic;
        return is(element, u"mime-type") ? ParseMimeType : ParseOtherMimeTypeSubTag;
    case ParseMagic:
        return is(element, u"match") ? ParseMagicMatchRule : ParseError;
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
    /// The comments of the type, gathered here, so that memory is taken once.
    QVector<LocaleComments::Entry> comments;
    QString texts;
    /// The prefixes that the open elements declare, and how deep each does so.
    QVector<QPair<QString, int>> prefixes;

    /// False, with the reader's error, when the current element uses a prefix
    /// that no open element declares.
    bool enterElement(const QXmlStreamAttributes &attributes)
    {
        ++depth;
        const bool usesNone =
            reader.prefix().isEmpty()
            && std::all_of(attributes.cbegin(), attributes.cend(),
                           [](const QXmlStreamAttribute &attribute) {
                               return attribute.name().size() == attribute.qualifiedName().size()
                                      || isBuiltIn(attribute.prefix());
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
    /// Reads the comment whose locale the texts hold from @p begin on.
    void readComment(int begin)
    {
        const int textBegin = texts.size();
        appendElementText(reader, texts);
        leaveElement();
        translate(texts, textBegin);
        if (textBegin == begin) {
            // Not mid(), which would share the memory of all texts.
            data.comment = QString(texts.constData() + begin, texts.size() - begin);
            texts.resize(begin);
        } else {
            comments.append({begin, textBegin - begin, texts.size() - textBegin});
        }
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
        return prefix.isEmpty() || is(prefix, u"xml");
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
    QXmlStreamAttributes attributes = run.reader.attributes();
    if (!run.enterElement(attributes))
        return true;
    if (run.depth > mostOpenElements) {
        run.reader.raiseError(QStringLiteral("Elements are nested too deeply"));
        return true;
    }
    MimeTypeData &data = run.data;
    run.stage = nextStage(run.stage, run.reader.name());
    switch (run.stage) {
    case ParseMimeType: {
        const QString type = attribute(attributes, u"type").toString();
        if (type.isEmpty())
            run.reader.raiseError(QStringLiteral("Missing 'type'-attribute"));
        else
            data.type = type;
        break;
    }
    case ParseComment: {
        const int begin = run.texts.size();
        run.texts += attribute(attributes, u"xml:lang");
        // The reader would copy them at its next step.
        attributes = {};
        run.readComment(begin);
        break;
    }
    case ParseGlobPattern:
        addGlobPattern(attribute(attributes, u"pattern").toString(),
                       attribute(attributes, u"weight").toString(), &data);
        break;
    case ParseSubClass: {
        const QString parent = attribute(attributes, u"type").toString();
        if (!parent.isEmpty())
            data.subClassesOf.append(parent);
        break;
    }
    case ParseAlias: {
        const QString alias = attribute(attributes, u"type").toString();
        if (!alias.isEmpty())
            data.aliases.append(alias);
        break;
    }
    case ParseMagic: {
        int priority = 0;
        if (attributes.hasAttribute(QLatin1String("priority"))) {
            const QStringRef text = attribute(attributes, u"priority");
            bool ok = false;
            priority = text.toInt(&ok);
            if (!ok) {
                setMessage(errorMessage, notANumber(text.toString()));
                return false;
            }
        }
        run.ruleMatcher = MagicRuleMatcherPtr::create();
        run.ruleMatcher->setPriority(priority);
        break;
    }
    case ParseMagicMatchRule:
        return addMagicMatchRule(attributes, run.ruleMatcher, errorMessage);
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
    const QStringRef element = run.reader.name();
    if (is(element, u"mime-type")) {
        run.data.localeComments = LocaleComments(run.comments, run.texts);
        if (!process(MimeType(run.data), errorMessage))
            return false;
        run.data.clear();
        run.comments.resize(0);
        run.texts.resize(0);
    } else if (is(element, u"magic") && run.ruleMatcher) {
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
