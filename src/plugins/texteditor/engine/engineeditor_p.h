// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ENGINE_ENGINEEDITOR_P_H
#define TEXTEDITOR_ENGINE_ENGINEEDITOR_P_H

#include <texteditor/abstracttexteditor.h>
#include <texteditor/engine/diskstate_p.h>
#include <texteditor/engine/lineendings_p.h>
#include <texteditor/engine/textfile_p.h>
#include <texteditor/engine/textjournal_p.h>

#include <KTextEditor/Message>

#include <QPointer>

#include <functional>
#include <memory>

class QLabel;
class QLineEdit;

namespace KTextEditor {
class Document;
class View;
} // namespace KTextEditor

namespace TextEditor {

class KeptText;
class ViewKeys;

/// An editor on a KTextEditor document and its one view.
///
/// KTextEditor loads, shows and changes the text. The bytes are read for their
/// encoding and written here, so that only what the user changed changes in the
/// file, and so that a save happens as a whole or not at all. What is unsaved is
/// kept in a journal, which outlives the process and then is offered.
class EngineEditor final : public AbstractTextEditor
{
    Q_OBJECT
public:
    /// @p theme is the highlighting theme.
    explicit EngineEditor(const QString &theme);
    ~EngineEditor() override;

    [[nodiscard]] int currentLine() const override;
    void setReadOnly(bool readOnly) override;
    bool open(const QString &fileName, QString *errorString) override;
    [[nodiscard]] QString fileName() const override;
    [[nodiscard]] bool isModified() const override;
    bool save(QString *errorString) override;
    bool saveAs(const QString &fileName, QString *errorString) override;
    void goToLine(int line, int column) override;
    void onActivated() override;

    [[nodiscard]] bool canPerform(Command command) const override;
    void perform(Command command) override;

    void setTheme(const QString &theme);

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    // Files
    bool load(const QString &fileName, QString *errorString);
    void reload();
    void showFileName();
    void noteContents(const TextFile &file, bool loadedWhole);
    [[nodiscard]] std::optional<QByteArray> encodedText(QString *errorString);
    bool write(const QString &fileName, QString *errorString);
    void onFileTouched(const QString &path);
    void checkDisk();
    void showDiskChange(DiskState::Change change);
    /// Shows @p text above the document with a button for each of @p actions,
    /// which the message owns, and one to close it.
    KTextEditor::Message *showMessage(const QString &text, KTextEditor::Message::MessageType type,
                                      const QList<QAction *> &actions = {});
    /// The same without the button to close it.
    KTextEditor::Message *showQuestion(const QString &text, KTextEditor::Message::MessageType type,
                                       const QList<QAction *> &actions);
    void watch(const QString &fileName);
    [[nodiscard]] LineEndings::Ending endingAfter(int line) const;

    // Recovery
    void connectJournal();
    /// Keeps what @p change tells the journal, or all where it is not active.
    void keep(const std::function<void()> &change);
    void beginJournal();
    void flushJournal();
    void offerKeptText();
    void recover();
    void giveUpKeptText();

    // State
    void applyReadOnly();
    void onModifiedChanged();
    void updateStatus();
    [[nodiscard]] bool askToClose();

    // Commands
    void connectCommands();
    [[nodiscard]] QLineEdit *focusedField() const;
    [[nodiscard]] QAction *viewAction(Command command) const;

    const std::unique_ptr<KTextEditor::Document> m_document;
    // Owned by the document, which is destroyed before the widgets are.
    KTextEditor::View *m_view = nullptr;
    ViewKeys *m_keys = nullptr;
    QLabel *m_status = nullptr;
    QString m_fileName;
    QString m_watchedFile;
    TextFile m_file;
    LineEndings m_endings;
    // What of the file on disk the text is based on.
    DiskState m_disk;
    QPointer<KTextEditor::Message> m_diskMessage;
    DiskState::Change m_shownChange = DiskState::Change::None;
    TextJournal m_journal;
    bool m_journalFailed = false;
    // Unsaved text of an earlier process that the user has to decide about.
    std::unique_ptr<KeptText> m_keptText;
    QPointer<KTextEditor::Message> m_keptMessage;
    QPointer<KTextEditor::Message> m_encodingMessage;
    // The text is not what the file says: writing it would lose something.
    bool m_inexact = false;
    bool m_modified = false;
    bool m_loading = false;
};

} // namespace TextEditor

#endif // TEXTEDITOR_ENGINE_ENGINEEDITOR_P_H
