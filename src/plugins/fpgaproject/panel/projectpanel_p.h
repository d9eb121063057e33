// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PANEL_PROJECTPANEL_P_H
#define FPGAPROJECT_PANEL_PROJECTPANEL_P_H

#include <fpgaproject/fpgaproject_export.h>
#include <idecore/interfaces/ipanel.h>

#include <QPointer>

class QStackedLayout;

namespace Core {
class IProject;
}

namespace Fpga {

class FileTreeModel;
class FileTreeView;
class FolderWatcher;
class FpgaProject;
class ProjectHeader;

/// Shows the open FPGA project: its name, device and top module, and its files.
class FPGAPROJECT_EXPORT ProjectPanel final : public Core::IPanel
{
    Q_OBJECT
public:
    explicit ProjectPanel(QWidget *parent = nullptr);
    ~ProjectPanel() override;

    [[nodiscard]] QString name() const override;
    [[nodiscard]] Qt::DockWidgetArea area() const override;
    [[nodiscard]] int layoutPriority() const override;
    [[nodiscard]] QSize sizeHint() const override;

    /// Of another project than one of this plugin nothing is shown.
    void setProject(Core::IProject *project);

private:
    void updateHeader();
    void onFileTouched(const QString &folder, const QString &name);
    QWidget *createEmptyPage();
    void createProjectPage();

    QPointer<FpgaProject> m_project;
    FileTreeModel *const m_model;
    /// Null until the first project is open, so that a start without one does not
    /// wait for them.
    FileTreeView *m_view = nullptr;
    ProjectHeader *m_header = nullptr;
    QStackedLayout *const m_pages;
    /// Of the project file, which others may write, too.
    FolderWatcher *const m_watcher;
};

} // namespace Fpga

#endif // FPGAPROJECT_PANEL_PROJECTPANEL_P_H
