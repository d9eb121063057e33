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

/// Opens and closes the one current project through the project factories in the
/// object pool, and keeps the recent projects and the default work directory.
///
/// Other plugins may also ask by the events "TE.Open.Project", with the path as its
/// parameter "Key.Open.Project.File", and "TE.Close.Project". GUI thread only.
class IDECORE_EXPORT ProjectManager final : public QObject, public QUtil::IEventHandler
{
    Q_OBJECT
    Q_DISABLE_COPY(ProjectManager)
public:
    ProjectManager();
    /// A project that is still open is neither closed nor deleted.
    ~ProjectManager() override;

    [[nodiscard]] static ProjectManager *instance();

    /// Owned by the manager; null while no project is open.
    [[nodiscard]] static IProject *currentProject();
    /// Opens the project file @p path in a project of the first factory for its
    /// template, after the current project has closed. The user is told why it
    /// could not be opened; nothing happens when the current project refuses to
    /// close, is this one, or another is just being opened.
    static void openProject(const QString &path);
    /// Asks the current project to close and deletes it then. True when no project
    /// remains open.
    static bool closeCurrentProject();
    /// The paths of the projects last opened, in native separators, newest first,
    /// at most 10.
    [[nodiscard]] static QStringList recentProjects();

    /// The default work directory as the user set it; empty when it is not set.
    [[nodiscard]] static QString workDir();
    /// Where new projects go when the user says nothing else: workDir(), else the
    /// current directory where it is writable, else the home directory.
    [[nodiscard]] static QString defaultWorkDir();
    static void setDefaultWorkDir(const QString &dir);

    /// Reads the built-in file types into the MIME database and adds the manager's
    /// entries to the File menu.
    void initialize();
    void handleIEvent(const QUtil::IEvent *event) override;

public Q_SLOTS:
    void showRecentMenu();
    void onActRecent();
    void onActClearRecent();
    void onActClosePrj();

Q_SIGNALS:
    /// @p project is the current project now, and open; null when it was closed,
    /// and deleted already.
    void currentProjectChanged(Core::IProject *project);
    /// A project was opened, or the list cleared.
    void recentListChanged();
};

} // namespace Core

#endif // IDECORE_PROJECTS_PROJECTMANAGER_H
