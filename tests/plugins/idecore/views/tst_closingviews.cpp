// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// Views that are closed, removed, or refuse to be closed.

#include "support/corefixture.h"
#include "support/documents.h"
#include "support/messagerecorder.h"

#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>
#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QAction>
#include <QLabel>
#include <QPointer>
#include <QTest>

#include <memory>

using Core::IView;
using Core::ViewManager;

namespace {
int s_askedForTheNextOne = 0;
}

// Stands in for the area's own, which has nothing to do where an area has seen to
// it by itself, so that its being called would not show.
void Utils::MdiArea::onSubWindowActivated()
{
    ++s_askedForTheNextOne;
}

class TestClosingViews final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void closeViewClosesAndDestroys();
    void closeViewReports();
    void closeViewMakesTheViewCurrentFirst();
    void closeViewRefused();
    void closedSubWindowIsReported();
    void closeIsReportedBeforeTheNextCurrentView();
    void closeViewThatIsNotShown();
    void closeNothingIsAnAssertion();

    void removeViewDoesNotAsk();
    void removeViewNeitherReportsNorUpdates();
    void removeViewOfAnotherLeavesTheCurrentOne();
    void removeViewOfTheCurrentOneMakesAnotherCurrent();
    void removeViewThatIsNotShown();
    void removeNothingIsAnAssertion();

    void closeAllViewsGoesFromTheMostRecent();
    void closeAllViewsStopsAtARefusal();
    void closeAllViewsSkipsThoseKeptOpen();
    void closeAllViewsClosesWindowsWithoutAView();
    void closeAllViewsWithoutViews();
    void closeAllViewsWhileMinimised();
    void closeAllViewsAsksForTheNextOneAfterEachClosedWhileMinimised();
    void closeAllViewsDoesNotAskForTheNextOneWhileShown();
    void closeAllCommandGoesInOrderOfShowing();
    void closeAllCommandMakesEachViewCurrentFirst();
    void closeAllCommandDoesNotStopAtARefusal();
    void closeAllCommandClosesThoseKeptOpen();
    void closeCommandClosesTheCurrentView();
    void closeCommandWithoutAViewIsAnAssertion();

    void closedViewStillExistsWhenReported();

private:
    std::unique_ptr<CoreFixture> m_core;
};

void TestClosingViews::init()
{
    m_core = std::make_unique<CoreFixture>();
    s_askedForTheNextOne = 0;
}

void TestClosingViews::cleanup()
{
    m_core.reset();
}

void TestClosingViews::closeViewClosesAndDestroys()
{
    const QPointer<TestView> view = showTestView("view");

    QVERIFY(ViewManager::closeView(view));

    QVERIFY(documentArea()->subWindows().isEmpty());
    QTRY_VERIFY(!view);
}

void TestClosingViews::closeViewReports()
{
    TestView *view = showTestView("view");
    QList<IView *> closed;
    connect(ViewManager::instance(), &ViewManager::viewClosed, this,
            [&closed](IView *gone) { closed.append(gone); });

    ViewManager::closeView(view);

    QCOMPARE(closed, QList<IView *>{view});
}

void TestClosingViews::closeViewMakesTheViewCurrentFirst()
{
    QStringList journal;
    TestView *first = showTestView("first", &journal);
    showTestView("second", &journal);
    journal.clear();

    ViewManager::closeView(first);

    QCOMPARE(journal.mid(0, 3), texts({"second deactivated", "first activated", "first asked"}));
}

void TestClosingViews::closeViewRefused()
{
    TestView *view = showTestView("view");
    view->refuseClose = true;
    int closed = 0;
    connect(ViewManager::instance(), &ViewManager::viewClosed, this, [&closed] { ++closed; });

    QVERIFY(!ViewManager::closeView(view));

    QCOMPARE(closed, 0);
    QCOMPARE(ViewManager::currentView(), view);
    QCOMPARE(documentArea()->subWindows().size(), 1);
    QVERIFY(closeAction()->isEnabled());
    QVERIFY(closeAllAction()->isEnabled());
}

void TestClosingViews::closedSubWindowIsReported()
{
    TestView *view = showTestView("view");
    QList<IView *> closed;
    connect(ViewManager::instance(), &ViewManager::viewClosed, this,
            [&closed](IView *gone) { closed.append(gone); });

    windowOf(view)->close();

    QCOMPARE(closed, QList<IView *>{view});
    QVERIFY(!closeAllAction()->isEnabled());
}

void TestClosingViews::closeIsReportedBeforeTheNextCurrentView()
{
    QStringList journal;
    showTestView("first", &journal);
    TestView *second = showTestView("second", &journal);
    connect(ViewManager::instance(), &ViewManager::viewClosed, this,
            [&journal] { journal.append(QStringLiteral("closed")); });
    windowOf(second)->setFocus();
    journal.clear();

    windowOf(second)->close();

    QCOMPARE(journal, texts({"second asked", "closed", "second deactivated", "first activated"}));
}

void TestClosingViews::closeViewThatIsNotShown()
{
    TestView view(QStringLiteral("view"));
    MessageRecorder log;

    QVERIFY(!ViewManager::closeView(&view));

    QCOMPARE(view.asked, 0);
    QCOMPARE(log.messages().size(), 1);
    QCOMPARE(log.lines(QtDebugMsg),
             QStringList{QStringLiteral("closing view: ") + logged(static_cast<IView *>(&view))});
}

void TestClosingViews::closeNothingIsAnAssertion()
{
    MessageRecorder log;

    QVERIFY(!ViewManager::closeView(nullptr));

    QVERIFY(log.isOneAssertion(QStringLiteral("view")));
    QCOMPARE(log.messages().size(), 1);
}

void TestClosingViews::removeViewDoesNotAsk()
{
    QStringList journal;
    const QPointer<TestView> view = showTestView("view", &journal);
    view->refuseClose = true;

    ViewManager::removeView(view);

    QVERIFY(!journal.contains(QStringLiteral("view asked")));
    QVERIFY(documentArea()->subWindows().isEmpty());
    QVERIFY(view); // destroyed later, not in the call
    QTRY_VERIFY(!view);
}

void TestClosingViews::removeViewNeitherReportsNorUpdates()
{
    TestView *view = showTestView("view");
    int closed = 0;
    connect(ViewManager::instance(), &ViewManager::viewClosed, this, [&closed] { ++closed; });

    ViewManager::removeView(view);
    const bool enabledAfterRemoving = closeAllAction()->isEnabled();
    ViewManager::updateActions();

    QVERIFY(enabledAfterRemoving);
    QVERIFY(!closeAllAction()->isEnabled());
    QCOMPARE(closed, 0);
}

void TestClosingViews::removeViewOfAnotherLeavesTheCurrentOne()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");

    ViewManager::removeView(first);

    QCOMPARE(ViewManager::currentView(), second);
    QCOMPARE(second->activated, 1);
    QCOMPARE(second->deactivated, 0);
}

void TestClosingViews::removeViewOfTheCurrentOneMakesAnotherCurrent()
{
    QStringList journal;
    TestView *first = showTestView("first", &journal);
    TestView *second = showTestView("second", &journal);
    journal.clear();

    ViewManager::removeView(second);

    QCOMPARE(journal, texts({"second deactivated", "first activated"}));
    QCOMPARE(ViewManager::currentView(), first);
}

void TestClosingViews::removeViewThatIsNotShown()
{
    TestView *shown = showTestView("shown");
    TestView other(QStringLiteral("other"));
    MessageRecorder log;

    ViewManager::removeView(&other);

    QCOMPARE(ViewManager::currentView(), shown);
    QCOMPARE(log.lines(QtDebugMsg), QStringList{QStringLiteral("force remove view: ")
                                                + logged(static_cast<IView *>(&other))});
}

void TestClosingViews::removeNothingIsAnAssertion()
{
    MessageRecorder log;

    ViewManager::removeView(nullptr);

    QVERIFY(log.isOneAssertion(QStringLiteral("view")));
    QCOMPARE(log.messages().size(), 1);
}

void TestClosingViews::closeAllViewsGoesFromTheMostRecent()
{
    QStringList journal;
    TestView *first = showTestView("first", &journal);
    showTestView("second", &journal);
    showTestView("third", &journal);
    ViewManager::showView(first);

    QVERIFY(ViewManager::closeAllViews());

    QCOMPARE(journal.filter(QStringLiteral("asked")),
             texts({"first asked", "third asked", "second asked"}));
    QVERIFY(documentArea()->subWindows().isEmpty());
}

void TestClosingViews::closeAllViewsStopsAtARefusal()
{
    QStringList journal;
    TestView *first = showTestView("first", &journal);
    TestView *second = showTestView("second", &journal);
    showTestView("third", &journal);
    second->refuseClose = true;

    QVERIFY(!ViewManager::closeAllViews());

    QCOMPARE(journal.filter(QStringLiteral("asked")), texts({"third asked", "second asked"}));
    QVERIFY(windowOf(first));
    QVERIFY(windowOf(second));
    QCOMPARE(documentArea()->subWindows().size(), 2);
}

void TestClosingViews::closeAllViewsSkipsThoseKeptOpen()
{
    TestView *first = showTestView("first");
    TestView *kept = showTestView("kept");
    showTestView("third");
    kept->keepOpen = true;
    Q_UNUSED(first)

    QVERIFY(ViewManager::closeAllViews());

    QCOMPARE(kept->asked, 0);
    QCOMPARE(documentArea()->subWindows(), QList<Utils::MdiSubWindow *>{windowOf(kept)});
}

void TestClosingViews::closeAllViewsClosesWindowsWithoutAView()
{
    auto *foreign = new Utils::MdiSubWindow;
    foreign->setWidget(new QLabel);
    documentArea()->addSubWindow(foreign);

    QVERIFY(ViewManager::closeAllViews());

    QVERIFY(documentArea()->subWindows().isEmpty());
}

void TestClosingViews::closeAllViewsWithoutViews()
{
    MessageRecorder log;

    QVERIFY(ViewManager::closeAllViews());

    QCOMPARE(log.lines(QtDebugMsg), texts({"closing all views"}));
}

void TestClosingViews::closeAllViewsWhileMinimised()
{
    m_core->show();
    TestView *kept = showTestView("kept");
    kept->keepOpen = true;
    showTestView("second");
    ViewManager::mainWindow()->showMinimized();
    QTRY_VERIFY(ViewManager::mainWindow()->isMinimized());

    QVERIFY(ViewManager::closeAllViews());

    QCOMPARE(ViewManager::currentView(), kept);
    QCOMPARE(closeAction()->text(), QStringLiteral("&Close \"kept\""));
}

void TestClosingViews::closeAllViewsAsksForTheNextOneAfterEachClosedWhileMinimised()
{
    m_core->show();
    showTestView("first")->refuseClose = true;
    showTestView("second")->keepOpen = true;
    showTestView("third");
    showTestView("fourth");
    ViewManager::mainWindow()->showMinimized();
    QTRY_VERIFY(ViewManager::mainWindow()->isMinimized());

    QVERIFY(!ViewManager::closeAllViews());

    QCOMPARE(s_askedForTheNextOne, 2);
}

void TestClosingViews::closeAllViewsDoesNotAskForTheNextOneWhileShown()
{
    m_core->show();
    showTestView("first");

    QVERIFY(ViewManager::closeAllViews());

    QCOMPARE(s_askedForTheNextOne, 0);
}

void TestClosingViews::closeAllCommandGoesInOrderOfShowing()
{
    QStringList journal;
    TestView *first = showTestView("first", &journal);
    showTestView("second", &journal);
    showTestView("third", &journal);
    ViewManager::showView(first);

    closeAllAction()->trigger();

    QCOMPARE(journal.filter(QStringLiteral("asked")),
             texts({"first asked", "second asked", "third asked"}));
    QVERIFY(documentArea()->subWindows().isEmpty());
    QVERIFY(!closeAllAction()->isEnabled());
}

void TestClosingViews::closeAllCommandMakesEachViewCurrentFirst()
{
    QStringList journal;
    TestView *first = showTestView("first", &journal);
    TestView *second = showTestView("second", &journal);
    first->refuseClose = true;
    second->refuseClose = true;
    journal.clear();

    closeAllAction()->trigger();

    QCOMPARE(journal, texts({"second deactivated", "first activated", "first asked",
                             "first deactivated", "second activated", "second asked"}));
}

void TestClosingViews::closeAllCommandDoesNotStopAtARefusal()
{
    TestView *first = showTestView("first");
    showTestView("second");
    first->refuseClose = true;

    closeAllAction()->trigger();

    QCOMPARE(documentArea()->subWindows(), QList<Utils::MdiSubWindow *>{windowOf(first)});
    QVERIFY(closeAllAction()->isEnabled());
}

void TestClosingViews::closeAllCommandClosesThoseKeptOpen()
{
    showTestView("kept")->keepOpen = true;

    closeAllAction()->trigger();

    QVERIFY(documentArea()->subWindows().isEmpty());
}

void TestClosingViews::closeCommandClosesTheCurrentView()
{
    TestView *first = showTestView("first");
    showTestView("second");

    closeAction()->trigger();

    QCOMPARE(documentArea()->subWindows(), QList<Utils::MdiSubWindow *>{windowOf(first)});
    QCOMPARE(ViewManager::currentView(), first);
}

void TestClosingViews::closeCommandWithoutAViewIsAnAssertion()
{
    MessageRecorder log;

    ViewManager::instance()->onActClose();

    QVERIFY(log.isOneAssertion(QStringLiteral("view")));
}

void TestClosingViews::closedViewStillExistsWhenReported()
{
    const QPointer<TestView> view = showTestView("view");
    QString title;
    bool closeAllEnabled = true;
    connect(ViewManager::instance(), &ViewManager::viewClosed, this, [&](IView *gone) {
        title = gone->shortTitle();
        closeAllEnabled = closeAllAction()->isEnabled();
    });

    ViewManager::closeView(view);

    QCOMPARE(title, QStringLiteral("view"));
    QVERIFY(!closeAllEnabled);
}

QTEST_MAIN(TestClosingViews)
#include "tst_closingviews.moc"
