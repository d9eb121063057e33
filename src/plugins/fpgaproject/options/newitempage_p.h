// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_OPTIONS_NEWITEMPAGE_P_H
#define FPGAPROJECT_OPTIONS_NEWITEMPAGE_P_H

#include <fpgaproject/fpgaproject_export.h>
#include <idecore/interfaces/ioptionspage.h>

#include <QPointer>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;

namespace Fpga {

/// What new files and projects begin with, in the Options dialog.
class FPGAPROJECT_EXPORT NewItemPage final : public Core::IOptionsPage
{
    Q_OBJECT
public:
    explicit NewItemPage(QObject *parent = nullptr);
    ~NewItemPage() override;

    [[nodiscard]] QWidget *widget() override;
    void apply() override;
    void finish() override;

private:
    void createFields(QFormLayout *form);

    /// The dialog may destroy it with itself, and the fields in it.
    QPointer<QWidget> m_widget;
    QCheckBox *m_header = nullptr;
    QLineEdit *m_author = nullptr;
    QComboBox *m_device = nullptr;
};

} // namespace Fpga

#endif // FPGAPROJECT_OPTIONS_NEWITEMPAGE_P_H
