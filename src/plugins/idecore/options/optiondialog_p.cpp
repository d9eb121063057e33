// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/options/optiondialog_p.h>

#include <extsys/pluginmanager.h>
#include <idecore/core/idecore.h>
#include <idecore/interfaces/ioptionspage.h>
#include <idecore/options/categoryicon_p.h>
#include <idecore/options/categorylistview_p.h>
#include <idecore/options/categorylistviewdelegate_p.h>
#include <idecore/options/categorymodel_p.h>
#include <idecore/options/optiondialog.h>
#include <idecore/options/pagetabs_p.h>

#include <QDebug>
#include <QDialogButtonBox>
#include <QDir>
#include <QEventLoop>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHash>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QStackedLayout>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>

namespace Core {
namespace private_impl {

namespace {

constexpr int LARGER_BY = 2;

/// Stands for the widget of a page that has none.
class NoWidget final : public QLabel
{
public:
    explicit NoWidget(QWidget *parent)
        : QLabel(OptionDialog::tr("This page has nothing to show."), parent)
    {
        setAlignment(Qt::AlignCenter);
    }
};

} // namespace

QPointer<OptionDialog> OptionDialogPrivate::s_dialog;
QString OptionDialogPrivate::s_currentCatagory;
QString OptionDialogPrivate::s_currentPage;

bool optionsPageLessThan(const IOptionsPage *one, const IOptionsPage *other)
{
    const int order = one->categoryId().compare(other->categoryId());
    return order < 0 || (order == 0 && one->id() < other->id());
}

OptionDialogPrivate::OptionDialogPrivate(OptionDialog *dialog)
    : q(dialog)
    , pages(ExtSys::PluginManager::instance()->getObjects<IOptionsPage>())
{
    std::stable_sort(pages.begin(), pages.end(), optionsPageLessThan);
    for (IOptionsPage *page : qAsConst(pages))
        QObject::connect(page, &QObject::destroyed, q, [this, page] { forget(page); });
}

OptionDialogPrivate::~OptionDialogPrivate()
{
    qDeleteAll(categories);
}

void OptionDialogPrivate::initCategories()
{
    // Categories that name one picture share it.
    QHash<QString, QIcon> icons;
    for (IOptionsPage *page : qAsConst(pages)) {
        Category *category = findCategoryById(page->categoryId());
        if (!category) {
            category = new Category;
            category->id = page->categoryId();
            categories.append(category);
        }
        if (category->displayName.isEmpty())
            category->displayName = page->displayCategory();
        if (category->icon.isNull()) {
            const QString path = page->categoryIcon();
            if (!icons.contains(path))
                icons.insert(path, categoryIcon(path));
            category->icon = icons.value(path);
        }
        category->pages.append(page);
    }
}

void OptionDialogPrivate::createGui()
{
    q->setWindowTitle(OptionDialog::tr("Options"));
    q->setWindowFlags(q->windowFlags() & ~Qt::WindowContextHelpButtonHint);

    model = new CategoryModel(q);
    model->setCategories(categories);
    categoryList = new CategoryListView(q);
    categoryList->setObjectName(QStringLiteral("categoryList"));
    categoryList->setAccessibleName(OptionDialog::tr("Categories"));
    categoryList->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Expanding);
    categoryList->setItemDelegate(new CategoryListViewDelegate(categoryList));
    categoryList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    categoryList->setModel(model);
    categoryList->setIconSize(QSize(CATEGORY_ICON_SIZE, CATEGORY_ICON_SIZE));
    categoryList->setSelectionMode(QAbstractItemView::SingleSelection);
    categoryList->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    QObject::connect(categoryList->selectionModel(), &QItemSelectionModel::currentRowChanged, q,
                     &OptionDialog::currentChanged);

    headerLabel = new QLabel(q);
    headerLabel->setObjectName(QStringLiteral("headerLabel"));
    headerLabel->setTextFormat(Qt::PlainText);
    QFont font = headerLabel->font();
    font.setBold(true);
    if (font.pointSize() > 0)
        font.setPointSize(font.pointSize() + LARGER_BY);
    headerLabel->setFont(font);

    stackedLayout = new QStackedLayout;

    auto *note = new QLabel(OptionDialog::tr("[*]items request restart program"), q);
    note->setObjectName(QStringLiteral("noteLabel"));
    buttonBox = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel
                                         | QDialogButtonBox::Apply,
                                     Qt::Horizontal, q);
    buttonBox->setObjectName(QStringLiteral("buttonBox"));
    buttonBox->button(QDialogButtonBox::Ok)->setDefault(true);
    QObject::connect(buttonBox->button(QDialogButtonBox::Apply), &QPushButton::clicked, q,
                     &OptionDialog::apply);
    QObject::connect(buttonBox, &QDialogButtonBox::accepted, q, &OptionDialog::accept);
    QObject::connect(buttonBox, &QDialogButtonBox::rejected, q, &OptionDialog::reject);
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(note);
    bottom->addWidget(buttonBox);

    storeLabel = new QLabel(q);
    storeLabel->setObjectName(QStringLiteral("storeLabel"));
    storeLabel->setTextFormat(Qt::PlainText);
    storeLabel->setWordWrap(true);
    storeLabel->hide();

    auto *grid = new QGridLayout(q);
    grid->addWidget(headerLabel, 0, 1);
    grid->addWidget(categoryList, 1, 0);
    grid->addLayout(stackedLayout, 1, 1);
    grid->addLayout(bottom, 2, 0, 1, 2);
    grid->addWidget(storeLabel, 3, 0, 1, 2);
    grid->setColumnStretch(1, 4);
    q->setMinimumSize(800, 450);
    categoryList->setFocus();
    showWhetherStored(IdeCore::userSettings()->isWritable());
}

void OptionDialogPrivate::createTabs(Category *category)
{
    std::stable_sort(category->pages.begin(), category->pages.end(), optionsPageLessThan);
    auto *tabs = new PageTabs(q);
    tabs->tabBar()->setAccessibleName(category->displayName);
    category->tabWidget = tabs;
    for (int i = 0; i < category->pages.size(); ++i)
        category->shown.append(nullptr);
    const QList<IOptionsPage *> wanted = category->pages;
    for (IOptionsPage *page : wanted) {
        // One that has gone while another made its widget.
        if (!category->pages.contains(page))
            continue;
        QWidget *widget = page->widget();
        const int place = category->pages.indexOf(page);
        if (place < 0)
            continue;
        if (!widget) {
            qWarning().noquote() << "option page without a widget:" << page->id();
            widget = new NoWidget(tabs);
        }
        category->shown[place] = widget;
        tabs->addTab(widget, page->displayName());
    }
    QObject::connect(tabs, &QTabWidget::currentChanged, q, &OptionDialog::currentTabChanged);
    stackedLayout->addWidget(tabs);
}

Category *OptionDialogPrivate::findCategoryById(const QString &id) const
{
    // From the end: while they are collected from the sorted pages it is the last.
    const auto found = std::find_if(categories.crbegin(), categories.crend(),
                                    [&id](const Category *one) { return one->id == id; });
    return found == categories.crend() ? nullptr : *found;
}

IOptionsPage *OptionDialogPrivate::pageInTab(const Category *category, int tab) const
{
    QWidget *const widget = category->tabWidget->widget(tab);
    const int place = widget ? category->shown.indexOf(widget) : -1;
    return place < 0 ? nullptr : category->pages.at(place);
}

void OptionDialogPrivate::makeRoom()
{
    // The fixed minimum keeps the layout from doing it.
    const QSize present = q->isVisible() ? q->size() : q->minimumSize();
    QSize needed = present.expandedTo(q->layout()->totalMinimumSize());
    // Also where a page could be narrower, but then cuts the texts of its boxes off.
    const QRect screen = q->screen()->availableGeometry();
    const int wanted = qMin(q->layout()->totalSizeHint().width(), screen.width());
    needed.setWidth(qMax(needed.width(), wanted));
    if (needed == present)
        return;
    q->resize(needed);
    if (!q->isVisible())
        return;
    // It grows to the right and downwards, and the buttons are at that corner.
    const QRect frame = q->frameGeometry();
    const int left = qMax(screen.left(), screen.right() + 1 - frame.width());
    const int top = qMax(screen.top(), screen.bottom() + 1 - frame.height());
    const QPoint place(qMin(frame.left(), left), qMin(frame.top(), top));
    if (place != frame.topLeft())
        q->move(place);
}

void OptionDialogPrivate::visit(IOptionsPage *page)
{
    if (!page)
        return;
    visitedPages.insert(page);
    s_currentPage = page->id();
}

void OptionDialogPrivate::forget(IOptionsPage *page)
{
    pages.removeAll(page);
    visitedPages.remove(page);
    for (Category *category : qAsConst(categories)) {
        const int place = category->pages.indexOf(page);
        if (place < 0)
            continue;
        category->pages.removeAt(place);
        if (!category->tabWidget)
            continue;
        QWidget *const widget = category->shown.takeAt(place);
        if (!widget)
            continue;
        category->tabWidget->removeTab(category->tabWidget->indexOf(widget));
        // Nobody else is left to do it; later, for it may have caused all this.
        widget->deleteLater();
    }
}

void OptionDialogPrivate::disconnectTabWidgets()
{
    for (const Category *category : qAsConst(categories)) {
        if (category->tabWidget) {
            QObject::disconnect(category->tabWidget, &QTabWidget::currentChanged, q,
                                &OptionDialog::currentTabChanged);
        }
    }
}

void OptionDialogPrivate::finish()
{
    told = true;
    // What a page does meanwhile may destroy others, and even the dialog.
    QList<QPointer<IOptionsPage>> rest;
    for (IOptionsPage *page : qAsConst(pages))
        rest.append(page);
    for (const QPointer<IOptionsPage> &page : qAsConst(rest)) {
        if (page)
            page->finish();
    }
}

void OptionDialogPrivate::endWaiting(int result)
{
    while (!eventLoops.isEmpty())
        eventLoops.takeLast()->exit(result);
}

void OptionDialogPrivate::releaseWidgets()
{
    for (const Category *category : qAsConst(categories)) {
        for (const QPointer<QWidget> &widget : category->shown) {
            if (widget && q->isAncestorOf(widget) && !dynamic_cast<NoWidget *>(widget.data()))
                widget->setParent(nullptr);
        }
    }
}

void OptionDialogPrivate::writeStore()
{
    const QSettings *const settings = IdeCore::userSettings();
    // A second view of the same store, which writes what waits in the first: that one
    // keeps the first error it has met, also when the obstacle has gone.
    QSettings store(settings->format(), settings->scope(), settings->organizationName(),
                    settings->applicationName());
    store.sync();
    showWhetherStored(store.status() != QSettings::AccessError && store.isWritable());
}

void OptionDialogPrivate::showWhetherStored(bool stored)
{
    storeLabel->setVisible(!stored);
    storeLabel->setText(
        stored ? QString()
               : OptionDialog::tr("What is changed here lasts until the program ends, and no "
                                  "longer: the settings cannot be written to %1.")
                     .arg(QDir::toNativeSeparators(IdeCore::userSettings()->fileName())));
}

QList<QWidget *> OptionDialogPrivate::widgetsInTabOrder() const
{
    QList<QWidget *> widgets;
    QList<QWidget *> buttons;
    for (QWidget *widget = q->nextInFocusChain(); widget != q;
         widget = widget->nextInFocusChain()) {
        if (!(widget->focusPolicy() & Qt::TabFocus) || widget->focusProxy()
            || !widget->isVisibleTo(q) || !widget->isEnabled()) {
            continue;
        }
        (buttonBox->isAncestorOf(widget) ? buttons : widgets).append(widget);
    }
    std::sort(buttons.begin(), buttons.end(), [](const QWidget *one, const QWidget *other) {
        const bool mirrored = one->layoutDirection() == Qt::RightToLeft;
        return mirrored ? one->x() > other->x() : one->x() < other->x();
    });
    return widgets + buttons;
}

int OptionDialogPrivate::placeBeside(QWidget *gone, const QList<QWidget *> &widgets,
                                     bool next) const
{
    const int last = widgets.size() - 1;
    if (!gone)
        return next ? 0 : last;
    const auto step = [next](QWidget *widget) {
        return next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    };
    for (QWidget *widget = step(gone); widget != q && widget != gone; widget = step(widget)) {
        const int place = widgets.indexOf(widget);
        if (place >= 0 && !buttonBox->isAncestorOf(widget))
            return place;
    }
    // Behind the pages come the buttons.
    for (int place = 0; next && place <= last; ++place) {
        if (buttonBox->isAncestorOf(widgets.at(place)))
            return place;
    }
    return next ? 0 : last;
}

} // namespace private_impl
} // namespace Core
