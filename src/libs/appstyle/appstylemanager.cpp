// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <appstyle/appstylemanager.h>

#include "appstyle/themepalette_p.h"
#include "appstyle/themestyle_p.h"

#include <QApplication>
#include <QIcon>
#include <QSettings>
#include <QStyle>
#include <QTimer>
#include <QToolTip>
#include <QVariant>

namespace APPSTYLE {

const QString THEME_CLASSIC = QStringLiteral("Classic");
const QString THEME_DARK = QStringLiteral("Dark");

namespace {

QString known(const QString &theme)
{
    return theme == THEME_DARK ? THEME_DARK : THEME_CLASSIC;
}

QString storedTheme()
{
    const QSettings settings(QSettings::IniFormat, QSettings::UserScope,
                             QStringLiteral("KelmoWare"), QStringLiteral("IDE"));
    const QVariant value = settings.value(QStringLiteral("Theme"));
    return value.type() == QVariant::String ? value.toString() : QString();
}

/// The icons of standard dialogs and of the text editor, where the desktop has none.
void setIconTheme(const QString &theme)
{
    QIcon::setFallbackThemeName(theme == THEME_DARK ? QStringLiteral("breeze-dark")
                                                    : QStringLiteral("breeze"));
    // Naming the theme alone would leave icons that were looked up already.
    QIcon::setThemeSearchPaths(QIcon::themeSearchPaths());
}

} // namespace

class AppStyleManager::Private
{
public:
    QString theme = THEME_CLASSIC;
    QString shown; // empty until a theme was applied
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

QString AppStyleManager::currentTheme() const
{
    return d->theme;
}

void AppStyleManager::updateStyle()
{
    setAppStyle(storedTheme());
}

void AppStyleManager::setAppStyle(const QString &theme)
{
    d->theme = known(theme);
    if (d->shown == d->theme)
        return;
    d->shown = d->theme;

    // The palette goes first: a new style polishes every widget, which then is
    // done once. Where the style is in place already, only the palette changes.
    const QPalette palette = d->theme == THEME_DARK ? darkPalette() : lightPalette();
    QApplication::setPalette(palette);
    // Tool tips keep a palette of their own, taken from the desktop.
    QToolTip::setPalette(toolTipPalette(palette));
    // Later: at the start nothing shows these icons, and searching them takes
    // longer than all the rest of it.
    QTimer::singleShot(0, this, [this] { setIconTheme(d->shown); });
    // Where one widget has a style sheet of its own, what serves the others is it still.
    if (!qobject_cast<ThemeStyle *>(QApplication::style()))
        QApplication::setStyle(new ThemeStyle);
    Q_EMIT themeChanged(d->theme);
}

void AppStyleManager::setCurrentTheme(const QString &theme)
{
    d->theme = known(theme);
}

} // namespace APPSTYLE
