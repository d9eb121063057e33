// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Loading, saving and the changes of other programs to the file of an
// EngineEditor.

#include <texteditor/engine/engineeditor_p.h>

#include <texteditor/engine/documentaccess_p.h>
#include <texteditor/engine/filewriter_p.h>
#include <texteditor/engine/kepttext_p.h>

#include <KTextEditor/Document>
#include <KTextEditor/View>

#include <KDirWatch>

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QTextCodec>
#include <QTimer>
#include <QUrl>

namespace TextEditor {

bool EngineEditor::open(const QString &fileName, QString *errorString)
{
    if (!load(fileName, errorString))
        return false;
    watch(fileName);
    return true;
}

bool EngineEditor::load(const QString &fileName, QString *errorString)
{
    std::optional<TextFile> file = TextFile::read(fileName, errorString);
    if (!file)
        return false;
    {
        const QScopedValueRollback<bool> loading(m_loading, true);
        const bool again = !m_fileName.isEmpty();
        const bool wasModified = isModified();
        m_document->setModified(false); // or KTextEditor would ask about it
        m_document->setEncoding(QString::fromLatin1(file->codec));
        const bool loaded = again ? m_document->documentReload()
                                  : m_document->openUrl(QUrl::fromLocalFile(fileName));
        if (!loaded) {
            m_document->setModified(wasModified);
            if (errorString)
                *errorString = m_document->openingErrorMessage();
            return false;
        }
        // Broken lines and wrong characters are dealt with here.
        if (m_document->openingError())
            DocumentAccess::dismissMessages(m_view);
        DocumentAccess::highlightConstraints(m_document.get(), fileName);
    }
    const bool whole = m_endings.match(file->text, m_document->lines(),
                                       [this](int line) { return m_document->line(line); });
    m_fileName = fileName;
    noteContents(*file, whole);
    m_file = std::move(*file);
    // It has served; a document keeps its own.
    m_file.text.clear();
    m_disk = m_file.disk;
    showFileName();
    onModifiedChanged();
    offerKeptText();
    applyReadOnly();
    return true;
}

void EngineEditor::noteContents(const TextFile &file, bool loadedWhole)
{
    m_inexact = file.binary || !loadedWhole;
    if (file.binary) {
        showMessage(tr("This file is not text. It is shown for reading only."),
                    KTextEditor::Message::Warning);
    } else if (!loadedWhole) {
        showMessage(tr("This file holds characters that cannot be shown as they are. It is shown "
                       "for reading only, because saving would change it."),
                    KTextEditor::Message::Warning);
    } else if (!QFileInfo(m_fileName).isWritable()) {
        showMessage(tr("This file is write protected. Changes can only be saved under another "
                       "name."),
                    KTextEditor::Message::Information);
    }
}

void EngineEditor::reload()
{
    const KTextEditor::Cursor cursor = m_view->cursorPosition();
    QString reason;
    if (!load(m_fileName, &reason)) {
        showMessage(tr("The file could not be loaded again: %1").arg(reason),
                    KTextEditor::Message::Error);
        return;
    }
    m_view->setCursorPosition(cursor);
}

LineEndings::Ending EngineEditor::endingAfter(int line) const
{
    const int lines = m_document->lines();
    if (line == lines - 1)
        return LineEndings::Ending::None;
    const bool known = m_endings.isMixed() && m_endings.lines() == lines;
    return known ? m_endings.after(line) : m_endings.usual();
}

std::optional<QByteArray> EngineEditor::encodedText(QString *errorString)
{
    QTextCodec *const codec = QTextCodec::codecForName(m_file.codec);
    const bool unicode = m_file.codec.startsWith("UTF-");
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    QByteArray bytes = m_file.byteOrderMark;
    const int lines = m_document->lines();
    for (int i = 0; i < lines; ++i) {
        QString line = m_document->line(i);
        if (!unicode && !codec->canEncode(line)) {
            if (errorString) {
                *errorString = tr("Line %1 holds a character that the encoding of the file, %2, "
                                  "does not have.")
                                   .arg(i + 1)
                                   .arg(QString::fromLatin1(m_file.codec));
            }
            return std::nullopt;
        }
        line += LineEndings::text(endingAfter(i));
        bytes += codec->fromUnicode(line.constData(), line.size(), &state);
    }
    return bytes;
}

bool EngineEditor::write(const QString &fileName, QString *errorString)
{
    if (m_inexact) {
        if (errorString)
            *errorString =
                tr("It is shown for reading only: the text shown is not all of the file.");
        return false;
    }
    const std::optional<QByteArray> bytes = encodedText(errorString);
    if (!bytes) {
        if (!m_encodingMessage) {
            auto *convert = new QAction(tr("Use UTF-8"), this);
            connect(convert, &QAction::triggered, this, [this] {
                m_file.codec = "UTF-8";
                updateStatus();
            });
            m_encodingMessage = showMessage(
                tr("The text holds characters that the encoding of the file does not have. "
                   "The file has not been saved."),
                KTextEditor::Message::Error, {convert});
        }
        return false;
    }
    if (!FileWriter::write(fileName, *bytes, errorString, &m_disk))
        return false;
    delete m_diskMessage;
    return true;
}

bool EngineEditor::save(QString *errorString)
{
    const DiskState::Change change = m_disk.compare(m_fileName);
    if (change == DiskState::Change::Modified) {
        showDiskChange(change);
        if (errorString) {
            *errorString = tr("Another program has changed the file since it was loaded. Choose "
                              "above the text what to keep.");
        }
        return false;
    }
    if (!write(m_fileName, errorString))
        return false;
    DocumentAccess::markSaved(m_document.get());
    Q_EMIT saved();
    return true;
}

bool EngineEditor::saveAs(const QString &fileName, QString *errorString)
{
    if (!write(fileName, errorString))
        return false;
    // What is to be decided about the other file is decided when it is opened.
    delete m_keptMessage;
    m_keptText.reset();
    // Whoever is told that it is unmodified now finds its new name.
    m_fileName = fileName;
    showFileName();
    DocumentAccess::markSavedAs(m_document.get(), fileName);
    applyReadOnly();
    watch(fileName);
    Q_EMIT saved();
    return true;
}

void EngineEditor::watch(const QString &fileName)
{
    if (!m_watchedFile.isEmpty())
        KDirWatch::self()->removeFile(m_watchedFile);
    if (!fileName.isEmpty())
        KDirWatch::self()->addFile(fileName);
    m_watchedFile = fileName;
}

void EngineEditor::onFileTouched(const QString &path)
{
    // Programs that write in several steps are left the time to finish.
    if (path == m_fileName)
        QTimer::singleShot(200, this, &EngineEditor::checkDisk);
}

void EngineEditor::checkDisk()
{
    const DiskState::Change change = m_disk.compare(m_fileName);
    if (change == DiskState::Change::None)
        delete m_diskMessage;
    else
        showDiskChange(change);
}

void EngineEditor::showDiskChange(DiskState::Change change)
{
    // The text is the only copy then, so it counts as unsaved.
    if (change == DiskState::Change::Deleted && m_document->isReadWrite())
        m_document->setModified(true);
    // One notice is enough while nothing new has happened.
    if (m_diskMessage && m_shownChange == change)
        return;
    delete m_diskMessage;
    m_shownChange = change;
    if (change == DiskState::Change::Deleted) {
        m_diskMessage =
            showMessage(tr("Another program has deleted this file. The text is still here; saving "
                           "writes the file again."),
                        KTextEditor::Message::Warning);
        return;
    }
    auto *load = new QAction(tr("Load from Disk"), this);
    connect(load, &QAction::triggered, this, &EngineEditor::reload);
    auto *keep = new QAction(tr("Keep This Text"), this);
    connect(keep, &QAction::triggered, this, [this] {
        const std::optional<TextFile> file = TextFile::read(m_fileName, nullptr);
        m_disk = file ? file->disk : DiskState();
        m_document->setModified(true);
    });
    m_diskMessage = showMessage(
        isModified()
            ? tr("Another program has changed this file, and this text has unsaved changes.")
            : tr("Another program has changed this file."),
        KTextEditor::Message::Warning, {load, keep});
}

KTextEditor::Message *EngineEditor::showMessage(const QString &text,
                                                KTextEditor::Message::MessageType type,
                                                const QList<QAction *> &actions)
{
    return showQuestion(text, type, actions + QList<QAction *>{new QAction(tr("Close"), this)});
}

KTextEditor::Message *EngineEditor::showQuestion(const QString &text,
                                                 KTextEditor::Message::MessageType type,
                                                 const QList<QAction *> &actions)
{
    auto *message = new KTextEditor::Message(text.toHtmlEscaped(), type);
    message->setWordWrap(true);
    for (QAction *action : actions)
        message->addAction(action);
    message->setView(m_view);
    m_document->postMessage(message);
    return message;
}

} // namespace TextEditor
