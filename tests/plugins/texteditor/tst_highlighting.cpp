// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "ktexteditoraccess.h"
#include "texteditorfixture.h"

#include <texteditor/abstracttexteditor.h>

#include <QAction>
#include <QTest>

using TextEditor::AbstractTextEditor;

namespace {

/// The highlighting of @p editor by its name.
QString highlighting(const AbstractTextEditor *editor)
{
    const KTextEditor::Document *const document = documentIn(editor);
    return document ? document->highlightingMode() : QStringLiteral("no such document");
}

} // namespace

class TestHighlighting final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void followsTheName_data();
    void followsTheName();
    void followsTheContentsBeforeTheName();
    void followsSaveAs();
    void staysWhenTheFileIsLoadedAgain();
};

void TestHighlighting::followsTheName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");

    const QString tcl = QStringLiteral("Tcl/Tk");
    for (const char *suffix : {"sdc", "fdc", "adc", "ksc", "pcn", "xdc", "pcf", "SDC", "tcl"})
        QTest::newRow(suffix) << QStringLiteral("top.") + QLatin1String(suffix) << tcl;
    QTest::newRow("Verilog") << QStringLiteral("top.v") << QStringLiteral("Verilog");
    QTest::newRow("SystemVerilog") << QStringLiteral("top.sv") << QStringLiteral("SystemVerilog");
    QTest::newRow("VHDL") << QStringLiteral("top.vhd") << QStringLiteral("VHDL");
    QTest::newRow("text") << QStringLiteral("top.txt") << QStringLiteral("None");
    QTest::newRow("no suffix") << QStringLiteral("sdc") << QStringLiteral("None");
}

void TestHighlighting::followsTheName()
{
    QFETCH(QString, name);
    TextEditorFixture fixture;

    const AbstractTextEditor *const editor = fixture.open(name, "create_clock clk\n");

    QVERIFY(editor);
    QTEST(highlighting(editor), "expected");
}

void TestHighlighting::followsTheContentsBeforeTheName()
{
    TextEditorFixture fixture;

    const AbstractTextEditor *const editor =
        fixture.open(QStringLiteral("top.sdc"), "# kate: hl Python;\n");

    QVERIFY(editor);
    QCOMPARE(highlighting(editor), QStringLiteral("Python"));
}

void TestHighlighting::followsSaveAs()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.txt"), "x\n");
    QVERIFY(editor);

    QVERIFY(editor->saveAs(fixture.path(QStringLiteral("a.sdc")), nullptr));
    QCOMPARE(highlighting(editor), QStringLiteral("Tcl/Tk"));

    QVERIFY(editor->saveAs(fixture.path(QStringLiteral("a.v")), nullptr));
    QCOMPARE(highlighting(editor), QStringLiteral("Verilog"));
}

void TestHighlighting::staysWhenTheFileIsLoadedAgain()
{
    TextEditorFixture fixture;
    AbstractTextEditor *const editor = fixture.open(QStringLiteral("a.sdc"), "x\n");
    QVERIFY(editor);
    fixture.put(QStringLiteral("a.sdc"), "other\n");
    QVERIFY(!editor->save(nullptr));
    QAction *const load =
        TextEditorFixture::messageButton(editor, QStringLiteral("Load from Disk"));
    QVERIFY(load);

    load->trigger();

    QCOMPARE(TextEditorFixture::text(editor), QStringLiteral("other\n"));
    QCOMPARE(highlighting(editor), QStringLiteral("Tcl/Tk"));
}

QTEST_MAIN(TestHighlighting)
#include "tst_highlighting.moc"
