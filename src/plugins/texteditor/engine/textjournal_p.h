// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ENGINE_TEXTJOURNAL_P_H
#define TEXTEDITOR_ENGINE_TEXTJOURNAL_P_H

#include <texteditor/engine/lineendings_p.h>

#include <QBuffer>
#include <QByteArray>
#include <QDataStream>
#include <QString>

#include <functional>

namespace TextEditor {

/// Keeps the text of one document that is not in its file yet, so that the end
/// of the process does not lose it: the whole text at first, then every change.
///
/// What has been flushed outlives the process however it ends. The journal is
/// locked while the process lives, so that KeptText finds only what was left
/// behind.
class TextJournal
{
public:
    struct Line
    {
        QString text;
        LineEndings::Ending ending = LineEndings::Ending::None;
    };
    /// What a journal says of the text it begins with.
    struct Base
    {
        /// Digest of the contents of the file that the text is based on.
        QByteArray digest;
        LineEndings::Ending usualEnding = LineEndings::Ending::Lf;
        int lines = 0;
    };
    enum class Change : quint8 { Insert, Remove, Wrap, Unwrap };

    /// Leads from the journals in @p folder, which need not exist, to the one of
    /// @p fileName; there may be several, counted by @p number.
    static QString path(const QString &folder, const QString &fileName, int number);
    /// Locks the open file @p handle; false when another journal holds it.
    static bool lock(int handle);
    /// What the first bytes of every journal are.
    static QByteArray signature();

    explicit TextJournal(const QString &folder);
    ~TextJournal();
    Q_DISABLE_COPY(TextJournal)

    [[nodiscard]] bool isActive() const { return m_handle >= 0; }
    /// Begins with the text of @p fileName that @p line gives. On failure false,
    /// the reason in errorString(), and nothing is kept.
    bool begin(const QString &fileName, const Base &base, const std::function<Line(int)> &line);
    /// The four changes that all editing comes down to, while active.
    void insert(int line, int column, const QString &text);
    void remove(int line, int column, int length);
    void wrap(int line, int column);
    void unwrap(int line);
    /// Makes the changes so far outlive the process. On failure false, the reason
    /// in errorString(), and the journal is gone, as it has a hole.
    bool flush();
    /// The text is in its file or was given up. Nothing where not active.
    void discard();
    [[nodiscard]] QString errorString() const { return m_errorString; }

private:
    bool create(const QString &fileName);
    bool writePending();
    void close();
    void forgetPending();

    const QString m_folder;
    int m_handle = -1;
    // What has not been flushed.
    QBuffer m_pending;
    QDataStream m_stream;
    QString m_path;
    QString m_errorString;
};

} // namespace TextEditor

#endif // TEXTEDITOR_ENGINE_TEXTJOURNAL_P_H
