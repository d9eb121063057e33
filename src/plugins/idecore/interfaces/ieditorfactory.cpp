// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/interfaces/ieditorfactory.h>

namespace Core {

IEditorFactory::IEditorFactory(QObject *parent)
    : QObject(parent)
{
}

IEditorFactory::~IEditorFactory() = default;

} // namespace Core
