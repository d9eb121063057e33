// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/options/categorylistview_p.h>

#include <QIcon>
#include <QItemSelectionModel>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>

namespace Core {
namespace private_impl {

namespace {

constexpr int MIN_WIDTH = 130;
constexpr int HEIGHT = 100;
// Keeps the longest entry off the edge.
constexpr int MARGIN = 5;

} // namespace

CategoryListView::CategoryListView(QWidget *parent)
    : QListView(parent)
{
}

CategoryListView::~CategoryListView() = default;

QSize CategoryListView::sizeHint() const
{
    int width = sizeHintForColumn(0) + 2 * frameWidth() + MARGIN;
    if (verticalScrollBar()->isVisible())
        width += verticalScrollBar()->width();
    return {qMax(width, MIN_WIDTH), HEIGHT};
}

void CategoryListView::readPictures() const
{
    const QSize size = iconSize();
    QPixmap nowhere(size * devicePixelRatioF());
    nowhere.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&nowhere);
    for (int row = 0; model() && row < model()->rowCount(); ++row) {
        const QModelIndex entry = model()->index(row, 0);
        if (!visualRect(entry).intersects(viewport()->rect()))
            continue;
        const bool selected = selectionModel()->isSelected(entry);
        const auto icon = entry.data(Qt::DecorationRole).value<QIcon>();
        icon.paint(&painter, QRect(QPoint(), size), Qt::AlignCenter,
                   selected ? QIcon::Selected : QIcon::Normal);
    }
}

} // namespace private_impl
} // namespace Core
