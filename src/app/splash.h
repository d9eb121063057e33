// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef APP_SPLASH_H
#define APP_SPLASH_H

#include <QWidget>

/// What is seen until the main window appears: the program's name and what is
/// being started. Drawn, not an image, so that it costs next to nothing and is
/// sharp on every screen.
class Splash final : public QWidget
{
    Q_OBJECT
public:
    Splash();

    /// Shows @p text at once, without waiting for the event loop.
    void showMessage(const QString &text);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QRect textRect() const;
    [[nodiscard]] QRect messageRect() const;

    QString m_message;
};

#endif // APP_SPLASH_H
