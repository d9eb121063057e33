// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/externaleditors/externaleditoroptionpage_p.h>

#include "ui_externaleditoroptionpage.h"

#include <idecore/externaleditors/externaleditormanager.h>
#include <idecore/externaleditors/externaleditormodel_p.h>

#include <QItemSelectionModel>

namespace Core {

ExternalEditorOptionPage::ExternalEditorOptionPage(QObject *parent)
    : IOptionsPage(parent)
{
    setId(QStringLiteral("BA.ExtEditor"));
    setCategoryId(QStringLiteral("BA.ExtEditor"));
    setDisplayName(tr("External Editor"));
    setDisplayCategory(tr("External Editor"));
    setCategoryIcon(QStringLiteral(":/core/image/exteditor.png"));
}

ExternalEditorOptionPage::~ExternalEditorOptionPage()
{
    ExternalEditorOptionPage::finish();
}

QWidget *ExternalEditorOptionPage::widget()
{
    if (!m_widget) {
        m_widget = new QWidget;
        ui = std::make_unique<Ui_ExternalEditorOptionPage>();
        ui->setupUi(m_widget);
        initUi();
    }
    return m_widget;
}

void ExternalEditorOptionPage::initUi()
{
    ui->btnRemove->setEnabled(false);
    ui->btnDefault->setEnabled(false);
    ui->useExtEditorCheckBox->setChecked(ExternalEditorManager::isUseExtEditor());
    connect(ui->btnAdd, &QPushButton::clicked, ui->tableView, &ExternalEditorTable::addEditor);
    connect(ui->btnRemove, &QPushButton::clicked, ui->tableView,
            &ExternalEditorTable::removeEditor);
    connect(ui->tableView, &ExternalEditorTable::dataSelected, this,
            &ExternalEditorOptionPage::setDataRemovable);
    connect(ui->tableView, &ExternalEditorTable::dataSelected, this,
            &ExternalEditorOptionPage::updateMakeDefaultBtn);
    connect(ui->btnDefault, &QPushButton::clicked, ui->tableView,
            &ExternalEditorTable::makeDefaultEditor);
}

void ExternalEditorOptionPage::setDataRemovable(bool on)
{
    ui->btnRemove->setEnabled(on);
}

void ExternalEditorOptionPage::updateMakeDefaultBtn(bool selected)
{
    if (!selected || ui->tableView->selectionModel()->selectedRows().size() != 1) {
        ui->btnDefault->setEnabled(false);
        return;
    }
    const QModelIndex current = ui->tableView->currentIndex();
    if (current.isValid())
        ui->btnDefault->setEnabled(!ui->tableView->editorModel()->isDefault(current.row()));
}

void ExternalEditorOptionPage::apply()
{
    // Another owner may have destroyed the widget, and the form's parts with it.
    if (m_widget)
        applySetting();
}

void ExternalEditorOptionPage::applySetting()
{
    // The first call reads the settings anew, which would undo what is changed in memory
    // before it: so it comes ahead of the data, and not at some later time.
    ExternalEditorManager::instance();
    ui->tableView->applyData();
    ExternalEditorManager::setUseExtEdtior(ui->useExtEditorCheckBox->isChecked());
    ExternalEditorManager::saveEditors();
}

void ExternalEditorOptionPage::finish()
{
    delete m_widget; // wherever the dialog has put it
    ui.reset();
}

} // namespace Core
