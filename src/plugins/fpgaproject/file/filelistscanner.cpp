// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/file/filelistscanner_p.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace Fpga {

namespace {

constexpr char HEAD[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr char OPEN[] = "\n    <Files>\n";
constexpr char CLOSE[] = "    </Files>\n";

/// Takes @p expected off the front of @p text.
bool take(std::string_view *text, std::string_view expected)
{
    if (text->substr(0, expected.size()) != expected)
        return false;
    text->remove_prefix(expected.size());
    return true;
}

/// Takes what stands before the next '"' and the '"' itself; nothing that would need
/// to be unescaped, or is no XML at all.
bool takeValue(std::string_view *text, std::string_view *value)
{
    const std::size_t quote = text->find('"');
    if (quote == std::string_view::npos)
        return false;
    *value = text->substr(0, quote);
    text->remove_prefix(quote + 1);
    return std::none_of(value->begin(), value->end(), [](char c) {
        return c == '&' || c == '<' || c == '>' || (c >= 0 && c < 0x20);
    });
}

} // namespace

FileListScanner::FileListScanner(const QByteArray &contents)
    : m_contents(contents)
    , m_found(scan())
{
}

QByteArray FileListScanner::rest() const
{
    return m_contents.left(m_begin) + m_contents.mid(m_end);
}

bool FileListScanner::scan()
{
    const int open = m_contents.indexOf(OPEN);
    if (!m_contents.startsWith(HEAD) || open < 0)
        return false;
    m_begin = open + int(sizeof OPEN) - 1;
    m_line = int(std::count(m_contents.cbegin(), m_contents.cbegin() + m_begin, '\n'));
    const char *const end = m_contents.constData() + m_contents.size();
    const char *line = m_contents.constData() + m_begin;
    for (;;) {
        const auto *const next =
            static_cast<const char *>(std::memchr(line, '\n', std::size_t(end - line)));
        if (!next)
            return false;
        if (std::string_view(line, std::size_t(next + 1 - line)) == CLOSE)
            break;
        if (!scanLine(line, next))
            return false;
        line = next + 1;
    }
    m_end = int(line - m_contents.constData());
    return true;
}

bool FileListScanner::scanLine(const char *begin, const char *end)
{
    std::string_view text(begin, std::size_t(end - begin));
    std::string_view path;
    std::string_view kind;
    std::string_view enabled;
    if (!take(&text, "        <File path=\"") || !takeValue(&text, &path)
        || !take(&text, " kind=\"") || !takeValue(&text, &kind) || !take(&text, " enabled=\"")
        || !takeValue(&text, &enabled) || text != "/>") {
        return false;
    }
    FileEntry entry;
    entry.path = QString::fromUtf8(path.data(), int(path.size()));
    // What is no UTF-8 becomes the sign for that, and is for the XML reader to refuse.
    if (path.empty() || path.back() == '/' || path.back() == '.'
        || entry.path.contains(QChar::ReplacementCharacter) || !isXmlText(entry.path)
        || (enabled != "true" && enabled != "false")) {
        return false;
    }
    const QLatin1String name(kind.data(), int(kind.size()));
    const auto known = fileKindNamed(name);
    if (!known)
        return false;
    entry.kind = *known;
    entry.enabled = enabled == "true";
    m_files.append(std::move(entry));
    return true;
}

} // namespace Fpga
