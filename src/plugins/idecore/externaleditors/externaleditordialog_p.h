// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_EXTERNALEDITORS_EXTERNALEDITORDIALOG_P_H
#define IDECORE_EXTERNALEDITORS_EXTERNALEDITORDIALOG_P_H

#include <idecore/idecore_export.h>

#include <QDialog>
#include <QString>

#include <memory>

namespace Core {

class ExternalEditorModel;
class Ui_ExternalEditorDialog;

/// Asks for the texts of one external editor and proposes the arguments that fit
/// well-known programs.
class IDECORE_EXPORT ExternalEditorDialog final : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(ExternalEditorDialog)
public:
    /// Names are checked against those in @p model, which has to outlive the dialog.
    explicit ExternalEditorDialog(const ExternalEditorModel *model, QWidget *parent = nullptr);
    ~ExternalEditorDialog() override;

    // What was accepted; empty before.
    [[nodiscard]] QString name() const;
    [[nodiscard]] QString program() const;
    [[nodiscard]] QString arguments() const;

    /// Whether a name that the model has already is refused, as it is at first.
    void setCheckName(bool check);
    void setTexts(const QString &name, const QString &program, const QString &arguments);

public Q_SLOTS:
    void checkAcceptable();
    void browse();
    void updateDefaultArgs();
    void accept() override;

private:
    const std::unique_ptr<Ui_ExternalEditorDialog> ui;
    const ExternalEditorModel *const m_model;
    QString m_name;
    QString m_program;
    QString m_arguments;
    bool m_checkName = true;
};

} // namespace Core

#endif // IDECORE_EXTERNALEDITORS_EXTERNALEDITORDIALOG_P_H
