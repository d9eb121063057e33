// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PANEL_FILETREEVIEW_P_H
#define FPGAPROJECT_PANEL_FILETREEVIEW_P_H

#include <QTreeView>

namespace Fpga {

/// The tree of the project panel: kinds stand open, and everything is reached by
/// the keyboard.
class FileTreeView final : public QTreeView
{
    Q_OBJECT
public:
    explicit FileTreeView(QWidget *parent = nullptr);
    ~FileTreeView() override;

    void setModel(QAbstractItemModel *model) override;
    /// The paths in the project of the selected files, in the order shown.
    [[nodiscard]] QStringList selectedPaths() const;

Q_SIGNALS:
    /// The user asked for the menu of the selection at the point @p place.
    void menuRequested(const QPoint &place);
    /// The user opened files, given by their paths in the project, by mouse or key.
    void filesActivated(const QStringList &paths);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void rowsInserted(const QModelIndex &parent, int start, int end) override;
    void reset() override;

private:
    void onDoubleClicked(const QModelIndex &index);
};

} // namespace Fpga

#endif // FPGAPROJECT_PANEL_FILETREEVIEW_P_H
