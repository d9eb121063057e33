// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "projecttest.h"

#include "support/corefixture.h"
#include "support/modaldialog.h"
#include "support/testproject.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/core/idecore.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

#include <memory>

#include <unistd.h>

using Core::ProjectManager;

namespace {

const QString KEY = QStringLiteral("Core/RecentProjects");
const QString KEY_WORK_DIR = QStringLiteral("Core/DefaultWorkDir");

QStringList stored()
{
    return CoreFixture::storedSetting(KEY).toStringList();
}

/// The entries as the menu opens.
QStringList listed()
{
    Q_EMIT recentProjectsMenu()->aboutToShow();
    return menuEntries(recentProjectsMenu());
}

QStringList fileMenuTexts()
{
    return menuEntries(Core::ActionManager::menu(QStringLiteral("Core.Menu.File")));
}

/// Puts a "~" behind every text of the project manager.
class Tilde final : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return qstrcmp(context, "Core::ProjectManager") == 0
                   ? QString::fromUtf8(text) + QLatin1Char('~')
                   : QString();
    }
};

/// A working directory of the process's own for a scope.
class WorkingIn final
{
public:
    explicit WorkingIn(const QString &dir) { QDir::setCurrent(dir); }
    ~WorkingIn() { QDir::setCurrent(m_before); }
    Q_DISABLE_COPY(WorkingIn)

private:
    QString m_before = QDir::currentPath();
};

} // namespace

/// The recent projects, the File menu's entries and the work directory.
class TestRecentProjects final : public ProjectTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }

    void cleanup() { tearDown(); }

    void theMenuStandsBeforeTheSeparatorOfExit()
    {
        const QList<QAction *> actions =
            Core::ActionManager::menu(QStringLiteral("Core.Menu.File"))->actions();
        const int place = actions.indexOf(recentProjectsMenu()->menuAction());
        QVERIFY(place >= 0);
        QCOMPARE(actions.at(place + 1),
                 Core::ActionManager::separator(QStringLiteral("Core.Sep.File.Exit.F")));
        QCOMPARE(recentProjectsMenu()->parent(), Core::ViewManager::mainWindow());
    }

    void closeProjectStandsBeforeTheSeparatorOfPrint()
    {
        const QList<QAction *> actions =
            Core::ActionManager::menu(QStringLiteral("Core.Menu.File"))->actions();
        const int place = actions.indexOf(closeProjectAction());
        QVERIFY(place >= 0);
        QCOMPARE(actions.at(place + 1),
                 Core::ActionManager::separator(QStringLiteral("Core.Sep.File.Print.F")));
    }

    void theEntriesAreTranslated()
    {
        m_core.reset();
        Tilde tilde;
        QCoreApplication::installTranslator(&tilde);
        CoreFixture::storeSetting(KEY, texts({"/a"}));
        m_core = std::make_unique<CoreFixture>(CoreFixture::Settings::Keep);
        const QStringList file = fileMenuTexts();
        ProjectManager::instance()->showRecentMenu();
        QStringList recent;
        const QList<QAction *> actions =
            Core::ActionManager::menu(QStringLiteral("Core.Menu.File"))->actions();
        for (const QAction *action : actions) {
            if (action->menu() && action->text().startsWith(QLatin1String("Recent Projects")))
                recent = menuEntries(action->menu());
        }
        QCoreApplication::removeTranslator(&tilde);
        QVERIFY(file.contains(QLatin1String("Close Project~")));
        QVERIFY(file.contains(QLatin1String("> Recent Projects~")));
        QCOMPARE(recent, texts({"/a", "--", "Clear~"}));
    }

    void theMessageIsTranslated()
    {
        Tilde tilde;
        QCoreApplication::installTranslator(&tilde);
        ModalDialog box(ModalDialog::press(QMessageBox::Ok));
        ProjectManager::openProject(QStringLiteral("/no/p.kprj"));
        QCoreApplication::removeTranslator(&tilde);
        QCOMPARE(box.title(), QStringLiteral("Open Project~"));
        QCOMPARE(box.text().section(QLatin1Char('\n'), 0, 0),
                 QStringLiteral("Can not open project \"/no/p.kprj\"~"));
    }

    void withoutProjectsTheMenuIsEmpty()
    {
        QCOMPARE(ProjectManager::recentProjects(), QStringList());
        QCOMPARE(listed(), QStringList());
    }

    void theMenuListsTheNewestFirstThenClear()
    {
        const QString a = open("a");
        const QString b = open("b");
        QCOMPARE(listed(), (QStringList{b, a, QStringLiteral("--"), QStringLiteral("Clear")}));
    }

    void theMenuIsMadeAnewAtEveryOpening()
    {
        const QString a = open("a");
        listed();
        const QPointer<QAction> entry = recentProjectsMenu()->actions().constFirst();
        // Clearing alone would spare what is shown elsewhere, too.
        QWidget elsewhere;
        elsewhere.addAction(entry);
        QCOMPARE(listed(), (QStringList{a, QStringLiteral("--"), QStringLiteral("Clear")}));
        QVERIFY(!entry);
    }

    void elevenProjectsLeaveTheTenNewest()
    {
        QStringList expected;
        for (int i = 0; i < 11; ++i)
            expected.prepend(open(QByteArray::number(i).constData()));
        expected.removeLast();
        QCOMPARE(ProjectManager::recentProjects(), expected);
        QCOMPARE(stored(), expected);
        QCOMPARE(listed().size(), 12);
    }

    void aProjectOpenedAgainMovesToTheFront()
    {
        const QString a = open("a");
        const QString b = open("b");
        const QString c = open("c");
        open("a");
        QCOMPARE(ProjectManager::recentProjects(), (QStringList{a, c, b}));
    }

    void everyOpeningIsStored()
    {
        const QString a = open("a");
        QCOMPARE(stored(), QStringList{a});
        const QString b = open("b");
        QCOMPARE(stored(), (QStringList{b, a}));
    }

    void closingKeepsTheListAsItIsSilently()
    {
        const QString a = open("a");
        const QSignalSpy spy(ProjectManager::instance(), &ProjectManager::recentListChanged);
        QVERIFY(ProjectManager::closeCurrentProject());
        QCOMPARE(spy.count(), 0);
        QCOMPARE(ProjectManager::recentProjects(), QStringList{a});
    }

    void choosingAnEntryOpensTheProject()
    {
        const QString a = open("a");
        const QString b = open("b");
        listed();
        recentProjectsMenu()->actions().at(1)->trigger();
        QCOMPARE(m_factory->last()->opened, QStringList{a});
        QCOMPARE(ProjectManager::recentProjects(), (QStringList{a, b}));
    }

    void choosingAMissingProjectTellsItAndKeepsIt()
    {
        CoreFixture::storeSetting(KEY, texts({"/no/p.kprj", "/other"}));
        restart();
        listed();
        ModalDialog box(ModalDialog::press(QMessageBox::Ok));
        recentProjectsMenu()->actions().constFirst()->trigger();
        QCOMPARE(box.text(), QStringLiteral("Can not open project \"/no/p.kprj\"\n"
                                            "No such file or directory"));
        QCOMPARE(ProjectManager::recentProjects(), texts({"/no/p.kprj", "/other"}));
    }

    void withoutASenderNothingIsOpened()
    {
        open("a");
        ProjectManager::instance()->onActRecent(); // a message would wait for ever
        QCOMPARE(m_factory->made.size(), 1);
    }

    void clearEmptiesMenuListAndStore()
    {
        open("a");
        listed();
        const QSignalSpy spy(ProjectManager::instance(), &ProjectManager::recentListChanged);
        recentProjectsMenu()->actions().constLast()->trigger();
        QCOMPARE(spy.count(), 1);
        QCOMPARE(ProjectManager::recentProjects(), QStringList());
        QVERIFY(stored().isEmpty());
        QVERIFY(Core::IdeCore::userSettings()->contains(KEY));
        QCOMPARE(listed(), QStringList());
    }

    void theListIsLoadedAsItIs()
    {
        QStringList many;
        for (int i = 0; i < 14; ++i)
            many.append(QStringLiteral("/p%1").arg(i % 12));
        CoreFixture::storeSetting(KEY, many);
        restart();
        QCOMPARE(ProjectManager::recentProjects(), many);
        const QString a = open("a");
        QCOMPARE(ProjectManager::recentProjects(), QStringList(QStringList{a} + many.mid(0, 9)));
    }

    void everyEqualEntryIsRemoved()
    {
        const QString a = QFileInfo(m_dir->path()).canonicalFilePath() + QStringLiteral("/a.kprj");
        CoreFixture::storeSetting(KEY, QStringList{QStringLiteral("/x"), a, a});
        restart();
        QCOMPARE(open("a"), a);
        QCOMPARE(ProjectManager::recentProjects(), (QStringList{a, QStringLiteral("/x")}));
    }

    void theListOutlivesTheSession()
    {
        const QString a = open("a");
        ProjectManager::closeCurrentProject();
        restart();
        QCOMPARE(ProjectManager::recentProjects(), QStringList{a});
    }

    void aListOfAnotherTypeIsOvercome_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QStringList>("loaded");
        QTest::newRow("number") << QByteArray("7") << texts({"7"});
        QTest::newRow("one path") << QByteArray("/a") << texts({"/a"});
        QTest::newRow("invalid") << QByteArray("@Invalid()") << QStringList();
        QTest::newRow("rectangle") << QByteArray("@Rect(1 2 3 4)") << QStringList();
        QTest::newRow("broken variant") << QByteArray("@Variant(\\0\\0\\0\\x99)") << QStringList();
    }

    void aListOfAnotherTypeIsOvercome()
    {
        QFETCH(const QByteArray, stored);
        QFETCH(const QStringList, loaded);
        restartWith("[Core]\nRecentProjects=" + stored + '\n');
        QCOMPARE(ProjectManager::recentProjects(), loaded);
        const QString a = open("a");
        QCOMPARE(ProjectManager::recentProjects(), QStringList(QStringList{a} + loaded));
        QCOMPARE(listed().constFirst(), a);
    }

    void aWorkDirOfAnotherTypeIsNone_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::newRow("list") << QByteArray("/a, /b");
        QTest::newRow("invalid") << QByteArray("@Invalid()");
        QTest::newRow("rectangle") << QByteArray("@Rect(1 2 3 4)");
        QTest::newRow("broken variant") << QByteArray("@Variant(\\0\\0\\0\\x99)");
    }

    void aWorkDirOfAnotherTypeIsNone()
    {
        QFETCH(const QByteArray, stored);
        const WorkingIn folder(m_dir->path());
        restartWith("[Core]\nDefaultWorkDir=" + stored + '\n');
        QCOMPARE(ProjectManager::workDir(), QString());
        QCOMPARE(ProjectManager::defaultWorkDir(), QDir::currentPath());
    }

    void theWorkDirIsEmptyUntilItIsSet() { QCOMPARE(ProjectManager::workDir(), QString()); }

    void theWorkDirIsKeptUnchanged_data()
    {
        QTest::addColumn<QString>("dir");
        QTest::newRow("missing") << QStringLiteral("/no/such/folder");
        QTest::newRow("relative") << QStringLiteral("a/../b/");
        QTest::newRow("not ASCII") << QStringLiteral("/größe, \"x\"\n");
        QTest::newRow("empty") << QString();
    }

    void theWorkDirIsKeptUnchanged()
    {
        QFETCH(QString, dir);
        ProjectManager::setDefaultWorkDir(QStringLiteral("/before"));
        ProjectManager::setDefaultWorkDir(dir);
        QCOMPARE(ProjectManager::workDir(), dir);
        QCOMPARE(CoreFixture::storedSetting(KEY_WORK_DIR).toString(), dir);
        restart();
        QCOMPARE(ProjectManager::workDir(), dir);
    }

    void theDefaultWorkDirIsTheStoredOne()
    {
        ProjectManager::setDefaultWorkDir(QStringLiteral("/no/such/folder"));
        QCOMPARE(ProjectManager::defaultWorkDir(), QStringLiteral("/no/such/folder"));
    }

    void withoutAStoredOneItIsTheCurrentFolder()
    {
        const WorkingIn folder(m_dir->path());
        QCOMPARE(ProjectManager::defaultWorkDir(), QDir::currentPath());
        QVERIFY(QDir::currentPath() != QDir::homePath());
    }

    void aCurrentFolderThatIsNotWritableMeansTheHomeFolder()
    {
        const WorkingIn folder(QStringLiteral("/proc"));
        // The superuser may write anywhere.
        const bool superuser = ::geteuid() == 0;
        if (superuser)
            QCOMPARE(::setresuid(65534, 65534, 0), 0);
        const QString dir = ProjectManager::defaultWorkDir();
        if (superuser)
            QCOMPARE(::setresuid(0, 0, 0), 0);
        QCOMPARE(dir, QDir::homePath());
    }

    void aCurrentFolderThatIsGoneMeansTheHomeFolder()
    {
        const QString gone = m_dir->filePath(QStringLiteral("gone"));
        QVERIFY(QDir().mkpath(gone));
        const WorkingIn folder(gone);
        QVERIFY(QDir().rmdir(gone));
        QCOMPARE(ProjectManager::defaultWorkDir(), QDir::homePath());
    }

private:
    QString open(const char *name) const
    {
        const QString path =
            writeProject(m_dir->filePath(QString::fromUtf8(name) + QStringLiteral(".kprj")));
        ProjectManager::openProject(path);
        return path;
    }

    /// As if somebody had written @p settings by hand meanwhile.
    void restartWith(const QByteArray &settings)
    {
        m_core.reset();
        QFile file(CoreFixture::settingsFile());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(settings), qint64(settings.size()));
        file.close();
        restart();
    }

    void restart()
    {
        m_core.reset();
        m_core = std::make_unique<CoreFixture>(CoreFixture::Settings::Keep);
    }
};

QTEST_MAIN(TestRecentProjects)
#include "tst_recentprojects.moc"
