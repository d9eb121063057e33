// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/project/fpgaprojectfactory.h>

#include <fpgaproject/project/fpgaproject.h>

namespace Fpga {

FpgaProjectFactory::FpgaProjectFactory(QObject *parent)
    : IProjecctFactory(parent)
{
}

FpgaProjectFactory::~FpgaProjectFactory() = default;

QString FpgaProjectFactory::projectTemplate() const
{
    return QStringLiteral("FPGA");
}

Core::IProject *FpgaProjectFactory::createProject()
{
    return new FpgaProject;
}

} // namespace Fpga
