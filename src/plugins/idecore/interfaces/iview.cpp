// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/interfaces/iview.h>

#include <QDebug>

namespace Core {

IView::IView(QWidget *parent)
    : QWidget(parent)
{
}

IView::~IView()
{
    // The spelling is part of the log format.
    qDebug().noquote().nospace() << "IView: " << windowTitle() << " destoryed";
}

QString IView::shortTitle() const
{
    return m_shortTitle.isEmpty() ? windowTitle() : m_shortTitle;
}

void IView::setShortTitle(const QString &title)
{
    if (m_shortTitle == title)
        return;
    m_shortTitle = title;
    Q_EMIT shortTitleChanged(title);
}

void IView::onActivated() {}

void IView::onDeactivated() {}

} // namespace Core
