// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/messagerecorder.h"
#include "support/modaldialog.h"
#include "support/testeditor.h"

#include <assistant/assistantproxy.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/core/buildinfo.h>
#include <idecore/core/idecore.h>
#include <idecore/editors/editormanager.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/views/viewmanager.h>
#include <utils/mdiarea.h>

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QSettings>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QUrl>

using namespace Core;

namespace {

const QString VERSION = QStringLiteral("Core/Version");
const QString GEOMETRY = QStringLiteral("Core/MainwindowGeometry");
const QString STATE = QStringLiteral("Core/MainwindowState");

IdeMainWindow *window()
{
    return ViewManager::mainWindow();
}

QString revision()
{
    return QString::fromUtf8(Constants::IDE_VCS_REVISION);
}

QAction *menuEntry(const QString &menuId, const QString &title)
{
    const QList<QAction *> actions = ActionManager::menu(menuId)->actions();
    for (QAction *action : actions) {
        if (action->text() == title)
            return action;
    }
    return nullptr;
}

QStringList openFiles()
{
    QStringList files;
    const QList<IEditor *> editors = EditorManager::allEditors();
    for (const IEditor *editor : editors)
        files.append(editor->fileName());
    return files;
}

} // namespace

class TestIdeMainWindow final : public QObject
{
    Q_OBJECT
public Q_SLOTS:
    void openUrl(const QUrl &url) { m_urls.append(url); }

private Q_SLOTS:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_core = std::make_unique<CoreFixture>();
        m_factory.made = 0;
    }

    void cleanup() { m_core.reset(); }

    void theWindowIsNamedAndHasItsLogo()
    {
        QCOMPARE(window()->windowTitle(), QStringLiteral("KELMO FPGA Designer"));
        const QImage logo =
            QIcon(QStringLiteral(":/core/image/logo/ide_logo_32.png")).pixmap(32, 32).toImage();
        QVERIFY(!logo.isNull());
        QCOMPARE(window()->windowIcon().pixmap(32, 32).toImage(), logo);
    }

    void theDocumentAreaIsTheMiddleOfTheWindow()
    {
        QVERIFY(window()->documentArea());
        QCOMPARE(window()->centralWidget(), window()->documentArea());
    }

    void theStatusBarTheDocumentAreaAndTheMenusAreBuiltInThatOrder()
    {
        const QObjectList parts = window()->children();
        const int statusBar = parts.indexOf(window()->statusBar());
        const int area = parts.indexOf(window()->documentArea());
        const int menuBar = parts.indexOf(ActionManager::menuBar(QStringLiteral("Core.MenuBar")));
        QVERIFY(statusBar >= 0);
        QVERIFY(area > statusBar);
        QVERIFY(menuBar > area);
    }

    void theFirstStartIsMaximised()
    {
        window()->prepareToShow();
        QTRY_VERIFY(window()->isVisible() && window()->isMaximized());
    }

    void theGeometrySavedByTheSameBuildComesBack()
    {
        showNormally(QRect(120, 90, 800, 600));
        const QRect left = window()->geometry();
        closeWindow();
        restart();
        window()->prepareToShow();
        QVERIFY(QTest::qWaitForWindowExposed(window()));
        QVERIFY(!window()->isMaximized());
        QTRY_COMPARE(window()->geometry().size(), left.size());
        QTRY_COMPARE(window()->geometry().topLeft(), left.topLeft());
    }

    void aWindowClosedMaximisedComesBackMaximised()
    {
        window()->prepareToShow();
        QTRY_VERIFY(window()->isMaximized());
        closeWindow();
        QCOMPARE(IdeCore::userSettingsGUI()->value(VERSION).toString(), revision());
        restart();
        window()->prepareToShow();
        QTRY_VERIFY(window()->isVisible() && window()->isMaximized());
    }

    void theGeometryOfAnotherBuildIsNotRestored_data()
    {
        QTest::addColumn<QVariant>("version");
        QTest::newRow("another revision") << QVariant(revision() + QStringLiteral("x"));
        QTest::newRow("none") << QVariant();
        if (revision() != revision().toUpper())
            QTest::newRow("another case") << QVariant(revision().toUpper());
    }

    void theGeometryOfAnotherBuildIsNotRestored()
    {
        QFETCH(QVariant, version);
        showNormally(QRect(120, 90, 800, 600));
        closeWindow();
        IdeCore::userSettingsGUI()->setValue(VERSION, version);
        restart();
        window()->prepareToShow();
        QTRY_VERIFY(window()->isVisible() && window()->isMaximized());
    }

    void withoutAGeometryTheWindowIsMaximised()
    {
        showNormally(QRect(120, 90, 800, 600));
        closeWindow();
        IdeCore::userSettingsGUI()->remove(GEOMETRY);
        restart();
        window()->prepareToShow();
        QTRY_VERIFY(window()->isVisible() && window()->isMaximized());
    }

    void aGeometryThatIsNoneShowsTheWindowNormally_data()
    {
        QTest::addColumn<QVariant>("geometry");
        QTest::newRow("garbage") << QVariant(QByteArray("no geometry"));
        QTest::newRow("cut off") << QVariant(QMainWindow().saveGeometry().left(20));
        QTest::newRow("number") << QVariant(5);
        QTest::newRow("text") << QVariant(QStringLiteral("640x480"));
    }

    void aGeometryThatIsNoneShowsTheWindowNormally()
    {
        QFETCH(QVariant, geometry);
        storeGeometry(revision(), geometry);
        window()->prepareToShow();
        QVERIFY(QTest::qWaitForWindowExposed(window()));
        QVERIFY(!window()->isMaximized());
        QVERIFY(!window()->isFullScreen());
        QVERIFY(window()->screen()->geometry().contains(window()->geometry().center()));
        QVERIFY(window()->rect().contains(window()->centralWidget()->geometry()));
    }

    void aSettingOfAnotherTypeShowsTheWindowMaximised_data()
    {
        QTest::addColumn<QVariant>("version");
        QTest::addColumn<QVariant>("geometry");
        const QVariant list(QStringList{QStringLiteral("a"), QStringLiteral("b")});
        const QByteArray good = QMainWindow().saveGeometry();
        QTest::newRow("version list") << list << QVariant(good);
        QTest::newRow("version number") << QVariant(7) << QVariant(good);
        QTest::newRow("version rectangle") << QVariant(QRect(1, 2, 3, 4)) << QVariant(good);
        QTest::newRow("geometry list") << QVariant(revision()) << list;
        QTest::newRow("geometry rectangle") << QVariant(revision()) << QVariant(QRect(1, 2, 3, 4));
        QTest::newRow("geometry empty") << QVariant(revision()) << QVariant(QByteArray());
    }

    void aSettingOfAnotherTypeShowsTheWindowMaximised()
    {
        QFETCH(QVariant, version);
        QFETCH(QVariant, geometry);
        storeGeometry(version, geometry);
        window()->prepareToShow();
        QTRY_VERIFY(window()->isVisible() && window()->isMaximized());
    }

    void aSavedStateThatIsNoneIsNotMissed()
    {
        storeGeometry(revision(), window()->saveGeometry());
        IdeCore::userSettingsGUI()->setValue(STATE, QStringLiteral("no state"));
        window()->prepareToShow();
        QTRY_VERIFY(window()->isVisible());
        QVERIFY(!ActionManager::toolBar(QStringLiteral("Core.Toolbar.File"))->isHidden());
        closeWindow();
        QCOMPARE(IdeCore::userSettingsGUI()->value(STATE).type(), QVariant::ByteArray);
    }

    void theShownWindowIsTheActiveOne()
    {
        QSignalSpy spy(window(), &IdeMainWindow::windowActivated);
        window()->prepareToShow();
        QTRY_VERIFY(window()->isActiveWindow());
        QVERIFY(spy.count() >= 1);
    }

    void aMinimisedWindowIsShownRaised()
    {
        storeGeometry(revision(), window()->saveGeometry());
        window()->setWindowState(Qt::WindowMinimized);
        window()->prepareToShow();
        QVERIFY(!(window()->windowState() & Qt::WindowMinimized));
        QTRY_VERIFY(window()->isActiveWindow());
    }

    void losingTheActivationIsNotTold()
    {
        window()->prepareToShow();
        QTRY_VERIFY(window()->isActiveWindow());
        QSignalSpy spy(window(), &IdeMainWindow::windowActivated);
        QWidget other;
        other.show();
        other.activateWindow();
        QTRY_VERIFY(!window()->isActiveWindow());
        QCOMPARE(spy.count(), 0);
        window()->raiseWindow();
        QTRY_COMPARE(spy.count(), 1);
    }

    void raisingAMinimisedWindowKeepsItMaximised()
    {
        window()->prepareToShow();
        QTRY_VERIFY(window()->isMaximized());
        window()->showMinimized();
        QTRY_VERIFY(window()->isMinimized());
        window()->raiseWindow();
        QTRY_VERIFY(!window()->isMinimized());
        QTRY_VERIFY(window()->isMaximized());
    }

    void raisingAMinimisedWindowKeepsItsFullScreen()
    {
        window()->setWindowState(Qt::WindowMinimized | Qt::WindowFullScreen);
        window()->raiseWindow();
        QCOMPARE(window()->windowState(), Qt::WindowStates(Qt::WindowFullScreen));
    }

    void closingSavesVersionGeometryAndState()
    {
        showNormally(QRect(50, 60, 700, 500));
        const QByteArray geometry = window()->saveGeometry();
        const QByteArray state = window()->saveState(0);
        closeWindow();
        const QSettings stored(IdeCore::userSettingsGUI()->fileName(), QSettings::IniFormat);
        QCOMPARE(stored.value(VERSION).toString(), revision());
        QCOMPARE(stored.value(GEOMETRY).toByteArray(), geometry);
        QCOMPARE(stored.value(STATE).toByteArray(), state);
    }

    void savingIsOnDiskAtOnce()
    {
        window()->saveWindowState();
        QFile file(IdeCore::userSettingsGUI()->fileName());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray stored = file.readAll();
        for (const char *key : {"Version=", "MainwindowGeometry=", "MainwindowState="})
            QVERIFY2(stored.contains(key), stored.constData());
    }

    void theSavedStateIsNeverRestored()
    {
        showNormally(QRect(50, 60, 700, 500));
        ActionManager::toolBar(QStringLiteral("Core.Toolbar.Edit"))->hide();
        closeWindow();
        restart();
        window()->prepareToShow();
        QVERIFY(QTest::qWaitForWindowExposed(window()));
        QVERIFY(ActionManager::toolBar(QStringLiteral("Core.Toolbar.Edit"))->isVisible());
    }

    void aViewThatRefusesKeepsTheWindowOpenAndNothingIsSaved()
    {
        showNormally(QRect(50, 60, 700, 500));
        QVERIFY(EditorManager::openEditor(file(QStringLiteral("a.txt"))));
        m_factory.last->refuseClose = true;
        QVERIFY(!window()->close());
        QVERIFY(window()->isVisible());
        QVERIFY(!IdeCore::userSettingsGUI()->contains(VERSION));
        QVERIFY(!IdeCore::userSettingsGUI()->contains(GEOMETRY));
        m_factory.last->refuseClose = false;
        QVERIFY(window()->close());
        QVERIFY(IdeCore::userSettingsGUI()->contains(VERSION));
    }

    void aRefusedCloseKeepsTheFullScreen()
    {
        window()->prepareToShow();
        QVERIFY(EditorManager::openEditor(file(QStringLiteral("a.txt"))));
        window()->toggleFullScreen(true);
        QTRY_VERIFY(window()->isFullScreen());
        m_factory.last->refuseClose = true;
        QVERIFY(!window()->close());
        QVERIFY(window()->isFullScreen());
    }

    void closingInFullScreenSavesTheGeometryOfTheNormalWindow()
    {
        showNormally(QRect(130, 80, 640, 480));
        const QRect normal = window()->geometry();
        QTest::keyClick(window(), Qt::Key_F11);
        QTRY_VERIFY(window()->isFullScreen());
        QTRY_VERIFY(window()->width() > normal.width());
        closeWindow();
        QVERIFY(!window()->isFullScreen());
        restart();
        window()->prepareToShow();
        QVERIFY(QTest::qWaitForWindowExposed(window()));
        QVERIFY(!window()->isFullScreen());
        QTRY_COMPARE(window()->size(), normal.size());
    }

    void closingInFullScreenOverAMaximisedWindowComesBackMaximised()
    {
        window()->prepareToShow();
        QTRY_VERIFY(window()->isMaximized());
        window()->toggleFullScreen(true);
        QTRY_VERIFY(window()->isFullScreen());
        closeWindow();
        restart();
        window()->prepareToShow();
        QTRY_VERIFY(window()->isVisible() && window()->isMaximized());
        QVERIFY(!window()->isFullScreen());
    }

    void fullScreenIsSetAndClearedBesideTheOtherStates()
    {
        window()->prepareToShow();
        QTRY_VERIFY(window()->isMaximized());
        window()->toggleFullScreen(true);
        QVERIFY(window()->windowState() & Qt::WindowMaximized);
        QVERIFY(window()->windowState() & Qt::WindowFullScreen);
        QTRY_VERIFY(window()->isFullScreen());
        window()->toggleFullScreen(false);
        QTRY_VERIFY(!window()->isFullScreen());
        QTRY_VERIFY(window()->isMaximized());
    }

    void f11TogglesFullScreenAndTheCheckMarkFollows()
    {
        showNormally(QRect(130, 80, 640, 480));
        const QAction *action =
            menuEntry(QStringLiteral("Core.Menu.Window"), QStringLiteral("&Full Screen"));
        QTest::keyClick(window(), Qt::Key_F11);
        QTRY_VERIFY(window()->isFullScreen());
        QVERIFY(action->isChecked());
        QTest::keyClick(window(), Qt::Key_F11);
        QTRY_VERIFY(!window()->isFullScreen());
        QVERIFY(!action->isChecked());
        window()->showFullScreen();
        QTRY_VERIFY(action->isChecked());
        window()->showNormal();
        QTRY_VERIFY(!action->isChecked());
    }

    void aStatusMessageGoesWhenItsTimeIsOver()
    {
        window()->show();
        window()->showStatusMessage(QStringLiteral("for a while"), 20);
        QCOMPARE(window()->statusBar()->currentMessage(), QStringLiteral("for a while"));
        QTRY_COMPARE(window()->statusBar()->currentMessage(), QString());
    }

    void aStatusMessageWithoutATimeStaysUntilItIsReplaced()
    {
        window()->show();
        window()->showStatusMessage(QStringLiteral("for good"), 0);
        // No timer runs that could take it away.
        const QList<QTimer *> timers = window()->statusBar()->findChildren<QTimer *>();
        for (const QTimer *timer : timers)
            QVERIFY(!timer->isActive());
        QCOMPARE(window()->statusBar()->currentMessage(), QStringLiteral("for good"));
        window()->showStatusMessage(QStringLiteral("another"), 0);
        QCOMPARE(window()->statusBar()->currentMessage(), QStringLiteral("another"));
    }

    void aPermanentStatusMessageStandsBesideATemporaryOne()
    {
        window()->show();
        window()->showPermanentStatusMessage(QStringLiteral("permanent"));
        window()->showStatusMessage(QStringLiteral("temporary"), 0);
        const auto *label = window()->statusBar()->findChild<QLabel *>();
        QVERIFY(label);
        QCOMPARE(label->text(), QStringLiteral("permanent"));
        QVERIFY(label->isVisible());
    }

    void aNormalStatusMessageChangesNothingOnScreen()
    {
        showNormally(QRect(50, 60, 700, 500));
        window()->showStatusMessage(QStringLiteral("before"), 0);
        window()->showPermanentStatusMessage(QStringLiteral("label"));
        const QImage before = window()->grab().toImage();
        window()->showNormalStatusMessage(QStringLiteral("normal"));
        QCOMPARE(window()->statusBar()->currentMessage(), QStringLiteral("before"));
        QCOMPARE(window()->grab().toImage(), before);
    }

    void newAndOpenWorkAsSoonAsTheWindowIsUp()
    {
        window()->prepareToShow();
        QVERIFY(ActionManager::action(QStringLiteral("Core.Action.New"))->isEnabled());
        QVERIFY(ActionManager::action(QStringLiteral("Core.Action.Open"))->isEnabled());
        QVERIFY(!ActionManager::action(QStringLiteral("Core.Action.Save"))->isEnabled());
        QVERIFY(!ActionManager::action(QStringLiteral("Core.Action.Undo"))->isEnabled());
    }

    void everyFileButAProjectIsOpenedInAnEditor_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("verilog") << QStringLiteral("top.v");
        QTest::newRow("unknown") << QStringLiteral("README");
    }

    void everyFileButAProjectIsOpenedInAnEditor()
    {
        QFETCH(QString, name);
        const QString path = file(name);
        window()->openFile(path);
        QCOMPARE(openFiles(), QStringList{path});
    }

    void filesAreOpenedForWriting()
    {
        window()->openFile(file(QStringLiteral("top.v")));
        QVERIFY(EditorManager::currentEditor());
        QVERIFY(!EditorManager::currentEditor()->isReadOnly());
    }

    void openingIsLoggedWithNameAndTypeBeforeItBegins()
    {
        const QString path = file(QStringLiteral("top.v"));
        const MessageRecorder log;
        window()->openFile(path);
        const QStringList lines = log.texts();
        const int line =
            lines.indexOf(QStringLiteral("IdeMainWindow: open  \"%1\" \"text/verilog\"").arg(path));
        QVERIFY2(line >= 0, qPrintable(lines.join(QLatin1Char('\n'))));
        const QStringList opening = lines.filter(QStringLiteral("open editor for:"));
        QCOMPARE(opening.size(), 1);
        QVERIFY(lines.indexOf(opening.constFirst()) > line);
    }

    void pendingEventsAreHandledAfterAFile()
    {
        bool handled = false;
        QMetaObject::invokeMethod(
            this, [&handled] { handled = true; }, Qt::QueuedConnection);
        window()->openFile(file(QStringLiteral("a.txt")));
        QVERIFY(handled);
    }

    void ctrlOAsksForFilesFromTheHomeFolderWithAllFilters()
    {
        window()->prepareToShow();
        QTRY_VERIFY(window()->isActiveWindow());
        QString directory;
        QStringList filters;
        QFileDialog::FileMode mode = QFileDialog::AnyFile;
        ModalDialog dialog([&](QWidget *widget) {
            auto *fileDialog = qobject_cast<QFileDialog *>(widget);
            QVERIFY(fileDialog);
            directory = fileDialog->directory().absolutePath();
            filters = fileDialog->nameFilters();
            mode = fileDialog->fileMode();
            fileDialog->reject();
        });
        QTest::keyClick(window(), Qt::Key_O, Qt::ControlModifier);
        QVERIFY(dialog.met());
        QCOMPARE(dialog.title(), QStringLiteral("Open File"));
        QCOMPARE(directory, QDir::homePath());
        QCOMPARE(mode, QFileDialog::ExistingFiles);
        QCOMPARE(filters.join(QStringLiteral(";;")),
                 IdeCore::mimeDatabase()->filterForFileDialog(true));
        QVERIFY(openFiles().isEmpty());
    }

    void allChosenFilesAreOpenedInOrder()
    {
        window()->prepareToShow();
        const QStringList files = {file(QStringLiteral("b.v")), file(QStringLiteral("a.vhd")),
                                   file(QStringLiteral("c.txt"))};
        QStringList chosen;
        const ModalDialog dialog(choose(QStringLiteral("\"b.v\" \"a.vhd\" \"c.txt\""), &chosen));
        window()->onOpenFiles();
        QCOMPARE(chosen, files);
        QCOMPARE(openFiles(), files);
    }

    void aWindowClosedBetweenTwoFilesOpensNoMore()
    {
        window()->prepareToShow();
        file(QStringLiteral("a.v"));
        file(QStringLiteral("b.v"));
        connect(EditorManager::instance(), &EditorManager::currentEditorChanged, window(),
                [] { QTimer::singleShot(0, window(), &QWidget::close); });
        QStringList chosen;
        const ModalDialog dialog(choose(QStringLiteral("\"a.v\" \"b.v\""), &chosen));
        window()->onOpenFiles();
        QCOMPARE(chosen.size(), 2);
        QVERIFY(!window()->isVisible());
        QCOMPARE(m_factory.made, 1);
    }

    void helpStartsTheViewer()
    {
        QFile viewer(m_dir->filePath(QStringLiteral("viewer")));
        QVERIFY(viewer.open(QIODevice::WriteOnly));
        viewer.write("#!/bin/sh\nexec cat >/dev/null\n");
        viewer.close();
        QVERIFY(viewer.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
        auto *assistant = ASSISTANT::AssistantProxy::instance();
        assistant->setViewerProgram(viewer.fileName());
        assistant->setCollectionFile(file(QStringLiteral("help.qhc")));
        QVERIFY(!assistant->isRunning());
        menuEntry(QStringLiteral("Core.Menu.Help"), QStringLiteral("View Help"))->trigger();
        const bool runs = assistant->isRunning();
        assistant->stopAssistant();
        assistant->setViewerProgram(QString());
        assistant->setCollectionFile(QString());
        QVERIFY(runs);
    }

    void contactOpensThePageInTheBrowser()
    {
        QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "openUrl");
        menuEntry(QStringLiteral("Core.Menu.Help"), QStringLiteral("Contact Us"))->trigger();
        QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
        QCOMPARE(m_urls,
                 QList<QUrl>{QUrl(QStringLiteral("https://www.kelmoware.example/contact"))});
    }

private:
    /// Enters @p names, as the file dialog wants them, and accepts.
    ModalDialog::Handler choose(const QString &names, QStringList *chosen)
    {
        return [this, names, chosen](QWidget *widget) {
            auto *fileDialog = qobject_cast<QFileDialog *>(widget);
            QVERIFY(fileDialog);
            fileDialog->setDirectory(m_dir->path());
            auto *edit = fileDialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
            QVERIFY(edit);
            edit->setText(names);
            *chosen = fileDialog->selectedFiles();
            QTest::keyClick(edit, Qt::Key_Return);
        };
    }

    void restart()
    {
        m_core.reset();
        m_core = std::make_unique<CoreFixture>(CoreFixture::Settings::Keep);
    }

    void showNormally(const QRect &geometry)
    {
        window()->setGeometry(geometry);
        window()->show();
        QVERIFY(QTest::qWaitForWindowActive(window()));
        QTRY_COMPARE(window()->geometry().size(), geometry.size());
    }

    static void storeGeometry(const QVariant &version, const QVariant &geometry)
    {
        IdeCore::userSettingsGUI()->setValue(VERSION, version);
        IdeCore::userSettingsGUI()->setValue(GEOMETRY, geometry);
    }

    static void closeWindow()
    {
        QVERIFY(window()->close());
        QVERIFY(!window()->isVisible());
    }

    QString file(const QString &name)
    {
        const QString path = m_dir->filePath(name);
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write("text\n");
        return path;
    }

    TestEditorFactory m_factory{texts({"text/plain"})};
    const InPool m_inPool{&m_factory};
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<CoreFixture> m_core;
    QList<QUrl> m_urls;
};

QTEST_MAIN(TestIdeMainWindow)
#include "tst_idemainwindow.moc"
