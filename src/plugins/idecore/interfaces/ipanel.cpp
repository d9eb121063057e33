// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/interfaces/ipanel.h>

namespace Core {

IPanel::IPanel(QWidget *parent)
    : QWidget(parent)
{
}

IPanel::~IPanel() = default;

QString IPanel::displayName() const
{
    return windowTitle();
}

Qt::DockWidgetAreas IPanel::allowedAreas() const
{
    return Qt::AllDockWidgetAreas;
}

int IPanel::layoutPriority() const
{
    return 50;
}

} // namespace Core
