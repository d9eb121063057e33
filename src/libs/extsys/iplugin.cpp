// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <extsys/iplugin.h>

namespace ExtSys {

IPlugin::IPlugin(QObject *parent)
    : QObject(parent)
{
}

IPlugin::~IPlugin() = default;

} // namespace ExtSys
