// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "texteditorfixture.h"

#include "support/modaldialog.h"

#include <idecore/editors/editormanager.h>
#include <texteditor/abstracttexteditor.h>

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <sys/stat.h>
#include <unistd.h>

using TextEditor::AbstractTextEditor;

namespace {

/// Nothing is unreadable to the superuser, who is somebody else in this scope.
class Unprivileged final
{
public:
    explicit Unprivileged(const QString &folder)
        : m_superuser(::geteuid() == 0)
    {
        ::chmod(QFile::encodeName(folder).constData(), 0755);
        if (m_superuser && ::seteuid(65534) != 0)
            qFatal("the superuser cannot become nobody");
    }
    ~Unprivileged()
    {
        if (m_superuser && ::seteuid(0) != 0)
            qFatal("nobody cannot become the superuser again");
    }
    Q_DISABLE_COPY(Unprivileged)

private:
    const bool m_superuser;
};

/// The text that the user reads, whatever the format of the label.
QString asShown(const QLabel *label)
{
    const bool rich =
        label->textFormat() == Qt::RichText
        || (label->textFormat() == Qt::AutoText && Qt::mightBeRichText(label->text()));
    return rich ? QTextDocumentFragment::fromHtml(label->text()).toPlainText() : label->text();
}

} // namespace

class TestEngineEditor final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titlesNameTheFile();
    void modifiedStateIsTold();
    void goToLineIsOneBasedAndStaysInside_data();
    void goToLineIsOneBasedAndStaysInside();
    void goToLineStaysInsideTheLine_data();
    void goToLineStaysInsideTheLine();
    void refusedFileIsTold_data();
    void refusedFileIsTold();
    void unmodifiedEditorClosesUnasked();
    void closingAsksAndSaves();
    void closingAsksAndDiscards();
    void closingIsRefusedOnCancel();
    void closingIsRefusedWhenTheSaveFails();
    void nameIsNoMarkupInTheMessagesOfClosing();
    void readOnlyIsKept();
};

void TestEngineEditor::titlesNameTheFile()
{
    TextEditorFixture fixture;
    const QString path = fixture.put(QStringLiteral("top.vhd"), "entity e is\n");

    const AbstractTextEditor *const editor = TextEditorFixture::open(path);

    QVERIFY(editor);
    QCOMPARE(editor->fileName(), path);
    QCOMPARE(editor->shortTitle(), QStringLiteral("top.vhd"));
    QCOMPARE(editor->windowTitle(), QString(path + QStringLiteral("[*]")));
    QCOMPARE(editor->windowFilePath(), path);
}

void TestEngineEditor::modifiedStateIsTold()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "a\n");
    QVERIFY(editor);
    QSignalSpy changed(editor, &Core::IEditor::modificationStateChanged);
    QSignalSpy saved(editor, &Core::IEditor::saved);

    TextEditorFixture::type(editor, QStringLiteral("xy"));
    QCOMPARE(changed, (QList<QVariantList>{{true}}));
    QVERIFY(editor->isWindowModified());
    QVERIFY(editor->save(nullptr));

    QCOMPARE(changed, (QList<QVariantList>{{true}, {false}}));
    QVERIFY(!editor->isWindowModified());
    QCOMPARE(saved.count(), 1);
}

void TestEngineEditor::goToLineIsOneBasedAndStaysInside_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("reached");

    QTest::newRow("first") << 1 << 1;
    QTest::newRow("second") << 2 << 2;
    QTest::newRow("beyond the end") << 99 << 3;
    QTest::newRow("zero") << 0 << 1;
    QTest::newRow("negative") << -5 << 1;
}

void TestEngineEditor::goToLineIsOneBasedAndStaysInside()
{
    QFETCH(int, line);
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "a\nb\nc");
    QVERIFY(editor);

    editor->goToLine(line, 1);

    QTEST(editor->currentLine(), "reached");
}

void TestEngineEditor::goToLineStaysInsideTheLine_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");

    QTest::newRow("first") << 1 << QStringLiteral("a\nXbcd\n");
    QTest::newRow("second") << 2 << QStringLiteral("a\nbXcd\n");
    QTest::newRow("end") << 4 << QStringLiteral("a\nbcdX\n");
    QTest::newRow("beyond the end") << 99 << QStringLiteral("a\nbcdX\n");
    QTest::newRow("zero") << 0 << QStringLiteral("a\nXbcd\n");
    QTest::newRow("negative") << -5 << QStringLiteral("a\nXbcd\n");
}

void TestEngineEditor::goToLineStaysInsideTheLine()
{
    QFETCH(int, column);
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "a\nbcd\n");
    QVERIFY(editor);

    editor->goToLine(2, column);
    TextEditorFixture::type(editor, QStringLiteral("X"));

    QTEST(TextEditorFixture::text(editor), "text");
}

void TestEngineEditor::refusedFileIsTold_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");

    QTest::newRow("missing") << QStringLiteral("none.v") << QStringLiteral("does not exist.");
    QTest::newRow("folder") << QStringLiteral("folder.v") << QStringLiteral("It is a folder.");
    QTest::newRow("device") << QStringLiteral("/dev/zero")
                            << QStringLiteral("It is a device, not a file.");
    QTest::newRow("pipe") << QStringLiteral("pipe.v")
                          << QStringLiteral("It is a named pipe, not a file.");
    // Its type is looked for in its contents, which nobody writes.
    QTest::newRow("pipe of no type")
        << QStringLiteral("pipe") << QStringLiteral("It is a named pipe, not a file.");
    QTest::newRow("no permission")
        << QStringLiteral("secret.v") << QStringLiteral("Permission denied");
    QTest::newRow("2 GiB") << QStringLiteral("huge.v")
                           << QStringLiteral("128.00 MiB is the limit.");
}

void TestEngineEditor::refusedFileIsTold()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    TextEditorFixture fixture;
    // The engine is loaded with the first editor, while its folder may be read.
    QVERIFY(fixture.open(QStringLiteral("first.txt"), "x"));
    if (!path.startsWith(QLatin1Char('/')))
        path = fixture.path(path);
    QVERIFY(QDir().mkpath(fixture.path(QStringLiteral("folder.v"))));
    for (const char *pipe : {"pipe", "pipe.v"})
        QCOMPARE(::mkfifo(QFile::encodeName(fixture.path(QLatin1String(pipe))).constData(), 0600),
                 0);
    // No disk is taken by the hole.
    QVERIFY(QFile::resize(fixture.put(QStringLiteral("huge.v"), {}), qint64(2) << 30));
    QCOMPARE(
        ::chmod(QFile::encodeName(fixture.put(QStringLiteral("secret.v"), "x")).constData(), 0), 0);
    std::unique_ptr<Unprivileged> unprivileged;
    if (path.endsWith(QLatin1String("secret.v")))
        unprivileged = std::make_unique<Unprivileged>(fixture.path(QStringLiteral(".")));
    ModalDialog box(ModalDialog::press(QMessageBox::Ok));

    QVERIFY(!TextEditorFixture::open(path));

    QVERIFY2(box.text().endsWith(reason), qPrintable(box.text()));
    QCOMPARE(Core::EditorManager::allEditors().size(), 1);
}

void TestEngineEditor::unmodifiedEditorClosesUnasked()
{
    TextEditorFixture fixture;
    const QPointer<AbstractTextEditor> editor = fixture.open(QStringLiteral("a.txt"), "a\n");
    QVERIFY(editor);

    QVERIFY(Core::EditorManager::closeEditor(editor));

    QTRY_VERIFY(!editor);
}

void TestEngineEditor::closingAsksAndSaves()
{
    TextEditorFixture fixture;
    const QPointer<AbstractTextEditor> editor = fixture.open(QStringLiteral("a.txt"), "a\n");
    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("x"));
    ModalDialog box(ModalDialog::press(QMessageBox::Save));

    QVERIFY(Core::EditorManager::closeEditor(editor));

    QVERIFY2(box.text().contains(QLatin1String("\"a.txt\"")), qPrintable(box.text()));
    QTRY_VERIFY(!editor);
    QCOMPARE(TextEditorFixture::contents(fixture.path(QStringLiteral("a.txt"))),
             QByteArray("xa\n"));
}

void TestEngineEditor::closingAsksAndDiscards()
{
    TextEditorFixture fixture;
    const QPointer<AbstractTextEditor> editor = fixture.open(QStringLiteral("a.txt"), "a\n");
    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("x"));
    ModalDialog box(ModalDialog::press(QMessageBox::Discard));

    QVERIFY(Core::EditorManager::closeEditor(editor));

    QTRY_VERIFY(!editor);
    QCOMPARE(TextEditorFixture::contents(fixture.path(QStringLiteral("a.txt"))), QByteArray("a\n"));
    // What was thrown away is not offered again.
    AbstractTextEditor *const again =
        TextEditorFixture::open(fixture.path(QStringLiteral("a.txt")));
    QVERIFY(again);
    TextEditorFixture::type(again, QStringLiteral("y"));
    QCOMPARE(TextEditorFixture::text(again), QStringLiteral("ya\n"));
}

void TestEngineEditor::closingIsRefusedOnCancel()
{
    TextEditorFixture fixture;
    const QPointer<AbstractTextEditor> editor = fixture.open(QStringLiteral("a.txt"), "a\n");
    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("x"));
    ModalDialog box(ModalDialog::cancel());

    QVERIFY(!Core::EditorManager::closeEditor(editor));

    QVERIFY(editor);
    QVERIFY(editor->isModified());
}

void TestEngineEditor::closingIsRefusedWhenTheSaveFails()
{
    TextEditorFixture fixture;
    const QPointer<AbstractTextEditor> editor = fixture.open(QStringLiteral("a.txt"), "a\n");
    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("x"));
    fixture.put(QStringLiteral("a.txt"), "other\n");
    // Save is pressed in the first box; the second tells that it failed.
    QString told;
    std::unique_ptr<ModalDialog> second;
    ModalDialog first([&second, &told](QWidget *widget) {
        second = std::make_unique<ModalDialog>([&told](QWidget *next) {
            told = qobject_cast<QMessageBox *>(next)->text();
            ModalDialog::press(QMessageBox::Ok)(next);
        });
        ModalDialog::press(QMessageBox::Save)(widget);
    });

    QVERIFY(!Core::EditorManager::closeEditor(editor));

    QVERIFY(editor);
    QVERIFY(editor->isModified());
    QVERIFY2(told.contains(QLatin1String("stays open")), qPrintable(told));
    QCOMPARE(TextEditorFixture::contents(editor->fileName()), QByteArray("other\n"));
}

void TestEngineEditor::nameIsNoMarkupInTheMessagesOfClosing()
{
    TextEditorFixture fixture;
    const QString name = QStringLiteral("<b>a &amp; b<br>.txt");
    AbstractTextEditor *const editor = fixture.open(name, "a\n");
    QVERIFY(editor);
    TextEditorFixture::type(editor, QStringLiteral("x"));
    fixture.put(name, "other\n");
    QStringList shown;
    const auto look = [&shown](QWidget *box) {
        for (const char *part : {"qt_msgbox_label", "qt_msgbox_informativelabel"}) {
            if (const auto *label = box->findChild<QLabel *>(QLatin1String(part)))
                shown.append(asShown(label));
        }
    };
    std::unique_ptr<ModalDialog> failure;
    ModalDialog question([&](QWidget *widget) {
        look(widget);
        failure = std::make_unique<ModalDialog>([&look](QWidget *next) {
            look(next);
            ModalDialog::press(QMessageBox::Ok)(next);
        });
        ModalDialog::press(QMessageBox::Save)(widget);
    });

    QVERIFY(!Core::EditorManager::closeEditor(editor));

    QCOMPARE(shown.size(), 3);
    for (const QString &text : qAsConst(shown))
        QVERIFY2(text.contains(name), qPrintable(text));
}

void TestEngineEditor::readOnlyIsKept()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "a\n");
    QVERIFY(editor);

    editor->setReadOnly(true);
    TextEditorFixture::type(editor, QStringLiteral("x"));

    QVERIFY(editor->isReadOnly());
    QVERIFY(!editor->isModified());
    editor->setReadOnly(false);
    TextEditorFixture::type(editor, QStringLiteral("x"));
    QVERIFY(editor->isModified());
}

QTEST_MAIN(TestEngineEditor)
#include "tst_engineeditor.moc"
