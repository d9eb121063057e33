// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/messagerecorder.h"

#include <idecore/mimedatabase/filematchcontext_p.h>
#include <idecore/mimedatabase/magicrulematcher.h>
#include <idecore/mimedatabase/mimetype.h>
#include <idecore/mimedatabase/mimetype_p.h>

#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

using Core::IMagicMatcherPtr;
using Core::MimeGlobPattern;
using Core::MimeType;
using Core::Internal::FileMatchContext;

namespace {

QList<MimeGlobPattern> globs(std::initializer_list<std::pair<const char *, quint32>> list)
{
    QList<MimeGlobPattern> result;
    for (const auto &glob : list)
        result.append(MimeGlobPattern(QString::fromUtf8(glob.first), glob.second));
    return result;
}

/// Knows everything, and how often it was asked.
class CountingMatcher : public Core::IMagicMatcher
{
public:
    CountingMatcher(bool result, int priority)
        : m_result(result)
        , m_priority(priority)
    {
    }

    bool matches(const QByteArray &) const override
    {
        ++asked;
        return m_result;
    }
    int priority() const override { return m_priority; }

    mutable int asked = 0;

private:
    const bool m_result;
    const int m_priority;
};

QSharedPointer<CountingMatcher> matcher(bool result, int priority)
{
    return QSharedPointer<CountingMatcher>::create(result, priority);
}

MimeType textType()
{
    MimeType type;
    type.setType(QStringLiteral("text/x-test"));
    type.setComment(QStringLiteral("Plain Text File"));
    type.setGlobPatterns(globs({{"*.txt", 100}}));
    type.setSuffixes({QStringLiteral("txt"), QStringLiteral("text")});
    return type;
}

QString debugText(const MimeType &type, int indent)
{
    QString text;
    QTextStream stream(&text);
    type.data().debug(stream, indent);
    return text;
}

} // namespace

class TestMimeType : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsNull();
    void isNullWithoutAName();
    void isTopLevelWithoutAParent();
    void copiesShareUntilOneChanges();
    void clearResetsEverything();
    void ignoresANullMatcher();
    void matchesItsNameAndAliases_data();
    void matchesItsNameAndAliases();

    void localeComment_data();
    void localeComment();
    void localeCommentOfTheSystem_data();
    void localeCommentOfTheSystem();
    void aLaterLocaleCommentReplaces();

    void globKeepsWhatItIsMadeOf();
    void globsIgnoreCase_data();
    void globsIgnoreCase();
    void globTakesAnyExpression();
    void firstMatchingGlobWins();
    void firstMatchingGlobOfWeightZeroIsNoMatch();
    void withoutGlobsAndMatchersRatesNothing();

    void contentNeedsAMatcherToReadTheFile();
    void contentOfAnEmptyFileAsksNobody();
    void contentAsksEveryMatcherAndTakesTheHighest();
    void contentWithoutAMatchRatesZero();
    void negativePriorityRatesZero();
    void weightOfAHundredIsFinal();
    void weightBelowAHundredIsComparedWithContent_data();
    void weightBelowAHundredIsComparedWithContent();

    void preferredSuffixOfTheList();
    void preferredSuffixOutsideTheListIsRefused();
    void preferredSuffixRespectsCase();

    void filterString();
    void filterStringWithoutGlobsIsEmpty();
    void filterStringSeparatesByBlanks();

    void debugOfAFullType();
    void debugOfAnEmptyType();
    void debugIndents();
    void debugStreamGetsTheText();
};

void TestMimeType::startsNull()
{
    const MimeType type;

    QVERIFY(type.isNull());
    QVERIFY(!type);
    QCOMPARE(type.type(), QString());
}

void TestMimeType::isNullWithoutAName()
{
    MimeType type;
    type.setComment(QStringLiteral("a comment"));
    QVERIFY(type.isNull());

    type.setType(QStringLiteral("a/b"));

    QVERIFY(!type.isNull());
    QVERIFY(bool(type));
}

void TestMimeType::isTopLevelWithoutAParent()
{
    MimeType type = textType();
    QVERIFY(type.isTopLevel());

    type.setSubClassesOf({QStringLiteral("text/plain")});

    QVERIFY(!type.isTopLevel());
}

void TestMimeType::copiesShareUntilOneChanges()
{
    const MimeType original = textType();
    MimeType copy = original;
    QCOMPARE(&copy.data(), &original.data());

    copy.setComment(QStringLiteral("changed"));

    QVERIFY(&copy.data() != &original.data());
    QCOMPARE(original.comment(), QStringLiteral("Plain Text File"));
}

void TestMimeType::clearResetsEverything()
{
    MimeType type = textType();
    type.setLocaleComment(QStringLiteral("de"), QStringLiteral("Text"));
    type.setAliases({QStringLiteral("a/b")});
    type.setSubClassesOf({QStringLiteral("c/d")});
    QVERIFY(type.setPreferredSuffix(QStringLiteral("txt")));
    type.addMagicMatcher(matcher(true, 1));

    type.clear();

    QVERIFY(type.isNull());
    QCOMPARE(type.comment(), QString());
    QCOMPARE(type.localeComment(QStringLiteral("de")), QString());
    QCOMPARE(type.aliases(), QStringList());
    QCOMPARE(type.subClassesOf(), QStringList());
    QCOMPARE(type.suffixes(), QStringList());
    QCOMPARE(type.preferredSuffix(), QString());
    QVERIFY(type.globPatterns().isEmpty());
    QVERIFY(type.magicMatchers().isEmpty());
}

void TestMimeType::ignoresANullMatcher()
{
    MimeType type = textType();

    type.addMagicMatcher(IMagicMatcherPtr());

    QVERIFY(type.magicMatchers().isEmpty());
}

void TestMimeType::matchesItsNameAndAliases_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("expected");
    QTest::newRow("name") << QStringLiteral("text/x-test") << true;
    QTest::newRow("alias") << QStringLiteral("text/alias") << true;
    QTest::newRow("name in another case") << QStringLiteral("text/X-test") << false;
    QTest::newRow("alias in another case") << QStringLiteral("text/Alias") << false;
    QTest::newRow("another name") << QStringLiteral("text/other") << false;
}

void TestMimeType::matchesItsNameAndAliases()
{
    QFETCH(QString, name);
    MimeType type = textType();
    type.setAliases({QStringLiteral("text/first"), QStringLiteral("text/alias")});

    QTEST(type.matchesType(name), "expected");
}

void TestMimeType::localeComment_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("expected");
    QTest::newRow("language") << QStringLiteral("zh") << QStringLiteral("chinese");
    QTest::newRow("is not cut") << QStringLiteral("zh_CN") << QStringLiteral("simplified");
    QTest::newRow("unknown country")
        << QStringLiteral("zh_TW") << QStringLiteral("Plain Text File");
    QTest::newRow("unknown language") << QStringLiteral("fr") << QStringLiteral("Plain Text File");
}

void TestMimeType::localeComment()
{
    QFETCH(QString, locale);
    MimeType type = textType();
    type.setLocaleComment(QStringLiteral("zh"), QStringLiteral("chinese"));
    type.setLocaleComment(QStringLiteral("zh_CN"), QStringLiteral("simplified"));

    QTEST(type.localeComment(locale), "expected");
}

void TestMimeType::localeCommentOfTheSystem_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("expected");
    QTest::newRow("language") << QStringLiteral("zh") << QStringLiteral("here");
    QTest::newRow("with country") << QStringLiteral("zh_CN") << QStringLiteral("Plain Text File");
    QTest::newRow("another") << QStringLiteral("fr") << QStringLiteral("Plain Text File");
}

void TestMimeType::localeCommentOfTheSystem()
{
    QFETCH(QString, locale);
    MimeType type = textType();
    type.setLocaleComment(locale, QStringLiteral("here"));
    QCOMPARE(QLocale::system().name(), QStringLiteral("zh_CN"));

    QTEST(type.localeComment(), "expected");
}

void TestMimeType::aLaterLocaleCommentReplaces()
{
    MimeType type = textType();
    type.setLocaleComment(QStringLiteral("de"), QStringLiteral("first"));

    type.setLocaleComment(QStringLiteral("de"), QStringLiteral("second"));

    QCOMPARE(type.localeComment(QStringLiteral("de")), QStringLiteral("second"));
}

void TestMimeType::globKeepsWhatItIsMadeOf()
{
    QRegExp expression(QStringLiteral("a+"), Qt::CaseSensitive, QRegExp::RegExp2);
    expression.setMinimal(true);

    const MimeGlobPattern glob(expression, 7);

    QCOMPARE(glob.regExp(), expression);
    QCOMPARE(glob.weight(), 7U);
    QCOMPARE(MimeGlobPattern(QStringLiteral("*.v")).weight(), 100U);
    QCOMPARE(MimeGlobPattern(QStringLiteral("*.v")).regExp(),
             QRegExp(QStringLiteral("*.v"), Qt::CaseInsensitive, QRegExp::Wildcard));
}

void TestMimeType::globsIgnoreCase_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<unsigned>("expected");
    QTest::newRow("suffix") << QStringLiteral("notes.txt") << 100U;
    QTest::newRow("Makefile.txt") << QStringLiteral("Makefile.txt") << 100U;
    QTest::newRow("README.TXT") << QStringLiteral("README.TXT") << 100U;
    QTest::newRow("only a suffix") << QStringLiteral(".txt") << 100U;
    QTest::newRow("not in the middle") << QStringLiteral("a.txt.gz") << 0U;
    QTest::newRow("the directory does not count") << QStringLiteral("/a.txt/b") << 0U;
    QTest::newRow("without the dot") << QStringLiteral("txt") << 0U;
}

void TestMimeType::globsIgnoreCase()
{
    QFETCH(QString, name);
    FileMatchContext context{QFileInfo(name)};

    QTEST(textType().matchesFileBySuffix(context), "expected");
}

void TestMimeType::globTakesAnyExpression()
{
    const MimeGlobPattern glob(QRegExp(QStringLiteral("[a-c]+\\d"), Qt::CaseSensitive));

    QVERIFY(glob.matches(QStringLiteral("abc1")));
    QVERIFY(!glob.matches(QStringLiteral("ABC1")));
    QVERIFY(!glob.matches(QStringLiteral("abc12")));
}

void TestMimeType::firstMatchingGlobWins()
{
    MimeType type;
    type.setGlobPatterns(globs({{"*.gz", 10}, {"*.tar.gz", 90}, {"a*", 95}}));
    FileMatchContext context(QFileInfo(QStringLiteral("a.tar.gz")));

    QCOMPARE(type.matchesFileBySuffix(context), 10U);
}

void TestMimeType::firstMatchingGlobOfWeightZeroIsNoMatch()
{
    MimeType type;
    type.setGlobPatterns(globs({{"*.gz", 0}, {"*.tar.gz", 90}}));
    FileMatchContext context(QFileInfo(QStringLiteral("a.tar.gz")));

    QCOMPARE(type.matchesFileBySuffix(context), 0U);
}

void TestMimeType::withoutGlobsAndMatchersRatesNothing()
{
    QCOMPARE(MimeType().matchesFile(QFileInfo(QStringLiteral(":/qt-project.org"))), 0U);
    QCOMPARE(MimeType().matchesFile(QFileInfo(QCoreApplication::applicationFilePath())), 0U);
}

namespace {

/// A file "data.bin" with something in it.
struct DataFile
{
    explicit DataFile(const QByteArray &data = "data")
        : info(dir.filePath(QStringLiteral("data.bin")))
    {
        QFile file(info.filePath());
        written = file.open(QIODevice::WriteOnly) && file.write(data) == data.size();
    }

    const QTemporaryDir dir;
    const QFileInfo info;
    bool written = false;
};

} // namespace

void TestMimeType::contentNeedsAMatcherToReadTheFile()
{
    const DataFile file;
    QVERIFY(file.written);
    FileMatchContext context(file.info);

    QCOMPARE(textType().matchesFileByContent(context), 0U);

    QCOMPARE(context.state(), FileMatchContext::State::DataNotRead);
}

void TestMimeType::contentOfAnEmptyFileAsksNobody()
{
    const DataFile file("");
    QVERIFY(file.written);
    const auto asked = matcher(true, 50);
    MimeType type;
    type.addMagicMatcher(asked);

    QCOMPARE(type.matchesFile(file.info), 0U);

    QCOMPARE(asked->asked, 0);
}

void TestMimeType::contentAsksEveryMatcherAndTakesTheHighest()
{
    const DataFile file;
    QVERIFY(file.written);
    const QList<QSharedPointer<CountingMatcher>> all{matcher(true, 20), matcher(true, 60),
                                                     matcher(false, 90), matcher(true, 30)};
    MimeType type;
    for (const auto &one : all)
        type.addMagicMatcher(one);
    FileMatchContext context(file.info);

    QCOMPARE(type.matchesFileByContent(context), 60U);

    for (const auto &one : all)
        QCOMPARE(one->asked, 1);
}

void TestMimeType::contentWithoutAMatchRatesZero()
{
    const DataFile file;
    QVERIFY(file.written);
    MimeType type;
    type.addMagicMatcher(matcher(false, 50));

    QCOMPARE(type.matchesFile(file.info), 0U);
}

void TestMimeType::negativePriorityRatesZero()
{
    const DataFile file;
    QVERIFY(file.written);
    MimeType type;
    type.addMagicMatcher(matcher(true, -1));

    QCOMPARE(type.matchesFile(file.info), 0U);
}

void TestMimeType::weightOfAHundredIsFinal()
{
    const DataFile file;
    QVERIFY(file.written);
    const auto asked = matcher(true, 200);
    MimeType type;
    type.setGlobPatterns(globs({{"*.bin", 100}}));
    type.addMagicMatcher(asked);

    QCOMPARE(type.matchesFile(file.info), 100U);

    QCOMPARE(asked->asked, 0);
}

void TestMimeType::weightBelowAHundredIsComparedWithContent_data()
{
    QTest::addColumn<quint32>("weight");
    QTest::addColumn<int>("priority");
    QTest::addColumn<unsigned>("expected");
    QTest::newRow("content is more") << 99U << 200 << 200U;
    QTest::newRow("name is more") << 99U << 98 << 99U;
}

void TestMimeType::weightBelowAHundredIsComparedWithContent()
{
    QFETCH(quint32, weight);
    QFETCH(int, priority);
    const DataFile file;
    QVERIFY(file.written);
    MimeType type;
    type.setGlobPatterns(globs({{"*.bin", weight}}));
    type.addMagicMatcher(matcher(true, priority));

    QTEST(type.matchesFile(file.info), "expected");
}

void TestMimeType::preferredSuffixOfTheList()
{
    MimeType type = textType();

    QVERIFY(type.setPreferredSuffix(QStringLiteral("text")));

    QCOMPARE(type.preferredSuffix(), QStringLiteral("text"));
}

void TestMimeType::preferredSuffixOutsideTheListIsRefused()
{
    MimeType type = textType();
    QVERIFY(type.setPreferredSuffix(QStringLiteral("text")));

    const MessageRecorder recorder;
    QVERIFY(!type.setPreferredSuffix(QStringLiteral("doc")));

    QCOMPARE(type.preferredSuffix(), QStringLiteral("text"));
    QVERIFY(recorder.only().startsWith(QLatin1String("warning: ")));
    QVERIFY(recorder.only().contains(QLatin1String("MimeType::setPreferredSuffix(")));
    QVERIFY(
        recorder.only().endsWith(QLatin1String(": Attempt to set preferred suffix to 'doc', which "
                                               "is not in the list of suffixes: txt,text.")));
}

void TestMimeType::preferredSuffixRespectsCase()
{
    MimeType type = textType();

    const MessageRecorder recorder;
    QVERIFY(!type.setPreferredSuffix(QStringLiteral("TXT")));
}

void TestMimeType::filterString()
{
    QCOMPARE(textType().filterString(), QStringLiteral("Plain Text File (*.txt)"));
}

void TestMimeType::filterStringWithoutGlobsIsEmpty()
{
    QCOMPARE(MimeType::formatFilterString(QStringLiteral("Nothing"), {}), QString());
}

void TestMimeType::filterStringSeparatesByBlanks()
{
    QCOMPARE(
        MimeType::formatFilterString(QStringLiteral("HDL"), globs({{"*.v", 100}, {"Make*", 5}})),
        QStringLiteral("HDL (*.v Make*)"));
}

void TestMimeType::debugOfAFullType()
{
    MimeType type = textType();
    type.setAliases({QStringLiteral("a/b"), QStringLiteral("c/d")});
    type.setSubClassesOf({QStringLiteral("e/f"), QStringLiteral("g/h")});
    type.setGlobPatterns(globs({{"*.txt", 100}, {"*.text", 50}}));
    QVERIFY(type.setPreferredSuffix(QStringLiteral("txt")));
    type.addMagicMatcher(matcher(true, 1));

    QCOMPARE(debugText(type, 0), QStringLiteral("Type: text/x-test Aliases: a/b,c/d, magic: 1\n"
                                                "Comment: Plain Text File\n"
                                                "SubClassesOf: e/f,g/h\n"
                                                "Glob: *.txt(100)*.text(50)\n"
                                                "Suffixes: txt,text preferred: txt\n"
                                                "\n"));
}

void TestMimeType::debugOfAnEmptyType()
{
    QCOMPARE(debugText(MimeType(), 0), QStringLiteral("Type: , magic: 0\nComment: \n\n"));
}

void TestMimeType::debugIndents()
{
    QCOMPARE(debugText(textType(), 2), QStringLiteral("  Type: text/x-test, magic: 0\n"
                                                      "  Comment: Plain Text File\n"
                                                      "  Glob: *.txt(100)\n"
                                                      "  Suffixes: txt,text preferred: \n"
                                                      "\n"));
}

void TestMimeType::debugStreamGetsTheText()
{
    QString text;
    QDebug(&text) << textType();

    QCOMPARE(text.trimmed(), debugText(textType(), 0).trimmed());
}

int main(int argc, char *argv[])
{
    // Read once, when it is first asked for.
    qputenv("LC_ALL", "zh_CN.UTF-8");
    const QCoreApplication application(argc, argv);
    TestMimeType test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mimetype.moc"
