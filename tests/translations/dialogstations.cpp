// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "dialogstations.h"

#include "walking.h"

#include "support/corefixture.h"

#include <idecore/externaleditors/externaleditormanager.h>
#include <idecore/interfaces/ioptionspage.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTreeView>

using Core::ExternalEditorManager;

namespace {

/// A page that has nothing to show, named by a number in every language.
class EmptyPage final : public Core::IOptionsPage
{
public:
    EmptyPage()
    {
        setId(QStringLiteral("Empty"));
        setCategoryId(QStringLiteral("Z"));
        setDisplayName(QStringLiteral("1"));
        setDisplayCategory(QStringLiteral("2"));
    }
    QWidget *widget() override { return nullptr; }
    void apply() override {}
    void finish() override {}
};

/// A name that is taken, and what is said about it.
void walkTakenName(QWidget *dialog, const Look &look)
{
    QTest::keyClicks(named<QLineEdit>(dialog, "editName"), QStringLiteral("walked"));
    QTest::keyClicks(named<QLineEdit>(dialog, "editPath"), QStringLiteral("/bin/walked"));
    look(dialog, QStringLiteral("a new external editor, filled in"));
    const ModalDialog box(lookAt(look, QStringLiteral("a name that is taken")));
    const auto *buttons = named<QDialogButtonBox>(dialog, "buttonBox");
    QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
}

/// The folder for projects, and what is said about a theme, which is taken back then.
void walkGeneral(const QWidget *page, const Look &look)
{
    lookBehind(named<QPushButton>(page, "btnBrowseProjectPath"), look,
               QStringLiteral("the folder for projects"));
    auto *const themes = named<QComboBox>(page, "comboBoxTheme");
    auto *const buttons = named<QDialogButtonBox>(page->window(), "buttonBox");
    const int before = themes->currentIndex();
    for (const int theme : {1 - before, before}) {
        themes->setCurrentIndex(theme);
        lookBehind(buttons->button(QDialogButtonBox::Apply), look, QStringLiteral("another theme"));
    }
}

void walkExternalEditors(const QWidget *page, const Look &look)
{
    {
        const ModalDialog added([&look](QWidget *dialog) {
            look(dialog, QStringLiteral("a new external editor"));
            lookBehind(named<QPushButton>(dialog, "btnBrowse"), look,
                       QStringLiteral("the program of an external editor"));
            walkTakenName(dialog, look);
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        QTest::mouseClick(named<QPushButton>(page, "btnAdd"), Qt::LeftButton);
    }
    auto *const table = named<QTableView>(page, "tableView");
    table->selectRow(0);
    const ModalDialog modified(lookAt(look, QStringLiteral("an external editor that is there")));
    QTest::keyClick(table, Qt::Key_F2);
}

void walkKeyBindings(const QWidget *page, const Look &look)
{
    QWidget *const dialog = page->window();
    auto *const tree = named<QTreeView>(page, "treeCommands");
    tree->setCurrentIndex(tree->model()->index(0, 0, tree->model()->index(0, 0)));
    look(dialog, QStringLiteral("a command and its keys"));
    auto *const recorder = named<QLineEdit>(page, "editKey");
    struct Stroke
    {
        const char *name;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
    };
    const Stroke strokes[]{{"a key of a menu", Qt::Key_F, Qt::AltModifier},
                           {"a letter", Qt::Key_A, Qt::NoModifier},
                           {"a key that moves", Qt::Key_Left, Qt::NoModifier},
                           {"a key of the documents", Qt::Key_F6, Qt::ControlModifier},
                           {"a key of the window manager", Qt::Key_F4, Qt::AltModifier},
                           {"a free key", Qt::Key_F11, Qt::ControlModifier | Qt::AltModifier},
                           {"a key of another command", Qt::Key_S, Qt::ControlModifier}};
    for (const Stroke &stroke : strokes) {
        // Strokes in a row are one key.
        while (!recorder->text().isEmpty())
            QTest::keyClick(recorder, Qt::Key_Backspace);
        QTest::keyClick(recorder, stroke.key, stroke.modifiers);
        look(dialog, QLatin1String(stroke.name));
    }
    {
        const ModalDialog clash(lookAt(look, QStringLiteral("keys that clash")));
        QTest::mouseClick(named<QPushButton>(page, "btnAdd"), Qt::LeftButton);
    }
    auto *const filter = named<QLineEdit>(page, "editFilter");
    filter->setText(QStringLiteral("ctrl"));
    look(dialog, QStringLiteral("some commands"));
    filter->setText(QStringLiteral("no such words"));
    look(dialog, QStringLiteral("no commands"));
    filter->clear();
}

/// The tabs in a page, and the dialogs behind it.
void walkPage(const QWidget *page, const Look &look, const QString &name)
{
    look(page->window(), name);
    if (auto *const inner = page->findChild<QTabWidget *>()) {
        for (int i = 1; i < inner->count(); ++i) {
            inner->setCurrentIndex(i);
            look(page->window(), name + QLatin1String(", ") + inner->tabText(i));
        }
    }
    if (page->objectName() == QLatin1String("GeneralOptionPage"))
        walkGeneral(page, look);
    if (page->objectName() == QLatin1String("Core__ExternalEditorOptionPage"))
        walkExternalEditors(page, look);
    if (page->findChild<QTreeView *>(QStringLiteral("treeCommands")))
        walkKeyBindings(page, look);
}

void walkCategories(const QWidget *dialog, const Look &look)
{
    auto *const list = named<QListView>(dialog, "categoryList");
    for (int row = 0; row < list->model()->rowCount(); ++row) {
        list->setCurrentIndex(list->model()->index(row, 0));
        const auto all = dialog->findChildren<QTabWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (QTabWidget *tabs : all) {
            if (!tabs->isVisible())
                continue;
            for (int tab = 0; tab < tabs->count(); ++tab) {
                tabs->setCurrentIndex(tab);
                walkPage(tabs->currentWidget(), look,
                         QLatin1String("options, ") + tabs->tabText(tab));
            }
        }
    }
}

} // namespace

void walkOptions(const Look &look)
{
    EmptyPage empty;
    const InPool offered(&empty);
    ExternalEditorManager::registerEditor(
        {QStringLiteral("walked"), QStringLiteral("/bin/walked"), QStringLiteral("%f"), true});
    const ModalDialog options([&look](QWidget *dialog) {
        walkCategories(dialog, look);
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    Core::ViewManager::mainWindow()->onShowOptionDialog();
    ExternalEditorManager::unregisterEditor(QStringLiteral("walked"));
}

void walkAbout(const Look &look)
{
    const ModalDialog about([&look](QWidget *dialog) {
        look(dialog, QStringLiteral("About"));
        auto *const logo = named<QLabel>(dialog, "labelLogo");
        for (int click = 1; click < 30; ++click)
            QTest::mouseClick(logo, Qt::LeftButton);
        {
            const ModalDialog question(lookAt(look, QStringLiteral("thirty clicks")));
            QTest::mouseClick(logo, Qt::LeftButton);
        }
        for (int click = 31; click < 50; ++click)
            QTest::mouseClick(logo, Qt::LeftButton);
        {
            const ModalDialog warning(lookAt(look, QStringLiteral("fifty clicks")));
            QTest::mouseClick(logo, Qt::LeftButton);
        }
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    Core::ViewManager::mainWindow()->onAboutIde();
}
