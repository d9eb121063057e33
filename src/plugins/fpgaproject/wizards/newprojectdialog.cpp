// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/wizards/newprojectdialog_p.h>

#include <fpgaproject/options/newitemsettings_p.h>
#include <fpgaproject/project/messages_p.h>
#include <fpgaproject/wizards/newprojectpages_p.h>

#include <QDir>
#include <QFileInfo>

namespace Fpga {

NewProjectDialog::NewProjectDialog(const QString &folder, const QVector<DEV::Device> &devices,
                                   QWidget *parent)
    : QWizard(parent)
    , m_place(new PlacePage(folder))
    , m_device(new DevicePage(devices))
{
    setWindowTitle(tr("New FPGA Project"));
    // Draws with the palette of the theme, as every dialog does.
    setWizardStyle(ClassicStyle);
    setOption(NoBackButtonOnStartPage);
    addPage(m_place);
    addPage(m_device);
    addPage(new SummaryPage);
    resize(1000, 560);
}

NewProjectDialog::~NewProjectDialog() = default;

void NewProjectDialog::propose(const NewItemSettings &wanted)
{
    m_device->propose(wanted.device);
}

NewProject NewProjectDialog::project() const
{
    return {m_place->projectName(), m_place->folder(), m_device->choice()};
}

void NewProjectDialog::accept()
{
    const NewProject wanted = project();
    const QString path = QDir::toNativeSeparators(wanted.file());
    bool overwrite = false;
    if (QFileInfo::exists(wanted.file())) {
        if (!askYesNo(windowTitle(),
                      tr("The project \"%1\" exists.\nDo you want to replace it by an empty one? "
                         "Its list of files is lost.")
                          .arg(path),
                      this)) {
            return;
        }
        overwrite = true;
    }
    QString reason;
    if (!createProject(wanted, overwrite, &reason)) {
        showError(windowTitle(), tr("Can not create project \"%1\"").arg(path), reason, this);
        return;
    }
    QWizard::accept();
}

} // namespace Fpga
