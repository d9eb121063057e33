// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/contrast.h"

#include <appstyle/appstylemanager.h>

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QTabBar>
#include <QTest>

using APPSTYLE::AppStyleManager;

namespace {

QColor colour(QPalette::ColorRole role)
{
    return QApplication::palette().color(role);
}

QImage shown(QWidget *widget)
{
    widget->ensurePolished();
    widget->resize(widget->sizeHint());
    return widget->grab().toImage();
}

QRect indicator(const QCheckBox *box)
{
    QStyleOptionButton option;
    option.initFrom(box);
    return QApplication::style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box);
}

QStyleOptionTitleBar titleBar()
{
    QStyleOptionTitleBar bar;
    bar.palette = QApplication::palette();
    bar.rect = QRect(0, 0, 300, 24);
    bar.titleBarFlags = Qt::Window | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint;
    bar.titleBarState = int(QStyle::State_Active);
    bar.state = QStyle::State_Enabled | QStyle::State_Active;
    bar.subControls = QStyle::SC_All;
    return bar;
}

QImage painted(const QStyleOptionTitleBar &bar)
{
    QImage image(bar.rect.size(), QImage::Format_RGB32);
    image.fill(colour(QPalette::Window));
    QPainter painter(&image);
    QApplication::style()->drawComplexControl(QStyle::CC_TitleBar, &bar, &painter);
    return image;
}

} // namespace

/// What the style draws of states and sides that are seldom seen.
class TestThemeStyleStates final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();
    void theMarkOfATabLiesAwayFromItsPage_data();
    void theMarkOfATabLiesAwayFromItsPage();
    void aHalfCheckedBoxHasASignOfItsOwn();
    void aDisabledBoxIsFilledLikeTheWindow();
    void toolTipsHaveTheirGroundAndAnEdge();
    void theButtonUnderThePointerIsLit_data();
    void theButtonUnderThePointerIsLit();
    void copiedSignsAreTheSame();
};

void TestThemeStyleStates::initTestCase_data()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("classic") << APPSTYLE::THEME_CLASSIC;
    QTest::newRow("dark") << APPSTYLE::THEME_DARK;
}

void TestThemeStyleStates::init()
{
    QFETCH_GLOBAL(QString, theme);
    AppStyleManager::instance()->setAppStyle(theme);
}

void TestThemeStyleStates::theMarkOfATabLiesAwayFromItsPage_data()
{
    QTest::addColumn<QTabBar::Shape>("shape");
    QTest::addColumn<Qt::Edge>("side");
    QTest::newRow("above the page") << QTabBar::RoundedNorth << Qt::TopEdge;
    QTest::newRow("below the page") << QTabBar::RoundedSouth << Qt::BottomEdge;
    QTest::newRow("left of the page") << QTabBar::RoundedWest << Qt::LeftEdge;
    QTest::newRow("right of the page") << QTabBar::RoundedEast << Qt::RightEdge;
}

void TestThemeStyleStates::theMarkOfATabLiesAwayFromItsPage()
{
    QFETCH(const QTabBar::Shape, shape);
    QFETCH(const Qt::Edge, side);
    QTabBar tabs;
    tabs.setShape(shape);
    tabs.addTab(QStringLiteral("one"));
    tabs.addTab(QStringLiteral("two"));

    const QImage image = shown(&tabs);

    const QRect tab = tabs.tabRect(tabs.currentIndex());
    const QHash<Qt::Edge, QPoint> middles = {
        {Qt::TopEdge, {tab.center().x(), tab.top()}},
        {Qt::BottomEdge, {tab.center().x(), tab.bottom()}},
        {Qt::LeftEdge, {tab.left(), tab.center().y()}},
        {Qt::RightEdge, {tab.right(), tab.center().y()}},
    };
    for (auto it = middles.begin(); it != middles.end(); ++it)
        QCOMPARE(image.pixelColor(it.value()) == colour(QPalette::Highlight), it.key() == side);
}

void TestThemeStyleStates::aHalfCheckedBoxHasASignOfItsOwn()
{
    QCheckBox box;
    box.setTristate(true);
    const QImage empty = shown(&box);
    box.setCheckState(Qt::Checked);
    const QImage checked = shown(&box);

    box.setCheckState(Qt::PartiallyChecked);
    const QImage half = shown(&box);

    QVERIFY(half != empty);
    QVERIFY(half != checked);
    const double ratio =
        Contrast::ratio(half.pixelColor(indicator(&box).center()), colour(QPalette::Base));
    QVERIFY2(ratio >= Contrast::SIGN, qPrintable(QString::number(ratio)));
}

void TestThemeStyleStates::aDisabledBoxIsFilledLikeTheWindow()
{
    QCheckBox box;
    box.setEnabled(false);

    const QImage image = shown(&box);

    QCOMPARE(image.pixelColor(indicator(&box).center()), colour(QPalette::Window));
}

void TestThemeStyleStates::toolTipsHaveTheirGroundAndAnEdge()
{
    QStyleOptionFrame tip;
    tip.palette = QApplication::palette();
    tip.rect = QRect(0, 0, 60, 20);
    tip.state = QStyle::State_Enabled;
    QImage image(tip.rect.size(), QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);

    QApplication::style()->drawPrimitive(QStyle::PE_PanelTipLabel, &tip, &painter);

    painter.end();
    const QColor ground = colour(QPalette::ToolTipBase);
    QCOMPARE(image.pixelColor(30, 10), ground);
    for (const QPoint &at : {QPoint(30, 0), QPoint(30, 19), QPoint(0, 10), QPoint(59, 10)}) {
        QVERIFY(image.pixelColor(at) != ground);
        QVERIFY(image.pixelColor(at) != QColor(Qt::magenta));
    }
}

void TestThemeStyleStates::theButtonUnderThePointerIsLit_data()
{
    QTest::addColumn<QStyle::SubControl>("button");
    QTest::newRow("minimise") << QStyle::SC_TitleBarMinButton;
    QTest::newRow("maximise") << QStyle::SC_TitleBarMaxButton;
    QTest::newRow("close") << QStyle::SC_TitleBarCloseButton;
}

void TestThemeStyleStates::theButtonUnderThePointerIsLit()
{
    QFETCH(const QStyle::SubControl, button);
    QStyleOptionTitleBar bar = titleBar();
    const QRect rect =
        QApplication::style()->subControlRect(QStyle::CC_TitleBar, &bar, button, nullptr);
    const QPoint corner = rect.topLeft() + QPoint(1, 1);
    const QColor plain = painted(bar).pixelColor(corner);

    bar.activeSubControls = button;
    const QImage hovered = painted(bar);
    bar.state |= QStyle::State_Sunken;
    const QImage pressed = painted(bar);

    const auto distance = [&](const QImage &image) {
        return qAbs(image.pixelColor(corner).lightness() - plain.lightness());
    };
    QVERIFY(distance(hovered) > 0);
    QVERIFY(distance(pressed) > distance(hovered));
    for (const auto other : {QStyle::SC_TitleBarMinButton, QStyle::SC_TitleBarMaxButton,
                             QStyle::SC_TitleBarCloseButton}) {
        const QRect place =
            QApplication::style()->subControlRect(QStyle::CC_TitleBar, &bar, other, nullptr);
        const bool same = hovered.copy(place) == painted(titleBar()).copy(place);
        QCOMPARE(same, other != button);
    }
}

void TestThemeStyleStates::copiedSignsAreTheSame()
{
    const QIcon icon = QApplication::style()->standardIcon(QStyle::SP_TitleBarCloseButton);
    const QImage original = icon.pixmap(16).toImage();
    QIcon copy = icon;

    // Adding to a copy makes it one of its own.
    copy.addPixmap(QPixmap(1, 1));

    QCOMPARE(copy.pixmap(16).toImage(), original);
}

QTEST_MAIN(TestThemeStyleStates)
#include "tst_themestylestates.moc"
