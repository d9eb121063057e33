// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mainwindow/idemainwindow.h>

#include <assistant/assistantproxy.h>
#include <idecore/core/buildinfo.h>
#include <idecore/core/idecore.h>
#include <idecore/core/ideicon.h>
#include <idecore/editors/editormanager.h>
#include <idecore/interfaces/iproject.h>
#include <idecore/mainwindow/versiondialog_p.h>
#include <idecore/mimedatabase/mimedatabase.h>
#include <idecore/mimedatabase/mimetype.h>
#include <idecore/newdialog/thenewdialog.h>
#include <idecore/options/optiondialog.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>
#include <utils/mdiarea.h>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDebug>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QIcon>
#include <QLabel>
#include <QSettings>
#include <QStatusBar>
#include <QUrl>
#include <QWindow>

namespace Core {

namespace {

const QString KEY_VERSION = QStringLiteral("Core/Version");
const QString KEY_GEOMETRY = QStringLiteral("Core/MainwindowGeometry");
const QString KEY_STATE = QStringLiteral("Core/MainwindowState");
const QString PROJECT_MIME_TYPE = QStringLiteral("application/km-ide-project");
const QString CONTACT_URL = QStringLiteral("https://www.kelmoware.example/contact");

QString buildRevision()
{
    return QString::fromUtf8(Constants::IDE_VCS_REVISION);
}

} // namespace

IdeMainWindow::IdeMainWindow(QWidget *parent)
    : QMainWindow(parent)
{
}

IdeMainWindow::~IdeMainWindow() = default;

Utils::MdiArea *IdeMainWindow::documentArea() const
{
    return mdiArea;
}

void IdeMainWindow::setupUi()
{
    setWindowTitle(QStringLiteral("KELMO FPGA Designer"));
    setWindowIcon(productIcon());
    statusBar();
    permanentLabel = new QLabel(this);
    statusBar()->addPermanentWidget(permanentLabel);
    mdiArea = new Utils::MdiArea(this);
    setCentralWidget(mdiArea);
    initActions();
}

void IdeMainWindow::prepareToShow()
{
    const QSettings *settings = IdeCore::userSettingsGUI();
    const QString version = settings->value(KEY_VERSION).toString();
    const QByteArray geometry = settings->value(KEY_GEOMETRY).toByteArray();
    if (version == buildRevision() && !geometry.isEmpty()) {
        restoreGeometry(geometry);
        show();
    } else {
        showMaximized();
    }
    raiseWindow();
    // Where nothing could take the focus no focus change has come, and the
    // global commands would wait for one.
    ViewManager::instance()->updateFocusWidget(nullptr, QApplication::focusWidget());
}

void IdeMainWindow::raiseWindow()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void IdeMainWindow::saveWindowState()
{
    QSettings *settings = IdeCore::userSettingsGUI();
    settings->setValue(KEY_VERSION, buildRevision());
    settings->setValue(KEY_GEOMETRY, saveGeometry());
    settings->setValue(KEY_STATE, saveState(0));
    settings->sync();
}

void IdeMainWindow::closeEvent(QCloseEvent *event)
{
    if (!ProjectManager::closeCurrentProject() || !ViewManager::closeAllViews()) {
        event->ignore();
        return;
    }
    if (isFullScreen()) {
        const QRect normal = normalGeometry();
        toggleFullScreen(false);
        // The window manager takes the window back later than the geometry is
        // saved here, which would save that of the full screen.
        if (!isMaximized() && normal.isValid())
            setGeometry(normal);
    }
    saveWindowState();
    QMainWindow::closeEvent(event);
}

void IdeMainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    using SetHasBorderInFullScreen = void (*)(QWindow *, bool);
    const auto setBorder = reinterpret_cast<SetHasBorderInFullScreen>(
        QGuiApplication::platformFunction(QByteArrayLiteral("WindowsSetHasBorderInFullScreen")));
    if (setBorder)
        setBorder(windowHandle(), true);
}

void IdeMainWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange) {
        if (isActiveWindow())
            Q_EMIT windowActivated();
    } else if (event->type() == QEvent::WindowStateChange && fullScreenAction) {
        // The window manager, too, can put the window into full screen and back.
        fullScreenAction->setChecked(isFullScreen());
    }
}

void IdeMainWindow::toggleFullScreen(bool b)
{
    if (b)
        setWindowState(windowState() | Qt::WindowFullScreen);
    else
        setWindowState(windowState() & ~Qt::WindowFullScreen);
}

void IdeMainWindow::showStatusMessage(const QString &text, int timeout)
{
    statusBar()->showMessage(text, timeout);
}

void IdeMainWindow::showNormalStatusMessage(const QString &text)
{
    Q_UNUSED(text)
}

void IdeMainWindow::showPermanentStatusMessage(const QString &text)
{
    permanentLabel->setText(text);
}

void IdeMainWindow::openFile(const QString &fileName)
{
    const MimeType type = IdeCore::mimeDatabase()->findByFile(QFileInfo(fileName));
    qDebug() << "IdeMainWindow: open " << fileName << type.type();
    if (type.type() == PROJECT_MIME_TYPE)
        ProjectManager::openProject(fileName);
    else
        EditorManager::openEditor(fileName, false);
    // The window repaints between the files of a longer list.
    QCoreApplication::processEvents();
}

void IdeMainWindow::onOpenFiles()
{
    QString start = QDir::homePath();
    if (const IProject *project = ProjectManager::currentProject()) {
        start = project->projectDir();
    } else {
        const QStringList recent = ProjectManager::recentProjects();
        if (!recent.isEmpty() && QFileInfo::exists(recent.constFirst()))
            start = recent.constFirst();
    }
    const QStringList files =
        QFileDialog::getOpenFileNames(ViewManager::dialogParent(), tr("Open File"), start,
                                      IdeCore::mimeDatabase()->filterForFileDialog(true));
    const bool shown = isVisible();
    for (const QString &file : files) {
        // The user may have closed the window between two of them.
        if (shown && !isVisible())
            return;
        openFile(file);
    }
}

void IdeMainWindow::onNewFiles()
{
    TheNewDialog::showAllWizards();
}

void IdeMainWindow::onShowOptionDialog()
{
    OptionDialog::getOptionDialog(ViewManager::dialogParent(), QString(), QString())->execDialog();
}

void IdeMainWindow::onAboutIde()
{
    private_impl::VersionDialog(this).exec();
}

void IdeMainWindow::onOpenKelmoHelp()
{
    ASSISTANT::AssistantProxy::instance()->startAssistant();
}

void IdeMainWindow::onContactUs()
{
    QDesktopServices::openUrl(QUrl(CONTACT_URL));
}

} // namespace Core
