// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_NEWDIALOG_SHOWDISABLEITEMDELEGATE_P_H
#define IDECORE_NEWDIALOG_SHOWDISABLEITEMDELEGATE_P_H

#include <QStyledItemDelegate>

namespace Core {

/// Paints disabled items like enabled ones.
class ShowDisableItemDelegate final : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};

} // namespace Core

#endif // IDECORE_NEWDIALOG_SHOWDISABLEITEMDELEGATE_P_H
