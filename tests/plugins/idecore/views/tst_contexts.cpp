// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// Which contexts are current.

#include "contexttest.h"
#include "support/messagerecorder.h"

#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMetaMethod>
#include <QTest>

using Core::ViewManager;

class TestContexts final : public ContextTest
{
    Q_OBJECT
private Q_SLOTS:
    void interfaceByName_data();
    void interfaceByName();
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
    void strongFocusSetsThePolicy();
    void withoutStrongFocusThePolicyStays();
    void destroyedFocusWidgetIsGoneAtTheNextChange();
    void destroyedWidgetIsForgotten();
    void destroyedSlotWithoutWidgetDoesNothing();
};

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

QTEST_MAIN(TestContexts)
#include "tst_contexts.moc"
