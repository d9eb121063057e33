// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <keybindings/keyseditor_p.h>

#include <keybindings/commandmodel_p.h>
#include <keybindings/keyrecorder_p.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHash>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPixmap>
#include <QPointer>
#include <QPushButton>

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

} // namespace

KeysEditor::KeysEditor(CommandModel *model, QWidget *parent)
    : QGroupBox(parent)
    , m_model(model)
    , m_keys(new QListWidget(this))
    , m_remove(new QPushButton(tr("Re&move"), this))
    , m_reset(new QPushButton(tr("&Reset"), this))
    , m_recorder(new KeyRecorder(this))
    , m_add(new QPushButton(tr("A&dd"), this))
    , m_resetAll(new QPushButton(tr("Reset A&ll"), this))
    , m_sign(new QLabel(this))
    , m_message(new QLabel(this))
{
    setObjectName(QStringLiteral("groupKeys"));
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
    m_keys->installEventFilter(this);
    m_message->setWordWrap(true);
    m_message->setTextFormat(Qt::PlainText);
    // What is said must not move what one is about to click.
    m_message->setMinimumHeight(2 * m_message->fontMetrics().lineSpacing());
    m_message->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    auto *const keysLabel = new QLabel(tr("&Keys:"), this);
    keysLabel->setBuddy(m_keys);
    auto *const recorderLabel = new QLabel(tr("&New key:"), this);
    recorderLabel->setBuddy(m_recorder);
    m_keys->setAccessibleName(tr("Keys of the command"));
    m_recorder->setAccessibleName(tr("New key"));
    m_recorder->setAccessibleDescription(tr("Press the keys; Tab leaves the field"));

    auto *const grid = new QGridLayout(this);
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

    connect(m_keys, &QListWidget::currentRowChanged, this, &KeysEditor::updateButtons);
    connect(m_recorder, &KeyRecorder::keyChanged, this, &KeysEditor::onKeyRecorded);
    connect(m_recorder, &KeyRecorder::refused, this, &KeysEditor::onKeyRefused);
    connect(m_recorder, &KeyRecorder::finished, m_add, &QPushButton::click);
    connect(m_add, &QPushButton::clicked, this, &KeysEditor::addRecorded);
    connect(m_remove, &QPushButton::clicked, this, &KeysEditor::removeSelected);
    connect(m_reset, &QPushButton::clicked, this, &KeysEditor::resetCurrent);
    connect(m_resetAll, &QPushButton::clicked, this, &KeysEditor::resetAll);
}

KeysEditor::~KeysEditor() = default;

void KeysEditor::setCommand(const QString &id)
{
    // Another one is another question.
    if (id != m_id)
        m_recorder->setKey(QKeySequence());
    m_id = id;
    showCurrent();
}

void KeysEditor::setSign(const QPixmap &sign)
{
    m_sign->setPixmap(sign);
}

void KeysEditor::record()
{
    if (current())
        m_recorder->setFocus(Qt::OtherFocusReason);
}

bool KeysEditor::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_keys && event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent *>(event)->matches(QKeySequence::Delete)) {
        removeSelected();
        return true;
    }
    return QGroupBox::eventFilter(watched, event);
}

const Command *KeysEditor::current() const
{
    return m_model->command(m_id);
}

void KeysEditor::onKeyRecorded()
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
        else if (const QString replaced = m_fixed.replacedBy(key); !replaced.isEmpty())
            say(tr("In a document, %1 would no longer do \"%2\".").arg(textOf(key), replaced),
                true);
        else
            say(tr("%1 is free.").arg(textOf(key)), false);
    }
    updateButtons();
}

void KeysEditor::onKeyRefused(const QKeySequence &key)
{
    say(tr("%1 cannot be a key of a command. %2").arg(textOf(key), KeyRules::whyReserved(key)),
        true);
    updateButtons();
}

void KeysEditor::sayClashes(const Command &command)
{
    for (const QKeySequence &key : command.wanted) {
        const std::vector<const Command *> holders = m_model->holdersOf(key, command.id);
        if (!holders.empty()) {
            say(tr("%1 clashes with %2.").arg(textOf(key), namesOf(holders)), true);
            return;
        }
    }
    say(tr("Press a new key in the field. Several in a row make one key of several"
           " strokes."),
        false);
}

void KeysEditor::say(const QString &text, bool warning)
{
    m_sign->setVisible(warning);
    m_message->setText(text);
    // For those who hear the field rather than see what stands below.
    m_recorder->setAccessibleDescription(text);
}

void KeysEditor::showCurrent()
{
    const Command *const command = current();
    // An ampersand would mark a mnemonic.
    setTitle(command
                 ? tr("Keys of \"%1\"")
                       .arg(QString(command->title).replace(QLatin1Char('&'), QLatin1String("&&")))
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

void KeysEditor::updateButtons()
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

KeysEditor::Obstacle KeysEditor::obstacleTo(const QKeySequence &key) const
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

QString KeysEditor::namesOf(const std::vector<const Command *> &commands)
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

void KeysEditor::addRecorded()
{
    const Command *const command = current();
    const QKeySequence key = m_recorder->key();
    if (!command || key.isEmpty() || !obstacleTo(key).refusal.isEmpty())
        return;
    if (give(QString(command->id), command->wanted + Keys{key}, {key})) {
        m_recorder->setKey(QKeySequence());
        showCurrent();
    }
}

void KeysEditor::removeSelected()
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

void KeysEditor::resetCurrent()
{
    const Command *const command = current();
    if (!command)
        return;
    Keys fresh = command->defaults;
    for (const QKeySequence &key : command->wanted)
        fresh.removeAll(key);
    if (give(QString(command->id), Keys(command->defaults), fresh)) {
        showCurrent();
        m_recorder->setFocus(Qt::OtherFocusReason);
    }
}

void KeysEditor::resetAll()
{
    m_model->setAllToDefault();
    showCurrent();
}

bool KeysEditor::give(const QString &id, const Keys &keys, const Keys &fresh)
{
    QHash<QString, Keys> others;
    for (const QKeySequence &key : fresh) {
        const std::vector<const Command *> holders = m_model->holdersOf(key, id);
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
    m_model->setWanted(id, keys);
    return true;
}

KeysEditor::Choice KeysEditor::ask(const QKeySequence &key, const QString &holders)
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
