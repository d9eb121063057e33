// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef EXTSYS_IPLUGIN_H
#define EXTSYS_IPLUGIN_H

#include <extsys/extsys_export.h>

#include <QObject>

namespace ExtSys {

/// What every plugin's root object derives from.
///
/// The host creates the object, calls initialize() on all plugins in the order
/// of their dependencies, then extensionsInitialized() in the reverse order, and
/// at exit shutDown() in the reverse order. GUI thread only.
class EXTSYS_EXPORT IPlugin : public QObject
{
    Q_OBJECT
public:
    explicit IPlugin(QObject *parent = nullptr);
    ~IPlugin() override;

    /// Sets the plugin up; what it depends on is already initialised. False
    /// means that it cannot work: the host reports it and starts without it and
    /// without what depends on it.
    virtual bool initialize() = 0;
    /// Called once every plugin has been initialised, those that depend on this
    /// one first.
    virtual void extensionsInitialized() = 0;
    /// The last call before the program ends; everything the plugin put into
    /// the object pool has to leave it here.
    virtual void shutDown() = 0;
};

} // namespace ExtSys

Q_DECLARE_INTERFACE(ExtSys::IPlugin, "com.kelmoware.plugins.IPlugin/1.0")

#endif // EXTSYS_IPLUGIN_H
