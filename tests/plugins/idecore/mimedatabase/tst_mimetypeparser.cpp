// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/messagerecorder.h"

#include <idecore/mimedatabase/mimetype.h>
#include <idecore/mimedatabase/mimetype_p.h>
#include <idecore/mimedatabase/mimetypeparser_p.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QTest>
#include <QTranslator>
#include <QVector>
#include <QXmlStreamAttributes>

#include <functional>

#include <sys/resource.h>

using Core::MagicRuleMatcher;
using Core::MagicRuleMatcherPtr;
using Core::MimeType;
using Core::Internal::BaseMimeTypeParser;

namespace {

/// Keeps the types it reads; refuses one named "refuse".
class Parser : public BaseMimeTypeParser
{
public:
    QList<MimeType> types;

protected:
    bool process(const MimeType &type, QString *errorMessage) override
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
    QList<MimeType> types;
    QStringList log;

    MimeType type() const { return types.size() == 1 ? types.first() : MimeType(); }
};

Result parse(QIODevice &device)
{
    Result result;
    Parser parser;
    const MessageRecorder recorder;
    result.ok = parser.parse(&device, QStringLiteral("test.xml"), &result.message);
    result.types = parser.types;
    result.log = recorder.labelled();
    return result;
}

Result parse(QByteArray xml)
{
    QBuffer buffer(&xml);
    buffer.open(QIODevice::ReadOnly);
    return parse(buffer);
}

/// One type "a/b" with @p content inside.
Result parseType(const QByteArray &content)
{
    return parse("<mime-info>\n<mime-type type=\"a/b\">\n" + content
                 + "\n</mime-type></mime-info>");
}

const MagicRuleMatcher *ruleMatcher(const Result &result, int index = 0)
{
    const auto matchers = result.type().magicMatchers();
    return index < matchers.size()
               ? dynamic_cast<const MagicRuleMatcher *>(matchers.at(index).data())
               : nullptr;
}

QString locatedError(int line, const QByteArray &text)
{
    return QStringLiteral("An error has been encountered at line %1 of test.xml: %2:")
        .arg(line)
        .arg(QString::fromLatin1(text));
}

/// Gives out a start, then a piece over and over up to a size, then an end.
class GeneratedXml : public QIODevice
{
public:
    GeneratedXml(const QByteArray &start, const QByteArray &piece, qint64 size)
        : m_start(start)
        , m_piece(piece)
        , m_size(size)
    {
        open(QIODevice::ReadOnly);
    }

    bool isSequential() const override { return true; }
    qint64 given() const { return m_given; }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        qint64 count = 0;
        for (; count < maxSize && m_given < m_size; ++count, ++m_given) {
            const qint64 behind = m_given - m_start.size();
            data[count] =
                behind < 0 ? m_start.at(int(m_given)) : m_piece.at(int(behind % m_piece.size()));
        }
        return count;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    const QByteArray m_start;
    const QByteArray m_piece;
    const qint64 m_size;
    qint64 m_given = 0;
};

/// The most memory the program has had, in MiB.
long peakMemory()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

class Catalogue : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *sourceText, const char *, int) const override
    {
        asked.append(QByteArray(context) + ": " + sourceText);
        return qstrcmp(sourceText, "Text") == 0 ? QStringLiteral("Translated") : QString();
    }

    mutable QList<QByteArray> asked;
};

} // namespace

class TestMimeTypeParser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stagesHaveTheirValues();
    void nextStage_data();
    void nextStage();

    void readsEverythingOfAType();
    void rootMayBeAMimeType();
    void readsTypesInOrderAndForgetsEach();
    void fileWithoutATypeIsGood();
    void missingTypeAttribute_data();
    void missingTypeAttribute();
    void unexpectedElement_data();
    void unexpectedElement();
    void unknownElementsOfATypeAreIgnored();
    void refusalEndsTheReading();
    void typesBeforeAnErrorStay();
    void messageMayBeNull_data();
    void messageMayBeNull();

    void emptyParentsAndAliasesAreSkipped();
    void commentWithoutTranslationStays_data();
    void commentWithoutTranslationStays();
    void commentIsTranslated();
    void commentMustBeText();

    void glob_data();
    void glob();
    void suffixGlobs_data();
    void suffixGlobs();
    void firstSuffixIsThePreferredOne();
    void emptyGlobIsSkipped();
    void invalidWildcardIsSkipped_data();
    void invalidWildcardIsSkipped();
    void defaultsOfTheDocumentTypeCount();

    void magicPriority_data();
    void magicPriority();
    void magicPriorityThatIsNoNumber_data();
    void magicPriorityThatIsNoNumber();
    void offsets_data();
    void offsets();
    void offsetThatIsNoNumber_data();
    void offsetThatIsNoNumber();
    void byteAndStringRules();
    void unsupportedMatchTypeIsSkipped();
    void emptyMatchValue();
    void onlyTheFirstMatchOfAMagicCounts();
    void everyMagicCounts();
    void matchWithoutMagicIsAnAssertion();
    void addMagicMatchRuleNeedsAMatcher();

    void malformed_data();
    void malformed();
    void entityDeclarationsAreRefused_data();
    void entityDeclarationsAreRefused();
    void predefinedEntitiesAreRead();
    void deepNestingIsRefused_data();
    void deepNestingIsRefused();
    void builtInTypesComeInOrder();
    void declaredPrefixesAreRead();
    void undeclaredPrefixIsRefused_data();
    void undeclaredPrefixIsRefused();
};

void TestMimeTypeParser::stagesHaveTheirValues()
{
    using P = BaseMimeTypeParser;
    const QVector<int> stages{P::ParseBeginning,      P::ParseMimeInfo,
                              P::ParseMimeType,       P::ParseComment,
                              P::ParseGlobPattern,    P::ParseSubClass,
                              P::ParseAlias,          P::ParseMagic,
                              P::ParseMagicMatchRule, P::ParseOtherMimeTypeSubTag,
                              P::ParseError};

    QCOMPARE(stages, QVector<int>({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

void TestMimeTypeParser::nextStage_data()
{
    using P = BaseMimeTypeParser;
    QTest::addColumn<int>("current");
    QTest::addColumn<QString>("element");
    QTest::addColumn<int>("expected");
    const auto add = [](int current, const char *element, int expected) {
        QTest::addRow("%d %s", current, element)
            << current << QString::fromLatin1(element) << expected;
    };
    const QList<QPair<const char *, int>> inType{
        {"mime-type", P::ParseMimeType}, {"comment", P::ParseComment},
        {"glob", P::ParseGlobPattern},   {"sub-class-of", P::ParseSubClass},
        {"alias", P::ParseAlias},        {"magic", P::ParseMagic}};

    add(P::ParseBeginning, "mime-info", P::ParseMimeInfo);
    add(P::ParseBeginning, "mime-type", P::ParseMimeType);
    add(P::ParseBeginning, "Mime-Info", P::ParseError);
    add(P::ParseMimeInfo, "mime-type", P::ParseMimeType);
    for (const char *element : {"mime-info", "comment", "other"})
        add(P::ParseMimeInfo, element, P::ParseError);
    for (const char *element : {"comment", "glob", "match", "magic", "other"})
        add(P::ParseBeginning, element, P::ParseError);
    for (const int stage :
         {P::ParseMimeType, P::ParseComment, P::ParseGlobPattern, P::ParseSubClass, P::ParseAlias,
          P::ParseMagicMatchRule, P::ParseOtherMimeTypeSubTag}) {
        for (const auto &element : inType)
            add(stage, element.first, element.second);
        for (const char *element : {"match", "mime-info", "icon", "Glob", ""})
            add(stage, element, P::ParseOtherMimeTypeSubTag);
    }
    add(P::ParseMagic, "match", P::ParseMagicMatchRule);
    for (const auto &element : inType) {
        add(P::ParseMagic, element.first, P::ParseError);
        add(P::ParseError, element.first, P::ParseError);
    }
    add(P::ParseError, "match", P::ParseError);
    add(P::ParseError, "mime-info", P::ParseError);
    add(P::ParseMagic, "other", P::ParseError);
    add(11, "mime-type", P::ParseError);
}

void TestMimeTypeParser::nextStage()
{
    QFETCH(int, current);
    QFETCH(QString, element);

    const auto stage = static_cast<BaseMimeTypeParser::ParseStage>(current);

    QTEST(int(BaseMimeTypeParser::nextStage(stage, QStringRef(&element))), "expected");
}

void TestMimeTypeParser::readsEverythingOfAType()
{
    const Result result = parseType("<comment>Text</comment>"
                                    "<comment xml:lang=\"de\">Texte</comment>"
                                    "<sub-class-of type=\"c/d\"/><sub-class-of type=\"e/f\"/>"
                                    "<alias type=\"g/h\"/><alias type=\"i/j\"/>"
                                    "<glob pattern=\"*.txt\"/>"
                                    "<magic priority=\"7\">"
                                    "<match type=\"string\" value=\"abc\" offset=\"0\"/></magic>");

    QVERIFY(result.ok);
    QCOMPARE(result.message, QString());
    const MimeType type = result.type();
    QCOMPARE(type.type(), QStringLiteral("a/b"));
    QCOMPARE(type.comment(), QStringLiteral("Text"));
    QCOMPARE(type.localeComment(QStringLiteral("de")), QStringLiteral("Texte"));
    QCOMPARE(type.subClassesOf(), QStringList({QStringLiteral("c/d"), QStringLiteral("e/f")}));
    QCOMPARE(type.aliases(), QStringList({QStringLiteral("g/h"), QStringLiteral("i/j")}));
    QCOMPARE(type.globPatterns().size(), 1);
    QVERIFY(ruleMatcher(result));
    QCOMPARE(ruleMatcher(result)->priority(), 7);
}

void TestMimeTypeParser::rootMayBeAMimeType()
{
    const Result result = parse("<mime-type type=\"a/b\"><glob pattern=\"*.c\"/></mime-type>");

    QVERIFY(result.ok);
    QCOMPARE(result.type().suffixes(), QStringList(QStringLiteral("c")));
}

void TestMimeTypeParser::readsTypesInOrderAndForgetsEach()
{
    const Result result = parse("<mime-info><mime-type type=\"a/b\"><comment>A</comment>"
                                "<glob pattern=\"*.a\"/></mime-type>"
                                "<mime-type type=\"c/d\"/></mime-info>");

    QVERIFY(result.ok);
    QCOMPARE(result.types.size(), 2);
    QCOMPARE(result.types.at(0).type(), QStringLiteral("a/b"));
    QCOMPARE(result.types.at(0).comment(), QStringLiteral("A"));
    QCOMPARE(result.types.at(1).type(), QStringLiteral("c/d"));
    QCOMPARE(result.types.at(1).comment(), QString());
    QVERIFY(result.types.at(1).globPatterns().isEmpty());
}

void TestMimeTypeParser::fileWithoutATypeIsGood()
{
    const Result result = parse("<mime-info/>");

    QVERIFY(result.ok);
    QVERIFY(result.types.isEmpty());
}

void TestMimeTypeParser::missingTypeAttribute_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("missing") << QByteArray("<mime-info>\n\n<mime-type>\n</mime-type></mime-info>");
    QTest::newRow("empty") << QByteArray("<mime-info>\n\n<mime-type type=\"\"/>\n</mime-info>");
}

void TestMimeTypeParser::missingTypeAttribute()
{
    QFETCH(QByteArray, xml);

    const Result result = parse(xml);

    QVERIFY(!result.ok);
    QCOMPARE(result.message, locatedError(3, "Missing 'type'-attribute"));
    QVERIFY(result.types.isEmpty());
}

void TestMimeTypeParser::unexpectedElement_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QByteArray>("element");
    QTest::newRow("root") << QByteArray("\n<html/>") << QByteArray("html");
    QTest::newRow("below the root")
        << QByteArray("<mime-info>\n<glob/></mime-info>") << QByteArray("glob");
    QTest::newRow("glob behind an empty magic")
        << QByteArray("<mime-type type=\"a/b\">\n<magic/><glob pattern=\"*.c\"/></mime-type>")
        << QByteArray("glob");
    QTest::newRow("type behind an empty magic")
        << QByteArray("<mime-info><mime-type type=\"a/b\"><magic/></mime-type>\n<mime-type "
                      "type=\"c/d\"/></mime-info>")
        << QByteArray("mime-type");
}

void TestMimeTypeParser::unexpectedElement()
{
    QFETCH(QByteArray, xml);
    QFETCH(QByteArray, element);

    const Result result = parse(xml);

    QVERIFY(!result.ok);
    QCOMPARE(result.message, locatedError(2, "Unexpected element <" + element + '>'));
}

void TestMimeTypeParser::unknownElementsOfATypeAreIgnored()
{
    const Result result = parseType("<icon name=\"x\"/><acronym>TXT</acronym>"
                                    "<treemagic><treematch path=\"x\"/></treemagic>"
                                    "<glob pattern=\"*.c\"/>");

    QVERIFY(result.ok);
    QVERIFY(result.log.isEmpty());
    QCOMPARE(result.type().suffixes(), QStringList(QStringLiteral("c")));
    QVERIFY(result.type().magicMatchers().isEmpty());
}

void TestMimeTypeParser::refusalEndsTheReading()
{
    const Result result = parse("<mime-info><mime-type type=\"a/b\"/><mime-type type=\"refuse\"/>"
                                "<mime-type type=\"c/d\"/></mime-info>");

    QVERIFY(!result.ok);
    QCOMPARE(result.message, QStringLiteral("refused"));
    QCOMPARE(result.type().type(), QStringLiteral("a/b"));
}

void TestMimeTypeParser::typesBeforeAnErrorStay()
{
    const Result result = parse("<mime-info><mime-type type=\"a/b\"/>\n<mime-type/></mime-info>");

    QVERIFY(!result.ok);
    QCOMPARE(result.type().type(), QStringLiteral("a/b"));
}

void TestMimeTypeParser::messageMayBeNull_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("element") << QByteArray("<html/>");
    QTest::newRow("priority") << QByteArray(
        "<mime-type type=\"a/b\"><magic priority=\"x\"/></mime-type>");
    QTest::newRow("offset") << QByteArray(
        "<mime-type type=\"a/b\"><magic><match type=\"string\" value=\"x\"/></magic></mime-type>");
    QTest::newRow("value") << QByteArray(
        "<mime-type type=\"a/b\"><magic><match type=\"string\"/></magic></mime-type>");
}

void TestMimeTypeParser::messageMayBeNull()
{
    QFETCH(QByteArray, xml);
    QBuffer buffer(&xml);
    buffer.open(QIODevice::ReadOnly);

    QVERIFY(!Parser().parse(&buffer, QString(), nullptr));
}

void TestMimeTypeParser::emptyParentsAndAliasesAreSkipped()
{
    const Result result =
        parseType("<sub-class-of/><sub-class-of type=\"\"/><alias/><alias type=\"\"/>");

    QVERIFY(result.ok);
    QCOMPARE(result.type().subClassesOf(), QStringList());
    QCOMPARE(result.type().aliases(), QStringList());
}

void TestMimeTypeParser::commentWithoutTranslationStays_data()
{
    QTest::addColumn<QString>("comment");
    QTest::newRow("ascii") << QStringLiteral("Plain Text");
    QTest::newRow("empty") << QString();
    QTest::newRow("latin-1") << QString::fromUtf8("Café");
    QTest::newRow("latin-1 that looks like UTF-8") << QString::fromUtf8("DonnÃ©es");
    QTest::newRow("beyond latin-1") << QString::fromUtf8("雅達利 2600 ROM");
    QTest::newRow("both") << QString::fromUtf8("é 雅");
    QTest::newRow("markup") << QString::fromUtf8("a b");
}

void TestMimeTypeParser::commentWithoutTranslationStays()
{
    QFETCH(QString, comment);

    const Result result =
        parseType("<comment>" + comment.toUtf8() + "</comment><comment xml:lang=\"x\">"
                  + comment.toUtf8() + "</comment>");

    QCOMPARE(result.type().comment(), comment);
    QCOMPARE(result.type().localeComment(QStringLiteral("x")), comment);
}

void TestMimeTypeParser::commentIsTranslated()
{
    Catalogue catalogue;
    QVERIFY(QCoreApplication::installTranslator(&catalogue));

    const Result result = parseType("<comment>Text</comment><comment xml:lang=\"de\">Text</comment>"
                                    "<comment xml:lang=\"fr\">Caf\xc3\xa9</comment>");

    QCOMPARE(result.type().comment(), QStringLiteral("Translated"));
    QCOMPARE(result.type().localeComment(QStringLiteral("de")), QStringLiteral("Translated"));
    QCOMPARE(result.type().localeComment(QStringLiteral("fr")), QString::fromUtf8("Café"));
    QVERIFY(catalogue.asked.contains("MimeType: Text"));
    QVERIFY(catalogue.asked.contains("MimeType: Caf\xe9"));
}

void TestMimeTypeParser::commentMustBeText()
{
    const Result result = parseType("<comment>one <b>two</b></comment>");

    QVERIFY(!result.ok);
    QCOMPARE(result.message, locatedError(3, "Expected character data."));
}

void TestMimeTypeParser::glob_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<quint32>("weight");
    QTest::newRow("default") << QByteArray() << 100U;
    QTest::newRow("empty") << QByteArray("weight=\"\"") << 100U;
    QTest::newRow("given") << QByteArray("weight=\"50\"") << 50U;
    QTest::newRow("no number") << QByteArray("weight=\"heavy\"") << 0U;
    QTest::newRow("negative") << QByteArray("weight=\"-1\"") << 0U;
    QTest::newRow("greatest") << QByteArray("weight=\"4294967295\"") << 4294967295U;
    QTest::newRow("beyond") << QByteArray("weight=\"4294967296\"") << 0U;
    QTest::newRow("hexadecimal") << QByteArray("weight=\"0x10\"") << 0U;
}

void TestMimeTypeParser::glob()
{
    QFETCH(QByteArray, attributes);

    const Result result = parseType("<glob pattern=\"*.c\" " + attributes + "/>");

    QVERIFY(result.ok);
    const auto globs = result.type().globPatterns();
    QCOMPARE(globs.size(), 1);
    QTEST(globs.first().weight(), "weight");
    QCOMPARE(globs.first().regExp(),
             QRegExp(QStringLiteral("*.c"), Qt::CaseInsensitive, QRegExp::Wildcard));
}

void TestMimeTypeParser::suffixGlobs_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QStringList>("suffixes");
    const auto add = [](const char *pattern, const char *suffix) {
        QTest::newRow(pattern) << QString::fromUtf8(pattern)
                               << (suffix ? QStringList(QString::fromUtf8(suffix)) : QStringList());
    };
    add("*.V", "V");
    add("*.c++", "c++");
    add("*.a_1", "a_1");
    add("*.dé", "dé");
    add("*.tar.gz", nullptr);
    add("Makefile*", nullptr);
    add("*.", nullptr);
    add("*", nullptr);
    add("*.a*", nullptr);
    add("*.a-b", nullptr);
    add("x*.a", nullptr);
    add("*.[a]", nullptr);
    add("*~", nullptr);
    add(".a", nullptr);
}

void TestMimeTypeParser::suffixGlobs()
{
    QFETCH(QString, pattern);

    const Result result = parseType("<glob pattern=\"" + pattern.toUtf8() + "\"/>");

    QCOMPARE(result.type().globPatterns().size(), 1);
    QCOMPARE(result.type().globPatterns().first().pattern(), pattern);
    QTEST(result.type().suffixes(), "suffixes");
}

void TestMimeTypeParser::firstSuffixIsThePreferredOne()
{
    const Result result = parseType("<glob pattern=\"Make*\"/><glob pattern=\"*.v\"/>"
                                    "<glob pattern=\"*.sv\"/>");

    QCOMPARE(result.type().preferredSuffix(), QStringLiteral("v"));
    QCOMPARE(result.type().suffixes(), QStringList({QStringLiteral("v"), QStringLiteral("sv")}));
}

void TestMimeTypeParser::emptyGlobIsSkipped()
{
    const Result result = parseType("<glob/><glob pattern=\"\"/>");

    QVERIFY(result.ok);
    QVERIFY(result.log.isEmpty());
    QVERIFY(result.type().globPatterns().isEmpty());
}

void TestMimeTypeParser::invalidWildcardIsSkipped_data()
{
    QTest::addColumn<QString>("pattern");
    for (const char *pattern : {"*.[a", "a]", "[]", "["})
        QTest::newRow(pattern) << QString::fromLatin1(pattern);
}

void TestMimeTypeParser::invalidWildcardIsSkipped()
{
    QFETCH(QString, pattern);

    const Result result =
        parseType("<glob pattern=\"" + pattern.toUtf8() + "\"/><glob pattern=\"*.c\"/>");

    QVERIFY(result.ok);
    QCOMPARE(result.type().globPatterns().size(), 1);
    QCOMPARE(result.log.size(), 1);
    QVERIFY(result.log.first().startsWith(QLatin1String("warning: ")));
    QVERIFY(result.log.first().contains(QLatin1String("BaseMimeTypeParser::addGlobPattern(")));
    QVERIFY(result.log.first().endsWith(QLatin1String(": Invalid wildcard '") + pattern
                                        + QLatin1String("'.")));
}

void TestMimeTypeParser::defaultsOfTheDocumentTypeCount()
{
    const Result result = parse("<?xml version=\"1.0\"?><!DOCTYPE mime-info ["
                                "<!ATTLIST glob weight CDATA \"50\">"
                                "<!ATTLIST magic priority CDATA \"60\">]>"
                                "<mime-info><mime-type type=\"a/b\"><glob pattern=\"*.c\"/>"
                                "<magic><match type=\"string\" value=\"a\" offset=\"0\"/></magic>"
                                "</mime-type></mime-info>");

    QVERIFY2(result.ok, qPrintable(result.message));
    QCOMPARE(result.type().globPatterns().first().weight(), 50U);
    QCOMPARE(ruleMatcher(result)->priority(), 60);
}

void TestMimeTypeParser::magicPriority_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<int>("priority");
    QTest::newRow("absent") << QByteArray() << 0;
    QTest::newRow("given") << QByteArray("priority=\"80\"") << 80;
    QTest::newRow("negative") << QByteArray("priority=\"-80\"") << -80;
    QTest::newRow("greatest") << QByteArray("priority=\"2147483647\"") << 2147483647;
    QTest::newRow("least") << QByteArray("priority=\"-2147483648\"") << -2147483647 - 1;
}

void TestMimeTypeParser::magicPriority()
{
    QFETCH(QByteArray, attributes);

    const Result result = parseType("<magic " + attributes
                                    + "><match type=\"string\" value=\"a\" offset=\"0\"/></magic>");

    QVERIFY(result.ok);
    QVERIFY(ruleMatcher(result));
    QTEST(ruleMatcher(result)->priority(), "priority");
}

void TestMimeTypeParser::magicPriorityThatIsNoNumber_data()
{
    QTest::addColumn<QByteArray>("priority");
    for (const char *text : {"", "high", "1.5", "0x10", "2147483648", "-2147483649"})
        QTest::newRow(text) << QByteArray(text);
}

void TestMimeTypeParser::magicPriorityThatIsNoNumber()
{
    QFETCH(QByteArray, priority);

    const Result result = parseType("<magic priority=\"" + priority + "\"/>");

    QVERIFY(!result.ok);
    QCOMPARE(result.message, QString::fromLatin1("Not a number '" + priority + "'."));
    QVERIFY(result.types.isEmpty());
}

void TestMimeTypeParser::offsets_data()
{
    QTest::addColumn<QByteArray>("offset");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::newRow("4") << QByteArray("4") << 4 << 4;
    QTest::newRow("0:128") << QByteArray("0:128") << 0 << 128;
    QTest::newRow("negative") << QByteArray("-5:-1") << -5 << -1;
    QTest::newRow("limits") << QByteArray("-2147483648:2147483647") << -2147483647 - 1
                            << 2147483647;
}

void TestMimeTypeParser::offsets()
{
    QFETCH(QByteArray, offset);

    const Result result =
        parseType("<magic><match type=\"string\" value=\"a\" offset=\"" + offset + "\"/></magic>");

    QVERIFY(result.ok);
    QCOMPARE(ruleMatcher(result)->rules().size(), 1);
    QTEST(ruleMatcher(result)->rules().first()->startPos(), "start");
    QTEST(ruleMatcher(result)->rules().first()->endPos(), "end");
}

void TestMimeTypeParser::offsetThatIsNoNumber_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<QString>("text");
    QTest::newRow("missing") << QByteArray() << QString();
    QTest::newRow("empty") << QByteArray("offset=\"\"") << QString();
    QTest::newRow("x") << QByteArray("offset=\"x\"") << QStringLiteral("x");
    QTest::newRow("start") << QByteArray("offset=\"x:y\"") << QStringLiteral("x");
    QTest::newRow("end") << QByteArray("offset=\"1:y\"") << QStringLiteral("y");
    QTest::newRow("no end") << QByteArray("offset=\"1:\"") << QString();
    QTest::newRow("cut at the first colon")
        << QByteArray("offset=\"1:2:3\"") << QStringLiteral("2:3");
    QTest::newRow("beyond") << QByteArray("offset=\"2147483648\"") << QStringLiteral("2147483648");
}

void TestMimeTypeParser::offsetThatIsNoNumber()
{
    QFETCH(QByteArray, attribute);
    QFETCH(QString, text);

    const Result result =
        parseType("<magic><match type=\"byte\" value=\"\\1\" " + attribute + "/></magic>");

    QVERIFY(!result.ok);
    QCOMPARE(result.message, QLatin1String("Not a number '") + text + QLatin1String("'."));
}

void TestMimeTypeParser::byteAndStringRules()
{
    const Result result =
        parseType("<magic><match type=\"byte\" value=\"\\0x61\" offset=\"0\"/></magic>"
                  "<magic><match type=\"string\" value=\"\\0x61\" offset=\"0\"/></magic>");

    QVERIFY(result.ok);
    QVERIFY(ruleMatcher(result, 0)->matches("a"));
    QVERIFY(!ruleMatcher(result, 1)->matches("a"));
    QVERIFY(ruleMatcher(result, 1)->matches("\\0x61"));
}

void TestMimeTypeParser::unsupportedMatchTypeIsSkipped()
{
    const Result result =
        parseType("<magic><match type=\"big16\" value=\"1\" offset=\"x\"/></magic>"
                  "<glob pattern=\"*.c\"/>");

    QVERIFY(result.ok);
    QCOMPARE(result.log.size(), 1);
    QVERIFY(result.log.first().startsWith(QLatin1String("warning: ")));
    QVERIFY(result.log.first().contains(QLatin1String("addMagicMatchRule(")));
    QVERIFY(result.log.first().endsWith(QLatin1String(": match type big16 is not supported.")));
    QVERIFY(ruleMatcher(result));
    QVERIFY(ruleMatcher(result)->rules().isEmpty());
    QCOMPARE(result.type().globPatterns().size(), 1);
}

void TestMimeTypeParser::emptyMatchValue()
{
    const Result result =
        parseType("<magic><match type=\"string\" value=\"\" offset=\"x\"/></magic>");

    QVERIFY(!result.ok);
    QCOMPARE(result.message, QStringLiteral("Empty match value detected."));
}

void TestMimeTypeParser::onlyTheFirstMatchOfAMagicCounts()
{
    const Result result = parseType("<magic><match type=\"string\" value=\"a\" offset=\"0\">"
                                    "<match type=\"string\" value=\"b\" offset=\"1\"/></match>"
                                    "<match type=\"string\" value=\"c\" offset=\"0\"/></magic>");

    QVERIFY(result.ok);
    QCOMPARE(ruleMatcher(result)->rules().size(), 1);
    QVERIFY(ruleMatcher(result)->matches("a"));
}

void TestMimeTypeParser::everyMagicCounts()
{
    const Result result = parseType(
        "<magic priority=\"1\"><match type=\"string\" value=\"a\" offset=\"0\"/></magic>"
        "<magic priority=\"2\"><match type=\"string\" value=\"c\" offset=\"0\"/></magic>");

    QVERIFY(result.ok);
    QCOMPARE(result.type().magicMatchers().size(), 2);
    QCOMPARE(ruleMatcher(result, 1)->priority(), 2);
}

void TestMimeTypeParser::matchWithoutMagicIsAnAssertion()
{
    // The inner magic takes the matcher along when it ends.
    const Result result =
        parseType("<magic><match type=\"string\" value=\"a\" offset=\"0\"/>"
                  "<magic></magic><match type=\"string\" value=\"a\" offset=\"0\"/></magic>");

    QVERIFY(!result.ok);
    QCOMPARE(result.log.size(), 1);
    QVERIFY(result.log.first().startsWith(
        QLatin1String("critical: ASSERTION !ruleMatcher.isNull() FAILED AT ")));
}

void TestMimeTypeParser::addMagicMatchRuleNeedsAMatcher()
{
    const MessageRecorder recorder;

    QVERIFY(
        !Core::Internal::addMagicMatchRule(QXmlStreamAttributes(), MagicRuleMatcherPtr(), nullptr));

    QVERIFY(recorder.only().contains(
        QRegExp(QStringLiteral("^critical: ASSERTION !ruleMatcher\\.isNull\\(\\) FAILED AT "
                               ".*mimetypeparser\\.cpp:\\d+$"))));
}

void TestMimeTypeParser::malformed_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no markup") << QByteArray("module top;");
    QTest::newRow("binary") << QByteArray("\x7f"
                                          "ELF\x02\x01\x00\x00",
                                          8);
    QTest::newRow("truncated in a tag") << QByteArray("<mime-info><mime-type typ");
    QTest::newRow("truncated in a type") << QByteArray("<mime-info><mime-type type=\"a/b\">");
    QTest::newRow("truncated in a comment") << QByteArray("<mime-type type=\"a/b\"><comment>Te");
    QTest::newRow("not UTF-8") << QByteArray(
        "<mime-type type=\"a/b\"><comment>\xff\xfe\x80</comment></mime-type>");
    QTest::newRow("Latin-1 without saying so")
        << QByteArray("<mime-type type=\"a/b\"><comment>\xe9t\xe9</comment></mime-type>");
    QTest::newRow("wrong end") << QByteArray("<mime-info><mime-type type=\"a/b\"></mime-info>");
    QTest::newRow("two roots") << QByteArray("<mime-type type=\"a/b\"/><mime-type type=\"c/d\"/>");
    QTest::newRow("unknown entity")
        << QByteArray("<mime-type type=\"a/b\"><comment>&nothing;</comment></mime-type>");
}

void TestMimeTypeParser::malformed()
{
    QFETCH(QByteArray, xml);

    const Result result = parse(xml);

    QVERIFY(!result.ok);
    QVERIFY2(result.message.contains(QRegExp(QStringLiteral(
                 "^An error has been encountered at line \\d+ of test\\.xml: .+:$"))),
             qPrintable(result.message));
}

void TestMimeTypeParser::entityDeclarationsAreRefused_data()
{
    QTest::addColumn<QByteArray>("declarations");
    QByteArray bomb = "<!ENTITY a0 \"lollollollol\">";
    for (int i = 1; i < 12; ++i) {
        QByteArray references;
        for (int k = 0; k < 10; ++k)
            references += "&a" + QByteArray::number(i - 1) + ";";
        bomb += "<!ENTITY a" + QByteArray::number(i) + " \"" + references + "\">";
    }
    QTest::newRow("nested") << bomb + "<!ENTITY a \"&a11;\">";
    QTest::newRow("long") << "<!ENTITY a \"" + QByteArray(4000, 'x') + "\">";
    QTest::newRow("in a default")
        << bomb + "<!ENTITY a \"\"><!ATTLIST glob pattern CDATA \"&a11;\">";
    QTest::newRow("external") << QByteArray("<!ENTITY a SYSTEM \"file:///etc/passwd\">");
    // Expanded before the declarations are known.
    for (const char *piece : {" ", "<!-- -->", "<!ATTLIST glob a CDATA \"\">"}) {
        QTest::addRow("parameter %s", piece)
            << "<!ENTITY % p '" + QByteArray(piece).repeated(4000 / int(qstrlen(piece))) + "'>"
                   + QByteArray("%p;").repeated(30000);
    }
}

void TestMimeTypeParser::entityDeclarationsAreRefused()
{
    QFETCH(QByteArray, declarations);
    const long before = peakMemory();

    const Result result =
        parse("<!DOCTYPE mime-info [" + declarations + "]><mime-type type=\"a/b\">" + "<comment>"
              + QByteArray("&a;").repeated(100000) + "</comment><glob/></mime-type>");

    QVERIFY(!result.ok);
    QVERIFY2(result.message.startsWith(
                 QLatin1String("An error has been encountered at line 1 of test.xml: ")),
             qPrintable(result.message));
    QVERIFY(result.types.isEmpty());
    QVERIFY(peakMemory() - before < 64);
}

void TestMimeTypeParser::predefinedEntitiesAreRead()
{
    const Result result = parseType("<comment>a &lt;&amp;&gt; &#65; <!-- no text -->b</comment>");

    QCOMPARE(result.type().comment(), QStringLiteral("a <&> A b"));
}

void TestMimeTypeParser::deepNestingIsRefused_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<QByteArray>("piece");
    QTest::newRow("unknown elements")
        << QByteArray("<mime-type type=\"a/b\">") << QByteArray("<x>");
    QTest::newRow("types") << QByteArray("<mime-info>") << QByteArray("<mime-type type=\"a/b\">");
    QTest::newRow("comments") << QByteArray("<mime-type type=\"a/b\">") << QByteArray("<comment>");
}

void TestMimeTypeParser::deepNestingIsRefused()
{
    QFETCH(QByteArray, start);
    QFETCH(QByteArray, piece);
    GeneratedXml device(start, piece, 100 * 1024 * 1024);
    const long before = peakMemory();

    const Result result = parse(device);

    QVERIFY(!result.ok);
    QCOMPARE(result.message,
             locatedError(1, piece == "<comment>" ? "Expected character data."
                                                  : "Elements are nested too deeply"));
    QVERIFY(device.given() < 1024 * 1024);
    QVERIFY(peakMemory() - before < 16);
}

void TestMimeTypeParser::builtInTypesComeInOrder()
{
    QFile file(QStringLiteral(":/core/ide.mimetype.xml"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray xml = file.peek(file.size());

    const Result result = parse(file);

    QVERIFY2(result.ok, qPrintable(result.message));
    QStringList types;
    for (const MimeType &type : result.types)
        types.append(type.type() + QLatin1String(": ") + type.comment());
    QCOMPARE(types, QStringList({
                        QStringLiteral("text/plain: Plain Text File"),
                        QStringLiteral("text/html: HTML Document File"),
                        QStringLiteral("application/km-ide-project: "
                                       "KELMO FPGA Designer Project File"),
                        QStringLiteral("text/verilog: Verilog HDL File"),
                        QStringLiteral("text/vhdl: VHDL File"),
                        QStringLiteral("text/ksc: KELMO Synthesis Constraints File"),
                        QStringLiteral("text/pcn: KELMO Physical Constraints File"),
                        QStringLiteral("text/sdc: KELMO Timing Constraints File"),
                        QStringLiteral("text/kao: KELMO Oscilloscope Config File"),
                        QStringLiteral("text/fdc: FPGA Design Constraints File"),
                        QStringLiteral("text/adc: Analysis Design Constraints File"),
                        QStringLiteral("text/kpa: KELMO Power Analyzer Conifg File"),
                        QStringLiteral("text/fcx: KELMO Firm Core File"),
                        QStringLiteral("text/mnx: Memory Initialization File"),
                        QStringLiteral("text/ufx: User Flash Initialization File"),
                        QStringLiteral("text/ksc: KELMO Synthesize Constraints File"),
                        QStringLiteral("text/kvio: KELMO Virtual Input/Output Config File"),
                    }));
    for (const char *inactive : {"vm", "vma", "vmd", "vho", "ucf", "scf"})
        QVERIFY(xml.contains("<!-- <glob pattern=\"*." + QByteArray(inactive) + "\"/> -->"));
}

void TestMimeTypeParser::declaredPrefixesAreRead()
{
    const Result result =
        parse("<m:mime-info xmlns:m=\"urn:m\" xmlns=\"urn:n\">"
              "<m:mime-type type=\"a/b\" x:a=\"\" xmlns:x=\"urn:x\">"
              "<x:comment xml:lang=\"de\" y:a=\"\" xmlns:y=\"urn:y\">Text</x:comment>"
              "<x:glob pattern=\"*.c\"/></m:mime-type></m:mime-info>");

    QVERIFY2(result.ok, qPrintable(result.message));
    QCOMPARE(result.type().localeComment(QStringLiteral("de")), QStringLiteral("Text"));
    QCOMPARE(result.type().suffixes(), QStringList(QStringLiteral("c")));
}

void TestMimeTypeParser::undeclaredPrefixIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("element") << QByteArray("<x:glob/>");
    QTest::newRow("ignored element") << QByteArray("<x:icon/>");
    QTest::newRow("attribute") << QByteArray("<glob x:pattern=\"*.c\"/>");
    QTest::newRow("declared by a closed element")
        << QByteArray("<x:icon xmlns:x=\"urn:x\"/><x:glob/>");
    QTest::newRow("declared by a closed comment")
        << QByteArray("<comment xmlns:x=\"urn:x\">Text</comment><x:glob/>");
}

void TestMimeTypeParser::undeclaredPrefixIsRefused()
{
    QFETCH(QByteArray, content);

    const Result result = parseType(content);

    QVERIFY(!result.ok);
    QCOMPARE(result.message, locatedError(3, "Namespace prefix 'x' not declared"));
    QVERIFY(result.types.isEmpty());
}

QTEST_GUILESS_MAIN(TestMimeTypeParser)
#include "tst_mimetypeparser.moc"
