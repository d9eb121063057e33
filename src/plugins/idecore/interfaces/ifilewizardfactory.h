// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_INTERFACES_IFILEWIZARDFACTORY_H
#define IDECORE_INTERFACES_IFILEWIZARDFACTORY_H

#include <idecore/interfaces/iwizardfactory.h>

namespace Core {

/// A wizard that makes files. Its class is all it adds: the New dialog groups by it.
class IDECORE_EXPORT IFileWizardFactory : public IWizardFactory
{
    Q_OBJECT
public:
    explicit IFileWizardFactory(QObject *parent = nullptr);
    ~IFileWizardFactory() override;
};

} // namespace Core

#endif // IDECORE_INTERFACES_IFILEWIZARDFACTORY_H
