// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_OPTIONS_CATEGORYMODEL_P_H
#define IDECORE_OPTIONS_CATEGORYMODEL_P_H

#include <QAbstractListModel>
#include <QIcon>
#include <QList>
#include <QPointer>
#include <QString>

class QTabWidget;

namespace Core {

class IOptionsPage;

namespace private_impl {

/// The pages that share a category id.
struct Category
{
    QString id;
    QString displayName;
    QIcon icon;
    QList<IOptionsPage *> pages;
    /// Null until the category is first shown.
    QTabWidget *tabWidget = nullptr;
    /// What stands in the tab of each page: its widget, null once that is gone.
    /// As long as pages from then on.
    QList<QPointer<QWidget>> shown;
};

/// The list of categories, which belongs to somebody else and outlives the model.
class CategoryModel final : public QAbstractListModel
{
    Q_OBJECT
public:
    explicit CategoryModel(QObject *parent = nullptr);
    ~CategoryModel() override;

    void setCategories(const QList<Category *> &categories);

    [[nodiscard]] int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;

private:
    QList<Category *> m_categories;
    QIcon m_noIcon;
};

} // namespace private_impl
} // namespace Core

#endif // IDECORE_OPTIONS_CATEGORYMODEL_P_H
