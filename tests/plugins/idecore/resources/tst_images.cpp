// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/core/ideicon.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTest>

namespace {

const QString FOLDER = QStringLiteral(":/core/image/");

/// What the sources name, as paths of resources.
QStringList namedImages()
{
    static const QRegularExpression pattern(QStringLiteral("\"(:/core/image/)?([\\w/]+\\.png)\""));
    QStringList names;
    QDirIterator files(QStringLiteral(SOURCE_FOLDER),
                       {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        auto matches = pattern.globalMatch(QString::fromUtf8(file.readAll()));
        while (matches.hasNext())
            names.append(FOLDER + matches.next().captured(2));
    }
    names.removeDuplicates();
    names.sort();
    return names;
}

/// The drawings of tool bars and menus, by the name of their picture of 24 pixels.
QStringList drawings()
{
    QStringList names;
    const QStringList files = QDir(FOLDER).entryList(QDir::Files);
    for (const QString &file : files) {
        const QString name = file.chopped(4);
        if (files.contains(name + QStringLiteral("_16.png")))
            names.append(name);
    }
    return names;
}

QString scaled(QString file, int scale)
{
    if (scale > 1)
        file.insert(file.size() - 4, QStringLiteral("@%1x").arg(scale));
    return file;
}

} // namespace

class TestImages final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // Calls the core, or the linker would leave it out with all its images.
    void initTestCase() { QVERIFY(!Core::ideIcon(FOLDER + QStringLiteral("new.png")).isNull()); }

    void everyNamedImageLoadsAtOneTwoAndThreeTimesItsSize_data()
    {
        QTest::addColumn<QString>("file");
        const QStringList names = namedImages();
        QVERIFY(names.size() >= 20);
        for (const QString &name : names)
            QTest::newRow(qPrintable(name)) << name;
    }

    void everyNamedImageLoadsAtOneTwoAndThreeTimesItsSize()
    {
        QFETCH(const QString, file);
        static const QRegularExpression sized(QStringLiteral("_(\\d+)\\.png$"));
        const auto match = sized.match(file);
        QSize size(24, 24);
        if (match.hasMatch())
            size = QSize(match.captured(1).toInt(), match.captured(1).toInt());
        else if (file.endsWith(QLatin1String("Kelmo_LOGO_about.png")))
            size = QSize(424, 220);
        for (const int scale : {1, 2, 3})
            QCOMPARE(QImage(scaled(file, scale)).size(), size * scale);
    }

    void everyDrawingHasItsSizes_data() { rowPerDrawing(); }

    void everyDrawingHasItsSizes()
    {
        QFETCH(const QString, name);
        for (const int size : {16, 20, 28}) {
            for (const int scale : {1, 2, 3}) {
                const QString file = scaled(sizedFile(name, size), scale);
                QCOMPARE(QImage(file).size(), QSize(size, size) * scale);
            }
        }
        for (const int size : {30, 36, 42})
            QCOMPARE(QImage(sizedFile(name, size)).size(), QSize(size, size));
    }

    /// What lies on the pixels is full lines, full fillings and nothing; half-filled
    /// pixels are left to corners, slopes and curves.
    void theLinesLieOnThePixels_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"cascade", "fullscreen", "tile"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void theLinesLieOnThePixels()
    {
        QFETCH(const QString, name);
        for (const int size : {16, 20, 24, 28, 30, 36, 42}) {
            QString file = sizedFile(name, size);
            if (size == 24)
                file = FOLDER + name + QStringLiteral(".png");
            const QImage image = QImage(file).convertToFormat(QImage::Format_ARGB32);
            QVERIFY(!image.isNull());
            int full = 0;
            int half = 0;
            for (int y = 0; y < size; ++y) {
                for (int x = 0; x < size; ++x) {
                    const int alpha = qAlpha(image.pixel(x, y));
                    full += alpha == 255;
                    half += alpha > 64 && alpha < 255;
                }
            }
            // Round ends and corners soften a pixel each; a line between the pixels
            // would have one half for each full one.
            QVERIFY2(half * 2 < full,
                     qPrintable(QStringLiteral("%1: %2 of %3").arg(size).arg(half).arg(full)));
        }
    }

    void symmetricalDrawingsStaySymmetrical_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"fullscreen", "new_project"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void symmetricalDrawingsStaySymmetrical()
    {
        QFETCH(const QString, name);
        for (const int size : {16, 20, 28, 30, 36, 42}) {
            const QImage image =
                QImage(sizedFile(name, size)).convertToFormat(QImage::Format_ARGB32);
            QVERIFY(!image.isNull());
            const QImage mirrored = image.mirrored(true, true);
            for (int y = 0; y < size; ++y) {
                for (int x = 0; x < size; ++x)
                    QVERIFY(qAbs(qAlpha(image.pixel(x, y)) - qAlpha(mirrored.pixel(x, y))) < 8);
            }
        }
    }

private:
    static void rowPerDrawing()
    {
        QTest::addColumn<QString>("name");
        const QStringList names = drawings();
        QVERIFY(names.size() >= 20);
        for (const QString &name : names)
            QTest::newRow(qPrintable(name)) << name;
    }

    static QString sizedFile(const QString &name, int size)
    {
        return FOLDER + name + QStringLiteral("_%1.png").arg(size);
    }
};

QTEST_GUILESS_MAIN(TestImages)
#include "tst_images.moc"
