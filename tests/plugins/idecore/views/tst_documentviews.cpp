// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/documents.h"
#include "support/messagerecorder.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>
#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QAction>
#include <QDialog>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QMetaMethod>
#include <QPointer>
#include <QSet>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QTranslator>

#include <memory>

using Core::IView;
using Core::ViewManager;

namespace {

QByteArray pixels(const QIcon &icon)
{
    const QImage image = icon.pixmap(32, 32).toImage().convertToFormat(QImage::Format_ARGB32);
    return QByteArray(reinterpret_cast<const char *>(image.constBits()),
                      static_cast<int>(image.sizeInBytes()));
}

/// Puts what the view manager says into angle brackets.
class ViewTexts final : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        if (qstrcmp(context, "Core::ViewManager") != 0)
            return {};
        asked.append(text);
        return QLatin1Char('<') + QString::fromUtf8(text) + QLatin1Char('>');
    }

    mutable QList<QByteArray> asked;
};

/// Notes the events of a type that a widget receives, in order.
class EventJournal final : public QObject
{
public:
    EventJournal(QObject *object, const QSet<QEvent::Type> &types)
        : m_types(types)
    {
        object->installEventFilter(this);
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (m_types.contains(event->type()))
            received.append(event->type());
        return false;
    }

    QList<QEvent::Type> received;

private:
    QSet<QEvent::Type> m_types;
};

} // namespace

class TestDocumentViews final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void interfaceByName_data();
    void interfaceByName();
    void mainWindowHasNoParent();
    void fileMenu();
    void windowMenu();
    void panelsMenuBelongsToTheMainWindow();
    void textsAreTranslated();
    void closeIsDisabledWithoutViews();

    void dialogParentIsTheMainWindow();
    void dialogParentIsTheModalWidget();
    void raiseWindowBringsTheMainWindowBack();
    void raiseWindowActivatesAnyOtherWindow();
    void raiseWindowRaisesBeforeItActivates();
    void raiseWindowOfNothing();

    void showingAViewMakesItCurrent();
    void shownViewExistsWhenItIsReported();
    void subWindowHoldsTheViewWithItsTitle();
    void titleFollowsTheView();
    void showingAViewAgainBringsItForward();
    void showingTheCurrentViewAgainActivatesItAgain();
    void viewWithoutAnIconGetsTheLogo();
    void viewWithAnIconKeepsIt();
    void showNothingIsAnAssertion();

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
    void closeAllCommandGoesInOrderOfShowing();
    void closeAllCommandMakesEachViewCurrentFirst();
    void closeAllCommandDoesNotStopAtARefusal();
    void closeAllCommandClosesThoseKeptOpen();
    void closeCommandClosesTheCurrentView();
    void closeCommandWithoutAViewIsAnAssertion();

    void changeOfTheCurrentViewTellsOldThenNew();
    void currentViewChangesBetweenTheTwoCalls();
    void actionsAreUpToDateWhenTheChangeIsReported();
    void currentViewIsNullAfterTheLastOne();
    void windowWithoutAViewIsNoCurrentView();
    void closeNamesTheCurrentView();
    void closeFollowsTheTitleOfTheCurrentView();
    void closeAllIsEnabledWhileThereAreViews();
    void closedViewStillExistsWhenReported();

    void statusMessages();
    void extensionsInitializedShowsTheMainWindowLater();
    void destroyedWithItsViews();
    void logLines();

private:
    std::unique_ptr<CoreFixture> m_core;
};

void TestDocumentViews::init()
{
    m_core = std::make_unique<CoreFixture>();
}

void TestDocumentViews::cleanup()
{
    m_core.reset();
}

void TestDocumentViews::interfaceByName_data()
{
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<int>("type");

    const auto row = [](const char *signature, QMetaMethod::MethodType type) {
        QTest::newRow(signature) << QByteArray(signature) << int(type);
    };
    row("viewActiveted(Core::IView*)", QMetaMethod::Signal);
    row("viewClosed(Core::IView*)", QMetaMethod::Signal);
    row("onCurrentSubWindowChanged(Utils::MdiSubWindow*)", QMetaMethod::Slot);
    row("onSubWindowClose(Utils::MdiSubWindow*)", QMetaMethod::Slot);
    row("updateWindowMenu()", QMetaMethod::Slot);
    row("onActionMapped(QWidget*)", QMetaMethod::Slot);
    row("onActClose()", QMetaMethod::Slot);
    row("onActCloseAll()", QMetaMethod::Slot);
    row("onActResetLayout()", QMetaMethod::Slot);
}

void TestDocumentViews::interfaceByName()
{
    QFETCH(QByteArray, signature);
    QFETCH(int, type);
    const QMetaObject &meta = ViewManager::staticMetaObject;

    const int index = meta.indexOfMethod(signature);

    QVERIFY(index >= 0);
    QCOMPARE(int(meta.method(index).methodType()), type);
}

void TestDocumentViews::mainWindowHasNoParent()
{
    QVERIFY(!ViewManager::mainWindow()->parent());
}

void TestDocumentViews::fileMenu()
{
    const QMenu *menu = Core::ActionManager::menu(QStringLiteral("Core.Menu.File"));

    QCOMPARE(menuEntries(menu), texts({"&New...",
                                       "&Open...",
                                       "--",
                                       "--",
                                       "&Save",
                                       "Save &As...",
                                       "Save All",
                                       "--",
                                       "--",
                                       "&Close",
                                       "Close All",
                                       "--",
                                       "Close Project",
                                       "--",
                                       "&Print...",
                                       "--",
                                       "> Recent Files",
                                       "> Recent Projects",
                                       "--",
                                       "&Exit"}));
    const QList<QAction *> actions = menu->actions();
    QCOMPARE(actions.at(8),
             Core::ActionManager::separator(QStringLiteral("Core.Sep.File.Close.F")));
    QCOMPARE(actions.at(11),
             Core::ActionManager::separator(QStringLiteral("Core.Sep.File.Close.B")));
    QCOMPARE(actions.at(13),
             Core::ActionManager::separator(QStringLiteral("Core.Sep.File.Print.F")));
}

void TestDocumentViews::windowMenu()
{
    QCOMPARE(menuEntries(Core::ActionManager::menu(QStringLiteral("Core.Menu.Window"))),
             texts({"[ ] &Full Screen", "--", "Tile", "Cascade", "--", "Reset Layout", "--",
                    "> Panels", "--"}));
}

void TestDocumentViews::panelsMenuBelongsToTheMainWindow()
{
    const QMenu *menu = Core::ActionManager::menu(QStringLiteral("Core.Menu.Window"));

    const QMenu *panels = menu->actions().at(7)->menu();

    QCOMPARE(panels->parent(), ViewManager::mainWindow());
}

void TestDocumentViews::textsAreTranslated()
{
    m_core.reset();
    ViewTexts texts;
    QCoreApplication::installTranslator(&texts);
    m_core = std::make_unique<CoreFixture>();
    showTestView("top.v");

    const QStringList file =
        menuEntries(Core::ActionManager::menu(QStringLiteral("Core.Menu.File")));
    const QStringList window =
        menuEntries(Core::ActionManager::menu(QStringLiteral("Core.Menu.Window")));
    QCoreApplication::removeTranslator(&texts);

    QCOMPARE(file.mid(9, 2), ::texts({"<&Close \"top.v\">", "<Close All>"}));
    QCOMPARE(window.at(5), QStringLiteral("<Reset Layout>"));
    QCOMPARE(window.at(7), QStringLiteral("> <Panels>"));
    QVERIFY(texts.asked.contains("&Close"));
}

void TestDocumentViews::closeIsDisabledWithoutViews()
{
    QCOMPARE(closeAction()->text(), QStringLiteral("&Close"));
    QVERIFY(!closeAction()->isEnabled());
    QVERIFY(!closeAllAction()->isEnabled());
    QCOMPARE(closeAction()->parent(), ViewManager::instance());
    QCOMPARE(closeAllAction()->parent(), ViewManager::instance());
    QVERIFY(!ViewManager::currentView());
}

void TestDocumentViews::dialogParentIsTheMainWindow()
{
    QCOMPARE(ViewManager::dialogParent(), ViewManager::mainWindow());
}

void TestDocumentViews::dialogParentIsTheModalWidget()
{
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();

    QCOMPARE(ViewManager::dialogParent(), &dialog);
}

void TestDocumentViews::raiseWindowBringsTheMainWindowBack()
{
    m_core->show();
    QWidget *window = ViewManager::mainWindow();
    window->setWindowState(Qt::WindowMinimized);

    ViewManager::raiseWindow(documentArea());

    QVERIFY(!window->isMinimized());
}

void TestDocumentViews::raiseWindowActivatesAnyOtherWindow()
{
    m_core->show();
    QWidget other;
    auto *child = new QWidget(&other);
    other.show();
    ViewManager::mainWindow()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(ViewManager::mainWindow()));

    ViewManager::raiseWindow(child);

    QVERIFY(QTest::qWaitForWindowActive(&other));
}

void TestDocumentViews::raiseWindowRaisesBeforeItActivates()
{
    m_core->show();
    QWidget other;
    other.showMinimized();
    ViewManager::mainWindow()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(ViewManager::mainWindow()));
    const EventJournal journal(&other, {QEvent::ZOrderChange, QEvent::WindowActivate});

    ViewManager::raiseWindow(&other);

    QTRY_VERIFY(journal.received.contains(QEvent::WindowActivate));
    QCOMPARE(journal.received.mid(0, 2),
             (QList<QEvent::Type>{QEvent::ZOrderChange, QEvent::WindowActivate}));
    QVERIFY(other.isMinimized());
}

void TestDocumentViews::raiseWindowOfNothing()
{
    MessageRecorder log;

    ViewManager::raiseWindow(nullptr);

    QVERIFY(log.messages().isEmpty());
}

void TestDocumentViews::showingAViewMakesItCurrent()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");

    QCOMPARE(ViewManager::currentView(), second);
    QCOMPARE(documentArea()->currentWindow()->widget(), second);
    QCOMPARE(first->activated, 1);
    QCOMPARE(first->deactivated, 1);
    QCOMPARE(second->activated, 1);
    QCOMPARE(second->deactivated, 0);
}

void TestDocumentViews::shownViewExistsWhenItIsReported()
{
    QStringList listed;
    bool closeAllEnabled = false;
    connect(ViewManager::instance(), &ViewManager::viewActiveted, this, [&] {
        listed = listedViews();
        closeAllEnabled = closeAllAction()->isEnabled();
    });

    showTestView("view");

    QCOMPARE(listed, texts({"[x] view"}));
    QVERIFY(closeAllEnabled);
}

void TestDocumentViews::subWindowHoldsTheViewWithItsTitle()
{
    TestView *view = showTestView("top.v");

    QCOMPARE(documentArea()->subWindows().size(), 1);
    QCOMPARE(documentArea()->subWindows().constFirst()->widget(), view);
    QCOMPARE(documentArea()->subWindows().constFirst()->shortTitle(), QStringLiteral("top.v"));
}

void TestDocumentViews::titleFollowsTheView()
{
    TestView *view = showTestView("top.v");

    view->setShortTitle(QStringLiteral("new.v"));

    QCOMPARE(windowOf(view)->shortTitle(), QStringLiteral("new.v"));
}

void TestDocumentViews::showingAViewAgainBringsItForward()
{
    TestView *first = showTestView("first");
    showTestView("second");

    ViewManager::showView(first);

    QCOMPARE(documentArea()->subWindows().size(), 2);
    QCOMPARE(ViewManager::currentView(), first);
}

void TestDocumentViews::showingTheCurrentViewAgainActivatesItAgain()
{
    QStringList journal;
    TestView *view = showTestView("view", &journal);
    QList<IView *> reported;
    connect(ViewManager::instance(), &ViewManager::viewActiveted, this,
            [&reported](IView *current) { reported.append(current); });
    journal.clear();

    ViewManager::showView(view);

    QCOMPARE(journal, texts({"view deactivated", "view activated"}));
    QCOMPARE(reported, QList<IView *>{view});
}

void TestDocumentViews::viewWithoutAnIconGetsTheLogo()
{
    TestView *view = showTestView("view");

    QVERIFY(!view->windowIcon().pixmap(32, 32).isNull());
    QCOMPARE(pixels(view->windowIcon()),
             pixels(QIcon(QStringLiteral(":/core/image/logo/ide_logo_32.png"))));
}

void TestDocumentViews::viewWithAnIconKeepsIt()
{
    QPixmap red(32, 32);
    red.fill(Qt::red);
    auto *view = new TestView(QStringLiteral("view"));
    view->setWindowIcon(QIcon(red));

    ViewManager::showView(view);

    QCOMPARE(pixels(view->windowIcon()), pixels(QIcon(red)));
}

void TestDocumentViews::showNothingIsAnAssertion()
{
    MessageRecorder log;

    ViewManager::showView(nullptr);

    QVERIFY(log.isOneAssertion(QStringLiteral("view")));
    QCOMPARE(log.messages().size(), 1);
    QVERIFY(documentArea()->subWindows().isEmpty());
}

void TestDocumentViews::closeViewClosesAndDestroys()
{
    const QPointer<TestView> view = showTestView("view");

    QVERIFY(ViewManager::closeView(view));

    QVERIFY(documentArea()->subWindows().isEmpty());
    QTRY_VERIFY(!view);
}

void TestDocumentViews::closeViewReports()
{
    TestView *view = showTestView("view");
    QList<IView *> closed;
    connect(ViewManager::instance(), &ViewManager::viewClosed, this,
            [&closed](IView *gone) { closed.append(gone); });

    ViewManager::closeView(view);

    QCOMPARE(closed, QList<IView *>{view});
}

void TestDocumentViews::closeViewMakesTheViewCurrentFirst()
{
    QStringList journal;
    TestView *first = showTestView("first", &journal);
    showTestView("second", &journal);
    journal.clear();

    ViewManager::closeView(first);

    QCOMPARE(journal.mid(0, 3), texts({"second deactivated", "first activated", "first asked"}));
}

void TestDocumentViews::closeViewRefused()
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

void TestDocumentViews::closedSubWindowIsReported()
{
    TestView *view = showTestView("view");
    QList<IView *> closed;
    connect(ViewManager::instance(), &ViewManager::viewClosed, this,
            [&closed](IView *gone) { closed.append(gone); });

    windowOf(view)->close();

    QCOMPARE(closed, QList<IView *>{view});
    QVERIFY(!closeAllAction()->isEnabled());
}

void TestDocumentViews::closeIsReportedBeforeTheNextCurrentView()
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

void TestDocumentViews::closeViewThatIsNotShown()
{
    TestView view(QStringLiteral("view"));
    MessageRecorder log;

    QVERIFY(!ViewManager::closeView(&view));

    QCOMPARE(view.asked, 0);
    QCOMPARE(log.messages().size(), 1);
    QCOMPARE(log.lines(QtDebugMsg),
             QStringList{QStringLiteral("closing view: ") + logged(static_cast<IView *>(&view))});
}

void TestDocumentViews::closeNothingIsAnAssertion()
{
    MessageRecorder log;

    QVERIFY(!ViewManager::closeView(nullptr));

    QVERIFY(log.isOneAssertion(QStringLiteral("view")));
    QCOMPARE(log.messages().size(), 1);
}

void TestDocumentViews::removeViewDoesNotAsk()
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

void TestDocumentViews::removeViewNeitherReportsNorUpdates()
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

void TestDocumentViews::removeViewOfAnotherLeavesTheCurrentOne()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");

    ViewManager::removeView(first);

    QCOMPARE(ViewManager::currentView(), second);
    QCOMPARE(second->activated, 1);
    QCOMPARE(second->deactivated, 0);
}

void TestDocumentViews::removeViewOfTheCurrentOneMakesAnotherCurrent()
{
    QStringList journal;
    TestView *first = showTestView("first", &journal);
    TestView *second = showTestView("second", &journal);
    journal.clear();

    ViewManager::removeView(second);

    QCOMPARE(journal, texts({"second deactivated", "first activated"}));
    QCOMPARE(ViewManager::currentView(), first);
}

void TestDocumentViews::removeViewThatIsNotShown()
{
    TestView *shown = showTestView("shown");
    TestView other(QStringLiteral("other"));
    MessageRecorder log;

    ViewManager::removeView(&other);

    QCOMPARE(ViewManager::currentView(), shown);
    QCOMPARE(log.lines(QtDebugMsg), QStringList{QStringLiteral("force remove view: ")
                                                + logged(static_cast<IView *>(&other))});
}

void TestDocumentViews::removeNothingIsAnAssertion()
{
    MessageRecorder log;

    ViewManager::removeView(nullptr);

    QVERIFY(log.isOneAssertion(QStringLiteral("view")));
    QCOMPARE(log.messages().size(), 1);
}

void TestDocumentViews::closeAllViewsGoesFromTheMostRecent()
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

void TestDocumentViews::closeAllViewsStopsAtARefusal()
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

void TestDocumentViews::closeAllViewsSkipsThoseKeptOpen()
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

void TestDocumentViews::closeAllViewsClosesWindowsWithoutAView()
{
    auto *foreign = new Utils::MdiSubWindow;
    foreign->setWidget(new QLabel);
    documentArea()->addSubWindow(foreign);

    QVERIFY(ViewManager::closeAllViews());

    QVERIFY(documentArea()->subWindows().isEmpty());
}

void TestDocumentViews::closeAllViewsWithoutViews()
{
    MessageRecorder log;

    QVERIFY(ViewManager::closeAllViews());

    QCOMPARE(log.lines(QtDebugMsg), texts({"closing all views"}));
}

void TestDocumentViews::closeAllViewsWhileMinimised()
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

void TestDocumentViews::closeAllCommandGoesInOrderOfShowing()
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

void TestDocumentViews::closeAllCommandMakesEachViewCurrentFirst()
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

void TestDocumentViews::closeAllCommandDoesNotStopAtARefusal()
{
    TestView *first = showTestView("first");
    showTestView("second");
    first->refuseClose = true;

    closeAllAction()->trigger();

    QCOMPARE(documentArea()->subWindows(), QList<Utils::MdiSubWindow *>{windowOf(first)});
    QVERIFY(closeAllAction()->isEnabled());
}

void TestDocumentViews::closeAllCommandClosesThoseKeptOpen()
{
    showTestView("kept")->keepOpen = true;

    closeAllAction()->trigger();

    QVERIFY(documentArea()->subWindows().isEmpty());
}

void TestDocumentViews::closeCommandClosesTheCurrentView()
{
    TestView *first = showTestView("first");
    showTestView("second");

    closeAction()->trigger();

    QCOMPARE(documentArea()->subWindows(), QList<Utils::MdiSubWindow *>{windowOf(first)});
    QCOMPARE(ViewManager::currentView(), first);
}

void TestDocumentViews::closeCommandWithoutAViewIsAnAssertion()
{
    MessageRecorder log;

    ViewManager::instance()->onActClose();

    QVERIFY(log.isOneAssertion(QStringLiteral("view")));
}

void TestDocumentViews::changeOfTheCurrentViewTellsOldThenNew()
{
    QStringList journal;
    TestView *first = showTestView("first", &journal);
    showTestView("second", &journal);
    journal.clear();
    connect(ViewManager::instance(), &ViewManager::viewActiveted, this, [&journal](IView *view) {
        journal.append(view->shortTitle() + QStringLiteral(" told"));
    });

    ViewManager::showView(first);

    QCOMPARE(journal, texts({"second deactivated", "first activated", "first told"}));
}

void TestDocumentViews::currentViewChangesBetweenTheTwoCalls()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");
    IView *deactivating = nullptr;
    IView *activating = nullptr;
    second->whileDeactivated = [&deactivating] { deactivating = ViewManager::currentView(); };
    first->whileActivated = [&activating] { activating = ViewManager::currentView(); };

    ViewManager::showView(first);

    QCOMPARE(deactivating, second);
    QCOMPARE(activating, first);
}

void TestDocumentViews::actionsAreUpToDateWhenTheChangeIsReported()
{
    QStringList seen;
    connect(ViewManager::instance(), &ViewManager::viewActiveted, this,
            [&seen] { seen.append(closeAction()->text()); });

    showTestView("first");
    showTestView("second");

    QCOMPARE(seen, texts({"&Close \"first\"", "&Close \"second\""}));
}

void TestDocumentViews::currentViewIsNullAfterTheLastOne()
{
    TestView *view = showTestView("view");
    QList<IView *> reported;
    connect(ViewManager::instance(), &ViewManager::viewActiveted, this,
            [&reported](IView *current) { reported.append(current); });

    ViewManager::closeView(view);

    QTRY_COMPARE(reported.size(), 2); // current for closing, then none
    QCOMPARE(reported.at(1), nullptr);
    QCOMPARE(ViewManager::currentView(), nullptr);
    QCOMPARE(closeAction()->text(), QStringLiteral("&Close"));
    QVERIFY(!closeAction()->isEnabled());
    QVERIFY(!closeAllAction()->isEnabled());
}

void TestDocumentViews::windowWithoutAViewIsNoCurrentView()
{
    TestView *view = showTestView("view");
    auto *foreign = new Utils::MdiSubWindow;
    foreign->setWidget(new QLabel);
    MessageRecorder log;

    documentArea()->addSubWindow(foreign);

    QCOMPARE(ViewManager::currentView(), nullptr);
    QCOMPARE(view->deactivated, 1);
    QCOMPARE(log.lines(QtDebugMsg, QStringLiteral("current view:")), texts({"current view: 0x0"}));
    QVERIFY(!closeAction()->isEnabled());
    QVERIFY(closeAllAction()->isEnabled());
}

void TestDocumentViews::closeNamesTheCurrentView()
{
    TestView *first = showTestView("first");
    showTestView("second");
    QCOMPARE(closeAction()->text(), QStringLiteral("&Close \"second\""));

    ViewManager::showView(first);

    QCOMPARE(closeAction()->text(), QStringLiteral("&Close \"first\""));
    QVERIFY(closeAction()->isEnabled());
}

void TestDocumentViews::closeFollowsTheTitleOfTheCurrentView()
{
    TestView *view = showTestView("old %1");
    QCOMPARE(closeAction()->text(), QStringLiteral("&Close \"old %1\""));

    view->setShortTitle(QStringLiteral("new"));
    QCOMPARE(closeAction()->text(), QStringLiteral("&Close \"new\""));

    showTestView("other");
    view->setShortTitle(QStringLiteral("newer"));
    QCOMPARE(closeAction()->text(), QStringLiteral("&Close \"other\""));
}

void TestDocumentViews::closeAllIsEnabledWhileThereAreViews()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");
    QVERIFY(closeAllAction()->isEnabled());

    ViewManager::closeView(first);
    QVERIFY(closeAllAction()->isEnabled());

    ViewManager::closeView(second);
    QVERIFY(!closeAllAction()->isEnabled());
}

void TestDocumentViews::closedViewStillExistsWhenReported()
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

void TestDocumentViews::statusMessages()
{
    QStatusBar *bar = ViewManager::mainWindow()->statusBar();
    const auto *label = bar->findChild<QLabel *>()
                            ? bar->findChild<QLabel *>()
                            : ViewManager::mainWindow()->findChild<QLabel *>();
    QVERIFY(label);

    ViewManager::showTempStatusMessage(QStringLiteral("for a while"), 0);
    QCOMPARE(bar->currentMessage(), QStringLiteral("for a while"));
    ViewManager::showNormalStatusMessage(QStringLiteral("not shown"));
    QCOMPARE(bar->currentMessage(), QStringLiteral("for a while"));
    ViewManager::clearNormalStatusMessage();
    QCOMPARE(bar->currentMessage(), QStringLiteral("for a while"));
    ViewManager::clearTempStatusMessage();
    QCOMPARE(bar->currentMessage(), QString());
    ViewManager::showTempStatusMessage(QStringLiteral("short"), 1);
    QTRY_COMPARE(bar->currentMessage(), QString());

    ViewManager::showPermanentStatusMessage(QStringLiteral("always"));
    QCOMPARE(label->text(), QStringLiteral("always"));
    ViewManager::clearPermanentStatusMessage();
    QCOMPARE(label->text(), QString());
}

void TestDocumentViews::extensionsInitializedShowsTheMainWindowLater()
{
    const QWidget *window = ViewManager::mainWindow();
    bool shownBefore = true;
    bool shownBehind = false;
    QTimer::singleShot(990, this, [&] { shownBefore = window->isVisible(); });

    ViewManager::instance()->extensionsInitialized();

    // What is due behind the window at start-up finds it shown.
    QTimer::singleShot(1050, this, [&] { shownBehind = window->isVisible(); });
    QVERIFY(!window->isVisible());
    QTRY_VERIFY(shownBehind);
    QVERIFY(!shownBefore);
}

void TestDocumentViews::destroyedWithItsViews()
{
    const QPointer<TestView> first = showTestView("first");
    const QPointer<TestView> second = showTestView("second");
    second->refuseClose = true;
    const QPointer<QWidget> window = ViewManager::mainWindow();

    m_core->shutdown();

    QVERIFY(!first);
    QVERIFY(!second);
    QVERIFY(!window);
    QVERIFY(!ViewManager::instance());
}

void TestDocumentViews::logLines()
{
    auto *view = new TestView(QStringLiteral("top"));
    const QString name = logged(static_cast<IView *>(view));
    auto *removed = new TestView(QStringLiteral("removed"));
    const QString removedName = logged(static_cast<IView *>(removed));
    MessageRecorder log;

    ViewManager::showView(view);
    ViewManager::closeView(view);
    ViewManager::showView(removed);
    ViewManager::removeView(removed);

    QCOMPARE(log.lines(QtDebugMsg, QStringLiteral("show view:")),
             (QStringList{QStringLiteral("show view: ") + name,
                          QStringLiteral("show view: ") + removedName}));
    QCOMPARE(log.lines(QtDebugMsg, QStringLiteral("current view:")).constFirst(),
             QStringLiteral("current view: %1 \"top\"").arg(name));
    QCOMPARE(log.lines(QtDebugMsg, QStringLiteral("closing view:")),
             QStringList{QStringLiteral("closing view: ") + name});
    QCOMPARE(log.lines(QtDebugMsg, QStringLiteral("view closed:")),
             QStringList{QStringLiteral("view closed: %1 \"top\"").arg(name)});
    QCOMPARE(log.lines(QtDebugMsg, QStringLiteral("force remove view:")),
             QStringList{QStringLiteral("force remove view: ") + removedName});
    QVERIFY(log.lines(QtWarningMsg).isEmpty());
    QVERIFY(log.lines(QtCriticalMsg).isEmpty());
}

QTEST_MAIN(TestDocumentViews)
#include "tst_documentviews.moc"
