// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/panel/fileactions_p.h>

#include <devicedb/devicedb.h>
#include <fpgaproject/fpgaprojectconstants.h>
#include <fpgaproject/hdl/modulescanner_p.h>
#include <fpgaproject/panel/droppedfiles_p.h>
#include <fpgaproject/panel/fileopening_p.h>
#include <fpgaproject/panel/filetreemodel_p.h>
#include <fpgaproject/panel/filetreeview_p.h>
#include <fpgaproject/project/fpgaproject.h>
#include <fpgaproject/project/messages_p.h>
#include <fpgaproject/wizards/devicedialog_p.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/core/constants.h>
#include <idecore/core/idecore.h>
#include <idecore/core/ideicon.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/newdialog/thenewdialog.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QIcon>
#include <QInputDialog>
#include <QMenu>
#include <QPointer>
#include <QUrl>

namespace Fpga {

FileActions::FileActions(FileTreeView *view, FileTreeModel *model)
    : QObject(view)
    , m_view(view)
    , m_model(model)
{
    m_open = add("Open", tr("Open"), &FileActions::openSelected);
    m_addExisting = add("AddExisting", tr("Add Existing Files..."), &FileActions::addExisting);
    m_addExisting->setIcon(Core::ideIcon(QStringLiteral(":/core/image/open.png")));
    m_newFile = add("NewFile", tr("New File..."), &FileActions::newFile);
    m_newFile->setIcon(Core::ideIcon(QStringLiteral(":/core/image/new.png")));
    m_toggle = add("Toggle", tr("Disable"), &FileActions::toggleEnabled);
    m_top = add("SetAsTop", tr("Set as Top"), &FileActions::setAsTop);
    m_remove = add("Remove", tr("Remove from Project"), &FileActions::remove);
    m_remove->setShortcut(QKeySequence::Delete);
    m_rename = add("Rename", tr("Rename"), &FileActions::rename);
    m_rename->setShortcut(Qt::Key_F2);
    m_copyPath = add("CopyPath", tr("Copy Path"), &FileActions::copyPath);
    m_copyPath->setIcon(Core::ideIcon(QStringLiteral(":/core/image/copy.png")));
    m_openFolder = add("OpenFolder", tr("Open Containing Folder"), &FileActions::openFolder);
    m_changeDevice = add("ChangeDevice", tr("Change Device..."), &FileActions::changeDevice);

    // Copy of the Edit menu serves the panel too, by the key it has there.
    m_copy = new QAction(this);
    connect(m_copy, &QAction::triggered, this, &FileActions::copyPath);
    Core::ActionManager::registerAction(m_copy, QLatin1String(Core::Constants::A_EDIT_COPY),
                                        QLatin1String(Constants::C_PROJECTPANEL));

    connect(view, &FileTreeView::menuRequested, this, &FileActions::showMenu);
    connect(view, &FileTreeView::filesActivated, this, &FileActions::open);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &FileActions::update);
    connect(model, &QAbstractItemModel::dataChanged, this, &FileActions::update);
    connect(model, &QAbstractItemModel::modelReset, this, &FileActions::update);
    // Later, because the row is still being edited, and will be another one.
    connect(model, &FileTreeModel::renameRequested, this, &FileActions::onRenameRequested,
            Qt::QueuedConnection);
    connect(model, &FileTreeModel::filesDropped, this, &FileActions::addFiles,
            Qt::QueuedConnection);
    update();
}

FileActions::~FileActions()
{
    // The registry may be gone before the panel, and the action with it.
    if (!m_copy)
        return;
    Core::ActionManager::unregisterAction(QLatin1String(Core::Constants::A_EDIT_COPY),
                                          QLatin1String(Constants::C_PROJECTPANEL));
    delete m_copy;
}

QAction *FileActions::add(const char *name, const QString &text, void (FileActions::*slot)())
{
    auto *const action = new QAction(text, this);
    action->setObjectName(QLatin1String(name));
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, slot);
    m_view->addAction(action);
    return action;
}

FpgaProject *FileActions::project() const
{
    return m_model->project();
}

QStringList FileActions::selected() const
{
    return m_view->selectedPaths();
}

QStringList FileActions::selectedFiles() const
{
    return absolute(selected());
}

QStringList FileActions::absolute(const QStringList &paths) const
{
    QStringList files;
    for (const QString &path : paths)
        files.append(project()->absolutePath(path));
    return files;
}

bool FileActions::anyEnabled() const
{
    const QStringList paths = selected();
    for (const QString &path : paths) {
        const FileEntry *const entry = project()->document().file(path);
        if (entry && entry->enabled)
            return true;
    }
    return false;
}

void FileActions::update()
{
    const QStringList paths = project() ? selected() : QStringList();
    const bool any = !paths.isEmpty();
    const bool one = paths.size() == 1;
    const FileEntry *const entry = one ? project()->document().file(paths.first()) : nullptr;
    m_open->setEnabled(any);
    m_addExisting->setEnabled(project());
    m_newFile->setEnabled(project());
    m_toggle->setEnabled(any);
    m_toggle->setText(any && !anyEnabled() ? tr("Enable") : tr("Disable"));
    m_top->setEnabled(entry && isSource(entry->kind));
    m_remove->setEnabled(any);
    m_rename->setEnabled(one);
    m_copyPath->setEnabled(any);
    if (m_copy)
        m_copy->setEnabled(any);
    m_openFolder->setEnabled(project());
    m_changeDevice->setEnabled(project());
}

void FileActions::showMenu(const QPoint &place)
{
    if (!project())
        return;
    auto *const menu = createMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(place);
}

QMenu *FileActions::createMenu()
{
    update();
    auto *const menu = new QMenu(m_view);
    menu->setObjectName(QStringLiteral("FpgaProject.FileMenu"));
    if (!selected().isEmpty()) {
        menu->addAction(m_open);
        menu->setDefaultAction(m_open);
        fillOpenWith(menu->addMenu(tr("Open With")));
        menu->addSeparator();
    }
    menu->addAction(m_addExisting);
    menu->addAction(m_newFile);
    if (!selected().isEmpty()) {
        menu->addSeparator();
        menu->addAction(m_toggle);
        menu->addAction(m_top);
        menu->addSeparator();
        menu->addAction(m_rename);
        menu->addAction(m_remove);
        menu->addSeparator();
        menu->addAction(m_copyPath);
    } else {
        menu->addSeparator();
    }
    menu->addAction(m_openFolder);
    menu->addSeparator();
    menu->addAction(m_changeDevice);
    return menu;
}

void FileActions::fillOpenWith(QMenu *menu) const
{
    const QStringList files = selectedFiles();
    QAction *const here = menu->addAction(QApplication::applicationDisplayName().isEmpty()
                                              ? tr("This Program")
                                              : QApplication::applicationDisplayName());
    connect(here, &QAction::triggered, m_view, [files] { openFilesInside(files); });
    QAction *const system = menu->addAction(tr("System Default Program"));
    connect(system, &QAction::triggered, m_view, [files] {
        for (const QString &file : files)
            QDesktopServices::openUrl(QUrl::fromLocalFile(file));
    });
    addExternalEditors(menu, files);
}

void FileActions::open(const QStringList &paths)
{
    openFiles(absolute(paths));
}

void FileActions::openSelected()
{
    open(selected());
}

void FileActions::addExisting()
{
    const QPointer<FpgaProject> current = project();
    if (!current)
        return;
    const QStringList files = QFileDialog::getOpenFileNames(
        Core::ViewManager::dialogParent(), tr("Add Existing Files"), current->projectDir(),
        Core::IdeCore::mimeDatabase()->filterForFileDialog(true));
    // It may have been closed from outside while the dialog was open.
    if (current && current == project())
        addFiles(files);
}

void FileActions::addFiles(const QStringList &files)
{
    if (!project())
        return;
    const QStringList found = droppedFiles(files);
    if (found.isEmpty() || !project()->addFiles(found))
        return;
    const QModelIndex first = m_model->indexOf(project()->relativePath(found.first()));
    if (first.isValid())
        m_view->setCurrentIndex(first);
}

void FileActions::newFile()
{
    Core::TheNewDialog::showFileWizard();
}

void FileActions::toggleEnabled()
{
    if (project() && !selected().isEmpty())
        project()->setEnabled(selected(), !anyEnabled());
}

void FileActions::setAsTop()
{
    const QStringList paths = selected();
    const FileEntry *const entry =
        project() && paths.size() == 1 ? project()->document().file(paths.first()) : nullptr;
    if (!entry)
        return;
    const QString path = entry->path;
    const QString file = project()->absolutePath(path);
    const QStringList modules = modulesInFile(file, entry->kind);
    QString module = modules.value(0);
    if (modules.isEmpty()) {
        showError(tr("Set as Top"),
                  tr("\"%1\" cannot be the top of the design.").arg(QDir::toNativeSeparators(file)),
                  QFileInfo::exists(file) ? tr("No module or entity was found in it.")
                                          : tr("The file does not exist."));
        return;
    }
    if (modules.size() > 1) {
        const QPointer<FpgaProject> current = project();
        bool chosen = false;
        module = QInputDialog::getItem(
            Core::ViewManager::dialogParent(), tr("Set as Top"), tr("Top module:"), modules,
            qMax(0, modules.indexOf(current->document().top().name)), false, &chosen);
        if (!chosen || !current || current != project())
            return;
    }
    project()->setTop({module, path});
}

void FileActions::remove()
{
    if (project())
        project()->removeFiles(selected());
}

void FileActions::rename()
{
    const QModelIndex file = m_model->indexOf(selected().value(0));
    if (!file.isValid())
        return;
    m_view->setCurrentIndex(file);
    m_view->edit(file);
}

void FileActions::onRenameRequested(const QString &path, const QString &newName)
{
    if (!project() || !project()->renameFile(path, newName))
        return;
    const QString folder = path.left(path.lastIndexOf(QLatin1Char('/')) + 1);
    const QModelIndex renamed = m_model->indexOf(folder + newName);
    if (renamed.isValid())
        m_view->setCurrentIndex(renamed);
}

void FileActions::copyPath()
{
    if (!project() || selected().isEmpty())
        return;
    QStringList paths;
    const QStringList files = selectedFiles();
    for (const QString &file : files)
        paths.append(QDir::toNativeSeparators(file));
    QApplication::clipboard()->setText(paths.join(QLatin1Char('\n')));
}

void FileActions::openFolder()
{
    if (!project())
        return;
    const QString file = selectedFiles().value(0);
    const QString folder =
        file.isEmpty() ? project()->projectDir() : QFileInfo(file).absolutePath();
    if (!QFileInfo(folder).isDir()) {
        showError(tr("Open Containing Folder"),
                  tr("Can not open folder \"%1\"").arg(QDir::toNativeSeparators(folder)),
                  tr("The folder does not exist."));
        return;
    }
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

void FileActions::changeDevice()
{
    const QPointer<FpgaProject> current = project();
    if (!current)
        return;
    const DEV::DeviceDb *const devices = Core::IdeCore::deviceDataBase();
    DeviceDialog dialog(current->document().device(),
                        devices ? devices->rows() : QVector<DEV::Device>(),
                        Core::ViewManager::dialogParent());
    // It may have been closed from outside while the dialog was open.
    if (dialog.exec() == QDialog::Accepted && current && current == project())
        current->setDevice(dialog.choice());
}

} // namespace Fpga
