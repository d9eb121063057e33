// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef TESTS_TRANSLATIONS_TEXTINSPECTION_H
#define TESTS_TRANSLATIONS_TEXTINSPECTION_H

#include <QString>
#include <QStringList>

#include <functional>

class QAbstractItemView;
class QAction;
class QHeaderView;
class QMenu;
class QRect;
class QTabBar;
class QWidget;

/// Looks at the texts that a window shows: those that no catalogue gave, and those
/// that their place is too small for. What is not shown is not looked at.
class TextInspection final
{
public:
    using Judge = std::function<bool(const QString &text, const QString &place)>;

    /// @p isTranslated is asked about every text that is shown, without mnemonics;
    /// the place ends in class, name and part of the widget that shows it.
    explicit TextInspection(Judge isTranslated);

    /// @p window is shown and laid out. @p place begins each fault.
    void inspect(QWidget *window, const QString &place);
    /// Its actions and those of the menus in it, whether or not it is shown.
    void inspectMenu(QMenu *menu, const QString &place);
    /// A text that is shown somewhere.
    void inspectText(const QString &text, const QString &place);

    /// One line for each fault, in the order found.
    [[nodiscard]] QStringList faults() const { return m_faults; }
    /// How many texts were looked at.
    [[nodiscard]] int texts() const { return m_texts; }

private:
    void inspectWidget(QWidget *widget);
    void inspectAction(const QAction *action);
    void inspectMenus(const QMenu *menu, const QString &place);
    void inspectItems(const QAbstractItemView *view);
    void inspectHeader(const QHeaderView *header);
    void inspectTabs(const QTabBar *tabs);
    void inspectRoom(const QWidget *widget, const QString &text);
    void text(const QWidget *widget, const char *role, const QString &text);
    void fault(const QString &text);

    Judge m_isTranslated;
    QString m_place;
    QStringList m_faults;
    int m_texts = 0;
};

#endif // TESTS_TRANSLATIONS_TEXTINSPECTION_H
