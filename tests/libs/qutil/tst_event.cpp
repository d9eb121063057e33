// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <qutil/event.h>

#include <QTest>

using QUtil::Event;

class TestEvent final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void carriesTopicAndParameters();
    void anUnknownParameterIsInvalid();
    void parameterNamesAreCaseSensitive();
    void aParameterSetAgainIsReplaced();
    void aCopyIsIndependent();
};

void TestEvent::carriesTopicAndParameters()
{
    const Event event(QStringLiteral("a.b"), {{QStringLiteral("k"), 7}});

    QCOMPARE(event.topic(), QStringLiteral("a.b"));
    QCOMPARE(event.parameter(QStringLiteral("k")), QVariant(7));
}

void TestEvent::anUnknownParameterIsInvalid()
{
    const Event event(QStringLiteral("a.b"));

    QVERIFY(!event.parameter(QStringLiteral("k")).isValid());
}

void TestEvent::parameterNamesAreCaseSensitive()
{
    const Event event(QStringLiteral("a.b"), {{QStringLiteral("k"), 7}});

    QVERIFY(!event.parameter(QStringLiteral("K")).isValid());
}

void TestEvent::aParameterSetAgainIsReplaced()
{
    Event event(QStringLiteral("a.b"), {{QStringLiteral("k"), 7}});

    event.setParameter(QStringLiteral("k"), QStringLiteral("text"));

    QCOMPARE(event.parameter(QStringLiteral("k")), QVariant(QStringLiteral("text")));
}

void TestEvent::aCopyIsIndependent()
{
    const Event event(QStringLiteral("a.b"), {{QStringLiteral("k"), 7}});
    Event copy = event;

    copy.setParameter(QStringLiteral("k"), 8);

    QCOMPARE(event.parameter(QStringLiteral("k")), QVariant(7));
    QCOMPARE(copy.parameter(QStringLiteral("k")), QVariant(8));
}

QTEST_APPLESS_MAIN(TestEvent)
#include "tst_event.moc"
