// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_INTERFACES_IOPTIONSPAGE_H
#define IDECORE_INTERFACES_IOPTIONSPAGE_H

#include <idecore/idecore_export.h>

#include <QObject>
#include <QString>

class QWidget;

namespace Core {

/// A page of the Options dialog.
///
/// Put into the object pool by its plugin, which owns it. The constructor of
/// the implementing class sets the five texts.
class IDECORE_EXPORT IOptionsPage : public QObject
{
    Q_OBJECT
public:
    explicit IOptionsPage(QObject *parent = nullptr);
    ~IOptionsPage() override;

    /// Unique within its category; the Options dialog is opened at a page by it.
    [[nodiscard]] QString id() const;
    /// The category that the page belongs to; categories are sorted by it.
    [[nodiscard]] QString categoryId() const;
    /// The title of the page's tab.
    [[nodiscard]] QString displayName() const;
    /// The title of the category.
    [[nodiscard]] QString displayCategory() const;
    /// The resource path of the category's icon.
    [[nodiscard]] QString categoryIcon() const;

    /// The page's widget, made on the first call after construction or
    /// finish(). The page owns it, the Options dialog only shows it.
    [[nodiscard]] virtual QWidget *widget() = 0;
    /// Stores what the user has edited.
    virtual void apply() = 0;
    /// The dialog has been closed, accepted or not: the page deletes its widget.
    virtual void finish() = 0;

protected:
    void setId(const QString &id);
    void setCategoryId(const QString &categoryId);
    void setDisplayName(const QString &displayName);
    void setDisplayCategory(const QString &displayCategory);
    void setCategoryIcon(const QString &categoryIcon);

private:
    QString m_id;
    QString m_categoryId;
    QString m_displayName;
    QString m_displayCategory;
    QString m_categoryIcon;
};

} // namespace Core

#endif // IDECORE_INTERFACES_IOPTIONSPAGE_H
