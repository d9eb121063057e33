// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// Commands by key and by menu, in a window that has the focus.

#include "support/corefixture.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>

#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <memory>

using namespace Core;

namespace {

const QString FirstContext = QStringLiteral("Test.A");
const QString SecondContext = QStringLiteral("Test.B");
const QString Command = QStringLiteral("Test.Command");

} // namespace

class TestCommandKeys final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void keyTriggersTheCurrentActionOnce();
    void keyFollowsTheContexts();
    void keyWorksInAnotherWindow();
    void keyOfADisabledActionDoesNothing();
    void menuEntryOfADisabledActionDoesNothing();
    void toolButtonOfADisabledActionDoesNothing();
    void menuEntryTriggersOnce();
    void toolButtonTriggersOnce();
    void keyOfAnUnboundProxyDoesNothing();
    void sameKeyOnTheActionIsNotAmbiguous();
    void keyOfAnActionEnabledLaterWorks();
    void changedKeyReplacesTheOldOne();

private:
    void press() { QTest::keyClick(m_edit, Qt::Key_K, Qt::ControlModifier); }
    void clickMenuEntry();
    void clickToolButton();

    std::unique_ptr<CoreFixture> m_core;
    std::unique_ptr<QMainWindow> m_window;
    QLineEdit *m_edit = nullptr;
    QMenu *m_menu = nullptr;
    QToolBar *m_bar = nullptr;
    QAction *m_a = nullptr;
    QAction *m_b = nullptr;
    IAction *m_proxy = nullptr;
};

void TestCommandKeys::init()
{
    m_core = std::make_unique<CoreFixture>();
    m_a = new QAction(QStringLiteral("A"));
    m_a->setShortcut(QKeySequence(QStringLiteral("Ctrl+K")));
    m_b = new QAction(QStringLiteral("B"));
    m_b->setShortcut(QKeySequence(QStringLiteral("Ctrl+K")));
    m_proxy = ActionManager::registerAction(m_a, Command, FirstContext);
    ActionManager::registerAction(m_b, Command, SecondContext);

    m_window = std::make_unique<QMainWindow>();
    m_edit = new QLineEdit;
    m_window->setCentralWidget(m_edit);
    m_menu = m_window->menuBar()->addMenu(QStringLiteral("Menu"));
    m_menu->addAction(m_proxy);
    m_bar = m_window->addToolBar(QStringLiteral("Bar"));
    m_bar->addAction(m_proxy);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_edit->setFocus();
}

void TestCommandKeys::cleanup()
{
    m_window.reset();
    m_core.reset();
}

void TestCommandKeys::clickMenuEntry()
{
    m_menu->popup(m_window->mapToGlobal(QPoint(50, 50)));
    QVERIFY(QTest::qWaitForWindowExposed(m_menu));
    QTest::mouseClick(m_menu, Qt::LeftButton, Qt::NoModifier,
                      m_menu->actionGeometry(m_proxy).center());
    m_menu->close();
}

void TestCommandKeys::clickToolButton()
{
    QTest::mouseClick(m_bar->widgetForAction(m_proxy), Qt::LeftButton);
}

void TestCommandKeys::keyTriggersTheCurrentActionOnce()
{
    ActionManager::setCurrentContexts({FirstContext});
    const QSignalSpy spy(m_a, &QAction::triggered);

    press();

    QCOMPARE(spy.count(), 1);
}

void TestCommandKeys::keyFollowsTheContexts()
{
    ActionManager::setCurrentContexts({FirstContext});
    ActionManager::setCurrentContexts({SecondContext, FirstContext});
    const QSignalSpy a(m_a, &QAction::triggered);
    const QSignalSpy b(m_b, &QAction::triggered);

    press();

    QCOMPARE(a.count(), 0);
    QCOMPARE(b.count(), 1);
}

void TestCommandKeys::keyWorksInAnotherWindow()
{
    ActionManager::setCurrentContexts({FirstContext});
    const QSignalSpy spy(m_a, &QAction::triggered);
    QLineEdit other;
    other.show();
    QVERIFY(QTest::qWaitForWindowActive(&other));

    QTest::keyClick(&other, Qt::Key_K, Qt::ControlModifier);

    QCOMPARE(spy.count(), 1);
}

void TestCommandKeys::keyOfADisabledActionDoesNothing()
{
    m_a->setEnabled(false);
    ActionManager::setCurrentContexts({FirstContext});
    const QSignalSpy spy(m_a, &QAction::triggered);
    const QSignalSpy proxySpy(m_proxy, &QAction::triggered);

    press();

    QCOMPARE(spy.count(), 0);
    QCOMPARE(proxySpy.count(), 0);
}

void TestCommandKeys::menuEntryOfADisabledActionDoesNothing()
{
    m_a->setEnabled(false);
    ActionManager::setCurrentContexts({FirstContext});
    const QSignalSpy spy(m_a, &QAction::triggered);

    clickMenuEntry();

    QCOMPARE(spy.count(), 0);
}

void TestCommandKeys::toolButtonOfADisabledActionDoesNothing()
{
    m_a->setEnabled(false);
    ActionManager::setCurrentContexts({FirstContext});
    const QSignalSpy spy(m_a, &QAction::triggered);

    clickToolButton();

    QCOMPARE(spy.count(), 0);
}

void TestCommandKeys::menuEntryTriggersOnce()
{
    ActionManager::setCurrentContexts({FirstContext});
    const QSignalSpy spy(m_a, &QAction::triggered);

    clickMenuEntry();

    QCOMPARE(spy.count(), 1);
}

void TestCommandKeys::toolButtonTriggersOnce()
{
    ActionManager::setCurrentContexts({FirstContext});
    const QSignalSpy spy(m_a, &QAction::triggered);

    clickToolButton();

    QCOMPARE(spy.count(), 1);
}

void TestCommandKeys::keyOfAnUnboundProxyDoesNothing()
{
    const QSignalSpy spy(m_a, &QAction::triggered);
    const QSignalSpy proxySpy(m_proxy, &QAction::triggered);

    press();

    QCOMPARE(spy.count(), 0);
    QCOMPARE(proxySpy.count(), 0);
}

void TestCommandKeys::sameKeyOnTheActionIsNotAmbiguous()
{
    // Both registered actions carry the proxy's key; neither stands in a widget.
    QCOMPARE(m_a->shortcut(), m_proxy->shortcut());
    ActionManager::setCurrentContexts({SecondContext});
    const QSignalSpy spy(m_b, &QAction::triggered);

    press();
    press();

    QCOMPARE(spy.count(), 2);
}

void TestCommandKeys::keyOfAnActionEnabledLaterWorks()
{
    m_a->setEnabled(false);
    ActionManager::setCurrentContexts({FirstContext});
    const QSignalSpy spy(m_a, &QAction::triggered);

    m_a->setEnabled(true);
    press();

    QCOMPARE(spy.count(), 1);
}

void TestCommandKeys::changedKeyReplacesTheOldOne()
{
    ActionManager::setCurrentContexts({FirstContext});
    const QSignalSpy spy(m_a, &QAction::triggered);

    m_proxy->setShortcut(QKeySequence(QStringLiteral("Ctrl+J")));
    press();
    QCOMPARE(spy.count(), 0);

    QTest::keyClick(m_edit, Qt::Key_J, Qt::ControlModifier);
    QCOMPARE(spy.count(), 1);
}

QTEST_MAIN(TestCommandKeys)
#include "tst_commandkeys.moc"
