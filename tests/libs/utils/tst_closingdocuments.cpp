// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// Documents that close, refuse, or are destroyed, and what is reported of them.

#include "document.h"

#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QLineEdit>
#include <QMainWindow>
#include <QPointer>
#include <QTest>

using Utils::MdiArea;
using Utils::MdiSubWindow;

namespace {
QString title(int number)
{
    return QStringLiteral("doc%1").arg(number);
}
} // namespace

class TestClosingDocuments final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void closedIsReportedOnceWithItsWholeWidget()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        QPointer<Document> b(f.open(QStringLiteral("b")));
        f.currents.clear();
        QVERIFY(AreaFixture::windowOf(b)->close());
        QCOMPARE(f.closed, Titles{QStringLiteral("b")});
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
        QTRY_VERIFY(!b);
        QCOMPARE(f.closed.size(), 1);
    }

    void closingTheCurrentMakesTheMostRecentlyUsedCurrent()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        const Document *c = f.open(QStringLiteral("c"));
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        f.area->setCurrentSubWindow(AreaFixture::windowOf(c));
        AreaFixture::windowOf(c)->close();
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(a));
        QTRY_VERIFY(a->edit->hasFocus());
    }

    void closingAnotherLeavesTheCurrentUnreported()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.currents.clear();
        AreaFixture::windowOf(a)->close();
        QVERIFY(f.currents.isEmpty());
        QCOMPARE(f.closed, Titles{QStringLiteral("a")});
    }

    void closingTheLastReportsNone()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.currents.clear();
        f.area->closeCurrent();
        QCOMPARE(f.currents, Titles{QStringLiteral("-")});
        QVERIFY(!f.area->currentWindow());
    }

    void windowIsOutOfTheListsWhenItsClosingIsReported()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        int left = -1;
        connect(f.area, &MdiArea::windowClosed, this, [&] { left = f.area->subWindows().size(); });
        f.area->closeCurrent();
        QCOMPARE(left, 1);
    }

    void refusingDocumentStays()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        a->refuses = true;
        f.currents.clear();
        QVERIFY(!AreaFixture::windowOf(a)->close());
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(a));
        QVERIFY(a->isVisible());
        QVERIFY(f.closed.isEmpty());
        QVERIFY(f.currents.isEmpty());
        QCOMPARE(a->closes, 1);
    }

    void closeAllStopsAtTheFirstThatRefuses()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"))->refuses = true;
        const Document *c = f.open(QStringLiteral("c"));
        QVERIFY(!f.area->closeAll());
        QCOMPARE(f.closed, Titles{QStringLiteral("a")});
        QCOMPARE(c->closes, 0);
    }

    void closeOthersLeavesTheOneAndThoseAfterARefusal()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        Document *c = f.open(QStringLiteral("c"));
        c->refuses = true;
        QVERIFY(!f.area->closeOthers(AreaFixture::windowOf(a)));
        QCOMPARE(f.closed, Titles{QStringLiteral("b")});
        c->refuses = false;
        QVERIFY(f.area->closeOthers(AreaFixture::windowOf(a)));
        QCOMPARE(titles(f.area->subWindows()), Titles{QStringLiteral("a")});
    }

    void modifiedDocumentIsShownBeforeItIsAsked()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        a->setWindowModified(true);
        f.open(QStringLiteral("b"));
        bool visible = false;
        a->onClose = [&] { visible = a->isVisible(); };
        QVERIFY(f.area->closeAll());
        QVERIFY(visible);
    }

    void refusingDocumentStaysAsAWindowToo()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        a->refuses = true;
        f.area->tileSubWindows();
        QVERIFY(!f.area->closeAll());
        QVERIFY(a->isVisible());
        QCOMPARE(b->closes, 0);
    }

    void documentMayCloseAnotherWhileClosing()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        Document *c = f.open(QStringLiteral("c"));
        c->onClose = [&] { AreaFixture::windowOf(a)->close(); };
        QVERIFY(f.area->currentWindow()->close());
        QCOMPARE(f.closed, (Titles{QStringLiteral("a"), QStringLiteral("c")}));
        QCOMPARE(f.area->currentWindow()->shortTitle(), QStringLiteral("b"));
    }

    void documentMayCloseItselfWhileClosing()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        a->onClose = [&] { AreaFixture::windowOf(a)->close(); };
        QVERIFY(f.area->currentWindow()->close());
        QCOMPARE(f.closed, Titles{QStringLiteral("a")});
        QCOMPARE(a->closes, 1);
    }

    void documentMayDestroyItsWindowWhileClosing()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        const QPointer<MdiSubWindow> window(AreaFixture::windowOf(b));
        b->onClose = [&] {
            b->setParent(nullptr);
            delete window;
        };
        f.area->closeCurrent();
        QVERIFY(!window);
        QCOMPARE(f.area->currentWindow()->shortTitle(), QStringLiteral("a"));
        delete b;
    }

    void closingFromTheReportOfAClosing()
    {
        AreaFixture f;
        for (int i = 0; i < 5; ++i)
            f.open(title(i));
        connect(f.area, &MdiArea::windowClosed, this, [&] {
            if (!f.area->subWindows().isEmpty())
                f.area->subWindows().constFirst()->close();
        });
        f.area->closeCurrent();
        QVERIFY(f.area->subWindows().isEmpty());
        QCOMPARE(f.closed.size(), 5);
        QCOMPARE(f.currents.constLast(), QStringLiteral("-"));
    }

    void destroyedWindowLeavesNothingBehind()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        delete AreaFixture::windowOf(f.open(QStringLiteral("b")));
        QCOMPARE(f.area->currentWindow()->shortTitle(), QStringLiteral("a"));
        QCOMPARE(f.currents.constLast(), QStringLiteral("a"));
        QVERIFY(f.closed.isEmpty());
        delete f.area->currentWindow();
        QCOMPARE(f.currents.constLast(), QStringLiteral("-"));
    }

    void destroyedWidgetTakesItsWindowAlong()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        const QPointer<MdiSubWindow> window(AreaFixture::windowOf(b));
        delete b;
        QCOMPARE(f.area->subWindows().size(), 1);
        QCOMPARE(f.currents.constLast(), QStringLiteral("a"));
        QVERIFY(f.closed.isEmpty());
        QTRY_VERIFY(!window);
    }

    void areaMayBeDestroyedWhenAClosingIsReported()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.currents.clear();
        connect(f.area, &MdiArea::windowClosed, f.main, [&f] { delete f.area; });
        f.area->closeCurrent();
        QVERIFY(!f.main->findChild<MdiArea *>());
        QVERIFY(f.currents.isEmpty());
    }

    void closingWhileMinimisedIsReported()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.main->showMinimized();
        QTRY_VERIFY(f.main->isMinimized());
        f.currents.clear();
        f.area->closeCurrent();
        f.area->onSubWindowActivated();
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
    }

    void closeAllPassesOverWhatAnotherDocumentClosed()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        f.open(QStringLiteral("c"));
        a->onClose = [b] { AreaFixture::windowOf(b)->close(); };
        QVERIFY(f.area->closeAll());
        QCOMPARE(f.closed, (Titles{QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("c")}));
        QCOMPARE(f.currents.constLast(), QStringLiteral("-"));
    }

    void nextOneMayBeAskedForWhenAClosingIsReported()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.currents.clear();
        connect(f.area, &MdiArea::windowClosed, f.area, &MdiArea::onSubWindowActivated);
        f.area->closeCurrent();
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
    }

    void askedForTheNextOneWithTheCurrentThereReportsNothing()
    {
        AreaFixture f;
        f.area->onSubWindowActivated();
        f.open(QStringLiteral("a"));
        f.currents.clear();
        f.area->onSubWindowActivated();
        QVERIFY(f.currents.isEmpty());
    }

    void closeKeyClosesTheCurrentOnce_data()
    {
        QTest::addColumn<bool>("tiled");
        QTest::newRow("tabs") << false;
        QTest::newRow("tiled") << true;
    }

    void closeKeyClosesTheCurrentOnce()
    {
        QFETCH(bool, tiled);
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        if (tiled)
            f.area->tileSubWindows();
        QTRY_VERIFY(b->edit->hasFocus());
        QTest::keyClick(b->edit, Qt::Key_W, Qt::ControlModifier);
        QCOMPARE(f.closed, Titles{QStringLiteral("b")});
    }

    void fiveHundredOpenAndClose()
    {
        AreaFixture f;
        for (int i = 0; i < 500; ++i)
            f.open(title(i));
        QCOMPARE(f.area->subWindows().size(), 500);
        QVERIFY(f.area->closeAll());
        QCOMPARE(f.closed.size(), 500);
        QCOMPARE(f.currents.constLast(), QStringLiteral("-"));
    }

    void areaDestroyedWithDocumentsReportsNothing()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.currents.clear();
        delete f.area;
        QVERIFY(f.currents.isEmpty());
        QVERIFY(f.closed.isEmpty());
    }
};

QTEST_MAIN(TestClosingDocuments)
#include "tst_closingdocuments.moc"
