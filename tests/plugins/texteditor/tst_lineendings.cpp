// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/lineendings_p.h>

#include <QRandomGenerator>
#include <QStringList>
#include <QTest>

using Ending = TextEditor::LineEndings::Ending;
using TextEditor::LineEndings;

namespace {

/// The text as it would be written.
QString spell(const LineEndings &endings, const QStringList &lines)
{
    QString text;
    for (int i = 0; i < lines.size(); ++i) {
        text += lines.at(i);
        if (i < lines.size() - 1)
            text += LineEndings::text(endings.after(i));
    }
    return text;
}

bool match(LineEndings &endings, const QString &text, const QStringList &lines)
{
    return endings.match(text, lines.size(), [&lines](int line) { return lines.at(line); });
}

const QStringList threeLines{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};

} // namespace

class TestLineEndings final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneEndingIsFound_data();
    void oneEndingIsFound();
    void mixedEndingsAreKept();
    void brokenLineIsWrittenWhole();
    void linesThatSaySomethingElseDoNotMatch_data();
    void linesThatSaySomethingElseDoNotMatch();
    void newLineTakesTheEndingOfItsPlace();
    void newLineInABrokenLineEnds();
    void newLineAtTheEndTakesTheUsualEnding();
    void joiningDropsTheEndingBetween();
    void everyOtherEndingStaysUnderRandomEditing();
};

void TestLineEndings::oneEndingIsFound_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("ending");

    QTest::newRow("LF") << QStringLiteral("a\nb\nc") << int(Ending::Lf);
    QTest::newRow("CRLF") << QStringLiteral("a\r\nb\r\nc") << int(Ending::CrLf);
    QTest::newRow("CR") << QStringLiteral("a\rb\rc") << int(Ending::Cr);
}

void TestLineEndings::oneEndingIsFound()
{
    QFETCH(QString, text);
    LineEndings endings;

    QVERIFY(match(endings, text, threeLines));

    QVERIFY(!endings.isMixed());
    QTEST(int(endings.usual()), "ending");
    QCOMPARE(spell(endings, threeLines), text);
}

void TestLineEndings::mixedEndingsAreKept()
{
    const QString text = QStringLiteral("a\r\nb\nc");
    LineEndings endings;

    QVERIFY(match(endings, text, threeLines));

    QVERIFY(endings.isMixed());
    QCOMPARE(spell(endings, threeLines), text);
}

void TestLineEndings::brokenLineIsWrittenWhole()
{
    const QString text = QStringLiteral("ab\nc");
    const QStringList lines{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    LineEndings endings;

    QVERIFY(match(endings, text, lines));

    QCOMPARE(spell(endings, lines), text);
}

void TestLineEndings::linesThatSaySomethingElseDoNotMatch_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("other text") << QStringLiteral("a\nx\nc");
    QTest::newRow("more text") << QStringLiteral("a\nb\nc\n");
    QTest::newRow("less text") << QStringLiteral("a\nb");
    QTest::newRow("a sign dropped") << QStringLiteral("a\nb c");
}

void TestLineEndings::linesThatSaySomethingElseDoNotMatch()
{
    QFETCH(QString, text);
    LineEndings endings;

    QVERIFY(!match(endings, text, threeLines));
}

void TestLineEndings::newLineTakesTheEndingOfItsPlace()
{
    LineEndings endings;
    QVERIFY(match(endings, QStringLiteral("a\r\nb\nc"), threeLines));

    endings.split(0);

    const QStringList lines{QStringLiteral("a"), QString(), QStringLiteral("b"),
                            QStringLiteral("c")};
    QCOMPARE(spell(endings, lines), QStringLiteral("a\r\n\r\nb\nc"));
}

void TestLineEndings::newLineInABrokenLineEnds()
{
    LineEndings endings;
    QVERIFY(match(endings, QStringLiteral("ab\r\nc"), threeLines));

    endings.split(0);

    const QStringList lines{QStringLiteral("a"), QStringLiteral("x"), QStringLiteral("b"),
                            QStringLiteral("c")};
    QCOMPARE(spell(endings, lines), QStringLiteral("a\r\nxb\r\nc"));
}

void TestLineEndings::newLineAtTheEndTakesTheUsualEnding()
{
    LineEndings endings;
    QVERIFY(match(endings, QStringLiteral("a\r\nb\r\nc\nlast"),
                  threeLines + QStringList{QStringLiteral("last")}));

    endings.split(3);

    QCOMPARE(endings.after(3), Ending::CrLf);
}

void TestLineEndings::joiningDropsTheEndingBetween()
{
    LineEndings endings;
    QVERIFY(match(endings, QStringLiteral("a\r\nb\nc"), threeLines));

    endings.join(1);

    QCOMPARE(spell(endings, {QStringLiteral("ab"), QStringLiteral("c")}), QStringLiteral("ab\nc"));
}

void TestLineEndings::everyOtherEndingStaysUnderRandomEditing()
{
    QRandomGenerator random(20261121);
    QStringList lines;
    QVector<Ending> model;
    for (int i = 0; i < 200; ++i) {
        lines.append(QString::number(i));
        model.append(Ending(random.bounded(1, 4)));
    }
    QString text;
    for (int i = 0; i < lines.size(); ++i)
        text += lines.at(i) + (i < lines.size() - 1 ? LineEndings::text(model.at(i)) : QString());
    model.removeLast();
    LineEndings endings;
    QVERIFY(match(endings, text, lines));

    for (int i = 0; i < 5000 && !model.isEmpty(); ++i) {
        if (random.bounded(2) == 0) {
            const int line = random.bounded(model.size());
            model.insert(line, model.at(line));
            endings.split(line);
        } else {
            const int line = random.bounded(1, model.size() + 1);
            model.remove(line - 1);
            endings.join(line);
        }
    }

    QCOMPARE(endings.lines(), model.size() + 1);
    for (int i = 0; i < model.size(); ++i)
        QCOMPARE(endings.after(i), model.at(i));
}

QTEST_GUILESS_MAIN(TestLineEndings)
#include "tst_lineendings.moc"
