// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <keybindings/keybindingswidget_p.h>

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/idecore.h>
#include <idecore/views/viewmanager.h>
#include <keybindings/commandmodel_p.h>
#include <keybindings/keyrecorder_p.h>
#include <keybindings/userkeys_p.h>

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QPolygonF>
#include <QPushButton>
#include <QSettings>
#include <QStyle>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace KeyBindings {

namespace {

QString textOf(const QKeySequence &key)
{
    return key.toString(QKeySequence::NativeText);
}

Keys without(const Keys &keys, const QKeySequence &clashing)
{
    Keys left;
    std::copy_if(keys.cbegin(), keys.cend(), std::back_inserter(left),
                 [&clashing](const QKeySequence &key) { return !KeyRules::clash(key, clashing); });
    return left;
}

/// Seen on every ground, that of a selected row as well, which the signs of an
/// icon theme need not be.
QPixmap warningSign(int size, qreal ratio)
{
    QPixmap pixmap(QSize(size, size) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    // On a grid of sixteen.
    painter.scale(size / 16.0, size / 16.0);
    painter.setBrush(QColor(0xcc, 0x70, 0x1a));
    painter.setPen(QPen(QColor(255, 255, 255, 200), 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolygon(QPolygonF({{8, 1.5}, {15, 14.5}, {1, 14.5}}));
    painter.setPen(QPen(Qt::white, 1.8, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(8, 6), QPointF(8, 9.5));
    painter.drawPoint(QPointF(8, 12.3));
    return pixmap;
}

} // namespace

KeyBindingsWidget::KeyBindingsWidget(UserKeys *userKeys, QWidget *parent)
    : QWidget(parent)
    , m_userKeys(userKeys)
    , m_model(new CommandModel(this))
    , m_filter(new QLineEdit(this))
    , m_count(new QLabel(this))
    , m_list(new QTreeView(this))
    , m_editor(new QGroupBox(this))
    , m_keys(new QListWidget(m_editor))
    , m_remove(new QPushButton(tr("Re&move"), m_editor))
    , m_reset(new QPushButton(tr("&Reset"), m_editor))
    , m_recorder(new KeyRecorder(m_editor))
    , m_add(new QPushButton(tr("A&dd"), m_editor))
    , m_sign(new QLabel(m_editor))
    , m_message(new QLabel(m_editor))
    , m_resetAll(new QPushButton(tr("Reset A&ll"), this))
    , m_refresh(new QTimer(this))
{
    auto *const layout = new QVBoxLayout(this);
    createList(layout);
    createEditor(layout);
    setFocusProxy(m_filter);
    updateIcons();

    m_refresh->setSingleShot(true);
    m_refresh->setInterval(0);
    connect(m_refresh, &QTimer::timeout, this, &KeyBindingsWidget::fillList);
    // Many commands may come in one go.
    connect(Core::ActionManager::instance(), &Core::ActionManager::actionRegistered, m_refresh,
            qOverload<>(&QTimer::start));
    fillList();
}

KeyBindingsWidget::~KeyBindingsWidget() = default;

void KeyBindingsWidget::createList(QBoxLayout *layout)
{
    m_filter->setObjectName(QStringLiteral("editFilter"));
    m_filter->setPlaceholderText(tr("Filter by command, menu, id or key"));
    m_filter->setAccessibleName(tr("Filter"));
    m_filter->setClearButtonEnabled(true);
    m_filter->installEventFilter(this);
    m_count->setObjectName(QStringLiteral("labelCount"));
    auto *const filterRow = new QHBoxLayout;
    filterRow->addWidget(m_filter);
    filterRow->addWidget(m_count);
    layout->addLayout(filterRow);

    m_list->setObjectName(QStringLiteral("treeCommands"));
    m_list->setAccessibleName(tr("Commands"));
    m_list->setModel(m_model);
    m_list->setUniformRowHeights(true);
    m_list->setAlternatingRowColors(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setTabKeyNavigation(false);
    m_list->header()->setSectionsMovable(false);
    m_list->header()->setStretchLastSection(true);
    const int width = m_list->fontMetrics().averageCharWidth();
    m_list->header()->resizeSection(CommandModel::Title, 34 * width);
    m_list->header()->resizeSection(CommandModel::KeysColumn, 28 * width);
    layout->addWidget(m_list, 1);

    connect(m_filter, &QLineEdit::textChanged, this, &KeyBindingsWidget::setFilter);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &KeyBindingsWidget::onCurrentChanged);
    // To where a key for it is recorded.
    connect(m_list, &QTreeView::activated, this, [this] {
        if (current())
            m_recorder->setFocus(Qt::OtherFocusReason);
    });
}

void KeyBindingsWidget::createEditor(QBoxLayout *layout)
{
    m_editor->setObjectName(QStringLiteral("groupKeys"));
    m_keys->setObjectName(QStringLiteral("listKeys"));
    m_remove->setObjectName(QStringLiteral("btnRemove"));
    m_reset->setObjectName(QStringLiteral("btnReset"));
    m_recorder->setObjectName(QStringLiteral("editKey"));
    m_add->setObjectName(QStringLiteral("btnAdd"));
    m_message->setObjectName(QStringLiteral("labelMessage"));
    m_resetAll->setObjectName(QStringLiteral("btnResetAll"));
    for (QPushButton *button : {m_remove, m_reset, m_add, m_resetAll}) {
        // Return in the list or the filter is not for one of them.
        button->setAutoDefault(false);
    }
    m_reset->setToolTip(tr("Gives the command the keys it had at first"));
    m_resetAll->setToolTip(tr("Gives all commands the keys they had at first"));
    m_keys->setFlow(QListView::LeftToRight);
    m_keys->setWrapping(true);
    m_keys->setResizeMode(QListView::Adjust);
    m_keys->setSpacing(2);
    // Two rows: most commands have few keys.
    m_keys->setFixedHeight(2 * (m_keys->fontMetrics().height() + 3 * m_keys->spacing())
                           + 2 * m_keys->frameWidth());
    m_keys->setTabKeyNavigation(false);
    m_message->setWordWrap(true);
    m_message->setTextFormat(Qt::PlainText);
    // What is said must not move what one is about to click.
    m_message->setMinimumHeight(2 * m_message->fontMetrics().lineSpacing());
    m_message->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    auto *const keysLabel = new QLabel(tr("&Keys:"), m_editor);
    keysLabel->setBuddy(m_keys);
    auto *const recorderLabel = new QLabel(tr("&New key:"), m_editor);
    recorderLabel->setBuddy(m_recorder);
    m_keys->setAccessibleName(tr("Keys of the command"));
    m_recorder->setAccessibleName(tr("New key"));
    m_recorder->setAccessibleDescription(tr("Press the keys; Tab leaves the field"));

    auto *const grid = new QGridLayout(m_editor);
    grid->addWidget(keysLabel, 0, 0);
    grid->addWidget(m_keys, 0, 1);
    grid->addWidget(m_remove, 0, 2);
    grid->addWidget(m_reset, 0, 3);
    grid->addWidget(recorderLabel, 1, 0);
    grid->addWidget(m_recorder, 1, 1);
    grid->addWidget(m_add, 1, 2);
    grid->addWidget(m_resetAll, 1, 3);
    auto *const messageRow = new QHBoxLayout;
    messageRow->addWidget(m_sign);
    messageRow->addWidget(m_message, 1);
    grid->addLayout(messageRow, 2, 1, 1, 3);
    grid->setColumnStretch(1, 1);
    layout->addWidget(m_editor);

    connect(m_keys, &QListWidget::currentRowChanged, this, &KeyBindingsWidget::updateButtons);
    connect(m_recorder, &KeyRecorder::keyChanged, this, &KeyBindingsWidget::onKeyRecorded);
    connect(m_recorder, &KeyRecorder::refused, this, &KeyBindingsWidget::onKeyRefused);
    connect(m_recorder, &KeyRecorder::finished, m_add, &QPushButton::click);
    connect(m_add, &QPushButton::clicked, this, &KeyBindingsWidget::addRecorded);
    connect(m_remove, &QPushButton::clicked, this, &KeyBindingsWidget::removeSelected);
    connect(m_reset, &QPushButton::clicked, this, &KeyBindingsWidget::resetCurrent);
    connect(m_resetAll, &QPushButton::clicked, this, &KeyBindingsWidget::resetAll);
}

void KeyBindingsWidget::apply()
{
    if (!m_model->isEdited())
        return;
    const std::vector<Command> commands = m_model->commands();
    for (const Command &command : commands) {
        if (command.wanted == command.present)
            continue;
        if (command.wanted == command.defaults)
            m_userKeys->reset(command.id);
        else
            m_userKeys->setKeys(command.id, command.wanted);
    }
    m_model->setApplied();
    if (!UserKeys::canBeStored()) {
        QMessageBox::warning(Core::ViewManager::dialogParent(), tr("Keyboard"),
                             tr("The keys hold until the program ends: \"%1\" cannot be written.")
                                 .arg(Core::IdeCore::userSettings()->fileName()));
    }
}

bool KeyBindingsWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_filter && event->type() == QEvent::KeyPress) {
        const auto *const press = static_cast<QKeyEvent *>(event);
        switch (press->key()) {
        // From typing straight into the rows.
        case Qt::Key_Down:
        case Qt::Key_Up:
        case Qt::Key_PageDown:
        case Qt::Key_PageUp:
            m_list->setFocus(Qt::OtherFocusReason);
            if (!current())
                select(firstShown());
            return true;
        case Qt::Key_Escape:
            if (m_filter->text().isEmpty())
                break;
            m_filter->clear();
            return true;
        default:
            break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void KeyBindingsWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::PaletteChange)
        updateIcons();
}

void KeyBindingsWidget::updateIcons()
{
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    const QPixmap sign = warningSign(size, devicePixelRatioF());
    QIcon icon(sign);
    // Not in the colour of the selection.
    icon.addPixmap(sign, QIcon::Selected);
    m_model->setClashIcon(icon);
    m_sign->setPixmap(sign);
}

void KeyBindingsWidget::fillList()
{
    m_model->setCommands(listCommands(*m_userKeys));
    showList();
}

void KeyBindingsWidget::setFilter(const QString &text)
{
    m_model->setFilter(text);
    showList();
}

void KeyBindingsWidget::showList()
{
    m_list->expandAll();
    for (int place = 0; place < m_model->rowCount(); ++place)
        m_list->setFirstColumnSpanned(place, QModelIndex(), true);
    const int shown = m_model->shownCount();
    const int all = static_cast<int>(m_model->commands().size());
    if (shown == 0)
        m_count->setText(tr("No command has all of these words."));
    else if (shown == all)
        m_count->setText(tr("%1 commands").arg(all));
    else
        m_count->setText(tr("%1 of %2 commands").arg(shown).arg(all));
    // What is narrowed down to one is chosen.
    select(shown == 1 ? firstShown() : m_current);
}

QString KeyBindingsWidget::firstShown() const
{
    const Command *const first = m_model->command(m_model->index(0, 0, m_model->index(0, 0)));
    return first ? first->id : QString();
}

void KeyBindingsWidget::select(const QString &id)
{
    const QModelIndex index = m_model->indexOf(id);
    if (index.isValid()) {
        m_list->setCurrentIndex(index);
        m_list->scrollTo(index);
    }
    onCurrentChanged();
}

const Command *KeyBindingsWidget::current() const
{
    return m_model->command(m_list->currentIndex());
}

void KeyBindingsWidget::onCurrentChanged()
{
    const Command *const command = current();
    // Another one is another question.
    if (!command || command->id != m_shown)
        m_recorder->setKey(QKeySequence());
    if (command)
        m_current = command->id;
    m_shown = command ? command->id : QString();
    showCurrent();
}

void KeyBindingsWidget::showCurrent()
{
    const Command *const command = current();
    m_editor->setTitle(command ? tr("Keys of \"%1\"").arg(command->title)
                               : tr("Keys of a command"));
    m_keys->clear();
    if (command) {
        for (const QKeySequence &key : command->wanted)
            m_keys->addItem(textOf(key));
        if (m_keys->count() > 0)
            m_keys->setCurrentRow(0);
    }
    onKeyRecorded();
}

void KeyBindingsWidget::onKeyRecorded()
{
    const Command *const command = current();
    const QKeySequence key = m_recorder->key();
    if (!command) {
        say(tr("Choose a command in the list."), false);
    } else if (key.isEmpty()) {
        sayClashes(*command);
    } else {
        const Obstacle obstacle = obstacleTo(key);
        if (!obstacle.refusal.isEmpty())
            say(obstacle.refusal, true);
        else if (!obstacle.holders.empty())
            say(tr("%1 clashes with %2.").arg(textOf(key), namesOf(obstacle.holders)), true);
        else
            say(tr("%1 is free.").arg(textOf(key)), false);
    }
    updateButtons();
}

void KeyBindingsWidget::onKeyRefused(const QKeySequence &key)
{
    say(tr("%1 cannot be a key of a command. %2").arg(textOf(key), KeyRules::whyReserved(key)),
        true);
    updateButtons();
}

void KeyBindingsWidget::sayClashes(const Command &command)
{
    for (const QKeySequence &key : command.wanted) {
        const std::vector<const Command *> holders = m_model->holdersOf(key, command.id);
        if (!holders.empty()) {
            say(tr("%1 clashes with %2.").arg(textOf(key), namesOf(holders)), true);
            return;
        }
    }
    say(tr("To give it a key, press it in the field. Several in a row make one key of several"
           " strokes."),
        false);
}

void KeyBindingsWidget::say(const QString &text, bool warning)
{
    m_sign->setVisible(warning);
    m_message->setText(text);
    // For those who hear the field rather than see what stands below.
    m_recorder->setAccessibleDescription(text);
}

void KeyBindingsWidget::updateButtons()
{
    const Command *const command = current();
    m_keys->setEnabled(command);
    m_recorder->setEnabled(command);
    m_add->setEnabled(command && !m_recorder->key().isEmpty()
                      && obstacleTo(m_recorder->key()).refusal.isEmpty());
    m_remove->setEnabled(command && m_keys->currentRow() >= 0);
    m_reset->setEnabled(command && command->wanted != command->defaults);
    m_resetAll->setEnabled(m_model->hasUserKeys());
}

KeyBindingsWidget::Obstacle KeyBindingsWidget::obstacleTo(const QKeySequence &key) const
{
    const Command *const command = current();
    if (!command)
        return {};
    const QString text = textOf(key);
    for (const QKeySequence &own : command->wanted) {
        if (own == key)
            return {tr("%1 is a key of this command already.").arg(text), {}};
        if (KeyRules::clash(own, key))
            return {tr("%1 clashes with %2, another key of this command.").arg(text, textOf(own)),
                    {}};
    }
    const QString holder = m_fixed.holderOf(key);
    if (!holder.isEmpty())
        return {tr("%1 clashes with a key of %2, which cannot be changed.").arg(text, holder), {}};
    return {QString(), m_model->holdersOf(key, command->id)};
}

QString KeyBindingsWidget::namesOf(const std::vector<const Command *> &commands)
{
    // More are no more help.
    constexpr std::size_t Most = 4;
    QStringList names;
    for (const Command *command : commands) {
        if (names.size() == static_cast<int>(Most)) {
            names.append(tr("%1 more").arg(commands.size() - Most));
            break;
        }
        names.append(
            tr("\"%1\" (%2)", "a command and its menu").arg(command->title, command->place));
    }
    return names.join(tr(", ", "between the names of commands"));
}

void KeyBindingsWidget::addRecorded()
{
    const Command *const command = current();
    const QKeySequence key = m_recorder->key();
    if (!command || key.isEmpty() || !obstacleTo(key).refusal.isEmpty())
        return;
    if (give(command->id, command->wanted + Keys{key}, {key})) {
        m_recorder->setKey(QKeySequence());
        showCurrent();
    }
}

void KeyBindingsWidget::removeSelected()
{
    const Command *const command = current();
    const int row = m_keys->currentRow();
    if (!command || row < 0)
        return;
    Keys keys = command->wanted;
    keys.removeAt(row);
    m_model->setWanted(command->id, keys);
    showCurrent();
    // The button is disabled when it was the last, and the focus must not be lost.
    if (keys.isEmpty())
        m_recorder->setFocus(Qt::OtherFocusReason);
}

void KeyBindingsWidget::resetCurrent()
{
    const Command *const command = current();
    if (!command)
        return;
    Keys fresh = command->defaults;
    for (const QKeySequence &key : command->wanted)
        fresh.removeAll(key);
    if (give(command->id, command->defaults, fresh)) {
        showCurrent();
        m_recorder->setFocus(Qt::OtherFocusReason);
    }
}

void KeyBindingsWidget::resetAll()
{
    m_model->setAllToDefault();
    showCurrent();
    m_filter->setFocus(Qt::OtherFocusReason);
}

bool KeyBindingsWidget::give(const QString &id, const Keys &keys, const Keys &fresh)
{
    // The list may be filled anew while the user is asked.
    const QString receiver = id;
    const Keys wanted = keys;
    QHash<QString, Keys> others;
    for (const QKeySequence &key : Keys(fresh)) {
        const std::vector<const Command *> holders = m_model->holdersOf(key, receiver);
        if (holders.empty())
            continue;
        QHash<QString, Keys> left = others;
        for (const Command *holder : holders)
            left.insert(holder->id, without(others.value(holder->id, holder->wanted), key));
        const Choice choice = ask(key, namesOf(holders));
        if (choice == Choice::Cancel)
            return false;
        if (choice == Choice::Reassign)
            others = left;
    }
    for (auto it = others.cbegin(); it != others.cend(); ++it)
        m_model->setWanted(it.key(), it.value());
    m_model->setWanted(receiver, wanted);
    return true;
}

KeyBindingsWidget::Choice KeyBindingsWidget::ask(const QKeySequence &key, const QString &holders)
{
    // Goes with this, should that be destroyed meanwhile.
    const QPointer<QMessageBox> box(new QMessageBox(
        QMessageBox::Warning, tr("Keyboard"), tr("%1 clashes with %2.").arg(textOf(key), holders),
        QMessageBox::Cancel, this));
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(tr("A shared key works where only one of the commands is available;"
                               " where both are, neither gets it."));
    QAbstractButton *const reassign = box->addButton(tr("&Reassign"), QMessageBox::AcceptRole);
    QAbstractButton *const share = box->addButton(tr("&Share"), QMessageBox::NoRole);
    reassign->setObjectName(QStringLiteral("btnReassign"));
    share->setObjectName(QStringLiteral("btnShare"));
    box->setDefaultButton(QMessageBox::Cancel);
    box->exec();
    if (!box)
        return Choice::Cancel;
    const QAbstractButton *const clicked = box->clickedButton();
    box->deleteLater();
    return clicked == reassign ? Choice::Reassign
           : clicked == share  ? Choice::Share
                               : Choice::Cancel;
}

} // namespace KeyBindings
