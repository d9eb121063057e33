// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "stations.h"

#include "dialogstations.h"

#include <extsys/pluginmanager.h>
#include <fpgaproject/fpgaprojectconstants.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/constants.h>
#include <idecore/editors/editormanager.h>
#include <idecore/interfaces/ieditor.h>
#include <idecore/interfaces/iwizardfactory.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QFile>
#include <QLineEdit>
#include <QMainWindow>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QWizard>

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
    QFile file(folder.filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", name);
    return file.fileName();
}

/// Looks at the dialog of a command of the menus.
std::function<void(const Look &)> dialogOf(const char *actionId)
{
    return [actionId](const Look &look) {
        const ModalDialog dialog(lookAt(look, id(actionId)));
        ActionManager::action(id(actionId))->trigger();
    };
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

void walkContextMenus(const Look &look)
{
    const QWidget *const window = Core::ViewManager::mainWindow();
    auto *const tabs = window->findChild<QTabBar *>(id("documentTabBar"));
    walkContextMenu(tabs, tabs->tabRect(0).center(), look);
    auto *const tree = window->findChild<QTreeView *>(id("fileTree"));
    const QModelIndex kind = tree->model()->index(0, 0);
    tree->setCurrentIndex(tree->model()->index(0, 0, kind));
    walkContextMenu(tree->viewport(), tree->visualRect(tree->currentIndex()).center(), look);
    tree->clearSelection();
    walkContextMenu(tree->viewport(), tree->viewport()->rect().bottomLeft() - QPoint(-5, 5), look);
}

/// Every page of it, filled in so far that the next one can be reached.
void walkPages(QWizard *wizard, const Look &look, const QString &name)
{
    for (;;) {
        if (auto *edit = wizard->currentPage()->findChild<QLineEdit *>(id("editPrjName")))
            QTest::keyClicks(edit, QStringLiteral("walked"));
        look(wizard, name + QLatin1Char(' ') + QString::number(wizard->currentId()));
        if (wizard->nextId() < 0)
            break;
        const int before = wizard->currentId();
        wizard->next();
        if (wizard->currentId() == before)
            qFatal("%s stays on its page %d", qPrintable(name), before);
    }
}

void walkWizards(const Look &look)
{
    const QTemporaryDir folder;
    const auto factories = ExtSys::PluginManager::instance()->getObjects<Core::IWizardFactory>();
    for (Core::IWizardFactory *factory : factories) {
        const ModalDialog dialog([&](QWidget *widget) {
            if (auto *wizard = qobject_cast<QWizard *>(widget))
                walkPages(wizard, look, factory->displayName());
            else
                look(widget, factory->displayName());
            QTest::keyClick(widget, Qt::Key_Escape);
        });
        factory->runWizard(Core::ViewManager::mainWindow(), folder.path());
    }
}

void walkProjectErrors(const Look &look)
{
    const QByteArray head = "<project>\n";
    const QStringList broken{file("empty.kprj", ""),
                             file("unknown.kprj", head + "<Template>X</Template></project>\n"),
                             file("text.kprj", head + "<Template>FPGA</Template>text</project>\n")};
    for (const QString &path : broken) {
        const ModalDialog box(lookAt(look, QLatin1String("opening ") + path));
        Core::ProjectManager::openProject(path);
    }
}

void walkUnsavedEditor(const Look &look)
{
    const QString path = file("changed.v", "module changed;\nendmodule\n");
    Core::IEditor *const editor = Core::EditorManager::openEditor(path);
    QWidget *target = editor;
    while (target->focusProxy())
        target = target->focusProxy();
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
        {"New", dialogOf(Core::Constants::A_FILE_NEW)},
        {"Open", dialogOf(Core::Constants::A_FILE_OPEN)},
        {"Save Project As", dialogOf(Fpga::Constants::A_PROJECT_SAVEAS)},
        {"wizards", walkWizards},
        {"Options", walkOptions},
        {"About", walkAbout},
        {"projects that do not open", walkProjectErrors},
        {"a document with changes", walkUnsavedEditor},
    };
}
