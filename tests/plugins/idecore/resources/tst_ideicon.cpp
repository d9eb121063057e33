// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/contrast.h"
#include "support/messagerecorder.h"

#include <appstyle/appstylemanager.h>
#include <idecore/core/ideicon.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QPalette>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <utility>

using Core::ideIcon;

namespace {

const QString SAVE = QStringLiteral(":/core/image/save.png");

QImage plain(QImage image)
{
    image.setDevicePixelRatio(1.0);
    return image.convertToFormat(QImage::Format_ARGB32);
}

/// The same but for what rounding makes of half-covered pixels.
bool alike(const QImage &one, const QImage &other)
{
    if (one.isNull() || one.size() != other.size())
        return false;
    const QImage left = one.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage right = other.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const auto near = [](int value, int expected) { return qAbs(value - expected) <= 2; };
    for (int y = 0; y < left.height(); ++y) {
        const auto *a = reinterpret_cast<const QRgb *>(left.constScanLine(y));
        const auto *b = reinterpret_cast<const QRgb *>(right.constScanLine(y));
        for (int x = 0; x < left.width(); ++x) {
            if (!near(qAlpha(a[x]), qAlpha(b[x])) || !near(qRed(a[x]), qRed(b[x]))
                || !near(qGreen(a[x]), qGreen(b[x])) || !near(qBlue(a[x]), qBlue(b[x])))
                return false;
        }
    }
    return true;
}

QImage shown(const QIcon &icon, int size, QIcon::Mode mode = QIcon::Normal)
{
    return plain(icon.pixmap(QSize(size, size), mode).toImage());
}

QImage picture(const char *file)
{
    return plain(QImage(QLatin1String(":/core/image/") + QLatin1String(file)));
}

void setTheme(const QString &theme)
{
    APPSTYLE::AppStyleManager::instance()->setAppStyle(theme);
}

/// The lowest contrast of a whole line on @p ground; 0 when there is hardly any line.
double weakestLine(const QImage &image, const QColor &ground)
{
    double weakest = 21;
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            // What the lines enclose is tinted only; thin curves cover hardly a pixel whole.
            if (qAlpha(image.pixel(x, y)) < 200)
                continue;
            ++pixels;
            weakest = std::min(weakest, Contrast::ratio(QColor(image.pixel(x, y)), ground));
        }
    }
    return pixels > image.width() / 2 ? weakest : 0;
}

} // namespace

class TestIdeIcon final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setTheme(APPSTYLE::THEME_CLASSIC); }

    void anUnknownNameGivesANullIcon()
    {
        QVERIFY(ideIcon(QStringLiteral(":/core/image/no-such-icon.png")).isNull());
        QVERIFY(ideIcon(QString()).isNull());
        QVERIFY(!ideIcon(SAVE).isNull());
    }

    void eachSizeShowsThePictureDrawnForIt_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<QByteArray>("file");
        const auto row = [](int size, const char *file) {
            QTest::newRow(file) << size << QByteArray(file);
        };
        row(16, "save_16.png");
        row(20, "save_20.png");
        row(24, "save.png");
        row(28, "save_28.png");
        row(30, "save_30.png");
        row(32, "save_16@2x.png");
        row(36, "save_36.png");
        row(40, "save_20@2x.png");
        row(42, "save_42.png");
        row(48, "save@2x.png");
        row(56, "save_28@2x.png");
        row(60, "save_20@3x.png");
        row(72, "save@3x.png");
        row(84, "save_28@3x.png");
    }

    void eachSizeShowsThePictureDrawnForIt()
    {
        QFETCH(const int, size);
        QFETCH(const QByteArray, file);
        QVERIFY(alike(shown(ideIcon(SAVE), size), picture(file.constData())));
    }

    void aSizeBetweenIsMadeFromTheNextLargerOne()
    {
        QVERIFY(alike(
            shown(ideIcon(SAVE), 22),
            picture("save.png").scaled(22, 22, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)));
    }

    void nothingIsEnlarged()
    {
        const QIcon icon = ideIcon(SAVE);
        QCOMPARE(icon.actualSize(QSize(200, 200)), QSize(84, 84));
        QVERIFY(alike(shown(icon, 200), picture("save_28@3x.png")));
    }

    void anEmptySizeShowsNothing() { QVERIFY(ideIcon(SAVE).pixmap(QSize(0, 24)).isNull()); }

    void whatIsMissingIsMadeFromTheNextLargerOne()
    {
        const QTemporaryDir folder;
        QVERIFY(picture("save.png").save(folder.filePath(QStringLiteral("own.png"))));
        QVERIFY(picture("save@2x.png").save(folder.filePath(QStringLiteral("own@2x.png"))));
        const QIcon icon = ideIcon(folder.filePath(QStringLiteral("own.png")));
        QCOMPARE(icon.availableSizes(), (QList<QSize>{{24, 24}, {48, 48}}));
        QVERIFY(alike(
            shown(icon, 16),
            picture("save.png").scaled(16, 16, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)));
        QVERIFY(alike(shown(icon, 48), picture("save@2x.png")));
        QCOMPARE(icon.actualSize(QSize(64, 64)), QSize(48, 48));
    }

    void everyKindOfPngIsRead_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::newRow("black and white") << QImage::Format_Mono;
        QTest::newRow("palette") << QImage::Format_Indexed8;
        QTest::newRow("grey") << QImage::Format_Grayscale8;
        QTest::newRow("colour") << QImage::Format_RGB32;
        QTest::newRow("colour and alpha") << QImage::Format_ARGB32;
        QTest::newRow("16 bits") << QImage::Format_RGBA64;
    }

    void everyKindOfPngIsRead()
    {
        QFETCH(const QImage::Format, format);
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("own.png"));
        QVERIFY(picture("save.png").convertToFormat(format).save(file));
        QVERIFY(alike(shown(ideIcon(file), 24), plain(QImage(file))));
    }

    void aDamagedPictureShowsNothing_data()
    {
        QTest::addColumn<QByteArray>("content");
        QFile save(SAVE);
        QVERIFY(save.open(QIODevice::ReadOnly));
        const QByteArray whole = save.readAll();
        QByteArray spoilt = whole;
        spoilt[whole.size() / 2] = static_cast<char>(~spoilt.at(whole.size() / 2));
        QByteArray wrongHeader = whole;
        wrongHeader.replace(16, 4, QByteArray("\x7f\xff\xff\xff", 4));
        // A million pixels a side, with the check sum that belongs to them.
        QByteArray huge = whole;
        huge.replace(16, 17, QByteArray::fromHex("000f4240000f424008060000005c6d387d"));
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("no picture") << QByteArray("Icons are drawn as SVG.");
        QTest::newRow("header only") << whole.left(33);
        QTest::newRow("half") << whole.left(whole.size() / 2);
        QTest::newRow("spoilt") << spoilt;
        QTest::newRow("wrong header") << wrongHeader;
        QTest::newRow("too large") << huge;
    }

    void aDamagedPictureShowsNothing()
    {
        QFETCH(const QByteArray, content);
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("own.png")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), qint64(content.size()));
        file.close();
        const MessageRecorder messages;
        const QIcon icon = ideIcon(file.fileName());
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled, QIcon::Selected})
            QVERIFY(icon.pixmap(QSize(20, 20), mode).isNull());
        QCOMPARE(messages.texts(), QStringList());
    }

    void theSmallerSideCounts()
    {
        QCOMPARE(ideIcon(SAVE).actualSize(QSize(16, 40)), QSize(16, 16));
    }

    void theSizesThatLieReadyAreNamed()
    {
        const QList<QSize> sizes = ideIcon(SAVE).availableSizes();
        QCOMPARE(sizes.size(), 14);
        QCOMPARE(sizes.constFirst(), QSize(16, 16));
        QCOMPARE(sizes.constLast(), QSize(84, 84));
    }

    void itIsPaintedWithThePixelsOfTheDevice_data()
    {
        QTest::addColumn<qreal>("ratio");
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("1") << 1.0 << QByteArray("save.png");
        QTest::newRow("1.5") << 1.5 << QByteArray("save_36.png");
        QTest::newRow("2") << 2.0 << QByteArray("save@2x.png");
        QTest::newRow("3") << 3.0 << QByteArray("save@3x.png");
    }

    void itIsPaintedWithThePixelsOfTheDevice()
    {
        QFETCH(const qreal, ratio);
        QFETCH(const QByteArray, file);
        QImage canvas(QSize(24, 24) * ratio, QImage::Format_ARGB32);
        canvas.setDevicePixelRatio(ratio);
        canvas.fill(Qt::transparent);
        QPainter painter(&canvas);
        ideIcon(SAVE).paint(&painter, 0, 0, 24, 24);
        painter.end();
        QVERIFY(alike(plain(canvas), picture(file.constData())));
    }

    void aWideRectangleHoldsItInTheMiddle()
    {
        QImage canvas(40, 24, QImage::Format_ARGB32);
        canvas.fill(Qt::transparent);
        QPainter painter(&canvas);
        ideIcon(SAVE).paint(&painter, 0, 0, 40, 24);
        painter.end();
        QVERIFY(alike(canvas.copy(8, 0, 24, 24), picture("save.png")));
    }

    void aCopyShowsTheSame()
    {
        const QIcon icon = ideIcon(SAVE);
        QIcon copy = icon;
        copy.addPixmap(QPixmap(1, 1)); // has to detach
        QVERIFY(alike(shown(copy, 20), picture("save_20.png")));
    }

    void everyLineIsReadableInBothThemes_data()
    {
        QTest::addColumn<QString>("file");
        const QDir folder(QStringLiteral(":/core/image"));
        const QStringList files = folder.entryList({QStringLiteral("*_16.png")});
        QVERIFY(files.size() >= 20);
        for (const QString &file : files) {
            const QString name = file.chopped(7) + QStringLiteral(".png");
            QTest::newRow(qPrintable(name)) << folder.filePath(name);
        }
    }

    void everyLineIsReadableInBothThemes()
    {
        QFETCH(const QString, file);
        const QIcon icon = ideIcon(file);
        for (const QString &theme : {APPSTYLE::THEME_CLASSIC, APPSTYLE::THEME_DARK}) {
            setTheme(theme);
            const QPalette palette = QApplication::palette();
            for (const int size : {16, 20, 24, 28}) {
                QVERIFY(weakestLine(shown(icon, size), palette.color(QPalette::Window))
                        >= Contrast::SIGN);
                QVERIFY(weakestLine(shown(icon, size, QIcon::Selected),
                                    palette.color(QPalette::Highlight))
                        >= Contrast::SIGN);
            }
        }
    }

    void aDisabledOneIsPalerThanAnEnabledOneInBothThemes()
    {
        for (const QString &theme : {APPSTYLE::THEME_CLASSIC, APPSTYLE::THEME_DARK}) {
            setTheme(theme);
            const QImage enabled = shown(ideIcon(SAVE), 24);
            const QImage disabled = shown(ideIcon(SAVE), 24, QIcon::Disabled);
            for (int y = 0; y < 24; ++y) {
                for (int x = 0; x < 24; ++x) {
                    const QRgb pixel = disabled.pixel(x, y);
                    QVERIFY(qAlpha(pixel) * 5 <= qAlpha(enabled.pixel(x, y)) * 3);
                    QVERIFY(qAlpha(pixel) == 0
                            || (qRed(pixel) == qGreen(pixel) && qGreen(pixel) == qBlue(pixel)));
                }
            }
        }
    }

    void itIsLighterOnceTheThemeIsDark()
    {
        const QIcon icon = ideIcon(SAVE);
        const QImage onLight = shown(icon, 24);
        setTheme(APPSTYLE::THEME_DARK);
        const QImage onDark = shown(icon, 24);
        const QPoint line(3, 12); // the left edge of the disk
        QCOMPARE(qAlpha(onLight.pixel(line)), 255);
        QVERIFY(qGray(onDark.pixel(line)) > qGray(onLight.pixel(line)));
    }
};

QTEST_MAIN(TestIdeIcon)
#include "tst_ideicon.moc"
