// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/textfile_p.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using TextEditor::DiskState;
using TextEditor::TextFile;

class TestTextFile final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void encodingIsFound_data();
    void encodingIsFound();
    void zeroBytesAreBinary();
    void whatIsNoFileIsRefused_data();
    void whatIsNoFileIsRefused();
    void missingFileIsRefusedWithTheReason();
    void unreadableFileIsRefusedWithTheReason();
    void fileBeyondTheLimitIsRefusedUnread();
    void rewritingTheSameContentsIsNoChange();
    void otherContentsOfTheSameSizeAreAChange();
    void removalIsSeen();

private:
    QString write(const QByteArray &bytes, const QString &name = QStringLiteral("file.v"));

    QTemporaryDir m_folder;
};

QString TestTextFile::write(const QByteArray &bytes, const QString &name)
{
    const QString path = m_folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void TestTextFile::encodingIsFound_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("mark");

    const QString umlaut = QString::fromUtf8("// gr\xc3\xbc\xc3\x9f\n");
    QTest::newRow("empty") << QByteArray() << QByteArray("UTF-8") << QString() << QByteArray();
    QTest::newRow("ASCII") << QByteArray("module m;\n") << QByteArray("UTF-8")
                           << QStringLiteral("module m;\n") << QByteArray();
    QTest::newRow("UTF-8") << QByteArray("// gr\xc3\xbc\xc3\x9f\n") << QByteArray("UTF-8") << umlaut
                           << QByteArray();
    QTest::newRow("UTF-8 marked") << QByteArray("\xef\xbb\xbf// a\n") << QByteArray("UTF-8")
                                  << QStringLiteral("// a\n") << QByteArray("\xef\xbb\xbf");
    QTest::newRow("UTF-16 little")
        << QByteArray("\xff\xfe"
                      "a\0\n\0",
                      6)
        << QByteArray("UTF-16LE") << QStringLiteral("a\n") << QByteArray("\xff\xfe");
    QTest::newRow("UTF-16 big") << QByteArray("\xfe\xff\0a\0\n", 6) << QByteArray("UTF-16BE")
                                << QStringLiteral("a\n") << QByteArray("\xfe\xff");
    QTest::newRow("UTF-16 unmarked") << QByteArray("a\0b\0c\0\n\0", 8) << QByteArray("UTF-16LE")
                                     << QStringLiteral("abc\n") << QByteArray();
    QTest::newRow("UTF-32") << QByteArray("\xff\xfe\0\0a\0\0\0", 8) << QByteArray("UTF-32LE")
                            << QStringLiteral("a") << QByteArray("\xff\xfe\0\0", 4);
    QTest::newRow("Latin-1") << QByteArray("// gr\xfc\xdf\n") << QByteArray("ISO-8859-1") << umlaut
                             << QByteArray();
    QTest::newRow("Windows-1252") << QByteArray("// \x93q\x94\n") << QByteArray("windows-1252")
                                  << QString::fromUtf8("// \xe2\x80\x9cq\xe2\x80\x9d\n")
                                  << QByteArray();
    QTest::newRow("cut UTF-8") << QByteArray("a\xc3") << QByteArray("ISO-8859-1")
                               << QString::fromLatin1("a\xc3") << QByteArray();
    QTest::newRow("odd UTF-16") << QByteArray("\xff\xfe"
                                              "abc")
                                << QByteArray("ISO-8859-1")
                                << QString::fromLatin1("\xff\xfe"
                                                       "abc")
                                << QByteArray();
}

void TestTextFile::encodingIsFound()
{
    QFETCH(QByteArray, bytes);

    const std::optional<TextFile> file = TextFile::read(write(bytes), nullptr);

    QVERIFY(file.has_value());
    QTEST(file->codec, "codec");
    QTEST(file->text, "text");
    QTEST(file->byteOrderMark, "mark");
    QVERIFY(!file->binary);
}

void TestTextFile::zeroBytesAreBinary()
{
    const std::optional<TextFile> file = TextFile::read(write(QByteArray("\x7f"
                                                                         "ELF\0\1",
                                                                         6)),
                                                        nullptr);

    QVERIFY(file.has_value());
    QVERIFY(file->binary);
    QCOMPARE(file->text.size(), 6);
}

void TestTextFile::whatIsNoFileIsRefused_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");

    const QString fifo = m_folder.filePath(QStringLiteral("fifo"));
    QCOMPARE(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    QTest::newRow("folder") << m_folder.path() << QStringLiteral("It is a folder.");
    // Nobody writes it: an editor that opened it would wait for ever.
    QTest::newRow("pipe") << fifo << QStringLiteral("It is a named pipe, not a file.");
    QTest::newRow("device") << QStringLiteral("/dev/zero")
                            << QStringLiteral("It is a device, not a file.");
}

void TestTextFile::whatIsNoFileIsRefused()
{
    QFETCH(QString, path);
    QString reason;

    QVERIFY(!TextFile::read(path, &reason).has_value());

    QTEST(reason, "reason");
}

void TestTextFile::missingFileIsRefusedWithTheReason()
{
    QString reason;

    QVERIFY(!TextFile::read(m_folder.filePath(QStringLiteral("none")), &reason).has_value());

    QCOMPARE(reason, QStringLiteral("No such file or directory"));
}

void TestTextFile::unreadableFileIsRefusedWithTheReason()
{
    const QString path = write("secret");
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), 0), 0);
    QCOMPARE(::chmod(QFile::encodeName(m_folder.path()).constData(), 0755), 0);
    // Nothing is unreadable to the superuser.
    const bool superuser = ::geteuid() == 0;
    if (superuser)
        QCOMPARE(::seteuid(65534), 0);
    QString reason;

    const bool read = TextFile::read(path, &reason).has_value();

    if (superuser)
        QCOMPARE(::seteuid(0), 0);
    QFile::remove(path);
    QVERIFY(!read);
    QCOMPARE(reason, QStringLiteral("Permission denied"));
}

void TestTextFile::fileBeyondTheLimitIsRefusedUnread()
{
    const QString path = write({}, QStringLiteral("huge.v"));
    // No disk is taken by the hole.
    QVERIFY(QFile::resize(path, qint64(2) * 1024 * 1024 * 1024));
    QString reason;

    QVERIFY(!TextFile::read(path, &reason).has_value());

    QVERIFY2(reason.contains(QLatin1String("too large")), qPrintable(reason));
    QVERIFY2(reason.contains(QLatin1String("128")), qPrintable(reason));
}

void TestTextFile::rewritingTheSameContentsIsNoChange()
{
    const QString path = write("same");
    const DiskState state = TextFile::read(path, nullptr)->disk;

    QFile::remove(path);
    write("same");

    QCOMPARE(state.compare(path), DiskState::Change::None);
}

void TestTextFile::otherContentsOfTheSameSizeAreAChange()
{
    const QString path = write("same");
    const DiskState state = TextFile::read(path, nullptr)->disk;

    QFile::remove(path);
    write("else");

    QCOMPARE(state.compare(path), DiskState::Change::Modified);
}

void TestTextFile::removalIsSeen()
{
    const QString path = write("same");
    const DiskState state = TextFile::read(path, nullptr)->disk;

    QFile::remove(path);

    QCOMPARE(state.compare(path), DiskState::Change::Deleted);
}

QTEST_GUILESS_MAIN(TestTextFile)
#include "tst_textfile.moc"
