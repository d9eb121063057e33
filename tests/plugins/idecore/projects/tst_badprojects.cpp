// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "projecttest.h"

#include "support/corefixture.h"
#include "support/modaldialog.h"
#include "support/testproject.h"

#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QAbstractButton>
#include <QFile>
#include <QMenu>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <sys/stat.h>
#include <unistd.h>

using Core::ProjectManager;

namespace {

QString canNotOpen(const QString &path)
{
    return QStringLiteral("Can not open project \"%1\"").arg(path);
}

/// The message that opening @p path shows.
QString messageOf(const QString &path)
{
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));
    ProjectManager::openProject(path);
    return box.text();
}

} // namespace

/// What is refused, and what only looks as if it should be.
class TestBadProjects final : public ProjectTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }

    void cleanup() { tearDown(); }

    void theMessageIsCriticalWithOneButtonOverTheMainWindow()
    {
        int buttons = 0;
        bool plain = false;
        ModalDialog box([&](QWidget *widget) {
            auto *message = qobject_cast<QMessageBox *>(widget);
            QVERIFY(message);
            buttons = int(message->standardButtons());
            plain = message->textFormat() == Qt::PlainText;
            message->accept();
        });
        ProjectManager::openProject(QStringLiteral("/no/such.kprj"));
        QCOMPARE(box.title(), QStringLiteral("Open Project"));
        QCOMPARE(box.icon(), int(QMessageBox::Critical));
        QCOMPARE(box.parentOfDialog(), Core::ViewManager::mainWindow());
        QCOMPARE(buttons, int(QMessageBox::Ok));
        QVERIFY(plain); // the name of a file may look like markup
    }

    void aMissingFileIsNamedAsGivenWithTheReason_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("absolute") << QStringLiteral("/no/such/p.kprj");
        QTest::newRow("with dots") << QStringLiteral("/no/../no/./p.kprj");
        QTest::newRow("relative") << QStringLiteral("no/such/p.kprj");
        QTest::newRow("with blank and dash") << QStringLiteral("/no such/-x/p.kprj");
        QTest::newRow("with percent") << QStringLiteral("/no/%1 %2.kprj");
    }

    void aMissingFileIsNamedAsGivenWithTheReason()
    {
        QFETCH(QString, path);
        QCOMPARE(messageOf(path), canNotOpen(path) + QStringLiteral("\nNo such file or directory"));
    }

    void aLinkToNothingIsAMissingFile()
    {
        const QString link = m_dir->filePath(QStringLiteral("link.kprj"));
        QVERIFY(QFile::link(QStringLiteral("/no/such/p.kprj"), link));
        QCOMPARE(messageOf(link), canNotOpen(link) + QStringLiteral("\nNo such file or directory"));
    }

    void anEmptyPathIsToldWithoutAProjectLine()
    {
        const QString message = messageOf(QString());
        QVERIFY(!message.isEmpty());
        QVERIFY2(!message.contains(QLatin1String("Can not open project")), qPrintable(message));
        QVERIFY2(!message.contains(QLatin1Char('\n')), qPrintable(message));
    }

    void anUnreadableFileIsToldWithTheReason()
    {
        const QString path = writeProject(m_dir->filePath(QStringLiteral("p.kprj")));
        QCOMPARE(::chmod(QFile::encodeName(path).constData(), 0), 0);
        QCOMPARE(::chmod(QFile::encodeName(m_dir->path()).constData(), 0755), 0);
        // Nothing is unreadable to the superuser.
        const bool superuser = ::geteuid() == 0;
        if (superuser)
            QCOMPARE(::setresuid(65534, 65534, 0), 0);
        const QString message = messageOf(path);
        if (superuser)
            QCOMPARE(::setresuid(0, 0, 0), 0);
        QVERIFY2(message == canNotOpen(path) + QStringLiteral("\nPermission denied"),
                 qPrintable(message));
    }

    void aFolderIsToldWithTheReason()
    {
        const QString path = QFileInfo(m_dir->path()).canonicalFilePath();
        const QString message = messageOf(path);
        QVERIFY2(message.startsWith(canNotOpen(path) + QLatin1Char('\n')), qPrintable(message));
        QVERIFY2(message.contains(QLatin1String("directory")), qPrintable(message));
    }

    void aPipeIsNotWaitedFor()
    {
        const QString path = m_dir->filePath(QStringLiteral("pipe.kprj"));
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        QCOMPARE(messageOf(path), canNotOpen(QFileInfo(path).canonicalFilePath())
                                      + QStringLiteral("\nInvalid project file."));
    }

    void aDeviceWithoutEndIsRefused()
    {
        QCOMPARE(messageOf(QStringLiteral("/dev/zero")),
                 canNotOpen(QStringLiteral("/dev/zero"))
                     + QStringLiteral("\nInvalid project file."));
    }

    void theCanonicalPathOfAnExistingFileIsNamed()
    {
        const QString path = writeProject(m_dir->filePath(QStringLiteral("p.kprj")), "no XML");
        QCOMPARE(messageOf(m_dir->filePath(QStringLiteral("./p.kprj"))),
                 canNotOpen(path) + QStringLiteral("\nInvalid project file."));
    }

    void aBlankBeforeADashIsRefused_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("in a folder") << QStringLiteral("a -b/p.kprj");
        QTest::newRow("in the name") << QStringLiteral("a/p -x.kprj");
        QTest::newRow("next component") << QStringLiteral("a b/-x/p.kprj");
        QTest::newRow("later component") << QStringLiteral("a b/c/-x/p.kprj");
        QTest::newRow("file after a blank") << QStringLiteral("a b/c/-p.kprj");
        QTest::newRow("blank at the end") << QStringLiteral("a /-x/p.kprj");
        QTest::newRow("several blanks") << QStringLiteral("a b c/d  -e/p.kprj");
        QTest::newRow("line break between") << QStringLiteral("a b\nc/-x/p.kprj");
    }

    void aBlankBeforeADashIsRefused()
    {
        QFETCH(QString, path);
        const QString file = writeProject(m_dir->filePath(path));
        QCOMPARE(messageOf(file),
                 QStringLiteral("Directory \"%1\" has invalid character, space and "
                                "\"-\" cannot be used together.")
                     .arg(file));
        QVERIFY(m_factory->made.isEmpty());
        QVERIFY(ProjectManager::recentProjects().isEmpty());
    }

    void theRefusedPathIsTheCanonicalOne()
    {
        const QString file = writeProject(m_dir->filePath(QStringLiteral("a -b/p.kprj")));
        const QString link = m_dir->filePath(QStringLiteral("link.kprj"));
        QVERIFY(QFile::link(file, link));
        const QString message = messageOf(link);
        QVERIFY2(message.contains(file), qPrintable(message));
    }

    void theBlankAndTheDashAreRefusedBeforeTheFileIsRead()
    {
        const QString message =
            messageOf(writeProject(m_dir->filePath(QStringLiteral("a -b.kprj")), "no XML"));
        QVERIFY2(message.startsWith(QLatin1String("Directory \"")), qPrintable(message));
    }

    void strangeNamesOpen_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("dash, then blank") << QStringLiteral("a-b c/p.kprj");
        QTest::newRow("dash inside a word") << QStringLiteral("my designs/blinky-board/p.kprj");
        QTest::newRow("dash before the blank") << QStringLiteral("-x/a b/p.kprj");
        QTest::newRow("tab and dash") << QStringLiteral("a\t-b/p.kprj");
        QTest::newRow("quotes") << QStringLiteral("\"a\" 'b'/p\"q.kprj");
        QTest::newRow("line break") << QStringLiteral("two\nlines/p\nq.kprj");
        QTest::newRow("not ASCII") << QStringLiteral("größe/设计 и.kprj");
        QTest::newRow("ampersand") << QStringLiteral("a & b/&p.kprj");
        QTest::newRow("percent") << QStringLiteral("%1%2/%n.kprj");
        QTest::newRow("markup") << QStringLiteral("<b>a<br>/p.kprj");
        QTest::newRow("backslash") << QStringLiteral("a\\nb/p\\.kprj");
        QTest::newRow("255 bytes") << QString(250, QLatin1Char('n')) + QStringLiteral(".kprj");
        QTest::newRow("no extension") << QStringLiteral("project");
    }

    void strangeNamesOpen()
    {
        QFETCH(QString, path);
        const QString file = writeProject(m_dir->filePath(path));
        ProjectManager::openProject(file);
        QVERIFY(ProjectManager::currentProject());
        QCOMPARE(ProjectManager::currentProject()->fileName(), file);
        ProjectManager::closeCurrentProject();
        Q_EMIT recentProjectsMenu()->aboutToShow();
        recentProjectsMenu()->actions().constFirst()->trigger();
        QVERIFY(ProjectManager::currentProject());
        QCOMPARE(ProjectManager::currentProject()->fileName(), file);
        ProjectManager::closeCurrentProject();
        m_core.reset();
        m_core = std::make_unique<CoreFixture>(CoreFixture::Settings::Keep);
        QCOMPARE(ProjectManager::recentProjects(), QStringList{file});
    }

    void anUnknownTemplateIsToldWithTheProject_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("other") << QByteArray("ASIC");
        QTest::newRow("case") << QByteArray("fpga");
        QTest::newRow("case of the legacy name") << QByteArray("fpga_impl");
        QTest::newRow("blank around") << QByteArray(" FPGA ");
        QTest::newRow("longer") << QByteArray("FPGA_IMPL2");
    }

    void anUnknownTemplateIsToldWithTheProject()
    {
        QFETCH(QByteArray, name);
        const QString file = writeProject(m_dir->filePath(QStringLiteral("p.kprj")),
                                          "<p><Template>" + name + "</Template></p>");
        QCOMPARE(messageOf(file), canNotOpen(file) + QStringLiteral("\nUnsupported project type."));
    }

    void withoutFactoriesNoTypeIsSupported()
    {
        m_inPool.reset();
        const QString file = writeProject(m_dir->filePath(QStringLiteral("p.kprj")));
        QCOMPARE(messageOf(file), canNotOpen(file) + QStringLiteral("\nUnsupported project type."));
    }

    void aFactoryThatMakesNothingIsToldWithoutAReason()
    {
        m_factory->makeNothing = true;
        const QString file = writeProject(m_dir->filePath(QStringLiteral("p.kprj")));
        QCOMPARE(messageOf(file), canNotOpen(file));
        QVERIFY(!ProjectManager::currentProject());
        QVERIFY(ProjectManager::recentProjects().isEmpty());
    }

    void whatCannotBeOpenedLeavesTheOldProjectUnasked_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("missing") << QStringLiteral("none/p.kprj") << QByteArray();
        QTest::newRow("blank and dash") << QStringLiteral("a -b.kprj") << QByteArray("x");
        QTest::newRow("invalid") << QStringLiteral("p.kprj") << QByteArray("x");
        QTest::newRow("unsupported")
            << QStringLiteral("p.kprj") << QByteArray("<p><Template>X</Template></p>");
        QTest::newRow("null project")
            << QStringLiteral("p.kprj") << QByteArray("<p><Template>FPGA</Template></p>");
    }

    void whatCannotBeOpenedLeavesTheOldProjectUnasked()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        ProjectManager::openProject(writeProject(m_dir->filePath(QStringLiteral("old.kprj"))));
        const TestProject *old = m_factory->last();
        QVERIFY(old);
        m_factory->makeNothing = true;
        const QStringList recent = ProjectManager::recentProjects();
        const QString path = m_dir->filePath(name);
        messageOf(content.isEmpty() ? path : writeProject(path, content));
        QCOMPARE(old->closes, 0);
        QCOMPARE(ProjectManager::currentProject(), old);
        QVERIFY(closeProjectAction()->isEnabled());
        QCOMPARE(ProjectManager::recentProjects(), recent);
    }

    void aProjectWhoseFolderIsDeletedClosesAndCannotBeOpenedAgain()
    {
        const QString file = writeProject(m_dir->filePath(QStringLiteral("sub/p.kprj")));
        ProjectManager::openProject(file);
        QVERIFY(QDir(m_dir->filePath(QStringLiteral("sub"))).removeRecursively());
        QCOMPARE(messageOf(file), canNotOpen(file) + QStringLiteral("\nNo such file or directory"));
        QVERIFY(ProjectManager::currentProject());
        QVERIFY(ProjectManager::closeCurrentProject());
    }
};

QTEST_MAIN(TestBadProjects)
#include "tst_badprojects.moc"
