// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/interfaces/iwizardfactory.h>

#include <QIcon>

namespace Core {

IWizardFactory::IWizardFactory(QObject *parent)
    : QObject(parent)
{
}

IWizardFactory::~IWizardFactory() = default;

QIcon IWizardFactory::icon() const
{
    return {};
}

} // namespace Core
