// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/project/fpgaproject.h>

#include <fpgaproject/project/messages_p.h>
#include <fpgaproject/project/projecteditors_p.h>
#include <idecore/editors/editormanager.h>
#include <idecore/interfaces/ieditor.h>
#include <utils/systemreason.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace Fpga {

namespace {

/// Both lists are sorted, so one walk along them does.
FileChanges difference(const QVector<FileEntry> &before, const QVector<FileEntry> &now)
{
    FileChanges changes;
    auto old = before.cbegin();
    auto fresh = now.cbegin();
    while (old != before.cend() || fresh != now.cend()) {
        if (fresh == now.cend() || (old != before.cend() && old->path < fresh->path)) {
            changes.removed.append((old++)->path);
        } else if (old == before.cend() || fresh->path < old->path) {
            changes.added.append((fresh++)->path);
        } else {
            if (!(*old == *fresh))
                changes.changed.append(fresh->path);
            ++old;
            ++fresh;
        }
    }
    return changes;
}

} // namespace

FpgaProject::FpgaProject(QObject *parent)
    : IProject(parent)
{
    qRegisterMetaType<Fpga::FileChanges>();
}

FpgaProject::~FpgaProject() = default;

QString FpgaProject::displayName() const
{
    return m_document.name().isEmpty() ? QFileInfo(m_fileName).completeBaseName()
                                       : m_document.name();
}

QString FpgaProject::fileName() const
{
    return m_fileName;
}

QString FpgaProject::projectDir() const
{
    return m_projectDir;
}

std::optional<FpgaProject::Loaded> FpgaProject::load(const QString &fileName)
{
    ReadError error;
    if (const auto contents = ProjectDocument::load(fileName, &error)) {
        if (const auto document = ProjectDocument::parse(*contents, fileName, &error))
            return Loaded{*contents, *document};
    }
    showError(tr("Open Project"),
              tr("Can not open project \"%1\"").arg(QDir::toNativeSeparators(fileName)),
              error.text());
    return std::nullopt;
}

bool FpgaProject::canOpen(const QString &fileName)
{
    m_checked = load(fileName);
    return m_checked.has_value();
}

bool FpgaProject::open(const QString &fileName)
{
    ReadError error;
    // It may be another file than the one checked, or have changed since.
    const auto contents = ProjectDocument::load(fileName, &error);
    if (!m_checked || !contents || *contents != m_checked->contents)
        m_checked = load(fileName);
    if (!m_checked)
        return false;
    m_document = m_checked->document;
    m_contents = m_checked->contents;
    m_checked.reset();
    m_fileName = QFileInfo(fileName).absoluteFilePath();
    m_projectDir = QFileInfo(m_fileName).absolutePath();
    return true;
}

bool FpgaProject::close()
{
    return ProjectEditors(files() << m_fileName).close(displayName());
}

QStringList FpgaProject::files() const
{
    QStringList paths;
    paths.reserve(m_document.files().size());
    for (const FileEntry &entry : m_document.files())
        paths.append(absolutePath(entry.path));
    return paths;
}

QString FpgaProject::absolutePath(const QString &path) const
{
    // Paths in a project are clean, and only those that leave its folder need to be
    // made so.
    if (QDir::isAbsolutePath(path))
        return path;
    const QString whole = m_projectDir + QLatin1Char('/') + path;
    return path.startsWith(QLatin1String("..")) ? QDir::cleanPath(whole) : whole;
}

QString FpgaProject::relativePath(const QString &absolutePath) const
{
    return QDir::cleanPath(QDir(m_projectDir).relativeFilePath(QDir::cleanPath(absolutePath)));
}

bool FpgaProject::addFiles(const QStringList &files)
{
    QVector<FileEntry> entries;
    for (const QString &file : files) {
        const QFileInfo info(file);
        QString reason;
        if (!info.exists())
            reason = tr("The file does not exist.");
        else if (!info.isFile())
            reason = tr("This is not a file.");
        else if (!isXmlText(info.absoluteFilePath()))
            reason = tr("Its name holds a control character, which a project file cannot hold.");
        if (!reason.isEmpty()) {
            showError(tr("Add Files"),
                      tr("Can not add file \"%1\"").arg(QDir::toNativeSeparators(file)), reason);
            return false;
        }
        FileEntry entry;
        // The folder is resolved, as that of the project is; the file may be a link.
        entry.path = relativePath(QFileInfo(info.absolutePath()).canonicalFilePath()
                                  + QLatin1Char('/') + info.fileName());
        entry.kind = fileKindOf(entry.path);
        entries.append(entry);
    }
    return edit([&](ProjectDocument *document) { document->addFiles(entries); });
}

bool FpgaProject::setEnabled(const QStringList &paths, bool enabled)
{
    return edit([&](ProjectDocument *document) {
        for (const QString &path : paths)
            document->setEnabled(path, enabled);
    });
}

bool FpgaProject::removeFiles(const QStringList &paths)
{
    return edit([&](ProjectDocument *document) {
        for (const QString &path : paths)
            document->removeFile(path);
    });
}

bool FpgaProject::setTop(const TopModule &top)
{
    return edit([&](ProjectDocument *document) { document->setTop(top); });
}

bool FpgaProject::setDevice(const DeviceChoice &device)
{
    return edit([&](ProjectDocument *document) { document->setDevice(device); });
}

bool FpgaProject::renameFile(const QString &path, const QString &newName)
{
    const QString from = absolutePath(path);
    const QString folder = path.left(path.lastIndexOf(QLatin1Char('/')) + 1);
    const QString newPath = folder + newName;
    if (newPath == path || !m_document.file(path))
        return true;
    QString reason;
    if (newName.isEmpty() || newName == QLatin1String(".") || newName == QLatin1String("..")
        || newName.contains(QLatin1Char('/')) || !isXmlText(newName)) {
        reason = tr("\"%1\" is no name for a file.").arg(newName);
    } else if (m_document.file(newPath)) {
        reason = tr("The project has a file of that name.");
    }
    if (!reason.isEmpty()) {
        showError(tr("Rename File"),
                  tr("Can not rename file \"%1\"").arg(QDir::toNativeSeparators(from)), reason);
        return false;
    }
    const QString to = absolutePath(newPath);
    const bool exists = QFileInfo::exists(from);
    if (exists && !renameOnDisk(from, to))
        return false;
    if (edit([&](ProjectDocument *document) { document->renameFile(path, newPath); }))
        return true;
    if (exists)
        renameOnDisk(to, from);
    return false;
}

bool FpgaProject::renameOnDisk(const QString &from, const QString &to)
{
    Core::IEditor *const editor = Core::EditorManager::editorForFile(from);
    QString reason;
    QFile file(from);
    if (editor && editor->isModified())
        reason = tr("It has unsaved changes; save or discard them first.");
    else if (!file.rename(to))
        reason = QFileInfo::exists(to) ? tr("There is a file of that name.")
                                       : Utils::systemReason(file.errorString());
    if (!reason.isEmpty()) {
        showError(tr("Rename File"),
                  tr("Can not rename file \"%1\"").arg(QDir::toNativeSeparators(from)), reason);
        return false;
    }
    if (editor) {
        const int line = editor->currentLine();
        const bool readOnly = editor->isReadOnly();
        // It shows a file of the old name, which is no more.
        if (Core::EditorManager::closeEditor(editor)) {
            if (Core::IEditor *const again = Core::EditorManager::openEditor(to, readOnly))
                again->goToLine(line, 1);
        }
    }
    return true;
}

bool FpgaProject::reload(ReadError *error)
{
    const std::optional<QByteArray> contents = ProjectDocument::load(m_fileName, error);
    if (!contents)
        return false;
    if (*contents == m_contents)
        return true;
    const std::optional<ProjectDocument> document =
        ProjectDocument::parse(*contents, m_fileName, error);
    if (!document)
        return false;
    take(*document, *contents);
    return true;
}

bool FpgaProject::edit(const Change &change)
{
    const QString failed =
        tr("Can not save project \"%1\"").arg(QDir::toNativeSeparators(m_fileName));
    ReadError error;
    if (!reload(&error)) {
        showError(tr("Save Project"), failed, error.text());
        return false;
    }
    ProjectDocument document = m_document;
    change(&document);
    const QByteArray contents = document.toXml();
    // What changes nothing does not write the file in our own manner either.
    if (contents == m_document.toXml())
        return true;
    QString reason;
    if (!ProjectDocument::save(contents, m_fileName, &reason)) {
        showError(tr("Save Project"), failed, reason);
        return false;
    }
    take(document, contents);
    return true;
}

void FpgaProject::take(const ProjectDocument &document, const QByteArray &contents)
{
    const ProjectDocument before = m_document;
    m_document = document;
    m_contents = contents;
    const FileChanges changes = difference(before.files(), document.files());
    if (!changes.isEmpty())
        Q_EMIT filesChanged(changes);
    if (before.name() != document.name() || !(before.device() == document.device())
        || !(before.top() == document.top())) {
        Q_EMIT settingsChanged();
    }
}

} // namespace Fpga
