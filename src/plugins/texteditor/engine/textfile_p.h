// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ENGINE_TEXTFILE_P_H
#define TEXTEDITOR_ENGINE_TEXTFILE_P_H

#include <texteditor/engine/diskstate_p.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <optional>

namespace TextEditor {

/// The contents of a file, and how they are written as bytes.
class TextFile
{
    Q_DECLARE_TR_FUNCTIONS(TextEditor::TextFile)
public:
    /// Files beyond this are refused; a document takes up to eight times its
    /// size in memory.
    static constexpr qint64 sizeLimit = qint64(128) * 1024 * 1024;

    /// Reads @p fileName. Nothing, and the reason in @p errorString, for what is
    /// no regular file, too large or cannot be read; never waits.
    static std::optional<TextFile> read(const QString &fileName, QString *errorString);

    /// Codec that gives back the bytes of the file for its text.
    QByteArray codec;
    /// Byte order mark in front of the text, which is not part of it.
    QByteArray byteOrderMark;
    QString text;
    DiskState disk;
    /// The contents are no text in any encoding; the text shows them byte by byte.
    bool binary = false;

private:
    void decode(const QByteArray &bytes);
    bool decodeAs(const char *name, const QByteArray &bytes);
};

} // namespace TextEditor

#endif // TEXTEDITOR_ENGINE_TEXTFILE_P_H
