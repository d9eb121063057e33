// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "editorfixture.h"
#include "support/modaldialog.h"
#include "support/ordinaryuser.h"

#include <idecore/editors/editormanager.h>
#include <idecore/editors/editormanager_p.h>

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QTest>

#include <cstdio>
#include <memory>

#include <sys/stat.h>
#include <unistd.h>

using Core::EditorManager;
using Core::IEditor;
using Core::private_impl::EditorManagerPrivate;

/// Files and names that are not what one opens every day.
class TestBadFiles final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void whatIsNotThereIsToldMissing_data();
    void whatIsNotThereIsToldMissing();
    void fileInAForbiddenFolderIsToldMissing();
    void forbiddenFileIsToldWithTheReason();
    void folderIsToldWithTheReason();
    void specialFilesAreHandedToTheEditorUnread_data();
    void specialFilesAreHandedToTheEditorUnread();
    void hugeFileIsHandedToTheEditor();
    void oddNames_data();
    void oddNames();
    void namesAreNoMarkupInMessages_data();
    void namesAreNoMarkupInMessages();

private:
    /// Lets the editors made from now on try to read @p path, and give the
    /// system's reason where they cannot.
    void readWhileOpening(const QString &path);

    std::unique_ptr<EditorFixture> m_fixture;
};

void TestBadFiles::init()
{
    // Not below the folder of the test run, where no other user may look.
    m_fixture = std::make_unique<EditorFixture>(QStringLiteral(P_tmpdir "/tst_badfiles"));
    QCOMPARE(::chmod(QFile::encodeName(m_fixture->folder.path()).constData(), 0755), 0);
}

void TestBadFiles::cleanup()
{
    m_fixture.reset();
}

void TestBadFiles::readWhileOpening(const QString &path)
{
    m_fixture->factory.prepare = [path](TestEditor *editor) {
        editor->whileOpening = [path, editor] {
            QFile file(path);
            editor->failOpen = !file.open(QIODevice::ReadOnly);
            editor->errorText = file.errorString();
        };
    };
}

void TestBadFiles::whatIsNotThereIsToldMissing_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("no file") << QStringLiteral("missing.txt");
    QTest::newRow("below a file") << QStringLiteral("file/a.txt");
    QTest::newRow("file with a slash") << QStringLiteral("file/");
    QTest::newRow("link to nothing") << QStringLiteral("dangling");
    QTest::newRow("link to itself") << QStringLiteral("loop");
    QTest::newRow("too long") << QString(5000, QLatin1Char('x'));
    QTest::newRow("line break") << QStringLiteral("two\nlines");
    QTest::newRow("not ASCII") << QStringLiteral("größe/设计");
    QTest::newRow("placeholders") << QStringLiteral("%1 %2 %n");
}

void TestBadFiles::whatIsNotThereIsToldMissing()
{
    QFETCH(QString, name);
    m_fixture->makeFile(QStringLiteral("file"));
    QVERIFY(QFile::link(m_fixture->folder.filePath(QStringLiteral("nothing")),
                        m_fixture->folder.filePath(QStringLiteral("dangling"))));
    QVERIFY(QFile::link(m_fixture->folder.filePath(QStringLiteral("loop")),
                        m_fixture->folder.filePath(QStringLiteral("loop"))));
    const QString path = m_fixture->folder.filePath(name);
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QCOMPARE(EditorManager::openEditor(path, false), nullptr);

    QCOMPARE(box.text(), QString(QStringLiteral("Can not open ") + path
                                 + QStringLiteral(", file does not exist.")));
    QVERIFY(EditorManager::recentFiles().isEmpty());
}

void TestBadFiles::fileInAForbiddenFolderIsToldMissing()
{
    const QString path = m_fixture->makeFile(QStringLiteral("a.txt"));
    QCOMPARE(::chmod(QFile::encodeName(m_fixture->folder.path()).constData(), 0), 0);
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));
    const IEditor *editor = nullptr;
    {
        const OrdinaryUser user;
        editor = EditorManager::openEditor(path, false);
    }
    QCOMPARE(::chmod(QFile::encodeName(m_fixture->folder.path()).constData(), 0700), 0);

    QVERIFY(!editor);
    QCOMPARE(box.text(), QStringLiteral("Can not open %1, file does not exist.").arg(path));
}

void TestBadFiles::forbiddenFileIsToldWithTheReason()
{
    // Without a suffix, so that the content is asked for the type.
    const QString path = m_fixture->makeFile(QStringLiteral("secret"));
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), 0), 0);
    readWhileOpening(path);
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));
    const IEditor *editor = nullptr;
    {
        const OrdinaryUser user;
        editor = EditorManager::openEditor(path, false);
    }

    QVERIFY(!editor);
    QCOMPARE(box.text(), QStringLiteral("Can not open file \"%1\"\nPermission denied").arg(path));
    QVERIFY(EditorManager::recentFiles().isEmpty());
}

void TestBadFiles::folderIsToldWithTheReason()
{
    const QString path = m_fixture->folder.path();
    readWhileOpening(path);
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QCOMPARE(EditorManager::openEditor(path, false), nullptr);

    QFile folder(path);
    QVERIFY(!folder.open(QIODevice::ReadOnly));
    QCOMPARE(box.text(),
             QStringLiteral("Can not open file \"%1\"\n%2").arg(path, folder.errorString()));
}

void TestBadFiles::specialFilesAreHandedToTheEditorUnread_data()
{
    QTest::addColumn<QString>("path");

    // Whoever reads the first would wait for ever.
    QTest::newRow("FIFO") << QString();
    QTest::newRow("endless device") << QStringLiteral("/dev/zero");
    QTest::newRow("empty device") << QStringLiteral("/dev/null");
}

void TestBadFiles::specialFilesAreHandedToTheEditorUnread()
{
    QFETCH(QString, path);
    if (path.isEmpty()) {
        path = m_fixture->folder.filePath(QStringLiteral("fifo"));
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    }

    QVERIFY(EditorManager::openEditor(path, false));

    QCOMPARE(m_fixture->factory.last->opened, QStringList{path});
}

void TestBadFiles::hugeFileIsHandedToTheEditor()
{
    const QString path = m_fixture->makeFile(QStringLiteral("huge.v"));
    // No disk is taken by the hole.
    QVERIFY(QFile::resize(path, qint64(2) * 1024 * 1024 * 1024));

    QVERIFY(EditorManager::openEditor(path, false));

    QCOMPARE(m_fixture->factory.last->opened, QStringList{path});
}

void TestBadFiles::oddNames_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("line break") << QStringLiteral("two\nlines.txt");
    QTest::newRow("not ASCII") << QStringLiteral("größe 设计.txt");
    QTest::newRow("placeholders") << QStringLiteral("%1 %2 %n.txt");
    QTest::newRow("mnemonic") << QStringLiteral("a&b.txt");
    QTest::newRow("quotes") << QStringLiteral("\"a\", <b>.txt");
    QTest::newRow("blank") << QStringLiteral(" .txt");
    QTest::newRow("backslash") << QStringLiteral("a\\b.txt");
    QTest::newRow("longest") << QString(251, QLatin1Char('x')) + QStringLiteral(".txt");
}

void TestBadFiles::oddNames()
{
    QFETCH(QString, name);
    const QString path = m_fixture->makeFile(name);

    IEditor *editor = EditorManager::openEditor(path, false);

    QVERIFY(editor);
    QCOMPARE(EditorManager::openEditor(path, false), editor);
    QCOMPARE(EditorManager::recentFiles(), QStringList{path});
    QCOMPARE(EditorManagerPrivate::get()->actSaveAs->toolTip(),
             QString(QStringLiteral("Save \"") + name + QStringLiteral("\" As")));
}

void TestBadFiles::namesAreNoMarkupInMessages_data()
{
    QTest::addColumn<int>("kind");

    QTest::newRow("missing") << 0;
    QTest::newRow("open") << 1;
    QTest::newRow("save") << 2;
}

void TestBadFiles::namesAreNoMarkupInMessages()
{
    QFETCH(int, kind);
    const QString path = m_fixture->folder.filePath(QStringLiteral("<b>bold.txt"));
    Qt::TextFormat format = Qt::RichText;
    ModalDialog box([&format](QWidget *widget) {
        format = widget->findChild<QLabel *>(QStringLiteral("qt_msgbox_label"))->textFormat();
        ModalDialog::press(QMessageBox::Ok)(widget);
    });

    if (kind == 0)
        EditorManager::openEditor(path, false);
    else if (kind == 1)
        Core::private_impl::openError(path, QStringLiteral("<i>reason"));
    else
        Core::private_impl::saveError(path, QStringLiteral("<i>reason"));

    QCOMPARE(format, Qt::PlainText);
    QVERIFY(box.text().contains(path));
}

QTEST_MAIN(TestBadFiles)
#include "tst_badfiles.moc"
