// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef EXTSYS_PLUGINMANAGER_H
#define EXTSYS_PLUGINMANAGER_H

#include <extsys/extsys_export.h>

#include <QList>
#include <QObject>
#include <QVector>

#include <memory>

namespace ExtSys {

class PluginSpec;

/// The plugin host: the pool of objects through which plugins offer their
/// extensions to one another, and the loading of the plugins themselves.
///
/// The program that hosts plugins finds them, starts them, and shuts them down
/// at the end:
///
///     PluginManager *manager = PluginManager::instance();
///     manager->findPlugins({folder});
///     const bool whole = manager->startPlugins();
///     if (whole)
///         QCoreApplication::exec();
///     manager->shutDown();
///
/// GUI thread only. It lives until the process ends.
class EXTSYS_EXPORT PluginManager final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(PluginManager)
public:
    /// Which plugins are started.
    enum class Selection {
        All,
        CoreOnly ///< The core plugin; the others are skipped without a warning.
    };

    /// The one plugin host of the process, made on the first call.
    static PluginManager *instance();
    ~PluginManager() override;

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
    /// Puts @p object at the end of the pool. The pool does not own it: it has
    /// to be removed before it is destroyed, otherwise it leaves the pool with a
    /// warning and without aboutToRemoveObject(). A null object, and one that is
    /// in the pool already, is ignored with a warning.
    void addObject(QObject *object);
    /// Takes @p object out of the pool; one that is not in it, or that is just
    /// leaving it, is ignored with a warning.
    void removeObject(QObject *object);

    /// The plugin files found, in the order in which they start; they stay the
    /// same until the next findPlugins().
    [[nodiscard]] QVector<const PluginSpec *> plugins() const;
    /// The plugin that always comes first; null when none was found.
    [[nodiscard]] const PluginSpec *corePlugin() const;
    /// Looks for plugins in @p folders and orders them by their dependencies,
    /// without loading any code. Of two plugins with one name the first found
    /// counts. May not be called while plugins run.
    void findPlugins(const QStringList &folders);
    /// Starts the plugins found: each is loaded and initialised behind what it
    /// depends on, then all learn of it in reverse order. A plugin that cannot
    /// be started, and what depends on it, is named with the reason in its spec
    /// and in a warning, and the rest starts.
    ///
    /// False when the core plugin was found and did not start: the others are
    /// skipped then, and saying so is left to the caller. False, too, while
    /// plugins run.
    [[nodiscard]] bool startPlugins(Selection selection = Selection::All);
    /// Shuts the running plugins down in the reverse order of their
    /// initialisation and then destroys their objects in that order. Their
    /// libraries stay loaded. A second call does nothing. Refused to plugins that
    /// are just being started or shut down.
    void shutDown();

Q_SIGNALS:
    /// @p object has been added to the pool.
    void objectAdded(QObject *object);
    /// @p object is still in the pool and about to leave it.
    void aboutToRemoveObject(QObject *object);
    /// The plugin is about to be loaded and initialised.
    void pluginStarting(const ExtSys::PluginSpec &spec);

private:
    PluginManager();

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace ExtSys

#endif // EXTSYS_PLUGINMANAGER_H
