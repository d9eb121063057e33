// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "filetree.h"
#include "projectfolder.h"

#include <fpgaproject/panel/folderwatcher_p.h>

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTest>

#include <cerrno>
#include <cstdint>

#include <sys/inotify.h>
#include <sys/syscall.h>
#include <unistd.h>

using Fpga::FolderWatcher;

namespace {

/// What the system refuses, as it does when a user has used up all there are.
enum class Refused { Nothing, Watches, Watchers };
Refused s_refused = Refused::Nothing;

} // namespace

Q_DECLARE_METATYPE(Refused)

// Stand in for the system's.

extern "C" Q_DECL_EXPORT int inotify_init1(int flags) noexcept
{
    if (s_refused == Refused::Watchers) {
        errno = EMFILE;
        return -1;
    }
    return int(::syscall(SYS_inotify_init1, flags));
}

extern "C" Q_DECL_EXPORT int inotify_add_watch(int descriptor, const char *path,
                                               std::uint32_t mask) noexcept
{
    // What is not there is found out first.
    if (s_refused == Refused::Watches && ::access(path, F_OK) == 0) {
        errno = ENOSPC;
        return -1;
    }
    return int(::syscall(SYS_inotify_add_watch, descriptor, path, mask));
}

/// Files that appear and vanish show in time, also where the system does not tell of
/// them.
class TestFolderWatcher final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();

    void aFileThatAppears_data() { rows(); }
    void aFileThatAppears();
    void aFileThatVanishes_data() { rows(); }
    void aFileThatVanishes();
    void aFolderThatComes_data() { rows(); }
    void aFolderThatComes();
    void aFolderThatGoesAndComesBack_data() { rows(); }
    void aFolderThatGoesAndComesBack();
    void whatIsToldOfIsNotAskedFor();
    void foldersOfNoProjectAreNotAskedFor();

private:
    static void rows();
};

void TestFolderWatcher::rows()
{
    QTest::addColumn<Refused>("refused");
    QTest::newRow("told by the system") << Refused::Nothing;
    QTest::newRow("no watches left") << Refused::Watches;
    QTest::newRow("no watchers left") << Refused::Watchers;
}

void TestFolderWatcher::init()
{
    s_refused = Refused::Nothing;
}

void TestFolderWatcher::aFileThatAppears()
{
    QFETCH(const Refused, refused);
    s_refused = refused;
    const Tree tree({named("!rtl/a.v"), named("rtl/b.v")});
    QVERIFY(tree.isMissing("rtl/a.v"));

    tree.folder.put(named("rtl/a.v"));

    QTRY_VERIFY_WITH_TIMEOUT(!tree.isMissing("rtl/a.v"), SOON_MS);
}

void TestFolderWatcher::aFileThatVanishes()
{
    QFETCH(const Refused, refused);
    s_refused = refused;
    const Tree tree({named("rtl/a.v"), named("rtl/b.v")});

    QVERIFY(QFile::remove(tree.folder.path(named("rtl/a.v"))));

    QTRY_VERIFY_WITH_TIMEOUT(tree.isMissing("rtl/a.v"), SOON_MS);
    QVERIFY(!tree.isMissing("rtl/b.v"));
}

void TestFolderWatcher::aFolderThatComes()
{
    QFETCH(const Refused, refused);
    s_refused = refused;
    const Tree tree({named("!deep/er/a.v")});
    QVERIFY(tree.isMissing("deep/er/a.v"));

    tree.folder.put(named("deep/er/a.v"));

    QTRY_VERIFY_WITH_TIMEOUT(!tree.isMissing("deep/er/a.v"), SOON_MS);
}

void TestFolderWatcher::aFolderThatGoesAndComesBack()
{
    QFETCH(const Refused, refused);
    s_refused = refused;
    const Tree tree({named("deep/er/a.v")});
    const QString here = tree.folder.path(named("deep"));
    const QString away = tree.folder.path(named("away"));

    QVERIFY(QDir().rename(here, away));
    QTRY_VERIFY_WITH_TIMEOUT(tree.isMissing("deep/er/a.v"), SOON_MS);
    QVERIFY(QDir().rename(away, here));

    QTRY_VERIFY_WITH_TIMEOUT(!tree.isMissing("deep/er/a.v"), SOON_MS);
}

void TestFolderWatcher::whatIsToldOfIsNotAskedFor()
{
    const Tree tree({named("rtl/a.v")});
    const auto *watcher = tree.model.findChild<FolderWatcher *>();
    QVERIFY(watcher);

    QSignalSpy touched(watcher, &FolderWatcher::folderTouched);

    QVERIFY(!touched.wait(SOON_MS));
}

void TestFolderWatcher::foldersOfNoProjectAreNotAskedFor()
{
    s_refused = Refused::Watchers;
    Tree tree({named("rtl/a.v")});
    const auto *watcher = tree.model.findChild<FolderWatcher *>();
    QVERIFY(watcher);
    QSignalSpy touched(watcher, &FolderWatcher::folderTouched);
    QVERIFY(touched.wait(SOON_MS));

    tree.model.setProject(nullptr);

    QVERIFY(!touched.wait(SOON_MS));
}

QTEST_MAIN(TestFolderWatcher)
#include "tst_folderwatcher.moc"
