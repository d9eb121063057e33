// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/interfaces/iprojecctfactory.h>

namespace Core {

IProjecctFactory::IProjecctFactory(QObject *parent)
    : QObject(parent)
{
}

IProjecctFactory::~IProjecctFactory() = default;

} // namespace Core
