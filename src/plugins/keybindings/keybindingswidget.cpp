// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <keybindings/keybindingswidget_p.h>

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/idecore.h>
#include <idecore/views/viewmanager.h>
#include <keybindings/commandmodel_p.h>
#include <keybindings/keyseditor_p.h>
#include <keybindings/userkeys_p.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QPolygonF>
#include <QSettings>
#include <QStyle>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace KeyBindings {

namespace {

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

bool haveClash(const Keys &keys, const Keys &others)
{
    return std::any_of(keys.cbegin(), keys.cend(), [&others](const QKeySequence &key) {
        return std::any_of(others.cbegin(), others.cend(), [&key](const QKeySequence &other) {
            return KeyRules::clash(key, other);
        });
    });
}

bool anotherGivesWayTo(const Command &command, const std::vector<Command> &commands)
{
    return std::any_of(commands.cbegin(), commands.cend(), [&command](const Command &other) {
        return other.id != command.id && !haveClash(other.wanted, command.wanted)
               && haveClash(other.defaults, command.wanted);
    });
}

} // namespace

KeyBindingsWidget::KeyBindingsWidget(UserKeys *userKeys, QWidget *parent)
    : QWidget(parent)
    , m_userKeys(userKeys)
    , m_model(new CommandModel(this))
    , m_filter(new QLineEdit(this))
    , m_count(new QLabel(this))
    , m_list(new QTreeView(this))
    , m_editor(new KeysEditor(m_model, this))
    , m_refresh(new QTimer(this))
{
    auto *const layout = new QVBoxLayout(this);
    createList(layout);
    layout->addWidget(m_editor);
    setFocusProxy(m_filter);
    updateIcons();

    m_refresh->setSingleShot(true);
    m_refresh->setInterval(0);
    connect(m_refresh, &QTimer::timeout, this, &KeyBindingsWidget::fillList);
    // Many commands may come in one go.
    connect(Core::ActionManager::instance(), &Core::ActionManager::actionRegistered, m_refresh,
            qOverload<>(&QTimer::start));
    fillList();
    // No wider than they need to be: the ids get what is left.
    const int width = m_list->fontMetrics().averageCharWidth();
    for (const auto &[column, characters] :
         {std::pair{CommandModel::Title, 34}, std::pair{CommandModel::KeysColumn, 28}}) {
        m_list->resizeColumnToContents(column);
        m_list->header()->resizeSection(
            column,
            std::min(m_list->header()->sectionSize(column) + 2 * width, characters * width));
    }
}

KeyBindingsWidget::~KeyBindingsWidget() = default;

void KeyBindingsWidget::createList(QBoxLayout *layout)
{
    m_filter->setObjectName(QStringLiteral("editFilter"));
    m_filter->setPlaceholderText(tr("Filter by command, menu, id or key"));
    m_filter->setMinimumWidth(
        m_filter->minimumSizeHint().width()
        + m_filter->fontMetrics().horizontalAdvance(m_filter->placeholderText()));
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
    layout->addWidget(m_list, 1);

    connect(m_filter, &QLineEdit::textChanged, this, &KeyBindingsWidget::setFilter);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &KeyBindingsWidget::onCurrentChanged);
    connect(m_list, &QTreeView::doubleClicked, m_editor, &KeysEditor::record);
    m_list->installEventFilter(this);
}

void KeyBindingsWidget::apply()
{
    if (!m_model->isEdited())
        return;
    const std::vector<Command> commands = m_model->commands();
    Keys chosen;
    for (const Command &command : commands) {
        if (command.wanted != command.defaults
            && (command.wanted != command.present || m_userKeys->isChosen(command.id)))
            chosen += command.wanted;
    }
    for (const Command &command : commands) {
        if (command.wanted != command.defaults) {
            if (command.wanted != command.present)
                m_userKeys->setKeys(command.id, command.wanted);
        } else if (haveClash(command.defaults, chosen)) {
            // To be shared is a choice; a mere default would give way.
            if (!m_userKeys->isChosen(command.id))
                m_userKeys->setKeys(command.id, command.defaults);
        } else if (m_userKeys->isChosen(command.id) && !anotherGivesWayTo(command, commands)) {
            m_userKeys->reset(command.id);
        }
    }
    m_userKeys->settle();
    m_model->setApplied();
}

bool KeyBindingsWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    // From the list to where a key is recorded; neither here nor from the filter
    // does it press the default button of the dialog.
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (watched == m_list)
            m_editor->record();
        else
            goToList();
        return true;
    // From typing straight into the rows.
    case Qt::Key_Down:
    case Qt::Key_Up:
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
        if (watched != m_filter)
            break;
        goToList();
        return true;
    case Qt::Key_Escape:
        if (watched != m_filter || m_filter->text().isEmpty())
            break;
        m_filter->clear();
        return true;
    default:
        break;
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
    m_editor->setSign(sign);
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
        m_count->setText(tr("No such command"));
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

void KeyBindingsWidget::goToList()
{
    m_list->setFocus(Qt::OtherFocusReason);
    if (!current())
        select(firstShown());
}

void KeyBindingsWidget::onCurrentChanged()
{
    const Command *const command = current();
    if (command)
        m_current = command->id;
    m_editor->setCommand(command ? command->id : QString());
}

} // namespace KeyBindings
