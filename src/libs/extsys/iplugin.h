// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef EXTSYS_IPLUGIN_H
#define EXTSYS_IPLUGIN_H

#include <extsys/extsys_export.h>

#include <QObject>

namespace ExtSys {
class IPlugin;
}

Q_DECLARE_INTERFACE(ExtSys::IPlugin, "com.kelmoware.plugins.IPlugin/1.0")

namespace ExtSys {

/// What every plugin's root object derives from.
///
/// The host creates the object, calls initialize() on all plugins in the order
/// of their dependencies, then extensionsInitialized() in the reverse order, and
/// at exit shutDown() in the reverse order, and destroys it. GUI thread only.
///
/// A plugin names this interface and its data in its class:
///
///     Q_PLUGIN_METADATA(IID "com.kelmoware.plugins.IPlugin/1.0" FILE "myplugin.json")
///
/// The file holds a JSON object: "Name" and "Version" are required; "Description"
/// is a text; "Dependencies" is a list of what has to be started before, each a
/// name, or an object of "Name" and "Version", the lowest version that will do:
///
///     { "Name": "MyPlugin", "Version": "1.2.0", "Description": "Shows things.",
///       "Dependencies": [ "IdeCore", { "Name": "TextEditor", "Version": "1.0" } ] }
class EXTSYS_EXPORT IPlugin : public QObject
{
    Q_OBJECT
    Q_INTERFACES(ExtSys::IPlugin)
public:
    explicit IPlugin(QObject *parent = nullptr);
    ~IPlugin() override;

    /// Sets the plugin up; what it depends on is already initialised. False
    /// (or an exception) means that it cannot work: the host reports it, takes
    /// what it put into the object pool out again, destroys it without calling
    /// shutDown(), and starts without it and without what depends on it.
    virtual bool initialize() = 0;
    /// Called once every plugin has been initialised, those that depend on this
    /// one first.
    virtual void extensionsInitialized() = 0;
    /// The last call before the program ends, made to every plugin whose
    /// initialize() succeeded; everything the plugin put into the object pool
    /// has to leave it here.
    virtual void shutDown() = 0;
};

} // namespace ExtSys

#endif // EXTSYS_IPLUGIN_H
