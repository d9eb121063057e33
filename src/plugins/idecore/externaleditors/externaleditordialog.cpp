// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/externaleditors/externaleditordialog_p.h>

#include "ui_externaleditordialog.h"

#include <idecore/core/messages_p.h>
#include <idecore/externaleditors/externaleditormodel_p.h>
#include <utils/fileutils.h>

#include <QFileInfo>
#include <QPushButton>

#include <algorithm>
#include <array>

namespace Core {

namespace {

struct Proposal
{
    const char *program;
    const char *arguments;
};

constexpr std::array<Proposal, 6> PROPOSALS{{{"gvim", "%f +%l"},
                                             {"gedit", "%f +%l"},
                                             {"emacs", "%f +%l"},
                                             {"notepad++", "%f -n%l"},
                                             {"sublime", "%f:%l"},
                                             {"code", "-g %f:%l"}}};

QString proposedArguments(const QString &program)
{
    const QString name = QFileInfo(program).baseName();
    for (const Proposal &proposal : PROPOSALS) {
        if (name.compare(QLatin1String(proposal.program), Qt::CaseInsensitive) == 0)
            return QLatin1String(proposal.arguments);
    }
    return QStringLiteral("%f");
}

} // namespace

ExternalEditorDialog::ExternalEditorDialog(const ExternalEditorModel *model, QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui_ExternalEditorDialog>())
    , m_model(model)
{
    ui->setupUi(this);
    connect(ui->editName, &QLineEdit::textChanged, this, &ExternalEditorDialog::checkAcceptable);
    connect(ui->editPath, &QLineEdit::textChanged, this, &ExternalEditorDialog::checkAcceptable);
    connect(ui->editPath, &QLineEdit::textChanged, this, &ExternalEditorDialog::updateDefaultArgs);
    connect(ui->btnBrowse, &QPushButton::clicked, this, &ExternalEditorDialog::browse);
    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &ExternalEditorDialog::accept);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &ExternalEditorDialog::reject);
    checkAcceptable();
}

ExternalEditorDialog::~ExternalEditorDialog() = default;

QString ExternalEditorDialog::name() const
{
    return m_name;
}

QString ExternalEditorDialog::program() const
{
    return m_program;
}

QString ExternalEditorDialog::arguments() const
{
    return m_arguments;
}

void ExternalEditorDialog::setCheckName(bool check)
{
    m_checkName = check;
}

void ExternalEditorDialog::setTexts(const QString &name, const QString &program,
                                    const QString &arguments)
{
    ui->editName->setText(name);
    ui->editPath->setText(program);
    // Last, because a new path clears them.
    ui->editArgs->setText(arguments);
}

void ExternalEditorDialog::checkAcceptable()
{
    ui->buttonBox->button(QDialogButtonBox::Ok)
        ->setEnabled(!ui->editName->text().isEmpty() && !ui->editPath->text().isEmpty());
}

void ExternalEditorDialog::browse()
{
    const QString program = ui->editPath->text();
    const QString folder =
        program.isEmpty() ? QStringLiteral("/usr/bin") : QFileInfo(program).absolutePath();
    const QString chosen = Utils::FileUtils::getOpenFileName(this, QStringLiteral("ExternalEditor"),
                                                             tr("Select Executable File"), folder);
    if (!chosen.isEmpty())
        ui->editPath->setText(chosen);
}

void ExternalEditorDialog::updateDefaultArgs()
{
    ui->editArgs->clear();
    ui->editArgs->setPlaceholderText(proposedArguments(ui->editPath->text()));
}

void ExternalEditorDialog::accept()
{
    const QString name = ui->editName->text();
    const QList<ExternalEditor> editors = m_model->editors();
    const bool taken =
        std::any_of(editors.begin(), editors.end(),
                    [&](const ExternalEditor &editor) { return editor.name == name; });
    if (m_checkName && taken) {
        private_impl::showMessage(
            QMessageBox::Warning, this, QStringLiteral("Warning"),
            tr("There already has an editor named \"%1\", please choose another name.").arg(name));
        return;
    }
    m_name = name;
    m_program = ui->editPath->text();
    m_arguments =
        ui->editArgs->text().isEmpty() ? ui->editArgs->placeholderText() : ui->editArgs->text();
    QDialog::accept();
}

} // namespace Core
