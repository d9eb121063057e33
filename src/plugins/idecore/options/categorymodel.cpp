// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/options/categorymodel_p.h>

#include <QPixmap>

namespace Core {
namespace private_impl {

namespace {

/// Keeps the titles of categories without an icon in line with the others.
QIcon transparentIcon()
{
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::transparent);
    return QIcon(pixmap);
}

} // namespace

CategoryModel::CategoryModel(QObject *parent)
    : QAbstractListModel(parent)
    , m_noIcon(transparentIcon())
{
}

CategoryModel::~CategoryModel() = default;

void CategoryModel::setCategories(const QList<Category *> &categories)
{
    beginResetModel();
    m_categories = categories;
    endResetModel();
}

int CategoryModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_categories.size();
}

QVariant CategoryModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_categories.size())
        return {};
    const Category *category = m_categories.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return category->displayName;
    case Qt::DecorationRole:
        return category->icon.isNull() ? m_noIcon : category->icon;
    default:
        return {};
    }
}

} // namespace private_impl
} // namespace Core
