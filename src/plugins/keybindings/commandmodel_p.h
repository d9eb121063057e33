// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef KEYBINDINGS_COMMANDMODEL_P_H
#define KEYBINDINGS_COMMANDMODEL_P_H

#include <keybindings/commandlist_p.h>

#include <QAbstractItemModel>
#include <QFont>
#include <QIcon>
#include <QSet>

#include <optional>
#include <vector>

namespace KeyBindings {

/// The commands by their places, those of them that have all words of a filter,
/// with the keys they shall have.
///
/// The filter works on texts that are kept folded, and a change of it is one
/// reset: ten thousand commands are filtered while the user types.
class CommandModel final : public QAbstractItemModel
{
    Q_OBJECT
public:
    enum Column { Title, KeysColumn, Id, ColumnCount };

    explicit CommandModel(QObject *parent = nullptr);
    ~CommandModel() override;

    /// @p icon marks commands that share a key.
    void setClashIcon(const QIcon &icon);
    /// Takes the place of what is shown. What was wanted for a command and is not
    /// yet stored stays wanted.
    void setCommands(std::vector<Command> commands);
    void setFilter(const QString &text);

    [[nodiscard]] const std::vector<Command> &commands() const { return m_commands; }
    /// How many pass the filter.
    [[nodiscard]] int shownCount() const { return m_shownCount; }
    /// Null for a place.
    [[nodiscard]] const Command *command(const QModelIndex &index) const;
    /// Null when there is none of that id.
    [[nodiscard]] const Command *command(const QString &id) const;
    /// Invalid when the command is not shown.
    [[nodiscard]] QModelIndex indexOf(const QString &id) const;
    /// The commands but @p id that shall have a key that clashes with @p key.
    [[nodiscard]] std::vector<const Command *> holdersOf(const QKeySequence &key,
                                                         const QString &id) const;
    /// True when a command has other keys than it shall have.
    [[nodiscard]] bool isEdited() const;
    /// True when a command shall have other keys than its authors gave it.
    [[nodiscard]] bool hasUserKeys() const;

    void setWanted(const QString &id, const Keys &keys);
    void setAllToDefault();
    /// What is wanted has been given to the commands.
    void setApplied();

    [[nodiscard]] QModelIndex index(int row, int column,
                                    const QModelIndex &parent = QModelIndex()) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex &child) const override;
    [[nodiscard]] int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    struct Row
    {
        QString keys;
        QString folded;
        bool clashes = false;
    };
    struct Place
    {
        QString name;
        std::vector<std::size_t> commands;
    };

    [[nodiscard]] std::optional<std::size_t> find(const QString &id) const;
    [[nodiscard]] bool passes(const Row &row) const;
    [[nodiscard]] QString clashText(const Command &command) const;
    [[nodiscard]] QVariant commandData(std::size_t position, int column, int role) const;
    void describe(std::size_t position);
    void filter();
    void findClashes();
    void keysChanged();

    std::vector<Command> m_commands;
    // As long as the commands.
    std::vector<Row> m_rows;
    QHash<QString, std::size_t> m_positions;
    std::vector<Place> m_places;
    QStringList m_words;
    int m_shownCount = 0;
    QIcon m_clashIcon;
    QFont m_bold;
};

} // namespace KeyBindings

#endif // KEYBINDINGS_COMMANDMODEL_P_H
