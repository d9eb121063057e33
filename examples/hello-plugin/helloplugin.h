// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef HELLOPLUGIN_H
#define HELLOPLUGIN_H

#include <extsys/iplugin.h>

/// The smallest plugin that a user can see: a command in the Tools menu.
class HelloPlugin final : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.kelmoware.plugins.IPlugin/1.0" FILE "helloplugin.json")
    Q_INTERFACES(ExtSys::IPlugin)
public:
    bool initialize() override;
    void extensionsInitialized() override;
    void shutDown() override;

private:
    void greet();
};

#endif // HELLOPLUGIN_H
