// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_LIBS_DEVICEDB_CHIPDATABASE_H
#define TESTS_LIBS_DEVICEDB_CHIPDATABASE_H

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

/// What the text of the open chip database says about one die.
class ChipDatabase final
{
public:
    static constexpr int BITS_OF_BLOCK_RAM = 4096;

    /// Where the installed database tells of @p die, such as "1k".
    static QString fileOf(const QString &die);
    /// Nothing when it is not installed.
    static std::optional<ChipDatabase> read(const QString &die);

    /// As the database names them, variants of the die marked as in "cb132:4k".
    [[nodiscard]] QSet<QString> packages() const;
    [[nodiscard]] int pins(const QString &package) const { return m_pins.value(package).size(); }
    /// PLLs that the package does not lock.
    [[nodiscard]] int openPlls(const QString &package) const;
    [[nodiscard]] int logicCells() const { return m_logicTiles * m_cellsOfTile; }
    [[nodiscard]] int blockRams() const { return m_ramTiles; }
    /// How many special cells of a type there are.
    [[nodiscard]] int cells(const QString &type) const { return m_cells.value(type); }

private:
    void beginSection(const QStringList &words);
    void addLine(const QStringList &words);

    QString m_section;
    QString m_package;
    QString m_cell;
    QHash<QString, QSet<QString>> m_pins;
    QHash<QString, int> m_cells;
    /// Of each PLL, the packages it is locked in.
    QList<QSet<QString>> m_locked;
    int m_logicTiles = 0;
    int m_cellsOfTile = 0;
    int m_ramTiles = 0;
};

#endif // TESTS_LIBS_DEVICEDB_CHIPDATABASE_H
