// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/options/newitempage_p.h>

#include <devicedb/device.h>
#include <devicedb/devicedb.h>
#include <fpgaproject/options/newitemsettings_p.h>
#include <idecore/core/idecore.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

namespace Fpga {

NewItemPage::NewItemPage(QObject *parent)
    : IOptionsPage(parent)
{
    setId(QStringLiteral("A.NewItems"));
    setCategoryId(QStringLiteral("C.FpgaProject"));
    setDisplayName(tr("New Files and Projects"));
    setDisplayCategory(tr("FPGA Project"));
    setCategoryIcon(QStringLiteral(":/core/image/new_project.png"));
}

NewItemPage::~NewItemPage()
{
    delete m_widget;
}

QWidget *NewItemPage::widget()
{
    if (!m_widget) {
        m_widget = new QWidget;
        createFields(new QFormLayout(m_widget));
    }
    return m_widget;
}

void NewItemPage::createFields(QFormLayout *form)
{
    const NewItemSettings wanted = NewItemSettings::load();
    m_header = new QCheckBox(tr("&Begin new files with a comment of their name and the date"));
    m_header->setObjectName(QStringLiteral("checkNewFileHeader"));
    m_header->setChecked(wanted.header);
    m_author = new QLineEdit(wanted.author);
    m_author->setObjectName(QStringLiteral("editAuthor"));
    m_author->setPlaceholderText(tr("Named in the comment; nobody when empty"));
    const QFontMetrics metrics = m_author->fontMetrics();
    m_author->setMinimumWidth(metrics.horizontalAdvance(m_author->placeholderText())
                              + 2 * metrics.averageCharWidth());
    m_device = new QComboBox;
    m_device->setObjectName(QStringLiteral("comboDefaultDevice"));
    m_device->addItem(tr("none"), QString());
    const DEV::DeviceDb *const devices = Core::IdeCore::deviceDataBase();
    const QVector<DEV::Device> rows = devices ? devices->rows() : QVector<DEV::Device>();
    for (const DEV::Device &device : rows)
        m_device->addItem(device.part, device.part);
    // One that is not in this table may be in that of tomorrow.
    if (m_device->findData(wanted.device) < 0)
        m_device->addItem(wanted.device, wanted.device);
    m_device->setCurrentIndex(m_device->findData(wanted.device));

    form->addRow(m_header);
    form->addRow(tr("A&uthor:"), m_author);
    form->addRow(tr("&Device of new projects:"), m_device);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
}

void NewItemPage::apply()
{
    if (!m_widget)
        return;
    NewItemSettings wanted;
    wanted.header = m_header->isChecked();
    wanted.author = m_author->text();
    wanted.device = m_device->currentData().toString();
    wanted.store();
}

void NewItemPage::finish()
{
    delete m_widget;
}

} // namespace Fpga
