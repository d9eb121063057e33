// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/projects/projectsaveasdlg.h>

#include "ui_projectsaveasdlg.h"

#include <idecore/views/viewmanager.h>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegExp>
#include <QRegExpValidator>
#include <QScreen>

namespace Core {

namespace {

constexpr int HEIGHT = 132;
constexpr int MIN_WIDTH = 550;
// By which the dialog grows to hold a message.
constexpr int STEP = 20;

/// Where the copy of the project in @p path is proposed to go.
QString parentOf(const QString &path)
{
    QDir dir(path);
    if (path.isEmpty() || !dir.exists())
        return QDir::homePath();
    dir.cdUp();
    return dir.absolutePath();
}

/// Why the directory @p target cannot become that of the project @p name in
/// @p directory; empty when it can. Not translated.
QString objection(const QString &name, const QString &directory, const QString &target)
{
    if (name.isEmpty())
        return QStringLiteral("Please enter a name for new project.");
    if (directory.isEmpty())
        return QStringLiteral("Please select a path.");
    if (!QDir(directory).exists())
        return QStringLiteral("Directory %1 is not exist.").arg(directory);
    if (QFileInfo::exists(target))
        return QStringLiteral("Directory %1 already exist.").arg(target);
    return {};
}

} // namespace

ProjectSaveAsDlg::ProjectSaveAsDlg(const QString &path, const QString &name, QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui_ProjectSaveAsDlg>())
{
    ui->setupUi(this);
    ui->labelErrMsg->setStyleSheet(QStringLiteral("QLabel { color : red; }"));
    ui->editDirectory->setReadOnly(true);
    ui->editDirectory->setText(parentOf(path));
    ui->editPrjName->setText(name);
    // QRegExp knows every white space of Unicode as such.
    ui->editPrjName->setValidator(
        new QRegExpValidator(QRegExp(QStringLiteral(R"([^~\.<>/\\|\:"\*\?\s]*)")), this));
    ui->editPrjName->setFocus();
    setFixedHeight(HEIGHT);
    setMinimumWidth(MIN_WIDTH);
    setWindowTitle(tr("Save current project as..."));
    connect(ui->btnBrowse, &QPushButton::clicked, this, &ProjectSaveAsDlg::onBrowse);
    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &ProjectSaveAsDlg::accept);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &ProjectSaveAsDlg::reject);
}

ProjectSaveAsDlg::~ProjectSaveAsDlg() = default;

QString ProjectSaveAsDlg::newPrjName() const
{
    return ui->editPrjName->text();
}

QString ProjectSaveAsDlg::newPrjPath() const
{
    return ui->editDirectory->text();
}

void ProjectSaveAsDlg::onBrowse()
{
    const QString start = newPrjPath().isEmpty() ? QDir::homePath() : newPrjPath();
    const QString chosen = QFileDialog::getExistingDirectory(ViewManager::dialogParent(),
                                                             tr("Select Directory..."), start);
    if (!chosen.isEmpty())
        ui->editDirectory->setText(chosen);
}

void ProjectSaveAsDlg::accept()
{
    const QString target = newPrjPath() + QLatin1Char('/') + newPrjName();
    QString message = objection(newPrjName(), newPrjPath(), target);
    if (message.isEmpty() && !QDir().mkdir(target))
        message = QStringLiteral("Directory creation failed.");
    if (message.isEmpty())
        QDialog::accept();
    else
        showMessage(message);
}

void ProjectSaveAsDlg::showMessage(const QString &message)
{
    QLabel *const label = ui->labelErrMsg;
    label->setText(message);
    // Escaped, because a path may look like markup.
    label->setToolTip(QLatin1String("<p>") + message.toHtmlEscaped() + QLatin1String("</p>"));
    // The height is fixed, so a long path gets its room in width, as far as the screen
    // goes; all of it is in the tool tip.
    const int limit = screen()->availableGeometry().width();
    for (int width = this->width(); width < limit; width += STEP) {
        resize(width, height());
        // The inner one first: it tells the other how high the message wants to be.
        ui->horizontalLayout->activate();
        layout()->activate();
        const QRect text = label->fontMetrics().boundingRect(
            QRect(0, 0, label->width(), QWIDGETSIZE_MAX), Qt::TextWordWrap, message);
        if (text.width() <= label->width()
            && label->heightForWidth(label->width()) <= label->height())
            break;
    }
}

} // namespace Core
