// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// The tabs of the documents where one reads from right to left.

#include "document.h"
#include "tabs.h"

#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QApplication>
#include <QIcon>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QPixmap>
#include <QStyleOptionTab>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

namespace {
/// What is painted of @p tab in exactly @p colour.
QRect painted(QTabBar *tabs, const QRect &tab, const QColor &colour)
{
    const QImage image = tabs->grab(tab).toImage();
    QRect found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour)
                found |= QRect(x, y, 1, 1);
        }
    }
    return found.translated(tab.topLeft());
}

void drag(QTabBar *tabs, const QPoint &from, const QPoint &to)
{
    QTest::mousePress(tabs, Qt::LeftButton, Qt::NoModifier, from);
    QMouseEvent move(QEvent::MouseMove, to, tabs->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(tabs, &move);
    QTest::mouseRelease(tabs, Qt::LeftButton, Qt::NoModifier, to);
}
} // namespace

class TestRightToLeft : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QApplication::setLayoutDirection(Qt::RightToLeft); }

    void firstTabStandsAtTheRight()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        const QTabBar *tabs = tabsOf(f);
        QCOMPARE(tabs->layoutDirection(), Qt::RightToLeft);
        QVERIFY(tabs->tabRect(0).left() > tabs->tabRect(1).right());
        QVERIFY(tabs->tabRect(0).right() > tabs->width() - 20);
    }

    void documentFillsTheAreaBelowTheTabs()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        QTRY_COMPARE(a->size(), f.area->viewport()->size());
        QCOMPARE(tabsOf(f)->width(), f.area->width() - 2 * f.area->frameWidth());
    }

    void closeButtonIsAtTheLeftEnd()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        QTest::mouseClick(tabsOf(f), Qt::LeftButton, Qt::NoModifier, closeButton(tabsOf(f), 0));
        QCOMPARE(f.closed, Titles{QStringLiteral("a")});
    }

    void rightEndOfATabChoosesIt()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.currents.clear();
        const QRect tab = tabsOf(f)->tabRect(0);
        QTest::mouseClick(tabsOf(f), Qt::LeftButton, Qt::NoModifier,
                          QPoint(tab.right() - 12, tab.center().y()));
        QVERIFY(f.closed.isEmpty());
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
    }

    void iconTitleAndCloseButtonStandSideBySide()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("top_level.v"));
        QPixmap red(16, 16);
        red.fill(Qt::red);
        a->setWindowIcon(QIcon(red));
        f.open(QStringLiteral("b"));
        QTabBar *tabs = tabsOf(f);
        const QRect tab = tabs->tabRect(0);

        const QRect icon = painted(tabs, tab, Qt::red);

        QCOMPARE(icon.size(), QSize(16, 16));
        QVERIFY(tab.contains(icon));
        QVERIFY(icon.left() > tab.center().x());
        QStyleOptionTab option;
        option.initFrom(tabs);
        option.rect = tab;
        option.icon = tabs->tabIcon(0);
        option.iconSize = tabs->iconSize();
        option.rightButtonSize = QSize(16, 16);
        option.text = tabs->tabText(0);
        const QRect title = tabs->style()->subElementRect(QStyle::SE_TabBarTabText, &option, tabs);
        QVERIFY(!title.intersects(icon));
        QVERIFY(title.left() > closeButton(tabs, 0).x());
        QVERIFY(title.width() >= tabs->fontMetrics().horizontalAdvance(tabs->tabText(0)));
    }

    void draggingToTheLeftMovesATabBehindTheOthers()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.open(QStringLiteral("c"));
        QTabBar *tabs = tabsOf(f);
        const QPoint from = tabs->tabRect(0).center() + QPoint(10, 0);
        drag(tabs, from, QPoint(tabs->tabRect(2).left() + 2, from.y()));
        QCOMPARE(tabs->tabText(2), QStringLiteral("a"));
        QCOMPARE(f.area->currentWindow()->shortTitle(), QStringLiteral("a"));
    }

    void draggingToTheRightMovesATabInFrontOfTheOthers()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.open(QStringLiteral("c"));
        QTabBar *tabs = tabsOf(f);
        const QPoint from = tabs->tabRect(2).center() + QPoint(10, 0);
        drag(tabs, from, QPoint(tabs->tabRect(0).right() - 2, from.y()));
        QCOMPARE(tabs->tabText(0), QStringLiteral("c"));
        QCOMPARE(f.area->currentWindow()->shortTitle(), QStringLiteral("c"));
    }

    void arrowKeysGoTheWayTheyPoint()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        tabsOf(f)->setFocus();
        f.currents.clear();
        QTest::keyClick(tabsOf(f), Qt::Key_Right);
        QTest::keyClick(tabsOf(f), Qt::Key_Left);
        QCOMPARE(f.currents, (Titles{QStringLiteral("a"), QStringLiteral("b")}));
    }

    void wheelReachesBothEnds_data()
    {
        QTest::addColumn<QPoint>("toTheEnd");
        QTest::newRow("down") << QPoint(0, -120);
        QTest::newRow("to the left") << QPoint(120, 0);
    }

    void wheelReachesBothEnds()
    {
        QFETCH(QPoint, toTheEnd);
        AreaFixture f;
        for (int i = 0; i < 20; ++i)
            f.open(QStringLiteral("document %1").arg(i));
        QTabBar *tabs = tabsOf(f);
        QTRY_VERIFY(
            tabs->findChild<QToolButton *>(QStringLiteral("ScrollLeftButton"))->isVisible());
        f.currents.clear();
        for (int i = 0; i < 30; ++i)
            turnWheel(tabs, -toTheEnd);
        QVERIFY(tabs->rect().contains(tabs->tabRect(0).center()));
        for (int i = 0; i < 30; ++i)
            turnWheel(tabs, toTheEnd);
        QVERIFY(tabs->rect().contains(tabs->tabRect(19).center()));
        QVERIFY(!tabs->rect().contains(tabs->tabRect(0).center()));
        QVERIFY(f.currents.isEmpty());
    }

    void currentTabIsInSight()
    {
        AreaFixture f;
        for (int i = 0; i < 40; ++i)
            f.open(QStringLiteral("document %1").arg(i));
        const QTabBar *tabs = tabsOf(f);
        QVERIFY(tabs->rect().contains(tabs->tabRect(39).center()));
        f.area->setCurrentSubWindow(f.area->subWindows().constFirst());
        QVERIFY(tabs->rect().contains(tabs->tabRect(0).center()));
    }

    void menuKeyOpensTheMenuOfTheCurrentTab()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        withMenuByKey(tabsOf(f), [](QMenu *menu) {
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        QCOMPARE(f.closed, Titles{QStringLiteral("b")});
    }

    void ctrlTabWalksTheListInTheMiddleOfTheArea()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        QTest::simulateEvent(b->edit, true, Qt::Key_Tab, Qt::ControlModifier, QString(), false, -1);
        const auto *list = f.area->findChild<QListWidget *>(QStringLiteral("documentSwitcher"));
        QVERIFY(f.area->rect().contains(list->geometry()));
        QVERIFY(qAbs(list->geometry().center().x() - f.area->rect().center().x()) <= 1);
        QTest::simulateEvent(b->edit, false, Qt::Key_Control, Qt::NoModifier, QString(), false, -1);
        QCOMPARE(f.area->currentWindow()->shortTitle(), QStringLiteral("a"));
    }

    void tilesAndTabsWork()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        f.area->tileSubWindows();
        QVERIFY(a->isVisible() && b->isVisible());
        QVERIFY(
            !AreaFixture::windowOf(a)->geometry().intersects(AreaFixture::windowOf(b)->geometry()));
        AreaFixture::windowOf(a)->showMaximized();
        QCOMPARE(AreaFixture::windowOf(a)->geometry(), f.area->viewport()->rect());
    }

    void directionMayChangeWhileDocumentsAreOpen()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        QTabBar *tabs = tabsOf(f);
        f.main->setLayoutDirection(Qt::LeftToRight);
        QVERIFY(tabs->tabRect(0).right() < tabs->tabRect(1).left());
        QTest::mouseClick(tabs, Qt::LeftButton, Qt::NoModifier, closeButton(tabs, 0));
        QCOMPARE(f.closed, Titles{QStringLiteral("a")});
    }
};

QTEST_MAIN(TestRightToLeft)
#include "tst_righttoleft.moc"
