// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/accessibilitywalk.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QGroupBox>
#include <QHash>
#include <QKeySequence>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QTabBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QWidget>

#include <algorithm>

namespace {

QString described(const QObject *object)
{
    QStringList path;
    for (const QObject *step = object; step && path.size() < 3; step = step->parent()) {
        QString part = QString::fromLatin1(step->metaObject()->className());
        if (!step->objectName().isEmpty())
            part += QLatin1Char('#') + step->objectName();
        path.prepend(part);
    }
    return path.join(QLatin1Char('/'));
}

/// The visible widgets of @p root, itself included, as far as they are of its window.
QList<QWidget *> visibleWidgets(QWidget *root)
{
    QList<QWidget *> widgets;
    if (!root->isVisible())
        return widgets;
    widgets.append(root);
    for (int i = 0; i < widgets.size(); ++i) {
        const QObjectList children = widgets.at(i)->children();
        for (QObject *child : children) {
            auto *widget = qobject_cast<QWidget *>(child);
            if (widget && !widget->isWindow() && widget->isVisible())
                widgets.append(widget);
        }
    }
    return widgets;
}

/// The field of a spin box or a combo box, which the box speaks for, and the bars
/// that a view scrolls with.
bool isPartOfControl(const QWidget *widget)
{
    const QWidget *const parent = widget->parentWidget();
    return qobject_cast<const QAbstractSpinBox *>(parent) || qobject_cast<const QComboBox *>(parent)
           || widget->inherits("QScrollBar")
           // The buttons with which a tab bar or a tool bar shows the rest of itself.
           || (qobject_cast<const QTabBar *>(parent) && widget->inherits("QToolButton"))
           // What clears a line by the mouse; keys clear it in the line itself.
           || widget->inherits("QLineEditIconButton")
           || widget->objectName() == QLatin1String("qt_toolbar_ext_button");
}

bool takesTab(const QWidget *widget)
{
    return widget->isEnabled() && widget->isVisible() && !widget->focusProxy()
           && (widget->focusPolicy() & Qt::TabFocus);
}

bool isControl(QAccessible::Role role)
{
    switch (role) {
    case QAccessible::PushButton:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::SpinBox:
    case QAccessible::Slider:
    case QAccessible::Dial:
    case QAccessible::EditableText:
    case QAccessible::List:
    case QAccessible::Tree:
    case QAccessible::Table:
    case QAccessible::PageTab:
    case QAccessible::PageTabList:
    case QAccessible::MenuItem:
    case QAccessible::ButtonMenu:
    case QAccessible::ButtonDropDown:
    case QAccessible::ButtonDropGrid:
    case QAccessible::ToolBar:
    case QAccessible::Dialog:
    case QAccessible::AlertMessage:
    case QAccessible::ProgressBar:
        return true;
    default:
        return false;
    }
}

/// What is said of it before its contents.
QString nameOf(const QAccessibleInterface *interface)
{
    const auto *const box = qobject_cast<QComboBox *>(interface->object());
    if (!box)
        return interface->text(QAccessible::Name).trimmed();
    // The interface calls a combo box by the entry that is chosen in it.
    if (!box->accessibleName().isEmpty())
        return box->accessibleName();
    const auto labels = interface->relations(QAccessible::Label);
    return labels.isEmpty() ? QString() : labels.first().first->text(QAccessible::Name);
}

bool needsName(QWidget *widget, const QAccessibleInterface *interface)
{
    return isControl(interface->role()) || takesTab(widget) || qobject_cast<QGroupBox *>(widget);
}

void gather(const QMenu *menu, QSet<const QMenu *> *seen, QList<QAction *> *reached)
{
    if (!menu || seen->contains(menu))
        return;
    seen->insert(menu);
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        reached->append(action);
        gather(action->menu(), seen, reached);
    }
}

bool hasMnemonic(const QString &text)
{
    return !QKeySequence::mnemonic(text).isEmpty();
}

/// What Alt and letters, arrows and Return reach from @p root's window.
QList<QAction *> reachedByMenus(QWidget *root)
{
    QList<QAction *> reached;
    QSet<const QMenu *> seen;
    const QList<QMenuBar *> bars = root->window()->findChildren<QMenuBar *>();
    for (const QMenuBar *bar : bars) {
        const QList<QAction *> titles = bar->actions();
        for (QAction *title : titles) {
            if (!hasMnemonic(title->text()))
                continue;
            reached.append(title);
            gather(title->menu(), &seen, &reached);
        }
    }
    return reached;
}

bool isReached(const QAction *action, const QList<QAction *> &inMenus)
{
    return !action->shortcuts().isEmpty() || inMenus.contains(const_cast<QAction *>(action));
}

QRect onWindow(const QWidget *widget)
{
    return {widget->mapTo(widget->window(), QPoint()), widget->size()};
}

bool isDialogButton(const QWidget *widget)
{
    return qobject_cast<const QDialogButtonBox *>(widget->parentWidget());
}

const QWidget *documentOf(const QWidget *widget)
{
    while (widget && !qobject_cast<const QMdiSubWindow *>(widget))
        widget = widget->parentWidget();
    return widget;
}

bool isAgainstTheEye(const QWidget *from, const QWidget *to)
{
    // Where one document lies beside another is up to the user.
    if (documentOf(from) != documentOf(to))
        return false;
    const QRect a = onWindow(from);
    const QRect b = onWindow(to);
    const bool above = b.bottom() < a.top();
    if (isDialogButton(from) && !isDialogButton(to))
        return above;
    // A column is read to its end before the next one.
    if (above)
        return b.left() <= a.right();
    const bool below = b.top() > a.bottom();
    return !below && b.right() < a.left();
}

void add(QHash<QString, QStringList> *owners, const QString &text, const QString &owner)
{
    const QKeySequence key = QKeySequence::mnemonic(text);
    if (!key.isEmpty())
        (*owners)[key.toString()].append(owner);
}

void addShared(QStringList *found, const QHash<QString, QStringList> &owners)
{
    for (auto it = owners.cbegin(); it != owners.cend(); ++it) {
        if (it.value().size() > 1)
            found->append(QStringLiteral("%1 is shared by %2")
                              .arg(it.key(), it.value().join(QStringLiteral(", "))));
    }
}

void addSharedInMenu(QStringList *found, const QMenu *menu)
{
    QHash<QString, QStringList> owners;
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions) {
        if (action->isVisible())
            add(&owners, action->text(), QLatin1Char('"') + action->text() + QLatin1Char('"'));
        if (action->menu())
            addSharedInMenu(found, action->menu());
    }
    addShared(found, owners);
}

bool isStep(const QWidget *widget)
{
    // The frame of a document is where the document is, and a text that can be copied
    // stands before or behind its buttons.
    return !qobject_cast<const QMdiSubWindow *>(widget) && !qobject_cast<const QLabel *>(widget);
}

} // namespace

namespace AccessibilityWalk {

QStringList namelessControls(QWidget *root)
{
    QStringList found;
    const QList<QWidget *> widgets = visibleWidgets(root);
    for (QWidget *widget : widgets) {
        if (isPartOfControl(widget))
            continue;
        const QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
        if (!interface) {
            found.append(QStringLiteral("no interface: ") + described(widget));
            continue;
        }
        if (needsName(widget, interface) && nameOf(interface).isEmpty())
            found.append(QStringLiteral("nameless: ") + described(widget));
        if (!qobject_cast<QTabBar *>(widget) && !qobject_cast<QMenuBar *>(widget))
            continue;
        for (int i = 0; i < interface->childCount(); ++i) {
            const QAccessibleInterface *const child = interface->child(i);
            // A child that is a widget comes by itself.
            if (child && !child->object() && isControl(child->role()) && !child->state().invisible
                && nameOf(child).isEmpty())
                found.append(
                    QStringLiteral("nameless: %1, child %2").arg(described(widget)).arg(i));
        }
    }
    return found;
}

QStringList tabJumps(QWidget *root)
{
    QList<const QWidget *> ring;
    const QWidget *const start = root->window();
    for (const QWidget *widget = start->nextInFocusChain(); widget && widget != start;
         widget = widget->nextInFocusChain()) {
        if (takesTab(widget) && !isPartOfControl(widget) && root->isAncestorOf(widget)
            && widget->window() == start && isStep(widget))
            ring.append(widget);
    }
    // Once around it has to come back to where the eye begins.
    const auto first =
        std::min_element(ring.cbegin(), ring.cend(), [](const QWidget *one, const QWidget *other) {
            const QRect a = onWindow(one);
            const QRect b = onWindow(other);
            return a.top() != b.top() ? a.top() < b.top() : a.left() < b.left();
        });
    QStringList found;
    int jumps = 0;
    for (int i = 0; i < ring.size(); ++i) {
        const QWidget *const from = ring.at(i);
        const QWidget *const to = ring.at((i + 1) % ring.size());
        if (!isAgainstTheEye(from, to))
            continue;
        ++jumps;
        if (to != *first)
            found.append(
                QStringLiteral("Tab jumps from %1 to %2").arg(described(from), described(to)));
    }
    return jumps > 1 ? found : QStringList();
}

QStringList pressedTabJumps(QWidget *window)
{
    constexpr int MANY = 1000;
    constexpr int MANY_LINKS = 10;
    QStringList found;
    QList<const QWidget *> ring;
    const QWidget *last = nullptr;
    for (int i = 0; i < MANY; ++i) {
        QWidget *const focus = window->focusWidget();
        if (!focus)
            return {QStringLiteral("Tab finds nothing in ") + described(window)};
        const QWidget *const spoken = isPartOfControl(focus) ? focus->parentWidget() : focus;
        if (!ring.isEmpty() && spoken == ring.first())
            return found;
        if (ring.contains(spoken))
            return {QStringLiteral("Tab does not come back from ") + described(spoken)};
        ring.append(spoken);
        // Now, for the next step may scroll.
        if (isStep(spoken)) {
            if (last && isAgainstTheEye(last, spoken)) {
                found.append(QStringLiteral("Tab jumps from %1 to %2")
                                 .arg(described(last), described(spoken)));
            }
            last = spoken;
        }
        // In a text it goes from link to link first.
        for (int link = 0; link < MANY_LINKS && window->focusWidget() == focus; ++link)
            QTest::keyClick(focus, Qt::Key_Tab);
        if (window->focusWidget() == focus)
            return {QStringLiteral("Tab stays in ") + described(focus)};
    }
    return {QStringLiteral("Tab goes on and on in ") + described(window)};
}

QStringList mouseOnlyControls(QWidget *root)
{
    QStringList found;
    const QList<QAction *> inMenus = reachedByMenus(root);
    const QList<QWidget *> widgets = visibleWidgets(root);
    for (QWidget *widget : widgets) {
        if (isPartOfControl(widget) || takesTab(widget) || !widget->isEnabled())
            continue;
        const auto *button = qobject_cast<QAbstractButton *>(widget);
        if (!button)
            continue;
        // A dock closes where the menus show it; where it floats is a matter of the mouse.
        const auto *dock = qobject_cast<const QDockWidget *>(button->parentWidget());
        if (dock && isReached(dock->toggleViewAction(), inMenus))
            continue;
        const auto *tool = qobject_cast<const QToolButton *>(button);
        const bool shown = tool && tool->defaultAction();
        // What an action is shown by is looked at as that action.
        if (!shown && button->shortcut().isEmpty() && !hasMnemonic(button->text()))
            found.append(QStringLiteral("only by mouse: ") + described(button));
    }
    return found;
}

QStringList mouseOnlyActions(QWidget *root)
{
    QStringList found;
    const QList<QAction *> inMenus = reachedByMenus(root);
    const QList<QWidget *> widgets = visibleWidgets(root);
    for (const QWidget *widget : widgets) {
        if (qobject_cast<const QMenuBar *>(widget)) {
            const QList<QAction *> titles = widget->actions();
            for (const QAction *title : titles) {
                if (title->isVisible() && !title->isSeparator() && !isReached(title, inMenus))
                    found.append(QStringLiteral("only by mouse: menu \"%1\"").arg(title->text()));
            }
            continue;
        }
        // Only what is shown; other widgets keep actions for the sake of their keys.
        const auto *const tool = qobject_cast<const QToolButton *>(widget);
        if (!qobject_cast<const QToolBar *>(widget)
            && (!tool || takesTab(tool) || isPartOfControl(tool)))
            continue;
        const QList<QAction *> actions = widget->actions();
        for (const QAction *action : actions) {
            if (!action->isVisible() || action->isSeparator() || isReached(action, inMenus)
                || action->inherits("QWidgetAction"))
                continue;
            found.append(QStringLiteral("only by mouse: action \"%1\" of %2")
                             .arg(action->text(), described(widget)));
        }
    }
    return found;
}

QStringList sharedMnemonics(QWidget *root)
{
    QStringList found;
    QHash<QString, QStringList> owners;
    const QList<QWidget *> widgets = visibleWidgets(root);
    for (const QWidget *widget : widgets) {
        const auto *label = qobject_cast<const QLabel *>(widget);
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        const auto *group = qobject_cast<const QGroupBox *>(widget);
        if (const auto *bar = qobject_cast<const QTabBar *>(widget)) {
            for (int i = 0; i < bar->count(); ++i)
                add(&owners, bar->tabText(i), described(bar));
        } else if (const auto *menus = qobject_cast<const QMenuBar *>(widget)) {
            const QList<QAction *> titles = menus->actions();
            for (const QAction *title : titles) {
                if (title->isVisible())
                    add(&owners, title->text(), described(title->menu()));
                if (title->menu())
                    addSharedInMenu(&found, title->menu());
            }
        } else if (label && label->buddy()) {
            add(&owners, label->text(), described(label->buddy()));
        } else if (button && !qobject_cast<const QToolButton *>(button)) {
            add(&owners, button->text(), described(button));
        } else if (group) {
            add(&owners, group->title(), described(group));
        }
    }
    addShared(&found, owners);
    return found;
}

QStringList faults(QWidget *root)
{
    return namelessControls(root) + tabJumps(root) + mouseOnlyControls(root)
           + mouseOnlyActions(root) + sharedMnemonics(root);
}

QStringList pressedFaults(QWidget *window)
{
    return namelessControls(window) + pressedTabJumps(window) + mouseOnlyControls(window)
           + mouseOnlyActions(window) + sharedMnemonics(window);
}

} // namespace AccessibilityWalk
