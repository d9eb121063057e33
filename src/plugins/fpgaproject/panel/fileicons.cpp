// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/panel/fileicons_p.h>

#include <idecore/core/ideicon.h>

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QIcon>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOption>

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

/// Draws when it is shown: the sheet below the sign follows the theme.
class FileIconEngine final : public QIconEngine
{
public:
    explicit FileIconEngine(const Sign &sign)
        : m_sign(sign)
        , m_sheet(Core::ideIcon(QStringLiteral(":/core/image/editor_default.png")))
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        if (mode == QIcon::Disabled) {
            const qreal ratio = painter->device()->devicePixelRatioF();
            painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
            return;
        }
        const int size = qMin(rect.width(), rect.height());
        QRect square(0, 0, size, size);
        square.moveCenter(rect.center());
        m_sheet.paint(painter, square, Qt::AlignCenter, mode);
        const QString letters = QString::fromLatin1(m_sign.letters);
        if (letters.isEmpty())
            return;
        const qreal unit = size / 16.0;
        const qreal width = letters.size() > 1 ? 11.5 * unit : 8 * unit;
        const QRectF badge(square.x() + size - width, square.y() + size - 8.5 * unit, width,
                           8.5 * unit);
        // In the highlight of a selected row the sign stands out the other way round.
        const bool selected = mode == QIcon::Selected;
        const QColor colour = QColor::fromRgb(m_sign.colour);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(selected ? QColor(Qt::white) : colour);
        painter->drawRoundedRect(badge, 1.6 * unit, 1.6 * unit);
        QFont font;
        font.setPixelSize(qMax(6, qRound(7.5 * unit)));
        font.setBold(true);
        painter->setFont(font);
        painter->setPen(selected ? colour : QColor(Qt::white));
        painter->drawText(badge, Qt::AlignCenter, letters);
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        const bool disabled = mode == QIcon::Disabled;
        paint(&painter, QRect({}, size), disabled ? QIcon::Normal : mode, state);
        painter.end();
        if (!disabled)
            return picture;
        QStyleOption option;
        option.palette = QApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, picture, &option);
    }

    QString key() const override { return QStringLiteral("Fpga::FileIconEngine"); }
    QIconEngine *clone() const override { return new FileIconEngine(m_sign); }

private:
    const Sign m_sign;
    const QIcon m_sheet;
};

} // namespace

QIcon fileIcon(FileKind kind)
{
    return QIcon(new FileIconEngine(signOf(kind)));
}

} // namespace Fpga
