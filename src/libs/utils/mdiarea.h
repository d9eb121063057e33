// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef UTILS_MDIAREA_H
#define UTILS_MDIAREA_H

#include <utils/utils_export.h>

#include <QMdiArea>

#include <memory>

namespace Utils {

class MdiSubWindow;

/// The document area of a main window.
///
/// Documents lie under a tab bar, the current one fills the area and the others
/// are hidden: they are neither laid out, resized nor painted, so an open
/// document costs nothing while another one is worked on. Tiled or cascaded all
/// are shown as windows; maximising one brings the tabs back.
///
/// The current window stays what it is while the main window is inactive,
/// minimised or not shown yet.
class UTILS_EXPORT MdiArea : public QMdiArea
{
    Q_OBJECT
    Q_DISABLE_COPY(MdiArea)
public:
    explicit MdiArea(QWidget *parent = nullptr);
    ~MdiArea() override;

    /// The windows in the given order; by activation history the most recently
    /// used one comes last.
    [[nodiscard]] QList<MdiSubWindow *> subWindows(
        QMdiArea::WindowOrder order = CreationOrder) const;
    [[nodiscard]] MdiSubWindow *currentWindow() const;
    /// True while the documents lie under tabs, false tiled or cascaded.
    [[nodiscard]] bool isTabbed() const;

    /// Adds @p window, shows it and makes it current. The area owns it.
    void addSubWindow(MdiSubWindow *window);
    /// Takes @p window out without asking or destroying it; the caller owns it.
    void removeSubWindow(MdiSubWindow *window);
    /// Makes @p window current and gives it the focus; currentWindowChanged() is
    /// emitted also when it was current before.
    void setCurrentSubWindow(MdiSubWindow *window);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

public Q_SLOTS:
    /// Brings the bookkeeping of the current window up to date where the
    /// activation was not reported, as while the main window is minimised.
    void onSubWindowActivated();
    void tileSubWindows();
    void cascadeSubWindows();
    /// Puts the documents under tabs again.
    void showTabs();
    /// Asks the current window to close.
    void closeCurrent();
    /// Asks all windows but @p window to close, until one refuses. False then.
    bool closeOthers(Utils::MdiSubWindow *window);
    /// Asks all windows to close, until one refuses. False then.
    bool closeAll();

Q_SIGNALS:
    /// @p window is the current window now; null when none is left.
    void currentWindowChanged(Utils::MdiSubWindow *window);
    /// @p window has closed, is no longer in subWindows() and is about to be
    /// destroyed; its widget still exists.
    void windowClosed(Utils::MdiSubWindow *window);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *object, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace Utils

#endif // UTILS_MDIAREA_H
