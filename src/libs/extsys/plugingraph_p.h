// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef EXTSYS_PLUGINGRAPH_P_H
#define EXTSYS_PLUGINGRAPH_P_H

#include "pluginspec_p.h"

#include <QHash>
#include <QStringList>
#include <QVector>

namespace ExtSys {

/// The order in which plugins start, and which of them cannot.
class PluginGraph final
{
public:
    /// Sorts @p specs: the core first, every plugin behind what it depends on,
    /// otherwise as they came. Plugins whose dependencies are missing, too old
    /// or in a circle, and second ones of a name, are marked as failed.
    static void sort(PluginSpecs *specs);
    /// The first reason among the dependencies of @p spec against starting it;
    /// empty when there is none. What @p spec depends on is looked for in @p specs.
    [[nodiscard]] static QString obstacle(const PluginSpec &spec, const PluginSpecs &specs);

private:
    using Named = QHash<QString, PluginSpec *>;

    static Named resolveNames(PluginSpecs *specs);
    static void checkDependencies(const PluginSpecs &specs, const Named &named);
    static void visit(PluginSpec *spec, const Named &named, QVector<PluginSpec *> *path,
                      QVector<PluginSpec *> *order);
};

} // namespace ExtSys

#endif // EXTSYS_PLUGINGRAPH_P_H
