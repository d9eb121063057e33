// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/viewbars_p.h>

#include <texteditor/engine/foreignform_p.h>

#include <QAction>
#include <QComboBox>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenuBar>
#include <QPalette>
#include <QSet>
#include <QToolButton>

namespace TextEditor {

namespace {

QWidget *barAround(QWidget *widget)
{
    while (widget && !widget->inherits("KateViewBarWidget"))
        widget = widget->parentWidget();
    return widget;
}

QSet<QString> lettersOfMenus(const QWidget *window)
{
    QSet<QString> letters;
    const QList<QMenuBar *> bars = window->findChildren<QMenuBar *>();
    for (const QMenuBar *bar : bars) {
        const QList<QAction *> menus = bar->actions();
        for (const QAction *menu : menus)
            letters.insert(QKeySequence::mnemonic(menu->text()).toString());
    }
    return letters;
}

} // namespace

void ViewBars::prepare(QWidget *focus)
{
    QWidget *const bar = barAround(focus);
    if (!bar)
        return;
    const QList<QToolButton *> buttons = bar->findChildren<QToolButton *>();
    for (QToolButton *button : buttons) {
        // The one that closes the bar shows a cross and says nothing.
        if (button->text().isEmpty() && button->toolTip().isEmpty())
            button->setToolTip(tr("Close"));
    }
    nameControls(bar);
    freeLetters(bar, lettersOfMenus(bar->window()));
}

void ViewBars::resetColours(const QWidget *editor)
{
    const auto *const box = editor->findChild<QComboBox *>(QStringLiteral("pattern"));
    if (box && box->lineEdit())
        box->lineEdit()->setPalette(QPalette());
}

} // namespace TextEditor
