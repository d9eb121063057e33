// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// What a proxy starts with, which action it chooses, and how both may go.

#include "boundproxy.h"

#include <idecore/actions/iaction.h>

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Core;

class TestIAction final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void idIsTheObjectName();
    void proxyHasNoParent();
    void shortcutWorksInEveryWindow();
    void flagsAreOffAtFirst();
    void presentationIsTakenFromTheFirstAction();
    void stateIsTakenFromTheFirstAction();
    void proxyIsDisabledUntilAContextIsCurrent();
    void initAgainTakesThePresentationAnew();
    void initCopiesInOrder();

    void toolTipCarriesTheShortcut_data();
    void toolTipCarriesTheShortcut();
    void shortcutIsAppendedToThePlainToolTip();
    void shortcutChangedReplacesTheOldOneInTheToolTip();
    void emptyToolTipStaysEmptyWithAShortcut();
    void shortcutRemovedLeavesAnEmptySpan();
    void shortcutIsAppendedToTheMirroredToolTip();

    void orderOfTheListIsThePriority();
    void nullActionIsIgnored();
    void emptyContextIsIgnored();
    void proxyItselfIsIgnored();
    void addedActionIsNotChosenAtOnce();
    void secondActionForALivingOneIsRefused();
    void actionReplacesADestroyedOne();
    void contextWithADestroyedActionIsSkipped();
    void unknownContextsLeaveTheActionCurrent();
    void emptyListLeavesTheActionCurrent();
    void unknownContextsLeaveTheActionMirrored();
    void removedContextStaysCurrentUntilTheNextChange();
    void removedContextIsNotFoundByTheNextChange();
    void emptyContextRemovesNothing();

    void destroyedActionDisablesAtTheNextUpdate();
    void destroyedActionHidesAtTheNextUpdateIfAsked();
    void destroyedActionLeavesTheProxyVisibleUnlessAsked();
    void unboundProxyIsHiddenOnlyIfAsked();
    void hiddenProxyShowsAgainWithTheNextAction();

    void proxyLeavesTheActionsAlive();
    void actionMayBeDestroyedByItsOwnHandler();
    void proxyMayBeDestroyedByAHandlerOfTheAction();
    void proxyMayBeDestroyedWhileItIsBound();
    void actionMayBeDestroyedWhileItIsBeingMirrored();
    void actionMayBeDestroyedAfterTheProxy();
};

void TestIAction::idIsTheObjectName()
{
    const Bound bound;

    QCOMPARE(bound.proxy.id(), QStringLiteral("Test.Command"));
    QCOMPARE(bound.proxy.objectName(), QStringLiteral("Test.Command"));
}

void TestIAction::proxyHasNoParent()
{
    QCOMPARE(Bound().proxy.parent(), nullptr);
}

void TestIAction::shortcutWorksInEveryWindow()
{
    QCOMPARE(Bound().proxy.shortcutContext(), Qt::ApplicationShortcut);
}

void TestIAction::flagsAreOffAtFirst()
{
    const Bound bound;

    QVERIFY(!bound.proxy.isTextUpdated());
    QVERIFY(!bound.proxy.isIconUpdated());
    QVERIFY(!bound.proxy.isHideWhenDeactivated());
}

void TestIAction::presentationIsTakenFromTheFirstAction()
{
    QAction action;
    action.setIcon(redIcon());
    action.setIconText(QStringLiteral("icon text"));
    action.setIconVisibleInMenu(false);
    action.setText(QStringLiteral("&Text"));
    action.setToolTip(QStringLiteral("Tip"));
    action.setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));
    action.setStatusTip(QStringLiteral("Status"));
    action.setWhatsThis(QStringLiteral("What"));

    const IAction proxy(QStringLiteral("Test.Command"), &action);

    QCOMPARE(proxy.icon().cacheKey(), action.icon().cacheKey());
    QCOMPARE(proxy.iconText(), QStringLiteral("icon text"));
    QVERIFY(!proxy.isIconVisibleInMenu());
    QCOMPARE(proxy.text(), QStringLiteral("&Text"));
    QCOMPARE(proxy.toolTip(), shown(QStringLiteral("Tip"), QKeySequence(QStringLiteral("Ctrl+S"))));
    QCOMPARE(proxy.shortcut(), QKeySequence(QStringLiteral("Ctrl+S")));
    QCOMPARE(proxy.statusTip(), QStringLiteral("Status"));
    QCOMPARE(proxy.whatsThis(), QStringLiteral("What"));
}

void TestIAction::stateIsTakenFromTheFirstAction()
{
    QAction action(QStringLiteral("Text"));
    action.setCheckable(true);
    action.setChecked(true);
    action.setVisible(false);

    const IAction proxy(QStringLiteral("Test.Command"), &action);

    QVERIFY(proxy.isCheckable());
    QVERIFY(proxy.isChecked());
    QVERIFY(!proxy.isVisible());
}

void TestIAction::proxyIsDisabledUntilAContextIsCurrent()
{
    Bound bound;
    QVERIFY(bound.a->isEnabled());
    QVERIFY(!bound.proxy.isEnabled());

    bound.proxy.setCurrentContexts({FirstContext});

    QVERIFY(bound.proxy.isEnabled());
}

void TestIAction::initAgainTakesThePresentationAnew()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});

    bound.proxy.init(bound.b.get());

    QCOMPARE(bound.proxy.text(), QStringLiteral("B"));
    QVERIFY(!bound.proxy.isEnabled());
}

void TestIAction::initCopiesInOrder()
{
    Bound bound;
    IAction &proxy = bound.proxy;
    proxy.setEnabled(true);
    QAction action;
    action.setIcon(redIcon());
    action.setIconText(QStringLiteral("icon text"));
    action.setIconVisibleInMenu(false);
    action.setText(QStringLiteral("text"));
    action.setToolTip(QStringLiteral("tip"));
    action.setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));
    action.setStatusTip(QStringLiteral("status"));
    action.setWhatsThis(QStringLiteral("what"));
    action.setCheckable(true);
    action.setChecked(true);
    action.setVisible(false);
    const QString toolTip = shown(action.toolTip(), action.shortcut());
    const QVector<ChangeJournal::Step> steps{
        // One change in Qt, which disables what it hides.
        {QStringLiteral("visible"), [&] { return !proxy.isVisible(); }},
        {QStringLiteral("disabled"), [&] { return !proxy.isEnabled(); }},
        {QStringLiteral("checked"), [&] { return proxy.isChecked(); }},
        {QStringLiteral("checkable"), [&] { return proxy.isCheckable(); }},
        {QStringLiteral("what's this"), [&] { return proxy.whatsThis() == action.whatsThis(); }},
        {QStringLiteral("status tip"), [&] { return proxy.statusTip() == action.statusTip(); }},
        {QStringLiteral("tool tip"), [&] { return proxy.toolTip() == toolTip; }},
        {QStringLiteral("shortcut"), [&] { return proxy.shortcut() == action.shortcut(); }},
        {QStringLiteral("text"), [&] { return proxy.text() == action.text(); }},
        {QStringLiteral("icon in menu"), [&] { return !proxy.isIconVisibleInMenu(); }},
        {QStringLiteral("icon text"), [&] { return proxy.iconText() == action.iconText(); }},
        {QStringLiteral("icon"),
         [&] { return proxy.icon().cacheKey() == action.icon().cacheKey(); }}};
    const ChangeJournal journal(&proxy, steps);

    proxy.init(&action);

    QCOMPARE(journal.names,
             (QStringList{QStringLiteral("icon"), QStringLiteral("icon text"),
                          QStringLiteral("icon in menu"), QStringLiteral("text"),
                          QStringLiteral("shortcut"), QStringLiteral("tool tip"),
                          QStringLiteral("status tip"), QStringLiteral("what's this"),
                          QStringLiteral("checkable"), QStringLiteral("checked"),
                          QStringLiteral("visible"), QStringLiteral("disabled")}));
}

void TestIAction::toolTipCarriesTheShortcut_data()
{
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QKeySequence>("key");
    QTest::addColumn<QString>("expected");
    QTest::newRow("both") << QStringLiteral("Save") << QKeySequence(QStringLiteral("Ctrl+S"))
                          << QStringLiteral("<nobr>Save <span style=\"color: gray; font-size: "
                                            "small\">Ctrl+S</span></nobr>");
    QTest::newRow("no key") << QStringLiteral("Save") << QKeySequence()
                            << QStringLiteral("<nobr>Save <span style=\"color: gray; font-size: "
                                              "small\"></span></nobr>");
    QTest::newRow("no tool tip") << QString() << QKeySequence(QStringLiteral("Ctrl+S"))
                                 << QString();
    QTest::newRow("place marker") << QStringLiteral("100%2") << QKeySequence(Qt::Key_F2)
                                  << QStringLiteral("<nobr>100%2 <span style=\"color: gray; "
                                                    "font-size: small\">F2</span></nobr>");
}

void TestIAction::toolTipCarriesTheShortcut()
{
    QFETCH(QString, toolTip);
    QFETCH(QKeySequence, key);

    QTEST(private_impl::formatToolTip(toolTip, key), "expected");
}

void TestIAction::shortcutIsAppendedToThePlainToolTip()
{
    Bound bound;

    bound.proxy.setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));

    QCOMPARE(bound.proxy.shortcut(), QKeySequence(QStringLiteral("Ctrl+S")));
    QCOMPARE(bound.proxy.toolTip(),
             shown(QStringLiteral("A"), QKeySequence(QStringLiteral("Ctrl+S"))));
}

void TestIAction::shortcutChangedReplacesTheOldOneInTheToolTip()
{
    Bound bound;
    bound.proxy.setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));

    bound.proxy.setShortcut(QKeySequence(QStringLiteral("Ctrl+T")));

    QCOMPARE(bound.proxy.toolTip(),
             shown(QStringLiteral("A"), QKeySequence(QStringLiteral("Ctrl+T"))));
}

void TestIAction::emptyToolTipStaysEmptyWithAShortcut()
{
    QAction action;
    QVERIFY(action.toolTip().isEmpty());
    IAction proxy(QStringLiteral("Test.Command"), &action);

    proxy.setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));

    QCOMPARE(proxy.toolTip(), QString());
}

void TestIAction::shortcutRemovedLeavesAnEmptySpan()
{
    Bound bound;
    bound.proxy.setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));

    bound.proxy.setShortcut(QKeySequence());

    QCOMPARE(bound.proxy.toolTip(), shown(QStringLiteral("A"), QKeySequence()));
}

void TestIAction::shortcutIsAppendedToTheMirroredToolTip()
{
    Bound bound;
    bound.proxy.setTextUpdated(true);
    bound.proxy.setCurrentContexts({SecondContext});

    bound.proxy.setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));

    QCOMPARE(bound.proxy.toolTip(),
             shown(QStringLiteral("B"), QKeySequence(QStringLiteral("Ctrl+S"))));
}

void TestIAction::orderOfTheListIsThePriority()
{
    Bound bound;
    bound.proxy.setTextUpdated(true);

    bound.proxy.setCurrentContexts({SecondContext, FirstContext});
    QCOMPARE(bound.proxy.text(), QStringLiteral("B"));

    bound.proxy.setCurrentContexts({FirstContext, SecondContext});
    QCOMPARE(bound.proxy.text(), QStringLiteral("A"));
}

void TestIAction::nullActionIsIgnored()
{
    Bound bound;

    bound.proxy.addOverrideAction(nullptr, QStringLiteral("Test.C"));
    bound.proxy.setCurrentContexts({QStringLiteral("Test.C")});

    QVERIFY(!bound.proxy.isEnabled());
}

void TestIAction::emptyContextIsIgnored()
{
    Bound bound;
    QAction action;

    bound.proxy.addOverrideAction(&action, QString());
    bound.proxy.setCurrentContexts({QString()});

    QVERIFY(!bound.proxy.isEnabled());
}

void TestIAction::proxyItselfIsIgnored()
{
    Bound bound;

    bound.proxy.addOverrideAction(&bound.proxy, QStringLiteral("Test.C"));
    bound.proxy.setCurrentContexts({QStringLiteral("Test.C"), FirstContext});

    QVERIFY(bound.proxy.isEnabled());
}

void TestIAction::addedActionIsNotChosenAtOnce()
{
    Bound bound;
    bound.proxy.setTextUpdated(true);
    bound.proxy.setCurrentContexts({QStringLiteral("Test.C"), FirstContext});
    QAction action(QStringLiteral("C"));

    bound.proxy.addOverrideAction(&action, QStringLiteral("Test.C"));
    bound.proxy.update();

    QCOMPARE(bound.proxy.text(), QStringLiteral("A"));
}

void TestIAction::secondActionForALivingOneIsRefused()
{
    Bound bound;
    bound.proxy.setTextUpdated(true);
    QAction second(QStringLiteral("second"));
    QTest::ignoreMessage(QtDebugMsg, "IAction: duplicate action on context:  \"Test.A\"");

    bound.proxy.addOverrideAction(&second, FirstContext);
    bound.proxy.setCurrentContexts({FirstContext});

    QCOMPARE(bound.proxy.text(), QStringLiteral("A"));
}

void TestIAction::actionReplacesADestroyedOne()
{
    Bound bound;
    bound.proxy.setTextUpdated(true);
    bound.proxy.setCurrentContexts({FirstContext});
    bound.a.reset();
    QAction second(QStringLiteral("second"));

    bound.proxy.addOverrideAction(&second, FirstContext);
    bound.proxy.setCurrentContexts({FirstContext});

    QCOMPARE(bound.proxy.text(), QStringLiteral("second"));
}

void TestIAction::contextWithADestroyedActionIsSkipped()
{
    Bound bound;
    bound.proxy.setTextUpdated(true);
    bound.a.reset();

    bound.proxy.setCurrentContexts({FirstContext, SecondContext});

    QCOMPARE(bound.proxy.text(), QStringLiteral("B"));
}

void TestIAction::unknownContextsLeaveTheActionCurrent()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.setCurrentContexts({QStringLiteral("Test.Unknown")});
    bound.proxy.trigger();

    QCOMPARE(spy.count(), 1);
}

void TestIAction::emptyListLeavesTheActionCurrent()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.setCurrentContexts({});
    bound.proxy.trigger();

    QCOMPARE(spy.count(), 1);
}

void TestIAction::unknownContextsLeaveTheActionMirrored()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});

    bound.proxy.setCurrentContexts({QStringLiteral("Test.Unknown")});
    bound.a->setEnabled(false);

    QVERIFY(!bound.proxy.isEnabled());
}

void TestIAction::removedContextStaysCurrentUntilTheNextChange()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext, SecondContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.removeContextAction(FirstContext);
    bound.proxy.trigger();

    QCOMPARE(spy.count(), 1);
}

void TestIAction::removedContextIsNotFoundByTheNextChange()
{
    Bound bound;
    bound.proxy.setTextUpdated(true);
    bound.proxy.setCurrentContexts({FirstContext, SecondContext});

    bound.proxy.removeContextAction(FirstContext);
    bound.proxy.setCurrentContexts({FirstContext, SecondContext});

    QCOMPARE(bound.proxy.text(), QStringLiteral("B"));
}

void TestIAction::emptyContextRemovesNothing()
{
    Bound bound;

    bound.proxy.removeContextAction(QString());
    bound.proxy.setCurrentContexts({FirstContext});

    QVERIFY(bound.proxy.isEnabled());
}

void TestIAction::destroyedActionDisablesAtTheNextUpdate()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});

    bound.a.reset();
    bound.proxy.update();

    QVERIFY(!bound.proxy.isEnabled());
}

void TestIAction::destroyedActionHidesAtTheNextUpdateIfAsked()
{
    Bound bound;
    bound.proxy.setHideWhenDeactivated(true);
    bound.proxy.setCurrentContexts({FirstContext});

    bound.a.reset();
    bound.proxy.setCurrentContexts({FirstContext});

    QVERIFY(!bound.proxy.isVisible());
    QVERIFY(!bound.proxy.isEnabled());
}

void TestIAction::destroyedActionLeavesTheProxyVisibleUnlessAsked()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});

    bound.a.reset();
    bound.proxy.setCurrentContexts({FirstContext});

    QVERIFY(bound.proxy.isVisible());
}

void TestIAction::unboundProxyIsHiddenOnlyIfAsked()
{
    Bound bound;
    bound.proxy.update();
    QVERIFY(bound.proxy.isVisible());

    bound.proxy.setHideWhenDeactivated(true);
    bound.proxy.update();

    QVERIFY(!bound.proxy.isVisible());
}

void TestIAction::hiddenProxyShowsAgainWithTheNextAction()
{
    Bound bound;
    bound.proxy.setHideWhenDeactivated(true);
    bound.proxy.setCurrentContexts({});
    QVERIFY(!bound.proxy.isVisible());

    bound.proxy.setCurrentContexts({SecondContext});

    QVERIFY(bound.proxy.isVisible());
    QVERIFY(bound.proxy.isEnabled());
}

void TestIAction::proxyLeavesTheActionsAlive()
{
    QAction action;
    const QPointer<QAction> guard(&action);
    auto proxy = std::make_unique<IAction>(QStringLiteral("Test.Command"), &action);
    proxy->addOverrideAction(&action, FirstContext);
    proxy->setCurrentContexts({FirstContext});

    proxy.reset();

    QVERIFY(guard);
}

void TestIAction::actionMayBeDestroyedByItsOwnHandler()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    connect(bound.a.get(), &QAction::triggered, this, [&bound] { bound.a.reset(); });

    bound.proxy.trigger();
    bound.proxy.setCurrentContexts({FirstContext});

    QVERIFY(!bound.a);
    QVERIFY(!bound.proxy.isEnabled());
}

void TestIAction::proxyMayBeDestroyedByAHandlerOfTheAction()
{
    QAction action;
    QPointer<IAction> proxy = new IAction(QStringLiteral("Test.Command"), &action);
    proxy->addOverrideAction(&action, FirstContext);
    proxy->setCurrentContexts({FirstContext});
    connect(&action, &QAction::triggered, this, [&proxy] { delete proxy; });

    proxy->trigger();

    QVERIFY(!proxy);
}

void TestIAction::proxyMayBeDestroyedWhileItIsBound()
{
    QAction action;
    QPointer<IAction> proxy = new IAction(QStringLiteral("Test.Command"), &action);
    proxy->addOverrideAction(&action, FirstContext);
    connect(proxy.data(), &QAction::changed, this, [&proxy] { delete proxy; });

    proxy->setCurrentContexts({FirstContext});

    QVERIFY(!proxy);
}

void TestIAction::actionMayBeDestroyedWhileItIsBeingMirrored()
{
    Bound bound;
    bound.a->setCheckable(true);
    connect(&bound.proxy, &QAction::changed, this, [&bound] { bound.a.reset(); });

    bound.proxy.setCurrentContexts({FirstContext});
    bound.proxy.setCurrentContexts({});

    QVERIFY(!bound.a);
    QVERIFY(!bound.proxy.isEnabled());
}

void TestIAction::actionMayBeDestroyedAfterTheProxy()
{
    auto action = std::make_unique<QAction>();
    auto proxy = std::make_unique<IAction>(QStringLiteral("Test.Command"), action.get());
    proxy->addOverrideAction(action.get(), FirstContext);
    proxy->setCurrentContexts({FirstContext});
    const QSignalSpy spy(action.get(), &QObject::destroyed);

    proxy.reset();
    action->setEnabled(false);
    action.reset();

    QCOMPARE(spy.count(), 1);
}

QTEST_MAIN(TestIAction)
#include "tst_iaction.moc"
