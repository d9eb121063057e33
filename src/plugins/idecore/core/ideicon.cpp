// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/core/ideicon.h>

#include <QApplication>
#include <QByteArray>
#include <QFile>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPixmapCache>
#include <QString>
#include <QStyle>
#include <QStyleOption>
#include <QtEndian>

#include <png.h>

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <iterator>

namespace Core {

namespace {

struct Variant
{
    int pixels;
    const char *ending;
};

// What the build renders, from small to large; "_16@3x" has the 48 pixels of "@2x".
constexpr Variant variants[] = {{16, "_16"}, {20, "_20"},    {24, ""},       {28, "_28"},
                                {30, "_30"}, {32, "_16@2x"}, {36, "_36"},    {40, "_20@2x"},
                                {42, "_42"}, {48, "@2x"},    {56, "_28@2x"}, {60, "_20@3x"},
                                {72, "@3x"}, {84, "_28@3x"}};

/// In pixels, far beyond any icon: a header may claim terabytes.
constexpr png_uint_32 LARGEST_SIDE = 4096;

/// The picture in @p file; null when that is no readable PNG file. Qt's reader would
/// look at the plugins of all other formats first, which a start would feel.
QImage readPng(const QString &file)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly))
        return {};
    const QByteArray data = source.readAll();
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&png, data.constData(),
                                          static_cast<std::size_t>(data.size())))
        return {};
    png.flags |= PNG_IMAGE_FLAG_16BIT_sRGB; // 16 bits are no sign of linear light
    png.format = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;
    QImage image;
    if (std::max(png.width, png.height) <= LARGEST_SIDE) {
        image = QImage(static_cast<int>(png.width), static_cast<int>(png.height),
                       QImage::Format_ARGB32);
    }
    if (image.isNull()) {
        png_image_free(&png);
        return {};
    }
    const bool good =
        png_image_finish_read(&png, nullptr, image.bits(), image.bytesPerLine(), nullptr) != 0;
    return good ? image : QImage();
}

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < 128;
}

/// Nearer to white by a third, for what is drawn to be seen on light and dark.
void lighten(QImage &image)
{
    const auto lighter = [](int channel) { return channel + (255 - channel) / 3; };
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = line[x];
            line[x] = qRgba(lighter(qRed(pixel)), lighter(qGreen(pixel)), lighter(qBlue(pixel)),
                            qAlpha(pixel));
        }
    }
}

/// Without colour and seen through.
void fade(QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int grey = qGray(line[x]);
            line[x] = qRgba(grey, grey, grey, qAlpha(line[x]) * 60 / 100);
        }
    }
}

class IdeIconEngine final : public QIconEngine
{
public:
    explicit IdeIconEngine(const QString &file)
        : m_file(file)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device()->devicePixelRatioF();
        const int side = std::min(rect.width(), rect.height());
        QRect square(0, 0, side, side);
        square.moveCenter(rect.center());
        QPixmap picture = pixmap(square.size() * ratio, mode, state);
        picture.setDevicePixelRatio(1.0);
        painter->drawPixmap(square, picture);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        const int side = std::min(size.width(), size.height());
        if (side <= 0)
            return {};
        const QPalette palette = QApplication::palette();
        const QString key = QStringLiteral("ideicon:%1:%2:%3:%4")
                                .arg(m_file, QString::number(side), QString::number(mode),
                                     QString::number(palette.cacheKey()));
        QPixmap found;
        if (QPixmapCache::find(key, &found))
            return found;
        QImage image = load(side);
        if (image.isNull())
            return {};
        if (isDark(palette))
            lighten(image);
        if (mode == QIcon::Disabled)
            fade(image);
        found = QPixmap::fromImage(image);
        if (mode == QIcon::Selected) {
            // As the style shows icons of any origin.
            QStyleOption option;
            option.palette = palette;
            found = QApplication::style()->generatedIconPixmap(mode, found, &option);
        }
        QPixmapCache::insert(key, found);
        return found;
    }

    QSize actualSize(const QSize &size, QIcon::Mode, QIcon::State) override
    {
        int largest = 0;
        for (const Variant &variant : variants) {
            if (exists(variant))
                largest = variant.pixels;
        }
        const int side = std::min({size.width(), size.height(), largest});
        return {side, side};
    }

    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) const override
    {
        QList<QSize> sizes;
        for (const Variant &variant : variants) {
            if (exists(variant))
                sizes.append(QSize(variant.pixels, variant.pixels));
        }
        return sizes;
    }

    QString key() const override { return QStringLiteral("Core::IdeIconEngine"); }
    QIconEngine *clone() const override { return new IdeIconEngine(m_file); }

private:
    QString fileOf(const Variant &variant) const
    {
        const int dot = m_file.lastIndexOf(QLatin1Char('.'));
        return m_file.left(dot) + QLatin1String(variant.ending) + m_file.mid(dot);
    }

    /// Looked up once: a list asks for the size of each icon over and over.
    bool exists(const Variant &variant) const
    {
        if (!m_lookedUp) {
            m_lookedUp = true;
            for (std::size_t i = 0; i < std::size(variants); ++i)
                m_present[i] = QFile::exists(fileOf(variants[i]));
        }
        return m_present[static_cast<std::size_t>(&variant - variants)];
    }

    /// The picture of @p side pixels, or the largest there is.
    QImage load(int side) const
    {
        const Variant *best = nullptr;
        for (const Variant &variant : variants) {
            if (!exists(variant))
                continue;
            best = &variant;
            if (variant.pixels >= side)
                break;
        }
        if (!best)
            return {};
        QImage image = readPng(fileOf(*best));
        if (best->pixels > side && !image.isNull())
            image = image.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        return image.convertToFormat(QImage::Format_ARGB32);
    }

    const QString m_file;
    mutable bool m_lookedUp = false;
    mutable std::bitset<std::size(variants)> m_present;
};

} // namespace

QIcon ideIcon(const QString &file)
{
    return QFile::exists(file) ? QIcon(new IdeIconEngine(file)) : QIcon();
}

QIcon productIcon()
{
    QIcon icon;
    for (const char *size : {"32", "32@2x", "32@3x"}) {
        // All of them are handed to the display; no other screen has use for it.
        if (qstrcmp(size, "32@3x") == 0 && qGuiApp->devicePixelRatio() <= 2)
            break;
        const QImage image =
            readPng(QStringLiteral(":/core/image/logo/ide_logo_%1.png").arg(QLatin1String(size)));
        icon.addPixmap(QPixmap::fromImage(image));
    }
    return icon;
}

} // namespace Core
