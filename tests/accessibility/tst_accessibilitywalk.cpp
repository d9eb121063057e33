// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/accessibilitywalk.h"

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QString named(const char *text)
{
    return QString::fromUtf8(text);
}

void show(QWidget *window)
{
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window));
}

} // namespace

/// Each fault that the walk is there for, and the good case beside it.
class TestAccessibilityWalk final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aDialogWithoutFaultsHasNone();
    void aFieldWithoutAnyNameIsFound();
    void aFieldIsNamedByItsLabel();
    void aSpinBoxSpeaksForItsField();
    void aComboBoxIsNotNamedByItsEntry();
    void aHiddenFieldNeedsNoName();
    void aTabWithoutTextIsFound();
    void anEmptyWindowTitleOfADialogIsFound();
    void aBlankTitleOfAMessageIsFound();
    void tabUpwardsIsFound();
    void tabBackwardsInARowIsFound();
    void tabFromTheButtonsToAFieldIsFound();
    void tabToTheNextColumnIsNoJump();
    void tabMayBeginAnywhereInTheRing();
    void aPressedTabUpwardsIsFound();
    void aFieldThatKeepsTabIsFound();
    void pressedTabsInOrderAreNoFault();
    void aButtonThatTabPassesIsFound();
    void aButtonWithALetterNeedsNoTab();
    void anActionOfTheToolBarAloneIsFound();
    void anActionOfTheToolBarIsReachedInAMenu();
    void anActionOfTheToolBarIsReachedByItsKey();
    void aMenuWithoutALetterIsFound();
    void aLetterOfTwoButtonsIsFound();
    void aLetterOfTwoEntriesOfAMenuIsFound();
};

void TestAccessibilityWalk::aDialogWithoutFaultsHasNone()
{
    QDialog dialog;
    dialog.setWindowTitle(named("Settings"));
    auto *const form = new QFormLayout(&dialog);
    form->addRow(named("&Name:"), new QLineEdit);
    form->addRow(named("&Size:"), new QSpinBox);
    form->addRow(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel));
    show(&dialog);

    QCOMPARE(AccessibilityWalk::faults(&dialog), QStringList());
}

void TestAccessibilityWalk::aFieldWithoutAnyNameIsFound()
{
    QWidget window;
    auto *const field = new QLineEdit(&window);
    field->setObjectName(named("field"));
    show(&window);

    QCOMPARE(AccessibilityWalk::namelessControls(&window),
             QStringList(named("nameless: QWidget/QLineEdit#field")));
}

void TestAccessibilityWalk::aFieldIsNamedByItsLabel()
{
    QWidget window;
    auto *const layout = new QVBoxLayout(&window);
    auto *const label = new QLabel(named("Name"));
    auto *const field = new QLineEdit;
    label->setBuddy(field);
    layout->addWidget(label);
    layout->addWidget(field);
    show(&window);

    QCOMPARE(AccessibilityWalk::namelessControls(&window), QStringList());
}

void TestAccessibilityWalk::aSpinBoxSpeaksForItsField()
{
    QWidget window;
    auto *const box = new QSpinBox(&window);
    box->setAccessibleName(named("Size"));
    show(&window);

    QCOMPARE(AccessibilityWalk::namelessControls(&window), QStringList());
}

void TestAccessibilityWalk::aComboBoxIsNotNamedByItsEntry()
{
    QWidget window;
    (new QComboBox(&window))->addItem(named("entry"));
    show(&window);

    QCOMPARE(AccessibilityWalk::namelessControls(&window).size(), 1);
}

void TestAccessibilityWalk::aHiddenFieldNeedsNoName()
{
    QWidget window;
    (new QLineEdit(&window))->hide();
    show(&window);

    QCOMPARE(AccessibilityWalk::namelessControls(&window), QStringList());
}

void TestAccessibilityWalk::aTabWithoutTextIsFound()
{
    QTabWidget window;
    window.tabBar()->setAccessibleName(named("Pages"));
    window.addTab(new QWidget, named("First"));
    window.addTab(new QWidget, QString());
    show(&window);

    QCOMPARE(AccessibilityWalk::namelessControls(&window).size(), 1);
}

void TestAccessibilityWalk::anEmptyWindowTitleOfADialogIsFound()
{
    QDialog dialog;
    show(&dialog);

    QCOMPARE(AccessibilityWalk::namelessControls(&dialog), QStringList(named("nameless: QDialog")));
}

void TestAccessibilityWalk::aBlankTitleOfAMessageIsFound()
{
    QMessageBox box(QMessageBox::Warning, named(" "), named("Text"));
    show(&box);

    QCOMPARE(AccessibilityWalk::namelessControls(&box),
             QStringList(named("nameless: QMessageBox")));
    box.setAccessibleName(named("Warning"));
    QCOMPARE(AccessibilityWalk::namelessControls(&box), QStringList());
}

void TestAccessibilityWalk::tabUpwardsIsFound()
{
    QWidget window;
    auto *const layout = new QVBoxLayout(&window);
    auto *const second = new QLineEdit;
    auto *const third = new QLineEdit;
    layout->addWidget(new QLineEdit);
    layout->addWidget(second);
    layout->addWidget(third);
    QWidget::setTabOrder(third, second);
    show(&window);

    QCOMPARE(AccessibilityWalk::tabJumps(&window).size(), 1);
}

void TestAccessibilityWalk::tabBackwardsInARowIsFound()
{
    QWidget window;
    auto *const layout = new QHBoxLayout(&window);
    auto *const left = new QLineEdit;
    auto *const right = new QLineEdit;
    layout->addWidget(new QLineEdit);
    layout->addWidget(left);
    layout->addWidget(right);
    QWidget::setTabOrder(right, left);
    show(&window);

    QCOMPARE(AccessibilityWalk::tabJumps(&window).size(), 1);
}

void TestAccessibilityWalk::tabFromTheButtonsToAFieldIsFound()
{
    QDialog dialog;
    auto *const layout = new QGridLayout(&dialog);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    auto *const field = new QLineEdit;
    layout->addWidget(new QLineEdit, 0, 0);
    // On the right, where it might be the next column.
    layout->addWidget(field, 1, 1);
    layout->addWidget(buttons, 2, 0);
    QWidget::setTabOrder(buttons->button(QDialogButtonBox::Ok), field);
    show(&dialog);

    QCOMPARE(AccessibilityWalk::tabJumps(&dialog).size(), 1);
}

void TestAccessibilityWalk::tabToTheNextColumnIsNoJump()
{
    QWidget window;
    auto *const layout = new QGridLayout(&window);
    auto *const last = new QLineEdit;
    auto *const next = new QLineEdit;
    layout->addWidget(new QLineEdit, 0, 0);
    layout->addWidget(last, 1, 0);
    layout->addWidget(next, 0, 1);
    QWidget::setTabOrder(last, next);
    show(&window);

    QCOMPARE(AccessibilityWalk::tabJumps(&window), QStringList());
}

void TestAccessibilityWalk::tabMayBeginAnywhereInTheRing()
{
    QWidget window;
    auto *const layout = new QVBoxLayout(&window);
    auto *const second = new QLineEdit(&window);
    auto *const first = new QLineEdit;
    layout->addWidget(first);
    layout->addWidget(second);
    show(&window);

    QCOMPARE(AccessibilityWalk::tabJumps(&window), QStringList());
}

void TestAccessibilityWalk::aPressedTabUpwardsIsFound()
{
    QWidget window;
    auto *const layout = new QVBoxLayout(&window);
    auto *const first = new QLineEdit;
    auto *const second = new QLineEdit;
    auto *const third = new QLineEdit;
    for (QWidget *field : {first, second, third})
        layout->addWidget(field);
    QWidget::setTabOrder(first, third);
    QWidget::setTabOrder(third, second);
    show(&window);
    first->setFocus();

    QCOMPARE(AccessibilityWalk::pressedTabJumps(&window).size(), 1);
}

void TestAccessibilityWalk::aFieldThatKeepsTabIsFound()
{
    QWidget window;
    auto *const layout = new QVBoxLayout(&window);
    auto *const first = new QLineEdit;
    layout->addWidget(first);
    layout->addWidget(new QPlainTextEdit);
    show(&window);
    first->setFocus();

    QCOMPARE(AccessibilityWalk::pressedTabJumps(&window),
             QStringList(named("Tab stays in QWidget/QPlainTextEdit")));
}

void TestAccessibilityWalk::pressedTabsInOrderAreNoFault()
{
    QWidget window;
    auto *const layout = new QVBoxLayout(&window);
    auto *const first = new QLineEdit;
    layout->addWidget(first);
    layout->addWidget(new QLabel(named("<a href='1'>one</a> <a href='2'>two</a>")));
    qobject_cast<QLabel *>(layout->itemAt(1)->widget())
        ->setTextInteractionFlags(Qt::TextBrowserInteraction);
    layout->addWidget(new QSpinBox);
    show(&window);
    first->setFocus();

    QCOMPARE(AccessibilityWalk::pressedTabJumps(&window), QStringList());
}

void TestAccessibilityWalk::aButtonThatTabPassesIsFound()
{
    QWidget window;
    auto *const button = new QToolButton(&window);
    button->setFocusPolicy(Qt::NoFocus);
    button->setText(named("Clear"));
    show(&window);

    QCOMPARE(AccessibilityWalk::mouseOnlyControls(&window),
             QStringList(named("only by mouse: QWidget/QToolButton")));
}

void TestAccessibilityWalk::aButtonWithALetterNeedsNoTab()
{
    QWidget window;
    auto *const button = new QPushButton(named("&Clear"), &window);
    button->setFocusPolicy(Qt::NoFocus);
    show(&window);

    QCOMPARE(AccessibilityWalk::mouseOnlyControls(&window), QStringList());
}

void TestAccessibilityWalk::anActionOfTheToolBarAloneIsFound()
{
    QMainWindow window;
    window.addToolBar(named("Tools"))->addAction(named("Run"));
    show(&window);

    QVERIFY(!AccessibilityWalk::mouseOnlyActions(&window).isEmpty());
}

void TestAccessibilityWalk::anActionOfTheToolBarIsReachedInAMenu()
{
    QMainWindow window;
    QAction *const run = window.addToolBar(named("Tools"))->addAction(named("Run"));
    window.menuBar()->addMenu(named("&Tools"))->addMenu(named("More"))->addAction(run);
    show(&window);

    QCOMPARE(AccessibilityWalk::mouseOnlyActions(&window), QStringList());
}

void TestAccessibilityWalk::anActionOfTheToolBarIsReachedByItsKey()
{
    QMainWindow window;
    QAction *const run = window.addToolBar(named("Tools"))->addAction(named("Run"));
    run->setShortcut(Qt::Key_F5);
    show(&window);

    QCOMPARE(AccessibilityWalk::mouseOnlyActions(&window), QStringList());
}

void TestAccessibilityWalk::aMenuWithoutALetterIsFound()
{
    QMainWindow window;
    window.menuBar()->addMenu(named("Tools"));
    show(&window);

    QCOMPARE(AccessibilityWalk::mouseOnlyActions(&window),
             QStringList(named("only by mouse: menu \"Tools\"")));
}

void TestAccessibilityWalk::aLetterOfTwoButtonsIsFound()
{
    QWidget window;
    auto *const layout = new QVBoxLayout(&window);
    layout->addWidget(new QPushButton(named("&Clear")));
    layout->addWidget(new QPushButton(named("&Close")));
    show(&window);

    QCOMPARE(AccessibilityWalk::sharedMnemonics(&window).size(), 1);
}

void TestAccessibilityWalk::aLetterOfTwoEntriesOfAMenuIsFound()
{
    QMainWindow window;
    QMenu *const menu = window.menuBar()->addMenu(named("&File"));
    menu->addAction(named("&Save"));
    menu->addAction(named("&Sort"));
    show(&window);

    QCOMPARE(AccessibilityWalk::sharedMnemonics(&window),
             QStringList(named("Alt+S is shared by \"&Save\", \"&Sort\"")));
}

QTEST_MAIN(TestAccessibilityWalk)
#include "tst_accessibilitywalk.moc"
