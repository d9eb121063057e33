// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <utils/mdiarea.h>

#include <utils/mdisubwindow.h>

namespace Utils {

class MdiArea::Private
{
};

MdiArea::MdiArea(QWidget *parent)
    : QMdiArea(parent)
    , d(std::make_unique<Private>())
{
    setViewMode(TabbedView);
    connect(this, &QMdiArea::subWindowActivated, this, &MdiArea::onSubWindowActivated);
}

MdiArea::~MdiArea() = default;

QList<MdiSubWindow *> MdiArea::subWindows(QMdiArea::WindowOrder order) const
{
    QList<MdiSubWindow *> windows;
    const QList<QMdiSubWindow *> list = subWindowList(order);
    for (QMdiSubWindow *window : list) {
        if (auto *typed = qobject_cast<MdiSubWindow *>(window))
            windows.append(typed);
    }
    return windows;
}

MdiSubWindow *MdiArea::currentWindow() const
{
    return qobject_cast<MdiSubWindow *>(currentSubWindow());
}

void MdiArea::addSubWindow(MdiSubWindow *window)
{
    connect(window, &MdiSubWindow::closed, this, &MdiArea::windowClosed);
    QMdiArea::addSubWindow(window);
    window->showMaximized();
}

void MdiArea::removeSubWindow(MdiSubWindow *window)
{
    QMdiArea::removeSubWindow(window);
}

void MdiArea::setCurrentSubWindow(MdiSubWindow *window)
{
    setActiveSubWindow(window);
}

void MdiArea::onSubWindowActivated()
{
    Q_EMIT currentWindowChanged(currentWindow());
}

} // namespace Utils
