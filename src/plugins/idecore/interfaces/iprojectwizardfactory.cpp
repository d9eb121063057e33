// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/interfaces/iprojectwizardfactory.h>

namespace Core {

IProjectWizardFactory::IProjectWizardFactory(QObject *parent)
    : IWizardFactory(parent)
{
}

IProjectWizardFactory::~IProjectWizardFactory() = default;

} // namespace Core
