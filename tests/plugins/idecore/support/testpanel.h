// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_PLUGINS_IDECORE_SUPPORT_TESTPANEL_H
#define TESTS_PLUGINS_IDECORE_SUPPORT_TESTPANEL_H

#include <idecore/interfaces/ipanel.h>

#include <QStringList>

#include <functional>

class QDockWidget;
class QMenu;

/// A panel that overrides no more than it has to.
class PlainPanel final : public Core::IPanel
{
    Q_OBJECT
public:
    explicit PlainPanel(const QString &name, Qt::DockWidgetArea area = Qt::LeftDockWidgetArea);

    QString name() const override { return m_name; }
    Qt::DockWidgetArea area() const override { return m_area; }

private:
    QString m_name;
    Qt::DockWidgetArea m_area;
};

/// A panel that says what it is told to say.
class TestPanel final : public Core::IPanel
{
    Q_OBJECT
public:
    explicit TestPanel(const QString &name, Qt::DockWidgetArea area, int priority = 50);
    ~TestPanel() override;

    QString title;
    Qt::DockWidgetAreas allowed = Qt::AllDockWidgetAreas;
    int priority;
    /// Run when the panel was shown and hidden, and when it is being destroyed.
    std::function<void()> whenShown;
    std::function<void()> whenHidden;
    std::function<void()> whenDestroyed;

    QString displayName() const override { return title; }
    QString name() const override { return m_name; }
    Qt::DockWidgetArea area() const override { return m_area; }
    Qt::DockWidgetAreas allowedAreas() const override { return allowed; }
    int layoutPriority() const override { return priority; }

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QString m_name;
    Qt::DockWidgetArea m_area;
};

/// A new panel, added; titled by its name.
TestPanel *addTestPanel(const char *name, Qt::DockWidgetArea area, int priority = 50);

/// The docks of the main window, in the order in which they were made.
QList<QDockWidget *> docks();
/// The dock that holds @p panel; null when none does.
QDockWidget *dockOf(const Core::IPanel *panel);

/// What is seen of the docks in @p area: an entry for each group of tabs, or dock
/// of its own, the titles in order and the one in front in brackets, "a [b] c".
/// Needs a main window that is shown.
QStringList dockGroups(Qt::DockWidgetArea area);

/// The menu "Panels" of the Window menu.
QMenu *panelsMenu();

#endif // TESTS_PLUGINS_IDECORE_SUPPORT_TESTPANEL_H
