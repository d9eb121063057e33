// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "texteditorfixture.h"

#include "support/fulldisk.h"

#include <texteditor/abstracttexteditor.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

#include <optional>

using TextEditor::AbstractTextEditor;
using TextEditor::Command;

namespace {

/// Types what no key of the test can.
void paste(AbstractTextEditor *editor, const QString &text)
{
    QApplication::clipboard()->setText(text);
    editor->perform(Command::Paste);
}

/// The watch on files tells changes apart by the second.
bool nextSecond()
{
    const qint64 start = QDateTime::currentSecsSinceEpoch();
    return QTest::qWaitFor([start] { return QDateTime::currentSecsSinceEpoch() > start; });
}

} // namespace

class TestEditorFiles final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void savingChangesOnlyWhatTheUserChanged_data();
    void savingChangesOnlyWhatTheUserChanged();
    void editingAmongMixedEndingsKeepsTheOthers();
    void millionLinesAreSavedWhole();
    void longLinesAreNoReasonForAMessage();
    void binaryFileIsShownForReadingOnly();
    void textThatCannotBeShownAsItIsIsNotChanged();
    void fileOfAnyNameIsOpenedAndSaved_data();
    void fileOfAnyNameIsOpenedAndSaved();
    void characterThatTheEncodingLacksIsNotLost();
    void encodingBecomesUtf8WhenTheUserSaysSo();
    void failedSaveKeepsFileAndText();
    void saveAsMakesTheOtherFileTheEditorsOwn();
    void saveAsGivesTheNewNameBeforeItTellsAnything();
    void failedSaveAsKeepsTheEditorsFile();
    void undoAfterSavingStopsAtTheSavedText();
    void changeOfAnotherProgramIsTold();
    void changeOfAnotherProgramIsNotOverwritten();
    void keepingThisTextOverwrites();
    void loadingFromDiskTakesTheOthersText();
    void ownSaveIsNoChangeOfAnother();
    void deletedFileIsToldAndCanBeSavedAgain();
    void linkStaysALink();
};

void TestEditorFiles::savingChangesOnlyWhatTheUserChanged_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");

    QTest::newRow("LF") << QByteArray("a\nb\n") << QByteArray("Xa\nb\n");
    QTest::newRow("no newline at the end") << QByteArray("a\nb") << QByteArray("Xa\nb");
    QTest::newRow("several at the end") << QByteArray("a\n\n\n") << QByteArray("Xa\n\n\n");
    QTest::newRow("CRLF") << QByteArray("a\r\nb\r\n") << QByteArray("Xa\r\nb\r\n");
    QTest::newRow("CR") << QByteArray("a\rb\r") << QByteArray("Xa\rb\r");
    QTest::newRow("mixed") << QByteArray("a\r\nb\nc\rd\n\r\n") << QByteArray("Xa\r\nb\nc\rd\n\r\n");
    QTest::newRow("blanks at the end of lines")
        << QByteArray("a  \n\t \n") << QByteArray("Xa  \n\t \n");
    QTest::newRow("tabs") << QByteArray("a\n\tb\n") << QByteArray("Xa\n\tb\n");
    QTest::newRow("empty") << QByteArray() << QByteArray("X");
    QTest::newRow("UTF-8") << QByteArray("\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80\n")
                           << QByteArray("X\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80\n");
    QTest::newRow("UTF-8 marked") << QByteArray("\xef\xbb\xbf"
                                                "a\n")
                                  << QByteArray("\xef\xbb\xbfXa\n");
    QTest::newRow("Latin-1") << QByteArray("\xe4\n") << QByteArray("X\xe4\n");
    QTest::newRow("Windows-1252") << QByteArray("\x93\n") << QByteArray("X\x93\n");
    QTest::newRow("UTF-16 little") << QByteArray("\xff\xfe"
                                                 "a\0\r\0\n\0",
                                                 8)
                                   << QByteArray("\xff\xfeX\0a\0\r\0\n\0", 10);
    QTest::newRow("UTF-16 big") << QByteArray("\xfe\xff\0a\0\n", 6)
                                << QByteArray("\xfe\xff\0X\0a\0\n", 8);
    QTest::newRow("UTF-16 unmarked")
        << QByteArray("a\0b\0\n\0", 6) << QByteArray("X\0a\0b\0\n\0", 8);
    QTest::newRow("form feed") << QByteArray("a\fb\vc\n") << QByteArray("Xa\fb\vc\n");
    const QByteArray words = QByteArray("wire abc, ").repeated(1000 * 1000);
    QTest::newRow("line of 10 MB") << words + '\n' << 'X' + words + '\n';
    const QByteArray solid = QByteArray("abcdefghij").repeated(10000);
    QTest::newRow("line without blanks") << solid + "\r\nb" << 'X' + solid + "\r\nb";
}

void TestEditorFiles::savingChangesOnlyWhatTheUserChanged()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), before);
    AbstractTextEditor *const editor = TextEditorFixture::open(path);
    QVERIFY(editor);
    QVERIFY(!editor->isModified());

    TextEditorFixture::type(editor, QStringLiteral("X"));
    QVERIFY(editor->isModified());
    QString reason;
    QVERIFY2(editor->save(&reason), qPrintable(reason));

    QVERIFY(!editor->isModified());
    QVERIFY(TextEditorFixture::contents(path) == after);
}

void TestEditorFiles::editingAmongMixedEndingsKeepsTheOthers()
{
    TextEditorFixture fixture;
    fixture.core.show();
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "a\r\nb\nc\rd\r\ne");
    QVERIFY(editor);
    QWidget *const text = TextEditorFixture::textWidget(editor);
    text->setFocus();
    QTRY_VERIFY(text->hasFocus());

    editor->goToLine(2, 2);
    QTest::keyClick(text, Qt::Key_Return);
    QTest::keyClicks(text, QStringLiteral("new"));
    editor->goToLine(5, 1);
    QTest::keyClick(text, Qt::Key_Backspace);
    QVERIFY(editor->save(nullptr));

    QCOMPARE(TextEditorFixture::contents(editor->fileName()), QByteArray("a\r\nb\nnew\ncd\r\ne"));
}

void TestEditorFiles::millionLinesAreSavedWhole()
{
    TextEditorFixture fixture;
    const QByteArray lines = QByteArray("  assign y = a & b;\n").repeated(1000 * 1000);
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.v"), lines);
    QVERIFY(editor);

    editor->goToLine(1000 * 1000 + 1, 1);
    TextEditorFixture::type(editor, QStringLiteral("X"));
    QVERIFY(editor->save(nullptr));

    QVERIFY(TextEditorFixture::contents(editor->fileName()) == lines + 'X');
}

void TestEditorFiles::longLinesAreNoReasonForAMessage()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor =
        fixture.open(QStringLiteral("a.v"), QByteArray(30000, 'a') + '\n');
    QVERIFY(editor);

    QTRY_COMPARE(TextEditorFixture::messages(editor), QString());

    // Nor do they hide another.
    fixture.put(QStringLiteral("a.v"), "other\n");
    QVERIFY(!editor->save(nullptr));
    QTRY_VERIFY(TextEditorFixture::messages(editor).contains(QLatin1String("Another program")));
}

void TestEditorFiles::binaryFileIsShownForReadingOnly()
{
    TextEditorFixture fixture;
    const QByteArray bytes("\x7f"
                           "ELF\0\1\2\r\n\xff",
                           10);
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), bytes);
    QVERIFY(editor);
    QTRY_VERIFY(TextEditorFixture::messages(editor).contains(QLatin1String("not text")));

    TextEditorFixture::type(editor, QStringLiteral("X"));
    QVERIFY(!editor->isModified());
    QString reason;
    QVERIFY(!editor->save(&reason));

    QVERIFY(!reason.isEmpty());
    QCOMPARE(TextEditorFixture::contents(editor->fileName()), bytes);
}

void TestEditorFiles::textThatCannotBeShownAsItIsIsNotChanged()
{
    TextEditorFixture fixture;
    const QByteArray bytes("a\xe2\x80\xa8"
                           "b\n");
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), bytes);
    QVERIFY(editor);
    QTRY_VERIFY(TextEditorFixture::messages(editor).contains(QLatin1String("reading only")));

    TextEditorFixture::type(editor, QStringLiteral("X"));

    QVERIFY(!editor->isModified());
    QVERIFY(!editor->save(nullptr));
    QCOMPARE(TextEditorFixture::contents(editor->fileName()), bytes);
}

void TestEditorFiles::fileOfAnyNameIsOpenedAndSaved_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("newline") << QStringLiteral("a\nb.v");
    QTest::newRow("umlauts") << QString::fromUtf8("gr\xc3\xbc\xc3\x9f.v");
    QTest::newRow("Chinese") << QString::fromUtf8("\xe6\xb5\x8b\xe8\xaf\x95.v");
    QTest::newRow("signs of addresses") << QStringLiteral("a%20b#c?d&e.v");
    QTest::newRow("placeholder") << QStringLiteral("a%1[*].v");
    QTest::newRow("blanks") << QStringLiteral(" a b .v");
}

void TestEditorFiles::fileOfAnyNameIsOpenedAndSaved()
{
    QFETCH(QString, name);
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(name, "b\n");
    QVERIFY(editor);

    TextEditorFixture::type(editor, QStringLiteral("a"));
    QVERIFY(editor->save(nullptr));

    QCOMPARE(editor->shortTitle(), name);
    QCOMPARE(TextEditorFixture::contents(fixture.path(name)), QByteArray("ab\n"));
}

void TestEditorFiles::characterThatTheEncodingLacksIsNotLost()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "x\n\xe4\n");
    QVERIFY(editor);
    editor->goToLine(2, 1);
    paste(editor, QString(QChar(0x4e2d)));
    QString reason;

    QVERIFY(!editor->save(&reason));

    QVERIFY2(reason.contains(QLatin1String("Line 2")), qPrintable(reason));
    QVERIFY2(reason.contains(QLatin1String("ISO-8859-1")), qPrintable(reason));
    QVERIFY(editor->isModified());
    QCOMPARE(TextEditorFixture::contents(editor->fileName()), QByteArray("x\n\xe4\n"));
}

void TestEditorFiles::encodingBecomesUtf8WhenTheUserSaysSo()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "\xe4\n");
    QVERIFY(editor);
    paste(editor, QString(QChar(0x4e2d)));
    QVERIFY(!editor->save(nullptr));
    QAction *const button = TextEditorFixture::messageButton(editor, QStringLiteral("Use UTF-8"));
    QVERIFY(button);

    button->trigger();
    QVERIFY(editor->save(nullptr));

    QCOMPARE(TextEditorFixture::contents(editor->fileName()), QByteArray("\xe4\xb8\xad\xc3\xa4\n"));
}

void TestEditorFiles::failedSaveKeepsFileAndText()
{
    TextEditorFixture fixture;
    const QByteArray before(200000, 'a');
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), before);
    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("X"));
    QSignalSpy saved(editor, &Core::IEditor::saved);
    std::optional<FullDisk> full(100000);
    QString reason;

    const bool done = editor->save(&reason);

    full.reset();
    QVERIFY(!done);
    QCOMPARE(reason, QStringLiteral("File too large"));
    QVERIFY(editor->isModified());
    QCOMPARE(saved.count(), 0);
    QVERIFY(TextEditorFixture::contents(editor->fileName()) == before);
    QVERIFY(editor->save(nullptr));
    QVERIFY(TextEditorFixture::contents(editor->fileName()) == 'X' + before);
}

void TestEditorFiles::saveAsMakesTheOtherFileTheEditorsOwn()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "b\n");
    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("a"));
    QSignalSpy saved(editor, &Core::IEditor::saved);
    const QString other = fixture.path(QStringLiteral("other.v"));

    QVERIFY(editor->saveAs(other, nullptr));

    QCOMPARE(saved.count(), 1);
    QVERIFY(!editor->isModified());
    QCOMPARE(editor->fileName(), other);
    QCOMPARE(editor->windowTitle(), QString(other + QStringLiteral("[*]")));
    QCOMPARE(editor->shortTitle(), QStringLiteral("other.v"));
    QCOMPARE(TextEditorFixture::contents(other), QByteArray("ab\n"));
    QCOMPARE(TextEditorFixture::contents(fixture.path(QStringLiteral("a.txt"))), QByteArray("b\n"));
    TextEditorFixture::type(editor, QStringLiteral("c"));
    QVERIFY(editor->save(nullptr));
    QCOMPARE(TextEditorFixture::contents(other), QByteArray("acb\n"));
}

void TestEditorFiles::saveAsGivesTheNewNameBeforeItTellsAnything()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "b\n");
    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("a"));
    const QString other = fixture.path(QStringLiteral("other.txt"));
    QStringList told;
    const auto tell = [editor, &told] {
        told.append(editor->fileName());
        told.append(editor->shortTitle());
    };
    connect(editor, &Core::IEditor::modificationStateChanged, this, tell);
    connect(editor, &Core::IEditor::saved, this, tell);

    QVERIFY(editor->saveAs(other, nullptr));

    const QStringList names{other, QStringLiteral("other.txt")};
    QCOMPARE(told, names + names);
}

void TestEditorFiles::failedSaveAsKeepsTheEditorsFile()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "b\n");
    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("a"));
    QString reason;

    QVERIFY(!editor->saveAs(fixture.path(QStringLiteral("none/a.txt")), &reason));

    QCOMPARE(reason, QStringLiteral("No such file or directory"));
    QCOMPARE(editor->fileName(), fixture.path(QStringLiteral("a.txt")));
    QVERIFY(editor->isModified());
}

void TestEditorFiles::undoAfterSavingStopsAtTheSavedText()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "\n");
    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("a"));
    QVERIFY(editor->save(nullptr));
    TextEditorFixture::type(editor, QStringLiteral("b"));
    QVERIFY(editor->isModified());

    editor->perform(Command::Undo);

    QVERIFY(!editor->isModified());
    QCOMPARE(TextEditorFixture::text(editor), QStringLiteral("a\n"));
}

void TestEditorFiles::changeOfAnotherProgramIsTold()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "mine\n");
    QVERIFY(editor);
    QVERIFY(nextSecond());

    fixture.put(QStringLiteral("a.txt"), "other\n");

    QTRY_VERIFY(TextEditorFixture::messages(editor).contains(
        QLatin1String("Another program has changed this file.")));
    QCOMPARE(TextEditorFixture::text(editor), QStringLiteral("mine\n"));
}

void TestEditorFiles::changeOfAnotherProgramIsNotOverwritten()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "mine\n");
    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("x"));
    fixture.put(QStringLiteral("a.txt"), "other\n");
    QString reason;

    QVERIFY(!editor->save(&reason));

    QVERIFY2(reason.startsWith(QLatin1String("Another program has changed the file")),
             qPrintable(reason));
    QCOMPARE(TextEditorFixture::contents(editor->fileName()), QByteArray("other\n"));
    QVERIFY(editor->isModified());
}

void TestEditorFiles::keepingThisTextOverwrites()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "mine\n");
    QVERIFY(editor);
    fixture.put(QStringLiteral("a.txt"), "other\n");
    QVERIFY(!editor->save(nullptr));
    QAction *const keep =
        TextEditorFixture::messageButton(editor, QStringLiteral("Keep This Text"));
    QVERIFY(keep);

    keep->trigger();

    QVERIFY(editor->isModified());
    QVERIFY(editor->save(nullptr));
    QCOMPARE(TextEditorFixture::contents(editor->fileName()), QByteArray("mine\n"));
}

void TestEditorFiles::loadingFromDiskTakesTheOthersText()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "mine\n");
    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("x"));
    fixture.put(QStringLiteral("a.txt"), "\xe4 other\r\n");
    QVERIFY(!editor->save(nullptr));
    QAction *const load =
        TextEditorFixture::messageButton(editor, QStringLiteral("Load from Disk"));
    QVERIFY(load);

    load->trigger();

    QVERIFY(!editor->isModified());
    QCOMPARE(TextEditorFixture::text(editor), QString::fromLatin1("\xe4 other\n"));
    editor->goToLine(1, 1);
    TextEditorFixture::type(editor, QStringLiteral("y"));
    QVERIFY(editor->save(nullptr));
    QCOMPARE(TextEditorFixture::contents(editor->fileName()), QByteArray("y\xe4 other\r\n"));
}

void TestEditorFiles::ownSaveIsNoChangeOfAnother()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "a\n");
    AbstractTextEditor *const witness = fixture.open(QStringLiteral("b.txt"), "b\n");
    QVERIFY(editor && witness);
    TextEditorFixture::type(editor, QStringLiteral("x"));
    QVERIFY(nextSecond());

    QVERIFY(editor->save(nullptr));
    // Changes are told in the order in which they happened.
    fixture.put(QStringLiteral("b.txt"), "other\n");

    QTRY_VERIFY(!TextEditorFixture::messages(witness).isEmpty());
    QCOMPARE(TextEditorFixture::messages(editor), QString());
    TextEditorFixture::type(editor, QStringLiteral("y"));
    QVERIFY(editor->save(nullptr));
}

void TestEditorFiles::deletedFileIsToldAndCanBeSavedAgain()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "mine\n");
    QVERIFY(editor);

    QVERIFY(QFile::remove(editor->fileName()));

    QTRY_VERIFY(TextEditorFixture::messages(editor).contains(
        QLatin1String("Another program has deleted this file.")));
    // Otherwise Save would have nothing to do, and closing would not ask.
    QVERIFY(editor->isModified());
    QVERIFY(editor->save(nullptr));
    QCOMPARE(TextEditorFixture::contents(editor->fileName()), QByteArray("mine\n"));
}

void TestEditorFiles::linkStaysALink()
{
    TextEditorFixture fixture;
    const QString target = fixture.put(QStringLiteral("target.v"), "b\n");
    const QString link = fixture.path(QStringLiteral("link.v"));
    QVERIFY(QFile::link(target, link));
    AbstractTextEditor *const editor = TextEditorFixture::open(link);
    QVERIFY(editor);

    TextEditorFixture::type(editor, QStringLiteral("a"));
    QVERIFY(editor->save(nullptr));

    QVERIFY(QFileInfo(link).isSymLink());
    QCOMPARE(TextEditorFixture::contents(target), QByteArray("ab\n"));
}

QTEST_MAIN(TestEditorFiles)
#include "tst_editorfiles.moc"
