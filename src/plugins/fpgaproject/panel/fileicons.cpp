// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/panel/fileicons_p.h>

#include <QColor>
#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

namespace Fpga {

namespace {

struct Sign
{
    const char *letters;
    QRgb colour;
};

// Dark enough for white letters, light enough to stand out on the dark theme.
Sign signOf(FileKind kind)
{
    switch (kind) {
    case FileKind::Verilog:
        return {"V", 0xff2a86d6};
    case FileKind::SystemVerilog:
        return {"SV", 0xff2a86d6};
    case FileKind::Vhdl:
        return {"VH", 0xff7a62c9};
    case FileKind::TimingConstraint:
        return {"T", 0xffcc701a};
    case FileKind::PhysicalConstraint:
        return {"P", 0xffcc701a};
    case FileKind::SynthesisConstraint:
        return {"S", 0xffcc701a};
    case FileKind::Memory:
        return {"M", 0xff3f8f63};
    case FileKind::Other:
        break;
    }
    return {"", 0};
}

/// @p sheet in one colour when @p colour is valid.
QPixmap drawn(const QIcon &sheet, const Sign &sign, int size, const QColor &colour = {})
{
    // Not asked for by its logical size: on a fine screen that would be enlarged.
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    sheet.paint(&painter, 0, 0, size, size);
    if (colour.isValid()) {
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), colour);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    const QString letters = QString::fromLatin1(sign.letters);
    if (letters.isEmpty())
        return pixmap;
    const qreal unit = size / 16.0;
    const qreal width = letters.size() > 1 ? 11.5 * unit : 8 * unit;
    const QRectF badge(size - width, size - 8.5 * unit, width, 8.5 * unit);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(sign.colour));
    painter.drawRoundedRect(badge, 1.6 * unit, 1.6 * unit);
    QFont font;
    font.setPixelSize(qMax(6, qRound(7.5 * unit)));
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(badge, Qt::AlignCenter, letters);
    return pixmap;
}

} // namespace

QIcon fileIcon(FileKind kind)
{
    // Pixmaps must not outlive the application, so each is kept by those that show it.
    const QIcon sheet(QStringLiteral(":/core/image/editor_default.png"));
    QIcon icon;
    // Tinted as is usual, the icon of a selected row would vanish in the highlight.
    const QColor selected = QGuiApplication::palette().color(QPalette::HighlightedText);
    for (const int size : {16, 20, 24, 32, 48}) {
        icon.addPixmap(drawn(sheet, signOf(kind), size));
        icon.addPixmap(drawn(sheet, signOf(kind), size, selected), QIcon::Selected);
    }
    return icon;
}

} // namespace Fpga
