// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// Documents shown as windows, tiled or cascaded, and the way back to the tabs.

#include "document.h"
#include "tabs.h"

#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>

using Utils::MdiSubWindow;

class TestTiledWindows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void tileShowsAllAsWindowsSideBySide()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        f.currents.clear();
        f.area->tileSubWindows();
        QVERIFY(!f.area->isTabbed());
        QVERIFY(a->isVisible());
        QVERIFY(b->isVisible());
        QVERIFY(!AreaFixture::windowOf(a)->isMaximized());
        QVERIFY(
            !AreaFixture::windowOf(a)->geometry().intersects(AreaFixture::windowOf(b)->geometry()));
        QVERIFY(!f.area->findChild<QTabBar *>(QStringLiteral("documentTabBar"))->isVisible());
        QVERIFY(f.currents.isEmpty());
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(b));
        QVERIFY(b->edit->hasFocus());
    }

    void cascadeShowsAllAsWindowsOverlapping()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        f.area->cascadeSubWindows();
        QVERIFY(a->isVisible() && b->isVisible());
        QVERIFY(
            AreaFixture::windowOf(a)->geometry().intersects(AreaFixture::windowOf(b)->geometry()));
        QVERIFY(AreaFixture::windowOf(a)->pos() != AreaFixture::windowOf(b)->pos());
        QVERIFY(AreaFixture::windowOf(a)->width() >= f.area->width() / 2);
        QVERIFY(AreaFixture::windowOf(a)->height() >= f.area->height() / 2);
    }

    void tileAndCascadeWithoutDocumentsKeepTheTabs()
    {
        AreaFixture f;
        f.area->tileSubWindows();
        f.area->cascadeSubWindows();
        QVERIFY(f.area->isTabbed());
    }

    void documentMayDestroyAWindowWhenItIsShownOrHidden_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("shown") << int(QEvent::Show);
        QTest::newRow("hidden") << int(QEvent::Hide);
    }

    void documentMayDestroyAWindowWhenItIsShownOrHidden()
    {
        QFETCH(int, type);
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        const QPointer<MdiSubWindow> b(AreaFixture::windowOf(f.open(QStringLiteral("b"))));
        f.open(QStringLiteral("c"));
        OnEvent destroyer(QEvent::Type(type), [&b] { delete b; });
        a->installEventFilter(&destroyer);

        f.area->tileSubWindows();
        f.area->showTabs();

        QVERIFY(!b);
        QCOMPARE(f.area->subWindows().size(), 2);
        QCOMPARE(f.area->currentWindow()->shortTitle(), QStringLiteral("c"));
    }

    void clickActivatesATiledWindow()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.area->tileSubWindows();
        f.currents.clear();
        QTest::mouseClick(a->edit, Qt::LeftButton);
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
        QVERIFY(a->edit->hasFocus());
    }

    void maximisingBringsTheTabsBack()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        f.area->tileSubWindows();
        f.currents.clear();
        AreaFixture::windowOf(a)->showMaximized();
        QVERIFY(f.area->isTabbed());
        QVERIFY(f.area->findChild<QTabBar *>(QStringLiteral("documentTabBar"))->isVisible());
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
        QVERIFY(!b->isVisible());
        QCOMPARE(AreaFixture::windowOf(a)->geometry(), f.area->viewport()->rect());
        QTRY_VERIFY(a->edit->hasFocus());
    }

    void documentHiddenByTheTabsMayCloseTheOneMaximised_data()
    {
        QTest::addColumn<bool>("current");
        QTest::newRow("the current one") << true;
        QTest::newRow("another one") << false;
    }

    void documentHiddenByTheTabsMayCloseTheOneMaximised()
    {
        QFETCH(bool, current);
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        const QPointer<MdiSubWindow> b(AreaFixture::windowOf(f.open(QStringLiteral("b"))));
        f.area->tileSubWindows();
        f.area->setCurrentSubWindow(current ? b.data() : AreaFixture::windowOf(a));
        OnEvent closes(QEvent::Hide, [&b] {
            if (b)
                b->close();
        });
        a->installEventFilter(&closes);

        b->showMaximized();

        QCOMPARE(f.closed, Titles{QStringLiteral("b")});
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(a));
        QVERIFY(a->isVisible());
        QVERIFY(f.area->isTabbed());
        QTRY_VERIFY(!b);
        QCOMPARE(f.area->subWindows(), QList<MdiSubWindow *>{AreaFixture::windowOf(a)});
    }

    void doubleClickOnATitleBarBringsTheTabsBack()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.area->tileSubWindows();
        MdiSubWindow *window = AreaFixture::windowOf(a);
        const QPoint bar(window->width() / 2, 10);
        QMouseEvent move(QEvent::MouseMove, bar, window->mapToGlobal(bar), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(window, &move);
        QTest::mouseDClick(window, Qt::LeftButton, Qt::NoModifier, bar);
        QVERIFY(f.area->isTabbed());
        QCOMPARE(f.area->currentWindow(), window);
    }

    void openingWhileTiledAddsAWindow()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.area->tileSubWindows();
        const Document *b = f.open(QStringLiteral("b"));
        QVERIFY(!f.area->isTabbed());
        QVERIFY(!AreaFixture::windowOf(b)->isMaximized());
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(b));
    }

    void afterTheLastTiledWindowTheNextLiesUnderTabs()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.area->tileSubWindows();
        f.area->closeCurrent();
        f.open(QStringLiteral("b"));
        QVERIFY(f.area->isTabbed());
        QVERIFY(f.area->currentWindow()->isMaximized());
    }

    void minimisedWindowComesBackWhenItIsMadeCurrent()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.area->tileSubWindows();
        AreaFixture::windowOf(a)->showMinimized();
        QVERIFY(AreaFixture::windowOf(a)->isMinimized());

        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));

        QVERIFY(!AreaFixture::windowOf(a)->isMinimized());
        QVERIFY(a->isVisible());
        QTRY_VERIFY(a->edit->hasFocus());
    }

    void minimisedWindowStaysSmallWhileAnotherIsCurrent_data()
    {
        QTest::addColumn<bool>("current");
        QTest::newRow("the current one") << true;
        QTest::newRow("another one") << false;
    }

    void minimisedWindowStaysSmallWhileAnotherIsCurrent()
    {
        QFETCH(bool, current);
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        f.area->tileSubWindows();
        MdiSubWindow *small = AreaFixture::windowOf(current ? b : a);
        MdiSubWindow *other = AreaFixture::windowOf(current ? a : b);

        small->showMinimized();
        QVERIFY(small->isMinimized());
        f.area->setCurrentSubWindow(other);

        QVERIFY(small->isMinimized());
        QVERIFY(!f.area->isTabbed());
        QCOMPARE(f.area->currentWindow(), other);
    }

    void minimisedWindowFillsTheAreaUnderTabs()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        f.area->tileSubWindows();
        AreaFixture::windowOf(a)->showMinimized();
        AreaFixture::windowOf(b)->showShaded();

        f.area->showTabs();
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        QTRY_COMPARE(a->size(), f.area->viewport()->size());
        QVERIFY(a->isVisible());
        f.area->setCurrentSubWindow(AreaFixture::windowOf(b));
        QTRY_COMPARE(b->size(), f.area->viewport()->size());
        QVERIFY(b->isVisible());
    }

    void scrollBarsReachWindowsMovedOutAndGoWithTheTabs()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.area->cascadeSubWindows();
        QVERIFY(!f.area->horizontalScrollBar()->isVisible());
        AreaFixture::windowOf(a)->move(f.area->width(), 0);
        QTRY_VERIFY(f.area->horizontalScrollBar()->isVisible());

        f.area->showTabs();

        QTRY_VERIFY(!f.area->horizontalScrollBar()->isVisible());
        QTRY_COMPARE(f.area->currentWindow()->geometry(), f.area->viewport()->rect());
    }

    void tilingFollowsTheMainWindow()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        f.area->tileSubWindows();
        f.main->resize(900, 600);
        QTRY_COMPARE(f.main->width(), 900);
        const QRect tiles =
            AreaFixture::windowOf(a)->geometry() | AreaFixture::windowOf(b)->geometry();
        QTRY_COMPARE(tiles.size(), f.area->viewport()->size());
    }

    void titleBarShowsTitleAndModifiedMark()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        a->setWindowTitle(QStringLiteral("top.v[*]"));
        f.area->tileSubWindows();
        a->setWindowModified(true);
        QCOMPARE(AreaFixture::windowOf(a)->windowTitle(), QStringLiteral("top.v[*]"));
        QVERIFY(AreaFixture::windowOf(a)->isWindowModified());
    }

    void windowRemovedWhileTiledIsWholeAgain()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        const std::unique_ptr<MdiSubWindow> window(AreaFixture::windowOf(b));
        f.area->tileSubWindows();
        f.area->removeSubWindow(window.get());
        QVERIFY(!f.area->isTabbed());
        QCOMPARE(f.area->currentWindow()->shortTitle(), QStringLiteral("a"));
        QVERIFY(!window->isMaximized());
    }
};

QTEST_MAIN(TestTiledWindows)
#include "tst_tiledwindows.moc"
