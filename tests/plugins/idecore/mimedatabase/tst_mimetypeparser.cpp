// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "parsing.h"

#include <QCoreApplication>
#include <QFile>
#include <QTest>
#include <QTranslator>
#include <QVector>

using Core::MimeType;
using Core::Internal::BaseMimeTypeParser;

namespace {

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
    void localeCommentsOfATypeAreForgotten();
    void fileWithoutATypeIsGood();
    void endOfAnInnerTypeForgetsTheOuterOne();
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
    void catalogueIsAskedWhateverTheLength_data();
    void catalogueIsAskedWhateverTheLength();
    void commentsComeInAnyOrder();
    void commentMustBeText();
    void builtInTypesComeInOrder();
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

void TestMimeTypeParser::localeCommentsOfATypeAreForgotten()
{
    const Result result =
        parse("<mime-info><mime-type type=\"a/b\"><comment xml:lang=\"de\">A</comment></mime-type>"
              "<mime-type type=\"c/d\"><comment xml:lang=\"de_AT\">B</comment></mime-type>"
              "</mime-info>");

    QCOMPARE(result.types.size(), 2);
    QCOMPARE(result.types.at(1).localeComment(QStringLiteral("de_AT")), QStringLiteral("B"));
    QCOMPARE(result.types.at(1).localeComment(QStringLiteral("de")), QString());
}

void TestMimeTypeParser::fileWithoutATypeIsGood()
{
    const Result result = parse("<mime-info/>");

    QVERIFY(result.ok);
    QVERIFY(result.types.isEmpty());
}

void TestMimeTypeParser::endOfAnInnerTypeForgetsTheOuterOne()
{
    const Result result =
        parse("<mime-type type=\"a/b\"><comment>A</comment><comment xml:lang=\"de\">B</comment>"
              "<glob pattern=\"*.a\"/><mime-type type=\"c/d\"/></mime-type>");

    QVERIFY(result.ok);
    QCOMPARE(result.types.size(), 2);
    QCOMPARE(result.types.at(0).type(), QStringLiteral("c/d"));
    QCOMPARE(result.types.at(0).localeComment(QStringLiteral("de")), QStringLiteral("B"));
    QCOMPARE(result.types.at(0).suffixes(), QStringList(QStringLiteral("a")));
    QVERIFY(result.types.at(1).isNull());
    QCOMPARE(result.types.at(1).localeComment(QStringLiteral("de")), QString());
    QVERIFY(result.types.at(1).globPatterns().isEmpty());
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
    QTest::newRow("blank") << QString::fromUtf8("a b");
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

void TestMimeTypeParser::catalogueIsAskedWhateverTheLength_data()
{
    QTest::addColumn<QString>("comment");
    QTest::addColumn<bool>("isLatin1");
    for (int size = 1; size <= 20; ++size) {
        const QString ascii = QStringLiteral("abcdefghijklmnopqrst").left(size);
        QTest::addRow("ascii, %d", size) << ascii << true;
        for (int at = 0; at < size; ++at) {
            QString comment = ascii;
            comment[at] = QChar(0xff);
            QTest::addRow("latin-1, %d of %d", at, size) << comment << true;
            comment[at] = QChar(0x100);
            QTest::addRow("beyond latin-1, %d of %d", at, size) << comment << false;
        }
    }
}

void TestMimeTypeParser::catalogueIsAskedWhateverTheLength()
{
    QFETCH(QString, comment);
    QFETCH(bool, isLatin1);
    Catalogue catalogue;
    QVERIFY(QCoreApplication::installTranslator(&catalogue));

    const Result result = parseType("<comment>" + comment.toUtf8() + "</comment>");

    QCOMPARE(result.type().comment(), comment);
    QCOMPARE(catalogue.asked,
             isLatin1 ? QList<QByteArray>{"MimeType: " + comment.toLatin1()} : QList<QByteArray>());
}

void TestMimeTypeParser::commentsComeInAnyOrder()
{
    Catalogue catalogue;
    QVERIFY(QCoreApplication::installTranslator(&catalogue));

    const Result result = parseType("<comment xml:lang=\"de\">eins</comment><comment>one</comment>"
                                    "<comment xml:lang=\"fr\">Text</comment><comment>Text</comment>"
                                    "<comment xml:lang=\"it\">uno</comment>"
                                    "<comment xml:lang=\"de\">zwei</comment>");

    QCOMPARE(result.type().comment(), QStringLiteral("Translated"));
    QCOMPARE(result.type().localeComment(QStringLiteral("de")), QStringLiteral("zwei"));
    QCOMPARE(result.type().localeComment(QStringLiteral("fr")), QStringLiteral("Translated"));
    QCOMPARE(result.type().localeComment(QStringLiteral("it")), QStringLiteral("uno"));
}

void TestMimeTypeParser::commentMustBeText()
{
    const Result result = parseType("<comment>one <b>two</b></comment>");

    QVERIFY(!result.ok);
    QCOMPARE(result.message, locatedError(3, "Expected character data."));
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

QTEST_GUILESS_MAIN(TestMimeTypeParser)
#include "tst_mimetypeparser.moc"
