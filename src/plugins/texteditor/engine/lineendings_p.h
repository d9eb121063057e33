// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ENGINE_LINEENDINGS_P_H
#define TEXTEDITOR_ENGINE_LINEENDINGS_P_H

#include <QString>

#include <functional>
#include <vector>

namespace TextEditor {

/// What stands in the file behind each line of a document.
///
/// KTextEditor knows one line ending for the whole document and breaks lines
/// that are too long for it. With this a file of mixed endings, and one with
/// broken lines, is written as it was but for what the user changed.
class LineEndings
{
public:
    enum class Ending : unsigned char { None, Lf, CrLf, Cr };

    /// Finds the ending of every line in @p text, the contents of the file,
    /// given the lines of the document made of it. False when the lines do not
    /// spell the text; then nothing is known.
    bool match(const QString &text, int lines, const std::function<QString(int)> &line);

    /// The ending of @p line, which is not the last one: that has none.
    [[nodiscard]] Ending after(int line) const;
    /// True when not all endings are the same, so that split() and join() have
    /// to be called for every line that comes and goes.
    [[nodiscard]] bool isMixed() const { return !m_endings.empty(); }
    /// The ending of most lines, which new lines get where nothing tells better.
    [[nodiscard]] Ending usual() const { return m_usual; }
    [[nodiscard]] int lines() const { return m_lines; }

    /// @p line has been split in two.
    void split(int line);
    /// @p line has been appended to the one before it.
    void join(int line);

    static QString text(Ending ending);

private:
    Ending m_usual = Ending::Lf;
    int m_lines = 1;
    // Endings of all lines but the last; empty when all are the usual one.
    std::vector<Ending> m_endings;
};

} // namespace TextEditor

#endif // TEXTEDITOR_ENGINE_LINEENDINGS_P_H
