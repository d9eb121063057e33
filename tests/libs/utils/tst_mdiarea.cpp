// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// Which document is shown and current, and what the others cost.

#include "document.h"

#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QAction>
#include <QApplication>
#include <QBrush>
#include <QDialog>
#include <QLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QPalette>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using Utils::MdiArea;
using Utils::MdiSubWindow;

class TestMdiArea final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void addedWindowIsShownFillsTheAreaAndIsCurrent()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        const MdiSubWindow *window = AreaFixture::windowOf(a);
        QCOMPARE(f.area->currentWindow(), window);
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
        QVERIFY(window->isVisible());
        QVERIFY(window->isMaximized());
        QCOMPARE(window->geometry(), f.area->viewport()->rect());
        QTRY_COMPARE(a->size(), f.area->viewport()->size());
        QTRY_VERIFY(a->edit->hasFocus());
        QCOMPARE(f.area->currentSubWindow(), window);
    }

    void onlyTheCurrentDocumentIsVisible()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        QVERIFY(!a->isVisible());
        QVERIFY(b->isVisible());
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        QVERIFY(a->isVisible());
        QVERIFY(!b->isVisible());
    }

    void hiddenDocumentIsNeitherResizedNorPainted()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        f.open(QStringLiteral("c"));
        QTRY_COMPARE(a->isVisible(), false);
        QApplication::processEvents();
        a->paints = a->resizes = b->resizes = b->paints = 0;
        f.main->resize(800, 600);
        QTRY_COMPARE(f.area->currentWindow()->size(), f.area->viewport()->size());
        f.area->setCurrentSubWindow(AreaFixture::windowOf(b));
        QTRY_VERIFY(b->paints > 0);
        QCOMPARE(b->resizes, 1);
        QCOMPARE(b->size(), f.area->viewport()->size());
        QCOMPARE(a->resizes, 0);
        QCOMPARE(a->paints, 0);
    }

    void currentAgainIsReportedAgain()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.currents.clear();
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
    }

    void reportsCanBeQueuedByName()
    {
        AreaFixture f;
        QSignalSpy current(f.area, SIGNAL(currentWindowChanged(Utils::MdiSubWindow *)));
        QSignalSpy closed(f.area, SIGNAL(windowClosed(Utils::MdiSubWindow *)));
        MdiSubWindow *window = AreaFixture::windowOf(f.open(QStringLiteral("a")));
        f.area->closeCurrent();
        QCOMPARE(current.first().first().value<MdiSubWindow *>(), window);
        QCOMPARE(closed.first().first().value<MdiSubWindow *>(), window);
    }

    void shortTitleIsToldOnlyWhenItIsNew()
    {
        MdiSubWindow window;
        window.setShortTitle(QStringLiteral("a"));
        const QSignalSpy title(&window, &MdiSubWindow::shortTitleChanged);
        const QSignalSpy appearance(&window, &MdiSubWindow::appearanceChanged);
        window.setShortTitle(QStringLiteral("a"));
        QCOMPARE(title.count(), 0);
        QCOMPARE(appearance.count(), 0);
        window.setShortTitle(QStringLiteral("b"));
        QCOMPARE(title, (QList<QVariantList>{{QStringLiteral("b")}}));
        QCOMPARE(appearance.count(), 1);
    }

    void addedTwiceIsMadeCurrentOnly()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.area->addSubWindow(AreaFixture::windowOf(a));
        QCOMPARE(f.area->subWindows().size(), 2);
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(a));
    }

    void nullAndForeignWindowsAreIgnored()
    {
        AreaFixture f;
        MdiSubWindow foreign;
        f.area->addSubWindow(nullptr);
        f.area->setCurrentSubWindow(nullptr);
        f.area->setCurrentSubWindow(&foreign);
        f.area->removeSubWindow(nullptr);
        f.area->removeSubWindow(&foreign);
        QVERIFY(f.currents.isEmpty());
        QVERIFY(!f.area->currentWindow());
    }

    void ordersAreThoseOfCreationUseAndStacking()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.open(QStringLiteral("c"));
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        const Titles made{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
        const Titles used{QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("a")};
        QCOMPARE(titles(f.area->subWindows()), made);
        QCOMPARE(titles(f.area->subWindows(QMdiArea::ActivationHistoryOrder)), used);
        QCOMPARE(titles(f.area->subWindows(QMdiArea::StackingOrder)), used);
    }

    void removedWindowIsNotAskedAndNotClosed()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        const std::unique_ptr<MdiSubWindow> window(AreaFixture::windowOf(b));
        f.area->removeSubWindow(window.get());
        QCOMPARE(b->closes, 0);
        QVERIFY(f.closed.isEmpty());
        QVERIFY(!window->parentWidget());
        QVERIFY(!window->isVisible());
        QCOMPARE(f.currents.constLast(), QStringLiteral("a"));
        QCOMPARE(f.area->subWindows().size(), 1);
    }

    void removedWindowIsWholeAgain()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        auto *own = new QAction(a);
        own->setShortcut(QKeySequence(QStringLiteral("Ctrl+J")));
        a->addAction(own);
        f.open(QStringLiteral("b"));
        QVERIFY(own->shortcut().isEmpty());
        const std::unique_ptr<MdiSubWindow> window(AreaFixture::windowOf(a));

        f.area->removeSubWindow(window.get());

        QCOMPARE(own->shortcut(), QKeySequence(QStringLiteral("Ctrl+J")));
        QVERIFY(!window->isMaximized());
        QVERIFY(!window->windowFlags().testFlag(Qt::FramelessWindowHint));
    }

    void openingBeforeTheWindowIsShownIsReported()
    {
        AreaFixture f(false);
        const Document *a = f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        QCOMPARE(f.currents, (Titles{QStringLiteral("a"), QStringLiteral("b")}));
        QVERIFY(f.show());
        QVERIFY(b->isVisible());
        QVERIFY(!a->isVisible());
        QTRY_COMPARE(AreaFixture::windowOf(b)->geometry(), f.area->viewport()->rect());
        QTRY_VERIFY(b->edit->hasFocus());
        QCOMPARE(f.currents.size(), 2);
    }

    void anotherActiveWindowLeavesTheCurrentDocument()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        f.currents.clear();
        {
            QDialog dialog(f.main);
            dialog.show();
            // A child of the active window passes for active to QTest.
            QTRY_COMPARE(QApplication::activeWindow(), &dialog);
            QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(a));
        }
        f.main->activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), f.main);
        QTRY_VERIFY(a->edit->hasFocus());
        QVERIFY(f.currents.isEmpty());
    }

    void leftDocumentMayCloseTheOneGoneTo()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        const QPointer<MdiSubWindow> b(AreaFixture::windowOf(f.open(QStringLiteral("b"))));
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        QTRY_VERIFY(a->edit->hasFocus());
        OnEvent closes(QEvent::FocusOut, [&b] {
            if (b)
                b->close();
        });
        a->edit->installEventFilter(&closes);
        f.area->setCurrentSubWindow(b);
        QCOMPARE(f.closed, Titles{QStringLiteral("b")});
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(a));
        QVERIFY(a->isVisible());
        QTRY_VERIFY(!b);
    }

    void documentGoneToMayDestroyTheOneLeft()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        const QPointer<MdiSubWindow> b(AreaFixture::windowOf(f.open(QStringLiteral("b"))));
        OnEvent destroyer(QEvent::FocusIn, [&b] { delete b; });
        a->edit->installEventFilter(&destroyer);
        f.currents.clear();
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        QVERIFY(!b);
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(a));
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
        QVERIFY(a->isVisible());
    }

    void documentGoneToMayGoOnToAnother_data()
    {
        QTest::addColumn<bool>("tiled");
        QTest::newRow("tabs") << false;
        QTest::newRow("tiled") << true;
    }

    void documentGoneToMayGoOnToAnother()
    {
        QFETCH(bool, tiled);
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        const Document *c = f.open(QStringLiteral("c"));
        if (tiled)
            f.area->tileSubWindows();
        OnEvent goesOn(QEvent::FocusIn,
                       [&f, b] { f.area->setCurrentSubWindow(AreaFixture::windowOf(b)); });
        a->edit->installEventFilter(&goesOn);
        f.currents.clear();
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        QCOMPARE(f.currents, Titles{QStringLiteral("b")});
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(b));
        QVERIFY(b->isVisible());
        QCOMPARE(a->isVisible(), tiled);
        QCOMPARE(c->isVisible(), tiled);
        QTRY_VERIFY(b->edit->hasFocus());
    }

    void reportMayGoOnToAnother()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        connect(f.area, &MdiArea::currentWindowChanged, this, [&f, a](MdiSubWindow *window) {
            if (window && window->shortTitle() == QLatin1String("c"))
                f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        });
        const Document *c = f.open(QStringLiteral("c"));
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(a));
        QVERIFY(a->isVisible());
        QVERIFY(!c->isVisible());
    }

    void madeCurrentWhileHiddenIsTheActiveOneOnceShown()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.main->hide();
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        QVERIFY(f.show());
        QCOMPARE(f.area->activeSubWindow(), AreaFixture::windowOf(a));
        QCOMPARE(f.area->currentWindow(), AreaFixture::windowOf(a));
        QCOMPARE(f.main->focusWidget(), a->edit);
    }

    void backgroundFollowsThePalette()
    {
        AreaFixture f;
        QPalette dark;
        dark.setColor(QPalette::Dark, Qt::darkBlue);
        f.main->setPalette(dark);
        QCOMPARE(f.area->background().color(), QColor(Qt::darkBlue));
    }

    void widgetTakenOutTakesItsWindowAlong()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        const QPointer<MdiSubWindow> window(AreaFixture::windowOf(b));
        b->setParent(nullptr);
        QCOMPARE(f.currents.constLast(), QStringLiteral("a"));
        QTRY_VERIFY(!window);
        QCOMPARE(b->closes, 0);
        delete b;
    }

    void windowTakenOutMayBeAddedAgain()
    {
        AreaFixture f;
        f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        MdiSubWindow *window = AreaFixture::windowOf(b);
        f.area->removeSubWindow(window);
        f.area->addSubWindow(window);
        QCOMPARE(f.area->currentWindow(), window);
        QVERIFY(b->isVisible());
        QCOMPARE(window->geometry(), f.area->viewport()->rect());
        QVERIFY(window->close());
        QCOMPARE(f.closed, Titles{QStringLiteral("b")});
    }

    void documentUnderTabsCannotBeMadeSmaller()
    {
        AreaFixture f;
        const Document *a = f.open(QStringLiteral("a"));
        AreaFixture::windowOf(a)->showNormal();
        AreaFixture::windowOf(a)->showMinimized();
        QVERIFY(AreaFixture::windowOf(a)->isMaximized());
        QCOMPARE(AreaFixture::windowOf(a)->geometry(), f.area->viewport()->rect());
    }

    void hiddenWidgetThatIsShownBecomesCurrent()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        const Document *b = f.open(QStringLiteral("b"));
        f.currents.clear();
        AreaFixture::windowOf(a)->show();
        QCOMPARE(f.currents, Titles{QStringLiteral("a")});
        QVERIFY(!b->isVisible());
    }

    void focusReturnsToTheWidgetThatHadIt()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        auto *second = new QLineEdit(a);
        a->layout()->addWidget(second);
        second->show();
        second->setFocus();
        f.open(QStringLiteral("b"));
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        QTRY_VERIFY(second->hasFocus());
    }

    void keysOfAHiddenDocumentComeBackWithIt()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        auto *own = new QAction(a);
        own->setShortcut(QKeySequence(QStringLiteral("Ctrl+J")));
        a->addAction(own);
        auto *shared = new QAction(f.main);
        shared->setShortcut(QKeySequence(QStringLiteral("Ctrl+K")));
        f.main->addAction(shared);
        a->addAction(shared);
        const QSignalSpy triggered(own, &QAction::triggered);
        f.open(QStringLiteral("b"));
        QVERIFY(own->shortcut().isEmpty());
        QCOMPARE(shared->shortcut(), QKeySequence(QStringLiteral("Ctrl+K")));
        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        QTRY_VERIFY(a->edit->hasFocus());
        QTest::keyClick(a->edit, Qt::Key_J, Qt::ControlModifier);
        QCOMPARE(triggered.count(), 1);
    }

    void keysGivenToAHiddenDocumentAreKept()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        auto *own = new QAction(a);
        own->setShortcut(QKeySequence(QStringLiteral("Ctrl+J")));
        f.open(QStringLiteral("b"));
        own->setShortcut(QKeySequence(QStringLiteral("Ctrl+L")));
        f.area->tileSubWindows();
        QCOMPARE(own->shortcut(), QKeySequence(QStringLiteral("Ctrl+L")));
    }

    void mainWindowTitleAndMenuBarAreLeftAlone()
    {
        AreaFixture f;
        f.main->setWindowTitle(QStringLiteral("Program"));
        f.open(QStringLiteral("a"));
        QCOMPARE(f.main->windowTitle(), QStringLiteral("Program"));
    }

    void minimumSizeIsThatOfNoDocument()
    {
        AreaFixture f;
        const QSize before = f.area->minimumSizeHint();
        f.open(QStringLiteral("a"))->setMinimumSize(2000, 2000);
        QCOMPARE(f.area->minimumSizeHint(), before);
    }
};

QTEST_MAIN(TestMdiArea)
#include "tst_mdiarea.moc"
