// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_OPTIONS_CATEGORYLISTVIEWDELEGATE_P_H
#define IDECORE_OPTIONS_CATEGORYLISTVIEWDELEGATE_P_H

#include <QStyledItemDelegate>

namespace Core {
namespace private_impl {

/// Gives every entry room for its icon.
class CategoryListViewDelegate final : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit CategoryListViewDelegate(QObject *parent = nullptr);
    ~CategoryListViewDelegate() override;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const override;
};

} // namespace private_impl
} // namespace Core

#endif // IDECORE_OPTIONS_CATEGORYLISTVIEWDELEGATE_P_H
