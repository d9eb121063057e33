// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_PROJECTS_PROJECTSAVEASDLG_H
#define IDECORE_PROJECTS_PROJECTSAVEASDLG_H

#include <idecore/idecore_export.h>

#include <QDialog>

#include <memory>

namespace Core {

class Ui_ProjectSaveAsDlg;

/// Asks for the name and the parent directory of a copy of the current project, and
/// makes the directory of the copy. For project plugins: the core does not open it.
///
///     ProjectSaveAsDlg dialog(project->projectDir(), name, ViewManager::dialogParent());
///     if (dialog.exec() == QDialog::Accepted)
///         saveInto(dialog.newPrjPath() + "/" + dialog.newPrjName());
class IDECORE_EXPORT ProjectSaveAsDlg final : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(ProjectSaveAsDlg)
public:
    /// Proposes the parent of the directory @p path, the home directory where
    /// @p path does not exist, and @p name, which is not checked before it is edited.
    explicit ProjectSaveAsDlg(const QString &path, const QString &name, QWidget *parent = nullptr);
    ~ProjectSaveAsDlg() override;

    [[nodiscard]] QString newPrjName() const;
    /// The parent directory of the new project's, without its name.
    [[nodiscard]] QString newPrjPath() const;

public Q_SLOTS:
    void onBrowse();
    /// Closes the dialog after it has made the new project's directory; where it
    /// could not, says why and leaves the dialog open.
    void accept() override;

private:
    void showMessage(const QString &message);

    const std::unique_ptr<Ui_ProjectSaveAsDlg> ui;
};

} // namespace Core

#endif // IDECORE_PROJECTS_PROJECTSAVEASDLG_H
