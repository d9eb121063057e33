// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/mimetype.h>

#include <idecore/mimedatabase/filematchcontext_p.h>
#include <idecore/mimedatabase/mimetype_p.h>

#include <QDebug>
#include <QLocale>
#include <QTextStream>

#include <algorithm>

namespace Core {

LocaleComments::LocaleComments(const QVector<Entry> &entries, const QString &texts)
    : m_entries(entries.cbegin(), entries.cend())
    , m_texts(texts.constData(), texts.size())
{
}

QString LocaleComments::value(const QString &locale, const QString &defaultText) const
{
    // The last one counts: a text that is replaced stays where it is.
    const auto entry =
        std::find_if(m_entries.crbegin(), m_entries.crend(), [this, &locale](const Entry &e) {
            return e.localeSize == locale.size() && m_texts.midRef(e.begin, e.localeSize) == locale;
        });
    return entry == m_entries.crend()
               ? defaultText
               : m_texts.mid(entry->begin + entry->localeSize, entry->textSize);
}

void LocaleComments::insert(const QString &locale, const QString &text)
{
    m_entries.append({m_texts.size(), locale.size(), text.size()});
    m_texts += locale;
    m_texts += text;
}

void MimeTypeData::clear()
{
    type.clear();
    comment.clear();
    localeComments = LocaleComments();
    aliases.clear();
    globPatterns.clear();
    subClassesOf.clear();
    preferredSuffix.clear();
    suffixes.clear();
    magicMatchers.clear();
}

void MimeTypeData::debug(QTextStream &stream, int indent) const
{
    const QString blanks(indent, QLatin1Char(' '));
    const QLatin1Char comma(',');

    stream << blanks << "Type: " << type;
    if (!aliases.isEmpty())
        stream << " Aliases: " << aliases.join(comma);
    stream << ", magic: " << magicMatchers.size() << '\n';
    stream << blanks << "Comment: " << comment << '\n';
    if (!subClassesOf.isEmpty())
        stream << blanks << "SubClassesOf: " << subClassesOf.join(comma) << '\n';
    if (!globPatterns.isEmpty()) {
        stream << blanks << "Glob: ";
        for (const MimeGlobPattern &glob : globPatterns)
            stream << glob.pattern() << '(' << glob.weight() << ')';
        stream << '\n';
    }
    if (!suffixes.isEmpty()) {
        stream << blanks << "Suffixes: " << suffixes.join(comma)
               << " preferred: " << preferredSuffix << '\n';
    }
    stream << '\n';
}

MimeType::MimeType()
    : d(new MimeTypeData)
{
}

MimeType::MimeType(const MimeTypeData &data)
    : d(new MimeTypeData(data))
{
}

// Without moves: a moved-from type would have no record.
MimeType::MimeType(const MimeType &other) = default;
MimeType &MimeType::operator=(const MimeType &other) = default;
MimeType::~MimeType() = default;

bool MimeType::isNull() const
{
    return d->type.isEmpty();
}

bool MimeType::isTopLevel() const
{
    return d->subClassesOf.isEmpty();
}

QString MimeType::type() const
{
    return d->type;
}

QString MimeType::comment() const
{
    return d->comment;
}

QString MimeType::localeComment(const QString &locale) const
{
    QString key = locale;
    if (key.isEmpty()) {
        key = QLocale::system().name();
        const int separator = key.indexOf(QLatin1Char('_'));
        if (separator >= 0)
            key.truncate(separator);
    }
    return d->localeComments.value(key, d->comment);
}

QStringList MimeType::aliases() const
{
    return d->aliases;
}

QStringList MimeType::subClassesOf() const
{
    return d->subClassesOf;
}

QStringList MimeType::suffixes() const
{
    return d->suffixes;
}

QString MimeType::preferredSuffix() const
{
    return d->preferredSuffix;
}

QList<MimeGlobPattern> MimeType::globPatterns() const
{
    return d->globPatterns;
}

QList<IMagicMatcherPtr> MimeType::magicMatchers() const
{
    return d->magicMatchers;
}

bool MimeType::matchesType(const QString &name) const
{
    return d->type == name || d->aliases.contains(name);
}

unsigned MimeType::matchesFile(const QFileInfo &fileInfo) const
{
    Internal::FileMatchContext context(fileInfo);
    const unsigned suffixPriority = matchesFileBySuffix(context);
    if (suffixPriority > 99)
        return suffixPriority;
    return std::max(suffixPriority, matchesFileByContent(context));
}

unsigned MimeType::matchesFileBySuffix(Internal::FileMatchContext &context) const
{
    for (const MimeGlobPattern &glob : d->globPatterns) {
        if (glob.matches(context.fileName()))
            return glob.weight();
    }
    return 0;
}

unsigned MimeType::matchesFileByContent(Internal::FileMatchContext &context) const
{
    if (d->magicMatchers.isEmpty())
        return 0;
    const QByteArray &data = context.data();
    if (data.isEmpty())
        return 0;
    int priority = 0;
    for (const IMagicMatcherPtr &matcher : d->magicMatchers) {
        if (matcher->matches(data))
            priority = std::max(priority, matcher->priority());
    }
    return static_cast<unsigned>(priority);
}

QString MimeType::filterString() const
{
    return formatFilterString(d->comment, d->globPatterns);
}

QString MimeType::formatFilterString(const QString &description,
                                     const QList<MimeGlobPattern> &globPatterns)
{
    if (globPatterns.isEmpty())
        return {};
    QStringList patterns;
    patterns.reserve(globPatterns.size());
    for (const MimeGlobPattern &glob : globPatterns)
        patterns.append(glob.pattern());
    return description + QLatin1String(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
}

void MimeType::setType(const QString &type)
{
    d->type = type;
}

void MimeType::setComment(const QString &comment)
{
    d->comment = comment;
}

void MimeType::setLocaleComment(const QString &locale, const QString &comment)
{
    d->localeComments.insert(locale, comment);
}

void MimeType::setAliases(const QStringList &aliases)
{
    d->aliases = aliases;
}

void MimeType::setSubClassesOf(const QStringList &parents)
{
    d->subClassesOf = parents;
}

void MimeType::setSuffixes(const QStringList &suffixes)
{
    d->suffixes = suffixes;
}

bool MimeType::setPreferredSuffix(const QString &suffix)
{
    const MimeTypeData &current = *d.constData();
    if (!current.suffixes.contains(suffix)) {
        qWarning("%s: Attempt to set preferred suffix to '%s', which is not in the list of"
                 " suffixes: %s.",
                 Q_FUNC_INFO, qUtf8Printable(suffix),
                 qUtf8Printable(current.suffixes.join(QLatin1Char(','))));
        return false;
    }
    d->preferredSuffix = suffix;
    return true;
}

void MimeType::setGlobPatterns(const QList<MimeGlobPattern> &globPatterns)
{
    d->globPatterns = globPatterns;
}

void MimeType::addMagicMatcher(const IMagicMatcherPtr &matcher)
{
    if (matcher)
        d->magicMatchers.append(matcher);
}

void MimeType::clear()
{
    d->clear();
}

const MimeTypeData &MimeType::data() const
{
    return *d;
}

QDebug operator<<(QDebug debug, const MimeType &mimeType)
{
    QString text;
    QTextStream stream(&text);
    mimeType.data().debug(stream);
    stream.flush();
    const QDebugStateSaver saver(debug);
    debug.noquote() << text;
    return debug;
}

} // namespace Core
