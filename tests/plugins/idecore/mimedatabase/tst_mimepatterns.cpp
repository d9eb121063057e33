// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "parsing.h"

#include <QRegExp>
#include <QTest>
#include <QXmlStreamAttributes>

using Core::MagicRuleMatcherPtr;

class TestMimePatterns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
};

void TestMimePatterns::glob_data()
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

void TestMimePatterns::glob()
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

void TestMimePatterns::suffixGlobs_data()
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

void TestMimePatterns::suffixGlobs()
{
    QFETCH(QString, pattern);

    const Result result = parseType("<glob pattern=\"" + pattern.toUtf8() + "\"/>");

    QCOMPARE(result.type().globPatterns().size(), 1);
    QCOMPARE(result.type().globPatterns().first().pattern(), pattern);
    QTEST(result.type().suffixes(), "suffixes");
}

void TestMimePatterns::firstSuffixIsThePreferredOne()
{
    const Result result = parseType("<glob pattern=\"Make*\"/><glob pattern=\"*.v\"/>"
                                    "<glob pattern=\"*.sv\"/>");

    QCOMPARE(result.type().preferredSuffix(), QStringLiteral("v"));
    QCOMPARE(result.type().suffixes(), QStringList({QStringLiteral("v"), QStringLiteral("sv")}));
}

void TestMimePatterns::emptyGlobIsSkipped()
{
    const Result result = parseType("<glob/><glob pattern=\"\"/>");

    QVERIFY(result.ok);
    QVERIFY(result.log.isEmpty());
    QVERIFY(result.type().globPatterns().isEmpty());
}

void TestMimePatterns::invalidWildcardIsSkipped_data()
{
    QTest::addColumn<QString>("pattern");
    for (const char *pattern : {"*.[a", "a]", "[]", "["})
        QTest::newRow(pattern) << QString::fromLatin1(pattern);
}

void TestMimePatterns::invalidWildcardIsSkipped()
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

void TestMimePatterns::defaultsOfTheDocumentTypeCount()
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

void TestMimePatterns::magicPriority_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<int>("priority");
    QTest::newRow("absent") << QByteArray() << 0;
    QTest::newRow("given") << QByteArray("priority=\"80\"") << 80;
    QTest::newRow("negative") << QByteArray("priority=\"-80\"") << -80;
    QTest::newRow("greatest") << QByteArray("priority=\"2147483647\"") << 2147483647;
    QTest::newRow("least") << QByteArray("priority=\"-2147483648\"") << -2147483647 - 1;
}

void TestMimePatterns::magicPriority()
{
    QFETCH(QByteArray, attributes);

    const Result result = parseType("<magic " + attributes
                                    + "><match type=\"string\" value=\"a\" offset=\"0\"/></magic>");

    QVERIFY(result.ok);
    QVERIFY(ruleMatcher(result));
    QTEST(ruleMatcher(result)->priority(), "priority");
}

void TestMimePatterns::magicPriorityThatIsNoNumber_data()
{
    QTest::addColumn<QByteArray>("priority");
    for (const char *text : {"", "high", "1.5", "0x10", "2147483648", "-2147483649"})
        QTest::newRow(text) << QByteArray(text);
}

void TestMimePatterns::magicPriorityThatIsNoNumber()
{
    QFETCH(QByteArray, priority);

    const Result result = parseType("<magic priority=\"" + priority + "\"/>");

    QVERIFY(!result.ok);
    QCOMPARE(result.message, QString::fromLatin1("Not a number '" + priority + "'."));
    QVERIFY(result.types.isEmpty());
}

void TestMimePatterns::offsets_data()
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

void TestMimePatterns::offsets()
{
    QFETCH(QByteArray, offset);

    const Result result =
        parseType("<magic><match type=\"string\" value=\"a\" offset=\"" + offset + "\"/></magic>");

    QVERIFY(result.ok);
    QCOMPARE(ruleMatcher(result)->rules().size(), 1);
    QTEST(ruleMatcher(result)->rules().first()->startPos(), "start");
    QTEST(ruleMatcher(result)->rules().first()->endPos(), "end");
}

void TestMimePatterns::offsetThatIsNoNumber_data()
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

void TestMimePatterns::offsetThatIsNoNumber()
{
    QFETCH(QByteArray, attribute);
    QFETCH(QString, text);

    const Result result =
        parseType("<magic><match type=\"byte\" value=\"\\1\" " + attribute + "/></magic>");

    QVERIFY(!result.ok);
    QCOMPARE(result.message, QLatin1String("Not a number '") + text + QLatin1String("'."));
}

void TestMimePatterns::byteAndStringRules()
{
    const Result result =
        parseType("<magic><match type=\"byte\" value=\"\\0x61\" offset=\"0\"/></magic>"
                  "<magic><match type=\"string\" value=\"\\0x61\" offset=\"0\"/></magic>");

    QVERIFY(result.ok);
    QVERIFY(ruleMatcher(result, 0)->matches("a"));
    QVERIFY(!ruleMatcher(result, 1)->matches("a"));
    QVERIFY(ruleMatcher(result, 1)->matches("\\0x61"));
}

void TestMimePatterns::unsupportedMatchTypeIsSkipped()
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

void TestMimePatterns::emptyMatchValue()
{
    const Result result =
        parseType("<magic><match type=\"string\" value=\"\" offset=\"x\"/></magic>");

    QVERIFY(!result.ok);
    QCOMPARE(result.message, QStringLiteral("Empty match value detected."));
}

void TestMimePatterns::onlyTheFirstMatchOfAMagicCounts()
{
    const Result result = parseType("<magic><match type=\"string\" value=\"a\" offset=\"0\">"
                                    "<match type=\"string\" value=\"b\" offset=\"1\"/></match>"
                                    "<match type=\"string\" value=\"c\" offset=\"0\"/></magic>");

    QVERIFY(result.ok);
    QCOMPARE(ruleMatcher(result)->rules().size(), 1);
    QVERIFY(ruleMatcher(result)->matches("a"));
}

void TestMimePatterns::everyMagicCounts()
{
    const Result result = parseType(
        "<magic priority=\"1\"><match type=\"string\" value=\"a\" offset=\"0\"/></magic>"
        "<magic priority=\"2\"><match type=\"string\" value=\"c\" offset=\"0\"/></magic>");

    QVERIFY(result.ok);
    QCOMPARE(result.type().magicMatchers().size(), 2);
    QCOMPARE(ruleMatcher(result, 1)->priority(), 2);
}

void TestMimePatterns::matchWithoutMagicIsAnAssertion()
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

void TestMimePatterns::addMagicMatchRuleNeedsAMatcher()
{
    const MessageRecorder recorder;

    QVERIFY(
        !Core::Internal::addMagicMatchRule(QXmlStreamAttributes(), MagicRuleMatcherPtr(), nullptr));

    QVERIFY(recorder.only().contains(
        QRegExp(QStringLiteral("^critical: ASSERTION !ruleMatcher\\.isNull\\(\\) FAILED AT "
                               ".*mimetypeparser\\.cpp:\\d+$"))));
}

QTEST_GUILESS_MAIN(TestMimePatterns)
#include "tst_mimepatterns.moc"
