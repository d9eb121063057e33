// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/documents.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/views/viewmanager.h>
#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QAction>
#include <QActionEvent>
#include <QMenu>
#include <QPointer>
#include <QTest>

#include <memory>

using Core::ViewManager;

namespace {

QMenu *windowMenu()
{
    return Core::ActionManager::menu(QStringLiteral("Core.Menu.Window"));
}

/// Counts what is done to the entries of a menu.
class ActionEvents final : public QObject
{
public:
    explicit ActionEvents(QMenu *menu) { menu->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        added += event->type() == QEvent::ActionAdded;
        removed += event->type() == QEvent::ActionRemoved;
        changed += event->type() == QEvent::ActionChanged;
        return false;
    }

    int added = 0;
    int removed = 0;
    int changed = 0;
};

} // namespace

class TestWindowMenu final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void listsTheViewsBehindTheFixedEntries();
    void listsInOrderOfShowingWithTheCurrentOneChecked();
    void titlesAreTakenWhenTheMenuOpens();
    void closedAndRemovedViewsAreNotListed();
    void entriesAreMadeAnewAtEveryOpening();
    void entriesBelongToTheManager();
    void choosingAnEntryMakesItsViewCurrent();
    void choosingTheCheckedEntryActivatesItAgain();
    void togglingAnEntryMakesItsViewCurrent();
    void withoutCurrentViewNoneIsChecked();
    void mappingNothingDoesNothing();
    void mappingAForeignWidgetDoesNothing();
    void mappingAnyWindowOfTheAreaMakesItCurrent();
    void titleAndActivationCostNoRebuild();
    void openMenuStaysUntouchedByATitle();

private:
    std::unique_ptr<CoreFixture> m_core;
};

void TestWindowMenu::init()
{
    m_core = std::make_unique<CoreFixture>();
}

void TestWindowMenu::cleanup()
{
    m_core.reset();
}

void TestWindowMenu::listsTheViewsBehindTheFixedEntries()
{
    showTestView("first");
    showTestView("second");

    Q_EMIT windowMenu()->aboutToShow();

    QCOMPARE(menuEntries(windowMenu()),
             texts({"[ ] &Full Screen", "--", "Tile", "Cascade", "--", "Reset Layout", "--",
                    "> Panels", "--", "[ ] first", "[x] second"}));
}

void TestWindowMenu::listsInOrderOfShowingWithTheCurrentOneChecked()
{
    showTestView("c");
    TestView *second = showTestView("a");
    showTestView("b");
    ViewManager::showView(second);

    QCOMPARE(listedViews(), texts({"[ ] c", "[x] a", "[ ] b"}));
}

void TestWindowMenu::titlesAreTakenWhenTheMenuOpens()
{
    TestView *view = showTestView("old");
    QCOMPARE(listedViews(), texts({"[x] old"}));

    view->setShortTitle(QStringLiteral("new"));

    QCOMPARE(listedViews(), texts({"[x] new"}));
}

void TestWindowMenu::closedAndRemovedViewsAreNotListed()
{
    TestView *first = showTestView("first");
    TestView *second = showTestView("second");
    showTestView("third");

    ViewManager::closeView(first);
    ViewManager::removeView(second);

    QCOMPARE(listedViews(), texts({"[x] third"}));
}

void TestWindowMenu::entriesAreMadeAnewAtEveryOpening()
{
    showTestView("view");
    listedViews();
    const QPointer<QAction> entry = windowMenu()->actions().at(9);

    listedViews();

    QVERIFY(!entry);
    QCOMPARE(windowMenu()->actions().size(), 10);
}

void TestWindowMenu::entriesBelongToTheManager()
{
    showTestView("view");

    listedViews();

    QCOMPARE(windowMenu()->actions().at(9)->parent(), ViewManager::instance());
}

void TestWindowMenu::choosingAnEntryMakesItsViewCurrent()
{
    TestView *first = showTestView("first");
    showTestView("second");
    listedViews();

    windowMenu()->actions().at(9)->trigger();

    QCOMPARE(ViewManager::currentView(), first);
    QCOMPARE(listedViews(), texts({"[x] first", "[ ] second"}));
}

void TestWindowMenu::choosingTheCheckedEntryActivatesItAgain()
{
    TestView *view = showTestView("view");
    listedViews();

    windowMenu()->actions().at(9)->trigger();

    QCOMPARE(ViewManager::currentView(), view);
    QCOMPARE(view->deactivated, 1);
    QCOMPARE(view->activated, 2);
}

void TestWindowMenu::togglingAnEntryMakesItsViewCurrent()
{
    TestView *first = showTestView("first");
    showTestView("second");
    listedViews();

    windowMenu()->actions().at(9)->toggle();

    QCOMPARE(ViewManager::currentView(), first);
}

void TestWindowMenu::withoutCurrentViewNoneIsChecked()
{
    showTestView("view");
    ViewManager::instance()->onCurrentSubWindowChanged(nullptr);

    QCOMPARE(listedViews(), texts({"[ ] view"}));
}

void TestWindowMenu::mappingNothingDoesNothing()
{
    TestView *view = showTestView("view");

    ViewManager::instance()->onActionMapped(nullptr);

    QCOMPARE(view->activated, 1);
}

void TestWindowMenu::mappingAForeignWidgetDoesNothing()
{
    TestView *view = showTestView("view");
    QWidget foreign;

    ViewManager::instance()->onActionMapped(&foreign);

    QCOMPARE(view->activated, 1);
}

void TestWindowMenu::mappingAnyWindowOfTheAreaMakesItCurrent()
{
    auto *foreign = new Utils::MdiSubWindow;
    documentArea()->addSubWindow(foreign);
    showTestView("view");

    ViewManager::instance()->onActionMapped(foreign);

    QCOMPARE(documentArea()->currentWindow(), foreign);
}

void TestWindowMenu::titleAndActivationCostNoRebuild()
{
    TestView *first = showTestView("first");
    showTestView("second");
    listedViews();
    const ActionEvents events(windowMenu());

    first->setShortTitle(QStringLiteral("new"));
    ViewManager::showView(first);
    QCoreApplication::processEvents();

    QCOMPARE(events.added, 0);
    QCOMPARE(events.removed, 0);
    QCOMPARE(events.changed, 0);
}

void TestWindowMenu::openMenuStaysUntouchedByATitle()
{
    m_core->show();
    TestView *view = showTestView("old");
    windowMenu()->popup(QPoint(10, 10));
    QVERIFY(QTest::qWaitForWindowExposed(windowMenu()));
    const ActionEvents events(windowMenu());

    view->setShortTitle(QStringLiteral("new"));
    QCoreApplication::processEvents();
    const QStringList entries = menuEntries(windowMenu()).mid(9);
    windowMenu()->close();

    QCOMPARE(events.added, 0);
    QCOMPARE(entries, texts({"[x] old"}));
}

QTEST_MAIN(TestWindowMenu)
#include "tst_windowmenu.moc"
