// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_WIZARDS_NEWFILEWIZARD_P_H
#define FPGAPROJECT_WIZARDS_NEWFILEWIZARD_P_H

#include <fpgaproject/file/filekind.h>
#include <fpgaproject/fpgaproject_export.h>
#include <idecore/interfaces/ifilewizardfactory.h>

namespace Fpga {

/// Makes a file of one kind, adds it to the project that is open and opens it.
class FPGAPROJECT_EXPORT NewFileWizard final : public Core::IFileWizardFactory
{
    Q_OBJECT
public:
    explicit NewFileWizard(FileKind kind, QObject *parent = nullptr);
    ~NewFileWizard() override;

    [[nodiscard]] QString sortKey() const override;
    [[nodiscard]] QString displayName() const override;
    [[nodiscard]] QString description() const override;
    [[nodiscard]] QIcon icon() const override;
    void runWizard(QWidget *parent, const QString &directory) override;

private:
    const FileKind m_kind;
};

} // namespace Fpga

#endif // FPGAPROJECT_WIZARDS_NEWFILEWIZARD_P_H
