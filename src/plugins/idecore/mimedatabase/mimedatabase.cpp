// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/mimedatabase.h>

#include <idecore/mimedatabase/mimedatabase_p.h>

#include <QDebug>
#include <QFileInfo>
#include <QMutexLocker>
#include <QTextStream>

namespace Core {

MimeDatabase::MimeDatabase()
    : d(std::make_unique<private_impl::MimeDatabasePrivate>())
{
}

MimeDatabase::~MimeDatabase() = default;

bool MimeDatabase::addMimeType(const MimeType &mimeType)
{
    const QMutexLocker lock(&m_mutex);
    return d->addMimeType(mimeType);
}

bool MimeDatabase::addMimeTypes(const QString &fileName, QString *errorMessage)
{
    const QMutexLocker lock(&m_mutex);
    return d->addMimeTypes(fileName, errorMessage);
}

bool MimeDatabase::addMimeTypes(QIODevice *device, QString *errorMessage)
{
    const QMutexLocker lock(&m_mutex);
    return d->addMimeTypes(device, QStringLiteral("<stream>"), errorMessage);
}

MimeType MimeDatabase::findByType(const QString &typeOrAlias) const
{
    const QMutexLocker lock(&m_mutex);
    return d->findByType(typeOrAlias);
}

MimeType MimeDatabase::findByFile(const QFileInfo &fileInfo) const
{
    const QMutexLocker lock(&m_mutex);
    return findByFileUnlocked(fileInfo);
}

MimeType MimeDatabase::findByFileUnlocked(const QFileInfo &fileInfo) const
{
    unsigned priority = 0;
    return d->findByFile(fileInfo, &priority);
}

QString MimeDatabase::preferredSuffixByType(const QString &type) const
{
    return findByType(type).preferredSuffix();
}

QString MimeDatabase::preferredSuffixByFile(const QFileInfo &fileInfo) const
{
    return findByFile(fileInfo).preferredSuffix();
}

bool MimeDatabase::setPreferredSuffix(const QString &typeOrAlias, const QString &suffix)
{
    const QMutexLocker lock(&m_mutex);
    return d->setPreferredSuffix(typeOrAlias, suffix);
}

QStringList MimeDatabase::suffixes() const
{
    const QMutexLocker lock(&m_mutex);
    return d->suffixes();
}

QStringList MimeDatabase::filterStrings() const
{
    const QMutexLocker lock(&m_mutex);
    return d->filterStrings();
}

QString MimeDatabase::filterForFileDialog(bool includeAllFilesFilter) const
{
    QStringList filters = filterStrings();
    filters.sort(Qt::CaseSensitive);
    if (includeAllFilesFilter)
        filters.prepend(QStringLiteral("All Files (*)"));
    return filters.join(QLatin1String(";;"));
}

QDebug operator<<(QDebug debug, const MimeDatabase &database)
{
    QString text;
    QTextStream stream(&text);
    {
        const QMutexLocker lock(&database.m_mutex);
        database.d->debug(stream);
    }
    stream.flush();
    const QDebugStateSaver saver(debug);
    debug.noquote() << text;
    return debug;
}

} // namespace Core
