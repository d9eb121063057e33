// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_OPTIONS_CATEGORYLISTVIEWDELEGATE_P_H
#define IDECORE_OPTIONS_CATEGORYLISTVIEWDELEGATE_P_H

#include <QFont>
#include <QHash>
#include <QSize>
#include <QString>
#include <QStyledItemDelegate>

class QStyle;

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

private:
    /// What the size of an entry follows from, beside its text.
    struct Known
    {
        qint64 icon = 0;
        QSize iconSize;
        QFont font;
        const QStyle *style = nullptr;
        QSize size;
    };
    // A list asks twice before it is first shown, for its own width and for its entries.
    mutable QHash<QString, Known> m_known;
};

} // namespace private_impl
} // namespace Core

#endif // IDECORE_OPTIONS_CATEGORYLISTVIEWDELEGATE_P_H
