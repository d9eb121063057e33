// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/messagerecorder.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMetaMethod>
#include <QTest>
#include <QToolBar>
#include <QVBoxLayout>

#include <functional>
#include <memory>
#include <utility>

using Core::ActionManager;
using Core::ViewManager;

using MakeWidget = std::function<QWidget *()>;
Q_DECLARE_METATYPE(MakeWidget)

namespace {

const char GLOBAL[] = "Core.Context.Global";

/// A window with two editing fields: "inner" within a panel, and "other".
class FocusWindow final
{
public:
    FocusWindow()
    {
        auto *layout = new QVBoxLayout(&window);
        panel = new QWidget;
        auto *panelLayout = new QVBoxLayout(panel);
        inner = new QLineEdit;
        panelLayout->addWidget(inner);
        other = new QLineEdit;
        layout->addWidget(panel);
        layout->addWidget(other);
        window.show();
        if (!QTest::qWaitForWindowExposed(&window))
            QTest::qFail("the window was not exposed", __FILE__, __LINE__);
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            QTest::qFail("the window did not become active", __FILE__, __LINE__);
        focus(other);
    }

    static void focus(QWidget *widget)
    {
        widget->setFocus();
        if (!QTest::qWaitFor([widget] { return QApplication::focusWidget() == widget; }))
            QTest::qFail("the focus did not move", __FILE__, __LINE__);
    }

    QWidget window;
    QWidget *panel = nullptr;
    QLineEdit *inner = nullptr;
    QLineEdit *other = nullptr;
};

} // namespace

class TestContexts final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void interfaceByName_data();
    void interfaceByName();
    void nothingIsReportedBeforeInitialize();
    void withoutFocusOnlyGlobalIsCurrent();
    void focusBringsTheContextsNewestFirst();
    void registeringWaitsForTheNextFocusChange();
    void registeringTakesEffectWithAGlobalContext();
    void registeringTwiceShowsOnce();
    void deregisteringRemovesEveryOccurrence();
    void deregisteringAContextIsEffectiveWithTheNextFocus();
    void deregisteringTheWidgetRemovesAll();
    void deregisteredWidgetMayBeRegisteredAgain();
    void emptiedEntryHidesTheAncestors();
    void forgottenEntryShowsTheAncestors();
    void nearestRegisteredAncestorAloneCounts();
    void dialogHasTheContextsOfItsParent();
    void unregisteredFocusGivesTheGlobals();
    void globalContextsAreNewestFirst();
    void addingAGlobalContextAgainReportsTheSameList();
    void removingAGlobalContextReports();
    void removingAnUnknownGlobalContextReports();
    void globalContextsCompareCaseSensitively();
    void widgetAndGlobalContextStandsTwice();
    void globalIdAddedAsGlobalStandsTwice();
    void menuBarKeepsTheContexts();
    void openMenuKeepsTheContexts();
    void toolBarKeepsTheContexts();
    void fieldInAToolBarHasContextsOfItsOwn();
    void commandsStayBoundInMenusAndToolBars_data();
    void commandsStayBoundInMenusAndToolBars();
    void globalContextIsSilentInMenusAndToolBars_data();
    void globalContextIsSilentInMenusAndToolBars();
    void strongFocusSetsThePolicy();
    void withoutStrongFocusThePolicyStays();
    void commandsAreBoundBeforeTheReport();
    void commandsFollowTheFocus();
    void contextAddedByACommandThatChangesIsReportedLast();
    void destroyedFocusWidgetIsGoneAtTheNextChange();
    void destroyedWidgetIsForgotten();
    void destroyedSlotWithoutWidgetDoesNothing();
    void shutdownEndsTheTracking();
    void logLines();
    void destructionIsLogged();
    void destructionIsLoggedAlsoOnceDeregistered();
    void assertions_data();
    void assertions();
    void unknownIsSilentlyIgnored();

private:
    std::unique_ptr<CoreFixture> m_core;
    std::unique_ptr<FocusWindow> m_window;
    QList<QStringList> m_changes;
};

void TestContexts::init()
{
    m_core = std::make_unique<CoreFixture>();
    m_window = std::make_unique<FocusWindow>();
    connect(ViewManager::instance(), &ViewManager::contextsChanged, this,
            [this](const Core::ContextList &contexts) { m_changes.append(contexts); });
    m_changes.clear();
}

void TestContexts::cleanup()
{
    m_core.reset();
    m_window.reset();
}

void TestContexts::interfaceByName_data()
{
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<int>("type");

    const auto row = [](const char *signature, QMetaMethod::MethodType type) {
        QTest::newRow(signature) << QByteArray(signature) << int(type);
    };
    row("contextsChanged(Core::ContextList)", QMetaMethod::Signal);
    row("updateFocusWidget(QWidget*,QWidget*)", QMetaMethod::Slot);
    row("onRegistedWidgetDelete()", QMetaMethod::Slot);
}

void TestContexts::interfaceByName()
{
    QFETCH(QByteArray, signature);
    QFETCH(int, type);
    const QMetaObject &meta = ViewManager::staticMetaObject;

    const int index = meta.indexOfMethod(signature);

    QVERIFY(index >= 0);
    QCOMPARE(int(meta.method(index).methodType()), type);
}

void TestContexts::nothingIsReportedBeforeInitialize()
{
    m_core.reset();
    const ViewManager manager;
    connect(&manager, &ViewManager::contextsChanged, this,
            [this](const Core::ContextList &contexts) { m_changes.append(contexts); });
    m_changes.clear();

    FocusWindow::focus(m_window->inner);

    QCOMPARE(m_changes, QList<QStringList>());
}

void TestContexts::withoutFocusOnlyGlobalIsCurrent()
{
    ViewManager::instance()->updateFocusWidget(nullptr, nullptr);

    QCOMPARE(m_changes, QList<QStringList>{texts({GLOBAL})});
}

void TestContexts::focusBringsTheContextsNewestFirst()
{
    ViewManager::registerContext(m_window->panel, QStringLiteral("Old"));
    ViewManager::registerContext(m_window->panel, QStringLiteral("New"));
    ViewManager::addGlobalContext(QStringLiteral("X"));
    m_changes.clear();

    FocusWindow::focus(m_window->inner);

    QCOMPARE(m_changes, QList<QStringList>{texts({"New", "Old", "X", GLOBAL})});
}

void TestContexts::registeringWaitsForTheNextFocusChange()
{
    ViewManager::registerContext(m_window->other, QStringLiteral("A"));
    QCOMPARE(m_changes, QList<QStringList>());

    FocusWindow::focus(m_window->inner);
    FocusWindow::focus(m_window->other);

    QCOMPARE(m_changes, (QList<QStringList>{texts({GLOBAL}), texts({"A", GLOBAL})}));
}

void TestContexts::registeringTakesEffectWithAGlobalContext()
{
    ViewManager::registerContext(m_window->other, QStringLiteral("A"));

    ViewManager::addGlobalContext(QStringLiteral("X"));

    QCOMPARE(m_changes, QList<QStringList>{texts({"A", "X", GLOBAL})});
}

void TestContexts::registeringTwiceShowsOnce()
{
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));
    ViewManager::registerContext(m_window->inner, QStringLiteral("B"));
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));

    FocusWindow::focus(m_window->inner);

    QCOMPARE(m_changes, QList<QStringList>{texts({"A", "B", GLOBAL})});
}

void TestContexts::deregisteringRemovesEveryOccurrence()
{
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));
    ViewManager::registerContext(m_window->inner, QStringLiteral("B"));
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));

    ViewManager::deregisterContext(m_window->inner, QStringLiteral("A"));

    FocusWindow::focus(m_window->inner);
    QCOMPARE(m_changes, QList<QStringList>{texts({"B", GLOBAL})});
}

void TestContexts::deregisteringAContextIsEffectiveWithTheNextFocus()
{
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));
    FocusWindow::focus(m_window->inner);
    m_changes.clear();

    ViewManager::deregisterContext(m_window->inner, QStringLiteral("A"));
    ViewManager::deregisterContext(m_window->inner);
    QCOMPARE(m_changes, QList<QStringList>());

    FocusWindow::focus(m_window->other);
    QCOMPARE(m_changes, QList<QStringList>{texts({GLOBAL})});
}

void TestContexts::deregisteringTheWidgetRemovesAll()
{
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));
    ViewManager::registerContext(m_window->inner, QStringLiteral("B"));

    ViewManager::deregisterContext(m_window->inner);

    FocusWindow::focus(m_window->inner);
    QCOMPARE(m_changes, QList<QStringList>{texts({GLOBAL})});
}

void TestContexts::deregisteredWidgetMayBeRegisteredAgain()
{
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));
    ViewManager::deregisterContext(m_window->inner);

    ViewManager::registerContext(m_window->inner, QStringLiteral("B"));

    FocusWindow::focus(m_window->inner);
    QCOMPARE(m_changes, QList<QStringList>{texts({"B", GLOBAL})});
}

void TestContexts::emptiedEntryHidesTheAncestors()
{
    ViewManager::registerContext(m_window->panel, QStringLiteral("Panel"));
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));

    ViewManager::deregisterContext(m_window->inner, QStringLiteral("A"));

    FocusWindow::focus(m_window->inner);
    QCOMPARE(m_changes, QList<QStringList>{texts({GLOBAL})});
}

void TestContexts::forgottenEntryShowsTheAncestors()
{
    ViewManager::registerContext(m_window->panel, QStringLiteral("Panel"));
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));

    ViewManager::deregisterContext(m_window->inner);

    FocusWindow::focus(m_window->inner);
    QCOMPARE(m_changes, QList<QStringList>{texts({"Panel", GLOBAL})});
}

void TestContexts::nearestRegisteredAncestorAloneCounts()
{
    ViewManager::registerContext(&m_window->window, QStringLiteral("B"));
    ViewManager::registerContext(m_window->panel, QStringLiteral("A"));
    ViewManager::addGlobalContext(QStringLiteral("X"));
    m_changes.clear();

    FocusWindow::focus(m_window->inner);

    QCOMPARE(m_changes, QList<QStringList>{texts({"A", "X", GLOBAL})});
}

void TestContexts::dialogHasTheContextsOfItsParent()
{
    ViewManager::registerContext(m_window->panel, QStringLiteral("A"));
    QDialog dialog(m_window->panel);
    auto *field = new QLineEdit(&dialog);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    m_changes.clear();

    ViewManager::instance()->updateFocusWidget(nullptr, field);

    QCOMPARE(m_changes, QList<QStringList>{texts({"A", GLOBAL})});
}

void TestContexts::unregisteredFocusGivesTheGlobals()
{
    ViewManager::registerContext(m_window->panel, QStringLiteral("A"));
    ViewManager::addGlobalContext(QStringLiteral("X"));
    FocusWindow::focus(m_window->inner);
    m_changes.clear();

    FocusWindow::focus(m_window->other);

    QCOMPARE(m_changes, QList<QStringList>{texts({"X", GLOBAL})});
}

void TestContexts::globalContextsAreNewestFirst()
{
    ViewManager::addGlobalContext(QStringLiteral("Old"));

    ViewManager::addGlobalContext(QStringLiteral("New"));

    QCOMPARE(m_changes,
             (QList<QStringList>{texts({"Old", GLOBAL}), texts({"New", "Old", GLOBAL})}));
}

void TestContexts::addingAGlobalContextAgainReportsTheSameList()
{
    ViewManager::addGlobalContext(QStringLiteral("A"));
    ViewManager::addGlobalContext(QStringLiteral("B"));
    m_changes.clear();

    ViewManager::addGlobalContext(QStringLiteral("A"));

    QCOMPARE(m_changes, QList<QStringList>{texts({"B", "A", GLOBAL})});
}

void TestContexts::removingAGlobalContextReports()
{
    ViewManager::addGlobalContext(QStringLiteral("A"));
    ViewManager::addGlobalContext(QStringLiteral("B"));
    m_changes.clear();

    ViewManager::removeGlobalContext(QStringLiteral("A"));

    QCOMPARE(m_changes, QList<QStringList>{texts({"B", GLOBAL})});
}

void TestContexts::removingAnUnknownGlobalContextReports()
{
    ViewManager::removeGlobalContext(QStringLiteral("never added"));

    QCOMPARE(m_changes, QList<QStringList>{texts({GLOBAL})});
}

void TestContexts::globalContextsCompareCaseSensitively()
{
    ViewManager::addGlobalContext(QStringLiteral("a"));
    ViewManager::addGlobalContext(QStringLiteral("A"));
    m_changes.clear();

    ViewManager::removeGlobalContext(QStringLiteral("a"));

    QCOMPARE(m_changes, QList<QStringList>{texts({"A", GLOBAL})});
}

void TestContexts::widgetAndGlobalContextStandsTwice()
{
    ViewManager::registerContext(m_window->other, QStringLiteral("A"));

    ViewManager::addGlobalContext(QStringLiteral("A"));

    QCOMPARE(m_changes, QList<QStringList>{texts({"A", "A", GLOBAL})});
}

void TestContexts::globalIdAddedAsGlobalStandsTwice()
{
    ViewManager::addGlobalContext(QString::fromLatin1(GLOBAL));

    QCOMPARE(m_changes, QList<QStringList>{texts({GLOBAL, GLOBAL})});
}

void TestContexts::menuBarKeepsTheContexts()
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

void TestContexts::openMenuKeepsTheContexts()
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

void TestContexts::toolBarKeepsTheContexts()
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

void TestContexts::fieldInAToolBarHasContextsOfItsOwn()
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

void TestContexts::commandsStayBoundInMenusAndToolBars_data()
{
    QTest::addColumn<MakeWidget>("make");

    QTest::newRow("menu bar") << MakeWidget([] { return new QMenuBar; });
    QTest::newRow("menu") << MakeWidget([] { return new QMenu; });
    QTest::newRow("tool bar") << MakeWidget([] { return new QToolBar; });
}

void TestContexts::commandsStayBoundInMenusAndToolBars()
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

void TestContexts::globalContextIsSilentInMenusAndToolBars_data()
{
    commandsStayBoundInMenusAndToolBars_data();
}

void TestContexts::globalContextIsSilentInMenusAndToolBars()
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

void TestContexts::strongFocusSetsThePolicy()
{
    QWidget widget;

    ViewManager::registerContext(&widget, QStringLiteral("A"), true);

    QCOMPARE(widget.focusPolicy(), Qt::StrongFocus);
}

void TestContexts::withoutStrongFocusThePolicyStays()
{
    QWidget widget;
    widget.setFocusPolicy(Qt::ClickFocus);

    ViewManager::registerContext(&widget, QStringLiteral("A"), false);
    ViewManager::registerContext(&widget, QStringLiteral("B"));

    QCOMPARE(widget.focusPolicy(), Qt::ClickFocus);
}

void TestContexts::commandsAreBoundBeforeTheReport()
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

void TestContexts::commandsFollowTheFocus()
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

void TestContexts::contextAddedByACommandThatChangesIsReportedLast()
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

void TestContexts::destroyedFocusWidgetIsGoneAtTheNextChange()
{
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));
    FocusWindow::focus(m_window->inner);

    delete m_window->inner;
    m_changes.clear();
    FocusWindow::focus(m_window->other);
    ViewManager::instance()->updateFocusWidget(nullptr, QApplication::focusWidget());

    QVERIFY(!m_changes.isEmpty());
    QCOMPARE(m_changes.constLast(), texts({GLOBAL}));
}

void TestContexts::destroyedWidgetIsForgotten()
{
    // At the same address, an entry left behind would be found.
    alignas(QWidget) unsigned char place[sizeof(QWidget)];
    auto *widget = new (place) QWidget;
    ViewManager::registerContext(widget, QStringLiteral("A"));
    widget->~QWidget();
    widget = new (place) QWidget;

    ViewManager::instance()->updateFocusWidget(nullptr, widget);
    widget->~QWidget();

    QCOMPARE(m_changes, QList<QStringList>{texts({GLOBAL})});
}

void TestContexts::destroyedSlotWithoutWidgetDoesNothing()
{
    ViewManager::registerContext(m_window->inner, QStringLiteral("A"));
    QObject noWidget;
    connect(&noWidget, &QObject::objectNameChanged, ViewManager::instance(),
            &ViewManager::onRegistedWidgetDelete);
    MessageRecorder log;

    ViewManager::instance()->onRegistedWidgetDelete();
    noWidget.setObjectName(QStringLiteral("changed"));

    QVERIFY(log.messages().isEmpty());
    FocusWindow::focus(m_window->inner);
    QCOMPARE(m_changes, QList<QStringList>{texts({"A", GLOBAL})});
}

void TestContexts::shutdownEndsTheTracking()
{
    ViewManager::instance()->shutdown();

    FocusWindow::focus(m_window->inner);

    QCOMPARE(m_changes, QList<QStringList>());
}

void TestContexts::logLines()
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

void TestContexts::destructionIsLogged()
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

void TestContexts::destructionIsLoggedAlsoOnceDeregistered()
{
    auto *widget = new QWidget;
    const QString name = logged(widget);
    ViewManager::registerContext(widget, QStringLiteral("A"));
    ViewManager::deregisterContext(widget);
    MessageRecorder log;

    delete widget;

    QCOMPARE(log.lines(QtDebugMsg), QStringList{QStringLiteral("deregister all context: ") + name});
}

void TestContexts::assertions_data()
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

void TestContexts::assertions()
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

void TestContexts::unknownIsSilentlyIgnored()
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

QTEST_MAIN(TestContexts)
#include "tst_contexts.moc"
