// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/externaleditors/externaleditormanager.h>

namespace Core {

ExternalEditorManager::ExternalEditorManager(QObject *parent)
    : QObject(parent)
{
}

ExternalEditorManager::~ExternalEditorManager() = default;

} // namespace Core
