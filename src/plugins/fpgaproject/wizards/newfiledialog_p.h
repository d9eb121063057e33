// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_WIZARDS_NEWFILEDIALOG_P_H
#define FPGAPROJECT_WIZARDS_NEWFILEDIALOG_P_H

#include <fpgaproject/fpgaproject_export.h>
#include <fpgaproject/hdl/sourcetemplate_p.h>

#include <QDialog>

class QCheckBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace Fpga {

class PortTable;
struct NewItemSettings;

/// Asks for what a new file is to hold and writes it.
class FPGAPROJECT_EXPORT NewFileDialog final : public QDialog
{
    Q_OBJECT
public:
    /// @p directory need not exist; it is made with the file.
    NewFileDialog(FileKind kind, const QString &directory, QWidget *parent = nullptr);
    ~NewFileDialog() override;

    /// Begins with what the user wants in general.
    void propose(const NewItemSettings &wanted);

    /// The path of the file; once accepted it is there.
    [[nodiscard]] QString filePath() const;

    /// Closes the dialog after it has written the file; where it could not, or an
    /// existing file is to stay, the dialog stays open.
    void accept() override;

private:
    /// The text that would be written, or why none would be.
    void showWhatComes();
    void onNameEdited();
    void browse();
    [[nodiscard]] SourceTemplate source() const;
    /// Empty when the file can be made.
    [[nodiscard]] QString fault() const;

    const FileKind m_kind;
    QLineEdit *m_name = nullptr;
    QLineEdit *m_fileName = nullptr;
    QLineEdit *m_directory = nullptr;
    PortTable *m_ports = nullptr;
    QCheckBox *m_header = nullptr;
    QPlainTextEdit *m_preview = nullptr;
    QLabel *m_error = nullptr;
    QDialogButtonBox *m_buttons = nullptr;
    /// Named in the header; empty for nobody.
    QString m_author;
    /// Until the user writes one of their own.
    bool m_fileNameFollows = true;
};

} // namespace Fpga

#endif // FPGAPROJECT_WIZARDS_NEWFILEDIALOG_P_H
