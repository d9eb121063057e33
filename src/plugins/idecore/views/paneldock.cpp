// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/views/paneldock_p.h>

#include <idecore/interfaces/ipanel.h>

#include <QChildEvent>

namespace Core {
namespace private_impl {

PanelDock::PanelDock(IPanel *panel, QWidget *parent)
    : QDockWidget(parent)
    , m_panel(panel)
{
    setObjectName(panel->name());
    setWidget(panel);
    setWindowTitle(panel->displayName());
    setAllowedAreas(panel->allowedAreas());
}

PanelDock::~PanelDock() = default;

void PanelDock::childEvent(QChildEvent *event)
{
    QDockWidget::childEvent(event);
    if (event->removed() && event->child() == m_panel)
        Q_EMIT panelLost();
}

} // namespace private_impl
} // namespace Core
