// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/messagerecorder.h"

#include <idecore/mimedatabase/magicrulematcher.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/mimedatabase/mimedatabase_p.h>

#include <QBuffer>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <cstring>

#include <sys/inotify.h>
#include <unistd.h>

using Core::MimeDatabase;
using Core::MimeGlobPattern;
using Core::MimeType;
using Core::private_impl::MimeDatabasePrivate;

namespace {

MimeType makeType(const QByteArray &name, const QStringList &parents = {},
                  const char *glob = nullptr, quint32 weight = 100)
{
    MimeType type;
    type.setType(QString::fromLatin1(name));
    type.setComment(QString::fromLatin1(name) + QLatin1String(" comment"));
    type.setSubClassesOf(parents);
    if (glob)
        type.setGlobPatterns({MimeGlobPattern(QString::fromLatin1(glob), weight)});
    return type;
}

void addMagic(MimeType &type, const char *text, int priority)
{
    auto matcher = Core::MagicRuleMatcherPtr::create();
    matcher->setPriority(priority);
    matcher->add(Core::MagicRulePtr(new Core::MagicStringRule(QString::fromLatin1(text), 0, 0)));
    type.addMagicMatcher(matcher);
}

QString s(const char *text)
{
    return QString::fromUtf8(text);
}

} // namespace

class TestMimeDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nullTypeIsRefused();
    void laterDefinitionReplaces();
    void whatTheEarlierDefinitionAddedStays();
    void laterAliasWins();
    void unknownNames();
    void aliasesAreResolved();
    void filters();
    void dump();

    void deepestLevelDecides();
    void firstOfALevelWinsATie();
    void heaviestOfALevelWins();
    void weightAboveNinetyNineEndsTheSearch();
    void contentMustBeatTheName();
    void contentOfADeeperTypeWinsATie();
    void typeOutsideTheHierarchyIsInvisible();
    void levelsFollowAdditions();
    void replacedTypeIsPlacedAnew();
    void cycleEndsWithAWarning();
    void cycleWithoutAnEntryIsWarnedOf();
    void missingChildIsWarnedOf();
    void deepHierarchyIsWalked();
    void wideDiamondsAreWalkedOnce();

    void fileIsOpenedOnceAtMost_data();
    void fileIsOpenedOnceAtMost();

    void missingDefinitionFile();
    void brokenDefinitionsKeepWhatWasRead();
    void definitionFileIsReadInTextMode();
    void definitionsComeFromADevice();
    void streamIsNamedInMessages();
    void freedesktopTypes();
};

void TestMimeDatabase::nullTypeIsRefused()
{
    MimeDatabase database;

    QVERIFY(!database.addMimeType(MimeType()));

    QVERIFY(database.filterStrings().isEmpty());
}

void TestMimeDatabase::laterDefinitionReplaces()
{
    MimeDatabase database;
    QVERIFY(database.addMimeType(makeType("a/b", {}, "*.one")));

    QVERIFY(database.addMimeType(makeType("a/b", {}, "*.two")));

    QCOMPARE(database.filterStrings(), QStringList(s("a/b comment (*.two)")));
}

void TestMimeDatabase::whatTheEarlierDefinitionAddedStays()
{
    MimeDatabasePrivate database;
    MimeType first = makeType("a/b", {s("top")});
    first.setAliases({s("x/y")});
    QVERIFY(database.addMimeType(first));

    QVERIFY(database.addMimeType(makeType("a/b", {s("top"), s("other")})));

    QCOMPARE(database.findByType(s("x/y")).subClassesOf(), QStringList({s("top"), s("other")}));
    QCOMPARE(database.parentChildrenMap.count(s("top"), s("a/b")), 2);
    QCOMPARE(database.parentChildrenMap.count(s("other"), s("a/b")), 1);
}

void TestMimeDatabase::laterAliasWins()
{
    MimeDatabase database;
    for (const char *name : {"a/b", "c/d"}) {
        MimeType type = makeType(name);
        type.setAliases({s("x/y")});
        QVERIFY(database.addMimeType(type));
    }

    QCOMPARE(database.findByType(s("x/y")).type(), s("c/d"));
}

void TestMimeDatabase::unknownNames()
{
    MimeDatabase database;

    QVERIFY(database.findByType(s("a/b")).isNull());
    QVERIFY(database.findByFile(QFileInfo(s("a.b"))).isNull());
    QCOMPARE(database.preferredSuffixByType(s("a/b")), QString());
    QCOMPARE(database.preferredSuffixByFile(QFileInfo(s("a.b"))), QString());
    QVERIFY(!database.setPreferredSuffix(s("a/b"), s("b")));
}

void TestMimeDatabase::aliasesAreResolved()
{
    MimeDatabase database;
    MimeType type = makeType("a/b");
    type.setAliases({s("x/y")});
    type.setSuffixes({s("one"), s("two")});
    QVERIFY(database.addMimeType(type));

    QCOMPARE(database.findByType(s("x/y")).type(), s("a/b"));
    QVERIFY(database.setPreferredSuffix(s("x/y"), s("two")));

    QCOMPARE(database.preferredSuffixByType(s("a/b")), s("two"));
}

void TestMimeDatabase::filters()
{
    MimeDatabase database;
    for (const char *name : {"b", "a", "B", "none"}) {
        MimeType type = makeType(name, {}, qstrcmp(name, "none") == 0 ? nullptr : "*.x");
        type.setSuffixes({s("x"), s(name)});
        QVERIFY(database.addMimeType(type));
    }

    QCOMPARE(database.filterForFileDialog(false),
             s("B comment (*.x);;a comment (*.x);;b comment (*.x)"));
    QCOMPARE(database.filterForFileDialog(true),
             s("All Files (*);;B comment (*.x);;a comment (*.x);;b comment (*.x)"));
    QCOMPARE(database.filterStrings().size(), 3);
    QCOMPARE(database.suffixes().count(s("x")), 4);
    QCOMPARE(database.suffixes().size(), 8);
    QCOMPARE(MimeDatabase().filterForFileDialog(true), s("All Files (*)"));
}

void TestMimeDatabase::dump()
{
    MimeDatabase database;
    QVERIFY(database.addMimeType(makeType("a/b")));

    QString text;
    QDebug(&text) << database;

    QCOMPARE(text.trimmed(), s(">MimeDatabase\nEntry level 32767\nType: a/b, magic: 0\nComment: "
                               "a/b comment\n\n<MimeDatabase"));
}

void TestMimeDatabase::deepestLevelDecides()
{
    MimeDatabase database;
    QVERIFY(database.addMimeType(makeType("top", {}, "*.x", 99)));
    QVERIFY(database.addMimeType(makeType("child", {s("top")}, "*.x", 1)));

    QCOMPARE(database.findByFile(QFileInfo(s("a.x"))).type(), s("child"));
}

void TestMimeDatabase::firstOfALevelWinsATie()
{
    MimeDatabase database;
    QVERIFY(database.addMimeType(makeType("top")));
    QVERIFY(database.addMimeType(makeType("one", {s("top")}, "*.x", 50)));
    QVERIFY(database.addMimeType(makeType("two", {s("top")}, "*.x", 50)));

    QCOMPARE(database.findByFile(QFileInfo(s("a.x"))).type(), s("one"));
}

void TestMimeDatabase::heaviestOfALevelWins()
{
    MimeDatabase database;
    QVERIFY(database.addMimeType(makeType("top")));
    QVERIFY(database.addMimeType(makeType("one", {s("top")}, "*.x", 50)));
    QVERIFY(database.addMimeType(makeType("two", {s("top")}, "a.*", 51)));

    QCOMPARE(database.findByFile(QFileInfo(s("a.x"))).type(), s("two"));
}

void TestMimeDatabase::weightAboveNinetyNineEndsTheSearch()
{
    MimeDatabase database;
    QVERIFY(database.addMimeType(makeType("top")));
    QVERIFY(database.addMimeType(makeType("one", {s("top")}, "*.x", 100)));
    QVERIFY(database.addMimeType(makeType("two", {s("top")}, "*.x", 200)));

    QCOMPARE(database.findByFile(QFileInfo(s("a.x"))).type(), s("one"));
}

void TestMimeDatabase::contentMustBeatTheName()
{
    const QTemporaryDir dir;
    QFile file(dir.filePath(s("a.x")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("magic") == 5);
    file.close();
    for (const int priority : {50, 51}) {
        MimeDatabase database;
        QVERIFY(database.addMimeType(makeType("top")));
        QVERIFY(database.addMimeType(makeType("name", {s("top")}, "*.x", 50)));
        MimeType content = makeType("content", {s("name")});
        addMagic(content, "magic", priority);
        QVERIFY(database.addMimeType(content));

        QCOMPARE(database.findByFile(QFileInfo(file.fileName())).type(),
                 priority == 50 ? s("name") : s("content"));
    }
}

void TestMimeDatabase::contentOfADeeperTypeWinsATie()
{
    const QTemporaryDir dir;
    QFile file(dir.filePath(s("a")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("magic") == 5);
    file.close();
    MimeDatabase database;
    MimeType top = makeType("top");
    addMagic(top, "magic", 50);
    MimeType child = makeType("child", {s("top")});
    addMagic(child, "mag", 50);
    QVERIFY(database.addMimeType(top));
    QVERIFY(database.addMimeType(child));

    QCOMPARE(database.findByFile(QFileInfo(file.fileName())).type(), s("child"));
}

void TestMimeDatabase::typeOutsideTheHierarchyIsInvisible()
{
    MimeDatabase database;
    QVERIFY(database.addMimeType(makeType("top")));
    QVERIFY(database.addMimeType(makeType("child", {s("top")})));
    QVERIFY(database.addMimeType(makeType("lonely", {}, "*.x")));
    QVERIFY(database.addMimeType(makeType("orphan", {s("unknown")}, "*.x")));

    QVERIFY(database.findByFile(QFileInfo(s("a.x"))).isNull());
    QCOMPARE(database.findByType(s("lonely")).type(), s("lonely"));
}

void TestMimeDatabase::levelsFollowAdditions()
{
    MimeDatabase database;
    QVERIFY(database.addMimeType(makeType("middle", {s("top")}, "*.x")));
    QVERIFY(database.addMimeType(makeType("bottom", {s("middle")}, "*.y")));
    QCOMPARE(database.findByFile(QFileInfo(s("a.x"))).type(), s("middle"));

    QVERIFY(database.addMimeType(makeType("top", {}, "*.z")));

    for (const char *name : {"a.x", "a.y", "a.z"})
        QVERIFY(!database.findByFile(QFileInfo(s(name))).isNull());
    QString text;
    QDebug(&text) << database;
    QVERIFY(text.contains(s("Entry level 0\nType: top,")));
    QVERIFY(text.contains(s("Entry level 1\nType: middle,")));
    QVERIFY(text.contains(s("Entry level 2\nType: bottom,")));
}

void TestMimeDatabase::replacedTypeIsPlacedAnew()
{
    MimeDatabasePrivate database;
    database.addMimeType(makeType("top"));
    database.addMimeType(makeType("child", {s("top")}, "*.x"));
    database.determineLevels();
    QCOMPARE(database.entries.at(1).level, 1);

    database.addMimeType(makeType("child", {}, "*.y"));

    QCOMPARE(database.entries.at(1).level, Core::Dangling);
    QCOMPARE(database.maxLevel, -1);
    unsigned priority = 0;
    QCOMPARE(database.findByFile(QFileInfo(s("a.y")), &priority).type(), s("child"));
    QCOMPARE(priority, 100U);
}

void TestMimeDatabase::cycleEndsWithAWarning()
{
    MimeDatabase database;
    QVERIFY(database.addMimeType(makeType("top")));
    QVERIFY(database.addMimeType(makeType("a", {s("top"), s("c")}, "*.a")));
    QVERIFY(database.addMimeType(makeType("b", {s("a")}, "*.b")));
    QVERIFY(database.addMimeType(makeType("c", {s("b")}, "*.c")));

    const MessageRecorder recorder;
    for (const char *name : {"a", "b", "c"})
        QCOMPARE(database.findByFile(QFileInfo(s("x.") + s(name))).type(), s(name));

    QVERIFY(recorder.only().startsWith(QLatin1String("warning: ")));
    QVERIFY(recorder.only().contains(QLatin1String("MimeDatabasePrivate::determineLevels(")));
    QVERIFY(recorder.only().endsWith(
        QLatin1String(": Inconsistent mime hierarchy detected, cycle of types: a > b > c > a.")));
}

void TestMimeDatabase::cycleWithoutAnEntryIsWarnedOf()
{
    MimeDatabase database;
    QVERIFY(database.addMimeType(makeType("a", {s("b")}, "*.a")));
    QVERIFY(database.addMimeType(makeType("b", {s("a")})));
    QVERIFY(database.addMimeType(makeType("self", {s("self")})));

    const MessageRecorder recorder;
    QVERIFY(database.findByFile(QFileInfo(s("x.a"))).isNull());
    QVERIFY(database.findByFile(QFileInfo(s("x.a"))).isNull());

    QCOMPARE(recorder.labelled().size(), 2);
    QVERIFY(recorder.labelled().at(0).endsWith(QLatin1String("cycle of types: a > b > a.")));
    QVERIFY(recorder.labelled().at(1).endsWith(QLatin1String("cycle of types: self > self.")));
}

void TestMimeDatabase::missingChildIsWarnedOf()
{
    MimeDatabasePrivate database;
    database.addMimeType(makeType("top"));
    database.parentChildrenMap.insert(s("top"), s("gone"));

    const MessageRecorder recorder;
    database.determineLevels();

    QVERIFY(recorder.only().contains(QLatin1String("MimeDatabasePrivate::determineLevels(")));
    QVERIFY(recorder.only().endsWith(QLatin1String(
        ": Inconsistent mime hierarchy detected, child gone of top cannot be found.")));
}

void TestMimeDatabase::deepHierarchyIsWalked()
{
    MimeDatabase database;
    constexpr int depth = 20000;
    for (int i = 0; i < depth; ++i) {
        const QByteArray name = QByteArray::number(i);
        const QStringList parents = i == 0 ? QStringList() : QStringList(QString::number(i - 1));
        QVERIFY(database.addMimeType(
            makeType(name, parents, i == 0 || i == depth - 1 ? "*.x" : nullptr)));
    }

    QCOMPARE(database.findByFile(QFileInfo(s("a.x"))).type(), QString::number(depth - 1));
}

void TestMimeDatabase::wideDiamondsAreWalkedOnce()
{
    // Every path on its own would be two to the power of sixty.
    MimeDatabase database;
    QVERIFY(database.addMimeType(makeType("0")));
    for (int i = 1; i <= 60; ++i) {
        const QString above = QString::number(i - 1);
        QVERIFY(database.addMimeType(makeType("l" + QByteArray::number(i), {above})));
        QVERIFY(database.addMimeType(makeType("r" + QByteArray::number(i), {above})));
        QVERIFY(database.addMimeType(
            makeType(QByteArray::number(i),
                     {QLatin1Char('l') + QString::number(i), QLatin1Char('r') + QString::number(i)},
                     i == 60 ? "*.x" : nullptr)));
    }

    QCOMPARE(database.findByFile(QFileInfo(s("a.x"))).type(), s("60"));
}

void TestMimeDatabase::fileIsOpenedOnceAtMost_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("openings");
    QTest::newRow("suffix that decides") << s("a.final") << 0;
    QTest::newRow("suffix that leaves it open") << s("a.light") << 1;
    QTest::newRow("content alone") << s("README") << 1;
}

void TestMimeDatabase::fileIsOpenedOnceAtMost()
{
    QFETCH(QString, name);
    MimeDatabase database;
    MimeType bottom = makeType("bottom", {s("middle")}, "*.final", 100);
    MimeType middle = makeType("middle", {s("top")}, "*.light", 99);
    MimeType top = makeType("top");
    for (MimeType *type : {&bottom, &middle, &top}) {
        addMagic(*type, "other", 200);
        addMagic(*type, "more", 1);
        QVERIFY(database.addMimeType(*type));
    }
    const QTemporaryDir dir;
    QFile file(dir.filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("magic") == 5);
    file.close();
    const int watch = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    QVERIFY(watch >= 0);
    const auto closeWatch = qScopeGuard([watch] { ::close(watch); });
    QVERIFY(::inotify_add_watch(watch, QFile::encodeName(file.fileName()).constData(),
                                IN_OPEN | IN_CLOSE)
            >= 0);

    (void)database.findByFile(QFileInfo(file.fileName()));

    // The closing keeps two openings from being told as one. No event of a watched
    // file has a name behind it.
    char buffer[8 * sizeof(inotify_event)] = {};
    const auto size = ::read(watch, buffer, sizeof buffer);
    int openings = 0;
    for (qint64 at = 0; at + qint64(sizeof(inotify_event)) <= size; at += sizeof(inotify_event)) {
        inotify_event event = {};
        std::memcpy(&event, buffer + at, sizeof event);
        openings += event.mask & IN_OPEN ? 1 : 0;
    }
    QTEST(openings, "openings");
}

void TestMimeDatabase::missingDefinitionFile()
{
    MimeDatabase database;
    QString message;

    QVERIFY(!database.addMimeTypes(s("/missing/types.xml"), &message));
    QVERIFY(!database.addMimeTypes(s("/missing/types.xml")));

    QCOMPARE(message, s("Cannot open /missing/types.xml: No such file or directory"));
}

void TestMimeDatabase::brokenDefinitionsKeepWhatWasRead()
{
    MimeDatabase database;
    const QTemporaryDir dir;
    QFile file(dir.filePath(s("types.xml")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<mime-info><mime-type type=\"a/b\"/>\n<mime-type/></mime-info>");
    file.close();
    QString message;

    QVERIFY(!database.addMimeTypes(file.fileName(), &message));

    QCOMPARE(
        message,
        QStringLiteral("An error has been encountered at line 2 of %1: Missing 'type'-attribute:")
            .arg(file.fileName()));
    QVERIFY(!database.findByType(s("a/b")).isNull());
}

void TestMimeDatabase::definitionFileIsReadInTextMode()
{
    // More of them in a row than are read at once.
    const QByteArray returns(100000, '\r');
    const QTemporaryDir dir;
    QFile file(dir.filePath(s("types.xml")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("\r<mime-info>\r\n<mime-type type=\"a/b\">" + returns + "<comment>one\r\ntwo"
               + returns + "three\r</comment>\r\n</mime-type></mime-info>\r");
    file.close();
    MimeDatabase database;
    QString message;

    QVERIFY2(database.addMimeTypes(file.fileName(), &message), qPrintable(message));

    QCOMPARE(database.findByType(s("a/b")).comment(), s("one\ntwothree"));
}

void TestMimeDatabase::definitionsComeFromADevice()
{
    MimeDatabase database;
    QByteArray xml("<mime-type type=\"a/b\"><comment>one</comment></mime-type>");
    QBuffer buffer(&xml);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QString message = s("as before");

    QVERIFY(database.addMimeTypes(&buffer, &message));

    QCOMPARE(message, s("as before"));
    QCOMPARE(database.findByType(s("a/b")).comment(), s("one"));
}

void TestMimeDatabase::streamIsNamedInMessages()
{
    MimeDatabase database;
    QByteArray xml("<other/>");
    QBuffer buffer(&xml);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QString message;

    QVERIFY(!database.addMimeTypes(&buffer, &message));

    QCOMPARE(message,
             s("An error has been encountered at line 1 of <stream>: Unexpected element <other>:"));
}

void TestMimeDatabase::freedesktopTypes()
{
    MimeDatabase database;
    QString message;
    const MessageRecorder recorder;

    QVERIFY2(database.addMimeTypes(s("/usr/share/mime/packages/freedesktop.org.xml"), &message),
             qPrintable(message));

    QCOMPARE(message, QString());
    for (const QString &line : recorder.labelled())
        QVERIFY2(line.endsWith(QLatin1String(" is not supported.")), qPrintable(line));
    const MimeType png = database.findByType(s("image/png"));
    QCOMPARE(png.comment(), s("PNG image"));
    QCOMPARE(png.preferredSuffix(), s("png"));
    QCOMPARE(png.globPatterns().first().weight(), 50U);
    QCOMPARE(png.magicMatchers().first()->priority(), 50);
    QCOMPARE(database.findByType(s("text/x-verilog")).subClassesOf(), QStringList(s("text/plain")));
    QVERIFY(database.filterStrings().size() > 700);
    QCOMPARE(database.findByFile(QFileInfo(s("/missing/archive.TAR.GZ"))).type(),
             s("application/x-compressed-tar"));
}

QTEST_GUILESS_MAIN(TestMimeDatabase)
#include "tst_mimedatabase.moc"
