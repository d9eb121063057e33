// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/panel/droppedfiles_p.h>

#include <fpgaproject/file/filekind.h>

#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

namespace Fpga {

QStringList droppedFiles(const QStringList &dropped)
{
    QStringList files;
    for (const QString &path : dropped) {
        if (!QFileInfo(path).isDir()) {
            files.append(path);
            continue;
        }
        QStringList found;
        QDirIterator inside(path, QDir::Files, QDirIterator::Subdirectories);
        while (inside.hasNext()) {
            const QString file = inside.next();
            if (fileKindOf(file.mid(file.lastIndexOf(QLatin1Char('/')) + 1)) != FileKind::Other)
                found.append(file);
        }
        std::sort(found.begin(), found.end());
        files += found;
    }
    return files;
}

} // namespace Fpga
