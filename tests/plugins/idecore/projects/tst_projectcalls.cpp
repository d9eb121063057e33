// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"

#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/projects/projectmanager.h>
#include <qutil/eventmanager.h>
#include <qutil/ieventhandler.h>

#include <QTest>

#include <memory>

using namespace Core;

namespace {

struct Calls
{
    QStringList subscribed;
    QList<QUtil::IEventHandler *> handlers;
    /// How often a handler left the bus that was a whole project manager still, and
    /// not the instance any more.
    int left = 0;
    QStringList mimeFiles;
    QList<QString *> errors;
};
Calls s_calls;

} // namespace

// Stand in for what the project manager calls; the file types fail to load.

void QUtil::EventManager::subscribe(const QString &topic, IEventHandler *handler)
{
    s_calls.subscribed.append(topic);
    s_calls.handlers.append(handler);
}

void QUtil::EventManager::unsubscribeAll(IEventHandler *handler)
{
    if (dynamic_cast<ProjectManager *>(handler) && !ProjectManager::instance())
        ++s_calls.left;
}

bool MimeDatabase::addMimeTypes(const QString &fileName, QString *errorMessage)
{
    s_calls.mimeFiles.append(fileName);
    s_calls.errors.append(errorMessage);
    return false;
}

/// What the project manager asks of others when it starts and ends.
class TestProjectCalls final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        s_calls = {};
        m_core = std::make_unique<CoreFixture>();
    }

    void cleanup() { m_core.reset(); }

    void itSubscribesToClosingThenToOpening()
    {
        QCOMPARE(s_calls.subscribed, texts({"TE.Close.Project", "TE.Open.Project"}));
        QUtil::IEventHandler *manager = ProjectManager::instance();
        QCOMPARE(s_calls.handlers, (QList<QUtil::IEventHandler *>{manager, manager}));
    }

    void itLeavesTheBusAtTheEnd()
    {
        m_core.reset();
        QCOMPARE(s_calls.left, 1);
    }

    void theBuiltInFileTypesAreLoadedWithoutAskingForTheError()
    {
        QCOMPARE(s_calls.mimeFiles, texts({":/core/ide.mimetype.xml"}));
        QCOMPARE(s_calls.errors, QList<QString *>{nullptr});
    }

    void fileTypesThatFailToLoadStopNothing()
    {
        m_core->show();
        QVERIFY(ProjectManager::closeCurrentProject());
        ProjectManager::instance()->showRecentMenu(); // made after the types
    }

private:
    std::unique_ptr<CoreFixture> m_core;
};

QTEST_MAIN(TestProjectCalls)
#include "tst_projectcalls.moc"
