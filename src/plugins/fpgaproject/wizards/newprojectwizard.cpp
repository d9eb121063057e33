// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/wizards/newprojectwizard_p.h>

#include <devicedb/devicedb.h>
#include <fpgaproject/options/newitemsettings_p.h>
#include <fpgaproject/wizards/newprojectdialog_p.h>
#include <idecore/core/idecore.h>
#include <idecore/projects/projectmanager.h>

namespace Fpga {

NewProjectWizard::NewProjectWizard(QObject *parent)
    : IProjectWizardFactory(parent)
{
}

NewProjectWizard::~NewProjectWizard() = default;

QString NewProjectWizard::sortKey() const
{
    return QStringLiteral("FpgaProject");
}

QString NewProjectWizard::displayName() const
{
    return tr("FPGA Project");
}

QString NewProjectWizard::description() const
{
    return tr("An empty project for a device of your choice, with a folder for its sources.");
}

void NewProjectWizard::runWizard(QWidget *parent, const QString &directory)
{
    Q_UNUSED(directory)
    const DEV::DeviceDb *const devices = Core::IdeCore::deviceDataBase();
    NewProjectDialog dialog(Core::ProjectManager::defaultWorkDir(),
                            devices ? devices->rows() : QVector<DEV::Device>(), parent);
    dialog.propose(NewItemSettings::load());
    if (dialog.exec() == QDialog::Accepted)
        Core::ProjectManager::openProject(dialog.project().file());
}

} // namespace Fpga
