// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/externaleditors/externaleditortable_p.h>

#include <idecore/externaleditors/externaleditordialog_p.h>
#include <idecore/externaleditors/externaleditormanager.h>
#include <idecore/externaleditors/externaleditormodel_p.h>

#include <QHeaderView>
#include <QKeyEvent>
#include <QPersistentModelIndex>
#include <QPointer>

#include <algorithm>

namespace Core {

ExternalEditorTable::ExternalEditorTable(QWidget *parent)
    : QTableView(parent)
    , m_model(new ExternalEditorModel(ExternalEditorManager::editors(), this))
{
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    // Numbers that mean nothing, and a corner that only the mouse would reach.
    verticalHeader()->hide();
    // A long path keeps its end, which is the program.
    setWordWrap(false);
    setTextElideMode(Qt::ElideMiddle);
    // The Tab key goes on to the buttons.
    setTabKeyNavigation(false);
    setModel(m_model);
    // Columns of one width are as wide as the longest title needs.
    int width = horizontalHeader()->minimumSectionSize();
    for (int column = 0; column < m_model->columnCount(); ++column)
        width = std::max(width, horizontalHeader()->sectionSizeHint(column));
    horizontalHeader()->setMinimumSectionSize(width);
    connect(this, &QAbstractItemView::doubleClicked, this, &ExternalEditorTable::modifyEditor);
}

ExternalEditorTable::~ExternalEditorTable() = default;

ExternalEditorModel *ExternalEditorTable::editorModel() const
{
    return m_model;
}

void ExternalEditorTable::applyData() const
{
    ExternalEditorManager::applyData(m_model->editors());
}

void ExternalEditorTable::reset()
{
    QTableView::reset();
    // The selection goes without a word.
    Q_EMIT dataSelected(selectionModel()->hasSelection());
}

void ExternalEditorTable::addEditor()
{
    // Page, table and dialog may be destroyed while the dialog is open.
    const QPointer<ExternalEditorDialog> dialog = new ExternalEditorDialog(m_model, this);
    dialog->setWindowTitle(tr("Create an external editor"));
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return;
    if (accepted)
        m_model->addData(dialog->name(), dialog->program(), dialog->arguments());
    dialog->deleteLater();
}

void ExternalEditorTable::modifyEditor(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    const auto text = [&](int column) { return index.siblingAtColumn(column).data().toString(); };
    const QPersistentModelIndex place = index.siblingAtColumn(ExternalEditorModel::NameColumn);
    const QPointer<ExternalEditorDialog> dialog = new ExternalEditorDialog(m_model, this);
    dialog->setWindowTitle(tr("Modifying editor"));
    dialog->setCheckName(false);
    dialog->setTexts(text(ExternalEditorModel::NameColumn),
                     text(ExternalEditorModel::ProgramColumn),
                     text(ExternalEditorModel::ArgumentsColumn));
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return;
    if (accepted && place.isValid()) {
        const QModelIndex name = place;
        m_model->setData(name, dialog->name());
        m_model->setData(name.siblingAtColumn(ExternalEditorModel::ProgramColumn),
                         dialog->program());
        m_model->setData(name.siblingAtColumn(ExternalEditorModel::ArgumentsColumn),
                         dialog->arguments());
    }
    dialog->deleteLater();
}

void ExternalEditorTable::removeEditor()
{
    const QModelIndexList selected = selectionModel()->selectedRows();
    QList<QPersistentModelIndex> rows;
    for (const QModelIndex &index : selected)
        rows.append(index);
    // At once, not row by row: each change of the selection is told to others.
    clearSelection();
    // From below, so that each removal moves little.
    std::sort(rows.begin(), rows.end(),
              [](const auto &left, const auto &right) { return right < left; });
    for (const QPersistentModelIndex &row : qAsConst(rows)) {
        if (row.isValid())
            m_model->removeData(row);
    }
}

void ExternalEditorTable::makeDefaultEditor()
{
    m_model->setEditorDefault(currentIndex().row());
}

void ExternalEditorTable::keyPressEvent(QKeyEvent *event)
{
    // What a double click does, for those without a mouse.
    if (event->key() == Qt::Key_F2 && event->modifiers() == Qt::NoModifier)
        modifyEditor(currentIndex());
    else
        QTableView::keyPressEvent(event);
}

void ExternalEditorTable::selectionChanged(const QItemSelection &selected,
                                           const QItemSelection &deselected)
{
    Q_EMIT dataSelected(selectionModel()->hasSelection());
    QTableView::selectionChanged(selected, deselected);
}

} // namespace Core
