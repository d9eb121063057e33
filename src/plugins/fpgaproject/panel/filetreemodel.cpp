// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/panel/filetreemodel_p.h>

#include <fpgaproject/panel/filepresence_p.h>
#include <fpgaproject/panel/folderwatcher_p.h>
#include <fpgaproject/project/fpgaproject.h>

#include <QMimeData>
#include <QUrl>

#include <algorithm>
#include <vector>

namespace Fpga {

namespace {

// Above this telling each row costs more than telling all anew.
constexpr int MAX_SINGLE_CHANGES = 500;

bool pathLess(const QString &a, const QString &b)
{
    return a < b;
}

} // namespace

// The identity of an index is 0 for a kind, and for a file one more than its kind:
// where a kind stands changes when another one comes or goes.

FileTreeModel::FileTreeModel(QObject *parent)
    : QAbstractItemModel(parent)
    , m_watcher(new FolderWatcher(this))
{
    connect(m_watcher, &FolderWatcher::fileTouched, this, &FileTreeModel::onFileTouched);
    connect(m_watcher, &FolderWatcher::folderTouched, this, &FileTreeModel::onFolderTouched);
}

FileTreeModel::~FileTreeModel() = default;

void FileTreeModel::setProject(FpgaProject *project)
{
    if (m_project)
        m_project->disconnect(this);
    beginResetModel();
    m_project = project;
    fill();
    endResetModel();
    watchFolders();
    if (project) {
        connect(project, &FpgaProject::filesChanged, this, &FileTreeModel::onFilesChanged);
        connect(project, &FpgaProject::settingsChanged, this, &FileTreeModel::onSettingsChanged);
        connect(project, &QObject::destroyed, this, [this] { setProject(nullptr); });
    }
}

FpgaProject *FileTreeModel::project() const
{
    return m_project;
}

void FileTreeModel::fill()
{
    m_groups.clear();
    m_folders.clear();
    m_folderIds.clear();
    m_topFile.clear();
    if (!m_project)
        return;
    m_topFile = m_project->document().top().file;
    const QList<FileKind> kinds = allFileKinds();
    QVector<QVector<Row>> rows(kinds.size());
    for (const FileEntry &entry : m_project->document().files())
        rows[int(entry.kind)].append(makeRow(entry));

    std::vector<FilePresence> presence;
    presence.reserve(std::size_t(m_folders.size()));
    for (const Folder &folder : qAsConst(m_folders))
        presence.emplace_back(folder.absolutePath, folder.files);
    for (const FileKind kind : kinds) {
        QVector<Row> &ofKind = rows[int(kind)];
        if (ofKind.isEmpty())
            continue;
        for (Row &row : ofKind) {
            const QString name =
                QString::fromRawData(row.path.constData() + row.name, row.path.size() - row.name);
            row.missing = !presence.at(std::size_t(row.folder)).contains(name);
        }
        m_groups.append({kind, std::move(ofKind)});
    }
}

FileTreeModel::Row FileTreeModel::makeRow(const FileEntry &entry)
{
    Row row;
    row.path = entry.path;
    row.name = entry.path.lastIndexOf(QLatin1Char('/')) + 1;
    row.enabled = entry.enabled;
    // Paths come in order, so mostly it is the folder of the one before.
    if (!m_folders.isEmpty() && m_folders.last().prefix == entry.path.leftRef(row.name))
        row.folder = m_folders.size() - 1;
    else
        row.folder = folderOf(entry.path.left(row.name));
    ++m_folders[row.folder].files;
    return row;
}

int FileTreeModel::folderOf(const QString &prefix)
{
    const auto known = m_folderIds.constFind(prefix);
    if (known != m_folderIds.cend())
        return *known;
    QString path =
        m_project->absolutePath(prefix.isEmpty() ? QStringLiteral("x") : prefix + QLatin1Char('x'));
    path.chop(2); // "/x"
    m_folderIds.insert(prefix, m_folders.size());
    m_folders.append({path.isEmpty() ? QStringLiteral("/") : path, prefix, 0});
    return m_folders.size() - 1;
}

void FileTreeModel::watchFolders()
{
    QStringList folders;
    for (const Folder &folder : qAsConst(m_folders)) {
        if (folder.files > 0)
            folders.append(folder.absolutePath);
    }
    m_watcher->setFolders(folders);
}

int FileTreeModel::groupOf(FileKind kind) const
{
    const auto found =
        std::lower_bound(m_groups.cbegin(), m_groups.cend(), kind,
                         [](const Group &group, FileKind wanted) { return group.kind < wanted; });
    return int(found - m_groups.cbegin());
}

QModelIndex FileTreeModel::indexOf(const QString &path) const
{
    for (const Group &group : m_groups) {
        const auto found = std::lower_bound(
            group.rows.cbegin(), group.rows.cend(), path,
            [](const Row &row, const QString &p) { return pathLess(row.path, p); });
        if (found != group.rows.cend() && found->path == path) {
            return createIndex(int(found - group.rows.cbegin()), 0, quintptr(group.kind) + 1);
        }
    }
    return {};
}

QModelIndex FileTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    if (!parent.isValid())
        return createIndex(row, column, quintptr(0));
    return createIndex(row, column, quintptr(m_groups.at(parent.row()).kind) + 1);
}

QModelIndex FileTreeModel::parent(const QModelIndex &child) const
{
    if (!child.isValid() || child.internalId() == 0)
        return {};
    return createIndex(groupOf(FileKind(child.internalId() - 1)), 0, quintptr(0));
}

int FileTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return m_groups.size();
    if (parent.internalId() != 0 || parent.column() != 0)
        return 0;
    return m_groups.at(parent.row()).rows.size();
}

int FileTreeModel::columnCount(const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    return 1;
}

const FileTreeModel::Row *FileTreeModel::rowAt(const QModelIndex &index) const
{
    const int group = groupOf(FileKind(index.internalId() - 1));
    return &m_groups.at(group).rows.at(index.row());
}

Qt::ItemFlags FileTreeModel::flags(const QModelIndex &index) const
{
    // Files dropped anywhere are dropped into the project.
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
    if (index.internalId() != 0)
        flags |= Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
    return flags;
}

bool FileTreeModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || index.internalId() == 0)
        return false;
    const Row *const row = rowAt(index);
    const QString name = value.toString();
    if (name != row->path.midRef(row->name))
        Q_EMIT renameRequested(row->path, name);
    return true;
}

QStringList FileTreeModel::mimeTypes() const
{
    return {QStringLiteral("text/uri-list")};
}

Qt::DropActions FileTreeModel::supportedDropActions() const
{
    return Qt::CopyAction | Qt::LinkAction;
}

bool FileTreeModel::canDropMimeData(const QMimeData *data, Qt::DropAction action, int row,
                                    int column, const QModelIndex &parent) const
{
    Q_UNUSED(action)
    Q_UNUSED(row)
    Q_UNUSED(column)
    Q_UNUSED(parent)
    if (!m_project || !data->hasUrls())
        return false;
    const QList<QUrl> urls = data->urls();
    return std::any_of(urls.cbegin(), urls.cend(),
                       [](const QUrl &url) { return url.isLocalFile(); });
}

bool FileTreeModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                 const QModelIndex &parent)
{
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    QStringList files;
    const QList<QUrl> urls = data->urls();
    for (const QUrl &url : urls) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    Q_EMIT filesDropped(files);
    return true;
}

void FileTreeModel::tellChanged(const QModelIndex &index)
{
    if (index.isValid())
        Q_EMIT dataChanged(index, index);
}

void FileTreeModel::onSettingsChanged()
{
    const QString before = m_topFile;
    m_topFile = m_project->document().top().file;
    if (before == m_topFile)
        return;
    tellChanged(indexOf(before));
    tellChanged(indexOf(m_topFile));
}

void FileTreeModel::onFilesChanged(const FileChanges &changes)
{
    if (changes.removed.size() + changes.added.size() + changes.changed.size()
        > MAX_SINGLE_CHANGES) {
        beginResetModel();
        fill();
        endResetModel();
        watchFolders();
        return;
    }
    const int folders = m_folders.size();
    for (const QString &path : changes.removed)
        removeFile(path);
    for (const QString &path : changes.added)
        insertFile(*m_project->document().file(path));
    for (const QString &path : changes.changed)
        updateFile(path);
    const bool emptied = std::any_of(m_folders.cbegin(), m_folders.cend(),
                                     [](const Folder &folder) { return folder.files == 0; });
    if (m_folders.size() != folders || emptied)
        watchFolders();
}

void FileTreeModel::insertFile(const FileEntry &entry)
{
    Row fresh = makeRow(entry);
    fresh.missing = !FilePresence(m_folders.at(fresh.folder).absolutePath, 1)
                         .contains(entry.path.mid(fresh.name));
    const int at = groupOf(entry.kind);
    if (at == m_groups.size() || m_groups.at(at).kind != entry.kind) {
        beginInsertRows({}, at, at);
        m_groups.insert(at, {entry.kind, {}});
        endInsertRows();
    }
    QVector<Row> &rows = m_groups[at].rows;
    const auto place =
        std::lower_bound(rows.cbegin(), rows.cend(), entry.path,
                         [](const Row &row, const QString &p) { return pathLess(row.path, p); });
    const int row = int(place - rows.cbegin());
    beginInsertRows(index(at, 0), row, row);
    rows.insert(row, fresh);
    endInsertRows();
}

void FileTreeModel::removeFile(const QString &path)
{
    const QModelIndex file = indexOf(path);
    if (!file.isValid())
        return;
    const QModelIndex kind = file.parent();
    const int group = kind.row();
    beginRemoveRows(kind, file.row(), file.row());
    --m_folders[m_groups.at(group).rows.at(file.row()).folder].files;
    m_groups[group].rows.removeAt(file.row());
    endRemoveRows();
    if (m_groups.at(group).rows.isEmpty()) {
        beginRemoveRows({}, group, group);
        m_groups.removeAt(group);
        endRemoveRows();
    }
}

void FileTreeModel::updateFile(const QString &path)
{
    const QModelIndex file = indexOf(path);
    const FileEntry *const entry = m_project->document().file(path);
    if (!file.isValid() || !entry)
        return;
    if (quintptr(entry->kind) + 1 != file.internalId()) {
        removeFile(path);
        insertFile(*entry);
        return;
    }
    m_groups[file.parent().row()].rows[file.row()].enabled = entry->enabled;
    tellChanged(file);
}

void FileTreeModel::onFileTouched(const QString &folder, const QString &name)
{
    for (const Folder &known : qAsConst(m_folders)) {
        if (known.absolutePath != folder)
            continue;
        const QModelIndex file = indexOf(known.prefix + name);
        if (!file.isValid())
            continue;
        m_groups[file.parent().row()].rows[file.row()].missing =
            !FilePresence(folder, 1).contains(name);
        // Also when it is still there: it may hold something else.
        tellChanged(file);
    }
}

void FileTreeModel::onFolderTouched(const QString &folder)
{
    for (int id = 0; id < m_folders.size(); ++id) {
        if (m_folders.at(id).absolutePath != folder)
            continue;
        const FilePresence presence(folder, m_folders.at(id).files);
        for (Group &group : m_groups) {
            for (int i = 0; i < group.rows.size(); ++i) {
                Row &row = group.rows[i];
                if (row.folder != id)
                    continue;
                const bool missing = !presence.contains(row.path.mid(row.name));
                if (missing == row.missing)
                    continue;
                row.missing = missing;
                tellChanged(createIndex(i, 0, quintptr(group.kind) + 1));
            }
        }
    }
}

} // namespace Fpga
