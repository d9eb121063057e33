// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/actions/iaction.h>

#include <QPixmap>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Core;

namespace {

const QString FirstContext = QStringLiteral("Test.A");
const QString SecondContext = QStringLiteral("Test.B");

QIcon redIcon()
{
    QPixmap pixmap(4, 4);
    pixmap.fill(Qt::red);
    return QIcon(pixmap);
}

QString shown(const QString &toolTip, const QKeySequence &key)
{
    return QLatin1String("<nobr>") + toolTip
           + QLatin1String(" <span style=\"color: gray; font-size: small\">")
           + key.toString(QKeySequence::NativeText) + QLatin1String("</span></nobr>");
}

/// A proxy with an action for context A and one for context B.
struct Bound
{
    Bound()
    {
        proxy.addOverrideAction(a.get(), FirstContext);
        proxy.addOverrideAction(b.get(), SecondContext);
    }

    std::unique_ptr<QAction> a = std::make_unique<QAction>(QStringLiteral("A"));
    std::unique_ptr<QAction> b = std::make_unique<QAction>(QStringLiteral("B"));
    IAction proxy{QStringLiteral("Test.Command"), a.get()};
};

} // namespace

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
    void removedActionThatStaysCurrentIsMirrored();
    void removedActionIsMirroredUntilTheNextChange();
    void proxyForwardsNothingWhileItIsBound();
    void sameActionForTwoContextsIsMirroredOnce();

    void destroyedActionDisablesAtTheNextUpdate();
    void destroyedActionHidesAtTheNextUpdateIfAsked();
    void destroyedActionLeavesTheProxyVisibleUnlessAsked();
    void unboundProxyIsHiddenOnlyIfAsked();
    void hiddenProxyShowsAgainWithTheNextAction();

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

void TestIAction::removedActionThatStaysCurrentIsMirrored()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});

    bound.proxy.removeContextAction(FirstContext);
    bound.proxy.setCurrentContexts({FirstContext});
    bound.a->setEnabled(false);

    QVERIFY(!bound.proxy.isEnabled());
}

void TestIAction::removedActionIsMirroredUntilTheNextChange()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});

    bound.proxy.removeContextAction(FirstContext);
    bound.a->setEnabled(false);

    QVERIFY(!bound.proxy.isEnabled());
}

void TestIAction::proxyForwardsNothingWhileItIsBound()
{
    Bound bound;
    bound.b->setVisible(false);
    bound.proxy.setCurrentContexts({SecondContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);
    connect(&bound.proxy, &QAction::changed, this, [&bound] { bound.proxy.trigger(); });

    bound.proxy.setCurrentContexts({FirstContext});

    QCOMPARE(spy.count(), 0);
}

void TestIAction::sameActionForTwoContextsIsMirroredOnce()
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

void TestIAction::stateIsMirroredAtOnce_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("checkable") << QByteArrayLiteral("checkable");
    QTest::newRow("checked") << QByteArrayLiteral("checked");
    QTest::newRow("enabled") << QByteArrayLiteral("enabled");
    QTest::newRow("visible") << QByteArrayLiteral("visible");
}

void TestIAction::stateIsMirroredAtOnce()
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

void TestIAction::textIsMirroredOnlyIfAsked()
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

void TestIAction::textUpdatedCarriesToolTipAndStatusTip()
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

void TestIAction::textFlagTakesEffectAtTheNextUpdate()
{
    Bound bound;
    bound.proxy.setCurrentContexts({SecondContext});

    bound.proxy.setTextUpdated(true);
    QVERIFY(bound.proxy.isTextUpdated());
    QCOMPARE(bound.proxy.text(), QStringLiteral("A"));

    bound.proxy.update();
    QCOMPARE(bound.proxy.text(), QStringLiteral("B"));
}

void TestIAction::iconIsMirroredOnlyIfAsked()
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

void TestIAction::iconFlagTakesEffectAtTheNextUpdate()
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

void TestIAction::hideFlagTakesEffectAtTheNextUpdate()
{
    Bound bound;

    bound.proxy.setHideWhenDeactivated(true);
    QVERIFY(bound.proxy.isHideWhenDeactivated());
    QVERIFY(bound.proxy.isVisible());

    bound.proxy.setCurrentContexts({});
    QVERIFY(!bound.proxy.isVisible());
}

void TestIAction::shortcutIsNeverMirrored()
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

void TestIAction::whatsThisIsNeverMirrored()
{
    Bound bound;
    bound.proxy.setTextUpdated(true);
    bound.proxy.setIconUpdated(true);
    bound.b->setWhatsThis(QStringLiteral("What"));

    bound.proxy.setCurrentContexts({SecondContext});

    QCOMPARE(bound.proxy.whatsThis(), QString());
}

void TestIAction::actionChangedUpdates()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    bound.proxy.setEnabled(false);

    QVERIFY(QMetaObject::invokeMethod(&bound.proxy, "actionChanged"));

    QVERIFY(bound.proxy.isEnabled());
}

void TestIAction::uncheckableActionClearsTheCheckMark()
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

void TestIAction::silentChangeOfTheActionShowsAfterTheNextChange()
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

void TestIAction::triggeringTriggersTheCurrentActionOnce()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    bound.proxy.setCurrentContexts({SecondContext});
    bound.proxy.setCurrentContexts({FirstContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.trigger();

    QCOMPARE(spy.count(), 1);
}

void TestIAction::triggeredComesFromTheActionItself()
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

void TestIAction::actionNotCurrentIsNotTriggered()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    bound.proxy.setCurrentContexts({SecondContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.trigger();

    QCOMPARE(spy.count(), 0);
}

void TestIAction::earlierActionIsNotMirroredAnyMore()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    bound.proxy.setCurrentContexts({SecondContext});

    bound.a->setEnabled(false);

    QVERIFY(bound.proxy.isEnabled());
}

void TestIAction::togglingSetsTheCheckedState()
{
    Bound bound;
    bound.a->setCheckable(true);
    bound.proxy.setCurrentContexts({FirstContext});

    bound.proxy.trigger();
    QVERIFY(bound.a->isChecked());

    bound.proxy.setChecked(false);
    QVERIFY(!bound.a->isChecked());
}

void TestIAction::triggeredTellsTheCheckedStateOnce()
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

void TestIAction::connectingTwiceForwardsOnce()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.connectAction();
    bound.proxy.trigger();

    QCOMPARE(spy.count(), 1);
}

void TestIAction::disconnectedProxyForwardsNothing()
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

void TestIAction::disconnectedProxyMirrorsNothing()
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

void TestIAction::disconnectingLeavesTheConnectionsOfOthers()
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

void TestIAction::connectingWithoutAnActionForwardsNothing()
{
    Bound bound;
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.disconnectAction();
    bound.proxy.connectAction();
    bound.proxy.setEnabled(true);
    bound.proxy.trigger();

    QCOMPARE(spy.count(), 0);
}

void TestIAction::changeOfContextsConnectsAgain()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    bound.proxy.disconnectAction();

    bound.proxy.setCurrentContexts({FirstContext});
    bound.a->setEnabled(false);

    QVERIFY(!bound.proxy.isEnabled());
}

void TestIAction::connectionsTakenOffTheActionComeBack()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});

    bound.a->disconnect();
    bound.proxy.setCurrentContexts({FirstContext});
    bound.a->setEnabled(false);

    QVERIFY(!bound.proxy.isEnabled());
}

void TestIAction::connectionsTakenOffTheProxyComeBack()
{
    Bound bound;
    bound.proxy.setCurrentContexts({FirstContext});
    const QSignalSpy spy(bound.a.get(), &QAction::triggered);

    bound.proxy.disconnect();
    bound.proxy.setCurrentContexts({FirstContext});
    bound.proxy.trigger();

    QCOMPARE(spy.count(), 1);
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
