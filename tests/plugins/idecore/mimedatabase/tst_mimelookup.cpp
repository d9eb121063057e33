// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/contentmatchers_p.h>
#include <idecore/mimedatabase/filematchcontext_p.h>
#include <idecore/mimedatabase/magicrulematcher.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/mimedatabase/mimedatabase_p.h>
#include <idecore/mimedatabase/wildcard_p.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <random>
#include <thread>
#include <vector>

using Core::MimeGlobPattern;
using Core::MimeType;
using Core::private_impl::MimeDatabasePrivate;

namespace {

/// Units with odd cases beside plain ones: Kelvin and Angstrom signs, dotted and
/// dotless i, long s, sharp s in both cases, final sigma, a title-case pair,
/// halves of surrogate pairs.
const ushort units[] = {'a',   'B',    'z',    '1',  '9',   '.',    '.',    '_',   'k',    'i',
                        'S',   0x212a, 0x212b, 0xe5, 0x130, 0x131,  0x17f,  0xdf,  0x1e9e, 0x3c2,
                        0x3a3, 0x1c4,  0x1c5,  0xe9, 0xc9,  0xd801, 0xdc00, 0xdc28};
const ushort special[] = {'*', '*', '*', '?', '[', ']', '^', '-', '\\', '$', '(', '+', '{', '|'};

class Random
{
public:
    explicit Random(unsigned seed)
        : m_engine(seed)
    {
    }

    int below(int limit) { return int(m_engine() % unsigned(limit)); }
    bool oneIn(int n) { return below(n) == 0; }
    QChar unit() { return QChar(units[below(int(std::size(units)))]); }

    QString text(int longest)
    {
        QString result;
        for (int i = below(longest + 1); i > 0; --i)
            result += unit();
        return result;
    }

    QString pattern()
    {
        switch (below(6)) {
        case 0:
            return text(3);
        case 1:
        case 2:
            return QLatin1Char('*') + text(3);
        case 3:
            return text(2) + QLatin1Char('*');
        default:
            break;
        }
        QString result;
        for (int i = below(7); i > 0; --i)
            result += oneIn(2) ? unit() : QChar(special[below(int(std::size(special)))]);
        return result;
    }

    /// Often one that the pattern fits.
    QString nameFor(const QString &pattern)
    {
        if (oneIn(4))
            return text(5);
        QString name;
        for (const QChar c : pattern) {
            if (c == QLatin1Char('*'))
                name += text(2);
            else if (c == QLatin1Char('?'))
                name += unit();
            else if (!oneIn(16))
                name += oneIn(2) ? c.toUpper() : c.toLower();
        }
        return name.replace(QLatin1Char('/'), QLatin1Char('_'));
    }

private:
    std::mt19937 m_engine;
};

bool expressionMatches(const QString &pattern, const QString &text)
{
    return QRegExp(pattern, Qt::CaseInsensitive, QRegExp::Wildcard).exactMatch(text);
}

/// Recognises what it is told, and lies outside the known classes.
class ForeignMatcher : public Core::IMagicMatcher
{
public:
    ForeignMatcher(char byte, int priority)
        : m_byte(byte)
        , m_priority(priority)
    {
    }
    bool matches(const QByteArray &data) const override { return data.contains(m_byte); }
    int priority() const override { return m_priority; }

private:
    const char m_byte;
    const int m_priority;
};

class ForeignRule : public Core::MagicRule
{
public:
    ForeignRule()
        : MagicRule(0, 0)
    {
    }
    bool matches(const QByteArray &data) const override { return data.endsWith('b'); }
};

/// The rules as they read, type by type and level by level.
struct Plain
{
    explicit Plain(const MimeDatabasePrivate &database)
        : m_entries(database.entries)
    {
        for (Core::MimeMapEntry &entry : m_entries)
            entry.level = Core::Dangling;
        for (const Core::MimeMapEntry &entry : m_entries) {
            const QString parent = entry.type.type();
            if (!database.parentChildrenMap.contains(parent))
                continue;
            for (const QString &child : database.parentChildrenMap.values(parent))
                m_children[parent].append(child);
        }
        for (auto it = m_children.cbegin(); it != m_children.cend(); ++it) {
            bool isChild = false;
            for (const QStringList &children : qAsConst(m_children))
                isChild = isChild || children.contains(it.key());
            if (!isChild)
                raiseLevel(it.key(), 0);
        }
    }

    void raiseLevel(const QString &type, int level)
    {
        for (Core::MimeMapEntry &entry : m_entries) {
            if (entry.type.type() == type && (entry.level == Core::Dangling || entry.level < level))
                entry.level = level;
        }
        maxLevel = std::max(maxLevel, level);
        for (const QString &child : m_children.value(type))
            raiseLevel(child, level + 1);
    }

    static unsigned bySuffix(const MimeType &type, const QString &name)
    {
        const QList<MimeGlobPattern> globs = type.globPatterns();
        for (const MimeGlobPattern &glob : globs) {
            if (glob.regExp().exactMatch(name))
                return glob.weight();
        }
        return 0;
    }

    static unsigned byContent(const MimeType &type, const QByteArray &data)
    {
        if (data.isEmpty())
            return 0;
        int priority = 0;
        const auto matchers = type.magicMatchers();
        for (const auto &matcher : matchers) {
            if (matcher->matches(data))
                priority = std::max(priority, matcher->priority());
        }
        return unsigned(priority);
    }

    MimeType find(const QString &name, const QByteArray &data, unsigned *priority) const
    {
        MimeType chosen;
        *priority = 0;
        for (int level = maxLevel; level >= 0 && !chosen; --level) {
            for (const Core::MimeMapEntry &entry : m_entries) {
                const unsigned p = entry.level == level ? bySuffix(entry.type, name) : 0;
                if (p > *priority) {
                    chosen = entry.type;
                    *priority = p;
                    if (p > 99)
                        return chosen;
                }
            }
        }
        for (int level = maxLevel; level >= 0; --level) {
            for (const Core::MimeMapEntry &entry : m_entries) {
                const unsigned p = entry.level == level ? byContent(entry.type, data) : 0;
                if (p > *priority) {
                    chosen = entry.type;
                    *priority = p;
                }
            }
        }
        return chosen;
    }

    int maxLevel = -1;

private:
    std::vector<Core::MimeMapEntry> m_entries;
    QHash<QString, QStringList> m_children;
};

Core::IMagicMatcherPtr randomMatcher(Random &random)
{
    static const int priorities[] = {-5, 0, 1, 2, 3, 4, 50, 50, 80, 2147483647};
    const int priority = priorities[random.below(int(std::size(priorities)))];
    if (random.oneIn(8))
        return Core::IMagicMatcherPtr(new ForeignMatcher(char('a' + random.below(3)), priority));
    auto matcher = Core::MagicRuleMatcherPtr::create();
    matcher->setPriority(priority);
    for (int i = random.below(4); i > 0; --i) {
        const int start = random.oneIn(8) ? -2147483647 : random.below(6) - 2;
        const int end = random.oneIn(8) ? 2147483647 : start + random.below(4) - 1;
        QString value;
        if (random.oneIn(12)) {
            matcher->add(Core::MagicRulePtr(new ForeignRule));
        } else if (random.oneIn(2)) {
            for (int k = random.below(4); k > 0; --k)
                value += QLatin1Char(char('a' + random.below(3)));
            matcher->add(Core::MagicRulePtr(new Core::MagicStringRule(value, start, end)));
        } else {
            for (int k = random.below(4); k > 0; --k) {
                static const char *const bytes[] = {"\\61", "\\62", "\\0x63", "\\ff",
                                                    "\\-1", "\\zz", "\\0"};
                value += QLatin1String(bytes[random.below(int(std::size(bytes)))]);
            }
            matcher->add(Core::MagicRulePtr(new Core::MagicByteRule(value, start, end)));
        }
    }
    return matcher;
}

/// Without cycles: a parent has a smaller number than its children.
QStringList fill(MimeDatabasePrivate &database, Random &random)
{
    static const quint32 weights[] = {0, 1, 2, 3, 50, 50, 80, 99, 100, 100, 4294967295U};
    QStringList patterns;
    const int count = 1 + random.below(10);
    for (int n = 0; n < count; ++n) {
        // Now and then one that was there before.
        const int number = random.oneIn(6) ? random.below(n + 1) : n;
        static const char *const named[] = {"text/plain", "application/octet-stream"};
        const auto nameOf = [](int i) {
            return i < 2 ? QString::fromLatin1(named[i]) : QStringLiteral("t/%1").arg(i);
        };
        MimeType type;
        type.setType(nameOf(number));
        QStringList parents;
        for (int i = random.below(3); i > 0 && number > 0; --i)
            parents.append(random.oneIn(8) ? QStringLiteral("un/known")
                                           : nameOf(random.below(number)));
        type.setSubClassesOf(parents);
        QList<MimeGlobPattern> globs;
        for (int i = random.below(4); i > 0; --i) {
            const QString pattern = random.pattern();
            const quint32 weight = weights[random.below(int(std::size(weights)))];
            if (random.oneIn(16))
                globs.append(MimeGlobPattern(QRegExp(pattern, Qt::CaseSensitive), weight));
            else
                globs.append(MimeGlobPattern(pattern, weight));
            patterns.append(pattern);
        }
        type.setGlobPatterns(globs);
        for (int i = random.below(3); i > 0; --i)
            type.addMagicMatcher(randomMatcher(random));
        database.addMimeType(type);
    }
    return patterns;
}

} // namespace

class TestMimeLookup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wildcardMeansWhatTheExpressionMeans_data();
    void wildcardMeansWhatTheExpressionMeans();
    void wildcardFoldsEveryUnitAsTheExpressionDoes();
    void wildcardsThatBlowUpStayBounded_data();
    void wildcardsThatBlowUpStayBounded();
    void indexFollowsTheRules_data();
    void indexFollowsTheRules();
    void threadsShareTypesAndDatabase();
};

void TestMimeLookup::wildcardMeansWhatTheExpressionMeans_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 10; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestMimeLookup::wildcardMeansWhatTheExpressionMeans()
{
    QFETCH(unsigned, seed);
    Random random(seed);
    int matches = 0;
    for (int i = 0; i < 20000; ++i) {
        const QString pattern = random.pattern();
        const QString name = random.nameFor(pattern);
        const QRegExp expression(pattern, Qt::CaseInsensitive, QRegExp::Wildcard);
        const bool expected = expressionMatches(pattern, name);
        const Core::Internal::Wildcard wildcard(pattern);

        QVERIFY2(wildcard.isValid() == expression.isValid(), qPrintable(pattern));
        QVERIFY2(wildcard.matches(name) == expected, qPrintable(pattern + QLatin1Char(' ') + name));
        matches += expected;
    }
    QVERIFY(matches > 1000);
}

void TestMimeLookup::wildcardFoldsEveryUnitAsTheExpressionDoes()
{
    for (uint code = 1; code < 0x10000; ++code) {
        const QChar unit{ushort(code)};
        if (QStringLiteral("*?[]\\").contains(unit))
            continue;
        const QString pattern(unit);
        for (const QChar other : {unit, unit.toLower(), unit.toUpper(), unit.toTitleCase(),
                                  unit.toCaseFolded(), unit.toUpper().toLower()}) {
            QVERIFY2(Core::Internal::Wildcard(pattern).matches(QString(other))
                         == expressionMatches(pattern, QString(other)),
                     qPrintable(QString::number(code, 16)));
        }
    }
}

void TestMimeLookup::wildcardsThatBlowUpStayBounded_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::newRow("stars") << QStringLiteral("*a").repeated(20000) + QLatin1Char('b');
    QTest::newRow("only stars") << QStringLiteral("*").repeated(1000000) + QLatin1Char('b');
    QTest::newRow("question marks") << QStringLiteral("*?").repeated(20000) + QLatin1Char('b');
    QTest::newRow("classes") << QStringLiteral("*[a-z]").repeated(20000) + QLatin1Char('b');
    QTest::newRow("few stars, long name") << QStringLiteral("*a*a*a*a*a*a*a*a*b");
    QTest::newRow("odd class") << QStringLiteral("[]a]") + QStringLiteral("*a").repeated(200)
                                      + QLatin1Char('b');
}

void TestMimeLookup::wildcardsThatBlowUpStayBounded()
{
    QFETCH(QString, pattern);
    Core::MimeDatabase database;
    MimeType type;
    type.setType(QStringLiteral("child"));
    type.setSubClassesOf({QStringLiteral("parent")});
    type.setGlobPatterns({MimeGlobPattern(pattern)});
    QVERIFY(database.addMimeType(type));
    MimeType parent;
    parent.setType(QStringLiteral("parent"));
    QVERIFY(database.addMimeType(parent));

    // The program's time limit is what an exponential match would run into.
    QVERIFY(
        database.findByFile(QFileInfo(QString(250, QLatin1Char('a')) + QLatin1Char('c'))).isNull());
    QVERIFY(database.findByFile(QFileInfo(QString(30000, QLatin1Char('a')) + QLatin1Char('c')))
                .isNull());
}

void TestMimeLookup::indexFollowsTheRules_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 20; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestMimeLookup::indexFollowsTheRules()
{
    QFETCH(unsigned, seed);
    Random random(seed);
    const QTemporaryDir dir;
    int found = 0;
    for (int round = 0; round < 150; ++round) {
        MimeDatabasePrivate database;
        const QStringList patterns = fill(database, random);
        const Plain plain(database);
        for (int i = 0; i < 12; ++i) {
            QString name = random.nameFor(
                patterns.isEmpty() ? QString() : patterns.at(random.below(patterns.size())));
            name.remove(QLatin1Char('/'));
            // Half of a surrogate pair has no name in a file system.
            const bool onDisk = random.oneIn(2) && !name.isEmpty() && name != QLatin1String(".")
                                && name != QLatin1String("..")
                                && QFile::decodeName(QFile::encodeName(name)) == name;
            const QString path = dir.filePath(name);
            QByteArray data;
            if (onDisk) {
                static const char bytes[] = {'a', 'b', 'c', '\xff', '\1', '\0'};
                for (int k = random.below(12); k > 0; --k)
                    data += bytes[random.below(random.oneIn(3) ? 6 : 3)];
                QFile file(path);
                QVERIFY(file.open(QIODevice::WriteOnly));
                QCOMPARE(file.write(data), qint64(data.size()));
            }
            unsigned expectedPriority = 0;
            unsigned priority = 12345;
            const QFileInfo info(onDisk ? path : QLatin1String("/missing/") + name);
            const MimeType expected = plain.find(info.fileName(), data, &expectedPriority);

            const MimeType type = database.findByFile(info, &priority);

            if (onDisk)
                QFile::remove(path);
            QCOMPARE(database.maxLevel, plain.maxLevel);
            QCOMPARE(type.type(), expected.type());
            QCOMPARE(priority, expectedPriority);
            found += !type.isNull();
        }
    }
    QVERIFY(found > 200);
}

void TestMimeLookup::threadsShareTypesAndDatabase()
{
    Core::MimeDatabase database;
    QVERIFY(database.addMimeTypes(QStringLiteral(":/core/ide.mimetype.xml")));
    const MimeType shared = database.findByType(QStringLiteral("text/verilog"));
    const QTemporaryDir dir;
    const QString readme = dir.filePath(QStringLiteral("README"));
    QFile file(readme);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("text") == 4);
    file.close();
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t) {
        threads.emplace_back([&, t] {
            const auto expect = [&wrong](bool good) { wrong += good ? 0 : 1; };
            MimeType own = shared;
            for (int i = 0; i < 200; ++i) {
                Core::Internal::FileMatchContext context{QFileInfo(QStringLiteral("top.SV"))};
                expect(shared.matchesFileBySuffix(context) == 100);
                expect(shared.globPatterns().first().regExp().exactMatch(QStringLiteral("a.v")));
                own.setComment(QString::number(t));
                own = shared;
                expect(database.findByFile(QFileInfo(QStringLiteral("a.vhd"))).type()
                       == QLatin1String("text/vhdl"));
                expect(database.findByFile(QFileInfo(readme)).type()
                       == QLatin1String("text/plain"));
                expect(database.findByType(QStringLiteral("text/verilog")).preferredSuffix()
                       == QLatin1String("v"));
                if (i % 20 == 0) {
                    MimeType type;
                    type.setType(QStringLiteral("thread/%1").arg(t));
                    type.setSubClassesOf({QStringLiteral("text/plain")});
                    type.setGlobPatterns({MimeGlobPattern(QStringLiteral("*.thread[%1]").arg(t))});
                    expect(database.addMimeType(type));
                }
                if (i > 0) {
                    expect(
                        database.findByFile(QFileInfo(QStringLiteral("x.THREAD%1").arg(t))).type()
                        == QStringLiteral("thread/%1").arg(t));
                }
                expect(!database.filterForFileDialog(true).isEmpty());
                const QString suffix = i % 2 == 0 ? QStringLiteral("vhd") : QStringLiteral("vhdl");
                expect(database.setPreferredSuffix(QStringLiteral("text/vhdl"), suffix));
                expect(database.preferredSuffixByFile(QFileInfo(QStringLiteral("a.vhd")))
                           .startsWith(QLatin1String("vhd")));
                expect(database.preferredSuffixByType(QStringLiteral("text/vhdl"))
                           .startsWith(QLatin1String("vhd")));
                expect(database.suffixes().contains(suffix));
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();

    QCOMPARE(wrong.load(), 0);
}

QTEST_GUILESS_MAIN(TestMimeLookup)
#include "tst_mimelookup.moc"
