// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// What the rows of the FileTreeModel show.

#include <fpgaproject/panel/fileicons_p.h>
#include <fpgaproject/panel/filetreemodel_p.h>
#include <fpgaproject/project/fpgaproject.h>
#include <idecore/core/idecore.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/mimedatabase/mimetype.h>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace Fpga {

namespace {

/// The kind, and the type of the core where it knows one.
QString typeTitle(const QString &path, FileKind kind)
{
    const Core::MimeType type = Core::IdeCore::mimeDatabase()->findByFile(QFileInfo(path));
    const QString title = fileKindTitle(kind);
    return type.isNull() ? title : FileTreeModel::tr("%1 (%2)").arg(title, type.localeComment());
}

} // namespace

QVariant FileTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (index.internalId() == 0)
        return groupData(m_groups.at(index.row()), role);
    return fileData(*rowAt(index), FileKind(index.internalId() - 1), role);
}

QVariant FileTreeModel::groupData(const Group &group, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return fileKindTitle(group.kind);
    case Qt::AccessibleTextRole:
        return tr("%1, %n file(s)", nullptr, group.rows.size()).arg(fileKindTitle(group.kind));
    case KindRole:
        return int(group.kind);
    case EnabledRole:
        return true;
    case MissingRole:
    case TopRole:
        return false;
    default:
        return {};
    }
}

QVariant FileTreeModel::fileData(const Row &row, FileKind kind, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return row.path.mid(row.name);
    case Qt::DecorationRole: {
        QIcon &icon = m_icons[int(kind)];
        if (icon.isNull())
            icon = fileIcon(kind);
        return icon;
    }
    case Qt::ToolTipRole:
        return toolTip(row, kind);
    case Qt::AccessibleTextRole: {
        QString text = row.path.mid(row.name);
        if (isTop(row))
            text += QLatin1String(", ") + tr("top module");
        if (!row.enabled)
            text += QLatin1String(", ") + tr("disabled");
        if (row.missing)
            text += QLatin1String(", ") + tr("missing");
        return text;
    }
    case PathRole:
        return row.path;
    case FilePathRole:
        return absolutePath(row);
    case FolderRole:
        return row.name > 0 ? row.path.left(row.name - 1) : QString();
    case KindRole:
        return int(kind);
    case MissingRole:
        return row.missing;
    case EnabledRole:
        return row.enabled;
    case TopRole:
        return isTop(row);
    default:
        return {};
    }
}

QString FileTreeModel::toolTip(const Row &row, FileKind kind) const
{
    const QString path = absolutePath(row);
    // The name of a file may look like markup.
    QString text = QLatin1String("<p style='white-space:pre'><b>")
                   + QDir::toNativeSeparators(row.path).toHtmlEscaped() + QLatin1String("</b><br/>")
                   + typeTitle(path, kind).toHtmlEscaped();
    if (isTop(row)) {
        text += QLatin1String("<br/>")
                + tr("Top module: %1").arg(m_project->document().top().name).toHtmlEscaped();
    }
    if (!row.enabled)
        text += QLatin1String("<br/>") + tr("Disabled: it is no part of the design.");
    if (row.missing) {
        text +=
            QLatin1String("<br/>")
            + tr("Missing: %1 does not exist.").arg(QDir::toNativeSeparators(path)).toHtmlEscaped();
    } else {
        const QFileInfo info(path);
        text += QLatin1String("<br/>")
                + tr("%1, changed %2")
                      .arg(QLocale().formattedDataSize(info.size()),
                           QLocale().toString(info.lastModified(), QLocale::ShortFormat))
                      .toHtmlEscaped();
    }
    return text + QLatin1String("</p>");
}

QString FileTreeModel::absolutePath(const Row &row) const
{
    return m_project ? m_project->absolutePath(row.path) : QString();
}

bool FileTreeModel::isTop(const Row &row) const
{
    return !m_topFile.isEmpty() && row.path == m_topFile;
}

} // namespace Fpga
