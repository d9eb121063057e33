// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/corefixture.h"
#include "support/modaldialog.h"

#include <idecore/core/buildinfo.h>
#include <idecore/mainwindow/idemainwindow.h>
#include <idecore/mainwindow/versiondialog_p.h>
#include <idecore/views/viewmanager.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFrame>
#include <QIcon>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QPointer>
#include <QProcess>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <memory>

using Core::private_impl::VersionDialog;

namespace {

QPushButton *buttonOf(QMessageBox *box, const char *text)
{
    const QList<QPushButton *> buttons = box->findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (button->text() == QString::fromUtf8(text))
            return button;
    }
    QTest::qFail("the box has no such button", __FILE__, __LINE__);
    return nullptr;
}

ModalDialog::Handler pressText(const char *text)
{
    return [text](QWidget *widget) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        QVERIFY(box);
        QTest::mouseClick(buttonOf(box, text), Qt::LeftButton);
    };
}

/// The texts of the buttons of @p box from left to right.
QStringList buttonTexts(const QMessageBox *box)
{
    QList<QPushButton *> buttons = box->findChildren<QPushButton *>();
    std::sort(buttons.begin(), buttons.end(), [](const QWidget *one, const QWidget *other) {
        return one->mapToGlobal({}).x() < other->mapToGlobal({}).x();
    });
    QStringList found;
    for (const QPushButton *button : qAsConst(buttons))
        found.append(button->text());
    return found;
}

/// The logos in the air.
QList<QLabel *> flying()
{
    QList<QLabel *> found;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *label = qobject_cast<QLabel *>(window);
        if (label && label->pixmap(Qt::ReturnByValue).height() > 0)
            found.append(label);
    }
    return found;
}

QImage image(const char *file)
{
    return QImage(QLatin1String(":/core/image/") + QString::fromUtf8(file));
}

} // namespace

/// The clicks are counted for the whole process and the count is never reset, so
/// main() gives each of these functions a process of its own.
class TestVersionDialog final : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_dialog = std::make_unique<VersionDialog>(nullptr);
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
    }

    void cleanup()
    {
        if (m_dialog)
            m_dialog->done(0);
        m_dialog.reset();
    }

    // Construction

    void theWindowHasTheProgramsIconAndATitle()
    {
        QCOMPARE(m_dialog->windowTitle(), QStringLiteral("About"));
        QCOMPARE(
            m_dialog->windowIcon().pixmap(32, 32).toImage(),
            QIcon(QStringLiteral(":/core/image/logo/ide_logo_32.png")).pixmap(32, 32).toImage());
        QVERIFY(!(m_dialog->windowFlags() & Qt::WindowContextHelpButtonHint));
    }

    void theLogoIsScaledSmoothlyToItsHeightAndCentred()
    {
        const QImage original = image("Kelmo_LOGO_about.png");
        QVERIFY(!original.isNull());
        QCOMPARE(logo()->alignment(), Qt::Alignment(Qt::AlignCenter));
        const QPixmap shown = logo()->pixmap(Qt::ReturnByValue);
        QCOMPARE(shown.height(), 220);
        QCOMPARE(shown.toImage().convertToFormat(QImage::Format_ARGB32),
                 QPixmap::fromImage(original)
                     .scaledToHeight(220, Qt::SmoothTransformation)
                     .toImage()
                     .convertToFormat(QImage::Format_ARGB32));
    }

    void theVersionLabelTellsProductVersionAndBuild()
    {
        using namespace Core::Constants;
        QCOMPARE(label("labelVersion")->text(),
                 QStringLiteral("<p><div style=\"font-size:12pt;line-height:130%\">"
                                "KELMO FPGA Designer</div><br/>Version ")
                     + QString::fromUtf8(IDE_VERSION) + QLatin1Char(' ')
                     + QString::fromUtf8(IDE_RELEASE_TYPE) + QStringLiteral(" build(")
                     + QString::fromUtf8(IDE_BUILD_NUMBER).rightJustified(5, QLatin1Char('0'))
                     + QStringLiteral(")</p>"));
        QVERIFY(label("labelVersion")->text().contains(QLatin1String("build(0000")));
    }

    void theLineIsSunkenAndLevel()
    {
        const auto *line = m_dialog->findChild<QFrame *>(QStringLiteral("line"));
        QVERIFY(line);
        QCOMPARE(line->frameShape(), QFrame::HLine);
        QCOMPARE(line->frameShadow(), QFrame::Sunken);
    }

    void theCopyrightIsOneCentredParagraph()
    {
        const QString text = label("labelCopyright")->text();
        QVERIFY(text.startsWith(QLatin1String("<p align=\"center\">")));
        QCOMPARE(text.count(QLatin1String("<p")), 1);
        QVERIFY(text.contains(QLatin1String("2026 KelmoWare")));
        QVERIFY(text.contains(QLatin1String("All rights reserved.")));
    }

    void theTextsAreSansSerifAtTenPoints()
    {
        for (const char *name : {"labelVersion", "labelCopyright"}) {
            QCOMPARE(label(name)->font().family(), QStringLiteral("Sans Serif"));
            QCOMPARE(label(name)->font().pointSize(), 10);
        }
    }

    void whatItHoldsStandsInOrderBelowOneAnother()
    {
        QStringList names;
        const QLayout *layout = m_dialog->layout();
        for (int i = 0; i < layout->count(); ++i) {
            const QWidget *widget = layout->itemAt(i)->widget();
            names.append(widget->objectName());
            if (i > 0)
                QVERIFY(widget->y() > layout->itemAt(i - 1)->widget()->y());
        }
        QCOMPARE(names,
                 texts({"labelLogo", "labelVersion", "line", "labelCopyright", "buttonBox"}));
    }

    void itCannotBeResized()
    {
        QCOMPARE(m_dialog->layout()->sizeConstraint(), QLayout::SetFixedSize);
        QCOMPARE(m_dialog->minimumSize(), m_dialog->maximumSize());
    }

    void okAcceptsAndIsTheOnlyButton()
    {
        const auto *box = m_dialog->findChild<QDialogButtonBox *>();
        QCOMPARE(box->standardButtons(), QDialogButtonBox::StandardButtons(QDialogButtonBox::Ok));
        QSignalSpy accepted(m_dialog.get(), &QDialog::accepted);
        QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
        QCOMPARE(accepted.count(), 1);
        QVERIFY(!m_dialog->isVisible());
    }

    // Clicks

    void fourClicksDoNothingAndTheFifthLetsALogoFly()
    {
        click(4);
        QVERIFY(flying().isEmpty());
        click(1);
        QCOMPARE(flying().size(), 1);
        click(1);
        QCOMPARE(flying().size(), 2);
    }

    void clicksBesideTheLogoNeverCount()
    {
        for (int i = 0; i < 60; ++i)
            QTest::mouseClick(label("labelCopyright"), Qt::LeftButton);
        click(4);
        QVERIFY(flying().isEmpty());
        click(1);
        QCOMPARE(flying().size(), 1);
        QTest::mouseClick(label("labelCopyright"), Qt::LeftButton);
        QCOMPARE(flying().size(), 1);
    }

    void aReleaseOnTheEdgeOfTheLogoCountsAndOneBesideItDoesNot()
    {
        click(4);
        const QRect edge = logo()->geometry();
        release(edge.topLeft() - QPoint(1, 0));
        release(edge.bottomRight() + QPoint(0, 1));
        QVERIFY(flying().isEmpty());
        release(edge.bottomRight());
        QCOMPARE(flying().size(), 1);
        release(edge.topLeft());
        QCOMPARE(flying().size(), 2);
    }

    void theFlyingLogoIsTheSmallOneAndStartsAtTheClick()
    {
        click(4);
        const QPointF global(301.5, 202.4);
        QMouseEvent event(QEvent::MouseButtonRelease, logo()->geometry().center(), global, global,
                          Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(m_dialog.get(), &event);
        const QLabel *label = flying().value(0);
        QVERIFY(label);
        QVERIFY(label->isWindow());
        QVERIFY(label->isVisible());
        QCOMPARE(label->alignment(), Qt::Alignment(Qt::AlignCenter));
        QCOMPARE(label->pixmap(Qt::ReturnByValue).toImage(),
                 QPixmap(QStringLiteral(":/core/image/logo/ide_logo_24.png")).toImage());
        const auto *flight = label->findChild<QPropertyAnimation *>();
        QVERIFY(flight);
        QCOMPARE(flight->startValue().toRect(), QRect(302, 202, 24, 24));
    }

    void theFlightTakesItsTimeAndEndsOnTheScreen()
    {
        click(5);
        QLabel *label = flying().value(0);
        QVERIFY(label);
        const QPointer<QPropertyAnimation> flight = label->findChild<QPropertyAnimation *>();
        QVERIFY(flight);
        QCOMPARE(flight->targetObject(), label);
        QCOMPARE(flight->propertyName(), QByteArrayLiteral("geometry"));
        QCOMPARE(flight->duration(), 1500);
        QCOMPARE(flight->state(), QAbstractAnimation::Running);
        const QRect end = flight->endValue().toRect();
        QVERIFY(QGuiApplication::primaryScreen()->availableGeometry().contains(end));
        QCOMPARE(end.size(), QSize(24, 24));
        QTRY_VERIFY(!flight); // deletes itself
        QCOMPARE(label->geometry(), end);
    }

    void theLogoUnderThePointerDoesNotTakeTheNextClick()
    {
        click(5);
        QVERIFY(flying().constFirst()->windowHandle()->flags() & Qt::WindowTransparentForInput);
    }

    void nothingIsSeenAroundTheFlyingLogo()
    {
        click(5);
        const QRegion shown = flying().constFirst()->mask();
        QVERIFY(shown.contains(QPoint(12, 12)));
        QVERIFY(!shown.contains(QPoint(0, 0)));
    }

    void theQuestionComesAtTheThirtiethClickOnly()
    {
        click(29);
        QVERIFY(!QApplication::activeModalWidget());
        QStringList buttons;
        {
            ModalDialog box([&buttons](QWidget *widget) {
                buttons = buttonTexts(qobject_cast<QMessageBox *>(widget));
                pressText("Yep")(widget);
            });
            click(1);
            QCOMPARE(box.title(), QStringLiteral(" "));
            QCOMPARE(box.text(), QStringLiteral("Having fun?\t\t"));
            QCOMPARE(box.icon(), int(QMessageBox::Question));
            QCOMPARE(box.parentOfDialog(), m_dialog.get());
        }
        QCOMPARE(buttons, texts({"Yep"}));
        QVERIFY(m_dialog->isVisible());
        click(19); // no box: one would block here
        QCOMPARE(flying().size(), 49 - 4);
    }

    void theWarningComesWithEveryClickFromTheFiftieth()
    {
        clickUpTo49();
        for (int count = 50; count <= 60; ++count) {
            QStringList buttons;
            ModalDialog box([&buttons](QWidget *widget) {
                buttons = buttonTexts(qobject_cast<QMessageBox *>(widget));
                pressText("No")(widget);
            });
            click(1);
            QVERIFY(box.met());
            QCOMPARE(box.title(), QStringLiteral(" "));
            QCOMPARE(box.text(), QStringLiteral("You should stop this.\t\t"));
            QCOMPARE(box.icon(), int(QMessageBox::Warning));
            QCOMPARE(box.parentOfDialog(), m_dialog.get());
            QCOMPARE(buttons, texts({"OK~", "No", "Shut Up!"}));
            QVERIFY(m_dialog->isVisible());
            QCOMPARE(flying().size(), count - 4);
        }
    }

    void escapeIsTheNoOfTheWarning()
    {
        clickUpTo49();
        ModalDialog box(ModalDialog::cancel());
        click(1);
        QVERIFY(box.met());
        QVERIFY(m_dialog->isVisible());
    }

    void okClosesTheDialogWithTheWarningAndTheLogos()
    {
        clickUpTo49();
        ModalDialog box(pressText("OK~"));
        click(1);
        QVERIFY(box.met());
        QVERIFY(!m_dialog->isVisible());
        QVERIFY(flying().isEmpty());
    }

    void shutUpEndsTheWarningsForAllDialogsAndTheLogosFlyOn()
    {
        clickUpTo49();
        {
            ModalDialog box(pressText("Shut Up!"));
            click(1);
        }
        QVERIFY(m_dialog->isVisible());
        click(10);
        QCOMPARE(flying().size(), 60 - 4);
        init();
        QVERIFY(!flying().isEmpty());
        m_dialog->accept();
        m_dialog->show();
        click(3);
        QCOMPARE(flying().size(), 3);
        QVERIFY(!QApplication::activeModalWidget());
    }

    void aReleaseGoesOnToTheHandlerOfAPress()
    {
        // That one takes the event of a popup and closes it when it is beside; the
        // handler of a release does neither.
        m_dialog->hide();
        m_dialog->setWindowFlags(Qt::Popup);
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
        const QPoint beside(-50, -50);
        QMouseEvent event(QEvent::MouseButtonRelease, beside, m_dialog->mapToGlobal(beside),
                          Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(m_dialog.get(), &event);
        QVERIFY(event.isAccepted());
        QVERIFY(!m_dialog->isVisible());
    }

    // Closing

    void aSecondDialogGoesOnCounting()
    {
        click(3);
        m_dialog->accept();
        init();
        click(1);
        QVERIFY(flying().isEmpty());
        click(1);
        QCOMPARE(flying().size(), 1);
    }

    void closingTakesAllLogosAlongAlsoThoseStillMoving()
    {
        click(6);
        QList<QPointer<QObject>> gone;
        const QList<QLabel *> labels = flying();
        for (QLabel *label : labels) {
            gone.append(QPointer<QObject>(label));
            const auto *flight = label->findChild<QPropertyAnimation *>();
            QVERIFY(flight);
            QCOMPARE(flight->state(), QAbstractAnimation::Running);
            gone.append(QPointer<QObject>(label->findChild<QPropertyAnimation *>()));
        }
        m_dialog->reject();
        QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
        QVERIFY(flying().isEmpty());
        QCOMPARE(gone.size(), 4);
        for (const QPointer<QObject> &object : qAsConst(gone))
            QVERIFY(!object);
    }

    void doneTakesTheResult()
    {
        QSignalSpy finished(m_dialog.get(), &QDialog::finished);
        m_dialog->done(7);
        QCOMPARE(finished.count(), 1);
        QCOMPARE(m_dialog->result(), 7);
    }

    // From the Help menu

    void aboutOfTheMainWindowShowsItModallyAndDestroysIt()
    {
        const CoreFixture core;
        QPointer<QWidget> shown;
        ModalDialog met([&shown](QWidget *widget) {
            shown = widget;
            QVERIFY(qobject_cast<VersionDialog *>(widget));
            qobject_cast<QDialog *>(widget)->accept();
        });
        Core::ViewManager::mainWindow()->onAboutIde();
        QVERIFY(met.met());
        QCOMPARE(met.parentOfDialog(), Core::ViewManager::mainWindow());
        QVERIFY(!shown);
    }

private:
    QLabel *label(const char *name) const
    {
        return m_dialog->findChild<QLabel *>(QString::fromUtf8(name));
    }

    QLabel *logo() const { return label("labelLogo"); }

    void click(int times)
    {
        for (int i = 0; i < times; ++i)
            QTest::mouseClick(logo(), Qt::LeftButton);
    }

    void release(const QPoint &position)
    {
        QMouseEvent event(QEvent::MouseButtonRelease, position, m_dialog->mapToGlobal(position),
                          Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(m_dialog.get(), &event);
    }

    void clickUpTo49()
    {
        click(29);
        ModalDialog question(pressText("Yep"));
        click(1);
        click(19);
    }

    std::unique_ptr<VersionDialog> m_dialog;
};

int main(int argc, char **argv)
{
    const QByteArrayList framework{"init", "cleanup"};
    if (argc > 1) {
        const QApplication application(argc, argv);
        TestVersionDialog test;
        return QTest::qExec(&test, argc, argv);
    }
    int failed = 0;
    const QMetaObject &functions = TestVersionDialog::staticMetaObject;
    for (int i = functions.methodOffset(); i < functions.methodCount(); ++i) {
        const QByteArray name = functions.method(i).name();
        if (framework.contains(name))
            continue;
        if (QProcess::execute(QString::fromLocal8Bit(argv[0]), {QString::fromLatin1(name)}) != 0)
            ++failed;
    }
    return failed;
}

#include "tst_versiondialog.moc"
