// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/newdialog/showdisableitemdelegate_p.h>

namespace Core {

void ShowDisableItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    QStyleOptionViewItem enabled(option);
    enabled.state |= QStyle::State_Enabled;
    QStyledItemDelegate::paint(painter, enabled, index);
}

} // namespace Core
