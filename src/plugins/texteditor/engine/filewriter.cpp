// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/filewriter_p.h>

#include <utils/systemreason.h>

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace TextEditor {

namespace {

/// The file at the end of a chain of links, which need not exist.
QString resolved(const QString &fileName)
{
    QString path = fileName;
    // As many as the system itself follows.
    for (int i = 0; i < 40; ++i) {
        const QFileInfo info(path);
        if (!info.isSymLink())
            break;
        path = info.symLinkTarget();
    }
    return path;
}

} // namespace

bool FileWriter::write(const QString &fileName, const QByteArray &bytes, QString *errorString,
                       DiskState *written)
{
    const auto fail = [errorString](const QString &reason) {
        if (errorString)
            *errorString = Utils::systemReason(reason);
        return false;
    };
    const QString path = resolved(fileName);
    const QByteArray nativePath = QFile::encodeName(path);
    struct stat old = {};
    const bool exists = ::stat(nativePath.constData(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode))
        return fail(tr("It is not a regular file."));
    // Replacing the file would get round its write protection.
    if (exists && ::faccessat(AT_FDCWD, nativePath.constData(), W_OK, AT_EACCESS) != 0)
        return fail(qt_error_string());

    QSaveFile file(path);
    // A buffer would report a full disk late and without its reason.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        const QFileInfo folder(QFileInfo(path).absolutePath());
        if (exists && folder.isDir())
            return fail(tr("The file cannot be replaced safely, because nothing can be created "
                           "in its folder: %1")
                            .arg(Utils::systemReason(file.errorString())));
        return fail(file.errorString());
    }
    if (exists) {
        // What is refused here (another owner) leaves a file of the user's own.
        if (::fchown(file.handle(), old.st_uid, old.st_gid) != 0
            && ::fchown(file.handle(), static_cast<uid_t>(-1), old.st_gid) != 0)
            errno = 0;
        if (::fchmod(file.handle(), old.st_mode & 07777) != 0)
            return fail(qt_error_string());
    }
    // A disk that fills up takes a part first; the reason comes with the rest.
    for (qint64 done = 0; done < bytes.size();) {
        const qint64 taken = file.write(bytes.constData() + done, bytes.size() - done);
        if (taken <= 0) {
            const QString reason = file.errorString();
            file.cancelWriting();
            return fail(reason);
        }
        done += taken;
    }
    // Before others can see the file.
    struct stat status = {};
    if (::fstat(file.handle(), &status) != 0)
        return fail(qt_error_string());
    if (!file.commit())
        return fail(file.errorString());
    if (written)
        *written = DiskState(status, DiskState::digestOf(bytes));
    return true;
}

} // namespace TextEditor
