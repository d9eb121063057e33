// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <idecore/interfaces/iview.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>
#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QIcon>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>

#include <memory>
#include <utility>

using namespace Core;

namespace {

struct Command
{
    const char *id;
    const char *text;
    const char *toolTip;
    const char *icon;
    QKeySequence shortcut;
    bool placeholder;
};

/// In the order of creation.
const QVector<Command> &commands()
{
    static const QVector<Command> table = {
        {"Core.Action.New", "&New...", "New File or Project", "new.png", QKeySequence::New, false},
        {"Core.Action.Open", "&Open...", "Open File or Project", "open.png", QKeySequence::Open,
         false},
        {"Core.Action.Save", "&Save", "Save", "save.png", QKeySequence::Save, true},
        {"Core.Action.SaveAs", "Save &As...", "Save As", "save_as.png", {}, true},
        {"Core.Action.SaveAll", "Save All", "Save All", "save_all.png",
         QKeySequence(QStringLiteral("Ctrl+Shift+S")), true},
        {"Core.Action.Print", "&Print...", "Print", "print.png", QKeySequence::Print, true},
        {"Core.Action.Undo", "&Undo", "Undo", "undo.png", QKeySequence::Undo, true},
        {"Core.Action.Redo", "&Redo", "Redo", "redo.png", QKeySequence(QStringLiteral("Ctrl+Y")),
         true},
        {"Core.Action.Cut", "Cu&t", "Cut", "cut.png", QKeySequence::Cut, true},
        {"Core.Action.Copy", "&Copy", "Copy", "copy.png", QKeySequence::Copy, true},
        {"Core.Action.Paste", "&Paste", "Paste", "paste.png", QKeySequence::Paste, true},
        {"Core.Action.SelectAll", "Select &All", "Select All", nullptr, QKeySequence::SelectAll,
         true},
        {"Core.Action.Find", "&Find && Replace", "Find & Replace", "find.png", QKeySequence::Find,
         true},
    };
    return table;
}

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

QIcon icon(const char *file)
{
    return QIcon(QLatin1String(":/core/image/") + text(file));
}

QImage imageOf(const QIcon &icon)
{
    return icon.pixmap(24, 24).toImage();
}

IAction *proxy(const char *id)
{
    return ActionManager::action(text(id));
}

QMenu *menu(const char *id)
{
    return ActionManager::menu(text(id));
}

QAction *entry(const char *menuId, const char *title)
{
    const QList<QAction *> actions = menu(menuId)->actions();
    for (QAction *action : actions) {
        if (action->text() == text(title))
            return action;
    }
    return nullptr;
}

/// The entries of a menu or tool bar: the id of a command or separator, the
/// text of a plain entry, "-" for a plain separator.
QStringList entries(const QWidget *container)
{
    static const QStringList separatorIds = {
        QStringLiteral("Core.Sep.File.Open.B"),  QStringLiteral("Core.Sep.File.Save.F"),
        QStringLiteral("Core.Sep.File.Save.B"),  QStringLiteral("Core.Sep.File.Close.F"),
        QStringLiteral("Core.Sep.File.Close.B"), QStringLiteral("Core.Sep.File.Print.F"),
        QStringLiteral("Core.Sep.File.Print.B"), QStringLiteral("Core.Sep.File.Exit.F"),
        QStringLiteral("Core.Sep.BeforeOption"), QStringLiteral("Core.Sep.BeforeAbout")};
    QStringList names;
    const QList<QAction *> actions = container->actions();
    for (QAction *action : actions) {
        QString name;
        if (const auto *command = qobject_cast<IAction *>(action)) {
            name = command->id();
        } else if (action->isSeparator()) {
            name = QStringLiteral("-");
            for (const QString &id : separatorIds) {
                if (ActionManager::separator(id) == action)
                    name = id;
            }
        } else {
            name = action->text();
        }
        names.append(name);
    }
    return names;
}

} // namespace

class TestStandardCommands final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_core = std::make_unique<CoreFixture>(); }
    void cleanup() { m_core.reset(); }

    void theMenuBarIsTheRegisteredOneWithItsMenusInOrder()
    {
        QMenuBar *bar = ActionManager::menuBar(QStringLiteral("Core.MenuBar"));
        QVERIFY(bar);
        QCOMPARE(ViewManager::mainWindow()->menuBar(), bar);
        QStringList ids;
        QStringList titles;
        const QList<QAction *> actions = bar->actions();
        for (const QAction *action : actions) {
            ids.append(action->menu()->objectName());
            titles.append(action->text());
        }
        QCOMPARE(ids, texts({"Core.Menu.File", "Core.Menu.Edit", "Core.Menu.Tool",
                             "Core.Menu.Window", "Core.Menu.Help"}));
        QCOMPARE(titles, texts({"&File", "&Edit", "&Tools", "&Window", "&Help"}));
    }

    void commandsShowTheirTextsIconsAndKeys_data()
    {
        QTest::addColumn<int>("row");
        for (int row = 0; row < commands().size(); ++row)
            QTest::newRow(commands().at(row).id) << row;
    }

    void commandsShowTheirTextsIconsAndKeys()
    {
        QFETCH(int, row);
        const Command &command = commands().at(row);
        const IAction *action = proxy(command.id);
        QVERIFY(action);
        QCOMPARE(action->text(), text(command.text));
        QCOMPARE(action->toolTip(),
                 private_impl::formatToolTip(text(command.toolTip), command.shortcut));
        QCOMPARE(action->shortcut(), command.shortcut);
        QCOMPARE(action->shortcutContext(), Qt::ApplicationShortcut);
        QVERIFY(!action->isEnabled());
        if (command.icon) {
            QVERIFY(!imageOf(icon(command.icon)).isNull());
            QCOMPARE(imageOf(action->icon()), imageOf(icon(command.icon)));
        } else {
            QVERIFY(action->icon().isNull());
        }
    }

    void onlySaveAndSaveAsFollowTheTextOfTheirAction()
    {
        for (const Command &command : commands()) {
            const QString id = text(command.id);
            const bool follows = id == QLatin1String("Core.Action.Save")
                                 || id == QLatin1String("Core.Action.SaveAs");
            QVERIFY2(ActionManager::action(id)->isTextUpdated() == follows, command.id);
        }
    }

    void placeholdersStayDisabledAndNewAndOpenWorkInTheGlobalContext()
    {
        ActionManager::setCurrentContexts({QStringLiteral("Core.Context.Global")});
        for (const Command &command : commands())
            QVERIFY2(proxy(command.id)->isEnabled() != command.placeholder, command.id);
    }

    void theCommandsAreMadeInTheOrderOfTheMenus()
    {
        QStringList expected;
        for (const Command &command : commands())
            expected.append(text(command.text));
        // The registry has taken them over.
        QStringList made;
        const QList<QAction *> owned = ActionManager::instance()->findChildren<QAction *>(
            QString(), Qt::FindDirectChildrenOnly);
        for (const QAction *action : owned) {
            if (!qobject_cast<const IAction *>(action) && !action->isSeparator())
                made.append(action->text());
        }
        QCOMPARE(made.mid(0, expected.size()), expected);
    }

    void thePlainEntriesAreMadeInTheOrderOfTheMenus()
    {
        QStringList made;
        const QList<QAction *> owned = ViewManager::mainWindow()->findChildren<QAction *>(
            QString(), Qt::FindDirectChildrenOnly);
        for (const QAction *action : owned)
            made.append(action->text());
        QCOMPARE(made, texts({"&Exit", "&Options...", "&Full Screen", "Tile", "Cascade",
                              "View Help", "Contact Us", "About..."}));
    }

    void aPlaceholderIsEnabledByAContextThatBringsAnAction()
    {
        auto *print = new QAction(ViewManager::mainWindow());
        ActionManager::registerAction(print, QStringLiteral("Core.Action.Print"),
                                      QStringLiteral("Test.Context"));
        QVERIFY(!proxy("Core.Action.Print")->isEnabled());
        QSignalSpy spy(print, &QAction::triggered);
        ActionManager::setCurrentContexts(
            {QStringLiteral("Test.Context"), QStringLiteral("Core.Context.Global")});
        QVERIFY(proxy("Core.Action.Print")->isEnabled());
        proxy("Core.Action.Print")->trigger();
        QCOMPARE(spy.count(), 1);
    }

    void theFileMenuHoldsTheStandardEntriesInOrder()
    {
        QStringList found = entries(menu("Core.Menu.File"));
        // What the views, the editors and the projects put between them.
        for (const QString &name :
             texts({"Core.Sep.File.Close.F", "&Close", "Close All", "Core.Sep.File.Close.B",
                    "Close Project", "Recent Files", "Recent Projects"})) {
            QVERIFY(found.removeOne(name));
        }
        QCOMPARE(found, texts({"Core.Action.New", "Core.Action.Open", "Core.Sep.File.Open.B",
                               "Core.Sep.File.Save.F", "Core.Action.Save", "Core.Action.SaveAs",
                               "Core.Action.SaveAll", "Core.Sep.File.Save.B",
                               "Core.Sep.File.Print.F", "Core.Action.Print",
                               "Core.Sep.File.Print.B", "Core.Sep.File.Exit.F", "&Exit"}));
    }

    void theEditMenuHoldsTheStandardEntriesInOrder()
    {
        QCOMPARE(entries(menu("Core.Menu.Edit")),
                 texts({"Core.Action.Undo", "Core.Action.Redo", "-", "Core.Action.Cut",
                        "Core.Action.Copy", "Core.Action.Paste", "-", "Core.Action.SelectAll", "-",
                        "Core.Action.Find", "-"}));
    }

    void theToolsMenuHoldsTheStandardEntriesInOrder()
    {
        QCOMPARE(entries(menu("Core.Menu.Tool")),
                 texts({"-", "Core.Sep.BeforeOption", "&Options..."}));
    }

    void theWindowMenuBeginsWithTheStandardEntriesInOrder()
    {
        QCOMPARE(entries(menu("Core.Menu.Window")).mid(0, 5),
                 texts({"&Full Screen", "-", "Tile", "Cascade", "-"}));
    }

    void theHelpMenuHoldsTheStandardEntriesInOrder()
    {
        QCOMPARE(entries(menu("Core.Menu.Help")),
                 texts({"View Help", "Contact Us", "Core.Sep.BeforeAbout", "About..."}));
    }

    void plainEntriesShowTheirTexts()
    {
        const QAction *exitEntry = entry("Core.Menu.File", "&Exit");
        QCOMPARE(exitEntry->toolTip(), QStringLiteral("Exit"));
        QVERIFY(exitEntry->icon().isNull());
        QVERIFY(exitEntry->shortcut().isEmpty());

        const QAction *options = entry("Core.Menu.Tool", "&Options...");
        QCOMPARE(options->menuRole(), QAction::NoRole);
        QCOMPARE(imageOf(options->icon()), imageOf(icon("options.png")));
        QVERIFY(options->shortcut().isEmpty());

        const QAction *fullScreen = entry("Core.Menu.Window", "&Full Screen");
        QVERIFY(fullScreen->isCheckable());
        QCOMPARE(fullScreen->shortcut(), QKeySequence(QStringLiteral("F11")));
        QCOMPARE(fullScreen->toolTip(),
                 QStringLiteral("<nobr>Full Screen&nbsp;<span style=\"color: gray; font-size: "
                                "small\">F11</span></nobr>"));
        QCOMPARE(imageOf(fullScreen->icon()), imageOf(icon("fullscreen.png")));

        const QAction *tile = entry("Core.Menu.Window", "Tile");
        QCOMPARE(tile->toolTip(), QStringLiteral("Tile"));
        QCOMPARE(imageOf(tile->icon()), imageOf(icon("tile.png")));
        QVERIFY(tile->shortcut().isEmpty());

        const QAction *cascade = entry("Core.Menu.Window", "Cascade");
        QCOMPARE(cascade->toolTip(), QStringLiteral("Cascade"));
        QCOMPARE(imageOf(cascade->icon()), imageOf(icon("cascade.png")));
        QVERIFY(cascade->shortcut().isEmpty());

        for (const char *title : {"View Help", "Contact Us", "About..."}) {
            const QAction *help = entry("Core.Menu.Help", title);
            QVERIFY2(help->icon().isNull(), title);
            QVERIFY2(help->shortcut().isEmpty(), title);
        }
    }

    void plainEntriesAreThoseOfTheWindow()
    {
        for (const auto &[menuId, title] :
             {std::pair("Core.Menu.File", "&Exit"), std::pair("Core.Menu.Tool", "&Options..."),
              std::pair("Core.Menu.Window", "&Full Screen"), std::pair("Core.Menu.Window", "Tile"),
              std::pair("Core.Menu.Window", "Cascade"), std::pair("Core.Menu.Help", "View Help"),
              std::pair("Core.Menu.Help", "Contact Us"), std::pair("Core.Menu.Help", "About...")}) {
            const QAction *action = entry(menuId, title);
            QVERIFY2(action, title);
            QVERIFY2(action->parent() == ViewManager::mainWindow(), title);
            QVERIFY2(action->isEnabled(), title);
        }
    }

    void tileAndCascadeShowTheDocumentsAsWindows_data()
    {
        QTest::addColumn<QString>("title");
        QTest::newRow("tile") << QStringLiteral("Tile");
        QTest::newRow("cascade") << QStringLiteral("Cascade");
    }

    void tileAndCascadeShowTheDocumentsAsWindows()
    {
        QFETCH(QString, title);
        for (int i = 0; i < 2; ++i)
            ViewManager::showView(new IView);
        ViewManager::mainWindow()->resize(900, 700);
        ViewManager::mainWindow()->show();
        QVERIFY(ViewManager::mainWindow()->documentArea()->isTabbed());
        entry("Core.Menu.Window", qPrintable(title))->trigger();
        QVERIFY(!ViewManager::mainWindow()->documentArea()->isTabbed());
        const auto windows = ViewManager::mainWindow()->documentArea()->subWindows();
        QCOMPARE(windows.size(), 2);
        // Cascaded windows lie over one another, tiled ones do not.
        QCOMPARE(windows.at(0)->geometry().intersects(windows.at(1)->geometry()),
                 title == QLatin1String("Cascade"));
    }

    void theToolBarsHoldTheirEntriesInOrder_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QStringList>("content");
        QTest::newRow("file") << text("Core.Toolbar.File") << text("File ToolBar")
                              << texts({"Core.Action.New", "Core.Action.Open", "Core.Action.Save",
                                        "Core.Action.SaveAll", "-", "Core.Action.Print"});
        QTest::newRow("edit") << text("Core.Toolbar.Edit") << text("Edit ToolBar")
                              << texts({"Core.Action.Undo", "Core.Action.Redo", "-",
                                        "Core.Action.Cut", "Core.Action.Copy", "Core.Action.Paste",
                                        "-", "Core.Action.Find"});
        QTest::newRow("tools") << text("Core.Toolbar.Tools") << text("Common Tools")
                               << QStringList();
        QTest::newRow("process") << text("Core.Toolbar.Process") << text("Process Tools")
                                 << QStringList();
    }

    void theToolBarsHoldTheirEntriesInOrder()
    {
        QFETCH(QString, id);
        QFETCH(QString, title);
        QFETCH(QStringList, content);
        QToolBar *bar = ActionManager::toolBar(id);
        QVERIFY(bar);
        QCOMPARE(bar->windowTitle(), title);
        QCOMPARE(entries(bar), content);
        QCOMPARE(ViewManager::mainWindow()->toolBarArea(bar), Qt::TopToolBarArea);
    }

    void anEmptyToolBarShowsNoHandle()
    {
        QToolBar *bar = ActionManager::toolBar(QStringLiteral("Core.Toolbar.Process"));
        QVERIFY(!bar->isMovable());
        auto *action = new QAction(QStringLiteral("Run"), bar);
        bar->addAction(action);
        QVERIFY(bar->isMovable());
        bar->removeAction(action);
        QVERIFY(!bar->isMovable());
    }

    void theToolBarsStandInTheirOrder()
    {
        ViewManager::mainWindow()->show();
        QVERIFY(QTest::qWaitForWindowExposed(ViewManager::mainWindow()));
        int last = -1;
        for (const char *id : {"Core.Toolbar.File", "Core.Toolbar.Edit", "Core.Toolbar.Tools",
                               "Core.Toolbar.Process"}) {
            const int x = ActionManager::toolBar(text(id))->x();
            QVERIFY2(x > last, id);
            last = x;
        }
    }

    void theIconsHaveTheRegistrysSize()
    {
        QCOMPARE(ActionManager::toolBar(QStringLiteral("Core.Toolbar.File"))->iconSize(),
                 QSize(24, 24));
        CoreFixture::storeSetting(QStringLiteral("Core/ToolbarIconSize"), 18);
        m_core.reset();
        m_core = std::make_unique<CoreFixture>(CoreFixture::Settings::Keep);
        QCOMPARE(ActionManager::toolBar(QStringLiteral("Core.Toolbar.File"))->iconSize(),
                 QSize(18, 18));
    }

    void aPluginsEntryBeforeThePrintSeparatorFollowsTheSaveGroup()
    {
        QMenu *file = menu("Core.Menu.File");
        QAction *own = new QAction(QStringLiteral("Mine"), file);
        file->insertAction(ActionManager::separator(QStringLiteral("Core.Sep.File.Print.F")), own);
        const QStringList found = entries(file);
        QVERIFY(found.indexOf(QStringLiteral("Mine"))
                > found.indexOf(QStringLiteral("Core.Action.SaveAll")));
        QCOMPARE(found.indexOf(QStringLiteral("Mine")) + 1,
                 found.indexOf(QStringLiteral("Core.Sep.File.Print.F")));
    }

    void exitClosesTheWindow()
    {
        ViewManager::mainWindow()->show();
        entry("Core.Menu.File", "&Exit")->trigger();
        QVERIFY(!ViewManager::mainWindow()->isVisible());
    }

private:
    std::unique_ptr<CoreFixture> m_core;
};

QTEST_MAIN(TestStandardCommands)
#include "tst_standardcommands.moc"
