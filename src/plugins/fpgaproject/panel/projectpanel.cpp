// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/panel/projectpanel_p.h>

#include <fpgaproject/fpgaprojectconstants.h>
#include <fpgaproject/panel/fileactions_p.h>
#include <fpgaproject/panel/filetreemodel_p.h>
#include <fpgaproject/panel/filetreeview_p.h>
#include <fpgaproject/panel/folderwatcher_p.h>
#include <fpgaproject/panel/projectheader_p.h>
#include <fpgaproject/project/fpgaproject.h>
#include <idecore/views/viewmanager.h>

#include <QFrame>
#include <QLabel>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace Fpga {

ProjectPanel::ProjectPanel(QWidget *parent)
    : IPanel(parent)
    , m_model(new FileTreeModel(this))
    , m_pages(new QStackedLayout(this))
    , m_watcher(new FolderWatcher(this))
{
    setWindowTitle(tr("Project"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    m_pages->addWidget(createEmptyPage());
    connect(m_watcher, &FolderWatcher::fileTouched, this, &ProjectPanel::onFileTouched);
    connect(m_watcher, &FolderWatcher::folderTouched, this, &ProjectPanel::reload);
    Core::ViewManager::registerContext(this, QLatin1String(Constants::C_PROJECTPANEL));
}

ProjectPanel::~ProjectPanel() = default;

QString ProjectPanel::name() const
{
    return QLatin1String(Constants::PROJECT_PANEL);
}

Qt::DockWidgetArea ProjectPanel::area() const
{
    return Qt::LeftDockWidgetArea;
}

int ProjectPanel::layoutPriority() const
{
    // In front of what else docks at the left.
    return 90;
}

QSize ProjectPanel::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 40, fontMetrics().height() * 30};
}

QWidget *ProjectPanel::createEmptyPage()
{
    auto *const label = new QLabel(tr("No project is open.\n\nMake one with File \u203a New, or "
                                      "open one with File \u203a Open."),
                                   this);
    label->setObjectName(QStringLiteral("labelNoProject"));
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    // The contents margins of a label go whenever the style changes.
    label->setMargin(16);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setMinimumWidth(180);
    return label;
}

void ProjectPanel::createProjectPage()
{
    auto *const page = new QWidget(this);
    m_header = new ProjectHeader(page);
    m_view = new FileTreeView(page);
    m_view->setObjectName(QStringLiteral("fileTree"));
    m_view->setAccessibleName(tr("Files of the project"));
    m_view->setModel(m_model);
    // Belongs to the view.
    const auto *const actions = new FileActions(m_view, m_model);
    m_header->setChangeDeviceAction(actions->changeDeviceAction());

    auto *const layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_header);
    auto *const line = new QFrame(page);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    layout->addWidget(line);
    layout->addWidget(m_view);
    m_pages->addWidget(page);
    setFocusProxy(m_view);
}

void ProjectPanel::setProject(Core::IProject *project)
{
    if (m_project)
        m_project->disconnect(this);
    m_project = qobject_cast<FpgaProject *>(project);
    m_model->setProject(m_project);
    if (m_project) {
        if (!m_view)
            createProjectPage();
        connect(m_project, &FpgaProject::settingsChanged, this, &ProjectPanel::updateHeader);
        updateHeader();
        m_view->setCurrentIndex(m_model->index(0, 0));
    }
    m_watcher->setFolders(m_project ? QStringList(m_project->projectDir()) : QStringList());
    m_pages->setCurrentIndex(m_project ? 1 : 0);
}

void ProjectPanel::onFileTouched(const QString &folder, const QString &name)
{
    if (m_project && QString(folder + QLatin1Char('/') + name) == m_project->fileName())
        reload();
}

void ProjectPanel::reload()
{
    if (!m_project)
        return;
    // What cannot be read, perhaps because it is just being written, leaves the
    // project as it is; the next change to it says why.
    ReadError error;
    m_project->reload(&error);
}

void ProjectPanel::updateHeader()
{
    if (m_project)
        m_header->show(*m_project);
}

} // namespace Fpga
