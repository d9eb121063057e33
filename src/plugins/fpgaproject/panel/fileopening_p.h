// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PANEL_FILEOPENING_P_H
#define FPGAPROJECT_PANEL_FILEOPENING_P_H

#include <QStringList>

class QMenu;

namespace Core {
struct ExternalEditor;
}

namespace Fpga {

/// Opens @p files, given by their whole paths, where the user wants them: text files
/// in the default external editor if one is to be used always, all others inside.
void openFiles(const QStringList &files);
void openFilesInside(const QStringList &files);
/// Opens @p files in @p editor, each at the line where it stands inside. Where its
/// program does not start, the user is told, and they open inside.
void openFilesWith(const Core::ExternalEditor &editor, const QStringList &files);
/// An entry for each external editor that opens @p files in it.
void addExternalEditors(QMenu *menu, const QStringList &files);

} // namespace Fpga

#endif // FPGAPROJECT_PANEL_FILEOPENING_P_H
