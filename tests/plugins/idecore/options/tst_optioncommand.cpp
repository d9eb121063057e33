// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Tools > Options as a person uses it, with the keyboard alone.

#include "optionfixture.h"
#include "support/modaldialog.h"

#include <QApplication>
#include <QLineEdit>
#include <QTabBar>
#include <QVBoxLayout>

using namespace Core;

namespace {

void press(std::initializer_list<Qt::Key> keys)
{
    for (const Qt::Key key : keys) {
        QWidget *popup = QApplication::activePopupWidget();
        QTest::keyClick(popup ? popup : QApplication::focusWidget(), key);
    }
}

QString focusName()
{
    const QWidget *focus = QApplication::focusWidget();
    if (const auto *button = qobject_cast<const QPushButton *>(focus))
        return button->text().remove(QLatin1Char('&'));
    if (qobject_cast<const QTabBar *>(focus))
        return QStringLiteral("tabs");
    return focus ? focus->objectName() : QString();
}

} // namespace

class TestOptionCommand final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<OptionFixture>();
        for (const char *id : {"a1", "a2"}) {
            m_fixture->add("A", id)->makeWidget = [id] {
                auto *widget = new QWidget;
                auto *edit = new QLineEdit;
                edit->setObjectName(QLatin1String("edit ") + QLatin1String(id));
                (new QVBoxLayout(widget))->addWidget(edit);
                return widget;
            };
        }
        m_fixture->add("B", "b1");
        delete m_fixture->dialog("A", "a1");
        m_fixture->log.clear();
        ViewManager::mainWindow()->prepareToShow();
        QVERIFY(QTest::qWaitForWindowActive(ViewManager::mainWindow()));
    }

    void cleanup() { m_fixture.reset(); }

    void theMenuOpensTheDialogOverTheMainWindow()
    {
        inDialog([] { press({Qt::Key_Escape}); });
        QCOMPARE(m_title, QStringLiteral("Options"));
        QCOMPARE(m_parent, ViewManager::mainWindow());
    }

    void theMenuOpensTheDialogWhereItWasLeft()
    {
        inDialog([] { press({Qt::Key_Tab, Qt::Key_Right, Qt::Key_Escape}); });
        QString place;
        inDialog([&place] {
            place = placeOf(QApplication::activeModalWidget());
            press({Qt::Key_Escape});
        });
        QCOMPARE(place, QStringLiteral("category A/tab a2"));
    }

    void theListHasTheFocusAndArrowsChooseACategory()
    {
        QString first;
        QString place;
        inDialog([&] {
            first = focusName();
            press({Qt::Key_Down});
            place = placeOf(QApplication::activeModalWidget());
            press({Qt::Key_Return});
        });
        QCOMPARE(first, QStringLiteral("categoryList"));
        QCOMPARE(place, QStringLiteral("category B/tab b1"));
        QVERIFY(m_fixture->log.contains(QStringLiteral("apply b1")));
    }

    void tabFollowsTheEye()
    {
        QStringList reached;
        inDialog([&reached] {
            for (int i = 0; i < 7; ++i) {
                reached.append(focusName());
                press({Qt::Key_Tab});
            }
            press({Qt::Key_Escape});
        });
        QCOMPARE(reached.mid(0, 3), texts({"categoryList", "tabs", "edit a1"}));
        QStringList buttons = reached.mid(3, 3);
        buttons.sort();
        QCOMPARE(buttons, texts({"Apply", "Cancel", "OK"}));
        QCOMPARE(reached.at(6), QStringLiteral("categoryList"));
    }

    void theButtonsAreReachedFromLeftToRight()
    {
        QList<int> places;
        inDialog([&places] {
            press({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab});
            for (int i = 0; i < 3; ++i) {
                places.append(QApplication::focusWidget()->x());
                press({Qt::Key_Tab});
            }
            press({Qt::Key_Escape});
        });
        QVERIFY2(
            places.at(0) < places.at(1) && places.at(1) < places.at(2),
            qPrintable(
                QStringLiteral("%1 %2 %3").arg(places.at(0)).arg(places.at(1)).arg(places.at(2))));
    }

    void theKeysOfTabsChangeThePage()
    {
        QString place;
        inDialog([&place] {
            press({Qt::Key_Tab, Qt::Key_Right});
            place = placeOf(QApplication::activeModalWidget());
            press({Qt::Key_Escape});
        });
        QCOMPARE(place, QStringLiteral("category A/tab a2"));
    }

    void returnAppliesAndCloses()
    {
        inDialog([] { press({Qt::Key_Return}); });
        QCOMPARE(m_fixture->logged("apply"), texts({"apply a1"}));
    }

    void returnInAFieldAppliesAndCloses()
    {
        inDialog([] { press({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return}); });
        QCOMPARE(m_fixture->logged("apply"), texts({"apply a1"}));
    }

    void escapeAppliesNothing()
    {
        inDialog([] { press({Qt::Key_Escape}); });
        QCOMPARE(m_fixture->logged("apply"), QStringList());
        QCOMPARE(m_fixture->logged("finish"), texts({"finish a1", "finish a2", "finish b1"}));
    }

private:
    /// Opens the dialog from its menu and runs @p acts, which has to close it, once
    /// it has the focus.
    void inDialog(const std::function<void()> &acts)
    {
        ModalDialog dialog(ModalDialog::onceFocused(acts));
        // Behind a dialog it takes a while.
        QTRY_COMPARE(QApplication::activeWindow(), ViewManager::mainWindow());
        QTest::keyClick(ViewManager::mainWindow(), Qt::Key_T, Qt::AltModifier);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_O);
        QTRY_VERIFY(dialog.met());
        m_title = dialog.title();
        m_parent = dialog.parentOfDialog();
    }

    std::unique_ptr<OptionFixture> m_fixture;
    QString m_title;
    QWidget *m_parent = nullptr;
};

QTEST_MAIN(TestOptionCommand)
#include "tst_optioncommand.moc"
