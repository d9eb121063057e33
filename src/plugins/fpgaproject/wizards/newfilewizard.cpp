// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/wizards/newfilewizard_p.h>

#include <fpgaproject/options/newitemsettings_p.h>
#include <fpgaproject/panel/fileicons_p.h>
#include <fpgaproject/panel/fileopening_p.h>
#include <fpgaproject/wizards/newfiledialog_p.h>
#include <idecore/interfaces/iproject.h>
#include <idecore/projects/projectmanager.h>

#include <QIcon>

namespace Fpga {

NewFileWizard::NewFileWizard(FileKind kind, QObject *parent)
    : IFileWizardFactory(parent)
    , m_kind(kind)
{
}

NewFileWizard::~NewFileWizard() = default;

QString NewFileWizard::sortKey() const
{
    return QStringLiteral("FpgaProject.%1").arg(int(m_kind));
}

QString NewFileWizard::displayName() const
{
    switch (m_kind) {
    case FileKind::Verilog:
        return tr("Verilog File");
    case FileKind::SystemVerilog:
        return tr("SystemVerilog File");
    case FileKind::Vhdl:
        return tr("VHDL File");
    case FileKind::TimingConstraint:
        return tr("Timing Constraints File");
    default:
        return tr("Physical Constraints File");
    }
}

QString NewFileWizard::description() const
{
    switch (m_kind) {
    case FileKind::Verilog:
        return tr("A Verilog source with a module and its ports.");
    case FileKind::SystemVerilog:
        return tr("A SystemVerilog source with a module and its ports.");
    case FileKind::Vhdl:
        return tr("A VHDL source with an entity, its ports and an empty architecture.");
    case FileKind::TimingConstraint:
        return tr("Clocks and the times that signals have to keep (SDC).");
    default:
        return tr("Which pin of the device each port of the top module is on.");
    }
}

QIcon NewFileWizard::icon() const
{
    return fileIcon(m_kind);
}

void NewFileWizard::runWizard(QWidget *parent, const QString &directory)
{
    NewFileDialog dialog(m_kind, directory, parent);
    dialog.propose(NewItemSettings::load());
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString path = dialog.filePath();
    // Whatever project is open by now.
    if (Core::IProject *const project = Core::ProjectManager::currentProject())
        project->addFiles({path});
    openFiles({path});
}

} // namespace Fpga
