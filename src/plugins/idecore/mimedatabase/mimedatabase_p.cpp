// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/mimedatabase_p.h>

#include <idecore/mimedatabase/contentmatchers_p.h>
#include <idecore/mimedatabase/filematchcontext_p.h>
#include <idecore/mimedatabase/mimetype_p.h>
#include <idecore/mimedatabase/mimetypeparser_p.h>

#include <QFile>
#include <QTextStream>

namespace Core {
namespace private_impl {

MimeDatabasePrivate::MimeDatabasePrivate() = default;

MimeDatabasePrivate::~MimeDatabasePrivate() = default;

bool MimeDatabasePrivate::addMimeType(MimeType mimeType)
{
    if (mimeType.isNull())
        return false;
    const QString type = mimeType.type();
    if (type == QLatin1String("text/plain"))
        mimeType.addMagicMatcher(IMagicMatcherPtr(new Internal::HeuristicTextMagicMatcher));
    else if (type == QLatin1String("application/octet-stream"))
        mimeType.addMagicMatcher(IMagicMatcherPtr(new Internal::BinaryMatcher));

    const int known = typeMimeTypeMap.value(type, -1);
    if (known >= 0) {
        entries[size_t(known)] = MimeMapEntry{mimeType, Dangling};
    } else {
        typeMimeTypeMap.insert(type, int(entries.size()));
        entries.push_back(MimeMapEntry{mimeType, Dangling});
    }
    const QStringList parents = mimeType.subClassesOf();
    for (const QString &parent : parents)
        parentChildrenMap.insert(parent, type);
    const QStringList aliases = mimeType.aliases();
    for (const QString &alias : aliases)
        aliasMap.insert(alias, type);
    maxLevel = -1;
    return true;
}

bool MimeDatabasePrivate::addMimeTypes(const QString &fileName, QString *errorMessage)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        if (errorMessage)
            *errorMessage = QStringLiteral("Cannot open %1: %2").arg(fileName, file.errorString());
        return false;
    }
    return addMimeTypes(&file, fileName, errorMessage);
}

bool MimeDatabasePrivate::addMimeTypes(QIODevice *device, const QString &fileName,
                                       QString *errorMessage)
{
    Internal::MimeTypeParser parser(*this);
    return parser.parse(device, fileName, errorMessage);
}

const MimeMapEntry *MimeDatabasePrivate::find(const QString &typeOrAlias) const
{
    const int index = typeMimeTypeMap.value(aliasMap.value(typeOrAlias, typeOrAlias), -1);
    return index < 0 ? nullptr : &entries[size_t(index)];
}

MimeType MimeDatabasePrivate::findByType(const QString &typeOrAlias) const
{
    const MimeMapEntry *entry = find(typeOrAlias);
    return entry ? entry->type : MimeType();
}

MimeType MimeDatabasePrivate::findByFile(const QFileInfo &fileInfo, unsigned *priority)
{
    *priority = 0;
    if (maxLevel < 0)
        determineLevels();
    Internal::FileMatchContext context(fileInfo);
    const MimeMapEntry *chosen = nullptr;
    for (int level = maxLevel; level >= 0 && !chosen; --level) {
        for (const MimeMapEntry &entry : entries) {
            if (entry.level != level)
                continue;
            const unsigned suffixPriority = entry.type.matchesFileBySuffix(context);
            if (suffixPriority > *priority) {
                chosen = &entry;
                *priority = suffixPriority;
                if (suffixPriority > 99)
                    return entry.type;
            }
        }
    }
    if (fileInfo.isReadable()) {
        for (int level = maxLevel; level >= 0; --level) {
            for (const MimeMapEntry &entry : entries) {
                if (entry.level != level)
                    continue;
                const unsigned contentPriority = entry.type.matchesFileByContent(context);
                if (contentPriority > *priority) {
                    chosen = &entry;
                    *priority = contentPriority;
                }
            }
        }
    }
    return chosen ? chosen->type : MimeType();
}

bool MimeDatabasePrivate::setPreferredSuffix(const QString &typeOrAlias, const QString &suffix)
{
    const int index = typeMimeTypeMap.value(aliasMap.value(typeOrAlias, typeOrAlias), -1);
    return index >= 0 && entries[size_t(index)].type.setPreferredSuffix(suffix);
}

QStringList MimeDatabasePrivate::suffixes() const
{
    QStringList result;
    for (const MimeMapEntry &entry : entries)
        result += entry.type.suffixes();
    return result;
}

QStringList MimeDatabasePrivate::filterStrings() const
{
    QStringList result;
    for (const MimeMapEntry &entry : entries) {
        const QString filter = entry.type.filterString();
        if (!filter.isEmpty())
            result.append(filter);
    }
    return result;
}

void MimeDatabasePrivate::debug(QTextStream &stream) const
{
    stream << ">MimeDatabase\n";
    for (const MimeMapEntry &entry : entries) {
        stream << "Entry level " << entry.level << '\n';
        entry.type.data().debug(stream);
    }
    stream << "<MimeDatabase\n";
}

} // namespace private_impl
} // namespace Core
