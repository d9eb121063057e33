// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/interfaces/ieditor.h>

namespace Core {

IEditor::IEditor(QWidget *parent)
    : IView(parent)
{
}

IEditor::~IEditor() = default;

bool IEditor::isReadOnly() const
{
    return m_readOnly;
}

void IEditor::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
}

void IEditor::goToLine(int line, int column)
{
    Q_UNUSED(line)
    Q_UNUSED(column)
}

} // namespace Core
