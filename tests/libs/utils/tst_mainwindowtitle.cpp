// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "document.h"

#include <utils/mdiarea.h>
#include <utils/mdisubwindow.h>

#include <QMainWindow>
#include <QMenuBar>
#include <QTest>

using Utils::MdiSubWindow;

class TestMainWindowTitle : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void retitledDocumentLeavesTheTitleOfTheMainWindow()
    {
        AreaFixture f;
        f.main->menuBar()->addMenu(QStringLiteral("File"));
        f.main->setWindowTitle(QStringLiteral("Main"));
        Document *a = f.open(QStringLiteral("a"));
        a->setWindowTitle(QStringLiteral("renamed"));
        QCOMPARE(f.main->windowTitle(), QStringLiteral("Main"));
        f.open(QStringLiteral("b"));
        f.area->closeAll();
        QCOMPARE(f.main->windowTitle(), QStringLiteral("Main"));
    }

    void modifiedDocumentLeavesTheMainWindowUnmodified()
    {
        AreaFixture f;
        f.main->menuBar()->addMenu(QStringLiteral("File"));
        Document *a = f.open(QStringLiteral("a"));
        a->setWindowModified(true);
        f.main->hide();
        QVERIFY(f.show());
        QVERIFY(!f.main->isWindowModified());
    }

    void documentUnderTabsStaysMaximisedWhateverItSaysOfItself()
    {
        AreaFixture f;
        Document *a = f.open(QStringLiteral("a"));
        a->setWindowTitle(QStringLiteral("renamed"));
        a->setWindowModified(true);
        QVERIFY(AreaFixture::windowOf(a)->isMaximized());
    }
};

QTEST_MAIN(TestMainWindowTitle)
#include "tst_mainwindowtitle.moc"
