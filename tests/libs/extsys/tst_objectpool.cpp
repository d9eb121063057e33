// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/messagerecorder.h"

#include <extsys/pluginmanager.h>

#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <memory>

using ExtSys::PluginManager;

namespace {

PluginManager *pool()
{
    return PluginManager::instance();
}

QRegularExpression containing(const char *text)
{
    return QRegularExpression(QRegularExpression::escape(QString::fromLatin1(text)));
}

using Objects = QList<QObject *>;

} // namespace

class TestObjectPool final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup();

    void theInstanceIsAlwaysTheSame();
    void keepsTheOrderOfAdding();
    void findsObjectsByTypeInPoolOrder();
    void addingTellsWithTheObjectInThePool();
    void aNullObjectIsRefusedWithAWarning();
    void addingTwiceIsRefusedWithAWarning();
    void removingTellsWithTheObjectStillInThePool();
    void removedObjectsAreNotOwned();
    void removingANullObjectIsRefusedWithAWarning();
    void removingTwiceIsRefusedWithAWarning();
    void anObjectMayComeBackAtTheEnd();
    void anObjectDestroyedInThePoolLeavesItWithAWarning();
    void anObjectDestroyedInThePoolIsNotAnnounced();
    void anObjectDestroyedAfterItsRemovalIsNoConcern();
    void anObjectMayBeRemovedWhenItsAdditionIsTold();
    void removingAgainWhenRemovalIsToldIsRefused();
    void anObjectMayBeDestroyedWhenItsRemovalIsTold();
    void othersMayBeRemovedWhenARemovalIsTold();
    void othersMayBeAddedWhenAnAdditionIsTold();
    void aCopyOfThePoolStaysWhenThePoolChanges();
};

void TestObjectPool::cleanup()
{
    pool()->disconnect();
    QCOMPARE(pool()->allObjects(), Objects());
}

void TestObjectPool::theInstanceIsAlwaysTheSame()
{
    QVERIFY(PluginManager::instance());
    QCOMPARE(PluginManager::instance(), pool());
}

void TestObjectPool::keepsTheOrderOfAdding()
{
    QObject a;
    QObject b;
    QObject c;
    pool()->addObject(&b);
    pool()->addObject(&c);
    pool()->addObject(&a);

    QCOMPARE(pool()->allObjects(), (Objects{&b, &c, &a}));

    pool()->removeObject(&c);
    QCOMPARE(pool()->allObjects(), (Objects{&b, &a}));
    pool()->removeObject(&b);
    pool()->removeObject(&a);
}

void TestObjectPool::findsObjectsByTypeInPoolOrder()
{
    QTimer first;
    QObject other;
    QTimer second;
    pool()->addObject(&second);
    pool()->addObject(&other);
    pool()->addObject(&first);

    QCOMPARE(pool()->getObjects<QTimer>(), (QList<QTimer *>{&second, &first}));
    QCOMPARE(pool()->getObjects<QObject>(), (Objects{&second, &other, &first}));
    QCOMPARE(pool()->getObjects<QThread>(), QList<QThread *>());

    pool()->removeObject(&first);
    pool()->removeObject(&other);
    pool()->removeObject(&second);
}

void TestObjectPool::addingTellsWithTheObjectInThePool()
{
    QObject a;
    Objects told;
    connect(pool(), &PluginManager::objectAdded, this, [&told](QObject *object) {
        if (pool()->allObjects().contains(object))
            told.append(object);
    });

    pool()->addObject(&a);

    QCOMPARE(told, Objects{&a});
    pool()->removeObject(&a);
}

void TestObjectPool::aNullObjectIsRefusedWithAWarning()
{
    QSignalSpy added(pool(), &PluginManager::objectAdded);
    QTest::ignoreMessage(QtWarningMsg, containing("object is null or already in the pool"));

    pool()->addObject(nullptr);

    QCOMPARE(added.count(), 0);
    QCOMPARE(pool()->allObjects(), Objects());
}

void TestObjectPool::addingTwiceIsRefusedWithAWarning()
{
    QObject a;
    pool()->addObject(&a);
    QSignalSpy added(pool(), &PluginManager::objectAdded);
    QTest::ignoreMessage(QtWarningMsg, containing("object is null or already in the pool"));

    pool()->addObject(&a);

    QCOMPARE(added.count(), 0);
    QCOMPARE(pool()->allObjects(), Objects{&a});
    pool()->removeObject(&a);
}

void TestObjectPool::removingTellsWithTheObjectStillInThePool()
{
    QObject a;
    pool()->addObject(&a);
    Objects told;
    connect(pool(), &PluginManager::aboutToRemoveObject, this, [&told](QObject *object) {
        if (pool()->allObjects().contains(object))
            told.append(object);
    });

    pool()->removeObject(&a);

    QCOMPARE(told, Objects{&a});
}

void TestObjectPool::removedObjectsAreNotOwned()
{
    QPointer<QObject> a = new QObject;
    const std::unique_ptr<QObject> owner(a);
    pool()->addObject(a);

    pool()->removeObject(a);

    QVERIFY(a);
    QVERIFY(!a->parent());
}

void TestObjectPool::removingANullObjectIsRefusedWithAWarning()
{
    QSignalSpy leaving(pool(), &PluginManager::aboutToRemoveObject);
    QTest::ignoreMessage(QtWarningMsg, containing("object is not in the pool"));

    pool()->removeObject(nullptr);

    QCOMPARE(leaving.count(), 0);
}

void TestObjectPool::removingTwiceIsRefusedWithAWarning()
{
    QObject a;
    pool()->addObject(&a);
    pool()->removeObject(&a);
    QSignalSpy leaving(pool(), &PluginManager::aboutToRemoveObject);
    QTest::ignoreMessage(QtWarningMsg, containing("object is not in the pool"));

    pool()->removeObject(&a);

    QCOMPARE(leaving.count(), 0);
}

void TestObjectPool::anObjectMayComeBackAtTheEnd()
{
    QObject a;
    QObject b;
    pool()->addObject(&a);
    pool()->addObject(&b);

    pool()->removeObject(&a);
    pool()->addObject(&a);

    QCOMPARE(pool()->allObjects(), (Objects{&b, &a}));
    pool()->removeObject(&a);
    pool()->removeObject(&b);
}

void TestObjectPool::anObjectDestroyedInThePoolLeavesItWithAWarning()
{
    QObject stays;
    auto a = std::make_unique<QTimer>();
    a->setObjectName(QStringLiteral("forgotten"));
    pool()->addObject(a.get());
    pool()->addObject(&stays);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(
                                           "destroyed while in the pool.*\"forgotten\"")));

    a.reset();

    QCOMPARE(pool()->allObjects(), Objects{&stays});
    pool()->removeObject(&stays);
}

void TestObjectPool::anObjectDestroyedInThePoolIsNotAnnounced()
{
    auto a = std::make_unique<QObject>();
    pool()->addObject(a.get());
    QSignalSpy leaving(pool(), &PluginManager::aboutToRemoveObject);
    QTest::ignoreMessage(QtWarningMsg, containing("destroyed while in the pool"));

    a.reset();

    QCOMPARE(leaving.count(), 0);
}

void TestObjectPool::anObjectDestroyedAfterItsRemovalIsNoConcern()
{
    auto a = std::make_unique<QObject>();
    pool()->addObject(a.get());
    pool()->removeObject(a.get());
    const MessageRecorder messages;

    a.reset();

    QCOMPARE(messages.texts(), QStringList());
}

void TestObjectPool::anObjectMayBeRemovedWhenItsAdditionIsTold()
{
    QObject a;
    connect(pool(), &PluginManager::objectAdded, this,
            [](QObject *object) { pool()->removeObject(object); });

    pool()->addObject(&a);

    QCOMPARE(pool()->allObjects(), Objects());
}

void TestObjectPool::removingAgainWhenRemovalIsToldIsRefused()
{
    QObject a;
    pool()->addObject(&a);
    int told = 0;
    connect(pool(), &PluginManager::aboutToRemoveObject, this, [&told](QObject *object) {
        ++told;
        pool()->removeObject(object);
    });
    QTest::ignoreMessage(QtWarningMsg, containing("is leaving it"));

    pool()->removeObject(&a);

    QCOMPARE(told, 1);
    QCOMPARE(pool()->allObjects(), Objects());
}

void TestObjectPool::anObjectMayBeDestroyedWhenItsRemovalIsTold()
{
    QObject stays;
    auto a = std::make_unique<QObject>();
    pool()->addObject(a.get());
    pool()->addObject(&stays);
    const auto connection =
        connect(pool(), &PluginManager::aboutToRemoveObject, this, [&a] { a.reset(); });

    pool()->removeObject(a.get());

    disconnect(connection);
    QCOMPARE(pool()->allObjects(), Objects{&stays});
    pool()->removeObject(&stays);
}

void TestObjectPool::othersMayBeRemovedWhenARemovalIsTold()
{
    QObject a;
    QObject b;
    pool()->addObject(&a);
    pool()->addObject(&b);
    connect(pool(), &PluginManager::aboutToRemoveObject, this, [&a, &b](QObject *object) {
        if (object == &a)
            pool()->removeObject(&b);
    });

    pool()->removeObject(&a);

    QCOMPARE(pool()->allObjects(), Objects());
}

void TestObjectPool::othersMayBeAddedWhenAnAdditionIsTold()
{
    QObject a;
    QObject b;
    connect(pool(), &PluginManager::objectAdded, this, [&a, &b](QObject *object) {
        if (object == &a)
            pool()->addObject(&b);
    });

    pool()->addObject(&a);

    QCOMPARE(pool()->allObjects(), (Objects{&a, &b}));
    pool()->removeObject(&b);
    pool()->removeObject(&a);
}

void TestObjectPool::aCopyOfThePoolStaysWhenThePoolChanges()
{
    QObject a;
    QObject b;
    pool()->addObject(&a);
    pool()->addObject(&b);
    Objects met;

    for (QObject *object : pool()->allObjects()) {
        met.append(object);
        pool()->removeObject(object);
    }

    QCOMPARE(met, (Objects{&a, &b}));
}

QTEST_GUILESS_MAIN(TestObjectPool)
#include "tst_objectpool.moc"
