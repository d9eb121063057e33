// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/interfaces/iproject.h>

namespace Core {

IProject::IProject(QObject *parent)
    : QObject(parent)
{
}

IProject::~IProject() = default;

} // namespace Core
