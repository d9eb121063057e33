// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_CORE_COREPLUGIN_H
#define IDECORE_CORE_COREPLUGIN_H

#include <extsys/iplugin.h>
#include <idecore/idecore_export.h>

#include <memory>

namespace Core {

class IdeCore;

/// The plugin that the host loads; owns the one IdeCore, which does the work.
class IDECORE_EXPORT CorePlugin final : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Core.CorePlugin/1.0")
    Q_INTERFACES(ExtSys::IPlugin)
public:
    explicit CorePlugin(QObject *parent = nullptr);
    ~CorePlugin() override;

    bool initialize() override;
    void extensionsInitialized() override;
    void shutDown() override;

private:
    std::unique_ptr<IdeCore> core;
};

} // namespace Core

#endif // IDECORE_CORE_COREPLUGIN_H
