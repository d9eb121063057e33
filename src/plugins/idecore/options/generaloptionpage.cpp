// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/options/generaloptionpage_p.h>

#include "ui_generaloptionpage.h"

#include <appstyle/appstylemanager.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/core/constants.h>
#include <idecore/core/idecore.h>
#include <idecore/core/messages_p.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QDir>
#include <QFileDialog>
#include <QSettings>

namespace Core {
namespace private_impl {

namespace {

const QString KEY_THEME = QStringLiteral("Theme");
const QString KEY_LANGUAGE = QStringLiteral("Language");
const QString KEY_COLOR_SCHEME = QStringLiteral("TextEditor/ColorScheme");
const QString ENGLISH = QStringLiteral("en");
const QString CHINESE = QStringLiteral("zh_CN");
// Not what the tool bars start with when nothing is stored: the two differ on
// purpose.
constexpr int SHOWN_ICON_SIZE = 20;

QString iconSizeKey()
{
    return QLatin1String(Constants::SET_TOOLBAR_ICON_SIZE);
}

int indexOfIconSize(int size)
{
    switch (size) {
    case 16:
        return 0;
    case 24:
        return 2;
    case 28:
        return 3;
    default:
        return 1;
    }
}

} // namespace

GeneralOptionPage::GeneralOptionPage(QObject *parent)
    : IOptionsPage(parent)
{
    setId(QStringLiteral("A.General"));
    setCategoryId(QStringLiteral("A.Core"));
    setDisplayName(tr("General"));
    setDisplayCategory(tr("Environment"));
    setCategoryIcon(QStringLiteral(":/core/image/options.png"));
}

GeneralOptionPage::~GeneralOptionPage()
{
    delete m_widget;
}

QWidget *GeneralOptionPage::widget()
{
    if (!m_widget) {
        m_widget = new QWidget;
        m_ui = std::make_unique<Ui_GeneralOptionPage>();
        m_ui->setupUi(m_widget);
        initUiSetting();
    }
    return m_widget;
}

void GeneralOptionPage::apply()
{
    if (m_widget)
        applyUiSetting();
}

void GeneralOptionPage::finish()
{
    delete m_widget;
    m_ui.reset();
}

void GeneralOptionPage::initUiSetting()
{
    const QSettings *const settings = IdeCore::userSettings();
    // The names of the themes are stored and shown as they are.
    m_ui->comboBoxTheme->addItem(APPSTYLE::THEME_CLASSIC, APPSTYLE::THEME_CLASSIC);
    m_ui->comboBoxTheme->addItem(APPSTYLE::THEME_DARK, APPSTYLE::THEME_DARK);
    const QString theme = settings->value(KEY_THEME, APPSTYLE::THEME_CLASSIC).toString();
    m_ui->comboBoxTheme->setCurrentIndex(m_ui->comboBoxTheme->findData(
        theme, Qt::UserRole, Qt::MatchExactly | Qt::MatchCaseSensitive));
    APPSTYLE::AppStyleManager::instance()->setCurrentTheme(theme);

    // Each language in its own words would be found by those who need it; this one
    // is translated.
    m_ui->comboBoxLanguage->addItem(QStringLiteral("English"), ENGLISH);
    m_ui->comboBoxLanguage->addItem(tr("Simplified Chinese"), CHINESE);
    const QString language = settings->value(KEY_LANGUAGE, ENGLISH).toString();
    m_ui->comboBoxLanguage->setCurrentIndex(language == ENGLISH ? 0 : 1);

    for (const int size : {16, 20, 24, 28})
        m_ui->comboBoxIconSize->addItem(QStringLiteral("%1*%1").arg(size), size);
    m_ui->comboBoxIconSize->setCurrentIndex(
        indexOfIconSize(settings->value(iconSizeKey(), SHOWN_ICON_SIZE).toInt()));

    m_ui->lineEditProjectPath->setText(QDir::toNativeSeparators(ProjectManager::workDir()));

    connect(m_ui->btnBrowseProjectPath, &QPushButton::clicked, this,
            &GeneralOptionPage::onBtnBrowse);
    connect(m_ui->btnClearProjectPath, &QPushButton::clicked, m_ui->lineEditProjectPath,
            &QLineEdit::clear);
}

void GeneralOptionPage::applyUiSetting()
{
    QSettings *const settings = IdeCore::userSettings();
    // Read before the message below is shown, while which the form may go.
    const QString theme = m_ui->comboBoxTheme->currentText();
    const QString language = m_ui->comboBoxLanguage->currentData().toString();
    const int iconSize = m_ui->comboBoxIconSize->currentData().toInt();
    const QString directory = m_ui->lineEditProjectPath->text();

    // As variants: what is not stored differs from every text, the empty one too.
    if (QVariant(theme) != settings->value(KEY_THEME)) {
        settings->setValue(KEY_THEME, theme);
        APPSTYLE::AppStyleManager::instance()->setAppStyle(theme);
        if (theme == APPSTYLE::THEME_CLASSIC)
            settings->setValue(KEY_COLOR_SCHEME, QStringLiteral("Default"));
        else if (theme == APPSTYLE::THEME_DARK)
            settings->setValue(KEY_COLOR_SCHEME, QStringLiteral("Desert"));
        showMessage(QMessageBox::Information, ViewManager::dialogParent(), tr("Restart Required"),
                    tr("Theme changes will take full effect after restarting the application."));
    }
    settings->setValue(KEY_LANGUAGE, language);
    settings->setValue(iconSizeKey(), iconSize);
    ActionManager::setToolbarIconSize(iconSize);
    ProjectManager::setDefaultWorkDir(directory);
}

void GeneralOptionPage::onBtnBrowse()
{
    const QPointer<QWidget> form(m_widget);
    if (!form)
        return;
    const QString directory = QFileDialog::getExistingDirectory(
        ViewManager::dialogParent(), tr("Select Directory"), m_ui->lineEditProjectPath->text());
    // The page may have been finished meanwhile.
    if (form && !directory.isEmpty())
        m_ui->lineEditProjectPath->setText(directory);
}

} // namespace private_impl
} // namespace Core
