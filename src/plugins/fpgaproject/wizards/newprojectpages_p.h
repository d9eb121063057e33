// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef FPGAPROJECT_WIZARDS_NEWPROJECTPAGES_P_H
#define FPGAPROJECT_WIZARDS_NEWPROJECTPAGES_P_H

#include <devicedb/device.h>
#include <fpgaproject/wizards/newproject_p.h>

#include <QWizardPage>

class QLabel;
class QLineEdit;

namespace Fpga {

class DevicePicker;

/// Name and folder.
class PlacePage final : public QWizardPage
{
    Q_OBJECT
public:
    explicit PlacePage(const QString &folder, QWidget *parent = nullptr);
    ~PlacePage() override;

    [[nodiscard]] QString projectName() const;
    [[nodiscard]] QString folder() const;
    [[nodiscard]] bool isComplete() const override;

private:
    void onEdited();
    void browse();
    [[nodiscard]] NewProject project() const;

    QLineEdit *const m_name;
    QLineEdit *const m_folder;
    QLabel *const m_path;
    QLabel *const m_error;
};

/// The device, from a table.
class DevicePage final : public QWizardPage
{
    Q_OBJECT
public:
    explicit DevicePage(const QVector<DEV::Device> &devices, QWidget *parent = nullptr);
    ~DevicePage() override;

    [[nodiscard]] DeviceChoice choice() const;
    /// Chooses @p part for a start, if there is one of that name.
    void propose(const QString &part);
    [[nodiscard]] bool isComplete() const override;

private:
    DevicePicker *const m_picker;
    /// Without any device a project can still be made.
    const bool m_anyDevice;
};

/// What is going to be made.
class SummaryPage final : public QWizardPage
{
    Q_OBJECT
public:
    explicit SummaryPage(QWidget *parent = nullptr);
    ~SummaryPage() override;

    void initializePage() override;

private:
    QLabel *const m_name;
    QLabel *const m_file;
    QLabel *const m_device;
};

} // namespace Fpga

#endif // FPGAPROJECT_WIZARDS_NEWPROJECTPAGES_P_H
