// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "appstyle/frametile_p.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QStyleOption>
#include <QTransform>

namespace APPSTYLE {

namespace {

/// As far as a frame reaches into its rectangle.
constexpr int CORNER = 4;
/// Between the corners, the pixel that is drawn out to the length of the edge.
constexpr int MIDDLE = 1;
constexpr int SIDE = 2 * CORNER + MIDDLE;

bool isWhole(qreal number)
{
    return qFuzzyIsNull(number - qRound(number));
}

/// Whether pixels of the picture fall on pixels of the device.
bool fitsPixels(const QPainter *painter)
{
    const qreal ratio = painter->device()->devicePixelRatioF();
    const QTransform &transform = painter->deviceTransform();
    return painter->paintEngine()->type() == QPaintEngine::Raster && isWhole(ratio)
           && transform.type() <= QTransform::TxScale && qFuzzyCompare(transform.m11(), ratio)
           && qFuzzyCompare(transform.m22(), ratio) && isWhole(transform.dx())
           && isWhole(transform.dy());
}

QPixmap frameTile(const QStyleOption *option, qreal ratio,
                  const std::function<void(QPainter *, const QRect &)> &paint)
{
    const QString key = QStringLiteral("frametile:%1:%2:%3:%4")
                            .arg(option->palette.cacheKey())
                            .arg(option->palette.currentColorGroup())
                            .arg(uint(option->state))
                            .arg(ratio);
    QPixmap tile;
    if (QPixmapCache::find(key, &tile))
        return tile;
    tile = QPixmap(QSize(SIDE, SIDE) * ratio);
    tile.setDevicePixelRatio(ratio);
    tile.fill(Qt::transparent);
    QPainter painter(&tile);
    paint(&painter, QRect(0, 0, SIDE, SIDE));
    painter.end();
    QPixmapCache::insert(key, tile);
    return tile;
}

} // namespace

bool drawTiledFrame(QPainter *painter, const QStyleOption *option,
                    const std::function<void(QPainter *, const QRect &)> &paint)
{
    const QRect rect = option->rect;
    if (rect.width() < SIDE || rect.height() < SIDE || painter->brush() != Qt::NoBrush
        || painter->testRenderHint(QPainter::SmoothPixmapTransform) || !fitsPixels(painter)) {
        return false;
    }
    const qreal ratio = painter->device()->devicePixelRatioF();
    const QPixmap tile = frameTile(option, ratio, paint);
    // Where each of the three columns and rows begins and how long it is, in the
    // frame and in the picture.
    const int lefts[] = {rect.left(), rect.left() + CORNER, rect.right() + 1 - CORNER};
    const int tops[] = {rect.top(), rect.top() + CORNER, rect.bottom() + 1 - CORNER};
    const int widths[] = {CORNER, rect.width() - 2 * CORNER, CORNER};
    const int heights[] = {CORNER, rect.height() - 2 * CORNER, CORNER};
    const int starts[] = {0, CORNER, CORNER + MIDDLE};
    const int lengths[] = {CORNER, MIDDLE, CORNER};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            if (row == 1 && column == 1)
                continue;
            const QRect target(lefts[column], tops[row], widths[column], heights[row]);
            const QRectF source(starts[column] * ratio, starts[row] * ratio,
                                lengths[column] * ratio, lengths[row] * ratio);
            painter->drawPixmap(QRectF(target), tile, source);
        }
    }
    return true;
}

} // namespace APPSTYLE
