// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_NEWDIALOG_THENEWDIALOG_H
#define IDECORE_NEWDIALOG_THENEWDIALOG_H

#include <idecore/idecore_export.h>

#include <QDialog>
#include <QHash>
#include <QList>
#include <QString>

#include <memory>

class QStandardItem;
class QStandardItemModel;

namespace Core {

class IWizardFactory;

namespace Ui {
class TheNewDialog;
}

/// Lets the user choose a wizard and runs it.
///
/// The wizards are those of the object pool, project wizards before file wizards,
/// each kind in the order of the sort keys. A factory that is destroyed while the
/// dialog is open leaves the list.
class IDECORE_EXPORT TheNewDialog final : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(TheNewDialog)
public:
    explicit TheNewDialog(QWidget *parent = nullptr);
    explicit TheNewDialog(const QList<IWizardFactory *> &factories, QWidget *parent = nullptr);
    ~TheNewDialog() override;

    /// Run the dialog over the main window with all wizards of the pool, or with
    /// those of one kind.
    static void showAllWizards();
    static void showProjectWizard();
    static void showFileWizard();
    /// Runs the dialog with @p factories; QDialog::Accepted when a wizard was run.
    static int showWizards(QList<IWizardFactory *> factories);

    /// Null when nothing or a category is selected.
    [[nodiscard]] IWizardFactory *currentFactory() const;
    /// Shows @p factories, which stay their owners', and selects the first.
    void setWizardFactories(const QList<IWizardFactory *> &factories);

    /// Hide the wizard for the "KPA Config File", or those for the "KAO" and the
    /// "KVIO Config File", while a project is open.
    static bool ifhideKPA;
    static bool ifhideKAO;

public Q_SLOTS:
    void onItemChanged();
    /// Runs the selected wizard, with the main window as its parent; its directory
    /// is the folder "src" of the open project, without one the home directory.
    /// Does nothing when none is selected.
    void accept() override;

private:
    void addCategory(const QString &title, const QList<IWizardFactory *> &factories,
                     const QString &defaultIcon);
    QStandardItem *createItem(IWizardFactory *factory, const QString &defaultIcon);
    void onClicked(const QModelIndex &index);
    void removeItem(const QStandardItem *item);

    const std::unique_ptr<Ui::TheNewDialog> m_ui;
    QStandardItemModel *m_model;
    QHash<const QStandardItem *, IWizardFactory *> m_factories;
    QString m_targetDirectory;
};

} // namespace Core

#endif // IDECORE_NEWDIALOG_THENEWDIALOG_H
