// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <appstyle/appstylemanager.h>

#include <QApplication>
#include <QStyleFactory>

namespace APPSTYLE {

const QString THEME_CLASSIC = QStringLiteral("Classic");
const QString THEME_DARK = QStringLiteral("Dark");

class AppStyleManager::Private
{
public:
    QString theme = THEME_CLASSIC;
};

AppStyleManager *AppStyleManager::instance()
{
    static AppStyleManager manager;
    return &manager;
}

AppStyleManager::AppStyleManager()
    : d(std::make_unique<Private>())
{
}

AppStyleManager::~AppStyleManager() = default;

void AppStyleManager::updateStyle()
{
    setAppStyle(d->theme);
}

void AppStyleManager::setAppStyle(const QString &theme)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    Q_EMIT themeChanged(theme);
}

QString AppStyleManager::currentTheme() const
{
    return d->theme;
}

void AppStyleManager::setCurrentTheme(const QString &theme)
{
    d->theme = theme;
}

} // namespace APPSTYLE
