// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "texteditorfixture.h"

#include <texteditor/abstracttexteditor.h>

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
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

private:
    static void killAfter(const QString &path, const QStringList &steps);
    static QAction *button(AbstractTextEditor *editor, const char *text)
    {
        return TextEditorFixture::messageButton(editor, QLatin1String(text));
    }
};

void TestEditorRecovery::killAfter(const QString &path, const QStringList &steps)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/texteditor_victim"),
                  QStringList{path} + steps);
    QVERIFY(process.waitForReadyRead(60000));
    QCOMPARE(process.readAllStandardOutput(), QByteArray("typed\n"));
    process.kill();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
}

void TestEditorRecovery::unsavedTextOfAKilledProcessIsOffered()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "endmodule\n");
    killAfter(path, {QStringLiteral("module x; ")});
    QCOMPARE(TextEditorFixture::contents(path), QByteArray("endmodule\n"));

    AbstractTextEditor *const editor = TextEditorFixture::open(path);
    QVERIFY(editor);
    QTRY_VERIFY(button(editor, "Recover Data"));
    button(editor, "Recover Data")->trigger();

    QTRY_COMPARE(TextEditorFixture::text(editor), QStringLiteral("module x; endmodule\n"));
    QVERIFY(editor->isModified());
}

void TestEditorRecovery::textTypedAfterASaveIsOffered()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "endmodule\n");
    killAfter(path, {QStringLiteral("one "), QStringLiteral("--save"), QStringLiteral("two ")});
    QCOMPARE(TextEditorFixture::contents(path), QByteArray("one endmodule\n"));

    AbstractTextEditor *const editor = TextEditorFixture::open(path);
    QVERIFY(editor);
    QTRY_VERIFY(button(editor, "Recover Data"));
    button(editor, "Recover Data")->trigger();

    QTRY_COMPARE(TextEditorFixture::text(editor), QStringLiteral("one two endmodule\n"));
}

void TestEditorRecovery::nothingIsTypedBeforeTheUserDecided()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "endmodule\n");
    killAfter(path, {QStringLiteral("x")});
    AbstractTextEditor *const editor = TextEditorFixture::open(path);
    QVERIFY(editor);
    QTRY_VERIFY(button(editor, "Recover Data"));

    TextEditorFixture::type(editor, QStringLiteral("typed"));

    QVERIFY(!editor->isModified());
    QCOMPARE(TextEditorFixture::text(editor), QStringLiteral("endmodule\n"));
}

void TestEditorRecovery::thrownAwayTextIsGone()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("a.v"), "endmodule\n");
    killAfter(path, {QStringLiteral("x")});
    AbstractTextEditor *editor = TextEditorFixture::open(path);
    QVERIFY(editor);
    QTRY_VERIFY(button(editor, "Discard"));

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
    AbstractTextEditor *const editor = TextEditorFixture::open(path);
    QVERIFY(editor);
    QTRY_VERIFY(button(editor, "Recover Data"));
    button(editor, "Recover Data")->trigger();
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

QTEST_MAIN(TestEditorRecovery)
#include "tst_editorrecovery.moc"
