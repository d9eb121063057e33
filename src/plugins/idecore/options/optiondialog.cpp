// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/options/optiondialog.h>

#include <idecore/interfaces/ioptionspage.h>
#include <idecore/options/categorylistview_p.h>
#include <idecore/options/categorymodel_p.h>
#include <idecore/options/optiondialog_p.h>

#include <QEventLoop>
#include <QHideEvent>
#include <QLabel>
#include <QModelIndex>
#include <QStackedLayout>
#include <QTabWidget>

#include <memory>

namespace Core {

using private_impl::Category;
using private_impl::OptionDialogPrivate;

OptionDialog::OptionDialog(QWidget *parent)
    : QDialog(parent)
    , d(std::make_unique<OptionDialogPrivate>(this))
{
    d->initCategories();
    d->createGui();
}

OptionDialog::~OptionDialog()
{
    // Who waits in execDialog() is further down the stack, inside its loop.
    for (QEventLoop *loop : qAsConst(d->eventLoops)) {
        loop->setParent(nullptr);
        loop->exit(Rejected);
    }
    d->disconnectTabWidgets();
    // Also where a page that is just being applied deletes the dialog.
    if (!d->told)
        d->finish();
    d->releaseWidgets();
    // A page that belongs to a widget of the dialog goes after all that is told of it.
    for (IOptionsPage *page : qAsConst(d->pages))
        page->disconnect(this);
}

OptionDialog *OptionDialog::getOptionDialog(QWidget *parent, const QString &category,
                                            const QString &page)
{
    if (!OptionDialogPrivate::s_dialog)
        OptionDialogPrivate::s_dialog = new OptionDialog(parent);
    OptionDialog *const dialog = OptionDialogPrivate::s_dialog;
    dialog->setCurrentPage(category, page);
    return dialog;
}

QSize OptionDialog::sizeHint() const
{
    return minimumSize();
}

bool OptionDialog::execDialog()
{
    // Whatever runs in the loops below may delete the dialog.
    const QPointer<OptionDialog> guard(this);
    if (d->running) {
        auto *const loop = new QEventLoop(this);
        d->eventLoops.append(loop);
        loop->exec();
        if (guard)
            d->eventLoops.removeOne(loop);
        delete loop;
        return guard && d->applied;
    }
    d->running = true;
    d->finished = false;
    d->told = false;
    exec();
    if (!guard)
        return false;
    if (!d->finished) {
        // Neither OK nor Cancel: the program ends, or somebody hid the dialog.
        d->finished = true;
        d->disconnectTabWidgets();
        d->finish();
    }
    OptionDialogPrivate::s_dialog = nullptr;
    d->running = false;
    deleteLater();
    return d->applied;
}

void OptionDialog::setCurrentPage(const QString &category, const QString &page)
{
    const QString categoryId =
        category.isEmpty() ? OptionDialogPrivate::s_currentCatagory : category;
    // A copy: showing the category changes what was shown last.
    const QString pageId = page.isEmpty() ? OptionDialogPrivate::s_currentPage : page;
    Category *const found = categoryId.isEmpty() ? nullptr : d->findCategoryById(categoryId);
    if (!found) {
        d->categoryList->setCurrentIndex(d->model->index(0));
        return;
    }
    d->categoryList->setCurrentIndex(d->model->index(d->categories.indexOf(found)));
    for (int i = 0; found->tabWidget && i < found->pages.size(); ++i) {
        if (found->pages.at(i)->id() == pageId) {
            found->tabWidget->setCurrentWidget(found->shown.at(i));
            return;
        }
    }
}

void OptionDialog::currentChanged(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    Category *const category = d->categories.at(index.row());
    OptionDialogPrivate::s_currentCatagory = category->id;
    if (!category->tabWidget)
        d->createTabs(category);
    d->visit(d->pageInTab(category, category->tabWidget->currentIndex()));
    d->stackedLayout->setCurrentWidget(category->tabWidget);
    d->headerLabel->setText(category->displayName);
    d->makeRoom();
}

void OptionDialog::currentTabChanged(int i)
{
    const QModelIndex current = d->categoryList->currentIndex();
    if (i == -1 || !current.isValid())
        return;
    const Category *const category = d->categories.at(current.row());
    // Tabs of a category that is out of sight change, too, when a page goes.
    if (sender() && sender() != category->tabWidget)
        return;
    d->visit(d->pageInTab(category, i));
}

void OptionDialog::apply()
{
    const QPointer<OptionDialog> guard(this);
    // A page may show a dialog, in which others are visited, go, or close this one.
    QList<QPointer<IOptionsPage>> visited;
    for (IOptionsPage *page : qAsConst(d->visitedPages))
        visited.append(page);
    for (const QPointer<IOptionsPage> &page : qAsConst(visited)) {
        if (page)
            page->apply();
    }
    if (!guard)
        return;
    d->applied = true;
    d->writeStore();
}

void OptionDialog::accept()
{
    if (!d->finished) {
        d->finished = true;
        d->disconnectTabWidgets();
        const QPointer<OptionDialog> guard(this);
        apply();
        if (!guard)
            return;
        d->finish();
        if (!guard)
            return;
    }
    QDialog::accept();
}

void OptionDialog::reject()
{
    if (!d->finished) {
        d->finished = true;
        d->disconnectTabWidgets();
        const QPointer<OptionDialog> guard(this);
        d->finish();
        if (!guard)
            return;
    }
    QDialog::reject();
}

void OptionDialog::done(int r)
{
    d->endWaiting(r);
    QDialog::done(r);
}

void OptionDialog::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    // Whoever hides the dialog ends its run; those who wait for it must not be left
    // behind, for they keep that run from returning.
    if (!event->spontaneous())
        d->endWaiting(result());
}

bool OptionDialog::focusNextPrevChild(bool next)
{
    const QList<QWidget *> widgets = d->widgetsInTabOrder();
    if (widgets.isEmpty())
        return false;
    const int count = widgets.size();
    const int now = widgets.indexOf(focusWidget());
    int then = (now + (next ? 1 : count - 1)) % count;
    if (now < 0)
        then = d->placeBeside(focusWidget(), widgets, next);
    widgets.at(then)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

} // namespace Core
