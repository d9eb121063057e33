// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/messagerecorder.h"
#include "support/modaldialog.h"
#include "support/testproject.h"

#include <idecore/projects/projectmanager.h>

#include <QAction>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using Core::ProjectManager;

namespace {

/// Writes what the project manager tells into a journal: "current", "none", "list".
void noteSignals(QObject *context, QStringList *journal)
{
    auto *manager = ProjectManager::instance();
    QObject::connect(manager, &ProjectManager::currentProjectChanged, context,
                     [journal](const Core::IProject *project) {
                         journal->append(project ? QStringLiteral("current")
                                                 : QStringLiteral("none"));
                     });
    QObject::connect(manager, &ProjectManager::recentListChanged, context,
                     [journal] { journal->append(QStringLiteral("list")); });
}

} // namespace

/// Opening and closing, with factories and projects that behave.
class TestProjectManager final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_journal.clear();
        m_dir = std::make_unique<QTemporaryDir>();
        m_factory = std::make_unique<TestProjectFactory>(QStringLiteral("FPGA"), &m_journal);
        m_inPool = std::make_unique<InPool>(m_factory.get());
        m_core = std::make_unique<CoreFixture>();
    }

    void cleanup()
    {
        if (m_factory->last())
            m_factory->last()->refuseClose = false;
        ProjectManager::closeCurrentProject();
        m_core.reset();
        m_inPool.reset();
    }

    void thereIsNoProjectAtFirst()
    {
        QVERIFY(ProjectManager::instance());
        QVERIFY(!ProjectManager::currentProject());
        QVERIFY(!closeProjectAction()->isEnabled());
    }

    void theFactoryOfTheTemplateMakesTheProject()
    {
        ProjectManager::openProject(project("a.kprj"));
        QCOMPARE(m_factory->made.size(), 1);
        QCOMPARE(ProjectManager::currentProject(), m_factory->last());
        QCOMPARE(m_journal, texts({"a.kprj test", "a.kprj open"}));
    }

    void theCanonicalPathIsTestedAndOpened()
    {
        const QString path = project("a.kprj");
        const QString link = m_dir->filePath(QStringLiteral("link.kprj"));
        QVERIFY(QFile::link(path, link));
        ProjectManager::openProject(link);
        QCOMPARE(m_factory->last()->tested, QStringList{path});
        QCOMPARE(m_factory->last()->opened, QStringList{path});
        QCOMPARE(ProjectManager::recentProjects(), QStringList{path});
    }

    void aRelativePathIsMadeAbsolute()
    {
        const QString path = project("a.kprj");
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_dir->path()));
        ProjectManager::openProject(QStringLiteral("a.kprj"));
        QVERIFY(QDir::setCurrent(before));
        QCOMPARE(m_factory->last()->opened, QStringList{path});
    }

    void openingIsLoggedWithThePathAsGiven()
    {
        project("a.kprj");
        const QString path = m_dir->filePath(QStringLiteral("./a.kprj"));
        const MessageRecorder log;
        ProjectManager::openProject(path);
        QCOMPARE(log.lines(QtDebugMsg, QStringLiteral("open project:")),
                 QStringList{QStringLiteral("open project: \"%1\"").arg(path)});
    }

    void closingIsLoggedWithTheProjectsFile()
    {
        const QString path = project("a.kprj");
        ProjectManager::openProject(path);
        const MessageRecorder log;
        ProjectManager::closeCurrentProject();
        QCOMPARE(log.lines(QtDebugMsg, QStringLiteral("close project:")),
                 QStringList{QStringLiteral("close project: \"%1\"").arg(path)});
    }

    void whatIsOpenHoldsWhenItIsTold()
    {
        const QString path = project("a.kprj");
        int told = 0;
        connect(ProjectManager::instance(), &ProjectManager::currentProjectChanged, this,
                [&](Core::IProject *current) {
                    ++told;
                    QCOMPARE(current, m_factory->last());
                    QCOMPARE(ProjectManager::currentProject(), current);
                    QVERIFY(closeProjectAction()->isEnabled());
                    QCOMPARE(ProjectManager::recentProjects(), QStringList{path});
                    QCOMPARE(CoreFixture::storedSetting(QStringLiteral("Core/RecentProjects"))
                                 .toStringList(),
                             QStringList{path});
                });
        ProjectManager::openProject(path);
        ProjectManager::instance()->disconnect(this);
        QCOMPARE(told, 1);
    }

    void theProjectIsToldBeforeTheList()
    {
        noteSignals(this, &m_journal);
        ProjectManager::openProject(project("a.kprj"));
        QCOMPARE(m_journal, texts({"a.kprj test", "a.kprj open", "current", "list"}));
    }

    void theOldProjectClosesBetweenTheTestAndTheOpening()
    {
        ProjectManager::openProject(project("a.kprj"));
        m_journal.clear();
        noteSignals(this, &m_journal);
        ProjectManager::openProject(project("b.kprj"));
        QCOMPARE(m_journal, texts({"b.kprj test", "a.kprj close", "a.kprj gone", "none",
                                   "b.kprj open", "current", "list"}));
        QVERIFY(closeProjectAction()->isEnabled());
    }

    void theOpenProjectIsNotOpenedAgain_data()
    {
        QTest::addColumn<QString>("spelling");
        QTest::newRow("the same") << QStringLiteral("sub/a.kprj");
        QTest::newRow("dots") << QStringLiteral("sub/../sub/./a.kprj");
        QTest::newRow("slashes") << QStringLiteral("sub//a.kprj");
        QTest::newRow("link to the file") << QStringLiteral("link.kprj");
        QTest::newRow("link to the folder") << QStringLiteral("folder/a.kprj");
    }

    void theOpenProjectIsNotOpenedAgain()
    {
        QFETCH(QString, spelling);
        ProjectManager::openProject(project("sub/a.kprj"));
        QVERIFY(QFile::link(m_dir->filePath(QStringLiteral("sub/a.kprj")),
                            m_dir->filePath(QStringLiteral("link.kprj"))));
        QVERIFY(QFile::link(m_dir->filePath(QStringLiteral("sub")),
                            m_dir->filePath(QStringLiteral("folder"))));
        ProjectManager::instance()->onActClearRecent();
        m_journal.clear();
        noteSignals(this, &m_journal);
        ProjectManager::openProject(m_dir->filePath(spelling));
        QCOMPARE(m_journal, QStringList());
        QCOMPARE(m_factory->made.size(), 1);
        QCOMPARE(ProjectManager::recentProjects(), QStringList());
    }

    void theProjectsOwnNameForItsFileCounts()
    {
        const QString path = project("a.kprj");
        const QString link = m_dir->filePath(QStringLiteral("link.kprj"));
        QVERIFY(QFile::link(path, link));
        m_factory->prepare = [&link](TestProject *made) { made->path = link; };
        ProjectManager::openProject(path);
        ProjectManager::openProject(path);
        QCOMPARE(m_factory->made.size(), 1);
    }

    void missingFilesAreNotTheSameProject()
    {
        const QString path = project("a.kprj");
        ProjectManager::openProject(path);
        QVERIFY(QFile::remove(path));
        ModalDialog box(ModalDialog::press(QMessageBox::Ok));
        ProjectManager::openProject(m_dir->filePath(QStringLiteral("none.kprj")));
        QVERIFY(box.met());
    }

    void theFirstFactoryOfTheTemplateInThePoolIsTaken()
    {
        TestProjectFactory other(QStringLiteral("fpga"));
        TestProjectFactory second;
        const InPool otherPooled(&other);
        const InPool secondPooled(&second);
        ProjectManager::openProject(project("a.kprj"));
        QCOMPARE(m_factory->made.size(), 1);
        QVERIFY(other.made.isEmpty());
        QVERIFY(second.made.isEmpty());
    }

    void factoriesOfOtherTemplatesArePassedOver()
    {
        TestProjectFactory other(QStringLiteral("ASIC"));
        const InPool pooled(&other);
        ProjectManager::openProject(project("a.kprj", "<p><Template>ASIC</Template></p>"));
        QCOMPARE(other.made.size(), 1);
        QVERIFY(m_factory->made.isEmpty());
        ProjectManager::closeCurrentProject();
    }

    void theLegacyTemplateIsReadAsFpga()
    {
        ProjectManager::openProject(project("a.kprj", "<p><Template>FPGA_IMPL</Template></p>"));
        QCOMPARE(ProjectManager::currentProject(), m_factory->last());
        QVERIFY(m_factory->last());
    }

    void aProjectThatFailsItsTestIsDroppedSilently()
    {
        ProjectManager::openProject(project("a.kprj"));
        m_factory->prepare = [](TestProject *made) { made->refuseTest = true; };
        m_journal.clear();
        noteSignals(this, &m_journal);
        ProjectManager::openProject(project("b.kprj")); // a message would wait for ever
        QCOMPARE(m_journal, texts({"b.kprj test", "b.kprj gone"}));
        QCOMPARE(ProjectManager::currentProject(), m_factory->made.constFirst());
        QCOMPARE(ProjectManager::recentProjects().size(), 1);
        ProjectManager::closeCurrentProject();
    }

    void anOldProjectThatRefusesToCloseStays()
    {
        ProjectManager::openProject(project("a.kprj"));
        TestProject *old = m_factory->last();
        old->refuseClose = true;
        m_journal.clear();
        noteSignals(this, &m_journal);
        ProjectManager::openProject(project("b.kprj"));
        QCOMPARE(m_journal, texts({"b.kprj test", "a.kprj close", "b.kprj gone"}));
        QCOMPARE(ProjectManager::currentProject(), old);
        QVERIFY(closeProjectAction()->isEnabled());
        QCOMPARE(ProjectManager::recentProjects().size(), 1);
        old->refuseClose = false;
    }

    void aProjectThatDoesNotOpenIsDropped()
    {
        ProjectManager::openProject(project("a.kprj"));
        m_factory->prepare = [](TestProject *made) { made->refuseOpen = true; };
        m_journal.clear();
        noteSignals(this, &m_journal);
        ProjectManager::openProject(project("b.kprj"));
        QCOMPARE(m_journal, texts({"b.kprj test", "a.kprj close", "a.kprj gone", "none",
                                   "b.kprj open", "b.kprj gone"}));
        QVERIFY(!ProjectManager::currentProject());
        QVERIFY(!closeProjectAction()->isEnabled());
        QCOMPARE(ProjectManager::recentProjects().size(), 1);
    }

    void closingWithoutAProjectSucceeds()
    {
        noteSignals(this, &m_journal);
        QVERIFY(ProjectManager::closeCurrentProject());
        QCOMPARE(m_journal, QStringList());
    }

    void closingAsksAndDeletesTheProject()
    {
        ProjectManager::openProject(project("a.kprj"));
        m_journal.clear();
        noteSignals(this, &m_journal);
        QVERIFY(ProjectManager::closeCurrentProject());
        QCOMPARE(m_journal, texts({"a.kprj close", "a.kprj gone", "none"}));
        QVERIFY(!ProjectManager::currentProject());
        QVERIFY(!closeProjectAction()->isEnabled());
        QCOMPARE(ProjectManager::recentProjects().size(), 1);
    }

    void whatIsClosedIsGoneWhenItIsTold()
    {
        ProjectManager::openProject(project("a.kprj"));
        auto *child = new QObject(m_factory->last());
        const QPointer<QObject> part(child);
        int told = 0;
        connect(ProjectManager::instance(), &ProjectManager::currentProjectChanged, this,
                [&](const Core::IProject *current) {
                    ++told;
                    QVERIFY(!current);
                    QVERIFY(!ProjectManager::currentProject());
                    QVERIFY(!part);
                    QVERIFY(!closeProjectAction()->isEnabled());
                });
        ProjectManager::closeCurrentProject();
        ProjectManager::instance()->disconnect(this);
        QCOMPARE(told, 1);
    }

    void aProjectThatRefusesToCloseStaysOpen()
    {
        ProjectManager::openProject(project("a.kprj"));
        m_factory->last()->refuseClose = true;
        m_journal.clear();
        noteSignals(this, &m_journal);
        QVERIFY(!ProjectManager::closeCurrentProject());
        QCOMPARE(m_journal, texts({"a.kprj close"}));
        QCOMPARE(ProjectManager::currentProject(), m_factory->last());
        QVERIFY(closeProjectAction()->isEnabled());
    }

    void theCommandClosesTheProject()
    {
        ProjectManager::openProject(project("a.kprj"));
        closeProjectAction()->trigger();
        QVERIFY(!ProjectManager::currentProject());
        QVERIFY(!m_factory->last());
    }

    void aProjectIsOpenedAgainAfterItWasClosed()
    {
        const QString path = project("a.kprj");
        ProjectManager::openProject(path);
        ProjectManager::closeCurrentProject();
        ProjectManager::openProject(path);
        QCOMPARE(m_factory->made.size(), 2);
        QCOMPARE(ProjectManager::currentProject(), m_factory->last());
    }

    void whoIsToldMayCloseTheProjectAtOnce()
    {
        connect(ProjectManager::instance(), &ProjectManager::currentProjectChanged, this,
                [](const Core::IProject *current) {
                    if (current)
                        ProjectManager::closeCurrentProject();
                });
        const QSignalSpy list(ProjectManager::instance(), &ProjectManager::recentListChanged);
        ProjectManager::openProject(project("a.kprj"));
        ProjectManager::instance()->disconnect(this);
        QVERIFY(!ProjectManager::currentProject());
        QCOMPARE(list.count(), 1);
    }

    void closingAgainWhileTheProjectIsAskedIsRefused()
    {
        ProjectManager::openProject(project("a.kprj"));
        bool inner = true;
        m_factory->last()->whileClosing = [&inner] {
            inner = ProjectManager::closeCurrentProject();
        };
        QVERIFY(ProjectManager::closeCurrentProject());
        QVERIFY(!inner);
        QCOMPARE(m_journal, texts({"a.kprj test", "a.kprj open", "a.kprj close", "a.kprj gone"}));
    }

    void openingWhileTheProjectIsAskedKeepsIt()
    {
        ProjectManager::openProject(project("a.kprj"));
        TestProject *old = m_factory->last();
        old->refuseClose = true;
        const QString other = project("b.kprj");
        old->whileClosing = [&other] { ProjectManager::openProject(other); };
        QVERIFY(!ProjectManager::closeCurrentProject());
        QCOMPARE(ProjectManager::currentProject(), old);
        QVERIFY(!m_factory->last());
        old->refuseClose = false;
        old->whileClosing = nullptr;
    }

    void openingWhileAnotherProjectIsOpenedIsLeftAloneWithAWarning()
    {
        const QString other = project("b.kprj");
        m_factory->prepare = [&other](TestProject *made) {
            made->whileOpening = [&other] { ProjectManager::openProject(other); };
        };
        const MessageRecorder log;
        ProjectManager::openProject(project("a.kprj"));
        QCOMPARE(m_factory->made.size(), 1);
        QCOMPARE(ProjectManager::currentProject(), m_factory->last());
        QCOMPARE(log.lines(QtWarningMsg).size(), 1);
        QVERIFY(log.lines(QtWarningMsg).constFirst().contains(other));
    }

    void aProjectDestroyedByItsPluginIsForgotten()
    {
        ProjectManager::openProject(project("a.kprj"));
        const QSignalSpy spy(ProjectManager::instance(), &ProjectManager::currentProjectChanged);
        delete m_factory->last();
        QVERIFY(!ProjectManager::currentProject());
        QVERIFY(!closeProjectAction()->isEnabled());
        QCOMPARE(spy.count(), 1);
        QVERIFY(ProjectManager::closeCurrentProject());
    }

    void aProjectThatDestroysItselfWhenClosedIsForgotten_data()
    {
        QTest::addColumn<bool>("refuses");
        QTest::newRow("agreeing") << false;
        QTest::newRow("refusing") << true;
    }

    void aProjectThatDestroysItselfWhenClosedIsForgotten()
    {
        QFETCH(bool, refuses);
        ProjectManager::openProject(project("a.kprj"));
        TestProject *made = m_factory->last();
        made->refuseClose = refuses;
        const QSignalSpy spy(ProjectManager::instance(), &ProjectManager::currentProjectChanged);
        made->whileClosing = [made] { delete made; };
        QVERIFY(ProjectManager::closeCurrentProject());
        QVERIFY(!ProjectManager::currentProject());
        QCOMPARE(spy.count(), 1);
    }

    void aProjectOpenAtTheEndIsNeitherClosedNorDeleted()
    {
        ProjectManager::openProject(project("a.kprj"));
        const std::unique_ptr<TestProject> left(m_factory->last());
        m_journal.clear();
        m_core->shutdown();
        QCOMPARE(m_journal, QStringList());
        QVERIFY(!ProjectManager::instance());
        m_core = std::make_unique<CoreFixture>(); // for cleanup()
    }

private:
    QString project(const char *name,
                    const QByteArray &content = "<p><Template>FPGA</Template></p>") const
    {
        return writeProject(m_dir->filePath(QString::fromUtf8(name)), content);
    }

    QStringList m_journal;
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<TestProjectFactory> m_factory;
    std::unique_ptr<InPool> m_inPool;
    std::unique_ptr<CoreFixture> m_core;
};

QTEST_MAIN(TestProjectManager)
#include "tst_projectmanager.moc"
