// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <extsys/iplugin.h>

#include <cstdio>

/// A plugin beside the core; TEST_COMPANION=fail lets it fail.
class TestCompanion final : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.kelmoware.plugins.IPlugin/1.0" FILE "testcompanion.json")
public:
    bool initialize() override
    {
        std::puts("companion initialize");
        std::fflush(stdout);
        return qgetenv("TEST_COMPANION") != "fail";
    }
    void extensionsInitialized() override {}
    void shutDown() override
    {
        std::puts("companion shutDown");
        std::fflush(stdout);
    }
};

#include "testcompanion.moc"
