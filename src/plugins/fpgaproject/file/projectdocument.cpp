// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/file/projectdocument_p.h>

#include <fpgaproject/file/filelistscanner_p.h>
#include <fpgaproject/file/projectreader_p.h>
#include <fpgaproject/file/projectwriter_p.h>
#include <utils/systemreason.h>
#include <utils/xmltext.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>

namespace Fpga {

QString ReadError::text() const
{
    const QString place = QDir::toNativeSeparators(file);
    if (line > 0) {
        return QCoreApplication::translate("Fpga::ReadError", "%1, line %2: %3")
            .arg(place, QString::number(line), reason);
    }
    return QCoreApplication::translate("Fpga::ReadError", "%1: %2").arg(place, reason);
}

bool isXmlText(const QString &text)
{
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            ++i;
            continue;
        }
        if (c.isSurrogate() || c.unicode() >= 0xfffe)
            return false;
        if (c.unicode() < 0x20 && c != QLatin1Char('\n') && c != QLatin1Char('\r')
            && c != QLatin1Char('\t')) {
            return false;
        }
    }
    return true;
}

ProjectDocument::ProjectDocument()
    : d(new Data)
{
}

ProjectDocument::ProjectDocument(const ProjectDocument &other) = default;
ProjectDocument &ProjectDocument::operator=(const ProjectDocument &other) = default;
ProjectDocument::~ProjectDocument() = default;

std::optional<QByteArray> ProjectDocument::load(const QString &fileName, ReadError *error)
{
    QFile file(fileName);
    *error = {fileName, 0, QString()};
    // A directory would be read as an empty file, a pipe would never end.
    const QFileInfo info(fileName);
    if (info.exists() && !info.isFile()) {
        error->reason = QCoreApplication::translate("Fpga::ReadError", "This is not a file.");
        return std::nullopt;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        error->reason = Utils::systemReason(file.errorString());
        return std::nullopt;
    }
    // Its size is asked by reading: the file may grow meanwhile.
    const QByteArray contents = file.size() > MAX_SIZE ? QByteArray() : file.read(MAX_SIZE + 1);
    if (file.size() > MAX_SIZE || contents.size() > MAX_SIZE) {
        error->reason = QCoreApplication::translate("Fpga::ReadError",
                                                    "The file is larger than %1 MB, which no "
                                                    "project file is.")
                            .arg(MAX_SIZE / 1024 / 1024);
        return std::nullopt;
    }
    if (file.error() != QFileDevice::NoError) {
        error->reason = Utils::systemReason(file.errorString());
        return std::nullopt;
    }
    return contents;
}

std::optional<ProjectDocument> ProjectDocument::read(const QString &fileName, ReadError *error)
{
    const std::optional<QByteArray> contents = load(fileName, error);
    return contents ? parse(*contents, fileName, error) : std::nullopt;
}

std::optional<ProjectDocument> ProjectDocument::parse(const QByteArray &contents,
                                                      const QString &fileName, ReadError *error)
{
    const FileListScanner list(contents);
    const QByteArray rest = list.found() ? list.rest() : contents;
    if (list.found() && Utils::XmlText(rest).lineOfAttributeFlood() == 0) {
        ProjectDocument document;
        ProjectReader reader(rest, document.d.data());
        reader.setFiles(list.files(), list.line());
        if (reader.read() && reader.listMet())
            return document;
    }
    // What is wrong is found, and said, by reading it whole.
    const int flood = Utils::XmlText(contents).lineOfAttributeFlood();
    if (flood > 0) {
        *error = {fileName, flood,
                  QCoreApplication::translate("Fpga::ReadError",
                                              "An element has more than %1 attributes.")
                      .arg(Utils::XmlText::MAX_ATTRIBUTES)};
        return std::nullopt;
    }
    ProjectDocument document;
    ProjectReader reader(contents, document.d.data());
    if (reader.read())
        return document;
    *error = {fileName, reader.errorLine(), reader.errorReason()};
    return std::nullopt;
}

QByteArray ProjectDocument::toXml() const
{
    return ProjectWriter(d.constData()).write();
}

bool ProjectDocument::save(const QByteArray &contents, const QString &fileName,
                           QString *errorString)
{
    QSaveFile file(fileName);
    // commit() passes over what fails while it empties the buffer.
    if (file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size() && file.flush()
        && file.commit()) {
        return true;
    }
    *errorString = Utils::systemReason(file.errorString());
    return false;
}

QString ProjectDocument::name() const
{
    return d->name;
}

void ProjectDocument::setName(const QString &name)
{
    d->name = name;
}

DeviceChoice ProjectDocument::device() const
{
    return d->device;
}

void ProjectDocument::setDevice(const DeviceChoice &device)
{
    d->device = device;
}

TopModule ProjectDocument::top() const
{
    return d->top;
}

void ProjectDocument::setTop(const TopModule &top)
{
    d->top = top;
}

const QVector<FileEntry> &ProjectDocument::files() const
{
    return d->files;
}

int ProjectDocument::lowerBound(const QString &path) const
{
    const auto place = std::lower_bound(
        d->files.cbegin(), d->files.cend(), path,
        [](const FileEntry &entry, const QString &wanted) { return entry.path < wanted; });
    return int(place - d->files.cbegin());
}

int ProjectDocument::indexOf(const QString &path) const
{
    const int place = lowerBound(path);
    return place < d->files.size() && d->files.at(place).path == path ? place : -1;
}

const FileEntry *ProjectDocument::file(const QString &path) const
{
    const int place = indexOf(path);
    return place < 0 ? nullptr : &d->files.at(place);
}

bool ProjectDocument::addFile(const FileEntry &entry)
{
    if (entry.path.isEmpty() || !isXmlText(entry.path) || indexOf(entry.path) >= 0)
        return false;
    const int place = lowerBound(entry.path);
    d->files.insert(place, entry);
    return true;
}

int ProjectDocument::addFiles(const QVector<FileEntry> &entries)
{
    // One after another would move the rest of the list for each.
    QVector<FileEntry> fresh;
    for (const FileEntry &entry : entries) {
        if (!entry.path.isEmpty() && isXmlText(entry.path) && indexOf(entry.path) < 0)
            fresh.append(entry);
    }
    const auto byPath = [](const FileEntry &a, const FileEntry &b) { return a.path < b.path; };
    std::stable_sort(fresh.begin(), fresh.end(), byPath);
    fresh.erase(
        std::unique(fresh.begin(), fresh.end(),
                    [](const FileEntry &a, const FileEntry &b) { return a.path == b.path; }),
        fresh.end());
    if (fresh.isEmpty())
        return 0;
    const int before = d->files.size();
    d->files += fresh;
    std::inplace_merge(d->files.begin(), d->files.begin() + before, d->files.end(), byPath);
    return fresh.size();
}

bool ProjectDocument::removeFile(const QString &path)
{
    const int place = indexOf(path);
    if (place < 0)
        return false;
    d->files.removeAt(place);
    if (d->top.file == path)
        d->top = {};
    return true;
}

bool ProjectDocument::setEnabled(const QString &path, bool enabled)
{
    const int place = indexOf(path);
    if (place < 0)
        return false;
    d->files[place].enabled = enabled;
    return true;
}

bool ProjectDocument::renameFile(const QString &path, const QString &newPath)
{
    if (!moveFile(path, newPath))
        return false;
    FileEntry &entry = d->files[indexOf(newPath)];
    // A kind that was chosen otherwise than by the name stays.
    if (entry.kind == fileKindOf(path) && entry.foreignKind.isEmpty())
        entry.kind = fileKindOf(newPath);
    return true;
}

bool ProjectDocument::moveFile(const QString &path, const QString &newPath)
{
    const int place = indexOf(path);
    if (place < 0)
        return false;
    FileEntry entry = d->files.at(place);
    entry.path = newPath;
    if (!addFile(entry))
        return false;
    d->files.removeAt(indexOf(path));
    if (d->top.file == path)
        d->top.file = newPath;
    return true;
}

} // namespace Fpga
