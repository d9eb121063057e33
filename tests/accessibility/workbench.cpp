// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "workbench.h"

#include "support/accessibilitywalk.h"

#include <extsys/iplugin.h>
#include <idecore/editors/editormanager.h>
#include <idecore/interfaces/ieditor.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/options/optiondialog.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QDir>
#include <QFile>
#include <QListView>
#include <QPluginLoader>
#include <QStackedLayout>

namespace {

void copy(const QString &from, const QString &to)
{
    QDir().mkpath(to);
    const QFileInfoList entries = QDir(from).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries) {
        const QString target = to + QLatin1Char('/') + entry.fileName();
        if (entry.isDir())
            copy(entry.filePath(), target);
        else if (!QFile::copy(entry.filePath(), target))
            qFatal("cannot copy %s", qPrintable(entry.filePath()));
    }
}

} // namespace

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

Workbench::Workbench(CoreFixture::Settings settings)
    : core(settings)
{
    for (const char *library : {TEXTEDITOR_PLUGIN, FPGAPROJECT_PLUGIN, KEYBINDINGS_PLUGIN}) {
        QPluginLoader loader(named(library));
        auto *plugin = qobject_cast<ExtSys::IPlugin *>(loader.instance());
        if (!plugin || !plugin->initialize())
            qFatal("%s did not start: %s", library, qPrintable(loader.errorString()));
        m_plugins.prepend(plugin);
    }
    for (ExtSys::IPlugin *plugin : qAsConst(m_plugins))
        plugin->extensionsInitialized();
    copy(named(EXAMPLE_PROJECT), path());
    core.show();
}

Workbench::~Workbench()
{
    Core::ProjectManager::closeCurrentProject();
    for (ExtSys::IPlugin *plugin : qAsConst(m_plugins))
        plugin->shutDown();
}

QString Workbench::path(const char *name) const
{
    return QDir::cleanPath(m_folder.path() + named("/blinky/") + named(name));
}

void Workbench::openProject() const
{
    Core::ProjectManager::openProject(path("blinky.kprj"));
    QVERIFY(Core::ProjectManager::currentProject());
}

void Workbench::openEditors() const
{
    for (const char *name : {"rtl/blinky.v", "rtl/counter.sv", "rtl/pwm.vhd"})
        QVERIFY(Core::EditorManager::openEditor(path(name)));
}

void Workbench::change(Core::IEditor *editor)
{
    QVERIFY(editor);
    QWidget *text = editor;
    while (text->focusProxy())
        text = text->focusProxy();
    QTest::keyClicks(text, named("x"));
    QVERIFY(editor->isModified());
}

WalkedDialog::WalkedDialog()
    : m_dialog([this](QWidget *dialog) {
        faults = AccessibilityWalk::faults(dialog);
        static_cast<QDialog *>(dialog)->reject();
    })
{
}

ShownOptions::ShownOptions(const char *category, const char *page)
    : m_dialog(Core::OptionDialog::getOptionDialog(Core::ViewManager::mainWindow(), named(category),
                                                   named(page)))
{
    m_dialog->show();
    m_dialog->activateWindow();
    if (!QTest::qWaitForWindowActive(m_dialog.get()))
        QTest::qFail("the Options dialog did not become active", __FILE__, __LINE__);
}

ShownOptions::~ShownOptions()
{
    m_dialog->reject();
}

QDialog *ShownOptions::dialog() const
{
    return m_dialog.get();
}

void ShownOptions::choose(int row) const
{
    auto *const list = find<QListView>("categoryList");
    list->setCurrentIndex(list->model()->index(row, 0));
    QCoreApplication::processEvents();
}

QTabWidget *ShownOptions::tabs() const
{
    return qobject_cast<QTabWidget *>(m_dialog->findChild<QStackedLayout *>()->currentWidget());
}

QStringList ShownOptions::faults() const
{
    auto *const categories = find<QListView>("categoryList");
    categories->setFocus();
    QStringList faults = AccessibilityWalk::pressedFaults(m_dialog.get());
    for (QString &fault : faults) {
        fault.prepend(categories->currentIndex().data().toString() + QLatin1Char('/')
                      + tabs()->tabText(tabs()->currentIndex()) + named(": "));
    }
    return faults;
}
