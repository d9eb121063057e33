// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef EXTSYS_PLUGINSPEC_H
#define EXTSYS_PLUGINSPEC_H

#include <extsys/extsys_export.h>

#include <QString>
#include <QVector>
#include <QVersionNumber>

#include <chrono>
#include <memory>

namespace ExtSys {

class IPlugin;

/// What a plugin needs to have started before it.
struct PluginDependency
{
    QString name;
    /// The lowest version that will do; null when any will.
    QVersionNumber minimumVersion;
};

/// What one step of a plugin's start took.
struct PluginCost
{
    std::chrono::nanoseconds wall{0};
    /// Processor time of the whole process.
    std::chrono::nanoseconds cpu{0};
};

/// One plugin file that the plugin host has found, and how far it has come.
///
/// Owned by the PluginManager, valid until its next findPlugins().
class EXTSYS_EXPORT PluginSpec final
{
    Q_DISABLE_COPY(PluginSpec)
public:
    enum class State {
        Found,       ///< Its metadata is read, its code is not loaded.
        Loaded,      ///< Its code is loaded and its object made.
        Initialized, ///< initialize() succeeded.
        Running,     ///< extensionsInitialized() has been called.
        Stopped,     ///< shutDown() has been called and its object destroyed.
        Skipped,     ///< Not started because of something else; error() says of what.
        Failed       ///< Not started, or not whole, by its own fault; see error().
    };

    ~PluginSpec();

    /// The name in its metadata. Of the core plugin, and of a file without
    /// readable metadata, the file's name without "lib" and suffix.
    [[nodiscard]] QString name() const;
    /// Absolute, with symbolic links followed.
    [[nodiscard]] QString filePath() const;
    /// Null when the metadata could not be read.
    [[nodiscard]] QVersionNumber version() const;
    [[nodiscard]] QString description() const;
    [[nodiscard]] QVector<PluginDependency> dependencies() const;
    /// True for the plugin that always comes first.
    [[nodiscard]] bool isCore() const;

    [[nodiscard]] State state() const;
    /// Why the plugin was not started, or what went wrong afterwards; empty when
    /// all is well. English, one line, without the plugin's name.
    [[nodiscard]] QString error() const;
    /// The plugin's object; null while there is none.
    [[nodiscard]] IPlugin *plugin() const;

    /// Loading the library and making the object.
    [[nodiscard]] PluginCost loadCost() const;
    [[nodiscard]] PluginCost initializeCost() const;
    [[nodiscard]] PluginCost extensionsInitializedCost() const;

private:
    friend class PluginManager;
    friend class PluginReader;
    friend class PluginGraph;
    friend class PluginRunner;

    PluginSpec();

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace ExtSys

#endif // EXTSYS_PLUGINSPEC_H
