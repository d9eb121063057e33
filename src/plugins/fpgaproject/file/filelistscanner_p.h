// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_FILE_FILELISTSCANNER_P_H
#define FPGAPROJECT_FILE_FILELISTSCANNER_P_H

#include <fpgaproject/file/projectdocument.h>

#include <QByteArray>
#include <QVector>

namespace Fpga {

/// Takes the list of files out of a project file where it stands exactly as this
/// program writes it, which is nearly always, several times as fast as an XML
/// reader would. One line that is any different leaves the whole list to that.
class FileListScanner final
{
public:
    explicit FileListScanner(const QByteArray &contents);

    /// False when there is no such list; the contents then have to be read whole.
    ///
    /// What was found still has to prove to be the list: it is when the rest, read
    /// as XML, has the empty element of the files in line(). It might as well be in
    /// a comment.
    [[nodiscard]] bool found() const { return m_found; }
    /// The contents without the lines of the files.
    [[nodiscard]] QByteArray rest() const;
    /// The line of "<Files>", 1 being the first.
    [[nodiscard]] int line() const { return m_line; }
    [[nodiscard]] const QVector<FileEntry> &files() const { return m_files; }

private:
    bool scan();
    bool scanLine(const char *begin, const char *end);

    const QByteArray m_contents;
    QVector<FileEntry> m_files;
    int m_begin = 0;
    int m_end = 0;
    int m_line = 0;
    bool m_found = false;
};

} // namespace Fpga

#endif // FPGAPROJECT_FILE_FILELISTSCANNER_P_H
