// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_INTERFACES_IWIZARDFACTORY_H
#define IDECORE_INTERFACES_IWIZARDFACTORY_H

#include <idecore/idecore_export.h>

#include <QObject>
#include <QString>

class QIcon;
class QWidget;

namespace Core {

/// An entry of the New dialog. Derive from IFileWizardFactory or
/// IProjectWizardFactory, which tell the dialog where it belongs.
///
/// Put into the object pool by its plugin, which owns it.
class IDECORE_EXPORT IWizardFactory : public QObject
{
    Q_OBJECT
public:
    explicit IWizardFactory(QObject *parent = nullptr);
    ~IWizardFactory() override;

    /// The dialog sorts its entries by this text.
    [[nodiscard]] virtual QString sortKey() const = 0;
    [[nodiscard]] virtual QString displayName() const = 0;
    /// The text shown while the entry is selected.
    [[nodiscard]] virtual QString description() const = 0;
    /// Null by default: the dialog then uses an icon of its own.
    [[nodiscard]] virtual QIcon icon() const;
    /// Runs the wizard over @p parent; what it makes belongs into @p directory,
    /// which need not exist yet.
    virtual void runWizard(QWidget *parent, const QString &directory) = 0;
};

} // namespace Core

#endif // IDECORE_INTERFACES_IWIZARDFACTORY_H
