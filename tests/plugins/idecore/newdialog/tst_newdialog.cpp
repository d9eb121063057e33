// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The dialog itself: what it shows, what is selected, how a wizard is run.

#include "support/contrast.h"
#include "support/corefixture.h"
#include "support/testwizard.h"

#include <appstyle/appstylemanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/newdialog/thenewdialog.h>
#include <idecore/views/viewmanager.h>

#include <QDialogButtonBox>
#include <QDir>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTest>
#include <QTreeView>
#include <QVBoxLayout>

#include <memory>

using namespace Core;

namespace {

QTreeView *treeOf(const QWidget *dialog)
{
    return dialog->findChild<QTreeView *>(QStringLiteral("templateTree"));
}

QString descriptionIn(const QWidget *dialog)
{
    return dialog->findChild<QPlainTextEdit *>(QStringLiteral("descriptionEdit"))->toPlainText();
}

QPushButton *button(const QWidget *dialog, QDialogButtonBox::StandardButton which)
{
    return dialog->findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"))->button(which);
}

bool isOkEnabled(const QWidget *dialog)
{
    return button(dialog, QDialogButtonBox::Ok)->isEnabled();
}

QModelIndex category(const QWidget *dialog, int row)
{
    return treeOf(dialog)->model()->index(row, 0);
}

QModelIndex wizard(const QWidget *dialog, int categoryRow, int row)
{
    return treeOf(dialog)->model()->index(row, 0, category(dialog, categoryRow));
}

/// The rows of the tree, those of the second level indented.
QStringList rows(const QWidget *dialog)
{
    QStringList found;
    const QAbstractItemModel *model = treeOf(dialog)->model();
    for (int top = 0; top < model->rowCount(); ++top) {
        const QModelIndex index = model->index(top, 0);
        found.append(index.data().toString());
        for (int row = 0; row < model->rowCount(index); ++row)
            found.append(QLatin1String("  ") + model->index(row, 0, index).data().toString());
    }
    return found;
}

/// The text of what is selected; null when nothing is.
QString selected(const QWidget *dialog)
{
    const QModelIndexList indexes = treeOf(dialog)->selectionModel()->selectedRows();
    return indexes.size() == 1 ? indexes.constFirst().data().toString() : QString();
}

void click(const QWidget *dialog, const QModelIndex &index)
{
    QTreeView *tree = treeOf(dialog);
    tree->scrollTo(index);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                      tree->visualRect(index).center());
}

/// As a person does it: a click is part of it.
void clickTwice(const QWidget *dialog, const QModelIndex &index)
{
    click(dialog, index);
    QTreeView *tree = treeOf(dialog);
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                       tree->visualRect(index).center());
}

QImage pictureOf(const QIcon &icon)
{
    return icon.pixmap(24, 24).toImage();
}

QImage pictureOf(const QModelIndex &index)
{
    return pictureOf(index.data(Qt::DecorationRole).value<QIcon>());
}

/// A row as it is painted.
QImage painted(const QWidget *dialog, const QModelIndex &index)
{
    const QTreeView *tree = treeOf(dialog);
    return tree->viewport()->grab(tree->visualRect(index)).toImage();
}

QIcon redIcon()
{
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::red);
    return QIcon(pixmap);
}

} // namespace

class TestNewDialog final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_core = std::make_unique<CoreFixture>(); }
    void cleanup() { m_core.reset(); }

    void theFormIsNamedAndSized()
    {
        const TheNewDialog dialog;
        QCOMPARE(dialog.objectName(), QStringLiteral("Core__TheNewDialog"));
        QCOMPARE(dialog.size(), QSize(400, 300));
        QCOMPARE(dialog.minimumWidth(), 400);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("New"));
    }

    void theFormHoldsItsWidgetsFromTopToBottom()
    {
        const TheNewDialog dialog;
        const auto *layout = qobject_cast<QVBoxLayout *>(dialog.layout());
        QVERIFY(layout);
        QCOMPARE(layout->objectName(), QStringLiteral("verticalLayout"));
        QStringList names;
        for (int i = 0; i < layout->count(); ++i)
            names.append(layout->itemAt(i)->widget()->objectName());
        QCOMPARE(names, texts({"templateTree", "descriptionEdit", "buttonBox"}));
    }

    void theDescriptionIsReadOnlyAndLow()
    {
        const TheNewDialog dialog;
        const auto *edit = dialog.findChild<QPlainTextEdit *>(QStringLiteral("descriptionEdit"));
        QVERIFY(edit);
        QVERIFY(edit->isReadOnly());
        QCOMPARE(edit->maximumHeight(), 100);
    }

    void theButtonsAreOkAndCancelSideBySide()
    {
        const TheNewDialog dialog;
        const auto *box = dialog.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
        QCOMPARE(box->orientation(), Qt::Horizontal);
        QCOMPARE(int(box->standardButtons()), int(QDialogButtonBox::Ok | QDialogButtonBox::Cancel));
        QVERIFY(!isOkEnabled(&dialog));
        QVERIFY(button(&dialog, QDialogButtonBox::Cancel)->isEnabled());
    }

    void theTreeHasItsStyle()
    {
        const TheNewDialog dialog;
        QCOMPARE(treeOf(&dialog)->styleSheet(),
                 QStringLiteral("QTreeView::item { height: 24px;} QTreeView{ icon-size: 20px;}"));
        QCOMPARE(treeOf(&dialog)->selectionMode(), QAbstractItemView::SingleSelection);
        QVERIFY(qobject_cast<QStandardItemModel *>(treeOf(&dialog)->model()));
        QVERIFY(treeOf(&dialog)->isHeaderHidden());
    }

    void rowsAndIconsHaveTheSizesOfTheStyle()
    {
        FileWizard file(QStringLiteral("file"));
        TheNewDialog dialog({&file});
        show(&dialog);
        QCOMPARE(treeOf(&dialog)->visualRect(wizard(&dialog, 0, 0)).height(), 24);
        const QTreeView *tree = treeOf(&dialog);
        QCOMPARE(tree->style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, tree), 20);
    }

    void emptyListGivesAnEmptyTreeWithOkDisabled()
    {
        const TheNewDialog dialog((QList<IWizardFactory *>()));
        QVERIFY(rows(&dialog).isEmpty());
        QVERIFY(!isOkEnabled(&dialog));
        QVERIFY(!dialog.currentFactory());
    }

    void projectsComeBeforeFiles()
    {
        FileWizard file(QStringLiteral("file"), QStringLiteral("a"));
        ProjectWizard project(QStringLiteral("project"), QStringLiteral("b"));
        const TheNewDialog dialog({&file, &project});
        QCOMPARE(rows(&dialog), texts({"Projects", "  project", "Files", "  file"}));
        QCOMPARE(treeOf(&dialog)->model()->columnCount(), 1);
    }

    void wizardsAreSortedByTheirKeysInCodePointOrder()
    {
        FileWizard lowB(QStringLiteral("1"), QStringLiteral("b"));
        FileWizard highA(QStringLiteral("2"), QStringLiteral("A"));
        FileWizard lowA(QStringLiteral("3"), QStringLiteral("a"));
        const TheNewDialog dialog({&lowB, &highA, &lowA});
        QCOMPARE(rows(&dialog), texts({"Files", "  2", "  3", "  1"}));
    }

    void equalKeysKeepTheirOrder()
    {
        std::vector<std::unique_ptr<FileWizard>> wizards;
        QList<IWizardFactory *> list;
        QStringList expected{QStringLiteral("Files")};
        for (int i = 0; i < 30; ++i) {
            const QString name = QString::number((i * 7) % 30);
            wizards.push_back(std::make_unique<FileWizard>(name, QStringLiteral("same")));
            list.append(wizards.back().get());
            expected.append(QLatin1String("  ") + name);
        }
        const TheNewDialog dialog(list);
        QCOMPARE(rows(&dialog), expected);
    }

    void aWizardOfNeitherKindIsNotShown()
    {
        PlainWizard plain(QStringLiteral("plain"));
        FileWizard file(QStringLiteral("file"));
        const TheNewDialog dialog({&plain, &file});
        QCOMPARE(rows(&dialog), texts({"Files", "  file"}));
    }

    void onlyAWizardOfNeitherKindGivesAnEmptyTree()
    {
        PlainWizard plain(QStringLiteral("plain"));
        const TheNewDialog dialog({&plain});
        QVERIFY(rows(&dialog).isEmpty());
    }

    void withOnlyFileWizardsTheFirstOfThemIsSelected()
    {
        FileWizard second(QStringLiteral("second"), QStringLiteral("2"));
        FileWizard first(QStringLiteral("first"), QStringLiteral("1"));
        const TheNewDialog dialog({&second, &first});
        QCOMPARE(rows(&dialog), texts({"Files", "  first", "  second"}));
        QCOMPARE(dialog.currentFactory(), &first);
        QCOMPARE(selected(&dialog), QStringLiteral("first"));
    }

    void withOnlyProjectWizardsThereIsOneCategory()
    {
        ProjectWizard project(QStringLiteral("project"));
        const TheNewDialog dialog({&project});
        QCOMPARE(rows(&dialog), texts({"Projects", "  project"}));
    }

    void categoriesAreNeitherSelectableNorEnabled()
    {
        ProjectWizard project(QStringLiteral("project"));
        FileWizard file(QStringLiteral("file"));
        const TheNewDialog dialog({&project, &file});
        QCOMPARE(int(category(&dialog, 0).flags() & ~Qt::ItemNeverHasChildren), 0);
        QCOMPARE(int(category(&dialog, 1).flags() & ~Qt::ItemNeverHasChildren), 0);
    }

    void wizardsAreSelectableAndEnabledOnly()
    {
        FileWizard file(QStringLiteral("file"));
        const TheNewDialog dialog({&file});
        QCOMPARE(int(wizard(&dialog, 0, 0).flags() & ~Qt::ItemNeverHasChildren),
                 int(Qt::ItemIsSelectable | Qt::ItemIsEnabled));
    }

    void theTreeIsExpanded()
    {
        ProjectWizard project(QStringLiteral("project"));
        FileWizard file(QStringLiteral("file"));
        const TheNewDialog dialog({&project, &file});
        QVERIFY(treeOf(&dialog)->isExpanded(category(&dialog, 0)));
        QVERIFY(treeOf(&dialog)->isExpanded(category(&dialog, 1)));
    }

    void wizardsShowTheirIconOrTheOneOfTheirKind()
    {
        ProjectWizard project(QStringLiteral("a"));
        ProjectWizard ownProject(QStringLiteral("b"));
        FileWizard file(QStringLiteral("a"));
        FileWizard ownFile(QStringLiteral("b"));
        ownProject.picture = ownFile.picture = redIcon();
        const TheNewDialog dialog({&project, &ownProject, &file, &ownFile});
        const QImage projectIcon = pictureOf(QIcon(QStringLiteral(":/core/image/new_project.png")));
        const QImage fileIcon = pictureOf(QIcon(QStringLiteral(":/core/image/new_file.png")));
        QVERIFY(!projectIcon.isNull());
        QVERIFY(!fileIcon.isNull());
        QVERIFY(projectIcon != fileIcon);
        QCOMPARE(pictureOf(wizard(&dialog, 0, 0)), projectIcon);
        QCOMPARE(pictureOf(wizard(&dialog, 0, 1)), pictureOf(redIcon()));
        QCOMPARE(pictureOf(wizard(&dialog, 1, 0)), fileIcon);
        QCOMPARE(pictureOf(wizard(&dialog, 1, 1)), pictureOf(redIcon()));
    }

    void theIconOfASelectedWizardStandsOut_data() { themeRows(); }

    void theIconOfASelectedWizardStandsOut()
    {
        QFETCH(const QString, theme);
        APPSTYLE::AppStyleManager::instance()->setAppStyle(theme);
        FileWizard file(QStringLiteral("file"));
        const TheNewDialog dialog({&file});
        const QColor ground = dialog.palette().color(QPalette::Highlight);
        const QIcon icon = wizard(&dialog, 0, 0).data(Qt::DecorationRole).value<QIcon>();
        const QImage image =
            icon.pixmap(24, 24, QIcon::Selected).toImage().convertToFormat(QImage::Format_ARGB32);
        APPSTYLE::AppStyleManager::instance()->setAppStyle(APPSTYLE::THEME_CLASSIC);
        int lines = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qAlpha(image.pixel(x, y)) < 255)
                    continue;
                ++lines;
                const double ratio = Contrast::ratio(QColor(image.pixel(x, y)), ground);
                QVERIFY2(ratio >= Contrast::SIGN, qPrintable(QString::number(ratio)));
            }
        }
        QVERIFY(lines > 20);
    }

    void categoriesArePaintedAsIfTheyWereEnabled_data() { themeRows(); }

    void categoriesArePaintedAsIfTheyWereEnabled()
    {
        QFETCH(const QString, theme);
        APPSTYLE::AppStyleManager::instance()->setAppStyle(theme);
        FileWizard file(QStringLiteral("file"));
        TheNewDialog dialog({&file});
        show(&dialog);
        const QImage disabled = painted(&dialog, category(&dialog, 0));
        auto *model = qobject_cast<QStandardItemModel *>(treeOf(&dialog)->model());
        model->item(0)->setFlags(Qt::ItemIsEnabled);
        const QImage enabled = painted(&dialog, category(&dialog, 0));
        treeOf(&dialog)->setItemDelegate(new QStyledItemDelegate(treeOf(&dialog)));
        model->item(0)->setFlags(Qt::NoItemFlags);
        const QImage greyed = painted(&dialog, category(&dialog, 0));
        APPSTYLE::AppStyleManager::instance()->setAppStyle(APPSTYLE::THEME_CLASSIC);
        QCOMPARE(disabled, enabled);
        QVERIFY(greyed != enabled);
    }

    void theSelectedWizardIsDescribedAndMayBeRun()
    {
        FileWizard first(QStringLiteral("1"), QStringLiteral("1"));
        FileWizard second(QStringLiteral("2"), QStringLiteral("2"));
        TheNewDialog dialog({&first, &second});
        QCOMPARE(descriptionIn(&dialog), QStringLiteral("about 1"));
        QVERIFY(isOkEnabled(&dialog));
        show(&dialog);
        click(&dialog, wizard(&dialog, 0, 1));
        QCOMPARE(descriptionIn(&dialog), QStringLiteral("about 2"));
        QCOMPARE(dialog.currentFactory(), &second);
        QVERIFY(isOkEnabled(&dialog));
    }

    void theDescriptionIsPlainText()
    {
        FileWizard file(QStringLiteral("1"));
        file.text = QStringLiteral("<b>a & b</b>\nsecond line");
        const TheNewDialog dialog({&file});
        QCOMPARE(descriptionIn(&dialog), file.text);
    }

    void withoutSelectionNothingIsDescribed()
    {
        FileWizard file(QStringLiteral("1"));
        const TheNewDialog dialog({&file});
        treeOf(&dialog)->clearSelection();
        QVERIFY(descriptionIn(&dialog).isEmpty());
        QVERIFY(!isOkEnabled(&dialog));
        QVERIFY(!dialog.currentFactory());
    }

    void aClickOnACategoryClearsTheSelection()
    {
        FileWizard file(QStringLiteral("1"));
        TheNewDialog dialog({&file});
        show(&dialog);
        click(&dialog, category(&dialog, 0));
        QVERIFY(selected(&dialog).isNull());
        QVERIFY(!dialog.currentFactory());
        QVERIFY(descriptionIn(&dialog).isEmpty());
        QVERIFY(!isOkEnabled(&dialog));
    }

    void aWizardCanBeSelectedAgainBehindACategory()
    {
        FileWizard file(QStringLiteral("1"));
        TheNewDialog dialog({&file});
        show(&dialog);
        click(&dialog, category(&dialog, 0));
        click(&dialog, wizard(&dialog, 0, 0));
        QCOMPARE(descriptionIn(&dialog), QStringLiteral("about 1"));
        QVERIFY(isOkEnabled(&dialog));
    }

    void aDoubleClickOnACategoryDoesNothing()
    {
        FileWizard file(QStringLiteral("1"));
        TheNewDialog dialog({&file});
        show(&dialog);
        clickTwice(&dialog, category(&dialog, 0));
        QVERIFY(file.runs.isEmpty());
        QVERIFY(dialog.isVisible());
        QVERIFY(treeOf(&dialog)->isExpanded(category(&dialog, 0)));
    }

    void aDoubleClickRunsTheWizard()
    {
        FileWizard first(QStringLiteral("1"), QStringLiteral("1"));
        FileWizard second(QStringLiteral("2"), QStringLiteral("2"));
        TheNewDialog dialog({&first, &second});
        show(&dialog);
        clickTwice(&dialog, wizard(&dialog, 0, 1));
        QVERIFY(first.runs.isEmpty());
        QCOMPARE(second.runs.size(), 1);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void okRunsTheWizardInTheHomeFolder()
    {
        FileWizard file(QStringLiteral("1"));
        TheNewDialog dialog({&file});
        show(&dialog);
        button(&dialog, QDialogButtonBox::Ok)->click();
        QCOMPARE(file.runs.size(), 1);
        QCOMPARE(file.runs.constFirst().parent, ViewManager::mainWindow());
        QCOMPARE(file.runs.constFirst().directory, QDir::homePath());
    }

    void theDialogIsHiddenWhileTheWizardRunsAndAcceptedBehindIt()
    {
        FileWizard file(QStringLiteral("1"));
        TheNewDialog dialog({&file});
        show(&dialog);
        const QSignalSpy accepted(&dialog, &QDialog::accepted);
        bool wasVisible = true;
        int wasAccepted = -1;
        file.whileRunning = [&] {
            wasVisible = dialog.isVisible();
            wasAccepted = accepted.count();
        };
        dialog.accept();
        QVERIFY(!wasVisible);
        QCOMPARE(wasAccepted, 0);
        QCOMPARE(accepted.count(), 1);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void withoutSelectionTheDialogStaysOpen()
    {
        FileWizard file(QStringLiteral("1"));
        TheNewDialog dialog({&file});
        show(&dialog);
        treeOf(&dialog)->clearSelection();
        dialog.accept();
        QVERIFY(file.runs.isEmpty());
        QVERIFY(dialog.isVisible());
    }

    void cancelRunsNothing()
    {
        FileWizard file(QStringLiteral("1"));
        TheNewDialog dialog({&file});
        show(&dialog);
        const QSignalSpy rejected(&dialog, &QDialog::rejected);
        button(&dialog, QDialogButtonBox::Cancel)->click();
        QVERIFY(file.runs.isEmpty());
        QVERIFY(!dialog.isVisible());
        QCOMPARE(rejected.count(), 1);
    }

    void newFactoriesReplaceTheOldOnes()
    {
        FileWizard old(QStringLiteral("old"));
        ProjectWizard fresh(QStringLiteral("new"));
        TheNewDialog dialog({&old});
        dialog.setWizardFactories({&fresh});
        QCOMPARE(rows(&dialog), texts({"Projects", "  new"}));
        QCOMPARE(dialog.currentFactory(), &fresh);
        QCOMPARE(descriptionIn(&dialog), QStringLiteral("about new"));
    }

    void noFactoriesAfterSomeLeaveNothingToRun()
    {
        FileWizard old(QStringLiteral("old"));
        TheNewDialog dialog({&old});
        dialog.setWizardFactories({});
        QVERIFY(rows(&dialog).isEmpty());
        QVERIFY(descriptionIn(&dialog).isEmpty());
        QVERIFY(!isOkEnabled(&dialog));
    }

    void nullFactoriesAreLeftOut()
    {
        FileWizard file(QStringLiteral("1"));
        const TheNewDialog dialog({nullptr, &file, nullptr});
        QCOMPARE(rows(&dialog), texts({"Files", "  1"}));
    }

    void factoryWithNothingToSayIsARowOfItsOwn()
    {
        FileWizard silent((QString()));
        silent.text.clear();
        const TheNewDialog dialog({&silent});
        QCOMPARE(rows(&dialog), texts({"Files", "  "}));
        QCOMPARE(dialog.currentFactory(), &silent);
        QVERIFY(isOkEnabled(&dialog));
    }

    void destroyedFactoryLeavesTheList()
    {
        auto first = std::make_unique<FileWizard>(QStringLiteral("1"), QStringLiteral("1"));
        FileWizard second(QStringLiteral("2"), QStringLiteral("2"));
        const TheNewDialog dialog({first.get(), &second});
        first.reset();
        QCOMPARE(rows(&dialog), texts({"Files", "  2"}));
        QCOMPARE(dialog.currentFactory(), &second);
        QCOMPARE(descriptionIn(&dialog), QStringLiteral("about 2"));
        QVERIFY(isOkEnabled(&dialog));
    }

    void theLastFactoryOfACategoryTakesItAlong()
    {
        auto project = std::make_unique<ProjectWizard>(QStringLiteral("project"));
        FileWizard file(QStringLiteral("file"));
        const TheNewDialog dialog({project.get(), &file});
        project.reset();
        QCOMPARE(rows(&dialog), texts({"Files", "  file"}));
        QVERIFY(!dialog.currentFactory() || dialog.currentFactory() == &file);
        QCOMPARE(isOkEnabled(&dialog), dialog.currentFactory() != nullptr);
    }

    void theLastFactoryLeavesNothingToRun()
    {
        auto file = std::make_unique<FileWizard>(QStringLiteral("1"));
        TheNewDialog dialog({file.get()});
        show(&dialog);
        file.reset();
        QVERIFY(rows(&dialog).isEmpty());
        QVERIFY(descriptionIn(&dialog).isEmpty());
        QVERIFY(!isOkEnabled(&dialog));
        dialog.accept();
        QVERIFY(dialog.isVisible());
    }

    void factoryDestroyedAfterItWasReplaced()
    {
        auto old = std::make_unique<FileWizard>(QStringLiteral("old"));
        FileWizard fresh(QStringLiteral("new"));
        TheNewDialog dialog({old.get()});
        dialog.setWizardFactories({&fresh});
        old.reset();
        QCOMPARE(rows(&dialog), texts({"Files", "  new"}));
    }

    void factoryThatIsDestroyedByItsOwnWizard()
    {
        QPointer<FileWizard> file = new FileWizard(QStringLiteral("1"));
        TheNewDialog dialog({file.data()});
        show(&dialog);
        file->whileRunning = [&file] { delete file; };
        dialog.accept();
        QVERIFY(!file);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void factoriesStayTheirOwners()
    {
        QPointer<FileWizard> file = new FileWizard(QStringLiteral("1"));
        {
            const TheNewDialog dialog({file.data()});
        }
        QVERIFY(file);
        delete file;
    }

private:
    static void themeRows()
    {
        QTest::addColumn<QString>("theme");
        for (const QString &theme : {APPSTYLE::THEME_CLASSIC, APPSTYLE::THEME_DARK})
            QTest::newRow(qPrintable(theme)) << theme;
    }

    static void show(QWidget *dialog)
    {
        dialog->show();
        if (!QTest::qWaitForWindowExposed(dialog))
            QTest::qFail("the dialog was not exposed", __FILE__, __LINE__);
    }

    std::unique_ptr<CoreFixture> m_core;
};

QTEST_MAIN(TestNewDialog)
#include "tst_newdialog.moc"
