// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// Ctrl+Tab, and the list of documents it shows.

#include "document.h"

#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QApplication>
#include <QDialog>
#include <QDockWidget>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPixmap>
#include <QTabWidget>
#include <QTest>

namespace {
QListWidget *listOf(const AreaFixture &f)
{
    return f.area->findChild<QListWidget *>(QStringLiteral("documentSwitcher"));
}

/// Without the release that QTest would add, because Ctrl is held.
void pressTab(QWidget *widget)
{
    QTest::simulateEvent(widget, true, Qt::Key_Tab, Qt::ControlModifier, QString(), false, -1);
}

void releaseCtrl(QWidget *widget)
{
    QTest::simulateEvent(widget, false, Qt::Key_Control, Qt::NoModifier, QString(), false, -1);
}
} // namespace

class TestDocumentSwitcher : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ctrlTabGoesToTheOneUsedBefore()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        Document *c = f.open(QStringLiteral("c"));
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        f.area->setCurrentSubWindow(AreaFixture::windowOf(c));
        f.currents.clear();
        QTest::keyPress(c->edit, Qt::Key_Tab, Qt::ControlModifier);
        QTest::keyRelease(c->edit, Qt::Key_Tab, Qt::ControlModifier);
        QTest::keyRelease(c->edit, Qt::Key_Control);
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
        QTRY_VERIFY(a->edit->hasFocus());
    }

    void heldCtrlWalksAndReleaseCommits()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        Document *c = f.open(QStringLiteral("c"));
        f.currents.clear();
        pressTab(c->edit);
        pressTab(c->edit);
        QVERIFY(listOf(f)->isVisible());
        QVERIFY(f.currents.isEmpty());
        releaseCtrl(c->edit);
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
    }

    void ctrlShiftTabWalksBackwards()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        Document *c = f.open(QStringLiteral("c"));
        QTest::simulateEvent(c->edit, true, Qt::Key_Backtab,
                             Qt::ControlModifier | Qt::ShiftModifier, QString(), false, -1);
        releaseCtrl(c->edit);
        QCOMPARE(f.area->currentWindow()->shortTitle(), QStringLiteral("a"));
    }

    void escapeEndsTheWalk()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        f.currents.clear();
        pressTab(b->edit);
        QTest::simulateEvent(b->edit, true, Qt::Key_Escape, Qt::ControlModifier, QString(), false,
                             -1);
        releaseCtrl(b->edit);
        QVERIFY(f.currents.isEmpty());
    }

    void documentDestroyedDuringTheWalkIsNotChosen()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        pressTab(b->edit);
        delete a;
        releaseCtrl(b->edit);
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(b));
    }

    void listHoldsTheDocumentsInOrderOfUse()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        b->setWindowModified(true);
        QPixmap red(16, 16);
        red.fill(Qt::red);
        b->setWindowIcon(QIcon(red));
        f.open(QStringLiteral("c"));
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        pressTab(a->edit);
        const QListWidget *list = listOf(f);
        QCOMPARE(list->count(), 3);
        QCOMPARE(list->item(0)->text(), QStringLiteral("a"));
        QCOMPARE(list->item(1)->text(), QStringLiteral("c"));
        QCOMPARE(list->item(2)->text(), QStringLiteral("b*"));
        QCOMPARE(list->item(2)->icon().cacheKey(), b->windowIcon().cacheKey());
        QCOMPARE(list->currentRow(), 1);
    }

    void longListLiesInsideTheArea()
    {
        AreaFixture f;
        Document *last = nullptr;
        for (int i = 0; i < 40; ++i)
            last = f.open(QString(60, QLatin1Char('m')) + QString::number(i));
        pressTab(last->edit);
        QVERIFY(f.area->rect().contains(listOf(f)->geometry()));
    }

    void walkGoesRoundAtTheEnd()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        Document *c = f.open(QStringLiteral("c"));
        f.currents.clear();
        for (int i = 0; i < 4; ++i)
            pressTab(c->edit);
        releaseCtrl(c->edit);
        QCOMPARE(f.currents, Titles{QStringLiteral("b")});
    }

    void walkBackToTheCurrentOneReportsNothing()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        f.currents.clear();
        pressTab(b->edit);
        pressTab(b->edit);
        releaseCtrl(b->edit);
        QVERIFY(f.currents.isEmpty());
        QVERIFY(b->edit->hasFocus());
    }

    void clickInTheListChoosesAtOnce()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        Document *c = f.open(QStringLiteral("c"));
        f.currents.clear();
        pressTab(c->edit);
        QListWidget *list = listOf(f);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                          list->visualItemRect(list->item(2)).center());
        QVERIFY(!list->isVisible());
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
        QTRY_VERIFY(a->edit->hasFocus());
        releaseCtrl(a->edit);
        QCOMPARE(f.currents.size(), 1);
    }

    void clickInTheListOnTheCurrentOneEndsTheWalk()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        f.currents.clear();
        pressTab(b->edit);
        QListWidget *list = listOf(f);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                          list->visualItemRect(list->item(0)).center());
        QVERIFY(!list->isVisible());
        QVERIFY(f.currents.isEmpty());
        QVERIFY(b->edit->hasFocus());
    }

    void clickBesideTheEntriesChoosesNothing()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        f.currents.clear();
        pressTab(b->edit);
        QListWidget *list = listOf(f);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                          QPoint(3, list->viewport()->height() + 20));
        QVERIFY(f.currents.isEmpty());
    }

    void listNeverTakesTheFocus()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        pressTab(b->edit);
        QListWidget *list = listOf(f);
        QTest::mousePress(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                          list->visualItemRect(list->item(1)).center());
        QVERIFY(b->edit->hasFocus());
    }

    void anotherWindowEndsTheWalk()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        f.currents.clear();
        pressTab(b->edit);
        QVERIFY(listOf(f)->isVisible());
        QDialog dialog(f.main);
        dialog.show();
        // A child of the active window passes for active to QTest.
        QTRY_COMPARE(QApplication::activeWindow(), &dialog);
        QVERIFY(!listOf(f)->isVisible());
        QVERIFY(f.currents.isEmpty());
    }

    void documentsClosedDuringTheWalkLeaveTheList()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        Document *c = f.open(QStringLiteral("c"));
        pressTab(c->edit);
        AreaFixture::windowOf(b)->close();
        QCOMPARE(listOf(f)->count(), 2);
        AreaFixture::windowOf(a)->close();
        AreaFixture::windowOf(c)->close();
        QVERIFY(!listOf(f)->isVisible());
        pressTab(f.main);
        QVERIFY(!listOf(f)->isVisible());
    }

    void walkMayEndWithEveryDocumentGoneBehindIt()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        pressTab(b->edit);
        QVERIFY(f.area->closeAll());
        releaseCtrl(f.main);
        QVERIFY(!f.area->currentWindow());
        QVERIFY(!listOf(f)->isVisible());
    }

    void singleDocumentIsNotWalked()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        pressTab(a->edit);
        QVERIFY(!listOf(f));
        QVERIFY(a->edit->hasFocus());
    }

    void walkStartsWithoutAFocus()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        b->edit->clearFocus();
        f.currents.clear();
        pressTab(f.main);
        releaseCtrl(f.main);
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
    }

    void panelMayUseTheKeyForItsPages()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        auto *dock = new QDockWidget(f.main);
        auto *pages = new QTabWidget(dock);
        auto *edit = new QLineEdit(pages);
        pages->addTab(edit, QStringLiteral("first"));
        pages->addTab(new QLineEdit(pages), QStringLiteral("second"));
        dock->setWidget(pages);
        f.main->addDockWidget(Qt::LeftDockWidgetArea, dock);
        edit->setFocus();
        f.currents.clear();
        QTest::keyClick(edit, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(pages->currentIndex(), 1);
        QVERIFY(!listOf(f));
        QVERIFY(f.currents.isEmpty());
    }

    void panelWithoutPagesLeavesTheKeyToTheDocuments()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        auto *dock = new QDockWidget(f.main);
        auto *edit = new QLineEdit(dock);
        dock->setWidget(edit);
        f.main->addDockWidget(Qt::LeftDockWidgetArea, dock);
        edit->setFocus();
        f.currents.clear();
        pressTab(edit);
        releaseCtrl(edit);
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
        QTRY_VERIFY(a->edit->hasFocus());
    }

    void walkWorksAmongWindowsToo()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        f.area->cascadeSubWindows();
        f.currents.clear();
        pressTab(b->edit);
        releaseCtrl(b->edit);
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
        QVERIFY(!f.area->isTabbed());
        QTRY_VERIFY(a->edit->hasFocus());
    }
};

QTEST_MAIN(TestDocumentSwitcher)
#include "tst_documentswitcher.moc"
