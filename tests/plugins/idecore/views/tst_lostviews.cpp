// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Views that close one another or themselves, and views and sub-windows that are
// destroyed without having been closed.

#include "support/corefixture.h"
#include "support/documents.h"
#include "support/messagerecorder.h"

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

using Close = void (*)(IView *);
Q_DECLARE_METATYPE(Close)

namespace {

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
    void viewClosedInTheCommandByWhoeverIsToldOfItsActivation();
    void windowDestroyedByWhoeverIsToldOfItsActivation();
    void viewClosedWhileAnotherIsDeactivated();
    void viewShownWhileAnotherIsDeactivated();
    void viewShownWhileAnotherCloses();
    void viewDestroyedWhileClosing_data();
    void viewDestroyedWhileClosing();
    void windowDestroyedWhileItsViewIsRemoved();

    void destroyedView();
    void destroyedCurrentView();
    void destroyedLastView();
    void destroyedLastViewBehindAnotherWindow();
    void destroyedViewIsNotReportedAsClosed();
    void destroyedSubWindow();
    void destroyedCurrentSubWindow();
    void destroyedLastSubWindow();
    void viewTakenOutByANewParent();
    void viewTakenOutIsForgottenAtOnce();
    void viewTakenOutIntoTheMainWindow();
    void windowWithoutAWidgetIsNotListed();
    void removedViewDestroyedAtOnce();
    void destroyedInEveryOrder_data();
    void destroyedInEveryOrder();
    void entryOfADestroyedWindowInAnOpenMenu();
    void viewShownAgainAtOnceAfterItWasTakenOut();
    void viewShownAgainAfterItWasTakenOut();
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
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");
    second->whileClosing = [first] { QVERIFY(ViewManager::closeView(first)); };

    QVERIFY(ViewManager::closeView(second));

    QCOMPARE(first->asked, 1);
    QCOMPARE(m_closed, (QList<IView *>{first, second}));
    QCOMPARE(listedViews(), QStringList());
}

void TestLostViews::viewClosesAnotherInCloseAllViews()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");
    showTestView("third")->whileClosing = [first] { ViewManager::closeView(first); };

    QVERIFY(ViewManager::closeAllViews());

    QCOMPARE(first->asked, 1);
    QCOMPARE(second->asked, 1);
    QCOMPARE(m_closed.size(), 3);
    QCOMPARE(listedViews(), QStringList());
}

void TestLostViews::viewClosesAnotherInCloseAllCommand()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");
    TestView *third = showTestView("third");
    first->whileClosing = [second] { ViewManager::closeView(second); };

    closeAllCommand();

    QCOMPARE(second->asked, 1);
    QCOMPARE(third->asked, 1);
    QCOMPARE(m_closed, (QList<IView *>{second, first, third}));
    QCOMPARE(listedViews(), QStringList());
}

void TestLostViews::viewThatClosedAnotherMayRefuse()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");
    second->refuseClose = true;
    second->whileClosing = [first] { ViewManager::closeView(first); };

    QVERIFY(!ViewManager::closeAllViews());

    QCOMPARE(m_closed, QList<IView *>{first});
    QCOMPARE(listedViews(), texts({"[x] second"}));
}

void TestLostViews::viewClosesItselfInCloseView()
{
    TestView *view = showTestView("view");
    view->whileClosing = [view] { ViewManager::closeView(view); };

    QVERIFY(ViewManager::closeView(view));

    QCOMPARE(m_closed, QList<IView *>{view});
    QCOMPARE(view->asked, 1);
    QCOMPARE(listedViews(), QStringList());
}

void TestLostViews::viewClosesItselfInCloseAllViews()
{
    showTestView("first");
    TestView *view = showTestView("view");
    view->whileClosing = [view] { ViewManager::closeView(view); };

    QVERIFY(ViewManager::closeAllViews());

    QCOMPARE(m_closed.size(), 2);
    QCOMPARE(listedViews(), QStringList());
}

void TestLostViews::viewClosesItselfInCloseAllCommand()
{
    TestView *view = showTestView("view");
    showTestView("last");
    view->whileClosing = [view] { ViewManager::closeView(view); };

    closeAllCommand();

    QCOMPARE(m_closed.size(), 2);
    QCOMPARE(listedViews(), QStringList());
}

void TestLostViews::viewRemovesItselfWhileClosing()
{
    TestView *first = showTestView("first");
    const QPointer<TestView> view = showTestView("view");
    view->whileClosing = [&view] { ViewManager::removeView(view); };

    ViewManager::closeView(view);

    QCOMPARE(listedViews(), texts({"[x] first"}));
    QCOMPARE(ViewManager::currentView(), first);
    QTRY_VERIFY(!view);
    QCOMPARE(listedViews(), texts({"[x] first"}));
}

void TestLostViews::viewRemovesAnotherWhileClosing()
{
    const QPointer<TestView> first = showTestView("first");
    showTestView("second")->whileClosing = [&first] { ViewManager::removeView(first); };

    QVERIFY(ViewManager::closeAllViews());

    QCOMPARE(listedViews(), QStringList());
    QCOMPARE(first->asked, 0);
    QTRY_VERIFY(!first);
}

void TestLostViews::viewsCloseOneAnother()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");
    first->whileClosing = [second] { ViewManager::closeView(second); };
    second->whileClosing = [first] { ViewManager::closeView(first); };

    QVERIFY(ViewManager::closeAllViews());

    QCOMPARE(m_closed.size(), 2);
    QCOMPARE(listedViews(), QStringList());
}

void TestLostViews::viewClosedByWhoeverIsToldOfItsActivation()
{
    TestView *first = showTestView("first");
    showTestView("second");
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

void TestLostViews::viewClosedInTheCommandByWhoeverIsToldOfItsActivation()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");
    second->refuseClose = true;
    bool told = false; // closing activates once more
    connect(ViewManager::instance(), &ViewManager::viewActiveted, this, [&](IView *view) {
        if (view == first && !std::exchange(told, true))
            ViewManager::closeView(first);
    });

    closeAllCommand();

    QCOMPARE(first->asked, 1);
    QCOMPARE(second->asked, 1);
    QCOMPARE(m_closed, QList<IView *>{first});
}

void TestLostViews::windowDestroyedByWhoeverIsToldOfItsActivation()
{
    TestView *first = showTestView("first");
    showTestView("second");
    connect(ViewManager::instance(), &ViewManager::viewActiveted, this, [](IView *view) {
        if (view && view->objectName() == QLatin1String("first"))
            delete windowOf(view);
    });

    ViewManager::showView(first);

    QCOMPARE(listedViews(), texts({"[x] second"}));
}

void TestLostViews::viewClosedWhileAnotherIsDeactivated()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");
    second->whileDeactivated = [first, second] {
        second->whileDeactivated = nullptr;
        ViewManager::closeView(first);
    };

    ViewManager::showView(first);

    QCOMPARE(ViewManager::currentView(), second);
    QCOMPARE(documentArea()->currentWindow()->widget(), second);
    QCOMPARE(listedViews(), texts({"[x] second"}));
}

void TestLostViews::viewShownWhileAnotherIsDeactivated()
{
    QStringList journal;
    TestView *first = showTestView("first", &journal);
    TestView *second = showTestView("second", &journal);
    TestView *third = nullptr;
    second->whileDeactivated = [&] {
        second->whileDeactivated = nullptr;
        third = showTestView("third", &journal);
    };
    QList<IView *> reported;
    connect(ViewManager::instance(), &ViewManager::viewActiveted, this,
            [&reported](IView *view) { reported.append(view); });
    journal.clear();

    ViewManager::showView(first);

    QCOMPARE(documentArea()->currentWindow()->widget(), third);
    QCOMPARE(ViewManager::currentView(), third);
    QCOMPARE(reported, QList<IView *>{third});
    QVERIFY(!journal.contains(QStringLiteral("first activated")));
}

void TestLostViews::viewShownWhileAnotherCloses()
{
    TestView *late = nullptr;
    TestView *first = showTestView("first");
    first->whileClosing = [&late] { late = showTestView("late"); };

    QVERIFY(ViewManager::closeView(first));

    QCOMPARE(listedViews(), texts({"[x] late"}));
    QCOMPARE(ViewManager::currentView(), late);
}

void TestLostViews::viewDestroyedWhileClosing_data()
{
    QTest::addColumn<bool>("window");
    QTest::addColumn<Close>("close");

    const Close closeView = [](IView *view) { ViewManager::closeView(view); };
    const Close closeAllViews = [](IView *) { QVERIFY(ViewManager::closeAllViews()); };
    const Close command = [](IView *) { closeAllCommand(); };
    QTest::newRow("the view, asked alone") << false << closeView;
    QTest::newRow("the view, asked with all") << false << closeAllViews;
    QTest::newRow("the view, by the command") << false << command;
    QTest::newRow("its window, asked alone") << true << closeView;
    QTest::newRow("its window, asked with all") << true << closeAllViews;
    QTest::newRow("its window, by the command") << true << command;
}

void TestLostViews::viewDestroyedWhileClosing()
{
    QFETCH(bool, window);
    QFETCH(Close, close);
    const QPointer<TestView> other = showTestView("other");
    other->keepOpen = true;
    other->refuseClose = true;
    const QPointer<TestView> view = showTestView("view");
    view->whileClosing = [&view, window] {
        if (window)
            delete windowOf(view);
        else
            delete view;
    };

    close(view);

    QVERIFY(!view);
    QCOMPARE(listedViews(), texts({"[x] other"}));
    QCOMPARE(ViewManager::currentView(), other);
    QCOMPARE(documentArea()->subWindows().size(), 1);
}

void TestLostViews::windowDestroyedWhileItsViewIsRemoved()
{
    TestView *first = showTestView("first");
    const QPointer<TestView> second = showTestView("second");
    const QPointer<QWidget> window = windowOf(second);
    connect(ViewManager::instance(), &ViewManager::viewActiveted, this,
            [&window] { delete window; });

    ViewManager::removeView(second);

    QVERIFY(!second);
    QCOMPARE(ViewManager::currentView(), first);
    QCOMPARE(listedViews(), texts({"[x] first"}));
}

void TestLostViews::destroyedView()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");

    delete first;

    QCOMPARE(listedViews(), texts({"[x] second"}));
    QCOMPARE(ViewManager::currentView(), second);
    QCOMPARE(documentArea()->subWindows(), QList<Utils::MdiSubWindow *>{windowOf(second)});
}

void TestLostViews::destroyedCurrentView()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");

    delete second;

    QCOMPARE(ViewManager::currentView(), first);
    QCOMPARE(listedViews(), texts({"[x] first"}));
    QVERIFY(closeAllAction()->isEnabled());
}

void TestLostViews::destroyedLastView()
{
    TestView *view = showTestView("view");

    delete view;

    QCOMPARE(ViewManager::currentView(), nullptr);
    QCOMPARE(listedViews(), QStringList());
    QVERIFY(!closeAllAction()->isEnabled());
    QVERIFY(documentArea()->subWindows().isEmpty());
}

void TestLostViews::destroyedLastViewBehindAnotherWindow()
{
    TestView *view = showTestView("view");
    documentArea()->addSubWindow(new Utils::MdiSubWindow);

    delete view;

    QVERIFY(!closeAllAction()->isEnabled());
}

void TestLostViews::destroyedViewIsNotReportedAsClosed()
{
    TestView *view = showTestView("view");
    showTestView("second");

    delete view;
    delete windowOf(ViewManager::currentView());

    QVERIFY(m_closed.isEmpty());
}

void TestLostViews::destroyedSubWindow()
{
    const QPointer<TestView> first = showTestView("first");
    showTestView("second");

    delete windowOf(first);

    QVERIFY(!first);
    QCOMPARE(listedViews(), texts({"[x] second"}));
}

void TestLostViews::destroyedCurrentSubWindow()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");

    delete windowOf(second);

    QCOMPARE(ViewManager::currentView(), first);
    QCOMPARE(listedViews(), texts({"[x] first"}));
}

void TestLostViews::destroyedLastSubWindow()
{
    TestView *view = showTestView("view");

    delete windowOf(view);

    QCOMPARE(ViewManager::currentView(), nullptr);
    QCOMPARE(listedViews(), QStringList());
    QVERIFY(!closeAllAction()->isEnabled());
}

void TestLostViews::viewTakenOutByANewParent()
{
    showTestView("first");
    TestView *second = showTestView("second");

    second->setParent(nullptr);

    QTRY_COMPARE(listedViews(), texts({"[x] first"}));
    QCOMPARE(ViewManager::currentView()->objectName(), QStringLiteral("first"));
    QVERIFY(!ViewManager::closeView(second));
    delete second;
    QCOMPARE(listedViews(), texts({"[x] first"}));
}

void TestLostViews::viewTakenOutIsForgottenAtOnce()
{
    const std::unique_ptr<TestView> view(showTestView("view"));

    view->setParent(nullptr);

    QVERIFY(!ViewManager::closeView(view.get()));
    QCOMPARE(view->asked, 0);
    QCOMPARE(listedViews(), QStringList());
    QVERIFY(!closeAllAction()->isEnabled());
}

void TestLostViews::viewTakenOutIntoTheMainWindow()
{
    const QPointer<TestView> view = showTestView("view");
    view->setParent(ViewManager::mainWindow());

    m_core.reset();

    QVERIFY(!view);
}

void TestLostViews::windowWithoutAWidgetIsNotListed()
{
    const std::unique_ptr<TestView> view(showTestView("view"));
    showTestView("other");

    windowOf(view.get())->setWidget(nullptr);

    QCOMPARE(listedViews(), texts({"[x] other"}));
}

void TestLostViews::removedViewDestroyedAtOnce()
{
    showTestView("first");
    TestView *second = showTestView("second");

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
    const QList<TestView *> views{showTestView("0"), showTestView("1"), showTestView("2")};
    QStringList left = texts({"0", "1", "2"});

    for (const int index : qAsConst(order)) {
        TestView *view = views.at(index);
        if (windows)
            delete windowOf(view);
        else
            delete view;
        left.removeOne(QString::number(index));
        QCOMPARE(documentArea()->subWindows().size(), left.size());
        QCOMPARE(listedViews().replaceInStrings(QRegularExpression(QStringLiteral("^\\[.\\] ")),
                                                QString()),
                 left);
        QCOMPARE(ViewManager::currentView() != nullptr, !left.isEmpty());
    }
}

void TestLostViews::entryOfADestroyedWindowInAnOpenMenu()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");
    QMenu *menu = Core::ActionManager::menu(QStringLiteral("Core.Menu.Window"));
    Q_EMIT menu->aboutToShow();
    QAction *entry = menu->actions().at(9);
    QCOMPARE(entry->text(), QStringLiteral("first"));

    delete first;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    entry->trigger();

    QCOMPARE(ViewManager::currentView(), second);
}

void TestLostViews::viewShownAgainAtOnceAfterItWasTakenOut()
{
    TestView *view = showTestView("view");
    view->setParent(nullptr);
    QCOMPARE(listedViews(), QStringList());
    QVERIFY(!closeAllAction()->isEnabled());

    ViewManager::showView(view);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QCOMPARE(listedViews(), texts({"[x] view"}));
    QCOMPARE(ViewManager::currentView(), view);
    QVERIFY(closeAllAction()->isEnabled());
    QVERIFY(ViewManager::closeView(view));
}

void TestLostViews::viewShownAgainAfterItWasTakenOut()
{
    TestView *view = showTestView("view");
    view->setParent(nullptr);
    QTRY_COMPARE(listedViews(), QStringList());

    ViewManager::showView(view);

    QCOMPARE(listedViews(), texts({"[x] view"}));
    QVERIFY(ViewManager::closeView(view));
    QCOMPARE(m_closed, QList<IView *>{view});
}

void TestLostViews::removedViewOutlivesTheManager()
{
    const QPointer<TestView> view = showTestView("view");
    ViewManager::removeView(view);

    m_core.reset();
    QVERIFY(view);
    view->setShortTitle(QStringLiteral("nobody follows this"));

    QTRY_VERIFY(!view);
}

QTEST_MAIN(TestLostViews)
#include "tst_lostviews.moc"
