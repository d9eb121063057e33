// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ENGINE_DISKSTATE_P_H
#define TEXTEDITOR_ENGINE_DISKSTATE_P_H

#include <QByteArray>
#include <QString>

struct stat;

namespace TextEditor {

/// What an editor knows of its file on disk, to tell whether another program
/// has changed it. Equal contents are the same file, however they came.
class DiskState
{
public:
    enum class Change { None, Modified, Deleted };

    DiskState() = default;
    /// Of a file with the digest @p digest, which had @p status before its
    /// contents were read, or when they had been written: what another program
    /// does meanwhile is a change.
    DiskState(const struct stat &status, const QByteArray &digest);

    static QByteArray digestOf(const QByteArray &contents);

    /// Digest of the contents that are known; empty where there are none.
    [[nodiscard]] QByteArray digest() const { return m_digest; }
    /// What became of @p fileName since. The contents are read only where size
    /// or time differ.
    [[nodiscard]] Change compare(const QString &fileName) const;

private:
    QByteArray m_digest;
    qint64 m_size = -1;
    qint64 m_time = 0;
};

} // namespace TextEditor

#endif // TEXTEDITOR_ENGINE_DISKSTATE_P_H
