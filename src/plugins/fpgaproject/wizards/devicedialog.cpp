// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/wizards/devicedialog_p.h>

#include <fpgaproject/wizards/devicepicker_p.h>

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace Fpga {

DeviceDialog::DeviceDialog(const DeviceChoice &now, const QVector<DEV::Device> &devices,
                           QWidget *parent)
    : QDialog(parent)
    , m_picker(new DevicePicker(devices, this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle(tr("Change Device"));
    auto *const current =
        new QLabel(now.isEmpty() ? tr("The project has no device yet.")
                                 : tr("Now: %1").arg(now.part.isEmpty() ? now.package : now.part),
                   this);
    current->setObjectName(QStringLiteral("labelNow"));
    current->setTextFormat(Qt::PlainText);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(current);
    layout->addWidget(m_picker);
    layout->addWidget(m_buttons);
    connect(m_picker, &DevicePicker::deviceChanged, this, &DeviceDialog::updateButtons);
    connect(m_picker, &DevicePicker::deviceActivated, this, &DeviceDialog::accept);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &DeviceDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &DeviceDialog::reject);
    m_picker->selectPart(now.part);
    m_picker->setFocus();
    resize(960, 520);
    updateButtons();
}

DeviceDialog::~DeviceDialog() = default;

DeviceChoice DeviceDialog::choice() const
{
    return m_picker->choice();
}

void DeviceDialog::updateButtons()
{
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(!choice().isEmpty());
}

} // namespace Fpga
