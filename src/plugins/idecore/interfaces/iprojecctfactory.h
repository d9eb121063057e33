// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_INTERFACES_IPROJECCTFACTORY_H
#define IDECORE_INTERFACES_IPROJECCTFACTORY_H

#include <idecore/idecore_export.h>

#include <QObject>
#include <QString>

namespace Core {

class IProject;

/// Makes projects of one template. The doubled "c" is part of the interface.
///
/// Put into the object pool by its plugin, which owns it.
class IDECORE_EXPORT IProjecctFactory : public QObject
{
    Q_OBJECT
public:
    explicit IProjecctFactory(QObject *parent = nullptr);
    ~IProjecctFactory() override;

    /// The text of the element "Template" of the project files it opens.
    [[nodiscard]] virtual QString projectTemplate() const = 0;
    /// A new project that has not been opened yet; the caller owns it.
    [[nodiscard]] virtual IProject *createProject() = 0;
};

} // namespace Core

#endif // IDECORE_INTERFACES_IPROJECCTFACTORY_H
