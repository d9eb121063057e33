// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// The menus, the main window, and views that are shown and become current.

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
#include <QSignalSpy>
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
    void reportsCanBeQueuedByName();
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

    void changeOfTheCurrentViewTellsOldThenNew();
    void currentViewChangesBetweenTheTwoCalls();
    void actionsAreUpToDateWhenTheChangeIsReported();
    void currentViewIsNullAfterTheLastOne();
    void windowWithoutAViewIsNoCurrentView();
    void closeNamesTheCurrentView();
    void closeFollowsTheTitleOfTheCurrentView();
    void closeAllIsEnabledWhileThereAreViews();

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

void TestDocumentViews::reportsCanBeQueuedByName()
{
    MessageRecorder log;
    const ViewManager *manager = ViewManager::instance();
    QSignalSpy contexts(manager, SIGNAL(contextsChanged(Core::ContextList)));
    QSignalSpy activated(manager, SIGNAL(viewActiveted(Core::IView *)));
    QSignalSpy closed(manager, SIGNAL(viewClosed(Core::IView *)));

    ViewManager::addGlobalContext(QStringLiteral("X"));
    IView *view = showTestView("view");
    ViewManager::closeView(view);

    QVERIFY(log.lines(QtWarningMsg).isEmpty());
    QCOMPARE(contexts.first().first().toStringList(), texts({"X", "Core.Context.Global"}));
    QCOMPARE(activated.first().first().value<IView *>(), view);
    QCOMPARE(closed.first().first().value<IView *>(), view);
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
