// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// contactsheet FOLDER: paints every icon of the core at the sizes of tool bars, in
// every state and on both themes, to <FOLDER>/icons-<theme>@<scale>x.png, at the
// scales 1, 1.5 and 2; for whoever draws an icon.

#include <appstyle/appstylemanager.h>
#include <idecore/core/ideicon.h>

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <cstdio>

namespace {

constexpr int RowHeight = 36;
constexpr int NameWidth = 130;
constexpr int CellWidth = 40;
constexpr int sizes[] = {16, 20, 24, 28};
constexpr int columns = 2; // of names, each with all its states

struct State
{
    QIcon::Mode mode;
    QPalette::ColorRole ground;
};
constexpr State states[] = {{QIcon::Normal, QPalette::Window},
                            {QIcon::Normal, QPalette::Base},
                            {QIcon::Disabled, QPalette::Window},
                            {QIcon::Selected, QPalette::Highlight}};
constexpr int StateWidth = 4 * CellWidth;
constexpr int ColumnWidth = NameWidth + 4 * StateWidth;

void paintRow(QPainter &painter, const QString &name, const QPoint &place)
{
    const QPalette palette = QApplication::palette();
    painter.setPen(palette.color(QPalette::WindowText));
    painter.drawText(QRect(place, QSize(NameWidth, RowHeight)), Qt::AlignCenter, name);
    const QIcon icon = Core::ideIcon(QStringLiteral(":/core/image/%1.png").arg(name));
    int x = place.x() + NameWidth;
    for (const State &state : states) {
        painter.fillRect(x, place.y(), StateWidth, RowHeight, palette.color(state.ground));
        for (const int size : sizes) {
            icon.paint(
                &painter,
                QRect(x + (CellWidth - size) / 2, place.y() + (RowHeight - size) / 2, size, size),
                Qt::AlignCenter, state.mode);
            x += CellWidth;
        }
    }
}

bool paintSheet(const QStringList &names, qreal scale, const QString &file)
{
    const int rows = (names.size() + columns - 1) / columns;
    const QSize size(columns * ColumnWidth, rows * RowHeight);
    QImage sheet(size * scale, QImage::Format_RGB32);
    sheet.setDevicePixelRatio(scale);
    sheet.fill(QApplication::palette().color(QPalette::Window));
    QPainter painter(&sheet);
    for (int i = 0; i < names.size(); ++i)
        paintRow(painter, names.at(i), {i / rows * ColumnWidth, i % rows * RowHeight});
    painter.end();
    std::printf("%s\n", qPrintable(file));
    return sheet.save(file);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2) {
        std::fprintf(stderr, "usage: contactsheet FOLDER\n");
        return 2;
    }
    QStringList names;
    const QStringList files = QDir(QStringLiteral(":/core/image"))
                                  .entryList({QStringLiteral("*_16.png")}, QDir::Files, QDir::Name);
    for (const QString &file : files)
        names.append(file.chopped(7));
    for (const QString &theme : {APPSTYLE::THEME_CLASSIC, APPSTYLE::THEME_DARK}) {
        APPSTYLE::AppStyleManager::instance()->setAppStyle(theme);
        for (const qreal scale : {1.0, 1.5, 2.0}) {
            const QString file = QStringLiteral("icons-%1@%2x.png").arg(theme.toLower()).arg(scale);
            if (!paintSheet(names, scale, QDir(arguments.at(1)).filePath(file))) {
                std::fprintf(stderr, "contactsheet: %s cannot be written\n", qPrintable(file));
                return 1;
            }
        }
    }
    return 0;
}
