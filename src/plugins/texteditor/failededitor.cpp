// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/failededitor_p.h>

namespace TextEditor {

FailedEditor::FailedEditor(const QString &reason, QWidget *parent)
    : IEditor(parent)
    , m_reason(reason)
{
}

int FailedEditor::currentLine() const
{
    return 1;
}

bool FailedEditor::open(const QString &fileName, QString *errorString)
{
    Q_UNUSED(fileName)
    return fail(errorString);
}

QString FailedEditor::fileName() const
{
    return {};
}

bool FailedEditor::isModified() const
{
    return false;
}

bool FailedEditor::save(QString *errorString)
{
    return fail(errorString);
}

bool FailedEditor::saveAs(const QString &fileName, QString *errorString)
{
    Q_UNUSED(fileName)
    return fail(errorString);
}

bool FailedEditor::fail(QString *errorString) const
{
    if (errorString)
        *errorString = m_reason;
    return false;
}

} // namespace TextEditor
