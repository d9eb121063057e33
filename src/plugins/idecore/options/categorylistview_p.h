// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_OPTIONS_CATEGORYLISTVIEW_P_H
#define IDECORE_OPTIONS_CATEGORYLISTVIEW_P_H

#include <QListView>

namespace Core {
namespace private_impl {

/// A list that is as wide as its longest entry.
class CategoryListView final : public QListView
{
    Q_OBJECT
public:
    explicit CategoryListView(QWidget *parent = nullptr);
    ~CategoryListView() override;

    [[nodiscard]] QSize sizeHint() const override;

    /// Reads the pictures of the entries in sight ahead of their painting.
    void readPictures() const;
};

} // namespace private_impl
} // namespace Core

#endif // IDECORE_OPTIONS_CATEGORYLISTVIEW_P_H
