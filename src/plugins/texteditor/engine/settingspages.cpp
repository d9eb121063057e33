// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <texteditor/engine/settingspages_p.h>

#include <texteditor/engine/foreignform_p.h>

#include <KTextEditor/ConfigPage>
#include <KTextEditor/Editor>

#include <KSharedConfig>

#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>

#include <algorithm>

namespace TextEditor {
namespace SettingsPages {

namespace {

/// Beyond it a page is scrolled sideways, so that the dialog fits any screen.
constexpr int WIDEST_PAGE = 800;

/// Their numbers in KTextEditor. The ones between and behind them choose colours,
/// which follow the theme of the program, and say how files are read and written,
/// which this program does itself.
int numberOf(SettingsPage page)
{
    return page == SettingsPage::Appearance ? 0 : 2;
}

/// The editor has a status line of its own, no second input mode, which would take
/// the keys of the commands, and no spell checking.
bool isUnwantedTab(const QWidget *tab)
{
    for (const char *name :
         {"StatusbarConfigWidget", "KateVi__ConfigWidget", "SpellCheckConfigWidget"}) {
        if (tab->objectName() == QLatin1String(name)
            || tab->findChild<QWidget *>(QLatin1String(name)))
            return true;
    }
    return false;
}

void removeUnwanted(QWidget *page)
{
    if (auto *const tabs = page->findChild<QTabWidget *>()) {
        // Only out of sight: the page reads what they show when it is applied.
        for (int i = tabs->count() - 1; i >= 0; --i) {
            if (isUnwantedTab(tabs->widget(i)))
                tabs->removeTab(i);
        }
    }
    for (const char *name : {"lblInputMode", "cmbInputMode", "chkSmartCopyCut",
                             "lblTextSelectionMode", "cbTextSelectionMode"}) {
        if (auto *const widget = page->findChild<QWidget *>(QLatin1String(name)))
            widget->hide();
    }
}

} // namespace

QWidget *create(SettingsPage page)
{
    auto *const area = new QScrollArea;
    KTextEditor::ConfigPage *const contents =
        KTextEditor::Editor::instance()->configPage(numberOf(page), area);
    if (!contents) {
        delete area;
        return nullptr;
    }
    removeUnwanted(contents);
    nameControls(contents);
    orderControls(contents);
    if (auto *const tabs = contents->findChild<QTabWidget *>()) {
        // Only one of them is seen at a time.
        for (int i = 0; i < tabs->count(); ++i)
            freeLetters(tabs->widget(i));
    }
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(contents);
    const int needed =
        contents->minimumSizeHint().width() + area->verticalScrollBar()->sizeHint().width();
    area->setMinimumWidth(std::min(needed, WIDEST_PAGE));
    return area;
}

void apply(QWidget *widget)
{
    const auto *const area = qobject_cast<QScrollArea *>(widget);
    auto *const contents = area ? qobject_cast<KTextEditor::ConfigPage *>(area->widget()) : nullptr;
    if (!contents)
        return;
    contents->apply();
    KSharedConfig::openConfig()->sync();
}

} // namespace SettingsPages
} // namespace TextEditor
