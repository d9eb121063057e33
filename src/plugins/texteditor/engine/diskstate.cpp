// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/diskstate_p.h>

#include <QCryptographicHash>
#include <QFile>

#include <sys/stat.h>

namespace TextEditor {

namespace {

bool readStatus(const QString &fileName, struct stat *status)
{
    return ::stat(QFile::encodeName(fileName).constData(), status) == 0;
}

qint64 timeOf(const struct stat &status)
{
    return qint64(status.st_mtim.tv_sec) * 1000000000 + status.st_mtim.tv_nsec;
}

} // namespace

DiskState::DiskState(const struct stat &status, const QByteArray &digest)
    : m_digest(digest)
    , m_size(status.st_size)
    , m_time(timeOf(status))
{
}

QByteArray DiskState::digestOf(const QByteArray &contents)
{
    return QCryptographicHash::hash(contents, QCryptographicHash::Sha1);
}

DiskState::Change DiskState::compare(const QString &fileName) const
{
    struct stat status = {};
    if (!readStatus(fileName, &status))
        return Change::Deleted;
    if (status.st_size == m_size && timeOf(status) == m_time)
        return Change::None;
    // Reading anything else could wait for ever.
    if (!S_ISREG(status.st_mode))
        return Change::Modified;
    QFile file(fileName);
    QCryptographicHash hash(QCryptographicHash::Sha1);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        return Change::Modified;
    return hash.result() == m_digest ? Change::None : Change::Modified;
}

} // namespace TextEditor
