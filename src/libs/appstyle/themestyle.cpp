// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "appstyle/themestyle_p.h"

#include "appstyle/contrast_p.h"
#include "appstyle/frametile_p.h"
#include "appstyle/themesigns_p.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPainter>
#include <QPixmap>
#include <QStyleOption>

#include <utility>

namespace APPSTYLE {

namespace {

QColor mixed(const QColor &one, const QColor &other, double part)
{
    const auto mix = [part](int a, int b) { return qRound(a + (b - a) * part); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()),
            mix(one.blue(), other.blue())};
}

/// The edge of what would not be known for a control without it.
QColor edge(const QStyleOption *option)
{
    const QPalette &palette = option->palette;
    const bool enabled = option->state & QStyle::State_Enabled;
    return mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText),
                 enabled ? 0.6 : 0.5);
}

QColor indicatorGround(const QStyleOption *option)
{
    const QPalette &palette = option->palette;
    if (!(option->state & QStyle::State_Enabled))
        return palette.color(QPalette::Window);
    const QColor base = palette.color(QPalette::Base);
    return option->state & QStyle::State_Sunken ? mixed(base, palette.color(QPalette::Text), 0.2)
                                                : base;
}

QRectF indicatorRect(const QStyleOption *option)
{
    const int side = qMin(option->rect.width(), option->rect.height());
    QRect square(0, 0, side, side);
    square.moveCenter(option->rect.center());
    return QRectF(square).adjusted(0.5, 0.5, -0.5, -0.5);
}

QPen indicatorPen(const QStyleOption *option)
{
    const bool hovered =
        (option->state & QStyle::State_Enabled) && (option->state & QStyle::State_MouseOver);
    return {hovered ? option->palette.color(QPalette::Link) : edge(option), 1};
}

void drawCheckBox(const QStyleOption *option, QPainter *painter)
{
    const QRectF box = indicatorRect(option);
    painter->setPen(indicatorPen(option));
    painter->setBrush(indicatorGround(option));
    painter->drawRoundedRect(box, 2, 2);
    const QColor mark = option->palette.color(QPalette::Text);
    const double unit = box.width() / 12;
    if (option->state & QStyle::State_NoChange) {
        painter->fillRect(QRectF(box.center() - QPointF(3, 1) * unit, QSizeF(6, 2) * unit), mark);
    } else if (option->state & QStyle::State_On) {
        painter->setPen(QPen(mark, 1.8 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF tick[] = {box.topLeft() + QPointF(2.8, 6.2) * unit,
                                box.topLeft() + QPointF(5.1, 8.6) * unit,
                                box.topLeft() + QPointF(9.3, 3.6) * unit};
        painter->drawPolyline(tick, 3);
    }
}

void drawRadioButton(const QStyleOption *option, QPainter *painter)
{
    const QRectF circle = indicatorRect(option);
    painter->setPen(indicatorPen(option));
    painter->setBrush(indicatorGround(option));
    painter->drawEllipse(circle);
    if (option->state & QStyle::State_On) {
        const double inset = circle.width() * 0.28;
        painter->setPen(Qt::NoPen);
        painter->setBrush(option->palette.brush(QPalette::Text));
        painter->drawEllipse(circle.adjusted(inset, inset, -inset, -inset));
    }
}

void drawFocus(const QStyleOption *option, QPainter *painter)
{
    if (!(option->state & QStyle::State_KeyboardFocusChange))
        return;
    painter->setPen(option->palette.color(QPalette::Link));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
}

void drawToolTip(const QStyleOption *option, QPainter *painter)
{
    const QColor ground = option->palette.color(QPalette::ToolTipBase);
    painter->setPen(mixed(ground, option->palette.color(QPalette::ToolTipText), 0.4));
    painter->setBrush(ground);
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
}

/// What parts menus from what is beside them, and their entries from one another.
QColor menuLine(const QStyleOption *option)
{
    return mixed(option->palette.color(QPalette::Window),
                 option->palette.color(QPalette::WindowText), 0.3);
}

void drawMenuPanel(const QStyleOption *option, QPainter *painter)
{
    painter->setPen(menuLine(option));
    painter->setBrush(option->palette.color(QPalette::Base));
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
}

/// On light ground Fusion's own frame is seen.
bool isDark(const QStyleOption *option)
{
    return option->palette.color(QPalette::Window).lightness() < 128;
}

void drawFieldFrame(const QStyleOption *option, QPainter *painter)
{
    const bool focused =
        (option->state & QStyle::State_Enabled) && (option->state & QStyle::State_HasFocus);
    painter->setPen(focused ? option->palette.color(QPalette::Highlight) : edge(option));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
}

/// Marks the current tab with a bar along the side that is away from its page.
void markCurrentTab(const QStyleOptionTab *tab, QPainter *painter)
{
    constexpr int width = 2;
    QRect bar = tab->rect;
    switch (tab->shape) {
    case QTabBar::RoundedNorth:
    case QTabBar::TriangularNorth:
        bar.setHeight(width);
        break;
    case QTabBar::RoundedSouth:
    case QTabBar::TriangularSouth:
        bar.setTop(bar.bottom() - width + 1);
        break;
    case QTabBar::RoundedWest:
    case QTabBar::TriangularWest:
        bar.setWidth(width);
        break;
    case QTabBar::RoundedEast:
    case QTabBar::TriangularEast:
        bar.setLeft(bar.right() - width + 1);
        break;
    }
    painter->fillRect(bar, tab->palette.brush(QPalette::Highlight));
}

/// From which Fusion makes the colour of a window for the pages of tabs, not one so
/// light that links and warnings cannot be read on it.
QPalette pagePalette(const QStyleOption *option)
{
    QPalette palette(option->palette);
    palette.setColor(QPalette::Button, palette.color(QPalette::Window).darker(127));
    return palette;
}

/// @p icon as it stands on the highlight of @p widget.
QIcon onHighlight(const QIcon &icon, const QSize &size, QIcon::State state, const QWidget *widget)
{
    return {icon.pixmap(widget ? widget->window()->windowHandle() : nullptr, size, QIcon::Selected,
                        state)};
}

/// The window cuts its end off before the style sees it.
QString wholeTitle(const QStyleOptionTitleBar *bar, const QWidget *widget)
{
    if (!qobject_cast<const QMdiSubWindow *>(widget))
        return bar->text;
    return widget->windowTitle().replace(QLatin1String("[*]"),
                                         QLatin1String(widget->isWindowModified() ? "*" : ""));
}

constexpr QStyle::SubControls TITLE_BUTTONS =
    QStyle::SubControls(QStyle::SC_TitleBarMinButton) | QStyle::SC_TitleBarMaxButton
    | QStyle::SC_TitleBarNormalButton | QStyle::SC_TitleBarCloseButton;

struct TitleSign
{
    QStyle::SubControl control;
    QStyle::StandardPixmap sign;
};
constexpr TitleSign TITLE_SIGNS[] = {
    {QStyle::SC_TitleBarMinButton, QStyle::SP_TitleBarMinButton},
    {QStyle::SC_TitleBarMaxButton, QStyle::SP_TitleBarMaxButton},
    {QStyle::SC_TitleBarNormalButton, QStyle::SP_TitleBarNormalButton},
    {QStyle::SC_TitleBarCloseButton, QStyle::SP_TitleBarCloseButton}};

} // namespace

ThemeStyle::ThemeStyle()
    : QProxyStyle(QStringLiteral("fusion"))
{
    // By which it is told what the style is.
    setObjectName(QStringLiteral("fusion"));
}

ThemeStyle::~ThemeStyle() = default;

void ThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                    QPainter *painter, const QWidget *widget) const
{
    const auto *bar =
        control == CC_TitleBar ? qstyleoption_cast<const QStyleOptionTitleBar *>(option) : nullptr;
    if (!bar) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        const auto *spin = control == CC_SpinBox && isDark(option)
                               ? qstyleoption_cast<const QStyleOptionSpinBox *>(option)
                               : nullptr;
        // Beside the fields it would look like a text.
        if (spin && spin->frame) {
            painter->save();
            painter->setRenderHint(QPainter::Antialiasing);
            drawFieldFrame(spin, painter);
            painter->restore();
        }
        return;
    }
    // Fusion draws the buttons of a window that is not active in black, the icon of the
    // active one as it is, puts a shadow of the text's colour under the title, and cuts
    // the name off the end of a path.
    const bool active = bar->titleBarState & State_Active;
    QStyleOptionTitleBar plain(*bar);
    plain.subControls &= ~TITLE_BUTTONS;
    if (active) {
        plain.palette.setColor(QPalette::Text, bar->palette.color(QPalette::Highlight).darker(120));
        const QRect place = subControlRect(CC_TitleBar, bar, SC_TitleBarSysMenu, widget);
        plain.icon = onHighlight(bar->icon, place.size(), QIcon::Off, widget);
    }
    const QRect label = subControlRect(CC_TitleBar, bar, SC_TitleBarLabel, widget);
    plain.text = painter->fontMetrics().elidedText(wholeTitle(bar, widget), Qt::ElideMiddle,
                                                   label.width() - 20);
    QProxyStyle::drawComplexControl(control, &plain, painter, widget);
    for (const TitleSign &button : TITLE_SIGNS) {
        const QRect rect = subControlRect(CC_TitleBar, bar, button.control, widget);
        if (!(bar->subControls & button.control) || !rect.isValid())
            continue;
        const QColor colour =
            bar->palette.color(active ? QPalette::HighlightedText : QPalette::WindowText);
        if (bar->activeSubControls & button.control) {
            QColor ground = colour;
            ground.setAlphaF(bar->state & State_Sunken ? 0.35 : 0.2);
            painter->fillRect(rect, ground);
        }
        paintThemeSign(painter, rect, button.sign, colour);
    }
}

void ThemeStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                             const QWidget *widget) const
{
    const auto *entry = element == CE_MenuItem && isDark(option)
                            ? qstyleoption_cast<const QStyleOptionMenuItem *>(option)
                            : nullptr;
    if (entry && entry->menuItemType == QStyleOptionMenuItem::Separator && entry->text.isEmpty()) {
        painter->fillRect(
            QRect(entry->rect.left() + 5, entry->rect.center().y(), entry->rect.width() - 10, 1),
            menuLine(entry));
        return;
    }
    if (element == CE_MenuItem && (option->state & State_Selected)
        && (option->state & State_Enabled)) {
        // Fusion draws the icon as it is, on the highlight as on the menu.
        const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
        if (item && !item->icon.isNull()) {
            const int size = pixelMetric(PM_SmallIconSize, option, widget);
            QStyleOptionMenuItem selected(*item);
            selected.icon = onHighlight(item->icon, QSize(size, size),
                                        item->checked ? QIcon::On : QIcon::Off, widget);
            QProxyStyle::drawControl(element, &selected, painter, widget);
            return;
        }
    }
    if (element == CE_ProgressBarContents) {
        // Fusion makes it lighter than the text on it can bear.
        const auto *bar = qstyleoption_cast<const QStyleOptionProgressBar *>(option);
        if (bar) {
            QStyleOptionProgressBar darker(*bar);
            darker.palette.setColor(QPalette::Highlight,
                                    bar->palette.color(QPalette::Highlight).darker(120));
            QProxyStyle::drawControl(element, &darker, painter, widget);
            return;
        }
    }
    const auto *tab = element == CE_TabBarTabShape && (option->state & State_Selected)
                          ? qstyleoption_cast<const QStyleOptionTab *>(option)
                          : nullptr;
    if (!tab) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    QStyleOptionTab current(*tab);
    if (isDark(tab))
        current.palette = pagePalette(tab);
    QProxyStyle::drawControl(element, &current, painter, widget);
    markCurrentTab(tab, painter);
}

void ThemeStyle::drawItemText(QPainter *painter, const QRect &rect, int flags,
                              const QPalette &palette, bool enabled, const QString &text,
                              QPalette::ColorRole role) const
{
    if (enabled && role == QPalette::WindowText) {
        const QColor &given = palette.color(role);
        const QColor shown = readable(given, palette.color(QPalette::Window), TEXT_CONTRAST);
        if (shown != given) {
            QPalette changed(palette);
            changed.setColor(role, shown);
            QProxyStyle::drawItemText(painter, rect, flags, changed, enabled, text, role);
            return;
        }
    }
    QProxyStyle::drawItemText(painter, rect, flags, palette, enabled, text, role);
}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                               QPainter *painter, const QWidget *widget) const
{
    const auto *field = element == PE_FrameLineEdit
                            ? qstyleoption_cast<const QStyleOptionFrame *>(option)
                            : nullptr;
    const auto paintFrame = [this, field, widget](QPainter *tile, const QRect &rect) {
        QStyleOptionFrame part(*field);
        part.rect = rect;
        drawPrimitiveItself(PE_FrameLineEdit, &part, tile, widget);
    };
    if (!field || !drawTiledFrame(painter, field, paintFrame))
        drawPrimitiveItself(element, option, painter, widget);
}

void ThemeStyle::drawPrimitiveItself(PrimitiveElement element, const QStyleOption *option,
                                     QPainter *painter, const QWidget *widget) const
{
    void (*draw)(const QStyleOption *, QPainter *) = nullptr;
    switch (element) {
    case PE_IndicatorCheckBox:
        draw = drawCheckBox;
        break;
    case PE_IndicatorRadioButton:
        draw = drawRadioButton;
        break;
    case PE_FrameFocusRect:
        draw = drawFocus;
        break;
    case PE_PanelTipLabel:
        draw = drawToolTip;
        break;
    case PE_PanelMenu:
        draw = isDark(option) ? drawMenuPanel : nullptr;
        break;
    case PE_FrameLineEdit:
        draw = isDark(option) ? drawFieldFrame : nullptr;
        break;
    default:
        break;
    }
    const auto *page = element == PE_FrameTabWidget && isDark(option)
                           ? qstyleoption_cast<const QStyleOptionTabWidgetFrame *>(option)
                           : nullptr;
    if (page) {
        QStyleOptionTabWidgetFrame frame(*page);
        frame.palette = pagePalette(page);
        QProxyStyle::drawPrimitive(element, &frame, painter, widget);
        return;
    }
    if (!draw) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing,
                           element != PE_PanelTipLabel && element != PE_PanelMenu);
    draw(option, painter);
    painter->restore();
}

void ThemeStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (!qobject_cast<QFileDialog *>(widget))
        return;
    for (const auto &[labelName, listName] :
         {std::pair{"lookInLabel", "lookInCombo"}, std::pair{"fileTypeLabel", "fileTypeCombo"}}) {
        auto *const label = widget->findChild<QLabel *>(QLatin1String(labelName));
        auto *const list = widget->findChild<QComboBox *>(QLatin1String(listName));
        if (label && list && !label->buddy())
            label->setBuddy(list);
    }
}

QIcon ThemeStyle::standardIcon(StandardPixmap picture, const QStyleOption *option,
                               const QWidget *widget) const
{
    const QIcon sign = themeSign(picture);
    return sign.isNull() ? QProxyStyle::standardIcon(picture, option, widget) : sign;
}

int ThemeStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                          QStyleHintReturn *returned) const
{
    // The desktop's icons on buttons follow the desktop's theme, not this one.
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    // A second, shifted text makes disabled entries of menus look blurred.
    if (hint == SH_EtchDisabledText)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

QPixmap ThemeStyle::generatedIconPixmap(QIcon::Mode mode, const QPixmap &pixmap,
                                        const QStyleOption *option) const
{
    if (mode != QIcon::Selected)
        return QProxyStyle::generatedIconPixmap(mode, pixmap, option);
    // Nearly the colour of the text beside it: what is left of its own keeps the parts
    // apart, and stands out from the highlight whatever it was.
    QPixmap shown = pixmap;
    QColor text = option->palette.color(QPalette::HighlightedText);
    text.setAlphaF(0.85);
    QPainter painter(&shown);
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.fillRect(QRectF({}, QSizeF(shown.size()) / shown.devicePixelRatio()), text);
    return shown;
}

} // namespace APPSTYLE
