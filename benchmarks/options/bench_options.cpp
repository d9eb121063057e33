// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The Options dialog with 200 pages in 40 categories, from the request to open it
// until it is painted, against a dialog of the same parts that has the same list, in
// the same size, and no page. Each category has a picture of its own, which both
// dialogs read in the same way, and each page a form of ten fields.

#include <extsys/pluginmanager.h>
#include <idecore/core/idecore.h>
#include <idecore/core/ideicon.h>
#include <idecore/interfaces/ioptionspage.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/options/optiondialog.h>
#include <idecore/views/viewmanager.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFormLayout>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QLoggingCategory>
#include <QPixmapCache>
#include <QPointer>
#include <QSettings>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

constexpr int CATEGORIES = 40;
constexpr int PAGES = 5;   // in each
constexpr int FIELDS = 10; // in each of these
constexpr int ENTRY_HEIGHT = 32;
constexpr int SETTLING_MS = 20;
constexpr double LIMIT = 1.2;

QString categoryTitle(int number)
{
    return QStringLiteral("Category number %1").arg(number);
}

/// The files of one picture for each category, in the sizes of the program's own.
class Pictures final
{
public:
    Pictures()
    {
        const QStringList names =
            QDir(QStringLiteral(":/core/image")).entryList({QStringLiteral("options*.png")});
        for (int category = 0; category < CATEGORIES; ++category) {
            for (const QString &name : names) {
                const QString ending = name.mid(QStringLiteral("options").size());
                QFile::copy(QStringLiteral(":/core/image/") + name,
                            path(category).chopped(4) + ending);
            }
        }
    }

    [[nodiscard]] QString path(int category) const
    {
        return m_folder.filePath(QStringLiteral("c%1.png").arg(category));
    }

private:
    QTemporaryDir m_folder;
};

/// A page with a form.
class Page final : public Core::IOptionsPage
{
public:
    Page(int category, int number, const QString &picture)
    {
        setId(QString::number(number));
        setCategoryId(QStringLiteral("C%1").arg(category, 2, 10, QLatin1Char('0')));
        setDisplayName(QStringLiteral("Page %1").arg(number));
        setDisplayCategory(categoryTitle(category));
        setCategoryIcon(picture);
    }

    [[nodiscard]] QWidget *widget() override
    {
        if (!m_widget) {
            QElapsedTimer timer;
            timer.start();
            ++s_built;
            m_widget = new QWidget;
            auto *form = new QFormLayout(m_widget);
            for (int field = 0; field < FIELDS; ++field)
                form->addRow(QStringLiteral("Field %1:").arg(field), new QLineEdit);
            s_building += double(timer.nsecsElapsed()) / 1e6;
        }
        return m_widget;
    }
    void apply() override {}
    void finish() override { delete m_widget; }

    static int s_built;
    /// What pages took to make their widgets, in milliseconds.
    static double s_building;

private:
    QPointer<QWidget> m_widget;
};

int Page::s_built = 0;
double Page::s_building = 0;

/// With entries as high as those of the dialog.
class Delegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index).expandedTo({0, ENTRY_HEIGHT});
    }
};

/// The parts of the dialog, with nothing behind the list.
std::unique_ptr<QDialog> emptyDialog(const Pictures &pictures, int listWidth, QWidget *parent)
{
    auto dialog = std::make_unique<QDialog>(parent);
    auto *model = new QStandardItemModel(dialog.get());
    for (int i = 0; i < CATEGORIES; ++i)
        model->appendRow(new QStandardItem(Core::ideIcon(pictures.path(i)), categoryTitle(i)));
    auto *list = new QListView;
    list->setFixedWidth(listWidth);
    list->setItemDelegate(new Delegate(list));
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list->setIconSize(QSize(24, 24));
    list->setModel(model);
    list->setCurrentIndex(model->index(0, 0));
    auto *header = new QLabel(categoryTitle(0));
    QFont font = header->font();
    font.setBold(true);
    font.setPointSize(font.pointSize() + 2);
    header->setFont(font);
    auto *tabs = new QTabWidget;
    auto *grid = new QGridLayout(dialog.get());
    grid->addWidget(header, 0, 1);
    grid->addWidget(list, 1, 0);
    grid->addWidget(tabs, 1, 1);
    grid->addWidget(new QLabel(QStringLiteral("[*]items request restart program")), 2, 0);
    grid->addWidget(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel
                                         | QDialogButtonBox::Apply),
                    2, 1);
    grid->setColumnStretch(1, 4);
    dialog->setMinimumSize(800, 450);
    return dialog;
}

class PaintWatch final : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }

    bool painted = false;
};

void showAndPaint(QDialog *dialog)
{
    PaintWatch watch;
    dialog->installEventFilter(&watch);
    dialog->show();
    while (!watch.painted)
        QCoreApplication::processEvents();
}

/// Until the windows of an earlier time have gone from the display.
void settle()
{
    QEventLoop loop;
    QTimer::singleShot(SETTLING_MS, &loop, &QEventLoop::quit);
    loop.exec();
}

const Pictures *s_pictures = nullptr;
int s_listWidth = 0;
std::vector<double> s_ours;
std::vector<double> s_peer;
std::vector<double> s_pages;

// Each reads the pictures anew, as after the start of the program.

double measureOurs()
{
    QPixmapCache::clear();
    QElapsedTimer timer;
    timer.start();
    auto *dialog = Core::OptionDialog::getOptionDialog(Core::ViewManager::mainWindow(),
                                                       QStringLiteral("C00"), QStringLiteral("0"));
    showAndPaint(dialog);
    const double seconds = double(timer.nsecsElapsed()) / 1e9;
    s_listWidth = dialog->findChild<QListView *>()->width();
    dialog->reject();
    delete dialog;
    settle();
    return seconds;
}

double measurePeer(const Pictures &pictures)
{
    QPixmapCache::clear();
    QElapsedTimer timer;
    timer.start();
    std::unique_ptr<QDialog> dialog =
        emptyDialog(pictures, s_listWidth, Core::ViewManager::mainWindow());
    showAndPaint(dialog.get());
    const double seconds = double(timer.nsecsElapsed()) / 1e9;
    dialog->reject();
    dialog.reset();
    settle();
    return seconds;
}

// In turns, so that both meet the same state of the machine.
void optionDialogOpens(benchmark::State &state)
{
    for (auto _ : state) {
        s_peer.push_back(measurePeer(*s_pictures) * 1e3);
        const double building = Page::s_building;
        const double ours = measureOurs();
        s_ours.push_back(ours * 1e3);
        s_pages.push_back(Page::s_building - building);
        state.SetIterationTime(ours);
    }
}
BENCHMARK(optionDialogOpens)->UseManualTime()->Iterations(60)->Unit(benchmark::kMillisecond);

double median(std::vector<double> times)
{
    std::nth_element(times.begin(), times.begin() + long(times.size() / 2), times.end());
    return times[times.size() / 2];
}

} // namespace

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    QApplication app(argc, argv);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    Core::IdeCore core;
    core.initialize();
    Core::ViewManager::mainWindow()->resize(1200, 800);
    Core::ViewManager::mainWindow()->show();
    const Pictures pictures;
    s_pictures = &pictures;
    std::vector<std::unique_ptr<Page>> pages;
    for (int category = 0; category < CATEGORIES; ++category) {
        for (int number = 0; number < PAGES; ++number) {
            pages.push_back(std::make_unique<Page>(category, number, pictures.path(category)));
            ExtSys::PluginManager::instance()->addObject(pages.back().get());
        }
    }
    // What both need once, such as fonts.
    measureOurs();
    measurePeer(pictures);
    if (Page::s_built != PAGES)
        std::fprintf(stderr, "%d pages were built to show one category\n", Page::s_built);

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    if (!s_ours.empty()) {
        const double ours = median(s_ours);
        const double peer = median(s_peer);
        const double ratio = ours / peer;
        std::printf("of %.2f ms the pages took %.2f to make their fields\n", ours, median(s_pages));
        std::printf("RATIO optiondialog %.2f %.2f %.3f limit %.1f %s\n", ours, peer, ratio, LIMIT,
                    ratio < LIMIT ? "ok" : "MISSED");
    }
    for (const std::unique_ptr<Page> &page : pages)
        ExtSys::PluginManager::instance()->removeObject(page.get());
    core.shutdown();
    return 0;
}
