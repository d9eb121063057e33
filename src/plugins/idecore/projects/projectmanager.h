// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_PROJECTS_PROJECTMANAGER_H
#define IDECORE_PROJECTS_PROJECTMANAGER_H

#include <idecore/idecore_export.h>
#include <qutil/ieventhandler.h>

#include <QObject>
#include <QStringList>

namespace Core {

class IProject;

/// The one open project. Opening projects is not available yet: there is never
/// one open, and a request to open one leaves no more than its line in the debug
/// log.
class IDECORE_EXPORT ProjectManager final : public QObject, public QUtil::IEventHandler
{
    Q_OBJECT
    Q_DISABLE_COPY(ProjectManager)
public:
    ProjectManager();
    ~ProjectManager() override;

    [[nodiscard]] static ProjectManager *instance();
    /// Null while no project is open.
    [[nodiscard]] static IProject *currentProject();
    [[nodiscard]] static QStringList recentProjects();
    static void openProject(const QString &path);
    /// True when no project remains open.
    static bool closeCurrentProject();

    /// Reads the built-in file types into the MIME database.
    void initialize();
    void handleIEvent(const QUtil::IEvent *event) override;
};

} // namespace Core

#endif // IDECORE_PROJECTS_PROJECTMANAGER_H
