// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/project/saveprojectas_p.h>

#include <fpgaproject/fpgaprojectconstants.h>
#include <fpgaproject/project/fpgaproject.h>
#include <fpgaproject/project/messages_p.h>
#include <fpgaproject/project/projectcopy_p.h>
#include <fpgaproject/project/projecteditors_p.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/projects/projectsaveasdlg.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>

namespace Fpga {

SaveProjectAs::SaveProjectAs(QObject *parent)
    : QObject(parent)
    , m_action(new QAction(tr("Save Project As...")))
{
    using namespace Core::Constants;

    m_action->setEnabled(false);
    connect(m_action, &QAction::triggered, this, &SaveProjectAs::run);
    Core::IAction *const proxy =
        Core::ActionManager::registerAction(m_action, QLatin1String(Constants::A_PROJECT_SAVEAS));
    Core::ActionManager::menu(QLatin1String(M_FILE))
        ->insertAction(Core::ActionManager::separator(QLatin1String(SEP_FILE_SAVE_B)), proxy);
    connect(Core::ProjectManager::instance(), &Core::ProjectManager::currentProjectChanged, this,
            &SaveProjectAs::onProjectChanged);
}

SaveProjectAs::~SaveProjectAs()
{
    // The registry may be gone before the plugin, and the action with it.
    if (!m_action)
        return;
    Core::ActionManager::unregisterAction(QLatin1String(Constants::A_PROJECT_SAVEAS));
    delete m_action;
}

void SaveProjectAs::onProjectChanged(Core::IProject *project)
{
    if (m_action)
        m_action->setEnabled(qobject_cast<FpgaProject *>(project));
}

void SaveProjectAs::run()
{
    const QPointer<FpgaProject> project =
        qobject_cast<FpgaProject *>(Core::ProjectManager::currentProject());
    if (!project)
        return;
    Core::ProjectSaveAsDlg dialog(project->projectDir(),
                                  QFileInfo(project->fileName()).completeBaseName(),
                                  Core::ViewManager::dialogParent());
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString folder =
        QDir(QDir(dialog.newPrjPath()).filePath(dialog.newPrjName())).canonicalPath();
    // The dialog has just made it; whatever fails, nothing of it is to stay. It may
    // have been closed from outside while the dialog was open.
    if (!project
        || !ProjectEditors(project->files() << project->fileName()).close(project->displayName())) {
        QDir().rmdir(folder);
        return;
    }
    ProjectCopy copy(*project, folder, dialog.newPrjName());
    QString reason;
    if (!copy.make(&reason)) {
        QDir(folder).removeRecursively();
        showError(tr("Save Project As"),
                  tr("Can not save project \"%1\"").arg(QDir::toNativeSeparators(copy.fileName())),
                  reason);
        return;
    }
    Core::ProjectManager::openProject(copy.fileName());
}

} // namespace Fpga
