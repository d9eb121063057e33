// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/options/pagetabs_p.h>

#include <QLayoutItem>
#include <QStackedWidget>
#include <QStyle>
#include <QStyleOptionTabWidgetFrame>
#include <QTabBar>

namespace Core {
namespace private_impl {

PageTabs::PageTabs(QWidget *parent)
    : QTabWidget(parent)
{
    connect(this, &QTabWidget::currentChanged, this, &QWidget::updateGeometry);
}

PageTabs::~PageTabs() = default;

QSize PageTabs::sizeHint() const
{
    if (!currentWidget())
        return QTabWidget::sizeHint();
    // Within the limits that the page has set itself, as in any layout.
    return around(QWidgetItem(currentWidget()).sizeHint(), tabBar()->sizeHint());
}

QSize PageTabs::minimumSizeHint() const
{
    if (!currentWidget())
        return QTabWidget::minimumSizeHint();
    return around(QWidgetItem(currentWidget()).minimumSize(), tabBar()->minimumSizeHint());
}

bool PageTabs::hasHeightForWidth() const
{
    return currentWidget() && currentWidget()->hasHeightForWidth();
}

int PageTabs::heightForWidth(int width) const
{
    if (!currentWidget())
        return QTabWidget::heightForWidth(width);
    const QSize tabs = tabBar()->sizeHint();
    const int frame = around({0, 0}, {0, 0}).width();
    const int height = QWidgetItem(currentWidget()).heightForWidth(width - frame);
    return around({width - frame, height}, tabs).height();
}

void PageTabs::resizeEvent(QResizeEvent *event)
{
    QTabWidget::resizeEvent(event);
    auto *pages = findChild<QStackedWidget *>(QString(), Qt::FindDirectChildrenOnly);
    if (isVisible() || !pages)
        return;
    // What holds the pages would measure all of them to be shown, had it no size.
    QStyleOptionTabWidgetFrame option;
    initStyleOption(&option);
    pages->setGeometry(style()->subElementRect(QStyle::SE_TabWidgetTabContents, &option, this));
}

QSize PageTabs::around(const QSize &page, const QSize &tabs) const
{
    QStyleOptionTabWidgetFrame option;
    initStyleOption(&option);
    const QSize contents(qMax(page.width(), tabs.width()), page.height() + tabs.height());
    return style()->sizeFromContents(QStyle::CT_TabWidget, &option, contents, this);
}

} // namespace private_impl
} // namespace Core
