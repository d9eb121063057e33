// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// The dialog while it runs: its result, several who wait for it, and what a page
// does meanwhile.

#include "optionfixture.h"
#include "support/modaldialog.h"

#include <QEventLoop>
#include <QMessageBox>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>

#include <algorithm>
#include <functional>

using namespace Core;

namespace {

ModalDialog::Handler click(std::initializer_list<QDialogButtonBox::StandardButton> buttons)
{
    return [list = QList<QDialogButtonBox::StandardButton>(buttons)](QWidget *dialog) {
        for (const QDialogButtonBox::StandardButton button : list)
            QTest::mouseClick(buttonOf(dialog, button), Qt::LeftButton);
    };
}

/// How many wait for the dialog to end, beside the one who runs it.
int waitersOf(const QWidget *dialog)
{
    const QList<QEventLoop *> loops = dialog->findChildren<QEventLoop *>();
    return int(std::count_if(loops.begin(), loops.end(), std::mem_fn(&QEventLoop::isRunning)));
}

/// Acts when a widget is about to be hidden.
class AtHide final : public QObject
{
public:
    AtHide(QWidget *widget, std::function<void()> act)
        : m_act(std::move(act))
    {
        widget->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Hide)
            m_act();
        return QObject::eventFilter(watched, event);
    }

private:
    const std::function<void()> m_act;
};

} // namespace

class TestOptionRun final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<OptionFixture>();
        m_page = m_fixture->add("A", "a1");
    }

    void cleanup() { m_fixture.reset(); }

    void theResultTellsWhetherAnythingWasApplied_data()
    {
        using Buttons = QList<int>;
        QTest::addColumn<Buttons>("buttons");
        QTest::addColumn<bool>("result");
        const int ok = QDialogButtonBox::Ok;
        const int cancel = QDialogButtonBox::Cancel;
        const int apply = QDialogButtonBox::Apply;
        QTest::newRow("OK") << Buttons{ok} << true;
        QTest::newRow("Cancel") << Buttons{cancel} << false;
        QTest::newRow("Apply, OK") << Buttons{apply, ok} << true;
        QTest::newRow("Apply, Cancel") << Buttons{apply, cancel} << true;
    }

    void theResultTellsWhetherAnythingWasApplied()
    {
        QFETCH(const QList<int>, buttons);
        QFETCH(const bool, result);
        const ModalDialog dialog([&buttons](QWidget *widget) {
            for (const int button : buttons) {
                QTest::mouseClick(buttonOf(widget, QDialogButtonBox::StandardButton(button)),
                                  Qt::LeftButton);
            }
        });
        QCOMPARE(m_fixture->dialog()->execDialog(), result);
    }

    void escapeIsCancel()
    {
        const ModalDialog dialog(ModalDialog::cancel());
        QVERIFY(!m_fixture->dialog()->execDialog());
        QCOMPARE(m_fixture->logged("finish"), texts({"finish a1"}));
    }

    void theDialogEndsWhenItsPagesAreTold_data()
    {
        QTest::addColumn<bool>("accepted");
        QTest::newRow("OK") << true;
        QTest::newRow("Cancel") << false;
    }

    void theDialogEndsWhenItsPagesAreTold()
    {
        QFETCH(const bool, accepted);
        OptionDialog *dialog = m_fixture->dialog();
        QStringList byThen;
        connect(dialog, accepted ? &QDialog::accepted : &QDialog::rejected, this,
                [&] { byThen = m_fixture->logged("finish"); });
        if (accepted)
            dialog->accept();
        else
            dialog->reject();
        QCOMPARE(byThen, texts({"finish a1"}));
        QCOMPARE(dialog->result(), int(accepted ? QDialog::Accepted : QDialog::Rejected));
    }

    void theSecondTimeOnlyTheDialogEndsAgain_data() { theDialogEndsWhenItsPagesAreTold_data(); }

    void theSecondTimeOnlyTheDialogEndsAgain()
    {
        QFETCH(const bool, accepted);
        OptionDialog *dialog = m_fixture->dialog();
        const auto end = [accepted, dialog] { accepted ? dialog->accept() : dialog->reject(); };
        const QSignalSpy ends(dialog, accepted ? &QDialog::accepted : &QDialog::rejected);
        end();
        m_fixture->log.clear();
        end();
        QCOMPARE(ends.count(), 2);
        QCOMPARE(m_fixture->log, QStringList());
    }

    void aRunBehindAnEndHasAnEndOfItsOwn()
    {
        m_fixture->dialog()->reject();
        m_fixture->log.clear();
        const ModalDialog dialog(click({QDialogButtonBox::Ok}));
        QVERIFY(m_fixture->dialog()->execDialog());
        QCOMPARE(m_fixture->logged("apply"), texts({"apply a1"}));
        QCOMPARE(m_fixture->logged("finish"), texts({"finish a1"}));
    }

    void theDialogIsModal()
    {
        bool modal = false;
        const ModalDialog dialog([&modal](QWidget *widget) {
            modal = widget->isModal();
            qobject_cast<QDialog *>(widget)->reject();
        });
        (void)m_fixture->dialog()->execDialog();
        QVERIFY(modal);
    }

    void theDialogLivesForOneRun()
    {
        const QPointer<OptionDialog> first = m_fixture->dialog();
        {
            const ModalDialog dialog(ModalDialog::cancel());
            (void)first->execDialog();
        }
        // Whoever comes before the event loop gets a new one.
        const QPointer<OptionDialog> second = m_fixture->dialog();
        QVERIFY(first);
        QVERIFY(second != first);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTRY_VERIFY(!first);
        QVERIFY(second);
    }

    void aNewDialogIsMadeWhenTheLastWasDeleted()
    {
        delete m_fixture->dialog();
        QVERIFY(m_fixture->dialog());
    }

    void whoAsksWhileItRunsWaitsForItsEnd_data() { theResultTellsWhetherAnythingWasApplied_data(); }

    void whoAsksWhileItRunsWaitsForItsEnd()
    {
        QFETCH(const QList<int>, buttons);
        QFETCH(const bool, result);
        QStringList order;
        const auto wait = [&](const QString &who) {
            order.append(who + QLatin1String(" waits"));
            const bool got = m_fixture->dialog()->execDialog();
            order.append(who
                         + (got == result ? QLatin1String(" has the result")
                                          : QLatin1String(" has another result")));
        };
        const ModalDialog dialog([&](QWidget *widget) {
            QTimer::singleShot(0, widget, [&, widget] {
                QTimer::singleShot(0, widget, [&, widget] {
                    QTimer::singleShot(0, widget, [&buttons, widget] {
                        for (const int button : buttons)
                            buttonOf(widget, QDialogButtonBox::StandardButton(button))->click();
                    });
                    wait(QStringLiteral("third"));
                });
                wait(QStringLiteral("second"));
            });
        });
        wait(QStringLiteral("first"));
        QCOMPARE(order, texts({"first waits", "second waits", "third waits", "third has the result",
                               "second has the result", "first has the result"}));
        QCOMPARE(m_fixture->logged("finish"), texts({"finish a1"}));
    }

    void thoseWhoWaitAreLetGoBeforeTheDialogEnds()
    {
        int waiting = 0;
        int leftWaiting = -1;
        std::unique_ptr<AtHide> atHide;
        const ModalDialog dialog([&](QWidget *widget) {
            atHide = std::make_unique<AtHide>(widget, [&] { leftWaiting = waitersOf(widget); });
            QTimer::singleShot(0, widget, [&waiting, widget] {
                waiting = waitersOf(widget);
                qobject_cast<QDialog *>(widget)->reject();
            });
            (void)m_fixture->dialog()->execDialog();
        });
        (void)m_fixture->dialog()->execDialog();
        QCOMPARE(waiting, 1);
        QCOMPARE(leftWaiting, 0);
    }

    void thoseWhoWaitForADialogThatIsHiddenEndWithIt()
    {
        QStringList order;
        const ModalDialog dialog([&](QWidget *widget) {
            QTimer::singleShot(0, widget, &QWidget::hide);
            (void)m_fixture->dialog()->execDialog();
            order.append(QStringLiteral("second"));
        });
        (void)m_fixture->dialog()->execDialog();
        order.append(QStringLiteral("first"));
        QCOMPARE(order, texts({"second", "first"}));
        QCOMPARE(m_fixture->logged("finish"), texts({"finish a1"}));
    }

    void thoseWhoWaitEndWithTheDialog()
    {
        QStringList order;
        const ModalDialog dialog([&](QWidget *widget) {
            QTimer::singleShot(0, widget, [widget] { delete widget; });
            order.append(m_fixture->dialog()->execDialog() ? QStringLiteral("second: applied")
                                                           : QStringLiteral("second: not"));
        });
        order.append(m_fixture->dialog()->execDialog() ? QStringLiteral("first: applied")
                                                       : QStringLiteral("first: not"));
        QCOMPARE(order, texts({"second: not", "first: not"}));
        QCOMPARE(m_fixture->logged("finish"), texts({"finish a1"}));
    }

    void aPageMayShowAMessageWhenItIsApplied()
    {
        bool shown = false;
        m_page->onApply = [&shown] {
            const ModalDialog box(ModalDialog::press(QMessageBox::Ok));
            QMessageBox::information(ViewManager::dialogParent(), QStringLiteral("page"),
                                     QStringLiteral("applied"));
            shown = box.met();
        };
        const ModalDialog dialog(click({QDialogButtonBox::Ok}));
        QVERIFY(m_fixture->dialog()->execDialog());
        QVERIFY(shown);
        QCOMPARE(m_fixture->logged("finish"), texts({"finish a1"}));
    }

    void aPageMayShowItselfInAnotherDialogWhenItIsApplied()
    {
        TestPage *second = m_fixture->add("A", "a2");
        m_page->onApply = [second] {
            OptionDialog other(nullptr);
            other.setCurrentPage(QStringLiteral("A"), QStringLiteral("a2"));
            QVERIFY(other.isAncestorOf(second->shown));
            other.reject();
        };
        const ModalDialog dialog([](QWidget *widget) {
            tabsOf(widget)->setCurrentIndex(1);
            tabsOf(widget)->setCurrentIndex(0);
            buttonOf(widget, QDialogButtonBox::Ok)->click();
        });
        QVERIFY(m_fixture->dialog("A", "a1")->execDialog());
        QStringList applied = m_fixture->logged("apply");
        applied.sort();
        QCOMPARE(applied, texts({"apply a1", "apply a2"}));
        QCOMPARE(m_fixture->logged("finish"),
                 texts({"finish a1", "finish a2", "finish a1", "finish a2"}));
    }

    void theDialogMayBeCancelledWhileAPageIsApplied()
    {
        m_page->onApply = [this] { m_fixture->dialog()->reject(); };
        const ModalDialog dialog(click({QDialogButtonBox::Apply}));
        QVERIFY(m_fixture->dialog()->execDialog());
        QCOMPARE(m_fixture->logged("finish"), texts({"finish a1"}));
    }

    void theDialogMayBeDeletedWhileAPageIsApplied_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<bool>("endedBefore");
        QTest::newRow("OK") << int(QDialogButtonBox::Ok) << false;
        QTest::newRow("OK behind an end") << int(QDialogButtonBox::Ok) << true;
        QTest::newRow("Apply") << int(QDialogButtonBox::Apply) << false;
    }

    void theDialogMayBeDeletedWhileAPageIsApplied()
    {
        QFETCH(const int, button);
        QFETCH(const bool, endedBefore);
        if (endedBefore)
            m_fixture->dialog()->reject();
        m_fixture->log.clear();
        m_page->onApply = [this] { delete m_fixture->dialog(); };
        const ModalDialog dialog(click({QDialogButtonBox::StandardButton(button)}));
        QVERIFY(!m_fixture->dialog()->execDialog());
        QCOMPARE(m_fixture->logged("apply"), texts({"apply a1"}));
        QCOMPARE(m_fixture->logged("finish"), texts({"finish a1"}));
    }

    void theDialogMayBeDeletedWhileAPageIsFinished()
    {
        m_page->onFinish = [this] {
            m_page->onFinish = nullptr;
            delete m_fixture->dialog();
        };
        const ModalDialog dialog(click({QDialogButtonBox::Ok}));
        QVERIFY(!m_fixture->dialog()->execDialog());
        QCOMPARE(m_fixture->logged("finish"), texts({"finish a1"}));
    }

    void aPageMayAskForTheDialogWhenItIsApplied()
    {
        // The page waits for the dialog that waits for the page; a second OK ends
        // both, the page's wait before anything counts as applied.
        bool result = true;
        m_page->onApply = [&] {
            m_page->onApply = nullptr;
            QTimer::singleShot(0, m_fixture->dialog(), [this] {
                buttonOf(m_fixture->dialog(), QDialogButtonBox::Ok)->click();
            });
            result = m_fixture->dialog()->execDialog();
        };
        const ModalDialog dialog(
            [](QWidget *widget) { qobject_cast<QDialog *>(widget)->accept(); });
        QVERIFY(m_fixture->dialog()->execDialog());
        QVERIFY(!result);
        QCOMPARE(m_fixture->logged("finish"), texts({"finish a1"}));
    }

    void pagesAreToldWhenTheProgramEndsOverTheDialog()
    {
        const ModalDialog dialog([](QWidget *) { QCoreApplication::quit(); });
        QTimer::singleShot(0, this, [this] { (void)m_fixture->dialog()->execDialog(); });
        QCoreApplication::exec();
        QCOMPARE(m_fixture->logged("finish"), texts({"finish a1"}));
    }

    void pagesAreToldWhenTheDialogWasNeverRun()
    {
        delete m_fixture->dialog();
        QCOMPARE(m_fixture->logged("finish"), texts({"finish a1"}));
    }

    void theWidgetThatAPageKeepsOutlivesTheDialog()
    {
        m_page->keepsWidget = true;
        {
            const ModalDialog dialog(ModalDialog::cancel());
            (void)m_fixture->dialog()->execDialog();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(m_page->shown);
        QVERIFY(!m_page->shown->parentWidget());
    }

    void theWidgetThatAPageKeepsStaysInTheNextDialog()
    {
        m_page->keepsWidget = true;
        {
            const ModalDialog dialog(ModalDialog::cancel());
            (void)m_fixture->dialog()->execDialog();
        }
        const OptionDialog *next = m_fixture->dialog();
        // The one before.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(next->isAncestorOf(m_page->shown));
        QCOMPARE(tabTitlesOf(next), texts({"tab a1"}));
    }

private:
    std::unique_ptr<OptionFixture> m_fixture;
    TestPage *m_page = nullptr;
};

QTEST_MAIN(TestOptionRun)
#include "tst_optionrun.moc"
