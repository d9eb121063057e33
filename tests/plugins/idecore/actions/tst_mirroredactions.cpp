// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// What a proxy takes from its current action and what it hands on to it.

#include "boundproxy.h"

#include <idecore/actions/iaction.h>

#include <QSignalSpy>
#include <QTest>

using namespace Core;

class TestMirroredActions final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void removedActionThatStaysCurrentIsMirrored();
    void removedActionIsMirroredUntilTheNextChange();
    void proxyForwardsNothingWhileItIsBound();
    void sameActionForTwoContextsIsMirroredOnce();

    void everythingIsMirroredInOrder();
    void stateIsMirroredAtOnce_data();
    void stateIsMirroredAtOnce();
    void textIsMirroredOnlyIfAsked();
    void textUpdatedCarriesToolTipAndStatusTip();
    void textFlagTakesEffectAtTheNextUpdate();
    void iconIsMirroredOnlyIfAsked();
    void iconFlagTakesEffectAtTheNextUpdate();
    void hideFlagTakesEffectAtTheNextUpdate();
    void shortcutIsNeverMirrored();
    void whatsThisIsNeverMirrored();
    void actionChangedUpdates();
    void uncheckableActionClearsTheCheckMark();
    void silentChangeOfTheActionShowsAfterTheNextChange();

    void triggeringTriggersTheCurrentActionOnce();
    void triggeredComesFromTheActionItself();
    void actionNotCurrentIsNotTriggered();
    void earlierActionIsNotMirroredAnyMore();
    void togglingSetsTheCheckedState();
    void triggeredTellsTheCheckedStateOnce();
    void connectingTwiceForwardsOnce();
    void disconnectedProxyForwardsNothing();
    void disconnectedProxyMirrorsNothing();
    void disconnectingLeavesTheConnectionsOfOthers();
    void connectingWithoutAnActionForwardsNothing();
    void changeOfContextsConnectsAgain();
    void connectionsTakenOffTheActionComeBack();
    void connectionsTakenOffTheProxyComeBack();
};

void TestMirroredActions::removedActionThatStaysCurrentIsMirrored()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});

    bound.proxy.removeContextAction(FirstContext);
    bound.proxy.setCurrentContexts({FirstContext});
    bound.a->setEnabled(false);

    QVERIFY(!bound.proxy.isEnabled());
}

void TestMirroredActions::removedActionIsMirroredUntilTheNextChange()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});

    bound.proxy.removeContextAction(FirstContext);
    bound.a->setEnabled(false);

    QVERIFY(!bound.proxy.isEnabled());
}

void TestMirroredActions::proxyForwardsNothingWhileItIsBound()
{
    Bound bound;
    bound.b->setVisible(false);
    bound.proxy.setCurrentContexts({SecondContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);
    connect(&bound.proxy, &QAction::changed, this, [&bound] { bound.proxy.trigger(); });

    bound.proxy.setCurrentContexts({FirstContext});

    QCOMPARE(spy.count(), 0);
}

void TestMirroredActions::sameActionForTwoContextsIsMirroredOnce()
{
    Bound bound;
    bound.proxy.setIconUpdated(true); // every update shows as a change
    bound.proxy.addOverrideAction(bound.a.get(), QStringLiteral("Test.C"));
    bound.proxy.setCurrentContexts({FirstContext});
    bound.proxy.setCurrentContexts({QStringLiteral("Test.C")});
    const QSignalSpy spy(&bound.proxy, &QAction::changed);

    bound.a->setWhatsThis(QStringLiteral("not mirrored"));

    QCOMPARE(spy.count(), 1);
}

void TestMirroredActions::everythingIsMirroredInOrder()
{
    Bound bound;
    IAction &proxy = bound.proxy;
    QAction &action = *bound.b;
    action.setIcon(redIcon());
    action.setIconText(QStringLiteral("icon text"));
    action.setIconVisibleInMenu(false);
    action.setToolTip(QStringLiteral("tip"));
    action.setStatusTip(QStringLiteral("status"));
    action.setCheckable(true);
    action.setChecked(true);
    action.setVisible(false); // disables it, too
    proxy.setCurrentContexts({FirstContext});
    proxy.setTextUpdated(true);
    proxy.setIconUpdated(true);
    const QString toolTip = shown(action.toolTip(), QKeySequence());
    const QVector<ChangeJournal::Step> steps{
        {QStringLiteral("visible"), [&] { return !proxy.isVisible(); }},
        {QStringLiteral("enabled"), [&] { return !proxy.isEnabled(); }},
        {QStringLiteral("checked"), [&] { return proxy.isChecked(); }},
        {QStringLiteral("checkable"), [&] { return proxy.isCheckable(); }},
        {QStringLiteral("icon in menu"), [&] { return !proxy.isIconVisibleInMenu(); }},
        {QStringLiteral("icon text"), [&] { return proxy.iconText() == action.iconText(); }},
        {QStringLiteral("icon"),
         [&] { return proxy.icon().cacheKey() == action.icon().cacheKey(); }},
        {QStringLiteral("status tip"), [&] { return proxy.statusTip() == action.statusTip(); }},
        {QStringLiteral("tool tip"), [&] { return proxy.toolTip() == toolTip; }},
        {QStringLiteral("text"), [&] { return proxy.text() == action.text(); }}};
    const ChangeJournal journal(&proxy, steps);

    proxy.setCurrentContexts({SecondContext});

    QCOMPARE(journal.names,
             (QStringList{QStringLiteral("text"), QStringLiteral("tool tip"),
                          QStringLiteral("status tip"), QStringLiteral("icon"),
                          QStringLiteral("icon text"), QStringLiteral("icon in menu"),
                          QStringLiteral("checkable"), QStringLiteral("checked"),
                          QStringLiteral("enabled"), QStringLiteral("visible")}));
}

void TestMirroredActions::stateIsMirroredAtOnce_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("checkable") << QByteArrayLiteral("checkable");
    QTest::newRow("checked") << QByteArrayLiteral("checked");
    QTest::newRow("enabled") << QByteArrayLiteral("enabled");
    QTest::newRow("visible") << QByteArrayLiteral("visible");
}

void TestMirroredActions::stateIsMirroredAtOnce()
{
    QFETCH(QByteArray, property);
    Bound bound;
    bound.a->setCheckable(property == "checked");
    bound.proxy.setCurrentContexts({FirstContext});
    for (int i = 0; i < 2; ++i) {
        const bool now = !bound.a->property(property).toBool();

        bound.a->setProperty(property, now);

        QCOMPARE(bound.proxy.property(property).toBool(), now);
    }
}

void TestMirroredActions::textIsMirroredOnlyIfAsked()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    const QString toolTip = bound.proxy.toolTip();

    bound.a->setText(QStringLiteral("changed"));
    bound.a->setToolTip(QStringLiteral("changed"));
    bound.a->setStatusTip(QStringLiteral("changed"));

    QCOMPARE(bound.proxy.text(), QStringLiteral("A"));
    QCOMPARE(bound.proxy.toolTip(), toolTip);
    QCOMPARE(bound.proxy.statusTip(), QString());
}

void TestMirroredActions::textUpdatedCarriesToolTipAndStatusTip()
{
    Bound bound;
    bound.proxy.setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));
    bound.proxy.setTextUpdated(true);
    bound.proxy.setCurrentContexts({FirstContext});

    bound.a->setText(QStringLiteral("Save \"a.v\""));
    bound.a->setToolTip(QStringLiteral("tip"));
    bound.a->setStatusTip(QStringLiteral("status"));

    QCOMPARE(bound.proxy.text(), QStringLiteral("Save \"a.v\""));
    QCOMPARE(bound.proxy.toolTip(),
             shown(QStringLiteral("tip"), QKeySequence(QStringLiteral("Ctrl+S"))));
    QCOMPARE(bound.proxy.statusTip(), QStringLiteral("status"));
}

void TestMirroredActions::textFlagTakesEffectAtTheNextUpdate()
{
    Bound bound;
    bound.proxy.setCurrentContexts({SecondContext});

    bound.proxy.setTextUpdated(true);
    QVERIFY(bound.proxy.isTextUpdated());
    QCOMPARE(bound.proxy.text(), QStringLiteral("A"));

    bound.proxy.update();
    QCOMPARE(bound.proxy.text(), QStringLiteral("B"));
}

void TestMirroredActions::iconIsMirroredOnlyIfAsked()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});

    bound.a->setIcon(redIcon());
    bound.a->setIconText(QStringLiteral("changed"));
    bound.a->setIconVisibleInMenu(!bound.proxy.isIconVisibleInMenu());

    QVERIFY(bound.proxy.icon().isNull());
    QCOMPARE(bound.proxy.iconText(), QStringLiteral("A"));
    QVERIFY(bound.proxy.isIconVisibleInMenu() != bound.a->isIconVisibleInMenu());
}

void TestMirroredActions::iconFlagTakesEffectAtTheNextUpdate()
{
    Bound bound;
    bound.b->setIcon(redIcon());
    bound.b->setIconText(QStringLiteral("icon text"));
    bound.b->setIconVisibleInMenu(false);
    bound.proxy.setCurrentContexts({SecondContext});

    bound.proxy.setIconUpdated(true);
    QVERIFY(bound.proxy.isIconUpdated());
    QVERIFY(bound.proxy.icon().isNull());

    bound.proxy.update();
    QCOMPARE(bound.proxy.icon().cacheKey(), bound.b->icon().cacheKey());
    QCOMPARE(bound.proxy.iconText(), QStringLiteral("icon text"));
    QVERIFY(!bound.proxy.isIconVisibleInMenu());
}

void TestMirroredActions::hideFlagTakesEffectAtTheNextUpdate()
{
    Bound bound;

    bound.proxy.setHideWhenDeactivated(true);
    QVERIFY(bound.proxy.isHideWhenDeactivated());
    QVERIFY(bound.proxy.isVisible());

    bound.proxy.setCurrentContexts({});
    QVERIFY(!bound.proxy.isVisible());
}

void TestMirroredActions::shortcutIsNeverMirrored()
{
    Bound bound;
    bound.proxy.setTextUpdated(true);
    bound.proxy.setIconUpdated(true);
    bound.proxy.setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));
    bound.b->setShortcut(QKeySequence(QStringLiteral("Ctrl+B")));

    bound.proxy.setCurrentContexts({SecondContext});
    bound.b->setShortcut(QKeySequence(QStringLiteral("Ctrl+X")));

    QCOMPARE(bound.proxy.shortcut(), QKeySequence(QStringLiteral("Ctrl+S")));
}

void TestMirroredActions::whatsThisIsNeverMirrored()
{
    Bound bound;
    bound.proxy.setTextUpdated(true);
    bound.proxy.setIconUpdated(true);
    bound.b->setWhatsThis(QStringLiteral("What"));

    bound.proxy.setCurrentContexts({SecondContext});

    QCOMPARE(bound.proxy.whatsThis(), QString());
}

void TestMirroredActions::actionChangedUpdates()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    bound.proxy.setEnabled(false);

    QVERIFY(QMetaObject::invokeMethod(&bound.proxy, "actionChanged"));

    QVERIFY(bound.proxy.isEnabled());
}

void TestMirroredActions::uncheckableActionClearsTheCheckMark()
{
    Bound bound;
    bound.a->setCheckable(true);
    bound.a->setChecked(true);
    bound.proxy.setCurrentContexts({FirstContext});
    QVERIFY(bound.proxy.isChecked());

    bound.proxy.setCurrentContexts({SecondContext});

    QVERIFY(!bound.proxy.isCheckable());
    QVERIFY(!bound.proxy.isChecked());
    QVERIFY(bound.a->isChecked());
}

void TestMirroredActions::silentChangeOfTheActionShowsAfterTheNextChange()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    {
        const QSignalBlocker blocker(bound.a.get());
        bound.a->setEnabled(false);
    }
    QVERIFY(bound.proxy.isEnabled());

    bound.proxy.setCurrentContexts({FirstContext});

    QVERIFY(!bound.proxy.isEnabled());
}

void TestMirroredActions::triggeringTriggersTheCurrentActionOnce()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    bound.proxy.setCurrentContexts({SecondContext});
    bound.proxy.setCurrentContexts({FirstContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.trigger();

    QCOMPARE(spy.count(), 1);
}

void TestMirroredActions::triggeredComesFromTheActionItself()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    class Receiver final : public QObject
    {
    public:
        void take() { from = sender(); }
        const QObject *from = nullptr;
    } receiver;
    connect(bound.a.get(), &QAction::triggered, &receiver, &Receiver::take);

    bound.proxy.trigger();

    QCOMPARE(receiver.from, static_cast<const QObject *>(bound.a.get()));
}

void TestMirroredActions::actionNotCurrentIsNotTriggered()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    bound.proxy.setCurrentContexts({SecondContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.trigger();

    QCOMPARE(spy.count(), 0);
}

void TestMirroredActions::earlierActionIsNotMirroredAnyMore()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    bound.proxy.setCurrentContexts({SecondContext});

    bound.a->setEnabled(false);

    QVERIFY(bound.proxy.isEnabled());
}

void TestMirroredActions::togglingSetsTheCheckedState()
{
    Bound bound;
    bound.a->setCheckable(true);
    bound.proxy.setCurrentContexts({FirstContext});

    bound.proxy.trigger();
    QVERIFY(bound.a->isChecked());

    bound.proxy.setChecked(false);
    QVERIFY(!bound.a->isChecked());
}

void TestMirroredActions::triggeredTellsTheCheckedStateOnce()
{
    Bound bound;
    bound.a->setCheckable(true);
    bound.proxy.setCurrentContexts({FirstContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.trigger();
    bound.proxy.trigger();

    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.first(), QVariantList{true});
    QCOMPARE(spy.last(), QVariantList{false});
}

void TestMirroredActions::connectingTwiceForwardsOnce()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.connectAction();
    bound.proxy.trigger();

    QCOMPARE(spy.count(), 1);
}

void TestMirroredActions::disconnectedProxyForwardsNothing()
{
    Bound bound;
    bound.a->setCheckable(true);
    bound.proxy.setCurrentContexts({FirstContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.disconnectAction();
    bound.proxy.trigger();
    QCOMPARE(spy.count(), 0);
    QVERIFY(!bound.a->isChecked());

    bound.proxy.connectAction();
    bound.proxy.trigger();
    QCOMPARE(spy.count(), 1);
}

void TestMirroredActions::disconnectedProxyMirrorsNothing()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});

    bound.proxy.disconnectAction();
    bound.a->setEnabled(false);
    QVERIFY(bound.proxy.isEnabled());

    bound.proxy.connectAction();
    bound.a->setVisible(false);
    QVERIFY(!bound.proxy.isEnabled());
}

void TestMirroredActions::disconnectingLeavesTheConnectionsOfOthers()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    connect(&bound.proxy, &QAction::triggered, bound.b.get(), &QAction::trigger);
    connect(bound.a.get(), &QAction::changed, bound.b.get(), &QAction::trigger);
    const QSignalSpy spy(bound.b.get(), &QAction::triggered);

    bound.proxy.disconnectAction();
    bound.proxy.trigger();
    bound.a->setEnabled(false);

    QCOMPARE(spy.count(), 2);
}

void TestMirroredActions::connectingWithoutAnActionForwardsNothing()
{
    Bound bound;
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.disconnectAction();
    bound.proxy.connectAction();
    bound.proxy.setEnabled(true);
    bound.proxy.trigger();

    QCOMPARE(spy.count(), 0);
}

void TestMirroredActions::changeOfContextsConnectsAgain()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    bound.proxy.disconnectAction();

    bound.proxy.setCurrentContexts({FirstContext});
    bound.a->setEnabled(false);

    QVERIFY(!bound.proxy.isEnabled());
}

void TestMirroredActions::connectionsTakenOffTheActionComeBack()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});

    bound.a->disconnect();
    bound.proxy.setCurrentContexts({FirstContext});
    bound.a->setEnabled(false);

    QVERIFY(!bound.proxy.isEnabled());
}

void TestMirroredActions::connectionsTakenOffTheProxyComeBack()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.disconnect();
    bound.proxy.setCurrentContexts({FirstContext});
    bound.proxy.trigger();

    QCOMPARE(spy.count(), 1);
}

QTEST_MAIN(TestMirroredActions)
#include "tst_mirroredactions.moc"
