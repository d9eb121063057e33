// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <idecore/mainwindow/versiondialog_p.h>

#include <idecore/core/buildinfo.h>
#include <idecore/core/ideicon.h>

#include <QBitmap>
#include <QDialogButtonBox>
#include <QFont>
#include <QFrame>
#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QList>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPixmap>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QRandomGenerator>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>
#include <QtMath>

#include <utility>

namespace Core {
namespace private_impl {

namespace {

const QString PRODUCT = QStringLiteral("KELMO FPGA Designer");
constexpr int LogoHeight = 220;
constexpr int FlightTime = 1500;
constexpr int ClicksIgnored = 4;
constexpr int ClicksAsked = 30;
constexpr int ClicksBorne = 49;

/// Outlives the dialogs, so that a second one goes on where the first left off.
struct Playground
{
    int clicks = 0;
    bool warningStopped = false;
    // They have no parent: a dialog that is done deletes those of all dialogs.
    QList<QLabel *> flying;
};

Playground &playground()
{
    static Playground state;
    return state;
}

const QPixmap &smallLogo()
{
    static const QPixmap pixmap(QStringLiteral(":/core/image/logo/ide_logo_24.png"));
    return pixmap;
}

QPixmap largeLogo(qreal ratio)
{
    QPixmap pixmap = QPixmap(QStringLiteral(":/core/image/Kelmo_LOGO_about.png"))
                         .scaledToHeight(qRound(LogoHeight * ratio), Qt::SmoothTransformation);
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

/// Somewhere on the screen of @p from, whole.
QRect landing(const QRect &from)
{
    const QScreen *screen = QGuiApplication::screenAt(from.topLeft());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect area = screen->availableGeometry();
    auto *random = QRandomGenerator::global();
    const int x = random->bounded(qMax(1, area.width() - from.width()));
    const int y = random->bounded(qMax(1, area.height() - from.height()));
    return {area.topLeft() + QPoint(x, y), from.size()};
}

void letFly(const QPoint &position)
{
    const QPixmap &logo = smallLogo();
    auto *label = new QLabel(nullptr, Qt::ToolTip);
    label->setAttribute(Qt::WA_TranslucentBackground);
    label->setAttribute(Qt::WA_ShowWithoutActivating);
    label->setPixmap(logo);
    label->setAlignment(Qt::AlignCenter);
    playground().flying.append(label);
    label->setGeometry(QRect(position, logo.size() / logo.devicePixelRatio()));
    // Where nothing blends windows, what is to be seen through would be black.
    label->setMask(QBitmap::fromImage(logo.toImage().scaled(label->size()).createAlphaMask()));
    label->show();
    // Not in the way of the next click: it starts right under the pointer, and flies and
    // lands anywhere. Said before, it would be lost when the window of a tool tip is made.
    label->windowHandle()->setFlag(Qt::WindowTransparentForInput);

    auto *flight = new QPropertyAnimation(label, QByteArrayLiteral("geometry"), label);
    flight->setDuration(FlightTime);
    flight->setStartValue(label->geometry());
    flight->setEndValue(landing(label->geometry()));
    flight->setEasingCurve(QEasingCurve::OutCubic);
    flight->start(QAbstractAnimation::DeleteWhenStopped);
}

} // namespace

VersionDialog::VersionDialog(QWidget *parent)
    : QDialog(parent)
    , m_logo(new QLabel(this))
{
    setWindowIcon(productIcon());
    setWindowTitle(tr("About"));
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);

    m_logo->setObjectName(QStringLiteral("labelLogo"));
    m_logo->setAccessibleName(PRODUCT);
    m_logo->setAlignment(Qt::AlignCenter);
    m_logo->setPixmap(largeLogo(devicePixelRatioF()));

    const QFont font(QStringLiteral("Sans Serif"), 10);
    const QString buildNumber = QString::fromUtf8(Constants::IDE_BUILD_NUMBER);
    auto *version = new QLabel(tr("<p><div style=\"font-size:12pt;line-height:130%\">%1</div><br/>"
                                  "Version %2 %3 build(%4)</p>")
                                   .arg(PRODUCT, QString::fromUtf8(Constants::IDE_VERSION),
                                        QString::fromUtf8(Constants::IDE_RELEASE_TYPE),
                                        buildNumber.rightJustified(5, QLatin1Char('0'))),
                               this);
    version->setObjectName(QStringLiteral("labelVersion"));
    version->setFont(font);

    auto *line = new QFrame(this);
    line->setObjectName(QStringLiteral("line"));
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);

    auto *copyright = new QLabel(tr("<p align=\"center\">Copyright &copy; 2026 KelmoWare<br/>"
                                    "All rights reserved.</p>"),
                                 this);
    copyright->setObjectName(QStringLiteral("labelCopyright"));
    copyright->setFont(font);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    buttons->setObjectName(QStringLiteral("buttonBox"));
    connect(buttons, &QDialogButtonBox::accepted, this, &VersionDialog::accept);

    auto *layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_logo);
    layout->addWidget(version);
    layout->addWidget(line);
    layout->addWidget(copyright);
    layout->addWidget(buttons);
}

void VersionDialog::done(int r)
{
    const QList<QLabel *> flying = std::exchange(playground().flying, {});
    for (QLabel *label : flying) {
        label->close();
        delete label; // at once, with its animation: nothing moves without a dialog
    }
    QDialog::done(r);
}

void VersionDialog::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_logo->geometry().contains(event->pos())) {
        ++playground().clicks;
        react(event->screenPos());
    }
    // The handler for a press, and it stays so: a release is left to nobody else.
    QWidget::mousePressEvent(event);
}

void VersionDialog::react(const QPointF &globalPosition)
{
    const int clicks = playground().clicks;
    if (clicks <= ClicksIgnored)
        return;
    letFly({qFloor(globalPosition.x() + 0.5), qFloor(globalPosition.y() + 0.5)});
    if (clicks == ClicksAsked) {
        QMessageBox box(QMessageBox::Question, QStringLiteral(" "), tr("Having fun?\t\t"),
                        QMessageBox::NoButton, this);
        // Its title is a blank.
        box.setAccessibleName(windowTitle());
        box.addButton(tr("Yep"), QMessageBox::AcceptRole);
        box.exec();
    }
    if (clicks > ClicksBorne && !playground().warningStopped)
        warn();
}

void VersionDialog::warn()
{
    QMessageBox box(QMessageBox::Warning, QStringLiteral(" "), tr("You should stop this.\t\t"),
                    QMessageBox::NoButton, this);
    box.setAccessibleName(windowTitle());
    // Of one role, or each desktop would put them into an order of its own.
    const QAbstractButton *ok = box.addButton(tr("OK~"), QMessageBox::ActionRole);
    QAbstractButton *no = box.addButton(tr("No"), QMessageBox::ActionRole);
    const QAbstractButton *shutUp = box.addButton(tr("Shut Up!"), QMessageBox::ActionRole);
    box.setEscapeButton(no);
    box.exec();
    if (box.clickedButton() == ok)
        close();
    else if (box.clickedButton() == shutUp)
        playground().warningStopped = true;
}

} // namespace private_impl
} // namespace Core
