// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_WIZARDS_NEWPROJECTDIALOG_P_H
#define FPGAPROJECT_WIZARDS_NEWPROJECTDIALOG_P_H

#include <devicedb/device.h>
#include <fpgaproject/fpgaproject_export.h>
#include <fpgaproject/wizards/newproject_p.h>

#include <QVector>
#include <QWizard>

namespace Fpga {

class DevicePage;
class PlacePage;
struct NewItemSettings;

/// Asks in three steps for name and folder, for the device, and whether all is as
/// meant; makes the project then.
class FPGAPROJECT_EXPORT NewProjectDialog final : public QWizard
{
    Q_OBJECT
public:
    /// @p folder is proposed.
    NewProjectDialog(const QString &folder, const QVector<DEV::Device> &devices,
                     QWidget *parent = nullptr);
    ~NewProjectDialog() override;

    /// Begins with what the user wants in general.
    void propose(const NewItemSettings &wanted);

    /// What has been said so far; once accepted it is there.
    [[nodiscard]] NewProject project() const;

    /// Closes the dialog after it has made the project; where it could not, or an
    /// existing project is to stay, the dialog stays open.
    void accept() override;

private:
    PlacePage *const m_place;
    DevicePage *const m_device;
};

} // namespace Fpga

#endif // FPGAPROJECT_WIZARDS_NEWPROJECTDIALOG_P_H
