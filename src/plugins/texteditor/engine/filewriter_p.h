// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TEXTEDITOR_ENGINE_FILEWRITER_P_H
#define TEXTEDITOR_ENGINE_FILEWRITER_P_H

#include <texteditor/engine/diskstate_p.h>

#include <QCoreApplication>
#include <QString>

namespace TextEditor {

/// Replaces a file as a whole: whatever fails, and whenever the process ends,
/// either the old contents are there or all of the new.
class FileWriter
{
    Q_DECLARE_TR_FUNCTIONS(TextEditor::FileWriter)
public:
    /// Gives @p fileName the contents @p bytes. A link stays and the file it
    /// leads to is replaced; permissions stay, and owner and group where the
    /// system allows it. On failure false and the reason in @p errorString.
    /// @p written gets the state of the file as it was written.
    static bool write(const QString &fileName, const QByteArray &bytes, QString *errorString,
                      DiskState *written = nullptr);
};

} // namespace TextEditor

#endif // TEXTEDITOR_ENGINE_FILEWRITER_P_H
