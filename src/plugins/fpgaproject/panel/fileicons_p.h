// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PANEL_FILEICONS_P_H
#define FPGAPROJECT_PANEL_FILEICONS_P_H

#include <fpgaproject/file/filekind.h>
#include <fpgaproject/fpgaproject_export.h>

class QIcon;

namespace Fpga {

/// The sheet of the workbench with the sign of the kind on it.
FPGAPROJECT_EXPORT QIcon fileIcon(FileKind kind);

} // namespace Fpga

#endif // FPGAPROJECT_PANEL_FILEICONS_P_H
