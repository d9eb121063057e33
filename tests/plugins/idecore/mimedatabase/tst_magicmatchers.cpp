// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/messagerecorder.h"

#include <idecore/mimedatabase/contentmatchers_p.h>
#include <idecore/mimedatabase/filematchcontext_p.h>
#include <idecore/mimedatabase/magicrule.h>
#include <idecore/mimedatabase/magicrulematcher.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

#include <sys/stat.h>

using Core::MagicByteRule;
using Core::MagicRuleMatcher;
using Core::MagicRulePtr;
using Core::MagicStringRule;
using Core::Internal::BinaryMatcher;
using Core::Internal::FileMatchContext;
using Core::Internal::HeuristicTextMagicMatcher;

class TestMagicMatchers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stringRule_data();
    void stringRule();
    void stringRuleIsUtf8();
    void byteRule_data();
    void byteRule();
    void byteRuleReadsHexadecimal_data();
    void byteRuleReadsHexadecimal();
    void textHeuristic_data();
    void textHeuristic();
    void textHeuristicLooksAtEveryByte();
    void prioritiesOfTheFallbacks();
    void binaryMatchesEverything();
    void ruleMatcherStartsWithTheHighestPriority();
    void ruleMatcherNeedsOneRule();
    void ruleMatcherStopsAtTheFirstMatch();
    void ruleMatcherIgnoresANullRule();
    void ruleMatcherWithoutRulesMatchesNothing();

    void contextNamesTheFileWithoutDirectory();
    void contextStates_data();
    void contextStates();
    void contextReadsOnce();
    void contextReadsNoMoreThanItsLimit();
    void contextLeavesAFifoAlone();
    void contextWarnsWhenOpeningFails();
};

void TestMagicMatchers::stringRule_data()
{
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("expected");
    QTest::newRow("at the start") << 0 << 0 << QByteArray("magic!") << true;
    QTest::newRow("0:0 not later") << 0 << 0 << QByteArray(" magic") << false;
    QTest::newRow("0:10 at the start") << 0 << 10 << QByteArray("magic") << true;
    QTest::newRow("0:10 at 10") << 0 << 10 << QByteArray("0123456789magic") << true;
    QTest::newRow("0:10 not at 11") << 0 << 10 << QByteArray("0123456789xmagic") << false;
    QTest::newRow("first occurrence counts, behind the end")
        << 1 << 2 << QByteArray("magic   magic") << false;
    QTest::newRow("first occurrence at or after the start")
        << 1 << 9 << QByteArray("magic magic") << true;
    QTest::newRow("data one byte too short") << 2 << 9 << QByteArray("xxmagi") << false;
    QTest::newRow("data just long enough") << 2 << 2 << QByteArray("xxmagic") << true;
    QTest::newRow("case counts") << 0 << 0 << QByteArray("Magic") << false;
    QTest::newRow("end before start") << 5 << 2 << QByteArray("     magic") << false;
    QTest::newRow("negative start") << -4 << 3 << QByteArray("magic") << true;
    QTest::newRow("negative start does not count from the end")
        << -4 << 3 << QByteArray("magicmagic") << true;
    QTest::newRow("negative end") << -4 << -1 << QByteArray("magic") << false;
    QTest::newRow("least start") << least << most << QByteArray("xmagic") << true;
    QTest::newRow("greatest start") << most << most << QByteArray("magic") << false;
    QTest::newRow("greatest end") << 0 << most << QByteArray("xxxmagic") << true;
}

void TestMagicMatchers::stringRule()
{
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(QByteArray, data);

    const MagicStringRule rule(QStringLiteral("magic"), start, end);

    QCOMPARE(rule.startPos(), start);
    QCOMPARE(rule.endPos(), end);
    QTEST(rule.matches(data), "expected");
}

void TestMagicMatchers::stringRuleIsUtf8()
{
    const MagicStringRule rule(QString(QChar(0xe9)), 0, 0);

    QCOMPARE(rule.pattern(), QByteArray("\xc3\xa9"));
}

void TestMagicMatchers::byteRule_data()
{
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("expected");
    const QString elf = QStringLiteral("\\0x7f\\0x45");
    QTest::newRow("at the start") << elf << 0 << 0 << QByteArray("\x7f\x45\x01") << true;
    QTest::newRow("0:0 not later") << elf << 0 << 0 << QByteArray(" \x7f\x45") << false;
    QTest::newRow("last place of the range") << elf << 0 << 2 << QByteArray("  \x7f\x45") << true;
    QTest::newRow("behind the range") << elf << 0 << 1 << QByteArray("  \x7f\x45") << false;
    QTest::newRow("later occurrence in the range")
        << elf << 1 << 4 << QByteArray("\x7f\x45 \x7f\x45") << true;
    QTest::newRow("data too short") << elf << 0 << 5 << QByteArray("\x7f") << false;
    QTest::newRow("no number") << QStringLiteral("\\0x7f\\zz") << 0 << 9 << QByteArray("\x7f")
                               << false;
    QTest::newRow("0x80 never") << QStringLiteral("\\0x80") << 0 << 0 << QByteArray("\x80")
                                << false;
    QTest::newRow("0xff never") << QStringLiteral("\\0xff") << 0 << 0 << QByteArray("\xff")
                                << false;
    QTest::newRow("0x7f") << QStringLiteral("\\0x7f") << 0 << 0 << QByteArray("\x7f") << true;
    QTest::newRow("zero byte") << QStringLiteral("\\0x0") << 0 << 0 << QByteArray(1, '\0') << true;
    QTest::newRow("end before start") << elf << 1 << 0 << QByteArray("\x7f\x45\x45") << false;
    QTest::newRow("negative start") << elf << -3 << 1 << QByteArray(" \x7f\x45") << true;
    QTest::newRow("negative end") << elf << -3 << -1 << QByteArray("\x7f\x45") << false;
    QTest::newRow("all integers") << elf << least << most << QByteArray("  \x7f\x45") << true;
    QTest::newRow("greatest start") << elf << most << most << QByteArray("\x7f\x45") << false;
}

void TestMagicMatchers::byteRule()
{
    QFETCH(QString, value);
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(QByteArray, data);

    const MagicByteRule rule(value, start, end);

    QTEST(rule.matches(data), "expected");
}

void TestMagicMatchers::byteRuleReadsHexadecimal_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QList<int>>("bytes");
    QTest::newRow("with prefix") << QStringLiteral("\\0x7f\\0x45") << QList<int>{0x7f, 0x45};
    QTest::newRow("without prefix") << QStringLiteral("\\7f\\45") << QList<int>{0x7f, 0x45};
    QTest::newRow("empty parts are dropped")
        << QStringLiteral("\\\\10\\\\\\11\\") << QList<int>{0x10, 0x11};
    QTest::newRow("without backslash") << QStringLiteral("1b") << QList<int>{0x1b};
    QTest::newRow("larger than a byte") << QStringLiteral("\\fff") << QList<int>{0xfff};
    QTest::newRow("first is no number") << QStringLiteral("\\zz\\10") << QList<int>{};
    QTest::newRow("last is no number") << QStringLiteral("\\10\\11\\zz") << QList<int>{};
    QTest::newRow("beyond an integer") << QStringLiteral("\\ffffffff") << QList<int>{};
    QTest::newRow("nothing") << QString() << QList<int>{};
}

void TestMagicMatchers::byteRuleReadsHexadecimal()
{
    QFETCH(QString, value);
    QFETCH(QList<int>, bytes);

    const MagicByteRule rule(value, 0, 0);

    QCOMPARE(rule.bytes(), bytes);
    QCOMPARE(rule.byteCount(), bytes.size());
}

void TestMagicMatchers::textHeuristic_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("expected");
    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("ascii") << QByteArray("plain\ttext\r\n\f\x1b") << true;
    QTest::newRow("from 0x80 on") << QByteArray("\x80\xff\xc3\xa9") << true;
    for (char c = 1; c <= 8; ++c)
        QTest::addRow("control character %d", int(c)) << QByteArray("text ").append(c) << false;
    QTest::newRow("tab") << QByteArray("\x09") << true;
    QTest::newRow("zero byte") << QByteArray("te\0xt", 5) << false;
    QTest::newRow("big endian mark") << QByteArray("\xfe\xff\0a", 4) << true;
    QTest::newRow("little endian mark") << QByteArray("\xff\xfe"
                                                      "a\0",
                                                      4)
                                        << true;
    QTest::newRow("scan stops at the zero byte") << QByteArray("\xfe\xff\0\x07", 4) << true;
    QTest::newRow("control before the zero byte") << QByteArray("\xfe\xff\x07\0a", 5) << false;
    QTest::newRow("half a mark") << QByteArray("\xfe\0", 2) << false;
}

void TestMagicMatchers::textHeuristic()
{
    QFETCH(QByteArray, data);

    QTEST(HeuristicTextMagicMatcher::isTextFile(data), "expected");
    QTEST(HeuristicTextMagicMatcher().matches(data), "expected");
}

void TestMagicMatchers::textHeuristicLooksAtEveryByte()
{
    for (int value = 0; value <= 0xff; ++value) {
        for (int size = 1; size <= 20; ++size) {
            for (const char other : {'\x09', '\x80', '\xff'}) {
                for (int at = 0; at < size; ++at) {
                    QByteArray data(size, other);
                    data[at] = char(value);
                    QVERIFY2(HeuristicTextMagicMatcher::isTextFile(data) == (value > 8),
                             data.toHex().constData());
                }
            }
        }
    }
}

void TestMagicMatchers::prioritiesOfTheFallbacks()
{
    QCOMPARE(HeuristicTextMagicMatcher().priority(), 3);
    QCOMPARE(BinaryMatcher().priority(), 2);
}

void TestMagicMatchers::binaryMatchesEverything()
{
    QVERIFY(BinaryMatcher().matches(QByteArray("\1")));
    QVERIFY(BinaryMatcher().matches(QByteArray()));
}

void TestMagicMatchers::ruleMatcherStartsWithTheHighestPriority()
{
    MagicRuleMatcher matcher;
    QCOMPARE(matcher.priority(), 65535);

    matcher.setPriority(40);

    QCOMPARE(matcher.priority(), 40);
}

void TestMagicMatchers::ruleMatcherNeedsOneRule()
{
    MagicRuleMatcher matcher;
    matcher.add(MagicRulePtr(new MagicStringRule(QStringLiteral("one"), 0, 0)));
    matcher.add(MagicRulePtr(new MagicByteRule(QStringLiteral("\\0x01"), 0, 0)));

    QVERIFY(matcher.matches(QByteArray("one")));
    QVERIFY(matcher.matches(QByteArray("\1")));
    QVERIFY(!matcher.matches(QByteArray("two")));
}

namespace {

/// Writes its name to a list whenever it is asked.
class AskedRule : public Core::MagicRule
{
public:
    AskedRule(char name, bool result, QByteArray *asked)
        : MagicRule(0, 0)
        , m_name(name)
        , m_result(result)
        , m_asked(asked)
    {
    }
    bool matches(const QByteArray &) const override
    {
        m_asked->append(m_name);
        return m_result;
    }

private:
    const char m_name;
    const bool m_result;
    QByteArray *const m_asked;
};

} // namespace

void TestMagicMatchers::ruleMatcherStopsAtTheFirstMatch()
{
    QByteArray asked;
    MagicRuleMatcher matcher;
    matcher.add(MagicRulePtr(new AskedRule('a', false, &asked)));
    matcher.add(MagicRulePtr(new AskedRule('b', true, &asked)));
    matcher.add(MagicRulePtr(new AskedRule('c', true, &asked)));

    QVERIFY(matcher.matches(QByteArray("text")));

    QCOMPARE(asked, QByteArray("ab"));
}

void TestMagicMatchers::ruleMatcherIgnoresANullRule()
{
    MagicRuleMatcher matcher;

    matcher.add(MagicRulePtr());

    QVERIFY(matcher.rules().isEmpty());
}

void TestMagicMatchers::ruleMatcherWithoutRulesMatchesNothing()
{
    QVERIFY(!MagicRuleMatcher().matches(QByteArray("text")));
}

namespace {

QString writeFile(const QTemporaryDir &dir, const QString &name, const QByteArray &data)
{
    QFile file(dir.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
        return {};
    return file.fileName();
}

} // namespace

void TestMagicMatchers::contextNamesTheFileWithoutDirectory()
{
    const FileMatchContext context(QFileInfo(QStringLiteral("/some/where/top.v")));

    QCOMPARE(context.fileName(), QStringLiteral("top.v"));
}

void TestMagicMatchers::contextStates_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("hasData");
    QTest::newRow("regular file") << QStringLiteral("full") << true;
    QTest::newRow("empty file") << QStringLiteral("empty") << false;
    QTest::newRow("directory") << QStringLiteral(".") << false;
    QTest::newRow("missing file") << QStringLiteral("missing") << false;
    QTest::newRow("device") << QStringLiteral("/dev/zero") << false;
}

void TestMagicMatchers::contextStates()
{
    QFETCH(QString, name);
    QFETCH(bool, hasData);
    const QTemporaryDir dir;
    writeFile(dir, QStringLiteral("full"), "data");
    writeFile(dir, QStringLiteral("empty"), "");
    FileMatchContext context(QFileInfo(dir.filePath(name)));
    using State = FileMatchContext::State;

    QCOMPARE(context.state(), hasData ? State::DataNotRead : State::NoDataAvailable);
    QCOMPARE(context.data(), hasData ? QByteArray("data") : QByteArray());
    QCOMPARE(context.state(), hasData ? State::DataRead : State::NoDataAvailable);
}

void TestMagicMatchers::contextReadsOnce()
{
    const QTemporaryDir dir;
    const QString path = writeFile(dir, QStringLiteral("file"), "before");
    FileMatchContext context{QFileInfo(path)};
    QCOMPARE(context.data(), QByteArray("before"));

    writeFile(dir, QStringLiteral("file"), "after");

    QCOMPARE(context.data(), QByteArray("before"));
}

void TestMagicMatchers::contextReadsNoMoreThanItsLimit()
{
    const QTemporaryDir dir;
    const QString path = writeFile(dir, QStringLiteral("file"), QByteArray(2048, 'a') + "b");
    FileMatchContext context{QFileInfo(path)};

    QCOMPARE(context.data(), QByteArray(2048, 'a'));
}

void TestMagicMatchers::contextLeavesAFifoAlone()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("fifo"));
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    FileMatchContext context{QFileInfo(path)};

    // Opening it would wait for somebody to write.
    QCOMPARE(context.data(), QByteArray());
}

void TestMagicMatchers::contextWarnsWhenOpeningFails()
{
    const QTemporaryDir dir;
    const QString path = writeFile(dir, QStringLiteral("file"), "data");
    // What it remembers is that the file is there.
    const QFileInfo info(path);
    QVERIFY(info.isFile() && info.isReadable() && info.size() > 0);
    QVERIFY(QFile::remove(path));
    FileMatchContext context(info);

    const MessageRecorder recorder;
    QCOMPARE(context.data(), QByteArray());

    const QString message = recorder.only();
    QVERIFY(message.startsWith(QLatin1String("warning: ")));
    QVERIFY(message.contains(QLatin1String("FileMatchContext::data()")));
    QVERIFY(message.endsWith(QLatin1String(" failed to open ") + path
                             + QLatin1String(": No such file or directory\n")));
    QCOMPARE(context.state(), FileMatchContext::State::NoDataAvailable);
    QCOMPARE(context.data(), QByteArray());
    QCOMPARE(recorder.labelled().size(), 1);
}

QTEST_GUILESS_MAIN(TestMagicMatchers)
#include "tst_magicmatchers.moc"
