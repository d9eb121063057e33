// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_MIMETYPE_H
#define IDECORE_MIMEDATABASE_MIMETYPE_H

#include <idecore/idecore_export.h>
#include <idecore/mimedatabase/imagicmatcher.h>
#include <idecore/mimedatabase/mimeglobpattern.h>

#include <QList>
#include <QSharedDataPointer>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QDebug;
class QFileInfo;
QT_END_NAMESPACE

namespace Core {

namespace Internal {
class FileMatchContext;
}
class MimeTypeData;

/// A kind of file: its names, its place below other kinds, and how files of it
/// are recognised.
///
/// An implicitly shared value; threads may hold copies of the same one.
class IDECORE_EXPORT MimeType final
{
public:
    /// A null type.
    MimeType();
    explicit MimeType(const MimeTypeData &data);
    MimeType(const MimeType &other);
    MimeType &operator=(const MimeType &other);
    ~MimeType();

    /// A type without a name is null.
    [[nodiscard]] bool isNull() const;
    explicit operator bool() const { return !isNull(); }
    /// Whether it names no parent.
    [[nodiscard]] bool isTopLevel() const;

    [[nodiscard]] QString type() const;
    [[nodiscard]] QString comment() const;
    /// The comment for @p locale such as "zh_CN"; for an empty one that of the
    /// system's language ("zh"). Where there is none, comment().
    [[nodiscard]] QString localeComment(const QString &locale = QString()) const;
    [[nodiscard]] QStringList aliases() const;
    /// The names of the direct parents, in the order they were declared.
    [[nodiscard]] QStringList subClassesOf() const;
    /// Suffixes without "*.", in the order they were declared.
    [[nodiscard]] QStringList suffixes() const;
    [[nodiscard]] QString preferredSuffix() const;
    [[nodiscard]] QList<MimeGlobPattern> globPatterns() const;
    [[nodiscard]] QList<IMagicMatcherPtr> magicMatchers() const;

    /// Whether @p name is the type's name or one of its aliases.
    [[nodiscard]] bool matchesType(const QString &name) const;

    /// How well the file fits, 0 for not at all. The file is read only where
    /// no glob of weight 100 or more decides.
    [[nodiscard]] unsigned matchesFile(const QFileInfo &fileInfo) const;
    /// The weight of the first glob that fits the name; the file is not touched.
    [[nodiscard]] unsigned matchesFileBySuffix(Internal::FileMatchContext &context) const;
    /// The highest priority among the matchers that know the content.
    [[nodiscard]] unsigned matchesFileByContent(Internal::FileMatchContext &context) const;

    /// For a file dialog: "Plain Text File (*.txt)"; empty without a glob.
    [[nodiscard]] QString filterString() const;
    [[nodiscard]] static QString formatFilterString(const QString &description,
                                                    const QList<MimeGlobPattern> &globPatterns);

    void setType(const QString &type);
    void setComment(const QString &comment);
    /// Replaces that of the same @p locale.
    void setLocaleComment(const QString &locale, const QString &comment);
    void setAliases(const QStringList &aliases);
    void setSubClassesOf(const QStringList &parents);
    /// Leaves preferredSuffix() as it is.
    void setSuffixes(const QStringList &suffixes);
    /// False, with a warning and without a change, when @p suffix is none of suffixes().
    bool setPreferredSuffix(const QString &suffix);
    void setGlobPatterns(const QList<MimeGlobPattern> &globPatterns);
    /// Nothing for a null pointer. Copies of the type share the matcher.
    void addMagicMatcher(const IMagicMatcherPtr &matcher);
    /// Makes it null.
    void clear();

    /// For the database. Valid until this value changes or goes.
    [[nodiscard]] const MimeTypeData &data() const;

private:
    QSharedDataPointer<MimeTypeData> d;
};

IDECORE_EXPORT QDebug operator<<(QDebug debug, const MimeType &mimeType);

} // namespace Core

#endif // IDECORE_MIMEDATABASE_MIMETYPE_H
