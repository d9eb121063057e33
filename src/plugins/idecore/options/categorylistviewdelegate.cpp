// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/options/categorylistviewdelegate_p.h>

namespace Core {
namespace private_impl {

namespace {

constexpr int MIN_HEIGHT = 32;

} // namespace

CategoryListViewDelegate::CategoryListViewDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

CategoryListViewDelegate::~CategoryListViewDelegate() = default;

QSize CategoryListViewDelegate::sizeHint(const QStyleOptionViewItem &option,
                                         const QModelIndex &index) const
{
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width(), qMax(size.height(), MIN_HEIGHT)};
}

} // namespace private_impl
} // namespace Core
