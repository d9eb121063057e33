// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <fpgaproject/wizards/newprojectpages_p.h>

#include <fpgaproject/wizards/devicepicker_p.h>
#include <fpgaproject/wizards/newprojectdialog_p.h>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace Fpga {

PlacePage::PlacePage(const QString &folder, QWidget *parent)
    : QWizardPage(parent)
    , m_name(new QLineEdit(this))
    , m_folder(new QLineEdit(QDir::toNativeSeparators(folder), this))
    , m_path(new QLabel(this))
    , m_error(new QLabel(this))
{
    setTitle(tr("Name and Place"));
    setSubTitle(tr("The project gets a folder of its own, with its name, in the folder chosen "
                   "here."));
    m_name->setObjectName(QStringLiteral("editPrjName"));
    // The same characters as where a project is saved under another name.
    m_name->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[^~\\.<>/\\\\|\\:\"\\*\\?\\s]*")), m_name));
    m_folder->setObjectName(QStringLiteral("editDirectory"));
    auto *const browseButton = new QPushButton(tr("Browse..."), this);
    browseButton->setObjectName(QStringLiteral("btnBrowse"));
    browseButton->setAutoDefault(false);
    for (QLabel *const label : {m_path, m_error}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    m_error->setObjectName(QStringLiteral("labelErrMsg"));
    m_error->setStyleSheet(QStringLiteral("QLabel { color : red; }"));
    m_path->setForegroundRole(QPalette::PlaceholderText);

    auto *const form = new QFormLayout(this);
    // "Next" has the N.
    form->addRow(tr("Na&me:"), m_name);
    auto *const place = new QHBoxLayout;
    place->addWidget(m_folder, 1);
    place->addWidget(browseButton);
    form->addRow(tr("&Folder:"), place);
    // A layout is no buddy.
    qobject_cast<QLabel *>(form->labelForField(place))->setBuddy(m_folder);
    form->addRow(QString(), m_path);
    form->addRow(QString(), m_error);
    connect(m_name, &QLineEdit::textChanged, this, &PlacePage::onEdited);
    connect(m_folder, &QLineEdit::textChanged, this, &PlacePage::onEdited);
    connect(browseButton, &QPushButton::clicked, this, &PlacePage::browse);
}

PlacePage::~PlacePage() = default;

QString PlacePage::projectName() const
{
    return m_name->text();
}

QString PlacePage::folder() const
{
    return QDir::fromNativeSeparators(m_folder->text());
}

NewProject PlacePage::project() const
{
    return {projectName(), folder(), {}};
}

bool PlacePage::isComplete() const
{
    return faultOf(project()).isEmpty();
}

void PlacePage::onEdited()
{
    const NewProject now = project();
    const QString fault = faultOf(now);
    m_error->setText(fault);
    QString path = now.name.isEmpty() ? QString() : QDir::toNativeSeparators(now.file());
    if (fault.isEmpty() && QFileInfo::exists(now.file()))
        path += QLatin1Char('\n') + tr("There is a project of that name.");
    else if (fault.isEmpty() && QFileInfo::exists(now.folder()))
        path += QLatin1Char('\n') + tr("The folder exists; the project is put into it.");
    m_path->setText(path);
    Q_EMIT completeChanged();
}

void PlacePage::browse()
{
    const QString chosen =
        QFileDialog::getExistingDirectory(this, tr("Select Directory..."), folder());
    if (!chosen.isEmpty())
        m_folder->setText(QDir::toNativeSeparators(chosen));
}

DevicePage::DevicePage(const QVector<DEV::Device> &devices, QWidget *parent)
    : QWizardPage(parent)
    , m_picker(new DevicePicker(devices, this))
    , m_anyDevice(!devices.isEmpty())
{
    setTitle(tr("Device"));
    setSubTitle(tr("Type words to narrow the table down, and choose the device on your board."));
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(m_picker);
    connect(m_picker, &DevicePicker::deviceChanged, this, &DevicePage::completeChanged);
    connect(m_picker, &DevicePicker::deviceActivated, this, [this] { wizard()->next(); });
}

DevicePage::~DevicePage() = default;

DeviceChoice DevicePage::choice() const
{
    return m_picker->choice();
}

void DevicePage::propose(const QString &part)
{
    m_picker->selectPart(part);
}

bool DevicePage::isComplete() const
{
    return !m_anyDevice || m_picker->device();
}

SummaryPage::SummaryPage(QWidget *parent)
    : QWizardPage(parent)
    , m_name(new QLabel(this))
    , m_file(new QLabel(this))
    , m_device(new QLabel(this))
{
    setTitle(tr("Summary"));
    setSubTitle(tr("This project is going to be made."));
    auto *const form = new QFormLayout(this);
    form->addRow(tr("Name:"), m_name);
    form->addRow(tr("Project file:"), m_file);
    form->addRow(tr("Device:"), m_device);
    for (QLabel *const label : {m_name, m_file, m_device}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    }
    m_name->setObjectName(QStringLiteral("labelName"));
    m_file->setObjectName(QStringLiteral("labelFile"));
    m_device->setObjectName(QStringLiteral("labelDevice"));
}

SummaryPage::~SummaryPage() = default;

void SummaryPage::initializePage()
{
    const NewProject project = static_cast<NewProjectDialog *>(wizard())->project();
    m_name->setText(project.name);
    m_file->setText(QDir::toNativeSeparators(project.file()));
    m_device->setText(project.device.isEmpty() ? tr("none chosen") : project.device.part);
}

} // namespace Fpga
