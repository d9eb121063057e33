// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/wizards/devicepicker_p.h>

#include <fpgaproject/wizards/devicetablemodel_p.h>

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

namespace Fpga {

DevicePicker::DevicePicker(const QVector<DEV::Device> &devices, QWidget *parent)
    : QWidget(parent)
    , m_model(new DeviceTableModel(devices, this))
    , m_filter(new DeviceFilter(m_model, this))
    , m_text(new QLineEdit(this))
    , m_table(new QTableView(this))
    , m_none(new QLabel(this))
{
    m_text->setObjectName(QStringLiteral("editFilter"));
    m_text->setPlaceholderText(tr("Filter by part, series, package or speed"));
    m_text->setClearButtonEnabled(true);
    m_text->setAccessibleName(tr("Filter"));
    m_text->installEventFilter(this);
    m_table->setObjectName(QStringLiteral("tableDevices"));
    m_table->setAccessibleName(tr("Devices"));
    m_table->setModel(m_filter);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setSortingEnabled(true);
    // As the table of the devices stands, until the user sorts it.
    m_table->sortByColumn(-1, Qt::AscendingOrder);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 8);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->resizeColumnsToContents();
    m_none->setObjectName(QStringLiteral("labelNone"));

    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text);
    layout->addWidget(m_table);
    layout->addWidget(m_none);
    connect(m_text, &QLineEdit::textChanged, this, &DevicePicker::onTextChanged);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &DevicePicker::deviceChanged);
    connect(m_table, &QTableView::activated, this, &DevicePicker::deviceActivated);
    setFocusProxy(m_text);
    onTextChanged(QString());
}

DevicePicker::~DevicePicker() = default;

std::optional<DEV::Device> DevicePicker::device() const
{
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    if (rows.isEmpty())
        return std::nullopt;
    return m_model->device(m_filter->mapToSource(rows.first()).row());
}

DeviceChoice DevicePicker::choice() const
{
    const std::optional<DEV::Device> chosen = device();
    return chosen ? DeviceChoice{chosen->part, chosen->package, chosen->speedGrade}
                  : DeviceChoice();
}

void DevicePicker::selectPart(const QString &part)
{
    for (int row = 0; row < m_filter->rowCount(); ++row) {
        const QModelIndex index = m_filter->index(row, DeviceTableModel::Part);
        if (index.data().toString() != part)
            continue;
        m_table->selectRow(row);
        m_table->scrollTo(index);
        return;
    }
}

void DevicePicker::onTextChanged(const QString &text)
{
    m_filter->setText(text);
    const int count = m_filter->rowCount();
    if (m_model->rowCount() == 0)
        m_none->setText(tr("The table of devices is missing or empty."));
    else if (count == 0)
        m_none->setText(tr("No device has all of these words in its names."));
    else
        m_none->setText(tr("%1 of %2 devices").arg(count).arg(m_model->rowCount()));
    // What is narrowed down to one is chosen.
    if (count == 1)
        m_table->selectRow(0);
}

bool DevicePicker::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_text && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        // From typing straight into the rows.
        if (key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_PageDown
            || key == Qt::Key_PageUp) {
            if (!m_table->currentIndex().isValid() && m_filter->rowCount() > 0)
                m_table->selectRow(0);
            else
                QCoreApplication::sendEvent(m_table, event);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace Fpga
