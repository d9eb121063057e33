// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "support/contrast.h"

#include <appstyle/appstylemanager.h>

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPainter>
#include <QRadioButton>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOption>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <algorithm>

Q_DECLARE_METATYPE(QStyle::State)

using APPSTYLE::AppStyleManager;

namespace {

QImage shown(QWidget *widget)
{
    widget->ensurePolished();
    widget->resize(widget->sizeHint());
    return widget->grab().toImage();
}

/// The contrast of what stands out most within @p rect from @p ground.
double strongest(const QImage &image, const QRect &rect, const QColor &ground)
{
    double best = 1;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x)
            best = qMax(best, Contrast::ratio(image.pixelColor(x, y), ground));
    }
    return best;
}

QColor windowColour()
{
    return QApplication::palette().color(QPalette::Window);
}

/// The frame of a field of that size on the colour of fields. Where the painter is told
/// to smooth pictures, the style draws each frame on its own.
QImage drawnFrame(const QSize &size, qreal ratio, QStyle::State state, bool onItsOwn)
{
    QStyleOptionFrame option;
    option.palette = QApplication::palette();
    option.palette.setCurrentColorGroup(state & QStyle::State_Enabled ? QPalette::Active
                                                                      : QPalette::Disabled);
    option.rect = QRect({3, 2}, size);
    option.state = state;
    option.lineWidth = 1;
    QImage image((size + QSize(8, 8)) * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(QApplication::palette().color(QPalette::Base));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, onItsOwn);
    QApplication::style()->drawPrimitive(QStyle::PE_FrameLineEdit, &option, &painter);
    return image;
}

/// The most that a channel of a pixel differs by.
int difference(const QImage &one, const QImage &other)
{
    int most = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            most = std::max({most, qAbs(a.red() - b.red()), qAbs(a.green() - b.green()),
                             qAbs(a.blue() - b.blue())});
        }
    }
    return most;
}

QRect indicator(const QAbstractButton *button, QStyle::SubElement element)
{
    QStyleOptionButton option;
    option.initFrom(button);
    return QApplication::style()->subElementRect(element, &option, button);
}

QStyleOptionTitleBar titleBar(bool active)
{
    QStyleOptionTitleBar bar;
    bar.palette = QApplication::palette();
    bar.rect = QRect(0, 0, 300, 24);
    bar.titleBarFlags = Qt::Window | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint;
    bar.titleBarState = active ? int(QStyle::State_Active) : 0;
    bar.state = QStyle::State_Enabled | (active ? QStyle::State_Active : QStyle::State_None);
    bar.subControls = QStyle::SC_All;
    return bar;
}

QImage drawn(const QStyleOptionTitleBar &bar)
{
    QImage image(bar.rect.size(), QImage::Format_RGB32);
    image.fill(windowColour());
    QPainter painter(&image);
    QApplication::style()->drawComplexControl(QStyle::CC_TitleBar, &bar, &painter);
    return image;
}

} // namespace

/// What the style draws is seen on the ground of either theme.
class TestThemeStyle final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();
    void anEmptyCheckBoxIsSeen();
    void anEmptyRadioButtonIsSeen();
    void aCheckedBoxDiffersFromAnEmptyOne();
    void theCurrentTabIsMarked();
    void textOnThePageOfATabIsReadable();
    void titleBarsKeepTheNameAtTheEnd();
    void menusAndTheirGroupsAreKeptApart();
    void theEdgeOfAFieldIsSeen_data();
    void theEdgeOfAFieldIsSeen();
    void framesOfFieldsThatShareAPictureLookLikeTheirOwn_data();
    void framesOfFieldsThatShareAPictureLookLikeTheirOwn();
    void framesOfFieldsFollowThePalette();
    void redTextOfAStyleSheetIsReadable();
    void iconsInSelectedRowsKeepTheirShape();
    void iconsInSelectedRowsAreNotLost();
    void buttonsOfTitleBarsAreSeen_data();
    void buttonsOfTitleBarsAreSeen();
    void theIconOfAnActiveWindowIsSeen();
    void signsOfSmallButtonsAreSeen_data();
    void signsOfSmallButtonsAreSeen();
};

void TestThemeStyle::initTestCase_data()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("classic") << APPSTYLE::THEME_CLASSIC;
    QTest::newRow("dark") << APPSTYLE::THEME_DARK;
}

void TestThemeStyle::init()
{
    QFETCH_GLOBAL(QString, theme);
    AppStyleManager::instance()->setAppStyle(theme);
}

void TestThemeStyle::anEmptyCheckBoxIsSeen()
{
    QCheckBox box;

    const QImage image = shown(&box);

    const QRect rect = indicator(&box, QStyle::SE_CheckBoxIndicator);
    QVERIFY(strongest(image, rect, windowColour()) >= Contrast::SIGN);
}

void TestThemeStyle::anEmptyRadioButtonIsSeen()
{
    QRadioButton button;

    const QImage image = shown(&button);

    const QRect rect = indicator(&button, QStyle::SE_RadioButtonIndicator);
    QVERIFY(strongest(image, rect, windowColour()) >= Contrast::SIGN);
}

void TestThemeStyle::aCheckedBoxDiffersFromAnEmptyOne()
{
    QCheckBox box;
    box.setChecked(true);

    const QImage image = shown(&box);

    const QRect inside = indicator(&box, QStyle::SE_CheckBoxIndicator).adjusted(3, 3, -3, -3);
    const double ratio = strongest(image, inside, QApplication::palette().color(QPalette::Base));

    QVERIFY2(ratio >= Contrast::SIGN, qPrintable(QString::number(ratio)));
}

void TestThemeStyle::theCurrentTabIsMarked()
{
    QTabBar tabs;
    tabs.addTab(QStringLiteral("one"));
    tabs.addTab(QStringLiteral("two"));
    const QImage image = shown(&tabs);
    const QColor mark = QApplication::palette().color(QPalette::Highlight);

    QCOMPARE(image.pixelColor(tabs.tabRect(0).center().x(), tabs.tabRect(0).top()), mark);
    QVERIFY(image.pixelColor(tabs.tabRect(1).center().x(), tabs.tabRect(1).top()) != mark);
}

void TestThemeStyle::textOnThePageOfATabIsReadable()
{
    QTabWidget tabs;
    tabs.addTab(new QWidget, QStringLiteral("one"));
    tabs.resize(200, 200);

    const QColor ground = tabs.grab().toImage().pixelColor(100, 120);

    for (const auto role : {QPalette::WindowText, QPalette::Link, QPalette::BrightText}) {
        const double ratio = Contrast::ratio(QApplication::palette().color(role), ground);
        QVERIFY2(ratio >= Contrast::TEXT, qPrintable(QString::number(ratio)));
    }
}

void TestThemeStyle::titleBarsKeepTheNameAtTheEnd()
{
    QMdiArea area;
    area.resize(600, 400);
    auto *const window = area.addSubWindow(new QWidget);
    window->resize(300, 200);
    area.show();
    const QString folder(120, QLatin1Char('m'));
    const auto title = [&](const QString &name) {
        window->setWindowTitle(folder + name);
        return window->grab(QRect(0, 0, 300, 20)).toImage();
    };

    QVERIFY(title(QStringLiteral("/one.v")) != title(QStringLiteral("/two.v")));
}

void TestThemeStyle::menusAndTheirGroupsAreKeptApart()
{
    QMenu menu;
    QAction *const first = menu.addAction(QStringLiteral("one"));
    QAction *const separator = menu.addSeparator();
    menu.addAction(QStringLiteral("two"));
    const QImage image = shown(&menu);
    const int beside = image.width() - 8;
    const QColor ground = image.pixelColor(beside, menu.actionGeometry(first).center().y());

    const QRect edge(image.width() - 1, 0, 1, image.height());
    QVERIFY(strongest(image, edge, ground) >= 1.4);
    const QRect line = menu.actionGeometry(separator).intersected(QRect(beside, 0, 1, 1000));
    QVERIFY(strongest(image, line, ground) >= 1.2);
}

void TestThemeStyle::theEdgeOfAFieldIsSeen_data()
{
    QTest::addColumn<bool>("withNumber");
    QTest::newRow("text") << false;
    QTest::newRow("number") << true;
}

void TestThemeStyle::theEdgeOfAFieldIsSeen()
{
    QFETCH(bool, withNumber);
    QLineEdit text;
    QSpinBox number;
    const QImage image = withNumber ? shown(&number) : shown(&text);

    // Of a light field on light ground the frame of Fusion is enough.
    const double least =
        AppStyleManager::instance()->currentTheme() == APPSTYLE::THEME_DARK ? Contrast::SIGN : 1.4;
    QVERIFY(strongest(image, QRect(image.width() / 2, 0, 1, 3), windowColour()) >= least);
}

void TestThemeStyle::framesOfFieldsThatShareAPictureLookLikeTheirOwn_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<QStyle::State>("state");
    const QStyle::State enabled = QStyle::State_Enabled;
    QTest::newRow("long") << QSize(300, 24) << 1.0 << enabled;
    QTest::newRow("high") << QSize(60, 200) << 1.0 << enabled;
    QTest::newRow("smallest") << QSize(9, 9) << 1.0 << enabled;
    QTest::newRow("focused") << QSize(300, 24) << 1.0 << (enabled | QStyle::State_HasFocus);
    QTest::newRow("disabled") << QSize(300, 24) << 1.0 << QStyle::State(QStyle::State_None);
    QTest::newRow("at twice the pixels") << QSize(300, 24) << 2.0 << enabled;
    QTest::newRow("at half as many again") << QSize(300, 24) << 1.5 << enabled;
}

void TestThemeStyle::framesOfFieldsThatShareAPictureLookLikeTheirOwn()
{
    QFETCH(QSize, size);
    QFETCH(qreal, ratio);
    QFETCH(QStyle::State, state);

    const QImage own = drawnFrame(size, ratio, state, true);
    QImage blank = own;
    blank.fill(QApplication::palette().color(QPalette::Base));

    QVERIFY(difference(own, blank) > 20);
    // What is drawn in two steps is rounded twice.
    QVERIFY(difference(own, drawnFrame(size, ratio, state, false)) <= 2);
}

void TestThemeStyle::framesOfFieldsFollowThePalette()
{
    const QImage before = drawnFrame({60, 24}, 1, QStyle::State_Enabled, false);
    const QPalette palette = QApplication::palette();
    QPalette other = palette;
    other.setColor(QPalette::Window, Qt::darkGreen);
    QApplication::setPalette(other);
    const QImage after = drawnFrame({60, 24}, 1, QStyle::State_Enabled, false);
    const QImage own = drawnFrame({60, 24}, 1, QStyle::State_Enabled, true);
    QApplication::setPalette(palette);

    QVERIFY(difference(before, after) > 20);
    QVERIFY(difference(own, after) <= 2);
}

void TestThemeStyle::redTextOfAStyleSheetIsReadable()
{
    QLabel label(QStringLiteral("MMMMMM"));
    QFont large = label.font();
    large.setPixelSize(40);
    label.setFont(large);
    label.setStyleSheet(QStringLiteral("QLabel { color : red; }"));

    const QImage image = shown(&label);

    QVERIFY(strongest(image, image.rect(), windowColour()) >= Contrast::TEXT);
    QCOMPARE(label.styleSheet(), QStringLiteral("QLabel { color : red; }"));
}

void TestThemeStyle::iconsInSelectedRowsKeepTheirShape()
{
    QPixmap half(16, 16);
    half.fill(Qt::transparent);
    QPainter painter(&half);
    painter.fillRect(0, 0, 8, 16, Qt::black);
    painter.end();

    const QImage image = QIcon(half).pixmap(16, 16, QIcon::Selected).toImage();

    QCOMPARE(image.pixelColor(4, 8).alpha(), 255);
    QCOMPARE(image.pixelColor(12, 8).alpha(), 0);
}

void TestThemeStyle::iconsInSelectedRowsAreNotLost()
{
    const QColor highlight = QApplication::palette().color(QPalette::Highlight);
    for (const QColor &colour : {highlight, QColor(Qt::black), QColor(Qt::white)}) {
        QPixmap lost(16, 16);
        lost.fill(colour);

        const QImage image = QIcon(lost).pixmap(16, 16, QIcon::Selected).toImage();

        QVERIFY2(Contrast::ratio(image.pixelColor(8, 8), highlight) >= Contrast::SIGN,
                 qPrintable(colour.name()));
        // Towards the text beside it.
        QVERIFY(image.pixelColor(8, 8).lightness() > highlight.lightness());
    }
}

void TestThemeStyle::buttonsOfTitleBarsAreSeen_data()
{
    QTest::addColumn<bool>("active");
    QTest::newRow("of the active window") << true;
    QTest::newRow("of another window") << false;
}

void TestThemeStyle::buttonsOfTitleBarsAreSeen()
{
    QFETCH(const bool, active);
    const QStyle *style = QApplication::style();
    const QStyleOptionTitleBar bar = titleBar(active);
    const QImage image = drawn(bar);

    for (const auto button : {QStyle::SC_TitleBarMinButton, QStyle::SC_TitleBarMaxButton,
                              QStyle::SC_TitleBarCloseButton}) {
        const QRect rect = style->subControlRect(QStyle::CC_TitleBar, &bar, button, nullptr);
        QVERIFY(rect.isValid());
        // The ground in a corner, where no sign is.
        const QColor ground = image.pixelColor(rect.topLeft() + QPoint(1, 1));
        QVERIFY(strongest(image, rect.adjusted(2, 2, -2, -2), ground) >= Contrast::SIGN);
    }
}

void TestThemeStyle::theIconOfAnActiveWindowIsSeen()
{
    QStyleOptionTitleBar bar = titleBar(true);
    const QColor highlight = bar.palette.color(QPalette::Highlight);
    QPixmap lost(16, 16);
    lost.fill(highlight);
    bar.icon = QIcon(lost);
    const QRect place = QApplication::style()->subControlRect(QStyle::CC_TitleBar, &bar,
                                                              QStyle::SC_TitleBarSysMenu, nullptr);

    const QImage image = drawn(bar);

    QVERIFY(Contrast::ratio(image.pixelColor(place.center()), highlight) >= Contrast::SIGN);
}

void TestThemeStyle::signsOfSmallButtonsAreSeen_data()
{
    QTest::addColumn<QStyle::StandardPixmap>("sign");
    QTest::newRow("more of a bar") << QStyle::SP_ToolBarHorizontalExtensionButton;
    QTest::newRow("more of an upright bar") << QStyle::SP_ToolBarVerticalExtensionButton;
    QTest::newRow("close a dock") << QStyle::SP_TitleBarCloseButton;
    QTest::newRow("minimise a window") << QStyle::SP_TitleBarMinButton;
    QTest::newRow("maximise a window") << QStyle::SP_TitleBarMaxButton;
    QTest::newRow("float a dock") << QStyle::SP_TitleBarNormalButton;
}

void TestThemeStyle::signsOfSmallButtonsAreSeen()
{
    QFETCH(const QStyle::StandardPixmap, sign);
    const QIcon icon = QApplication::style()->standardIcon(sign);
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(windowColour());
    QPainter painter(&image);

    icon.paint(&painter, image.rect());

    painter.end();
    QVERIFY(strongest(image, image.rect(), windowColour()) >= 4.5);
    QCOMPARE(icon.actualSize(QSize(16, 16)), QSize(10, 10));
}

QTEST_MAIN(TestThemeStyle)
#include "tst_themestyle.moc"
