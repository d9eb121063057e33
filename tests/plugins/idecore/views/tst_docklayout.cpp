// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// How the panels of an area are laid out, and come back where they belong.

#include "support/corefixture.h"
#include "support/testpanel.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QRandomGenerator>
#include <QTabBar>
#include <QTest>

#include <algorithm>
#include <limits>
#include <memory>

using Core::IdeMainWindow;
using Core::ViewManager;

namespace {

IdeMainWindow *window()
{
    return ViewManager::mainWindow();
}

void areaRows()
{
    QTest::addColumn<Qt::DockWidgetArea>("area");
    QTest::newRow("left") << Qt::LeftDockWidgetArea;
    QTest::newRow("right") << Qt::RightDockWidgetArea;
    QTest::newRow("top") << Qt::TopDockWidgetArea;
    QTest::newRow("bottom") << Qt::BottomDockWidgetArea;
}

Qt::DockWidgetArea opposite(Qt::DockWidgetArea area)
{
    switch (area) {
    case Qt::LeftDockWidgetArea:
        return Qt::RightDockWidgetArea;
    case Qt::RightDockWidgetArea:
        return Qt::LeftDockWidgetArea;
    case Qt::TopDockWidgetArea:
        return Qt::BottomDockWidgetArea;
    default:
        return Qt::TopDockWidgetArea;
    }
}

/// Brings the tab of that title to the front, as a click does.
void chooseTab(const QString &title)
{
    const QList<QTabBar *> bars =
        window()->findChildren<QTabBar *>(QString(), Qt::FindDirectChildrenOnly);
    for (QTabBar *bar : bars) {
        for (int i = 0; i < bar->count(); ++i) {
            if (bar->tabText(i) == title)
                bar->setCurrentIndex(i);
        }
    }
}

} // namespace

class TestDockLayout final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void panelsOfAnAreaAreTabsInTheOrderOfTheirPriorities_data();
    void panelsOfAnAreaAreTabsInTheOrderOfTheirPriorities();
    void panelsAddedBeforeTheWindowIsShown_data();
    void panelsAddedBeforeTheWindowIsShown();
    void panelShownBeforeTheWindowIsShown_data();
    void panelShownBeforeTheWindowIsShown();
    void equalPrioritiesKeepTheOrderOfAdding();
    void anyNumberIsAPriority();
    void prioritiesAreAskedAtEachLayout();
    void draggedPanelsComeBack_data();
    void draggedPanelsComeBack();
    void splitPanelsBecomeTabsAgain();
    void hiddenPanelsAreShownAgain();
    void floatingFirstPanelLeadsItsGroup();
    void firstPanelComesToTheFront();
    void panelDraggedInFromElsewhereGoesHome();
    void layingOutOneAreaLeavesTheOthers();
    void layingOutAnEmptyAreaDoesNothing();
    void foreignDocksAreLeftAlone();
    void sizesOfTheAreasStay();
    void allAreasAreResetInOrder();
    void commandResetsTheLayout();
    void resetLayoutIsASlotOfThatName();
    void everySequenceEndsInTheSameLayout();

private:
    std::unique_ptr<CoreFixture> m_core;
};

void TestDockLayout::init()
{
    m_core = std::make_unique<CoreFixture>();
    m_core->show();
}

void TestDockLayout::cleanup()
{
    m_core.reset();
}

void TestDockLayout::panelsOfAnAreaAreTabsInTheOrderOfTheirPriorities_data()
{
    QTest::addColumn<Qt::DockWidgetArea>("area");
    QTest::addColumn<QVector<int>>("added");
    const std::pair<const char *, Qt::DockWidgetArea> areas[] = {
        {"left", Qt::LeftDockWidgetArea},
        {"right", Qt::RightDockWidgetArea},
        {"top", Qt::TopDockWidgetArea},
        {"bottom", Qt::BottomDockWidgetArea}};
    for (const auto &[name, area] : areas) {
        QVector<int> added{10, 50, 90};
        do {
            QTest::addRow("%s: %d, %d, %d", name, added.at(0), added.at(1), added.at(2))
                << area << added;
        } while (std::next_permutation(added.begin(), added.end()));
    }
}

void TestDockLayout::panelsOfAnAreaAreTabsInTheOrderOfTheirPriorities()
{
    QFETCH(const Qt::DockWidgetArea, area);
    QFETCH(const QVector<int>, added);

    for (const int priority : added)
        addTestPanel(qPrintable(QString::number(priority)), area, priority);

    QTRY_COMPARE(dockGroups(area), texts({"[90] 50 10"}));
    QCOMPARE(docks().size(), 3);
}

void TestDockLayout::panelsAddedBeforeTheWindowIsShown_data()
{
    panelsOfAnAreaAreTabsInTheOrderOfTheirPriorities_data();
}

void TestDockLayout::panelsAddedBeforeTheWindowIsShown()
{
    QFETCH(const Qt::DockWidgetArea, area);
    QFETCH(const QVector<int>, added);
    m_core.reset();
    m_core = std::make_unique<CoreFixture>();
    for (const int priority : added)
        addTestPanel(qPrintable(QString::number(priority)), area, priority);

    m_core->show();

    QTRY_COMPARE(dockGroups(area), texts({"[90] 50 10"}));
}

void TestDockLayout::panelShownBeforeTheWindowIsShown_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("groups");
    QTest::newRow("first") << QStringLiteral("90") << QStringLiteral("[90] 50 10");
    QTest::newRow("second") << QStringLiteral("50") << QStringLiteral("90 [50] 10");
    QTest::newRow("third") << QStringLiteral("10") << QStringLiteral("90 50 [10]");
}

void TestDockLayout::panelShownBeforeTheWindowIsShown()
{
    QFETCH(const QString, name);
    QFETCH(const QString, groups);
    m_core.reset();
    m_core = std::make_unique<CoreFixture>();
    for (const int priority : {10, 90, 50}) {
        addTestPanel(qPrintable(QString::number(priority)), Qt::BottomDockWidgetArea, priority);
    }
    ViewManager::hidePanel(name);
    ViewManager::showPanel(name);

    m_core->show();

    QTRY_COMPARE(dockGroups(Qt::BottomDockWidgetArea), QStringList{groups});
}

void TestDockLayout::equalPrioritiesKeepTheOrderOfAdding()
{
    // More than a sort needs to be stable by chance.
    QStringList expected;
    for (int i = 0; i < 20; ++i) {
        const QString name = QStringLiteral("p%1").arg((i * 7) % 20);
        addTestPanel(qPrintable(name), Qt::BottomDockWidgetArea);
        expected.append(i == 0 ? QLatin1Char('[') + name + QLatin1Char(']') : name);
    }

    QTRY_COMPARE(dockGroups(Qt::BottomDockWidgetArea),
                 QStringList{expected.join(QLatin1Char(' '))});
}

void TestDockLayout::anyNumberIsAPriority()
{
    addTestPanel("least", Qt::LeftDockWidgetArea, std::numeric_limits<int>::min());
    addTestPanel("most", Qt::LeftDockWidgetArea, std::numeric_limits<int>::max());
    addTestPanel("negative", Qt::LeftDockWidgetArea, -1);
    addTestPanel("none", Qt::LeftDockWidgetArea, 0);

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[most] none negative least"}));
}

void TestDockLayout::prioritiesAreAskedAtEachLayout()
{
    TestPanel *panel = addTestPanel("a", Qt::LeftDockWidgetArea, 10);
    addTestPanel("b", Qt::LeftDockWidgetArea, 20);
    panel->priority = 30;

    ViewManager::instance()->resetDockLayout(Qt::LeftDockWidgetArea);

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[a] b"}));
}

void TestDockLayout::draggedPanelsComeBack_data()
{
    areaRows();
}

void TestDockLayout::draggedPanelsComeBack()
{
    QFETCH(const Qt::DockWidgetArea, area);
    const TestPanel *first = addTestPanel("90", area, 90);
    const TestPanel *second = addTestPanel("50", area, 50);
    const TestPanel *third = addTestPanel("10", area, 10);
    window()->addDockWidget(opposite(area), dockOf(first));
    dockOf(second)->setFloating(true);
    window()->addDockWidget(opposite(area), dockOf(third));
    QTRY_VERIFY(dockGroups(area).isEmpty());

    ViewManager::resetLayout();

    QTRY_COMPARE(dockGroups(area), texts({"[90] 50 10"}));
    QTRY_VERIFY(dockGroups(opposite(area)).isEmpty());
    QVERIFY(!dockOf(second)->isFloating());
}

void TestDockLayout::splitPanelsBecomeTabsAgain()
{
    const TestPanel *first = addTestPanel("90", Qt::LeftDockWidgetArea, 90);
    addTestPanel("50", Qt::LeftDockWidgetArea, 50);
    addTestPanel("10", Qt::LeftDockWidgetArea, 10);
    window()->addDockWidget(Qt::LeftDockWidgetArea, dockOf(first), Qt::Vertical);
    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea).size(), 2);

    ViewManager::resetLayout();

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[90] 50 10"}));
}

void TestDockLayout::hiddenPanelsAreShownAgain()
{
    ViewManager::hidePanel(addTestPanel("90", Qt::LeftDockWidgetArea, 90));
    ViewManager::hidePanel(addTestPanel("50", Qt::LeftDockWidgetArea, 50));

    ViewManager::resetLayout();

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[90] 50"}));
}

void TestDockLayout::floatingFirstPanelLeadsItsGroup()
{
    const TestPanel *first = addTestPanel("90", Qt::RightDockWidgetArea, 90);
    addTestPanel("50", Qt::RightDockWidgetArea, 50);
    addTestPanel("10", Qt::RightDockWidgetArea, 10);
    dockOf(first)->setFloating(true);
    QTRY_COMPARE(dockGroups(Qt::RightDockWidgetArea), texts({"[50] 10"}));

    ViewManager::resetLayout();

    QTRY_COMPARE(dockGroups(Qt::RightDockWidgetArea), texts({"[90] 50 10"}));
}

void TestDockLayout::firstPanelComesToTheFront()
{
    const TestPanel *first = addTestPanel("90", Qt::BottomDockWidgetArea, 90);
    TestPanel *last = addTestPanel("10", Qt::BottomDockWidgetArea, 10);
    ViewManager::showPanel(last);
    QTRY_COMPARE(dockGroups(Qt::BottomDockWidgetArea), texts({"90 [10]"}));

    ViewManager::resetLayout();

    QTRY_COMPARE(dockGroups(Qt::BottomDockWidgetArea), texts({"[90] 10"}));
    QTRY_VERIFY(!dockOf(first)->visibleRegion().isEmpty());
    QVERIFY(dockOf(last)->visibleRegion().isEmpty());
}

void TestDockLayout::panelDraggedInFromElsewhereGoesHome()
{
    const TestPanel *guest = addTestPanel("guest", Qt::TopDockWidgetArea, 90);
    const TestPanel *host = addTestPanel("host", Qt::LeftDockWidgetArea, 10);
    window()->tabifyDockWidget(dockOf(host), dockOf(guest));
    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea).size(), 1);

    ViewManager::resetLayout();

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[host]"}));
    QTRY_COMPARE(dockGroups(Qt::TopDockWidgetArea), texts({"[guest]"}));
}

void TestDockLayout::layingOutOneAreaLeavesTheOthers()
{
    const TestPanel *left = addTestPanel("left", Qt::LeftDockWidgetArea);
    const TestPanel *right = addTestPanel("right", Qt::RightDockWidgetArea);
    dockOf(left)->setFloating(true);
    dockOf(right)->setFloating(true);

    ViewManager::instance()->resetDockLayout(Qt::LeftDockWidgetArea);

    QVERIFY(!dockOf(left)->isFloating());
    QVERIFY(dockOf(right)->isFloating());
}

void TestDockLayout::layingOutAnEmptyAreaDoesNothing()
{
    const TestPanel *guest = addTestPanel("guest", Qt::TopDockWidgetArea);
    window()->addDockWidget(Qt::LeftDockWidgetArea, dockOf(guest));

    ViewManager::instance()->resetDockLayout(Qt::LeftDockWidgetArea);

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[guest]"}));
}

void TestDockLayout::foreignDocksAreLeftAlone()
{
    addTestPanel("panel", Qt::LeftDockWidgetArea);
    auto *foreign = new QDockWidget(QStringLiteral("foreign"), window());
    foreign->setObjectName(QStringLiteral("panel"));
    foreign->setWidget(new TestPanel(QStringLiteral("panel"), Qt::RightDockWidgetArea));
    window()->addDockWidget(Qt::LeftDockWidgetArea, foreign);

    ViewManager::resetLayout();

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea).size(), 2);
    QVERIFY(dockGroups(Qt::RightDockWidgetArea).isEmpty());
}

void TestDockLayout::sizesOfTheAreasStay()
{
    const TestPanel *left = addTestPanel("left", Qt::LeftDockWidgetArea);
    const TestPanel *bottom = addTestPanel("bottom", Qt::BottomDockWidgetArea);
    addTestPanel("left 2", Qt::LeftDockWidgetArea);
    window()->resizeDocks({dockOf(left)}, {317}, Qt::Horizontal);
    window()->resizeDocks({dockOf(bottom)}, {223}, Qt::Vertical);
    QTRY_COMPARE(dockOf(left)->width(), 317);
    QTRY_COMPARE(dockOf(bottom)->height(), 223);

    ViewManager::resetLayout();
    QCoreApplication::processEvents();

    QTRY_COMPARE(dockOf(left)->width(), 317);
    QTRY_COMPARE(dockOf(bottom)->height(), 223);
}

void TestDockLayout::allAreasAreResetInOrder()
{
    QStringList order;
    const std::pair<const char *, Qt::DockWidgetArea> areas[] = {
        {"left", Qt::LeftDockWidgetArea},
        {"right", Qt::RightDockWidgetArea},
        {"top", Qt::TopDockWidgetArea},
        {"bottom", Qt::BottomDockWidgetArea}};
    for (const auto &[name, area] : areas) {
        TestPanel *panel = addTestPanel(name, area);
        panel->whenShown = [&order, panel] { order.append(panel->name()); };
    }

    ViewManager::resetLayout();

    QCOMPARE(order, texts({"bottom", "top", "left", "right"}));
}

void TestDockLayout::commandResetsTheLayout()
{
    const TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    dockOf(panel)->setFloating(true);
    const QList<QAction *> entries =
        Core::ActionManager::menu(QStringLiteral("Core.Menu.Window"))->actions();
    const auto command = std::find_if(entries.cbegin(), entries.cend(), [](const QAction *entry) {
        return entry->text() == QLatin1String("Reset Layout");
    });
    QVERIFY(command != entries.cend());

    (*command)->trigger();

    QTRY_COMPARE(dockGroups(Qt::LeftDockWidgetArea), texts({"[p]"}));
}

void TestDockLayout::resetLayoutIsASlotOfThatName()
{
    const TestPanel *panel = addTestPanel("p", Qt::LeftDockWidgetArea);
    dockOf(panel)->setFloating(true);

    QVERIFY(QMetaObject::invokeMethod(ViewManager::instance(), "onActResetLayout"));

    QVERIFY(!dockOf(panel)->isFloating());
}

void TestDockLayout::everySequenceEndsInTheSameLayout()
{
    QRandomGenerator random(20);
    QList<TestPanel *> panels;
    const Qt::DockWidgetArea areas[] = {Qt::LeftDockWidgetArea, Qt::RightDockWidgetArea,
                                        Qt::TopDockWidgetArea, Qt::BottomDockWidgetArea};
    const auto anyArea = [&] { return areas[random.bounded(4)]; };
    for (int i = 0; i < 6; ++i) {
        // Two areas only, so that there is something to sort.
        panels.append(addTestPanel(qPrintable(QStringLiteral("p%1").arg(i)),
                                   areas[random.bounded(2)], random.bounded(3)));
    }
    for (int round = 0; round < 40; ++round) {
        QStringList steps;
        for (int step = 0; step < 5; ++step) {
            TestPanel *panel = panels.at(random.bounded(panels.size()));
            QDockWidget *dock = dockOf(panel);
            const int act = random.bounded(6);
            steps.append(QStringLiteral("%1 of %2").arg(act).arg(panel->name()));
            switch (act) {
            case 0:
                dock->setFloating(!dock->isFloating());
                break;
            case 1:
                ViewManager::hidePanel(panel);
                break;
            case 2:
                ViewManager::showPanel(panel);
                break;
            case 3:
                window()->addDockWidget(anyArea(), dock);
                break;
            case 4: {
                QDockWidget *other = dockOf(panels.at(random.bounded(panels.size())));
                if (other != dock && !other->isFloating() && !dock->isFloating())
                    window()->tabifyDockWidget(other, dock);
                break;
            }
            default:
                chooseTab(dock->windowTitle());
            }
            if (random.bounded(2))
                QCoreApplication::processEvents();
        }

        ViewManager::resetLayout();

        for (const Qt::DockWidgetArea area : areas) {
            QList<const TestPanel *> sorted;
            for (const TestPanel *panel : qAsConst(panels)) {
                if (panel->area() == area)
                    sorted.append(panel);
            }
            std::stable_sort(sorted.begin(), sorted.end(), [](auto *one, auto *other) {
                return one->priority > other->priority;
            });
            QStringList names;
            for (const TestPanel *panel : qAsConst(sorted))
                names.append(panel->name());
            QStringList expected;
            if (!names.isEmpty()) {
                names.first() = QLatin1Char('[') + names.constFirst() + QLatin1Char(']');
                expected.append(names.join(QLatin1Char(' ')));
            }
            QTRY_VERIFY2(dockGroups(area) == expected,
                         qPrintable(QStringLiteral("round %1: %2 instead of %3 after %4")
                                        .arg(round)
                                        .arg(dockGroups(area).join(QStringLiteral(" | ")),
                                             expected.join(QStringLiteral(" | ")),
                                             steps.join(QStringLiteral(", ")))));
        }
    }
}

QTEST_MAIN(TestDockLayout)
#include "tst_docklayout.moc"
