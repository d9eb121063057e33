// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_FAILEDEDITOR_P_H
#define TEXTEDITOR_FAILEDEDITOR_P_H

#include <idecore/interfaces/ieditor.h>

namespace TextEditor {

/// Stands in for an editor that could not be made: opening any file fails with
/// the reason, which is the way a reason reaches the user.
class FailedEditor final : public Core::IEditor
{
    Q_OBJECT
public:
    explicit FailedEditor(const QString &reason, QWidget *parent = nullptr);

    [[nodiscard]] int currentLine() const override;
    bool open(const QString &fileName, QString *errorString) override;
    [[nodiscard]] QString fileName() const override;
    [[nodiscard]] bool isModified() const override;
    bool save(QString *errorString) override;
    bool saveAs(const QString &fileName, QString *errorString) override;

private:
    bool fail(QString *errorString) const;

    const QString m_reason;
};

} // namespace TextEditor

#endif // TEXTEDITOR_FAILEDEDITOR_P_H
