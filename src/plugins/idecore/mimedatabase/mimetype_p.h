// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_MIMETYPE_P_H
#define IDECORE_MIMEDATABASE_MIMETYPE_P_H

#include <idecore/idecore_export.h>
#include <idecore/mimedatabase/imagicmatcher.h>
#include <idecore/mimedatabase/mimeglobpattern.h>

#include <QList>
#include <QSharedData>
#include <QStringList>
#include <QVector>

QT_BEGIN_NAMESPACE
class QTextStream;
QT_END_NAMESPACE

namespace Core {

/// Texts by locale, packed into one: definitions carry tens of thousands of
/// them, of which next to none is ever asked for.
class IDECORE_EXPORT LocaleComments final
{
public:
    /// The text lies behind the name of its locale.
    struct Entry
    {
        int begin;
        int localeSize;
        int textSize;
    };

    LocaleComments() = default;
    /// Takes no more memory than it needs. Of entries for the same locale the
    /// last one counts.
    LocaleComments(const QVector<Entry> &entries, const QString &texts);

    /// @p defaultText where there is none.
    [[nodiscard]] QString value(const QString &locale, const QString &defaultText) const;

    /// Replaces a text of the same locale.
    void insert(const QString &locale, const QString &text);

private:
    QVector<Entry> m_entries;
    QString m_texts;
};

/// The shared record of a MimeType.
class IDECORE_EXPORT MimeTypeData : public QSharedData
{
public:
    void clear();
    /// Writes a dump of several lines, each after @p indent blanks.
    void debug(QTextStream &stream, int indent = 0) const;

    QString type;
    QString comment;
    LocaleComments localeComments;
    QStringList aliases;
    QList<MimeGlobPattern> globPatterns;
    QStringList subClassesOf;
    QString preferredSuffix;
    QStringList suffixes;
    QList<IMagicMatcherPtr> magicMatchers;
};

} // namespace Core

#endif // IDECORE_MIMEDATABASE_MIMETYPE_P_H
