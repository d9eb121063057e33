// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_OPTIONS_OPTIONDIALOG_H
#define IDECORE_OPTIONS_OPTIONDIALOG_H

#include <idecore/idecore_export.h>

#include <QDialog>
#include <QString>

#include <memory>

class QModelIndex;

namespace Core {

namespace private_impl {
struct OptionDialogPrivate;
}

/// The Options dialog: the option pages of the object pool as tabs, grouped by
/// category.
///
/// A page's widget is made when its category is first shown. Only pages whose tab
/// has been shown are applied; every page is told that the dialog has closed. A page
/// that is destroyed while the dialog is open leaves it.
///
///     OptionDialog::getOptionDialog(ViewManager::dialogParent(), category, page)->execDialog();
class IDECORE_EXPORT OptionDialog final : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(OptionDialog)
public:
    explicit OptionDialog(QWidget *parent);
    ~OptionDialog() override;

    /// The one dialog there is, at that page; made with @p parent when there is
    /// none. Without a category or page it is the one last shown.
    [[nodiscard]] static OptionDialog *getOptionDialog(QWidget *parent, const QString &category,
                                                       const QString &page);

    [[nodiscard]] QSize sizeHint() const override;

    /// Shows the dialog and waits until the user has closed it; while it is shown
    /// already, waits for that. True when anything was applied, by OK or by Apply.
    /// The dialog is deleted afterwards, as soon as the event loop runs again.
    bool execDialog();
    /// Shows the page @p page of @p category, both told by their ids; the ones last
    /// shown where they are empty, the first category where there is none of that
    /// id.
    void setCurrentPage(const QString &category, const QString &page);

public Q_SLOTS:
    void currentChanged(const QModelIndex &index);
    void currentTabChanged(int i);
    /// Applies the pages that have been shown.
    void apply();
    void accept() override;
    void reject() override;
    void done(int r) override;

protected:
    void hideEvent(QHideEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    const std::unique_ptr<private_impl::OptionDialogPrivate> d;
};

} // namespace Core

#endif // IDECORE_OPTIONS_OPTIONDIALOG_H
