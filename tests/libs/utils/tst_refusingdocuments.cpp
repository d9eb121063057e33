// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// Documents that refuse to close, under tabs, tiled and cascaded, asked in every
// way there is.

#include "document.h"
#include "tabs.h"

#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QStyle>
#include <QStyleOptionTitleBar>
#include <QTabBar>
#include <QTest>

using Utils::MdiSubWindow;

enum class Shape { Tabs, Tiled, Cascaded };
enum class Way { Window, Key, CloseCurrent, CloseAll, TabButton, MiddleClick, TitleBarButton };
Q_DECLARE_METATYPE(Shape)
Q_DECLARE_METATYPE(Way)

namespace {
void bring(AreaFixture &f, Shape shape)
{
    if (shape == Shape::Tiled)
        f.area->tileSubWindows();
    else if (shape == Shape::Cascaded)
        f.area->cascadeSubWindows();
    QCOMPARE(f.area->isTabbed(), shape == Shape::Tabs);
    QApplication::processEvents();
}

void clickTitleBarButton(MdiSubWindow *window)
{
    QStyleOptionTitleBar option;
    option.initFrom(window);
    const int frame = window->style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    option.titleBarFlags = window->windowFlags();
    const int height = window->style()->pixelMetric(QStyle::PM_TitleBarHeight, &option, window);
    option.rect = QRect(frame, frame, window->width() - 2 * frame, height);
    const QPoint pos =
        window->style()
            ->subControlRect(QStyle::CC_TitleBar, &option, QStyle::SC_TitleBarCloseButton, window)
            .center();
    // The window learns what lies under the mouse when it moves.
    QMouseEvent move(QEvent::MouseMove, pos, window->mapToGlobal(pos), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(window, &move);
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, pos);
}

void ask(AreaFixture &f, Document *document, Way way)
{
    MdiSubWindow *window = AreaFixture::windowOf(document);
    QTabBar *tabs = tabsOf(f);
    switch (way) {
    case Way::Window:
        window->close();
        break;
    case Way::Key:
        QTest::keyClick(document->edit, Qt::Key_W, Qt::ControlModifier);
        break;
    case Way::CloseCurrent:
        f.area->closeCurrent();
        break;
    case Way::CloseAll:
        f.area->closeAll();
        break;
    case Way::TabButton:
        QTest::mouseClick(tabs, Qt::LeftButton, Qt::NoModifier,
                          closeButton(tabs, tabs->currentIndex()));
        break;
    case Way::MiddleClick:
        QTest::mouseClick(tabs, Qt::MiddleButton, Qt::NoModifier,
                          tabs->tabRect(tabs->currentIndex()).center());
        break;
    case Way::TitleBarButton:
        clickTitleBarButton(window);
        break;
    }
}
} // namespace

class TestRefusingDocuments : public QObject
{
    Q_OBJECT
private:
    static void shapes()
    {
        QTest::addColumn<Shape>("shape");
        QTest::newRow("tabs") << Shape::Tabs;
        QTest::newRow("tiled") << Shape::Tiled;
        QTest::newRow("cascaded") << Shape::Cascaded;
    }

    static void shapesAndWays()
    {
        QTest::addColumn<Shape>("shape");
        QTest::addColumn<Way>("way");
        const QVector<QPair<const char *, Way>> everywhere{{"window", Way::Window},
                                                           {"key", Way::Key},
                                                           {"current", Way::CloseCurrent},
                                                           {"all", Way::CloseAll}};
        for (const auto &[name, way] : everywhere) {
            QTest::addRow("tabs, %s", name) << Shape::Tabs << way;
            QTest::addRow("tiled, %s", name) << Shape::Tiled << way;
            QTest::addRow("cascaded, %s", name) << Shape::Cascaded << way;
        }
        QTest::newRow("tabs, button") << Shape::Tabs << Way::TabButton;
        QTest::newRow("tabs, middle click") << Shape::Tabs << Way::MiddleClick;
        QTest::newRow("tiled, button") << Shape::Tiled << Way::TitleBarButton;
        QTest::newRow("cascaded, button") << Shape::Cascaded << Way::TitleBarButton;
    }

private Q_SLOTS:
    void refusingDocumentStaysAsItIs_data() { shapesAndWays(); }
    void refusingDocumentStaysAsItIs()
    {
        QFETCH(Shape, shape);
        QFETCH(Way, way);
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        bring(f, shape);
        QTRY_VERIFY(a->edit->hasFocus());
        a->refuses = true;
        const QRect place = AreaFixture::windowOf(a)->geometry();
        f.currents.clear();

        ask(f, a, way);

        QCOMPARE(a->closes, 1);
        QVERIFY(f.closed.isEmpty());
        QVERIFY(f.currents.isEmpty());
        QVERIFY(a->isVisible());
        QVERIFY(a->edit->hasFocus());
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(a));
        QCOMPARE(f.area->subWindows().size(), 2);
        QCOMPARE(f.area->isTabbed(), shape == Shape::Tabs);
        QCOMPARE(AreaFixture::windowOf(a)->geometry(), place);
    }

    void documentThatConsentsLaterCloses_data() { shapesAndWays(); }
    void documentThatConsentsLaterCloses()
    {
        QFETCH(Shape, shape);
        QFETCH(Way, way);
        AreaFixture f;
        QPointer<Document> a(f.open(QStringLiteral("a")));
        bring(f, shape);
        QTRY_VERIFY(a->edit->hasFocus());
        a->refuses = true;
        ask(f, a, way);
        a->refuses = false;

        ask(f, a, way);

        QCOMPARE(f.closed, Titles{QStringLiteral("a")});
        QTRY_VERIFY(!a);
    }

    void closingAllEndsAtTheRefusingOneWhichIsShown_data() { shapes(); }
    void closingAllEndsAtTheRefusingOneWhichIsShown()
    {
        QFETCH(Shape, shape);
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        Document *c = f.open(QStringLiteral("c"));
        b->setWindowModified(true);
        b->refuses = true;
        bring(f, shape);

        QVERIFY(!f.area->closeAll());

        QCOMPARE(f.closed, Titles{QStringLiteral("a")});
        QCOMPARE(c->closes, 0);
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(b));
        QVERIFY(b->isVisible());
        QCOMPARE(f.area->isTabbed(), shape == Shape::Tabs);
    }

    void shapesMayChangeAfterARefusal_data() { shapes(); }
    void shapesMayChangeAfterARefusal()
    {
        QFETCH(Shape, shape);
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        a->refuses = b->refuses = true;
        QVERIFY(!f.area->closeAll());

        bring(f, shape);
        QVERIFY(!f.area->closeAll());
        f.area->showTabs();
        QVERIFY(!f.area->closeAll());

        QCOMPARE(a->closes, 3);
        QCOMPARE(b->closes, 0);
        QVERIFY(!a->isVisible());
        QCOMPARE(b->size(), f.area->viewport()->size());
    }

    void refusalWhileTheShapeChangesUnderIt_data() { shapes(); }
    void refusalWhileTheShapeChangesUnderIt()
    {
        QFETCH(Shape, shape);
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        a->refuses = true;
        a->onClose = [&f, shape] { bring(f, shape); };
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));

        f.area->closeCurrent();

        QVERIFY(a->isVisible());
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(a));
        QCOMPARE(f.area->subWindows().size(), 2);
    }

    void menuOfATabMeetsTheRefusal()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        Document *c = f.open(QStringLiteral("c"));
        a->refuses = true;

        choose(tabsOf(f), 0, "Close");
        QCOMPARE(a->closes, 1);
        choose(tabsOf(f), 1, "Close Others");
        QCOMPARE(a->closes, 2);
        QCOMPARE(c->closes, 0);
        choose(tabsOf(f), 1, "Close All");

        QCOMPARE(a->closes, 3);
        QVERIFY(f.closed.isEmpty());
        QCOMPARE(f.area->subWindows().size(), 3);
    }
};

QTEST_MAIN(TestRefusingDocuments)
#include "tst_refusingdocuments.moc"
