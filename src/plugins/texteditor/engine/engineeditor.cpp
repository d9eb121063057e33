// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/engineeditor_p.h>

#include <idecore/views/viewmanager.h>
#include <texteditor/engine/enginesettings_p.h>
#include <texteditor/engine/kepttext_p.h>
#include <texteditor/engine/viewkeys_p.h>

#include <KTextEditor/ConfigInterface>
#include <KTextEditor/Document>
#include <KTextEditor/Editor>
#include <KTextEditor/View>

#include <KDirWatch>

#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QTextDocument>
#include <QVBoxLayout>

namespace TextEditor {

EngineEditor::EngineEditor(const QString &theme)
    : m_document(KTextEditor::Editor::instance()->createDocument(nullptr))
    , m_journal(EngineSettings::recoveryFolder())
{
    m_view = m_document->createView(this);
    m_view->setStatusBarEnabled(false);
    m_keys = new ViewKeys(m_view);
    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("texteditorStatus"));
    m_status->setAlignment(Qt::AlignRight);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_view);
    // The contents margins of a label go whenever the style changes.
    auto *status = new QVBoxLayout;
    status->setContentsMargins(6, 1, 6, 1);
    status->addWidget(m_status);
    layout->addLayout(status);
    setFocusProxy(m_view);
    setTheme(theme);

    connect(m_document.get(), &KTextEditor::Document::modifiedChanged, this,
            &EngineEditor::onModifiedChanged);
    connect(m_document.get(), &KTextEditor::Document::lineWrapped, this,
            [this](KTextEditor::Document *, KTextEditor::Cursor position) {
                if (!m_loading && m_endings.isMixed())
                    m_endings.split(position.line());
            });
    connect(m_document.get(), &KTextEditor::Document::lineUnwrapped, this,
            [this](KTextEditor::Document *, int line) {
                if (!m_loading && m_endings.isMixed())
                    m_endings.join(line);
            });
    connect(m_view, &KTextEditor::View::cursorPositionChanged, this, &EngineEditor::updateStatus);
    KDirWatch *const watcher = KDirWatch::self();
    connect(watcher, &KDirWatch::dirty, this, &EngineEditor::onFileTouched);
    connect(watcher, &KDirWatch::created, this, &EngineEditor::onFileTouched);
    connect(watcher, &KDirWatch::deleted, this, &EngineEditor::onFileTouched);
    connectCommands();
    connectJournal();
}

EngineEditor::~EngineEditor()
{
    watch(QString());
    // The document's farewell concerns nobody any more.
    m_document->disconnect(this);
    m_view->disconnect(this);
}

int EngineEditor::currentLine() const
{
    return m_view->cursorPosition().line() + 1;
}

void EngineEditor::setReadOnly(bool readOnly)
{
    AbstractTextEditor::setReadOnly(readOnly);
    applyReadOnly();
}

QString EngineEditor::fileName() const
{
    return m_fileName;
}

bool EngineEditor::isModified() const
{
    return m_document->isModified();
}

void EngineEditor::goToLine(int line, int column)
{
    m_view->removeSelection();
    const int reached = qBound(0, line - 1, m_document->lines() - 1);
    m_view->setCursorPosition({reached, qBound(0, column - 1, m_document->lineLength(reached))});
}

void EngineEditor::onActivated()
{
    // The watch misses what happened within the second in which it began.
    if (!m_fileName.isEmpty())
        checkDisk();
}

void EngineEditor::setTheme(const QString &theme)
{
    auto *config = qobject_cast<KTextEditor::ConfigInterface *>(m_view);
    if (config && config->configValue(QStringLiteral("theme")).toString() != theme)
        config->setConfigValue(QStringLiteral("theme"), theme);
}

void EngineEditor::closeEvent(QCloseEvent *event)
{
    event->setAccepted(!isModified() || askToClose());
    // An editor that goes unasked leaves its text to be offered.
    if (event->isAccepted())
        m_journal.discard();
}

void EngineEditor::keyPressEvent(QKeyEvent *event)
{
    if (!m_keys->handleKeyFromField(event))
        AbstractTextEditor::keyPressEvent(event);
}

bool EngineEditor::askToClose()
{
    QWidget *const parent =
        Core::ViewManager::instance() ? Core::ViewManager::dialogParent() : window();
    QMessageBox box(QMessageBox::Warning, tr("Close Document"),
                    tr("The document \"%1\" has unsaved changes.").arg(shortTitle()),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, parent);
    box.setTextFormat(Qt::PlainText);
    // The text format is that of the first text only.
    box.setInformativeText(Qt::convertFromPlainText(
        tr("Do you want to save them to %1?").arg(QDir::toNativeSeparators(m_fileName))));
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Discard:
        return true;
    case QMessageBox::Save:
        break;
    default:
        return false;
    }
    QString reason;
    if (save(&reason))
        return true;
    QMessageBox failure(
        QMessageBox::Critical, tr("Close Document"),
        tr("\"%1\" could not be saved and stays open.").arg(QDir::toNativeSeparators(m_fileName))
            + QLatin1Char('\n') + reason,
        QMessageBox::Ok, parent);
    failure.setTextFormat(Qt::PlainText);
    failure.exec();
    return false;
}

void EngineEditor::applyReadOnly()
{
    // What is typed before there was a decision about unsaved text would be lost
    // by taking that text.
    const bool locked = isReadOnly() || m_inexact || m_keptText;
    if (m_document->isReadWrite() == locked)
        m_document->setReadWrite(!locked);
    Q_EMIT commandsChanged();
    updateStatus();
}

void EngineEditor::onModifiedChanged()
{
    if (m_loading || m_modified == isModified())
        return;
    m_modified = isModified();
    if (m_modified && !m_journal.isActive())
        beginJournal();
    else if (!m_modified)
        m_journal.discard();
    setWindowModified(m_modified);
    Q_EMIT modificationStateChanged(m_modified);
}

void EngineEditor::showFileName()
{
    setWindowFilePath(m_fileName);
    // The placeholder shows unsaved changes where documents stand as windows.
    const QString placeholder = QStringLiteral("[*]");
    setWindowTitle(QString(m_fileName).replace(placeholder, placeholder + placeholder)
                   + placeholder);
    setShortTitle(QFileInfo(m_fileName).fileName());
}

void EngineEditor::updateStatus()
{
    if (m_loading)
        return;
    const KTextEditor::Cursor cursor = m_view->cursorPosition();
    QString ending;
    if (m_endings.isMixed()) {
        ending = tr("mixed line ends");
    } else {
        switch (m_endings.usual()) {
        case LineEndings::Ending::CrLf:
            ending = QStringLiteral("CRLF");
            break;
        case LineEndings::Ending::Cr:
            ending = QStringLiteral("CR");
            break;
        default:
            ending = QStringLiteral("LF");
            break;
        }
    }
    QString text =
        tr("Line %1, Column %2   |   %3   |   %4")
            .arg(cursor.line() + 1)
            .arg(cursor.column() + 1)
            .arg(m_file.binary ? tr("binary") : QString::fromLatin1(m_file.codec), ending);
    if (!m_document->isReadWrite())
        text += QStringLiteral("   |   ") + tr("read only");
    m_status->setText(text);
    m_status->setToolTip(text); // whole where the window is narrow
}

} // namespace TextEditor
