// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later
//
// What plugins reach of the main window by name, and what shows only in passing.

#include "support/corefixture.h"
#include "support/modaldialog.h"

#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QMetaMethod>
#include <QPointer>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Core;

namespace {

/// Notes in which order the state and the place of a window change.
class StackingJournal final : public QObject
{
public:
    explicit StackingJournal(QObject *window) { window->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::ZOrderChange || event->type() == QEvent::WindowStateChange)
            received.append(event->type());
        return false;
    }

    QList<QEvent::Type> received;
};

} // namespace

class TestWindowInterface final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init() { m_core = std::make_unique<CoreFixture>(); }
    void cleanup() { m_core.reset(); }

    void interfaceByName_data()
    {
        QTest::addColumn<int>("type");
        const auto row = [](const char *signature, QMetaMethod::MethodType type) {
            QTest::newRow(signature) << int(type);
        };
        row("windowActivated()", QMetaMethod::Signal);
        row("prepareToShow()", QMetaMethod::Slot);
        row("raiseWindow()", QMetaMethod::Slot);
        row("saveWindowState()", QMetaMethod::Slot);
        row("onOpenKelmoHelp()", QMetaMethod::Slot);
        row("onAboutIde()", QMetaMethod::Slot);
        row("onContactUs()", QMetaMethod::Slot);
        row("toggleFullScreen(bool)", QMetaMethod::Slot);
        row("onShowOptionDialog()", QMetaMethod::Slot);
        row("onNewFiles()", QMetaMethod::Slot);
        row("onOpenFiles()", QMetaMethod::Slot);
    }

    void interfaceByName()
    {
        QFETCH(const int, type);
        const QMetaObject &meta = IdeMainWindow::staticMetaObject;
        const int index = meta.indexOfMethod(QTest::currentDataTag());
        QVERIFY(index >= 0);
        QCOMPARE(int(meta.method(index).methodType()), type);
    }

    void raisingBringsTheWindowBackAndThenToTheFront()
    {
        m_core->show();
        ViewManager::mainWindow()->setWindowState(Qt::WindowMinimized);
        const StackingJournal journal(ViewManager::mainWindow());
        ViewManager::mainWindow()->raiseWindow();
        QCOMPARE(journal.received.mid(0, 2),
                 (QList<QEvent::Type>{QEvent::WindowStateChange, QEvent::ZOrderChange}));
    }

    void aPermanentMessageTakesNoMoreRoomThanItNeeds()
    {
        m_core->show();
        ViewManager::mainWindow()->showPermanentStatusMessage(QStringLiteral("Ln 1"));
        const auto *label = ViewManager::mainWindow()->statusBar()->findChild<QLabel *>();
        QVERIFY(label);
        QTRY_COMPARE(label->width(), label->sizeHint().width());
    }

    void theDialogForFilesLiesOverTheMainWindow()
    {
        ModalDialog dialog(ModalDialog::cancel());
        ViewManager::mainWindow()->onOpenFiles();
        QVERIFY(dialog.met());
        QCOMPARE(dialog.parentOfDialog(), ViewManager::mainWindow());
    }

    void theDialogForFilesLiesOverTheDialogThatAsksForIt()
    {
        QDialog asking(ViewManager::mainWindow());
        asking.setModal(true);
        asking.show();
        QPointer<QWidget> parent;
        QTimer::singleShot(0, this, [&parent, &asking] {
            QWidget *dialog = QApplication::activeModalWidget();
            QVERIFY(dialog != &asking);
            parent = dialog->parentWidget();
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        ViewManager::mainWindow()->onOpenFiles();
        QCOMPARE(parent.data(), &asking);
    }

private:
    std::unique_ptr<CoreFixture> m_core;
};

QTEST_MAIN(TestWindowInterface)
#include "tst_windowinterface.moc"
