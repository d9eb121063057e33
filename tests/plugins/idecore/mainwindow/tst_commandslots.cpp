// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QMenu>
#include <QTest>
#include <QToolBar>

using namespace Core;

namespace {
QStringList s_called;
}

// Stand in for the main window's own: what a command calls is looked at here, not
// what comes of it.

void IdeMainWindow::onNewFiles()
{
    s_called.append(QStringLiteral("onNewFiles"));
}

void IdeMainWindow::onOpenFiles()
{
    s_called.append(QStringLiteral("onOpenFiles"));
}

void IdeMainWindow::onShowOptionDialog()
{
    s_called.append(QStringLiteral("onShowOptionDialog"));
}

void IdeMainWindow::onOpenKelmoHelp()
{
    s_called.append(QStringLiteral("onOpenKelmoHelp"));
}

void IdeMainWindow::onContactUs()
{
    s_called.append(QStringLiteral("onContactUs"));
}

void IdeMainWindow::onAboutIde()
{
    s_called.append(QStringLiteral("onAboutIde"));
}

class TestCommandSlots final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_core = std::make_unique<CoreFixture>();
        ViewManager::mainWindow()->prepareToShow();
        QVERIFY(QTest::qWaitForWindowActive(ViewManager::mainWindow()));
        s_called.clear();
    }

    void cleanup() { m_core.reset(); }

    void everyMenuEntryCallsItsSlotOnce_data()
    {
        QTest::addColumn<QString>("menuId");
        QTest::addColumn<QString>("called");
        const auto row = [](const char *title, const char *menuId, const char *called) {
            QTest::newRow(title) << QString::fromLatin1(menuId) << QString::fromLatin1(called);
        };
        row("&New...", "Core.Menu.File", "onNewFiles");
        row("&Open...", "Core.Menu.File", "onOpenFiles");
        row("&Options...", "Core.Menu.Tool", "onShowOptionDialog");
        row("View Help", "Core.Menu.Help", "onOpenKelmoHelp");
        row("Contact Us", "Core.Menu.Help", "onContactUs");
        row("About...", "Core.Menu.Help", "onAboutIde");
    }

    void everyMenuEntryCallsItsSlotOnce()
    {
        QFETCH(const QString, menuId);
        QFETCH(const QString, called);
        const QList<QAction *> entries = ActionManager::menu(menuId)->actions();
        for (QAction *entry : entries) {
            if (entry->text() == QLatin1String(QTest::currentDataTag()))
                entry->trigger();
        }
        QCOMPARE(s_called, QStringList{called});
    }

    void everyKeyCallsItsSlotOnce_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("called");
        QTest::newRow("new") << int(Qt::Key_N) << QStringLiteral("onNewFiles");
        QTest::newRow("open") << int(Qt::Key_O) << QStringLiteral("onOpenFiles");
    }

    void everyKeyCallsItsSlotOnce()
    {
        QFETCH(const int, key);
        QFETCH(const QString, called);
        QTest::keyClick(ViewManager::mainWindow(), Qt::Key(key), Qt::ControlModifier);
        QCOMPARE(s_called, QStringList{called});
    }

    void everyToolButtonCallsItsSlotOnce_data()
    {
        QTest::addColumn<QString>("called");
        QTest::newRow("Core.Action.New") << QStringLiteral("onNewFiles");
        QTest::newRow("Core.Action.Open") << QStringLiteral("onOpenFiles");
    }

    void everyToolButtonCallsItsSlotOnce()
    {
        QFETCH(const QString, called);
        const QToolBar *bar = ActionManager::toolBar(QStringLiteral("Core.Toolbar.File"));
        QWidget *button = bar->widgetForAction(
            ActionManager::action(QString::fromLatin1(QTest::currentDataTag())));
        QVERIFY(button);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(s_called, QStringList{called});
    }

    void theActionOfAPluginIsCalledInstead_data() { everyToolButtonCallsItsSlotOnce_data(); }

    void theActionOfAPluginIsCalledInstead()
    {
        const QString id = QString::fromLatin1(QTest::currentDataTag());
        auto *own = new QAction;
        connect(own, &QAction::triggered, this, [] { s_called.append(QStringLiteral("own")); });
        ActionManager::registerAction(own, id, QStringLiteral("Test.Context"));
        ViewManager::addGlobalContext(QStringLiteral("Test.Context"));
        ActionManager::action(id)->trigger();
        QCOMPARE(s_called, QStringList{QStringLiteral("own")});
    }

private:
    std::unique_ptr<CoreFixture> m_core;
};

QTEST_MAIN(TestCommandSlots)
#include "tst_commandslots.moc"
