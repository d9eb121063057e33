// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PANEL_FILETREEDELEGATE_P_H
#define FPGAPROJECT_PANEL_FILETREEDELEGATE_P_H

#include <QStyledItemDelegate>

namespace Fpga {

/// Draws behind the name of a file what tells it apart: its folder, and that it is
/// the top, missing or disabled.
class FileTreeDelegate final : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit FileTreeDelegate(QObject *parent = nullptr);
    ~FileTreeDelegate() override;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const override;
    /// Marks the name without its suffix, which is what is mostly changed.
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    [[nodiscard]] static QString note(const QModelIndex &index);
};

} // namespace Fpga

#endif // FPGAPROJECT_PANEL_FILETREEDELEGATE_P_H
