// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/testpanel.h"
#include "support/testview.h"

#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using Core::ViewManager;

namespace {

QLineEdit *addField(QWidget *pane)
{
    auto *const field = new QLineEdit(pane);
    (new QVBoxLayout(pane))->addWidget(field);
    field->show(); // The pane may have been shown already.
    return field;
}

void press(Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget()
                                                : ViewManager::mainWindow(),
                    Qt::Key_F6, modifiers);
}

} // namespace

/// F6 goes from pane to pane, as they lie.
class TestPaneFocus final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void goesOnToTheRight();
    void goesBackToTheLeft();
    void passesAPanelThatTakesNoFocus();
    void passesAHiddenPanel();
    void comesBackToWhereTheFocusWas();
    void withoutPanesNothingHappens();

private:
    std::unique_ptr<CoreFixture> m_core;
};

void TestPaneFocus::init()
{
    m_core = std::make_unique<CoreFixture>();
    m_core->show();
}

void TestPaneFocus::cleanup()
{
    m_core.reset();
}

void TestPaneFocus::goesOnToTheRight()
{
    QLineEdit *const right = addField(addTestPanel("right", Qt::RightDockWidgetArea));
    QLineEdit *const left = addField(addTestPanel("left", Qt::LeftDockWidgetArea));
    auto *const view = new TestView(QStringLiteral("view"));
    QLineEdit *const document = addField(view);
    ViewManager::showView(view);
    left->setFocus();
    QTRY_VERIFY(left->hasFocus());

    press();
    QTRY_VERIFY(document->hasFocus());
    press();
    QTRY_VERIFY(right->hasFocus());
    press();
    QTRY_VERIFY(left->hasFocus());
}

void TestPaneFocus::goesBackToTheLeft()
{
    QLineEdit *const left = addField(addTestPanel("left", Qt::LeftDockWidgetArea));
    auto *const view = new TestView(QStringLiteral("view"));
    QLineEdit *const document = addField(view);
    ViewManager::showView(view);
    QTRY_VERIFY(document->hasFocus());

    press(Qt::ShiftModifier);

    QTRY_VERIFY(left->hasFocus());
}

void TestPaneFocus::passesAPanelThatTakesNoFocus()
{
    addTestPanel("empty", Qt::LeftDockWidgetArea);
    QLineEdit *const right = addField(addTestPanel("right", Qt::RightDockWidgetArea));
    auto *const view = new TestView(QStringLiteral("view"));
    QLineEdit *const document = addField(view);
    ViewManager::showView(view);
    right->setFocus();
    QTRY_VERIFY(right->hasFocus());

    press();

    QTRY_VERIFY(document->hasFocus());
}

void TestPaneFocus::passesAHiddenPanel()
{
    TestPanel *const panel = addTestPanel("right", Qt::RightDockWidgetArea);
    addField(panel);
    QLineEdit *const left = addField(addTestPanel("left", Qt::LeftDockWidgetArea));
    auto *const view = new TestView(QStringLiteral("view"));
    addField(view);
    ViewManager::showView(view);
    ViewManager::hidePanel(panel);
    QTRY_VERIFY(view->isAncestorOf(QApplication::focusWidget()));

    press();

    QTRY_VERIFY(left->hasFocus());
}

void TestPaneFocus::comesBackToWhereTheFocusWas()
{
    auto *const panel = addTestPanel("left", Qt::LeftDockWidgetArea);
    addField(panel);
    auto *const second = new QLineEdit;
    panel->layout()->addWidget(second);
    auto *const view = new TestView(QStringLiteral("view"));
    QLineEdit *const document = addField(view);
    ViewManager::showView(view);
    second->setFocus();
    QTRY_VERIFY(second->hasFocus());

    press();
    QTRY_VERIFY(document->hasFocus());
    press();

    QTRY_VERIFY(second->hasFocus());
}

void TestPaneFocus::withoutPanesNothingHappens()
{
    const QWidget *const before = QApplication::focusWidget();

    press();

    QCOMPARE(QApplication::focusWidget(), before);
}

QTEST_MAIN(TestPaneFocus)
#include "tst_panefocus.moc"
