// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// Changes of contexts through the registry: what has to be bound anew, and what
// runs in between because an action changes.

#include "support/corefixture.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>

#include <QMenu>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QVector>

#include <algorithm>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

using namespace Core;

namespace {

const QString FirstContext = QStringLiteral("Test.A");
const QString SecondContext = QStringLiteral("Test.B");
const QString Command = QStringLiteral("Test.Command");

QString commandId(int command)
{
    return QStringLiteral("Test.Command.%1").arg(command);
}

QAction *add(const QString &text, const QString &id, const QString &context)
{
    auto *action = new QAction(text);
    ActionManager::registerAction(action, id, context)->setTextUpdated(true);
    return action;
}

/// A row for each order of the numbers below @p count.
void orders(int count)
{
    QTest::addColumn<QVector<int>>("order");
    QVector<int> order(count);
    std::iota(order.begin(), order.end(), 0);
    do {
        QString name;
        for (const int number : qAsConst(order))
            name += QString::number(number);
        QTest::newRow(qPrintable(name)) << order;
    } while (std::next_permutation(order.begin(), order.end()));
}

QString text(const QString &id = Command)
{
    return ActionManager::action(id)->text();
}

} // namespace

class TestContextChanges final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_core = std::make_unique<CoreFixture>(); }
    void cleanup() { m_core.reset(); }

    void firstContextOfTheListDecides();
    void repeatedIdCountsWhereItStandsFirst();
    void reorderedListChangesTheAction();
    void contextInFrontTakesOverAndGivesBack();
    void unknownContextInFrontChangesNothing();
    void flagTakesEffectWithAnUnchangedList();
    void proxyChangedFromOutsideIsPutRight();
    void blockedProxyChangedFromOutsideIsPutRight();
    void silentChangeOfTheActionShowsAfterTheNextChange();
    void actionOfAContextAlreadyCurrentIsFound();
    void destroyedActionGivesWayToTheNextContext();
    void destroyedActionLeavesNoneWithAnUnchangedList();
    void reregisteredActionIsBound();
    void proxyBoundByHandFollowsTheRegistryAgain();
    void newProxyFollowsTheNextUnchangedList();
    void idleChangeSendsNothing();

    void handlerMayRegisterCommands();
    void handlerMayUnregisterCommands();
    void handlerMayDestroyEveryProxy();
    void handlerMayDestroyEveryAction();
    void handlerMayMoveTheContextsOn();
    void newestListCountsForEveryProxy();
    void changeMadeByAHandlerIsKeptUntilTheNextChange();
    void actionsChangedByAHandlerAreMirroredAfterwards();
    void handlerMayDestroyTheRegistry();

    void twoContextsMayFightForACommand();
    void anotherActionTakesAContextGivenUp();
    void actionOfTheFirstContextFightsAgainFromItsHandler();
    void actionsGoInEveryOrderAndTheNextInLineServes_data();
    void actionsGoInEveryOrderAndTheNextInLineServes();
    void everythingMayGoInEveryOrder_data();
    void everythingMayGoInEveryOrder();
    void actionsAndProxiesMayGoInAnyOrder_data();
    void actionsAndProxiesMayGoInAnyOrder();
    void registryMayGoFirst();

private:
    std::unique_ptr<CoreFixture> m_core;
};

void TestContextChanges::firstContextOfTheListDecides()
{
    add(QStringLiteral("a"), Command, FirstContext);
    add(QStringLiteral("b"), Command, SecondContext);

    ActionManager::setCurrentContexts({SecondContext, FirstContext});

    QCOMPARE(text(), QStringLiteral("b"));
}

void TestContextChanges::repeatedIdCountsWhereItStandsFirst()
{
    add(QStringLiteral("a"), Command, FirstContext);
    add(QStringLiteral("b"), Command, SecondContext);
    ActionManager::setCurrentContexts({SecondContext});

    ActionManager::setCurrentContexts({FirstContext, SecondContext, FirstContext});

    QCOMPARE(text(), QStringLiteral("a"));
}

void TestContextChanges::reorderedListChangesTheAction()
{
    add(QStringLiteral("a"), Command, FirstContext);
    add(QStringLiteral("b"), Command, SecondContext);
    ActionManager::setCurrentContexts({FirstContext, SecondContext});

    ActionManager::setCurrentContexts({SecondContext, FirstContext});

    QCOMPARE(text(), QStringLiteral("b"));
}

void TestContextChanges::contextInFrontTakesOverAndGivesBack()
{
    add(QStringLiteral("a"), Command, FirstContext);
    add(QStringLiteral("b"), Command, SecondContext);
    ActionManager::setCurrentContexts({FirstContext});

    ActionManager::setCurrentContexts({SecondContext, FirstContext});
    QCOMPARE(text(), QStringLiteral("b"));

    ActionManager::setCurrentContexts({FirstContext});
    QCOMPARE(text(), QStringLiteral("a"));
}

void TestContextChanges::unknownContextInFrontChangesNothing()
{
    add(QStringLiteral("a"), Command, FirstContext);
    ActionManager::setCurrentContexts({FirstContext});

    ActionManager::setCurrentContexts({QStringLiteral("Test.Unknown"), FirstContext});

    QCOMPARE(text(), QStringLiteral("a"));
    QVERIFY(ActionManager::action(Command)->isEnabled());
}

void TestContextChanges::flagTakesEffectWithAnUnchangedList()
{
    ActionManager::registerAction(new QAction(QStringLiteral("a")), Command, FirstContext);
    ActionManager::registerAction(new QAction(QStringLiteral("b")), Command, SecondContext);
    ActionManager::setCurrentContexts({SecondContext});
    QCOMPARE(text(), QStringLiteral("a"));

    ActionManager::action(Command)->setTextUpdated(true);
    ActionManager::setCurrentContexts({SecondContext});

    QCOMPARE(text(), QStringLiteral("b"));
}

void TestContextChanges::proxyChangedFromOutsideIsPutRight()
{
    add(QStringLiteral("a"), Command, FirstContext);
    ActionManager::setCurrentContexts({FirstContext});
    ActionManager::action(Command)->setEnabled(false);

    ActionManager::setCurrentContexts({FirstContext});

    QVERIFY(ActionManager::action(Command)->isEnabled());
}

void TestContextChanges::blockedProxyChangedFromOutsideIsPutRight()
{
    add(QStringLiteral("a"), Command, FirstContext);
    ActionManager::setCurrentContexts({FirstContext});
    const QSignalBlocker blocker(ActionManager::action(Command));
    ActionManager::action(Command)->setEnabled(false);

    ActionManager::setCurrentContexts({FirstContext});

    QVERIFY(ActionManager::action(Command)->isEnabled());
}

void TestContextChanges::silentChangeOfTheActionShowsAfterTheNextChange()
{
    QAction *a = add(QStringLiteral("a"), Command, FirstContext);
    ActionManager::setCurrentContexts({FirstContext});
    {
        const QSignalBlocker blocker(a);
        a->setText(QStringLiteral("silent"));
    }
    QCOMPARE(text(), QStringLiteral("a"));

    ActionManager::setCurrentContexts({FirstContext});

    QCOMPARE(text(), QStringLiteral("silent"));
}

void TestContextChanges::actionOfAContextAlreadyCurrentIsFound()
{
    add(QStringLiteral("a"), Command, FirstContext);
    ActionManager::setCurrentContexts({SecondContext, FirstContext});
    add(QStringLiteral("b"), Command, SecondContext);
    QCOMPARE(text(), QStringLiteral("a"));

    ActionManager::setCurrentContexts({SecondContext, FirstContext});

    QCOMPARE(text(), QStringLiteral("b"));
}

void TestContextChanges::destroyedActionGivesWayToTheNextContext()
{
    add(QStringLiteral("a"), Command, FirstContext);
    const QAction *b = add(QStringLiteral("b"), Command, SecondContext);
    ActionManager::setCurrentContexts({SecondContext, FirstContext});

    delete b;
    ActionManager::setCurrentContexts({SecondContext, FirstContext});

    QCOMPARE(text(), QStringLiteral("a"));
}

void TestContextChanges::destroyedActionLeavesNoneWithAnUnchangedList()
{
    const QAction *a = add(QStringLiteral("a"), Command, FirstContext);
    ActionManager::setCurrentContexts({FirstContext});

    delete a;
    ActionManager::setCurrentContexts({FirstContext});

    QVERIFY(!ActionManager::action(Command)->isEnabled());
}

void TestContextChanges::reregisteredActionIsBound()
{
    QAction *a = add(QStringLiteral("a"), Command, FirstContext);
    add(QStringLiteral("b"), Command, SecondContext);
    ActionManager::setCurrentContexts({FirstContext, SecondContext});
    ActionManager::unregisterAction(Command, FirstContext);
    ActionManager::setCurrentContexts({FirstContext, SecondContext});
    QCOMPARE(text(), QStringLiteral("b"));

    ActionManager::registerAction(a, Command, FirstContext);
    ActionManager::setCurrentContexts({FirstContext, SecondContext});
    a->setText(QStringLiteral("mirrored"));

    QCOMPARE(text(), QStringLiteral("mirrored"));
}

void TestContextChanges::proxyBoundByHandFollowsTheRegistryAgain()
{
    add(QStringLiteral("a"), Command, FirstContext);
    add(QStringLiteral("b"), Command, SecondContext);
    ActionManager::setCurrentContexts({FirstContext});

    ActionManager::action(Command)->setCurrentContexts({SecondContext});
    QCOMPARE(text(), QStringLiteral("b"));

    ActionManager::setCurrentContexts({FirstContext});
    QCOMPARE(text(), QStringLiteral("a"));
}

void TestContextChanges::newProxyFollowsTheNextUnchangedList()
{
    ActionManager::setCurrentContexts({FirstContext});
    add(QStringLiteral("a"), Command, FirstContext);

    ActionManager::setCurrentContexts({FirstContext});

    QVERIFY(ActionManager::action(Command)->isEnabled());
}

void TestContextChanges::idleChangeSendsNothing()
{
    add(QStringLiteral("a"), Command, FirstContext);
    add(QStringLiteral("b"), Command, SecondContext);
    ActionManager::setCurrentContexts({FirstContext, SecondContext});
    const QSignalSpy spy(ActionManager::action(Command), &QAction::changed);

    ActionManager::setCurrentContexts({FirstContext});
    ActionManager::setCurrentContexts({QStringLiteral("Test.C"), FirstContext});

    QCOMPARE(spy.count(), 0);
}

void TestContextChanges::handlerMayRegisterCommands()
{
    add(QStringLiteral("a"), Command, FirstContext);
    connect(ActionManager::action(Command), &QAction::changed, this, [] {
        for (int i = 0; i < 100; ++i) {
            if (!ActionManager::action(commandId(i)))
                add(QStringLiteral("new"), commandId(i), FirstContext);
        }
    });

    ActionManager::setCurrentContexts({FirstContext});
    ActionManager::setCurrentContexts({FirstContext});

    for (int i = 0; i < 100; ++i)
        QVERIFY(ActionManager::action(commandId(i))->isEnabled());
}

void TestContextChanges::handlerMayUnregisterCommands()
{
    for (int i = 0; i < 100; ++i) {
        add(QStringLiteral("a"), commandId(i), FirstContext);
        connect(ActionManager::action(commandId(i)), &QAction::changed, this, [i] {
            for (int other = 0; other < 100; ++other) {
                if (other != i)
                    ActionManager::unregisterAction(commandId(other), FirstContext);
            }
        });
    }

    ActionManager::setCurrentContexts({FirstContext});

    int bound = 0;
    for (int i = 0; i < 100; ++i)
        bound += ActionManager::action(commandId(i))->isEnabled() ? 1 : 0;
    QCOMPARE(bound, 1);
}

void TestContextChanges::handlerMayDestroyEveryProxy()
{
    std::vector<QPointer<IAction>> proxies;
    for (int i = 0; i < 100; ++i) {
        add(QStringLiteral("a"), commandId(i), FirstContext);
        proxies.emplace_back(ActionManager::action(commandId(i)));
    }
    const auto destroyAll = [&proxies] {
        for (const QPointer<IAction> &proxy : proxies)
            delete proxy;
    };
    for (const QPointer<IAction> &proxy : proxies)
        connect(proxy.data(), &QAction::changed, this, destroyAll);

    ActionManager::setCurrentContexts({FirstContext});

    QVERIFY(std::none_of(proxies.cbegin(), proxies.cend(),
                         [](const QPointer<IAction> &proxy) { return proxy; }));
    QCOMPARE(ActionManager::action(commandId(0)), nullptr);
}

void TestContextChanges::handlerMayDestroyEveryAction()
{
    std::vector<QPointer<QAction>> actions;
    for (int i = 0; i < 100; ++i)
        actions.emplace_back(add(QStringLiteral("a"), commandId(i), FirstContext));
    for (int i = 0; i < 100; ++i) {
        connect(ActionManager::action(commandId(i)), &QAction::changed, this, [&actions] {
            for (const QPointer<QAction> &action : actions)
                delete action;
        });
    }

    ActionManager::setCurrentContexts({FirstContext});
    ActionManager::setCurrentContexts({FirstContext});

    for (int i = 0; i < 100; ++i)
        QVERIFY(!ActionManager::action(commandId(i))->isEnabled());
}

void TestContextChanges::handlerMayMoveTheContextsOn()
{
    add(QStringLiteral("a"), Command, FirstContext);
    const QAction *b = add(QStringLiteral("b"), Command, SecondContext);
    bool moved = false;
    connect(ActionManager::action(Command), &QAction::changed, this, [&moved] {
        if (!moved) {
            moved = true;
            ActionManager::setCurrentContexts({SecondContext});
        }
    });

    ActionManager::setCurrentContexts({FirstContext});
    const QSignalSpy spy(b, &QAction::triggered);
    ActionManager::action(Command)->trigger();

    QCOMPARE(text(), QStringLiteral("b"));
    QCOMPARE(spy.count(), 1);
}

void TestContextChanges::newestListCountsForEveryProxy()
{
    for (int i = 0; i < 100; ++i) {
        add(QStringLiteral("a"), commandId(i), FirstContext);
        add(QStringLiteral("b"), commandId(i), SecondContext);
    }
    bool moved = false;
    connect(ActionManager::action(commandId(50)), &QAction::changed, this, [&moved] {
        if (!moved) {
            moved = true;
            ActionManager::setCurrentContexts({SecondContext});
        }
    });

    ActionManager::setCurrentContexts({FirstContext});

    for (int i = 0; i < 100; ++i)
        QCOMPARE(text(commandId(i)), QStringLiteral("b"));
}

void TestContextChanges::changeMadeByAHandlerIsKeptUntilTheNextChange()
{
    add(QStringLiteral("a"), Command, FirstContext);
    auto handler = std::make_unique<QObject>();
    connect(ActionManager::action(Command), &QAction::changed, handler.get(),
            [] { ActionManager::action(Command)->setText(QStringLiteral("handler's")); });
    ActionManager::setCurrentContexts({FirstContext});
    handler.reset();
    QCOMPARE(text(), QStringLiteral("handler's"));

    ActionManager::setCurrentContexts({FirstContext});

    QCOMPARE(text(), QStringLiteral("a"));
}

void TestContextChanges::actionsChangedByAHandlerAreMirroredAfterwards()
{
    QAction *a = add(QStringLiteral("a"), Command, FirstContext);
    bool done = false;
    connect(ActionManager::action(Command), &QAction::changed, this, [a, &done] {
        if (!done) {
            done = true;
            a->setText(QStringLiteral("changed"));
        }
    });

    ActionManager::setCurrentContexts({FirstContext});
    ActionManager::setCurrentContexts({FirstContext});

    QCOMPARE(text(), QStringLiteral("changed"));
}

void TestContextChanges::handlerMayDestroyTheRegistry()
{
    auto registry = std::make_unique<ActionManager>();
    for (int i = 0; i < 100; ++i) {
        add(QStringLiteral("a"), commandId(i), FirstContext);
        connect(ActionManager::action(commandId(i)), &QAction::changed, this,
                [&registry] { registry.reset(); });
    }

    ActionManager::setCurrentContexts({FirstContext});

    QVERIFY(!registry);
    QCOMPARE(ActionManager::instance(), nullptr);
}

void TestContextChanges::twoContextsMayFightForACommand()
{
    const QSignalSpy a(add(QStringLiteral("a"), Command, FirstContext), &QAction::triggered);
    const QSignalSpy b(add(QStringLiteral("b"), Command, SecondContext), &QAction::triggered);
    for (int i = 0; i < 100; ++i) {
        if (i % 2 == 0)
            ActionManager::setCurrentContexts({FirstContext, SecondContext});
        else
            ActionManager::setCurrentContexts({SecondContext, FirstContext});
        ActionManager::action(Command)->trigger();
    }

    QCOMPARE(a.count(), 50);
    QCOMPARE(b.count(), 50);
}

void TestContextChanges::anotherActionTakesAContextGivenUp()
{
    const QSignalSpy a(add(QStringLiteral("a"), Command, FirstContext), &QAction::triggered);
    ActionManager::setCurrentContexts({FirstContext});
    ActionManager::unregisterAction(Command, FirstContext);
    const QSignalSpy b(add(QStringLiteral("b"), Command, FirstContext), &QAction::triggered);

    ActionManager::action(Command)->trigger();
    QCOMPARE(a.count(), 1);
    ActionManager::setCurrentContexts({FirstContext});
    ActionManager::action(Command)->trigger();

    QCOMPARE(a.count(), 1);
    QCOMPARE(b.count(), 1);
    QCOMPARE(text(), QStringLiteral("b"));
}

void TestContextChanges::actionOfTheFirstContextFightsAgainFromItsHandler()
{
    // Each one, when it is triggered, hands the command to the other.
    QAction *a = add(QStringLiteral("a"), Command, FirstContext);
    QAction *b = add(QStringLiteral("b"), Command, SecondContext);
    connect(a, &QAction::triggered, this, [] {
        ActionManager::setCurrentContexts({SecondContext, FirstContext});
    });
    connect(b, &QAction::triggered, this, [] {
        ActionManager::setCurrentContexts({FirstContext, SecondContext});
    });
    const QSignalSpy aTriggered(a, &QAction::triggered);
    const QSignalSpy bTriggered(b, &QAction::triggered);
    ActionManager::setCurrentContexts({FirstContext, SecondContext});

    for (int i = 0; i < 10; ++i)
        ActionManager::action(Command)->trigger();

    QCOMPARE(aTriggered.count(), 5);
    QCOMPARE(bTriggered.count(), 5);
}

void TestContextChanges::actionsGoInEveryOrderAndTheNextInLineServes_data()
{
    orders(4);
}

void TestContextChanges::actionsGoInEveryOrderAndTheNextInLineServes()
{
    QFETCH(QVector<int>, order);
    QStringList contexts;
    std::vector<QPointer<QAction>> actions;
    std::vector<int> triggered(4);
    for (int i = 0; i < 4; ++i) {
        contexts.append(QStringLiteral("Test.Context.%1").arg(i));
        QAction *action = add(QString::number(i), Command, contexts.last());
        actions.emplace_back(action);
        connect(action, &QAction::triggered, this,
                [&triggered, i] { ++triggered.at(static_cast<std::size_t>(i)); });
    }
    const auto server = [&] {
        std::fill(triggered.begin(), triggered.end(), 0);
        ActionManager::action(Command)->trigger();
        return QVector<int>(triggered.cbegin(), triggered.cend());
    };
    const auto onlyFirstAlive = [&actions] {
        QVector<int> expected(4);
        const auto alive = std::find_if(actions.cbegin(), actions.cend(),
                                        [](const QPointer<QAction> &action) { return action; });
        if (alive != actions.cend())
            expected[static_cast<int>(alive - actions.cbegin())] = 1;
        return expected;
    };
    ActionManager::setCurrentContexts(contexts);
    QCOMPARE(server(), onlyFirstAlive());

    for (const int gone : qAsConst(order)) {
        delete actions.at(static_cast<std::size_t>(gone));
        ActionManager::setCurrentContexts(contexts);
        QCOMPARE(server(), onlyFirstAlive());
    }

    QVERIFY(!ActionManager::action(Command)->isEnabled());
}

void TestContextChanges::everythingMayGoInEveryOrder_data()
{
    orders(5);
}

void TestContextChanges::everythingMayGoInEveryOrder()
{
    QFETCH(QVector<int>, order);
    const QPointer<ActionManager> registry = new ActionManager;
    const QPointer<QAction> a = add(QStringLiteral("a"), Command, FirstContext);
    const QPointer<QAction> b = add(QStringLiteral("b"), Command, SecondContext);
    const QPointer<IAction> proxy = ActionManager::action(Command);
    const QPointer<QMenu> menu = new QMenu;
    menu->addAction(proxy);
    // So that each goes on its own, not with the registry.
    a->setParent(nullptr);
    b->setParent(nullptr);
    ActionManager::setCurrentContexts({FirstContext, SecondContext});
    const std::vector<QPointer<QObject>> objects{registry.data(), a.data(), b.data(), proxy.data(),
                                                 menu.data()};

    for (const int gone : qAsConst(order)) {
        delete objects.at(static_cast<std::size_t>(gone));
        ActionManager::setCurrentContexts({SecondContext, FirstContext});
        if (proxy)
            proxy->trigger();
        QCOMPARE(ActionManager::action(Command), proxy.data());
        if (menu)
            QCOMPARE(menu->actions().size(), proxy ? 1 : 0);
        QVERIFY(registry || !proxy);
    }
}

void TestContextChanges::actionsAndProxiesMayGoInAnyOrder_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 50; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestContextChanges::actionsAndProxiesMayGoInAnyOrder()
{
    QFETCH(unsigned, seed);
    std::vector<QPointer<QObject>> objects;
    for (int i = 0; i < 5; ++i) {
        objects.emplace_back(add(QStringLiteral("a"), commandId(i), FirstContext));
        objects.emplace_back(add(QStringLiteral("b"), commandId(i), SecondContext));
        objects.emplace_back(ActionManager::action(commandId(i)));
    }
    ActionManager::setCurrentContexts({FirstContext});
    ActionManager::setCurrentContexts({SecondContext, FirstContext});
    std::shuffle(objects.begin(), objects.end(), std::mt19937(seed));

    for (const QPointer<QObject> &object : objects) {
        delete object;
        ActionManager::setCurrentContexts({seed % 2 ? FirstContext : SecondContext});
        for (int i = 0; i < 5; ++i) {
            if (IAction *proxy = ActionManager::action(commandId(i)))
                proxy->trigger();
        }
    }

    for (int i = 0; i < 5; ++i)
        QCOMPARE(ActionManager::action(commandId(i)), nullptr);
}

void TestContextChanges::registryMayGoFirst()
{
    auto registry = std::make_unique<ActionManager>();
    const QPointer<QAction> action = add(QStringLiteral("a"), Command, FirstContext);
    const QPointer<IAction> proxy = ActionManager::action(Command);
    action->setParent(this);
    ActionManager::setCurrentContexts({FirstContext});

    registry.reset();
    action->setEnabled(false);

    QVERIFY(action);
    QVERIFY(!proxy);
    delete action;
}

QTEST_MAIN(TestContextChanges)
#include "tst_contextchanges.moc"
