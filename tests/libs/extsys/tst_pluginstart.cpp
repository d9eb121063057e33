// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pluginfolder.h"

#include "support/messagerecorder.h"

#include <extsys/iplugin.h>
#include <extsys/pluginmanager.h>
#include <extsys/pluginspec.h>

#include <QDir>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using ExtSys::PluginManager;
using ExtSys::PluginSpec;
using State = ExtSys::PluginSpec::State;

namespace {

PluginManager *manager()
{
    return PluginManager::instance();
}

QString name(const char *text)
{
    return QString::fromLatin1(text);
}

QStringList names(std::initializer_list<const char *> list)
{
    QStringList result;
    for (const char *text : list)
        result.append(name(text));
    return result;
}

/// Expects the one warning that names @p plugin with @p reason.
void expectWarning(const char *plugin, const char *reason)
{
    const QString pattern = QStringLiteral("^plugin \"%1\" \\(.*/lib[^/]*\\.so\\): .*%2");
    QTest::ignoreMessage(
        QtWarningMsg,
        QRegularExpression(pattern.arg(name(plugin), QRegularExpression::escape(name(reason)))));
}

} // namespace

/// The life of plugins from loading to shutting down.
class TestPluginStart final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void startsInOrderAndTellsInReverse();
    void shutsDownAndDestroysInReverse();
    void theStateFollows();
    void thePluginIsReachableWhileItLives();
    void aStartIsAnnouncedBeforeTheCodeIsLoaded();
    void theCostOfEveryStepIsKept();
    void theCoreStartsFirst();
    void theCoreAloneCanBeStarted();
    void pluginsWithoutACoreStart();
    void aSecondStartIsRefused();
    void aSearchWhilePluginsRunIsRefused();
    void aPluginBeingStartedMayNotSearchStartOrShutDown();
    void aPluginBeingShutDownMayNotSearchStartOrShutDown();
    void aSecondShutDownDoesNothing();
    void pluginsCanBeFoundAndStartedAgain();

    void aPluginThatFailsIsNamedAndTheRestStarts_data();
    void aPluginThatFailsIsNamedAndTheRestStarts();
    void aPluginThatFailsIsDestroyedAndLeavesThePool();
    void aPluginThatFailsIsNotShutDown();
    void whatDependsOnAFailureIsSkippedWithTheReason();
    void whatIsSkippedIsNotLoaded();
    void whatNeedsACircleIsSkipped();
    void aBrokenMetadataIsNamedAtTheStart();
    void aPluginWithoutAPluginObjectIsNamed();
    void aFileThatChangesBeforeTheStartIsNamed_data();
    void aFileThatChangesBeforeTheStartIsNamed();
    void aPluginBuiltAgainstAnotherLibraryIsNamed();
    void aPluginWhoseLibraryIsMissingIsNamed();
    void aPluginWithItsLibraryStarts();
    void aThrowInExtensionsInitializedIsNamedAndTheRestIsCalled();
    void aThrowInShutDownIsNamedAndTheRestIsCalled();
    void objectsKeptInThePoolLeaveItAtTheEnd();

    void aCoreThatFailsStartsNothingElse();
    void aCoreThatFailsLateIsAFailedStart();

private:
    void start(const PluginFolder &folder)
    {
        manager()->findPlugins({folder.path()});
        m_started = manager()->startPlugins();
    }

    static QStringList journal()
    {
        return QCoreApplication::instance()->property("journal").toStringList();
    }
    /// Those calls of the journal that are @p call.
    static QStringList journalOf(const char *call)
    {
        return journal().filter(QRegularExpression(QStringLiteral("\\.%1$").arg(name(call))));
    }

    /// What the code of a plugin may try while it is called.
    void comeBack()
    {
        for (const char *refused : {"plugins are running, the search is refused",
                                    "plugins are running, a second start is refused",
                                    "plugins are being started or shut down, a shut-down is "
                                    "refused"}) {
            QTest::ignoreMessage(
                QtWarningMsg,
                qPrintable(QStringLiteral("PluginManager: %1").arg(QLatin1String(refused))));
        }
        manager()->findPlugins({});
        m_refusals.append(!manager()->startPlugins());
        manager()->shutDown();
    }

    bool m_started = false;
    QVector<bool> m_refusals;
};

void TestPluginStart::init()
{
    QCoreApplication::instance()->setProperty("journal", QStringList());
    m_started = false;
    m_refusals.clear();
}

void TestPluginStart::cleanup()
{
    manager()->disconnect();
    manager()->shutDown();
    manager()->findPlugins({});
    QCOMPARE(manager()->allObjects(), QList<QObject *>());
}

void TestPluginStart::startsInOrderAndTellsInReverse()
{
    const PluginFolder folder(names({"Alpha", "Beta", "Gamma"}));

    start(folder);

    QVERIFY(m_started);
    QCOMPARE(journal(),
             names({"Gamma.constructed", "Gamma.initialize", "Beta.constructed", "Beta.initialize",
                    "Alpha.constructed", "Alpha.initialize", "Alpha.extensionsInitialized",
                    "Beta.extensionsInitialized", "Gamma.extensionsInitialized"}));
}

void TestPluginStart::shutsDownAndDestroysInReverse()
{
    const PluginFolder folder(names({"Alpha", "Beta", "Gamma"}));
    start(folder);
    init();

    manager()->shutDown();

    QCOMPARE(journal(), names({"Alpha.shutDown", "Beta.shutDown", "Gamma.shutDown",
                               "Alpha.destroyed", "Beta.destroyed", "Gamma.destroyed"}));
}

void TestPluginStart::theStateFollows()
{
    const PluginFolder folder(names({"Gamma"}));
    manager()->findPlugins({folder.path()});
    const PluginSpec *gamma = spec(name("Gamma"));
    QCOMPARE(gamma->state(), State::Found);
    State whenAdded = State::Found;
    connect(manager(), &PluginManager::objectAdded, this, [&] { whenAdded = gamma->state(); });

    QVERIFY(manager()->startPlugins());
    QCOMPARE(whenAdded, State::Loaded);
    QCOMPARE(gamma->state(), State::Running);

    manager()->shutDown();
    QCOMPARE(gamma->state(), State::Stopped);
    QCOMPARE(gamma->error(), QString());
}

void TestPluginStart::thePluginIsReachableWhileItLives()
{
    const PluginFolder folder(names({"Gamma"}));
    start(folder);

    const PluginSpec *gamma = spec(name("Gamma"));
    QVERIFY(gamma->plugin());
    QCOMPARE(gamma->plugin()->metaObject()->className(), "TestPlugin");

    manager()->shutDown();
    QVERIFY(!gamma->plugin());
}

void TestPluginStart::aStartIsAnnouncedBeforeTheCodeIsLoaded()
{
    const PluginFolder folder(names({"Beta", "Gamma", "NeedsMissing"}));
    QStringList announced;
    connect(manager(), &PluginManager::pluginStarting, this, [&](const PluginSpec &starting) {
        announced.append(starting.name());
        announced.append(QString::number(journal().size()));
    });
    expectWarning("NeedsMissing", "Nowhere");

    start(folder);

    QCOMPARE(announced, names({"Gamma", "0", "Beta", "2"}));
}

void TestPluginStart::theCostOfEveryStepIsKept()
{
    using std::chrono::nanoseconds;
    const PluginFolder folder(names({"Gamma"}));

    start(folder);

    const PluginSpec *gamma = spec(name("Gamma"));
    QVERIFY(gamma->loadCost().wall > nanoseconds(0));
    QVERIFY(gamma->loadCost().cpu > nanoseconds(0));
    QVERIFY(gamma->initializeCost().wall > nanoseconds(0));
    QVERIFY(gamma->extensionsInitializedCost().wall > nanoseconds(0));
}

void TestPluginStart::theCoreStartsFirst()
{
    const PluginFolder folder(names({"Gamma", "NeedsCore", "TestCore"}));

    start(folder);

    QVERIFY(m_started);
    QCOMPARE(journalOf("initialize"),
             names({"TestCore.initialize", "Gamma.initialize", "NeedsCore.initialize"}));
}

void TestPluginStart::theCoreAloneCanBeStarted()
{
    const PluginFolder folder(names({"Gamma", "NeedsCore", "TestCore", "NeedsMissing"}));
    manager()->findPlugins({folder.path()});
    const MessageRecorder messages;

    QVERIFY(manager()->startPlugins(PluginManager::Selection::CoreOnly));

    QCOMPARE(journalOf("constructed"), names({"TestCore.constructed"}));
    QCOMPARE(spec(name("Gamma"))->state(), State::Skipped);
    QCOMPARE(spec(name("Gamma"))->error(), name("only the core is started"));
    QCOMPARE(messages.texts(), QStringList());
}

void TestPluginStart::pluginsWithoutACoreStart()
{
    const PluginFolder folder(names({"Gamma"}));

    start(folder);

    QVERIFY(m_started);
    QCOMPARE(spec(name("Gamma"))->state(), State::Running);
}

void TestPluginStart::aSecondStartIsRefused()
{
    const PluginFolder folder(names({"Gamma"}));
    start(folder);
    const QStringList before = journal();
    QTest::ignoreMessage(QtWarningMsg,
                         "PluginManager: plugins are running, a second start is refused");

    QVERIFY(!manager()->startPlugins());

    QCOMPARE(journal(), before);
}

void TestPluginStart::aSearchWhilePluginsRunIsRefused()
{
    const PluginFolder folder(names({"Gamma"}));
    start(folder);
    QTest::ignoreMessage(QtWarningMsg, "PluginManager: plugins are running, the search is refused");

    manager()->findPlugins({});

    QCOMPARE(foundNames(), names({"Gamma"}));
}

void TestPluginStart::aPluginBeingStartedMayNotSearchStartOrShutDown()
{
    const PluginFolder folder(names({"Beta", "Gamma"}));
    connect(manager(), &PluginManager::objectAdded, this, &TestPluginStart::comeBack);

    start(folder);

    QVERIFY(m_started);
    QCOMPARE(m_refusals, QVector<bool>({true, true}));
    QCOMPARE(foundNames(), names({"Gamma", "Beta"}));
    QCOMPARE(journalOf("extensionsInitialized"),
             names({"Beta.extensionsInitialized", "Gamma.extensionsInitialized"}));
    QCOMPARE(journalOf("shutDown"), QStringList());
}

void TestPluginStart::aPluginBeingShutDownMayNotSearchStartOrShutDown()
{
    const PluginFolder folder(names({"Beta", "Gamma"}));
    start(folder);
    connect(manager(), &PluginManager::aboutToRemoveObject, this, &TestPluginStart::comeBack);

    manager()->shutDown();

    QCOMPARE(m_refusals, QVector<bool>({true, true}));
    QCOMPARE(foundNames(), names({"Gamma", "Beta"}));
    QCOMPARE(journalOf("shutDown"), names({"Beta.shutDown", "Gamma.shutDown"}));
    QCOMPARE(journalOf("destroyed"), names({"Beta.destroyed", "Gamma.destroyed"}));
}

void TestPluginStart::aSecondShutDownDoesNothing()
{
    const PluginFolder folder(names({"Gamma"}));
    start(folder);
    manager()->shutDown();
    const QStringList before = journal();

    manager()->shutDown();

    QCOMPARE(journal(), before);
}

void TestPluginStart::pluginsCanBeFoundAndStartedAgain()
{
    const PluginFolder folder(names({"Gamma"}));
    start(folder);
    manager()->shutDown();
    init();

    start(folder);

    QCOMPARE(journal(),
             names({"Gamma.constructed", "Gamma.initialize", "Gamma.extensionsInitialized"}));
}

void TestPluginStart::aPluginThatFailsIsNamedAndTheRestStarts_data()
{
    QTest::addColumn<QString>("plugin");
    QTest::addColumn<QString>("error");
    QTest::newRow("returns false") << name("ReturnsFalse") << name("initialize() returned false");
    QTest::newRow("throws") << name("Throws")
                            << name("initialize() threw an exception: thrown in initialize");
    QTest::newRow("throws a number")
        << name("ThrowsNumber") << name("initialize() threw an exception of unknown type");
    QTest::newRow("throws when made")
        << name("ThrowsInConstructor")
        << name("its constructor threw an exception: thrown in constructor");
    QTest::newRow("destroys itself")
        << name("DestroysItself") << name("it destroyed itself in initialize()");
}

void TestPluginStart::aPluginThatFailsIsNamedAndTheRestStarts()
{
    QFETCH(const QString, plugin);
    QFETCH(const QString, error);
    const PluginFolder folder({plugin, name("Gamma"), name("TestCore"), name("NeedsCore")});
    expectWarning(plugin.toLatin1().constData(), error.toLatin1().constData());

    start(folder);

    QVERIFY(m_started);
    QCOMPARE(spec(plugin)->state(), State::Failed);
    QCOMPARE(spec(plugin)->error(), error);
    QVERIFY(!spec(plugin)->plugin());
    QCOMPARE(spec(name("Gamma"))->state(), State::Running);
    QCOMPARE(spec(name("TestCore"))->state(), State::Running);
    QCOMPARE(spec(name("NeedsCore"))->state(), State::Running);
}

void TestPluginStart::aPluginThatFailsIsDestroyedAndLeavesThePool()
{
    const PluginFolder folder(names({"Gamma", "ReturnsFalse", "Throws"}));
    expectWarning("ReturnsFalse", "false");
    expectWarning("Throws", "thrown");

    start(folder);

    QCOMPARE(manager()->allObjects().size(), 1);
    QCOMPARE(manager()->allObjects().first()->objectName(), name("Gamma.extension"));
    QCOMPARE(journalOf("destroyed"), names({"ReturnsFalse.destroyed", "Throws.destroyed"}));
}

void TestPluginStart::aPluginThatFailsIsNotShutDown()
{
    const PluginFolder folder(names({"Gamma", "ReturnsFalse"}));
    expectWarning("ReturnsFalse", "false");
    start(folder);

    manager()->shutDown();

    QCOMPARE(journalOf("extensionsInitialized"), names({"Gamma.extensionsInitialized"}));
    QCOMPARE(journalOf("shutDown"), names({"Gamma.shutDown"}));
}

void TestPluginStart::whatDependsOnAFailureIsSkippedWithTheReason()
{
    const PluginFolder folder(names({"Gamma", "NeedsFalse", "NeedsNeedsFalse", "ReturnsFalse"}));
    expectWarning("ReturnsFalse", "initialize() returned false");
    expectWarning("NeedsFalse", "ReturnsFalse");
    expectWarning("NeedsNeedsFalse", "NeedsFalse");

    start(folder);

    QCOMPARE(spec(name("NeedsFalse"))->state(), State::Skipped);
    QCOMPARE(spec(name("NeedsFalse"))->error(),
             name("it depends on \"ReturnsFalse\", which is not started: "
                  "initialize() returned false"));
    QCOMPARE(spec(name("NeedsNeedsFalse"))->state(), State::Skipped);
    QCOMPARE(spec(name("NeedsNeedsFalse"))->error(),
             name("it depends on \"NeedsFalse\", which is not started: "
                  "it depends on \"ReturnsFalse\", which is not started: "
                  "initialize() returned false"));
    QCOMPARE(spec(name("Gamma"))->state(), State::Running);
}

void TestPluginStart::whatIsSkippedIsNotLoaded()
{
    const PluginFolder folder(names({"NeedsFalse", "ReturnsFalse"}));
    expectWarning("ReturnsFalse", "false");
    expectWarning("NeedsFalse", "false");

    start(folder);

    QCOMPARE(journalOf("constructed"), names({"ReturnsFalse.constructed"}));
}

void TestPluginStart::whatNeedsACircleIsSkipped()
{
    const PluginFolder folder(names({"CircleA", "CircleB", "CircleC", "NeedsCircle", "Gamma"}));
    expectWarning("CircleA", "CircleA -> CircleB");
    expectWarning("CircleB", "CircleB -> CircleC");
    expectWarning("CircleC", "CircleC -> CircleA");
    expectWarning("NeedsCircle", "\"CircleB\", which is not started");

    start(folder);

    QCOMPARE(spec(name("NeedsCircle"))->state(), State::Skipped);
    QCOMPARE(journalOf("constructed"), names({"Gamma.constructed"}));
}

void TestPluginStart::aBrokenMetadataIsNamedAtTheStart()
{
    const PluginFolder folder(names({"WrongInterface", "PlainLibrary", "Gamma"}));
    expectWarning("WrongInterface", "is made for the interface");
    expectWarning("PlainLibrary", "Failed to extract plugin meta data");

    start(folder);

    QCOMPARE(journalOf("constructed"), names({"Gamma.constructed"}));
}

void TestPluginStart::aPluginWithoutAPluginObjectIsNamed()
{
    const PluginFolder folder(names({"NoPluginObject", "Gamma"}));
    expectWarning("NoPluginObject", "no ExtSys::IPlugin");

    start(folder);

    QCOMPARE(spec(name("NoPluginObject"))->error(),
             name("its object, a NoPluginObject, is no ExtSys::IPlugin"));
    QCOMPARE(spec(name("Gamma"))->state(), State::Running);
}

void TestPluginStart::aFileThatChangesBeforeTheStartIsNamed_data()
{
    QTest::addColumn<QString>("successor");
    QTest::newRow("gone") << QString();
    QTest::newRow("another kind of file") << name("text");
    QTest::newRow("plugin without a plugin object") << name("libNoPluginObject.so");
}

void TestPluginStart::aFileThatChangesBeforeTheStartIsNamed()
{
    QFETCH(const QString, successor);
    PluginFolder folder(names({"Beta", "Gamma"}));
    manager()->findPlugins({folder.path()});
    QVERIFY(QFile::remove(folder.file(name("Gamma"))));
    if (successor.endsWith(name(".so")))
        folder.copy(successor, name("libGamma.so"));
    else if (!successor.isEmpty())
        folder.write(name("libGamma.so"), successor.toUtf8());
    expectWarning("Gamma", "");
    expectWarning("Beta", "Gamma");

    QVERIFY(manager()->startPlugins());

    QCOMPARE(spec(name("Gamma"))->state(), State::Failed);
    QVERIFY(!spec(name("Gamma"))->error().isEmpty());
    QCOMPARE(journal(), QStringList());
}

void TestPluginStart::aPluginBuiltAgainstAnotherLibraryIsNamed()
{
    PluginFolder folder(names({"NeedsSupplier", "Gamma"}));
    QVERIFY(QDir(folder.path()).mkdir(name("lib")));
    folder.copy(name("supplier-new/libTestSupplier.so"), name("libTestSupplier.so"));
    expectWarning("NeedsSupplier", "undefined symbol");
    expectWarning("TestSupplier", "Failed to extract plugin meta data");

    start(folder);

    QCOMPARE(spec(name("NeedsSupplier"))->state(), State::Failed);
    QVERIFY(!spec(name("NeedsSupplier"))->error().contains(QLatin1Char('\n')));
    QCOMPARE(spec(name("Gamma"))->state(), State::Running);
}

void TestPluginStart::aPluginWhoseLibraryIsMissingIsNamed()
{
    const PluginFolder folder(names({"NeedsSupplier", "Gamma"}));
    expectWarning("NeedsSupplier", "libTestSupplier.so: cannot open shared object file");

    start(folder);

    QCOMPARE(spec(name("NeedsSupplier"))->state(), State::Failed);
    QCOMPARE(spec(name("Gamma"))->state(), State::Running);
}

void TestPluginStart::aPluginWithItsLibraryStarts()
{
    PluginFolder folder(names({"NeedsSupplier"}));
    folder.copy(name("supplier-old/libTestSupplier.so"), name("libTestSupplier.so"));
    expectWarning("TestSupplier", "Failed to extract plugin meta data");

    start(folder);

    QCOMPARE(spec(name("NeedsSupplier"))->state(), State::Running);
}

void TestPluginStart::aThrowInExtensionsInitializedIsNamedAndTheRestIsCalled()
{
    const PluginFolder folder(names({"Gamma", "ThrowsInExtensionsInitialized"}));
    expectWarning("ThrowsInExtensionsInitialized",
                  "extensionsInitialized() threw an exception: thrown in extensionsInitialized");

    start(folder);

    QVERIFY(m_started);
    QCOMPARE(spec(name("ThrowsInExtensionsInitialized"))->state(), State::Failed);
    QCOMPARE(spec(name("Gamma"))->state(), State::Running);
    manager()->shutDown();
    QCOMPARE(journalOf("shutDown"),
             names({"ThrowsInExtensionsInitialized.shutDown", "Gamma.shutDown"}));
}

void TestPluginStart::aThrowInShutDownIsNamedAndTheRestIsCalled()
{
    const PluginFolder folder(names({"Gamma", "ThrowsInShutDown"}));
    start(folder);
    expectWarning("ThrowsInShutDown", "shutDown() threw an exception: thrown in shutDown");

    manager()->shutDown();

    QCOMPARE(journalOf("shutDown"), names({"ThrowsInShutDown.shutDown", "Gamma.shutDown"}));
    QCOMPARE(journalOf("destroyed"), names({"ThrowsInShutDown.destroyed", "Gamma.destroyed"}));
}

void TestPluginStart::objectsKeptInThePoolLeaveItAtTheEnd()
{
    const PluginFolder folder(names({"KeepsObjects"}));
    start(folder);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(
                                           "destroyed while in the pool.*KeepsObjects.extension")));

    manager()->shutDown();

    QCOMPARE(manager()->allObjects(), QList<QObject *>());
}

void TestPluginStart::aCoreThatFailsStartsNothingElse()
{
    const PluginFolder folder(names({"FalseCore", "Gamma", "NeedsMissing"}));
    const MessageRecorder messages;

    start(folder);

    QVERIFY(!m_started);
    QCOMPARE(messages.texts(), QStringList());
    QCOMPARE(manager()->corePlugin()->state(), State::Failed);
    QCOMPARE(manager()->corePlugin()->error(), name("initialize() returned false"));
    QCOMPARE(journalOf("constructed"), names({"FalseCore.constructed"}));
    QCOMPARE(spec(name("Gamma"))->state(), State::Skipped);
}

void TestPluginStart::aCoreThatFailsLateIsAFailedStart()
{
    const PluginFolder folder(names({"LateThrowingCore", "Gamma"}));
    const MessageRecorder messages;

    start(folder);

    QVERIFY(!m_started);
    QCOMPARE(messages.texts(), QStringList());
    QCOMPARE(manager()->corePlugin()->error(),
             name("extensionsInitialized() threw an exception: thrown in extensionsInitialized"));
    manager()->shutDown();
    QCOMPARE(journalOf("shutDown"), names({"Gamma.shutDown", "LateThrowingCore.shutDown"}));
}

QTEST_GUILESS_MAIN(TestPluginStart)
#include "tst_pluginstart.moc"
