// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/wizards/porttable_p.h>

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QSpinBox>
#include <QStyledItemDelegate>
#include <QTableWidget>

namespace Fpga {

namespace {

enum Column { Name, Direction, Width };
constexpr int MAX_WIDTH = 65536;

/// Says what is edited to whom the column is not seen.
class NamedEditor final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override
    {
        QWidget *const editor = QStyledItemDelegate::createEditor(parent, option, index);
        editor->setAccessibleName(PortTable::tr("Port"));
        return editor;
    }
};

} // namespace

PortTable::PortTable(QWidget *parent)
    : QWidget(parent)
    , m_table(new QTableWidget(0, 3, this))
{
    m_table->setObjectName(QStringLiteral("tablePorts"));
    m_table->setAccessibleName(tr("Ports"));
    m_table->setHorizontalHeaderLabels({tr("Port"), tr("Direction"), tr("Width")});
    m_table->horizontalHeader()->setSectionResizeMode(Name, QHeaderView::Stretch);
    // Other languages have longer words.
    for (const int column : {Direction, Width}) {
        const int needed = m_table->horizontalHeader()->sectionSizeHint(column);
        if (m_table->columnWidth(column) < needed)
            m_table->setColumnWidth(column, needed);
    }
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->verticalHeader()->hide();
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setItemDelegateForColumn(Name, new NamedEditor(m_table));
    m_table->setMinimumHeight(120);
    auto *const add = new QPushButton(tr("Add Port"), this);
    add->setObjectName(QStringLiteral("btnAddPort"));
    add->setAutoDefault(false);
    auto *const remove = new QPushButton(tr("Remove Port"), this);
    remove->setObjectName(QStringLiteral("btnRemovePort"));
    remove->setAutoDefault(false);
    remove->setEnabled(false);
    connect(add, &QPushButton::clicked, this, &PortTable::addPort);
    connect(remove, &QPushButton::clicked, this, &PortTable::removePort);
    connect(m_table, &QTableWidget::itemSelectionChanged, remove,
            [this, remove] { remove->setEnabled(m_table->currentRow() >= 0); });
    connect(m_table, &QTableWidget::itemChanged, this, &PortTable::changed);

    auto *const buttons = new QVBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(remove);
    buttons->addStretch();
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_table, 1);
    layout->addLayout(buttons);
    setFocusProxy(m_table);
}

PortTable::~PortTable() = default;

void PortTable::addPort()
{
    const int row = m_table->rowCount();
    m_table->insertRow(row);
    auto *const direction = new QComboBox(m_table);
    direction->addItems({QStringLiteral("in"), QStringLiteral("out"), QStringLiteral("inout")});
    direction->setFrame(false);
    auto *const width = new QSpinBox(m_table);
    width->setRange(1, MAX_WIDTH);
    width->setFrame(false);
    width->setSuffix(tr(" bit"));
    direction->setAccessibleName(tr("Direction"));
    width->setAccessibleName(tr("Width"));
    m_table->setCellWidget(row, Direction, direction);
    m_table->setCellWidget(row, Width, width);
    for (const int column : {Direction, Width}) {
        const int needed = m_table->cellWidget(row, column)->sizeHint().width() + 1; // its line
        if (m_table->columnWidth(column) < needed)
            m_table->setColumnWidth(column, needed);
    }
    m_table->setItem(row, Name, new QTableWidgetItem);
    // Tab goes through the rows before it leaves the table.
    setTabOrder(row > 0 ? m_table->cellWidget(row - 1, Width) : m_table, direction);
    setTabOrder(direction, width);
    connect(direction, qOverload<int>(&QComboBox::currentIndexChanged), this, &PortTable::changed);
    connect(width, qOverload<int>(&QSpinBox::valueChanged), this, &PortTable::changed);
    m_table->setCurrentCell(row, Name);
    m_table->editItem(m_table->item(row, Name));
}

void PortTable::removePort()
{
    m_table->removeRow(m_table->currentRow());
    Q_EMIT changed();
}

QVector<Port> PortTable::ports() const
{
    QVector<Port> ports;
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const QTableWidgetItem *const item = m_table->item(row, Name);
        const QString name = item ? item->text().trimmed() : QString();
        if (name.isEmpty())
            continue;
        const auto *direction = qobject_cast<QComboBox *>(m_table->cellWidget(row, Direction));
        const auto *width = qobject_cast<QSpinBox *>(m_table->cellWidget(row, Width));
        ports.append({name, Port::Direction(direction->currentIndex()), width->value()});
    }
    return ports;
}

} // namespace Fpga
