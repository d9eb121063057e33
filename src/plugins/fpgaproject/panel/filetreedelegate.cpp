// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/panel/filetreedelegate_p.h>

#include <fpgaproject/panel/filetreemodel_p.h>

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QTimer>

namespace Fpga {

namespace {

constexpr int GAP = 8;

/// Of what counts for less; still read with ease on the rows of either theme.
QColor faded(const QPalette &palette)
{
    QColor colour = palette.color(QPalette::Active, QPalette::Text);
    colour.setAlphaF(0.72);
    return colour;
}

QColor warning(const QPalette &palette)
{
    const bool dark = palette.color(QPalette::Active, QPalette::Base).lightness() < 128;
    return QColor::fromRgb(dark ? 0xffe08a3a : 0xff9a4f0a);
}

} // namespace

FileTreeDelegate::FileTreeDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

FileTreeDelegate::~FileTreeDelegate() = default;

QString FileTreeDelegate::note(const QModelIndex &index)
{
    QStringList parts;
    if (index.data(FileTreeModel::TopRole).toBool())
        parts.append(tr("top"));
    if (index.data(FileTreeModel::MissingRole).toBool())
        parts.append(tr("missing"));
    if (!index.data(FileTreeModel::EnabledRole).toBool())
        parts.append(tr("disabled"));
    const QString folder = index.data(FileTreeModel::FolderRole).toString();
    if (!folder.isEmpty())
        parts.append(folder);
    return parts.join(QStringLiteral(u"  \u00b7  "));
}

void FileTreeDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const bool file = index.parent().isValid();
    if (!file || index.data(FileTreeModel::TopRole).toBool())
        option->font.setBold(true);
    if (!file)
        return;
    if (!index.data(FileTreeModel::EnabledRole).toBool()) {
        option->font.setItalic(true);
        option->palette.setColor(QPalette::Text, faded(option->palette));
        if (option->features & QStyleOptionViewItem::HasDecoration)
            option->icon = QIcon(option->icon.pixmap(option->decorationSize, QIcon::Disabled));
    }
    if (index.data(FileTreeModel::MissingRole).toBool()) {
        option->font.setStrikeOut(true);
        option->palette.setColor(QPalette::Text, warning(option->palette));
    }
    option->fontMetrics = QFontMetrics(option->font);
}

void FileTreeDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const QString text = note(index);
    if (text.isEmpty())
        return;
    QStyleOptionViewItem whole = option;
    initStyleOption(&whole, index);
    const QStyle *const style = whole.widget ? whole.widget->style() : QApplication::style();
    QRect rest = style->subElementRect(QStyle::SE_ItemViewItemText, &whole, whole.widget);
    const int used =
        whole.fontMetrics.horizontalAdvance(whole.text) + GAP
        + 2 * (style->pixelMetric(QStyle::PM_FocusFrameHMargin, &whole, whole.widget) + 1);
    if (whole.direction == Qt::RightToLeft)
        rest.setRight(rest.right() - used);
    else
        rest.setLeft(rest.left() + used);
    if (rest.width() <= 0)
        return;
    const bool selected = whole.state & QStyle::State_Selected;
    QFont font = option.font;
    painter->save();
    painter->setFont(font);
    // Hardly anything but the plain colour is read on the highlight.
    painter->setPen(selected ? option.palette.color(QPalette::HighlightedText)
                             : faded(option.palette));
    painter->drawText(
        rest, int(Qt::AlignVCenter | QStyle::visualAlignment(whole.direction, Qt::AlignLeft)),
        QFontMetrics(font).elidedText(text, Qt::ElideRight, rest.width()));
    painter->restore();
}

QSize FileTreeDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(qMax(size.height(), QFontMetrics(option.font).height() + 6));
    return size;
}

QWidget *FileTreeDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const
{
    QWidget *const editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (editor)
        editor->setAccessibleName(tr("File name"));
    return editor;
}

void FileTreeDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    QStyledItemDelegate::setEditorData(editor, index);
    auto *const edit = qobject_cast<QLineEdit *>(editor);
    const int dot = index.data(Qt::EditRole).toString().lastIndexOf(QLatin1Char('.'));
    // The view marks all of it after this.
    if (edit && dot > 0)
        QTimer::singleShot(0, edit, [edit, dot] { edit->setSelection(0, dot); });
}

} // namespace Fpga
