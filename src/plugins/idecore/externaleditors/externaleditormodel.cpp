// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/externaleditors/externaleditormodel_p.h>

#include <idecore/externaleditors/programicons_p.h>

#include <QFont>
#include <QIcon>

namespace Core {

namespace {

/// Hand-edited settings may name several; the registry uses the first.
QList<ExternalEditor> withOneDefault(QList<ExternalEditor> editors)
{
    bool found = false;
    for (ExternalEditor &editor : editors) {
        editor.isDefault = editor.isDefault && !found;
        found = found || editor.isDefault;
    }
    return editors;
}

} // namespace

ExternalEditorModel::ExternalEditorModel(const QList<ExternalEditor> &editors, QObject *parent)
    : QAbstractTableModel(parent)
    , m_editors(withOneDefault(editors))
    , m_headers({tr("Name"), tr("Program"), tr("Arguments")})
    , m_icons(new ProgramIcons(this))
{
    connect(m_icons, &ProgramIcons::found, this, &ExternalEditorModel::onIconsFound);
}

ExternalEditorModel::~ExternalEditorModel() = default;

QList<ExternalEditor> ExternalEditorModel::editors() const
{
    return m_editors;
}

bool ExternalEditorModel::isDefault(int row) const
{
    return m_editors.value(row).isDefault;
}

int ExternalEditorModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_editors.size());
}

int ExternalEditorModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_headers.size());
}

QVariant ExternalEditorModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0
        && section < m_headers.size()) {
        return m_headers.at(section);
    }
    return QAbstractTableModel::headerData(section, orientation, role);
}

QVariant ExternalEditorModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ExternalEditor &editor = m_editors.at(index.row());
    if (editor.name.isEmpty())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        switch (index.column()) {
        case NameColumn:
            return editor.name;
        case ProgramColumn:
            return editor.program;
        case ArgumentsColumn:
            return editor.arguments;
        default:
            return {};
        }
    case Qt::DecorationRole:
        return index.column() == NameColumn ? m_icons->icon(editor.program) : QVariant();
    case Qt::FontRole: {
        QFont font;
        if (editor.isDefault) {
            font.setItalic(true);
            font.setBold(true);
        }
        return font;
    }
    default:
        return {};
    }
}

bool ExternalEditorModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    ExternalEditor &editor = m_editors[index.row()];
    switch (index.column()) {
    case NameColumn:
        editor.name = value.toString();
        break;
    case ProgramColumn:
        editor.program = value.toString();
        break;
    default:
        editor.arguments = value.toString();
        break;
    }
    Q_EMIT dataChanged(index, index);
    return true;
}

void ExternalEditorModel::addData(const QString &name, const QString &program,
                                  const QString &arguments)
{
    const int row = int(m_editors.size());
    beginInsertRows({}, row, row);
    m_editors.append({name, program, arguments, row == 0});
    endInsertRows();
}

void ExternalEditorModel::removeData(const QModelIndex &index)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return;
    beginRemoveRows({}, index.row(), index.row());
    m_editors.removeAt(index.row());
    endRemoveRows();
}

void ExternalEditorModel::setEditorDefault(int row)
{
    if (row < 0 || row >= m_editors.size())
        return;
    beginResetModel();
    for (int i = 0; i < m_editors.size(); ++i)
        m_editors[i].isDefault = i == row;
    endResetModel();
}

void ExternalEditorModel::onIconsFound()
{
    if (!m_editors.isEmpty()) {
        Q_EMIT dataChanged(index(0, NameColumn), index(rowCount() - 1, NameColumn),
                           {Qt::DecorationRole});
    }
}

} // namespace Core
