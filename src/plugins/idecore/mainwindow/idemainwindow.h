// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_MAINWINDOW_IDEMAINWINDOW_H
#define IDECORE_MAINWINDOW_IDEMAINWINDOW_H

#include <idecore/idecore_export.h>

#include <QMainWindow>

class QAction;
class QLabel;
class QToolBar;

namespace Utils {
class MdiArea;
}

namespace Core {

/// The program's one top-level window: documents in the middle, docks around
/// them, the standard menus, tool bars and commands.
///
/// Created hidden by the ViewManager, which owns it. Plugins reach its menus
/// and tool bars through ActionManager and its documents through ViewManager.
class IDECORE_EXPORT IdeMainWindow final : public QMainWindow
{
    Q_OBJECT
    Q_DISABLE_COPY(IdeMainWindow)
public:
    explicit IdeMainWindow(QWidget *parent = nullptr);
    ~IdeMainWindow() override;

    /// The document area; null before setupUi().
    [[nodiscard]] Utils::MdiArea *documentArea() const;

    /// Builds what the window holds. Called once, by the ViewManager, when the
    /// action registry exists and before anything below is used.
    void setupUi();
    /// Builds the standard menus, tool bars and commands; the last step of
    /// setupUi().
    void initActions();

    /// Opens @p fileName as a project when its type says so, otherwise in an
    /// editor; what goes wrong is shown to the user. Handles pending events before
    /// it returns, so the window may be closed by then.
    Q_INVOKABLE void openFile(const QString &fileName);

    /// Shows @p text in the status bar for @p timeout milliseconds, 0 meaning
    /// until it is replaced.
    void showStatusMessage(const QString &text, int timeout);
    /// Normal messages are not shown by this window.
    void showNormalStatusMessage(const QString &text);
    /// Shows @p text at the right end of the status bar until it is replaced.
    void showPermanentStatusMessage(const QString &text);

public Q_SLOTS:
    /// Shows the window with the geometry saved by the same build, otherwise
    /// maximised.
    void prepareToShow();
    /// Brings the window to the front and activates it. A minimised one comes back
    /// as it was before, maximised or full screen included.
    void raiseWindow();
    /// Writes the build, the geometry and the state of tool bars and docks to the
    /// settings, on disk when it returns. Closing the window does it.
    void saveWindowState();
    void onOpenKelmoHelp();
    void onAboutIde();
    void onContactUs();
    /// Sets or clears full screen beside the other states of the window.
    void toggleFullScreen(bool b);
    void onShowOptionDialog();
    void onNewFiles();
    void onOpenFiles();

Q_SIGNALS:
    /// The window has become the active one.
    void windowActivated();

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void initFileMenu();
    void initEditMenu();
    void initToolsMenu();
    void initWindowMenu();
    void initHelpMenu();
    void initToolBars();
    void hideHandleWhileEmpty(QToolBar *toolBar);

    Utils::MdiArea *mdiArea = nullptr;
    QLabel *permanentLabel = nullptr;
    QAction *fullScreenAction = nullptr;
};

} // namespace Core

#endif // IDECORE_MAINWINDOW_IDEMAINWINDOW_H
