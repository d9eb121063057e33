// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_FILE_PROJECTDOCUMENT_H
#define FPGAPROJECT_FILE_PROJECTDOCUMENT_H

#include <fpgaproject/file/filekind.h>
#include <fpgaproject/fpgaproject_export.h>

#include <QByteArray>
#include <QSharedDataPointer>
#include <QString>
#include <QVector>

#include <memory>
#include <optional>

namespace Fpga {

struct XmlExtras;

/// The device a project is made for, as the device table names it. Any of the
/// texts may be empty while none is chosen.
struct DeviceChoice
{
    QString part;
    QString package;
    QString speedGrade;

    [[nodiscard]] bool isEmpty() const
    {
        return part.isEmpty() && package.isEmpty() && speedGrade.isEmpty();
    }
    bool operator==(const DeviceChoice &other) const
    {
        return part == other.part && package == other.package && speedGrade == other.speedGrade;
    }
};

/// The module or entity at the top, and the file it stands in, relative as in
/// FileEntry; the file may be empty.
struct TopModule
{
    QString name;
    QString file;

    bool operator==(const TopModule &other) const
    {
        return name == other.name && file == other.file;
    }
};

struct FileEntry
{
    /// Relative to the folder of the project, with '/'; names the entry.
    QString path;
    FileKind kind = FileKind::Other;
    bool enabled = true;
    /// The kind as it stands in the file where this program does not know it.
    QString foreignKind;
    /// What else stands at the file in the project file; kept.
    std::shared_ptr<const XmlExtras> extras;

    bool operator==(const FileEntry &other) const
    {
        return path == other.path && kind == other.kind && enabled == other.enabled
               && foreignKind == other.foreignKind;
    }
};

} // namespace Fpga

// Ten thousand of them in a vector are moved as they lie.
Q_DECLARE_TYPEINFO(Fpga::FileEntry, Q_MOVABLE_TYPE);

namespace Fpga {

/// Why a project file could not be read.
struct ReadError
{
    QString file;
    /// 0 where it concerns no line.
    int line = 0;
    QString reason;

    /// What a user reads: reason, file and line.
    [[nodiscard]] FPGAPROJECT_EXPORT QString text() const;
};

/// The contents of a project file.
///
/// An implicitly shared value. Elements, attributes, comments and processing
/// instructions it does not know are kept from reading to writing.
///
/// A written file is the same for the same contents, wherever and whenever it is
/// written: files in the order of their paths, one a line, nothing of the machine.
class FPGAPROJECT_EXPORT ProjectDocument final
{
public:
    /// The largest project file that is read, in bytes.
    static constexpr qint64 MAX_SIZE = qint64(16) * 1024 * 1024;

    /// An empty project of the template "FPGA".
    ProjectDocument();
    ProjectDocument(const ProjectDocument &other);
    ProjectDocument &operator=(const ProjectDocument &other);
    ~ProjectDocument();

    /// Nothing, and the reason in @p error, when the file cannot be read or is no
    /// FPGA project.
    [[nodiscard]] static std::optional<ProjectDocument> read(const QString &fileName,
                                                             ReadError *error);
    /// The same from contents; @p fileName is only named in errors.
    [[nodiscard]] static std::optional<ProjectDocument> parse(const QByteArray &contents,
                                                              const QString &fileName,
                                                              ReadError *error);
    /// The contents of @p fileName; nothing when it cannot be read or is too large.
    [[nodiscard]] static std::optional<QByteArray> load(const QString &fileName, ReadError *error);

    [[nodiscard]] QByteArray toXml() const;
    /// Writes the whole file or leaves the old one as it was; then the reason is in
    /// @p errorString.
    [[nodiscard]] static bool save(const QByteArray &contents, const QString &fileName,
                                   QString *errorString);

    [[nodiscard]] QString name() const;
    void setName(const QString &name);
    [[nodiscard]] DeviceChoice device() const;
    void setDevice(const DeviceChoice &device);
    [[nodiscard]] TopModule top() const;
    void setTop(const TopModule &top);

    /// In the order of their paths.
    [[nodiscard]] const QVector<FileEntry> &files() const;
    /// Null when there is none of that path.
    [[nodiscard]] const FileEntry *file(const QString &path) const;
    /// False when its path is there already or cannot stand in a project file.
    bool addFile(const FileEntry &entry);
    /// Adds those that addFile() would take; how many these are.
    int addFiles(const QVector<FileEntry> &entries);
    bool removeFile(const QString &path);
    bool setEnabled(const QString &path, bool enabled);
    /// Keeps what stands at the file; the kind follows the new name. The top
    /// module's file follows too. False when @p path is not there or @p newPath is.
    bool renameFile(const QString &path, const QString &newPath);
    /// As renameFile(), but the kind stays.
    bool moveFile(const QString &path, const QString &newPath);

private:
    friend class ProjectReader;
    friend class ProjectWriter;
    struct Data;

    [[nodiscard]] int lowerBound(const QString &path) const;
    [[nodiscard]] int indexOf(const QString &path) const;

    QSharedDataPointer<Data> d;
};

/// True when @p text can stand in an XML document; control characters and halves
/// of surrogate pairs cannot.
FPGAPROJECT_EXPORT bool isXmlText(const QString &text);

} // namespace Fpga

#endif // FPGAPROJECT_FILE_PROJECTDOCUMENT_H
