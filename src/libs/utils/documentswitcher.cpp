// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "documentswitcher_p.h"

#include <utils/mdisubwindow.h>

#include <QIcon>

#include <algorithm>

namespace Utils {

DocumentSwitcher::DocumentSwitcher(QWidget *parent)
    : QListWidget(parent)
{
    setObjectName(QStringLiteral("documentSwitcher"));
    setAccessibleName(tr("Documents in order of use"));
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(QFrame::Box);
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QListWidget::itemClicked, this, &DocumentSwitcher::committed);
    hide();
}

MdiSubWindow *DocumentSwitcher::chosen() const
{
    return m_windows.value(currentRow());
}

void DocumentSwitcher::start(const QVector<MdiSubWindow *> &windows, const QRect &area)
{
    clear();
    m_windows = windows;
    for (const MdiSubWindow *window : windows) {
        QString title = window->shortTitle();
        if (window->isDocumentModified())
            title += QLatin1Char('*');
        addItem(new QListWidgetItem(window->documentIcon(), title));
    }
    setCurrentRow(0);
    const int frame = 2 * frameWidth();
    const int wanted =
        std::max(sizeHintForColumn(0) + frame + 8, 24 * fontMetrics().averageCharWidth());
    const int rows = std::min(static_cast<int>(windows.size()), 16);
    QRect place(0, 0, std::min(wanted, area.width()),
                std::min(rows * sizeHintForRow(0) + frame, area.height()));
    if (windows.size() > rows)
        place.setWidth(std::min(place.width() + 20, area.width()));
    place.moveCenter(area.center());
    setGeometry(place);
    show();
    raise();
}

void DocumentSwitcher::step(int count)
{
    if (m_windows.isEmpty())
        return;
    const int size = m_windows.size();
    setCurrentRow((currentRow() + count + size) % size);
}

void DocumentSwitcher::forget(const MdiSubWindow *window)
{
    const int row = m_windows.indexOf(const_cast<MdiSubWindow *>(window));
    if (row < 0)
        return;
    m_windows.removeAt(row);
    delete takeItem(row);
}

} // namespace Utils
