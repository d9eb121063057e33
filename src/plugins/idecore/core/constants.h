// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_CORE_CONSTANTS_H
#define IDECORE_CORE_CONSTANTS_H

namespace Core {
namespace Constants {

// Contexts
inline constexpr char C_GLOBAL[] = "Core.Context.Global";

// The menu bar and its menus
inline constexpr char MENU_BAR[] = "Core.MenuBar";
inline constexpr char M_FILE[] = "Core.Menu.File";
inline constexpr char M_EDIT[] = "Core.Menu.Edit";
inline constexpr char M_TOOL[] = "Core.Menu.Tool";
inline constexpr char M_WINDOW[] = "Core.Menu.Window";
inline constexpr char M_HELP[] = "Core.Menu.Help";

// Tool bars
inline constexpr char T_FILE[] = "Core.Toolbar.File";
inline constexpr char T_EDIT[] = "Core.Toolbar.Edit";
inline constexpr char T_TOOLS[] = "Core.Toolbar.Tools";
inline constexpr char T_PROCESS[] = "Core.Toolbar.Process";

// Commands
inline constexpr char A_FILE_NEW[] = "Core.Action.New";
inline constexpr char A_FILE_OPEN[] = "Core.Action.Open";
inline constexpr char A_FILE_SAVE[] = "Core.Action.Save";
inline constexpr char A_FILE_SAVEAS[] = "Core.Action.SaveAs";
inline constexpr char A_FILE_SAVEALL[] = "Core.Action.SaveAll";
inline constexpr char A_FILE_PRINT[] = "Core.Action.Print";
inline constexpr char A_EDIT_UNDO[] = "Core.Action.Undo";
inline constexpr char A_EDIT_REDO[] = "Core.Action.Redo";
inline constexpr char A_EDIT_CUT[] = "Core.Action.Cut";
inline constexpr char A_EDIT_COPY[] = "Core.Action.Copy";
inline constexpr char A_EDIT_PASTE[] = "Core.Action.Paste";
inline constexpr char A_EDIT_SELECTALL[] = "Core.Action.SelectAll";
inline constexpr char A_EDIT_FIND[] = "Core.Action.Find";
inline constexpr char A_NEXT_PANE[] = "Core.Action.NextPane";         // in no menu
inline constexpr char A_PREVIOUS_PANE[] = "Core.Action.PreviousPane"; // in no menu

// Separators: a final ".F" stands in front of a group, ".B" behind it
inline constexpr char SEP_FILE_OPEN_B[] = "Core.Sep.File.Open.B";
inline constexpr char SEP_FILE_SAVE_F[] = "Core.Sep.File.Save.F";
inline constexpr char SEP_FILE_SAVE_B[] = "Core.Sep.File.Save.B";
inline constexpr char SEP_FILE_CLOSE_F[] = "Core.Sep.File.Close.F";
inline constexpr char SEP_FILE_CLOSE_B[] = "Core.Sep.File.Close.B";
inline constexpr char SEP_FILE_PRINT_F[] = "Core.Sep.File.Print.F";
inline constexpr char SEP_FILE_PRINT_B[] = "Core.Sep.File.Print.B";
inline constexpr char SEP_FILE_EXIT_F[] = "Core.Sep.File.Exit.F";
inline constexpr char SEP_BEFORE_OPTION[] = "Core.Sep.BeforeOption";
inline constexpr char SEP_BEFORE_ABOUT[] = "Core.Sep.BeforeAbout";

// Settings of the store "IDE"
inline constexpr char SET_TOOLBAR_ICON_SIZE[] = "Core/ToolbarIconSize";

// Topics and parameters of the event bus
inline constexpr char E_OPEN_PROJECT[] = "TE.Open.Project";
inline constexpr char E_CLOSE_PROJECT[] = "TE.Close.Project";
inline constexpr char E_KEY_OPEN_PROJECT_FILE[] = "Key.Open.Project.File";

} // namespace Constants
} // namespace Core

#endif // IDECORE_CORE_CONSTANTS_H
