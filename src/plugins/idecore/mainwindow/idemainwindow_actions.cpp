// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The standard menus, tool bars and commands.

#include <idecore/mainwindow/idemainwindow.h>

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <idecore/core/ideicon.h>
#include <idecore/mainwindow/panefocus_p.h>
#include <utils/mdiarea.h>

#include <QAction>
#include <QEvent>
#include <QIcon>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <initializer_list>

namespace Core {

using namespace Constants;

namespace {

QString id(const char *constant)
{
    return QString::fromLatin1(constant);
}

QIcon icon(const char *file)
{
    return ideIcon(QLatin1String(":/core/image/") + QLatin1String(file));
}

QMenu *createMenu(const char *menuId, const QString &title)
{
    QMenu *menu = ActionManager::createMenu(id(menuId));
    menu->setTitle(title);
    ActionManager::menuBar(id(MENU_BAR))->addMenu(menu);
    return menu;
}

enum class Kind {
    Working,
    Placeholder,       ///< Disabled: what it does is brought by editors.
    TitledPlaceholder, ///< Shows the text of what is brought, too.
};

struct Command
{
    const char *id;
    Kind kind;
    QString text;
    QString toolTip;
    const char *icon;
    QKeySequence shortcut = {};
};

/// Registers a command of the core's own in the global context and adds its
/// proxy to @p menu. Returns the core's action.
QAction *addCommand(QWidget *owner, QMenu *menu, const Command &command)
{
    auto *action = new QAction(command.text, owner);
    action->setToolTip(command.toolTip);
    if (command.icon)
        action->setIcon(icon(command.icon));
    action->setShortcut(command.shortcut);
    action->setEnabled(command.kind == Kind::Working);
    IAction *proxy = ActionManager::registerAction(action, id(command.id), QString());
    if (command.kind == Kind::TitledPlaceholder)
        proxy->setTextUpdated(true);
    menu->addAction(proxy);
    return action;
}

/// Adds the proxies of @p ids, and a separator for each null.
void addToToolBar(QToolBar *toolBar, std::initializer_list<const char *> ids)
{
    for (const char *actionId : ids) {
        if (actionId)
            toolBar->addAction(ActionManager::action(id(actionId)));
        else
            toolBar->addSeparator();
    }
}

} // namespace

void IdeMainWindow::initActions()
{
    setMenuBar(ActionManager::createMenuBar(id(MENU_BAR)));
    createMenu(M_FILE, tr("&File"));
    createMenu(M_EDIT, tr("&Edit"));
    createMenu(M_TOOL, tr("&Tools"));
    createMenu(M_WINDOW, tr("&Window"));
    createMenu(M_HELP, tr("&Help"));
    initFileMenu();
    initEditMenu();
    initToolsMenu();
    initWindowMenu();
    initHelpMenu();
    initToolBars();
    new private_impl::PaneFocus(this, mdiArea);
}

void IdeMainWindow::initFileMenu()
{
    QMenu *menu = ActionManager::menu(id(M_FILE));

    QAction *action =
        addCommand(this, menu,
                   {A_FILE_NEW, Kind::Working, tr("&New..."), tr("New File or Project"), "new.png",
                    QKeySequence(QKeySequence::New)});
    connect(action, &QAction::triggered, this, &IdeMainWindow::onNewFiles);
    action = addCommand(this, menu,
                        {A_FILE_OPEN, Kind::Working, tr("&Open..."), tr("Open File or Project"),
                         "open.png", QKeySequence(QKeySequence::Open)});
    connect(action, &QAction::triggered, this, &IdeMainWindow::onOpenFiles);
    menu->addAction(ActionManager::separator(id(SEP_FILE_OPEN_B)));

    menu->addAction(ActionManager::separator(id(SEP_FILE_SAVE_F)));
    addCommand(this, menu,
               {A_FILE_SAVE, Kind::TitledPlaceholder, tr("&Save"), tr("Save"), "save.png",
                QKeySequence(QKeySequence::Save)});
    addCommand(
        this, menu,
        {A_FILE_SAVEAS, Kind::TitledPlaceholder, tr("Save &As..."), tr("Save As"), "save_as.png"});
    addCommand(this, menu,
               {A_FILE_SAVEALL, Kind::Placeholder, tr("Save All"), tr("Save All"), "save_all.png",
                QKeySequence(QStringLiteral("Ctrl+Shift+S"))});
    menu->addAction(ActionManager::separator(id(SEP_FILE_SAVE_B)));

    menu->addAction(ActionManager::separator(id(SEP_FILE_PRINT_F)));
    addCommand(this, menu,
               {A_FILE_PRINT, Kind::Placeholder, tr("&Print..."), tr("Print"), "print.png",
                QKeySequence(QKeySequence::Print)});
    menu->addAction(ActionManager::separator(id(SEP_FILE_PRINT_B)));

    menu->addAction(ActionManager::separator(id(SEP_FILE_EXIT_F)));
    auto *exitAction = new QAction(tr("&Exit"), this);
    exitAction->setToolTip(tr("Exit"));
    menu->addAction(exitAction);
    connect(exitAction, &QAction::triggered, this, &IdeMainWindow::close);
}

void IdeMainWindow::initEditMenu()
{
    QMenu *menu = ActionManager::menu(id(M_EDIT));

    addCommand(this, menu,
               {A_EDIT_UNDO, Kind::Placeholder, tr("&Undo"), tr("Undo"), "undo.png",
                QKeySequence(QKeySequence::Undo)});
    addCommand(this, menu,
               {A_EDIT_REDO, Kind::Placeholder, tr("&Redo"), tr("Redo"), "redo.png",
                QKeySequence(QStringLiteral("Ctrl+Y"))});
    menu->addSeparator();
    addCommand(this, menu,
               {A_EDIT_CUT, Kind::Placeholder, tr("Cu&t"), tr("Cut"), "cut.png",
                QKeySequence(QKeySequence::Cut)});
    addCommand(this, menu,
               {A_EDIT_COPY, Kind::Placeholder, tr("&Copy"), tr("Copy"), "copy.png",
                QKeySequence(QKeySequence::Copy)});
    addCommand(this, menu,
               {A_EDIT_PASTE, Kind::Placeholder, tr("&Paste"), tr("Paste"), "paste.png",
                QKeySequence(QKeySequence::Paste)});
    menu->addSeparator();
    addCommand(this, menu,
               {A_EDIT_SELECTALL, Kind::Placeholder, tr("Select &All"), tr("Select All"), nullptr,
                QKeySequence(QKeySequence::SelectAll)});
    menu->addSeparator();
    addCommand(this, menu,
               {A_EDIT_FIND, Kind::Placeholder, tr("&Find && Replace"), tr("Find & Replace"),
                "find.png", QKeySequence(QKeySequence::Find)});
    menu->addSeparator();
}

void IdeMainWindow::initToolsMenu()
{
    QMenu *menu = ActionManager::menu(id(M_TOOL));

    menu->addSeparator();
    menu->addAction(ActionManager::separator(id(SEP_BEFORE_OPTION)));
    auto *options = new QAction(icon("options.png"), tr("&Options..."), this);
    // Otherwise some platforms would move it into their application menu.
    options->setMenuRole(QAction::NoRole);
    menu->addAction(options);
    connect(options, &QAction::triggered, this, &IdeMainWindow::onShowOptionDialog);
}

void IdeMainWindow::initWindowMenu()
{
    QMenu *menu = ActionManager::menu(id(M_WINDOW));

    fullScreenAction = new QAction(icon("fullscreen.png"), tr("&Full Screen"), this);
    fullScreenAction->setToolTip(tr("Full Screen"));
    fullScreenAction->setShortcut(QKeySequence(Qt::Key_F11));
    fullScreenAction->setCheckable(true);
    ActionManager::formatTooltip(fullScreenAction);
    menu->addAction(fullScreenAction);
    connect(fullScreenAction, &QAction::toggled, this, &IdeMainWindow::toggleFullScreen);
    menu->addSeparator();

    auto *tile = new QAction(icon("tile.png"), tr("Tile"), this);
    tile->setToolTip(tr("Tile"));
    menu->addAction(tile);
    connect(tile, &QAction::triggered, mdiArea, &Utils::MdiArea::tileSubWindows);
    auto *cascade = new QAction(icon("cascade.png"), tr("Cascade"), this);
    cascade->setToolTip(tr("Cascade"));
    menu->addAction(cascade);
    connect(cascade, &QAction::triggered, mdiArea, &Utils::MdiArea::cascadeSubWindows);
    menu->addSeparator();
}

void IdeMainWindow::initHelpMenu()
{
    QMenu *menu = ActionManager::menu(id(M_HELP));

    auto *help = new QAction(tr("View Help"), this);
    menu->addAction(help);
    connect(help, &QAction::triggered, this, &IdeMainWindow::onOpenKelmoHelp);
    auto *contact = new QAction(tr("Contact Us"), this);
    menu->addAction(contact);
    connect(contact, &QAction::triggered, this, &IdeMainWindow::onContactUs);
    menu->addAction(ActionManager::separator(id(SEP_BEFORE_ABOUT)));
    auto *about = new QAction(tr("About..."), this);
    menu->addAction(about);
    connect(about, &QAction::triggered, this, &IdeMainWindow::onAboutIde);
}

void IdeMainWindow::initToolBars()
{
    QToolBar *toolBar = ActionManager::createToolBar(id(T_FILE));
    toolBar->setWindowTitle(tr("File ToolBar"));
    addToToolBar(toolBar,
                 {A_FILE_NEW, A_FILE_OPEN, A_FILE_SAVE, A_FILE_SAVEALL, nullptr, A_FILE_PRINT});
    addToolBar(toolBar);

    toolBar = ActionManager::createToolBar(id(T_EDIT));
    toolBar->setWindowTitle(tr("Edit ToolBar"));
    addToToolBar(toolBar, {A_EDIT_UNDO, A_EDIT_REDO, nullptr, A_EDIT_CUT, A_EDIT_COPY, A_EDIT_PASTE,
                           nullptr, A_EDIT_FIND});
    addToolBar(toolBar);

    toolBar = ActionManager::createToolBar(id(T_TOOLS));
    toolBar->setWindowTitle(tr("Common Tools"));
    hideHandleWhileEmpty(toolBar);
    addToolBar(toolBar);

    toolBar = ActionManager::createToolBar(id(T_PROCESS));
    toolBar->setWindowTitle(tr("Process Tools"));
    hideHandleWhileEmpty(toolBar);
    addToolBar(toolBar);
}

void IdeMainWindow::hideHandleWhileEmpty(QToolBar *toolBar)
{
    // A handle without tools beside it looks like a fault.
    toolBar->setMovable(!toolBar->actions().isEmpty());
    toolBar->installEventFilter(this);
}

bool IdeMainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ActionAdded || event->type() == QEvent::ActionRemoved) {
        if (auto *toolBar = qobject_cast<QToolBar *>(watched))
            toolBar->setMovable(!toolBar->actions().isEmpty());
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace Core
