// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef UTILS_MDISUBWINDOW_H
#define UTILS_MDISUBWINDOW_H

#include <utils/utils_export.h>

#include <QMdiSubWindow>

#include <memory>

namespace Utils {

/// A document's window in an MdiArea.
///
/// Under tabs it is maximised and has no frame; tiled and cascaded it has one.
class UTILS_EXPORT MdiSubWindow : public QMdiSubWindow
{
    Q_OBJECT
    Q_DISABLE_COPY(MdiSubWindow)
public:
    explicit MdiSubWindow(QWidget *parent = nullptr);
    ~MdiSubWindow() override;

    /// The title shown on the document's tab; the window title when none was
    /// set. Without the "[*]" that marks the place of a modified sign.
    [[nodiscard]] QString shortTitle() const;
    /// The whole title of the document and, where it has one, its path.
    [[nodiscard]] QString fullTitle() const;
    /// The file the document says it shows (QWidget::windowFilePath); may be empty.
    [[nodiscard]] QString filePath() const;
    [[nodiscard]] bool isDocumentModified() const;
    /// The icon of the widget; that of the main window when it has none.
    [[nodiscard]] QIcon documentIcon() const;

    /// As QMdiSubWindow::setWidget(), and keeps an eye on @p widget.
    void setWidget(QWidget *widget);

    /// At least two thirds of the area.
    [[nodiscard]] QSize sizeHint() const override;

public Q_SLOTS:
    void setShortTitle(const QString &title);

Q_SIGNALS:
    void shortTitleChanged(const QString &title);
    /// The title, icon or modified state to show has changed.
    void appearanceChanged(Utils::MdiSubWindow *window);
    /// The window has accepted to close; its widget still exists.
    void closed(Utils::MdiSubWindow *window);
    /// The widget was destroyed or taken out without the window being closed.
    void documentLost(Utils::MdiSubWindow *window);
    /// The user wants the window to fill the area.
    void maximizeRequested(Utils::MdiSubWindow *window);
    /// Sent from the destructor while this is still a whole MdiSubWindow.
    void aboutToBeDestroyed(Utils::MdiSubWindow *window);

protected:
    void changeEvent(QEvent *event) override;
    void childEvent(QChildEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    friend class MdiArea;
    /// Begins and ends the adding to an area.
    void enter(QWidget *viewport, bool framed);
    void entered();
    void setFramed(bool framed);
    /// Shows or hides without activation.
    void setShownQuietly(bool shown);
    /// Under tabs alone: what a document says of itself, nothing is laid out.
    void markMaximized(bool maximized);
    void takeIcon();
    void setDormant(bool dormant);

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace Utils

#endif // UTILS_MDISUBWINDOW_H
