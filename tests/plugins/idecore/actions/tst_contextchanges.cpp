// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// Changes of contexts through the registry: what has to be bound anew, and what
// runs in between because an action changes.

#include "corefixture.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <memory>
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
