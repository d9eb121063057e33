// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PANEL_DROPPEDFILES_P_H
#define FPGAPROJECT_PANEL_DROPPEDFILES_P_H

#include <fpgaproject/fpgaproject_export.h>

#include <QStringList>

namespace Fpga {

/// The files to add for what was dropped: files as they are, and of folders the
/// sources, constraints and memory contents at any depth. Hidden folders are passed
/// over, links to folders are not followed.
FPGAPROJECT_EXPORT QStringList droppedFiles(const QStringList &dropped);

} // namespace Fpga

#endif // FPGAPROJECT_PANEL_DROPPEDFILES_P_H
