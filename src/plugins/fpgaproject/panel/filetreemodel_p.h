// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PANEL_FILETREEMODEL_P_H
#define FPGAPROJECT_PANEL_FILETREEMODEL_P_H

#include <fpgaproject/file/filekind.h>
#include <fpgaproject/fpgaproject_export.h>

#include <QAbstractItemModel>
#include <QHash>
#include <QIcon>
#include <QPointer>
#include <QVector>

namespace Fpga {

class FilePresence;
class FolderWatcher;
class FpgaProject;
struct FileChanges;
struct FileEntry;

/// The files of a project under their kinds, each marked where it is missing or
/// disabled. Kinds without files are not shown.
///
/// Follows the project and the disk; what changes is told row by row.
class FPGAPROJECT_EXPORT FileTreeModel final : public QAbstractItemModel
{
    Q_OBJECT
public:
    enum Role {
        /// The path in the project; empty for a kind.
        PathRole = Qt::UserRole,
        /// The absolute path.
        FilePathRole,
        /// The folder in the project, empty for the project's own.
        FolderRole,
        KindRole,
        MissingRole,
        EnabledRole,
        TopRole
    };

    explicit FileTreeModel(QObject *parent = nullptr);
    ~FileTreeModel() override;

    /// Null shows nothing.
    void setProject(FpgaProject *project);
    [[nodiscard]] FpgaProject *project() const;
    /// Invalid when there is no such file.
    [[nodiscard]] QModelIndex indexOf(const QString &path) const;

    [[nodiscard]] QModelIndex index(int row, int column,
                                    const QModelIndex &parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex &child) const override;
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// A new name is only asked for, by renameRequested().
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override;
    [[nodiscard]] bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row,
                                       int column, const QModelIndex &parent) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

Q_SIGNALS:
    void renameRequested(const QString &path, const QString &newName);
    /// Local files and folders.
    void filesDropped(const QStringList &files);

private:
    struct Row
    {
        QString path;
        /// Where the name begins.
        int name = 0;
        /// Into m_folders.
        int folder = 0;
        bool enabled = true;
        bool missing = false;
    };
    struct Group
    {
        FileKind kind;
        QVector<Row> rows;
    };
    struct Folder
    {
        QString absolutePath;
        /// As paths in the project begin, with the last '/'.
        QString prefix;
        int files = 0;
    };

    void fill();
    Row makeRow(const FileEntry &entry);
    int folderOf(const QString &prefix);
    void watchFolders();
    void onFilesChanged(const FileChanges &changes);
    void onSettingsChanged();
    void onFileTouched(const QString &folder, const QString &name);
    void onFolderTouched(const QString &folder);
    void insertFile(const FileEntry &entry);
    void removeFile(const QString &path);
    void updateFile(const QString &path);
    void tellChanged(const QModelIndex &index);

    [[nodiscard]] int groupOf(FileKind kind) const;
    [[nodiscard]] const Row *rowAt(const QModelIndex &index) const;
    [[nodiscard]] QVariant groupData(const Group &group, int role) const;
    [[nodiscard]] QVariant fileData(const Row &row, FileKind kind, int role) const;
    [[nodiscard]] QString toolTip(const Row &row, FileKind kind) const;
    [[nodiscard]] QString absolutePath(const Row &row) const;
    [[nodiscard]] bool isTop(const Row &row) const;

    QPointer<FpgaProject> m_project;
    FolderWatcher *const m_watcher;
    QVector<Group> m_groups;
    QVector<Folder> m_folders;
    QHash<QString, int> m_folderIds;
    QString m_topFile;
    mutable QHash<int, QIcon> m_icons;
};

} // namespace Fpga

#endif // FPGAPROJECT_PANEL_FILETREEMODEL_P_H
