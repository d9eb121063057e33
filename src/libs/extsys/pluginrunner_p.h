// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef EXTSYS_PLUGINRUNNER_P_H
#define EXTSYS_PLUGINRUNNER_P_H

#include "pluginspec_p.h"

namespace ExtSys {

/// The steps of one plugin's life. What goes wrong is the error() of its
/// PluginSpec afterwards; no exception leaves.
class PluginRunner final
{
public:
    explicit PluginRunner(PluginSpec *spec);

    /// Loads the code and makes the object.
    void load();
    /// A plugin that fails leaves nothing in the object pool, and its object is
    /// destroyed.
    void initialize();
    void extensionsInitialized();
    void shutDown();
    void destroy();

private:
    PluginSpec::Private *m_spec;
};

} // namespace ExtSys

#endif // EXTSYS_PLUGINRUNNER_P_H
