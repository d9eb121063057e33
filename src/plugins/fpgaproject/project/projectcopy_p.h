// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PROJECT_PROJECTCOPY_P_H
#define FPGAPROJECT_PROJECT_PROJECTCOPY_P_H

#include <fpgaproject/fpgaproject_export.h>

#include <QCoreApplication>
#include <QString>

namespace Fpga {

class FpgaProject;

/// A copy of a project in a folder of its own: the files that lie in the project's
/// folder are copied, paths to others lead where they led before.
class FPGAPROJECT_EXPORT ProjectCopy final
{
    Q_DECLARE_TR_FUNCTIONS(Fpga::ProjectCopy)
public:
    /// @p folder is there, and empty.
    ProjectCopy(const FpgaProject &project, const QString &folder, const QString &name);

    /// False, and the reason; then the folder may hold a part of the copy.
    [[nodiscard]] bool make(QString *reason);
    /// The project file of the copy.
    [[nodiscard]] QString fileName() const;

private:
    [[nodiscard]] bool copyFile(const QString &from, const QString &to, QString *reason) const;

    const FpgaProject &m_project;
    const QString m_folder;
    const QString m_name;
};

} // namespace Fpga

#endif // FPGAPROJECT_PROJECT_PROJECTCOPY_P_H
