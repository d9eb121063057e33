// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// What the dialog is made of, and in which order.

#include "optionfixture.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QFontInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QScreen>
#include <QSettings>
#include <QTemporaryDir>

using namespace Core;

namespace {

QIcon iconOf(const QWidget *dialog, int row)
{
    return listOf(dialog)->model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>();
}

/// Counts how often it is asked for the room that it needs.
class MeasuredWidget final : public QWidget
{
public:
    explicit MeasuredWidget(int *measured)
        : m_measured(measured)
    {
    }

    [[nodiscard]] QSize sizeHint() const override
    {
        ++*m_measured;
        return QWidget::sizeHint();
    }
    [[nodiscard]] QSize minimumSizeHint() const override
    {
        ++*m_measured;
        return QWidget::minimumSizeHint();
    }

private:
    int *const m_measured;
};

/// Can be narrow, but wants more.
class WideWidget final : public QWidget
{
public:
    static constexpr int WIDTH = 700;

    [[nodiscard]] QSize sizeHint() const override { return {WIDTH, 800}; }
};

} // namespace

class TestOptionDialog final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_fixture = std::make_unique<OptionFixture>(); }
    void cleanup() { m_fixture.reset(); }

    // The first of all: nothing was shown before.
    void atFirstTheFirstPageIsShown()
    {
        m_fixture->add("B", "1");
        m_fixture->add("A", "2");
        m_fixture->add("A", "1");
        QCOMPARE(placeOf(m_fixture->dialog()), QStringLiteral("category A/tab 1"));
    }

    void categoriesComeInTheOrderOfTheirIds()
    {
        m_fixture->add("B", "x");
        m_fixture->add("A.Core", "x");
        QCOMPARE(categoriesOf(m_fixture->dialog()), texts({"category A.Core", "category B"}));
    }

    void aLowerCaseCategoryComesBehindCapitals()
    {
        m_fixture->add("a", "x");
        m_fixture->add("B", "x");
        QCOMPARE(categoriesOf(m_fixture->dialog()), texts({"category B", "category a"}));
    }

    void pagesOfACategoryComeInTheOrderOfTheirIds()
    {
        for (const char *id : {"c", "a", "B"})
            m_fixture->add("A", id);
        QCOMPARE(tabTitlesOf(m_fixture->dialog()), texts({"tab B", "tab a", "tab c"}));
    }

    void pagesOfOneIdKeepTheOrderOfThePool()
    {
        // So many that an unstable way of sorting would mix them up.
        QList<TestPage *> same;
        for (int i = 0; i < 50; ++i) {
            m_fixture->add("A", i % 2 == 0 ? "z" : "a");
            same.append(m_fixture->add("A", "same"));
        }
        const QTabWidget *tabs = tabsOf(m_fixture->dialog());
        QList<QWidget *> shown;
        for (int i = 0; i < tabs->count(); ++i) {
            if (tabs->tabText(i) == QLatin1String("tab same"))
                shown.append(tabs->widget(i));
        }
        QList<QWidget *> expected;
        for (const TestPage *page : qAsConst(same))
            expected.append(page->shown);
        QCOMPARE(shown, expected);
    }

    void theTabsAreInTheOrderThatTheIdsHaveWhenTheyAreShown()
    {
        TestPage *page = m_fixture->add("A", "1");
        m_fixture->add("A", "2");
        OptionDialog dialog(nullptr);
        page->rename(QStringLiteral("3"));
        choose(&dialog, 0);
        QCOMPARE(tabTitlesOf(&dialog), texts({"tab 2", "tab 1"}));
    }

    void aCategoryStandsInTheListOnce()
    {
        m_fixture->add("A", "1");
        m_fixture->add("B", "1");
        m_fixture->add("A", "2");
        QCOMPARE(categoriesOf(m_fixture->dialog()), texts({"category A", "category B"}));
        QCOMPARE(tabTitlesOf(m_fixture->dialog()), texts({"tab 1", "tab 2"}));
    }

    void aCategoryIsTitledByItsFirstPageThatHasATitle()
    {
        m_fixture->add("A", "1")->setTexts(QString());
        m_fixture->add("A", "2")->setTexts(QStringLiteral("second"));
        m_fixture->add("A", "3")->setTexts(QStringLiteral("third"));
        QCOMPARE(categoriesOf(m_fixture->dialog()), texts({"second"}));
    }

    void aCategoryShowsTheIconOfItsFirstPageThatHasOne()
    {
        m_fixture->add("A", "1")->setTexts(QStringLiteral("A"));
        m_fixture->add("A", "2")->setTexts(QStringLiteral("A"), QStringLiteral(":/none.png"));
        m_fixture->add("A", "3")->setTexts(QStringLiteral("A"),
                                           QStringLiteral(":/core/image/options.png"));
        m_fixture->add("A", "4")->setTexts(QStringLiteral("A"),
                                           QStringLiteral(":/core/image/new.png"));
        const QImage shown = iconOf(m_fixture->dialog(), 0).pixmap(24).toImage();
        QVERIFY(!shown.isNull());
        QCOMPARE(shown, QIcon(QStringLiteral(":/core/image/options.png")).pixmap(24).toImage());
    }

    void aCategoryShowsThePictureOfAPluginAsItIs()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("wide.png"));
        QImage picture(64, 16, QImage::Format_ARGB32);
        picture.fill(QColor(Qt::darkRed));
        QVERIFY(picture.save(file));
        m_fixture->add("A", "1")->setTexts(QStringLiteral("A"), file);
        const QIcon icon = iconOf(m_fixture->dialog(), 0);
        QCOMPARE(icon.availableSizes(), QList<QSize>{QSize(64, 16)});
        QCOMPARE(icon.pixmap(24).size(), QSize(24, 6));
    }

    void aPictureIsReadWhenItIsFirstShown()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("late.png")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        m_fixture->add("A", "1")->setTexts(QStringLiteral("A"), file.fileName());
        const QIcon icon = iconOf(m_fixture->dialog(), 0);
        QVERIFY(!icon.isNull());
        QCOMPARE(icon.actualSize(QSize(24, 24)), QSize(24, 24));
        QImage picture(24, 24, QImage::Format_ARGB32);
        picture.fill(QColor(Qt::darkRed));
        QVERIFY(picture.save(&file, "PNG"));
        file.close();
        QCOMPARE(icon.pixmap(24).toImage().pixelColor(12, 12), QColor(Qt::darkRed));
    }

    void aFolderIsNoPicture()
    {
        const QTemporaryDir folder;
        m_fixture->add("A", "1")->setTexts(QStringLiteral("A"), folder.path());
        m_fixture->add("A", "2")->setTexts(QStringLiteral("A"),
                                           QStringLiteral(":/core/image/options.png"));
        QCOMPARE(iconOf(m_fixture->dialog(), 0).pixmap(24).toImage(),
                 QIcon(QStringLiteral(":/core/image/options.png")).pixmap(24).toImage());
    }

    void aPictureOfTheSizeOfTheListFollowsTheTheme()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("small.png"));
        QImage picture(24, 24, QImage::Format_ARGB32);
        picture.fill(QColor(Qt::darkRed));
        QVERIFY(picture.save(file));
        m_fixture->add("A", "1")->setTexts(QStringLiteral("A"), file);
        const QIcon icon = iconOf(m_fixture->dialog(), 0);
        const QPalette palette = QApplication::palette();
        QApplication::setPalette(QPalette(Qt::black));
        const QImage onDark = icon.pixmap(24).toImage();
        QApplication::setPalette(palette);
        QVERIFY(onDark.pixelColor(12, 12).lightness() > QColor(Qt::darkRed).lightness());
    }

    void theWindowIsNamedAndHasNoHelpButton()
    {
        OptionDialog *dialog = m_fixture->dialog();
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Options"));
        QVERIFY(!(dialog->windowFlags() & Qt::WindowContextHelpButtonHint));
    }

    void itsSizeIsTheSmallest()
    {
        OptionDialog *dialog = m_fixture->dialog();
        QCOMPARE(dialog->minimumSize(), QSize(800, 450));
        QCOMPARE(dialog->sizeHint(), QSize(800, 450));
        dialog->setMinimumSize(900, 500);
        QCOMPARE(dialog->sizeHint(), QSize(900, 500));
    }

    void itGrowsForAPageThatNeedsMore()
    {
        m_fixture->add("Z.Large", "A.Large")->widget()->setMinimumSize(1000, 500);
        m_fixture->add("Y.Small", "A.Small");
        OptionDialog *dialog = m_fixture->dialog("Y.Small", "A.Small");
        dialog->show();
        QCOMPARE(dialog->size(), QSize(800, 450));
        dialog->setCurrentPage(QStringLiteral("Z.Large"), QStringLiteral("A.Large"));
        QVERIFY(dialog->width() > 1000);
        QVERIFY(dialog->height() > 500);
        QCOMPARE(dialog->minimumSize(), QSize(800, 450));
    }

    void itGrowsForATabThatNeedsMore()
    {
        m_fixture->add("A", "1");
        m_fixture->add("A", "2")->widget()->setMinimumSize(1000, 500);
        OptionDialog *dialog = m_fixture->dialog("A", "1");
        dialog->show();
        QCOMPARE(dialog->size(), QSize(800, 450));
        tabsOf(dialog)->setCurrentIndex(1);
        QVERIFY(dialog->width() > 1000);
        QVERIFY(dialog->height() > 500);
    }

    void itIsAsWideAsAPageWantsToBe()
    {
        TestPage *page = m_fixture->add("A", "1");
        page->makeWidget = [] { return new WideWidget; };
        OptionDialog *dialog = m_fixture->dialog("A", "1");
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        QVERIFY(page->shown->width() >= WideWidget::WIDTH);
        QCOMPARE(dialog->height(), 450);
    }

    void itIsNotWiderThanTheScreenForAWish()
    {
        TestPage *page = m_fixture->add("A", "1");
        page->makeWidget = [] {
            auto *row = new QWidget;
            auto *layout = new QHBoxLayout(row);
            for (int i = 0; i < 10; ++i)
                layout->addWidget(new WideWidget);
            return row;
        };
        OptionDialog *dialog = m_fixture->dialog("A", "1");
        dialog->show();
        QCOMPARE(dialog->width(), qMax(800, dialog->screen()->availableGeometry().width()));
    }

    void itDoesNotGrowBeyondTheEdgeOfTheScreen()
    {
        OptionDialog *dialog = showThatWillGrow();
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        const QRect screen = dialog->screen()->availableGeometry();
        const QSize frame = dialog->frameGeometry().size();
        const QPoint corner(screen.right() + 1 - frame.width(),
                            screen.bottom() + 1 - frame.height());
        dialog->move(corner);
        QTRY_COMPARE(dialog->pos(), corner);
        tabsOf(dialog)->setCurrentIndex(1);
        QVERIFY(dialog->width() > 900);
        QTRY_COMPARE(dialog->frameGeometry().bottomRight(), screen.bottomRight());
    }

    void itStaysWhereItIsWhereItHasRoomToGrow()
    {
        OptionDialog *dialog = showThatWillGrow();
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        const QPoint corner = dialog->screen()->availableGeometry().topLeft() + QPoint(20, 30);
        dialog->move(corner);
        QTRY_COMPARE(dialog->pos(), corner);
        tabsOf(dialog)->setCurrentIndex(1);
        QVERIFY(dialog->width() > 900);
        QCOMPARE(dialog->pos(), corner);
    }

    void itIsLargeEnoughForATabThatItOpensAt()
    {
        m_fixture->add("A", "1");
        TestPage *page = m_fixture->add("A", "2");
        page->widget()->setMinimumSize(1000, 500);
        OptionDialog *dialog = m_fixture->dialog("A", "2");
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        QVERIFY(page->shown->width() >= 1000);
        QVERIFY(page->shown->height() >= 500);
    }

    void aPageFillsItsTab()
    {
        m_fixture->add("A", "1");
        TestPage *page = m_fixture->add("A", "2");
        OptionDialog *dialog = m_fixture->dialog("A", "1");
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        tabsOf(dialog)->setCurrentIndex(1);
        QCOMPARE(page->shown->size(), tabsOf(dialog)->widget(0)->size());
        QVERIFY(page->shown->width() > tabsOf(dialog)->width() - 20);
    }

    void aPageWithTextThatWrapsGetsTheHeightOfItsLines()
    {
        m_fixture->add("A", "1")->makeWidget = [] {
            auto *label = new QLabel(QStringLiteral("word ").repeated(2000));
            label->setWordWrap(true);
            return label;
        };
        OptionDialog *dialog = m_fixture->dialog("A", "1");
        const QTabWidget *tabs = tabsOf(dialog);
        QVERIFY(tabs->hasHeightForWidth());
        QVERIFY(tabs->heightForWidth(400) > tabs->heightForWidth(800) + 100);
        QVERIFY(tabs->heightForWidth(400) > tabs->widget(0)->heightForWidth(400));
    }

    void hiddenPagesAreNotMeasuredToShowAnother()
    {
        m_fixture->add("A", "1");
        int measured = 0;
        m_fixture->add("A", "2")->makeWidget = [&measured] {
            return new MeasuredWidget(&measured);
        };
        OptionDialog *dialog = m_fixture->dialog("A", "1");
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        QCOMPARE(measured, 0);
        tabsOf(dialog)->setCurrentIndex(1);
        QVERIFY(measured > 0);
    }

    void theListIsSetUpForCategories()
    {
        const QListView *list = listOf(m_fixture->dialog());
        QCOMPARE(list->sizePolicy().horizontalPolicy(), QSizePolicy::MinimumExpanding);
        QCOMPARE(list->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(list->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(list->iconSize(), QSize(24, 24));
        QCOMPARE(list->selectionMode(), QAbstractItemView::SingleSelection);
        QCOMPARE(list->verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
        QVERIFY(list->inherits("Core::private_impl::CategoryListView"));
        QVERIFY(list->itemDelegate()->inherits("Core::private_impl::CategoryListViewDelegate"));
        QVERIFY(list->model()->inherits("Core::private_impl::CategoryModel"));
        QVERIFY(!list->accessibleName().isEmpty());
    }

    void theHeaderIsBoldAndLarger()
    {
        const OptionDialog *dialog = m_fixture->dialog();
        const auto *header = dialog->findChild<QLabel *>(QStringLiteral("headerLabel"));
        QCOMPARE(header->font().weight(), int(QFont::Bold));
        QCOMPARE(header->font().pointSize(), dialog->font().pointSize() + 2);
    }

    void theHeaderShowsTheCategory()
    {
        m_fixture->add("A", "1");
        m_fixture->add("B", "1")->setTexts(QStringLiteral("<b>B & co</b>"));
        const OptionDialog *dialog = m_fixture->dialog();
        const auto *header = dialog->findChild<QLabel *>(QStringLiteral("headerLabel"));
        QCOMPARE(header->text(), QStringLiteral("category A"));
        choose(dialog, 1);
        QCOMPARE(header->text(), QStringLiteral("<b>B & co</b>"));
        QCOMPARE(header->textFormat(), Qt::PlainText);
    }

    void theButtonsAreOkCancelAndApply()
    {
        const OptionDialog *dialog = m_fixture->dialog();
        const auto *box = dialog->findChild<QDialogButtonBox *>();
        QCOMPARE(box->standardButtons(),
                 QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply);
        QCOMPARE(box->orientation(), Qt::Horizontal);
        QVERIFY(buttonOf(dialog, QDialogButtonBox::Ok)->isDefault());
    }

    void theNoteTellsWhatTheMarkMeans()
    {
        const OptionDialog *dialog = m_fixture->dialog();
        const auto *note = dialog->findChild<QLabel *>(QStringLiteral("noteLabel"));
        QCOMPARE(note->text(), QStringLiteral("[*]items request restart program"));
    }

    void thePartsLieInAGrid()
    {
        m_fixture->add("A", "1");
        OptionDialog *dialog = m_fixture->dialog();
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        const QRect list = listOf(dialog)->geometry();
        const QRect tabs = tabsOf(dialog)->geometry();
        const QRect header = dialog->findChild<QLabel *>(QStringLiteral("headerLabel"))->geometry();
        const QRect note = dialog->findChild<QLabel *>(QStringLiteral("noteLabel"))->geometry();
        const QRect buttons = dialog->findChild<QDialogButtonBox *>()->geometry();
        QVERIFY(list.right() < tabs.left());
        QCOMPARE(list.top(), tabs.top());
        QCOMPARE(header.left(), tabs.left());
        QVERIFY(header.bottom() < tabs.top());
        QVERIFY(list.bottom() < note.top());
        QVERIFY(note.right() < buttons.left());
        QCOMPARE(note.left(), list.left());
        QCOMPARE(buttons.right(), tabs.right());
        QCOMPARE(qobject_cast<QGridLayout *>(dialog->layout())->columnStretch(1), 4);
        dialog->reject();
    }

    void theListHasTheFocus()
    {
        m_fixture->add("A", "1");
        OptionDialog *dialog = m_fixture->dialog();
        QCOMPARE(dialog->focusWidget(), listOf(dialog));
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        QTRY_COMPARE(dialog->focusWidget(), listOf(dialog));
        dialog->reject();
    }

    void withoutPagesEverythingIsEmpty()
    {
        OptionDialog *dialog = m_fixture->dialog();
        QCOMPARE(categoriesOf(dialog), QStringList());
        QVERIFY(!tabsOf(dialog));
        dialog->currentTabChanged(0);
        dialog->accept();
        QCOMPARE(m_fixture->log, QStringList());
    }

    void writableSettingsGiveNoWarning()
    {
        OptionDialog *dialog = m_fixture->dialog();
        dialog->show();
        dialog->apply();
        QVERIFY(dialog->findChild<QLabel *>(QStringLiteral("storeLabel"))->isHidden());
        dialog->reject();
    }

private:
    /// At a page beside which a tab needs more room than the dialog has.
    OptionDialog *showThatWillGrow()
    {
        m_fixture->add("A", "1");
        m_fixture->add("A", "2")->widget()->setMinimumSize(900, 500);
        OptionDialog *dialog = m_fixture->dialog("A", "1");
        dialog->show();
        return dialog;
    }

    std::unique_ptr<OptionFixture> m_fixture;
};

QTEST_MAIN(TestOptionDialog)
#include "tst_optiondialog.moc"
