// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "appstyle/contrast_p.h"

#include <QtMath>

#include <utility>

namespace APPSTYLE {

namespace {

double linear(double value)
{
    return value <= 0.03928 ? value / 12.92 : qPow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
           + 0.0722 * linear(colour.blueF());
}

} // namespace

double contrast(const QColor &one, const QColor &other)
{
    double light = luminance(one);
    double dark = luminance(other);
    if (light < dark)
        std::swap(light, dark);
    return (light + 0.05) / (dark + 0.05);
}

QColor readable(const QColor &colour, const QColor &ground, double ratio)
{
    const bool light = contrast(Qt::white, ground) > contrast(Qt::black, ground);
    const QColor hsl = colour.toHsl();
    const double start = hsl.lightnessF();
    constexpr int steps = 64;
    QColor found = colour;
    for (int step = 1; step <= steps && contrast(found, ground) < ratio; ++step) {
        const double way = double(step) / steps;
        const double lightness = light ? start + (1 - start) * way : start * (1 - way);
        // A grey has no hue, which is said by a negative one.
        found = QColor::fromHslF(qMax(hsl.hslHueF(), 0.0), hsl.hslSaturationF(), lightness,
                                 hsl.alphaF())
                    .toRgb();
    }
    return found;
}

} // namespace APPSTYLE
