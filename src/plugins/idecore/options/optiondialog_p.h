// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_OPTIONS_OPTIONDIALOG_P_H
#define IDECORE_OPTIONS_OPTIONDIALOG_P_H

#include <QList>
#include <QPointer>
#include <QSet>
#include <QString>

class QDialogButtonBox;
class QEventLoop;
class QLabel;
class QStackedLayout;
class QWidget;

namespace Core {

class IOptionsPage;
class OptionDialog;

namespace private_impl {

class CategoryListView;
class CategoryModel;
struct Category;

/// By category id, then by page id, both compared as case-sensitive text.
[[nodiscard]] bool optionsPageLessThan(const IOptionsPage *one, const IOptionsPage *other);

struct OptionDialogPrivate
{
    explicit OptionDialogPrivate(OptionDialog *dialog);
    ~OptionDialogPrivate();
    Q_DISABLE_COPY(OptionDialogPrivate)

    void initCategories();
    void createGui();
    void createTabs(Category *category);
    [[nodiscard]] Category *findCategoryById(const QString &id) const;
    /// Null when there is none, or the page has gone.
    [[nodiscard]] IOptionsPage *pageInTab(const Category *category, int tab) const;
    /// Lets the dialog grow where the pages that were shown need more than it has, or
    /// want more of its width; on the screen, as far as that has room.
    void makeRoom();
    /// Notes that @p page is what the user looks at.
    void visit(IOptionsPage *page);
    /// Drops a page that is being destroyed.
    void forget(IOptionsPage *page);
    void disconnectTabWidgets();
    /// Tells every page that the dialog closes.
    void finish();
    /// Lets those go who wait for the end of the dialog, the last one first.
    void endWaiting(int result);
    /// Takes the widgets that pages keep beyond finish() out of this dialog; the next
    /// one may show them already.
    void releaseWidgets();
    /// Writes the settings, and says so when that cannot be done.
    void writeStore();
    void showWhetherStored(bool stored);
    /// What the Tab key reaches, the buttons behind the pages, which are made later.
    [[nodiscard]] QList<QWidget *> widgetsInTabOrder() const;
    /// The place in @p widgets of what comes next to @p gone, which Tab does not reach
    /// (any more): a button is disabled by its own click. It may be null.
    [[nodiscard]] int placeBeside(QWidget *gone, const QList<QWidget *> &widgets, bool next) const;

    OptionDialog *const q;
    QLabel *headerLabel = nullptr;
    QStackedLayout *stackedLayout = nullptr;
    CategoryListView *categoryList = nullptr;
    CategoryModel *model = nullptr;
    QDialogButtonBox *buttonBox = nullptr;
    QLabel *storeLabel = nullptr;
    QList<IOptionsPage *> pages;
    QSet<IOptionsPage *> visitedPages;
    QList<Category *> categories;
    bool applied = false;
    bool finished = false;
    /// The pages know that the dialog closes; later than finished.
    bool told = false;
    bool running = false;
    QList<QEventLoop *> eventLoops;

    static QPointer<OptionDialog> s_dialog;
    // What was shown last outlives the dialog; the misspelling is the name's own.
    static QString s_currentCatagory;
    static QString s_currentPage;
};

} // namespace private_impl
} // namespace Core

#endif // IDECORE_OPTIONS_OPTIONDIALOG_P_H
