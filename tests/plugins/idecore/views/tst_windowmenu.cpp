// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/testview.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

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

/// The entries behind the fixed ones, as the menu opens.
QStringList listedViews()
{
    Q_EMIT windowMenu()->aboutToShow();
    return menuEntries(windowMenu()).mid(9);
}

TestView *show(const char *title)
{
    auto *view = new TestView(QString::fromUtf8(title));
    ViewManager::showView(view);
    return view;
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
    void withoutCurrentViewNoneIsChecked();
    void mappingNothingDoesNothing();
    void mappingAForeignWidgetDoesNothing();
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
    show("first");
    show("second");

    Q_EMIT windowMenu()->aboutToShow();

    QCOMPARE(menuEntries(windowMenu()),
             texts({"[ ] &Full Screen", "--", "Tile", "Cascade", "--", "Reset Layout", "--",
                    "> Panels", "--", "[ ] first", "[x] second"}));
}

void TestWindowMenu::listsInOrderOfShowingWithTheCurrentOneChecked()
{
    show("c");
    TestView *second = show("a");
    show("b");
    ViewManager::showView(second);

    QCOMPARE(listedViews(), texts({"[ ] c", "[x] a", "[ ] b"}));
}

void TestWindowMenu::titlesAreTakenWhenTheMenuOpens()
{
    TestView *view = show("old");
    QCOMPARE(listedViews(), texts({"[x] old"}));

    view->setShortTitle(QStringLiteral("new"));

    QCOMPARE(listedViews(), texts({"[x] new"}));
}

void TestWindowMenu::closedAndRemovedViewsAreNotListed()
{
    TestView *first = show("first");
    TestView *second = show("second");
    show("third");

    ViewManager::closeView(first);
    ViewManager::removeView(second);

    QCOMPARE(listedViews(), texts({"[x] third"}));
}

void TestWindowMenu::entriesAreMadeAnewAtEveryOpening()
{
    show("view");
    listedViews();
    const QPointer<QAction> entry = windowMenu()->actions().at(9);

    listedViews();

    QVERIFY(!entry);
    QCOMPARE(windowMenu()->actions().size(), 10);
}

void TestWindowMenu::entriesBelongToTheManager()
{
    show("view");

    listedViews();

    QCOMPARE(windowMenu()->actions().at(9)->parent(), ViewManager::instance());
}

void TestWindowMenu::choosingAnEntryMakesItsViewCurrent()
{
    TestView *first = show("first");
    show("second");
    listedViews();

    windowMenu()->actions().at(9)->trigger();

    QCOMPARE(ViewManager::currentView(), first);
    QCOMPARE(listedViews(), texts({"[x] first", "[ ] second"}));
}

void TestWindowMenu::choosingTheCheckedEntryActivatesItAgain()
{
    TestView *view = show("view");
    listedViews();

    windowMenu()->actions().at(9)->trigger();

    QCOMPARE(ViewManager::currentView(), view);
    QCOMPARE(view->deactivated, 1);
    QCOMPARE(view->activated, 2);
}

void TestWindowMenu::withoutCurrentViewNoneIsChecked()
{
    show("view");
    ViewManager::instance()->onCurrentSubWindowChanged(nullptr);

    QCOMPARE(listedViews(), texts({"[ ] view"}));
}

void TestWindowMenu::mappingNothingDoesNothing()
{
    TestView *view = show("view");

    ViewManager::instance()->onActionMapped(nullptr);

    QCOMPARE(view->activated, 1);
}

void TestWindowMenu::mappingAForeignWidgetDoesNothing()
{
    TestView *view = show("view");
    QWidget foreign;

    ViewManager::instance()->onActionMapped(&foreign);

    QCOMPARE(view->activated, 1);
}

void TestWindowMenu::titleAndActivationCostNoRebuild()
{
    TestView *first = show("first");
    show("second");
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
    TestView *view = show("old");
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
