// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "tabs.h"

#include "document.h"

#include <utils/mdiarea.h>

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPointer>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

namespace {
void withMenu(QTabBar *tabs, QContextMenuEvent::Reason reason, const QPoint &pos,
              const MenuHandler &use)
{
    bool met = false;
    QTimer::singleShot(0, tabs, [&met, &use] {
        const QPointer<QMenu> menu(qobject_cast<QMenu *>(QApplication::activePopupWidget()));
        QVERIFY(menu);
        met = true;
        use(menu);
        if (menu)
            menu->close();
    });
    QContextMenuEvent event(reason, pos, tabs->mapToGlobal(pos));
    QApplication::sendEvent(tabs, &event);
    QVERIFY(met);
}
} // namespace

QTabBar *tabsOf(const AreaFixture &f)
{
    return f.area->findChild<QTabBar *>(QStringLiteral("documentTabBar"));
}

QPoint closeButton(const QTabBar *tabs, int index)
{
    const QRect tab = tabs->tabRect(index);
    const bool isLeftToRight = tabs->layoutDirection() == Qt::LeftToRight;
    return {isLeftToRight ? tab.right() - 12 : tab.left() + 12, tab.center().y()};
}

void withMenu(QTabBar *tabs, int index, const MenuHandler &use)
{
    withMenu(tabs, QContextMenuEvent::Mouse, tabs->tabRect(index).center(), use);
}

void withMenuByKey(QTabBar *tabs, const MenuHandler &use)
{
    // As the window system sends it: wherever the mouse happens to be.
    withMenu(tabs, QContextMenuEvent::Keyboard, QPoint(-1, -1), use);
}

QAction *entry(const QMenu *menu, const char *text)
{
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        QString plain = action->text();
        if (plain.remove(QLatin1Char('&')) == QLatin1String(text))
            return action;
    }
    return nullptr;
}

void choose(QTabBar *tabs, int index, const char *text)
{
    withMenu(tabs, index, [text](QMenu *menu) {
        QAction *action = entry(menu, text);
        QVERIFY(action && action->isEnabled());
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                          menu->actionGeometry(action).center());
    });
}

void turnWheel(QTabBar *tabs, const QPoint &delta)
{
    const QPointF pos = tabs->rect().center();
    QWheelEvent event(pos, tabs->mapToGlobal(pos.toPoint()), QPoint(), delta, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(tabs, &event);
}
