// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Panels in windows of their own, on a display where windows cover one another.

#include "support/corefixture.h"
#include "support/testpanel.h"

#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QDockWidget>
#include <QTest>

#include <memory>

using Core::ViewManager;

using Call = void (*)(TestPanel *);
Q_DECLARE_METATYPE(Call)

class TestFloatingPanels final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void coveredPanelComesToTheFront_data();
    void coveredPanelComesToTheFront();

private:
    /// A panel that floats at a place of the screen, in front of all others.
    static TestPanel *addFloating(const char *name, const QRect &place);

    std::unique_ptr<CoreFixture> m_core;
};

void TestFloatingPanels::init()
{
    m_core = std::make_unique<CoreFixture>();
    m_core->show();
}

void TestFloatingPanels::cleanup()
{
    m_core.reset();
}

TestPanel *TestFloatingPanels::addFloating(const char *name, const QRect &place)
{
    // Areas of their own: adding lays an area out, and ends the floating there.
    const auto area = docks().isEmpty() ? Qt::LeftDockWidgetArea : Qt::RightDockWidgetArea;
    TestPanel *panel = addTestPanel(name, area);
    QDockWidget *dock = dockOf(panel);
    dock->setFloating(true);
    dock->setGeometry(place);
    dock->raise();
    return panel;
}

void TestFloatingPanels::coveredPanelComesToTheFront_data()
{
    QTest::addColumn<Call>("call");
    QTest::newRow("shown") << Call([](TestPanel *panel) { ViewManager::showPanel(panel); });
    QTest::newRow("shown by name")
        << Call([](TestPanel *panel) { ViewManager::showPanel(panel->name()); });
    QTest::newRow("added again") << Call([](TestPanel *panel) { ViewManager::addPanel(panel); });
}

void TestFloatingPanels::coveredPanelComesToTheFront()
{
    QFETCH(const Call, call);
    const QRect place(300, 300, 240, 180);
    TestPanel *panel = addFloating("covered", place);
    const TestPanel *other = addFloating("covering", place);
    QTRY_COMPARE(QApplication::topLevelAt(place.center()), dockOf(other));

    call(panel);

    QTRY_COMPARE(QApplication::topLevelAt(place.center()), dockOf(panel));
}

QTEST_MAIN(TestFloatingPanels)
#include "tst_floatingpanels.moc"
