// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_OPTIONS_PAGETABS_P_H
#define IDECORE_OPTIONS_PAGETABS_P_H

#include <QSize>
#include <QTabWidget>

namespace Core {
namespace private_impl {

/// Needs the room of the page that is shown. To measure all the hidden ones, as tabs
/// do otherwise, is felt when a category is first shown.
class PageTabs final : public QTabWidget
{
    Q_OBJECT
public:
    explicit PageTabs(QWidget *parent = nullptr);
    ~PageTabs() override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    /// The size with tabs and frame around a page of that size.
    [[nodiscard]] QSize around(const QSize &page, const QSize &tabs) const;
};

} // namespace private_impl
} // namespace Core

#endif // IDECORE_OPTIONS_PAGETABS_P_H
