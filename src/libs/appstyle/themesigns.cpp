// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "appstyle/themesigns_p.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

namespace APPSTYLE {

namespace {

/// The side that the drawings below count in, and the size of a sign.
constexpr int SIDE = 10;

QPainterPath lines(QStyle::StandardPixmap sign)
{
    QPainterPath path;
    switch (sign) {
    case QStyle::SP_ToolBarHorizontalExtensionButton:
        for (const int x : {1, 5}) {
            path.moveTo(x, 2);
            path.lineTo(x + 3, 5);
            path.lineTo(x, 8);
        }
        break;
    case QStyle::SP_ToolBarVerticalExtensionButton:
        for (const int y : {1, 5}) {
            path.moveTo(2, y);
            path.lineTo(5, y + 3);
            path.lineTo(8, y);
        }
        break;
    case QStyle::SP_TitleBarCloseButton:
        path.moveTo(2, 2);
        path.lineTo(8, 8);
        path.moveTo(8, 2);
        path.lineTo(2, 8);
        break;
    case QStyle::SP_TitleBarMinButton:
        path.moveTo(2, 7.5);
        path.lineTo(8, 7.5);
        break;
    case QStyle::SP_TitleBarMaxButton:
        path.addRect(QRectF(1.5, 1.5, 7, 7));
        break;
    case QStyle::SP_TitleBarNormalButton:
        path.addRect(QRectF(1.5, 3.5, 5, 5));
        path.moveTo(3.5, 3.5);
        path.lineTo(3.5, 1.5);
        path.lineTo(8.5, 1.5);
        path.lineTo(8.5, 6.5);
        path.lineTo(6.5, 6.5);
        break;
    default:
        break;
    }
    return path;
}

class SignEngine final : public QIconEngine
{
public:
    explicit SignEngine(QStyle::StandardPixmap sign)
        : m_sign(sign)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const QPalette palette = QGuiApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        paintThemeSign(painter, rect, m_sign, palette.color(group, QPalette::WindowText));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        const qreal scale = qreal(qMin(size.width(), size.height())) / SIDE;
        painter.scale(scale, scale);
        paint(&painter, QRect(0, 0, SIDE, SIDE), mode, state);
        return picture;
    }

    QSize actualSize(const QSize &size, QIcon::Mode, QIcon::State) override
    {
        return size.boundedTo(QSize(SIDE, SIDE));
    }

    QString key() const override { return QStringLiteral("APPSTYLE::SignEngine"); }
    QIconEngine *clone() const override { return new SignEngine(m_sign); }

private:
    const QStyle::StandardPixmap m_sign;
};

} // namespace

void paintThemeSign(QPainter *painter, const QRect &rect, QStyle::StandardPixmap sign,
                    const QColor &colour)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    // On whole pixels.
    const QPoint corner(rect.x() + (rect.width() - SIDE) / 2,
                        rect.y() + (rect.height() - SIDE) / 2);
    painter->translate(corner);
    painter->strokePath(lines(sign), QPen(colour, 1.2));
    painter->restore();
}

QIcon themeSign(QStyle::StandardPixmap sign)
{
    switch (sign) {
    case QStyle::SP_ToolBarHorizontalExtensionButton:
    case QStyle::SP_ToolBarVerticalExtensionButton:
    case QStyle::SP_TitleBarCloseButton:
    case QStyle::SP_TitleBarMinButton:
    case QStyle::SP_TitleBarMaxButton:
    case QStyle::SP_TitleBarNormalButton:
        return QIcon(new SignEngine(sign));
    default:
        return {};
    }
}

} // namespace APPSTYLE
