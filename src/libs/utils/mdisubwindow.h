// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef UTILS_MDISUBWINDOW_H
#define UTILS_MDISUBWINDOW_H

#include <utils/utils_export.h>

#include <QMdiSubWindow>

#include <memory>

namespace Utils {

/// A document's window in an MdiArea.
class UTILS_EXPORT MdiSubWindow : public QMdiSubWindow
{
    Q_OBJECT
    Q_DISABLE_COPY(MdiSubWindow)
public:
    explicit MdiSubWindow(QWidget *parent = nullptr);
    ~MdiSubWindow() override;

    /// The title shown on the document's tab; the window title when none was set.
    [[nodiscard]] QString shortTitle() const;

public Q_SLOTS:
    void setShortTitle(const QString &title);

Q_SIGNALS:
    void shortTitleChanged(const QString &title);
    /// The window has accepted to close; its widget still exists.
    void closed(Utils::MdiSubWindow *window);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace Utils

#endif // UTILS_MDISUBWINDOW_H
