// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_MIMEDATABASE_P_H
#define IDECORE_MIMEDATABASE_MIMEDATABASE_P_H

#include <idecore/idecore_export.h>
#include <idecore/mimedatabase/mimetype.h>

#include <QHash>
#include <QMultiHash>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QFileInfo;
class QIODevice;
class QTextStream;
QT_END_NAMESPACE

namespace Core {

/// The level of a type that has no place in the hierarchy yet.
constexpr int Dangling = 32767;

struct MimeMapEntry
{
    MimeType type;
    /// Depth below a top-level type.
    int level = Dangling;
};

namespace private_impl {

class IDECORE_EXPORT MimeDatabasePrivate final
{
public:
    MimeDatabasePrivate();
    ~MimeDatabasePrivate();

    bool addMimeType(MimeType mimeType);
    bool addMimeTypes(const QString &fileName, QString *errorMessage);
    bool addMimeTypes(QIODevice *device, const QString &fileName, QString *errorMessage);

    MimeType findByType(const QString &typeOrAlias) const;
    MimeType findByFile(const QFileInfo &fileInfo, unsigned *priority);
    bool setPreferredSuffix(const QString &typeOrAlias, const QString &suffix);
    QStringList suffixes() const;
    QStringList filterStrings() const;
    void debug(QTextStream &stream) const;

    /// Gives every type below a top-level one its depth. A level only rises; a
    /// type that is replaced starts anew. A cycle is cut, with a warning.
    void determineLevels();

    /// In the order in which the names came first, so that look-ups and filters
    /// are the same in every run of the program.
    std::vector<MimeMapEntry> entries;
    /// From a type's name to its place among the entries.
    QHash<QString, int> typeMimeTypeMap;
    QHash<QString, QString> aliasMap;
    QMultiHash<QString, QString> parentChildrenMap;
    /// The deepest level in use; -1 when the levels are out of date.
    int maxLevel = -1;

private:
    Q_DISABLE_COPY(MimeDatabasePrivate)

    struct Index;

    /// Its place among the entries; -1 when it is unknown.
    int indexOf(const QString &typeOrAlias) const;
    void buildIndex();

    /// Null when it is out of date, as the levels are then.
    std::unique_ptr<Index> m_index;
};

} // namespace private_impl
} // namespace Core

#endif // IDECORE_MIMEDATABASE_MIMEDATABASE_P_H
