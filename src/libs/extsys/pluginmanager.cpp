// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <extsys/pluginmanager.h>

#include <QDebug>

namespace ExtSys {

class PluginManager::Private
{
public:
    QList<QObject *> objects;
};

PluginManager *PluginManager::instance()
{
    static PluginManager manager;
    return &manager;
}

PluginManager::PluginManager()
    : d(std::make_unique<Private>())
{
}

PluginManager::~PluginManager() = default;

void PluginManager::addObject(QObject *object)
{
    if (!object || d->objects.contains(object)) {
        qWarning() << "PluginManager: object is null or already in the pool:" << object;
        return;
    }
    d->objects.append(object);
    Q_EMIT objectAdded(object);
}

void PluginManager::removeObject(QObject *object)
{
    if (!d->objects.contains(object)) {
        qWarning() << "PluginManager: object is not in the pool:" << object;
        return;
    }
    Q_EMIT aboutToRemoveObject(object);
    d->objects.removeAll(object);
}

QList<QObject *> PluginManager::allObjects() const
{
    return d->objects;
}

} // namespace ExtSys
