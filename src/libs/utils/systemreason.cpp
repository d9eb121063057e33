// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <utils/systemreason.h>

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace Utils {

namespace {

// As the C library words them.
constexpr const char *known[] = {
    QT_TRANSLATE_NOOP("Utils::SystemReason", "Device or resource busy"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "Directory not empty"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "Disk quota exceeded"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "File exists"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "File name too long"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "File too large"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "Input/output error"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "Is a directory"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "No space left on device"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "No such file or directory"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "Not a directory"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "Operation not permitted"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "Permission denied"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "Read-only file system"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "Text file busy"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "Too many levels of symbolic links"),
    QT_TRANSLATE_NOOP("Utils::SystemReason", "Too many open files"),
};

} // namespace

QString systemReason(const QString &reason)
{
    const auto *const found =
        std::find_if(std::begin(known), std::end(known),
                     [&reason](const char *text) { return reason == QLatin1String(text); });
    return found == std::end(known) ? reason
                                    : QCoreApplication::translate("Utils::SystemReason", *found);
}

} // namespace Utils
