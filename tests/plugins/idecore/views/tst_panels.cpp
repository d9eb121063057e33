// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Panels that come, are shown and hidden, and go.

#include "support/corefixture.h"
#include "support/messagerecorder.h"
#include "support/testpanel.h"

#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QPointer>
#include <QTest>

#include <memory>

using Core::IPanel;
using Core::ViewManager;

using PanelCall = void (*)(IPanel *);
using NameCall = void (*)(const QString &);
Q_DECLARE_METATYPE(PanelCall)
Q_DECLARE_METATYPE(NameCall)

namespace {

/// Whether the dock is the one of its group that is seen.
bool isInFront(const QDockWidget *dock)
{
    return dock->isVisible() && !dock->visibleRegion().isEmpty();
}

} // namespace

class TestPanels final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void nullPanelIsRefused_data();
    void nullPanelIsRefused();
    void addingWritesALine();
    void removingWritesALine();
    void dockIsMadeAsThePanelSays();
    void dockOfAPanelThatOverridesNothing();
    void dockBelongsToTheMainWindowAndOwnsThePanel();
    void panelIsDockedInItsArea_data();
    void panelIsDockedInItsArea();
    void panelMayBeAddedBeforeTheWindowIsShown();
    void titleIsTakenOnce();
    void panelAddedTwiceHasOneDock();
    void panelAddedTwiceIsShownAndRaised();
    void panelAddedTwiceLeavesTheOthersWhereTheyAre();
    void addingLaysTheWholeAreaOut();
    void addingLeavesOtherAreasAlone();

    void panelsMenuHoldsTheToggleActionsInOrder();
    void panelsMenuFollowsHidingAndShowing();
    void panelsMenuHidesAndShows();

    void removedPanelLeavesTheWindowAtOnce();
    void removedPanelIsDestroyedAtTheNextTurn();
    void removedPanelLeavesTheMenuWithItsDock();
    void removingLaysNothingOut();
    void removingAnUnknownPanelDoesNothing();
    void removedPanelCanBeAddedAgain();
    void nameOfARemovedPanelIsForgottenAtOnce();

    void showingAHiddenPanelMakesItVisibleAndRaisesIt_data();
    void showingAHiddenPanelMakesItVisibleAndRaisesIt();
    void showingAPanelBehindAnotherRaisesIt_data();
    void showingAPanelBehindAnotherRaisesIt();
    void hidingMakesThePanelInvisible_data();
    void hidingMakesThePanelInvisible();
    void unknownPanelsAreIgnoredSilently_data();
    void unknownPanelsAreIgnoredSilently();
    void unknownNamesAreIgnoredSilently_data();
    void unknownNamesAreIgnoredSilently();
    void ofTwoPanelsOfOneNameTheFirstIsMeant();

private:
    static void showingRows();

    std::unique_ptr<CoreFixture> m_core;
};

void TestPanels::init()
{
    m_core = std::make_unique<CoreFixture>();
    m_core->show();
}

void TestPanels::cleanup()
{
    m_core.reset();
}

void TestPanels::nullPanelIsRefused_data()
{
    QTest::addColumn<PanelCall>("call");
    QTest::newRow("addPanel") << PanelCall(&ViewManager::addPanel);
    QTest::newRow("removePanel") << PanelCall(&ViewManager::removePanel);
}

void TestPanels::nullPanelIsRefused()
{
    QFETCH(const PanelCall, call);
    const MessageRecorder log;

    call(nullptr);

    QVERIFY(log.isOneAssertion(QStringLiteral("panel")));
    QCOMPARE(log.messages().size(), 1);
    QVERIFY(docks().isEmpty());
}

void TestPanels::addingWritesALine()
{
    const MessageRecorder log;
    const TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    const QString line = QLatin1String("add panel: ") + logged(static_cast<const IPanel *>(panel));

    QCOMPARE(log.lines(QtDebugMsg, QStringLiteral("add panel:")), QStringList{line});
}

void TestPanels::removingWritesALine()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    const MessageRecorder log;

    ViewManager::removePanel(panel);

    const QString line =
        QLatin1String("remove panel: ") + logged(static_cast<const IPanel *>(panel));
    QCOMPARE(log.lines(QtDebugMsg, QStringLiteral("remove panel:")), QStringList{line});
}

void TestPanels::dockIsMadeAsThePanelSays()
{
    auto *panel = new TestPanel(QStringLiteral("the.name"), Qt::RightDockWidgetArea);
    panel->title = QStringLiteral("The Title");
    panel->setWindowTitle(QStringLiteral("another title"));
    panel->allowed = Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea;

    ViewManager::addPanel(panel);

    const QDockWidget *dock = dockOf(panel);
    QVERIFY(dock);
    QCOMPARE(dock->objectName(), QStringLiteral("the.name"));
    QCOMPARE(dock->windowTitle(), QStringLiteral("The Title"));
    QCOMPARE(dock->allowedAreas(), Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
}

void TestPanels::dockOfAPanelThatOverridesNothing()
{
    addTestPanel("before", Qt::LeftDockWidgetArea, 51);
    addTestPanel("behind", Qt::LeftDockWidgetArea, 49);
    auto *panel = new PlainPanel(QStringLiteral("name"));
    panel->setWindowTitle(QStringLiteral("title"));

    ViewManager::addPanel(panel);

    QCOMPARE(dockOf(panel)->windowTitle(), QStringLiteral("title"));
    QCOMPARE(int(dockOf(panel)->allowedAreas()), 15);
    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[before] title behind"}));
}

void TestPanels::dockBelongsToTheMainWindowAndOwnsThePanel()
{
    const TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);

    QCOMPARE(docks().size(), 1);
    QCOMPARE(docks().constFirst()->parent(), ViewManager::mainWindow());
    QCOMPARE(docks().constFirst()->widget(), panel);
    QCOMPARE(panel->parent(), docks().constFirst());
}

void TestPanels::panelIsDockedInItsArea_data()
{
    QTest::addColumn<Qt::DockWidgetArea>("area");
    QTest::newRow("left") << Qt::LeftDockWidgetArea;
    QTest::newRow("right") << Qt::RightDockWidgetArea;
    QTest::newRow("top") << Qt::TopDockWidgetArea;
    QTest::newRow("bottom") << Qt::BottomDockWidgetArea;
}

void TestPanels::panelIsDockedInItsArea()
{
    QFETCH(const Qt::DockWidgetArea, area);

    const TestPanel *panel = addTestPanel("p", area);

    QDockWidget *dock = dockOf(panel);
    QCOMPARE(ViewManager::mainWindow()->dockWidgetArea(dock), area);
    QVERIFY(!dock->isFloating());
    QVERIFY(dock->isVisible());
    QVERIFY(panel->isVisible());
}

void TestPanels::panelMayBeAddedBeforeTheWindowIsShown()
{
    m_core.reset();
    m_core = std::make_unique<CoreFixture>();
    const TestPanel *panel = addTestPanel("p", Qt::RightDockWidgetArea);
    QVERIFY(!panel->isVisible());

    m_core->show();

    QVERIFY(panel->isVisible());
    QCOMPARE(dockGroups(Qt::RightDockWidgetArea), texts({"[p]"}));
}

void TestPanels::titleIsTakenOnce()
{
    TestPanel *panel = addTestPanel("old", Qt::LeftDockWidgetArea);
    panel->title = QStringLiteral("new");
    panel->setWindowTitle(QStringLiteral("new"));

    ViewManager::addPanel(panel);

    QCOMPARE(dockOf(panel)->windowTitle(), QStringLiteral("old"));
}

void TestPanels::panelAddedTwiceHasOneDock()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);

    ViewManager::addPanel(panel);

    QCOMPARE(docks().size(), 1);
    QCOMPARE(menuEntries(panelsMenu()), texts({"[x] p"}));
}

void TestPanels::panelAddedTwiceIsShownAndRaised()
{
    addTestPanel("front", Qt::LeftDockWidgetArea, 90);
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea, 10);
    dockOf(panel)->hide();

    ViewManager::addPanel(panel);

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"front [p]"}));
}

void TestPanels::panelAddedTwiceLeavesTheOthersWhereTheyAre()
{
    TestPanel *other = addTestPanel("other", Qt::LeftDockWidgetArea);
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    dockOf(other)->setFloating(true);

    ViewManager::addPanel(panel);

    QVERIFY(dockOf(other)->isFloating());
}

void TestPanels::addingLaysTheWholeAreaOut()
{
    TestPanel *floating = addTestPanel("floating", Qt::BottomDockWidgetArea, 90);
    TestPanel *hidden = addTestPanel("hidden", Qt::BottomDockWidgetArea, 80);
    TestPanel *elsewhere = addTestPanel("elsewhere", Qt::BottomDockWidgetArea, 70);
    dockOf(floating)->setFloating(true);
    dockOf(hidden)->hide();
    ViewManager::mainWindow()->addDockWidget(Qt::TopDockWidgetArea, dockOf(elsewhere));

    addTestPanel("new", Qt::BottomDockWidgetArea, 75);

    QTRY_COMPARE(dockGroups(Qt::BottomDockWidgetArea), texts({"[floating] hidden new elsewhere"}));
    QVERIFY(dockGroups(Qt::TopDockWidgetArea).isEmpty());
}

void TestPanels::addingLeavesOtherAreasAlone()
{
    TestPanel *floating = addTestPanel("floating", Qt::LeftDockWidgetArea);
    TestPanel *hidden = addTestPanel("hidden", Qt::RightDockWidgetArea);
    dockOf(floating)->setFloating(true);
    dockOf(hidden)->hide();

    addTestPanel("new", Qt::BottomDockWidgetArea);

    QVERIFY(dockOf(floating)->isFloating());
    QVERIFY(dockOf(hidden)->isHidden());
}

void TestPanels::panelsMenuHoldsTheToggleActionsInOrder()
{
    const TestPanel *second = addTestPanel("z", Qt::LeftDockWidgetArea, 10);
    const TestPanel *first = addTestPanel("a", Qt::BottomDockWidgetArea, 90);
    const TestPanel *third = addTestPanel("m", Qt::LeftDockWidgetArea, 90);

    QCOMPARE(panelsMenu()->actions(), (QList<QAction *>{dockOf(second)->toggleViewAction(),
                                                        dockOf(first)->toggleViewAction(),
                                                        dockOf(third)->toggleViewAction()}));
    QCOMPARE(menuEntries(panelsMenu()), texts({"[x] z", "[x] a", "[x] m"}));
}

void TestPanels::panelsMenuFollowsHidingAndShowing()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);

    ViewManager::hidePanel(panel);
    QCOMPARE(menuEntries(panelsMenu()), texts({"[ ] p"}));

    ViewManager::showPanel(panel);
    QCOMPARE(menuEntries(panelsMenu()), texts({"[x] p"}));
}

void TestPanels::panelsMenuHidesAndShows()
{
    const TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    QAction *entry = panelsMenu()->actions().constFirst();

    entry->trigger();
    QVERIFY(!panel->isVisible());

    entry->trigger();
    QVERIFY(panel->isVisible());
}

void TestPanels::removedPanelLeavesTheWindowAtOnce()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    QDockWidget *dock = dockOf(panel);

    ViewManager::removePanel(panel);

    QCOMPARE(ViewManager::mainWindow()->dockWidgetArea(dock), Qt::NoDockWidgetArea);
    QVERIFY(!panel->isVisible());
}

void TestPanels::removedPanelIsDestroyedAtTheNextTurn()
{
    const QPointer<TestPanel> panel = addTestPanel("p", Qt::LeftDockWidgetArea);

    ViewManager::removePanel(panel);
    QVERIFY(panel);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QVERIFY(!panel);
    QVERIFY(docks().isEmpty());
}

void TestPanels::removedPanelLeavesTheMenuWithItsDock()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    addTestPanel("other", Qt::LeftDockWidgetArea);

    ViewManager::removePanel(panel);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QCOMPARE(menuEntries(panelsMenu()), texts({"[x] other"}));
}

void TestPanels::removingLaysNothingOut()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea, 90);
    TestPanel *floating = addTestPanel("floating", Qt::LeftDockWidgetArea, 80);
    TestPanel *hidden = addTestPanel("hidden", Qt::LeftDockWidgetArea, 70);
    TestPanel *front = addTestPanel("front", Qt::LeftDockWidgetArea, 60);
    addTestPanel("last", Qt::LeftDockWidgetArea, 50);
    dockOf(floating)->setFloating(true);
    ViewManager::hidePanel(hidden);
    ViewManager::showPanel(front);

    ViewManager::removePanel(panel);

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[front] last"}));
    QVERIFY(dockOf(floating)->isFloating());
    QVERIFY(dockOf(hidden)->isHidden());
}

void TestPanels::removingAnUnknownPanelDoesNothing()
{
    addTestPanel("p", Qt::LeftDockWidgetArea);
    TestPanel unknown(QStringLiteral("p"), Qt::LeftDockWidgetArea);

    ViewManager::removePanel(&unknown);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[p]"}));
}

void TestPanels::removedPanelCanBeAddedAgain()
{
    const QPointer<TestPanel> panel = addTestPanel("p", Qt::LeftDockWidgetArea);

    ViewManager::removePanel(panel);
    ViewManager::addPanel(panel);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QVERIFY(panel);
    QVERIFY(panel->isVisible());
    QCOMPARE(docks().size(), 1);
    QCOMPARE(menuEntries(panelsMenu()), texts({"[x] p"}));
}

void TestPanels::nameOfARemovedPanelIsForgottenAtOnce()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);

    ViewManager::removePanel(panel);
    ViewManager::showPanel(QStringLiteral("p"));

    QVERIFY(!panel->isVisible());
}

void TestPanels::showingRows()
{
    QTest::addColumn<bool>("byName");
    QTest::newRow("by panel") << false;
    QTest::newRow("by name") << true;
}

void TestPanels::showingAHiddenPanelMakesItVisibleAndRaisesIt_data()
{
    showingRows();
}

void TestPanels::showingAHiddenPanelMakesItVisibleAndRaisesIt()
{
    QFETCH(const bool, byName);
    addTestPanel("front", Qt::LeftDockWidgetArea, 90);
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea, 10);
    ViewManager::hidePanel(panel);

    byName ? ViewManager::showPanel(QStringLiteral("p")) : ViewManager::showPanel(panel);

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"front [p]"}));
    QVERIFY(isInFront(dockOf(panel)));
}

void TestPanels::showingAPanelBehindAnotherRaisesIt_data()
{
    showingRows();
}

void TestPanels::showingAPanelBehindAnotherRaisesIt()
{
    QFETCH(const bool, byName);
    addTestPanel("front", Qt::LeftDockWidgetArea, 90);
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea, 10);
    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[front] p"}));

    byName ? ViewManager::showPanel(QStringLiteral("p")) : ViewManager::showPanel(panel);

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"front [p]"}));
    QVERIFY(isInFront(dockOf(panel)));
}

void TestPanels::hidingMakesThePanelInvisible_data()
{
    showingRows();
}

void TestPanels::hidingMakesThePanelInvisible()
{
    QFETCH(const bool, byName);
    addTestPanel("other", Qt::LeftDockWidgetArea, 90);
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea, 10);

    byName ? ViewManager::hidePanel(QStringLiteral("p")) : ViewManager::hidePanel(panel);

    QVERIFY(dockOf(panel)->isHidden());
    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[other]"}));
}

void TestPanels::unknownPanelsAreIgnoredSilently_data()
{
    QTest::addColumn<PanelCall>("call");
    QTest::addColumn<bool>("null");
    QTest::newRow("showPanel") << PanelCall(&ViewManager::showPanel) << false;
    QTest::newRow("hidePanel") << PanelCall(&ViewManager::hidePanel) << false;
    QTest::newRow("showPanel null") << PanelCall(&ViewManager::showPanel) << true;
    QTest::newRow("hidePanel null") << PanelCall(&ViewManager::hidePanel) << true;
}

void TestPanels::unknownPanelsAreIgnoredSilently()
{
    QFETCH(const PanelCall, call);
    QFETCH(const bool, null);
    addTestPanel("visible", Qt::LeftDockWidgetArea);
    ViewManager::hidePanel(addTestPanel("hidden", Qt::BottomDockWidgetArea));
    TestPanel unknown(QStringLiteral("visible"), Qt::LeftDockWidgetArea);
    const MessageRecorder log;

    call(null ? nullptr : &unknown);

    QVERIFY(log.messages().isEmpty());
    QCOMPARE(menuEntries(panelsMenu()), texts({"[x] visible", "[ ] hidden"}));
}

void TestPanels::unknownNamesAreIgnoredSilently_data()
{
    QTest::addColumn<NameCall>("call");
    QTest::addColumn<QString>("name");
    for (const char *name : {"", "Visible", "visible ", "vis", "vis*", "Hidden", "hid"}) {
        const QString text = QString::fromLatin1(name);
        QTest::addRow("showPanel \"%s\"", name) << NameCall(&ViewManager::showPanel) << text;
        QTest::addRow("hidePanel \"%s\"", name) << NameCall(&ViewManager::hidePanel) << text;
    }
}

void TestPanels::unknownNamesAreIgnoredSilently()
{
    QFETCH(const NameCall, call);
    QFETCH(const QString, name);
    addTestPanel("visible", Qt::LeftDockWidgetArea);
    ViewManager::hidePanel(addTestPanel("hidden", Qt::BottomDockWidgetArea));
    const MessageRecorder log;

    call(name);

    QVERIFY(log.messages().isEmpty());
    QCOMPARE(menuEntries(panelsMenu()), texts({"[x] visible", "[ ] hidden"}));
}

void TestPanels::ofTwoPanelsOfOneNameTheFirstIsMeant()
{
    const TestPanel *first = addTestPanel("same", Qt::LeftDockWidgetArea);
    const TestPanel *second = addTestPanel("same", Qt::BottomDockWidgetArea);

    ViewManager::hidePanel(QStringLiteral("same"));

    QVERIFY(!first->isVisible());
    QVERIFY(second->isVisible());
}

QTEST_MAIN(TestPanels)
#include "tst_panels.moc"
