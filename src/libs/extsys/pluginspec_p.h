// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef EXTSYS_PLUGINSPEC_P_H
#define EXTSYS_PLUGINSPEC_P_H

#include <extsys/iplugin.h>
#include <extsys/pluginspec.h>

#include <QPluginLoader>
#include <QPointer>

#include <memory>
#include <vector>

namespace ExtSys {

class PluginSpec::Private
{
public:
    QString name;
    QString filePath;
    QVersionNumber version;
    QString description;
    QVector<PluginDependency> dependencies;
    bool core = false;

    State state = State::Found;
    QString error;
    /// Has looked into the file for the metadata, and does not do so again to load the
    /// code. Null once that was tried, and where the metadata forbids it.
    std::unique_ptr<QPluginLoader> loader;
    /// A plugin may destroy itself.
    QPointer<IPlugin> plugin;

    PluginCost loadCost;
    PluginCost initializeCost;
    PluginCost extensionsInitializedCost;

    /// Only the first reason counts; what follows is its consequence.
    void stop(State reason, const QString &text)
    {
        if (state == State::Failed || state == State::Skipped)
            return;
        state = reason;
        error = text;
    }
    void fail(const QString &text) { stop(State::Failed, text); }
    void skip(const QString &text) { stop(State::Skipped, text); }
    [[nodiscard]] bool isStopped() const
    {
        return state == State::Failed || state == State::Skipped;
    }
};

using PluginSpecs = std::vector<std::unique_ptr<PluginSpec>>;

} // namespace ExtSys

#endif // EXTSYS_PLUGINSPEC_P_H
