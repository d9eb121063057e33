// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_OPTIONS_GENERALOPTIONPAGE_P_H
#define IDECORE_OPTIONS_GENERALOPTIONPAGE_P_H

#include <idecore/interfaces/ioptionspage.h>

#include <QPointer>

#include <memory>

namespace Core {
namespace private_impl {

class Ui_GeneralOptionPage;

/// The page for language, size of the tool bars' icons, theme and the default
/// directory of new projects.
class IDECORE_EXPORT GeneralOptionPage final : public IOptionsPage
{
    Q_OBJECT
    Q_DISABLE_COPY(GeneralOptionPage)
public:
    explicit GeneralOptionPage(QObject *parent = nullptr);
    ~GeneralOptionPage() override;

    [[nodiscard]] QWidget *widget() override;
    void apply() override;
    void finish() override;

public Q_SLOTS:
    void onBtnBrowse();

private:
    void initUiSetting();
    void applyUiSetting();

    QPointer<QWidget> m_widget;
    std::unique_ptr<Ui_GeneralOptionPage> m_ui;
};

} // namespace private_impl
} // namespace Core

#endif // IDECORE_OPTIONS_GENERALOPTIONPAGE_P_H
