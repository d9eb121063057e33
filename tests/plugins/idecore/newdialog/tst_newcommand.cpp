// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// File > New as a person uses it, with the keyboard alone and with the mouse.

#include "support/corefixture.h"
#include "support/modaldialog.h"
#include "support/testwizard.h"

#include <idecore/actions/actionmanager.h>
#include <idecore/actions/iaction.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/newdialog/thenewdialog.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <QTreeView>

#include <memory>

using namespace Core;

namespace {

/// Presses keys in whatever has the focus, one after the other.
void press(std::initializer_list<Qt::Key> keys)
{
    for (const Qt::Key key : keys)
        QTest::keyClick(QApplication::focusWidget(), key);
}

QString focusName()
{
    const QWidget *focus = QApplication::focusWidget();
    if (const auto *button = qobject_cast<const QPushButton *>(focus))
        return button->text().remove(QLatin1Char('&'));
    return focus ? focus->objectName() : QString();
}

} // namespace

class TestNewCommand final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_core = std::make_unique<CoreFixture>();
        for (FileWizard *wizard : {&m_file1, &m_file2})
            m_pool.push_back(std::make_unique<InPool>(wizard));
        for (ProjectWizard *wizard : {&m_project1, &m_project2})
            m_pool.push_back(std::make_unique<InPool>(wizard));
        m_file1.runs.clear();
        m_file2.runs.clear();
        m_project1.runs.clear();
        m_project2.runs.clear();
        ViewManager::mainWindow()->prepareToShow();
        QVERIFY(QTest::qWaitForWindowActive(ViewManager::mainWindow()));
    }

    void cleanup()
    {
        m_pool.clear();
        m_core.reset();
    }

    void theKeyOpensTheDialog()
    {
        ModalDialog dialog(ModalDialog::cancel());
        QTest::keyClick(ViewManager::mainWindow(), Qt::Key_N, Qt::ControlModifier);
        QTRY_VERIFY(dialog.met());
        QCOMPARE(dialog.title(), QStringLiteral("New"));
    }

    void theToolButtonOpensTheDialog()
    {
        const QToolBar *bar = ActionManager::toolBar(QStringLiteral("Core.Toolbar.File"));
        QWidget *button =
            bar->widgetForAction(ActionManager::action(QStringLiteral("Core.Action.New")));
        ModalDialog dialog(ModalDialog::cancel());
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(dialog.title(), QStringLiteral("New"));
    }

    void theFirstWizardIsReadyToBeRun()
    {
        inDialog([] { press({Qt::Key_Return}); });
        QCOMPARE(m_project1.runs.size(), 1);
    }

    void arrowsReachEveryWizardAndPassTheCategories_data()
    {
        QTest::addColumn<int>("steps");
        QTest::addColumn<QString>("description");
        QTest::newRow("first") << 0 << QStringLiteral("about project 1");
        QTest::newRow("second") << 1 << QStringLiteral("about project 2");
        QTest::newRow("over the category") << 2 << QStringLiteral("about file 1");
        QTest::newRow("last") << 3 << QStringLiteral("about file 2");
        QTest::newRow("not beyond") << 4 << QStringLiteral("about file 2");
    }

    void arrowsReachEveryWizardAndPassTheCategories()
    {
        QFETCH(const int, steps);
        QFETCH(const QString, description);
        QString there;
        QString back;
        inDialog([&] {
            const auto *edit = QApplication::activeModalWidget()->findChild<QPlainTextEdit *>();
            for (int i = 0; i < steps; ++i)
                press({Qt::Key_Down});
            there = edit->toPlainText();
            for (int i = 0; i < 4; ++i)
                press({Qt::Key_Up});
            back = edit->toPlainText();
            press({Qt::Key_Escape});
        });
        QCOMPARE(there, description);
        QCOMPARE(back, QStringLiteral("about project 1"));
    }

    void leftAndRightKeepTheWizardsInSight()
    {
        inDialog([] { press({Qt::Key_Left, Qt::Key_Left, Qt::Key_Down, Qt::Key_Return}); });
        QCOMPARE(m_project2.runs.size(), 1);
    }

    void typingFindsAWizard()
    {
        inDialog([] {
            for (const QChar letter : QStringLiteral("file 2"))
                QTest::keyClick(QApplication::focusWidget(), letter.toLatin1());
            press({Qt::Key_Return});
        });
        QCOMPARE(m_file2.runs.size(), 1);
    }

    void tabGoesRoundAllParts()
    {
        QStringList reached;
        inDialog([&reached] {
            for (int i = 0; i < 5; ++i) {
                reached.append(focusName());
                press({Qt::Key_Tab});
            }
            press({Qt::Key_Escape});
        });
        reached.sort();
        reached.removeDuplicates();
        QCOMPARE(reached, texts({"Cancel", "OK", "descriptionEdit", "templateTree"}));
    }

    void theWizardsHaveTheFocusAtFirst()
    {
        QString first;
        inDialog([&first] {
            first = focusName();
            press({Qt::Key_Escape});
        });
        QCOMPARE(first, QStringLiteral("templateTree"));
    }

    void aWizardCanBeReachedAgainBehindACategory()
    {
        inDialog([] {
            auto *tree = QApplication::activeModalWidget()->findChild<QTreeView *>();
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                              tree->visualRect(tree->model()->index(1, 0)).center());
            QVERIFY(!tree->selectionModel()->hasSelection());
            press({Qt::Key_Down, Qt::Key_Return});
        });
        QCOMPARE(m_project2.runs.size(), 1);
    }

    void returnDoesNothingWhileNothingIsSelected()
    {
        bool stayed = false;
        inDialog([&stayed] {
            QWidget *dialog = QApplication::activeModalWidget();
            dialog->findChild<QTreeView *>()->clearSelection();
            press({Qt::Key_Return});
            stayed = dialog->isVisible();
            press({Qt::Key_Escape});
        });
        QVERIFY(stayed);
        QVERIFY(m_project1.runs.isEmpty());
    }

private:
    /// Opens the dialog by its key and runs @p acts, which has to close it, once it
    /// has the focus.
    static void inDialog(const std::function<void()> &acts)
    {
        ModalDialog dialog(ModalDialog::onceFocused(acts));
        QTest::keyClick(ViewManager::mainWindow(), Qt::Key_N, Qt::ControlModifier);
        QTRY_VERIFY(dialog.met());
    }

    FileWizard m_file1{QStringLiteral("file 1")};
    FileWizard m_file2{QStringLiteral("file 2")};
    ProjectWizard m_project1{QStringLiteral("project 1")};
    ProjectWizard m_project2{QStringLiteral("project 2")};
    std::vector<std::unique_ptr<InPool>> m_pool;
    std::unique_ptr<CoreFixture> m_core;
};

QTEST_MAIN(TestNewCommand)
#include "tst_newcommand.moc"
