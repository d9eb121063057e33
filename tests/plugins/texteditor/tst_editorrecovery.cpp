// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "texteditorfixture.h"

#include <idecore/editors/editormanager.h>
#include <texteditor/abstracttexteditor.h>

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

using TextEditor::AbstractTextEditor;

class TestEditorRecovery final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unsavedTextOfAKilledProcessIsOffered();
    void textTypedAfterASaveIsOffered();
    void nothingIsTypedBeforeTheUserDecided();
    void thrownAwayTextIsGone();
    void recoveredTextCanBeSaved();
    void nothingIsOfferedWhenAllWasSaved();
    void nothingIsLeftBesideTheFile();
    void textTypedJustBeforeTheKillIsOffered();
    void textIsOfferedThoughTheFileHasChanged();
    void textKeptAgainstAnothersIsOffered();
    void textTypedAfterSaveAsIsOffered();
    void textOfALongFileNameIsOffered();
    void textOfAReplacedLinkIsOffered();
    void undecidedOfferComesAgain();
    void saveAsBeforeTheDecisionKeepsTheOffer();
    void changeBeforeTheDecisionIsToldAfterIt();
    void deletionBeforeTheDecisionKeepsTheOffer();
    void textOfALivingProcessIsNotOffered();
    void everythingTypedByThenIsThereWheneverTheProcessIsKilled();
    void recoveredTextIsExactlyWhatWasTyped_data();
    void recoveredTextIsExactlyWhatWasTyped();
    void editingOfEveryKindIsKept();
    void readOnlyEditorCanTakeTheText();
    void undoOfTheRecoveryGivesTheFileBack();
    void folderThatTakesNothingIsTold();

private:
    static QString victim();
    /// Starts the process that is killed, and waits until it did @p steps.
    static bool startVictim(QProcess *process, const QString &path, const QStringList &steps);
    static void killAfter(const QString &path, const QStringList &steps);
    /// Opens @p path; null when it is refused, or its unsaved text is not offered.
    static AbstractTextEditor *openOffered(const QString &path);
    /// The same, and takes the text.
    static AbstractTextEditor *openRecovered(const QString &path);
    static QAction *button(AbstractTextEditor *editor, const char *text)
    {
        return TextEditorFixture::messageButton(editor, QLatin1String(text));
    }
};

QString TestEditorRecovery::victim()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/texteditor_victim");
}

bool TestEditorRecovery::startVictim(QProcess *process, const QString &path,
                                     const QStringList &steps)
{
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->start(victim(), QStringList{path} + steps);
    return process->waitForReadyRead(60000)
           && process->readAllStandardOutput() == QByteArray("typed\n");
}

void TestEditorRecovery::killAfter(const QString &path, const QStringList &steps)
{
    QProcess process;
    QVERIFY(startVictim(&process, path, steps));
    process.kill();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
}

AbstractTextEditor *TestEditorRecovery::openOffered(const QString &path)
{
    AbstractTextEditor *const editor = TextEditorFixture::open(path);
    const bool offered =
        editor && QTest::qWaitFor([editor] { return button(editor, "Recover Text"); });
    return offered ? editor : nullptr;
}

AbstractTextEditor *TestEditorRecovery::openRecovered(const QString &path)
{
    AbstractTextEditor *const editor = openOffered(path);
    if (editor)
        button(editor, "Recover Text")->trigger();
    return editor;
}

void TestEditorRecovery::unsavedTextOfAKilledProcessIsOffered()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "endmodule\n");
    killAfter(path, {QStringLiteral("module x; ")});
    QCOMPARE(TextEditorFixture::contents(path), QByteArray("endmodule\n"));

    AbstractTextEditor *const editor = openRecovered(path);
    QVERIFY(editor);

    QTRY_COMPARE(TextEditorFixture::text(editor), QStringLiteral("module x; endmodule\n"));
    QVERIFY(editor->isModified());
}

void TestEditorRecovery::textTypedAfterASaveIsOffered()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "endmodule\n");
    killAfter(path, {QStringLiteral("one "), QStringLiteral("--save"), QStringLiteral("two ")});
    QCOMPARE(TextEditorFixture::contents(path), QByteArray("one endmodule\n"));

    AbstractTextEditor *const editor = openRecovered(path);
    QVERIFY(editor);

    QTRY_COMPARE(TextEditorFixture::text(editor), QStringLiteral("one two endmodule\n"));
}

void TestEditorRecovery::nothingIsTypedBeforeTheUserDecided()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "endmodule\n");
    killAfter(path, {QStringLiteral("x")});
    AbstractTextEditor *const editor = openOffered(path);
    QVERIFY(editor);

    TextEditorFixture::type(editor, QStringLiteral("typed"));

    QVERIFY(!editor->isModified());
    QCOMPARE(TextEditorFixture::text(editor), QStringLiteral("endmodule\n"));
}

void TestEditorRecovery::thrownAwayTextIsGone()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "endmodule\n");
    killAfter(path, {QStringLiteral("x")});
    AbstractTextEditor *editor = openOffered(path);
    QVERIFY(editor);

    button(editor, "Discard")->trigger();

    QTRY_VERIFY(!button(editor, "Discard"));
    TextEditorFixture::type(editor, QStringLiteral("y"));
    QCOMPARE(TextEditorFixture::text(editor), QStringLiteral("yendmodule\n"));
}

void TestEditorRecovery::recoveredTextCanBeSaved()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "a\r\nb\nc\n");
    killAfter(path, {QStringLiteral("x")});
    AbstractTextEditor *const editor = openRecovered(path);
    QVERIFY(editor);
    QTRY_VERIFY(editor->isModified());

    QVERIFY(editor->save(nullptr));

    QCOMPARE(TextEditorFixture::contents(path), QByteArray("xa\r\nb\nc\n"));
}

void TestEditorRecovery::nothingIsOfferedWhenAllWasSaved()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "endmodule\n");
    killAfter(path, {QStringLiteral("x"), QStringLiteral("--save")});

    AbstractTextEditor *const editor = TextEditorFixture::open(path);

    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("y"));
    QCOMPARE(TextEditorFixture::text(editor), QStringLiteral("yxendmodule\n"));
}

void TestEditorRecovery::nothingIsLeftBesideTheFile()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "endmodule\n");

    killAfter(path, {QStringLiteral("x"), QStringLiteral("--save"), QStringLiteral("y")});

    QCOMPARE(QFileInfo(path).dir().entryList(QDir::Files | QDir::Hidden),
             QStringList{QStringLiteral("a.v")});
}

void TestEditorRecovery::textTypedJustBeforeTheKillIsOffered()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "endmodule\n");
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(victim(), {path, QStringLiteral("last words "), QStringLiteral("--die")});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);

    AbstractTextEditor *const editor = openRecovered(path);
    QVERIFY(editor);

    QTRY_COMPARE(TextEditorFixture::text(editor), QStringLiteral("last words endmodule\n"));
}

void TestEditorRecovery::textIsOfferedThoughTheFileHasChanged()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "endmodule\n");
    killAfter(path, {QStringLiteral("mine ")});
    fixture.put(QStringLiteral("a.v"), "another\n");

    AbstractTextEditor *const editor = openRecovered(path);
    QVERIFY(editor);

    QTRY_VERIFY(TextEditorFixture::text(editor).contains(QLatin1String("mine ")));
}

void TestEditorRecovery::textKeptAgainstAnothersIsOffered()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "endmodule\n");
    killAfter(path, {QStringLiteral("mine "), QStringLiteral("--change-file-and-keep-text"),
                     QStringLiteral("more ")});
    QCOMPARE(TextEditorFixture::contents(path), QByteArray("another\n"));

    AbstractTextEditor *const editor = openRecovered(path);
    QVERIFY(editor);

    QTRY_COMPARE(TextEditorFixture::text(editor), QStringLiteral("mine more endmodule\n"));
}

void TestEditorRecovery::textTypedAfterSaveAsIsOffered()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "endmodule\n");
    killAfter(path, {QStringLiteral("one "), QStringLiteral("--save-as"), QStringLiteral("two ")});

    AbstractTextEditor *const editor = openRecovered(path + QStringLiteral(".other"));
    QVERIFY(editor);

    QTRY_COMPARE(TextEditorFixture::text(editor), QStringLiteral("one two endmodule\n"));
    AbstractTextEditor *const first = TextEditorFixture::open(path);
    QVERIFY(first);
    TextEditorFixture::type(first, QStringLiteral("y"));
    QCOMPARE(TextEditorFixture::text(first), QStringLiteral("yendmodule\n"));
}

void TestEditorRecovery::textOfALongFileNameIsOffered()
{
    TextEditorFixture fixture;
    // As long as the system lets a name be.
    const QString path = fixture.put(QString(253, QLatin1Char('a')) + QStringLiteral(".v"), "b\n");
    killAfter(path, {QStringLiteral("x")});

    AbstractTextEditor *const editor = openRecovered(path);
    QVERIFY(editor);

    QTRY_COMPARE(TextEditorFixture::text(editor), QStringLiteral("xb\n"));
}

void TestEditorRecovery::textOfAReplacedLinkIsOffered()
{
    TextEditorFixture fixture;
    const QString target = fixture.put(QStringLiteral("target.v"), "b\n");
    const QString path = fixture.path(QStringLiteral("link.v"));
    QVERIFY(QFile::link(target, path));
    killAfter(path, {QStringLiteral("x")});

    AbstractTextEditor *const editor = openRecovered(path);
    QVERIFY(editor);

    QTRY_COMPARE(TextEditorFixture::text(editor), QStringLiteral("xb\n"));
}

void TestEditorRecovery::undecidedOfferComesAgain()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "b\n");
    killAfter(path, {QStringLiteral("x")});
    QPointer<AbstractTextEditor> editor = TextEditorFixture::open(path);
    QVERIFY(editor);
    QTRY_VERIFY(button(editor, "Recover Text"));

    QVERIFY(Core::EditorManager::closeEditor(editor));
    QTRY_VERIFY(!editor);

    AbstractTextEditor *const again = TextEditorFixture::open(path);
    QVERIFY(again);
    QTRY_VERIFY(button(again, "Recover Text"));
    button(again, "Recover Text")->trigger();
    QTRY_COMPARE(TextEditorFixture::text(again), QStringLiteral("xb\n"));
}

void TestEditorRecovery::saveAsBeforeTheDecisionKeepsTheOffer()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "b\n");
    killAfter(path, {QStringLiteral("x")});
    AbstractTextEditor *const editor = openOffered(path);
    QVERIFY(editor);

    editor->saveAs(fixture.path(QStringLiteral("other.v")), nullptr);
    QVERIFY(Core::EditorManager::closeEditor(editor));

    AbstractTextEditor *const again = TextEditorFixture::open(path);
    QVERIFY(again);
    QTRY_VERIFY(button(again, "Recover Text"));
    button(again, "Recover Text")->trigger();
    QTRY_COMPARE(TextEditorFixture::text(again), QStringLiteral("xb\n"));
}

void TestEditorRecovery::changeBeforeTheDecisionIsToldAfterIt()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "b\n");
    killAfter(path, {QStringLiteral("x")});
    AbstractTextEditor *const editor = openOffered(path);
    QVERIFY(editor);
    fixture.put(QStringLiteral("a.v"), "another\n");
    editor->onActivated();

    button(editor, "Recover Text")->trigger();

    QTRY_VERIFY(button(editor, "Load from Disk"));
    QCOMPARE(TextEditorFixture::text(editor), QStringLiteral("xb\n"));
    QVERIFY(!editor->save(nullptr));
    QCOMPARE(TextEditorFixture::contents(path), QByteArray("another\n"));
}

void TestEditorRecovery::textOfALivingProcessIsNotOffered()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "b\n");
    QProcess process;
    QVERIFY(startVictim(&process, path, {QStringLiteral("x")}));
    QPointer<AbstractTextEditor> editor = TextEditorFixture::open(path);
    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("y"));
    QCOMPARE(TextEditorFixture::text(editor), QStringLiteral("yb\n"));
    QVERIFY(editor->save(nullptr));
    QVERIFY(Core::EditorManager::closeEditor(editor));
    QTRY_VERIFY(!editor);

    process.kill();
    QVERIFY(process.waitForFinished());

    editor = TextEditorFixture::open(path);
    QVERIFY(editor);
    QTRY_VERIFY(button(editor, "Recover Text"));
    QTRY_VERIFY(
        TextEditorFixture::messages(editor).contains(QLatin1String("has been changed since")));
    button(editor, "Recover Text")->trigger();
    QCOMPARE(TextEditorFixture::text(editor), QStringLiteral("xb\n"));
}

void TestEditorRecovery::everythingTypedByThenIsThereWheneverTheProcessIsKilled()
{
    // The victim tells of every letter after it was typed, and saves every third.
    for (int round = 1; round <= 8; ++round) {
        TextEditorFixture fixture;
        const QString path = fixture.put(QStringLiteral("a.v"), "\n");
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(victim(), {path, QStringLiteral("--for-ever")});
        const int wanted = round * 7;
        int typed = 0;
        while (typed < wanted && process.waitForReadyRead(60000))
            typed += process.readAllStandardOutput().count('x');
        process.kill();
        QVERIFY(process.waitForFinished());
        typed += process.readAllStandardOutput().count('x');
        QVERIFY(typed >= wanted);
        const QByteArray saved = TextEditorFixture::contents(path);
        QVERIFY2(saved.endsWith('\n'), saved.constData());

        AbstractTextEditor *const editor = TextEditorFixture::open(path);
        QVERIFY(editor);
        if (QAction *const recover = button(editor, "Recover Text"))
            recover->trigger();
        const int there = TextEditorFixture::text(editor).count(QLatin1Char('x'));

        QVERIFY2(there >= typed, qPrintable(QStringLiteral("%1 of %2").arg(there).arg(typed)));
    }
}

void TestEditorRecovery::recoveredTextIsExactlyWhatWasTyped_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");

    QTest::newRow("tabs and blanks") << QByteArray("\ta  \n \t\n") << QByteArray("x\ta  \n \t\n");
    QTest::newRow("mixed endings")
        << QByteArray("a\r\nb\nc\r\r\n") << QByteArray("xa\r\nb\nc\r\r\n");
    QTest::newRow("Latin-1") << QByteArray("\xe4\r\n") << QByteArray("x\xe4\r\n");
    QTest::newRow("UTF-16") << QByteArray("\xff\xfe"
                                          "a\0\n\0",
                                          6)
                            << QByteArray("\xff\xfex\0a\0\n\0", 8);
    QTest::newRow("no newline at the end") << QByteArray("a") << QByteArray("xa");
    QTest::newRow("empty") << QByteArray() << QByteArray("x");
    const QByteArray solid = QByteArray("abcdefghij").repeated(10000);
    QTest::newRow("broken line") << solid + "\nb" << 'x' + solid + "\nb";
}

void TestEditorRecovery::recoveredTextIsExactlyWhatWasTyped()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), before);
    killAfter(path, {QStringLiteral("x")});
    AbstractTextEditor *const editor = openRecovered(path);
    QVERIFY(editor);

    QVERIFY(editor->save(nullptr));

    QVERIFY(TextEditorFixture::contents(path) == after);
}

void TestEditorRecovery::editingOfEveryKindIsKept()
{
    TextEditorFixture fixture;
    const QByteArray before = "one\r\ntwo\nthree\nfour\n";
    const QString path = fixture.put(QStringLiteral("a.v"), before);
    const QString saved = fixture.put(QStringLiteral("saved.v"), before);
    killAfter(saved, {QStringLiteral("--edit"), QStringLiteral("--save")});
    killAfter(path, {QStringLiteral("--edit")});
    const QByteArray expected = TextEditorFixture::contents(saved);
    QVERIFY2(expected.contains("end"), expected.constData());
    AbstractTextEditor *const editor = openRecovered(path);
    QVERIFY(editor);

    QVERIFY(editor->save(nullptr));
    QCOMPARE(TextEditorFixture::contents(path), expected);
}

void TestEditorRecovery::readOnlyEditorCanTakeTheText()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "b\n");
    killAfter(path, {QStringLiteral("x")});
    auto *const editor =
        qobject_cast<AbstractTextEditor *>(Core::EditorManager::openEditor(path, true));
    QVERIFY(editor);
    QTRY_VERIFY(button(editor, "Recover Text"));

    button(editor, "Recover Text")->trigger();

    QCOMPARE(TextEditorFixture::text(editor), QStringLiteral("xb\n"));
    QVERIFY(editor->isModified());
    TextEditorFixture::type(editor, QStringLiteral("y"));
    QCOMPARE(TextEditorFixture::text(editor), QStringLiteral("xb\n"));
}

void TestEditorRecovery::undoOfTheRecoveryGivesTheFileBack()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "a\nb\n");
    killAfter(path, {QStringLiteral("x")});
    AbstractTextEditor *const editor = openRecovered(path);
    QVERIFY(editor);

    editor->perform(TextEditor::Command::Undo);

    QCOMPARE(TextEditorFixture::text(editor), QStringLiteral("a\nb\n"));
}

void TestEditorRecovery::folderThatTakesNothingIsTold()
{
    TextEditorFixture fixture;
    // In place of the folder, which is kept for the other tests.
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                           + QStringLiteral("/KelmoWare/unsaved");
    const QString aside = folder + QStringLiteral(".aside");
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.v"), "b\n");
    QVERIFY(editor);
    QVERIFY(QFile::rename(folder, aside));
    QFile file(folder);
    QVERIFY(file.open(QIODevice::WriteOnly));

    TextEditorFixture::type(editor, QStringLiteral("x"));

    file.remove();
    QVERIFY(QFile::rename(aside, folder));
    QTRY_VERIFY(TextEditorFixture::messages(editor).contains(QLatin1String("cannot be kept")));
    QVERIFY(editor->save(nullptr));
    QCOMPARE(TextEditorFixture::contents(editor->fileName()), QByteArray("xb\n"));
}

void TestEditorRecovery::deletionBeforeTheDecisionKeepsTheOffer()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "b\n");
    killAfter(path, {QStringLiteral("x")});
    AbstractTextEditor *const editor = openOffered(path);
    QVERIFY(editor);

    QVERIFY(QFile::remove(path));
    editor->onActivated();

    button(editor, "Recover Text")->trigger();
    QTRY_COMPARE(TextEditorFixture::text(editor), QStringLiteral("xb\n"));
    QVERIFY(editor->save(nullptr));
    QCOMPARE(TextEditorFixture::contents(path), QByteArray("xb\n"));
}

QTEST_MAIN(TestEditorRecovery)
#include "tst_editorrecovery.moc"
