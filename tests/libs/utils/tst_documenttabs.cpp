// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "document.h"

#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QHelpEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QPixmap>
#include <QStyleOptionTab>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QUrl>

using Utils::MdiSubWindow;

namespace {
using Titles = QVector<QString>;

QTabBar *tabsOf(const AreaFixture &f)
{
    return f.area->findChild<QTabBar *>(QStringLiteral("documentTabBar"));
}

/// The close button lies at the far end of its tab.
QPoint closeButton(const QTabBar *tabs, int index)
{
    const QRect tab = tabs->tabRect(index);
    return {tab.right() - 12, tab.center().y()};
}

/// Opens the context menu of a tab by the mouse and hands it to @p use.
template<class Use>
void withMenu(QTabBar *tabs, int index, Use use)
{
    bool met = false;
    QTimer::singleShot(0, tabs, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        met = true;
        use(menu);
        menu->close();
    });
    const QPoint pos = tabs->tabRect(index).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, tabs->mapToGlobal(pos));
    QApplication::sendEvent(tabs, &event);
    QVERIFY(met);
}

QAction *entry(const QMenu *menu, const char *text)
{
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        QString plain = action->text();
        if (plain.remove(QLatin1Char('&')) == QLatin1String(text))
            return action;
    }
    return nullptr;
}

void choose(QTabBar *tabs, int index, const char *text)
{
    withMenu(tabs, index, [text](QMenu *menu) {
        QAction *action = entry(menu, text);
        QVERIFY(action && action->isEnabled());
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                          menu->actionGeometry(action).center());
    });
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
        QPixmap red(16, 16);
        red.fill(Qt::red);
        const QIcon icon(red);
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
        a->setWindowFilePath(QStringLiteral("/work/dir/a.v"));
        QTabBar *tabs = tabsOf(f);
        const QPoint pos = tabs->tabRect(0).center();
        QHelpEvent event(QEvent::ToolTip, pos, tabs->mapToGlobal(pos));
        QApplication::sendEvent(tabs, &event);
        QTRY_VERIFY(QToolTip::isVisible());
        QVERIFY(QToolTip::text().contains(QStringLiteral("/work/dir/a.v")));
        QVERIFY(QToolTip::text().contains(QStringLiteral("whole &lt;b&gt;title")));
        QToolTip::hideText();
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
        QTest::simulateEvent(c->edit, true, Qt::Key_Tab, Qt::ControlModifier, QString(), false, -1);
        QTest::simulateEvent(c->edit, true, Qt::Key_Tab, Qt::ControlModifier, QString(), false, -1);
        QVERIFY(f.area->findChild<QListWidget *>(QStringLiteral("documentSwitcher"))->isVisible());
        QVERIFY(f.currents.isEmpty());
        QTest::simulateEvent(c->edit, false, Qt::Key_Control, Qt::NoModifier, QString(), false, -1);
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
        QTest::simulateEvent(c->edit, false, Qt::Key_Control, Qt::NoModifier, QString(), false, -1);
        QCOMPARE(f.area->currentWindow()->shortTitle(), QStringLiteral("a"));
    }

    void escapeEndsTheWalk()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        f.currents.clear();
        QTest::simulateEvent(b->edit, true, Qt::Key_Tab, Qt::ControlModifier, QString(), false, -1);
        QTest::simulateEvent(b->edit, true, Qt::Key_Escape, Qt::ControlModifier, QString(), false,
                             -1);
        QTest::simulateEvent(b->edit, false, Qt::Key_Control, Qt::NoModifier, QString(), false, -1);
        QVERIFY(f.currents.isEmpty());
    }

    void documentDestroyedDuringTheWalkIsNotChosen()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        QTest::simulateEvent(b->edit, true, Qt::Key_Tab, Qt::ControlModifier, QString(), false, -1);
        delete a;
        QTest::simulateEvent(b->edit, false, Qt::Key_Control, Qt::NoModifier, QString(), false, -1);
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(b));
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

    void openUrl(const QUrl &url) { m_opened = url; }
};

QTEST_MAIN(TestDocumentTabs)
#include "tst_documenttabs.moc"
