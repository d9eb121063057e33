// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <utils/mdisubwindow.h>

#include <QCloseEvent>

namespace Utils {

class MdiSubWindow::Private
{
public:
    QString shortTitle;
};

MdiSubWindow::MdiSubWindow(QWidget *parent)
    : QMdiSubWindow(parent)
    , d(std::make_unique<Private>())
{
    setAttribute(Qt::WA_DeleteOnClose);
}

MdiSubWindow::~MdiSubWindow() = default;

QString MdiSubWindow::shortTitle() const
{
    return d->shortTitle.isEmpty() ? windowTitle() : d->shortTitle;
}

void MdiSubWindow::setShortTitle(const QString &title)
{
    d->shortTitle = title;
    Q_EMIT shortTitleChanged(title);
}

void MdiSubWindow::closeEvent(QCloseEvent *event)
{
    QMdiSubWindow::closeEvent(event);
    if (event->isAccepted())
        Q_EMIT closed(this);
}

} // namespace Utils
