// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef KEYBINDINGS_KEYBINDINGSWIDGET_P_H
#define KEYBINDINGS_KEYBINDINGSWIDGET_P_H

#include <QString>
#include <QWidget>

class QBoxLayout;
class QLabel;
class QLineEdit;
class QTimer;
class QTreeView;

namespace KeyBindings {

class CommandModel;
class KeysEditor;
class UserKeys;
struct Command;

/// The list of all commands with their keys, and below it what changes the keys
/// of the current one. Nothing holds until apply().
class KeyBindingsWidget final : public QWidget
{
    Q_OBJECT
public:
    explicit KeyBindingsWidget(UserKeys *userKeys, QWidget *parent = nullptr);
    ~KeyBindingsWidget() override;

    /// Stores what was changed and gives it to the commands.
    void apply();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void createList(QBoxLayout *layout);
    void fillList();
    void setFilter(const QString &text);
    void showList();
    void goToList();
    void select(const QString &id);
    [[nodiscard]] QString firstShown() const;
    /// Null without a current command.
    [[nodiscard]] const Command *current() const;
    void onCurrentChanged();
    void updateIcons();

    UserKeys *const m_userKeys;
    CommandModel *m_model;
    QLineEdit *m_filter;
    QLabel *m_count;
    QTreeView *m_list;
    KeysEditor *m_editor;
    QTimer *m_refresh;
    /// The command chosen last; stays while the filter hides it.
    QString m_current;
};

} // namespace KeyBindings

#endif // KEYBINDINGS_KEYBINDINGSWIDGET_P_H
