// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_FPGAPROJECTCONSTANTS_H
#define FPGAPROJECT_FPGAPROJECTCONSTANTS_H

namespace Fpga {
namespace Constants {

/// The context of the project panel, in which Copy copies paths.
inline constexpr char C_PROJECTPANEL[] = "FpgaProject.ProjectPanel.Context";

/// The name under which the view manager knows the project panel.
inline constexpr char PROJECT_PANEL[] = "FpgaProject.ProjectPanel";

/// "Save Project As..." of the File menu.
inline constexpr char A_PROJECT_SAVEAS[] = "FpgaProject.Action.SaveProjectAs";

/// Takes the keyboard to the project panel and back.
inline constexpr char A_PROJECT_PANEL[] = "FpgaProject.Action.GoToPanel";

} // namespace Constants
} // namespace Fpga

#endif // FPGAPROJECT_FPGAPROJECTCONSTANTS_H
