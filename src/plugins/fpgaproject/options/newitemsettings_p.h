// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_OPTIONS_NEWITEMSETTINGS_P_H
#define FPGAPROJECT_OPTIONS_NEWITEMSETTINGS_P_H

#include <fpgaproject/fpgaproject_export.h>

#include <QString>

namespace Fpga {

/// What the user wants new files and projects to begin with, as the store "IDE" has it.
struct FPGAPROJECT_EXPORT NewItemSettings
{
    /// Whether the dialog of a new file proposes a comment on top.
    bool header = false;
    /// One line, named in that comment; empty for nobody.
    QString author;
    /// The part that the wizard of a new project proposes, which need not exist.
    QString device;

    /// An entry of another type counts as the text it has, or as none.
    [[nodiscard]] static NewItemSettings load();
    void store() const;
};

/// @p text on one line, cut where nobody's name ends.
[[nodiscard]] FPGAPROJECT_EXPORT QString authorLine(const QString &text);

} // namespace Fpga

#endif // FPGAPROJECT_OPTIONS_NEWITEMSETTINGS_P_H
