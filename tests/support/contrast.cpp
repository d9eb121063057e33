// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/contrast.h"

#include <QColor>
#include <QtMath>

namespace {

double luminance(double red, double green, double blue)
{
    const auto linear = [](double value) {
        return value <= 0.03928 ? value / 12.92 : qPow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(red) + 0.7152 * linear(green) + 0.0722 * linear(blue);
}

} // namespace

double Contrast::ratio(const QColor &text, const QColor &ground)
{
    const double alpha = text.alphaF();
    const auto over = [alpha](double top, double below) {
        return top * alpha + below * (1 - alpha);
    };
    const double one =
        luminance(over(text.redF(), ground.redF()), over(text.greenF(), ground.greenF()),
                  over(text.blueF(), ground.blueF()));
    const double other = luminance(ground.redF(), ground.greenF(), ground.blueF());
    return (qMax(one, other) + 0.05) / (qMin(one, other) + 0.05);
}
