// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mimedatabase/contentmatchers_p.h>

namespace Core {
namespace Internal {

bool HeuristicTextMagicMatcher::isTextFile(const QByteArray &data)
{
    for (const char c : data) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte == 0)
            return data.startsWith("\xFE\xFF") || data.startsWith("\xFF\xFE");
        if (byte <= 8)
            return false;
    }
    return true;
}

} // namespace Internal
} // namespace Core
