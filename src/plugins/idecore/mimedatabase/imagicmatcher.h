// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_IMAGICMATCHER_H
#define IDECORE_MIMEDATABASE_IMAGICMATCHER_H

#include <idecore/idecore_export.h>

#include <QByteArray>
#include <QSharedPointer>

namespace Core {

/// Recognises the content of a file by its first bytes.
///
/// One matcher may belong to several types and is asked by any thread, so it
/// does not change any more once a type holds it.
class IDECORE_EXPORT IMagicMatcher
{
public:
    IMagicMatcher() = default;

    /// @p data is never empty and holds at most the first 2048 bytes.
    [[nodiscard]] virtual bool matches(const QByteArray &data) const = 0;
    /// How much a match weighs against the weight of a glob and the matchers of
    /// other types; one that is not positive never decides.
    [[nodiscard]] virtual int priority() const = 0;
    virtual ~IMagicMatcher();

private:
    Q_DISABLE_COPY(IMagicMatcher)
};

using IMagicMatcherPtr = QSharedPointer<IMagicMatcher>;

} // namespace Core

#endif // IDECORE_MIMEDATABASE_IMAGICMATCHER_H
