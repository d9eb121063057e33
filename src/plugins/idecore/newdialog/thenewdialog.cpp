// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/newdialog/thenewdialog.h>

#include "ui_thenewdialog.h"

#include <extsys/pluginmanager.h>
#include <idecore/interfaces/ifilewizardfactory.h>
#include <idecore/interfaces/iproject.h>
#include <idecore/interfaces/iprojectwizardfactory.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/newdialog/showdisableitemdelegate_p.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QDir>
#include <QIcon>
#include <QItemSelectionModel>
#include <QPushButton>
#include <QStandardItemModel>

#include <algorithm>

namespace Core {

namespace {

template<class Factory>
QList<IWizardFactory *> poolWizards()
{
    QList<IWizardFactory *> wizards;
    const QList<Factory *> found = ExtSys::PluginManager::instance()->getObjects<Factory>();
    for (Factory *factory : found)
        wizards.append(factory);
    return wizards;
}

/// Whether the flags say so; they count while a project is open.
bool isUnwanted(const IWizardFactory *factory)
{
    const QString name = factory->displayName();
    return (TheNewDialog::ifhideKPA && name == QLatin1String("KPA Config File"))
           || (TheNewDialog::ifhideKAO
               && (name == QLatin1String("KAO Config File")
                   || name == QLatin1String("KVIO Config File")));
}

} // namespace

bool TheNewDialog::ifhideKPA = false;
bool TheNewDialog::ifhideKAO = false;

TheNewDialog::TheNewDialog(QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::TheNewDialog>())
    , m_model(new QStandardItemModel(this))
{
    m_ui->setupUi(this);
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(false);
    m_ui->templateTree->setItemDelegate(new ShowDisableItemDelegate(m_ui->templateTree));
    m_ui->templateTree->setModel(m_model);

    connect(m_ui->buttonBox, &QDialogButtonBox::accepted, this, &TheNewDialog::accept);
    connect(m_ui->buttonBox, &QDialogButtonBox::rejected, this, &TheNewDialog::reject);
    connect(m_ui->templateTree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &TheNewDialog::onItemChanged);
    connect(m_ui->templateTree, &QTreeView::clicked, this, &TheNewDialog::onClicked);
    connect(m_ui->templateTree, &QTreeView::doubleClicked, this, &TheNewDialog::accept);
}

TheNewDialog::TheNewDialog(const QList<IWizardFactory *> &factories, QWidget *parent)
    : TheNewDialog(parent)
{
    setWizardFactories(factories);
}

TheNewDialog::~TheNewDialog() = default;

void TheNewDialog::showAllWizards()
{
    showWizards(poolWizards<IWizardFactory>());
}

void TheNewDialog::showProjectWizard()
{
    showWizards(poolWizards<IProjectWizardFactory>());
}

void TheNewDialog::showFileWizard()
{
    showWizards(poolWizards<IFileWizardFactory>());
}

int TheNewDialog::showWizards(QList<IWizardFactory *> factories)
{
    factories.removeAll(nullptr);
    if (ProjectManager::currentProject()) {
        factories.erase(std::remove_if(factories.begin(), factories.end(), isUnwanted),
                        factories.end());
    }
    TheNewDialog dialog(factories, ViewManager::mainWindow());
    return dialog.exec();
}

IWizardFactory *TheNewDialog::currentFactory() const
{
    const QModelIndexList rows = m_ui->templateTree->selectionModel()->selectedRows();
    return rows.isEmpty() ? nullptr : m_factories.value(m_model->itemFromIndex(rows.constFirst()));
}

void TheNewDialog::setWizardFactories(const QList<IWizardFactory *> &factories)
{
    for (IWizardFactory *shown : qAsConst(m_factories))
        disconnect(shown, &QObject::destroyed, this, nullptr);
    m_factories.clear();
    m_model->clear();
    m_model->setColumnCount(1);
    // A model that is cleared announces no change of the selection.
    onItemChanged();

    QList<IWizardFactory *> sorted = factories;
    sorted.removeAll(nullptr);
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const IWizardFactory *one, const IWizardFactory *other) {
                         return one->sortKey() < other->sortKey();
                     });
    QList<IWizardFactory *> projects;
    QList<IWizardFactory *> files;
    for (IWizardFactory *factory : qAsConst(sorted)) {
        if (qobject_cast<IProjectWizardFactory *>(factory))
            projects.append(factory);
        else if (qobject_cast<IFileWizardFactory *>(factory))
            files.append(factory);
    }
    addCategory(tr("Projects"), projects, QStringLiteral(":/core/image/new_project.png"));
    addCategory(tr("Files"), files, QStringLiteral(":/core/image/new_file.png"));
    m_ui->templateTree->expandAll();
    if (m_model->rowCount() > 0)
        m_ui->templateTree->setCurrentIndex(m_model->index(0, 0, m_model->index(0, 0)));
}

void TheNewDialog::addCategory(const QString &title, const QList<IWizardFactory *> &factories,
                               const QString &defaultIcon)
{
    if (factories.isEmpty())
        return;
    auto *category = new QStandardItem(title);
    category->setFlags(Qt::NoItemFlags);
    m_model->appendRow(category);
    for (IWizardFactory *factory : factories)
        category->appendRow(createItem(factory, defaultIcon));
}

QStandardItem *TheNewDialog::createItem(IWizardFactory *factory, const QString &defaultIcon)
{
    const QIcon icon = factory->icon();
    auto *item =
        new QStandardItem(icon.isNull() ? QIcon(defaultIcon) : icon, factory->displayName());
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    m_factories.insert(item, factory);
    connect(factory, &QObject::destroyed, this, [this, item] { removeItem(item); });
    return item;
}

void TheNewDialog::removeItem(const QStandardItem *item)
{
    // Not to be asked for its description any more while the selection moves on.
    m_factories.remove(item);
    QStandardItem *category = item->parent();
    category->removeRow(item->row());
    if (!category->hasChildren())
        m_model->removeRow(category->row());
}

void TheNewDialog::onItemChanged()
{
    const IWizardFactory *factory = currentFactory();
    m_ui->descriptionEdit->setPlainText(factory ? factory->description() : QString());
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(factory);
}

void TheNewDialog::onClicked(const QModelIndex &index)
{
    // The view itself leaves the selection alone for a row that cannot have it.
    if (!m_factories.contains(m_model->itemFromIndex(index)))
        m_ui->templateTree->clearSelection();
}

void TheNewDialog::accept()
{
    IWizardFactory *factory = currentFactory();
    if (!factory)
        return;
    hide();
    if (m_targetDirectory.isEmpty()) {
        const IProject *project = ProjectManager::currentProject();
        m_targetDirectory =
            project ? project->projectDir() + QLatin1String("/src") : QDir::homePath();
    }
    factory->runWizard(ViewManager::mainWindow(), m_targetDirectory);
    QDialog::accept();
}

} // namespace Core
