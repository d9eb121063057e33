// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/options/categorylistviewdelegate_p.h>

#include <QIcon>
#include <QPainter>
#include <QPixmap>

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

void CategoryListViewDelegate::initStyleOption(QStyleOptionViewItem *option,
                                               const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    // The size of an entry is asked for without a selection.
    if (!(option->state & QStyle::State_Selected) || option->icon.isNull())
        return;
    QPixmap picture = option->icon.pixmap(option->decorationSize);
    // A file that is there and holds no picture.
    if (picture.isNull())
        return;
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), option->palette.color(QPalette::HighlightedText));
    painter.end();
    QIcon icon;
    icon.addPixmap(picture, QIcon::Normal);
    icon.addPixmap(picture, QIcon::Selected);
    option->icon = icon;
}

} // namespace private_impl
} // namespace Core
