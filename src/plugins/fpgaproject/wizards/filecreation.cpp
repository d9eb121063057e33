// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/wizards/filecreation_p.h>

#include <utils/systemreason.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <cerrno>

namespace Fpga {

bool makeFolder(const QString &folder, QString *reason)
{
    errno = 0;
    if (QDir().mkpath(folder))
        return true;
    const int error = errno;
    *reason =
        error ? Utils::systemReason(qt_error_string(error))
              : QCoreApplication::translate("Fpga::FileCreation", "The folder cannot be created.");
    return false;
}

bool writeNewFile(const QString &path, const QByteArray &contents, Overwrite overwrite,
                  QString *reason)
{
    if (overwrite == Overwrite::Allowed) {
        QSaveFile file(path);
        // commit() passes over what fails while it empties the buffer.
        if (file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size()
            && file.flush() && file.commit()) {
            return true;
        }
        *reason = Utils::systemReason(file.errorString());
        return false;
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        *reason = Utils::systemReason(file.errorString());
        return false;
    }
    if (file.write(contents) == contents.size() && file.flush())
        return true;
    *reason = Utils::systemReason(file.errorString());
    // Ours, and not whole.
    file.remove();
    return false;
}

QString projectPathFault(const QString &path)
{
    const int blank = path.indexOf(QLatin1Char(' '));
    const bool together = path.contains(QLatin1String(" -"))
                          || (blank >= 0 && path.indexOf(QLatin1String("/-"), blank) >= 0);
    if (!together)
        return {};
    return QCoreApplication::translate(
        "Fpga::FileCreation",
        "The folder's path has a space and \"-\" together, which is not possible.");
}

} // namespace Fpga
