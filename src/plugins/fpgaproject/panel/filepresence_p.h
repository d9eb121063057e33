// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PANEL_FILEPRESENCE_P_H
#define FPGAPROJECT_PANEL_FILEPRESENCE_P_H

#include <QByteArray>
#include <QString>

#include <string_view>
#include <unordered_set>
#include <vector>

namespace Fpga {

/// Whether files of one folder are there. Folders are none.
class FilePresence final
{
public:
    /// @p asked is how many files will be asked for, roughly: for many the folder
    /// is listed once.
    FilePresence(const QString &folder, int asked);
    FilePresence(FilePresence &&other) = default;

    [[nodiscard]] bool contains(const QString &name) const;

private:
    bool list();

    QByteArray m_folder;
    bool m_listed = false;
    /// All names, one behind the other, and where each is.
    std::vector<char> m_text;
    std::unordered_set<std::string_view> m_names;
};

} // namespace Fpga

#endif // FPGAPROJECT_PANEL_FILEPRESENCE_P_H
