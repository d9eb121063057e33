// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "projecttest.h"

#include "support/corefixture.h"
#include "support/messagerecorder.h"
#include "support/testproject.h"

#include <idecore/projects/projectmanager.h>
#include <qutil/event.h>
#include <qutil/eventmanager.h>

#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <memory>

using Core::ProjectManager;
using QUtil::Event;
using QUtil::EventManager;

namespace {

const QString OPEN = QStringLiteral("TE.Open.Project");
const QString CLOSE = QStringLiteral("TE.Close.Project");
const QString FILE_KEY = QStringLiteral("Key.Open.Project.File");

} // namespace

/// Requests over the event bus.
class TestProjectEvents final : public ProjectTest
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        setUp();
        m_file = writeProject(m_dir->filePath(QStringLiteral("a.kprj")));
    }

    void cleanup() { tearDown(); }

    void theOpenEventOpensItsFile()
    {
        EventManager::instance()->publish(Event(OPEN, {{FILE_KEY, m_file}}));
        QVERIFY(m_factory->last());
        QCOMPARE(ProjectManager::currentProject(), m_factory->last());
        QCOMPARE(m_factory->last()->opened, QStringList{m_file});
    }

    void theFileMayBeAnythingThatReadsAsText()
    {
        EventManager::instance()->publish(Event(OPEN, {{FILE_KEY, m_file.toUtf8()}}));
        QVERIFY(m_factory->last());
    }

    void theOpenEventWithoutAFileDoesNothing_data()
    {
        QTest::addColumn<QVariantHash>("parameters");
        QTest::newRow("none") << QVariantHash();
        QTest::newRow("empty") << QVariantHash{{FILE_KEY, QString()}};
        QTest::newRow("invalid") << QVariantHash{{FILE_KEY, QVariant()}};
        QTest::newRow("no text") << QVariantHash{{FILE_KEY, QVariantHash()}};
        QTest::newRow("other key") << QVariantHash{{FILE_KEY.toLower(), QStringLiteral("/a")}};
    }

    void theOpenEventWithoutAFileDoesNothing()
    {
        QFETCH(QVariantHash, parameters);
        const MessageRecorder log;
        EventManager::instance()->publish(Event(OPEN, parameters));
        QVERIFY(log.lines(QtDebugMsg, QStringLiteral("open project:")).isEmpty());
        QVERIFY(m_factory->made.isEmpty());
    }

    void theCloseEventClosesTheProject()
    {
        ProjectManager::openProject(m_file);
        EventManager::instance()->publish(Event(CLOSE));
        QVERIFY(!ProjectManager::currentProject());
    }

    void theCloseEventIsRefusedByTheProject()
    {
        ProjectManager::openProject(m_file);
        m_factory->last()->refuseClose = true;
        EventManager::instance()->publish(Event(CLOSE));
        QCOMPARE(m_factory->last()->closes, 1);
        QCOMPARE(ProjectManager::currentProject(), m_factory->last());
        m_factory->last()->refuseClose = false;
    }

    void theCloseEventWithoutAProjectDoesNothing()
    {
        EventManager::instance()->publish(Event(CLOSE));
        QVERIFY(!ProjectManager::currentProject());
    }

    void otherTopicsAreIgnored_data()
    {
        QTest::addColumn<QString>("topic");
        QTest::newRow("empty") << QString();
        QTest::newRow("open in another case") << OPEN.toUpper();
        QTest::newRow("close in another case") << CLOSE.toLower();
        QTest::newRow("longer") << OPEN + QStringLiteral("s");
        QTest::newRow("other") << QStringLiteral("TE.Other");
    }

    void otherTopicsAreIgnored()
    {
        QFETCH(QString, topic);
        ProjectManager::openProject(m_file);
        const QString other = writeProject(m_dir->filePath(QStringLiteral("b.kprj")));
        const Event event(topic, {{FILE_KEY, other}});
        ProjectManager::instance()->handleIEvent(&event);
        QCOMPARE(m_factory->made.size(), 1);
        QCOMPARE(m_factory->last()->closes, 0);
    }

    void noEventIsAFailedAssertion()
    {
        const MessageRecorder log;
        ProjectManager::instance()->handleIEvent(nullptr);
        QVERIFY(log.isOneAssertion(QStringLiteral("event")));
    }

    void afterTheEndEventsReachNobody()
    {
        m_core->shutdown();
        const MessageRecorder log;
        EventManager::instance()->publish(Event(OPEN, {{FILE_KEY, m_file}}));
        EventManager::instance()->publish(Event(CLOSE));
        QVERIFY(log.messages().isEmpty());
        m_core = std::make_unique<CoreFixture>(); // for cleanup()
    }

private:
    QString m_file;
};

QTEST_MAIN(TestProjectEvents)
#include "tst_projectevents.moc"
