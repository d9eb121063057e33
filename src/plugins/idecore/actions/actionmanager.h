// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_ACTIONS_ACTIONMANAGER_H
#define IDECORE_ACTIONS_ACTIONMANAGER_H

#include <idecore/idecore_export.h>

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

class QAction;
class QMenu;
class QMenuBar;
class QToolBar;

namespace Core {

class IAction;

/// The registry of every command of the program and of the menu bars, menus,
/// tool bars and separators that hold them, each under a string id.
///
/// Plugins reach and extend the standard menus through the ids, without knowing
/// one another. Made by IdeCore, once; while there is none, queries give null
/// and commands do nothing. GUI thread only.
class IDECORE_EXPORT ActionManager final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(ActionManager)
public:
    /// Reads the size of tool-bar icons from the user settings.
    explicit ActionManager(QObject *parent = nullptr);
    /// Deletes the proxies, so that menus and tool bars lose their entries, and
    /// then the separators and registered actions.
    ~ActionManager() override;

    static ActionManager *instance();

    /// Makes @p action do command @p id while @p context is the first current
    /// context that has an action for it; an empty context is
    /// "Core.Context.Global".
    ///
    /// Gives the proxy to put into menus and tool bars, the same one for every
    /// context of an id; it follows @p action from the next setCurrentContexts()
    /// on. The registry becomes the parent of @p action, also when the context
    /// keeps the action it has, which only the debug log tells. Null when
    /// @p action is null or @p id empty.
    static IAction *registerAction(QAction *action, const QString &id,
                                   const QString &context = QString());
    /// Takes the action of @p context (empty is "Core.Context.Global") off
    /// command @p id. Neither the action nor the proxy is deleted, and the action
    /// stays current until the next setCurrentContexts().
    static void unregisterAction(const QString &id, const QString &context = QString());
    /// The proxy of command @p id, or null.
    [[nodiscard]] static IAction *action(const QString &id);
    /// The proxies of all commands, in no particular order.
    [[nodiscard]] static QList<IAction *> actions();

    /// The separator of that id, made on the first request and owned by the
    /// registry. One separator may stand in several menus and tool bars.
    static QAction *separator(const QString &id);

    // The containers: looking up gives null for an unknown id; creating gives
    // the one there is or a new child of the main window, which the caller puts
    // into its place. The object name is the id. One that is destroyed is
    // forgotten, whatever its object name is by then.

    [[nodiscard]] static QMenuBar *menuBar(const QString &id);
    static QMenuBar *createMenuBar(const QString &id);
    [[nodiscard]] static QMenu *menu(const QString &id);
    static QMenu *createMenu(const QString &id);
    [[nodiscard]] static QToolBar *toolBar(const QString &id);
    static QToolBar *createToolBar(const QString &id);

    /// Appends the shortcut of @p action, in grey, to its tool tip. For actions
    /// that are not proxies; every call appends once more.
    static void formatTooltip(QAction *action);
    /// Gives every tool bar, and those to come, icons of @p size pixels. A size
    /// outside 16 to 28 is ignored. Not stored in the settings.
    static void setToolbarIconSize(int size);

    /// Binds every proxy to the action of the first of @p contexts that has one.
    static void setCurrentContexts(const QStringList &contexts);

Q_SIGNALS:
    /// @p proxy stands for a command that was not known before; it has its first
    /// action, and its author may still change it. Further actions for the
    /// command are not told of.
    void actionRegistered(Core::IAction *proxy);

private Q_SLOTS:
    void onContainerDestory();

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace Core

#endif // IDECORE_ACTIONS_ACTIONMANAGER_H
