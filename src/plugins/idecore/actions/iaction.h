// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_ACTIONS_IACTION_H
#define IDECORE_ACTIONS_IACTION_H

#include <idecore/idecore_export.h>

#include <QAction>
#include <QString>
#include <QStringList>

#include <memory>

class QKeySequence;

namespace Core {

namespace private_impl {
class ContextIndex;
}

/// The proxy of one command: what menus and tool bars hold instead of the
/// actions of the plugins.
///
/// A proxy keeps one action for each context. setCurrentContexts() binds it to
/// the action of the first context in the list that has one: it then mirrors
/// that action's state and forwards its own triggering to it. Proxies are made
/// and owned by the ActionManager; the actions they stand for are not theirs.
/// GUI thread only.
///
/// The key of a command belongs to its proxy, which takes it from the first
/// action registered and, once it stands in a menu or tool bar, serves it in
/// every window. An action that stands in no widget never competes for the key,
/// whatever its shortcut; a plugin that also puts its own action into a widget
/// has to take the shortcut off it first, or the key becomes ambiguous.
class IDECORE_EXPORT IAction final : public QAction
{
    Q_OBJECT
    Q_DISABLE_COPY(IAction)
public:
    /// @p action, not null, gives the proxy its first presentation, see init().
    /// It is not tied to a context by that.
    IAction(const QString &id, QAction *action);
    ~IAction() override;

    /// The command id, also the object name.
    [[nodiscard]] QString id() const;

    /// Copies the presentation of @p action, not null, its shortcut included, and
    /// disables the proxy: it stays so until a context makes an action current.
    void init(QAction *action);

    /// Makes @p action the one of @p context, from the next setCurrentContexts()
    /// on. A null action and an empty context are ignored, and so is the proxy
    /// itself; a context that still has a living action keeps it, with a line in
    /// the debug log.
    void addOverrideAction(QAction *action, const QString &context);
    /// Forgets the action of @p context. While it is the current one it stays so
    /// until the next setCurrentContexts().
    void removeContextAction(const QString &context);
    /// Binds the proxy to the action of the first of @p contexts that has a
    /// living one. Without any, the current action stays.
    void setCurrentContexts(const QStringList &contexts);

    /// Mirrors the current action; without one the proxy is disabled, and hidden
    /// when isHideWhenDeactivated().
    void update();
    /// Ties the proxy to its current action, so that changes are mirrored and
    /// triggering and toggling are forwarded, once however often this is called.
    void connectAction();
    /// Undoes connectAction(): nothing is mirrored or forwarded until the next
    /// connectAction() or setCurrentContexts().
    void disconnectAction();

    /// Sets the shortcut and shows it in the tool tip. Hides
    /// QAction::setShortcut(), which leaves the tool tip as it is and is what a
    /// call through a QAction pointer reaches.
    void setShortcut(const QKeySequence &key);

    // Each flag takes effect at the next update().

    /// True copies text, tool tip and status tip from the current action.
    [[nodiscard]] bool isTextUpdated() const;
    void setTextUpdated(bool updated);
    /// True copies icon, icon text and whether the icon shows in menus.
    [[nodiscard]] bool isIconUpdated() const;
    void setIconUpdated(bool updated);
    /// True hides the proxy while no action is current.
    [[nodiscard]] bool isHideWhenDeactivated() const;
    void setHideWhenDeactivated(bool hide);

public Q_SLOTS:
    void actionChanged();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    friend class private_impl::ContextIndex;
    class Private;
    const std::unique_ptr<Private> d;
};

namespace private_impl {

/// The tool tip of a proxy: @p toolTip with @p key in grey behind it, as rich
/// text. Empty when @p toolTip is empty.
[[nodiscard]] IDECORE_EXPORT QString formatToolTip(const QString &toolTip, const QKeySequence &key);

} // namespace private_impl
} // namespace Core

#endif // IDECORE_ACTIONS_IACTION_H
