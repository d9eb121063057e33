// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef IDECORE_EXTERNALEDITORS_EXTERNALEDITOROPTIONPAGE_P_H
#define IDECORE_EXTERNALEDITORS_EXTERNALEDITOROPTIONPAGE_P_H

#include <idecore/interfaces/ioptionspage.h>

#include <QPointer>

#include <memory>

namespace Core {

class Ui_ExternalEditorOptionPage;

/// The page of the external editors. It edits a copy of the registry's, taken when
/// its widget is made; apply() hands the copy back and saves it.
class IDECORE_EXPORT ExternalEditorOptionPage final : public IOptionsPage
{
    Q_OBJECT
    Q_DISABLE_COPY(ExternalEditorOptionPage)
public:
    explicit ExternalEditorOptionPage(QObject *parent = nullptr);
    ~ExternalEditorOptionPage() override;

    [[nodiscard]] QWidget *widget() override;
    void apply() override;
    void finish() override;

public Q_SLOTS:
    void setDataRemovable(bool on);
    void updateMakeDefaultBtn(bool selected);

private:
    void initUi();
    void applySetting();

    QPointer<QWidget> m_widget;
    std::unique_ptr<Ui_ExternalEditorOptionPage> ui;
};

} // namespace Core

#endif // IDECORE_EXTERNALEDITORS_EXTERNALEDITOROPTIONPAGE_P_H
