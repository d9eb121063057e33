// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/contentmatchers_p.h>

#include <cstring>

namespace Core {
namespace Internal {

namespace {

/// How many bytes at the start of @p data are neither zero nor a control
/// character below the tab. Goes eight at a time while it can.
int ordinaryBytes(const QByteArray &data)
{
    constexpr quint64 ones = 0x0101010101010101;
    constexpr quint64 highBits = 0x80 * ones;
    const char *const bytes = data.constData();
    const int size = data.size();
    int i = 0;
    for (; i + 8 <= size; i += 8) {
        quint64 eight;
        std::memcpy(&eight, bytes + i, sizeof eight);
        // Borrows where a byte is below 9, unless its own high bit is set.
        if ((eight - 9 * ones) & ~eight & highBits)
            break;
    }
    const auto isOrdinary = [bytes](int at) { return quint8(bytes[at]) > 8; };
    while (i < size && isOrdinary(i))
        ++i;
    return i;
}

} // namespace

bool HeuristicTextMagicMatcher::isTextFile(const QByteArray &data)
{
    const int end = ordinaryBytes(data);
    if (end == data.size())
        return true;
    return data.at(end) == 0 && (data.startsWith("\xFE\xFF") || data.startsWith("\xFF\xFE"));
}

} // namespace Internal
} // namespace Core
