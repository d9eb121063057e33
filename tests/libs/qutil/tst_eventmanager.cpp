// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <qutil/event.h>
#include <qutil/eventmanager.h>
#include <qutil/ieventhandler.h>

#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <functional>
#include <memory>
#include <new>
#include <stdexcept>

using QUtil::Event;
using QUtil::EventManager;
using QUtil::IEvent;
using QUtil::IEventHandler;

namespace {

const QString topic = QStringLiteral("T");

/// Writes its name into the log of the test and then acts.
class Handler final : public IEventHandler
{
public:
    using Action = std::function<void(const IEvent &)>;

    Handler(QString name, QStringList &log, Action action = {})
        : m_name(std::move(name))
        , m_log(log)
        , m_action(std::move(action))
    {
    }

    void handleIEvent(const IEvent *event) override
    {
        m_log.append(m_name);
        // The action may destroy the handler and its function with it.
        const Action action = m_action;
        if (action)
            action(*event);
    }

private:
    QString m_name;
    QStringList &m_log;
    Action m_action;
};

EventManager *bus()
{
    return EventManager::instance();
}

} // namespace

class TestEventManager final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_log.clear(); }

    void theInstanceIsAlwaysTheSame();
    void deliversInOrderOfSubscription();
    void deliversTheEventItselfBeforeReturning();
    void otherTopicsAreNotDelivered();
    void topicsAreCaseSensitive();
    void anEmptyTopicIsATopic();
    void aSecondSubscriptionIsIgnored();
    void aNullHandlerIsIgnored();
    void oneHandlerMaySubscribeToTwoTopics();
    void unsubscribingEndsOneTopicOnly();
    void unsubscribingWhoIsNotSubscribedDoesNothing();
    void unsubscribeAllEndsEveryTopic();
    void subscribingAgainGoesToTheEnd();
    void aDestroyedHandlerIsNotCalled();

    void whoSubscribesDuringDeliveryIsCalledFromTheNextEventOn();
    void whoIsUnsubscribedDuringDeliveryIsNotCalledAnyMore();
    void whoIsUnsubscribedFromAllDuringDeliveryIsNotCalledAnyMore();
    void unsubscribingOneselfKeepsTheOthers();
    void everybodyLeavingDuringDeliveryEndsIt();
    void whoLeavesAndComesBackWaitsForTheNextEvent();
    void aHandlerDestroyedByAnotherIsNotCalled();
    void aHandlerMayDestroyItself();
    void aHandlerThatWasCalledMayBeDestroyedByALaterOne();
    void aNewHandlerAtTheSameAddressWaitsForTheNextEvent();
    void manyTopicsSubscribedDuringDeliveryAreSafe();
    void anEventPublishedInADeliveryIsDeliveredFirst();
    void sameTopicMayBePublishedInItsDelivery();
    void whoLeavesInANestedDeliveryIsNotCalledInTheOuterOne();
    void aThrowingHandlerDoesNotStopTheOthers();
    void aHandlerThrowingAnythingIsNamedByTopic();

    void aStaticHandlerMayOutliveEverything();

private:
    std::unique_ptr<Handler> make(const char *name, Handler::Action action = {})
    {
        return std::make_unique<Handler>(QString::fromLatin1(name), m_log, std::move(action));
    }

    QStringList published(const QString &name = topic)
    {
        m_log.clear();
        bus()->publish(Event(name));
        return m_log;
    }

    QStringList m_log;
};

static QStringList names(std::initializer_list<const char *> list)
{
    QStringList result;
    for (const char *name : list)
        result.append(QString::fromLatin1(name));
    return result;
}

void TestEventManager::theInstanceIsAlwaysTheSame()
{
    QVERIFY(EventManager::instance());
    QCOMPARE(EventManager::instance(), bus());
}

void TestEventManager::deliversInOrderOfSubscription()
{
    const auto a = make("a");
    const auto b = make("b");
    const auto c = make("c");
    bus()->subscribe(topic, b.get());
    bus()->subscribe(topic, c.get());
    bus()->subscribe(topic, a.get());

    QCOMPARE(published(), names({"b", "c", "a"}));
}

void TestEventManager::deliversTheEventItselfBeforeReturning()
{
    const IEvent *seen = nullptr;
    const auto a = make("a", [&seen](const IEvent &event) { seen = &event; });
    bus()->subscribe(topic, a.get());
    const Event event(topic);

    bus()->publish(event);

    QCOMPARE(seen, static_cast<const IEvent *>(&event));
}

void TestEventManager::otherTopicsAreNotDelivered()
{
    const auto a = make("a");
    bus()->subscribe(topic, a.get());

    QCOMPARE(published(QStringLiteral("T2")), QStringList());
}

void TestEventManager::topicsAreCaseSensitive()
{
    const auto a = make("a");
    bus()->subscribe(topic, a.get());

    QCOMPARE(published(QStringLiteral("t")), QStringList());
}

void TestEventManager::anEmptyTopicIsATopic()
{
    const auto a = make("a");
    bus()->subscribe(QString(), a.get());

    QCOMPARE(published(QString()), names({"a"}));
    QCOMPARE(published(), QStringList());
}

void TestEventManager::aSecondSubscriptionIsIgnored()
{
    const auto a = make("a");
    const auto b = make("b");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());
    bus()->subscribe(topic, a.get());

    QCOMPARE(published(), names({"a", "b"}));
}

void TestEventManager::aNullHandlerIsIgnored()
{
    bus()->subscribe(topic, nullptr);
    bus()->unsubscribe(topic, nullptr);
    bus()->unsubscribeAll(nullptr);

    QCOMPARE(published(), QStringList());
}

void TestEventManager::oneHandlerMaySubscribeToTwoTopics()
{
    const auto a = make("a");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(QStringLiteral("T2"), a.get());

    QCOMPARE(published(), names({"a"}));
    QCOMPARE(published(QStringLiteral("T2")), names({"a"}));
}

void TestEventManager::unsubscribingEndsOneTopicOnly()
{
    const auto a = make("a");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(QStringLiteral("T2"), a.get());

    bus()->unsubscribe(topic, a.get());

    QCOMPARE(published(), QStringList());
    QCOMPARE(published(QStringLiteral("T2")), names({"a"}));
}

void TestEventManager::unsubscribingWhoIsNotSubscribedDoesNothing()
{
    const auto a = make("a");
    const auto b = make("b");
    bus()->subscribe(topic, a.get());

    bus()->unsubscribe(topic, b.get());
    bus()->unsubscribe(QStringLiteral("T2"), a.get());
    bus()->unsubscribeAll(b.get());

    QCOMPARE(published(), names({"a"}));
}

void TestEventManager::unsubscribeAllEndsEveryTopic()
{
    const auto a = make("a");
    const auto b = make("b");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());
    bus()->subscribe(QStringLiteral("T2"), a.get());

    bus()->unsubscribeAll(a.get());

    QCOMPARE(published(), names({"b"}));
    QCOMPARE(published(QStringLiteral("T2")), QStringList());
}

void TestEventManager::subscribingAgainGoesToTheEnd()
{
    const auto a = make("a");
    const auto b = make("b");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());

    bus()->unsubscribe(topic, a.get());
    bus()->subscribe(topic, a.get());

    QCOMPARE(published(), names({"b", "a"}));
}

void TestEventManager::aDestroyedHandlerIsNotCalled()
{
    auto a = make("a");
    const auto b = make("b");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());

    a.reset();

    QCOMPARE(published(), names({"b"}));
}

void TestEventManager::whoSubscribesDuringDeliveryIsCalledFromTheNextEventOn()
{
    const auto late = make("late");
    const auto a = make("a", [&late](const IEvent &) { bus()->subscribe(topic, late.get()); });
    bus()->subscribe(topic, a.get());

    QCOMPARE(published(), names({"a"}));
    QCOMPARE(published(), names({"a", "late"}));
}

void TestEventManager::whoIsUnsubscribedDuringDeliveryIsNotCalledAnyMore()
{
    const auto b = make("b");
    const auto a = make("a", [&b](const IEvent &) { bus()->unsubscribe(topic, b.get()); });
    const auto c = make("c");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());
    bus()->subscribe(topic, c.get());

    QCOMPARE(published(), names({"a", "c"}));
}

void TestEventManager::whoIsUnsubscribedFromAllDuringDeliveryIsNotCalledAnyMore()
{
    const auto b = make("b");
    const auto a = make("a", [&b](const IEvent &) { bus()->unsubscribeAll(b.get()); });
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());

    QCOMPARE(published(), names({"a"}));
}

void TestEventManager::unsubscribingOneselfKeepsTheOthers()
{
    std::unique_ptr<Handler> a;
    a = make("a", [&a](const IEvent &) { bus()->unsubscribe(topic, a.get()); });
    const auto b = make("b");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());

    QCOMPARE(published(), names({"a", "b"}));
    QCOMPARE(published(), names({"b"}));
}

void TestEventManager::everybodyLeavingDuringDeliveryEndsIt()
{
    const auto b = make("b");
    std::unique_ptr<Handler> a;
    a = make("a", [&a, &b](const IEvent &) {
        bus()->unsubscribeAll(a.get());
        bus()->unsubscribeAll(b.get());
    });
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());

    QCOMPARE(published(), names({"a"}));
    QCOMPARE(published(), QStringList());
}

void TestEventManager::whoLeavesAndComesBackWaitsForTheNextEvent()
{
    const auto b = make("b");
    bool moved = false;
    const auto a = make("a", [&b, &moved](const IEvent &) {
        if (std::exchange(moved, true))
            return;
        bus()->unsubscribe(topic, b.get());
        bus()->subscribe(topic, b.get());
    });
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());

    QCOMPARE(published(), names({"a"}));
    QCOMPARE(published(), names({"a", "b"}));
}

void TestEventManager::aHandlerDestroyedByAnotherIsNotCalled()
{
    auto b = make("b");
    const auto a = make("a", [&b](const IEvent &) { b.reset(); });
    const auto c = make("c");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());
    bus()->subscribe(topic, c.get());

    QCOMPARE(published(), names({"a", "c"}));
}

void TestEventManager::aHandlerMayDestroyItself()
{
    std::unique_ptr<Handler> a;
    a = make("a", [&a](const IEvent &) { a.reset(); });
    const auto b = make("b");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());

    QCOMPARE(published(), names({"a", "b"}));
    QCOMPARE(published(), names({"b"}));
}

void TestEventManager::aHandlerThatWasCalledMayBeDestroyedByALaterOne()
{
    auto a = make("a");
    const auto b = make("b", [&a](const IEvent &) { a.reset(); });
    const auto c = make("c");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());
    bus()->subscribe(topic, c.get());

    QCOMPARE(published(), names({"a", "b", "c"}));
}

void TestEventManager::aNewHandlerAtTheSameAddressWaitsForTheNextEvent()
{
    alignas(Handler) unsigned char room[sizeof(Handler)];
    auto *old = new (room) Handler(QStringLiteral("old"), m_log);
    IEventHandler *present = old;
    bool replaced = false;
    const auto a = make("a", [&](const IEvent &) {
        if (std::exchange(replaced, true))
            return;
        old->~Handler();
        present = new (room) Handler(QStringLiteral("new"), m_log);
        bus()->subscribe(topic, present);
    });
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, old);

    QCOMPARE(published(), names({"a"}));
    QCOMPARE(published(), names({"a", "new"}));
    present->~IEventHandler();
}

void TestEventManager::manyTopicsSubscribedDuringDeliveryAreSafe()
{
    // Enough new topics to make the table of topics grow under the delivery.
    const auto b = make("b");
    const auto a = make("a", [&b](const IEvent &) {
        for (int i = 0; i < 1000; ++i)
            bus()->subscribe(QString::number(i), b.get());
    });
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());

    QCOMPARE(published(), names({"a", "b"}));
    QCOMPARE(published(QStringLiteral("999")), names({"b"}));
}

void TestEventManager::anEventPublishedInADeliveryIsDeliveredFirst()
{
    const QString inner = QStringLiteral("inner");
    const auto a = make("a", [&inner](const IEvent &) { bus()->publish(Event(inner)); });
    const auto b = make("b");
    const auto i = make("i");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());
    bus()->subscribe(inner, i.get());

    QCOMPARE(published(), names({"a", "i", "b"}));
}

void TestEventManager::sameTopicMayBePublishedInItsDelivery()
{
    bool nested = false;
    const auto a = make("a", [&nested](const IEvent &) {
        if (!std::exchange(nested, true))
            bus()->publish(Event(topic));
    });
    const auto b = make("b");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());

    QCOMPARE(published(), names({"a", "a", "b", "b"}));
}

void TestEventManager::whoLeavesInANestedDeliveryIsNotCalledInTheOuterOne()
{
    const QString inner = QStringLiteral("inner");
    const auto b = make("b");
    const auto a = make("a", [&inner](const IEvent &) { bus()->publish(Event(inner)); });
    const auto i = make("i", [&b](const IEvent &) { bus()->unsubscribeAll(b.get()); });
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());
    bus()->subscribe(inner, i.get());

    QCOMPARE(published(), names({"a", "i"}));
}

void TestEventManager::aThrowingHandlerDoesNotStopTheOthers()
{
    const auto a = make("a", [](const IEvent &) { throw std::runtime_error("no memory left"); });
    const auto b = make("b");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("\"T\".*no memory left")));
    QCOMPARE(published(), names({"a", "b"}));
}

void TestEventManager::aHandlerThrowingAnythingIsNamedByTopic()
{
    const auto a = make("a", [](const IEvent &) { throw 1; });
    const auto b = make("b");
    bus()->subscribe(topic, a.get());
    bus()->subscribe(topic, b.get());

    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("\"T\".*unknown")));
    QCOMPARE(published(), names({"a", "b"}));
}

void TestEventManager::aStaticHandlerMayOutliveEverything()
{
    QProcess program;
    program.start(QStringLiteral(LATE_HANDLER_PROGRAM), QStringList());
    QVERIFY(program.waitForFinished());

    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(program.readAllStandardOutput(), QByteArray("called\ndestroyed\n"));
}

QTEST_GUILESS_MAIN(TestEventManager)
#include "tst_eventmanager.moc"
