// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APPSTYLE_APPSTYLEMANAGER_H
#define APPSTYLE_APPSTYLEMANAGER_H

#include <appstyle/appstyle_export.h>

#include <QObject>
#include <QString>

#include <memory>

namespace APPSTYLE {

/// The light theme, which is also what an empty or unknown name means. Names are
/// compared exactly.
APPSTYLE_EXPORT extern const QString THEME_CLASSIC;
APPSTYLE_EXPORT extern const QString THEME_DARK;

/// The look of the whole application: the Fusion style with a light or a dark
/// palette. GUI thread only; needs the application object.
class APPSTYLE_EXPORT AppStyleManager final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(AppStyleManager)
public:
    static AppStyleManager *instance();
    ~AppStyleManager() override;

    /// The theme by name: the one last applied, or what setCurrentTheme() noted
    /// after that. "Classic" before either; always one of the two constants.
    [[nodiscard]] QString currentTheme() const;

    /// Applies the theme named by the key "Theme" of the store "IDE" of the user's
    /// settings, read afresh; a value that is no text counts as none.
    void updateStyle();
    /// Applies @p theme at once, to open windows too; nothing is stored.
    void setAppStyle(const QString &theme);
    /// Notes @p theme as the current one without changing what is shown, for a
    /// settings page that has read the name and not applied it.
    void setCurrentTheme(const QString &theme);

Q_SIGNALS:
    /// Style and palette of the application are now those of @p theme, which is
    /// current. Sent only when the look became another one.
    void themeChanged(const QString &theme);

private:
    AppStyleManager();

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace APPSTYLE

#endif // APPSTYLE_APPSTYLEMANAGER_H
