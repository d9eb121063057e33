// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Pages that go while the dialog is open.

#include "optionfixture.h"

using namespace Core;

class TestLostPages final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<OptionFixture>();
        for (const char *id : {"a1", "a2", "a3"})
            m_pages.append(m_fixture->add("A", id));
        m_pages.append(m_fixture->add("B", "b1"));
        m_pages.append(m_fixture->add("B", "b2"));
        m_dialog = m_fixture->dialog("A", "a1");
    }

    void cleanup()
    {
        m_pages.clear();
        m_fixture.reset();
    }

    void itsTabGoesWithAPage()
    {
        m_fixture->remove(m_pages.at(1));
        QCOMPARE(tabTitlesOf(m_dialog), texts({"tab a1", "tab a3"}));
    }

    void itsTabGoesAlsoWhereItsWidgetStays()
    {
        const QPointer<QWidget> widget = m_pages.at(1)->shown;
        m_pages.at(1)->shown.clear();
        m_fixture->remove(m_pages.at(1));
        QCOMPARE(tabTitlesOf(m_dialog), texts({"tab a1", "tab a3"}));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!widget);
    }

    void theTabsBehindItAreTheirOwnPagesStill()
    {
        m_fixture->remove(m_pages.at(0));
        tabsOf(m_dialog)->setCurrentIndex(1);
        m_dialog->apply();
        QStringList applied = m_fixture->logged("apply");
        applied.sort();
        QCOMPARE(applied, texts({"apply a2", "apply a3"}));
    }

    void aPageThatHasGoneIsNeitherAppliedNorTold()
    {
        m_fixture->remove(m_pages.at(0));
        m_dialog->accept();
        QVERIFY(!m_fixture->log.contains(QStringLiteral("apply a1")));
        QCOMPARE(m_fixture->logged("finish"),
                 texts({"finish a2", "finish a3", "finish b1", "finish b2"}));
    }

    void aPageOfACategoryThatWasNotShownMayGo()
    {
        m_fixture->remove(m_pages.at(3));
        choose(m_dialog, 1);
        QCOMPARE(tabTitlesOf(m_dialog), texts({"tab b2"}));
    }

    void aPageThatGoesOutOfSightMarksNoOtherAsShown()
    {
        choose(m_dialog, 1);
        tabsOf(m_dialog)->setCurrentIndex(1);
        choose(m_dialog, 0);
        m_fixture->remove(m_pages.at(4));
        m_fixture->log.clear();
        m_dialog->apply();
        QStringList applied = m_fixture->logged("apply");
        applied.sort();
        QCOMPARE(applied, texts({"apply a1", "apply b1"}));
    }

    void allPagesMayGo()
    {
        while (!m_pages.isEmpty())
            m_fixture->remove(m_pages.takeFirst());
        choose(m_dialog, 1);
        choose(m_dialog, 0);
        m_dialog->setCurrentPage(QStringLiteral("A"), QStringLiteral("a1"));
        m_dialog->apply();
        m_dialog->accept();
        QCOMPARE(tabsOf(m_dialog)->count(), 0);
        QCOMPARE(m_fixture->logged("finish"), QStringList());
    }

    void aPageMayDestroyAnotherWhenItIsApplied()
    {
        tabsOf(m_dialog)->setCurrentIndex(1);
        // Whichever is applied first destroys the other.
        for (int i : {0, 1}) {
            m_pages.at(i)->onApply = [this, i] {
                m_pages.at(1 - i)->onApply = nullptr;
                m_fixture->remove(m_pages.at(1 - i));
            };
        }
        m_dialog->accept();
        QCOMPARE(m_fixture->logged("apply").size(), 1);
        QCOMPARE(m_fixture->logged("finish").size(), 4);
    }

    void aPageMayDestroyAnotherWhenItIsFinished()
    {
        m_pages.at(0)->onFinish = [this] { m_fixture->remove(m_pages.at(1)); };
        m_dialog->reject();
        QCOMPARE(m_fixture->logged("finish"),
                 texts({"finish a1", "finish a3", "finish b1", "finish b2"}));
    }

    void aWidgetMayGoBeforeItsPage()
    {
        delete m_pages.at(0)->shown;
        QCOMPARE(tabTitlesOf(m_dialog), texts({"tab a2", "tab a3"}));
        tabsOf(m_dialog)->setCurrentIndex(1);
        m_dialog->setCurrentPage(QStringLiteral("A"), QStringLiteral("a1"));
        QCOMPARE(placeOf(m_dialog), QStringLiteral("category A/tab a3"));
        m_dialog->accept();
        QVERIFY(m_fixture->log.contains(QStringLiteral("apply a3")));
    }

    void aPageMayGoWithAWidgetOfTheDialog()
    {
        QStringList log;
        const QPointer<TestPage> page =
            new TestPage(QStringLiteral("C"), QStringLiteral("c1"), &log);
        delete m_dialog;
        auto *const pool = ExtSys::PluginManager::instance();
        pool->addObject(page);
        m_dialog = m_fixture->dialog("A", "a1");
        pool->removeObject(page);
        page->setParent(listOf(m_dialog));
        delete m_dialog;
        QVERIFY(!page);
        QCOMPARE(log.filter(QStringLiteral("finish")), texts({"finish c1"}));
    }

    void theOptionsSurviveTheEndOfTheCoreOverThem()
    {
        m_dialog->show();
        const QPointer<OptionDialog> dialog = m_dialog;
        cleanup();
        QVERIFY(!dialog);
    }

private:
    std::unique_ptr<OptionFixture> m_fixture;
    QList<TestPage *> m_pages;
    OptionDialog *m_dialog = nullptr;
};

QTEST_MAIN(TestLostPages)
#include "tst_lostpages.moc"
