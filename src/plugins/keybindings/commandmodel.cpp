// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <keybindings/commandmodel_p.h>

#include <algorithm>

namespace KeyBindings {

namespace {

/// The first @p count strokes.
QKeySequence strokes(const QKeySequence &key, int count)
{
    return QKeySequence(key[0], count > 1 ? key[1] : 0, count > 2 ? key[2] : 0,
                        count > 3 ? key[3] : 0);
}

} // namespace

CommandModel::CommandModel(QObject *parent)
    : QAbstractItemModel(parent)
{
    m_bold.setBold(true);
}

CommandModel::~CommandModel() = default;

void CommandModel::setClashIcon(const QIcon &icon)
{
    m_clashIcon = icon;
}

void CommandModel::setCommands(std::vector<Command> commands)
{
    beginResetModel();
    for (Command &command : commands) {
        const auto before = m_positions.constFind(command.id);
        if (before != m_positions.constEnd()
            && m_commands[*before].wanted != m_commands[*before].present)
            command.wanted = m_commands[*before].wanted;
    }
    m_commands = std::move(commands);
    m_rows.assign(m_commands.size(), Row());
    m_positions.clear();
    m_positions.reserve(static_cast<int>(m_commands.size()));
    for (std::size_t i = 0; i < m_commands.size(); ++i) {
        m_positions.insert(m_commands[i].id, i);
        describe(i);
    }
    findClashes();
    filter();
    endResetModel();
}

void CommandModel::setFilter(const QString &text)
{
    const QStringList words = text.toCaseFolded().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words == m_words)
        return;
    beginResetModel();
    m_words = words;
    filter();
    endResetModel();
}

const Command *CommandModel::command(const QModelIndex &index) const
{
    if (!index.isValid() || index.internalId() == 0)
        return nullptr;
    return &m_commands[m_places[index.internalId() - 1].commands[index.row()]];
}

const Command *CommandModel::command(const QString &id) const
{
    const std::optional<std::size_t> position = find(id);
    return position ? &m_commands[*position] : nullptr;
}

QModelIndex CommandModel::indexOf(const QString &id) const
{
    const std::optional<std::size_t> position = find(id);
    if (!position)
        return QModelIndex();
    for (std::size_t place = 0; place < m_places.size(); ++place) {
        const std::vector<std::size_t> &shown = m_places[place].commands;
        // In the order of the commands.
        const auto it = std::lower_bound(shown.cbegin(), shown.cend(), *position);
        if (it != shown.cend() && *it == *position)
            return createIndex(static_cast<int>(it - shown.cbegin()), 0, quintptr{place} + 1);
    }
    return QModelIndex();
}

std::vector<const Command *> CommandModel::holdersOf(const QKeySequence &key,
                                                     const QString &id) const
{
    std::vector<const Command *> holders;
    for (const Command &command : m_commands) {
        if (command.id != id
            && std::any_of(command.wanted.cbegin(), command.wanted.cend(),
                           [&key](const QKeySequence &own) { return KeyRules::clash(own, key); }))
            holders.push_back(&command);
    }
    return holders;
}

bool CommandModel::isEdited() const
{
    return std::any_of(m_commands.cbegin(), m_commands.cend(),
                       [](const Command &command) { return command.wanted != command.present; });
}

bool CommandModel::hasUserKeys() const
{
    return std::any_of(m_commands.cbegin(), m_commands.cend(),
                       [](const Command &command) { return command.wanted != command.defaults; });
}

void CommandModel::setWanted(const QString &id, const Keys &keys)
{
    const std::optional<std::size_t> position = find(id);
    if (!position || m_commands[*position].wanted == keys)
        return;
    m_commands[*position].wanted = keys;
    describe(*position);
    keysChanged();
}

void CommandModel::setAllToDefault()
{
    for (std::size_t i = 0; i < m_commands.size(); ++i) {
        m_commands[i].wanted = m_commands[i].defaults;
        describe(i);
    }
    keysChanged();
}

void CommandModel::setApplied()
{
    for (Command &command : m_commands)
        command.present = command.wanted;
}

QModelIndex CommandModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return QModelIndex();
    // The number of the place for commands, nothing for a place.
    return createIndex(row, column, quintptr(parent.isValid() ? parent.row() + 1 : 0));
}

QModelIndex CommandModel::parent(const QModelIndex &child) const
{
    if (!child.isValid() || child.internalId() == 0)
        return QModelIndex();
    return createIndex(static_cast<int>(child.internalId()) - 1, 0, quintptr(0));
}

int CommandModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return static_cast<int>(m_places.size());
    if (parent.internalId() != 0 || parent.column() != 0)
        return 0;
    return static_cast<int>(m_places[parent.row()].commands.size());
}

int CommandModel::columnCount(const QModelIndex &) const
{
    return ColumnCount;
}

QVariant CommandModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    if (index.internalId() != 0)
        return commandData(m_places[index.internalId() - 1].commands[index.row()], index.column(),
                           role);
    if (role == Qt::DisplayRole && index.column() == Title)
        return m_places[index.row()].name;
    return QVariant();
}

QVariant CommandModel::commandData(std::size_t position, int column, int role) const
{
    const Command &command = m_commands[position];
    const Row &row = m_rows[position];
    switch (role) {
    case Qt::DisplayRole:
        return column == Title ? command.title : column == KeysColumn ? row.keys : command.id;
    case Qt::FontRole:
        return command.wanted != command.defaults ? m_bold : QVariant();
    case Qt::DecorationRole:
        return row.clashes && column == KeysColumn ? m_clashIcon : QVariant();
    case Qt::ToolTipRole:
        // The column may be too narrow for all of them.
        return row.clashes && column == KeysColumn ? clashText(command)
                                                   : commandData(position, column, Qt::DisplayRole);
    case Qt::AccessibleDescriptionRole:
        if (column != KeysColumn)
            return QVariant();
        if (row.clashes)
            return clashText(command);
        return command.wanted != command.defaults ? tr("Not the default") : QVariant();
    default:
        return QVariant();
    }
}

QVariant CommandModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case Title:
        return tr("Command");
    case KeysColumn:
        return tr("Keys");
    case Id:
        return tr("Id");
    default:
        return QVariant();
    }
}

Qt::ItemFlags CommandModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    // Saves the view from asking for each row.
    if (index.internalId() != 0)
        flags |= Qt::ItemNeverHasChildren;
    return flags;
}

std::optional<std::size_t> CommandModel::find(const QString &id) const
{
    const auto position = m_positions.constFind(id);
    return position == m_positions.constEnd() ? std::nullopt : std::make_optional(*position);
}

bool CommandModel::passes(const Row &row) const
{
    return std::all_of(m_words.cbegin(), m_words.cend(),
                       [&row](const QString &word) { return row.folded.contains(word); });
}

QString CommandModel::clashText(const Command &command) const
{
    QStringList titles;
    for (const QKeySequence &key : command.wanted) {
        for (const Command *holder : holdersOf(key, command.id)) {
            const QString title = tr("\"%1\" (%2)").arg(holder->title, holder->id);
            if (!titles.contains(title))
                titles.append(title);
        }
    }
    return tr("Shares a key with %1").arg(titles.join(tr(", ", "between the names of commands")));
}

void CommandModel::describe(std::size_t position)
{
    const Command &command = m_commands[position];
    Row &row = m_rows[position];
    row.keys = KeyRules::text(command.wanted);
    row.folded = QString(command.place + QLatin1Char('\n') + command.title + QLatin1Char('\n')
                         + command.id + QLatin1Char('\n') + row.keys)
                     .toCaseFolded();
}

void CommandModel::filter()
{
    m_places.clear();
    m_shownCount = 0;
    // A menu goes on behind the submenus it holds.
    QHash<QString, std::size_t> places;
    std::size_t place = 0;
    for (std::size_t i = 0; i < m_commands.size(); ++i) {
        if (!passes(m_rows[i]))
            continue;
        const QString &name = m_commands[i].place;
        if (m_places.empty() || m_places[place].name != name) {
            const auto known = places.constFind(name);
            place = known == places.constEnd() ? m_places.size() : *known;
            if (known == places.constEnd()) {
                places.insert(name, place);
                m_places.push_back({name, {}});
            }
        }
        m_places[place].commands.push_back(i);
        ++m_shownCount;
    }
}

void CommandModel::findClashes()
{
    QHash<QKeySequence, int> counts;
    for (const Command &command : m_commands) {
        for (const QKeySequence &key : command.wanted)
            ++counts[key];
    }
    // Beginnings that are keys themselves: who has such a key clashes, too.
    QSet<QKeySequence> begins;
    const auto beginsWithAnother = [&counts, &begins](const QKeySequence &key) {
        bool found = false;
        for (int count = 1; count < key.count(); ++count) {
            const QKeySequence beginning = strokes(key, count);
            if (counts.contains(beginning)) {
                begins.insert(beginning);
                found = true;
            }
        }
        return found;
    };
    for (std::size_t i = 0; i < m_commands.size(); ++i) {
        m_rows[i].clashes = false;
        for (const QKeySequence &key : qAsConst(m_commands[i].wanted)) {
            if (beginsWithAnother(key) || counts.value(key) > 1)
                m_rows[i].clashes = true;
        }
    }
    for (std::size_t i = 0; i < m_commands.size(); ++i) {
        for (const QKeySequence &key : qAsConst(m_commands[i].wanted)) {
            if (begins.contains(key))
                m_rows[i].clashes = true;
        }
    }
}

void CommandModel::keysChanged()
{
    findClashes();
    for (int place = 0; place < rowCount(); ++place) {
        const QModelIndex parent = index(place, 0);
        Q_EMIT dataChanged(index(0, 0, parent),
                           index(rowCount(parent) - 1, ColumnCount - 1, parent));
    }
}

} // namespace KeyBindings
