// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_WIZARDS_NEWPROJECT_P_H
#define FPGAPROJECT_WIZARDS_NEWPROJECT_P_H

#include <fpgaproject/file/projectdocument.h>
#include <fpgaproject/fpgaproject_export.h>

namespace Fpga {

/// What the user has said about a new project.
struct NewProject
{
    QString name;
    /// The folder in which the project's own folder, of the same name, is made.
    QString parentFolder;
    DeviceChoice device;

    [[nodiscard]] FPGAPROJECT_EXPORT QString folder() const;
    [[nodiscard]] FPGAPROJECT_EXPORT QString file() const;
};

/// Why such a project cannot be made; empty when it can.
[[nodiscard]] FPGAPROJECT_EXPORT QString faultOf(const NewProject &project);
/// Makes the folder, "src" in it and the project file. A project file that is there
/// is only replaced when @p overwrite says so. False, and the reason.
[[nodiscard]] FPGAPROJECT_EXPORT bool createProject(const NewProject &project, bool overwrite,
                                                    QString *reason);

} // namespace Fpga

#endif // FPGAPROJECT_WIZARDS_NEWPROJECT_P_H
