// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_MIMETYPE_P_H
#define IDECORE_MIMEDATABASE_MIMETYPE_P_H

#include <idecore/idecore_export.h>
#include <idecore/mimedatabase/imagicmatcher.h>
#include <idecore/mimedatabase/mimeglobpattern.h>

#include <QHash>
#include <QList>
#include <QSharedData>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QTextStream;
QT_END_NAMESPACE

namespace Core {

/// The shared record of a MimeType.
class IDECORE_EXPORT MimeTypeData : public QSharedData
{
public:
    void clear();
    /// Writes a dump of several lines, each after @p indent blanks.
    void debug(QTextStream &stream, int indent = 0) const;

    QString type;
    QString comment;
    QHash<QString, QString> localeComments;
    QStringList aliases;
    QList<MimeGlobPattern> globPatterns;
    QStringList subClassesOf;
    QString preferredSuffix;
    QStringList suffixes;
    QList<IMagicMatcherPtr> magicMatchers;
};

} // namespace Core

#endif // IDECORE_MIMEDATABASE_MIMETYPE_P_H
