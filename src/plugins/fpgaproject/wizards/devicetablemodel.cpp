// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/wizards/devicetablemodel_p.h>

#include <QLocale>

#include <algorithm>

namespace Fpga {

DeviceTableModel::DeviceTableModel(const QVector<DEV::Device> &devices, QObject *parent)
    : QAbstractTableModel(parent)
    , m_devices(devices)
{
    m_names.reserve(devices.size());
    for (const DEV::Device &device : devices) {
        m_names.append(QStringList({device.part, device.series, device.name, device.package,
                                    device.speedGrade})
                           .join(QLatin1Char('\n'))
                           .toLower());
    }
}

DeviceTableModel::~DeviceTableModel() = default;

bool DeviceTableModel::matches(int row, const QStringList &words) const
{
    const QString &names = m_names.at(row);
    return std::all_of(words.cbegin(), words.cend(),
                       [&](const QString &word) { return names.contains(word); });
}

int DeviceTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_devices.size();
}

int DeviceTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant DeviceTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::TextAlignmentRole && index.column() >= LogicCells)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != SORT_ROLE)
        return {};
    const DEV::Device &device = m_devices.at(index.row());
    const auto number = [role](int value) {
        return role == SORT_ROLE ? QVariant(value) : QVariant(QLocale().toString(value));
    };
    switch (index.column()) {
    case Part:
        return device.part;
    case Series:
        return device.series;
    case Package:
        return device.package;
    case SpeedGrade:
        return device.speedGrade;
    case LogicCells:
        return number(device.logicCells);
    case FlipFlops:
        return number(device.flipFlops);
    case BlockRam:
        return number(device.blockRamBits);
    case Dsps:
        return number(device.dspBlocks);
    case Plls:
        return number(device.plls);
    case UserIos:
        return number(device.userIos);
    default:
        return {};
    }
}

QVariant DeviceTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Part:
        return tr("Part");
    case Series:
        return tr("Series");
    case Package:
        return tr("Package");
    case SpeedGrade:
        return tr("Speed");
    case LogicCells:
        return tr("Logic Cells");
    case FlipFlops:
        return tr("Flip-Flops");
    case BlockRam:
        return tr("RAM Bits");
    case Dsps:
        return tr("DSP");
    case Plls:
        return tr("PLL");
    case UserIos:
        return tr("User I/O");
    default:
        return {};
    }
}

DeviceFilter::DeviceFilter(DeviceTableModel *model, QObject *parent)
    : QSortFilterProxyModel(parent)
    , m_model(model)
{
    setSortRole(DeviceTableModel::SORT_ROLE);
    setSourceModel(model);
}

DeviceFilter::~DeviceFilter() = default;

void DeviceFilter::setText(const QString &text)
{
    QStringList words;
    const QStringList typed = text.toLower().split(QLatin1Char(' '));
    for (const QString &word : typed) {
        if (!word.isEmpty())
            words.append(word);
    }
    if (words == m_words)
        return;
    m_words = words;
    invalidateFilter();
}

bool DeviceFilter::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    return m_model->matches(row, m_words);
}

} // namespace Fpga
