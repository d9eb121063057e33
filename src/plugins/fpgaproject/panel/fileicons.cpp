// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/panel/fileicons_p.h>

#include <idecore/core/ideicon.h>

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPainter>
#include <QPixmap>

namespace Fpga {

namespace {

struct Sign
{
    const char *letters;
    QRgb colour;
};

// Dark enough for white letters to be read, light enough to stand out in dark rows.
Sign signOf(FileKind kind)
{
    switch (kind) {
    case FileKind::Verilog:
        return {"V", 0xff1f78c8};
    case FileKind::SystemVerilog:
        return {"SV", 0xff1f78c8};
    case FileKind::Vhdl:
        return {"VH", 0xff7a62c9};
    case FileKind::TimingConstraint:
        return {"T", 0xffb3600f};
    case FileKind::PhysicalConstraint:
        return {"P", 0xffb3600f};
    case FileKind::SynthesisConstraint:
        return {"S", 0xffb3600f};
    case FileKind::Memory:
        return {"M", 0xff36835a};
    case FileKind::Other:
        break;
    }
    return {"", 0};
}

QPixmap drawn(const QIcon &sheet, const Sign &sign, int size, QIcon::Mode mode)
{
    // Not asked for by its logical size: on a fine screen that would be enlarged.
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    sheet.paint(&painter, 0, 0, size, size, Qt::AlignCenter, mode);
    const QString letters = QString::fromLatin1(sign.letters);
    if (letters.isEmpty())
        return pixmap;
    const qreal unit = size / 16.0;
    const qreal width = letters.size() > 1 ? 11.5 * unit : 8 * unit;
    const QRectF badge(size - width, size - 8.5 * unit, width, 8.5 * unit);
    painter.setPen(Qt::NoPen);
    // In the highlight of a selected row the sign stands out the other way round.
    const bool selected = mode == QIcon::Selected;
    const QColor colour = QColor::fromRgb(sign.colour);
    painter.setBrush(selected ? QColor(Qt::white) : colour);
    painter.drawRoundedRect(badge, 1.6 * unit, 1.6 * unit);
    QFont font;
    font.setPixelSize(qMax(6, qRound(7.5 * unit)));
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(selected ? colour : QColor(Qt::white));
    painter.drawText(badge, Qt::AlignCenter, letters);
    return pixmap;
}

} // namespace

QIcon fileIcon(FileKind kind)
{
    // Pixmaps must not outlive the application, so each is kept by those that show it.
    const QIcon sheet = Core::ideIcon(QStringLiteral(":/core/image/editor_default.png"));
    QIcon icon;
    for (const int size : {16, 20, 24, 32, 48}) {
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected})
            icon.addPixmap(drawn(sheet, signOf(kind), size, mode), mode);
    }
    return icon;
}

} // namespace Fpga
