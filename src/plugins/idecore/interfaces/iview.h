// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_INTERFACES_IVIEW_H
#define IDECORE_INTERFACES_IVIEW_H

#include <idecore/idecore_export.h>

#include <QWidget>

namespace Core {

/// A document view: a widget shown as a document of the main window.
///
/// Shown with ViewManager::showView(), from then on owned by its sub-window. A
/// view that must not be closed unasked (unsaved work) refuses in closeEvent().
/// GUI thread only.
class IDECORE_EXPORT IView : public QWidget
{
    Q_OBJECT
public:
    explicit IView(QWidget *parent = nullptr);
    ~IView() override;

    /// True exempts the view from ViewManager::closeAllViews().
    bool keepOpen = false;

    /// The short title last set, or the window title while it is empty.
    [[nodiscard]] QString shortTitle() const;
    void setShortTitle(const QString &title);

    /// Called when the view becomes the current view, also when it was current
    /// before. Does nothing by default.
    virtual void onActivated();
    /// Called when the view stops being the current view. Does nothing by
    /// default.
    virtual void onDeactivated();

Q_SIGNALS:
    /// The short title set by setShortTitle() now is @p title, which differs
    /// from the one before.
    void shortTitleChanged(QString title);

private:
    QString m_shortTitle;
};

} // namespace Core

#endif // IDECORE_INTERFACES_IVIEW_H
