// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "documenttabbar_p.h"

#include <utils/mdisubwindow.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QIcon>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleOptionTab>
#include <QTextDocument>
#include <QToolButton>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

namespace Utils {

namespace {
constexpr int buttonSize = 16;
// What styles leave beside what a tab holds.
constexpr int spacing = 4;
constexpr int minimumTitleChars = 8;
constexpr int maximumTitleChars = 32;

QString textOfTab(const QString &title, bool modified)
{
    QString text = title;
    text.replace(QLatin1Char('&'), QLatin1String("&&"));
    if (modified)
        text += QLatin1Char('*');
    return text;
}
} // namespace

DocumentTabBar::DocumentTabBar(QWidget *parent)
    : QTabBar(parent)
{
    setObjectName(QStringLiteral("documentTabBar"));
    setAccessibleName(tr("Open documents"));
    setDocumentMode(true);
    setDrawBase(false);
    setExpanding(false);
    setElideMode(Qt::ElideRight);
    setUsesScrollButtons(true);
    setMouseTracking(true);
    connect(this, &QTabBar::currentChanged, this, &DocumentTabBar::onCurrentChanged);
    connect(this, &QTabBar::tabMoved, this, &DocumentTabBar::onTabMoved);
}

MdiSubWindow *DocumentTabBar::documentAt(int index) const
{
    return index >= 0 && index < m_tabs.size() ? m_tabs.at(index).window : nullptr;
}

int DocumentTabBar::indexOfDocument(const MdiSubWindow *window) const
{
    const auto it = std::find_if(m_tabs.cbegin(), m_tabs.cend(),
                                 [window](const Tab &tab) { return tab.window == window; });
    return it == m_tabs.cend() ? -1 : static_cast<int>(it - m_tabs.cbegin());
}

QVector<MdiSubWindow *> DocumentTabBar::documents() const
{
    QVector<MdiSubWindow *> windows;
    windows.reserve(m_tabs.size());
    for (const Tab &tab : m_tabs)
        windows.append(tab.window);
    return windows;
}

QRect DocumentTabBar::closeButtonRect(int index) const
{
    const QRect tab = tabRect(index);
    const QRect place(tab.right() - 6 - buttonSize, tab.center().y() - buttonSize / 2 + 1,
                      buttonSize, buttonSize);
    return QStyle::visualRect(layoutDirection(), tab, place);
}

void DocumentTabBar::addDocument(MdiSubWindow *window)
{
    m_internal = true;
    const QString title = window->shortTitle();
    const bool modified = window->isDocumentModified();
    // Known before the tab exists: adding it asks for its size.
    m_tabs.append({window, title, modified});
    addTab(window->documentIcon(), textOfTab(title, modified));
    m_internal = false;
}

void DocumentTabBar::removeDocument(const MdiSubWindow *window)
{
    const int index = indexOfDocument(window);
    if (index < 0)
        return;
    m_internal = true;
    m_tabs.removeAt(index);
    m_hoveredClose = m_pressedClose = m_pressedMiddle = -1;
    m_dragging = false;
    removeTab(index);
    m_internal = false;
}

void DocumentTabBar::setCurrentDocument(const MdiSubWindow *window)
{
    m_internal = true;
    setCurrentIndex(indexOfDocument(window));
    m_internal = false;
}

void DocumentTabBar::updateDocument(MdiSubWindow *window)
{
    const int index = indexOfDocument(window);
    if (index < 0)
        return;
    Tab &tab = m_tabs[index];
    const QString title = window->shortTitle();
    const bool modified = window->isDocumentModified();
    if (title != tab.title || modified != tab.modified) {
        tab.title = title;
        tab.modified = modified;
        tab.forgetMeasures();
        setTabText(index, textOfTab(title, modified));
    }
    const QIcon icon = window->documentIcon();
    if (icon.cacheKey() != tabIcon(index).cacheKey()) {
        tab.forgetMeasures();
        setTabIcon(index, icon);
    }
}

QSize DocumentTabBar::tabSizeHint(int index) const
{
    // The base asks for every tab on every change of any.
    const Tab &tab = m_tabs.at(index);
    if (tab.width == 0) {
        // As QTabBar::tabSizeHint() does, which keeps every title there ever was.
        QStyleOptionTab option;
        initTabLook(&option, index);
        const int text = fontMetrics().size(Qt::TextShowMnemonic, tabText(index)).width();
        // Neither too small to hit beside its button nor all there is to see.
        const int character = fontMetrics().averageCharWidth();
        const int room = qBound(character * minimumTitleChars, text, character * maximumTitleChars);
        const QSize icon = option.icon.isNull() ? QSize(0, 0) : option.iconSize + QSize(spacing, 0);
        const QSize contents(room + icon.width()
                                 + style()->pixelMetric(QStyle::PM_TabBarTabHSpace, &option, this),
                             std::max(fontMetrics().height(), icon.height())
                                 + style()->pixelMetric(QStyle::PM_TabBarTabVSpace, &option, this));
        const QSize size = style()->sizeFromContents(QStyle::CT_TabBarTab, &option, contents, this);
        tab.width = size.width() + spacing + buttonSize;
        m_height = std::max({m_height, size.height(), buttonSize + 8});
    }
    return {tab.width, m_height};
}

QSize DocumentTabBar::sizeHint() const
{
    if (m_tabs.isEmpty())
        return QTabBar::sizeHint();
    // It is given the whole width, and all tabs are of one height; the base would
    // measure every tab, and is asked several times for each document opened.
    return tabSizeHint(m_tabs.size() - 1);
}

QSize DocumentTabBar::minimumTabSizeHint(int index) const
{
    return tabSizeHint(index);
}

void DocumentTabBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        m_height = 0;
        for (Tab &tab : m_tabs)
            tab.forgetMeasures();
    }
    QTabBar::changeEvent(event);
}

void DocumentTabBar::contextMenuEvent(QContextMenuEvent *event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const int index = byKey ? currentIndex() : tabAt(event->pos());
    if (MdiSubWindow *window = documentAt(index)) {
        const QPoint pos = byKey ? tabRect(index).bottomLeft() : event->pos();
        Q_EMIT menuRequested(window, mapToGlobal(pos));
    }
    event->accept();
}

bool DocumentTabBar::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const int index = tabAt(help->pos());
        if (const MdiSubWindow *window = documentAt(index)) {
            QString text = window->fullTitle();
            if (Qt::mightBeRichText(text))
                text = Qt::convertFromPlainText(text, Qt::WhiteSpaceNoWrap);
            QToolTip::showText(help->globalPos(), text, this, tabRect(index));
        } else {
            QToolTip::hideText();
        }
        return true;
    }
    return QTabBar::event(event);
}

void DocumentTabBar::keyPressEvent(QKeyEvent *event)
{
    MdiSubWindow *window = documentAt(currentIndex());
    switch (event->key()) {
    case Qt::Key_Delete:
        if (window)
            Q_EMIT closeRequested(window);
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_Escape:
        if (window)
            Q_EMIT documentChosen(window, false);
        return;
    default:
        m_byKey = true;
        QTabBar::keyPressEvent(event);
        m_byKey = false;
    }
}

void DocumentTabBar::leaveEvent(QEvent *event)
{
    setHovered(QPoint(-1, -1));
    QTabBar::leaveEvent(event);
}

void DocumentTabBar::mouseMoveEvent(QMouseEvent *event)
{
    setHovered(event->pos());
    if (event->buttons() == Qt::LeftButton && m_pressedClose < 0) {
        if (!m_dragging && tabAt(m_pressPos) >= 0
            && (event->pos() - m_pressPos).manhattanLength() > QApplication::startDragDistance())
            m_dragging = true;
        if (m_dragging)
            drag(event->pos());
    }
    QTabBar::mouseMoveEvent(event);
}

void DocumentTabBar::mousePressEvent(QMouseEvent *event)
{
    const int index = tabAt(event->pos());
    m_pressPos = event->pos();
    m_dragging = false;
    m_pressedClose = m_pressedMiddle = -1;
    if (event->button() == Qt::MiddleButton) {
        m_pressedMiddle = index;
        event->accept();
        return;
    }
    if (event->button() == Qt::LeftButton && index >= 0) {
        if (closeButtonRect(index).contains(event->pos())) {
            m_pressedClose = index;
            update(tabRect(index));
            event->accept();
            return;
        }
        if (index == currentIndex())
            Q_EMIT documentChosen(documentAt(index), false);
    }
    QTabBar::mousePressEvent(event);
}

void DocumentTabBar::mouseReleaseEvent(QMouseEvent *event)
{
    const int index = tabAt(event->pos());
    const int pressedClose = m_pressedClose;
    const int pressedMiddle = m_pressedMiddle;
    m_pressedClose = m_pressedMiddle = -1;
    m_dragging = false;
    QTabBar::mouseReleaseEvent(event);
    if (index < 0)
        return;
    const bool closeHit = event->button() == Qt::LeftButton && index == pressedClose
                          && closeButtonRect(index).contains(event->pos());
    const bool middleHit = event->button() == Qt::MiddleButton && index == pressedMiddle;
    update(tabRect(index));
    // Last, because closing may show a dialog or destroy this bar.
    if (closeHit || middleHit)
        Q_EMIT closeRequested(documentAt(index));
}

void DocumentTabBar::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    // Filled rather than drawn, here and in a tab: Qt sets the pixels of a line one by one.
    painter.fillRect(0, height() - 1, width(), 1, palette().color(QPalette::Mid));
    for (int i = 0; i < m_tabs.size(); ++i) {
        if (tabRect(i).intersects(event->rect()))
            paintTab(painter, i);
    }
}

void DocumentTabBar::wheelEvent(QWheelEvent *event)
{
    // Scrolls rather than chooses: a stray turn must not change the document.
    const QPoint angle = event->angleDelta();
    const int sideways = layoutDirection() == Qt::LeftToRight ? angle.x() : -angle.x();
    m_turned += angle.y() != 0 ? angle.y() : sideways;
    event->accept();
    // A notch at a time, however finely the device tells of it.
    const int notches = m_turned / QWheelEvent::DefaultDeltasPerStep;
    m_turned %= QWheelEvent::DefaultDeltasPerStep;
    auto *button = findChild<QToolButton *>(notches > 0 ? QStringLiteral("ScrollLeftButton")
                                                        : QStringLiteral("ScrollRightButton"));
    if (!button || !button->isVisible())
        return;
    for (int i = 0; i < std::abs(notches); ++i)
        button->click();
}

void DocumentTabBar::initTabLook(QStyleOptionTab *option, int index) const
{
    // As initStyleOption() does, which would cut every title anew.
    option->initFrom(this);
    option->state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    if (index == currentIndex())
        option->state |= QStyle::State_Selected;
    option->shape = shape();
    option->documentMode = documentMode();
    option->icon = tabIcon(index);
    option->iconSize = iconSize();
}

void DocumentTabBar::initTabOption(QStyleOptionTab *option, int index) const
{
    initTabLook(option, index);
    option->rect = tabRect(index);
    option->rightButtonSize = QSize(buttonSize, buttonSize);
    const Tab &tab = m_tabs.at(index);
    const int room = style()->subElementRect(QStyle::SE_TabBarTabText, option, this).width();
    if (tab.room != room) {
        // The mark stays in sight where the title is cut.
        const int mark = tab.modified ? fontMetrics().horizontalAdvance(QLatin1Char('*')) : 0;
        const QString title = fontMetrics().elidedText(tab.title, elideMode(), room - mark);
        tab.text = textOfTab(title, tab.modified);
        tab.room = room;
    }
    option->text = tab.text;
}

void DocumentTabBar::paintTab(QPainter &painter, int index) const
{
    // Flat, in the colours of the palette: a style's own tabs cost more to paint
    // than the rest of a small document.
    QStyleOptionTab option;
    initTabOption(&option, index);
    const QRect rect = option.rect;
    const bool isCurrent = index == currentIndex();
    if (isCurrent) {
        painter.fillRect(rect, palette().brush(QPalette::Base));
        painter.fillRect(rect.left(), rect.top(), rect.width(), 2,
                         palette().brush(hasFocus() ? QPalette::Link : QPalette::Highlight));
    }
    const QColor edge = palette().color(QPalette::Mid);
    const int inset = isCurrent ? 0 : 5;
    painter.fillRect(rect.right(), rect.top() + inset, 1, rect.height() - 2 * inset, edge);
    if (isCurrent)
        painter.fillRect(rect.left(), rect.top(), 1, rect.height(), edge);

    QRect room = style()->subElementRect(QStyle::SE_TabBarTabText, &option, this);
    if (!option.icon.isNull()) {
        QRect place(QPoint(), option.iconSize);
        place.moveCenter(rect.center());
        place.moveRight(QStyle::visualRect(layoutDirection(), rect, room).left() - spacing - 1);
        option.icon.paint(&painter, QStyle::visualRect(layoutDirection(), rect, place));
    }
    const QPalette::ColorRole role = isCurrent ? QPalette::Text : QPalette::WindowText;
    style()->drawItemText(&painter, room, Qt::AlignCenter | Qt::TextShowMnemonic, palette(),
                          isEnabled(), option.text, role);
    if (isCurrent && hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = rect.adjusted(3, 4, -3, -3);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }

    paintCloseButton(painter, index);
}

void DocumentTabBar::paintCloseButton(QPainter &painter, int index) const
{
    // Drawn, because the image that styles have for it is lost on dark colours.
    const QRect button = closeButtonRect(index);
    const bool hovered = index == m_hoveredClose;
    QColor colour =
        palette().color(index == currentIndex() ? QPalette::Text : QPalette::WindowText);
    if (hovered) {
        QColor back = colour;
        back.setAlphaF(index == m_pressedClose ? 0.35 : 0.18);
        painter.fillRect(button, back);
    } else {
        colour.setAlphaF(0.6);
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.4));
    const QRectF cross = QRectF(button).adjusted(4.5, 4.5, -4.5, -4.5);
    painter.drawLine(cross.topLeft(), cross.bottomRight());
    painter.drawLine(cross.topRight(), cross.bottomLeft());
    painter.restore();
}

void DocumentTabBar::onCurrentChanged(int index)
{
    MdiSubWindow *window = documentAt(index);
    if (!m_internal && window)
        Q_EMIT documentChosen(window, m_byKey);
}

void DocumentTabBar::onTabMoved(int from, int to)
{
    m_tabs.move(from, to);
}

void DocumentTabBar::drag(const QPoint &pos)
{
    const int index = currentIndex();
    const int other = tabAt(QPoint(pos.x(), height() / 2));
    if (other < 0 || other == index)
        return;
    // Only when the dragged tab then lies under the mouse, or tabs of different
    // widths would jump to and fro.
    const int width = tabRect(index).width();
    const QRect target = tabRect(other);
    const bool after = other > index;
    const int mouse = pos.x();
    const bool leftward = mouse < target.left() + width;
    const bool rightward = mouse > target.right() - width;
    if (layoutDirection() == Qt::LeftToRight ? (after ? rightward : leftward)
                                             : (after ? leftward : rightward))
        moveTab(index, other);
}

void DocumentTabBar::setHovered(const QPoint &pos)
{
    int hovered = rect().contains(pos) ? tabAt(pos) : -1;
    if (hovered >= 0 && !closeButtonRect(hovered).contains(pos))
        hovered = -1;
    if (hovered == m_hoveredClose)
        return;
    m_hoveredClose = hovered;
    update();
}

} // namespace Utils
