// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "projectstations.h"

#include "walking.h"

#include <extsys/pluginmanager.h>
#include <fpgaproject/project/fpgaproject.h>
#include <idecore/editors/editormanager.h>
#include <idecore/externaleditors/externaleditormanager.h>
#include <idecore/interfaces/ieditor.h>
#include <idecore/interfaces/iwizardfactory.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QAction>
#include <QDialogButtonBox>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>
#include <QWizard>

using Core::EditorManager;
using Core::ExternalEditorManager;
using Core::ProjectManager;

namespace {

QString example(const char *file)
{
    return QStringLiteral(EXAMPLE_PROJECT "/") + QLatin1String(file);
}

/// A copy of the example that may be changed, open while this lives.
class OwnProject final
{
public:
    OwnProject()
    {
        const QDir from(QStringLiteral(EXAMPLE_PROJECT));
        QDirIterator files(from.path(), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (!file.open(QIODevice::ReadOnly))
                qFatal("cannot read %s", qPrintable(file.fileName()));
            write(path(from.relativeFilePath(file.fileName())), file.readAll());
        }
        ProjectManager::openProject(path(QStringLiteral("blinky.kprj")));
        if (!project())
            qFatal("the project did not open");
    }
    ~OwnProject()
    {
        EditorManager::closeAllEditors();
        ProjectManager::openProject(example("blinky.kprj"));
        EditorManager::openEditor(example("rtl/blinky.v"));
    }
    Q_DISABLE_COPY(OwnProject)

    [[nodiscard]] QString path(const QString &file) const { return m_folder.filePath(file); }

    static Fpga::FpgaProject *project()
    {
        return qobject_cast<Fpga::FpgaProject *>(ProjectManager::currentProject());
    }

    static QTreeView *tree()
    {
        return named<QTreeView>(Core::ViewManager::mainWindow(), "fileTree");
    }

    /// The row of the file of that name.
    static QModelIndex row(const char *name)
    {
        const QAbstractItemModel *const model = tree()->model();
        const QModelIndexList found =
            model->match(model->index(0, 0), Qt::DisplayRole, QLatin1String(name), 1,
                         Qt::MatchExactly | Qt::MatchRecursive);
        if (found.isEmpty())
            qFatal("the panel has no %s", name);
        return found.constFirst();
    }

    /// Makes the file the selected one.
    static void select(const char *name) { tree()->setCurrentIndex(row(name)); }

    /// Does what the entry of the panel's menu does.
    static void trigger(const char *entry)
    {
        const QList<QAction *> all = tree()->actions();
        for (QAction *action : all) {
            if (action->objectName() == QLatin1String(entry)) {
                if (!action->isEnabled())
                    qFatal("%s cannot be chosen", entry);
                return action->trigger();
            }
        }
        qFatal("the panel has no %s", entry);
    }

private:
    const QTemporaryDir m_folder;
};

void walkDevices(QWidget *dialog, const Look &look)
{
    look(dialog, QStringLiteral("devices"));
    named<QLineEdit>(dialog, "editFilter")->setText(QStringLiteral("no such words"));
    look(dialog, QStringLiteral("no devices"));
    QTest::keyClick(dialog, Qt::Key_Escape);
}

/// What it says about names, and about a file that is there already.
void walkNewFile(QWidget *dialog, const Look &look, const QString &name)
{
    look(dialog, name);
    auto *const fileName = named<QLineEdit>(dialog, "editFileName");
    if (auto *const module = dialog->findChild<QLineEdit *>(QStringLiteral("editName"))) {
        for (const char *wrong : {"1", "end"}) {
            module->clear();
            QTest::keyClicks(module, QLatin1String(wrong));
            look(dialog, name + QLatin1String(" named ") + QLatin1String(wrong));
        }
        module->clear();
        QTest::keyClicks(module, QStringLiteral("walked"));
        named<QPushButton>(dialog, "btnAddPort")->click();
        look(dialog, name + QLatin1String(" with a port"));
    }
    const QString wanted = fileName->text();
    fileName->clear();
    QTest::keyClicks(fileName, QStringLiteral(".."));
    look(dialog, name + QLatin1String(" without a name for the file"));
    fileName->clear();
    QTest::keyClicks(fileName, wanted);

    lookBehind(named<QPushButton>(dialog, "btnBrowse"), look, name + QLatin1String(", its folder"));
    const QString path =
        QDir::fromNativeSeparators(named<QLineEdit>(dialog, "editDirectory")->text())
        + QLatin1Char('/') + wanted;
    auto *const ok = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
    write(path, "there");
    lookBehind(ok, look, name + QLatin1String(" that is there"));
    if (!QFile::remove(path) || !QDir().mkpath(path))
        qFatal("cannot make the folder %s", qPrintable(path));
    lookBehind(ok, look, name + QLatin1String(" that is a folder"));
}

/// The name again, for what has come to the folder since.
void typeAnew(QLineEdit *edit)
{
    edit->clear();
    QTest::keyClicks(edit, QStringLiteral("walked"));
}

/// Every page, filled in so far that the next one can be reached.
void walkPages(QWizard *wizard, const QString &folder, const Look &look, const QString &name)
{
    bool isProject = false;
    for (;;) {
        if (auto *edit =
                wizard->currentPage()->findChild<QLineEdit *>(QStringLiteral("editPrjName"))) {
            isProject = true;
            named<QLineEdit>(wizard->currentPage(), "editDirectory")->setText(folder);
            look(wizard, name);
            typeAnew(edit);
            lookBehind(named<QPushButton>(wizard->currentPage(), "btnBrowse"), look,
                       name + QLatin1String(", its folder"));
            look(wizard, name + QLatin1String(", named"));
            write(folder + QStringLiteral("/walked"), "there");
            typeAnew(edit);
            look(wizard, name + QLatin1String(" where a file is"));
            if (!QFile::remove(folder + QStringLiteral("/walked")))
                qFatal("the file cannot be removed");
            write(folder + QStringLiteral("/walked/other"), "there");
            typeAnew(edit);
            look(wizard, name + QLatin1String(" in a folder that is there"));
            write(folder + QStringLiteral("/walked/walked.kprj"), "there");
            typeAnew(edit);
        }
        look(wizard, name + QLatin1Char(' ') + QString::number(wizard->currentId()));
        if (wizard->nextId() < 0)
            break;
        const int before = wizard->currentId();
        wizard->next();
        if (wizard->currentId() == before)
            qFatal("%s stays on its page %d", qPrintable(name), before);
    }
    if (isProject)
        lookBehind(wizard->button(QWizard::FinishButton), look,
                   name + QLatin1String(" that is there"));
}

} // namespace

void walkProjectPanel(const Look &look)
{
    const OwnProject own;
    {
        const ModalDialog files(lookAt(look, QStringLiteral("existing files")));
        OwnProject::trigger("AddExisting");
    }
    {
        const ModalDialog devices([&look](QWidget *dialog) { walkDevices(dialog, look); });
        OwnProject::trigger("ChangeDevice");
    }
    OwnProject::project()->setDevice({});
    {
        const ModalDialog device(lookAt(look, QStringLiteral("the first device")));
        OwnProject::trigger("ChangeDevice");
    }
    write(own.path(QStringLiteral("two.v")), "module in;\nendmodule\nmodule out;\nendmodule\n");
    OwnProject::project()->addFiles({own.path(QStringLiteral("two.v"))});
    OwnProject::select("two.v");
    {
        const ModalDialog modules(lookAt(look, QStringLiteral("modules of a file")));
        OwnProject::trigger("SetAsTop");
    }
    OwnProject::trigger("Toggle");
    if (!QFile::remove(own.path(QStringLiteral("rtl/pwm.vhd"))))
        qFatal("the file cannot be removed");
    const QPersistentModelIndex missing = OwnProject::row("pwm.vhd");
    const QVariant before = missing.data(Qt::ToolTipRole);
    if (!QTest::qWaitFor([&] { return missing.data(Qt::ToolTipRole) != before; }))
        qFatal("the panel shows no missing file");
    look(Core::ViewManager::mainWindow(), QStringLiteral("a missing file and a disabled one"));

    // No such program: it is said, and the file opens inside.
    ExternalEditorManager::registerEditor(
        {QStringLiteral("walked"), own.path(QStringLiteral("walked")), QStringLiteral("%f"), true});
    ExternalEditorManager::setUseExtEdtior(true);
    OwnProject::select("counter.sv");
    {
        const ModalDialog refused(lookAt(look, QStringLiteral("an editor that does not start")));
        OwnProject::trigger("Open");
    }
    ExternalEditorManager::setUseExtEdtior(false);
    ExternalEditorManager::unregisterEditor(QStringLiteral("walked"));
}

void walkProjectFaults(const Look &look)
{
    const OwnProject own;
    Fpga::FpgaProject *const project = OwnProject::project();
    const QString empty = own.path(QStringLiteral("gone/empty.v"));
    write(empty, "");
    project->addFiles({empty});
    OwnProject::select("empty.v");
    {
        const ModalDialog box(lookAt(look, QStringLiteral("a top without a module")));
        OwnProject::trigger("SetAsTop");
    }
    if (!QDir(QFileInfo(empty).absolutePath()).removeRecursively())
        qFatal("the folder cannot be removed");
    {
        const ModalDialog box(lookAt(look, QStringLiteral("a top that is gone")));
        OwnProject::trigger("SetAsTop");
    }
    {
        const ModalDialog box(lookAt(look, QStringLiteral("a folder that is gone")));
        OwnProject::trigger("OpenFolder");
    }
    {
        const ModalDialog box(lookAt(look, QStringLiteral("adding a file that is gone")));
        project->addFiles({own.path(QStringLiteral("gone.v"))});
    }
    for (const char *name : {"..", "pwm.vhd"}) {
        const ModalDialog box(lookAt(look, QLatin1String("renaming to ") + QLatin1String(name)));
        project->renameFile(QStringLiteral("rtl/blinky.v"), QLatin1String(name));
    }
    // In place of the project file.
    const QString aside = own.path(QStringLiteral("aside"));
    if (!QFile::rename(project->fileName(), aside) || !QDir().mkdir(project->fileName()))
        qFatal("the project file cannot be put aside");
    const ModalDialog box(lookAt(look, QStringLiteral("a project that cannot be saved")));
    project->removeFiles({QStringLiteral("rtl/pwm.vhd")});
}

void walkClosedProject(const Look &look)
{
    const OwnProject own;
    for (const char *name : {"rtl/blinky.v", "rtl/counter.sv"}) {
        Core::IEditor *const editor = EditorManager::openEditor(own.path(QLatin1String(name)));
        QTest::keyClicks(typedInto(editor), QStringLiteral("wire w;"));
    }
    {
        const ModalDialog question([&look](QWidget *box) {
            look(box, QStringLiteral("closing a project with changes"));
            ModalDialog::press(QMessageBox::Discard)(box);
        });
        ProjectManager::closeCurrentProject();
    }
    look(Core::ViewManager::mainWindow(), QStringLiteral("no project"));
}

void walkWizards(const Look &look)
{
    const auto factories = ExtSys::PluginManager::instance()->getObjects<Core::IWizardFactory>();
    for (Core::IWizardFactory *factory : factories) {
        const QTemporaryDir folder;
        const ModalDialog dialog([&](QWidget *widget) {
            if (auto *wizard = qobject_cast<QWizard *>(widget))
                walkPages(wizard, folder.path(), look, factory->displayName());
            else
                walkNewFile(widget, look, factory->displayName());
            QTest::keyClick(widget, Qt::Key_Escape);
        });
        factory->runWizard(Core::ViewManager::mainWindow(), folder.path());
    }
}
