// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/fulldisk.h"

#include <texteditor/engine/filewriter_p.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

#include <sys/stat.h>
#include <unistd.h>

using TextEditor::FileWriter;

class TestFileWriter final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void newFileIsWritten();
    void oldFileIsReplaced();
    void fullDiskLeavesTheOldFileWhole();
    void linkStaysALink();
    void linkToNothingYetMakesItsTarget();
    void permissionsStay();
    void ownerStays();
    void writeProtectedFileIsNotReplaced();
    void missingFolderIsNamedAsTheReason();
    void pipeIsRefused();
    void nothingIsLeftBeside();

private:
    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }
    static QByteArray contents(const QString &path);
    static void put(const QString &path, const QByteArray &bytes);
    static struct stat status(const QString &path);

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFileWriter::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

QByteArray TestFileWriter::contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

void TestFileWriter::put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

struct stat TestFileWriter::status(const QString &path)
{
    struct stat result
    {
    };
    ::stat(QFile::encodeName(path).constData(), &result);
    return result;
}

void TestFileWriter::newFileIsWritten()
{
    QVERIFY(FileWriter::write(path("new.v"), "text", nullptr));

    QCOMPARE(contents(path("new.v")), QByteArray("text"));
}

void TestFileWriter::oldFileIsReplaced()
{
    put(path("old.v"), "a longer text than the new one");

    QVERIFY(FileWriter::write(path("old.v"), "text", nullptr));

    QCOMPARE(contents(path("old.v")), QByteArray("text"));
}

void TestFileWriter::fullDiskLeavesTheOldFileWhole()
{
    put(path("old.v"), "old");
    std::optional<FullDisk> full(100000);
    QString reason;

    const bool written = FileWriter::write(path("old.v"), QByteArray(1000000, 'x'), &reason);

    full.reset();
    QVERIFY(!written);
    QCOMPARE(reason, QStringLiteral("File too large"));
    QCOMPARE(contents(path("old.v")), QByteArray("old"));
}

void TestFileWriter::linkStaysALink()
{
    put(path("target.v"), "old");
    QVERIFY(QFile::link(QStringLiteral("target.v"), path("link.v")));

    QVERIFY(FileWriter::write(path("link.v"), "new", nullptr));

    QVERIFY(QFileInfo(path("link.v")).isSymLink());
    QCOMPARE(contents(path("target.v")), QByteArray("new"));
}

void TestFileWriter::linkToNothingYetMakesItsTarget()
{
    QVERIFY(QFile::link(QStringLiteral("target.v"), path("link.v")));

    QVERIFY(FileWriter::write(path("link.v"), "new", nullptr));

    QVERIFY(QFileInfo(path("link.v")).isSymLink());
    QCOMPARE(contents(path("target.v")), QByteArray("new"));
}

void TestFileWriter::permissionsStay()
{
    put(path("script"), "old");
    QCOMPARE(::chmod(QFile::encodeName(path("script")).constData(), 0751), 0);

    QVERIFY(FileWriter::write(path("script"), "new", nullptr));

    QCOMPARE(status(path("script")).st_mode & 07777, 0751u);
}

void TestFileWriter::ownerStays()
{
    put(path("file.v"), "old");
    // Only the superuser can give a file away; others keep what is theirs.
    const uid_t owner = ::geteuid() == 0 ? 65534 : ::geteuid();
    QCOMPARE(::chown(QFile::encodeName(path("file.v")).constData(), owner, ::getegid()), 0);

    QVERIFY(FileWriter::write(path("file.v"), "new", nullptr));

    QCOMPARE(status(path("file.v")).st_uid, owner);
}

void TestFileWriter::writeProtectedFileIsNotReplaced()
{
    put(path("file.v"), "old");
    QCOMPARE(::chmod(QFile::encodeName(path("file.v")).constData(), 0444), 0);
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 0777), 0);
    const bool superuser = ::geteuid() == 0;
    if (superuser)
        QCOMPARE(::seteuid(65534), 0);
    QString reason;

    const bool written = FileWriter::write(path("file.v"), "new", &reason);

    if (superuser)
        QCOMPARE(::seteuid(0), 0);
    QVERIFY(!written);
    QCOMPARE(reason, QStringLiteral("Permission denied"));
    QCOMPARE(contents(path("file.v")), QByteArray("old"));
}

void TestFileWriter::missingFolderIsNamedAsTheReason()
{
    QString reason;

    QVERIFY(!FileWriter::write(path("none/file.v"), "new", &reason));

    QCOMPARE(reason, QStringLiteral("No such file or directory"));
}

void TestFileWriter::pipeIsRefused()
{
    QCOMPARE(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QString reason;

    QVERIFY(!FileWriter::write(path("pipe"), "new", &reason));

    QCOMPARE(reason, QStringLiteral("It is not a regular file."));
}

void TestFileWriter::nothingIsLeftBeside()
{
    put(path("old.v"), "old");

    QVERIFY(FileWriter::write(path("old.v"), "new", nullptr));

    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden),
             QStringList{QStringLiteral("old.v")});
}

QTEST_GUILESS_MAIN(TestFileWriter)
#include "tst_filewriter.moc"
