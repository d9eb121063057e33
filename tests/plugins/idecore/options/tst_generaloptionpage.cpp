// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/modaldialog.h"

#include <appstyle/appstylemanager.h>
#include <extsys/pluginmanager.h>
#include <idecore/actions/actionmanager.h>
#include <idecore/core/idecore.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/options/generaloptionpage_p.h>
#include <idecore/options/optiondialog.h>
#include <idecore/projects/projectmanager.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSettings>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>

#include <functional>

using namespace Core;
using private_impl::GeneralOptionPage;

class TestGeneralOptionPage final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        CoreFixture::dropSettings();
        // Without this every apply() shows the message about the theme.
        CoreFixture::storeSetting(QStringLiteral("Theme"), QStringLiteral("Classic"));
        start();
    }

    void cleanup()
    {
        m_page->finish();
        m_core.reset();
        APPSTYLE::AppStyleManager::instance()->setAppStyle(APPSTYLE::THEME_CLASSIC);
    }

    void thePageIsTheFirstOfTheFirstCategory()
    {
        QCOMPARE(m_page->id(), QStringLiteral("A.General"));
        QCOMPARE(m_page->categoryId(), QStringLiteral("A.Core"));
        QCOMPARE(m_page->displayName(), QStringLiteral("General"));
        QCOMPARE(m_page->displayCategory(), QStringLiteral("Environment"));
        QCOMPARE(m_page->categoryIcon(), QStringLiteral(":/core/image/options.png"));
    }

    void theOptionsBeginWithThePage()
    {
        inOptions([](OptionDialog *dialog) {
            const auto *list = dialog->findChild<QListView *>(QStringLiteral("categoryList"));
            QCOMPARE(list->model()->index(0, 0).data().toString(), QStringLiteral("Environment"));
            QCOMPARE(dialog->findChild<QTabWidget *>()->tabText(0), QStringLiteral("General"));
            dialog->reject();
        });
    }

    void theWidgetIsMadeOnce()
    {
        QWidget *widget = m_page->widget();
        QVERIFY(widget);
        QVERIFY(!widget->parentWidget());
        QCOMPARE(m_page->widget(), widget);
    }

    void finishDeletesTheWidget()
    {
        const QPointer<QWidget> widget = m_page->widget();
        m_page->finish();
        QVERIFY(!widget);
        m_page->finish();
    }

    void theWidgetGoesWithThePage()
    {
        auto page = std::make_unique<GeneralOptionPage>();
        const QPointer<QWidget> widget = page->widget();
        page.reset();
        QVERIFY(!widget);
    }

    void theWidgetMayGoBefore()
    {
        delete m_page->widget();
        m_page->apply();
        m_page->finish();
        QVERIFY(m_page->widget());
    }

    void theWidgetIsFilledAnew()
    {
        edit("lineEditProjectPath")->setText(QStringLiteral("/forgotten"));
        m_page->finish();
        QCOMPARE(edit("lineEditProjectPath")->text(), QString());
    }

    void withoutAWidgetApplyDoesNothing()
    {
        IdeCore::userSettings()->setValue(QStringLiteral("Language"), QStringLiteral("probe"));
        m_page->apply();
        QCOMPARE(stored("Language"), QVariant(QStringLiteral("probe")));
        QVERIFY(!stored("Core/ToolbarIconSize").isValid());
    }

    void theFormSays_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, const char *text) {
            QTest::newRow(name) << QString::fromLatin1(name) << QString::fromLatin1(text);
        };
        row("groupUI", "User Interface");
        row("labelLan", "Language[*]:");
        row("labelIconSize", "Toolbar Icon Size:");
        row("label", "Theme:");
        row("groupBox", "Default New Project Directory");
        row("btnBrowseProjectPath", "Browse");
        row("btnClearProjectPath", "Clear");
    }

    void theFormSays()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, text);
        const auto *widget = m_page->widget()->findChild<QWidget *>(name);
        QVERIFY(widget);
        const char *property = qobject_cast<const QGroupBox *>(widget) ? "title" : "text";
        QCOMPARE(widget->property(property).toString(), text);
    }

    void theBoxesOffer_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("entries");
        QTest::addColumn<QVariantList>("values");
        QTest::newRow("theme") << QStringLiteral("comboBoxTheme") << texts({"Classic", "Dark"})
                               << QVariantList{QStringLiteral("Classic"), QStringLiteral("Dark")};
        QTest::newRow("language") << QStringLiteral("comboBoxLanguage")
                                  << texts({"English", "Simplified Chinese"})
                                  << QVariantList{QStringLiteral("en"), QStringLiteral("zh_CN")};
        QTest::newRow("icon size")
            << QStringLiteral("comboBoxIconSize") << texts({"16*16", "20*20", "24*24", "28*28"})
            << QVariantList{16, 20, 24, 28};
    }

    void theBoxesOffer()
    {
        QFETCH(const QString, name);
        QFETCH(const QStringList, entries);
        QFETCH(const QVariantList, values);
        const auto *box = m_page->widget()->findChild<QComboBox *>(name);
        QStringList shown;
        QVariantList data;
        for (int i = 0; i < box->count(); ++i) {
            shown.append(box->itemText(i));
            data.append(box->itemData(i));
        }
        QCOMPARE(shown, entries);
        QCOMPARE(data, values);
        QCOMPARE(box->minimumWidth(), 150);
    }

    void theRowsStandInAForm()
    {
        const auto *form = qobject_cast<QFormLayout *>(
            m_page->widget()->findChild<QGroupBox *>(QStringLiteral("groupUI"))->layout());
        QVERIFY(form);
        QStringList labels;
        for (int row = 0; row < form->rowCount(); ++row) {
            QLayoutItem *field = form->itemAt(row, QFormLayout::FieldRole);
            QVERIFY(qobject_cast<QHBoxLayout *>(field->layout()));
            QVERIFY(qobject_cast<QComboBox *>(field->layout()->itemAt(0)->widget()));
            labels.append(form->itemAt(row, QFormLayout::LabelRole)->widget()->objectName());
        }
        QCOMPARE(labels, texts({"labelLan", "labelIconSize", "label"}));
    }

    void theDirectoryAndItsButtonsStandInARow()
    {
        const QLayout *row =
            m_page->widget()->findChild<QGroupBox *>(QStringLiteral("groupBox"))->layout();
        QVERIFY(qobject_cast<const QHBoxLayout *>(row));
        QStringList names;
        for (int i = 0; i < row->count(); ++i)
            names.append(row->itemAt(i)->widget()->objectName());
        QCOMPARE(names,
                 texts({"lineEditProjectPath", "btnBrowseProjectPath", "btnClearProjectPath"}));
    }

    void storedValuesAreShown_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("shown");
        const auto row = [](const char *name, const char *key, const QVariant &value,
                            const char *box, const char *shown) {
            QTest::newRow(name) << QString::fromLatin1(key) << value << QString::fromLatin1(box)
                                << QString::fromLatin1(shown);
        };
        const QVariant none;
        row("theme", "Theme", QStringLiteral("Dark"), "comboBoxTheme", "Dark");
        row("no theme", "Theme", none, "comboBoxTheme", "Classic");
        row("theme of other case", "Theme", QStringLiteral("dark"), "comboBoxTheme", "");
        row("unknown theme", "Theme", QStringLiteral("Solar"), "comboBoxTheme", "");
        row("empty theme", "Theme", QStringLiteral(""), "comboBoxTheme", "");
        row("English", "Language", QStringLiteral("en"), "comboBoxLanguage", "English");
        row("no language", "Language", none, "comboBoxLanguage", "English");
        row("Chinese", "Language", QStringLiteral("zh_CN"), "comboBoxLanguage",
            "Simplified Chinese");
        row("other language", "Language", QStringLiteral("de"), "comboBoxLanguage",
            "Simplified Chinese");
        row("English of other case", "Language", QStringLiteral("EN"), "comboBoxLanguage",
            "Simplified Chinese");
        row("size 16", "Core/ToolbarIconSize", 16, "comboBoxIconSize", "16*16");
        row("size 20", "Core/ToolbarIconSize", 20, "comboBoxIconSize", "20*20");
        row("size 24", "Core/ToolbarIconSize", 24, "comboBoxIconSize", "24*24");
        row("size 28", "Core/ToolbarIconSize", 28, "comboBoxIconSize", "28*28");
        row("no size", "Core/ToolbarIconSize", none, "comboBoxIconSize", "20*20");
        row("larger size", "Core/ToolbarIconSize", 32, "comboBoxIconSize", "20*20");
        row("other size", "Core/ToolbarIconSize", 17, "comboBoxIconSize", "20*20");
        row("negative size", "Core/ToolbarIconSize", -16, "comboBoxIconSize", "20*20");
    }

    void storedValuesAreShown()
    {
        QFETCH(const QString, key);
        QFETCH(const QVariant, value);
        QFETCH(const QString, box);
        QFETCH(const QString, shown);
        if (value.isValid())
            IdeCore::userSettings()->setValue(key, value);
        else
            IdeCore::userSettings()->remove(key);
        QCOMPARE(m_page->widget()->findChild<QComboBox *>(box)->currentText(), shown);
    }

    void theStyleManagerLearnsTheThemeThatWasRead_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("current");
        QTest::newRow("dark") << QStringLiteral("Dark") << QStringLiteral("Dark");
        QTest::newRow("classic") << QStringLiteral("Classic") << QStringLiteral("Classic");
        QTest::newRow("unknown") << QStringLiteral("Solar") << QStringLiteral("Classic");
        QTest::newRow("empty") << QStringLiteral("") << QStringLiteral("Classic");
    }

    void theStyleManagerLearnsTheThemeThatWasRead()
    {
        QFETCH(const QString, stored);
        QFETCH(const QString, current);
        auto *style = APPSTYLE::AppStyleManager::instance();
        style->setCurrentTheme(current == QLatin1String("Dark") ? APPSTYLE::THEME_CLASSIC
                                                                : APPSTYLE::THEME_DARK);
        IdeCore::userSettings()->setValue(QStringLiteral("Theme"), stored);
        QVERIFY(m_page->widget());
        QCOMPARE(style->currentTheme(), current);
    }

    void theDirectoryIsThatOfTheProjectManager()
    {
        ProjectManager::setDefaultWorkDir(QStringLiteral("/some/where"));
        QCOMPARE(edit("lineEditProjectPath")->text(), QStringLiteral("/some/where"));
    }

    void anUnchangedThemeDoesNothing()
    {
        QVERIFY(m_page->widget());
        m_page->apply();
        QCOMPARE(stored("Theme"), QVariant(QStringLiteral("Classic")));
        QVERIFY(!stored("TextEditor/ColorScheme").isValid());
    }

    void aChangedThemeIsStoredShownAndToldOf_data()
    {
        QTest::addColumn<QVariant>("before");
        QTest::addColumn<QString>("theme");
        QTest::addColumn<QString>("scheme");
        QTest::newRow("dark") << QVariant(QStringLiteral("Classic")) << QStringLiteral("Dark")
                              << QStringLiteral("Desert");
        QTest::newRow("classic") << QVariant(QStringLiteral("Dark")) << QStringLiteral("Classic")
                                 << QStringLiteral("Default");
        QTest::newRow("nothing stored")
            << QVariant() << QStringLiteral("Classic") << QStringLiteral("Default");
    }

    void aChangedThemeIsStoredShownAndToldOf()
    {
        QFETCH(const QVariant, before);
        QFETCH(const QString, theme);
        QFETCH(const QString, scheme);
        if (before.isValid())
            IdeCore::userSettings()->setValue(QStringLiteral("Theme"), before);
        else
            IdeCore::userSettings()->remove(QStringLiteral("Theme"));
        box("comboBoxTheme")->setCurrentText(theme);
        QVariant storedByThen;
        QString currentByThen;
        QVariant languageByThen;
        ModalDialog message([&](QWidget *widget) {
            storedByThen = stored("TextEditor/ColorScheme");
            currentByThen = APPSTYLE::AppStyleManager::instance()->currentTheme();
            languageByThen = stored("Language");
            ModalDialog::press(QMessageBox::Ok)(widget);
        });
        m_page->apply();
        QCOMPARE(stored("Theme"), QVariant(theme));
        QCOMPARE(storedByThen, QVariant(scheme));
        QCOMPARE(currentByThen, theme);
        QVERIFY(!languageByThen.isValid());
        QCOMPARE(message.title(), QStringLiteral("Restart Required"));
        QCOMPARE(message.text(),
                 QStringLiteral(
                     "Theme changes will take full effect after restarting the application."));
        QCOMPARE(message.icon(), int(QMessageBox::Information));
        QCOMPARE(message.parentOfDialog(), ViewManager::mainWindow());
    }

    void aThemeThatWasAppliedIsNotNewAgain()
    {
        box("comboBoxTheme")->setCurrentText(QStringLiteral("Dark"));
        {
            const ModalDialog message(ModalDialog::press(QMessageBox::Ok));
            m_page->apply();
        }
        IdeCore::userSettings()->setValue(QStringLiteral("TextEditor/ColorScheme"),
                                          QStringLiteral("probe"));
        m_page->apply();
        QCOMPARE(stored("TextEditor/ColorScheme"), QVariant(QStringLiteral("probe")));
    }

    void theThemeIsStoredBeforeItIsShownAndTheSchemeBehind()
    {
        box("comboBoxTheme")->setCurrentText(QStringLiteral("Dark"));
        QVariant themeByThen;
        QVariant schemeByThen;
        connect(APPSTYLE::AppStyleManager::instance(), &APPSTYLE::AppStyleManager::themeChanged,
                m_page->widget(), [&] {
                    themeByThen = stored("Theme");
                    schemeByThen = stored("TextEditor/ColorScheme");
                });
        const ModalDialog message(ModalDialog::press(QMessageBox::Ok));
        m_page->apply();
        QCOMPARE(themeByThen, QVariant(QStringLiteral("Dark")));
        QVERIFY(!schemeByThen.isValid());
    }

    void theRestIsStoredInItsOrder()
    {
        box("comboBoxIconSize")->setCurrentIndex(0);
        edit("lineEditProjectPath")->setText(QStringLiteral("/last"));
        QVariant languageByThen;
        QVariant sizeByThen;
        QString directoryByThen = QStringLiteral("the size did not change");
        connect(ActionManager::toolBar(QStringLiteral("Core.Toolbar.File")),
                &QToolBar::iconSizeChanged, this, [&] {
                    languageByThen = stored("Language");
                    sizeByThen = stored("Core/ToolbarIconSize");
                    directoryByThen = ProjectManager::workDir();
                });
        m_page->apply();
        QCOMPARE(languageByThen, QVariant(QStringLiteral("en")));
        QCOMPARE(sizeByThen, QVariant(16));
        QCOMPARE(directoryByThen, QString());
        QCOMPARE(ProjectManager::workDir(), QStringLiteral("/last"));
    }

    void whatIsNotOfferedGivesWayToWhatIsShown_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("before");
        QTest::addColumn<QVariant>("after");
        QTest::newRow("icon size")
            << QStringLiteral("Core/ToolbarIconSize") << QVariant(32) << QVariant(20);
        QTest::newRow("language") << QStringLiteral("Language") << QVariant(QStringLiteral("de"))
                                  << QVariant(QStringLiteral("zh_CN"));
    }

    void whatIsNotOfferedGivesWayToWhatIsShown()
    {
        QFETCH(const QString, key);
        QFETCH(const QVariant, before);
        QFETCH(const QVariant, after);
        IdeCore::userSettings()->setValue(key, before);
        QVERIFY(m_page->widget());
        m_page->apply();
        QCOMPARE(IdeCore::userSettings()->value(key), after);
    }

    void theMessageStandsOverTheOptions()
    {
        QWidget *parent = nullptr;
        QWidget *options = nullptr;
        inOptions([&](OptionDialog *dialog) {
            options = dialog;
            box("comboBoxTheme")->setCurrentText(QStringLiteral("Dark"));
            const ModalDialog message(ModalDialog::press(QMessageBox::Ok));
            dialog->apply();
            parent = message.parentOfDialog();
            dialog->reject();
        });
        QVERIFY(options);
        QCOMPARE(parent, options);
    }

    void theMessageHasOneButton()
    {
        box("comboBoxTheme")->setCurrentText(QStringLiteral("Dark"));
        QMessageBox::StandardButtons buttons;
        const ModalDialog message([&buttons](QWidget *widget) {
            buttons = qobject_cast<QMessageBox *>(widget)->standardButtons();
            ModalDialog::press(QMessageBox::Ok)(widget);
        });
        m_page->apply();
        QCOMPARE(buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    }

    void anUnknownThemeGivesWayToNone()
    {
        IdeCore::userSettings()->setValue(QStringLiteral("Theme"), QStringLiteral("Solar"));
        QVERIFY(m_page->widget());
        {
            const ModalDialog message(ModalDialog::press(QMessageBox::Ok));
            m_page->apply();
        }
        QCOMPARE(stored("Theme"), QVariant(QString()));
        QVERIFY(!stored("TextEditor/ColorScheme").isValid());
        QCOMPARE(APPSTYLE::AppStyleManager::instance()->currentTheme(), QStringLiteral("Classic"));
        // From then on it is unchanged.
        m_page->finish();
        QVERIFY(m_page->widget());
        m_page->apply();
    }

    void thePageMayFinishWhileTheMessageIsShown()
    {
        box("comboBoxTheme")->setCurrentText(QStringLiteral("Dark"));
        box("comboBoxLanguage")->setCurrentIndex(1);
        edit("lineEditProjectPath")->setText(QStringLiteral("/kept"));
        const ModalDialog message([this](QWidget *widget) {
            m_page->finish();
            ModalDialog::press(QMessageBox::Ok)(widget);
        });
        m_page->apply();
        QCOMPARE(stored("Language"), QVariant(QStringLiteral("zh_CN")));
        QCOMPARE(ProjectManager::workDir(), QStringLiteral("/kept"));
    }

    void theLanguageIsStored_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("value");
        QTest::newRow("English") << 0 << QStringLiteral("en");
        QTest::newRow("Chinese") << 1 << QStringLiteral("zh_CN");
    }

    void theLanguageIsStored()
    {
        QFETCH(const int, index);
        QFETCH(const QString, value);
        box("comboBoxLanguage")->setCurrentIndex(index);
        m_page->apply();
        QCOMPARE(stored("Language"), QVariant(value));
    }

    void theIconSizeIsStoredAndShownAtOnce_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("size");
        for (int i = 0; i < 4; ++i)
            QTest::addRow("%d", 16 + 4 * i) << i << 16 + 4 * i;
    }

    void theIconSizeIsStoredAndShownAtOnce()
    {
        QFETCH(const int, index);
        QFETCH(const int, size);
        box("comboBoxIconSize")->setCurrentIndex(index);
        m_page->apply();
        QCOMPARE(stored("Core/ToolbarIconSize").toInt(), size);
        QCOMPARE(ActionManager::toolBar(QStringLiteral("Core.Toolbar.File"))->iconSize(),
                 QSize(size, size));
    }

    void theDirectoryIsStoredAsItStands_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("path") << QStringLiteral("/a b/c");
        QTest::newRow("missing") << QStringLiteral("no/such//folder ");
        QTest::newRow("empty") << QString();
    }

    void theDirectoryIsStoredAsItStands()
    {
        QFETCH(const QString, text);
        ProjectManager::setDefaultWorkDir(QStringLiteral("/before"));
        edit("lineEditProjectPath")->setText(text);
        m_page->apply();
        QCOMPARE(ProjectManager::workDir(), text);
    }

    void clearEmptiesTheDirectory()
    {
        ProjectManager::setDefaultWorkDir(QStringLiteral("/before"));
        QVERIFY(m_page->widget());
        button("btnClearProjectPath")->click();
        QCOMPARE(edit("lineEditProjectPath")->text(), QString());
        QCOMPARE(ProjectManager::workDir(), QStringLiteral("/before"));
    }

    void clearAndOkTakeTheDirectoryAway()
    {
        ProjectManager::setDefaultWorkDir(QStringLiteral("/before"));
        inOptions([this](OptionDialog *dialog) {
            button("btnClearProjectPath")->click();
            dialog->accept();
        });
        QCOMPARE(stored("Core/DefaultWorkDir"), QVariant(QString()));
    }

    void browsingTakesTheChosenDirectory()
    {
        const QTemporaryDir folder;
        const QDir dir(folder.path());
        QVERIFY(dir.mkdir(QStringLiteral("chosen")));
        edit("lineEditProjectPath")->setText(folder.path());
        QString start;
        bool directoriesOnly = false;
        const ModalDialog chooser([&](QWidget *widget) {
            auto *dialog = qobject_cast<QFileDialog *>(widget);
            start = dialog->directory().path();
            directoriesOnly = dialog->testOption(QFileDialog::ShowDirsOnly);
            dialog->findChild<QLineEdit *>()->setText(dir.filePath(QStringLiteral("chosen")));
            QTest::keyClick(dialog->findChild<QLineEdit *>(), Qt::Key_Return);
        });
        button("btnBrowseProjectPath")->click();
        QCOMPARE(edit("lineEditProjectPath")->text(), dir.filePath(QStringLiteral("chosen")));
        QCOMPARE(start, folder.path());
        QVERIFY(directoriesOnly);
        QCOMPARE(chooser.title(), QStringLiteral("Select Directory"));
        QCOMPARE(chooser.parentOfDialog(), ViewManager::mainWindow());
    }

    void aCancelledChooserLeavesTheDirectory()
    {
        edit("lineEditProjectPath")->setText(QStringLiteral("/kept"));
        const ModalDialog chooser(ModalDialog::cancel());
        button("btnBrowseProjectPath")->click();
        QCOMPARE(edit("lineEditProjectPath")->text(), QStringLiteral("/kept"));
    }

    void theChooserStandsOverTheOptions()
    {
        QWidget *parent = nullptr;
        QWidget *options = nullptr;
        inOptions([&](OptionDialog *dialog) {
            options = dialog;
            const ModalDialog chooser(ModalDialog::cancel());
            button("btnBrowseProjectPath")->click();
            parent = chooser.parentOfDialog();
            dialog->reject();
        });
        QVERIFY(options);
        QCOMPARE(parent, options);
    }

    void withoutAWidgetNothingIsBrowsed()
    {
        m_page->onBtnBrowse();
        QVERIFY(!QApplication::activeModalWidget());
    }

    void thePageMayFinishWhileTheChooserIsShown()
    {
        QVERIFY(m_page->widget());
        const ModalDialog chooser([this](QWidget *widget) {
            m_page->finish();
            QTest::keyClick(widget, Qt::Key_Return);
        });
        m_page->onBtnBrowse();
        QVERIFY(chooser.met());
    }

    void whatWasChosenHoldsAfterARestart()
    {
        box("comboBoxLanguage")->setCurrentIndex(1);
        box("comboBoxIconSize")->setCurrentIndex(0);
        edit("lineEditProjectPath")->setText(QStringLiteral("/kept"));
        m_page->apply();
        m_page->finish();
        m_core.reset();
        start();
        QCOMPARE(box("comboBoxLanguage")->currentIndex(), 1);
        QCOMPARE(box("comboBoxIconSize")->currentIndex(), 0);
        QCOMPARE(edit("lineEditProjectPath")->text(), QStringLiteral("/kept"));
        QCOMPARE(ActionManager::toolBar(QStringLiteral("Core.Toolbar.File"))->iconSize(),
                 QSize(16, 16));
    }

private:
    void start()
    {
        m_core = std::make_unique<CoreFixture>(CoreFixture::Settings::Keep);
        m_page = ExtSys::PluginManager::instance()->getObjects<GeneralOptionPage>().value(0);
        QVERIFY(m_page);
    }

    /// Opens the options at the page and runs @p acts, which has to close them.
    static void inOptions(const std::function<void(OptionDialog *)> &acts)
    {
        const ModalDialog dialog(
            [&acts](QWidget *widget) { acts(qobject_cast<OptionDialog *>(widget)); });
        (void)OptionDialog::getOptionDialog(ViewManager::mainWindow(), QStringLiteral("A.Core"),
                                            QStringLiteral("A.General"))
            ->execDialog();
    }
    static QVariant stored(const char *key)
    {
        return IdeCore::userSettings()->value(QLatin1String(key));
    }
    QComboBox *box(const char *name)
    {
        return m_page->widget()->findChild<QComboBox *>(QLatin1String(name));
    }
    QLineEdit *edit(const char *name)
    {
        return m_page->widget()->findChild<QLineEdit *>(QLatin1String(name));
    }
    QPushButton *button(const char *name)
    {
        return m_page->widget()->findChild<QPushButton *>(QLatin1String(name));
    }

    std::unique_ptr<CoreFixture> m_core;
    GeneralOptionPage *m_page = nullptr;
};

QTEST_MAIN(TestGeneralOptionPage)
#include "tst_generaloptionpage.moc"
