// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Views that close one another or themselves, and views and sub-windows that are
// destroyed without having been closed.

#include "support/corefixture.h"
#include "support/messagerecorder.h"
#include "support/testview.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>
#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <memory>
#include <utility>

using Core::IView;
using Core::ViewManager;

namespace {

TestView *show(const char *title, QStringList *journal = nullptr)
{
    auto *view = new TestView(QString::fromUtf8(title), journal);
    ViewManager::showView(view);
    return view;
}

Utils::MdiArea *area()
{
    return ViewManager::mainWindow()->documentArea();
}

Utils::MdiSubWindow *windowOf(const IView *view)
{
    const QList<Utils::MdiSubWindow *> windows = area()->subWindows();
    for (Utils::MdiSubWindow *window : windows) {
        if (window->widget() == view)
            return window;
    }
    return nullptr;
}

/// The views in the Window menu as it opens.
QStringList listedViews()
{
    const QMenu *menu = Core::ActionManager::menu(QStringLiteral("Core.Menu.Window"));
    Q_EMIT const_cast<QMenu *>(menu)->aboutToShow();
    return menuEntries(menu).mid(9);
}

bool closeAllIsEnabled()
{
    const QList<QAction *> actions =
        Core::ActionManager::menu(QStringLiteral("Core.Menu.File"))->actions();
    for (const QAction *action : actions) {
        if (action->text() == QLatin1String("Close All"))
            return action->isEnabled();
    }
    return false;
}

void closeAllCommand()
{
    ViewManager::instance()->onActCloseAll();
}

} // namespace

class TestLostViews final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void viewClosesAnotherInCloseView();
    void viewClosesAnotherInCloseAllViews();
    void viewClosesAnotherInCloseAllCommand();
    void viewThatClosedAnotherMayRefuse();
    void viewClosesItselfInCloseView();
    void viewClosesItselfInCloseAllViews();
    void viewClosesItselfInCloseAllCommand();
    void viewRemovesItselfWhileClosing();
    void viewRemovesAnotherWhileClosing();
    void viewsCloseOneAnother();
    void viewClosedByWhoeverIsToldOfItsActivation();
    void windowDestroyedByWhoeverIsToldOfItsActivation();
    void viewClosedWhileAnotherIsDeactivated();
    void viewShownWhileAnotherCloses();

    void destroyedView();
    void destroyedCurrentView();
    void destroyedLastView();
    void destroyedViewIsNotReportedAsClosed();
    void destroyedSubWindow();
    void destroyedCurrentSubWindow();
    void destroyedLastSubWindow();
    void viewTakenOutByANewParent();
    void removedViewDestroyedAtOnce();
    void destroyedInEveryOrder_data();
    void destroyedInEveryOrder();
    void entryOfADestroyedWindowInAnOpenMenu();
    void viewShownAgainAfterItWasTakenOut();
    void viewThatWasTakenOutIsNoLongerWatched();
    void removedViewOutlivesTheManager();

private:
    std::unique_ptr<CoreFixture> m_core;
    QList<IView *> m_closed;
};

void TestLostViews::init()
{
    m_core = std::make_unique<CoreFixture>();
    m_closed.clear();
    connect(ViewManager::instance(), &ViewManager::viewClosed, this,
            [this](IView *view) { m_closed.append(view); });
}

void TestLostViews::cleanup()
{
    m_core.reset();
}

void TestLostViews::viewClosesAnotherInCloseView()
{
    TestView *first = show("first");
    TestView *second = show("second");
    second->whileClosing = [first] { QVERIFY(ViewManager::closeView(first)); };

    QVERIFY(ViewManager::closeView(second));

    QCOMPARE(first->asked, 1);
    QCOMPARE(m_closed, (QList<IView *>{first, second}));
    QCOMPARE(listedViews(), QStringList());
}

void TestLostViews::viewClosesAnotherInCloseAllViews()
{
    TestView *first = show("first");
    TestView *second = show("second");
    show("third")->whileClosing = [first] { ViewManager::closeView(first); };

    QVERIFY(ViewManager::closeAllViews());

    QCOMPARE(first->asked, 1);
    QCOMPARE(second->asked, 1);
    QCOMPARE(m_closed.size(), 3);
    QCOMPARE(listedViews(), QStringList());
}

void TestLostViews::viewClosesAnotherInCloseAllCommand()
{
    TestView *first = show("first");
    TestView *second = show("second");
    TestView *third = show("third");
    first->whileClosing = [second] { ViewManager::closeView(second); };

    closeAllCommand();

    QCOMPARE(second->asked, 1);
    QCOMPARE(third->asked, 1);
    QCOMPARE(m_closed, (QList<IView *>{second, first, third}));
    QCOMPARE(listedViews(), QStringList());
}

void TestLostViews::viewThatClosedAnotherMayRefuse()
{
    TestView *first = show("first");
    TestView *second = show("second");
    second->refuseClose = true;
    second->whileClosing = [first] { ViewManager::closeView(first); };

    QVERIFY(!ViewManager::closeAllViews());

    QCOMPARE(m_closed, QList<IView *>{first});
    QCOMPARE(listedViews(), texts({"[x] second"}));
}

void TestLostViews::viewClosesItselfInCloseView()
{
    TestView *view = show("view");
    view->whileClosing = [view] { ViewManager::closeView(view); };

    QVERIFY(ViewManager::closeView(view));

    QCOMPARE(m_closed, QList<IView *>{view});
    QCOMPARE(view->asked, 1);
    QCOMPARE(listedViews(), QStringList());
}

void TestLostViews::viewClosesItselfInCloseAllViews()
{
    show("first");
    TestView *view = show("view");
    view->whileClosing = [view] { ViewManager::closeView(view); };

    QVERIFY(ViewManager::closeAllViews());

    QCOMPARE(m_closed.size(), 2);
    QCOMPARE(listedViews(), QStringList());
}

void TestLostViews::viewClosesItselfInCloseAllCommand()
{
    TestView *view = show("view");
    show("last");
    view->whileClosing = [view] { ViewManager::closeView(view); };

    closeAllCommand();

    QCOMPARE(m_closed.size(), 2);
    QCOMPARE(listedViews(), QStringList());
}

void TestLostViews::viewRemovesItselfWhileClosing()
{
    TestView *first = show("first");
    const QPointer<TestView> view = show("view");
    view->whileClosing = [&view] { ViewManager::removeView(view); };

    ViewManager::closeView(view);

    QCOMPARE(listedViews(), texts({"[x] first"}));
    QCOMPARE(ViewManager::currentView(), first);
    QTRY_VERIFY(!view);
    QCOMPARE(listedViews(), texts({"[x] first"}));
}

void TestLostViews::viewRemovesAnotherWhileClosing()
{
    const QPointer<TestView> first = show("first");
    show("second")->whileClosing = [&first] { ViewManager::removeView(first); };

    QVERIFY(ViewManager::closeAllViews());

    QCOMPARE(listedViews(), QStringList());
    QCOMPARE(first->asked, 0);
    QTRY_VERIFY(!first);
}

void TestLostViews::viewsCloseOneAnother()
{
    TestView *first = show("first");
    TestView *second = show("second");
    first->whileClosing = [second] { ViewManager::closeView(second); };
    second->whileClosing = [first] { ViewManager::closeView(first); };

    QVERIFY(ViewManager::closeAllViews());

    QCOMPARE(m_closed.size(), 2);
    QCOMPARE(listedViews(), QStringList());
}

void TestLostViews::viewClosedByWhoeverIsToldOfItsActivation()
{
    TestView *first = show("first");
    show("second");
    bool told = false; // closing activates once more
    connect(ViewManager::instance(), &ViewManager::viewActiveted, this, [&](IView *view) {
        if (view == first && !std::exchange(told, true))
            ViewManager::closeView(first);
    });

    QVERIFY(ViewManager::closeView(first));

    QCOMPARE(first->asked, 1);
    QCOMPARE(m_closed, QList<IView *>{first});
    QCOMPARE(listedViews(), texts({"[x] second"}));
}

void TestLostViews::windowDestroyedByWhoeverIsToldOfItsActivation()
{
    TestView *first = show("first");
    show("second");
    connect(ViewManager::instance(), &ViewManager::viewActiveted, this, [](IView *view) {
        if (view && view->objectName() == QLatin1String("first"))
            delete windowOf(view);
    });

    ViewManager::showView(first);

    QCOMPARE(listedViews(), texts({"[x] second"}));
}

void TestLostViews::viewClosedWhileAnotherIsDeactivated()
{
    TestView *first = show("first");
    TestView *second = show("second");
    second->whileDeactivated = [first, second] {
        second->whileDeactivated = nullptr;
        ViewManager::closeView(first);
    };

    ViewManager::showView(first);

    QCOMPARE(ViewManager::currentView(), second);
    QCOMPARE(area()->currentWindow()->widget(), second);
    QCOMPARE(listedViews(), texts({"[x] second"}));
}

void TestLostViews::viewShownWhileAnotherCloses()
{
    TestView *late = nullptr;
    TestView *first = show("first");
    first->whileClosing = [&late] { late = show("late"); };

    QVERIFY(ViewManager::closeView(first));

    QCOMPARE(listedViews(), texts({"[x] late"}));
    QCOMPARE(ViewManager::currentView(), late);
}

void TestLostViews::destroyedView()
{
    TestView *first = show("first");
    TestView *second = show("second");

    delete first;

    QCOMPARE(listedViews(), texts({"[x] second"}));
    QCOMPARE(ViewManager::currentView(), second);
    QCOMPARE(area()->subWindows(), QList<Utils::MdiSubWindow *>{windowOf(second)});
}

void TestLostViews::destroyedCurrentView()
{
    TestView *first = show("first");
    TestView *second = show("second");

    delete second;

    QCOMPARE(ViewManager::currentView(), first);
    QCOMPARE(listedViews(), texts({"[x] first"}));
    QVERIFY(closeAllIsEnabled());
}

void TestLostViews::destroyedLastView()
{
    TestView *view = show("view");

    delete view;

    QCOMPARE(ViewManager::currentView(), nullptr);
    QCOMPARE(listedViews(), QStringList());
    QVERIFY(!closeAllIsEnabled());
    QVERIFY(area()->subWindows().isEmpty());
}

void TestLostViews::destroyedViewIsNotReportedAsClosed()
{
    TestView *view = show("view");
    show("second");

    delete view;
    delete windowOf(ViewManager::currentView());

    QVERIFY(m_closed.isEmpty());
}

void TestLostViews::destroyedSubWindow()
{
    const QPointer<TestView> first = show("first");
    show("second");

    delete windowOf(first);

    QVERIFY(!first);
    QCOMPARE(listedViews(), texts({"[x] second"}));
}

void TestLostViews::destroyedCurrentSubWindow()
{
    TestView *first = show("first");
    TestView *second = show("second");

    delete windowOf(second);

    QCOMPARE(ViewManager::currentView(), first);
    QCOMPARE(listedViews(), texts({"[x] first"}));
}

void TestLostViews::destroyedLastSubWindow()
{
    TestView *view = show("view");

    delete windowOf(view);

    QCOMPARE(ViewManager::currentView(), nullptr);
    QCOMPARE(listedViews(), QStringList());
    QVERIFY(!closeAllIsEnabled());
}

void TestLostViews::viewTakenOutByANewParent()
{
    show("first");
    TestView *second = show("second");

    second->setParent(nullptr);

    QTRY_COMPARE(listedViews(), texts({"[x] first"}));
    QCOMPARE(ViewManager::currentView()->objectName(), QStringLiteral("first"));
    QVERIFY(!ViewManager::closeView(second));
    delete second;
    QCOMPARE(listedViews(), texts({"[x] first"}));
}

void TestLostViews::removedViewDestroyedAtOnce()
{
    show("first");
    TestView *second = show("second");

    ViewManager::removeView(second);
    delete second;

    QCOMPARE(listedViews(), texts({"[x] first"}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(listedViews(), texts({"[x] first"}));
}

void TestLostViews::destroyedInEveryOrder_data()
{
    QTest::addColumn<QList<int>>("order");
    QTest::addColumn<bool>("windows");

    QList<int> order{0, 1, 2};
    do {
        const QString name = QStringLiteral("%1%2%3").arg(order[0]).arg(order[1]).arg(order[2]);
        QTest::newRow(qPrintable(name + QStringLiteral(" views"))) << order << false;
        QTest::newRow(qPrintable(name + QStringLiteral(" windows"))) << order << true;
    } while (std::next_permutation(order.begin(), order.end()));
}

void TestLostViews::destroyedInEveryOrder()
{
    QFETCH(QList<int>, order);
    QFETCH(bool, windows);
    const QList<TestView *> views{show("0"), show("1"), show("2")};
    QStringList left = texts({"0", "1", "2"});

    for (const int index : qAsConst(order)) {
        TestView *view = views.at(index);
        if (windows)
            delete windowOf(view);
        else
            delete view;
        left.removeOne(QString::number(index));
        QCOMPARE(area()->subWindows().size(), left.size());
        QCOMPARE(listedViews().replaceInStrings(QRegularExpression(QStringLiteral("^\\[.\\] ")),
                                                QString()),
                 left);
        QCOMPARE(ViewManager::currentView() != nullptr, !left.isEmpty());
    }
}

void TestLostViews::entryOfADestroyedWindowInAnOpenMenu()
{
    TestView *first = show("first");
    TestView *second = show("second");
    QMenu *menu = Core::ActionManager::menu(QStringLiteral("Core.Menu.Window"));
    Q_EMIT menu->aboutToShow();
    QAction *entry = menu->actions().at(9);
    QCOMPARE(entry->text(), QStringLiteral("first"));

    delete first;
    entry->trigger();

    QCOMPARE(ViewManager::currentView(), second);
}

void TestLostViews::viewShownAgainAfterItWasTakenOut()
{
    TestView *view = show("view");
    view->setParent(nullptr);
    QTRY_COMPARE(listedViews(), QStringList());

    ViewManager::showView(view);

    QCOMPARE(listedViews(), texts({"[x] view"}));
    QVERIFY(ViewManager::closeView(view));
    QCOMPARE(m_closed, QList<IView *>{view});
}

void TestLostViews::viewThatWasTakenOutIsNoLongerWatched()
{
    const std::unique_ptr<TestView> view(show("view"));
    QVERIFY(view->isWatched());
    view->setParent(nullptr);

    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    // Another window may lie where its own did, and would go with it.
    QVERIFY(!view->isWatched());
}

void TestLostViews::removedViewOutlivesTheManager()
{
    const QPointer<TestView> view = show("view");
    ViewManager::removeView(view);

    m_core.reset();
    QVERIFY(view);

    QTRY_VERIFY(!view);
}

QTEST_MAIN(TestLostViews)
#include "tst_lostviews.moc"
