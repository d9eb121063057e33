// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/lineendings_p.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace TextEditor {

namespace {

LineEndings::Ending endingAt(const QString &text, int position)
{
    if (text.at(position) == QLatin1Char('\n'))
        return LineEndings::Ending::Lf;
    if (text.at(position) != QLatin1Char('\r'))
        return LineEndings::Ending::None;
    const bool pair = position + 1 < text.size() && text.at(position + 1) == QLatin1Char('\n');
    return pair ? LineEndings::Ending::CrLf : LineEndings::Ending::Cr;
}

} // namespace

bool LineEndings::match(const QString &text, int lines, const std::function<QString(int)> &line)
{
    std::vector<Ending> endings;
    endings.reserve(static_cast<std::size_t>(lines));
    std::array<int, 4> count{};
    int position = 0;
    for (int i = 0; i < lines; ++i) {
        const QString content = line(i);
        if (text.midRef(position, content.size()) != content)
            return false;
        position += content.size();
        if (i == lines - 1)
            break;
        if (position >= text.size())
            return false;
        const Ending ending = endingAt(text, position);
        position += LineEndings::text(ending).size();
        endings.push_back(ending);
        ++count[static_cast<std::size_t>(ending)];
    }
    if (position != text.size())
        return false;

    // A broken line says nothing about how lines end.
    const auto most = std::max_element(count.begin() + 1, count.end());
    m_usual = *most == 0 ? Ending::Lf : static_cast<Ending>(most - count.begin());
    m_lines = lines;
    const auto same = static_cast<std::size_t>(count[static_cast<std::size_t>(m_usual)]);
    if (same == endings.size())
        endings.clear();
    m_endings = std::move(endings);
    m_endings.shrink_to_fit();
    return true;
}

LineEndings::Ending LineEndings::after(int line) const
{
    if (!isMixed())
        return m_usual;
    const auto index = static_cast<std::size_t>(line);
    return index < m_endings.size() ? m_endings[index] : Ending::None;
}

void LineEndings::split(int line)
{
    const Ending old = after(line);
    const auto index = std::min(static_cast<std::size_t>(line), m_endings.size());
    m_endings.insert(m_endings.begin() + static_cast<std::ptrdiff_t>(index),
                     old == Ending::None ? m_usual : old);
    ++m_lines;
}

void LineEndings::join(int line)
{
    const auto index = static_cast<std::size_t>(line - 1);
    if (line < 1 || index >= m_endings.size())
        return;
    m_endings.erase(m_endings.begin() + static_cast<std::ptrdiff_t>(index));
    --m_lines;
}

QString LineEndings::text(Ending ending)
{
    switch (ending) {
    case Ending::None:
        break;
    case Ending::Lf:
        return QStringLiteral("\n");
    case Ending::CrLf:
        return QStringLiteral("\r\n");
    case Ending::Cr:
        return QStringLiteral("\r");
    }
    return {};
}

} // namespace TextEditor
