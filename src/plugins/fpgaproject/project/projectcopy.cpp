// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/project/projectcopy_p.h>

#include <fpgaproject/project/fpgaproject.h>
#include <fpgaproject/wizards/filecreation_p.h>
#include <utils/systemreason.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QVector>

namespace Fpga {

ProjectCopy::ProjectCopy(const FpgaProject &project, const QString &folder, const QString &name)
    : m_project(project)
    , m_folder(QDir::cleanPath(folder))
    , m_name(name)
{
}

QString ProjectCopy::fileName() const
{
    return m_folder + QLatin1Char('/') + m_name + QLatin1String(".kprj");
}

bool ProjectCopy::make(QString *reason)
{
    *reason = projectPathFault(fileName());
    if (!reason->isEmpty())
        return false;
    ProjectDocument copy = m_project.document();
    copy.setName(m_name);
    const QDir folder(m_folder);
    const QVector<FileEntry> files = m_project.document().files();
    for (const FileEntry &file : files) {
        const QString from = m_project.absolutePath(file.path);
        if (QDir::isAbsolutePath(file.path))
            continue;
        if (file.path.startsWith(QLatin1String("../"))) {
            const QString path = folder.relativeFilePath(from);
            if (path != file.path)
                copy.moveFile(file.path, path);
        } else if (QFileInfo::exists(from)
                   && !copyFile(from, m_folder + QLatin1Char('/') + file.path, reason)) {
            return false;
        }
    }
    if (!makeFolder(m_folder + QLatin1String("/src"), reason))
        return false;
    return writeNewFile(fileName(), copy.toXml(), Overwrite::Never, reason);
}

bool ProjectCopy::copyFile(const QString &from, const QString &to, QString *reason) const
{
    QString why;
    QFile file(from);
    if (!makeFolder(QFileInfo(to).absolutePath(), &why)) {
        *reason = tr("%1: %2").arg(QDir::toNativeSeparators(to), why);
        return false;
    }
    if (file.copy(to))
        return true;
    *reason =
        tr("%1: %2").arg(QDir::toNativeSeparators(from), Utils::systemReason(file.errorString()));
    return false;
}

} // namespace Fpga
