// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// When the current contexts are reported, when they are left alone, and what is
// logged.

#include "contexttest.h"
#include "support/messagerecorder.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>

#include <functional>
#include <memory>
#include <utility>

using Core::ActionManager;
using Core::ViewManager;

using MakeWidget = std::function<QWidget *()>;
Q_DECLARE_METATYPE(MakeWidget)

class TestContextReports final : public ContextTest
{
    Q_OBJECT
private Q_SLOTS:
    void nothingIsReportedBeforeInitialize();
    void menuBarKeepsTheContexts();
    void openMenuKeepsTheContexts();
    void toolBarKeepsTheContexts();
    void fieldInAToolBarHasContextsOfItsOwn();
    void commandsStayBoundInMenusAndToolBars_data();
    void commandsStayBoundInMenusAndToolBars();
    void globalContextIsSilentInMenusAndToolBars_data();
    void globalContextIsSilentInMenusAndToolBars();
    void commandsAreBoundBeforeTheReport();
    void commandsFollowTheFocus();
    void contextAddedByACommandThatChangesIsReportedLast();
    void shutdownEndsTheTracking();
    void logLines();
    void destructionIsLogged();
    void destructionIsLoggedAlsoOnceDeregistered();
    void assertions_data();
    void assertions();
    void unknownIsSilentlyIgnored();
};

void TestContextReports::nothingIsReportedBeforeInitialize()
{
    m_core.reset();
    const ViewManager manager;
    record();

    FocusWindow::focus(m_window->inner);

    QCOMPARE(m_changes, QList<QStringList>());
}

void TestContextReports::menuBarKeepsTheContexts()
{
    auto *bar = new QMenuBar(&m_window->window);
    m_window->window.layout()->setMenuBar(bar);
    bar->addMenu(QStringLiteral("&Menu"))->addAction(QStringLiteral("Entry"));
    bar->setNativeMenuBar(false);
    bar->show();
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));
    FocusWindow::focus(m_window->inner);
    m_changes.clear();

    FocusWindow::focus(bar);

    QCOMPARE(m_changes, QList<QStringList>());
}

void TestContextReports::openMenuKeepsTheContexts()
{
    QMenu menu(&m_window->window);
    menu.addAction(QStringLiteral("Entry"));
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));
    FocusWindow::focus(m_window->inner);
    m_changes.clear();

    menu.popup(m_window->window.mapToGlobal(QPoint(5, 5)));
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    menu.setFocus();
    ViewManager::instance()->updateFocusWidget(m_window->inner, &menu);
    const QList<QStringList> changesWhileOpen = m_changes;
    menu.close();

    QCOMPARE(changesWhileOpen, QList<QStringList>());
}

void TestContextReports::toolBarKeepsTheContexts()
{
    auto *bar = new QToolBar;
    bar->setFocusPolicy(Qt::StrongFocus);
    m_window->window.layout()->addWidget(bar);
    bar->addAction(QStringLiteral("Entry"));
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));
    FocusWindow::focus(m_window->inner);
    m_changes.clear();

    FocusWindow::focus(bar);

    QCOMPARE(m_changes, QList<QStringList>());
}

void TestContextReports::fieldInAToolBarHasContextsOfItsOwn()
{
    auto *bar = new QToolBar;
    m_window->window.layout()->addWidget(bar);
    auto *field = new QLineEdit;
    bar->addWidget(field);
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));
    ViewManager::registerContext(bar, QStringLiteral("Bar"));
    FocusWindow::focus(m_window->inner);
    m_changes.clear();

    FocusWindow::focus(field);

    QCOMPARE(m_changes, QList<QStringList>{texts({"Bar", GLOBAL})});
}

void TestContextReports::commandsStayBoundInMenusAndToolBars_data()
{
    QTest::addColumn<MakeWidget>("make");

    QTest::newRow("menu bar") << MakeWidget([] { return new QMenuBar; });
    QTest::newRow("menu") << MakeWidget([] { return new QMenu; });
    QTest::newRow("tool bar") << MakeWidget([] { return new QToolBar; });
}

void TestContextReports::commandsStayBoundInMenusAndToolBars()
{
    QFETCH(MakeWidget, make);
    const std::unique_ptr<QWidget> bar(make());
    const Core::IAction *proxy = ActionManager::registerAction(
        new QAction, QStringLiteral("Test.Action"), QStringLiteral("A"));
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));
    FocusWindow::focus(m_window->inner);
    QVERIFY(proxy->isEnabled());

    ViewManager::instance()->updateFocusWidget(m_window->inner, bar.get());

    QVERIFY(proxy->isEnabled());
}

void TestContextReports::globalContextIsSilentInMenusAndToolBars_data()
{
    commandsStayBoundInMenusAndToolBars_data();
}

void TestContextReports::globalContextIsSilentInMenusAndToolBars()
{
    QFETCH(MakeWidget, make);
    const std::unique_ptr<QWidget> bar(make());
    bar->setParent(&m_window->window);
    bar->show();
    FocusWindow::focus(bar.get());
    m_changes.clear();

    ViewManager::addGlobalContext(QStringLiteral("X"));
    ViewManager::removeGlobalContext(QStringLiteral("X"));

    QCOMPARE(m_changes, QList<QStringList>());
}

void TestContextReports::commandsAreBoundBeforeTheReport()
{
    auto *action = new QAction(QStringLiteral("Do"));
    const Core::IAction *proxy =
        ActionManager::registerAction(action, QStringLiteral("Test.Action"), QStringLiteral("X"));
    bool enabledWhenTold = false;
    connect(ViewManager::instance(), &ViewManager::contextsChanged, this,
            [&enabledWhenTold, proxy] { enabledWhenTold = proxy->isEnabled(); });

    ViewManager::addGlobalContext(QStringLiteral("X"));

    QVERIFY(enabledWhenTold);
}

void TestContextReports::commandsFollowTheFocus()
{
    auto *inPanel = new QAction;
    auto *elsewhere = new QAction;
    elsewhere->setEnabled(false);
    ActionManager::registerAction(elsewhere, QStringLiteral("Test.Action"));
    const Core::IAction *proxy = ActionManager::registerAction(
        inPanel, QStringLiteral("Test.Action"), QStringLiteral("Panel"));
    ViewManager::registerContext(m_window->panel, QStringLiteral("Panel"));

    FocusWindow::focus(m_window->inner);
    const bool inside = proxy->isEnabled();
    FocusWindow::focus(m_window->other);

    QVERIFY(inside);
    QVERIFY(!proxy->isEnabled());
}

void TestContextReports::contextAddedByACommandThatChangesIsReportedLast()
{
    const Core::IAction *proxy = ActionManager::registerAction(
        new QAction, QStringLiteral("Test.Action"), QStringLiteral("X"));
    auto added = std::make_shared<bool>(false);
    connect(proxy, &QAction::changed, this, [added] {
        if (!std::exchange(*added, true))
            ViewManager::addGlobalContext(QStringLiteral("Y"));
    });

    ViewManager::addGlobalContext(QStringLiteral("X"));

    QVERIFY(*added);
    QCOMPARE(m_changes.size(), 2);
    QCOMPARE(m_changes.constLast(), texts({"Y", "X", GLOBAL}));
}

void TestContextReports::shutdownEndsTheTracking()
{
    ViewManager::instance()->shutdown();

    FocusWindow::focus(m_window->inner);

    QCOMPARE(m_changes, QList<QStringList>());
}

void TestContextReports::logLines()
{
    QWidget widget;
    const QString name = logged(&widget);
    MessageRecorder log;

    ViewManager::registerContext(&widget, QStringLiteral("A"));
    ViewManager::deregisterContext(&widget, QStringLiteral("A"));
    ViewManager::deregisterContext(&widget);
    ViewManager::addGlobalContext(QStringLiteral("X"));
    ViewManager::removeGlobalContext(QStringLiteral("X"));

    QCOMPARE(log.lines(QtDebugMsg),
             (QStringList{QStringLiteral("register context: %1 \"A\"").arg(name),
                          QStringLiteral("deregister context: %1 \"A\"").arg(name),
                          QStringLiteral("deregister all context: %1").arg(name),
                          QStringLiteral("add global context: \"X\""),
                          QStringLiteral("remove global context: \"X\"")}));
    for (const MessageRecorder::Message &message : log.messages())
        QCOMPARE(message.category, QStringLiteral("default"));
    QVERIFY(log.lines(QtCriticalMsg).isEmpty());
}

void TestContextReports::destructionIsLogged()
{
    auto *widget = new QWidget;
    const QString name = logged(widget);
    ViewManager::registerContext(widget, QStringLiteral("A"));
    ViewManager::registerContext(widget, QStringLiteral("B"));
    MessageRecorder log;

    delete widget;

    // Once for every registration.
    const QString line = QStringLiteral("deregister all context: ") + name;
    QCOMPARE(log.lines(QtDebugMsg), (QStringList{line, line}));
}

void TestContextReports::destructionIsLoggedAlsoOnceDeregistered()
{
    auto *widget = new QWidget;
    const QString name = logged(widget);
    ViewManager::registerContext(widget, QStringLiteral("A"));
    ViewManager::deregisterContext(widget);
    MessageRecorder log;

    delete widget;

    QCOMPARE(log.lines(QtDebugMsg), QStringList{QStringLiteral("deregister all context: ") + name});
}

void TestContextReports::assertions_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("expression");

    QTest::newRow("register null") << "register null"
                                   << "widget";
    QTest::newRow("register empty") << "register empty"
                                    << "!context.isEmpty()";
    QTest::newRow("register null and empty") << "register both"
                                             << "widget";
    QTest::newRow("deregister null") << "deregister null"
                                     << "widget";
    QTest::newRow("deregister empty") << "deregister empty"
                                      << "!context.isEmpty()";
    QTest::newRow("deregister all of null") << "deregister all null"
                                            << "widget";
    QTest::newRow("add empty") << "add empty"
                               << "!context.isEmpty()";
    QTest::newRow("remove empty") << "remove empty"
                                  << "!context.isEmpty()";
}

void TestContextReports::assertions()
{
    QFETCH(QString, operation);
    QFETCH(QString, expression);
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));
    ViewManager::addGlobalContext(QStringLiteral("X"));
    m_changes.clear();
    MessageRecorder log;

    if (operation == QLatin1String("register null"))
        ViewManager::registerContext(nullptr, QStringLiteral("A"), true);
    else if (operation == QLatin1String("register empty"))
        ViewManager::registerContext(m_window->inner, QString(), true);
    else if (operation == QLatin1String("register both"))
        ViewManager::registerContext(nullptr, QString());
    else if (operation == QLatin1String("deregister null"))
        ViewManager::deregisterContext(nullptr, QStringLiteral("A"));
    else if (operation == QLatin1String("deregister empty"))
        ViewManager::deregisterContext(m_window->inner, QString());
    else if (operation == QLatin1String("deregister all null"))
        ViewManager::deregisterContext(nullptr);
    else if (operation == QLatin1String("add empty"))
        ViewManager::addGlobalContext(QString());
    else if (operation == QLatin1String("remove empty"))
        ViewManager::removeGlobalContext(QString());

    QVERIFY(log.isOneAssertion(expression));
    QCOMPARE(log.messages().size(), 1);
    QCOMPARE(m_changes, QList<QStringList>());
    FocusWindow::focus(m_window->inner);
    QCOMPARE(m_changes, QList<QStringList>{texts({"A", "X", GLOBAL})});
}

void TestContextReports::unknownIsSilentlyIgnored()
{
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));
    MessageRecorder log;

    ViewManager::deregisterContext(m_window->inner, QStringLiteral("never registered"));
    ViewManager::deregisterContext(m_window->other, QStringLiteral("A"));
    ViewManager::deregisterContext(m_window->other);

    QVERIFY(log.lines(QtCriticalMsg).isEmpty());
    QVERIFY(log.lines(QtWarningMsg).isEmpty());
    QCOMPARE(m_changes, QList<QStringList>());
    FocusWindow::focus(m_window->inner);
    QCOMPARE(m_changes, QList<QStringList>{texts({"A", GLOBAL})});
}

QTEST_MAIN(TestContextReports)
#include "tst_contextreports.moc"
