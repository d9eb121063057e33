// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/kepttext_p.h>

#include <texteditor/engine/textjournal_p.h>

#include <QDataStream>

#include <vector>

#include <sys/stat.h>

namespace TextEditor {

namespace {

using Line = TextJournal::Line;
using Ending = LineEndings::Ending;

/// The lines of a text, with a place among them where changes cost little:
/// changes come near one another.
class LineStore
{
public:
    explicit LineStore(Ending usual)
        : m_usual(usual)
    {
    }

    void append(const Line &line) { m_before.push_back(line); }

    // Each false where the text has no such place.
    bool insert(int line, int column, const QString &text)
    {
        if (!moveTo(line) || column < 0 || column > current().text.size())
            return false;
        current().text.insert(column, text);
        return true;
    }
    bool remove(int line, int column, int length)
    {
        if (!moveTo(line) || column < 0 || length < 0 || length > current().text.size() - column)
            return false;
        current().text.remove(column, length);
        return true;
    }
    bool wrap(int line, int column)
    {
        if (!moveTo(line) || column < 0 || column > current().text.size())
            return false;
        Line second{current().text.mid(column), current().ending};
        current().text.truncate(column);
        if (current().ending == Ending::None)
            current().ending = m_usual;
        m_after.push_back(std::move(second));
        return true;
    }
    bool unwrap(int line)
    {
        if (line < 1 || !moveTo(line))
            return false;
        const Line second = current();
        m_before.pop_back();
        current().text += second.text;
        current().ending = second.ending;
        return true;
    }

    /// All lines, the last of which has no ending.
    std::vector<Line> take()
    {
        while (!m_after.empty())
            step();
        if (!m_before.empty())
            m_before.back().ending = Ending::None;
        return std::move(m_before);
    }

private:
    /// The last before the gap.
    Line &current() { return m_before.back(); }
    void step()
    {
        m_before.push_back(std::move(m_after.back()));
        m_after.pop_back();
    }
    bool moveTo(int line)
    {
        if (line < 0 || static_cast<std::size_t>(line) >= m_before.size() + m_after.size())
            return false;
        const std::size_t wanted = static_cast<std::size_t>(line) + 1;
        while (m_before.size() < wanted)
            step();
        while (m_before.size() > wanted) {
            m_after.push_back(std::move(m_before.back()));
            m_before.pop_back();
        }
        return true;
    }

    const Ending m_usual;
    std::vector<Line> m_before;
    // Backwards.
    std::vector<Line> m_after;
};

bool readEnding(QDataStream &stream, Ending *ending)
{
    quint8 value = 0;
    stream >> value;
    *ending = static_cast<Ending>(value);
    return stream.status() == QDataStream::Ok && value <= static_cast<quint8>(Ending::Cr);
}

/// Makes the next change; false at the end, which may lie within a change.
bool replay(QDataStream &stream, LineStore *store)
{
    quint8 change = 0;
    qint32 line = 0;
    qint32 column = 0;
    qint32 length = 0;
    QString text;
    stream >> change >> line;
    const auto kind = static_cast<TextJournal::Change>(change);
    if (kind != TextJournal::Change::Unwrap)
        stream >> column;
    if (kind == TextJournal::Change::Insert)
        stream >> text;
    if (kind == TextJournal::Change::Remove)
        stream >> length;
    if (stream.status() != QDataStream::Ok)
        return false;
    switch (kind) {
    case TextJournal::Change::Insert:
        return store->insert(line, column, text);
    case TextJournal::Change::Remove:
        return store->remove(line, column, length);
    case TextJournal::Change::Wrap:
        return store->wrap(line, column);
    case TextJournal::Change::Unwrap:
        return store->unwrap(line);
    }
    return false;
}

} // namespace

KeptText::KeptText(const QString &path)
    : m_file(path)
{
}

std::unique_ptr<KeptText> KeptText::find(const QString &folder, const QString &fileName)
{
    // The numbers of those that are gone leave holes, which are few.
    int missing = 0;
    for (int number = 0; missing < 10; ++number) {
        const QString path = TextJournal::path(folder, fileName, number);
        if (!QFile::exists(path)) {
            ++missing;
            continue;
        }
        std::unique_ptr<KeptText> kept(new KeptText(path));
        if (!kept->claim())
            continue;
        if (kept->read())
            return kept;
        // One that goes on and says something else is none of ours to remove.
        if (kept->m_file.atEnd())
            kept->discard();
    }
    return nullptr;
}

bool KeptText::claim()
{
    struct stat status = {};
    // Whoever had it before may have removed it just now.
    return m_file.open(QIODevice::ReadOnly) && TextJournal::lock(m_file.handle())
           && ::fstat(m_file.handle(), &status) == 0 && status.st_nlink > 0;
}

bool KeptText::read()
{
    const QByteArray signature = TextJournal::signature();
    if (m_file.read(signature.size()) != signature)
        return false;
    QDataStream stream(&m_file);
    stream.setVersion(QDataStream::Qt_5_15);
    Ending usual = Ending::Lf;
    qint32 count = 0;
    stream >> m_baseDigest;
    if (!readEnding(stream, &usual))
        return false;
    stream >> count;
    LineStore store(usual);
    for (int i = 0; i < count; ++i) {
        Line line;
        stream >> line.text;
        if (!readEnding(stream, &line.ending))
            return false;
        store.append(line);
    }
    if (count < 1)
        return false;
    while (replay(stream, &store)) {
    }
    const std::vector<Line> lines = store.take();
    m_lines.reserve(static_cast<int>(lines.size()));
    for (const Line &line : lines) {
        m_lines.append(line.text);
        m_text += line.text;
        m_text += LineEndings::text(line.ending);
    }
    return true;
}

void KeptText::discard()
{
    m_file.remove();
}

} // namespace TextEditor
