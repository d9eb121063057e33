// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "textinspection.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QSpinBox>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTextDocument>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>

namespace {

QString withoutMnemonics(QString text)
{
    // As Chinese has them, behind the text, and as English does, in it.
    static const QRegularExpression behind(QStringLiteral("\\(&.\\)"));
    text.remove(behind);
    text.replace(QLatin1String("&&"), QLatin1String("\1"));
    text.remove(QLatin1Char('&'));
    return text.replace(QLatin1Char('\1'), QLatin1Char('&'));
}

QString plain(const QString &text)
{
    if (!Qt::mightBeRichText(text))
        return text;
    QTextDocument document;
    document.setHtml(text);
    return document.toPlainText();
}

QString nameOf(const QWidget *widget)
{
    QString name = QLatin1String(widget->metaObject()->className());
    if (!widget->objectName().isEmpty())
        name += QLatin1Char(' ') + widget->objectName();
    return name;
}

/// KTextEditor has catalogues of its own, of no pseudo-language; what it shows above
/// a text is ours.
bool isForeign(const QWidget *widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (widget->inherits("KMessageWidget"))
            return false;
        if (widget->inherits("KTextEditor::View") || widget->inherits("KTextEditor::ConfigPage"))
            return true;
    }
    return false;
}

int widthOf(const QWidget *widget, const QString &text)
{
    return widget->fontMetrics().size(Qt::TextShowMnemonic, text).width();
}

} // namespace

TextInspection::TextInspection(Judge isTranslated)
    : m_isTranslated(std::move(isTranslated))
{
}

void TextInspection::inspect(QWidget *window, const QString &place)
{
    m_place = place;
    inspectText(window->windowTitle(), place + QLatin1String(" title"));
    if (auto *const menu = qobject_cast<QMenu *>(window))
        inspectMenus(menu, place);
    inspectWidget(window);
    const QList<QWidget *> widgets = window->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->isVisibleTo(window) && widget->window() == window && !isForeign(widget))
            inspectWidget(widget);
    }
}

void TextInspection::inspectMenu(QMenu *menu, const QString &place)
{
    m_place = place;
    Q_EMIT menu->aboutToShow();
    text(menu, "title", menu->title());
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions)
        inspectAction(action);
    inspectMenus(menu, place);
}

void TextInspection::inspectMenus(const QMenu *menu, const QString &place)
{
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions) {
        if (QMenu *const inner = action->menu()) {
            inspectMenu(inner, place + QLatin1String(" > ") + inner->title());
            m_place = place;
        }
    }
}

void TextInspection::inspectText(const QString &text, const QString &place)
{
    const QString shown = withoutMnemonics(plain(text)).trimmed();
    if (shown.isEmpty())
        return;
    ++m_texts;
    if (!m_isTranslated(shown, place))
        fault(QStringLiteral("%1: not translated: \"%2\"").arg(place, shown));
}

void TextInspection::inspectWidget(QWidget *widget)
{
    text(widget, "tool tip", widget->toolTip());
    text(widget, "status tip", widget->statusTip());
    text(widget, "accessible name", widget->accessibleName());
    text(widget, "accessible description", widget->accessibleDescription());
    const QList<QAction *> actions = widget->actions();
    for (const QAction *action : actions)
        inspectAction(action);

    if (const auto *label = qobject_cast<QLabel *>(widget)) {
        text(label, "text", label->text());
        inspectRoom(label, label->text());
    } else if (const auto *button = qobject_cast<QAbstractButton *>(widget)) {
        text(button, "text", button->text());
        inspectRoom(button, button->text());
    } else if (const auto *group = qobject_cast<QGroupBox *>(widget)) {
        text(group, "title", group->title());
        if (widthOf(group, group->title()) > group->width())
            fault(QStringLiteral("%1: no room for the title of %2").arg(m_place, nameOf(group)));
    } else if (const auto *edit = qobject_cast<QLineEdit *>(widget)) {
        // What stands in it is the user's.
        text(edit, "placeholder", edit->placeholderText());
        if (widthOf(edit, edit->placeholderText()) > edit->contentsRect().width())
            fault(
                QStringLiteral("%1: no room for the placeholder of %2").arg(m_place, nameOf(edit)));
    } else if (const auto *list = qobject_cast<QComboBox *>(widget)) {
        QStyleOptionComboBox option;
        option.initFrom(list);
        option.editable = list->isEditable();
        const QRect field = list->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                          QStyle::SC_ComboBoxEditField, list);
        for (int i = 0; i < list->count(); ++i) {
            text(list, "entry", list->itemText(i));
            const int icon = list->itemIcon(i).isNull() ? 0 : list->iconSize().width() + 4;
            // The filters of Qt's file dialog are as long as they are, and are read in
            // the list.
            if (!list->isEditable() && !list->window()->inherits("QFileDialog")
                && widthOf(list, list->itemText(i)) + icon > field.width())
                fault(QStringLiteral("%1: no room for \"%2\" of %3: it has %4 and needs %5")
                          .arg(m_place, list->itemText(i), nameOf(list))
                          .arg(field.width())
                          .arg(widthOf(list, list->itemText(i)) + icon));
        }
    } else if (const auto *spin = qobject_cast<QSpinBox *>(widget)) {
        text(spin, "prefix", spin->prefix());
        text(spin, "suffix", spin->suffix());
        inspectRoom(spin, spin->suffix());
    } else if (const auto *tabs = qobject_cast<QTabBar *>(widget)) {
        inspectTabs(tabs);
    } else if (const auto *header = qobject_cast<QHeaderView *>(widget)) {
        inspectHeader(header);
    } else if (const auto *dock = qobject_cast<QDockWidget *>(widget)) {
        text(dock, "title", dock->windowTitle());
        // Its buttons stand in the same line.
        int room = dock->width();
        const QList<QAbstractButton *> buttons =
            dock->findChildren<QAbstractButton *>(QString(), Qt::FindDirectChildrenOnly);
        for (const QAbstractButton *inTitle : buttons)
            room -= inTitle->isVisible() ? inTitle->width() : 0;
        if (widthOf(dock, dock->windowTitle()) > room)
            fault(QStringLiteral("%1: no room for the title of %2").arg(m_place, nameOf(dock)));
    } else if (const auto *area = qobject_cast<QPlainTextEdit *>(widget)) {
        // It has scroll bars. What can be written in it is the user's.
        if (area->isReadOnly())
            text(area, "text", area->toPlainText());
    } else if (auto *menuBar = qobject_cast<QMenuBar *>(widget)) {
        for (const QAction *action : actions) {
            const QRect place = menuBar->actionGeometry(const_cast<QAction *>(action));
            if (action->isVisible() && !menuBar->rect().contains(place))
                fault(QStringLiteral("%1: no room for the menu %2").arg(m_place, action->text()));
        }
    } else if (const auto *view = qobject_cast<QAbstractItemView *>(widget)) {
        inspectItems(view);
    }
}

void TextInspection::inspectAction(const QAction *action)
{
    if (action->isSeparator() || !action->isVisible())
        return;
    inspectText(action->text(), m_place + QLatin1String(": action"));
    // The key behind it is a name of its own.
    QString toolTip = plain(action->toolTip());
    const QString key = action->shortcut().toString(QKeySequence::NativeText);
    if (!key.isEmpty())
        toolTip.remove(key);
    inspectText(toolTip, m_place + QLatin1String(": tool tip of an action"));
    inspectText(action->statusTip(), m_place + QLatin1String(": status tip of an action"));
}

void TextInspection::inspectItems(const QAbstractItemView *view)
{
    const QAbstractItemModel *const model = view->model();
    // Files are what they are, and have as many columns as one makes room for.
    if (!model || view->window()->inherits("QFileDialog"))
        return;
    bool inDock = false;
    for (const QWidget *outer = view; outer && !inDock; outer = outer->parentWidget())
        inDock = qobject_cast<const QDockWidget *>(outer);
    const bool isInTree = qobject_cast<const QTreeView *>(view);
    std::function<void(const QModelIndex &)> walk = [&](const QModelIndex &parent) {
        // More rows of the same kind tell nothing new.
        const int rows = std::min(model->rowCount(parent), 50);
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < model->columnCount(parent); ++column) {
                const QModelIndex index = model->index(row, column, parent);
                const QString shown = index.data(Qt::DisplayRole).toString();
                text(view, "cell", shown);
                text(view, "tool tip of a cell", index.data(Qt::ToolTipRole).toString());
                text(view, "name of a cell", index.data(Qt::AccessibleTextRole).toString());
                const QRect place = view->visualRect(index);
                // A dock is as wide as the user makes it, and so is a column; in it
                // the tool tip has the whole text at once.
                const bool isInToolTip =
                    isInTree && index.data(Qt::ToolTipRole).toString() == shown;
                if (!inDock && !isInToolTip && !shown.isEmpty() && place.isValid()
                    && view->sizeHintForIndex(index).width() > place.width())
                    fault(QStringLiteral("%1: no room for the cell \"%2\" of %3")
                              .arg(m_place, shown, nameOf(view)));
            }
            walk(model->index(row, 0, parent));
        }
    };
    walk({});
}

void TextInspection::inspectHeader(const QHeaderView *header)
{
    if (!header->model())
        return;
    for (int section = 0; section < header->count(); ++section) {
        if (header->isSectionHidden(section))
            continue;
        text(header, "section",
             header->model()->headerData(section, header->orientation()).toString());
        text(header, "tool tip of a section",
             header->model()
                 ->headerData(section, header->orientation(), Qt::ToolTipRole)
                 .toString());
        if (header->orientation() == Qt::Horizontal && !header->window()->inherits("QFileDialog")
            && header->sectionSize(section) < header->sectionSizeHint(section))
            fault(QStringLiteral("%1: no room for the header \"%2\": %3 of %4")
                      .arg(m_place, header->model()->headerData(section, Qt::Horizontal).toString())
                      .arg(header->sectionSize(section))
                      .arg(header->sectionSizeHint(section)));
    }
}

void TextInspection::inspectTabs(const QTabBar *tabs)
{
    for (int i = 0; i < tabs->count(); ++i) {
        text(tabs, "tab", tabs->tabText(i));
        text(tabs, "tool tip of a tab", tabs->tabToolTip(i));
        const int icon = tabs->tabIcon(i).isNull() ? 0 : tabs->iconSize().width() + 4;
        if (widthOf(tabs, tabs->tabText(i)) + icon > tabs->tabRect(i).width())
            fault(QStringLiteral("%1: no room for the tab \"%2\"").arg(m_place, tabs->tabText(i)));
    }
}

void TextInspection::inspectRoom(const QWidget *widget, const QString &text)
{
    if (text.isEmpty() || !widget->parentWidget())
        return;
    const auto *label = qobject_cast<const QLabel *>(widget);
    // The whole of it is a glance away.
    if (label && label->toolTip() == text)
        return;
    QSize needed = widget->sizeHint();
    if (const auto *button = qobject_cast<const QToolButton *>(widget)) {
        if (button->toolButtonStyle() == Qt::ToolButtonIconOnly)
            return;
    }
    if (label && label->wordWrap())
        needed = QSize(label->minimumSizeHint().width(), label->heightForWidth(label->width()));
    if (needed.width() > widget->width() || needed.height() > widget->height())
        fault(QStringLiteral("%1: no room for \"%2\" of %3: it has %4 x %5 and needs %6 x %7")
                  .arg(m_place, text, nameOf(widget))
                  .arg(widget->width())
                  .arg(widget->height())
                  .arg(needed.width())
                  .arg(needed.height()));
    if (!widget->parentWidget()->rect().contains(widget->geometry()))
        fault(QStringLiteral("%1: \"%2\" of %3 is cut off by what it lies in")
                  .arg(m_place, text, nameOf(widget)));
}

void TextInspection::text(const QWidget *widget, const char *role, const QString &text)
{
    inspectText(text,
                QStringLiteral("%1: %2, %3").arg(m_place, nameOf(widget), QLatin1String(role)));
}

void TextInspection::fault(const QString &text)
{
    if (!m_faults.contains(text))
        m_faults.append(text);
}
