// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Which pages are built, shown, applied and remembered.

#include "optionfixture.h"

#include <QLabel>

using namespace Core;

class TestVisitedPages final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<OptionFixture>();
        m_fixture->add("A", "a1");
        m_fixture->add("A", "a2");
        m_fixture->add("B", "b1");
        m_fixture->add("B", "b2");
        // Whatever was shown last in the test before.
        m_dialog = m_fixture->dialog("A", "a1");
    }

    void cleanup() { m_fixture.reset(); }

    void widgetsAreMadeWhenTheirCategoryIsFirstShown()
    {
        QCOMPARE(m_fixture->logged("widget"), texts({"widget a1", "widget a2"}));
        choose(m_dialog, 1);
        QCOMPARE(m_fixture->logged("widget"),
                 texts({"widget a1", "widget a2", "widget b1", "widget b2"}));
    }

    void widgetsAreAskedForOnce()
    {
        choose(m_dialog, 1);
        choose(m_dialog, 0);
        choose(m_dialog, 1);
        QCOMPARE(m_fixture->logged("widget").size(), 4);
    }

    void theTabsShowThePages()
    {
        choose(m_dialog, 1);
        QCOMPARE(tabTitlesOf(m_dialog), texts({"tab b1", "tab b2"}));
    }

    void theFirstTabOfACategoryIsApplied()
    {
        m_dialog->apply();
        QCOMPARE(m_fixture->logged("apply"), texts({"apply a1"}));
    }

    void aTabThatWasShownIsApplied()
    {
        tabsOf(m_dialog)->setCurrentIndex(1);
        m_dialog->apply();
        QStringList applied = m_fixture->logged("apply");
        applied.sort();
        QCOMPARE(applied, texts({"apply a1", "apply a2"}));
    }

    void everyPageThatWasShownIsApplied()
    {
        choose(m_dialog, 1);
        tabsOf(m_dialog)->setCurrentIndex(1);
        m_dialog->accept();
        QStringList applied = m_fixture->logged("apply");
        applied.sort();
        QCOMPARE(applied, texts({"apply a1", "apply b1", "apply b2"}));
    }

    void okBehindApplyAppliesTwice()
    {
        m_dialog->apply();
        m_dialog->accept();
        QCOMPARE(m_fixture->logged("apply"), texts({"apply a1", "apply a1"}));
    }

    void cancelBehindApplyAppliesNothingMore()
    {
        m_dialog->apply();
        m_dialog->reject();
        QCOMPARE(m_fixture->logged("apply"), texts({"apply a1"}));
    }

    void okTellsEveryPageInOrderWhenAllAreApplied()
    {
        m_dialog->accept();
        m_fixture->log.removeAll(QStringLiteral("widget a1"));
        m_fixture->log.removeAll(QStringLiteral("widget a2"));
        QCOMPARE(m_fixture->log,
                 texts({"apply a1", "finish a1", "finish a2", "finish b1", "finish b2"}));
    }

    void cancelTellsEveryPageAndAppliesNone()
    {
        m_dialog->reject();
        QCOMPARE(m_fixture->logged("finish"),
                 texts({"finish a1", "finish a2", "finish b1", "finish b2"}));
        QCOMPARE(m_fixture->logged("apply"), QStringList());
    }

    void aSecondEndTellsNobody()
    {
        m_dialog->accept();
        m_fixture->log.clear();
        m_dialog->accept();
        m_dialog->reject();
        QCOMPARE(m_fixture->log, QStringList());
    }

    void whatFinishTakesAwayIsNotVisited()
    {
        // The tabs go one by one, and each becomes the current one before.
        choose(m_dialog, 1);
        m_dialog->accept();
        delete m_dialog;
        m_dialog = m_fixture->dialog();
        QCOMPARE(placeOf(m_dialog), QStringLiteral("category B/tab b1"));
    }

    void theButtonsDoAsTheySay_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("OK") << int(QDialogButtonBox::Ok) << texts({"apply a1", "finish a1"});
        QTest::newRow("Cancel") << int(QDialogButtonBox::Cancel) << texts({"finish a1"});
        QTest::newRow("Apply") << int(QDialogButtonBox::Apply) << texts({"apply a1"});
    }

    void theButtonsDoAsTheySay()
    {
        QFETCH(const int, button);
        QFETCH(const QStringList, calls);
        m_fixture->log.clear();
        buttonOf(m_dialog, QDialogButtonBox::StandardButton(button))->click();
        QCOMPARE(m_fixture->log.filter(QStringLiteral("a1")), calls);
    }

    void aPageIsFoundByItsIds()
    {
        m_dialog->setCurrentPage(QStringLiteral("B"), QStringLiteral("b2"));
        QCOMPARE(placeOf(m_dialog), QStringLiteral("category B/tab b2"));
    }

    void thePageInFrontOfTheOneAskedForIsApplied()
    {
        // It is shown first, when its category is.
        m_dialog->setCurrentPage(QStringLiteral("B"), QStringLiteral("b2"));
        m_dialog->apply();
        QStringList applied = m_fixture->logged("apply");
        applied.sort();
        QCOMPARE(applied, texts({"apply a1", "apply b1", "apply b2"}));
    }

    void anUnknownPageLeavesTheTabs_data()
    {
        QTest::addColumn<QString>("page");
        QTest::newRow("nowhere") << QStringLiteral("b3");
        QTest::newRow("in another category") << QStringLiteral("a2");
        QTest::newRow("in another case") << QStringLiteral("B2");
    }

    void anUnknownPageLeavesTheTabs()
    {
        QFETCH(const QString, page);
        m_dialog->setCurrentPage(QStringLiteral("B"), page);
        QCOMPARE(placeOf(m_dialog), QStringLiteral("category B/tab b1"));
        tabsOf(m_dialog)->setCurrentIndex(1);
        m_dialog->setCurrentPage(QStringLiteral("B"), QStringLiteral("b3"));
        QCOMPARE(placeOf(m_dialog), QStringLiteral("category B/tab b2"));
    }

    void anUnknownCategoryIsTheFirst()
    {
        m_dialog->setCurrentPage(QStringLiteral("B"), QStringLiteral("b2"));
        m_dialog->setCurrentPage(QStringLiteral("b"), QStringLiteral("b2"));
        QCOMPARE(placeOf(m_dialog), QStringLiteral("category A/tab a1"));
    }

    void theLivingDialogIsGivenAtThatPage()
    {
        QCOMPARE(m_fixture->dialog("B", "b2"), m_dialog);
        QCOMPARE(placeOf(m_dialog), QStringLiteral("category B/tab b2"));
    }

    void theLivingDialogKeepsItsParent()
    {
        QWidget other;
        QCOMPARE(OptionDialog::getOptionDialog(&other, QString(), QString()), m_dialog);
        QCOMPARE(m_dialog->parentWidget(), ViewManager::mainWindow());
    }

    void aNewDialogOpensAtThePageLastShown()
    {
        m_dialog->setCurrentPage(QStringLiteral("B"), QStringLiteral("b2"));
        QCOMPARE(placeOfNewDialog(), QStringLiteral("category B/tab b2"));
    }

    void theFirstTabOfACategoryIsRemembered()
    {
        tabsOf(m_dialog)->setCurrentIndex(1);
        choose(m_dialog, 1);
        QCOMPARE(placeOfNewDialog(), QStringLiteral("category B/tab b1"));
    }

    void comingBackToACategoryRemembersTheTabThatIsShownThere()
    {
        tabsOf(m_dialog)->setCurrentIndex(1);
        choose(m_dialog, 1);
        choose(m_dialog, 0);
        QCOMPARE(placeOf(m_dialog), QStringLiteral("category A/tab a2"));
        QCOMPARE(placeOfNewDialog(), QStringLiteral("category A/tab a2"));
    }

    void anEmptyPageIsTheOneLastShown()
    {
        m_dialog->setCurrentPage(QStringLiteral("B"), QStringLiteral("b2"));
        m_dialog->setCurrentPage(QStringLiteral("B"), QString());
        QCOMPARE(placeOf(m_dialog), QStringLiteral("category B/tab b2"));
    }

    void anEmptyCategoryIsTheOneLastShown()
    {
        m_dialog->setCurrentPage(QStringLiteral("B"), QStringLiteral("b1"));
        m_dialog->setCurrentPage(QString(), QStringLiteral("b2"));
        QCOMPARE(placeOf(m_dialog), QStringLiteral("category B/tab b2"));
    }

    void aPageThatIsNotThereAnyMoreOpensItsCategory()
    {
        TestPage *third = m_fixture->add("B", "b3");
        delete m_dialog;
        m_dialog = m_fixture->dialog("B", "b3");
        m_dialog->reject();
        m_fixture->remove(third);
        QCOMPARE(placeOfNewDialog(), QStringLiteral("category B/tab b1"));
    }

    void aCategoryThatIsNotThereAnyMoreGivesWayToTheFirst()
    {
        TestPage *third = m_fixture->add("C", "c1");
        delete m_dialog;
        m_dialog = m_fixture->dialog("C", "c1");
        m_dialog->reject();
        m_fixture->remove(third);
        QCOMPARE(placeOfNewDialog(), QStringLiteral("category A/tab a1"));
    }

    void anInvalidIndexChangesNothing()
    {
        m_dialog->currentChanged(QModelIndex());
        m_dialog->currentTabChanged(-1);
        m_dialog->currentTabChanged(99);
        QCOMPARE(placeOf(m_dialog), QStringLiteral("category A/tab a1"));
        m_dialog->apply();
        QCOMPARE(m_fixture->logged("apply"), texts({"apply a1"}));
    }

    void aPageWithoutAWidgetHasATabThatSaysSo()
    {
        m_fixture->add("C", "c1")->withoutWidget = true;
        m_fixture->add("C", "c2");
        delete m_dialog;
        QTest::ignoreMessage(QtWarningMsg, "option page without a widget: c1");
        m_dialog = m_fixture->dialog("C", "c1");
        QCOMPARE(tabTitlesOf(m_dialog), texts({"tab c1", "tab c2"}));
        const auto *label = qobject_cast<QLabel *>(tabsOf(m_dialog)->widget(0));
        QVERIFY(label);
        QCOMPARE(label->text(), QStringLiteral("This page has nothing to show."));
    }

    void theTabBehindAPageWithoutAWidgetIsItsOwn()
    {
        m_fixture->add("C", "c1")->withoutWidget = true;
        m_fixture->add("C", "c2");
        delete m_dialog;
        QTest::ignoreMessage(QtWarningMsg, "option page without a widget: c1");
        m_dialog = m_fixture->dialog("C", "c2");
        QCOMPARE(placeOf(m_dialog), QStringLiteral("category C/tab c2"));
        m_dialog->accept();
        QVERIFY(m_fixture->logged("apply").contains(QStringLiteral("apply c2")));
        QVERIFY(m_fixture->logged("finish").contains(QStringLiteral("finish c1")));
    }

    void aPageMakesItsWidgetAnewForANewDialog()
    {
        m_dialog->reject();
        delete m_dialog;
        m_dialog = m_fixture->dialog("A", "a1");
        QVERIFY(tabsOf(m_dialog)->widget(0));
        QCOMPARE(m_fixture->logged("widget a1").size(), 2);
    }

private:
    QString placeOfNewDialog()
    {
        m_dialog->reject();
        delete m_dialog;
        m_dialog = m_fixture->dialog();
        return placeOf(m_dialog);
    }

    std::unique_ptr<OptionFixture> m_fixture;
    OptionDialog *m_dialog = nullptr;
};

QTEST_MAIN(TestVisitedPages)
#include "tst_visitedpages.moc"
