// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "objectpool_p.h"

#include <QDebug>

namespace ExtSys {

bool ObjectPool::add(QObject *object)
{
    if (!object || m_objects.contains(object)) {
        qWarning() << "PluginManager: object is null or already in the pool:" << object;
        return false;
    }
    m_objects.append(object);
    connect(object, &QObject::destroyed, this, &ObjectPool::onDestroyed);
    return true;
}

bool ObjectPool::beginRemoval(QObject *object)
{
    if (!m_objects.contains(object) || m_leaving.contains(object)) {
        qWarning() << "PluginManager: object is not in the pool or is leaving it:"
                   << static_cast<void *>(object);
        return false;
    }
    m_leaving.append(object);
    return true;
}

void ObjectPool::endRemoval(QObject *object)
{
    // An object that was destroyed when its leaving was announced is gone by
    // now, and another one may have come to the pool at its address.
    if (!m_leaving.removeOne(object))
        return;
    m_objects.removeOne(object);
    disconnect(object, &QObject::destroyed, this, &ObjectPool::onDestroyed);
}

void ObjectPool::onDestroyed(QObject *object)
{
    m_objects.removeOne(object);
    // Who announced that it leaves may destroy it.
    if (!m_leaving.removeOne(object)) {
        qWarning() << "PluginManager: object was destroyed while in the pool:"
                   << static_cast<void *>(object) << object->objectName();
    }
}

} // namespace ExtSys
