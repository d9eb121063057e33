// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <QObject>

/// Claims the interface in its metadata and does not implement it.
class NoPluginObject final : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID TESTPLUGIN_IID FILE "plugin.json")
};

#include "nopluginobject.moc"
