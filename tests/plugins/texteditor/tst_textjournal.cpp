// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/fulldisk.h"

#include <texteditor/engine/kepttext_p.h>
#include <texteditor/engine/textjournal_p.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using TextEditor::KeptText;
using TextEditor::LineEndings;
using TextEditor::TextJournal;
using Ending = LineEndings::Ending;

namespace {

const QString FILE_NAME = QStringLiteral("/some/where/a.v");

/// Begins a journal with @p lines that end in LF.
bool begin(TextJournal *journal, const QStringList &lines)
{
    return journal->begin(FILE_NAME, {"digest", Ending::Lf, lines.size()}, [&lines](int line) {
        const bool last = line == lines.size() - 1;
        return TextJournal::Line{lines.at(line), last ? Ending::None : Ending::Lf};
    });
}

} // namespace

class TestTextJournal final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void nothingKeptIsNothingFound();
    void beginningIsKept();
    void everyChangeIsKept();
    void changesAnywhereGiveTheSameText();
    void endingsFollowTheirLines();
    void changesNotFlushedAreNotPromised();
    void cutJournalGivesWhatWasWhole();
    void beginningThatWasCutHoldsNothingAndGoes();
    void changeOutsideTheTextEndsTheReplay();
    void fileOfAnotherKindStays();
    void liveJournalIsNotFound();
    void twoJournalsOfOneFileAreBothFound();
    void discardedJournalIsGone();
    void foundTextStaysUntilDiscarded();
    void foundTextIsNotFoundTwice();
    void journalIsPrivate();
    void folderThatCannotBeMadeIsTold();
    void fullDiskIsToldAndLeavesNoHalfJournal();

private:
    [[nodiscard]] QString folder() const { return m_folder->filePath(QStringLiteral("unsaved")); }
    [[nodiscard]] std::unique_ptr<KeptText> find() const
    {
        return KeptText::find(folder(), FILE_NAME);
    }
    [[nodiscard]] QString only() const { return TextJournal::path(folder(), FILE_NAME, 0); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestTextJournal::nothingKeptIsNothingFound()
{
    QVERIFY(!find());
}

void TestTextJournal::beginningIsKept()
{
    {
        TextJournal journal(folder());
        QVERIFY(begin(&journal, {QStringLiteral("a"), QString(), QStringLiteral("\tb ")}));
    }

    const std::unique_ptr<KeptText> kept = find();

    QVERIFY(kept);
    QCOMPARE(kept->text(), QStringLiteral("a\n\n\tb "));
    QCOMPARE(kept->lines(), (QStringList{QStringLiteral("a"), QString(), QStringLiteral("\tb ")}));
    QCOMPARE(kept->baseDigest(), QByteArray("digest"));
}

void TestTextJournal::everyChangeIsKept()
{
    {
        TextJournal journal(folder());
        QVERIFY(begin(&journal, {QStringLiteral("one"), QStringLiteral("two")}));
        journal.insert(0, 3, QString::fromUtf8("\xe4\xb8\xad"));
        journal.remove(1, 0, 2);
        journal.wrap(0, 1);
        journal.unwrap(2);
        QVERIFY(journal.flush());
    }

    const std::unique_ptr<KeptText> kept = find();

    QVERIFY(kept);
    QCOMPARE(kept->text(), QString::fromUtf8("o\nne\xe4\xb8\xado"));
}

void TestTextJournal::changesAnywhereGiveTheSameText()
{
    QRandomGenerator random(20260101);
    QStringList lines{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")};
    {
        TextJournal journal(folder());
        QVERIFY(begin(&journal, lines));
        for (int i = 0; i < 5000; ++i) {
            const int line = random.bounded(lines.size());
            const int column = random.bounded(lines.at(line).size() + 1);
            switch (random.bounded(4)) {
            case 0:
                journal.insert(line, column, QString::number(i));
                lines[line].insert(column, QString::number(i));
                break;
            case 1: {
                const int length = random.bounded(lines.at(line).size() - column + 1);
                journal.remove(line, column, length);
                lines[line].remove(column, length);
                break;
            }
            case 2:
                journal.wrap(line, column);
                lines.insert(line + 1, lines.at(line).mid(column));
                lines[line].truncate(column);
                break;
            default:
                if (line == 0)
                    break;
                journal.unwrap(line);
                lines[line - 1] += lines.takeAt(line);
                break;
            }
        }
    }

    const std::unique_ptr<KeptText> kept = find();

    QVERIFY(kept);
    QCOMPARE(kept->lines(), lines);
    QCOMPARE(kept->text(), lines.join(QLatin1Char('\n')));
}

void TestTextJournal::endingsFollowTheirLines()
{
    {
        TextJournal journal(folder());
        const QVector<Ending> endings{Ending::CrLf, Ending::Lf, Ending::None, Ending::None};
        QVERIFY(journal.begin(FILE_NAME, {{}, Ending::CrLf, 4}, [&endings](int line) {
            return TextJournal::Line{QString(QLatin1Char(static_cast<char>('A' + line))),
                                     endings.at(line)};
        }));
        // Line c was broken for display; breaking it in earnest ends it as most.
        journal.wrap(2, 1);
        // The first goes into the second, whose ending stays.
        journal.unwrap(1);
        // What follows a broken line has its own.
        journal.wrap(0, 1);
    }

    const std::unique_ptr<KeptText> kept = find();

    QVERIFY(kept);
    const QStringList pieces{QStringLiteral("A\n"), QStringLiteral("B\n"), QStringLiteral("C\r\n"),
                             QStringLiteral("D")};
    QCOMPARE(kept->text(), pieces.join(QString()));
}

void TestTextJournal::changesNotFlushedAreNotPromised()
{
    TextJournal journal(folder());
    QVERIFY(begin(&journal, {QStringLiteral("a")}));
    const qint64 size = QFileInfo(only()).size();

    journal.insert(0, 0, QStringLiteral("x"));
    QCOMPARE(QFileInfo(only()).size(), size);
    QVERIFY(journal.flush());

    QVERIFY(QFileInfo(only()).size() > size);
}

void TestTextJournal::cutJournalGivesWhatWasWhole()
{
    qint64 base = 0;
    {
        TextJournal journal(folder());
        QVERIFY(begin(&journal, {QStringLiteral("ab")}));
        base = QFileInfo(only()).size();
        journal.insert(0, 2, QStringLiteral("c"));
        journal.wrap(0, 1);
    }
    QFile file(only());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    file.close();

    for (qint64 size = whole.size() - 1; size >= base; --size) {
        QVERIFY(QFile::resize(only(), size));
        const std::unique_ptr<KeptText> kept = find();
        QVERIFY(kept);
        QVERIFY2(kept->text() == QLatin1String("abc") || kept->text() == QLatin1String("ab"),
                 qPrintable(kept->text()));
    }
    QCOMPARE(find()->text(), QStringLiteral("ab"));
}

void TestTextJournal::beginningThatWasCutHoldsNothingAndGoes()
{
    {
        TextJournal journal(folder());
        QVERIFY(begin(&journal, {QStringLiteral("ab"), QStringLiteral("c")}));
    }
    const qint64 base = QFileInfo(only()).size();
    for (qint64 size = 0; size < base; ++size) {
        QFile::remove(only());
        {
            TextJournal journal(folder());
            QVERIFY(begin(&journal, {QStringLiteral("ab"), QStringLiteral("c")}));
        }
        QVERIFY(QFile::resize(only(), size));

        QVERIFY(!find());
        QVERIFY2(!QFile::exists(only()), qPrintable(QString::number(size)));
    }
}

void TestTextJournal::changeOutsideTheTextEndsTheReplay()
{
    {
        TextJournal journal(folder());
        QVERIFY(begin(&journal, {QStringLiteral("ab")}));
        journal.insert(0, 0, QStringLiteral("x"));
        journal.insert(7, 0, QStringLiteral("y"));
        journal.insert(0, 0, QStringLiteral("z"));
    }

    QCOMPARE(find()->text(), QStringLiteral("xab"));
}

void TestTextJournal::fileOfAnotherKindStays()
{
    QVERIFY(QDir().mkpath(folder()));
    QFile file(only());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(200, 'x'));
    file.close();

    QVERIFY(!find());

    QVERIFY(QFile::exists(only()));
}

void TestTextJournal::liveJournalIsNotFound()
{
    TextJournal journal(folder());
    QVERIFY(begin(&journal, {QStringLiteral("a")}));

    QVERIFY(!find());

    QVERIFY(QFile::exists(only()));
}

void TestTextJournal::twoJournalsOfOneFileAreBothFound()
{
    {
        TextJournal first(folder());
        TextJournal second(folder());
        QVERIFY(begin(&first, {QStringLiteral("a")}));
        QVERIFY(begin(&second, {QStringLiteral("b")}));
    }

    const std::unique_ptr<KeptText> one = find();
    const std::unique_ptr<KeptText> other = find();

    QVERIFY(one && other);
    QCOMPARE(one->text(), QStringLiteral("a"));
    QCOMPARE(other->text(), QStringLiteral("b"));
}

void TestTextJournal::discardedJournalIsGone()
{
    TextJournal journal(folder());
    QVERIFY(begin(&journal, {QStringLiteral("a")}));

    journal.discard();

    QVERIFY(!journal.isActive());
    QVERIFY(!QFile::exists(only()));
    // And another can begin.
    QVERIFY(begin(&journal, {QStringLiteral("b")}));
}

void TestTextJournal::foundTextStaysUntilDiscarded()
{
    {
        TextJournal journal(folder());
        QVERIFY(begin(&journal, {QStringLiteral("a")}));
    }
    QVERIFY(find());

    const std::unique_ptr<KeptText> again = find();
    QVERIFY(again);
    again->discard();

    QVERIFY(!find());
    QVERIFY(!QFile::exists(only()));
}

void TestTextJournal::foundTextIsNotFoundTwice()
{
    {
        TextJournal journal(folder());
        QVERIFY(begin(&journal, {QStringLiteral("a")}));
    }
    const std::unique_ptr<KeptText> kept = find();
    QVERIFY(kept);

    QVERIFY(!find());
}

void TestTextJournal::journalIsPrivate()
{
    TextJournal journal(folder());
    QVERIFY(begin(&journal, {QStringLiteral("a")}));

    QCOMPARE(QFileInfo(only()).permissions()
                 & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
             QFile::Permissions());
}

void TestTextJournal::folderThatCannotBeMadeIsTold()
{
    TextJournal journal(QStringLiteral("/proc/self/status/unsaved"));

    QVERIFY(!begin(&journal, {QStringLiteral("a")}));

    QVERIFY(!journal.isActive());
    QCOMPARE(journal.errorString(), QStringLiteral("Not a directory"));
}

void TestTextJournal::fullDiskIsToldAndLeavesNoHalfJournal()
{
    TextJournal journal(folder());
    QVERIFY(begin(&journal, {QStringLiteral("a")}));
    std::optional<FullDisk> full(1000);

    journal.insert(0, 0, QString(100000, QLatin1Char('x')));
    const bool flushed = journal.flush();

    full.reset();
    QVERIFY(!flushed);
    QCOMPARE(journal.errorString(), QStringLiteral("File too large"));
    QVERIFY(!journal.isActive());
    QVERIFY(!QFile::exists(only()));
}

QTEST_GUILESS_MAIN(TestTextJournal)
#include "tst_textjournal.moc"
