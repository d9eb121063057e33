// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "chipdatabase.h"

#include <QFile>
#include <QTextStream>

#include <algorithm>

QString ChipDatabase::fileOf(const QString &die)
{
    return QStringLiteral(CHIP_DATABASE "/chipdb-%1.txt").arg(die);
}

std::optional<ChipDatabase> ChipDatabase::read(const QString &die)
{
    QFile file(fileOf(die));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return std::nullopt;
    ChipDatabase chip;
    QTextStream text(&file);
    QString line;
    while (text.readLineInto(&line)) {
        // Most of the file is wires, which nobody asks for.
        const bool heads = line.startsWith(QLatin1Char('.'));
        if (!heads && chip.m_section.isEmpty())
            continue;
        const QStringList words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (heads)
            chip.beginSection(words);
        else if (!words.isEmpty())
            chip.addLine(words);
    }
    return chip;
}

void ChipDatabase::beginSection(const QStringList &words)
{
    m_section.clear();
    const QString &name = words.first();
    if (name == QLatin1String(".logic_tile")) {
        ++m_logicTiles;
    } else if (name == QLatin1String(".ramb_tile")) {
        // The lower half of a block; the upper one lies over it.
        ++m_ramTiles;
    } else if (name == QLatin1String(".logic_tile_bits")) {
        m_section = name;
    } else if (name == QLatin1String(".pins")) {
        m_section = name;
        m_package = words.at(1);
    } else if (name == QLatin1String(".extra_cell")) {
        m_section = name;
        m_cell = words.last();
        ++m_cells[m_cell];
        if (m_cell == QLatin1String("PLL"))
            m_locked.append(QSet<QString>());
    }
}

void ChipDatabase::addLine(const QStringList &words)
{
    if (m_section == QLatin1String(".pins")) {
        m_pins[m_package].insert(words.first());
    } else if (m_section == QLatin1String(".logic_tile_bits")) {
        if (words.first().startsWith(QLatin1String("LC_")))
            ++m_cellsOfTile;
    } else if (m_cell == QLatin1String("PLL") && words.first() == QLatin1String("LOCKED")) {
        m_locked.last() = QSet<QString>(words.cbegin() + 1, words.cend());
    }
}

QSet<QString> ChipDatabase::packages() const
{
    return QSet<QString>(m_pins.keyBegin(), m_pins.keyEnd());
}

int ChipDatabase::openPlls(const QString &package) const
{
    return int(std::count_if(m_locked.cbegin(), m_locked.cend(), [&](const QSet<QString> &locked) {
        return !locked.contains(package);
    }));
}
