// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_MIMETYPEPARSER_P_H
#define IDECORE_MIMEDATABASE_MIMETYPEPARSER_P_H

#include <idecore/idecore_export.h>
#include <idecore/mimedatabase/magicrulematcher.h>

#include <QRegExp>
#include <QString>

QT_BEGIN_NAMESPACE
class QIODevice;
class QStringRef;
class QXmlStreamAttributes;
QT_END_NAMESPACE

namespace Core {

class MimeType;
class MimeTypeData;

namespace private_impl {
class MimeDatabasePrivate;
}

namespace Internal {

/// Reads definitions in the shared-mime-info dialect and hands on every type.
class IDECORE_EXPORT BaseMimeTypeParser
{
public:
    enum ParseStage {
        ParseBeginning,
        ParseMimeInfo,
        ParseMimeType,
        ParseComment,
        ParseGlobPattern,
        ParseSubClass,
        ParseAlias,
        ParseMagic,
        ParseMagicMatchRule,
        ParseOtherMimeTypeSubTag,
        ParseError
    };

    BaseMimeTypeParser();
    virtual ~BaseMimeTypeParser();

    /// @p fileName stands in messages only; @p errorMessage may be null.
    bool parse(QIODevice *device, const QString &fileName, QString *errorMessage);

    /// Stages move on at start elements only: no end element brings an earlier
    /// one back, which is why a second match of a magic element is ignored.
    [[nodiscard]] static ParseStage nextStage(ParseStage current, const QStringRef &element);

    void addGlobPattern(const QString &pattern, const QString &weight, MimeTypeData *data) const;

protected:
    /// A false result ends the reading; the message is the implementation's.
    virtual bool process(const MimeType &type, QString *errorMessage) = 0;

private:
    Q_DISABLE_COPY(BaseMimeTypeParser)

    struct Run;

    bool startElement(Run &run, QString *errorMessage) const;
    bool endElement(Run &run, QString *errorMessage);
    bool isPlainSuffix(const QString &pattern) const;

    const QRegExp m_suffixPattern;
};

/// Adds what it reads to a database, whose lock the caller holds.
class MimeTypeParser final : public BaseMimeTypeParser
{
public:
    explicit MimeTypeParser(private_impl::MimeDatabasePrivate &database);

private:
    bool process(const MimeType &type, QString *errorMessage) override;

    private_impl::MimeDatabasePrivate &m_database;
};

/// Adds the rule that a match element describes; one of an unknown type is
/// skipped with a warning.
IDECORE_EXPORT bool addMagicMatchRule(const QXmlStreamAttributes &attributes,
                                      const MagicRuleMatcherPtr &ruleMatcher,
                                      QString *errorMessage);

} // namespace Internal
} // namespace Core

#endif // IDECORE_MIMEDATABASE_MIMETYPEPARSER_P_H
