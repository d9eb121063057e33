// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pluginfolder.h"

#include <extsys/pluginmanager.h>
#include <extsys/pluginspec.h>

#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/stat.h>

using ExtSys::PluginManager;
using ExtSys::PluginSpec;

namespace {

void find(const QStringList &folders)
{
    PluginManager::instance()->findPlugins(folders);
}

QString name(const char *text)
{
    return QString::fromLatin1(text);
}

/// What is behind the text that marks a plugin's metadata in its file.
constexpr int minorVersionOffset = 14;

} // namespace

/// Finding plugins and putting them in order, which loads no code.
class TestPluginSearch final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup();

    void readsTheMetadata();
    void theCoreIsNamedAfterItsFile();
    void loadsNoCode();
    void dependenciesComeFirst();
    void otherwiseTheOrderIsThatOfTheFiles();
    void theCoreComesFirst();
    void withoutACoreThereIsNone();
    void anEmptyFolderHasNoPlugins();
    void aMissingFolderHasNoPlugins();
    void onlyLibrariesAreLookedAt();
    void aLibraryIsToldByItsSuffixAlone_data();
    void aLibraryIsToldByItsSuffixAlone();
    void foldersAreSearchedInTheirOrder();
    void aFileReachedTwiceIsFoundOnce();
    void aNewSearchForgetsTheOldOne();

    void aSecondPluginOfANameFails();
    void aSecondCoreFails();
    void aBrokenFileTakesNoNameAway();
    void theInterfaceMustBeTheHosts();
    void aDateMayBePartOfAVersion();
    void wrongMetadataIsNamed_data();
    void wrongMetadataIsNamed();
    void aMissingDependencyIsNamed();
    void aDependencyThatIsTooOldIsNamed();
    void aDependencyOnOneselfIsACircle();
    void everyMemberOfACircleIsNamed();
    void whatNeedsACircleIsNoMemberOfIt();

    void aPlainLibraryIsNoPlugin();
    void aCorruptFileIsNamed_data();
    void aCorruptFileIsNamed();
    void everyTruncationIsNamed();
    void aPluginForANewerQtIsNamed();
    void aPluginForAnotherMajorQtIsNamed();
    void damagedMetadataIsNamed();
    void aPipeIsNotWaitedFor();
    void aFolderNamedLikeALibraryIsPassedOver();
    void aLinkThatLeadsNowhereIsNamed();
};

void TestPluginSearch::cleanup()
{
    find({});
}

void TestPluginSearch::readsTheMetadata()
{
    const PluginFolder folder({name("Alpha"), name("Beta"), name("Gamma")});

    find({folder.path()});

    const PluginSpec *alpha = spec(name("Alpha"));
    QVERIFY(alpha);
    QCOMPARE(alpha->name(), name("Alpha"));
    QCOMPARE(alpha->filePath(), folder.file(name("Alpha")));
    QCOMPARE(alpha->version(), QVersionNumber(1, 2, 3));
    QCOMPARE(alpha->description(), name("Needs both."));
    QCOMPARE(alpha->dependencies().size(), 2);
    QCOMPARE(alpha->dependencies().at(0).name, name("Gamma"));
    QVERIFY(alpha->dependencies().at(0).minimumVersion.isNull());
    QCOMPARE(alpha->dependencies().at(1).name, name("Beta"));
    QCOMPARE(alpha->dependencies().at(1).minimumVersion, QVersionNumber(2, 0));
    QVERIFY(!alpha->isCore());
    QCOMPARE(alpha->state(), PluginSpec::State::Found);
    QCOMPARE(alpha->error(), QString());
    QVERIFY(!alpha->plugin());
}

void TestPluginSearch::theCoreIsNamedAfterItsFile()
{
    const PluginFolder folder({name("TestCore")});

    find({folder.path()});

    const PluginSpec *core = PluginManager::instance()->corePlugin();
    QVERIFY(core);
    QVERIFY(core->isCore());
    QCOMPARE(core->name(), name("TestCore"));
    QVERIFY(!core->version().isNull());
}

void TestPluginSearch::loadsNoCode()
{
    const PluginFolder folder({name("Gamma")});

    find({folder.path()});

    QFile maps(QStringLiteral("/proc/self/maps"));
    QVERIFY(maps.open(QIODevice::ReadOnly));
    const QByteArray mapped = maps.readAll();
    QVERIFY(mapped.contains("libExtSys"));
    QVERIFY(!mapped.contains(QFile::encodeName(folder.path())));
}

void TestPluginSearch::dependenciesComeFirst()
{
    const PluginFolder folder({name("Alpha"), name("Beta"), name("Gamma")});

    find({folder.path()});

    QCOMPARE(foundNames(), (QStringList{name("Gamma"), name("Beta"), name("Alpha")}));
}

void TestPluginSearch::otherwiseTheOrderIsThatOfTheFiles()
{
    const PluginFolder folder({name("Throws"), name("KeepsObjects"), name("Gamma")});

    find({folder.path()});

    QCOMPARE(foundNames(), (QStringList{name("Gamma"), name("KeepsObjects"), name("Throws")}));
}

void TestPluginSearch::theCoreComesFirst()
{
    const PluginFolder folder({name("Gamma"), name("NeedsCore"), name("TestCore")});

    find({folder.path()});

    QCOMPARE(foundNames(), (QStringList{name("TestCore"), name("Gamma"), name("NeedsCore")}));
}

void TestPluginSearch::withoutACoreThereIsNone()
{
    const PluginFolder folder({name("Gamma")});

    find({folder.path()});

    QVERIFY(!PluginManager::instance()->corePlugin());
}

void TestPluginSearch::anEmptyFolderHasNoPlugins()
{
    const PluginFolder folder;

    find({folder.path()});

    QCOMPARE(foundNames(), QStringList());
}

void TestPluginSearch::aMissingFolderHasNoPlugins()
{
    const PluginFolder folder({name("Gamma")});

    find({folder.path() + QStringLiteral("/nowhere"), folder.path()});

    QCOMPARE(foundNames(), QStringList{name("Gamma")});
}

void TestPluginSearch::onlyLibrariesAreLookedAt()
{
    PluginFolder folder({name("Gamma")});
    folder.write(name("readme.txt"), "text");
    folder.write(name("gamma.json"), "{}");
    folder.copy(name("libGamma.so"), name("libGamma.so.bak"));

    find({folder.path()});

    QCOMPARE(foundNames(), QStringList{name("Gamma")});
}

void TestPluginSearch::aLibraryIsToldByItsSuffixAlone_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("no prefix") << name("Gamma.so");
    QTest::newRow("capitals") << name("LIBGAMMA.SO");
    QTest::newRow("hidden") << name(".libGamma.so");
}

void TestPluginSearch::aLibraryIsToldByItsSuffixAlone()
{
    QFETCH(const QString, file);
    PluginFolder folder;
    folder.copy(name("libGamma.so"), file);

    find({folder.path()});

    QCOMPARE(foundNames(), QStringList{name("Gamma")});
}

void TestPluginSearch::foldersAreSearchedInTheirOrder()
{
    const PluginFolder one({name("KeepsObjects")});
    const PluginFolder two({name("Gamma")});

    find({one.path(), two.path()});

    QCOMPARE(foundNames(), (QStringList{name("KeepsObjects"), name("Gamma")}));
}

void TestPluginSearch::aFileReachedTwiceIsFoundOnce()
{
    const PluginFolder one({name("Gamma")});
    const PluginFolder two;
    QVERIFY(QFile::link(one.file(name("Gamma")), two.file(name("Link"))));

    find({one.path(), one.path() + QStringLiteral("/."), two.path()});

    QCOMPARE(foundNames(), QStringList{name("Gamma")});
}

void TestPluginSearch::aNewSearchForgetsTheOldOne()
{
    const PluginFolder one({name("Gamma")});
    const PluginFolder two({name("KeepsObjects")});
    find({one.path()});

    find({two.path()});

    QCOMPARE(foundNames(), QStringList{name("KeepsObjects")});
}

void TestPluginSearch::aSecondPluginOfANameFails()
{
    const PluginFolder one({name("Gamma")});
    const PluginFolder two({name("AnotherGamma")});

    find({one.path(), two.path()});

    QCOMPARE(specOfFile(one.file(name("Gamma")))->state(), PluginSpec::State::Found);
    const PluginSpec *second = specOfFile(two.file(name("AnotherGamma")));
    QCOMPARE(second->state(), PluginSpec::State::Failed);
    QCOMPARE(second->error(),
             name("there is a plugin of this name already, ") + one.file(name("Gamma")));
}

void TestPluginSearch::aSecondCoreFails()
{
    const PluginFolder one({name("TestCore")});
    const PluginFolder two({name("SecondCore")});

    find({one.path(), two.path()});

    QCOMPARE(PluginManager::instance()->corePlugin(), specOfFile(one.file(name("TestCore"))));
    const PluginSpec *second = specOfFile(two.file(name("SecondCore")));
    QCOMPARE(second->state(), PluginSpec::State::Failed);
    QCOMPARE(second->error(),
             name("there is a core plugin already, ") + one.file(name("TestCore")));
}

void TestPluginSearch::aBrokenFileTakesNoNameAway()
{
    PluginFolder one;
    one.write(name("libGamma.so"), "no library");
    const PluginFolder two({name("Gamma"), name("Beta")});

    find({one.path(), two.path()});

    QCOMPARE(specOfFile(one.file(name("Gamma")))->state(), PluginSpec::State::Failed);
    QCOMPARE(specOfFile(two.file(name("Gamma")))->state(), PluginSpec::State::Found);
    QCOMPARE(specOfFile(two.file(name("Beta")))->state(), PluginSpec::State::Found);
}

void TestPluginSearch::theInterfaceMustBeTheHosts()
{
    const PluginFolder folder({name("WrongInterface")});

    find({folder.path()});

    const PluginSpec *plugin = spec(name("WrongInterface"));
    QCOMPARE(plugin->state(), PluginSpec::State::Failed);
    QCOMPARE(plugin->error(), name("it is made for the interface "
                                   "\"com.kelmoware.plugins.IPlugin/9.0\", not for "
                                   "\"com.kelmoware.plugins.IPlugin/1.0\""));
}

void TestPluginSearch::aDateMayBePartOfAVersion()
{
    const PluginFolder folder({name("DateVersion")});

    find({folder.path()});

    const PluginSpec *plugin = spec(name("DateVersion"));
    QCOMPARE(plugin->error(), QString());
    QCOMPARE(plugin->version(), QVersionNumber(1, 20261121));
}

void TestPluginSearch::wrongMetadataIsNamed_data()
{
    QTest::addColumn<QString>("plugin");
    QTest::addColumn<QString>("error");
    const QString version = name("the \"Version\" in its metadata is missing or no version number");
    QTest::newRow("no name") << name("NoName") << name("its metadata has no \"Name\"");
    QTest::newRow("no version") << name("NoVersion") << version;
    QTest::newRow("letters in version") << name("BadVersion") << version;
    QTest::newRow("a sign in version") << name("SignVersion") << version;
    QTest::newRow("a number as version") << name("NumberVersion") << version;
    QTest::newRow("dependencies as text")
        << name("DependenciesText") << name("the \"Dependencies\" in its metadata are not a list");
    QTest::newRow("a number as dependency")
        << name("DependencyNumber")
        << name("entry 2 of the \"Dependencies\" in its metadata is neither a name nor an object "
                "of \"Name\" and \"Version\"");
    QTest::newRow("letters in a dependency's version")
        << name("DependencyVersion")
        << name("entry 1 of the \"Dependencies\" in its metadata is neither a name nor an object "
                "of \"Name\" and \"Version\"");
}

void TestPluginSearch::wrongMetadataIsNamed()
{
    QFETCH(const QString, plugin);
    QFETCH(const QString, error);
    const PluginFolder folder({plugin, name("Gamma")});

    find({folder.path()});

    QCOMPARE(spec(plugin)->state(), PluginSpec::State::Failed);
    QCOMPARE(spec(plugin)->error(), error);
    QCOMPARE(spec(name("Gamma"))->state(), PluginSpec::State::Found);
}

void TestPluginSearch::aMissingDependencyIsNamed()
{
    const PluginFolder folder({name("NeedsMissing")});

    find({folder.path()});

    QCOMPARE(spec(name("NeedsMissing"))->state(), PluginSpec::State::Failed);
    QCOMPARE(spec(name("NeedsMissing"))->error(),
             name("it depends on \"Nowhere\", which is not there"));
}

void TestPluginSearch::aDependencyThatIsTooOldIsNamed()
{
    const PluginFolder folder({name("NeedsNewerGamma"), name("Gamma")});

    find({folder.path()});

    QCOMPARE(spec(name("NeedsNewerGamma"))->state(), PluginSpec::State::Failed);
    QCOMPARE(spec(name("NeedsNewerGamma"))->error(),
             name("it depends on \"Gamma\" 1.1 or newer; version 1.0 is there"));
}

void TestPluginSearch::aDependencyOnOneselfIsACircle()
{
    const PluginFolder folder({name("NeedsItself")});

    find({folder.path()});

    QCOMPARE(spec(name("NeedsItself"))->error(),
             name("it depends on itself: NeedsItself -> NeedsItself"));
}

void TestPluginSearch::everyMemberOfACircleIsNamed()
{
    const PluginFolder folder({name("CircleA"), name("CircleB"), name("CircleC")});

    find({folder.path()});

    QCOMPARE(spec(name("CircleA"))->error(),
             name("it depends on itself: CircleA -> CircleB -> CircleC -> CircleA"));
    QCOMPARE(spec(name("CircleB"))->error(),
             name("it depends on itself: CircleB -> CircleC -> CircleA -> CircleB"));
    QCOMPARE(spec(name("CircleC"))->error(),
             name("it depends on itself: CircleC -> CircleA -> CircleB -> CircleC"));
}

void TestPluginSearch::whatNeedsACircleIsNoMemberOfIt()
{
    const PluginFolder folder(
        {name("CircleA"), name("CircleB"), name("CircleC"), name("NeedsCircle")});

    find({folder.path()});

    QCOMPARE(spec(name("NeedsCircle"))->error(), QString());
}

void TestPluginSearch::aPlainLibraryIsNoPlugin()
{
    const PluginFolder folder({name("PlainLibrary")});

    find({folder.path()});

    QCOMPARE(spec(name("PlainLibrary"))->state(), PluginSpec::State::Failed);
    QVERIFY2(
        spec(name("PlainLibrary"))->error().contains(name("Failed to extract plugin meta data")),
        qPrintable(spec(name("PlainLibrary"))->error()));
}

void TestPluginSearch::aCorruptFileIsNamed_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("this is no library\n");
    QTest::newRow("header only") << QByteArray("\x7f"
                                               "ELF\2\1\1");
    QTest::newRow("zeros") << QByteArray(10000, '\0');
    QTest::newRow("metadata mark without anything") << QByteArray("QTMETADATA !");
}

void TestPluginSearch::aCorruptFileIsNamed()
{
    QFETCH(const QByteArray, content);
    PluginFolder folder({name("Gamma")});
    folder.write(name("libBroken.so"), content);

    find({folder.path()});

    QCOMPARE(spec(name("Broken"))->state(), PluginSpec::State::Failed);
    QVERIFY(!spec(name("Broken"))->error().isEmpty());
    QVERIFY(spec(name("Broken"))->version().isNull());
    QCOMPARE(spec(name("Gamma"))->state(), PluginSpec::State::Found);
}

void TestPluginSearch::everyTruncationIsNamed()
{
    PluginFolder folder({name("Gamma")});
    const QByteArray whole = folder.read(name("libGamma.so"));

    for (int eighths = 0; eighths < 8; ++eighths) {
        folder.write(name("libBroken.so"), whole.left(whole.size() / 8 * eighths));
        find({folder.path()});
        QCOMPARE(spec(name("Broken"))->state(), PluginSpec::State::Failed);
    }
}

static QByteArray patched(const QByteArray &library, int offset, char value)
{
    QByteArray result = library;
    // The mark is followed by the version of the format, 0, and that of Qt.
    const int mark = result.indexOf(QByteArray("QTMETADATA !\0", 13));
    if (mark < 0)
        qFatal("no metadata in the test plugin");
    result[mark + offset] = value;
    return result;
}

void TestPluginSearch::aPluginForANewerQtIsNamed()
{
    PluginFolder folder({name("Gamma")});
    folder.write(name("libNewer.so"),
                 patched(folder.read(name("libGamma.so")), minorVersionOffset, 99));

    find({folder.path()});

    QCOMPARE(spec(name("Newer"))->state(), PluginSpec::State::Failed);
    QVERIFY2(
        spec(name("Newer"))->error().contains(name("it is built for Qt 5.99, this is Qt 5.15.")),
        qPrintable(spec(name("Newer"))->error()));
}

void TestPluginSearch::aPluginForAnotherMajorQtIsNamed()
{
    PluginFolder folder({name("Gamma")});
    folder.write(name("libSix.so"),
                 patched(folder.read(name("libGamma.so")), minorVersionOffset - 1, 6));

    find({folder.path()});

    QCOMPARE(spec(name("Six"))->state(), PluginSpec::State::Failed);
    QVERIFY2(spec(name("Six"))->error().contains(name("it is built for Qt 6.")),
             qPrintable(spec(name("Six"))->error()));
}

void TestPluginSearch::damagedMetadataIsNamed()
{
    PluginFolder folder({name("Gamma")});
    folder.write(name("libDamaged.so"),
                 patched(folder.read(name("libGamma.so")), minorVersionOffset + 2, '\xff'));

    find({folder.path()});

    QCOMPARE(spec(name("Damaged"))->state(), PluginSpec::State::Failed);
    QVERIFY(!spec(name("Damaged"))->error().isEmpty());
}

void TestPluginSearch::aPipeIsNotWaitedFor()
{
    const PluginFolder folder({name("Gamma")});
    QCOMPARE(mkfifo(qPrintable(folder.file(name("Pipe"))), 0600), 0);

    find({folder.path()});

    QCOMPARE(spec(name("Pipe"))->error(), name("it is not a regular file"));
    QCOMPARE(spec(name("Gamma"))->state(), PluginSpec::State::Found);
}

void TestPluginSearch::aFolderNamedLikeALibraryIsPassedOver()
{
    const PluginFolder folder;
    QVERIFY(QDir(folder.path()).mkdir(name("libFolder.so")));

    find({folder.path()});

    QCOMPARE(foundNames(), QStringList());
}

void TestPluginSearch::aLinkThatLeadsNowhereIsNamed()
{
    const PluginFolder folder;
    QVERIFY(QFile::link(folder.file(name("Nowhere")), folder.file(name("Link"))));

    find({folder.path()});

    QCOMPARE(spec(name("Link"))->error(), name("the file does not exist"));
}

QTEST_GUILESS_MAIN(TestPluginSearch)
#include "tst_pluginsearch.moc"
