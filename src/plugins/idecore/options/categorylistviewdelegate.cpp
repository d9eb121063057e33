// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/options/categorylistviewdelegate_p.h>

#include <QApplication>
#include <QIcon>
#include <QStyle>
#include <QWidget>

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
    const auto measured = [&] {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        return QSize(size.width(), qMax(size.height(), MIN_HEIGHT));
    };
    // Entries that say more of themselves than categories do.
    for (const int role : {Qt::SizeHintRole, Qt::FontRole, Qt::CheckStateRole}) {
        if (index.data(role).isValid())
            return measured();
    }
    if (option.features & QStyleOptionViewItem::WrapText)
        return measured();
    const qint64 icon = index.data(Qt::DecorationRole).value<QIcon>().cacheKey();
    const QStyle *const style = option.widget ? option.widget->style() : QApplication::style();
    Known &known = m_known[index.data(Qt::DisplayRole).toString()];
    if (!known.size.isValid() || known.icon != icon || known.iconSize != option.decorationSize
        || known.font != option.font || known.style != style) {
        known = {icon, option.decorationSize, option.font, style, measured()};
    }
    return known.size;
}

} // namespace private_impl
} // namespace Core
