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

// Settings of the store "IDE"

/// A truth: new files are proposed with a comment of their name and the date.
inline constexpr char SET_NEW_FILE_HEADER[] = "FpgaProject/NewFileHeader";

/// A line of text: who is named in that comment.
inline constexpr char SET_AUTHOR[] = "FpgaProject/Author";

/// A part: the device that is proposed for new projects.
inline constexpr char SET_DEFAULT_DEVICE[] = "FpgaProject/DefaultDevice";

} // namespace Constants
} // namespace Fpga

#endif // FPGAPROJECT_FPGAPROJECTCONSTANTS_H
