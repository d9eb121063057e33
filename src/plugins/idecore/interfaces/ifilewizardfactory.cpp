// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/interfaces/ifilewizardfactory.h>

namespace Core {

IFileWizardFactory::IFileWizardFactory(QObject *parent)
    : IWizardFactory(parent)
{
}

IFileWizardFactory::~IFileWizardFactory() = default;

} // namespace Core
