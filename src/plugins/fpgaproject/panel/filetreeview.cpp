// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/panel/filetreeview_p.h>

#include <fpgaproject/panel/filetreedelegate_p.h>
#include <fpgaproject/panel/filetreemodel_p.h>

#include <QContextMenuEvent>
#include <QKeyEvent>

#include <algorithm>

namespace Fpga {

namespace {

/// The path in the project; empty for a kind.
QString pathOf(const QModelIndex &index)
{
    return index.data(FileTreeModel::PathRole).toString();
}

} // namespace

FileTreeView::FileTreeView(QWidget *parent)
    : QTreeView(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed);
    setTextElideMode(Qt::ElideMiddle);
    setFrameShape(NoFrame);
    setIndentation(16);
    setIconSize({16, 16});
    setDragDropMode(DropOnly);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    setExpandsOnDoubleClick(false);
    setItemDelegate(new FileTreeDelegate(this));
    connect(this, &QTreeView::doubleClicked, this, &FileTreeView::onDoubleClicked);
}

FileTreeView::~FileTreeView() = default;

void FileTreeView::setModel(QAbstractItemModel *model)
{
    QTreeView::setModel(model);
    expandAll();
}

QStringList FileTreeView::selectedPaths() const
{
    QModelIndexList indexes = selectionModel()->selectedIndexes();
    std::sort(indexes.begin(), indexes.end(), [](const QModelIndex &a, const QModelIndex &b) {
        const int kindOfA = a.parent().row();
        const int kindOfB = b.parent().row();
        return kindOfA != kindOfB ? kindOfA < kindOfB : a.row() < b.row();
    });
    QStringList paths;
    for (const QModelIndex &index : qAsConst(indexes)) {
        const QString path = pathOf(index);
        if (!path.isEmpty())
            paths.append(path);
    }
    return paths;
}

void FileTreeView::contextMenuEvent(QContextMenuEvent *event)
{
    QPoint place = event->globalPos();
    // The key asks for the menu of the current row, wherever the mouse is.
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QRect row = visualRect(currentIndex());
        place = viewport()->mapToGlobal(row.isValid() ? row.center() : QPoint(8, 8));
    }
    event->accept();
    Q_EMIT menuRequested(place);
}

void FileTreeView::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || state() == EditingState || event->modifiers() & ~Qt::KeypadModifier) {
        QTreeView::keyPressEvent(event);
        return;
    }
    event->accept();
    const QModelIndex current = currentIndex();
    if (!current.parent().isValid()) {
        setExpanded(current, !isExpanded(current));
        return;
    }
    const QStringList paths = selectedPaths();
    Q_EMIT filesActivated(paths.isEmpty() ? QStringList(pathOf(current)) : paths);
}

void FileTreeView::onDoubleClicked(const QModelIndex &index)
{
    if (index.parent().isValid())
        Q_EMIT filesActivated({pathOf(index)});
    else
        setExpanded(index, !isExpanded(index));
}

void FileTreeView::rowsInserted(const QModelIndex &parent, int start, int end)
{
    QTreeView::rowsInserted(parent, start, end);
    // The first file of a kind opens it.
    if (parent.isValid() && model()->rowCount(parent) == end - start + 1)
        expand(parent);
}

void FileTreeView::reset()
{
    QTreeView::reset();
    expandAll();
}

} // namespace Fpga
