// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_PANEL_FILEACTIONS_P_H
#define FPGAPROJECT_PANEL_FILEACTIONS_P_H

#include <QObject>
#include <QPointer>
#include <QStringList>

class QAction;
class QMenu;

namespace Fpga {

class FileTreeModel;
class FileTreeView;
class FpgaProject;

/// What can be done with the selected files, by menu and by key.
class FileActions final : public QObject
{
    Q_OBJECT
public:
    FileActions(FileTreeView *view, FileTreeModel *model);
    ~FileActions() override;

    /// Opens files, given by their paths in the project.
    void open(const QStringList &paths);
    void addFiles(const QStringList &files);
    void showMenu(const QPoint &place);
    /// The menu as it fits the selection; the caller owns it.
    [[nodiscard]] QMenu *createMenu();
    /// Asks for another device of the project.
    [[nodiscard]] QAction *changeDeviceAction() const { return m_changeDevice; }

private:
    QAction *add(const char *name, const QString &text, void (FileActions::*slot)());
    void update();
    void fillOpenWith(QMenu *menu) const;
    void openSelected();
    void addExisting();
    void newFile();
    void toggleEnabled();
    void setAsTop();
    void remove();
    void rename();
    void onRenameRequested(const QString &path, const QString &newName);
    void copyPath();
    void openFolder();
    void changeDevice();

    [[nodiscard]] FpgaProject *project() const;
    [[nodiscard]] QStringList selected() const;
    [[nodiscard]] QStringList selectedFiles() const;
    [[nodiscard]] QStringList absolute(const QStringList &paths) const;
    [[nodiscard]] bool anyEnabled() const;

    FileTreeView *const m_view;
    FileTreeModel *const m_model;
    QAction *m_open = nullptr;
    QAction *m_addExisting = nullptr;
    QAction *m_newFile = nullptr;
    QAction *m_toggle = nullptr;
    QAction *m_top = nullptr;
    QAction *m_remove = nullptr;
    QAction *m_rename = nullptr;
    QAction *m_copyPath = nullptr;
    QAction *m_openFolder = nullptr;
    QAction *m_changeDevice = nullptr;
    /// Serves the Copy of the Edit menu.
    QPointer<QAction> m_copy;
};

} // namespace Fpga

#endif // FPGAPROJECT_PANEL_FILEACTIONS_P_H
