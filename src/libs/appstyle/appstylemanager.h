// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APPSTYLE_APPSTYLEMANAGER_H
#define APPSTYLE_APPSTYLEMANAGER_H

#include <appstyle/appstyle_export.h>

#include <QObject>
#include <QString>

#include <memory>

namespace APPSTYLE {

/// The light theme, which is also what an empty or unknown name means.
APPSTYLE_EXPORT extern const QString THEME_CLASSIC;
APPSTYLE_EXPORT extern const QString THEME_DARK;

/// The look of the whole application. GUI thread only.
class APPSTYLE_EXPORT AppStyleManager final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(AppStyleManager)
public:
    static AppStyleManager *instance();
    ~AppStyleManager() override;

    /// Applies the theme named by the key "Theme" of the user's settings.
    void updateStyle();
    /// Applies @p theme to the application at once; nothing is stored.
    void setAppStyle(const QString &theme);
    [[nodiscard]] QString currentTheme() const;
    void setCurrentTheme(const QString &theme);

Q_SIGNALS:
    /// The application's style and palette now are those of @p theme.
    void themeChanged(const QString &theme);

private:
    AppStyleManager();

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace APPSTYLE

#endif // APPSTYLE_APPSTYLEMANAGER_H
