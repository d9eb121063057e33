// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "splash.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>

Splash::Splash()
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    // The program ends with its main window, never with this one.
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFixedSize(360, 140);
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

void Splash::showMessage(const QString &text)
{
    m_message = text;
    setAccessibleName(text); // What is drawn is read by nobody who cannot see it.
    // The event loop does not run yet, and a click here must do nothing.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents
                                    | QEventLoop::ExcludeSocketNotifiers);
    // Each message is paid for by the start, so only its line is painted.
    repaint(messageRect());
}

QRect Splash::textRect() const
{
    return rect().adjusted(28, 24, -24, -20);
}

QRect Splash::messageRect() const
{
    const QRect text = textRect();
    return {text.left(), text.center().y(), text.width(), rect().bottom() - text.center().y()};
}

void Splash::paintEvent(QPaintEvent *event)
{
    const QColor background(0x1f, 0x2a, 0x36);
    const QColor accent(0x3d, 0xae, 0xe9);
    QPainter painter(this);
    painter.fillRect(event->rect(), background);
    // One font for both: each further one is searched, loaded and rendered anew.
    if (!messageRect().contains(event->rect())) {
        painter.fillRect(QRect(0, 0, 6, height()), accent);
        painter.setPen(Qt::white);
        painter.drawText(textRect(), Qt::AlignTop | Qt::AlignLeft,
                         QCoreApplication::applicationName() + QLatin1Char(' ')
                             + QCoreApplication::applicationVersion());
    }
    painter.setPen(QColor(0xc0, 0xc8, 0xd0));
    painter.drawText(textRect(), Qt::AlignBottom | Qt::AlignLeft, m_message);
}
