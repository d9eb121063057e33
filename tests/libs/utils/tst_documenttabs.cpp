// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "document.h"
#include "tabs.h"

#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QHelpEvent>
#include <QIcon>
#include <QImage>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPixmap>
#include <QPointer>
#include <QStyleOptionTab>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <QToolTip>
#include <QUrl>

using Utils::MdiSubWindow;

namespace {
QIcon filled(Qt::GlobalColor colour)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(colour);
    return QIcon(pixmap);
}
} // namespace

class TestDocumentTabs : public QObject
{
    Q_OBJECT
private:
    QUrl m_opened;

private Q_SLOTS:
    void barIsAboveTheDocumentsOnlyWhileThereAreAny()
    {
        AreaFixture f;
        QVERIFY(!tabsOf(f)->isVisible());
        f.open(QStringLiteral("a"));
        QVERIFY(tabsOf(f)->isVisible());
        QCOMPARE(f.area->viewport()->geometry().top(), tabsOf(f)->geometry().bottom() + 1);
        f.area->closeCurrent();
        QVERIFY(!tabsOf(f)->isVisible());
        QCOMPARE(f.area->viewport()->geometry(), f.area->rect());
    }

    void tabShowsTheShortTitleEscaped()
    {
        AreaFixture f;
        f.open(QStringLiteral("a & b"));
        QCOMPARE(tabsOf(f)->tabText(0), QStringLiteral("a && b"));
        f.area->currentWindow()->setShortTitle(QStringLiteral("c"));
        QCOMPARE(tabsOf(f)->tabText(0), QStringLiteral("c"));
    }

    void withoutAShortTitleTheWindowTitleIsShown()
    {
        AreaFixture f;
        Document *a = f.open(QString());
        a->setWindowTitle(QStringLiteral("top.v[*]"));
        QCOMPARE(tabsOf(f)->tabText(0), QStringLiteral("top.v"));
    }

    void modifiedDocumentIsMarked()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        a->setWindowModified(true);
        QCOMPARE(tabsOf(f)->tabText(0), QStringLiteral("a*"));
        a->setWindowModified(false);
        QCOMPARE(tabsOf(f)->tabText(0), QStringLiteral("a"));
    }

    void iconOfTheDocumentIsFollowed()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        const QIcon icon = filled(Qt::red);
        a->setWindowIcon(icon);
        QCOMPARE(tabsOf(f)->tabIcon(0).cacheKey(), icon.cacheKey());
        f.area->tileSubWindows();
        QCOMPARE(f.area->currentWindow()->windowIcon().cacheKey(), icon.cacheKey());
    }

    void usualTitleHasRoomBesideIconAndButton()
    {
        AreaFixture f;
        const QString name = QStringLiteral("counter.sv");
        QPixmap icon(16, 16);
        icon.fill(Qt::red);
        f.open(name)->setWindowIcon(icon);
        const QTabBar *bar = tabsOf(f);
        QStyleOptionTab tab;
        tab.initFrom(bar);
        tab.rect = bar->tabRect(0);
        tab.icon = bar->tabIcon(0);
        tab.iconSize = bar->iconSize();
        tab.rightButtonSize = QSize(16, 16);
        const QRect room = bar->style()->subElementRect(QStyle::SE_TabBarTabText, &tab, bar);
        QVERIFY(room.width() >= bar->fontMetrics().horizontalAdvance(name));
    }

    void documentWithoutAnIconShowsThatOfTheMainWindow()
    {
        AreaFixture f;
        const QIcon icon = filled(Qt::green);
        f.main->setWindowIcon(icon);
        f.open(QStringLiteral("a"));
        QCOMPARE(tabsOf(f)->tabIcon(0).cacheKey(), icon.cacheKey());
    }

    void withoutAnyIconTheTabShowsNone()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        QVERIFY(tabsOf(f)->tabIcon(0).isNull());
    }

    void iconTakenAwayGivesWayToThatOfTheMainWindow_data()
    {
        QTest::addColumn<bool>("tiledBefore");
        QTest::newRow("under tabs") << false;
        QTest::newRow("tiled before") << true;
    }

    void iconTakenAwayGivesWayToThatOfTheMainWindow()
    {
        QFETCH(bool, tiledBefore);
        AreaFixture f;
        const QIcon icon = filled(Qt::green);
        f.main->setWindowIcon(icon);
        Document *a = f.open(QStringLiteral("a"));
        a->setWindowIcon(filled(Qt::red));
        if (tiledBefore) {
            f.area->tileSubWindows();
            f.area->showTabs();
        }
        a->setWindowIcon(QIcon());
        QCOMPARE(tabsOf(f)->tabIcon(0).cacheKey(), icon.cacheKey());
        f.area->tileSubWindows();
        QCOMPARE(AreaFixture::windowOf(a)->windowIcon().cacheKey(), icon.cacheKey());
    }

    void longTitleIsCutButKnownInFull()
    {
        AreaFixture f;
        const QString name(300, QLatin1Char('m'));
        f.open(name);
        QVERIFY(tabsOf(f)->tabRect(0).width() < 700);
        QCOMPARE(tabsOf(f)->tabText(0), name);
    }

    void clickMakesCurrentOnce()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.currents.clear();
        QTest::mouseClick(tabsOf(f), Qt::LeftButton, Qt::NoModifier,
                          tabsOf(f)->tabRect(0).center());
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
        QTRY_VERIFY(a->edit->hasFocus());
    }

    void clickOnTheCurrentTabGivesTheFocusWithoutAReport()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        tabsOf(f)->setFocus();
        f.currents.clear();
        QTest::mouseClick(tabsOf(f), Qt::LeftButton, Qt::NoModifier,
                          tabsOf(f)->tabRect(0).center());
        QVERIFY(a->edit->hasFocus());
        QVERIFY(f.currents.isEmpty());
    }

    void closeButtonClosesItsDocument()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.currents.clear();
        QTest::mouseClick(tabsOf(f), Qt::LeftButton, Qt::NoModifier, closeButton(tabsOf(f), 0));
        QCOMPARE(f.closed, Titles{QStringLiteral("a")});
        QVERIFY(f.currents.isEmpty());
    }

    void closeButtonLeftBeforeTheReleaseDoesNothing()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        QTest::mousePress(tabsOf(f), Qt::LeftButton, Qt::NoModifier, closeButton(tabsOf(f), 0));
        QTest::mouseRelease(tabsOf(f), Qt::LeftButton, Qt::NoModifier,
                            tabsOf(f)->tabRect(0).topLeft() + QPoint(3, 3));
        QVERIFY(f.closed.isEmpty());
    }

    void middleClickCloses()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        QTest::mouseClick(tabsOf(f), Qt::MiddleButton, Qt::NoModifier,
                          tabsOf(f)->tabRect(0).center());
        QCOMPARE(f.closed, Titles{QStringLiteral("a")});
    }

    void tabsCanBeDragged()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.open(QStringLiteral("c"));
        QTabBar *tabs = tabsOf(f);
        const QPoint from = tabs->tabRect(0).center() - QPoint(10, 0);
        const QPoint to(tabs->tabRect(2).right() - 2, from.y());
        QTest::mousePress(tabs, Qt::LeftButton, Qt::NoModifier, from);
        QMouseEvent move(QEvent::MouseMove, to, tabs->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(tabs, &move);
        QTest::mouseRelease(tabs, Qt::LeftButton, Qt::NoModifier, to);
        QCOMPARE(tabs->tabText(2), QStringLiteral("a"));
        QCOMPARE(f.area->currentWindow()->shortTitle(), QStringLiteral("a"));
        QTest::mouseClick(tabs, Qt::LeftButton, Qt::NoModifier, tabs->tabRect(0).center());
        QCOMPARE(f.area->currentWindow()->shortTitle(), QStringLiteral("b"));
        // The order of creation is not that of the tabs.
        QCOMPARE(f.area->subWindows().constFirst()->shortTitle(), QStringLiteral("a"));
    }

    void toolTipShowsTheFullTitle()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        a->setWindowTitle(QStringLiteral("whole <b>title</b>[*]"));
        a->setWindowFilePath(QStringLiteral("/designs/a.v"));
        QTabBar *tabs = tabsOf(f);
        const QPoint pos = tabs->tabRect(0).center();
        QHelpEvent event(QEvent::ToolTip, pos, tabs->mapToGlobal(pos));
        QApplication::sendEvent(tabs, &event);
        QTRY_VERIFY(QToolTip::isVisible());
        QVERIFY(QToolTip::text().contains(QStringLiteral("/designs/a.v")));
        QVERIFY(QToolTip::text().contains(QStringLiteral("whole &lt;b&gt;title")));
        QToolTip::hideText();
    }

    void toolTipGoesBesideTheTabs()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        QTabBar *tabs = tabsOf(f);
        const QPoint pos = tabs->tabRect(0).center();
        QHelpEvent over(QEvent::ToolTip, pos, tabs->mapToGlobal(pos));
        QApplication::sendEvent(tabs, &over);
        QTRY_VERIFY(QToolTip::isVisible());

        const QPoint beside(tabs->width() - 5, 5);
        QHelpEvent away(QEvent::ToolTip, beside, tabs->mapToGlobal(beside));
        QApplication::sendEvent(tabs, &away);

        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void closeButtonUnderTheMouseIsMarked()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        QTabBar *tabs = tabsOf(f);
        const QPoint pos = closeButton(tabs, 0);
        const QImage plain = tabs->grab().toImage();

        QMouseEvent move(QEvent::MouseMove, pos, tabs->mapToGlobal(pos), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(tabs, &move);
        const QImage marked = tabs->grab().toImage();
        QTest::mousePress(tabs, Qt::LeftButton, Qt::NoModifier, pos);
        const QImage pressed = tabs->grab().toImage();
        QTest::mouseRelease(tabs, Qt::LeftButton, Qt::NoModifier, tabs->tabRect(0).center());
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(tabs, &leave);

        QVERIFY(marked != plain);
        QVERIFY(pressed != marked);
        QCOMPARE(tabs->grab().toImage(), plain);
    }

    void clickBesideTheTabsDoesNothing()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.currents.clear();
        const QPoint beside(tabsOf(f)->width() - 5, 5);
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton})
            QTest::mouseClick(tabsOf(f), button, Qt::NoModifier, beside);
        QVERIFY(f.closed.isEmpty());
        QVERIFY(f.currents.isEmpty());
    }

    void middleButtonReleasedOverAnotherTabDoesNothing()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        QTest::mousePress(tabsOf(f), Qt::MiddleButton, Qt::NoModifier,
                          tabsOf(f)->tabRect(0).center());
        QTest::mouseRelease(tabsOf(f), Qt::MiddleButton, Qt::NoModifier,
                            tabsOf(f)->tabRect(1).center());
        QVERIFY(f.closed.isEmpty());
    }

    void menuCloses()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        choose(tabsOf(f), 0, "Close");
        QCOMPARE(f.closed, Titles{QStringLiteral("a")});
    }

    void menuClosesOthers()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.open(QStringLiteral("c"));
        choose(tabsOf(f), 1, "Close Others");
        QCOMPARE(f.closed, (Titles{QStringLiteral("a"), QStringLiteral("c")}));
        QCOMPARE(f.currents.constLast(), QStringLiteral("b"));
    }

    void menuClosesAll()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        choose(tabsOf(f), 1, "Close All");
        QCOMPARE(f.closed.size(), 2);
    }

    void menuCopiesThePath()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"))->setWindowFilePath(QStringLiteral("/some/where/a.v"));
        choose(tabsOf(f), 0, "Copy Path");
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("/some/where/a.v"));
    }

    void menuOpensTheFolder()
    {
        AreaFixture f;
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "openUrl");
        f.open(QStringLiteral("a"))->setWindowFilePath(QStringLiteral("/some/where/a.v"));
        choose(tabsOf(f), 0, "Open Containing Folder");
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
        QCOMPARE(m_opened, QUrl::fromLocalFile(QStringLiteral("/some/where")));
    }

    void menuKeyOpensTheMenuOfTheCurrentTab()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.open(QStringLiteral("c"));
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        tabsOf(f)->setFocus();
        QPoint pos;
        withMenuByKey(tabsOf(f), [&pos](QMenu *menu) {
            pos = menu->pos();
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        QCOMPARE(f.closed, Titles{QStringLiteral("a")});
        QCOMPARE(pos, tabsOf(f)->mapToGlobal(tabsOf(f)->tabRect(0).bottomLeft()));
    }

    void menuLeftWithEscapeDoesNothing()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        withMenuByKey(tabsOf(f), [](QMenu *menu) { QTest::keyClick(menu, Qt::Key_Escape); });
        QVERIFY(f.closed.isEmpty());
    }

    void placeBesideTheTabsHasNoMenu()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        QTabBar *tabs = tabsOf(f);
        const QPoint beside(tabs->width() - 5, 5);
        QVERIFY(!tabs->tabRect(0).contains(beside));
        QContextMenuEvent event(QContextMenuEvent::Mouse, beside, tabs->mapToGlobal(beside));
        QApplication::sendEvent(tabs, &event);
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(event.isAccepted());
    }

    void documentMayGoWhileItsMenuIsOpen()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        withMenu(tabsOf(f), 1, [b](QMenu *menu) {
            delete b;
            QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                              menu->actionGeometry(entry(menu, "Close Others")).center());
        });
        QVERIFY(f.closed.isEmpty());
        QCOMPARE(f.area->subWindows().size(), 1);
    }

    void areaMayGoWhileAMenuIsOpen()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        const QPointer<Utils::MdiArea> area(f.area);
        QTabBar *tabs = tabsOf(f);
        withMenu(tabs, 0, [&area](QMenu *) { delete area; });
        QVERIFY(!area);
        QVERIFY(f.closed.isEmpty());
    }

    void menuEntriesForPathsNeedAPath()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        withMenu(tabsOf(f), 0, [](const QMenu *menu) {
            QVERIFY(!entry(menu, "Copy Path")->isEnabled());
            QVERIFY(!entry(menu, "Open Containing Folder")->isEnabled());
            QVERIFY(!entry(menu, "Close Others")->isEnabled());
        });
    }

    void arrowKeysChooseAndKeepTheFocusInTheBar()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        tabsOf(f)->setFocus();
        f.currents.clear();
        QTest::keyClick(tabsOf(f), Qt::Key_Left);
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
        QVERIFY(tabsOf(f)->hasFocus());
        QTest::keyClick(tabsOf(f), Qt::Key_Right);
        QTest::keyClick(tabsOf(f), Qt::Key_Return);
        QVERIFY(b->edit->hasFocus());
    }

    void deleteKeyOnTheBarCloses()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        tabsOf(f)->setFocus();
        QTest::keyClick(tabsOf(f), Qt::Key_Delete);
        QCOMPARE(f.closed, Titles{QStringLiteral("a")});
    }

    void barAndAreaHaveAccessibleNames()
    {
        const AreaFixture f;
        QVERIFY(!tabsOf(f)->accessibleName().isEmpty());
        QVERIFY(!f.area->accessibleName().isEmpty());
    }

    void manyTabsGetScrollButtonsAndTheCurrentIsInSight()
    {
        AreaFixture f;
        for (int i = 0; i < 40; ++i)
            f.open(QStringLiteral("document %1").arg(i));
        QTabBar *tabs = tabsOf(f);
        QTRY_VERIFY(
            tabs->findChild<QToolButton *>(QStringLiteral("ScrollLeftButton"))->isVisible());
        QVERIFY(tabs->rect().contains(tabs->tabRect(39).center()));
        f.area->setCurrentSubWindow(f.area->subWindows().constFirst());
        QVERIFY(tabs->rect().contains(tabs->tabRect(0).center()));
    }

    void wheelScrollsTheTabsAndLeavesTheDocument()
    {
        AreaFixture f;
        for (int i = 0; i < 40; ++i)
            f.open(QStringLiteral("document %1").arg(i));
        f.area->setCurrentSubWindow(f.area->subWindows().constFirst());
        QTabBar *tabs = tabsOf(f);
        QTRY_VERIFY(
            tabs->findChild<QToolButton *>(QStringLiteral("ScrollRightButton"))->isVisible());
        f.currents.clear();
        const int first = tabs->tabRect(0).left();

        turnWheel(tabs, QPoint(0, -120));
        const int turned = tabs->tabRect(0).left();
        QVERIFY(turned < first);
        turnWheel(tabs, QPoint(-120, 0));
        QVERIFY(tabs->tabRect(0).left() < turned);
        for (int i = 0; i < 3; ++i)
            turnWheel(tabs, QPoint(0, 120));

        QCOMPARE(tabs->tabRect(0).left(), first);
        QVERIFY(f.currents.isEmpty());
        QCOMPARE(tabs->currentIndex(), 0);
    }

    void wheelReachesBothEndsAndStopsThere()
    {
        AreaFixture f;
        for (int i = 0; i < 20; ++i)
            f.open(QStringLiteral("document %1").arg(i));
        QTabBar *tabs = tabsOf(f);
        for (int i = 0; i < 50; ++i)
            turnWheel(tabs, QPoint(0, 120));
        QVERIFY(tabs->rect().contains(tabs->tabRect(0).center()));
        for (int i = 0; i < 50; ++i)
            turnWheel(tabs, QPoint(0, -120));
        QVERIFY(tabs->rect().contains(tabs->tabRect(19).center()));
    }

    void wheelInSmallStepsScrollsOnceANotch()
    {
        AreaFixture f;
        for (int i = 0; i < 40; ++i)
            f.open(QStringLiteral("document %1").arg(i));
        f.area->setCurrentSubWindow(f.area->subWindows().constFirst());
        QTabBar *tabs = tabsOf(f);
        turnWheel(tabs, QPoint(0, -120));
        const int oneNotch = tabs->tabRect(0).left();
        turnWheel(tabs, QPoint(0, 120));
        for (int i = 0; i < 7; ++i)
            turnWheel(tabs, QPoint(0, -15));
        const int before = tabs->tabRect(0).left();
        turnWheel(tabs, QPoint(0, -15));
        QVERIFY(before > oneNotch);
        QCOMPARE(tabs->tabRect(0).left(), oneNotch);
    }

    void wheelOverFewTabsDoesNothing()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.currents.clear();
        turnWheel(tabsOf(f), QPoint(0, 120));
        turnWheel(tabsOf(f), QPoint(0, -120));
        QVERIFY(f.currents.isEmpty());
        QCOMPARE(tabsOf(f)->currentIndex(), 1);
    }

    void openUrl(const QUrl &url) { m_opened = url; }
};

QTEST_MAIN(TestDocumentTabs)
#include "tst_documenttabs.moc"
