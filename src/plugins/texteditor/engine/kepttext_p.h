// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ENGINE_KEPTTEXT_P_H
#define TEXTEDITOR_ENGINE_KEPTTEXT_P_H

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringList>

#include <memory>

namespace TextEditor {

/// Unsaved text that a TextJournal of a process that is no more left behind.
/// Nobody else finds it while this exists; it stays for later when this goes.
class KeptText
{
public:
    /// Text of @p fileName among the journals in @p folder; null when there is
    /// none. A journal whose beginning was not written to the end holds nothing,
    /// and goes.
    static std::unique_ptr<KeptText> find(const QString &folder, const QString &fileName);

    /// Digest of the contents of the file that the text was based on.
    [[nodiscard]] QByteArray baseDigest() const { return m_baseDigest; }
    /// The lines of the document, without what ends them in the file.
    [[nodiscard]] const QStringList &lines() const { return m_lines; }
    /// The text with its line endings as they are to be in the file.
    [[nodiscard]] const QString &text() const { return m_text; }

    /// It was taken back or given up, and is not found any more.
    void discard();

private:
    explicit KeptText(const QString &path);
    [[nodiscard]] bool claim();
    [[nodiscard]] bool read();

    QFile m_file;
    QByteArray m_baseDigest;
    QStringList m_lines;
    QString m_text;
};

} // namespace TextEditor

#endif // TEXTEDITOR_ENGINE_KEPTTEXT_P_H
