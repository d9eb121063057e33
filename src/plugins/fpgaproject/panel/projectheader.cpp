// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/panel/projectheader_p.h>

#include <devicedb/devicedb.h>
#include <fpgaproject/project/fpgaproject.h>
#include <idecore/core/idecore.h>

#include <QAction>
#include <QDir>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QToolButton>

namespace Fpga {

namespace {

QLabel *value(QWidget *parent, const char *name)
{
    auto *const label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A long name must not widen the dock.
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

} // namespace

ProjectHeader::ProjectHeader(QWidget *parent)
    : QWidget(parent)
    , m_name(value(this, "labelProject"))
    , m_device(value(this, "labelDevice"))
    , m_top(value(this, "labelTop"))
    , m_changeDevice(new QToolButton(this))
{
    m_changeDevice->setObjectName(QStringLiteral("btnChangeDevice"));
    QFont font = m_name->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.15);
    m_name->setFont(font);
    auto *const layout = new QFormLayout(this);
    layout->setContentsMargins(8, 8, 8, 6);
    layout->setVerticalSpacing(3);
    layout->addRow(m_name);
    auto *const device = new QHBoxLayout;
    device->addWidget(m_device, 1);
    device->addWidget(m_changeDevice);
    layout->addRow(tr("Device:"), device);
    layout->addRow(tr("Top:"), m_top);
    for (QLabel *label : {m_device, m_top}) {
        label->setText(tr("none chosen"));
        label->setMinimumWidth(label->sizeHint().width());
    }
}

ProjectHeader::~ProjectHeader() = default;

void ProjectHeader::setChangeDeviceAction(QAction *action)
{
    m_changeDevice->setText(QStringLiteral("..."));
    m_changeDevice->setToolTip(action->text().remove(QLatin1String("...")));
    m_changeDevice->setAccessibleName(m_changeDevice->toolTip());
    m_changeDevice->setAutoRaise(true);
    m_changeDevice->setFocusPolicy(Qt::StrongFocus);
    connect(m_changeDevice, &QToolButton::clicked, action, &QAction::trigger);
}

void ProjectHeader::show(const FpgaProject &project)
{
    const ProjectDocument &document = project.document();
    m_name->setText(project.displayName());
    m_name->setToolTip(QDir::toNativeSeparators(project.fileName())
                           .toHtmlEscaped()
                           .prepend(QLatin1String("<p style='white-space:pre'>")));
    const DeviceChoice device = document.device();
    m_device->setText(device.isEmpty()        ? tr("none chosen")
                      : device.part.isEmpty() ? device.package
                                              : device.part);
    QString tip;
    if (const DEV::DeviceDb *const devices = Core::IdeCore::deviceDataBase()) {
        if (const auto found = devices->device(device.part)) {
            const QLocale locale;
            tip = tr("%1: %2 logic cells, %3 bits of block RAM, %4 user I/O")
                      .arg(found->name, locale.toString(found->logicCells),
                           locale.toString(found->blockRamBits), locale.toString(found->userIos));
        }
    }
    m_device->setToolTip(tip);
    const QString top = document.top().name;
    m_top->setText(top.isEmpty() ? tr("none chosen") : top);
    m_device->setEnabled(!device.isEmpty());
    m_top->setEnabled(!top.isEmpty());
}

} // namespace Fpga
