// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PROJECT_FPGAPROJECTFACTORY_H
#define FPGAPROJECT_PROJECT_FPGAPROJECTFACTORY_H

#include <fpgaproject/fpgaproject_export.h>
#include <idecore/interfaces/iprojecctfactory.h>

namespace Fpga {

/// Makes projects of the template "FPGA".
class FPGAPROJECT_EXPORT FpgaProjectFactory final : public Core::IProjecctFactory
{
    Q_OBJECT
public:
    explicit FpgaProjectFactory(QObject *parent = nullptr);
    ~FpgaProjectFactory() override;

    [[nodiscard]] QString projectTemplate() const override;
    [[nodiscard]] Core::IProject *createProject() override;
};

} // namespace Fpga

#endif // FPGAPROJECT_PROJECT_FPGAPROJECTFACTORY_H
