// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The menus to which several managers add their entries, whole: what one of them
// puts in front of another's shows here. A new entry belongs into the lists below
// at its place; a new separator also into the list of their ids.

#include "support/corefixture.h"
#include "support/documents.h"
#include "support/testpanel.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/core/constants.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QMenu>
#include <QTest>

#include <memory>

using namespace Core::Constants;
using Core::ActionManager;
using Core::ViewManager;

namespace {

/// The ids of @p menu's separators in place of the lines that menuEntries() has for
/// them; the lines of plain separators stay.
QStringList printed(const QMenu *menu)
{
    static const char *const separatorIds[] = {
        SEP_FILE_OPEN_B,  SEP_FILE_SAVE_F,  SEP_FILE_SAVE_B, SEP_FILE_CLOSE_F,  SEP_FILE_CLOSE_B,
        SEP_FILE_PRINT_F, SEP_FILE_PRINT_B, SEP_FILE_EXIT_F, SEP_BEFORE_OPTION, SEP_BEFORE_ABOUT};
    QStringList lines = menuEntries(menu);
    for (const char *id : separatorIds) {
        const int at = menu->actions().indexOf(ActionManager::separator(QString::fromLatin1(id)));
        if (at >= 0)
            lines[at] = QLatin1String("-- ") + QString::fromLatin1(id);
    }
    return lines;
}

QMenu *menuOf(const char *id)
{
    return ActionManager::menu(QString::fromLatin1(id));
}

} // namespace

class TestMenus final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_core = std::make_unique<CoreFixture>(); }
    void cleanup() { m_core.reset(); }

    void wholeFileMenu();
    void wholeWindowMenu();
    void panelsLeaveTheWindowMenuAsItIs();

private:
    std::unique_ptr<CoreFixture> m_core;
};

void TestMenus::wholeFileMenu()
{
    QCOMPARE(printed(menuOf(M_FILE)), texts({
                                          "&New...",
                                          "&Open...",
                                          "-- Core.Sep.File.Open.B",
                                          "-- Core.Sep.File.Save.F",
                                          "&Save",
                                          "Save &As...",
                                          "Save All",
                                          "-- Core.Sep.File.Save.B",
                                          "-- Core.Sep.File.Close.F",
                                          "&Close",
                                          "Close All",
                                          "-- Core.Sep.File.Close.B",
                                          "Close Project",
                                          "-- Core.Sep.File.Print.F",
                                          "&Print...",
                                          "-- Core.Sep.File.Print.B",
                                          "> Recent Files",
                                          "> Recent Projects",
                                          "-- Core.Sep.File.Exit.F",
                                          "&Exit",
                                      }));
}

void TestMenus::wholeWindowMenu()
{
    addTestPanel("panel", Qt::LeftDockWidgetArea);
    showTestView("view");

    Q_EMIT menuOf(M_WINDOW)->aboutToShow();

    QCOMPARE(printed(menuOf(M_WINDOW)), texts({
                                            "[ ] &Full Screen",
                                            "--",
                                            "Tile",
                                            "Cascade",
                                            "--",
                                            "Reset Layout",
                                            "--",
                                            "> Panels",
                                            "--",
                                            "[x] view",
                                        }));
}

void TestMenus::panelsLeaveTheWindowMenuAsItIs()
{
    m_core->show();
    const QStringList before = printed(menuOf(M_WINDOW));

    ViewManager::hidePanel(addTestPanel("first", Qt::LeftDockWidgetArea));
    addTestPanel("second", Qt::BottomDockWidgetArea);

    QCOMPARE(printed(menuOf(M_WINDOW)), before);
    QCOMPARE(printed(panelsMenu()), texts({"[ ] first", "[x] second"}));
}

QTEST_MAIN(TestMenus)
#include "tst_menus.moc"
