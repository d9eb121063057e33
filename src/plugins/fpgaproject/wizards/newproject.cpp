// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/wizards/newproject_p.h>

#include <fpgaproject/wizards/filecreation_p.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace Fpga {

QString NewProject::folder() const
{
    return QDir::cleanPath(QDir(parentFolder).absolutePath() + QLatin1Char('/') + name);
}

QString NewProject::file() const
{
    return folder() + QLatin1Char('/') + name + QLatin1String(".kprj");
}

QString faultOf(const NewProject &project)
{
    const auto say = [](const char *text) {
        return QCoreApplication::translate("Fpga::NewProject", text);
    };
    if (project.name.isEmpty())
        return say(QT_TRANSLATE_NOOP("Fpga::NewProject", "Please enter a name for new project."));
    if (project.parentFolder.isEmpty())
        return say(QT_TRANSLATE_NOOP("Fpga::NewProject", "Please select a path."));
    if (!isXmlText(project.name) || (project.name + QLatin1String(".kprj")).toUtf8().size() > 255)
        return say(QT_TRANSLATE_NOOP("Fpga::NewProject", "The name cannot be that of a file."));
    const QString inPath = projectPathFault(project.file());
    if (!inPath.isEmpty())
        return inPath;
    if (QFileInfo::exists(project.folder()) && !QFileInfo(project.folder()).isDir())
        return say(QT_TRANSLATE_NOOP("Fpga::NewProject", "There is a file of that name."));
    return {};
}

bool createProject(const NewProject &project, bool overwrite, QString *reason)
{
    const bool isNew = !QFileInfo::exists(project.folder());
    if (!makeFolder(project.folder() + QLatin1String("/src"), reason))
        return false;
    ProjectDocument document;
    document.setName(project.name);
    document.setDevice(project.device);
    if (writeNewFile(project.file(), document.toXml(),
                     overwrite ? Overwrite::Allowed : Overwrite::Never, reason)) {
        return true;
    }
    // Nothing half made stays behind. Only folders that are empty go.
    if (isNew) {
        QDir().rmdir(project.folder() + QLatin1String("/src"));
        QDir().rmdir(project.folder());
    }
    return false;
}

} // namespace Fpga
