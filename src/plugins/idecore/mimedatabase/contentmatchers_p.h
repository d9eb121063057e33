// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MIMEDATABASE_CONTENTMATCHERS_P_H
#define IDECORE_MIMEDATABASE_CONTENTMATCHERS_P_H

#include <idecore/mimedatabase/imagicmatcher.h>

namespace Core {
namespace Internal {

/// What looks like text, when nothing knows better.
class IDECORE_EXPORT HeuristicTextMagicMatcher final : public IMagicMatcher
{
public:
    static constexpr int Priority = 3;

    [[nodiscard]] static bool isTextFile(const QByteArray &data);

    [[nodiscard]] bool matches(const QByteArray &data) const override { return isTextFile(data); }
    [[nodiscard]] int priority() const override { return Priority; }
};

/// Everything, when nothing at all knows better.
class IDECORE_EXPORT BinaryMatcher final : public IMagicMatcher
{
public:
    static constexpr int Priority = 2;

    [[nodiscard]] bool matches(const QByteArray &) const override { return true; }
    [[nodiscard]] int priority() const override { return Priority; }
};

} // namespace Internal
} // namespace Core

#endif // IDECORE_MIMEDATABASE_CONTENTMATCHERS_P_H
