// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/projects/projectmanager.h>

#include <idecore/core/idecore.h>
#include <idecore/mimedatabase/mimedatabase.h>

#include <QDebug>

namespace Core {

namespace {
ProjectManager *m_instance = nullptr;
}

ProjectManager::ProjectManager()
{
    m_instance = this;
}

ProjectManager::~ProjectManager()
{
    m_instance = nullptr;
}

ProjectManager *ProjectManager::instance()
{
    return m_instance;
}

IProject *ProjectManager::currentProject()
{
    return nullptr;
}

QStringList ProjectManager::recentProjects()
{
    return {};
}

void ProjectManager::openProject(const QString &path)
{
    qDebug() << "open project:" << path;
}

bool ProjectManager::closeCurrentProject()
{
    return true;
}

void ProjectManager::initialize()
{
    IdeCore::mimeDatabase()->addMimeTypes(QStringLiteral(":/core/ide.mimetype.xml"), nullptr);
}

void ProjectManager::handleIEvent(const QUtil::IEvent *event)
{
    Q_UNUSED(event)
}

} // namespace Core
