// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// What the panel shows of the disk when the system will not watch its folders,
// because all watches are in use or a folder may not be read.

#include "shownpanel.h"

#include <fpgaproject/panel/filetreemodel_p.h>
#include <fpgaproject/panel/folderwatcher_p.h>

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <sys/inotify.h>
#include <sys/syscall.h>
#include <unistd.h>

using Fpga::FileTreeModel;
using Fpga::FolderWatcher;

namespace {

bool s_anyWatcher = true;
std::function<bool(const QByteArray &)> s_refused;

bool refuseAll(const QByteArray &)
{
    return true;
}

} // namespace

// Stand in for those of the system.
Q_DECL_EXPORT int inotify_init1(int flags) noexcept
{
    if (s_anyWatcher)
        return int(::syscall(SYS_inotify_init1, flags));
    errno = EMFILE;
    return -1;
}

Q_DECL_EXPORT int inotify_add_watch(int descriptor, const char *path, uint32_t mask) noexcept
{
    if (!s_refused || !s_refused(path))
        return int(::syscall(SYS_inotify_add_watch, descriptor, path, mask));
    errno = ENOSPC;
    return -1;
}

class TestFolderWatcher : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        s_anyWatcher = true;
        s_refused = nullptr;
    }

    void cleanup() { init(); }

    void withoutWatchesAFileThatVanishesShowsAsMissing_data() { refusals(); }

    void withoutWatchesAFileThatVanishesShowsAsMissing()
    {
        refuse();
        const Shown shown({named("rtl/a.v"), named("b.v")});
        QVERIFY(QFile::remove(shown.folder.path(named("rtl/a.v"))));
        QTRY_VERIFY_WITH_TIMEOUT(shown.index("rtl/a.v").data(FileTreeModel::MissingRole).toBool(),
                                 1000);
        QVERIFY(!shown.index("b.v").data(FileTreeModel::MissingRole).toBool());
    }

    void withoutWatchesAFileThatAppearsIsNoLongerMissing_data() { refusals(); }

    void withoutWatchesAFileThatAppearsIsNoLongerMissing()
    {
        refuse();
        const Shown shown({named("!rtl/a.v")});
        shown.folder.put(named("rtl/a.v"));
        QTRY_VERIFY_WITH_TIMEOUT(!shown.index("rtl/a.v").data(FileTreeModel::MissingRole).toBool(),
                                 1000);
    }

    void withoutWatchesTheProjectFileIsFollowed_data() { refusals(); }

    void withoutWatchesTheProjectFileIsFollowed()
    {
        refuse();
        const Shown shown({named("a.v"), named("b.v")});
        Fpga::FpgaProject other;
        QVERIFY(other.open(shown.folder.project()));
        QVERIFY(other.removeFiles({named("a.v")}));
        QTRY_VERIFY_WITH_TIMEOUT(!shown.index("a.v").isValid(), 1000);
    }

    void watchesThatAreLeftAgainAreTaken()
    {
        s_refused = refuseAll;
        const QTemporaryDir folder;
        FolderWatcher watcher;
        watcher.setFolders({folder.path()});
        s_refused = nullptr;
        const QSignalSpy folders(&watcher, &FolderWatcher::folderTouched);
        QTRY_VERIFY(!folders.isEmpty());
        const QSignalSpy files(&watcher, &FolderWatcher::fileTouched);

        QFile file(folder.filePath(named("a.v")));
        QVERIFY(file.open(QIODevice::WriteOnly));

        // Only a watch knows the name.
        QTRY_COMPARE(files.value(0).value(1).toString(), named("a.v"));
    }

    void whatIsWatchedIsNotPolled()
    {
        const QTemporaryDir folder;
        FolderWatcher watcher;
        watcher.setFolders({folder.path()});
        QVERIFY(!isPolling(watcher));
        s_refused = refuseAll;
        watcher.setFolders({folder.path()});
        QVERIFY(isPolling(watcher));
        s_refused = nullptr;
        watcher.setFolders({folder.path()});
        QVERIFY(!isPolling(watcher));
    }

    void aMissingFolderInOneThatIsNotWatchedIsSeenToCome()
    {
        const QTemporaryDir folder;
        const QByteArray outer = QFile::encodeName(folder.path());
        s_refused = [outer](const QByteArray &path) { return path == outer; };
        FolderWatcher watcher;
        watcher.setFolders({folder.filePath(named("rtl"))});
        QVERIFY(isPolling(watcher));
        const QSignalSpy folders(&watcher, &FolderWatcher::folderTouched);
        QVERIFY(QDir(folder.path()).mkdir(named("rtl")));
        QTRY_VERIFY_WITH_TIMEOUT(!isPolling(watcher), 1000);
        QVERIFY(!folders.isEmpty());
    }

private:
    static void refusals()
    {
        QTest::addColumn<bool>("anyWatcher");
        QTest::newRow("no watch") << true;
        QTest::newRow("no watcher") << false;
    }

    static void refuse()
    {
        QFETCH(bool, anyWatcher);
        s_anyWatcher = anyWatcher;
        s_refused = refuseAll;
    }

    static bool isPolling(const FolderWatcher &watcher)
    {
        const QList<QTimer *> timers = watcher.findChildren<QTimer *>();
        return std::any_of(timers.cbegin(), timers.cend(), [](const QTimer *timer) {
            return !timer->isSingleShot() && timer->isActive();
        });
    }
};

QTEST_MAIN(TestFolderWatcher)
#include "tst_folderwatcher.moc"
