// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/externaleditors/externaleditoroptionpage.h>

namespace Core {

ExternalEditorOptionPage::ExternalEditorOptionPage(QObject *parent)
    : IOptionsPage(parent)
{
}

ExternalEditorOptionPage::~ExternalEditorOptionPage() = default;

QWidget *ExternalEditorOptionPage::widget()
{
    return nullptr;
}

void ExternalEditorOptionPage::apply() {}

void ExternalEditorOptionPage::finish() {}

} // namespace Core
