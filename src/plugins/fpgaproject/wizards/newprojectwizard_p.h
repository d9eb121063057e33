// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_WIZARDS_NEWPROJECTWIZARD_P_H
#define FPGAPROJECT_WIZARDS_NEWPROJECTWIZARD_P_H

#include <fpgaproject/fpgaproject_export.h>
#include <idecore/interfaces/iprojectwizardfactory.h>

namespace Fpga {

/// Makes an FPGA project and opens it.
class FPGAPROJECT_EXPORT NewProjectWizard final : public Core::IProjectWizardFactory
{
    Q_OBJECT
public:
    explicit NewProjectWizard(QObject *parent = nullptr);
    ~NewProjectWizard() override;

    [[nodiscard]] QString sortKey() const override;
    [[nodiscard]] QString displayName() const override;
    [[nodiscard]] QString description() const override;
    /// Proposes the project manager's default work directory: a project does not
    /// belong into @p directory, which is in the open one.
    void runWizard(QWidget *parent, const QString &directory) override;
};

} // namespace Fpga

#endif // FPGAPROJECT_WIZARDS_NEWPROJECTWIZARD_P_H
