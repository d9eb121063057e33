// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "keybindingsfixture.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/interfaces/ioptionspage.h>

#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QSet>
#include <QTest>
#include <QToolBar>
#include <QTreeView>

#include <algorithm>

using Core::ActionManager;
using Core::IAction;

namespace {

const QString Save = QStringLiteral("Core.Action.Save");
const QString Late = QStringLiteral("Test.Late");

enum Column { Title, KeysColumn, Id };

} // namespace

class TestCommandList final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void pageSaysWhereItBelongs();
    void widgetIsMadeOnceAndGoesWithFinish();
    void widgetMayGoWithTheDialog();
    void applyAndFinishWithoutAWidgetDoNothing();

    void everyCommandIsListedOnce();
    void menusAreInTheirOrder();
    void commandOfASubmenuNamesBothMenus();
    void commandOfAToolBarNamesIt();
    void commandOfNoMenuIsListedLast();
    void menuThatStandsInItselfIsWalkedOnce();
    void titleHasNoMnemonic_data();
    void titleHasNoMnemonic();
    void ampersandOfATitleIsShown();
    void commandWithoutATextIsCalledByItsId();
    void keysAreShownInTheNativeForm();
    void commandThatComesLaterIsListed();
    void commandThatGoesMayStillBeChosen();

    void filterFindsEveryWord_data();
    void filterFindsEveryWord();
    void filterCountsWhatItShows();
    void theOnlyOneIsChosen();
    void chosenCommandComesBackWithTheRows();
    void arrowsGoFromTheFilterToTheList();
    void returnGoesFromTheFilterToTheListAndOn();
    void escapeClearsTheFilterFirst();

    void controlsHaveNames();
    void mnemonicsAreUnique();
    void tabReachesEveryControl();

private:
    std::unique_ptr<KeyBindingsFixture> m_fixture;
};

void TestCommandList::init()
{
    m_fixture = std::make_unique<KeyBindingsFixture>(CoreFixture::Settings::Drop);
    m_fixture->start();
}

void TestCommandList::cleanup()
{
    m_fixture.reset();
}

void TestCommandList::pageSaysWhereItBelongs()
{
    const Core::IOptionsPage *const page = m_fixture->page();
    QVERIFY(page);
    QCOMPARE(page->id(), QStringLiteral("K.KeyBindings"));
    QCOMPARE(page->categoryId(), QStringLiteral("A.Core"));
    QCOMPARE(page->displayName(), QStringLiteral("Keyboard"));
    QCOMPARE(page->displayCategory(), QStringLiteral("Environment"));
    QVERIFY(!QPixmap(page->categoryIcon()).isNull());
}

void TestCommandList::widgetIsMadeOnceAndGoesWithFinish()
{
    Core::IOptionsPage *const page = m_fixture->page();
    const QPointer<QWidget> widget = page->widget();
    QVERIFY(widget);
    QCOMPARE(page->widget(), widget.data());

    page->finish();

    QVERIFY(!widget);
    QVERIFY(page->widget());
    page->finish();
}

void TestCommandList::widgetMayGoWithTheDialog()
{
    Core::IOptionsPage *const page = m_fixture->page();
    delete page->widget();

    page->apply();
    page->finish();

    QVERIFY(page->widget());
    page->finish();
}

void TestCommandList::applyAndFinishWithoutAWidgetDoNothing()
{
    m_fixture->page()->apply();
    m_fixture->page()->finish();

    m_fixture->core.shutdown();
    QVERIFY(!KeyBindingsFixture::stored(Save).isValid());
}

void TestCommandList::everyCommandIsListedOnce()
{
    const PageDialog dialog;

    QStringList listed;
    for (const QString &row : dialog.rows()) {
        if (row.startsWith(QLatin1String("  ")))
            listed.append(row.mid(2));
    }
    QStringList expected;
    for (const IAction *command : ActionManager::actions())
        expected.append(command->id());
    listed.sort();
    expected.sort();
    QCOMPARE(listed, expected);
}

void TestCommandList::menusAreInTheirOrder()
{
    const PageDialog dialog;

    const QStringList rows = dialog.rows();
    QCOMPARE(rows.mid(0, 5), texts({"File", "  Core.Action.New", "  Core.Action.Open",
                                    "  Core.Action.Save", "  Core.Action.SaveAs"}));
    const int edit = rows.indexOf(QStringLiteral("Edit"));
    QVERIFY(edit > 5);
    QCOMPARE(rows.mid(edit + 1, 3),
             texts({"  Core.Action.Undo", "  Core.Action.Redo", "  Core.Action.Cut"}));
}

void TestCommandList::commandOfASubmenuNamesBothMenus()
{
    QMenu *const menu = ActionManager::createMenu(QStringLiteral("Test.Menu"));
    menu->setTitle(QStringLiteral("S&ub"));
    ActionManager::menu(QStringLiteral("Core.Menu.Edit"))->addMenu(menu);
    menu->addAction(m_fixture->registerCommand(Late));
    const PageDialog dialog;

    const QStringList rows = dialog.rows();
    const int sub = rows.indexOf(QStringLiteral("Edit > Sub"));
    QVERIFY(sub > 0);
    QCOMPARE(rows.value(sub + 1), QString(QStringLiteral("  ") + Late));
}

void TestCommandList::commandOfAToolBarNamesIt()
{
    QToolBar *const bar = ActionManager::toolBar(QStringLiteral("Core.Toolbar.Tools"));
    bar->addAction(m_fixture->registerCommand(Late));
    const PageDialog dialog;

    const QStringList rows = dialog.rows();
    const int place = rows.indexOf(QStringLiteral("Tool bar: Common Tools"));
    QVERIFY(place > 0);
    QCOMPARE(rows.value(place + 1), QString(QStringLiteral("  ") + Late));
}

void TestCommandList::commandOfNoMenuIsListedLast()
{
    m_fixture->registerCommand(QStringLiteral("Test.B"));
    m_fixture->registerCommand(QStringLiteral("Test.A"));
    const PageDialog dialog;

    const QStringList rows = dialog.rows();
    QCOMPARE(rows.mid(rows.size() - 2), texts({"  Test.A", "  Test.B"}));
    const auto group = std::find_if(rows.rbegin(), rows.rend(), [](const QString &row) {
        return !row.startsWith(QLatin1Char(' '));
    });
    QVERIFY(group != rows.rend());
    QCOMPARE(*group, QStringLiteral("Not in a menu"));
}

void TestCommandList::menuThatStandsInItselfIsWalkedOnce()
{
    QMenu *const menu = ActionManager::createMenu(QStringLiteral("Test.Menu"));
    menu->setTitle(QStringLiteral("Sub"));
    ActionManager::menu(QStringLiteral("Core.Menu.Edit"))->addMenu(menu);
    menu->addAction(menu->menuAction());
    menu->addAction(m_fixture->registerCommand(Late));

    const PageDialog dialog;

    QCOMPARE(dialog.rows().count(QString(QStringLiteral("  ") + Late)), 1);
}

void TestCommandList::titleHasNoMnemonic_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");

    QTest::newRow("in front") << QStringLiteral("&Save") << QStringLiteral("Save");
    QTest::newRow("inside") << QStringLiteral("Cu&t...") << QStringLiteral("Cut...");
    QTest::newRow("a sign") << QStringLiteral("&Find && Replace")
                            << QStringLiteral("Find & Replace");
    QTest::newRow("behind") << QString::fromUtf8("保存(&S)") << QString::fromUtf8("保存");
    QTest::newRow("behind, with dots")
        << QString::fromUtf8("打开(&O)...") << QString::fromUtf8("打开...");
    QTest::newRow("brackets") << QStringLiteral("Run (fast)") << QStringLiteral("Run (fast)");
    QTest::newRow("at the end") << QStringLiteral("Odd&") << QStringLiteral("Odd");
}

void TestCommandList::titleHasNoMnemonic()
{
    QFETCH(QString, text);
    m_fixture->registerCommand(Late, {}, text);
    const PageDialog dialog;

    QTEST(dialog.cell(Late, Title), "title");
}

void TestCommandList::ampersandOfATitleIsShown()
{
    const PageDialog dialog;

    QVERIFY(dialog.choose(QStringLiteral("Core.Action.Find")));

    QCOMPARE(dialog.widget->findChild<QGroupBox *>(QStringLiteral("groupKeys"))->title(),
             QStringLiteral("Keys of \"Find && Replace\""));
}

void TestCommandList::commandWithoutATextIsCalledByItsId()
{
    m_fixture->registerCommand(Late, {}, QString());
    const PageDialog dialog;

    QCOMPARE(dialog.cell(Late, Title), Late);
}

void TestCommandList::keysAreShownInTheNativeForm()
{
    m_fixture->registerCommand(Late)->setShortcuts(keys({"Ctrl+Shift+F9", "Ctrl+K, Ctrl+B"}));
    const PageDialog dialog;

    QCOMPARE(dialog.cell(Late, KeysColumn), QStringLiteral("Ctrl+Shift+F9; Ctrl+K, Ctrl+B"));
    QCOMPARE(dialog.cell(Late, Id), Late);
}

void TestCommandList::commandThatComesLaterIsListed()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    dialog.add(QKeySequence(Qt::Key_F9));
    dialog.record(QKeySequence(Qt::Key_F8));

    m_fixture->registerCommand(Late, keys({"F2"}));

    QTRY_COMPARE(dialog.cell(Late, KeysColumn), QStringLiteral("F2"));
    // What was being done goes on.
    QCOMPARE(dialog.cell(Save, KeysColumn), QStringLiteral("Ctrl+S; F9"));
    QCOMPARE(dialog.keyList(), texts({"Ctrl+S", "F9"}));
    QCOMPARE(dialog.recorder->text(), QStringLiteral("F8"));
}

void TestCommandList::commandThatGoesMayStillBeChosen()
{
    IAction *const late = m_fixture->registerCommand(Late, keys({"F2"}));
    PageDialog dialog;
    QVERIFY(dialog.choose(Late));
    delete late;

    dialog.add(QKeySequence(Qt::Key_F9));
    dialog.apply();

    QCOMPARE(m_fixture->registerCommand(Late)->shortcuts(), keys({"F2", "F9"}));
}

void TestCommandList::filterFindsEveryWord_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("found");

    QTest::newRow("title") << QStringLiteral("paste") << texts({"Edit", "  Core.Action.Paste"});
    QTest::newRow("case") << QStringLiteral("PASTE") << texts({"Edit", "  Core.Action.Paste"});
    QTest::newRow("id") << QStringLiteral("core.action.paste")
                        << texts({"Edit", "  Core.Action.Paste"});
    QTest::newRow("key") << QStringLiteral("ctrl+shift+s")
                         << texts({"File", "  Core.Action.SaveAll"});
    QTest::newRow("menu and title")
        << QStringLiteral("file print") << texts({"File", "  Core.Action.Print"});
    QTest::newRow("order does not matter")
        << QStringLiteral(" print   file ") << texts({"File", "  Core.Action.Print"});
    QTest::newRow("a word that is not there") << QStringLiteral("print nowhere") << QStringList();
    QTest::newRow("signs") << QStringLiteral("[.*") << QStringList();
}

void TestCommandList::filterFindsEveryWord()
{
    QFETCH(QString, filter);
    const PageDialog dialog;

    QTest::keyClicks(dialog.filter, filter);

    QTEST(dialog.rows(), "found");
    for (int place = 0; place < dialog.tree->model()->rowCount(); ++place)
        QVERIFY(dialog.tree->isExpanded(dialog.tree->model()->index(place, 0)));
}

void TestCommandList::filterCountsWhatItShows()
{
    const PageDialog dialog;
    const int all = ActionManager::actions().size();
    QCOMPARE(dialog.count->text(), QStringLiteral("%1 commands").arg(all));

    dialog.filter->setText(QStringLiteral("save"));
    QCOMPARE(dialog.count->text(), QStringLiteral("3 of %1 commands").arg(all));

    dialog.filter->setText(QStringLiteral("nothing such"));
    QCOMPARE(dialog.count->text(), QStringLiteral("No such command"));
}

void TestCommandList::theOnlyOneIsChosen()
{
    const PageDialog dialog;
    QVERIFY(!dialog.recorder->isEnabled());

    dialog.filter->setText(QStringLiteral("paste"));

    QVERIFY(dialog.recorder->isEnabled());
    QCOMPARE(dialog.keyList(), texts({"Ctrl+V"}));
}

void TestCommandList::chosenCommandComesBackWithTheRows()
{
    const PageDialog dialog;
    QVERIFY(dialog.choose(Save));

    dialog.filter->setText(QStringLiteral("nothing such"));
    QVERIFY(!dialog.recorder->isEnabled());
    QCOMPARE(dialog.keyList(), QStringList());
    dialog.filter->clear();

    QCOMPARE(dialog.tree->currentIndex().siblingAtColumn(Id).data().toString(), Save);
    QCOMPARE(dialog.keyList(), texts({"Ctrl+S"}));
}

void TestCommandList::arrowsGoFromTheFilterToTheList()
{
    PageDialog dialog;
    dialog.filter->setFocus();
    QTest::keyClicks(dialog.filter, QStringLiteral("save"));

    QTest::keyClick(dialog.windowHandle(), Qt::Key_Down);
    QVERIFY(dialog.tree->hasFocus());
    QCOMPARE(dialog.keyList(), texts({"Ctrl+S"}));
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Down);
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Down);
    QCOMPARE(dialog.keyList(), texts({"Ctrl+Shift+S"}));
}

void TestCommandList::returnGoesFromTheFilterToTheListAndOn()
{
    PageDialog dialog;
    dialog.filter->setFocus();
    QTest::keyClicks(dialog.filter, QStringLiteral("save"));

    QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
    QVERIFY(dialog.tree->hasFocus());
    QCOMPARE(dialog.keyList(), texts({"Ctrl+S"}));
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Enter, Qt::KeypadModifier);
    QVERIFY(dialog.recorder->hasFocus());
    QVERIFY(dialog.isVisible());
    // With nothing recorded it is the dialog's.
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void TestCommandList::escapeClearsTheFilterFirst()
{
    PageDialog dialog;
    dialog.filter->setFocus();
    QTest::keyClicks(dialog.filter, QStringLiteral("save"));

    QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
    QCOMPARE(dialog.filter->text(), QString());
    QVERIFY(dialog.isVisible());
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
}

void TestCommandList::controlsHaveNames()
{
    const PageDialog dialog;

    int controls = 0;
    for (QWidget *widget : dialog.widget->findChildren<QWidget *>()) {
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible())
            continue;
        ++controls;
        QAccessibleInterface *const interface = QAccessible::queryAccessibleInterface(widget);
        QVERIFY(interface);
        QVERIFY2(
            !interface->text(QAccessible::Name).isEmpty(),
            qPrintable(widget->objectName() + QLatin1String(widget->metaObject()->className())));
    }
    QVERIFY(controls >= 8);
}

void TestCommandList::mnemonicsAreUnique()
{
    const PageDialog dialog;

    QStringList labels;
    for (const QLabel *label : dialog.widget->findChildren<QLabel *>()) {
        if (label->buddy())
            labels.append(label->text());
    }
    for (const QPushButton *button : dialog.widget->findChildren<QPushButton *>())
        labels.append(button->text());
    QSet<QKeySequence> mnemonics;
    for (const QString &label : qAsConst(labels)) {
        const QKeySequence mnemonic = QKeySequence::mnemonic(label);
        QVERIFY2(!mnemonic.isEmpty(), qPrintable(label));
        QVERIFY2(!mnemonics.contains(mnemonic), qPrintable(label));
        mnemonics.insert(mnemonic);
    }
}

void TestCommandList::tabReachesEveryControl()
{
    PageDialog dialog;
    QVERIFY(dialog.choose(Save));
    // With something for each button to do.
    dialog.add(QKeySequence(Qt::Key_F9));
    dialog.record(QKeySequence(Qt::Key_F8));
    dialog.filter->setFocus();

    QStringList reached;
    for (int i = 0; i < 8; ++i) {
        reached.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(dialog.windowHandle(), Qt::Key_Tab);
    }

    QCOMPARE(reached, texts({"editFilter", "treeCommands", "listKeys", "btnRemove", "btnReset",
                             "editKey", "btnAdd", "btnResetAll"}));
    QVERIFY(!dialog.widget->isAncestorOf(QApplication::focusWidget()));
}

QTEST_MAIN(TestCommandList)
#include "tst_commandlist.moc"
