// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/foreignform_p.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QBoxLayout>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSet>
#include <QTabBar>
#include <QTabWidget>
#include <QTextDocument>
#include <QTextEdit>
#include <QVector>

#include <algorithm>
#include <utility>

namespace TextEditor {

namespace {

/// Two "&" stand for one that is written.
QString withoutLetter(QString text)
{
    for (int i = 0; i + 1 < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('&'))
            continue;
        if (text.at(i + 1) != QLatin1Char('&'))
            text.remove(i, 1);
        else
            ++i;
    }
    return text;
}

/// Without the colon that asks for what comes behind, too.
QString plain(QString text)
{
    text = withoutLetter(text).replace(QLatin1String("&&"), QLatin1String("&")).simplified();
    while (text.endsWith(QLatin1Char(':')) || text.endsWith(QChar(0xff1a)))
        text.chop(1);
    return text.trimmed();
}

QString textOf(QWidget *widget)
{
    if (const auto *label = qobject_cast<QLabel *>(widget))
        return plain(label->text());
    if (const auto *button = qobject_cast<QAbstractButton *>(widget))
        return plain(button->text());
    return {};
}

bool isControl(const QWidget *widget)
{
    const QWidget *const parent = widget->parentWidget();
    // Boxes speak for their parts.
    if (qobject_cast<const QComboBox *>(parent) || qobject_cast<const QAbstractSpinBox *>(parent)
        || qobject_cast<const QAbstractItemView *>(parent) || qobject_cast<const QTabBar *>(parent)
        || qobject_cast<const QScrollBar *>(widget)) {
        return false;
    }
    return qobject_cast<const QComboBox *>(widget) || qobject_cast<const QAbstractSpinBox *>(widget)
           || qobject_cast<const QAbstractSlider *>(widget)
           || qobject_cast<const QAbstractButton *>(widget)
           || qobject_cast<const QAbstractItemView *>(widget)
           || qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QTextEdit *>(widget)
           || qobject_cast<const QTabBar *>(widget);
}

/// The layout that holds @p item itself.
QLayout *layoutAround(QLayout *layout, const QWidget *item)
{
    for (int i = 0; layout && i < layout->count(); ++i) {
        if (layout->itemAt(i)->widget() == item)
            return layout;
        if (QLayout *const found = layoutAround(layout->itemAt(i)->layout(), item))
            return found;
    }
    return nullptr;
}

QString textOfItem(QLayoutItem *item)
{
    if (!item)
        return {};
    if (item->widget())
        return textOf(item->widget());
    // The last text of a row within the row.
    QString text;
    for (int i = 0; item->layout() && i < item->layout()->count(); ++i) {
        const QString inner = textOfItem(item->layout()->itemAt(i));
        if (!inner.isEmpty())
            text = inner;
    }
    return text;
}

int placeIn(const QLayout *layout, const QWidget *widget, const QLayout *inner)
{
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *const item = layout->itemAt(i);
        if ((widget && item->widget() == widget) || (inner && item->layout() == inner))
            return i;
    }
    return -1;
}

QString textBefore(QLayout *layout, int place)
{
    if (auto *const form = qobject_cast<QFormLayout *>(layout)) {
        int row = -1;
        QFormLayout::ItemRole role = QFormLayout::FieldRole;
        form->getItemPosition(place, &row, &role);
        return role == QFormLayout::FieldRole
                   ? textOfItem(form->itemAt(row, QFormLayout::LabelRole))
                   : QString();
    }
    if (auto *const grid = qobject_cast<QGridLayout *>(layout)) {
        int row = 0;
        int column = 0;
        int rows = 1;
        int columns = 1;
        grid->getItemPosition(place, &row, &column, &rows, &columns);
        for (int left = column - 1; left >= 0; --left) {
            const QString text = textOfItem(grid->itemAtPosition(row, left));
            if (!text.isEmpty())
                return text;
        }
        return {};
    }
    for (int i = place - 1; i >= 0; --i) {
        const QString text = textOfItem(layout->itemAt(i));
        if (!text.isEmpty())
            return text;
    }
    return {};
}

/// What is written beside or before @p control, or before the rows it lies in.
QString textBeside(const QWidget *control)
{
    for (const QWidget *widget = control; widget->parentWidget(); widget = widget->parentWidget()) {
        QLayout *layout = layoutAround(widget->parentWidget()->layout(), widget);
        const QWidget *item = widget;
        const QLayout *inner = nullptr;
        while (layout) {
            const QString text = textBefore(layout, placeIn(layout, item, inner));
            if (!text.isEmpty())
                return text;
            item = nullptr;
            inner = layout;
            layout = qobject_cast<QLayout *>(layout->parent());
        }
        if (const auto *group = qobject_cast<const QGroupBox *>(widget->parentWidget());
            group && !group->title().isEmpty()) {
            return plain(group->title());
        }
    }
    return {};
}

/// The title of the tab that @p control lies on.
QString titleOfTab(const QWidget *control)
{
    for (const QWidget *page = control; page; page = page->parentWidget()) {
        const QWidget *const stack = page->parentWidget();
        const auto *const tabs =
            stack ? qobject_cast<const QTabWidget *>(stack->parentWidget()) : nullptr;
        const int place = tabs ? tabs->indexOf(const_cast<QWidget *>(page)) : -1;
        if (place >= 0)
            return plain(tabs->tabText(place));
    }
    return {};
}

void gather(QWidget *widget, QList<QWidget *> *order);

/// The places of the items of @p layout as one reads them.
QVector<int> reading(const QLayout *layout)
{
    QVector<int> places;
    for (int i = 0; i < layout->count(); ++i)
        places.append(i);
    if (const auto *grid = qobject_cast<const QGridLayout *>(layout)) {
        const auto cell = [grid](int place) {
            int row = 0;
            int column = 0;
            int rows = 1;
            int columns = 1;
            grid->getItemPosition(place, &row, &column, &rows, &columns);
            return std::make_pair(row, column);
        };
        std::sort(places.begin(), places.end(),
                  [&cell](int one, int other) { return cell(one) < cell(other); });
    } else if (const auto *form = qobject_cast<const QFormLayout *>(layout)) {
        const auto cell = [form](int place) {
            int row = 0;
            QFormLayout::ItemRole role = QFormLayout::FieldRole;
            form->getItemPosition(place, &row, &role);
            return std::make_pair(row, int(role));
        };
        std::sort(places.begin(), places.end(),
                  [&cell](int one, int other) { return cell(one) < cell(other); });
    }
    return places;
}

void gather(const QLayout *layout, QList<QWidget *> *order)
{
    const QVector<int> places = reading(layout);
    for (int place : places) {
        QLayoutItem *const item = layout->itemAt(place);
        if (item->widget())
            gather(item->widget(), order);
        else if (item->layout())
            gather(item->layout(), order);
    }
}

void gather(QWidget *widget, QList<QWidget *> *order)
{
    if ((widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy())
        order->append(widget);
    if (isControl(widget))
        return;
    if (auto *const tabs = qobject_cast<QTabWidget *>(widget)) {
        order->append(tabs->tabBar());
        for (int i = 0; i < tabs->count(); ++i)
            gather(tabs->widget(i), order);
    } else if (widget->layout()) {
        gather(widget->layout(), order);
    }
}

} // namespace

void nameControls(QWidget *form)
{
    QSet<const QWidget *> labelled;
    const QList<QLabel *> labels = form->findChildren<QLabel *>();
    for (const QLabel *label : labels)
        labelled.insert(label->buddy());
    const QList<QWidget *> widgets = form->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (!isControl(widget) || labelled.contains(widget) || !widget->accessibleName().isEmpty()
            || !textOf(widget).isEmpty()) {
            continue;
        }
        QString name;
        if (qobject_cast<QAbstractButton *>(widget) && !Qt::mightBeRichText(widget->toolTip()))
            name = plain(widget->toolTip());
        if (name.isEmpty())
            name = textBeside(widget);
        widget->setAccessibleName(name.isEmpty() ? titleOfTab(widget) : name);
    }
}

void orderControls(QWidget *form)
{
    QList<QWidget *> order;
    gather(form, &order);
    for (int i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order.at(i - 1), order.at(i));
}

void freeLetters(QWidget *form, QSet<QString> taken)
{
    const auto freed = [&taken](const QString &text) {
        const QString letter = QKeySequence::mnemonic(text).toString();
        if (letter.isEmpty() || !taken.contains(letter)) {
            taken.insert(letter);
            return text;
        }
        return withoutLetter(text);
    };
    const QList<QWidget *> widgets = form->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (auto *const label = qobject_cast<QLabel *>(widget)) {
            if (label->buddy())
                label->setText(freed(label->text()));
        } else if (auto *const button = qobject_cast<QAbstractButton *>(widget)) {
            if (!button->text().isEmpty())
                button->setText(freed(button->text()));
        } else if (auto *const group = qobject_cast<QGroupBox *>(widget)) {
            group->setTitle(freed(group->title()));
        }
    }
}

} // namespace TextEditor
