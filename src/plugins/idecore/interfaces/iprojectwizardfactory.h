// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_INTERFACES_IPROJECTWIZARDFACTORY_H
#define IDECORE_INTERFACES_IPROJECTWIZARDFACTORY_H

#include <idecore/interfaces/iwizardfactory.h>

namespace Core {

/// A wizard that makes a project. Its class is all it adds: the New dialog groups by it.
class IDECORE_EXPORT IProjectWizardFactory : public IWizardFactory
{
    Q_OBJECT
public:
    explicit IProjectWizardFactory(QObject *parent = nullptr);
    ~IProjectWizardFactory() override;
};

} // namespace Core

#endif // IDECORE_INTERFACES_IPROJECTWIZARDFACTORY_H
