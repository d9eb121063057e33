// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PROJECT_FPGAPROJECT_H
#define FPGAPROJECT_PROJECT_FPGAPROJECT_H

#include <fpgaproject/file/projectdocument.h>
#include <fpgaproject/fpgaproject_export.h>
#include <idecore/interfaces/iproject.h>

#include <functional>
#include <optional>

namespace Fpga {

/// What became of the files of a project, by their paths in it; each in order.
struct FileChanges
{
    QStringList removed;
    QStringList added;
    /// Still there, with another kind or switched on or off.
    QStringList changed;

    [[nodiscard]] bool isEmpty() const
    {
        return removed.isEmpty() && added.isEmpty() && changed.isEmpty();
    }
};

/// An open FPGA project.
///
/// Every change is in the project file when the call returns; there is nothing to
/// save. A change that cannot be written is not made, and the user is told why.
/// What others have written to the file meanwhile is taken over first.
class FPGAPROJECT_EXPORT FpgaProject final : public Core::IProject
{
    Q_OBJECT
public:
    explicit FpgaProject(QObject *parent = nullptr);
    ~FpgaProject() override;

    [[nodiscard]] QString displayName() const override;
    [[nodiscard]] QString fileName() const override;
    [[nodiscard]] QString projectDir() const override;
    bool open(const QString &fileName) override;
    bool close() override;
    bool canOpen(const QString &fileName) override;
    [[nodiscard]] QStringList files() const override;
    /// Files that are there already stay as they are. False, and none added, when
    /// one is no file, or has a name that a project file cannot hold.
    bool addFiles(const QStringList &files) override;

    [[nodiscard]] const ProjectDocument &document() const { return m_document; }
    /// Of a path as in FileEntry.
    [[nodiscard]] QString absolutePath(const QString &path) const;
    /// The path by which the project names @p absolutePath.
    [[nodiscard]] QString relativePath(const QString &absolutePath) const;

    // Paths are those of FileEntry; unknown ones are passed over. False when the
    // change could not be made and the user has been told why.
    bool setEnabled(const QStringList &paths, bool enabled);
    /// The files themselves stay where they are.
    bool removeFiles(const QStringList &paths);
    /// Renames the file on disk too, within its folder, and never over another one.
    /// An editor of it follows. The entry of a missing file is renamed alone.
    bool renameFile(const QString &path, const QString &newName);
    bool setTop(const TopModule &top);
    bool setDevice(const DeviceChoice &device);

    /// Takes over what others have written to the project file. False when it cannot
    /// be read; the project then stays as it was.
    bool reload(ReadError *error);

Q_SIGNALS:
    /// The files are others now.
    void filesChanged(const Fpga::FileChanges &changes);
    /// Name, device or top module is another now.
    void settingsChanged();

private:
    using Change = std::function<void(ProjectDocument *)>;

    struct Loaded
    {
        QByteArray contents;
        ProjectDocument document;
    };

    /// Nothing when it cannot be read and the user has been told why.
    static std::optional<Loaded> load(const QString &fileName);
    bool edit(const Change &change);
    void take(const ProjectDocument &document, const QByteArray &contents);
    bool renameOnDisk(const QString &from, const QString &to);

    QString m_fileName;
    QString m_projectDir;
    ProjectDocument m_document;
    /// What the project file holds, as far as we know.
    QByteArray m_contents;
    /// What canOpen() read, so that open() need not read it again.
    std::optional<Loaded> m_checked;
};

} // namespace Fpga

Q_DECLARE_METATYPE(Fpga::FileChanges)

#endif // FPGAPROJECT_PROJECT_FPGAPROJECT_H
