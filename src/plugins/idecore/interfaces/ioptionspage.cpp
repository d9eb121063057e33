// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/interfaces/ioptionspage.h>

namespace Core {

IOptionsPage::IOptionsPage(QObject *parent)
    : QObject(parent)
{
}

IOptionsPage::~IOptionsPage() = default;

QString IOptionsPage::id() const
{
    return m_id;
}

QString IOptionsPage::categoryId() const
{
    return m_categoryId;
}

QString IOptionsPage::displayName() const
{
    return m_displayName;
}

QString IOptionsPage::displayCategory() const
{
    return m_displayCategory;
}

QString IOptionsPage::categoryIcon() const
{
    return m_categoryIcon;
}

void IOptionsPage::setId(const QString &id)
{
    m_id = id;
}

void IOptionsPage::setCategoryId(const QString &categoryId)
{
    m_categoryId = categoryId;
}

void IOptionsPage::setDisplayName(const QString &displayName)
{
    m_displayName = displayName;
}

void IOptionsPage::setDisplayCategory(const QString &displayCategory)
{
    m_displayCategory = displayCategory;
}

void IOptionsPage::setCategoryIcon(const QString &categoryIcon)
{
    m_categoryIcon = categoryIcon;
}

} // namespace Core
