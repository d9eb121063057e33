// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// How an EngineEditor keeps unsaved text, and offers what an earlier process
// has kept.

#include <texteditor/engine/engineeditor_p.h>

#include <texteditor/engine/enginesettings_p.h>
#include <texteditor/engine/kepttext_p.h>

#include <KTextEditor/Document>
#include <KTextEditor/View>

#include <QAction>
#include <QScopedValueRollback>

namespace TextEditor {

using KTextEditor::Cursor;
using KTextEditor::Document;

void EngineEditor::connectJournal()
{
    // After those that follow the line endings, which the journal asks for.
    const Document *const document = m_document.get();
    connect(document, &Document::textInserted, this,
            [this](Document *, Cursor position, const QString &text) {
                keep([&] { m_journal.insert(position.line(), position.column(), text); });
            });
    connect(document, &Document::textRemoved, this,
            [this](Document *, KTextEditor::Range range, const QString &text) {
                keep([&] {
                    m_journal.remove(range.start().line(), range.start().column(), text.size());
                });
            });
    connect(document, &Document::lineWrapped, this, [this](Document *, Cursor position) {
        keep([&] { m_journal.wrap(position.line(), position.column()); });
    });
    connect(document, &Document::lineUnwrapped, this,
            [this](Document *, int line) { keep([&] { m_journal.unwrap(line); }); });
    connect(document, &Document::editingFinished, this, &EngineEditor::flushJournal);
}

void EngineEditor::keep(const std::function<void()> &change)
{
    if (m_loading)
        return;
    if (m_journal.isActive())
        change();
    else
        beginJournal();
}

void EngineEditor::beginJournal()
{
    const TextJournal::Base base{m_disk.digest(), m_endings.usual(), m_document->lines()};
    const bool begun = m_journal.begin(m_fileName, base, [this](int line) {
        return TextJournal::Line{m_document->line(line), endingAfter(line)};
    });
    if (begun || m_journalFailed)
        return;
    // Told once, and tried again with every change.
    m_journalFailed = true;
    showMessage(tr("Unsaved text of this file cannot be kept for the case that the program ends "
                   "unexpectedly: %1")
                    .arg(m_journal.errorString()),
                KTextEditor::Message::Warning);
}

void EngineEditor::flushJournal()
{
    // One that failed has a hole, and begins anew with the whole text.
    if (!m_journal.flush())
        beginJournal();
}

void EngineEditor::offerKeptText()
{
    delete m_keptMessage;
    m_keptText.reset();
    // A text that may not be changed cannot take another.
    if (m_inexact)
        return;
    m_keptText = KeptText::find(EngineSettings::recoveryFolder(), m_fileName);
    if (!m_keptText)
        return;
    auto *take = new QAction(tr("Recover Text"), this);
    connect(take, &QAction::triggered, this, &EngineEditor::recover);
    auto *discard = new QAction(tr("Discard"), this);
    connect(discard, &QAction::triggered, this, &EngineEditor::giveUpKeptText);
    QString text = tr("The program ended before changes to this file were saved. They were kept "
                      "and can be recovered.");
    if (m_keptText->baseDigest() != m_disk.digest())
        text += QLatin1Char(' ')
                + tr("The file itself has been changed since then; recovering takes the place of "
                     "those changes.");
    m_keptMessage = showQuestion(text, KTextEditor::Message::Warning, {take, discard});
}

void EngineEditor::recover()
{
    const std::unique_ptr<KeptText> kept = std::move(m_keptText);
    m_document->setReadWrite(true);
    {
        const QScopedValueRollback<bool> loading(m_loading, true);
        m_document->replaceText(m_document->documentRange(), kept->lines());
    }
    const bool whole = m_endings.match(kept->text(), m_document->lines(),
                                       [this](int line) { return m_document->line(line); });
    if (!whole)
        qWarning("The line ends of recovered text are not those that it had.");
    applyReadOnly();
    onModifiedChanged();
    // Only once it is kept again.
    if (m_journal.isActive())
        kept->discard();
    checkDisk();
}

void EngineEditor::giveUpKeptText()
{
    m_keptText->discard();
    m_keptText.reset();
    applyReadOnly();
    checkDisk();
}

} // namespace TextEditor
