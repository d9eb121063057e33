// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef EXTSYS_PLUGINMANAGER_H
#define EXTSYS_PLUGINMANAGER_H

#include <extsys/extsys_export.h>

#include <QList>
#include <QObject>

#include <memory>

namespace ExtSys {

/// The plugin host: the pool of objects through which plugins offer their
/// extensions to one another, and the loading of the plugins themselves.
///
/// GUI thread only.
class EXTSYS_EXPORT PluginManager final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(PluginManager)
public:
    /// The one plugin host of the process, made on the first call.
    static PluginManager *instance();
    ~PluginManager() override;

    /// Puts @p object at the end of the pool. The pool does not own it: it has
    /// to be removed before it is destroyed. A null object, and one that is in
    /// the pool already, is ignored with a warning.
    void addObject(QObject *object);
    /// Takes @p object out of the pool; one that is not in it is ignored with a
    /// warning.
    void removeObject(QObject *object);
    /// All objects of the pool, in the order in which they were added.
    [[nodiscard]] QList<QObject *> allObjects() const;
    /// The objects of the pool that are a T, in pool order.
    template<class T>
    [[nodiscard]] QList<T *> getObjects() const
    {
        QList<T *> found;
        const QList<QObject *> objects = allObjects();
        for (QObject *object : objects) {
            if (T *typed = qobject_cast<T *>(object))
                found.append(typed);
        }
        return found;
    }

Q_SIGNALS:
    /// @p object has been added to the pool.
    void objectAdded(QObject *object);
    /// @p object is still in the pool and about to leave it.
    void aboutToRemoveObject(QObject *object);

private:
    PluginManager();

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace ExtSys

#endif // EXTSYS_PLUGINMANAGER_H
