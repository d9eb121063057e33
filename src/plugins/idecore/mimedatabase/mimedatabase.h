// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_MIMEDATABASE_H
#define IDECORE_MIMEDATABASE_MIMEDATABASE_H

#include <idecore/idecore_export.h>
#include <idecore/mimedatabase/mimetype.h>

#include <QMutex>
#include <QString>
#include <QStringList>

#include <memory>

QT_BEGIN_NAMESPACE
class QDebug;
class QFileInfo;
class QIODevice;
QT_END_NAMESPACE

namespace Core {

namespace private_impl {
class MimeDatabasePrivate;
}

/// All types of files the program knows.
///
/// Any thread may call it. Its one lock is not recursive: neither a matcher that
/// is asked during a look-up nor the device, the translator or the log's handler
/// that meets definitions being read may call back.
class IDECORE_EXPORT MimeDatabase final
{
public:
    MimeDatabase();
    ~MimeDatabase();

    /// Replaces a type of the same name. False for a null type.
    bool addMimeType(const MimeType &mimeType);
    /// Reads a file of definitions in the shared-mime-info dialect. Where it is
    /// faulty, what was read before the fault stays and @p errorMessage, unless
    /// it is null, says what is wrong.
    bool addMimeTypes(const QString &fileName, QString *errorMessage = nullptr);
    /// The same from a device that is open for reading, up to its end or to the
    /// fault; messages call it "<stream>". It is not kept.
    bool addMimeTypes(QIODevice *device, QString *errorMessage = nullptr);

    /// A copy, which later changes do not reach; null when the name is unknown.
    [[nodiscard]] MimeType findByType(const QString &typeOrAlias) const;
    /// By name, and by content unless a glob of weight 100 or more decides; null
    /// when nothing fits. A type that has neither a child nor a parent in the
    /// database is never found this way.
    [[nodiscard]] MimeType findByFile(const QFileInfo &fileInfo) const;
    /// The same for a caller that must not take the lock.
    [[nodiscard]] MimeType findByFileUnlocked(const QFileInfo &fileInfo) const;

    /// Empty when the type is unknown or has no suffix.
    [[nodiscard]] QString preferredSuffixByType(const QString &type) const;
    [[nodiscard]] QString preferredSuffixByFile(const QFileInfo &fileInfo) const;
    /// False when the type is unknown or does not have @p suffix. Copies of the
    /// type handed out earlier do not change.
    bool setPreferredSuffix(const QString &typeOrAlias, const QString &suffix);

    /// The suffixes of all types, with repeats.
    [[nodiscard]] QStringList suffixes() const;
    /// One filter for each type that has a glob.
    [[nodiscard]] QStringList filterStrings() const;
    /// The sorted filters as a file dialog takes them.
    [[nodiscard]] QString filterForFileDialog(bool includeAllFilesFilter) const;

private:
    Q_DISABLE_COPY(MimeDatabase)
    friend IDECORE_EXPORT QDebug operator<<(QDebug debug, const MimeDatabase &database);

    const std::unique_ptr<private_impl::MimeDatabasePrivate> d;
    mutable QMutex m_mutex;
};

IDECORE_EXPORT QDebug operator<<(QDebug debug, const MimeDatabase &database);

} // namespace Core

#endif // IDECORE_MIMEDATABASE_MIMEDATABASE_H
