// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// What lies under another tab costs nothing: it is not laid out, resized or
// painted, whatever happens around it.

#include "document.h"

#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QApplication>
#include <QDockWidget>
#include <QFont>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QTest>

#include <functional>

using Around = std::function<void(AreaFixture &)>;
Q_DECLARE_METATYPE(Around)

namespace {
QString counts(const Document *document)
{
    return QStringLiteral("%1 paints, %2 resizes, %3 layouts")
        .arg(document->paints)
        .arg(document->resizes)
        .arg(document->layouts);
}

/// Until the area has the size of the main window and nothing is left to do.
void settle(const AreaFixture &f)
{
    QApplication::processEvents();
    if (f.area->currentWindow())
        QTRY_COMPARE(f.area->currentWindow()->size(), f.area->viewport()->size());
    QApplication::processEvents();
}

const QString nothing = QStringLiteral("0 paints, 0 resizes, 0 layouts");
} // namespace

class TestHiddenDocuments : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void hiddenDocumentsAreLeftAlone_data()
    {
        QTest::addColumn<Around>("around");
        QTest::newRow("main window resized") << Around([](AreaFixture &f) {
            f.main->resize(900, 600);
            QTRY_COMPARE(f.main->width(), 900);
        });
        QTest::newRow("main window resized again and again") << Around([](AreaFixture &f) {
            for (int i = 0; i < 10; ++i) {
                f.main->resize(600 + 20 * i, 500 + 10 * i);
                settle(f);
            }
        });
        QTest::newRow("panel takes room") << Around([](AreaFixture &f) {
            auto *dock = new QDockWidget(f.main);
            dock->setWidget(new QLabel(QStringLiteral("panel")));
            f.main->addDockWidget(Qt::LeftDockWidgetArea, dock);
        });
        QTest::newRow("document opened")
            << Around([](AreaFixture &f) { f.open(QStringLiteral("new")); });
        QTest::newRow("document closed") << Around([](AreaFixture &f) {
            f.open(QStringLiteral("new"));
            f.area->closeCurrent();
        });
        QTest::newRow("document activated") << Around([](AreaFixture &f) {
            const Document *other = f.open(QStringLiteral("new"));
            f.open(QStringLiteral("newer"));
            f.area->setCurrentSubWindow(AreaFixture::windowOf(other));
        });
        QTest::newRow("document removed") << Around([](AreaFixture &f) {
            const std::unique_ptr<Utils::MdiSubWindow> window(
                AreaFixture::windowOf(f.open(QStringLiteral("new"))));
            f.area->removeSubWindow(window.get());
        });
        QTest::newRow("main window hidden and shown") << Around([](AreaFixture &f) {
            f.main->hide();
            f.main->resize(800, 550);
            QVERIFY(f.show());
        });
        QTest::newRow("titles changed") << Around([](AreaFixture &f) {
            for (Utils::MdiSubWindow *window : f.area->subWindows()) {
                window->setShortTitle(QStringLiteral("another title"));
                window->widget()->setWindowModified(true);
            }
        });
        QTest::newRow("bar of tabs with another font") << Around([](AreaFixture &f) {
            QFont font = f.area->font();
            font.setPointSize(2 * font.pointSize());
            f.area->findChild<QWidget *>(QStringLiteral("documentTabBar"))->setFont(font);
        });
    }

    void hiddenDocumentsAreLeftAlone()
    {
        QFETCH(Around, around);
        AreaFixture f;
        QVector<Document *> hidden;
        for (int i = 0; i < 5; ++i)
            hidden.append(f.open(QStringLiteral("hidden %1").arg(i)));
        Document *current = f.open(QStringLiteral("current"));
        settle(f);
        for (Document *document : qAsConst(hidden))
            document->forgetCounts();
        current->forgetCounts();

        around(f);
        settle(f);
        current->update();
        QTRY_VERIFY(current->paints > 0 || !current->isVisible());

        for (const Document *document : qAsConst(hidden))
            QCOMPARE(counts(document), nothing);
    }

    void openingMoreDocumentsLeavesThoseBehindAlone()
    {
        AreaFixture f;
        QVector<Document *> documents;
        QVector<QString> asOpened;
        for (int i = 0; i < 20; ++i) {
            documents.append(f.open(QStringLiteral("document %1").arg(i)));
            QTRY_VERIFY(documents.constLast()->paints > 0);
            settle(f);
            asOpened.append(counts(documents.constLast()));
        }
        for (int i = 0; i < documents.size(); ++i)
            QCOMPARE(counts(documents.at(i)), asOpened.at(i));
    }

    void changeInsideAHiddenDocumentWaitsUntilItIsShown()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        settle(f);
        a->forgetCounts();

        a->edit->setMinimumHeight(100);
        a->update();
        settle(f);
        QCOMPARE(counts(a), nothing);

        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));
        QTRY_VERIFY(a->paints > 0);
        QVERIFY(a->edit->height() >= 100);
    }

    void documentShownAgainHasTheSizeOfTheArea()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        f.main->resize(900, 600);
        QTRY_COMPARE(f.main->width(), 900);
        settle(f);
        a->forgetCounts();

        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));

        // At once, and once: not after a first picture in the old size.
        QCOMPARE(a->size(), f.area->viewport()->size());
        QTRY_VERIFY(a->paints > 0);
        QCOMPARE(a->resizes, 1);
        QCOMPARE(a->layouts, 1);
    }

    void documentShownAgainInTheSameSizeIsOnlyPainted()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        f.open(QStringLiteral("b"));
        settle(f);
        a->forgetCounts();

        f.area->setCurrentSubWindow(AreaFixture::windowOf(a));

        QTRY_VERIFY(a->paints > 0);
        QCOMPARE(a->resizes, 0);
        QCOMPARE(a->layouts, 0);
    }

    void tabsAfterTilingHideTheOthersAsTheyAre()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        Document *b = f.open(QStringLiteral("b"));
        f.area->tileSubWindows();
        QApplication::processEvents();
        a->forgetCounts();
        b->forgetCounts();

        f.area->showTabs();
        settle(f);

        QCOMPARE(counts(a), nothing);
        QCOMPARE(b->size(), f.area->viewport()->size());
    }
};

QTEST_MAIN(TestHiddenDocuments)
#include "tst_hiddendocuments.moc"
