// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/options/categorylistview_p.h>

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

} // namespace private_impl
} // namespace Core
