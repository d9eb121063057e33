// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "stations.h"

#include "dialogstations.h"
#include "noticestations.h"
#include "projectstations.h"
#include "walking.h"

#include <fpgaproject/fpgaprojectconstants.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <idecore/editors/editormanager.h>
#include <idecore/interfaces/ieditor.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <memory>

namespace {

using Core::ActionManager;

QString id(const char *text)
{
    return QLatin1String(text);
}

/// A file with this in it, which lives as long as the program.
QString file(const char *name, const QByteArray &content)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QLatin1String(name));
    write(path, content);
    return path;
}

/// Looks at the dialog of a command of the menus.
std::function<void(const Look &)> dialogOf(const char *actionId)
{
    return [actionId](const Look &look) {
        const ModalDialog dialog(lookAt(look, id(actionId)));
        ActionManager::action(id(actionId))->trigger();
    };
}

void walkPrint(const Look &look)
{
    Core::IEditor *const editor = Core::EditorManager::currentEditor();
    editor->activateWindow();
    typedInto(editor)->setFocus();
    Core::IAction *const action = ActionManager::action(id(Core::Constants::A_FILE_PRINT));
    if (!QTest::qWaitFor([action] { return action->isEnabled(); }))
        qFatal("nothing can be printed");
    const ModalDialog dialog(lookAt(look, QStringLiteral("Print")));
    action->trigger();
}

void walkMainWindow(const Look &look)
{
    look(Core::ViewManager::mainWindow(), QStringLiteral("main window"));
}

/// The menu that a right click on @p place of @p widget opens.
void walkContextMenu(QWidget *widget, const QPoint &place, const Look &look)
{
    bool met = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget *const menu = QApplication::activePopupWidget();
        if (!menu)
            return;
        timer.stop();
        met = true;
        look(menu, QLatin1String("context menu of ") + widget->objectName());
        menu->close();
    });
    timer.start(10);
    // Some menus block until they are closed.
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, widget->mapToGlobal(place));
    QApplication::sendEvent(widget, &event);
    if (!QTest::qWaitFor([&met] { return met; }))
        qFatal("no menu of %s came", qPrintable(widget->objectName()));
}

/// What is said of each wizard.
void walkNew(const Look &look)
{
    const ModalDialog dialog([&look](QWidget *widget) {
        auto *const tree = named<QTreeView>(widget, "templateTree");
        QModelIndex row = tree->currentIndex();
        for (int number = 1; row.isValid(); row = tree->indexBelow(row)) {
            tree->setCurrentIndex(row);
            look(widget, QLatin1String("New ") + QString::number(number++));
        }
        QTest::keyClick(widget, Qt::Key_Escape);
    });
    ActionManager::action(id(Core::Constants::A_FILE_NEW))->trigger();
}

void walkContextMenus(const Look &look)
{
    auto *const window = Core::ViewManager::mainWindow();
    const std::unique_ptr<QMenu> bars(window->createPopupMenu());
    bars->popup(window->pos());
    look(bars.get(), QStringLiteral("menu of the tool bars"));
    bars->close();
    auto *const tabs = window->findChild<QTabBar *>(id("documentTabBar"));
    walkContextMenu(tabs, tabs->tabRect(0).center(), look);
    auto *const tree = window->findChild<QTreeView *>(id("fileTree"));
    const QModelIndex kind = tree->model()->index(0, 0);
    tree->setCurrentIndex(tree->model()->index(0, 0, kind));
    walkContextMenu(tree->viewport(), tree->visualRect(tree->currentIndex()).center(), look);
    tree->clearSelection();
    walkContextMenu(tree->viewport(), tree->viewport()->rect().bottomLeft() - QPoint(-5, 5), look);
}

void walkSaveProjectAs(const Look &look)
{
    const ModalDialog dialog([&look](QWidget *widget) {
        look(widget, QStringLiteral("Save Project As"));
        lookBehind(named<QPushButton>(widget, "btnBrowse"), look,
                   QStringLiteral("the folder of the copy"));
        QTest::keyClick(widget, Qt::Key_Escape);
    });
    ActionManager::action(id(Fpga::Constants::A_PROJECT_SAVEAS))->trigger();
}

void walkProjectErrors(const Look &look)
{
    const QByteArray head = "<Project><Template>FPGA</Template>";
    const QStringList broken{
        file("empty.kprj", ""),
        file("none.kprj", "<Project/>"),
        file("unknown.kprj", "<Project><Template>X</Template></Project>"),
        file("text.kprj", head + "text</Project>"),
        file("cut.kprj", head + "<Files>"),
        file("type.kprj", "<!DOCTYPE Project>" + head + "</Project>"),
        file("entity.kprj", head + "&unknown;</Project>"),
        file("nameless.kprj", head + "<Files><File/></Files></Project>"),
        file("enabled.kprj", head + "<Files><File path=\"a\" enabled=\"2\"/></Files></Project>"),
        file("twice.kprj", head + "<Files/><Files/></Project>"),
        file("deep.kprj", head + QByteArray("<a>").repeated(2000)),
        file("a -b.kprj", head + "</Project>")};
    for (const QString &path : broken) {
        const ModalDialog box(lookAt(look, QLatin1String("opening ") + path));
        Core::ProjectManager::openProject(path);
    }
}

void walkUnsavedEditor(const Look &look)
{
    const QString path = file("changed.v", "module changed;\nendmodule\n");
    Core::IEditor *const editor = Core::EditorManager::openEditor(path);
    QWidget *const target = typedInto(editor);
    QTest::keyClicks(target, QStringLiteral("wire w;"));
    {
        const ModalDialog question(lookAt(look, QStringLiteral("closing a changed document")));
        editor->close();
    }
    QTest::keyClick(target, Qt::Key_Z, Qt::ControlModifier);
    if (editor->isModified()) {
        QString reason;
        if (!editor->save(&reason))
            qFatal("cannot save: %s", qPrintable(reason));
    }
    editor->close();
}

} // namespace

std::vector<Station> stations()
{
    return {
        {"main window", walkMainWindow},
        {"context menus", walkContextMenus},
        {"New", walkNew},
        {"Open", dialogOf(Core::Constants::A_FILE_OPEN)},
        {"Print", walkPrint},
        {"Save Project As", walkSaveProjectAs},
        {"project panel", walkProjectPanel},
        {"projects that cannot be changed", walkProjectFaults},
        {"a project with changes", walkClosedProject},
        {"wizards", walkWizards},
        {"Options", walkOptions},
        {"About", walkAbout},
        {"projects that do not open", walkProjectErrors},
        {"a document with changes", walkUnsavedEditor},
        {"files that do not open", walkFileFaults},
        {"notices of documents", walkNotices},
        {"document switcher", walkSwitcher},
        {"help that is missing", walkHelp},
        {"settings that cannot be written", walkUnwritableSettings},
    };
}
