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
class UTILS_EXPORT MdiArea : public QMdiArea
{
    Q_OBJECT
    Q_DISABLE_COPY(MdiArea)
public:
    explicit MdiArea(QWidget *parent = nullptr);
    ~MdiArea() override;

    /// The windows in the given order.
    [[nodiscard]] QList<MdiSubWindow *> subWindows(QMdiArea::WindowOrder order = CreationOrder) const;
    [[nodiscard]] MdiSubWindow *currentWindow() const;

    /// Adds @p window, shows it and makes it current. The area owns it.
    void addSubWindow(MdiSubWindow *window);
    /// Takes @p window out without asking or destroying it; the caller owns it.
    void removeSubWindow(MdiSubWindow *window);
    /// Makes @p window current; currentWindowChanged() is emitted also when it
    /// was current before.
    void setCurrentSubWindow(MdiSubWindow *window);

public Q_SLOTS:
    /// Brings the bookkeeping of the current window up to date where the
    /// activation was not reported, as while the main window is minimised.
    void onSubWindowActivated();

Q_SIGNALS:
    /// @p window is the current window now; null when none is left.
    void currentWindowChanged(Utils::MdiSubWindow *window);
    /// @p window has closed and is about to be destroyed; its widget still
    /// exists.
    void windowClosed(Utils::MdiSubWindow *window);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace Utils

#endif // UTILS_MDIAREA_H
