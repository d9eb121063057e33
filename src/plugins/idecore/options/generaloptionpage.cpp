// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/options/generaloptionpage.h>

namespace Core {

GeneralOptionPage::GeneralOptionPage(QObject *parent)
    : IOptionsPage(parent)
{
}

GeneralOptionPage::~GeneralOptionPage() = default;

QWidget *GeneralOptionPage::widget()
{
    return nullptr;
}

void GeneralOptionPage::apply() {}

void GeneralOptionPage::finish() {}

} // namespace Core
