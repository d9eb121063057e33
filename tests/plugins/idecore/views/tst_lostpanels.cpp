// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Panels and docks that are destroyed without having been removed, and panels that
// add and remove one another while they are laid out.

#include "support/corefixture.h"
#include "support/testpanel.h"

#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QPointer>
#include <QTest>

#include <memory>

using Core::ViewManager;

namespace {

void endTurn()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// p0 to p3, tabs of one place.
QList<TestPanel *> addFourPanels()
{
    QList<TestPanel *> panels;
    for (const char *name : {"p0", "p1", "p2", "p3"})
        panels.append(addTestPanel(name, Qt::LeftDockWidgetArea));
    return panels;
}

/// What is left of their place without number @p victim, the first in front.
QString tabsWithout(int victim)
{
    QStringList tabs = texts({"p0", "p1", "p2", "p3"});
    tabs.removeAt(victim);
    tabs.first() = QLatin1Char('[') + tabs.constFirst() + QLatin1Char(']');
    return tabs.join(QLatin1Char(' '));
}

} // namespace

class TestLostPanels final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void destroyedPanelTakesItsDockAlong();
    void destroyedPanelIsNotSeenAnyMore();
    void destroyedPanelIsForgottenAtOnce();
    void destroyedPanelInFrontMakesWay();
    void destroyedFloatingPanel();
    void destroyedHiddenPanel();
    void panelTakenOutByANewParent();
    void panelTakenOutCanBeAddedAgain();
    void destroyedDock();
    void panelRemovedFromItsDestructor();
    void panelRemovedTwice();
    void removedPanelDestroyedBeforeItsDock();
    void panelDestroyedWhileHidden();
    void dockDestroyedWhileItsPanelIsRemoved();

    void panelRemovesAnotherWhileLaidOut_data();
    void panelRemovesAnotherWhileLaidOut();
    void panelDestroysAnotherWhileLaidOut_data();
    void panelDestroysAnotherWhileLaidOut();
    void panelRemovesItselfWhileLaidOut();
    void panelAddsAnotherWhileLaidOut();
    void panelsThatNeverComeToRestDoNotHang();

    void panelsGoWithTheMainWindow();
    void panelDestroysAnotherWhileTheMainWindowGoes();

private:
    std::unique_ptr<CoreFixture> m_core;
};

void TestLostPanels::init()
{
    m_core = std::make_unique<CoreFixture>();
    m_core->show();
}

void TestLostPanels::cleanup()
{
    m_core.reset();
}

void TestLostPanels::destroyedPanelTakesItsDockAlong()
{
    delete addTestPanel("p", Qt::LeftDockWidgetArea);
    endTurn();

    QVERIFY(docks().isEmpty());
    QVERIFY(panelsMenu()->isEmpty());
}

void TestLostPanels::destroyedPanelIsNotSeenAnyMore()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    QDockWidget *dock = dockOf(panel);

    delete panel;

    QVERIFY(!dock->isVisible());
    QCOMPARE(ViewManager::mainWindow()->dockWidgetArea(dock), Qt::NoDockWidgetArea);
}

void TestLostPanels::destroyedPanelIsForgottenAtOnce()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    const QPointer<QDockWidget> dock = dockOf(panel);
    delete panel;

    ViewManager::showPanel(QStringLiteral("p"));
    ViewManager::resetLayout();

    QVERIFY(dock);
    QVERIFY(!dock->isVisible());
}

void TestLostPanels::destroyedPanelInFrontMakesWay()
{
    TestPanel *panel = addTestPanel("90", Qt::LeftDockWidgetArea, 90);
    addTestPanel("50", Qt::LeftDockWidgetArea, 50);
    addTestPanel("10", Qt::LeftDockWidgetArea, 10);

    delete panel;

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[50] 10"}));
}

void TestLostPanels::destroyedFloatingPanel()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    const QPointer<QDockWidget> dock = dockOf(panel);
    dock->setFloating(true);

    delete panel;

    QVERIFY(!dock->isVisible());
    endTurn();
    QVERIFY(!dock);
}

void TestLostPanels::destroyedHiddenPanel()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    ViewManager::hidePanel(panel);

    delete panel;
    endTurn();

    QVERIFY(docks().isEmpty());
}

void TestLostPanels::panelTakenOutByANewParent()
{
    QWidget parent;
    const QPointer<TestPanel> panel = addTestPanel("p", Qt::LeftDockWidgetArea);

    panel->setParent(&parent);
    endTurn();

    QVERIFY(panel);
    QVERIFY(docks().isEmpty());
    QVERIFY(panelsMenu()->isEmpty());
}

void TestLostPanels::panelTakenOutCanBeAddedAgain()
{
    const QPointer<TestPanel> panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    panel->setParent(nullptr);

    ViewManager::addPanel(panel);
    endTurn();

    QVERIFY(panel);
    QVERIFY(panel->isVisible());
    QCOMPARE(docks().size(), 1);
    QCOMPARE(menuEntries(panelsMenu()), texts({"[x] p"}));
}

void TestLostPanels::destroyedDock()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    addTestPanel("other", Qt::LeftDockWidgetArea);

    delete dockOf(panel);

    ViewManager::showPanel(QStringLiteral("p"));
    ViewManager::resetLayout();
    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[other]"}));
    QCOMPARE(menuEntries(panelsMenu()), texts({"[x] other"}));
}

void TestLostPanels::panelRemovedFromItsDestructor()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    panel->whenDestroyed = [panel] { ViewManager::removePanel(panel); };

    delete panel;
    endTurn();

    QVERIFY(docks().isEmpty());
}

void TestLostPanels::panelRemovedTwice()
{
    const QPointer<TestPanel> panel = addTestPanel("p", Qt::LeftDockWidgetArea);

    ViewManager::removePanel(panel);
    ViewManager::removePanel(panel);
    endTurn();

    QVERIFY(!panel);
    QVERIFY(docks().isEmpty());
}

void TestLostPanels::removedPanelDestroyedBeforeItsDock()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    ViewManager::removePanel(panel);

    delete panel;
    endTurn();

    QVERIFY(docks().isEmpty());
}

void TestLostPanels::panelDestroyedWhileHidden()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    panel->whenHidden = [panel] { ViewManager::removePanel(panel); };

    ViewManager::hidePanel(panel);
    endTurn();

    QVERIFY(docks().isEmpty());
}

void TestLostPanels::dockDestroyedWhileItsPanelIsRemoved()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    TestPanel *other = addTestPanel("other", Qt::BottomDockWidgetArea);
    panel->whenHidden = [other] { ViewManager::removePanel(other); };

    ViewManager::removePanel(panel);
    endTurn();

    QVERIFY(docks().isEmpty());
}

void TestLostPanels::panelRemovesAnotherWhileLaidOut_data()
{
    QTest::addColumn<int>("actor");
    QTest::addColumn<int>("victim");
    for (int actor = 0; actor < 4; ++actor) {
        for (int victim = 0; victim < 4; ++victim) {
            if (actor != victim)
                QTest::addRow("p%d removes p%d", actor, victim) << actor << victim;
        }
    }
}

void TestLostPanels::panelRemovesAnotherWhileLaidOut()
{
    QFETCH(const int, actor);
    QFETCH(const int, victim);
    const QList<TestPanel *> panels = addFourPanels();
    int removed = 0;
    panels.at(actor)->whenHidden = [&] {
        if (removed++ == 0)
            ViewManager::removePanel(panels.at(victim));
    };
    ViewManager::showPanel(panels.at(actor));

    ViewManager::resetLayout();
    endTurn();

    panels.at(actor)->whenHidden = nullptr;
    QVERIFY(removed > 0);
    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), QStringList(tabsWithout(victim)));
}

void TestLostPanels::panelDestroysAnotherWhileLaidOut_data()
{
    panelRemovesAnotherWhileLaidOut_data();
}

void TestLostPanels::panelDestroysAnotherWhileLaidOut()
{
    QFETCH(const int, actor);
    QFETCH(const int, victim);
    const QList<TestPanel *> panels = addFourPanels();
    bool destroyed = false;
    panels.at(actor)->whenHidden = [&] {
        if (!destroyed) {
            destroyed = true;
            delete dockOf(panels.at(victim));
        }
    };
    ViewManager::showPanel(panels.at(actor));

    ViewManager::resetLayout();

    panels.at(actor)->whenHidden = nullptr;
    QVERIFY(destroyed);
    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), QStringList(tabsWithout(victim)));
}

void TestLostPanels::panelRemovesItselfWhileLaidOut()
{
    addTestPanel("90", Qt::LeftDockWidgetArea, 90);
    TestPanel *panel = addTestPanel("50", Qt::LeftDockWidgetArea, 50);
    addTestPanel("10", Qt::LeftDockWidgetArea, 10);
    ViewManager::showPanel(panel);
    panel->whenHidden = [panel] { ViewManager::removePanel(panel); };

    ViewManager::resetLayout();
    endTurn();

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[90] 10"}));
}

void TestLostPanels::panelAddsAnotherWhileLaidOut()
{
    addTestPanel("90", Qt::LeftDockWidgetArea, 90);
    TestPanel *panel = addTestPanel("70", Qt::LeftDockWidgetArea, 70);
    addTestPanel("50", Qt::LeftDockWidgetArea, 50);
    addTestPanel("10", Qt::LeftDockWidgetArea, 10);
    QPointer<TestPanel> added;
    ViewManager::showPanel(panel);
    panel->whenHidden = [&added] {
        if (!added) {
            added = new TestPanel(QStringLiteral("60"), Qt::LeftDockWidgetArea, 60);
            ViewManager::addPanel(added);
        }
    };

    ViewManager::resetLayout();

    panel->whenHidden = nullptr;
    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[90] 70 60 50 10"}));
}

void TestLostPanels::panelsThatNeverComeToRestDoNotHang()
{
    TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    int shown = 0;
    panel->whenShown = [&shown] {
        ++shown;
        // Elsewhere, so that it takes no part in what is being laid out.
        ViewManager::removePanel(addTestPanel("guest", Qt::BottomDockWidgetArea));
    };
    QVERIFY(panel->isVisible());

    ViewManager::resetLayout();
    endTurn();

    panel->whenShown = nullptr;
    QVERIFY(shown > 0);
    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[p]"}));
}

void TestLostPanels::panelsGoWithTheMainWindow()
{
    const QPointer<TestPanel> panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    panel->whenDestroyed = [raw = panel.data()] { ViewManager::removePanel(raw); };

    m_core->shutdown();

    QVERIFY(!panel);
}

void TestLostPanels::panelDestroysAnotherWhileTheMainWindowGoes()
{
    // Whichever goes first takes the other along.
    const QPointer<TestPanel> one = addTestPanel("one", Qt::LeftDockWidgetArea);
    const QPointer<TestPanel> other = addTestPanel("other", Qt::BottomDockWidgetArea);
    bool destroyed = false;
    bool dockWasTakenOut = false;
    const auto destroy = [&](const QPointer<TestPanel> &panel, const QDockWidget *dock) {
        if (destroyed)
            return;
        destroyed = true;
        delete panel;
        dockWasTakenOut = dock->isHidden();
    };
    one->whenDestroyed = [&, dock = dockOf(other)] { destroy(other, dock); };
    other->whenDestroyed = [&, dock = dockOf(one)] { destroy(one, dock); };

    m_core->shutdown();

    QVERIFY(!one);
    QVERIFY(!other);
    QVERIFY(destroyed);
    QVERIFY(!dockWasTakenOut);
}

QTEST_MAIN(TestLostPanels)
#include "tst_lostpanels.moc"
