// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/mimedatabase_p.h>

#include <idecore/mimedatabase/contentmatchers_p.h>
#include <idecore/mimedatabase/filematchcontext_p.h>
#include <idecore/mimedatabase/globindex_p.h>
#include <idecore/mimedatabase/magicindex_p.h>
#include <idecore/mimedatabase/mimetype_p.h>
#include <idecore/mimedatabase/mimetypeparser_p.h>

#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <cstring>
#include <utility>

namespace Core {
namespace private_impl {

namespace {

/// A file in text mode. The device's own text mode drops carriage returns byte
/// by byte, which shows where a large file of definitions is read.
class TextFile final : public QFile
{
public:
    using QFile::QFile;

    bool openForReading() { return open(QIODevice::ReadOnly | QIODevice::Unbuffered); }
    /// What is read is less than what the file holds.
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        for (;;) {
            const qint64 size = QFile::readData(data, maxSize);
            if (size <= 0 || !std::memchr(data, '\r', size_t(size)))
                return size;
            // Nothing would mean the end.
            if (const qint64 rest = std::remove(data, data + size, '\r') - data)
                return rest;
        }
    }
};

} // namespace

struct MimeDatabasePrivate::Index
{
    const MimeMapEntry &entry(int type) const { return *visited[size_t(type)]; }

    std::vector<const MimeMapEntry *> visited;
    Internal::GlobIndex globs;
    Internal::MagicIndex magic;
};

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
    m_index.reset();
    return true;
}

bool MimeDatabasePrivate::addMimeTypes(const QString &fileName, QString *errorMessage)
{
    TextFile file(fileName);
    if (!file.openForReading()) {
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

int MimeDatabasePrivate::indexOf(const QString &typeOrAlias) const
{
    return typeMimeTypeMap.value(aliasMap.value(typeOrAlias, typeOrAlias), -1);
}

MimeType MimeDatabasePrivate::findByType(const QString &typeOrAlias) const
{
    const int index = indexOf(typeOrAlias);
    return index < 0 ? MimeType() : entries[size_t(index)].type;
}

MimeType MimeDatabasePrivate::findByFile(const QFileInfo &fileInfo, unsigned *priority)
{
    *priority = 0;
    if (!m_index) {
        determineLevels();
        buildIndex();
    }
    const Index &index = *m_index;
    Internal::FileMatchContext context(fileInfo);

    Internal::GlobIndex::Hits hits;
    index.globs.find(context.fileName(), hits);
    if (hits.size() > 1)
        std::sort(hits.begin(), hits.end());
    int chosen = -1;
    int previous = -1;
    for (const Internal::GlobIndex::Hit &hit : qAsConst(hits)) {
        // Of one type the first glob that matches is the one that counts.
        if (std::exchange(previous, hit.type) == hit.type)
            continue;
        if (chosen >= 0 && index.entry(hit.type).level != index.entry(chosen).level)
            break;
        if (hit.weight > *priority) {
            chosen = hit.type;
            *priority = hit.weight;
            if (hit.weight > 99)
                return index.entry(chosen).type;
        }
    }

    if (!index.magic.isEmpty() && fileInfo.isReadable()) {
        const QByteArray &data = context.data();
        if (!data.isEmpty()) {
            const Internal::MagicIndex::Match match = index.magic.best(data);
            if (match.priority > *priority) {
                chosen = match.type;
                *priority = match.priority;
            }
        }
    }
    return chosen < 0 ? MimeType() : index.entry(chosen).type;
}

/// Lays the types out in the order in which the rules visit them: the deepest
/// level first.
void MimeDatabasePrivate::buildIndex()
{
    auto index = std::make_unique<Index>();
    for (const MimeMapEntry &entry : entries) {
        if (entry.level <= maxLevel)
            index->visited.push_back(&entry);
    }
    std::stable_sort(
        index->visited.begin(), index->visited.end(),
        [](const MimeMapEntry *a, const MimeMapEntry *b) { return a->level > b->level; });
    for (const MimeMapEntry *entry : index->visited) {
        const MimeTypeData &data = entry->type.data();
        index->globs.addType(data.globPatterns);
        index->magic.addType(data.magicMatchers);
    }
    index->globs.finish();
    index->magic.finish();
    m_index = std::move(index);
}

bool MimeDatabasePrivate::setPreferredSuffix(const QString &typeOrAlias, const QString &suffix)
{
    const int index = indexOf(typeOrAlias);
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
