// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/modaldialog.h"
#include "support/testeditor.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/core/idecore.h>
#include <idecore/editors/editormanager.h>
#include <idecore/editors/editormanager_p.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using Core::EditorManager;
using Core::ViewManager;
using Core::private_impl::EditorManagerPrivate;

namespace {

const QString KEY = QStringLiteral("Core/RecentFiles");

QMenu *recentMenu()
{
    return EditorManagerPrivate::get()->recentMenu;
}

/// The entries as the menu opens.
QStringList listed()
{
    Q_EMIT recentMenu()->aboutToShow();
    return menuEntries(recentMenu());
}

QStringList numbered(int count)
{
    QStringList files;
    for (int i = 1; i <= count; ++i)
        files.append(QStringLiteral("/file%1").arg(i));
    return files;
}

void writeSettings(const QByteArray &content)
{
    CoreFixture::storeSetting(KEY, 1); // makes the folder
    QFile file(CoreFixture::settingsFile());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(content) < 0)
        QTest::qFail("the settings could not be written", __FILE__, __LINE__);
    // A file of the same size and time would be taken for the one already read.
    static int age = 0;
    file.flush();
    file.setFileTime(QDateTime::currentDateTime().addSecs(++age), QFile::FileModificationTime);
}

} // namespace

class TestRecentFiles final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void menuStandsBeforeExit();
    void menuBelongsToTheMainWindow();
    void menuIsEmptyWithoutFiles();
    void menuListsTheFilesThenClear();
    void menuIsMadeAnewAtEveryOpening();
    void entriesBelongToTheMenu();
    void newestIsFirst();
    void fileAddedAgainMovesToTheFront();
    void sixteenthFileDropsTheOldest();
    void letterCaseMakesTwoEntries();
    void separatorsAreNative();
    void addFileIsTheSame();
    void everyChangeIsStored();
    void nothingIsStoredAtShutdown();
    void clearEmptiesMenuAndStore();
    void choosingAnEntryOpensTheFile();
    void choosingAMissingFileKeepsIt();
    void slotWithoutAnActionDoesNothing();
    void pathsAreShownAsTheyAre_data();
    void pathsAreShownAsTheyAre();

    void listIsLoaded();
    void missingKeyIsAnEmptyList();
    void longAndRepeatedListIsUsedAsItIs();
    void longListIsTrimmedByTheNextFile();
    void strangeValues_data();
    void strangeValues();
    void corruptStoreIsOvercome();
    void storeThatCannotBeUsedLeavesTheListInMemory();

private:
    void restart();

    std::unique_ptr<CoreFixture> m_core;
};

void TestRecentFiles::init()
{
    m_core = std::make_unique<CoreFixture>();
}

void TestRecentFiles::cleanup()
{
    m_core.reset();
}

void TestRecentFiles::restart()
{
    m_core.reset();
    m_core = std::make_unique<CoreFixture>(CoreFixture::Settings::Keep);
}

void TestRecentFiles::menuStandsBeforeExit()
{
    const QList<QAction *> actions =
        Core::ActionManager::menu(QStringLiteral("Core.Menu.File"))->actions();

    const int place = actions.indexOf(recentMenu()->menuAction());

    QVERIFY(place >= 0);
    QCOMPARE(recentMenu()->title(), QStringLiteral("Recent Files"));
    // The projects' menu has come in front of the separator later.
    QCOMPARE(actions.at(place + 1)->text(), QStringLiteral("Recent Projects"));
    QCOMPARE(actions.at(place + 2),
             Core::ActionManager::separator(QStringLiteral("Core.Sep.File.Exit.F")));
}

void TestRecentFiles::menuBelongsToTheMainWindow()
{
    QCOMPARE(recentMenu()->parent(), ViewManager::mainWindow());
}

void TestRecentFiles::menuIsEmptyWithoutFiles()
{
    QCOMPARE(listed(), QStringList());
}

void TestRecentFiles::menuListsTheFilesThenClear()
{
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/a"));
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/b"));

    QCOMPARE(listed(), texts({"/b", "/a", "--", "Clear"}));
}

void TestRecentFiles::menuIsMadeAnewAtEveryOpening()
{
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/a"));
    listed();
    const QPointer<QAction> entry = recentMenu()->actions().constFirst();
    // Clearing alone would spare what is shown elsewhere, too.
    QWidget elsewhere;
    elsewhere.addAction(entry);

    QCOMPARE(listed(), texts({"/a", "--", "Clear"}));

    QVERIFY(!entry);
}

void TestRecentFiles::entriesBelongToTheMenu()
{
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/a"));

    listed();

    QCOMPARE(recentMenu()->actions().constFirst()->parent(), recentMenu());
}

void TestRecentFiles::newestIsFirst()
{
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/a"));
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/b"));

    QCOMPARE(EditorManager::recentFiles(), texts({"/b", "/a"}));
}

void TestRecentFiles::fileAddedAgainMovesToTheFront()
{
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/a"));
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/b"));

    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/a"));

    QCOMPARE(EditorManager::recentFiles(), texts({"/a", "/b"}));
}

void TestRecentFiles::sixteenthFileDropsTheOldest()
{
    const QStringList files = numbered(16);

    for (const QString &file : files)
        EditorManagerPrivate::get()->addRecentFile(file);

    const QStringList recent = EditorManager::recentFiles();
    QCOMPARE(recent.size(), 15);
    QCOMPARE(recent.constFirst(), QStringLiteral("/file16"));
    QCOMPARE(recent.constLast(), QStringLiteral("/file2"));
    QCOMPARE(listed().size(), 17);
}

void TestRecentFiles::letterCaseMakesTwoEntries()
{
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/a"));
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/A"));

    QCOMPARE(EditorManager::recentFiles(), texts({"/A", "/a"}));
}

void TestRecentFiles::separatorsAreNative()
{
    const QString file = QStringLiteral("/a/b/c");

    EditorManagerPrivate::get()->addRecentFile(file);
    EditorManagerPrivate::get()->addRecentFile(QDir::toNativeSeparators(file));

    QCOMPARE(EditorManager::recentFiles(), QStringList{QDir::toNativeSeparators(file)});
}

void TestRecentFiles::addFileIsTheSame()
{
    EditorManagerPrivate::get()->addFile(QStringLiteral("/a"));

    QCOMPARE(EditorManager::recentFiles(), texts({"/a"}));
    QCOMPARE(listed(), texts({"/a", "--", "Clear"}));
}

void TestRecentFiles::everyChangeIsStored()
{
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/a"));
    QCOMPARE(CoreFixture::storedSetting(KEY).toStringList(), texts({"/a"}));

    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/b"));
    QCOMPARE(CoreFixture::storedSetting(KEY).toStringList(), texts({"/b", "/a"}));
}

void TestRecentFiles::nothingIsStoredAtShutdown()
{
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/a"));
    CoreFixture::storeSetting(KEY, texts({"/other"}));

    m_core->shutdown();

    QCOMPARE(CoreFixture::storedSetting(KEY).toStringList(), texts({"/other"}));
}

void TestRecentFiles::clearEmptiesMenuAndStore()
{
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/a"));
    listed();

    recentMenu()->actions().constLast()->trigger();

    QCOMPARE(EditorManager::recentFiles(), QStringList());
    QVERIFY(CoreFixture::storedSetting(KEY).toStringList().isEmpty());
    QCOMPARE(listed(), QStringList());
    restart();
    QCOMPARE(EditorManager::recentFiles(), QStringList());
}

void TestRecentFiles::choosingAnEntryOpensTheFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a & b, c.txt"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    TestEditorFactory factory(texts({"text/plain"}));
    const InPool pooled(&factory);
    EditorManagerPrivate::get()->addRecentFile(path);
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/other"));
    listed();

    recentMenu()->actions().at(1)->trigger();

    QCOMPARE(factory.made, 1);
    QCOMPARE(factory.last->opened, QStringList{path});
    QCOMPARE(factory.last->readOnlySet, QList<bool>{false});
    QCOMPARE(EditorManager::recentFiles(), (QStringList{path, QStringLiteral("/other")}));
    m_core.reset(); // before the factory of its editor
}

void TestRecentFiles::choosingAMissingFileKeepsIt()
{
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/missing/file"));
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/other"));
    listed();
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    recentMenu()->actions().at(1)->trigger();

    QCOMPARE(box.text(), QStringLiteral("Can not open /missing/file, file does not exist."));
    QCOMPARE(EditorManager::recentFiles(), texts({"/other", "/missing/file"}));
}

void TestRecentFiles::slotWithoutAnActionDoesNothing()
{
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/missing/file"));

    EditorManager::instance()->onActRecent(); // a message box would wait for ever

    QCOMPARE(EditorManager::recentFiles(), texts({"/missing/file"}));
}

void TestRecentFiles::pathsAreShownAsTheyAre_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("ampersand") << QStringLiteral("/a & b/&c");
    QTest::newRow("comma and quotes") << QStringLiteral("/a, \"b\"; c");
    QTest::newRow("line break") << QStringLiteral("/two\nlines");
    QTest::newRow("not ASCII") << QStringLiteral("/größe/设计");
    QTest::newRow("at sign") << QStringLiteral("@Invalid()");
    QTest::newRow("percent") << QStringLiteral("/%1%20%n");
    QTest::newRow("backslash") << QStringLiteral("/a\\nb");
    QTest::newRow("very long") << QString(5000, QLatin1Char('x'));
}

void TestRecentFiles::pathsAreShownAsTheyAre()
{
    QFETCH(QString, path);

    EditorManagerPrivate::get()->addRecentFile(path);

    QCOMPARE(listed().constFirst(), path);
    restart();
    QCOMPARE(EditorManager::recentFiles(), QStringList{path});
}

void TestRecentFiles::listIsLoaded()
{
    CoreFixture::storeSetting(KEY, texts({"/b", "/a"}));

    restart();

    QCOMPARE(EditorManager::recentFiles(), texts({"/b", "/a"}));
    QCOMPARE(listed(), texts({"/b", "/a", "--", "Clear"}));
}

void TestRecentFiles::missingKeyIsAnEmptyList()
{
    QVERIFY(!CoreFixture::storedSetting(KEY).isValid());

    QCOMPARE(EditorManager::recentFiles(), QStringList());
}

void TestRecentFiles::longAndRepeatedListIsUsedAsItIs()
{
    const QStringList stored = numbered(20) + numbered(2);
    CoreFixture::storeSetting(KEY, stored);

    restart();

    QCOMPARE(EditorManager::recentFiles(), stored);
    QCOMPARE(listed().size(), 24);
}

void TestRecentFiles::longListIsTrimmedByTheNextFile()
{
    CoreFixture::storeSetting(KEY, QStringList(numbered(20) + numbered(2)));
    restart();

    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/file1"));

    QCOMPARE(EditorManager::recentFiles(), numbered(15));
}

void TestRecentFiles::strangeValues_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QStringList>("loaded");

    QTest::newRow("empty") << QByteArray("[Core]\nRecentFiles=\n") << texts({""});
    QTest::newRow("number") << QByteArray("[Core]\nRecentFiles=7\n") << texts({"7"});
    QTest::newRow("one path") << QByteArray("[Core]\nRecentFiles=/a\n") << texts({"/a"});
    QTest::newRow("invalid") << QByteArray("[Core]\nRecentFiles=@Invalid()\n") << QStringList();
    QTest::newRow("size") << QByteArray("[Core]\nRecentFiles=@Size(1 2)\n") << QStringList();
    QTest::newRow("broken variant")
        << QByteArray("[Core]\nRecentFiles=@Variant(\\0\\0\\0\\x99)\n") << QStringList();
    QTest::newRow("group of that name") << QByteArray("[Core/RecentFiles]\nx=1\n") << QStringList();
}

void TestRecentFiles::strangeValues()
{
    QFETCH(QByteArray, stored);
    QFETCH(QStringList, loaded);
    writeSettings(stored);

    restart();

    QCOMPARE(EditorManager::recentFiles(), loaded);
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/new"));
    QCOMPARE(EditorManager::recentFiles().constFirst(), QStringLiteral("/new"));
    QCOMPARE(CoreFixture::storedSetting(KEY).toStringList().constFirst(), QStringLiteral("/new"));
}

void TestRecentFiles::corruptStoreIsOvercome()
{
    const char garbage[] = "\x00\xff\xfe[[[Core\nRecentFiles\n=\n]\x01 garbage";
    writeSettings(QByteArray(garbage, sizeof garbage));

    restart();

    QCOMPARE(EditorManager::recentFiles(), QStringList());
    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/new"));
    restart();
    QCOMPARE(EditorManager::recentFiles(), texts({"/new"}));
}

void TestRecentFiles::storeThatCannotBeUsedLeavesTheListInMemory()
{
    m_core.reset();
    const QString file = CoreFixture::settingsFile();
    QFile::remove(file);
    QVERIFY(QDir().mkpath(file));
    m_core = std::make_unique<CoreFixture>(CoreFixture::Settings::Keep);

    EditorManagerPrivate::get()->addRecentFile(QStringLiteral("/a"));
    Core::IdeCore::userSettings()->sync();

    QCOMPARE(listed(), texts({"/a", "--", "Clear"}));
    m_core.reset();
    QVERIFY(QDir().rmdir(file));
}

QTEST_MAIN(TestRecentFiles)
#include "tst_recentfiles.moc"
